#pragma once

#include "app/Subsystems.h"
#include "platform/linux/LinuxDrives.h"
#include "platform/linux/LinuxFileSystem.h"
#include "tests/fakes/FakeForm1.h"
#include "tests/fakes/FakeServices.h"
#include "tests/fakes/Text.h"
#include "tests/places/TreeListing.h"
#include "tests/platform/LinuxFixture.h"
#include "tests/support/SampleTrack.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

/// The length of file in the database from which on a track is copied in chunks.
constexpr qint64 InChunks = 50000001;

/// A folder of the real disk with an iPod in it (attached as E:), a destination and things that are
/// none of the job's business; and the job, on fake controls. The user ignores every failure and
/// answers the prompt for an existing file with `onPrompt`.
class JobOnDisk : public testing::Test {
protected:
    JobOnDisk();
    ~JobOnDisk() override;

    /// Native paths: of something in the whole folder, on the iPod, in its first music folder, in
    /// the destination.
    QString World(const char* name = "") const { return Below(m_world.path(), name); }
    QString Ipod(const char* name = "") const { return Below(World("IPOD"), name); }
    QString Music(const char* name = "") const;
    QString Destination(const char* name = "") const { return Below(World("Copied"), name); }

    /// Adds a track to the iPod's database: `location` is its path below the iPod's music folder,
    /// with "/" between the names. A small file that is really there unless it says otherwise.
    SampleTrack& AddTrack(const QString& title, const QString& location, qint64 fileSize = 5);
    /// Adds a track with its file F00/<number>.mp3 of `bytes`.
    SampleTrack& AddSong(const QString& title, const QByteArray& bytes, qint64 fileSize = 5);

    /// Writes the database, loads it, ticks everything and presses the copy button.
    void Run();
    /// Presses the copy button for what is loaded.
    void Press();

    /// The messages of the last job, each as "title: text".
    QStringList MessagesShown() const;
    /// Nothing outside the destination is other than before the job.
    void ExpectRestUntouched() const;
    QStringList Copied() const { return FilesIn(Destination()); }
    QByteArray CopiedBytes(const char* name) const { return ReadFile(Destination(name)); }

    static QString Below(const QString& folder, const char* name);

    FakeForm1 form;
    FakeMessages messages;
    std::vector<SampleTrack> tracks;
    OverwritePrompt::Answer onPrompt = OverwritePrompt::Skip;
    QStringList prompted;

private:
    void Load();

    QTemporaryDir m_world;
    LinuxDrives m_drives;

protected:
    LinuxFileSystem files{m_drives};

private:
    FakeEventLoop m_events;
    InlineWorker m_worker;
    FakeShell m_shell;
    FakeSettingsStore m_store;
    Subsystems m_parts{{files, m_drives, m_store, m_shell, form.WindowManager, messages, m_events,
                        m_worker, m_worker},
                       form.Controls};
    QStringList m_before;
};
