#include "tests/copy/CopyFixture.h"

namespace {

class CopyNamesTest : public CopyFixture, public testing::Test {
protected:
    /// The paths of the copies below the destination.
    QStringList Names() const {
        QStringList names;
        for (const QString& path : Copied()) {
            names += path.mid(9);
        }
        return names;
    }
};

} // namespace

TEST_F(CopyNamesTest, WithoutOptionsTheTitlesGoIntoTheDestinationItself) {
    AddTrack("Abba", "Arrival", "Tiger", "tiger", 7);
    AddTrack("Beck", "Guero", "Girl", "girl", 8);
    Press();
    EXPECT_EQ(Names(), QStringList({Text("Girl.mp3"), Text("Tiger.mp3")}));
    EXPECT_EQ(Bytes("D:\\Music\\Tiger.mp3"), QByteArray("tiger"));
    EXPECT_EQ(Bytes("D:\\Music\\Girl.mp3"), QByteArray("girl"));
}

TEST_F(CopyNamesTest, ArtistAndAlbumFoldersAreMadeOneLevelAtATime) {
    AddTrack("Abba", "Arrival", "Tiger", "tiger");
    AddTrack("Abba", "Arrival", "Fernando", "fernando");
    AddTrack("Abba", "Voulez-Vous", "Chiquitita", "chiquitita");
    SetOptions("AB");
    Press();
    EXPECT_EQ(files.CallsOf(FileCall::CreateFolder),
              QStringList({Text("D:\\Music\\Abba"), Text("D:\\Music\\Abba\\Arrival"),
                           Text("D:\\Music\\Abba\\Voulez-Vous")}));
    EXPECT_EQ(Names(),
              QStringList({Text("Abba\\Arrival\\Fernando.mp3"), Text("Abba\\Arrival\\Tiger.mp3"),
                           Text("Abba\\Voulez-Vous\\Chiquitita.mp3")}));
}

TEST_F(CopyNamesTest, AFolderThatSomebodyElseMakesInTheSameInstantIsUsed) {
    AddTrack("Abba", "Arrival", "One", "one");
    SetOptions("A");
    files.BeforeCall = [this](const FakeFileSystem::RecordedCall& call) {
        if (call.Call == FileCall::CreateFolder) {
            files.AddFolder(call.Path);
        }
    };
    Press();
    EXPECT_EQ(Copied(), QStringList{Text("D:\\Music\\Abba\\One.mp3")});
    EXPECT_EQ(messages.Texts(), QStringList{Text("Copy completed!")});
}

TEST_F(CopyNamesTest, OnlyTheArtistFolder) {
    AddTrack("Abba", "Arrival", "Tiger", "tiger");
    SetOptions("A");
    Press();
    EXPECT_EQ(Names(), QStringList{Text("Abba\\Tiger.mp3")});
}

TEST_F(CopyNamesTest, OnlyTheAlbumFolder) {
    AddTrack("Abba", "Arrival", "Tiger", "tiger");
    SetOptions("B");
    Press();
    EXPECT_EQ(Names(), QStringList{Text("Arrival\\Tiger.mp3")});
}

TEST_F(CopyNamesTest, AFullNameReadsArtistAlbumNumberTitle) {
    AddTrack("AC/DC", "Live: 1992", "T.N.T.", "tnt", 7);
    SetOptions("abn");
    Press();
    EXPECT_EQ(Names(), QStringList{Text("ACDC - Live 1992 - 07 T.N.T.mp3")});
}

TEST_F(CopyNamesTest, ArtistAndTitleAlone) {
    AddTrack("Abba", "Arrival", "Tiger", "tiger", 7);
    SetOptions("a");
    Press();
    EXPECT_EQ(Names(), QStringList{Text("Abba - Tiger.mp3")});
}

TEST_F(CopyNamesTest, AlbumAndTitleAlone) {
    AddTrack("Abba", "Arrival", "Tiger", "tiger", 7);
    SetOptions("b");
    Press();
    EXPECT_EQ(Names(), QStringList{Text("Arrival - Tiger.mp3")});
}

