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
#include "tests/support/SampleTrack.h"

#include <QTemporaryDir>

/// The program with the devices of a scratch folder attached, of which the first is loaded.
class BenchWindow {
public:
    /// Attaches two devices with the same library, so that each can be chosen anew.
    BenchWindow(const std::vector<SampleTrack>& tracks, bool sqlite);

    Form1Controls& Controls() { return m_window.Controls(); }
    FileSystem& Files() { return m_files; }
    FakeMessages& MessageBoxes() { return m_messages; }
    /// The folder of the first device.
    QString DeviceFolder() const { return m_folder.filePath(QStringLiteral("one")); }
    /// A folder on the same disk.
    QString Scratch(const QString& name) const { return m_folder.filePath(name); }
    /// Chooses the device that is not loaded, which loads the library afresh.
    void Reload();
    /// Lets the window paint what has changed.
    static void Paint();

private:
    QTemporaryDir m_folder;
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
