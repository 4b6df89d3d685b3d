#include "platform/qt/QtProgressControl.h"

#include <QPainter>

#include <algorithm>

/// Paints itself: the bars of the styles are animated and striped, which costs more than loading a
/// whole library.
class QtProgressControl::PixelBar : public QProgressBar {
public:
    using QProgressBar::QProgressBar;

    Event Resized;

protected:
    void resizeEvent(QResizeEvent* event) override {
        QProgressBar::resizeEvent(event);
        // A range of 0 would look as if the end of the work were unknown.
        setRange(0, std::max(1, width()));
        Raise(Resized);
    }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        // Filled areas only: at a scale like 1.5 the end of a line would differ from theirs.
        const QRect inside = rect().adjusted(1, 1, -1, -1);
        painter.fillRect(rect(), palette().color(QPalette::Mid));
        painter.fillRect(inside, palette().color(QPalette::Base));
        painter.fillRect(inside & QRect(0, 0, value(), height()),
                         palette().color(QPalette::Highlight));
    }
};

QtProgressControl::QtProgressControl(QWidget* parent, const QString& name)
    : QtProgressControl(new PixelBar(parent), name) {
}

QtProgressControl::QtProgressControl(PixelBar* bar, const QString& name) : QtControl(bar, name) {
    Widget()->setTextVisible(false);
    Widget()->setRange(0, std::max(1, Widget()->width()));
    Widget()->setValue(0);
    bar->Resized = [this] { ShowValue(); };
}

void QtProgressControl::SetMax(float max) {
    m_max = max;
    ShowValue();
}

void QtProgressControl::SetValue(float value) {
    m_value = value;
    ShowValue();
}

void QtProgressControl::ShowValue() {
    const int filled = FilledPixels();
    if (filled != Widget()->value()) {
        // Otherwise the widget would paint at once for each pixel; now it waits for the next frame.
        Widget()->setUpdatesEnabled(false);
        Widget()->setValue(filled);
        Widget()->setUpdatesEnabled(true);
    }
}

int QtProgressControl::FilledPixels() const {
    if (!(m_max > 0) || !(m_value > 0)) {
        return 0;
    }
    const double share = std::min(1.0, double(m_value) / double(m_max));
    return int(share * Widget()->maximum());
}