TEST_F(CopyNamesTest, TrackNumberSevenGivesThePrefix07AndOneBlank) {
    AddTrack("Abba", "Arrival", "Tiger", "tiger", 7);
    SetOptions("n");
    Press();
    EXPECT_EQ(Names(), QStringList{Text("07 Tiger.mp3")});
}

TEST_F(CopyNamesTest, TrackNumbersAreAtLeastTwoDigitsLong) {
    AddTrack("Abba", "Arrival", "a", "a", 1);
    AddTrack("Abba", "Arrival", "b", "b", 10);
    AddTrack("Abba", "Arrival", "c", "c", 123);
    SetOptions("n");
    Press();
    EXPECT_EQ(Names(), QStringList({Text("01 a.mp3"), Text("10 b.mp3"), Text("123 c.mp3")}));
}

TEST_F(CopyNamesTest, TrackNumberZeroOrLessNeverGetsAPrefix) {
    AddTrack("Abba", "Arrival", "Tiger", "tiger", 0);
    AddTrack("Abba", "Arrival", "Fernando", "fernando", -3);
    SetOptions("n");
    Press();
    EXPECT_EQ(Names(), QStringList({Text("Fernando.mp3"), Text("Tiger.mp3")}));
}

TEST_F(CopyNamesTest, TheGenreOptionHasNoEffect) {
    AddTrack("Abba", "Arrival", "Tiger", "tiger");
    form.chkGenre.SetValue(true);
    Press();
    EXPECT_EQ(Names(), QStringList{Text("Tiger.mp3")});
}

TEST_F(CopyNamesTest, PercentSignsInNamesStayAsTheyAre) {
    AddTrack("%1", "%2", "%3 %n", "x", 1);
    SetOptions("abn");
    Press();
    EXPECT_EQ(Names(), QStringList{Text("%1 - %2 - 01 %3 %n.mp3")});
}

TEST_F(CopyNamesTest, TheExtensionIsThatOfTheFileOnTheDevice) {
    TrackRecord& track = AddTrack("Abba", "Arrival", "Tiger.mp3", "tiger");
    track.Location = Text("E:\\iPod_Control\\Music\\F00\\XYZ.tar.M4A");
    files.AddFile(track.Location, "other");
    Press();
    EXPECT_EQ(Names(), QStringList{Text("Tiger.mp3.M4A")});
}

TEST_F(CopyNamesTest, AFileWithoutExtensionLeavesTheDot) {
    TrackRecord& track = AddTrack("Abba", "Arrival", "Tiger", "tiger");
    track.Location = Text("E:\\iPod_Control\\Music\\F.00\\XYZ");
    files.AddFile(track.Location, "other");
    Press();
    EXPECT_EQ(Names(), QStringList{Text("Tiger.")});
}

TEST_F(CopyNamesTest, AnExtensionCannotLeadOutOfTheFolder) {
    AddTrack("Abba", "Arrival", "Tiger", "tiger").Location =
        Text("E:\\iPod_Control\\Music\\a./home/ana/x");
    files.AddFile(Text("E:\\iPod_Control\\Music\\a./home/ana/x"), "hostile");
    files.AddFolder(Text("/home/ana/Music"));
    form.txtDestination.SetText(Text("/home/ana/Music"));
    Press();
    EXPECT_EQ(files.FilesBelow(Text("/")), QStringList{Text("/home/ana/Music/Tiger.homeanax")});
}

TEST_F(CopyNamesTest, EqualTitlesInOneFolderAreNumbered) {
    AddTrack("Abba", "Arrival", "Intro", "1");
    AddTrack("Abba", "Arrival", "Intro", "2");
    AddTrack("Beck", "Guero", "Intro", "3");
    Press();
    EXPECT_EQ(Bytes("D:\\Music\\Intro.mp3"), QByteArray("1"));
    EXPECT_EQ(Bytes("D:\\Music\\Intro (2).mp3"), QByteArray("2"));
    EXPECT_EQ(Bytes("D:\\Music\\Intro (3).mp3"), QByteArray("3"));
    EXPECT_TRUE(prompted.isEmpty());
}

