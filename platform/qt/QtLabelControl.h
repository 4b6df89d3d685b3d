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

private:
    QString m_caption;
};
