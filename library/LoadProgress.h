#pragma once

#include "library/MusicLibrary.h"
#include "platform/Controls.h"
#include "platform/EventLoop.h"
#include "platform/Window.h"

#include <optional>

/// The controls that show a load.
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
    /// Shows on the bar alone how much has been read before the first track, as a share of 1. The
    /// tracks then move the bar on from there.
    void ShowPartRead(float part);
    /// Sets the number of tracks to be loaded, which is 100%.
    void SetTotal(qint64 total);
    /// Shows that TrackCount has grown by one, and at each new percentage lets the window paint and
    /// answer. Throws TypeMismatch when no total was set, Overflow when the percentage passes
    /// 32,767, and OperationStopped when the window was closed.
    void TrackLoaded();
    /// Resets bar and caption, and marks the load as done.
    void End();

private:
    /// Shows the message of a minimised window in the task bar.
    void MirrorInCaption();

    MusicLibrary& m_library;
    EventLoop& m_events;
    LoadControls m_controls;
    /// The share of the bar that was filled before the tracks came.
    float m_partRead = 0;
    std::optional<double> m_total;
    /// The percentage in the message; -1 while it shows none.
    qint16 m_shownPercent = -1;
};
