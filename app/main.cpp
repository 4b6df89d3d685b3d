#include "app/Application.h"
#include "app/Form1.h"
#include "app/Form1Window.h"
#include "app/OverwriteWindow.h"
#include "app/PreviewWindow.h"
#include "platform/ThreadWorker.h"
#include "platform/qt/QtEventLoop.h"
#include "platform/qt/QtMessages.h"
#include "platform/qt/QtSettingsStore.h"
#include "platform/qt/QtShell.h"
#include "platform/qt/QtWindowManager.h"
#include "platform/qt/SessionEnd.h"

#include <QDir>
#include <QIcon>

#include <memory>

#ifdef Q_OS_WIN
#include "platform/windows/QuitRequests.h"
#include "platform/windows/WindowsDrives.h"
#include "platform/windows/WindowsFileSystem.h"
#else
#include "platform/linux/LinuxDrives.h"
#include "platform/linux/LinuxFileSystem.h"
#include "platform/linux/QuitSignals.h"
#include "platform/linux/SharedHeap.h"
#endif

using namespace Qt::StringLiterals;

namespace {

#ifdef Q_OS_WIN
using SystemDrives = WindowsDrives;

std::shared_ptr<FileSystem> NewFileSystem(WindowsDrives&) {
    return std::make_shared<WindowsFileSystem>();
}

void ShareOneHeap() {
    // Threads have no heaps of their own here.
}
#else
using SystemDrives = LinuxDrives;
using QuitRequests = QuitSignals;

std::shared_ptr<FileSystem> NewFileSystem(LinuxDrives& drives) {
    return std::make_shared<LinuxFileSystem>(drives);
}
#endif

/// The installed icon, in the user's theme; else the one built into the program.
QIcon ProgramIcon() {
    QIcon carried;
    const QDir sizes(u":/icon"_s);
    for (const QString& size : sizes.entryList()) {
        carried.addFile(sizes.filePath(size));
    }
    return QIcon::fromTheme(QString::fromLatin1(SONGLIFT_ID), carried);
}

} // namespace

int main(int argc, char** argv) {
    ShareOneHeap();
    Application application(argc, argv);
    QApplication::setApplicationName(u"Songlift"_s);
    QApplication::setApplicationVersion(QString::fromLatin1(SONGLIFT_VERSION));
    QApplication::setDesktopFileName(QString::fromLatin1(SONGLIFT_ID));
    QApplication::setWindowIcon(ProgramIcon());

    // Shared, since a thread that hangs in them may outlive everything else.
    const auto drives = std::make_shared<SystemDrives>();
    const std::shared_ptr<FileSystem> files = NewFileSystem(*drives);
    ThreadWorker background;
    ThreadWorker ahead;
    QtSettingsStore store;
    QtShell shell;
    QtWindowManager windowManager;
    QtEventLoop events;

    Form1Window window(windowManager);
    QtMessages messages(window.Window().Widget());
    application.MessageBoxes = &messages;
    PreviewWindow preview(window.Window().Widget(), *files);
    const Services services{.Files = *files,
                            .Drives = *drives,
                            .Store = store,
                            .Desktop = shell,
                            .Windows = windowManager,
                            .MessageBoxes = messages,
                            .Events = events,
                            .Background = background,
                            .Ahead = ahead};
    Form1 form(services, window.Controls(), preview.Controls(), [&](OverwritePrompt& prompt) {
        OverwriteWindow(window.Window().Widget(), prompt).Ask();
    });
    const bool isLoaded = TellFailure(messages, [&form] { form.Form_Load(); });
    // Without settings that can be read no window opens; where a device fails, the window waits for
    // the next one.
    if (!isLoaded && !window.Window().Widget()->isVisible()) {
        return 1;
    }
    const QuitRequests requests([&form] {
        SessionEnd::SetNow(true); // and never false again: this cannot be refused
        form.QuitUnasked();
        QApplication::quit();
    });
    return QApplication::exec();
}
