#include "platform/qt/QtListView.h"

#include "platform/qt/MouseInput.h"
#include "platform/qt/QtListAccessible.h"
#include "platform/qt/ShownText.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTimer>
#include <QToolTip>

namespace {

void SendFocus(QtListView* list, int row) {
    QAccessibleEvent event(list, QAccessible::Focus);
    event.setChild(row);
    QAccessible::updateAccessibility(&event);
}

void SendCheckChanged(QtListView* list, int row) {
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent event(list, changed);
    event.setChild(row);
    QAccessible::updateAccessibility(&event);
}

} // namespace

QtListView::QtListView(QWidget* parent)
    : QListView(parent), IsHeard(QAccessible::isActive),
      AnnounceTick([this](int row) { SendCheckChanged(this, row); }),
      AnnounceFocus([this](int row) { SendFocus(this, row); }) {
    QtListAccessible::Install();
    setItemDelegate(&m_delegate);
    setUniformItemSizes(true);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setDragEnabled(false);
    setVerticalScrollMode(ScrollPerItem);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideRight);
    setMouseTracking(true);
    ListenToScrollBar();
}

void QtListView::ListenToScrollBar() {
    QScrollBar* bar = verticalScrollBar();
    // Only the user triggers actions; setValue in code does not. An action is signalled before the
    // value changes.
    connect(bar, &QScrollBar::actionTriggered, this,
            [this, bar] { m_userScrolls = bar->sliderPosition() != bar->value(); });
    connect(bar, &QScrollBar::valueChanged, this, [this] {
        if (m_userScrolls && Scrolled) {
            m_userScrolls = false;
            Scrolled();
        }
    });
}

void QtListView::dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                             const QList<int>& roles) {
    Q_UNUSED(roles)
    // QListView would lay out all rows again and paint them all.
    viewport()->update(visualRect(topLeft).united(visualRect(bottomRight)));
}

void QtListView::reset() {
    ++m_fillings;
    QListView::reset();
}

void QtListView::MakeCurrent(int row, bool scrollToIt) {
    if (row == CurrentRow()) {
        return;
    }
    if (row == -1) {
        selectionModel()->clear();
        return;
    }
    setAutoScroll(scrollToIt);
    setCurrentIndex(model()->index(row, 0));
    setAutoScroll(true);
}

std::pair<int, int> QtListView::RowsInView() const {
    const int count = model()->rowCount();
    const QModelIndex first = indexAt(QPoint(0, 0));
    if (!first.isValid()) {
        return {0, -1};
    }
    const QModelIndex last = indexAt(QPoint(0, viewport()->height() - 1));
    return {first.row(), last.isValid() ? last.row() : count - 1};
}

QPointF QtListView::FromCorner(const QMouseEvent& event) const {
    return event.position() + viewport()->pos();
}

bool QtListView::IsOnCheckBox(int row, const QMouseEvent& event) const {
    const QModelIndex index = model()->index(row, 0);
    return m_delegate.CheckArea(*this, index).contains(event.position().toPoint());
}

void QtListView::mousePressEvent(QMouseEvent* event) {
    event->accept();
    ForgetPress();
    const QPoint position = event->position().toPoint();
    if (event->button() == Qt::RightButton) {
        MenuPressed(indexAt(position).row(), MouseInput::OfButton(*event, FromCorner(*event)));
        return;
    }
    OtherButtonPressed(MouseInput::OfButton(*event, FromCorner(*event)));
    const QModelIndex index = indexAt(position);
    if (event->button() != Qt::LeftButton || !index.isValid()) {
        return;
    }
    const bool onCheckBox = IsOnCheckBox(index.row(), *event);
    m_pressedCheckBox = onCheckBox ? index.row() : -1;
    RowPressed(index.row(), onCheckBox);
}

void QtListView::mouseDoubleClickEvent(QMouseEvent* event) {
    // Two quick clicks on a check box tick it twice.
    mousePressEvent(event);
}

void QtListView::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    const QModelIndex index = indexAt(event->position().toPoint());
    const int pressed = std::exchange(m_pressedCheckBox, -1);
    if (event->button() == Qt::LeftButton && index.isValid() && index.row() == pressed &&
        IsOnCheckBox(pressed, *event)) {
        RowToggled(pressed);
    }
}

void QtListView::mouseMoveEvent(QMouseEvent* event) {
    event->accept();
    MouseMoved(MouseInput::OfMove(*event, FromCorner(*event)));
}

void QtListView::keyPressEvent(QKeyEvent* event) {
    if (HidesFrom(*event)) {
        return;
    }
    if (event->key() == Qt::Key_Space) {
        event->accept();
        if (CurrentRow() >= 0 && !event->isAutoRepeat()) {
            RowToggled(CurrentRow());
        }
        return;
    }
    // Few keyboards still have a menu key, and on X11 nothing turns Shift+F10 into one.
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
        event->accept();
        PressMenuKey();
        return;
    }
    const int before = CurrentRow();
    QListView::keyPressEvent(event);
    if (CurrentRow() != before) {
        CurrentRowMoved();
    }
}

void QtListView::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    if (event->reason() == QContextMenuEvent::Keyboard) {
        PressMenuKey();
    }
}

void QtListView::PressMenuKey() {
    if (CurrentRow() >= 0) {
        scrollTo(currentIndex());
        const QPointF middle = visualRect(currentIndex()).center() + viewport()->pos();
        MenuPressed(CurrentRow(), MouseInput::OfMenuKey(middle));
    }
}

void QtListView::focusInEvent(QFocusEvent* event) {
    // QListView would make the first row current when none is.
    QAbstractScrollArea::focusInEvent(event); // NOLINT(bugprone-parent-virtual-call)
    viewport()->update();
    if (IsHeard()) {
        // Later, so that it follows the news that the list itself has the focus.
        QTimer::singleShot(0, this, [this] {
            if (hasFocus() && CurrentRow() >= 0) {
                AnnounceFocus(CurrentRow());
            }
        });
    }
}

bool QtListView::HidesFrom(const QEvent& event) const {
    return !updatesEnabled() && event.isInputEvent();
}

bool QtListView::viewportEvent(QEvent* event) {
    if (HidesFrom(*event)) {
        return true;
    }
    if (event->type() != QEvent::ToolTip) {
        return QListView::viewportEvent(event);
    }
    const QHelpEvent* help = static_cast<QHelpEvent*>(event);
    const QModelIndex index = indexAt(help->pos());
    const bool elided = index.isValid() && m_delegate.IsElided(*this, index);
    const QString text = elided ? index.data().toString() : toolTip();
    QToolTip::showText(help->globalPos(), ShownText::ToolTip(text), viewport(),
                       elided ? visualRect(index) : QRect());
    return true;
}

QItemSelectionModel::SelectionFlags QtListView::selectionCommand(const QModelIndex& index,
                                                                 const QEvent* event) const {
    Q_UNUSED(event)
    // The current row is always the selected one, whatever keys are held.
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}
