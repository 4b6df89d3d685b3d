#include "platform/qt/QtHandleControl.h"

#include "platform/qt/MouseInput.h"

namespace {

class SplitterBar : public QWidget {
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
        Pressed(MouseInput::OfButton(*event, event->position()));
    }
    void mouseMoveEvent(QMouseEvent* event) override {
        event->accept();
        Moved(MouseInput::OfMove(*event, event->position()));
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        event->accept();
        Released(MouseInput::OfButton(*event, event->position()));
    }
};

/// Passes the mouse on to whoever listens by then.
MouseEvent PassOn(const MouseEvent& listener) {
    return [&listener](const MouseState& mouse) {
        if (listener) {
            listener(mouse);
        }
    };
}

} // namespace

QtHandleControl::QtHandleControl(QWidget* parent, const QString& name)
    : QtControl(new SplitterBar(parent), name) {
    auto* bar = static_cast<SplitterBar*>(Widget());
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
