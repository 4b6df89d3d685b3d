#include "tests/places/JobOnDisk.h"
#include "tests/support/ServedDisk.h"

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

const QString Completed = u"Songlift: Copy completed!"_s;

/// Jobs whose destination is such a disk.
class JobOnCaselessDisk : public JobOnDisk {
protected:
    /// With an image, in which it lies on a block device, Linux takes it for a file system of
    /// Windows.
    explicit JobOnCaselessDisk(const char* image = nullptr)
        : m_disk("caseless_disk.py", Destination(),
                 image != nullptr ? QStringList(World(image)) : QStringList()) {}

    void SetUp() override {
        if (!m_disk.Impossible().isEmpty()) {
            GTEST_SKIP() << qPrintable(m_disk.Impossible());
        }
        ASSERT_TRUE(m_disk.IsMounted());
    }

private:
    ServedDisk m_disk;
};

/// The parameter is the length of file that the database tells, so that both ways of copying are
/// tried.
class OnCaselessDisk : public JobOnCaselessDisk, public testing::WithParamInterface<qint64> {
protected:
    SampleTrack& Add(const char* title, const char* bytes) {
        return AddSong(Text(title), bytes, GetParam());
    }
    void ExpectCopied(const QStringList& names) {
        EXPECT_EQ(Copied(), names);
        EXPECT_EQ(FilesIn(Destination()).filter(u"songlift"_s), QStringList());
        ExpectRestUntouched();
    }
};

class OnWindowsDisk : public JobOnCaselessDisk {
protected:
    OnWindowsDisk() : JobOnCaselessDisk("image") {}
};

} // namespace

