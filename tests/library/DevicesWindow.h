#pragma once

#include "app/Subsystems.h"
#include "tests/fakes/FakeForm1.h"
#include "tests/fakes/FakeServices.h"
#include "tests/fakes/RecordedFiles.h"
#include "tests/library/LibraryText.h"
#include "tests/support/ITunesDBWriter.h"

/// A window on fakes that lists and loads iPods, wired as the program wires it; only what the user
/// does to tabs and search box ends here.
class DevicesWindow : public testing::Test {
protected:
    FakeForm1 Window;
    FakeMessages Boxes;
    RecordedFiles Files;
    FakeDriveService Drives;
    FakeSettingsStore Store;
    FakeShell Shell;
    FakeEventLoop Events;
    InlineWorker Background;
    Subsystems Parts{
        {Files, Drives, Store, Shell, Window.WindowManager, Boxes, Events, Background, Background},
        Window.Controls};
    LoadMusic& Music = Parts.Loading;
    DeviceSelection& Devices = Parts.Devices;
    /// What DeviceSelection has raised, in order.
    QStringList Raised;
    /// The filter tab's Click events that came while the filter was not locked.
    int UnlockedTabClicks = 0;

    DevicesWindow();

    static QString DatabaseOn(QChar letter);
    static QString LibraryOn(QChar letter);

    /// Attaches an iPod whose library holds `titles`, by one artist.
    void AttachIPod(char letter, const QString& name, const QStringList& titles);
    void Detach(char letter);

    /// Opens the list of devices and chooses one.
    void Choose(int index) {
        Window.Combo1.UserDropDown();
        Window.Combo1.UserChoose(index);
    }

    /// Does to the window what the browser does with a library.
    void FillWindow();
    /// Attaches, loads and fills in an iPod at E:.
    void ShowIPod();

    QStringList Titles() const;
    void ExpectErrorLoadingIPod() const;
    /// The window is as FillWindow has left it.
    void ExpectFilled() const;
    /// The window looks as without a chosen device; its label shows `message`.
    void ExpectReset(const QString& message) const;
};
