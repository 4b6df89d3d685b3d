#pragma once

#include "app/Subsystems.h"
#include "platform/linux/LinuxFileSystem.h"
#include "tests/fakes/FakeForm1.h"
#include "tests/fakes/FakeServices.h"
#include "tests/fakes/Text.h"

#include <gtest/gtest.h>

#include <map>

/// What the user answers when something fails.
enum class Policy { Retry, Ignore, Stop };

/// What of a copy may be left beside the files.
enum class Leftovers {
    None,
    /// Only those that were there before the job, untouched.
    Earlier,
    Any
};

/// A folder that stands for an iPod, the folder that is copied to, and what is to come there. The
/// folders outlive the jobs, one of which may be killed.
struct JobFolders {
    /// Makes both in `work`.
    explicit JobFolders(const QString& work);

    QString Device;
    QString Destination;
    MusicLibrary Library;
    /// The bytes that belong under each path in the destination.
    std::map<QString, QByteArray> Wanted;
    /// What stands in the destination before the job and is replaced by it.
    std::map<QString, QByteArray> Old;
    /// The user's own files there.
    std::map<QString, QByteArray> Own;
    /// What a killed job has left there.
    std::map<QString, QByteArray> Left;

    /// Adds a ticked track with its file on the device; an artist and album that are the last ones
    /// go on.
    TrackRecord& AddTrack(const char* artist, const char* album, const char* title,
                          const QByteArray& bytes);
    /// A track that is copied in chunks through "tmp", whatever the length of `bytes`.
    TrackRecord& AddFilm(const char* artist, const char* album, const char* title,
                         const QByteArray& bytes);
    void AddOld(const QString& path, const QByteArray& bytes);
    void AddOwn(const QString& path, const QByteArray& bytes);
    void AddLeft(const QString& path, const QByteArray& bytes);

    /// The path of a track's file on the device.
    QString FileOf(const TrackRecord& track) const;
    /// Every entry of the device with its size and the times of its last changes.
    QStringList DeviceState() const;
    /// Every file in the destination is whole: the wanted one, or the one that was there before and
    /// is never missing.
    void ExpectWholeFilesOnly(Leftovers allowed) const;
    /// The destination holds the wanted files and the user's own, and nothing else.
    void ExpectAllCopied() const;
};

/// The copy job on the real file system, with a window of fakes.
class RealJob {
public:
    /// Waits for the files inline, or lets other workers wait, as the program does.
    explicit RealJob(const JobFolders& folders, Worker* otherWorker = nullptr,
                     Worker* otherAhead = nullptr);
    ~RealJob();

    /// Presses the copy button.
    void Press();
    /// Lets the user answer failures by `policy` from now on; Yes is never answered.
    void AnswerBy(Policy policy);
    bool IsCompleted() const;
    /// The window is as it is when no job runs.
    void ExpectIdle() const;

    FakeForm1 form;
    std::shared_ptr<LinuxDrives> sharedDrives = std::make_shared<LinuxDrives>();
    LinuxDrives& drives = *sharedDrives;
    std::shared_ptr<LinuxFileSystem> sharedFiles = std::make_shared<LinuxFileSystem>(drives);
    LinuxFileSystem& files = *sharedFiles;
    FakeMessages messages;
    FakeEventLoop events;
    InlineWorker inlineWorker;
    Worker& worker;
    Worker& ahead;
    FakeShell shell;
    FakeSettingsStore store;
    Subsystems parts{
        {files, drives, store, shell, form.WindowManager, messages, events, worker, ahead},
        form.Controls};
    MusicLibrary& library = parts.Loading.Library;
    SelectionSummary& summary = parts.Summary;
    Destination& destination = parts.Target;
    OverwritePrompt& prompt = parts.Prompt;
    CopyJob& job = parts.Job;

    /// How many own the files while no thread works for the job.
    const long ownersAtRest = sharedFiles.use_count();

    /// The answer to every prompt for an existing file.
    OverwritePrompt::Answer overwriteAnswer = OverwritePrompt::Replace;
    /// The files asked about.
    QStringList prompted;
};
