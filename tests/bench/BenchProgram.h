#pragma once

#include "app/Form1.h"
#include "app/Form1Window.h"
#include "app/PreviewWindow.h"
#include "platform/linux/LinuxDrives.h"
#include "platform/linux/LinuxFileSystem.h"
#include "platform/qt/QtEventLoop.h"
#include "platform/qt/QtShell.h"
#include "platform/qt/QtWindowManager.h"
#include "tests/fakes/FakeServices.h"

/// The program, started, with real services and windows; only its message boxes answer themselves,
/// and nothing is kept in the user's settings. SONGLIFT_DRIVES names its devices.
class BenchProgram {
public:
    BenchProgram();

    Form1Controls& Controls() { return m_window.Controls(); }
    FileSystem& Files() { return m_files; }
    FakeMessages& MessageBoxes() { return m_messages; }
    /// Lets the window paint what has changed.
    static void Paint();

private:
    LinuxDrives m_drives;
    LinuxFileSystem m_files{m_drives};
    FakeSettingsStore m_store;
    QtShell m_shell;
    QtWindowManager m_windowManager;
    QtEventLoop m_events;
    FakeMessages m_messages;
    Form1Window m_window{m_windowManager};
    PreviewWindow m_preview{m_window.Window().Widget(), m_files};
    std::unique_ptr<Form1> m_form;
};
