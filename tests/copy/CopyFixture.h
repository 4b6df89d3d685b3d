#pragma once

#include "app/Subsystems.h"
#include "tests/fakes/FakeForm1.h"
#include "tests/fakes/FakeServices.h"
#include "tests/fakes/RecordedFiles.h"
#include "tests/fakes/Text.h"

#include <gtest/gtest.h>

#include <deque>

/// The message of a completed job.
extern const ShownMessage Completed;

/// What the user does at one prompt for an existing file.
enum class PromptUse { Replace, Skip, Cancel, ReplaceAll, SkipAll, CancelAll, CloseBox };

/// Where a job puts half a film.
extern const QString Tmp;

/// The copy engine on fakes, wired as the main window wires it: an iPod at E:, the destination
/// D:\Music, no folder and name option ticked.
class CopyFixture {
public:
    CopyFixture();

    /// Adds a ticked track with its file of `bytes` on the device; an artist and album that are the
    /// last ones already go on. The files are named after their place: 1.mp3, 2.mp3, ...
    TrackRecord& AddTrack(const char* artist, const char* album, const char* title,
                          const QByteArray& bytes, qint32 trackNumber = 0);
    /// The same with a file of `size` pattern bytes.
    TrackRecord& AddLargeTrack(const char* artist, const char* album, const char* title,
                               qint32 size);
    /// Adds a track of one album for each title; its file holds the title.
    void AddTracks(std::initializer_list<const char*> titles);
    /// Ticks the options by the letters in `options`: A artist folder, B album folder, a artist
    /// name, b album name, n track number.
    void SetOptions(const char* options);
    /// Puts a search result in the place of the library, which leaves out all artists but the
    /// first.
    void ShowFirstArtistOnly();
    /// Presses the copy button.
    void Press();
    /// Does something when the job yields for the `yield`th time.
    void AtYield(int yield, Event action);
    /// Presses the copy button when the job yields for the `yield`th time.
    void CancelAtYield(int yield);
    /// Closes the window when the job yields for the `yield`th time.
    void CloseAtYield(int yield);

    QStringList Copied() const;
    /// The paths of Copied below the destination.
    QStringList Names() const;
    QByteArray Bytes(const char* path) const { return files.Bytes(Text(path)); }
    /// The window is as it is when no job runs.
    void ExpectIdle() const;
    /// What the user could change, but for the Clear button, can be changed or not.
    void ExpectEnabled(bool isEnabled) const;

    FakeForm1 form;
    RecordedFiles files;
    FakeMessages messages;
    FakeEventLoop events;
    InlineWorker worker;
    FakeShell shell;
    FakeSettingsStore store;
    FakeDriveService drives;
    Subsystems parts{
        {files, drives, store, shell, form.WindowManager, messages, events, worker, worker},
        form.Controls};
    MusicLibrary& library = parts.Loading.Library;
    SelectionSummary& summary = parts.Summary;
    Destination& destination = parts.Target;
    OverwritePrompt& prompt = parts.Prompt;
    CopyJob& job = parts.Job;

    /// What the user does at the prompts; when it has run out, the close box.
    std::deque<PromptUse> promptUses;
    /// The files asked about.
    QStringList prompted;
    /// How often the main window was unloaded for good.
    int closed = 0;

private:
    TrackRecord& AddRecord(const char* artist, const char* album, const char* title);
    void ShowPrompt();
    void OnQueryUnload(bool& cancel);
};
