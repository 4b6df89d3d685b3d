#include "platform/qt/QtLabelControl.h"

#include "platform/qt/ShownText.h"

#include <QMouseEvent>

class QtLabelControl::ClickLabel : public QLabel {
public:
    using QLabel::QLabel;

    Event Clicked;

protected:
    void mousePressEvent(QMouseEvent* event) override {
        event->setAccepted(event->button() == Qt::LeftButton);
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
            Raise(Clicked);
        }
    }
};

QtLabelControl::QtLabelControl(QWidget* parent, const QString& name, const QString& caption)
    : QtLabelControl(new ClickLabel(parent), name, caption) {
}

QtLabelControl::QtLabelControl(ClickLabel* label, const QString& name, const QString& caption)
    : QtControl(label, name) {
    label->Clicked = [this] { QtFrames::Raise(Click); };
    Widget()->setTextFormat(Qt::PlainText);
    // An empty label may ask for less height than any text.
    Widget()->setText(QStringLiteral("X"));
    SetHeight(Widget()->sizeHint().height() * Twips::PerPixelY());
    Widget()->clear();
    QtLabelControl::SetCaption(caption);
    QtLabelControl::SizeToCaption();
}

void QtLabelControl::SetCaption(const QString& caption) {
    if (caption == m_caption) {
        return;
    }
    m_caption = caption;
    // No label here leads to a neighbour, so there is no access key to show.
    QString text = ShownText::WithoutAccessKeys(caption);
    QString line;
    if (m_longest > 0) {
        line = ShownText::FittingLine(text, Widget()->fontMetrics(),
                                      int(m_longest / Twips::PerPixelX()));
        SetToolTip(line != text ? text : QString());
    } else {
        line = text = ShownText::OneLine(text);
    }
    const QString shown = ShownText::InReadingOrder(line);
    Widget()->setText(shown);
    // Marks of order, and what is left out, are for the eye alone.
    Widget()->setAccessibleName(shown != text ? text : QString());
}

void QtLabelControl::SizeToCaption() {
    SetWidth(Widget()->sizeHint().width() * Twips::PerPixelX());
}
