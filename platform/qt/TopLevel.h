#pragma once

#include "platform/Controls.h"

#include <QWidget>

/// The widget of a window. Enter presses its default button; Escape closes it while it is modal.
class TopLevel : public QWidget {
public:
    TopLevel(QWidget* owner, Qt::WindowFlags flags);

    Event Resized;
    Event StateChanged;
    /// The window was hidden or closed, not minimised.
    Event Hidden;
    /// Whether the window may close.
    std::function<bool()> MayClose;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void PressDefaultButton();
};
