#pragma once

#include "platform/Controls.h"
#include "platform/qt/QtListDelegate.h"

#include <QListView>

#include <functional>
#include <utility>

/// The list's widget: translates mouse and keys into what the user does to the rows. The listeners
/// may change the rows at once. A list whose updates are disabled counts as hidden: the user cannot
/// act on it.
class QtListView : public QListView {
public:
    explicit QtListView(QWidget* parent);

    /// The user pressed the mouse on a row: on its check box, or elsewhere in the row.
    std::function<void(int row, bool onCheckBox)> RowPressed;
    /// The user ticked or unticked a row.
    std::function<void(int row)> RowToggled;
    /// The user moved to another row with the keys.
    std::function<void()> CurrentRowMoved;
    /// The right button, or a key that means the same, was pressed; `row` is -1 outside the rows.
    std::function<void(int row, const MouseState& mouse)> MenuPressed;
    MouseEvent OtherButtonPressed;
    MouseEvent MouseMoved;
    /// The user scrolled. Not called when the program scrolls.
    std::function<void()> Scrolled;

    /// Whether a screen reader is listening. This function and the next two connect the list to the
    /// desktop; tests replace them.
    std::function<bool()> IsHeard;
    /// Tells screen readers that a row's check has changed.
    std::function<void(int row)> AnnounceTick;
    /// Tells screen readers that a row has the focus.
    std::function<void(int row)> AnnounceFocus;

    /// Whether the user can act on the list.
    bool IsUsable() const { return isEnabled() && updatesEnabled(); }
    /// Counts how often the list has been filled.
    int Fillings() const { return m_fillings; }
    int CurrentRow() const { return currentIndex().row(); }
    /// Makes a row current, -1 for none.
    void MakeCurrent(int row, bool scrollToIt);
    /// Forgets a press that waits for its release, because the rows have changed.
    void ForgetPress() { m_pressedCheckBox = -1; }
    /// The first and the last row in view; {0, -1} when there are none.
    std::pair<int, int> RowsInView() const;

    /// Lays out the rows now instead of when the event loop runs.
    void LayOutNow() { executeDelayedItemsLayout(); }

    void reset() override;
    void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                     const QList<int>& roles) override;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent* event) const override;

private:
    QtListDelegate m_delegate;
    /// The row on whose check box the left button was pressed; -1 for none.
    int m_pressedCheckBox = -1;
    bool m_userScrolls = false;
    int m_fillings = 0;

    bool HidesFrom(const QEvent& event) const;
    void PressMenuKey();
    QPointF FromCorner(const QMouseEvent& event) const;
    bool IsOnCheckBox(int row, const QMouseEvent& event) const;
    void ListenToScrollBar();
};
