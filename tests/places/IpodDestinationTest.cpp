#include "tests/places/JobOnDisk.h"

namespace {

const QString Invalid = Text("Songlift: Invalid destination path.");

/// Destinations by which a job would write to the iPod.
class IpodDestination : public JobOnDisk {
protected:
    IpodDestination() {
        MakeFolder(Ipod("Notes"));
        AddSong(Text("Song"), "sound");
        AddSong(Text("Film"), "film", InChunks);
    }

    void ExpectRefused(const QString& destination) {
        form.txtDestination.SetText(destination);
        Press();
        EXPECT_EQ(MessagesShown(), QStringList(Invalid)) << qPrintable(destination);
        EXPECT_TRUE(form.txtDestination.HasFocus());
        EXPECT_EQ(form.txtDestination.SelectionLength, destination.size());
        ExpectRestUntouched();
        EXPECT_EQ(Copied(), QStringList());
    }
};

} // namespace

TEST_F(IpodDestination, ItsOwnDriveIsRefusedInEveryForm) {
    form.txtDestination.SetText(Text("E:\\"));
    Run();
    EXPECT_EQ(MessagesShown(), QStringList(Invalid));
    for (const char* path : {"E:", "E:\\", "e:\\notes", "E:\\Notes\\", "E:\\New", "E:\\New\\Sub",
                             "E:\\iPod_Control"}) {
        ExpectRefused(Text(path));
    }
    for (const char* path : {"", "/", "/Notes", "/New", "/New/Sub/", "/iPod_Control/Music"}) {
        ExpectRefused(Ipod() + Text(path));
    }
    MakeLink(Ipod("Notes"), World("link"));
    MakeLink(Text("link"), World("link to link"));
    ExpectRefused(World("link"));
    ExpectRefused(World("link to link/New"));
    ExpectRefused(World("Copied/../IPOD"));
}

TEST_F(IpodDestination, ItsOwnDriveIsRefusedThroughASecondMount) {
    MakeFolder(World("mounted"));
    const TestMount mount = TestMount::Bind(Ipod("Notes"), World("mounted"));
    if (!mount.IsMounted()) {
        GTEST_SKIP() << "no folder can be mounted twice here";
    }
    form.txtDestination.SetText(Text("E:\\"));
    Run();
    ExpectRefused(World("mounted"));
    ExpectRefused(World("mounted/New"));
}

TEST_F(IpodDestination, AnArtistFolderThatIsTheIpodCostsItsFilesOnly) {
    tracks[0].Artist = Text("IPOD");
    tracks[1].Artist = Text("IPOD");
    AddSong(Text("Sound"), "sound");
    form.txtDestination.SetText(World());
    form.chkArtist.SetValue(true);
    Run();
    EXPECT_EQ(MessagesShown(),
              QStringList({Text("Error: Unable to create file: \"") + Ipod("Song.mp3") + u'"',
                           Text("Error: Unable to create file: \"") + Ipod("Film.mp3") + u'"',
                           Text("Songlift: Copy completed!")}));
    EXPECT_EQ(ReadFile(World("Artist/Sound.mp3")), "sound");
    EXPECT_EQ(NamesIn(Ipod()), QStringList({Text("Notes"), Text("iPod_Control")}));
    EXPECT_EQ(NamesIn(World()), QStringList({Text("Artist"), Text("Copied"), Text("IPOD"),
                                             Text("private"), Text("secret.mp3")}));
}

TEST_F(IpodDestination, AnAlbumFolderThatLeadsToTheIpodCostsItsFilesOnly) {
    MakeLink(Ipod("Notes"), Destination("Album"));
    form.chkAlbum.SetValue(true);
    Run();
    EXPECT_EQ(MessagesShown(),
              QStringList(
                  {Text("Error: Unable to create file: \"") + Destination("Album/Song.mp3") + u'"',
                   Text("Error: Unable to create file: \"") + Destination("Album/Film.mp3") + u'"',
                   Text("Songlift: Copy completed!")}));
    ExpectRestUntouched();
}

TEST_F(IpodDestination, AnIpodUnderTheNameOfTheTemporaryFolderStays) {
    const QString ipod = Destination("tmp");
    ASSERT_EQ(rename(Ipod().toUtf8().constData(), ipod.toUtf8().constData()), 0);
    qputenv("SONGLIFT_DRIVES", ipod.toUtf8());
    WriteFile(ipod + Text("/Notes/note.txt"), "note");
    const QStringList before = ListTree(ipod);
    form.txtDestination.SetText(Destination());
    MakeLink(ipod, Ipod());
    Run();
    EXPECT_EQ(MessagesShown(), QStringList({Text("Error: Unable to create file: \"") +
                                                Destination("Film.mp3") + u'"',
                                            Text("Songlift: Copy completed!")}));
    EXPECT_EQ(CopiedBytes("Song.mp3"), "sound");
    EXPECT_EQ(ListTree(ipod).size(), before.size() + 1); // the database
    EXPECT_EQ(ReadFile(ipod + Text("/Notes/note.txt")), "note");
}
