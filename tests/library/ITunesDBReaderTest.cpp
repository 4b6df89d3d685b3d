// What the reader takes from the chunks of a well-made database.

#include "tests/library/LoadingWindow.h"

using namespace ITunesDBChunks;
using namespace Qt::StringLiterals;

class ITunesDBReader : public LoadingWindow {
protected:
    struct Case {
        const char* Rule;
        QByteArray Database;
        QStringList Lines;
    };

    void ExpectEach(const std::vector<Case>& cases) {
        for (const Case& each : cases) {
            SCOPED_TRACE(each.Rule);
            Load(each.Database);
            ExpectLoaded(each.Lines);
        }
    }

    static std::vector<SampleTrack> TwoTracks() {
        return {{u"A"_s, u"B"_s, u"1"_s, 1, 2, {}}, {u"C"_s, u"D"_s, u"2"_s, 2, 3, {}}};
    }
    static QStringList TwoLines() {
        return {u"A | B | 1 1 | 2 | 1 | E:"_s, u"C | D | 2 2 | 3 | 1 | E:"_s};
    }
};

TEST_F(ITunesDBReader, TheItemsOfATrackAreTaken) {
    const std::vector<SampleTrack> one = {{u"A"_s, u"B"_s, u"C"_s, 1, 2, u"F/1.mp3"_s}};
    const QString oneLine = u"A | B | 1 C | 2 | 1 | E:\\iPod_Control\\Music\\F\\1.mp3"_s;
    // UTF-16 units whose bytes read "mhit" and "mhsd".
    const QString tags = u"\u686D\u7469\u686D\u6473"_s;
    ExpectEach({
        {"all fields, in any script",
         WriteITunesDB({{u"Björk"_s, u"日本語"_s, u"🎵 song"_s, 2, 3'700'123, u"F00/Ä.mp3"_s}}),
         {u"Björk | 日本語 | 2 🎵 song | 3700123 | 1 | E:\\iPod_Control\\Music\\F00\\Ä.mp3"_s}},
        {"in any order", WriteITunesDB(one, {.Items = {6, 2, 3, 1, 4}}), {oneLine}},
        {"and no others",
         WriteITunesDB(one, {.Items = {5, 7, 12, 1, 22, 4, 28, 3, 0, 100, 255}}),
         {u"A | B | 1 C | 2 | 0 | E:"_s}},
        {"by the low byte of their type",
         TrackList(1, {Track(1, 1, {Item(0x0201, u"title"_s), Item(0xFFFFFF04, u"artist"_s)})}),
         {u"artist | UNKNOWN | 1 title | 1 | 0 | E:"_s}},
        {"the last of a type",
         TrackList(1, {Track(1, 1, {Item(1, u"first"_s), Item(1, u"second"_s)})}),
         {u"UNKNOWN | UNKNOWN | 1 second | 1 | 0 | E:"_s}},
        {"a text that looks like chunks",
         WriteITunesDB({{u"A"_s, u"B"_s, tags, 1, 2, {}}, {u"A"_s, u"B"_s, u"C"_s, 2, 3, {}}}),
         {u"A | B | 1 "_s + tags + u" | 2 | 1 | E:"_s, u"A | B | 2 C | 3 | 1 | E:"_s}},
        {"a location without a colon",
         TrackList(1, {Track(1, 1, {Item(1, u"T"_s), Item(2, u"Music/A.mp3"_s)})}),
         {u"UNKNOWN | UNKNOWN | 1 T | 1 | 0 | E:Music/A.mp3"_s}},
        {"every colon of a location",
         TrackList(1, {Track(1, 1, {Item(1, u"T"_s), Item(2, u"::a:b:"_s)})}),
         {u"UNKNOWN | UNKNOWN | 1 T | 1 | 0 | E:\\\\a\\b\\"_s}},
    });
}

TEST_F(ITunesDBReader, AMissingNameIsUnknownAndOtherMissingFieldsHaveDefaults) {
    ExpectEach({
        {"missing names",
         TrackList(1, {Track(9, 4, {})}),
         {u"UNKNOWN | UNKNOWN | 4 UNKNOWN | 9 | 0 | E:"_s}},
        {"empty names",
         WriteITunesDB({{{}, {}, {}, 4, 9, {}, {}}}, {.WriteEmptyItems = true}),
         {u"UNKNOWN | UNKNOWN | 4 UNKNOWN | 9 | 0 | E:"_s}},
        {"nothing is taken from the track before",
         WriteITunesDB({{u"A"_s, u"B"_s, u"C"_s, 7, 8, u"F/1.mp3"_s},
                        {{}, {}, {}, 0, 0, {}, {}},
                        {u"D"_s, {}, u"E"_s, 1, 1, {}, {}}}),
         {u"A | B | 7 C | 8 | 1 | E:\\iPod_Control\\Music\\F\\1.mp3"_s,
          u"UNKNOWN | UNKNOWN | 0 UNKNOWN | 0 | 0 | E:"_s, u"D | UNKNOWN | 1 E | 1 | 0 | E:"_s}},
        {"a missing file type, and one before the title",
         TrackList(2, {Track(1, 1, {Item(6, u"MPEG-4 video file"_s), Item(1, u"film"_s)}),
                       Track(1, 2, {Item(1, u"none"_s)})}),
         {u"UNKNOWN | UNKNOWN | 1 film | 1 | 2 | E:"_s,
          u"UNKNOWN | UNKNOWN | 2 none | 1 | 0 | E:"_s}},
        {"a file type in another language or case",
         WriteITunesDB({{u"A"_s, u"B"_s, u"1"_s, 1, 1, {}, u"Archivo de audio MPEG"_s},
                        {u"A"_s, u"B"_s, u"2"_s, 2, 1, {}, u"mpeg audio file"_s},
                        {u"A"_s, u"B"_s, u"3"_s, 3, 1, {}, u"AAC audio file"_s}}),
         {u"A | B | 1 1 | 1 | 0 | E:"_s, u"A | B | 2 2 | 1 | 0 | E:"_s,
          u"A | B | 3 3 | 1 | 1 | E:"_s}},
    });
}

