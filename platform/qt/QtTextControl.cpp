#include "platform/qt/QtTextControl.h"

#include "platform/qt/FolderOffers.h"

#include <QApplication>

#include <algorithm>

QtTextControl::QtTextControl(QWidget* parent, const QString& name)
    : QtControl(new QLineEdit(parent), name) {
    QObject::connect(Widget(), &QLineEdit::textChanged, &m_listener, [this] { Raise(Change); });
    QObject::connect(qApp, &QApplication::focusChanged, &m_listener,
                     [this](QWidget*, QWidget* now) { FocusMovedTo(now); });
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
    Raise(hasFocus ? GotFocus : LostFocus);
}

void QtTextControl::CompletePaths() {
    new FolderOffers(Widget()); // which goes with it
}
