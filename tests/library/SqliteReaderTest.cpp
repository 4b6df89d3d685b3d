// What the reader makes of a well-made pair of databases.

#include "tests/library/SqliteDevice.h"

#include <chrono>
#include <filesystem>

using namespace Qt::StringLiterals;

class SQLiteLibrary : public SqliteDevice {
protected:
    const std::vector<SampleTrack> One = {{u"A"_s, u"B"_s, u"C"_s, 1, 1, u"x"_s}};
    const QString OneLine = u"A | B | 1 C | 1 | 1 | E:\\iPod_Control\\Music\\x"_s;
};

TEST_F(SQLiteLibrary, TheFieldsOfATrackAreTakenInAnyScript) {
    Load({{u"Björk"_s, u"日本語"_s, u"🎵 song"_s, 2, 3'700'123, u"F00/Ä.mp3"_s}});
    ExpectLoaded(
        {u"Björk | 日本語 | 2 🎵 song | 3700123 | 1 | E:\\iPod_Control\\Music\\F00\\Ä.mp3"_s});
}

TEST_F(SQLiteLibrary, SlashesOfFolderAndLocationBecomeBackslashes) {
    Load({{u"A"_s, u"B"_s, u"C"_s, 1, 1, u"F00/deep/ABCD.mp3"_s}},
         {.BaseFolder = u"iTunes_Control/My/Music"_s});
    ExpectLoaded({u"A | B | 1 C | 1 | 1 | E:\\iTunes_Control\\My\\Music\\F00\\deep\\ABCD.mp3"_s});
}

TEST_F(SQLiteLibrary, TheFirstBaseLocationCounts) {
    Write(One);
    InLocations(u"Insert Into base_location (id, path) Values (2, 'Elsewhere')"_s);
    Load();
    ExpectLoaded({OneLine});
}

TEST_F(SQLiteLibrary, TheBarShowsWhatIsReadBeforeTheFirstTrackAndNeverRunsBack) {
    /// Looks after the window once the device has been read.
    struct LookingWorker : InlineWorker {
        bool Do(std::function<void()> work, const std::function<bool()>& mayGoOn) override {
            work();
            return mayGoOn();
        }
    } worker;
    LoadMusic music{{Files, worker, Events, Boxes}, LoadControlsOf(Window.Controls)};
    Write(std::vector<SampleTrack>(1000, One[0]));
    music.LoadSQLiteLibrary(u"E:"_s);
    std::vector<float>& values = Window.prgCopy.Values;
    EXPECT_GT(values.at(0), 0.5F);
    EXPECT_LE(values.at(0), 1);
    EXPECT_EQ(values.at(1), values.at(0) * 1000);
    EXPECT_EQ(values.back(), 0);
    values.pop_back();
    EXPECT_EQ(values.back(), 1000);
    EXPECT_TRUE(std::is_sorted(values.begin(), values.end()));
}

// ---- kinds

TEST_F(SQLiteLibrary, TheTableOfKindsMayLieInEitherFile) {
    Load({{u"A"_s, u"B"_s, u"C"_s, 1, 1, u"x"_s, u"QuickTime movie file"_s}},
         {.KindsInLibrary = true});
    ExpectLoaded({u"A | B | 1 C | 1 | 2 | E:\\iPod_Control\\Music\\x"_s});
}

TEST_F(SQLiteLibrary, AKindIsFoundByItsPlaceInTheOrderOfIds) {
    // Kind 2 is the second one in the order of ids, whatever its own id.
    Write(One);
    InLocations(u"Delete From location_kind_map;"
                "Insert Into location_kind_map Values (30, 'AAC audio file');"
                "Insert Into location_kind_map Values (20, 'MPEG-4 video file');"
                "Insert Into location_kind_map Values (2, 'no such kind');"
                "Update location Set kind_id = 2"_s);
    Load();
    ExpectLoaded({u"A | B | 1 C | 1 | 2 | E:\\iPod_Control\\Music\\x"_s});
}

