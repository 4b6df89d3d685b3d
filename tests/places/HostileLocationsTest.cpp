#include "tests/places/JobOnDisk.h"

#include <csignal>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

/// What the database says a media file is, and how the job complains about it.
struct HostileLocation {
    /// Below the iPod's music folder, with "/" between the names.
    QString Location;
    /// The message's text.
    QString Message;
};

QString NotFound(const char* file) {
    return Text("Error: File not found: \"") + Text(file) + Text("\"");
}

QString NoFolder(const QString& folder) {
    return Text("Error: Path not found: \"") + folder + Text("\"");
}

const QString MusicFolder = Text("E:\\iPod_Control\\Music\\");

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
            AddTrack(Text("Hostile"), hostile.Location, GetParam());
            AddSong(Text("Sound ") + number, "sound", GetParam());
            expectedMessages += hostile.Message;
            expectedFiles += Text("Sound ") + number + Text(".mp3");
        }
        expectedMessages += Text("Songlift: Copy completed!");
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
        {Text("F00/../../../../secret.mp3"), NoFolder(MusicFolder + Text("F00\\..\\..\\..\\.."))},
        {Text("../../../secret.mp3"), NoFolder(MusicFolder + Text("..\\..\\.."))},
        {Text("F00/./../F00/nix.mp3"), NoFolder(MusicFolder + Text("F00\\.\\..\\F00"))},
        {Text("F00/.."), NotFound("E:\\iPod_Control\\Music\\F00\\..")},
        {Text("F00\\..\\..\\secret.mp3"), NoFolder(MusicFolder + Text("F00\\..\\.."))},
        {world + Text("/secret.mp3"), NoFolder(MusicFolder + QString(world).replace(u'/', u'\\'))},
        {Text("C:\\Windows\\win.ini"), NoFolder(MusicFolder + Text("C\\\\Windows"))},
        {Text("D:\\"), NotFound("E:\\iPod_Control\\Music\\D\\\\")},
        {QString(200, u'a') + Text("/") + QString(300, u'b') + Text(".mp3"),
         NoFolder(MusicFolder + QString(200, u'a'))},
        {Text("F00/") + QString(300, u'b'),
         NotFound(("E:\\iPod_Control\\Music\\F00\\" + QByteArray(300, 'b')).constData())},
        {QString(5000, u'a') + Text("/b"), NoFolder(MusicFolder + QString(5000, u'a'))},
    });
}

TEST_P(HostileLocations, LinksThatLeaveTheIpodLeadNowhere) {
    MakeLink(World("secret.mp3"), Music("absolute.mp3"));
    MakeLink(Text("../../../../secret.mp3"), Music("relative.mp3"));
    MakeLink(Text("../../../.."), Music("up"));
    MakeLink(World("private"), Music("private"));
    MakeLink(Text("/dev/zero"), Music("zero.mp3"));
    MakeLink(Text("/proc/self/maps"), Music("maps.mp3"));
    MakeLink(Text("/proc/self/fd/0"), Music("input.mp3"));
    MakeLink(Destination("Sound 0.mp3"), Music("copy.mp3"));
    MakeLink(Text("round.mp3"), Music("round.mp3"));
    MakeLink(Text("nix"), Music("dead.mp3"));
    RunOver({
        {Text("F00/absolute.mp3"), NotFound("E:\\iPod_Control\\Music\\F00\\absolute.mp3")},
        {Text("F00/relative.mp3"), NotFound("E:\\iPod_Control\\Music\\F00\\relative.mp3")},
        {Text("F00/up/secret.mp3"), NoFolder(MusicFolder + Text("F00\\up"))},
        {Text("F00/private/secret.mp3"), NoFolder(MusicFolder + Text("F00\\private"))},
        {Text("F00/PRIVATE/SECRET.mp3"), NoFolder(MusicFolder + Text("F00\\PRIVATE"))},
        {Text("F00/zero.mp3"), NotFound("E:\\iPod_Control\\Music\\F00\\zero.mp3")},
        {Text("F00/maps.mp3"), NotFound("E:\\iPod_Control\\Music\\F00\\maps.mp3")},
        {Text("F00/input.mp3"), NotFound("E:\\iPod_Control\\Music\\F00\\input.mp3")},
        {Text("F00/copy.mp3"), NotFound("E:\\iPod_Control\\Music\\F00\\copy.mp3")},
        {Text("F00/round.mp3"), NotFound("E:\\iPod_Control\\Music\\F00\\round.mp3")},
        {Text("F00/dead.mp3"), NotFound("E:\\iPod_Control\\Music\\F00\\dead.mp3")},
    });
}

