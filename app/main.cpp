#include "app/Form1.h"
#include "app/Form1Window.h"
#include "app/OverwriteWindow.h"
#include "app/PreviewWindow.h"
#include "platform/RuntimeError.h"
#include "platform/linux/LinuxDrives.h"
#include "platform/linux/LinuxFileSystem.h"
#include "platform/qt/QtEventLoop.h"
#include "platform/qt/QtMessages.h"
#include "platform/qt/QtSettingsStore.h"
#include "platform/qt/QtShell.h"
#include "platform/qt/QtWindowManager.h"

#include <QApplication>
#include <QDir>
#include <QIcon>

#include <stdexcept>

namespace {

void ShowError(Messages& messages, const RuntimeError& error) {
    messages.Show(QStringLiteral("Error ") + QString::number(error.Number) + QStringLiteral(": ") +
                      error.Description,
                  QStringLiteral("Error"), MessageButtons::OK, MessageIcon::Critical);
}

/// Runs `work` and tells the user what it fails with. False when it failed.
template <class Work>
bool TellFailure(Messages& messages, const Work& work) {
    try {
        work();
        return true;
    } catch (const RuntimeError& error) {
        ShowError(messages, error);
    } catch (const std::out_of_range&) {
        ShowError(messages, RuntimeError(ErrorNumber::SubscriptOutOfRange));
    } catch (const std::bad_alloc&) {
        ShowError(messages, RuntimeError(ErrorNumber::OutOfMemory));
    }
    return false;
}

/// A handler that fails unexpectedly ends with a message, and the program goes on.
class Application : public QApplication {
public:
    using QApplication::QApplication;

    Messages* MessageBoxes = nullptr;

    bool notify(QObject* receiver, QEvent* event) override {
        bool handled = false;
        TellFailure(*MessageBoxes, [&] { handled = QApplication::notify(receiver, event); });
        return handled;
    }
};

/// The icon as it is installed, in the user's theme; else the one that the program carries.
QIcon ProgramIcon() {
    QIcon carried;
    const QDir sizes(QStringLiteral(":/icon"));
    for (const QString& size : sizes.entryList()) {
        carried.addFile(sizes.filePath(size));
    }
    return QIcon::fromTheme(QStringLiteral(SONGLIFT_ID), carried);
}

} // namespace

int main(int argc, char** argv) {
    Application application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Songlift"));
    QApplication::setDesktopFileName(QStringLiteral(SONGLIFT_ID));
    QApplication::setWindowIcon(ProgramIcon());

    LinuxDrives drives;
    LinuxFileSystem files(drives);
    QtSettingsStore store;
    QtShell shell;
    QtWindowManager windowManager;
    QtEventLoop events;

    Form1Window window(windowManager);
    QtMessages messages(window.Window().Widget());
    application.MessageBoxes = &messages;
    PreviewWindow preview(window.Window().Widget(), files);
    const Services services{files, drives, store, shell, windowManager, messages, events};
    Form1 form(services, window.Controls(), preview.Controls(), [&](OverwritePrompt& prompt) {
        OverwriteWindow(window.Window().Widget(), prompt).Ask();
    });
    if (!TellFailure(messages, [&form] { form.Form_Load(); })) {
        return 1;
    }
    return QApplication::exec();
}