TEST_F(SQLiteLibrary, AKindIdOfZeroAndAKindInAnotherLanguageAreOther) {
    const QString line = u"A | B | 1 C | 1 | 0 | E:\\iPod_Control\\Music\\x"_s;
    Write(One);
    InLocations(u"Update location Set kind_id = 0"_s);
    Load();
    ExpectLoaded({line});
    Load({{u"A"_s, u"B"_s, u"C"_s, 1, 1, u"x"_s, u"MPEG-Audiodatei"_s}});
    ExpectLoaded({line});
}

// ---- names

TEST_F(SQLiteLibrary, TracksAreReadInOrderAndNeighboursWithEqualNamesInLowerCaseAreOneGroup) {
    const struct {
        const char* Rule;
        std::vector<std::pair<QString, QString>> Names; // of artist and album
        QStringList Groups;
    } cases[] = {
        {"sorted by artist and album",
         {{u"B"_s, u"z"_s}, {u"A"_s, u"y"_s}, {u"B"_s, u"a"_s}},
         {u"A: y (2)"_s, u"B: a (3), z (1)"_s}},
        {"no album",
         {{u"A"_s, {}}, {u"A"_s, u"x"_s}, {u"B"_s, {}}},
         {u"A: UNKNOWN (1), x (2)"_s, u"B: UNKNOWN (3)"_s}},
        // In SQLite's order capitals come before small letters.
        {"another artist between two spellings keeps them apart",
         {{u"ABBA"_s, u"x"_s}, {u"AC/DC"_s, u"x"_s}, {u"Abba"_s, u"x"_s}},
         {u"ABBA: x (1)"_s, u"AC/DC: x (2)"_s, u"Abba: x (3)"_s}},
        {"spellings that follow each other are one artist named as the first",
         {{u"ABBA"_s, u"x"_s}, {u"Abba"_s, u"x"_s}, {u"abba"_s, u"y"_s}},
         {u"ABBA: x (1 2), y (3)"_s}},
        {"another album between two spellings keeps them apart",
         {{u"A"_s, u"GOLD"_s}, {u"A"_s, u"Other"_s}, {u"A"_s, u"gold"_s}},
         {u"A: GOLD (1), Other (2), gold (3)"_s}},
        {"spellings that follow each other are one album named as the first",
         {{u"A"_s, u"GOLD"_s}, {u"A"_s, u"Gold"_s}},
         {u"A: GOLD (1 2)"_s}},
        // "A" has x and y, then "a" has x: the album before is y, so x begins again.
        {"albums are sorted anew for each spelling of an artist",
         {{u"A"_s, u"x"_s}, {u"A"_s, u"y"_s}, {u"a"_s, u"x"_s}, {u"a"_s, u"x"_s}},
         {u"A: x (1), y (2), x (3 4)"_s}},
        {"an album that two artists share belongs to each",
         {{u"A"_s, u"Best of"_s}, {u"B"_s, u"Best of"_s}, {u"B"_s, u"Best of"_s}},
         {u"A: Best of (1)"_s, u"B: Best of (2 3)"_s}},
        {"no artist, and one named as unknown right behind",
         {{{}, u"x"_s}, {u"Unknown"_s, u"x"_s}},
         {u"UNKNOWN: x (1 2)"_s}},
        {"no artist, and one named as unknown behind another",
         {{{}, u"x"_s}, {u"A"_s, u"x"_s}, {u"Unknown"_s, u"x"_s}},
         {u"UNKNOWN: x (1)"_s, u"A: x (2)"_s, u"Unknown: x (3)"_s}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.Rule);
        Load(NamedTracks(each.Names));
        EXPECT_EQ(Groups(), each.Groups);
        ExpectConsistent(Library);
    }
}

TEST_F(SQLiteLibrary, MissingNamesAreUnknown) {
    for (const bool asNull : {true, false}) {
        Load({{{}, {}, {}, 0, 1, u"x"_s}}, {.EmptyAsNull = asNull});
        ExpectLoaded({u"UNKNOWN | UNKNOWN | 0 UNKNOWN | 1 | 1 | E:\\iPod_Control\\Music\\x"_s});
    }
}

TEST_F(SQLiteLibrary, NullAndEmptyNamesAreOneGroup) {
    Write(NamedTracks({{u"A"_s, u"B"_s}, {u"A"_s, u"B"_s}}));
    InLibrary(u"Update item Set artist = NULL, album = NULL Where title = '1';"
              "Update item Set artist = '', album = '' Where title = '2'"_s);
    Load();
    EXPECT_EQ(Groups(), QStringList{u"UNKNOWN: UNKNOWN (1 2)"_s});
}

