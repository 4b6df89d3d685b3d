#include "platform/qt/QtLabelControl.h"

#include "platform/qt/ShownText.h"

#include <QMouseEvent>

using namespace Qt::StringLiterals;

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
    // An empty label may need less height than one with a text.
    Widget()->setText(u"X"_s);
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
    // None of these labels moves the focus to a neighbour, so no access key is shown.
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
    // Marks of reading order and omissions are only for the eye; screen readers get the full text.
    Widget()->setAccessibleName(shown != text ? text : QString());
}

void QtLabelControl::SizeToCaption() {
    SetWidth(Widget()->sizeHint().width() * Twips::PerPixelX());
}
