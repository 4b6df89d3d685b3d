// Whole jobs between disks that are slow or hang, on the real threads: the window is looked after
// all the while, and a stop acts at once.

#include "platform/ThreadWorker.h"
#include "tests/faults/RealJob.h"
#include "tests/faults/SweptFolders.h"
#include "tests/platform/LinuxFixture.h"
#include "tests/support/ServedDisk.h"
#include "tests/support/Walks.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>

#include <algorithm>
#include <chrono>
#include <functional>
#include <iostream>
#include <random>
#include <thread>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

using namespace std::chrono_literals;

/// A window seems to answer at once when it does within this time.
constexpr qint64 AtOnce = 100;
/// A stopped job is at rest by then.
constexpr qint64 Soon = 500;
/// What other programs may take of the processor meanwhile; all in milliseconds.
constexpr qint64 OfOthers = 150;

/// Whether this process has a file open.
bool IsOpen(const QString& path) {
    const QDir descriptors(u"/proc/self/fd"_s);
    const QStringList names = descriptors.entryList(QDir::AllEntries | QDir::System);
    return std::any_of(names.begin(), names.end(), [&](const QString& name) {
        return QFile::symLinkTarget(descriptors.filePath(name)) == path;
    });
}

class SlowJob : public testing::Test {
protected:
    SlowJob() : m_folders(m_work.path()) {}
    void SetUp() override {
        for (const SlowDisk* disk : {&m_device, &m_target}) {
            if (!disk->Impossible().isEmpty()) {
                GTEST_SKIP() << qPrintable(disk->Impossible());
            }
            ASSERT_TRUE(disk->IsMounted());
        }
        MakeFolder(m_folders.Device + u"/iPod_Control/Music/F00"_s);
    }

    void AddSongAndFilm(qsizetype length) {
        m_folders.AddTrack("Abba", "Arrival", "Song", Pattern(length));
        m_folders.AddFilm("Abba", "Live", "Film", Pattern(length).mid(1));
        m_folders.AddTrack("Beck", "Guero", "Last", "last");
    }

    /// Presses the button and lets the user act: `act` is called in each yield, with the time since
    /// the press. Measures how long the window was left alone, and how long the job went on after
    /// `act` has first returned true.
    void Run(RealJob& job, const std::function<bool(qint64)>& act) {
        QElapsedTimer clock;
        QElapsedTimer sinceYield;
        float shown = 0;
        m_longestPause = 0;
        m_sinceStop.invalidate();
        clock.start();
        sinceYield.start();
        job.events.OnYield = [&](int) {
            m_longestPause = std::max(m_longestPause, sinceYield.elapsed());
            if (!m_sinceStop.isValid() && act(clock.elapsed())) {
                m_sinceStop.start();
            }
            EXPECT_GE(job.form.prgCopy.Value(), shown) << "the bar runs back";
            shown = job.form.prgCopy.Value();
            sinceYield.start();
        };
        job.Press();
        m_untilRest = m_sinceStop.isValid() ? m_sinceStop.elapsed() : -1;
        EXPECT_LT(m_longestPause, AtOnce + OfOthers);
        EXPECT_LT(m_untilRest, Soon + OfOthers);
    }

    /// Runs a job with a disk that gets into trouble, and cancels it there.
    void CancelInTrouble(RealJob& job, SlowDisk& disk, const char* trouble) {
        bool isInTrouble = false;
        Run(job, [&](qint64 time) {
            if (job.job.Copying && !std::exchange(isInTrouble, true)) {
                disk.Be(trouble);
            } else if (time > 200) {
                job.Press();
            }
            return time > 200;
        });
    }

    /// Ten seconds at most.
    static void WaitWhile(const std::function<bool()>& isBusy) {
        for (int waited = 0; waited < 1000 && isBusy(); ++waited) {
            std::this_thread::sleep_for(10ms);
        }
    }

    /// Waits until no thread works for the job any more.
    static void LetHangingThreadsEnd(const RealJob& job) {
        WaitWhile([&] { return job.sharedFiles.use_count() > job.ownersAtRest; });
        EXPECT_EQ(job.sharedFiles.use_count(), job.ownersAtRest);
    }