// ---- rows

TEST_F(SQLiteLibrary, AnItemWithoutLocationAndALocationWithoutItemAreNotTracks) {
    Write({{u"A"_s, u"B"_s, u"1"_s, 1, 1, u"1"_s},
           {u"A"_s, u"B"_s, u"2"_s, 2, 1, u"2"_s},
           {u"A"_s, u"B"_s, u"3"_s, 3, 1, u"3"_s}});
    InLibrary(u"Delete From item Where title = '2'"_s);
    InLocations(u"Delete From location Where location = '3'"_s);
    Load();
    ExpectLoaded({u"A | B | 1 1 | 1 | 1 | E:\\iPod_Control\\Music\\1"_s});
    EXPECT_EQ(Window.prgCopy.Max(), 1);
}

TEST_F(SQLiteLibrary, AnItemWithTwoLocationsIsTwoTracks) {
    Write(One);
    InLocations(
        u"Insert Into location Select item_pid, 1, 1, '2', NULL, 1, NULL, 5 From location"_s);
    Load();
    EXPECT_EQ(Library.TrackCount, 2);
    EXPECT_EQ(Library.TotalSize, 6);
}

TEST_F(SQLiteLibrary, TheMessageAndTheBarShowTheProgress) {
    Window.Form1.SetState(WindowState::Minimized);
    Window.Form1.Captions.clear();
    Load(NamedTracks({{u"A"_s, u"x"_s}, {u"A"_s, u"x"_s}, {u"B"_s, u"x"_s}}));
    const QStringList messages = {u"Please wait..."_s, u"Loading music... 33%"_s,
                                  u"Loading music... 67%"_s, u"Loading music... 100%"_s};
    EXPECT_EQ(Window.lblMessage.Captions, messages);
    EXPECT_EQ(Window.Form1.Captions, messages + QStringList{u"Songlift"_s});
    EXPECT_EQ(Window.prgCopy.Max(), 3);
    EXPECT_EQ(Window.prgCopy.Values, (std::vector<float>{1, 2, 3, 0}));
    EXPECT_EQ(Window.Form1.RefreshCount, 4);
    EXPECT_EQ(Window.Combo1.RefreshCount, 1);
}

TEST_F(SQLiteLibrary, AnEmptyResultLeavesOneBlankTrackThatDoesNotCount) {
    Load(One);
    Load(std::vector<SampleTrack>());
    EXPECT_EQ(Library.TrackCount, 0);
    EXPECT_EQ(Library.TotalSize, 0);
    EXPECT_EQ(Lines(Library), QStringList{u" |  | 0  | 0 | 0 | "_s});
    EXPECT_EQ(Boxes.Texts(), QStringList());
    EXPECT_EQ(Window.prgCopy.Max(), 0);
    ExpectEnded();
}

TEST_F(SQLiteLibrary, ALoadReplacesTheLibraryBefore) {
    Load(NamedTracks({{u"A"_s, u"x"_s}, {u"B"_s, u"y"_s}}));
    Load(One);
    ExpectLoaded({OneLine});
}

TEST_F(SQLiteLibrary, TheTrackAfterNumber32767IsAnOverflowAndTheOthersStay) {
    std::vector<SampleTrack> tracks(32767, {u"A"_s, u"B"_s, u"C"_s, 1, 100'000, u"x"_s});
    Load(tracks);
    EXPECT_EQ(Boxes.Texts(), QStringList());
    EXPECT_EQ(Library.TrackCount, 32767);
    EXPECT_EQ(Window.lblMessage.Captions.size(), 1 + 101);
    tracks.push_back({u"B"_s, u"B"_s, u"too many"_s, 1, 1, u"x"_s});
    Load(tracks);
    ExpectError(u"Error 6: Overflow"_s);
    EXPECT_EQ(Window.prgCopy.Max(), 32768);
    EXPECT_EQ(Library.TrackCount, 32767);
    EXPECT_EQ(Library.TotalSize, 3'276'700'000.0);
    EXPECT_EQ(Library.Artists.size(), 1U);
    ExpectConsistent(Library);
}
