#include "tests/copy/CopyFixture.h"

using namespace Qt::StringLiterals;

namespace {

struct Song {
    const char* Artist;
    const char* Album;
    const char* Title;
    qint32 Number = 0;
};

struct Case {
    const char* Options; // as for SetOptions
    std::vector<Song> Songs;
    QStringList Paths; // of the copies, in the order of the songs
};

/// Copies the songs of each case and looks for each one under its path.
void ExpectPaths(const std::vector<Case>& cases) {
    for (const Case& expected : cases) {
        SCOPED_TRACE(expected.Paths.join(u' ').toStdString());
        CopyFixture fixture;
        int number = 0;
        for (const Song& song : expected.Songs) {
            fixture.AddTrack(song.Artist, song.Album, song.Title, QByteArray::number(++number),
                             song.Number);
        }
        fixture.SetOptions(expected.Options);
        fixture.Press();
        QStringList sorted = expected.Paths;
        sorted.sort();
        ASSERT_EQ(fixture.Names(), sorted);
        for (int i = 0; i < number; ++i) {
            EXPECT_EQ(fixture.files.Bytes(u"D:\\Music\\"_s + expected.Paths[i]),
                      QByteArray::number(i + 1));
        }
        EXPECT_TRUE(fixture.prompted.isEmpty());
    }
}

class CopyNamesTest : public CopyFixture, public testing::Test {};

} // namespace

TEST(CopyNames, TheTickedOptionsMakeTheFoldersAndTheName) {
    ExpectPaths({
        {"", {{"Abba", "Arrival", "Tiger", 7}}, {u"Tiger.mp3"_s}},
        {"A", {{"Abba", "Arrival", "Tiger", 7}}, {u"Abba\\Tiger.mp3"_s}},
        {"B", {{"Abba", "Arrival", "Tiger", 7}}, {u"Arrival\\Tiger.mp3"_s}},
        {"AB", {{"Abba", "Arrival", "Tiger", 7}}, {u"Abba\\Arrival\\Tiger.mp3"_s}},
        {"a", {{"Abba", "Arrival", "Tiger", 7}}, {u"Abba - Tiger.mp3"_s}},
        {"b", {{"Abba", "Arrival", "Tiger", 7}}, {u"Arrival - Tiger.mp3"_s}},
        {"n", {{"Abba", "Arrival", "Tiger", 7}}, {u"07 Tiger.mp3"_s}},
        {"abn", {{"AC/DC", "Live: 1992", "T.N.T.", 7}}, {u"ACDC - Live 1992 - 07 T.N.T.mp3"_s}},
        {"abn", {{"%1", "%2", "%3 %n", 1}}, {u"%1 - %2 - 01 %3 %n.mp3"_s}},
    });
}

TEST(CopyNames, ATrackNumberAboveZeroHasAtLeastTwoDigits) {
    for (const auto& [number, name] :
         std::initializer_list<std::pair<int, QString>>{{-3, u"a.mp3"_s},
                                                        {0, u"a.mp3"_s},
                                                        {1, u"01 a.mp3"_s},
                                                        {10, u"10 a.mp3"_s},
                                                        {123, u"123 a.mp3"_s}}) {
        ExpectPaths({{"n", {{"Abba", "Arrival", "a", number}}, {name}}});
    }
}

TEST(CopyNames, EqualTitlesAreNumberedUntilTheNextFolderBegins) {
    const Song intro = {"Abba", "Arrival", "Intro"};
    const Song introOfTheNextAlbum = {"Abba", "Waterloo", "Intro"};
    const Song introOfTheNextArtist = {"Beck", "Arrival", "Intro"};
    ExpectPaths({
        {"",
         {intro, intro, introOfTheNextArtist},
         {u"Intro.mp3"_s, u"Intro (2).mp3"_s, u"Intro (3).mp3"_s}},
        {"A", {intro, introOfTheNextArtist}, {u"Abba\\Intro.mp3"_s, u"Beck\\Intro.mp3"_s}},
        {"B", {intro, introOfTheNextAlbum}, {u"Arrival\\Intro.mp3"_s, u"Waterloo\\Intro.mp3"_s}},
        {"A", {intro, introOfTheNextAlbum}, {u"Abba\\Intro.mp3"_s, u"Abba\\Intro (2).mp3"_s}},
        {"B",
         {intro, introOfTheNextArtist},
         {u"Arrival\\Intro.mp3"_s, u"Arrival\\Intro (2).mp3"_s}},
        {"A",
         {{"ABBA", "Arrival", "Intro"}, {"Abba?", "Arrival", "Intro"}},
         {u"ABBA\\Intro.mp3"_s, u"ABBA\\Intro (2).mp3"_s}}, // one folder whatever the case
    });
}

