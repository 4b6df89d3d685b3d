#pragma once

#include <QApplication>
#include <QListView>
#include <QPaintEvent>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

/// The mouse and the keys of a user, at the window: the events find their widget as they do in
/// front of a screen.
namespace QtInput {

/// Shows a window, and waits until keys reach it.
void ShowActive(QWidget& window);
/// Lets everything be painted that is to be.
void Settle();

/// Positions are in pixels from the widget's top left corner.
void Press(QWidget& widget, QPoint position, Qt::MouseButton button = Qt::LeftButton);
void Release(QWidget& widget, QPoint position, Qt::MouseButton button = Qt::LeftButton);
void Click(QWidget& widget, QPoint position, Qt::MouseButton button = Qt::LeftButton);
void DoubleClick(QWidget& widget, QPoint position);
void MoveTo(QWidget& widget, QPoint position);
/// A notch of the mouse wheel, downwards.
void WheelDown(QWidget& widget);

/// Keys go to the widget that has the focus in the window of `widget`.
void Key(QWidget& widget, Qt::Key key);
void Type(QWidget& widget, const QString& text);

/// Where a row's text and its check box are, in pixels from the list's top left corner.
QPoint TextOf(const QListView& list, int row);
QPoint CheckBoxOf(const QListView& list, int row);

} // namespace QtInput

/// Remembers what a widget paints from now on.
class PaintSpy : public QObject {
public:
    int Paints = 0;
    QRegion Painted;

    explicit PaintSpy(QWidget* widget) { widget->installEventFilter(this); }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            ++Paints;
            Painted += static_cast<QPaintEvent*>(event)->region();
        }
        return false;
    }
};
