#include "tests/places/JobOnDisk.h"

#include <csignal>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// What the database says a media file is, and how the job complains about it.
struct HostileLocation {
    /// Below the iPod's music folder, with "/" between the names.
    QString Location;
    /// The message's text.
    QString Message;
};

QString NotFound(const QByteArray& file) {
    return u"Error: File not found: \""_s + Text(file) + u"\""_s;
}

HostileLocation NotFoundInF00(const QByteArray& name) {
    return {Text("F00/" + name), NotFound("E:\\iPod_Control\\Music\\F00\\" + name)};
}

QString NoFolder(const QString& folder) {
    return u"Error: Path not found: \""_s + folder + u"\""_s;
}

const QString MusicFolder = u"E:\\iPod_Control\\Music\\"_s;

void MakeSocket(const QString& path) {
    const FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    sockaddr_un address{AF_UNIX, {}};
    const QByteArray name = path.toUtf8();
    ASSERT_LT(static_cast<size_t>(name.size()), sizeof address.sun_path);
    std::copy(name.begin(), name.end(), address.sun_path);
    ASSERT_EQ(bind(socket.Get(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
}

/// Both ways of copying must hold: the parameter is the length of file that the database tells.
class HostileLocations : public JobOnDisk, public testing::WithParamInterface<qint64> {
protected:
    /// Runs a job over the locations, with a sound song before and after each of them.
    void RunOver(const std::vector<HostileLocation>& locations) {
        QStringList expectedMessages;
        QStringList expectedFiles;
        for (const HostileLocation& hostile : locations) {
            const QString number = QString::number(tracks.size());
            AddTrack(u"Hostile"_s, hostile.Location, GetParam());
            AddSong(u"Sound "_s + number, "sound", GetParam());
            expectedMessages += hostile.Message;
            expectedFiles += u"Sound "_s + number + u".mp3"_s;
        }
        expectedMessages += u"Songlift: Copy completed!"_s;
        expectedFiles.sort();
        Run();
        EXPECT_EQ(MessagesShown(), expectedMessages);
        EXPECT_EQ(Copied(), expectedFiles);
        for (const QString& file : expectedFiles) {
            EXPECT_EQ(CopiedBytes(file.toUtf8().constData()), "sound");
        }
        EXPECT_TRUE(prompted.isEmpty());
        ExpectRestUntouched();
    }
};

} // namespace

TEST_P(HostileLocations, PathsThatWouldLeaveTheIpodLeadNowhere) {
    const QString world = World();
    RunOver({
        {u"F00/../../../../secret.mp3"_s, NoFolder(MusicFolder + u"F00\\..\\..\\..\\.."_s)},
        {u"../../../secret.mp3"_s, NoFolder(MusicFolder + u"..\\..\\.."_s)},
        {u"F00/./../F00/nix.mp3"_s, NoFolder(MusicFolder + u"F00\\.\\..\\F00"_s)},
        NotFoundInF00(".."),
        {u"F00\\..\\..\\secret.mp3"_s, NoFolder(MusicFolder + u"F00\\..\\.."_s)},
        {world + u"/secret.mp3"_s, NoFolder(MusicFolder + QString(world).replace(u'/', u'\\'))},
        {u"C:\\Windows\\win.ini"_s, NoFolder(MusicFolder + u"C\\\\Windows"_s)},
        {u"D:\\"_s, NotFound("E:\\iPod_Control\\Music\\D\\\\")},
        {QString(200, u'a') + u"/"_s + QString(300, u'b') + u".mp3"_s,
         NoFolder(MusicFolder + QString(200, u'a'))},
        {u"F00/"_s + QString(300, u'b'),
         NotFound("E:\\iPod_Control\\Music\\F00\\" + QByteArray(300, 'b'))},
        {QString(5000, u'a') + u"/b"_s, NoFolder(MusicFolder + QString(5000, u'a'))},
    });
}

TEST_P(HostileLocations, LinksThatLeaveTheIpodLeadNowhere) {
    MakeLink(World("secret.mp3"), Music("absolute.mp3"));
    MakeLink(u"../../../../secret.mp3"_s, Music("relative.mp3"));
    MakeLink(u"../../../.."_s, Music("up"));
    MakeLink(World("private"), Music("private"));
    MakeLink(u"/dev/zero"_s, Music("zero.mp3"));
    MakeLink(u"/proc/self/maps"_s, Music("maps.mp3"));
    MakeLink(u"/proc/self/fd/0"_s, Music("input.mp3"));
    MakeLink(Destination("Sound 0.mp3"), Music("copy.mp3"));
    MakeLink(u"round.mp3"_s, Music("round.mp3"));
    MakeLink(u"nix"_s, Music("dead.mp3"));
    RunOver({
        NotFoundInF00("absolute.mp3"),
        NotFoundInF00("relative.mp3"),
        {u"F00/up/secret.mp3"_s, NoFolder(MusicFolder + u"F00\\up"_s)},
        {u"F00/private/secret.mp3"_s, NoFolder(MusicFolder + u"F00\\private"_s)},
        {u"F00/PRIVATE/SECRET.mp3"_s, NoFolder(MusicFolder + u"F00\\PRIVATE"_s)},
        NotFoundInF00("zero.mp3"),
        NotFoundInF00("maps.mp3"),
        NotFoundInF00("input.mp3"),
        NotFoundInF00("copy.mp3"),
        NotFoundInF00("round.mp3"),
        NotFoundInF00("dead.mp3"),
    });
}

TEST_P(HostileLocations, WhatIsNoFileIsNeitherReadNorWaitedFor) {
    ASSERT_TRUE(MakePipe(Music("pipe.mp3")));
    MakeSocket(Music("socket.mp3"));
    MakeFolder(Music("folder.mp3"));
    MakeLink(u"pipe.mp3"_s, Music("link.mp3"));
    std::vector<HostileLocation> locations = {
        NotFoundInF00("pipe.mp3"),
        NotFoundInF00("PIPE.mp3"),
        NotFoundInF00("link.mp3"),
        NotFoundInF00("socket.mp3"),
        NotFoundInF00("folder.mp3"),
        {u"F00/folder.mp3/"_s, NotFound("E:\\iPod_Control\\Music\\F00\\folder.mp3\\")},
        {u"F00"_s, NotFound("E:\\iPod_Control\\Music\\F00")},
        {u"F00/pipe.mp3/x"_s, NoFolder(MusicFolder + u"F00\\pipe.mp3"_s)},
    };
    // Only root may make devices: an endless one, and the terminal.
    if (mknod(Music("zero.mp3").toUtf8().constData(), S_IFCHR | 0666, makedev(1, 5)) == 0 &&
        mknod(Music("tty.mp3").toUtf8().constData(), S_IFCHR | 0666, makedev(5, 0)) == 0) {
        locations.push_back(NotFoundInF00("zero.mp3"));
        locations.push_back(NotFoundInF00("tty.mp3"));
    }
    RunOver(locations);
}

TEST_P(HostileLocations, ACopyThatIsItsOwnSourceStaysWhole) {
    AddSong(u"Song"_s, "sound", GetParam());
    ASSERT_EQ(
        link(Music("1.mp3").toUtf8().constData(), Destination("Song.mp3").toUtf8().constData()), 0);
    onPrompt = OverwritePrompt::Replace;
    Run();
    EXPECT_EQ(prompted, QStringList(Destination("Song.mp3")));
    if (GetParam() < InChunks) {
        EXPECT_EQ(MessagesShown(), QStringList({u"Error: Unable to create file: \""_s +
                                                    Destination("Song.mp3") + u"\""_s,
                                                u"Songlift: Copy completed!"_s}));
    }
    EXPECT_EQ(Copied(), QStringList(u"Song.mp3"_s));
    EXPECT_EQ(CopiedBytes("Song.mp3"), "sound");
    EXPECT_EQ(ReadFile(Music("1.mp3")), "sound");
}

INSTANTIATE_TEST_SUITE_P(EitherWay, HostileLocations, testing::Values(5, InChunks),
                         [](const auto& size) {
                             return size.param == InChunks ? "InChunks" : "Whole";
                         });

using HostileFiles = JobOnDisk;

TEST_F(HostileFiles, OneThatOnlyClaimsToBeHugeFillsTheDriveAndLeavesNothingThere) {
    const TestMount mount = TestMount::Memory(Destination(), "size=2m");
    SKIP_UNLESS(mount.IsMounted(), "no small disk can be mounted here");
    for (const qint64 size : {qint64{5}, InChunks}) {
        tracks.clear();
        AddSong(u"Huge"_s, "begin", size);
        ASSERT_EQ(truncate(Music("1.mp3").toUtf8().constData(), off_t{1} << 40), 0);
        Run();
        EXPECT_EQ(MessagesShown(), QStringList(u"Error: This drive is full."_s));
        EXPECT_EQ(NamesIn(Destination()), QStringList());
        EXPECT_EQ(files.FreeBytes(Destination()), 2097152.0);
        ExpectRestUntouched();
    }
}

TEST_F(HostileFiles, OnePastTheLongestThatTheDriveHoldsCostsOnlyItself) {
    for (const qint64 size : {qint64{5}, InChunks}) {
        const bool isFilm = size == InChunks;
        AddSong(isFilm ? u"Long film"_s : u"Long song"_s, QByteArray(70000, 'x'), size);
        AddSong(isFilm ? u"Film"_s : u"Song"_s, "sound", size);
    }
    // As FAT does at 4 GB.
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit limit{60000, before.rlim_max};
    const auto handler = signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    Run();
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
    signal(SIGXFSZ, handler);
    const QString unable = u"Error: Unable to create file: \""_s;
    EXPECT_EQ(MessagesShown(), QStringList({unable + Destination("Long song.mp3") + u'"',
                                            unable + Destination("Long film.mp3") + u'"',
                                            u"Songlift: Copy completed!"_s}));
    EXPECT_EQ(Copied(), QStringList({u"Film.mp3"_s, u"Song.mp3"_s}));
}
