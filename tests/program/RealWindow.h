#pragma once

#include "app/Form1Window.h"
#include "platform/qt/QtEventLoop.h"
#include "platform/qt/QtWindowManager.h"
#include "tests/app/ProgramFixture.h"
#include "tests/window/QtInput.h"

/// The program on its real window, and a user with mouse and keyboard before it.
class RealWindow {
public:
    /// `background` takes the place of a worker that does all at once.
    explicit RealWindow(Worker* background = nullptr);

    /// Plugs in an iPod at E:.
    void PlugIn(const std::vector<SampleTrack>& tracks = SmallLibrary());
    void Unplug();
    /// Starts the program with an iPod at E:, or without one.
    void Start(const std::vector<SampleTrack>& tracks = SmallLibrary());
    void StartWithout();

    QWidget& Top() { return *window.Window().Widget(); }
    template <class WidgetType = QWidget>
    WidgetType& Widget(const char* name) {
        return *Top().findChild<WidgetType*>(QString::fromLatin1(name));
    }

    void ClickRow(const char* list, int row);
    void TickRow(const char* list, int row);
    void ClickOn(const char* control);
    void ClickTab(int index);
    /// Types at whatever has the focus.
    void Type(const char* text);
    void Key(Qt::Key key);
    /// Drags from the middle of a control by so many pixels.
    void Drag(const char* control, int dx);
    void Resize(int width, int height);

    /// Presses the copy button; returns the message that the user sees.
    QStringList Copy();
    /// The files in the destination.
    QStringList Copied() const;
    QStringList Rows(const ListControl& list) const;

    RecordedFiles files;
    FakeDriveService drives;
    FakeSettingsStore store;
    FakeShell shell;
    FakeMessages messages;
    QtEventLoop events;
    InlineWorker worker;
    QtWindowManager windowManager;
    Form1Window window{windowManager};
    Form1Controls& controls = window.Controls();
    FakeWindow frmPreview;
    FakeMediaPlayerControl player;
    PreviewControls preview{frmPreview, player};
    std::function<void(OverwritePrompt&)> AtPrompt;
    Services services;
    Form1 program{services, controls, preview,
                  [this](OverwritePrompt& prompt) { AtPrompt(prompt); }};
};
