#pragma once

#include "platform/qt/QtControl.h"

#include <QCheckBox>

/// A check box with its caption. Only the user raises Click.
class QtCheckControl : public QtControl<CheckControl, QCheckBox> {
public:
    QtCheckControl(QWidget* parent, const QString& name, const QString& caption);

    QString Caption() const override { return Widget()->text(); }
    bool Value() const override { return Widget()->isChecked(); }
    void SetValue(bool ticked) override { Widget()->setChecked(ticked); }
};
