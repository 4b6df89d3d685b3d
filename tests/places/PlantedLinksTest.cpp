#include "tests/places/JobOnDisk.h"

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// A destination in which somebody has left things that lead out of it.
class PlantedLinks : public JobOnDisk {
protected:
    PlantedLinks() {
        MakeFolder(World("Documents"));
        WriteFile(World("Documents/letter.txt"), "letter");
        WriteFile(World("Documents/copy.tmp"), "precious");
        WriteFile(World("Documents/Song.mp3"), "precious");
    }

    QString Unable(const char* name) const {
        return u"Error: Unable to create file: \""_s + Destination(name) + u'"';
    }
    void SetArtistFolders() { form.chkArtist.SetValue(true); }

    const QString Completed = u"Songlift: Copy completed!"_s;
};

} // namespace

TEST_F(PlantedLinks, TheDestinationItselfMayBeALink) {
    MakeLink(World("Copied"), World("link"));
    form.txtDestination.SetText(World("link"));
    SetArtistFolders();
    AddSong(u"Song"_s, "sound");
    AddSong(u"Film"_s, "film", InChunks);
    Run();
    EXPECT_EQ(MessagesShown(), QStringList(Completed));
    EXPECT_EQ(Copied(), QStringList({u"Artist/Film.mp3"_s, u"Artist/Song.mp3"_s}));
    ExpectRestUntouched();
}

TEST_F(PlantedLinks, ALinkedArtistFolderIsUsedAndItsFilesAreAskedAbout) {
    MakeLink(World("Documents"), Destination("Artist"));
    SetArtistFolders();
    AddSong(u"Song"_s, "sound");
    Run();
    EXPECT_EQ(prompted, QStringList(Destination("Artist/Song.mp3")));
    EXPECT_EQ(MessagesShown(), QStringList(Completed));
    ExpectRestUntouched();
    onPrompt = OverwritePrompt::Replace;
    Press();
    EXPECT_EQ(ReadFile(World("Documents/Song.mp3")), "sound");
    EXPECT_EQ(NamesIn(World("Documents")),
              QStringList({u"Song.mp3"_s, u"copy.tmp"_s, u"letter.txt"_s}));
}

TEST_F(PlantedLinks, AnArtistFolderThatCannotBeMadeCostsItsFilesOnly) {
    MakeLink(World("nix"), Destination("Artist"));
    WriteFile(Destination("Mine"), "mine");
    SetArtistFolders();
    AddSong(u"Song"_s, "sound");
    AddSong(u"Song"_s, "sound").Artist = u"Mine"_s;
    AddSong(u"Song"_s, "sound").Artist = u"Other"_s;
    Run();
    const QString noFolder = u"Error: Path not found: \"E:\\iPod_Control\\Music\\F00\""_s;
    EXPECT_EQ(MessagesShown(),
              QStringList({Unable("Artist"), noFolder, Unable("Mine"), noFolder, Completed}));
    EXPECT_EQ(Copied(),
              QStringList({u"Artist -> "_s + World("nix"), u"Mine"_s, u"Other/Song.mp3"_s}));
    EXPECT_EQ(CopiedBytes("Mine"), "mine");
    ExpectRestUntouched();
}

TEST_F(PlantedLinks, ALinkUnderTheNameOfACopyIsReplacedAndNotItsFile) {
    for (const qint64 size : {qint64{5}, InChunks}) {
        MakeLink(World("Documents/Song.mp3"), Destination("Song.mp3"));
        tracks.clear();
        AddSong(u"Song"_s, "sound", size);
        onPrompt = OverwritePrompt::Skip;
        Run();
        EXPECT_EQ(Copied(), QStringList(u"Song.mp3 -> "_s + World("Documents/Song.mp3")));
        onPrompt = OverwritePrompt::Replace;
        Press();
        EXPECT_EQ(prompted.size(), 2);
        EXPECT_EQ(MessagesShown(), QStringList(Completed));
        EXPECT_EQ(Copied(), QStringList(u"Song.mp3"_s));
        EXPECT_EQ(CopiedBytes("Song.mp3"), "sound");
        ExpectRestUntouched();
        prompted.clear();
        ASSERT_EQ(unlink(Destination("Song.mp3").toUtf8().constData()), 0);
    }
}

TEST_F(PlantedLinks, ALinkToNothingUnderTheNameOfACopyMakesNothingElsewhere) {
    MakeLink(World("Documents/new.mp3"), Destination("Song.mp3"));
    MakeLink(World("Documents/new.mp3"), Destination("Film.mp3"));
    AddSong(u"Song"_s, "sound");
    AddSong(u"Film"_s, "film", InChunks);
    Run();
    const QString nowhere = u".mp3 -> "_s + World("Documents/new.mp3");
    EXPECT_EQ(Copied(), QStringList({u"Film"_s + nowhere, u"Song"_s + nowhere}));
    onPrompt = OverwritePrompt::Replace;
    Press();
    EXPECT_EQ(prompted, QStringList({Destination("Song.mp3"), Destination("Film.mp3"),
                                     Destination("Song.mp3"), Destination("Film.mp3")}));
    EXPECT_EQ(MessagesShown(), QStringList(Completed));
    EXPECT_EQ(Copied(), QStringList({u"Film.mp3"_s, u"Song.mp3"_s}));
    ExpectRestUntouched();
}

