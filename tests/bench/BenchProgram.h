#pragma once

#include "app/Form1.h"
#include "app/Form1Window.h"
#include "app/PreviewWindow.h"
#include "platform/ThreadWorker.h"
#include "platform/linux/LinuxDrives.h"
#include "platform/linux/LinuxFileSystem.h"
#include "platform/qt/QtEventLoop.h"
#include "platform/qt/QtShell.h"
#include "platform/qt/QtWindowManager.h"
#include "tests/fakes/FakeServices.h"

#include <QElapsedTimer>

/// The real event loop, and a clock beside it.
class TimedEventLoop : public EventLoop {
public:
    TimedEventLoop();
    void BeginWork() override { m_events.BeginWork(); }
    void Yield() override;
    qint64 MillisecondsToYield() const override { return m_events.MillisecondsToYield(); }
    bool YieldHoldingInput() override { return m_events.YieldHoldingInput(); }

    /// Seconds spent in yields: painting, and looking for what the user does.
    double InYields = 0;
    /// The longest time between two yields, in seconds: a user may wait so long for an answer.
    double LongestPause = 0;
    /// Begins anew.
    void Start();

private:
    QtEventLoop m_events;
    QElapsedTimer m_sinceYield;
};

/// The program, started, with real services and windows; only its message boxes answer themselves,
/// and nothing is kept in the user's settings. SONGLIFT_DRIVES names its devices.
class BenchProgram {
public:
    BenchProgram();

    Form1Controls& Controls() { return m_window.Controls(); }
    FileSystem& Files() { return m_files; }
    FakeMessages& MessageBoxes() { return m_messages; }
    TimedEventLoop& Events() { return m_events; }
    /// Lets the window paint what has changed.
    static void Paint();

private:
    LinuxDrives m_drives;
    LinuxFileSystem m_files{m_drives};
    FakeSettingsStore m_store;
    QtShell m_shell;
    QtWindowManager m_windowManager;
    TimedEventLoop m_events;
    ThreadWorker m_background;
    ThreadWorker m_ahead;
    FakeMessages m_messages;
    Form1Window m_window{m_windowManager};
    PreviewWindow m_preview{m_window.Window().Widget(), m_files};
    std::unique_ptr<Form1> m_form;
};
