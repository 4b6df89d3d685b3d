#include "platform/qt/QtHandleControl.h"

#include "platform/qt/MouseInput.h"

class QtHandleControl::SplitterBar : public QWidget {
public:
    explicit SplitterBar(QWidget* parent) : QWidget(parent) {
        setCursor(Qt::SplitHCursor);
        setMouseTracking(true);
        setAutoFillBackground(true);
    }

    MouseEvent Pressed, Moved, Released;

protected:
    void mousePressEvent(QMouseEvent* event) override {
        event->accept();
        m_held = true;
        Pressed(MouseInput::OfButton(*event, event->position()));
    }
    void mouseMoveEvent(QMouseEvent* event) override {
        event->accept();
        if (m_held && event->buttons() == Qt::NoButton) {
            Release(*event); // a message opened during the drag, and got the release
        }
        Moved(MouseInput::OfMove(*event, event->position()));
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        event->accept();
        Release(*event);
    }

private:
    bool m_held = false;

    void Release(const QMouseEvent& event) {
        m_held = false;
        Released(MouseInput::OfButton(event, event.position()));
    }
};

namespace {

/// Passes the mouse on to the listener that is set when an event occurs.
MouseEvent PassOn(const MouseEvent& listener) {
    return [&listener](const MouseState& mouse) { QtFrames::Raise(listener, mouse); };
}

} // namespace

QtHandleControl::QtHandleControl(QWidget* parent, const QString& name)
    : QtHandleControl(new SplitterBar(parent), name) {
}

QtHandleControl::QtHandleControl(SplitterBar* bar, const QString& name) : QtControl(bar, name) {
    bar->Pressed = PassOn(MouseDown);
    bar->Moved = PassOn(MouseMove);
    bar->Released = PassOn(MouseUp);
    bar->setBackgroundRole(QPalette::Window);
}

void QtHandleControl::SetBackColor(SystemColor color) {
    m_color = color;
    Widget()->setBackgroundRole(color == SystemColor::DarkShadow3D ? QPalette::Dark
                                                                   : QPalette::Window);
}