TEST_P(OnCaselessDisk, ItIsOne) {
    WriteFile(Destination("Song.mp3"), "song");
    EXPECT_EQ(ReadFile(Destination("SONG.MP3")), "song");
    WriteFile(Destination("Bj\u00F6rk"), "composed");
    EXPECT_EQ(ReadFile(Destination("Bjo\u0308rk.")), "composed");
    const QByteArray folder = Destination().toUtf8();
    EXPECT_LT(open(folder.constData(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600), 0);
    EXPECT_LT(symlink("Song.mp3", (folder + "/link").constData()), 0);
    EXPECT_LT(link((folder + "/Song.mp3").constData(), (folder + "/link").constData()), 0);
    EXPECT_LT(open((folder + "/a\nb").constData(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600), 0);
    EXPECT_EQ(errno, EINVAL);
}

TEST_P(OnCaselessDisk, TitlesThatDifferOnlyInCaseMeetThePrompt) {
    Add("Song", "first");
    Add("SONG", "second");
    Add("song", "third");
    Run();
    EXPECT_EQ(prompted, QStringList({Destination("SONG.mp3"), Destination("song.mp3")}));
    EXPECT_EQ(MessagesShown(), QStringList(Completed));
    EXPECT_EQ(CopiedBytes("Song.mp3"), "first");
    ExpectCopied({u"Song.mp3"_s});

    onPrompt = OverwritePrompt::Replace;
    prompted.clear();
    Press();
    EXPECT_EQ(prompted, QStringList({Destination("Song.mp3"), Destination("SONG.mp3"),
                                     Destination("song.mp3")}));
    EXPECT_EQ(CopiedBytes("Song.mp3"), "third");
    ExpectCopied({u"Song.mp3"_s});
}

TEST_P(OnCaselessDisk, TitlesWhoseAccentsAreComposedOtherwiseMeetThePrompt) {
    Add("Bj\u00F6rk", "first");
    Add("Bjo\u0308rk", "second");
    Add("BJO\u0308RK", "third");
    Run();
    EXPECT_EQ(prompted,
              QStringList({Destination("Bjo\u0308rk.mp3"), Destination("BJO\u0308RK.mp3")}));
    EXPECT_EQ(MessagesShown(), QStringList(Completed));
    EXPECT_EQ(CopiedBytes("Bj\u00F6rk.mp3"), "first");
    ExpectCopied({u"Bj\u00F6rk.mp3"_s});
}

TEST_P(OnCaselessDisk, AnEarlierFileMeetsThePromptWhateverItsSpelling) {
    WriteFile(Destination("SONG.MP3"), "earlier");
    WriteFile(Destination("o\u0308"), "earlier");
    Add("Song", "new");
    SampleTrack& bare = Add("\u00D6", "new");
    ASSERT_EQ(rename(Music("2.mp3").toUtf8().constData(), Music("2").toUtf8().constData()), 0);
    bare.Location = u"F00/2"_s; // the copy's name ends in a dot
    Run();
    EXPECT_EQ(prompted, QStringList({Destination("Song.mp3"), Destination("\u00D6.")}));
    EXPECT_EQ(MessagesShown(), QStringList(Completed));
    EXPECT_EQ(CopiedBytes("SONG.MP3"), "earlier");
    EXPECT_EQ(CopiedBytes("o\u0308"), "earlier");
    ExpectCopied({u"SONG.MP3"_s, u"o\u0308"_s});
}

TEST_P(OnCaselessDisk, ItsDriveLetterMakesNoDifference) {
    qputenv("SONGLIFT_DRIVES", (Ipod() + u':' + Destination()).toUtf8());
    form.txtDestination.SetText(u"F:\\"_s);
    WriteFile(Destination("BJO\u0308RK.mp3"), "earlier");
    Add("Bj\u00F6rk", "new");
    Add("Song", "first");
    Add("SONG", "second");
    Run();
    EXPECT_EQ(prompted, QStringList({u"F:\\Bj\u00F6rk.mp3"_s, u"F:\\SONG.mp3"_s}));
    EXPECT_EQ(MessagesShown(), QStringList(Completed));
    EXPECT_EQ(CopiedBytes("BJO\u0308RK.mp3"), "earlier");
    EXPECT_EQ(CopiedBytes("Song.mp3"), "first");
    ExpectCopied({u"BJO\u0308RK.mp3"_s, u"Song.mp3"_s});
}

TEST_P(OnCaselessDisk, ArtistsOfOneFolderShareIt) {
    form.chkArtist.SetValue(true);
    for (const char* artist : {"Bj\u00F6rk", "BJ\u00D6RK?", "Bjo\u0308rk"}) {
        Add("Song", artist).Artist = Text(artist);
    }
    Run();
    // Letter case does not begin another folder, so that the second is numbered.
    EXPECT_EQ(prompted, QStringList(Destination("Bjo\u0308rk/Song.mp3")));
    EXPECT_EQ(MessagesShown(), QStringList(Completed));
    EXPECT_EQ(CopiedBytes("Bj\u00F6rk/Song.mp3"), "Bj\u00F6rk");
    EXPECT_EQ(CopiedBytes("Bj\u00F6rk/Song (2).mp3"), "BJ\u00D6RK?");
    ExpectCopied({u"Bj\u00F6rk/Song (2).mp3"_s, u"Bj\u00F6rk/Song.mp3"_s});
}

TEST_P(OnCaselessDisk, ARefusedCharacterCostsOnlyItsFile) {
    const QString unable = u"Error: Unable to create file: \""_s;
    Add("two\nlines", "x");
    Add("\ttab", "x");
    Add("Song", "song");
    Run();
    EXPECT_EQ(MessagesShown(), QStringList({unable + Destination("two\nlines.mp3") + u'"',
                                            unable + Destination("\ttab.mp3") + u'"', Completed}));
    ExpectCopied({u"Song.mp3"_s});
}

TEST_P(OnCaselessDisk, ARefusedCharacterInAFolderCostsOnlyItsFiles) {
    form.chkArtist.SetValue(true);
    Add("Song", "x").Artist = u"two\nlines"_s;
    Add("Song", "song");
    Run();
    EXPECT_EQ(
        MessagesShown(),
        QStringList({u"Error: Unable to create file: \""_s + Destination("two\nlines") + u'"',
                     u"Error: Path not found: \"E:\\iPod_Control\\Music\\F00\""_s, Completed}));
    ExpectCopied({u"Artist/Song.mp3"_s});
}

TEST_P(OnCaselessDisk, LongNamesAndManyBytesArriveWhole) {
    const QByteArray bytes = Pattern(3000000);
    AddSong(QString(251, u'a'), bytes, GetParam());
    AddSong(QString(252, u'a'), bytes, GetParam());
    Run();
    EXPECT_EQ(MessagesShown(), QStringList(Completed));
    EXPECT_TRUE(CopiedBytes((QByteArray(251, 'a') + ".mp3").constData()) == bytes);
    EXPECT_TRUE(CopiedBytes((QByteArray(247, 'a') + " (2).mp3").constData()) == bytes);
    ExpectCopied({QString(247, u'a') + u" (2).mp3"_s, QString(251, u'a') + u".mp3"_s});
}

TEST_F(OnWindowsDisk, AHardLibraryArrivesWithoutAQuestion) {
    form.chkArtist.SetValue(true);
    form.chkAlbum.SetValue(true);
    const QString film = Text("青").repeated(90);
    const std::vector<std::pair<QString, QString>> titles = {
        {u"NUL"_s, u"NUL_"_s},
        {u"aux"_s, u"aux_"_s},
        {u"Com1.live"_s, u"Com1_.live"_s},
        {u"a\tb"_s, u"ab"_s},
        {u"two\nlines"_s, u"twolines"_s},
        {u"\x01"_s, u"UNKNOWN"_s},
        {u"Notes \U0001F3B5"_s, u"Notes \U0001F3B5"_s},
        {Text("قمر الصيف"), Text("قمر الصيف")},
        // What keeps this disk's names counts their bytes, like a server with such a disk.
        {film, film.left(83)},
        {QString(400, u'é'), QString(125, u'é')},
        {QString(400, u'é') + u'!', QString(123, u'é') + u" (2)"_s},
    };
    QStringList names(u"UNKNOWN/UNKNOWN/Tiger.mp3"_s);
    for (const auto& [title, name] : titles) {
        SampleTrack& track = AddSong(title, "sound");
        track.Artist = u"PRN"_s;
        track.Album = u"LPT1."_s;
        names += u"PRN_/LPT1_/"_s + name + u".mp3"_s;
    }
    SampleTrack& unnamed = AddSong(u"Tiger"_s, "sound");
    unnamed.Artist = u"\x02"_s;
    unnamed.Album = u"\x03"_s;
    Run();
    EXPECT_EQ(MessagesShown(), QStringList(Completed));
    EXPECT_EQ(prompted, QStringList());
    names.sort();
    EXPECT_EQ(Copied(), names);
    ExpectRestUntouched();
}

INSTANTIATE_TEST_SUITE_P(EitherWay, OnCaselessDisk, testing::Values(5, InChunks),
                         [](const auto& size) {
                             return size.param == InChunks ? "InChunks" : "Whole";
                         });
