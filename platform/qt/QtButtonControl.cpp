#include "platform/qt/QtButtonControl.h"

#include <QKeyEvent>
#include <QStyleOptionButton>
#include <QStylePainter>

class QtButtonControl::PushButton : public QPushButton {
public:
    using QPushButton::QPushButton;

    bool IsPrimary = false;

protected:
    /// A primary button is painted here, because the styles would make the colour under its caption
    /// paler.
    void paintEvent(QPaintEvent* event) override {
        if (!IsPrimary || !isEnabled()) {
            QPushButton::paintEvent(event);
            return;
        }
        QStyleOptionButton option;
        initStyleOption(&option);
        const QColor text = option.palette.color(QPalette::HighlightedText);
        option.palette.setColor(QPalette::ButtonText, text);
        QStylePainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(PrimaryGround(option));
        painter.drawRoundedRect(rect(), 3, 3);
        const QStyle::State reached = QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
        if ((option.state & reached) == reached) {
            painter.setPen(text);
            painter.setBrush(Qt::NoBrush);
            painter.drawRoundedRect(QRectF(rect()).adjusted(2.5, 2.5, -2.5, -2.5), 2, 2);
        }
        painter.drawControl(QStyle::CE_PushButtonLabel, option);
    }

    void keyPressEvent(QKeyEvent* event) override {
        // Enter presses the button that has the focus, even when another one is the default button.
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
            event->accept();
            if (!event->isAutoRepeat()) {
                click();
            }
            return;
        }
        QPushButton::keyPressEvent(event);
    }

private:
    /// Under the mouse, the colour moves away from that of the caption; while pressed, further.
    static QColor PrimaryGround(const QStyleOptionButton& option) {
        const QColor ground = option.palette.color(QPalette::Highlight);
        const bool isDark =
            ground.lightness() < option.palette.color(QPalette::HighlightedText).lightness();
        const bool isUnderMouse = option.state.testFlag(QStyle::State_MouseOver);
        const int percent = option.state.testFlag(QStyle::State_Sunken) ? 130
                            : isUnderMouse                              ? 112
                                                                        : 100;
        return isDark ? ground.darker(percent) : ground.lighter(percent);
    }
};

QtButtonControl::QtButtonControl(QWidget* parent, const QString& name, const QString& caption)
    : QtButtonControl(new PushButton(caption, parent), name) {
}

QtButtonControl::QtButtonControl(PushButton* button, const QString& name)
    : QtControl(button, name), m_button(button) {
    Widget()->setAutoDefault(false);
    QObject::connect(Widget(), &QPushButton::clicked, Widget(), [this] {
        if (ControlWidget::IsReached(*Widget())) {
            QtFrames::Raise(Click);
        }
    });
}

void QtButtonControl::SetDefault(bool isDefault) {
    if (isDefault) {
        for (QPushButton* other : Widget()->window()->findChildren<QPushButton*>()) {
            other->setDefault(false);
        }
    }
    Widget()->setDefault(isDefault);
}

void QtButtonControl::MakePrimary() {
    m_button->IsPrimary = true;
}
