// What the reader takes from the chunks of a well-made database.

#include "tests/library/LoadingWindow.h"

using namespace ITunesDBChunks;
using namespace Qt::StringLiterals;

class ITunesDBReader : public LoadingWindow {};

TEST_F(ITunesDBReader, TheFieldsOfATrackAreTaken) {
    Load(WriteITunesDB(
        {{u"Abba"_s, u"Arrival"_s, u"Dancing Queen"_s, 2, 3'700'123, u"F12/ABCD.mp3"_s}}));

    EXPECT_EQ(Lines(Library), QStringList{u"Abba | Arrival | 2 Dancing Queen | 3700123 | 1 | "
                                          "E:\\iPod_Control\\Music\\F12\\ABCD.mp3"_s});
    EXPECT_EQ(Library.TrackCount, 1);
    EXPECT_EQ(Library.TotalSize, 3'700'123);
    EXPECT_TRUE(Boxes.Shown.empty());
    ExpectEnded();
}

TEST_F(ITunesDBReader, TextsOfAnyScriptAreTaken) {
    Load(WriteITunesDB({{u"Björk"_s, u"日本語"_s, u"🎵 song"_s, 1, 1, u"F00/Ä.mp3"_s}}));

    EXPECT_EQ(
        Lines(Library),
        QStringList{u"Björk | 日本語 | 1 🎵 song | 1 | 1 | E:\\iPod_Control\\Music\\F00\\Ä.mp3"_s});
}

TEST_F(ITunesDBReader, ALocationWithoutColonIsAppendedUnchanged) {
    LoadTracks(1, {Track(1, 1, {Item(1, u"T"_s), Item(2, u"Music/A.mp3"_s)})});

    EXPECT_EQ(Lines(Library), QStringList{u"UNKNOWN | UNKNOWN | 1 T | 1 | 0 | E:Music/A.mp3"_s});
}

TEST_F(ITunesDBReader, EveryColonOfALocationBecomesABackslash) {
    LoadTracks(1, {Track(1, 1, {Item(1, u"T"_s), Item(2, u"::a:b:"_s)})});

    EXPECT_EQ(Lines(Library), QStringList{u"UNKNOWN | UNKNOWN | 1 T | 1 | 0 | E:\\\\a\\b\\"_s});
}

TEST_F(ITunesDBReader, TheDriveOfTheDeviceBeginsEveryLocation) {
    Files.AddFile(u"K:\\iPod_Control\\iTunes\\iTunesDB"_s,
                  WriteITunesDB({{u"A"_s, u"B"_s, u"C"_s, 1, 1, u"F00/A.mp3"_s}}));

    Music.LoadITunesDB(u"K:"_s);

    EXPECT_EQ(Lines(Library),
              QStringList{u"A | B | 1 C | 1 | 1 | K:\\iPod_Control\\Music\\F00\\A.mp3"_s});
}

TEST_F(ITunesDBReader, ATrackWithoutAFileTypeIsOfNoKind) {
    LoadTracks(2, {Track(1, 1, {Item(6, u"MPEG-4 video file"_s), Item(1, u"film"_s)}),
                   Track(1, 2, {Item(1, u"none"_s)})});

    EXPECT_EQ(Lines(Library), (QStringList{u"UNKNOWN | UNKNOWN | 1 film | 1 | 2 | E:"_s,
                                           u"UNKNOWN | UNKNOWN | 2 none | 1 | 0 | E:"_s}));
}

TEST_F(ITunesDBReader, AFileTypeInAnotherLanguageOrCaseIsOfNoKind) {
    Load(WriteITunesDB({{u"A"_s, u"B"_s, u"1"_s, 1, 1, {}, u"Archivo de audio MPEG"_s},
                        {u"A"_s, u"B"_s, u"2"_s, 2, 1, {}, u"mpeg audio file"_s},
                        {u"A"_s, u"B"_s, u"3"_s, 3, 1, {}, u"AAC audio file"_s}}));

    EXPECT_EQ(Lines(Library),
              (QStringList{u"A | B | 1 1 | 1 | 0 | E:"_s, u"A | B | 2 2 | 1 | 0 | E:"_s,
                           u"A | B | 3 3 | 1 | 1 | E:"_s}));
}

TEST_F(ITunesDBReader, MissingNamesAreUnknown) {
    LoadTracks(1, {Track(9, 4, {})});

    EXPECT_EQ(Lines(Library), QStringList{u"UNKNOWN | UNKNOWN | 4 UNKNOWN | 9 | 0 | E:"_s});
}

TEST_F(ITunesDBReader, EmptyNamesAreUnknown) {
    ITunesDBLayout layout;
    layout.WriteEmptyItems = true;

    Load(WriteITunesDB({{{}, {}, {}, 4, 9, {}, {}}}, layout));

    EXPECT_EQ(Lines(Library), QStringList{u"UNKNOWN | UNKNOWN | 4 UNKNOWN | 9 | 0 | E:"_s});
}