TEST_F(CopyNamesTest, AFileThatIsTriedAgainKeepsItsNameAndSoDoThoseAfterIt) {
    for (const char* artist : {"Abba", "ABBA"}) { // its numbering goes on with that of "Abba"
        AddTrack(artist, "Arrival", "Intro", "one");
        AddTrack(artist, "Arrival", "Intro", "two");
    }
    AddTrack("Beck", "Guero", "Intro", "three");
    SetOptions("A");
    for (int nth = 1; nth <= 5; ++nth) {
        events.ToYield = 1000;
        files.FailNthCall(FileCall::CopyFile, nth, ErrorNumber::FileNotFound);
        messages.Answers = {MessageAnswer::Retry, MessageAnswer::OK};
        Press();
        EXPECT_EQ(Names(), QStringList({u"Abba\\Intro (2).mp3"_s, u"Abba\\Intro (3).mp3"_s,
                                        u"Abba\\Intro (4).mp3"_s, u"Abba\\Intro.mp3"_s,
                                        u"Beck\\Intro.mp3"_s}));
        files.Remove(u"D:\\Music"_s);
        files.AddFolder(u"D:\\Music"_s);
    }
}

TEST_F(CopyNamesTest, TheNextJobStartsTheNumberingOver) {
    AddTracks({"Intro"});
    Press();
    promptUses = {PromptUse::Skip};
    Press();
    EXPECT_EQ(prompted, QStringList{u"D:\\Music\\Intro.mp3"_s});
    EXPECT_EQ(Names(), QStringList{u"Intro.mp3"_s});
}

TEST_F(CopyNamesTest, FoldersAreMadeOnceAndOneLevelAtATime) {
    AddTracks({"Tiger", "Fernando"});
    AddTrack("Abba", "Voulez-Vous", "Chiquitita", "chiquitita");
    SetOptions("AB");
    Press();
    EXPECT_EQ(files.CallsOf(FileCall::CreateFolder),
              QStringList({u"D:\\Music\\Abba"_s, u"D:\\Music\\Abba\\Arrival"_s,
                           u"D:\\Music\\Abba\\Voulez-Vous"_s}));
}

TEST_F(CopyNamesTest, AFolderThatSomebodyElseMakesInTheSameInstantIsUsed) {
    AddTracks({"One"});
    SetOptions("A");
    files.BeforeCall = [this](const RecordedFiles::RecordedCall& call) {
        if (call.Call == FileCall::CreateFolder) {
            files.AddFolder(call.Path);
        }
    };
    Press();
    EXPECT_EQ(Names(), QStringList{u"Abba\\One.mp3"_s});
    EXPECT_EQ(messages.Shown, std::vector{Completed});
}

TEST_F(CopyNamesTest, TheGenreOptionHasNoEffect) {
    AddTracks({"Tiger"});
    form.chkGenre.SetValue(true);
    Press();
    EXPECT_EQ(Names(), QStringList{u"Tiger.mp3"_s});
}

TEST_F(CopyNamesTest, TheExtensionIsThatOfTheFileOnTheDevice) {
    for (const auto& [location, name] : {std::pair(u"E:\\F00\\XYZ.tar.M4A"_s, u"Tiger.mp3.M4A"_s),
                                         std::pair(u"E:\\F.00\\XYZ"_s, u"Tiger.mp3."_s)}) {
        CopyFixture fixture;
        fixture.AddTrack("Abba", "Arrival", "Tiger.mp3", "tiger").Location = location;
        fixture.files.AddFile(location, "song");
        fixture.Press();
        EXPECT_EQ(fixture.files.CallsOf(FileCall::CopyFile),
                  QStringList{location + u" > D:\\Music\\"_s + name});
    }
}

TEST_F(CopyNamesTest, ADestinationThatEndsInASeparatorGetsNoSecondOne) {
    AddTracks({"Tiger"});
    form.txtDestination.SetText(u"D:\\Music\\"_s);
    SetOptions("A");
    Press();
    EXPECT_EQ(files.CallsOf(FileCall::CopyFile),
              QStringList{u"E:\\iPod_Control\\Music\\F00\\1.mp3 > D:\\Music\\Abba\\Tiger.mp3"_s});
}

TEST_F(CopyNamesTest, ANativeDestinationIsFilledAlike) {
    AddTracks({"Tiger"});
    AddLargeTrack("Abba", "Arrival", "Film", 50000001);
    files.AddFolder(u"/home/ana/Music"_s);
    form.txtDestination.SetText(u"/home/ana/Music"_s);
    SetOptions("AB");
    Press();
    EXPECT_EQ(files.FilesBelow(u"/"_s), QStringList({u"/home/ana/Music/Abba/Arrival/Film.mp3"_s,
                                                     u"/home/ana/Music/Abba/Arrival/Tiger.mp3"_s}));
    EXPECT_FALSE(files.HasFolder(u"/home/ana/Music/tmp"_s));
}
