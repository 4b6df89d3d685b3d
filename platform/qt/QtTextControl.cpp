#include "platform/qt/QtTextControl.h"

#include "platform/qt/FolderOffers.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace {

/// A click that gives the box the focus would also place the caret. Here it keeps the selection
/// that GotFocus has made, unless the user drags to select something else.
class TextBox : public QLineEdit {
public:
    using QLineEdit::QLineEdit;

protected:
    void focusInEvent(QFocusEvent* event) override {
        m_bringsFocus = event->reason() == Qt::MouseFocusReason;
        QLineEdit::focusInEvent(event);
    }
    void mousePressEvent(QMouseEvent* event) override {
        m_start = m_bringsFocus ? selectionStart() : -1;
        m_length = selectionLength();
        m_bringsFocus = false;
        QLineEdit::mousePressEvent(event);
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        QLineEdit::mouseReleaseEvent(event);
        const int start = std::exchange(m_start, -1);
        if (event->button() == Qt::LeftButton && start >= 0 && !hasSelectedText()) {
            setSelection(start, m_length);
        }
    }

private:
    /// The mouse press that follows has given the box the focus.
    bool m_bringsFocus = false;
    /// The selection to keep, from before the press; -1 for none.
    int m_start = -1;
    int m_length = 0;
};

} // namespace

QtTextControl::QtTextControl(QWidget* parent, const QString& name)
    : QtControl(new TextBox(parent), name) {
    QObject::connect(Widget(), &QLineEdit::textChanged, &m_listener, [this] {
        if (!m_setting) {
            QtFrames::Raise(Change);
        }
    });
    QObject::connect(qApp, &QApplication::focusChanged, &m_listener,
                     [this](QWidget*, QWidget* now) { FocusMovedTo(now); });
}

void QtTextControl::SetText(const QString& text) {
    const QString before = Text();
    {
        const QScopedValueRollback guard(m_setting, true);
        Widget()->setText(text);
    }
    if (Text() != before) {
        Raise(Change);
    }
}

void QtTextControl::Select(int start, int length) {
    const int size = int(Text().size());
    const int from = std::clamp(start, 0, size);
    Widget()->setSelection(from, std::clamp(length, 0, size - from));
}

void QtTextControl::FocusMovedTo(const QWidget* widget) {
    if (widget == nullptr || Widget() == nullptr || widget->window() != Widget()->window()) {
        return;
    }
    const bool hasFocus = widget == Widget();
    if (hasFocus == m_hasFocus) {
        return;
    }
    m_hasFocus = hasFocus;
    QtFrames::Raise(hasFocus ? GotFocus : LostFocus);
}

void QtTextControl::CompletePaths() {
    new FolderOffers(Widget()); // deleted by the widget
}