    QTemporaryDir m_work{FolderInMemory()};
    JobFolders m_folders;
    SlowDisk m_device{m_folders.Device};
    SlowDisk m_target{m_folders.Destination};
    ThreadWorker m_worker;
    ThreadWorker m_ahead;
    qint64 m_longestPause = 0;
    qint64 m_untilRest = 0;
    /// Since the user has stopped the job.
    QElapsedTimer m_sinceStop;
};

} // namespace

TEST_F(SlowJob, TheWindowIsLookedAfterAndTheBarMovesInsideAFileAtAnySpeed) {
    AddSongAndFilm(1500000);
    for (const char* speed : {"speed=1000000", "speed=8000000", "speed=30000000"}) {
        SCOPED_TRACE(speed);
        m_device.Be(speed);
        RealJob job(m_folders, &m_worker, &m_ahead);
        Run(job, [](qint64) { return false; });
        EXPECT_TRUE(job.IsCompleted());
        job.ExpectIdle();
        const auto& values = job.form.prgCopy.Values;
        const auto isInSong = [](float value) { return value > 0 && value < 1500000; };
        EXPECT_GE(std::count_if(values.begin(), values.end(), isInSong), 2);
        EXPECT_GE(values.size(), 10U);
        m_folders.ExpectAllCopied();
    }
}

TEST_F(SlowJob, TheNextFileIsOpenedBeforeItsTurnAndClosedWhenTheJobIsStopped) {
    m_folders.AddTrack("Abba", "Arrival", "Song", Pattern(1500000));
    const QString next = m_folders.FileOf(m_folders.AddTrack("Abba", "Arrival", "Next", "next"));
    const QString song = m_folders.Destination + u"/Abba/Arrival/Song.mp3"_s;
    for (const bool isStopped : {false, true}) {
        QDir(m_folders.Destination + u"/Abba"_s).removeRecursively();
        m_device.Be("speed=1000000");
        RealJob job(m_folders, &m_worker, &m_ahead);
        job.events.ToYield = 0; // else two files are copied at once
        bool wasOpen = false;
        Run(job, [&](qint64) {
            wasOpen = wasOpen || (IsOpen(next) && !IsThere(song));
            if (isStopped && wasOpen) {
                job.Press();
            }
            return isStopped && wasOpen;
        });
        EXPECT_TRUE(wasOpen);
        m_ahead.Do([] {}, [] { return true; });
        EXPECT_FALSE(IsOpen(next));
    }
}

TEST_F(SlowJob, CancelStopsInsideAFileWhateverHangs) {
    AddSongAndFilm(1500000);
    const std::pair<SlowDisk*, const char*> troubles[] = {
        {&m_device, "speed=1000000"}, {&m_device, "stall=read"},  {&m_device, "stall=open"},
        {&m_target, "stall=write"},   {&m_target, "stall=close"}, {&m_target, "stall=change"},
        {&m_target, "stall=find"}};
    for (const char* folder : {"Abba", "Abba/Live"}) {
        for (const auto& [disk, trouble] : troubles) {
            SCOPED_TRACE(testing::Message() << folder << ", " << trouble);
            m_folders.Library.Artists[0].Albums[0].Checked = Text(folder) == u"Abba"_s;
            RealJob job(m_folders, &m_worker, &m_ahead);
            CancelInTrouble(job, *disk, trouble);
            EXPECT_EQ(job.messages.Texts(), QStringList());
            job.ExpectIdle();
            if (Text(trouble).startsWith(u"speed"_s)) {
                m_folders.ExpectWholeFilesOnly(Leftovers::None);
                EXPECT_FALSE(IsThere(m_folders.Destination + u"/tmp"_s));
            }
            disk->Be("");
            LetHangingThreadsEnd(job);
            m_folders.ExpectWholeFilesOnly(Leftovers::None);
            EXPECT_FALSE(IsThere(m_folders.Destination + u"/Abba/Arrival/Song.mp3"_s));
            EXPECT_FALSE(IsThere(m_folders.Destination + u"/Abba/Live/Film.mp3"_s));
        }
    }
    m_folders.Library.Artists[0].Albums[0].Checked = true;
    RealJob job(m_folders, &m_worker, &m_ahead);
    job.Press();
    m_folders.ExpectAllCopied();
}

