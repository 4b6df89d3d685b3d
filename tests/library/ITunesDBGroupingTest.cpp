// How the tracks of a binary database become artists and albums.

#include "tests/library/LoadingWindow.h"

#include <ctime>

using namespace Qt::StringLiterals;

class ITunesDBGrouping : public LoadingWindow {
protected:
    /// Loads tracks named by artist and album; their titles are their numbers from 1 on.
    void LoadNames(const std::vector<std::pair<QString, QString>>& names) {
        std::vector<SampleTrack> tracks;
        for (const auto& [artist, album] : names) {
            const auto number = qint32(tracks.size() + 1);
            tracks.push_back({artist, album, QString::number(number), number, 1, {}, {}});
        }
        Load(WriteITunesDB(tracks));
    }

    /// The groups as "artist: album (titles), album (titles)".
    QStringList Groups() const {
        QStringList groups;
        for (const ArtistRecord& artist : Library.Artists) {
            QStringList albums;
            for (const AlbumRecord& album : artist.Albums) {
                QStringList titles;
                for (const TrackRecord& track : album.Tracks) {
                    titles += track.Title;
                }
                albums += album.Name + u" ("_s + titles.join(u' ') + u")"_s;
            }
            groups += artist.Name + u": "_s + albums.join(u", "_s);
        }
        return groups;
    }
};

TEST_F(ITunesDBGrouping, GroupsKeepTheOrderInWhichTheyWereMet) {
    LoadNames({{u"B"_s, u"z"_s}, {u"A"_s, u"y"_s}, {u"B"_s, u"a"_s}, {u"C"_s, u"x"_s}});

    EXPECT_EQ(Groups(), (QStringList{u"B: z (1), a (3)"_s, u"A: y (2)"_s, u"C: x (4)"_s}));
}

TEST_F(ITunesDBGrouping, TracksOfAGroupNeedNotFollowEachOther) {
    LoadNames({{u"A"_s, u"x"_s},
               {u"B"_s, u"x"_s},
               {u"A"_s, u"y"_s},
               {u"B"_s, u"x"_s},
               {u"A"_s, u"x"_s},
               {u"A"_s, u"y"_s}});

    EXPECT_EQ(Groups(), (QStringList{u"A: x (1 5), y (3 6)"_s, u"B: x (2 4)"_s}));
}

TEST_F(ITunesDBGrouping, AlbumsOfOneNameBelongToTheirArtists) {
    LoadNames({{u"A"_s, u"Best of"_s}, {u"B"_s, u"Best of"_s}});

    EXPECT_EQ(Groups(), (QStringList{u"A: Best of (1)"_s, u"B: Best of (2)"_s}));
}

TEST_F(ITunesDBGrouping, ArtistsThatDifferOnlyInCaseAreOneNamedAsTheLaterTrackSpellsIt) {
    LoadNames({{u"ABBA"_s, u"x"_s}, {u"Abba"_s, u"y"_s}});

    EXPECT_EQ(Groups(), QStringList{u"Abba: x (1), y (2)"_s});
}

TEST_F(ITunesDBGrouping, AlbumsThatDifferOnlyInCaseAreOneNamedAsTheLaterTrackSpellsIt) {
    LoadNames({{u"A"_s, u"GOLD"_s}, {u"A"_s, u"Other"_s}, {u"A"_s, u"gold"_s}});

    EXPECT_EQ(Groups(), QStringList{u"A: gold (1 3), Other (2)"_s});
}

TEST_F(ITunesDBGrouping, AGroupIsFoundAgainAfterItsSpellingHasChanged) {
    LoadNames({{u"ABBA"_s, u"X"_s},
               {u"other"_s, u"o"_s},
               {u"Abba"_s, u"x"_s},
               {u"other"_s, u"o"_s},
               {u"ABBA"_s, u"X"_s},
               {u"abba"_s, u"x"_s}});

    EXPECT_EQ(Groups(), (QStringList{u"abba: x (1 3 5 6)"_s, u"other: o (2 4)"_s}));
}

TEST_F(ITunesDBGrouping, TracksWithoutNamesJoinThoseNamedUnknown) {
    LoadNames({{u"Unknown"_s, u"unknown"_s}, {{}, {}}});

    EXPECT_EQ(Groups(), QStringList{u"UNKNOWN: UNKNOWN (1 2)"_s});
}

TEST_F(ITunesDBGrouping, TracksNamedUnknownJoinThoseWithoutNames) {
    LoadNames({{{}, {}}, {u"Unknown"_s, u"unKNOWN"_s}});

    EXPECT_EQ(Groups(), QStringList{u"Unknown: unKNOWN (1 2)"_s});
}

TEST_F(ITunesDBGrouping, LettersOutsideAsciiAreLowerCasedToo) {
    LoadNames({{u"BJÖRK"_s, u"ΩΜΕΓΑ"_s}, {u"björk"_s, u"ωμεγα"_s}, {u"bjork"_s, u"ωμεγα"_s}});

    EXPECT_EQ(Groups(), (QStringList{u"björk: ωμεγα (1 2)"_s, u"bjork: ωμεγα (3)"_s}));
}

TEST_F(ITunesDBGrouping, OnlyLowerCasingCountsAndNoOtherLikeness) {
    // Case folding, which is something else, would join the sharp s with "ss" and both sigmas.
    LoadNames({{u"straße"_s, u"ς"_s}, {u"strasse"_s, u"σ"_s}, {u"STRASSE"_s, u"ς"_s}});

    EXPECT_EQ(Groups(), (QStringList{u"straße: ς (1)"_s, u"STRASSE: σ (2), ς (3)"_s}));
}

TEST_F(ITunesDBGrouping, SpellingsWithOneLowerCaseAreOneGroup) {
    // The Kelvin sign and the dotted capital I have ordinary lower cases.
    LoadNames({{u"\u212A"_s, u"\u0130"_s}, {u"k"_s, u"i\u0307"_s}, {u"K"_s, u"\u0130"_s}});

    EXPECT_EQ(Groups(), QStringList{u"K: \u0130 (1 2 3)"_s});
}

TEST_F(ITunesDBGrouping, BlanksAtTheEndsOfANameCount) {
    LoadNames({{u"A"_s, u"x"_s}, {u"A "_s, u"x"_s}, {u" "_s, u" "_s}});

    EXPECT_EQ(Groups(), (QStringList{u"A: x (1)"_s, u"A : x (2)"_s, u" :   (3)"_s}));
}

TEST_F(ITunesDBGrouping, ManyArtistsTakeNoLongerThanFew) {
    // A scan over all artists for each track would take minutes.
    std::vector<SampleTrack> tracks;
    for (int i = 0; i < 32'000; ++i) {
        const QString name = u"A common beginning of every name "_s + QString::number(i * 7919);
        tracks.push_back({name, name, name, 1, 1, {}, {}});
    }
    ITunesDBLayout layout;
    layout.TrackHeader = 60;
    layout.AlbumList = false;
    const QByteArray database = WriteITunesDB(tracks, layout);
    const std::clock_t start = std::clock();

    Load(database);

    EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 5);
    EXPECT_EQ(Library.Artists.size(), 32'000U);
    ExpectConsistent(Library);
}
