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

#include <stdexcept>

namespace {

void ShowError(Messages& messages, int number, const QString& description) {
    messages.Show(QStringLiteral("Error %1: %2").arg(number).arg(description),
                  QStringLiteral("Error"), MessageButtons::OK, MessageIcon::Critical);
}

/// A handler that fails unexpectedly ends with a message, and the program goes on.
class Application : public QApplication {
public:
    using QApplication::QApplication;

    Messages* MessageBoxes = nullptr;

    bool notify(QObject* receiver, QEvent* event) override {
        try {
            return QApplication::notify(receiver, event);
        } catch (const RuntimeError& error) {
            ShowError(*MessageBoxes, error.Number, error.Description);
        } catch (const std::out_of_range&) {
            const RuntimeError error(ErrorNumber::SubscriptOutOfRange);
            ShowError(*MessageBoxes, error.Number, error.Description);
        } catch (const std::bad_alloc&) {
            const RuntimeError error(ErrorNumber::OutOfMemory);
            ShowError(*MessageBoxes, error.Number, error.Description);
        }
        return false;
    }
};

} // namespace

int main(int argc, char** argv) {
    Application application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Songlift"));

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
    try {
        form.Form_Load();
    } catch (const RuntimeError& error) {
        ShowError(messages, error.Number, error.Description);
        return 1;
    }
    return QApplication::exec();
}
