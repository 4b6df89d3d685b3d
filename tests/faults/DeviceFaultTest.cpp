// A device that fails while it is read: pulled between two files or inside one, broken from some
// byte on, or with a file that changes under the copy.

#include "tests/faults/SweptFolders.h"
#include "tests/platform/LinuxFixture.h"

#include <QDir>

#include <cerrno>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

ShownMessage ErrorBox(const QString& text, MessageButtons buttons, MessageIcon icon) {
    return {text, u"Error"_s, buttons, icon};
}

const QString Completed = u"Copy completed!"_s;

/// The two ways to copy a file, each with a length that goes block by block and one that the kernel
/// may copy by itself.
struct SizeClass {
    const char* Name;
    bool IsFilm;
    qsizetype Length;
};
constexpr SizeClass SizeClasses[] = {
    {"Blocks", false, 300000},
    {"Kernel", false, 1200000},
    {"Film", true, 300000},
    {"LongFilm", true, 1200000},
};

/// Three tracks, of which the second one has trouble.
class DeviceFault : public testing::TestWithParam<SizeClass> {
protected:
    DeviceFault() {
        m_folders.AddTrack("Abba", "Arrival", "One", "one");
        const QByteArray bytes = Pattern(GetParam().Length);
        TrackRecord& track = GetParam().IsFilm
                                 ? m_folders.AddFilm("Abba", "Arrival", "Two", bytes)
                                 : m_folders.AddTrack("Abba", "Arrival", "Two", bytes);
        m_source = m_folders.FileOf(track);
        m_folders.AddTrack("Abba", "Arrival", "Three", "three");
        m_target = m_folders.Destination + u"/Abba/Arrival/Two.mp3"_s;
    }

    bool IsRead(const SystemCall& call) const {
        return call.Source >= 0 && PlaceOf({"", call.Source}) == m_source;
    }

    /// The source can be read up to `byte`; from there on every reading fails with `error`.
    int FailFrom(off_t byte, int error, SystemCall& call) const {
        if (!IsRead(call)) {
            return 0;
        }
        const off_t position = lseek(call.Source, 0, SEEK_CUR);
        call.Size = std::min(call.Size, static_cast<size_t>(byte - position));
        return call.Size == 0 ? error : 0;
    }

    QString FolderText(const RealJob& job) const {
        const QString location = job.library.Artists[0].Albums[0].Tracks[1].Location;
        return location.left(location.lastIndexOf(u'\\'));
    }

    /// The job ended at the second track, of which nothing is left.
    void ExpectEndedAtTheSecond(const RealJob& job, const ShownMessage& message) const {
        EXPECT_EQ(job.messages.Shown, std::vector{message});
        job.ExpectIdle();
        m_folders.ExpectWholeFilesOnly(Leftovers::None);
        EXPECT_EQ(NamesIn(m_folders.Destination), QStringList(u"Abba"_s));
        EXPECT_EQ(NamesIn(m_folders.Destination + u"/Abba/Arrival"_s).contains(u"Two.mp3"_s),
                  m_folders.Old.contains(m_target));
    }

    QTemporaryDir m_work{FolderInMemory()};
    JobFolders m_folders{m_work.path()};
    QString m_source;
    QString m_target;
};

} // namespace

TEST_P(DeviceFault, BrokenFromAnyByteIsADeviceErrorAndTheEarlierFileStays) {
    m_folders.AddOld(m_target, "old two");
    const QStringList device = m_folders.DeviceState();
    for (const off_t byte : {off_t{0}, off_t{1}, off_t{4096}, off_t{262144}, off_t{299999}}) {
        for (const int error : {EIO, ENODEV}) {
            SCOPED_TRACE(testing::Message() << "from byte " << byte << " on");
            RealJob job(m_folders);
            {
                const HookedSystemCalls hooked(
                    [&](SystemCall& call) { return FailFrom(byte, error, call); });
                job.Press();
            }
            ExpectEndedAtTheSecond(job,
                                   ErrorBox(Text(error == EIO ? "Error 57: Device I/O error"
                                                              : "Error 68: Device unavailable"),
                                            MessageButtons::OK, MessageIcon::Critical));
            EXPECT_EQ(ReadFile(m_target), "old two");
        }
    }
    EXPECT_EQ(m_folders.DeviceState(), device);
    RealJob job(m_folders);
    job.Press();
    m_folders.ExpectAllCopied();
}