TEST_F(ITunesDBReader, AMissingItemTakesNothingFromTheTrackBefore) {
    Load(WriteITunesDB({{u"A"_s, u"B"_s, u"C"_s, 7, 8, u"F/1.mp3"_s},
                        {{}, {}, {}, 0, 0, {}, {}},
                        {u"D"_s, {}, u"E"_s, 1, 1, {}, {}}}));

    EXPECT_EQ(Lines(Library),
              (QStringList{u"A | B | 7 C | 8 | 1 | E:\\iPod_Control\\Music\\F\\1.mp3"_s,
                           u"UNKNOWN | UNKNOWN | 0 UNKNOWN | 0 | 0 | E:"_s,
                           u"D | UNKNOWN | 1 E | 1 | 0 | E:"_s}));
}

TEST_F(ITunesDBReader, ItemsAreTakenInAnyOrder) {
    ITunesDBLayout layout;
    layout.Items = {6, 2, 3, 1, 4};

    Load(WriteITunesDB({{u"A"_s, u"B"_s, u"C"_s, 1, 2, u"F/1.mp3"_s}}, layout));

    EXPECT_EQ(Lines(Library),
              QStringList{u"A | B | 1 C | 2 | 1 | E:\\iPod_Control\\Music\\F\\1.mp3"_s});
}

TEST_F(ITunesDBReader, OtherItemTypesAreIgnored) {
    ITunesDBLayout layout;
    layout.Items = {5, 7, 12, 1, 22, 4, 28, 3, 0, 100, 255};

    Load(WriteITunesDB({{u"A"_s, u"B"_s, u"C"_s, 1, 2, {}}}, layout));

    EXPECT_EQ(Lines(Library), QStringList{u"A | B | 1 C | 2 | 0 | E:"_s});
}

TEST_F(ITunesDBReader, OnlyTheLowByteOfAnItemTypeCounts) {
    LoadTracks(1, {Track(1, 1, {Item(0x0201, u"title"_s), Item(0xFFFFFF04, u"artist"_s)})});

    EXPECT_EQ(Lines(Library), QStringList{u"artist | UNKNOWN | 1 title | 1 | 0 | E:"_s});
}

TEST_F(ITunesDBReader, TheLastItemOfATypeCounts) {
    LoadTracks(1, {Track(1, 1, {Item(1, u"first"_s), Item(1, u"second"_s)})});

    EXPECT_EQ(Lines(Library), QStringList{u"UNKNOWN | UNKNOWN | 1 second | 1 | 0 | E:"_s});
}

TEST_F(ITunesDBReader, TagsInsideATextAreNoChunks) {
    // UTF-16 units whose bytes read "mhit" and "mhsd".
    const QString title = QString(QChar(0x686D)) + QChar(0x7469) + QChar(0x686D) + QChar(0x6473);

    Load(WriteITunesDB({{u"A"_s, u"B"_s, title, 1, 2, {}}, {u"A"_s, u"B"_s, u"C"_s, 2, 3, {}}}));

    EXPECT_EQ(Lines(Library), (QStringList{u"A | B | 1 "_s + title + u" | 2 | 1 | E:"_s,
                                           u"A | B | 2 C | 3 | 1 | E:"_s}));
}

TEST_F(ITunesDBReader, OnlyTheTrackListIsRead) {
    ITunesDBLayout layout;
    layout.Playlists = 5;

    Load(WriteITunesDB({{u"A"_s, u"B"_s, u"1"_s, 1, 2, {}}, {u"C"_s, u"D"_s, u"2"_s, 2, 3, {}}},
                       layout));

    EXPECT_EQ(Lines(Library),
              (QStringList{u"A | B | 1 1 | 2 | 1 | E:"_s, u"C | D | 2 2 | 3 | 1 | E:"_s}));
    EXPECT_EQ(Library.TotalSize, 5);
}

TEST_F(ITunesDBReader, MoreTrackListHeadsBehindTheListChangeNothing) {
    ITunesDBLayout layout;
    layout.MoreTrackLists = 3;

    Load(WriteITunesDB({{u"A"_s, u"B"_s, u"1"_s, 1, 2, {}}, {u"C"_s, u"D"_s, u"2"_s, 2, 3, {}}},
                       layout));

    EXPECT_EQ(Library.TrackCount, 2);
    EXPECT_EQ(Window.prgCopy.Max(), 2);
    ExpectEnded();
}

TEST_F(ITunesDBReader, HeadersOfOtherLengthsLoad) {
    for (const quint32 track : {156U, 184U, 244U, 328U, 388U, 1000U}) {
        ITunesDBLayout layout;
        layout.DatabaseHeader = 104;
        layout.DataSetHeader = 16;
        layout.ListHeader = 12;
        layout.TrackHeader = track;

        Load(WriteITunesDB({{u"A"_s, u"B"_s, u"1"_s, 1, 2, {}}, {u"C"_s, u"D"_s, u"2"_s, 2, 3, {}}},
                           layout));

        EXPECT_EQ(Lines(Library),
                  (QStringList{u"A | B | 1 1 | 2 | 1 | E:"_s, u"C | D | 2 2 | 3 | 1 | E:"_s}))
            << track;
    }
}

