#include "platform/PatientFileSystem.h"

#include "platform/ThreadWorker.h"
#include "tests/platform/LinuxFixture.h"
#include "tests/support/ServedDisk.h"

#include <QElapsedTimer>

#include <chrono>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

using namespace std::chrono_literals;

constexpr int Length = 3000000;

/// Where the disk that hangs is.
enum class Slow { Source, Target };

/// Files between a folder and a disk that knows no files without a name, one of which is slow.
class WaitingFiles : public testing::TestWithParam<Slow> {
protected:
    WaitingFiles() {
        MakeFolder(m_folder.path() + u"/from"_s);
        MakeFolder(m_folder.path() + u"/to"_s);
    }
    void SetUp() override {
        for (const QString& name : {u"from"_s, u"to"_s}) {
            m_disks.push_back(std::make_unique<SlowDisk>(At(name)));
            if (!m_disks.back()->Impossible().isEmpty()) {
                GTEST_SKIP() << qPrintable(m_disks.back()->Impossible());
            }
            ASSERT_TRUE(m_disks.back()->IsMounted());
        }
        WriteFile(m_disks[0]->Content() + u"/a"_s, Pattern(Length));
    }
    void TearDown() override {
        if (IsSkipped()) {
            return;
        }
        LetHangingThreadsEnd();
        for (const auto& disk : m_disks) {
            disk->Be("");
        }
    }

    QString At(const QString& path) const { return m_folder.path() + u'/' + path; }
    /// What is in the target's folder; a disk that hangs need not be asked.
    QStringList Made() const { return NamesIn(m_disks[1]->Content()); }
    SlowDisk& Hanging() { return *m_disks[GetParam() == Slow::Source ? 0 : 1]; }
    const char* Stall() const { return GetParam() == Slow::Source ? "stall=read" : "stall=write"; }

    /// Does `operation`, which the user stops after 0.1 seconds; how long it took then in all, in
    /// ms.
    qint64 Stopped(const std::function<void()>& operation) {
        QElapsedTimer clock;
        clock.start();
        m_patient.MayGoOn = [&clock] { return clock.elapsed() < 100; };
        EXPECT_THROW(operation(), OperationStopped);
        m_patient.MayGoOn = [] { return true; };
        return clock.elapsed();
    }
    void LetHangingThreadsEnd() {
        Hanging().Be("");
        for (int waited = 0; waited < 1000 && m_files.use_count() > 2; ++waited) {
            std::this_thread::sleep_for(10ms);
        }
        EXPECT_EQ(m_files.use_count(), 2); // this one and the patient one
    }

    QTemporaryDir m_folder;
    std::vector<std::unique_ptr<SlowDisk>> m_disks;
    std::shared_ptr<LinuxDrives> m_drives = std::make_shared<LinuxDrives>();
    std::shared_ptr<LinuxFileSystem> m_files = std::make_shared<LinuxFileSystem>(*m_drives);
    ThreadWorker m_worker;
    ThreadWorker m_ahead;
    PatientFileSystem m_patient{*m_files, m_worker, m_ahead};
};

} // namespace

TEST_P(WaitingFiles, ACopyIsStoppedAnywhereInItsFileAndLeavesNothing) {
    Hanging().Be("speed=1000000");
    CopyControl control;
    EXPECT_LT(Stopped([&] {
                  m_patient.CopyFile(At(u"from/a"_s), At(u"to/a"_s), Existing::Keep, control);
              }),
              500);
    EXPECT_EQ(Made(), QStringList());
    EXPECT_LT(control.BytesDone(), Length);
}

TEST_P(WaitingFiles, AFileThatWasReadAheadIsNotOpenedAgain) {
    m_patient.ReadAhead(At(u"from/a"_s));
    m_ahead.Do([] {}, [] { return true; });
    Hanging().Be("stall=open");
    QElapsedTimer clock;
    clock.start();
    m_patient.MayGoOn = [&clock] { return clock.elapsed() < 2000; };
    EXPECT_TRUE(m_patient.CopyFile(At(u"from/a"_s), At(u"to/a"_s), Existing::Keep, {}));
}