TEST_F(SlowJob, WhatComesBackAfterTheNextJobHarmsNothing) {
    for (const char* artist : {"Abba", "Beck"}) {
        m_folders.AddTrack(artist, "Arrival", "Song", Pattern(1500000));
        m_folders.AddFilm(artist, "Live", "Film", Pattern(1500000));
    }
    auto& artists = m_folders.Library.Artists;
    struct Case {
        bool IsSmall;
        SlowDisk& Disk;
        const char* Stall;
        const char* Hold;
    };
    // A film that hangs while it is written keeps "copy.tmp" from the next one.
    for (const auto& [isSmall, disk, stall, hold] :
         {Case{true, m_device, "stall=read", "hold=read"},
          Case{false, m_device, "stall=read", "hold=read"},
          Case{true, m_target, "stall=write", "hold=write"}}) {
        SCOPED_TRACE(testing::Message() << isSmall << stall);
        artists[0].Checked = true;
        artists[0].Albums[0].Checked = isSmall;
        RealJob job(m_folders, &m_worker, &m_ahead);
        CancelInTrouble(job, disk, stall);
        disk.Be(hold);
        artists[0].Checked = false;
        RealJob next(m_folders, &m_worker, &m_ahead);
        next.Press();
        EXPECT_TRUE(next.IsCompleted());
        const QString hanging = m_folders.FileOf(artists[0].Albums[isSmall ? 0 : 1].Tracks[0]);
        EXPECT_TRUE(IsOpen(hanging));
        disk.Be("");
        WaitWhile([&] { return IsOpen(hanging); });
        LetHangingThreadsEnd(job);
        m_folders.ExpectWholeFilesOnly(Leftovers::None);
        EXPECT_FALSE(IsThere(m_folders.Destination + u"/Abba/Arrival/Song.mp3"_s));
        EXPECT_FALSE(IsThere(m_folders.Destination + u"/Abba/Live/Film.mp3"_s));
        EXPECT_TRUE(IsThere(m_folders.Destination + u"/Beck/Arrival/Song.mp3"_s));
        EXPECT_TRUE(IsThere(m_folders.Destination + u"/Beck/Live/Film.mp3"_s));
        EXPECT_FALSE(IsThere(m_folders.Destination + u"/tmp"_s));
        QDir(m_folders.Destination + u"/Beck"_s).removeRecursively();
    }
}

TEST_F(SlowJob, ACloseDuringTheChecksIsNotHeldUpByADestinationThatHangs) {
    AddSongAndFilm(10);
    m_target.Be("stall=change");
    RealJob job(m_folders, &m_worker, &m_ahead);
    job.form.txtDestination.SetText(m_folders.Destination + u"/new"_s);
    job.events.IsClosed = true;
    QElapsedTimer clock;
    clock.start();
    job.Press();
    EXPECT_LT(clock.elapsed(), Soon + OfOthers);
    EXPECT_EQ(job.messages.Texts(), QStringList());
    EXPECT_FALSE(job.job.Copying);
    m_target.Be("");
    LetHangingThreadsEnd(job);
}

TEST_F(SlowJob, ACloseInsideASmallFileAsksAndNoGoesOnWhereItIs) {
    AddSongAndFilm(1500000);
    m_device.Be("speed=2000000");
    RealJob job(m_folders, &m_worker, &m_ahead);
    job.messages.Answers = {MessageAnswer::No, MessageAnswer::OK};
    bool isClosed = false;
    job.messages.WhileShown = [](const ShownMessage&) { std::this_thread::sleep_for(100ms); };
    job.events.OnYield = [&](int number) {
        if (number > 20 && !std::exchange(isClosed, true)) {
            EXPECT_FALSE(IsThere(m_folders.Destination + u"/Abba/Arrival/Song.mp3"_s));
            job.form.Form1.UserClose();
        }
    };
    job.Press();
    EXPECT_EQ(job.messages.Texts(),
              QStringList({u"Are you sure you want to quit?"_s, u"Copy completed!"_s}));
    m_folders.ExpectAllCopied();
}

TEST_F(SlowJob, ACloseWhileTheDeviceHangsEndsTheProgram) {
    AddSongAndFilm(1500000);
    for (const bool isSmall : {true, false}) {
        m_folders.Library.Artists[0].Albums[0].Checked = isSmall;
        m_device.Be("stall=read");
        RealJob job(m_folders, &m_worker, &m_ahead);
        job.messages.Answers = {MessageAnswer::Yes};
        Run(job, [&](qint64 time) {
            if (time > 200) {
                job.form.Form1.UserClose();
            }
            return time > 200;
        });
        EXPECT_EQ(job.messages.Texts(), QStringList(u"Are you sure you want to quit?"_s));
        EXPECT_TRUE(job.form.Form1.Closed);
        EXPECT_GT(m_untilRest, 0);
        m_device.Be("");
        LetHangingThreadsEnd(job);
        m_folders.ExpectWholeFilesOnly(Leftovers::None);
        EXPECT_FALSE(IsThere(m_folders.Destination + u"/tmp"_s));
    }
}

