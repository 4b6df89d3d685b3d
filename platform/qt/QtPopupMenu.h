#pragma once

#include "platform/Controls.h"

#include <QMenu>
#include <QPointer>

/// A menu of one entry.
class QtPopupMenu : public PopupMenu {
public:
    QtPopupMenu(QWidget* parent, const QString& name, const QString& entryName,
                const QString& entryCaption);
    ~QtPopupMenu() override;
    QtPopupMenu(const QtPopupMenu&) = delete;
    QtPopupMenu& operator=(const QtPopupMenu&) = delete;

    MenuEntry Entry;

    /// The tool tip of the entry.
    void SetEntryToolTip(const QString& text);
    /// The choice is reported by the entry's Click.
    void PopUp(const Control& control, double x, double y) override;

private:
    QPointer<QMenu> m_menu;
};
