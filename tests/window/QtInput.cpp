#include "tests/window/QtInput.h"

#include <QStyle>
#include <QStyleOptionViewItem>
#include <QWheelEvent>
#include <QWindow>

namespace QtInput {

namespace {

QWindow* WindowOf(const QWidget& widget) {
    return widget.window()->windowHandle();
}

QPoint InWindow(const QWidget& widget, QPoint position) {
    return widget.mapTo(widget.window(), position);
}

} // namespace

void ShowActive(QWidget& window) {
    window.show();
    QApplication::setActiveWindow(&window);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
}

void Settle() {
    for (int i = 0; i < 5; ++i) {
        QCoreApplication::processEvents();
    }
}

void Press(QWidget& widget, QPoint position, Qt::MouseButton button) {
    QTest::mousePress(WindowOf(widget), button, {}, InWindow(widget, position));
}

void Release(QWidget& widget, QPoint position, Qt::MouseButton button) {
    QTest::mouseRelease(WindowOf(widget), button, {}, InWindow(widget, position));
}

void Click(QWidget& widget, QPoint position, Qt::MouseButton button) {
    Press(widget, position, button);
    Release(widget, position, button);
}

void DoubleClick(QWidget& widget, QPoint position) {
    QTest::mouseDClick(WindowOf(widget), Qt::LeftButton, {}, InWindow(widget, position));
}

void MoveTo(QWidget& widget, QPoint position) {
    QTest::mouseMove(WindowOf(widget), InWindow(widget, position));
}

void WheelDown(QWidget& widget) {
    const QPoint middle = widget.rect().center();
    QWheelEvent event(middle, widget.mapToGlobal(QPointF(middle)), QPoint(), QPoint(0, -120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&widget, &event);
}

void Key(QWidget& widget, Qt::Key key) {
    QTest::keyClick(WindowOf(widget), key);
}

void Type(QWidget& widget, const QString& text) {
    for (const QChar character : text) {
        QTest::keyClick(WindowOf(widget), character.toLatin1());
    }
}

QPoint TextOf(const QListView& list, int row) {
    const QRect area = list.visualRect(list.model()->index(row, 0));
    return list.viewport()->mapTo(&list, QPoint(area.right() - 3, area.center().y()));
}

QPoint CheckBoxOf(const QListView& list, int row) {
    QStyleOptionViewItem option;
    option.initFrom(&list);
    option.rect = list.visualRect(list.model()->index(row, 0));
    option.features = QStyleOptionViewItem::HasCheckIndicator;
    const QRect box =
        list.style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, &list);
    return list.viewport()->mapTo(&list, box.center());
}

} // namespace QtInput