TEST_P(DeviceFault, PulledBetweenTwoFilesIsMissedUntilItIsBack) {
    const QString away = m_folders.Device + u" away"_s;
    for (const MessageAnswer answer : {MessageAnswer::Abort, MessageAnswer::Retry}) {
        RealJob job(m_folders);
        job.events.ToYield = 0;
        job.events.OnYield = [&](int number) {
            if (number == 2) {
                ASSERT_TRUE(QDir().rename(m_folders.Device, away));
            }
        };
        const ShownMessage missing =
            ErrorBox(u"Path not found: \""_s + FolderText(job) + u"\""_s,
                     MessageButtons::AbortRetryIgnore, MessageIcon::Exclamation);
        job.messages.WhileShown = [&](const ShownMessage& message) {
            if (message == missing) {
                ASSERT_TRUE(QDir().rename(away, m_folders.Device));
            }
        };
        job.messages.Answers = {answer};
        job.Press();
        if (answer == MessageAnswer::Abort) {
            ExpectEndedAtTheSecond(job, missing);
        } else {
            EXPECT_EQ(job.messages.Texts(), QStringList({missing.Text, Completed}));
            m_folders.ExpectAllCopied();
        }
    }
}

TEST_P(DeviceFault, UnmountedInsideAFileIsReadToItsEndAndMissedAfterwards) {
    const QString files = m_folders.Device + u"/iPod_Control"_s;
    TestMount device = TestMount::Memory(files, "size=4m");
    SKIP_UNLESS(device.IsMounted(), "no device can be mounted here");
    MakeFolder(files + u"/Music/F00"_s);
    for (const TrackRecord& track : m_folders.Library.Artists[0].Albums[0].Tracks) {
        WriteFile(m_folders.FileOf(track),
                  m_folders.Wanted.at(m_folders.Destination + u"/Abba/Arrival/"_s + track.Title +
                                      u".mp3"_s));
    }
    RealJob job(m_folders);
    job.AnswerBy(Policy::Ignore);
    {
        const HookedSystemCalls hooked([&](SystemCall& call) {
            if (device.IsMounted() && IsRead(call)) {
                call.Size = 100;
                device.Unmount(); // the kernel keeps open files until they are closed
                EXPECT_TRUE(QDir(files).removeRecursively());
            }
            return 0;
        });
        job.Press();
    }
    EXPECT_FALSE(device.IsMounted());
    const QString missing = u"Path not found: \""_s + FolderText(job) + u"\""_s;
    EXPECT_EQ(job.messages.Texts(), QStringList({missing, Completed}));
    job.ExpectIdle();
    m_folders.ExpectWholeFilesOnly(Leftovers::None);
    EXPECT_EQ(NamesIn(m_folders.Destination + u"/Abba/Arrival"_s),
              QStringList({u"One.mp3"_s, u"Two.mp3"_s}));
}

TEST_P(DeviceFault, AFileThatShrinksWhileItIsCopiedIsADeviceError) {
    m_folders.AddOld(m_target, "old two");
    for (const off_t length : {off_t{0}, off_t{1000}, off_t{262144}, off_t{299999}}) {
        SCOPED_TRACE(length);
        const bool isAllHole = length == 1000; // takes no room on its disk
        WriteFile(m_source, isAllHole ? QByteArray() : Pattern(GetParam().Length));
        ASSERT_EQ(truncate(m_source.toUtf8().constData(), GetParam().Length), 0);
        RealJob job(m_folders);
        {
            const HookedSystemCalls hooked([&](SystemCall& call) {
                if (IsRead(call)) {
                    EXPECT_EQ(truncate(m_source.toUtf8().constData(), length), 0);
                }
                return 0;
            });
            job.Press();
        }
        ExpectEndedAtTheSecond(job, ErrorBox(u"Error 57: Device I/O error"_s, MessageButtons::OK,
                                             MessageIcon::Critical));
        EXPECT_EQ(ReadFile(m_target), "old two");
    }
}

TEST_P(DeviceFault, AFileThatGrowsWhileItIsCopiedIsCopiedInItsFullFirstLength) {
    RealJob job(m_folders);
    {
        bool hasGrown = false;
        const HookedSystemCalls hooked([&](SystemCall& call) {
            if (IsRead(call) && !std::exchange(hasGrown, true)) {
                QFile file(m_source);
                EXPECT_TRUE(file.open(QIODevice::Append));
                EXPECT_EQ(file.write("more"), 4);
            }
            return 0;
        });
        job.Press();
        EXPECT_TRUE(hasGrown);
    }
    EXPECT_EQ(job.messages.Texts(), QStringList(Completed));
    const QByteArray copied = ReadFile(m_target);
    EXPECT_TRUE(copied.startsWith(Pattern(GetParam().Length)));
    EXPECT_TRUE(copied.mid(GetParam().Length).isEmpty() ||
                copied.mid(GetParam().Length) == QByteArray("more"));
    EXPECT_FALSE(GetParam().IsFilm && copied.size() > GetParam().Length);
}

INSTANTIATE_TEST_SUITE_P(SizeClasses, DeviceFault, testing::ValuesIn(SizeClasses),
                         [](const auto& size) { return size.param.Name; });