TEST_P(WaitingFiles, ACopyThatHangsIsGivenUpAndNothingAppearsWhenItComesBack) {
    Hanging().Be(Stall());
    EXPECT_LT(
        Stopped([&] { m_patient.CopyFile(At(u"from/a"_s), At(u"to/a"_s), Existing::Keep, {}); }),
        500);
    if (GetParam() == Slow::Source) {
        EXPECT_EQ(Made(), QStringList());
    }
    LetHangingThreadsEnd();
    EXPECT_EQ(Made(), QStringList());
}

TEST_P(WaitingFiles, ACopyThatHangsDoesNotBlockOtherOperations) {
    Hanging().Be(Stall());
    Stopped([&] { m_patient.CopyFile(At(u"from/a"_s), At(u"to/a"_s), Existing::Keep, {}); });
    if (GetParam() == Slow::Target) {
        LetHangingThreadsEnd(); // its folder hangs as a whole
    }
    WriteFile(At(u"other"_s), "other");
    EXPECT_TRUE(m_patient.CopyFile(At(u"other"_s), At(u"to/a"_s), Existing::Keep, {}));
    LetHangingThreadsEnd();
    EXPECT_EQ(Made(), QStringList(u"a"_s));
    EXPECT_EQ(ReadFile(At(u"to/a"_s)), "other");
}

TEST_P(WaitingFiles, AChunkThatHangsLetsItsFileBeDeletedAndAnotherOneBeMade) {
    {
        const auto from = m_patient.OpenForReading(At(u"from/a"_s));
        const auto to = m_patient.OpenForReadingAndWriting(At(u"to/copy.tmp"_s));
        Hanging().Be(Stall());
        CopyControl control;
        EXPECT_LT(Stopped([&] { to->WriteFrom(*from, Length, control); }), 500);
        m_patient.DeleteFile(*to);
    }
    if (GetParam() == Slow::Target) {
        LetHangingThreadsEnd();
    }
    const auto next = m_patient.OpenForReadingAndWriting(At(u"to/copy.tmp"_s));
    LetHangingThreadsEnd();
    EXPECT_EQ(Made(), QStringList(u"copy.tmp"_s));
}

TEST_P(WaitingFiles, AFileThatIsOpenedTooLateIsNotLeftBehind) {
    const QString file = At(GetParam() == Slow::Source ? u"from/copy.tmp"_s : u"to/copy.tmp"_s);
    Hanging().Be("stall=change");
    EXPECT_LT(Stopped([&] { m_patient.OpenForReadingAndWriting(file); }), 500);
    LetHangingThreadsEnd();
    EXPECT_FALSE(IsThere(file));
}

TEST_P(WaitingFiles, AnOperationLearnsThatItWasStopped) {
    const CopyControl control;
    Stopped(
        [&] { m_patient.Do([](FileSystem&) { std::this_thread::sleep_for(150ms); }, control); });
    EXPECT_TRUE(control.IsStopped());
}

class JointFiles : public LinuxFixture {};

TEST_F(JointFiles, ThatAreCopiedOnTwoThreadsArriveWholeUpToTheFirstThatCannot) {
    std::vector<FileToCopy> copies;
    for (int i = 0; i < 300; ++i) {
        const QString source = Native(u"from %1"_s.arg(i));
        WriteFile(source, QByteArray(1000 * i, static_cast<char>('a' + i % 26)));
        copies.push_back({source, Native(u"to %1"_s.arg(i))});
    }
    WriteFile(copies[299].Target, "earlier");
    ThreadWorker worker;
    ThreadWorker ahead;
    PatientFileSystem files(m_files, worker, ahead);
    files.MayGoOn = [] { return true; };
    const CopiedFiles copied = files.CopyNewFiles(copies, 60'000, {});
    EXPECT_EQ(copied.Count, 299U);
    EXPECT_TRUE(copied.IsRefused);
    for (size_t i = 0; i < copied.Count; ++i) {
        ASSERT_EQ(ReadFile(copies[i].Target), ReadFile(copies[i].Source)) << i;
    }
    EXPECT_EQ(ReadFile(copies[299].Target), "earlier");
}

INSTANTIATE_TEST_SUITE_P(Disks, WaitingFiles, testing::Values(Slow::Source, Slow::Target),
                         [](const auto& slow) {
                             return slow.param == Slow::Source ? "OfASlowSource" : "OfASlowTarget";
                         });
