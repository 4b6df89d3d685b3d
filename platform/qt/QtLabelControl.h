#pragma once

#include "platform/qt/QtControl.h"

#include <QLabel>

/// One line of text.
class QtLabelControl : public QtControl<LabelControl, QLabel> {
public:
    QtLabelControl(QWidget* parent, const QString& name, const QString& caption = {});

    QString Caption() const override { return m_caption; }
    void SetCaption(const QString& caption) override;
    void SizeToCaption() override;

    /// From now on, wider captions are painted without the middle of the path that they quote; the
    /// tool tip and screen readers have all of it.
    void LimitWidth(double width) { m_longest = width; }

private:
    class ClickLabel;

    QtLabelControl(ClickLabel* label, const QString& name, const QString& caption);

    /// In twips; 0 for no limit.
    double m_longest = 0;
    QString m_caption;
};