TEST_P(HostileLocations, WhatIsNoFileIsNeitherReadNorWaitedFor) {
    ASSERT_TRUE(MakePipe(Music("pipe.mp3")));
    MakeSocket(Music("socket.mp3"));
    MakeFolder(Music("folder.mp3"));
    MakeLink(Text("pipe.mp3"), Music("link.mp3"));
    std::vector<HostileLocation> locations = {
        {Text("F00/pipe.mp3"), NotFound("E:\\iPod_Control\\Music\\F00\\pipe.mp3")},
        {Text("F00/PIPE.mp3"), NotFound("E:\\iPod_Control\\Music\\F00\\PIPE.mp3")},
        {Text("F00/link.mp3"), NotFound("E:\\iPod_Control\\Music\\F00\\link.mp3")},
        {Text("F00/socket.mp3"), NotFound("E:\\iPod_Control\\Music\\F00\\socket.mp3")},
        {Text("F00/folder.mp3"), NotFound("E:\\iPod_Control\\Music\\F00\\folder.mp3")},
        {Text("F00/folder.mp3/"), NotFound("E:\\iPod_Control\\Music\\F00\\folder.mp3\\")},
        {Text("F00"), NotFound("E:\\iPod_Control\\Music\\F00")},
        {Text("F00/pipe.mp3/x"), NoFolder(MusicFolder + Text("F00\\pipe.mp3"))},
    };
    // Only root may make devices: an endless one, and the terminal.
    if (mknod(Music("zero.mp3").toUtf8().constData(), S_IFCHR | 0666, makedev(1, 5)) == 0 &&
        mknod(Music("tty.mp3").toUtf8().constData(), S_IFCHR | 0666, makedev(5, 0)) == 0) {
        locations.push_back(
            {Text("F00/zero.mp3"), NotFound("E:\\iPod_Control\\Music\\F00\\zero.mp3")});
        locations.push_back(
            {Text("F00/tty.mp3"), NotFound("E:\\iPod_Control\\Music\\F00\\tty.mp3")});
    }
    RunOver(locations);
}

TEST_P(HostileLocations, ACopyThatIsItsOwnSourceStaysWhole) {
    AddSong(Text("Song"), "sound", GetParam());
    ASSERT_EQ(
        link(Music("1.mp3").toUtf8().constData(), Destination("Song.mp3").toUtf8().constData()), 0);
    onPrompt = OverwritePrompt::Replace;
    Run();
    EXPECT_EQ(prompted, QStringList(Destination("Song.mp3")));
    if (GetParam() < InChunks) {
        EXPECT_EQ(MessagesShown(), QStringList({Text("Error: Unable to create file: \"") +
                                                    Destination("Song.mp3") + Text("\""),
                                                Text("Songlift: Copy completed!")}));
    }
    EXPECT_EQ(Copied(), QStringList(Text("Song.mp3")));
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
    if (!mount.IsMounted()) {
        GTEST_SKIP() << "no small disk can be mounted here";
    }
    for (const qint64 size : {qint64{5}, InChunks}) {
        tracks.clear();
        AddSong(Text("Huge"), "begin", size);
        ASSERT_EQ(truncate(Music("1.mp3").toUtf8().constData(), off_t{1} << 40), 0);
        Run();
        EXPECT_EQ(MessagesShown(), QStringList(Text("Error: This drive is full.")));
        EXPECT_EQ(NamesIn(Destination()), QStringList());
        EXPECT_EQ(files.FreeBytes(Destination()), 2097152.0);
        ExpectRestUntouched();
    }
}

TEST_F(HostileFiles, OnePastTheLongestThatTheDriveHoldsCostsOnlyItself) {
    for (const qint64 size : {qint64{5}, InChunks}) {
        const bool isFilm = size == InChunks;
        AddSong(isFilm ? Text("Long film") : Text("Long song"), QByteArray(70000, 'x'), size);
        AddSong(isFilm ? Text("Film") : Text("Song"), "sound", size);
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
    const QString unable = Text("Error: Unable to create file: \"");
    EXPECT_EQ(MessagesShown(), QStringList({unable + Destination("Long song.mp3") + u'"',
                                            unable + Destination("Long film.mp3") + u'"',
                                            Text("Songlift: Copy completed!")}));
    EXPECT_EQ(Copied(), QStringList({Text("Film.mp3"), Text("Song.mp3")}));
}
