#pragma once

#include "library/MusicLibrary.h"
#include "platform/Controls.h"
#include "platform/EventLoop.h"
#include "platform/Window.h"

#include <optional>

/// What a load shows of itself in.
struct LoadControls {
    Window& Form1;
    ComboControl& Combo1;
    LabelControl& lblMessage;
    ProgressControl& prgCopy;
};

/// What the window shows while a library loads, and the state of the library that goes with it.
class LoadProgress {
public:
    LoadProgress(MusicLibrary& library, EventLoop& events, const LoadControls& controls);

    /// Marks the library as loading and empty; its records stay until the reader replaces them.
    void Start();
    /// Sets the number of tracks to come, which stands for 100%.
    void SetTotal(qint64 total);
    /// Shows that one more track counts in TrackCount, and now and then looks after the window.
    /// Throws TypeMismatch when there is no total,
    /// Overflow when the percentage passes 32,767, and OperationStopped when the window was closed.
    void TrackLoaded();
    /// Brings bar and caption back, and marks the load as done.
    void End();

private:
    /// Lets the task bar show the message of a minimised window.
    void MirrorInCaption();

    MusicLibrary& m_library;
    EventLoop& m_events;
    LoadControls m_controls;
    std::optional<double> m_total;
    /// The percentage in the message, -1 while the message tells none.
    qint16 m_shownPercent = -1;
};