TEST_F(SlowJob, ACloseAfterCancelIsNotForgottenWhileTheDestinationHangs) {
    AddSongAndFilm(1500000);
    m_target.Be("stall=write");
    RealJob job(m_folders, &m_worker, &m_ahead);
    Run(job, [&](qint64 time) {
        const bool isCancelled = job.job.CancelCopy();
        if (isCancelled) {
            job.form.Form1.UserClose();
        } else if (time > 200) {
            m_target.Be("stall=write stall=find");
            job.Press();
        }
        return isCancelled;
    });
    EXPECT_TRUE(job.form.Form1.Closed);
    EXPECT_EQ(job.messages.Texts(), QStringList());
    m_target.Be("");
    LetHangingThreadsEnd(job);
}

// SONGLIFT_WALKS says how many jobs, SONGLIFT_SEED repeats a run.
TEST_F(SlowJob, AnyWalkOfStallsSpeedsAndStopsLeavesWholeFilesAndNeverALostWindow) {
    for (int number = 0; number < 4; ++number) {
        AddSongAndFilm(300000);
    }
    for (const char* album : {"One", "Two", "Three"}) { // new each time, and copied together
        m_folders.AddTrack("Cale", album, "First", "first");
        m_folders.AddTrack("Cale", album, "Second", "second");
    }
    m_folders.AddOld(m_folders.Destination + u"/Abba/Arrival/Song.mp3"_s, "old song");
    m_folders.AddOwn(m_folders.Destination + u"/mine.txt"_s, "mine");
    const unsigned seed = qEnvironmentVariableIsSet("SONGLIFT_SEED")
                              ? qEnvironmentVariableIntValue("SONGLIFT_SEED")
                              : std::random_device()();
    std::cout << "SONGLIFT_SEED=" << seed << '\n';
    std::mt19937 random(seed);
    const char* const moods[] = {"",           "",           "speed=1000000", "speed=8000000",
                                 "stall=read", "stall=open", "stall=write",   "stall=change",
                                 "stall=close"};
    for (unsigned walk = 0; walk < Walks(8) && !HasFailure(); ++walk) {
        SCOPED_TRACE(walk);
        QDir(m_folders.Destination + u"/Cale"_s).removeRecursively();
        RealJob job(m_folders, &m_worker, &m_ahead);
        job.messages.WhileShown = [&](const ShownMessage& message) {
            const bool quits = message.Buttons == MessageButtons::YesNo && random() % 2 == 0;
            if (quits) {
                m_sinceStop.start();
            }
            job.messages.Answers = {quits ? MessageAnswer::Yes : MessageAnswer::No};
            if (message.Buttons != MessageButtons::YesNo) {
                job.messages.Answers = {MessageAnswer::OK};
            }
        };
        qint64 next = 0;
        const qint64 untilCancel = static_cast<qint64>(random() % 2000);
        Run(job, [&](qint64 time) {
            if (time >= next) {
                next = time + static_cast<qint64>(random() % 150);
                (random() % 2 == 0 ? m_device : m_target).Be(moods[random() % std::size(moods)]);
                if (random() % 8 == 0) {
                    job.form.Form1.UserClose();
                }
            }
            // Whatever the disks do at that moment.
            const bool isStopped = job.job.Copying && time >= untilCancel && !job.job.CUnload();
            if (isStopped) {
                job.Press();
            }
            if (time > 3000) { // closed and answered with "No"
                m_device.Be("");
                m_target.Be("");
            }
            return isStopped;
        });
        m_device.Be("");
        m_target.Be("");
        if (!job.form.Form1.Closed) {
            job.ExpectIdle();
        }
        LetHangingThreadsEnd(job);
        m_folders.ExpectWholeFilesOnly(Leftovers::None);
    }
    RealJob job(m_folders, &m_worker, &m_ahead);
    job.Press();
    m_folders.ExpectAllCopied();
}
