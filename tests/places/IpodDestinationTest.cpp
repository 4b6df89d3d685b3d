#include "tests/places/JobOnDisk.h"

using namespace Qt::StringLiterals;

namespace {

const QString Invalid = u"Songlift: Invalid destination path."_s;

/// Destinations by which a job would write to the iPod.
class IpodDestination : public JobOnDisk {
protected:
    IpodDestination() {
        MakeFolder(Ipod("Notes"));
        AddSong(u"Song"_s, "sound");
        AddSong(u"Film"_s, "film", InChunks);
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
    form.txtDestination.SetText(u"E:\\"_s);
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
    MakeLink(u"link"_s, World("link to link"));
    ExpectRefused(World("link"));
    ExpectRefused(World("link to link/New"));
    ExpectRefused(World("Copied/../IPOD"));
}

TEST_F(IpodDestination, ItsOwnDriveIsRefusedThroughASecondMount) {
    MakeFolder(World("mounted"));
    const TestMount mount = TestMount::Bind(Ipod("Notes"), World("mounted"));
    SKIP_UNLESS(mount.IsMounted(), "no folder can be mounted twice here");
    form.txtDestination.SetText(u"E:\\"_s);
    Run();
    ExpectRefused(World("mounted"));
    ExpectRefused(World("mounted/New"));
}

TEST_F(IpodDestination, AnArtistFolderThatIsTheIpodCostsItsFilesOnly) {
    tracks[0].Artist = u"IPOD"_s;
    tracks[1].Artist = u"IPOD"_s;
    AddSong(u"Sound"_s, "sound");
    form.txtDestination.SetText(World());
    form.chkArtist.SetValue(true);
    Run();
    EXPECT_EQ(MessagesShown(),
              QStringList({u"Error: Unable to create file: \""_s + Ipod("Song.mp3") + u'"',
                           u"Error: Unable to create file: \""_s + Ipod("Film.mp3") + u'"',
                           u"Songlift: Copy completed!"_s}));
    EXPECT_EQ(ReadFile(World("Artist/Sound.mp3")), "sound");
    EXPECT_EQ(NamesIn(Ipod()), QStringList({u"Notes"_s, u"iPod_Control"_s}));
    EXPECT_EQ(NamesIn(World()),
              QStringList({u"Artist"_s, u"Copied"_s, u"IPOD"_s, u"private"_s, u"secret.mp3"_s}));
}

TEST_F(IpodDestination, AnAlbumFolderThatLeadsToTheIpodCostsItsFilesOnly) {
    MakeLink(Ipod("Notes"), Destination("Album"));
    form.chkAlbum.SetValue(true);
    Run();
    EXPECT_EQ(
        MessagesShown(),
        QStringList({u"Error: Unable to create file: \""_s + Destination("Album/Song.mp3") + u'"',
                     u"Error: Unable to create file: \""_s + Destination("Album/Film.mp3") + u'"',
                     u"Songlift: Copy completed!"_s}));
    ExpectRestUntouched();
}

TEST_F(IpodDestination, AnIpodUnderTheNameOfTheTemporaryFolderStays) {
    const QString ipod = Destination("tmp");
    ASSERT_EQ(rename(Ipod().toUtf8().constData(), ipod.toUtf8().constData()), 0);
    qputenv("SONGLIFT_DRIVES", ipod.toUtf8());
    WriteFile(ipod + u"/Notes/note.txt"_s, "note");
    const QStringList before = ListTree(ipod);
    form.txtDestination.SetText(Destination());
    MakeLink(ipod, Ipod());
    Run();
    EXPECT_EQ(MessagesShown(),
              QStringList({u"Error: Unable to create file: \""_s + Destination("Film.mp3") + u'"',
                           u"Songlift: Copy completed!"_s}));
    EXPECT_EQ(CopiedBytes("Song.mp3"), "sound");
    EXPECT_EQ(ListTree(ipod).size(), before.size() + 1); // the database
    EXPECT_EQ(ReadFile(ipod + u"/Notes/note.txt"_s), "note");
}