TEST_F(PlantedLinks, ASecondNameOfAFileIsReplacedAndNotItsBytes) {
    ASSERT_EQ(link(World("Documents/Song.mp3").toUtf8().constData(),
                   Destination("Song.mp3").toUtf8().constData()),
              0);
    onPrompt = OverwritePrompt::Replace;
    AddSong(u"Song"_s, "sound");
    Run();
    EXPECT_EQ(CopiedBytes("Song.mp3"), "sound");
    EXPECT_EQ(ReadFile(World("Documents/Song.mp3")), "precious");
}

TEST_F(PlantedLinks, WhatIsNoFileUnderTheNameOfACopyCostsOnlyThatCopy) {
    MakeFolder(Destination("Folder.mp3/inner"));
    ASSERT_TRUE(MakePipe(Destination("Pipe.mp3")));
    MakeLink(World("Documents"), Destination("Link.mp3"));
    for (const qint64 size : {qint64{5}, InChunks}) {
        tracks.clear();
        for (const char* title : {"Folder", "Pipe", "Link", "Song"}) {
            AddSong(Text(title), "sound", size);
        }
        Run();
        EXPECT_EQ(MessagesShown(), QStringList({Unable("Folder.mp3"), Unable("Pipe.mp3"),
                                                Unable("Link.mp3"), Completed}));
        EXPECT_EQ(Copied(), QStringList({u"Link.mp3 -> "_s + World("Documents"), u"Pipe.mp3"_s,
                                         u"Song.mp3"_s}));
        EXPECT_EQ(NamesIn(Destination("Folder.mp3")), QStringList(u"inner"_s));
        ExpectRestUntouched();
        ASSERT_EQ(unlink(Destination("Song.mp3").toUtf8().constData()), 0);
    }
}

TEST_F(PlantedLinks, ALinkNamedTmpIsNotWrittenThroughAndOnlyTheLinkIsDeleted) {
    MakeLink(World("Documents"), Destination("tmp"));
    AddSong(u"Film"_s, "film", InChunks);
    AddSong(u"Song"_s, "sound");
    Run();
    EXPECT_EQ(MessagesShown(), QStringList({Unable("Film.mp3"), Completed}));
    EXPECT_EQ(Copied(), QStringList(u"Song.mp3"_s));
    ExpectRestUntouched();

    Press(); // the link is gone
    EXPECT_EQ(MessagesShown(), QStringList(Completed));
    EXPECT_EQ(Copied(), QStringList({u"Film.mp3"_s, u"Song.mp3"_s}));
    EXPECT_EQ(CopiedBytes("Film.mp3"), "film");
}

TEST_F(PlantedLinks, WhatStandsInForTheTemporaryFileIsNotWritten) {
    MakeFolder(Destination("tmp"));
    AddSong(u"Film"_s, "film", InChunks);
    AddSong(u"Song"_s, "sound");
    const QByteArray temporary = Destination("tmp/copy.tmp").toUtf8();
    const std::vector<std::function<void()>> plants = {
        [&] { MakeLink(World("Documents/copy.tmp"), Destination("tmp/copy.tmp")); },
        [&] { MakeLink(World("Documents/new"), Destination("tmp/copy.tmp")); },
        [&] {
            ASSERT_EQ(link(World("Documents/copy.tmp").toUtf8().constData(), temporary.constData()),
                      0);
        },
        [&] { ASSERT_TRUE(MakePipe(Destination("tmp/copy.tmp"))); },
        [&] { MakeFolder(Destination("tmp/copy.tmp/inner")); },
    };
    for (const auto& plant : plants) {
        MakeFolder(Destination("tmp"));
        plant();
        Run();
        EXPECT_EQ(MessagesShown(), QStringList({Unable("Film.mp3"), Completed}));
        EXPECT_EQ(Copied(), QStringList(u"Song.mp3"_s));
        EXPECT_EQ(ReadFile(World("Documents/copy.tmp")), "precious");
        EXPECT_FALSE(IsThere(World("Documents/new")));
    }
    ExpectRestUntouched();
}

TEST_F(PlantedLinks, DeletingTmpFollowsNoLinkInIt) {
    MakeFolder(Destination("tmp/a/b"));
    MakeLink(World("Documents"), Destination("tmp/Documents"));
    MakeLink(World("Documents"), Destination("tmp/a/b/Documents"));
    MakeLink(World("Documents/letter.txt"), Destination("tmp/letter.txt"));
    MakeLink(u"../.."_s, Destination("tmp/a/up"));
    AddSong(u"Song"_s, "sound");
    Run();
    EXPECT_EQ(MessagesShown(), QStringList(Completed));
    EXPECT_EQ(NamesIn(Destination()), QStringList(u"Song.mp3"_s));
    ExpectRestUntouched();
}

TEST_F(PlantedLinks, AnArtistNamedTmpHarmsNothingButItsOwnCopies) {
    SetArtistFolders();
    AddSong(u"copy"_s, "sound").Artist = u"tmp"_s;
    ASSERT_EQ(rename(Music("1.mp3").toUtf8().constData(), Music("1.tmp").toUtf8().constData()), 0);
    tracks[0].Location = u"F00/1.tmp"_s;
    AddSong(u"Film"_s, "film", InChunks);
    Run();
    // "tmp" in the destination is deleted with all it holds, whoever made it.
    EXPECT_EQ(MessagesShown(), QStringList(Completed));
    EXPECT_EQ(Copied(), QStringList(u"Artist/Film.mp3"_s));
    EXPECT_EQ(CopiedBytes("Artist/Film.mp3"), "film");
    ExpectRestUntouched();
}