TEST_F(CopyNamesTest, TheNumberingStartsOverInANewArtistFolder) {
    AddTrack("Abba", "Arrival", "Intro", "1");
    AddTrack("Beck", "Guero", "Intro", "2");
    SetOptions("A");
    Press();
    EXPECT_EQ(Names(), QStringList({Text("Abba\\Intro.mp3"), Text("Beck\\Intro.mp3")}));
}

TEST_F(CopyNamesTest, TheNumberingStartsOverInANewAlbumFolder) {
    AddTrack("Abba", "Arrival", "Intro", "1");
    AddTrack("Abba", "Waterloo", "Intro", "2");
    SetOptions("B");
    Press();
    EXPECT_EQ(Names(), QStringList({Text("Arrival\\Intro.mp3"), Text("Waterloo\\Intro.mp3")}));
}

TEST_F(CopyNamesTest, ANewAlbumWithoutAlbumFoldersGoesOnNumbering) {
    AddTrack("Abba", "Arrival", "Intro", "1");
    AddTrack("Abba", "Waterloo", "Intro", "2");
    SetOptions("A");
    Press();
    EXPECT_EQ(Names(), QStringList({Text("Abba\\Intro (2).mp3"), Text("Abba\\Intro.mp3")}));
}

TEST_F(CopyNamesTest, TheSameAlbumFolderOfTheNextArtistGoesOnNumbering) {
    AddTrack("Abba", "Greatest Hits", "Intro", "1");
    AddTrack("Beck", "Greatest Hits", "Intro", "2");
    SetOptions("B");
    Press();
    EXPECT_EQ(Names(), QStringList({Text("Greatest Hits\\Intro (2).mp3"),
                                    Text("Greatest Hits\\Intro.mp3")}));
}

TEST_F(CopyNamesTest, FoldersThatDifferOnlyInLetterCaseAreOneFolderForTheNumbering) {
    AddTrack("ABBA", "Arrival", "Intro", "1");
    AddTrack("Abba?", "Arrival", "Intro", "2");
    SetOptions("A");
    Press();
    EXPECT_EQ(Bytes("D:\\Music\\ABBA\\Intro.mp3"), QByteArray("1"));
    EXPECT_EQ(Bytes("D:\\Music\\ABBA\\Intro (2).mp3"), QByteArray("2"));
}

TEST_F(CopyNamesTest, TheNextJobStartsTheNumberingOver) {
    AddTrack("Abba", "Arrival", "Intro", "1");
    Press();
    promptUses = {PromptUse::Skip};
    Press();
    EXPECT_EQ(prompted, QStringList{Text("D:\\Music\\Intro.mp3")});
    EXPECT_EQ(Names(), QStringList{Text("Intro.mp3")});
}

TEST_F(CopyNamesTest, ADestinationThatEndsInASeparatorGetsNoSecondOne) {
    AddTrack("Abba", "Arrival", "Tiger", "tiger");
    form.txtDestination.SetText(Text("D:\\Music\\"));
    SetOptions("A");
    Press();
    EXPECT_EQ(
        files.CallsOf(FileCall::CopyFile),
        QStringList{Text("E:\\iPod_Control\\Music\\F00\\1.mp3 > D:\\Music\\Abba\\Tiger.mp3")});
}

TEST_F(CopyNamesTest, ANativeDestinationIsFilledAlike) {
    AddTrack("Abba", "Arrival", "Tiger", "tiger");
    AddLargeTrack("Abba", "Arrival", "Film", 50000001);
    files.AddFolder(Text("/home/ana/Music"));
    form.txtDestination.SetText(Text("/home/ana/Music"));
    SetOptions("AB");
    Press();
    EXPECT_EQ(files.FilesBelow(Text("/")),
              QStringList({Text("/home/ana/Music/Abba/Arrival/Film.mp3"),
                           Text("/home/ana/Music/Abba/Arrival/Tiger.mp3")}));
    EXPECT_FALSE(files.HasFolder(Text("/home/ana/Music/tmp")));
}
