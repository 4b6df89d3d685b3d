#pragma once

#include "platform/Controls.h"
#include "platform/qt/QtListDelegate.h"

#include <QListView>

#include <functional>
#include <utility>

/// The list's widget: turns mouse and keys into what they mean for the rows. Whoever is told may
/// change the rows at once. A list whose updates are disabled counts as hidden: the user cannot act
/// on it.
class QtListView : public QListView {
public:
    explicit QtListView(QWidget* parent);

    /// The user pressed the mouse on a row: on its check box, or beside it.
    std::function<void(int row, bool onCheckBox)> RowPressed;
    /// The user ticked or unticked a row.
    std::function<void(int row)> RowToggled;
    /// The user moved to another row with the keys.
    std::function<void()> CurrentRowMoved;
    /// The right button, or a key that stands for it, was pressed; `row` is -1 beside the rows.
    std::function<void(int row, const MouseState& mouse)> MenuPressed;
    MouseEvent OtherButtonPressed;
    MouseEvent MouseMoved;
    /// The user scrolled; programs that scroll are not heard.
    std::function<void()> Scrolled;

    /// Whether a screen reader listens. This and the next two stand for the desktop, and tests
    /// stand for it in turn.
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
    /// A press that waits for its release is void: the rows are others now.
    void ForgetPress() { m_pressedCheckBox = -1; }
    /// The rows that are in view, first and last; {0, -1} for none.
    std::pair<int, int> RowsInView() const;

    /// Lays the rows out at once rather than when the event loop runs.
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
    /// The row whose check box the left button went down on, -1 for none.
    int m_pressedCheckBox = -1;
    bool m_userScrolls = false;
    int m_fillings = 0;

    bool HidesFrom(const QEvent& event) const;
    void PressMenuKey();
    QPointF FromCorner(const QMouseEvent& event) const;
    bool IsOnCheckBox(int row, const QMouseEvent& event) const;
    void ListenToScrollBar();
};
