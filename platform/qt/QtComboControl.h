#pragma once

#include "platform/qt/QtControl.h"

#include <QComboBox>

/// A drop-down list. The mouse wheel chooses nothing while it is closed.
class QtComboControl : public QtControl<ComboControl, QComboBox> {
public:
    QtComboControl(QWidget* parent, const QString& name);

    int ListCount() const override { return Widget()->count(); }
    QString List(int index) const override;
    void Clear() override { Widget()->clear(); }
    void AddItem(const QString& text) override;
    QString Text() const override { return Widget()->currentText(); }
    void SetText(const QString& text) override;

private:
    class DropDownList;

    QtComboControl(DropDownList* list, const QString& name);
};