TEST_F(ITunesDBReader, TheTrackListIsReadWhateverIsAroundIt) {
    ExpectEach({
        {"playlists behind it", WriteITunesDB(TwoTracks(), {.Playlists = 5}), TwoLines()},
        {"more heads behind it", WriteITunesDB(TwoTracks(), {.MoreTrackLists = 3}), TwoLines()},
        {"nothing behind it", WriteITunesDB(TwoTracks(), {.Playlists = 0}), TwoLines()},
    });
    for (const quint32 track : {156U, 184U, 244U, 328U, 388U, 1000U}) {
        Load(WriteITunesDB(
            TwoTracks(),
            {.DatabaseHeader = 104, .DataSetHeader = 16, .ListHeader = 12, .TrackHeader = track}));
        ExpectLoaded(TwoLines());
    }
    EXPECT_EQ(Window.prgCopy.Max(), 2);
    EXPECT_EQ(Library.TotalSize, 5);
}

TEST_F(ITunesDBReader, TheDriveOfTheDeviceBeginsEveryLocation) {
    Files.AddFile(u"K:\\iPod_Control\\iTunes\\iTunesDB"_s,
                  WriteITunesDB({{u"A"_s, u"B"_s, u"C"_s, 1, 1, u"F00/A.mp3"_s}}));
    Music.LoadITunesDB(u"K:"_s);
    EXPECT_EQ(Lines(Library),
              QStringList{u"A | B | 1 C | 1 | 1 | K:\\iPod_Control\\Music\\F00\\A.mp3"_s});
}

TEST_F(ITunesDBReader, TheFileIsReadOnceAndNothingIsWritten) {
    const QByteArray database = WriteITunesDB(TwoTracks());
    Load(database);
    EXPECT_EQ(Files.CallsOf(FileCall::OpenForReading), QStringList{DatabasePath()});
    EXPECT_EQ(Files.CountOf(FileCall::Read), 1);
    EXPECT_EQ(Files.Calls.back().Size, database.size());
    EXPECT_EQ(Files.OpenFiles, 0);
    EXPECT_EQ(Files.ChangesBelow(u"E:\\"_s), QStringList());
}

TEST_F(ITunesDBReader, ALoadReplacesTheLibraryBefore) {
    Load(WriteITunesDB(TwoTracks()));
    Load(WriteITunesDB({{u"E"_s, u"F"_s, u"3"_s, 3, 4, {}}}));
    ExpectLoaded({u"E | F | 3 3 | 4 | 1 | E:"_s});
}

TEST_F(ITunesDBReader, AfterAnEmptyTrackListTheLoadNeverEnds) {
    Load(WriteITunesDB(TwoTracks()));
    Window.prgCopy.Values.clear();
    Window.Form1.SetState(WindowState::Minimized);
    Load(WriteITunesDB({}));
    EXPECT_TRUE(Library.LoadingMusic);
    EXPECT_EQ(Library.TrackCount, 0);
    EXPECT_EQ(Library.TotalSize, 0);
    EXPECT_EQ(Window.lblMessage.Caption(), u"Please wait..."_s);
    EXPECT_EQ(Window.Form1.Caption(), u"Please wait..."_s);
    EXPECT_TRUE(Window.prgCopy.Values.empty());
    EXPECT_TRUE(Boxes.Shown.empty());
    // The records of the load before stay, but are not used.
    EXPECT_EQ(Lines(Library), TwoLines());
}

TEST_F(ITunesDBReader, TheTrackAfterNumber32767IsAnOverflowAndTheOthersStay) {
    std::vector<SampleTrack> tracks(32767, {u"A"_s, u"B"_s, u"C"_s, 1, 100'000, {}});
    const ITunesDBLayout layout = {.TrackHeader = 60};
    Load(WriteITunesDB(tracks, layout));
    EXPECT_TRUE(Boxes.Shown.empty());
    EXPECT_EQ(Library.TrackCount, 32767);
    tracks.push_back({u"a"_s, u"Other"_s, u"too many"_s, 1, 1, {}});
    Load(WriteITunesDB(tracks, layout));
    ExpectError(u"Error 6: Overflow"_s);
    EXPECT_EQ(Library.TrackCount, 32767);
    EXPECT_EQ(Library.TotalSize, 3'276'700'000.0);
    ASSERT_EQ(Library.Artists.size(), 1U);
    EXPECT_EQ(Library.Artists[0].Name, u"A"_s);
    ExpectConsistent(Library);
}
