#pragma once

#include "app/Form1.h"
#include "tests/fakes/FakeForm1.h"
#include "tests/fakes/FakeServices.h"
#include "tests/fakes/RecordedFiles.h"
#include "tests/fakes/Text.h"
#include "tests/support/SampleTrack.h"

/// The whole program on fakes: every subsystem, wired as it is delivered.
class ProgramFixture {
public:
    ProgramFixture();

    /// Plugs in an iPod whose library and media files are those of `tracks`.
    void PlugIn(QChar letter, const QString& volumeName, const std::vector<SampleTrack>& tracks);
    void Unplug(QChar letter);
    void Start() { program.Form_Load(); }
    /// Fails the test when a search or a job is left over: something hidden, locked or busy.
    void ExpectAtRest() const;

    FakeForm1 form;
    RecordedFiles files;
    FakeDriveService drives;
    FakeSettingsStore store;
    FakeShell shell;
    FakeMessages messages;
    FakeEventLoop events;
    InlineWorker worker;
    FakeWindow frmPreview;
    FakeMediaPlayerControl player{form.Focus};
    PreviewControls preview{frmPreview, player};
    /// What the user does at the overwrite prompt.
    std::function<void(OverwritePrompt&)> AtPrompt;
    Services services{files,    drives, store,  shell, form.WindowManager,
                      messages, events, worker, worker};
    Form1 program{services, form.Controls, preview,
                  [this](OverwritePrompt& prompt) { AtPrompt(prompt); }};
};

/// A small library: two artists, three albums, five songs and a video.
std::vector<SampleTrack> SmallLibrary();