TEST_F(ITunesDBReader, TheLastTrackBeforeTheNextDataSetIsLoaded) {
    LoadTracks(2, {TitledTrack(u"first"_s), TitledTrack(u"last"_s)});

    EXPECT_EQ(Lines(Library), (QStringList{u"UNKNOWN | UNKNOWN | 0 first | 0 | 0 | E:"_s,
                                           u"UNKNOWN | UNKNOWN | 0 last | 0 | 0 | E:"_s}));
    EXPECT_TRUE(Boxes.Shown.empty());
}

TEST_F(ITunesDBReader, TheLastTrackOfAListThatEndsTheFileIsLoaded) {
    ITunesDBLayout layout;
    layout.Playlists = 0;

    Load(WriteITunesDB({{u"A"_s, u"B"_s, u"1"_s, 1, 2, {}}, {u"C"_s, u"D"_s, u"2"_s, 2, 3, {}}},
                       layout));

    EXPECT_EQ(Lines(Library),
              (QStringList{u"A | B | 1 1 | 2 | 1 | E:"_s, u"C | D | 2 2 | 3 | 1 | E:"_s}));
    EXPECT_TRUE(Boxes.Shown.empty());
    ExpectEnded();
}

TEST_F(ITunesDBReader, TheFileIsReadOnceAndNothingIsWritten) {
    const QByteArray database = WriteITunesDB({{u"A"_s, u"B"_s, u"C"_s, 1, 1, {}}});

    Load(database);

    EXPECT_EQ(Files.CallTexts(),
              (QStringList{u"FileLength "_s + DatabasePath(), u"OpenForReading "_s + DatabasePath(),
                           u"Read "_s + DatabasePath()}));
    EXPECT_EQ(Files.Calls.back().Size, database.size());
    EXPECT_EQ(Files.OpenFiles, 0);
    EXPECT_EQ(Files.ChangesBelow(u"E:\\"_s), QStringList());
}

TEST_F(ITunesDBReader, ALoadReplacesTheLibraryBefore) {
    Load(WriteITunesDB({{u"A"_s, u"B"_s, u"1"_s, 1, 2, {}}, {u"C"_s, u"D"_s, u"2"_s, 2, 3, {}}}));
    Load(WriteITunesDB({{u"E"_s, u"F"_s, u"3"_s, 3, 4, {}}}));

    EXPECT_EQ(Lines(Library), QStringList{u"E | F | 3 3 | 4 | 1 | E:"_s});
    EXPECT_EQ(Library.TrackCount, 1);
    EXPECT_EQ(Library.TotalSize, 4);
}

TEST_F(ITunesDBReader, AnEmptyTrackListStopsTheLoadWithoutItsEnding) {
    Load(WriteITunesDB({{u"A"_s, u"B"_s, u"1"_s, 1, 2, {}}}));
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
    // The records of the load before stay, and nobody walks them.
    EXPECT_EQ(Lines(Library), QStringList{u"A | B | 1 1 | 2 | 1 | E:"_s});
}

TEST_F(ITunesDBReader, ALibraryOf32767TracksLoads) {
    ITunesDBLayout layout;
    layout.TrackHeader = 60;

    Load(WriteITunesDB(std::vector<SampleTrack>(32767, {u"A"_s, u"B"_s, u"C"_s, 1, 100'000, {}}),
                       layout));

    EXPECT_TRUE(Boxes.Shown.empty());
    EXPECT_EQ(Library.TrackCount, 32767);
    EXPECT_EQ(Library.TotalSize, 3'276'700'000.0);
    ExpectConsistent(Library);
}

TEST_F(ITunesDBReader, TheTrackBehind32767IsAnOverflowAndTheOthersStay) {
    std::vector<SampleTrack> tracks(32767, {u"A"_s, u"B"_s, u"C"_s, 1, 1, {}});
    tracks.push_back({u"a"_s, u"Other"_s, u"too many"_s, 1, 1, {}});

    ITunesDBLayout layout;
    layout.TrackHeader = 60;

    Load(WriteITunesDB(tracks, layout));

    ExpectError(u"Error 6: Overflow"_s);
    EXPECT_EQ(Library.TrackCount, 32767);
    EXPECT_EQ(Library.TotalSize, 32767);
    EXPECT_EQ(Library.Artists.size(), 1U);
    EXPECT_EQ(Library.Artists[0].Name, u"A"_s);
    EXPECT_EQ(Library.Artists[0].Albums.size(), 1U);
    ExpectConsistent(Library);
}
