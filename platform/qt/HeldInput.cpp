#include "platform/qt/HeldInput.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>
#include <QScopedValueRollback>
#include <QWidget>

namespace HeldInput {

namespace {

bool now = false;
QPointer<QWidget> closing;

/// Releases of keys and buttons pass, so that what was pressed before does not seem to be still
/// held.
bool IsInput(QEvent::Type type) {
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::ContextMenu:
    case QEvent::InputMethod:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::NativeGesture:
    case QEvent::DragEnter:
    case QEvent::Drop:
        return true;
    default:
        return false;
    }
}

class InputDropper : public QObject {
public:
    InputDropper() { QCoreApplication::instance()->installEventFilter(this); }

protected:
    bool eventFilter(QObject*, QEvent* event) override { return IsInput(event->type()); }
};

} // namespace

bool ProcessEvents() {
    const QScopedValueRollback held(now, true);
    {
        const InputDropper dropper;
        QCoreApplication::processEvents();
    }
    if (closing == nullptr) {
        return true;
    }
    // Queued, so that the work in which this was called ends first.
    QMetaObject::invokeMethod(
        closing, [window = closing.data()] { window->close(); }, Qt::QueuedConnection);
    closing.clear();
    return false;
}

bool IsNow() {
    return now;
}

void CloseLater(QWidget& window) {
    closing = &window;
}

} // namespace HeldInput
