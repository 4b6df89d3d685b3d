// How the tracks of a binary database become artists and albums.

#include "tests/library/LoadingWindow.h"

#include <ctime>

using namespace Qt::StringLiterals;

class ITunesDBGrouping : public LoadingWindow {};

TEST_F(ITunesDBGrouping, TracksWithEqualNamesInLowerCaseAreOneGroupSpelledAsInItsLastTrack) {
    const struct {
        const char* Rule;
        std::vector<std::pair<QString, QString>> Names; // of artist and album
        QStringList Groups;
    } cases[] = {
        {"groups stand in the order in which they were met",
         {{u"B"_s, u"z"_s}, {u"A"_s, u"y"_s}, {u"B"_s, u"a"_s}, {u"C"_s, u"x"_s}},
         {u"B: z (1), a (3)"_s, u"A: y (2)"_s, u"C: x (4)"_s}},
        {"their tracks need not follow each other",
         {{u"A"_s, u"x"_s},
          {u"B"_s, u"x"_s},
          {u"A"_s, u"y"_s},
          {u"B"_s, u"x"_s},
          {u"A"_s, u"x"_s},
          {u"A"_s, u"y"_s}},
         {u"A: x (1 5), y (3 6)"_s, u"B: x (2 4)"_s}},
        {"artists of several spellings",
         {{u"ABBA"_s, u"x"_s}, {u"Abba"_s, u"y"_s}},
         {u"Abba: x (1), y (2)"_s}},
        {"albums of several spellings",
         {{u"A"_s, u"GOLD"_s}, {u"A"_s, u"Other"_s}, {u"A"_s, u"gold"_s}},
         {u"A: gold (1 3), Other (2)"_s}},
        {"a group is found again after its spelling has changed",
         {{u"ABBA"_s, u"X"_s},
          {u"other"_s, u"o"_s},
          {u"Abba"_s, u"x"_s},
          {u"other"_s, u"o"_s},
          {u"ABBA"_s, u"X"_s},
          {u"abba"_s, u"x"_s}},
         {u"abba: x (1 3 5 6)"_s, u"other: o (2 4)"_s}},
        {"no name joins the name for unknowns",
         {{u"Unknown"_s, u"unknown"_s}, {{}, {}}},
         {u"UNKNOWN: UNKNOWN (1 2)"_s}},
        {"the name for unknowns joins no name",
         {{{}, {}}, {u"Unknown"_s, u"unKNOWN"_s}},
         {u"Unknown: unKNOWN (1 2)"_s}},
        {"letters of other scripts have lower cases, too",
         {{u"BJÖRK"_s, u"ΩΜΕΓΑ"_s}, {u"björk"_s, u"ωμεγα"_s}, {u"bjork"_s, u"ωμεγα"_s}},
         {u"björk: ωμεγα (1 2)"_s, u"bjork: ωμεγα (3)"_s}},
        // Case folding, which is something else, would join the sharp s with "ss" and both sigmas.
        {"no other likeness counts",
         {{u"straße"_s, u"ς"_s}, {u"strasse"_s, u"σ"_s}, {u"STRASSE"_s, u"ς"_s}},
         {u"straße: ς (1)"_s, u"STRASSE: σ (2), ς (3)"_s}},
        {"the Kelvin sign and the dotted capital I have ordinary lower cases",
         {{u"\u212A"_s, u"\u0130"_s}, {u"k"_s, u"i\u0307"_s}, {u"K"_s, u"\u0130"_s}},
         {u"K: \u0130 (1 2 3)"_s}},
        {"blanks at the ends count",
         {{u"A"_s, u"x"_s}, {u"A "_s, u"x"_s}, {u" "_s, u" "_s}},
         {u"A: x (1)"_s, u"A : x (2)"_s, u" :   (3)"_s}},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.Rule);
        Load(WriteITunesDB(NamedTracks(each.Names)));
        EXPECT_EQ(Groups(), each.Groups);
    }
}

TEST_F(ITunesDBGrouping, ManyArtistsTakeNoLongerThanFew) {
    // A scan over all artists for each track would take minutes.
    std::vector<SampleTrack> tracks;
    for (int i = 0; i < 32'000; ++i) {
        const QString name = u"A common beginning of every name "_s + QString::number(i * 7919);
        tracks.push_back({name, name, name, 1, 1, {}, {}});
    }
    const QByteArray database = WriteITunesDB(tracks, {.TrackHeader = 60, .AlbumList = false});
    const std::clock_t start = std::clock();
    Load(database);
    EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 5);
    EXPECT_EQ(Library.Artists.size(), 32'000U);
    ExpectConsistent(Library);
}
