// Users who tick, click, search and change tabs at random. After everything they do, records,
// lists, summary and buttons must fit one another and what the rules say.

#include "tests/selection/BrowserInvariants.h"
#include "tests/support/Walks.h"

#include <gtest/gtest.h>

#include <random>

namespace {

class Walker {
public:
    explicit Walker(unsigned seed)
        : m_random(seed), m_browser(RandomLibrary()), m_model(m_browser.Library.Artists) {}

    /// What was done last, for the message of a failure.
    std::string Last;

    void Check() const { ExpectInvariants(m_browser, m_model); }

    void Step() {
        switch (Below(16)) {
        case 0:
        case 1:
        case 2:
            Tick(m_browser.lstArtists, "artist");
            break;
        case 3:
        case 4:
        case 5:
            Tick(m_browser.lstAlbums, "album");
            break;
        case 6:
        case 7:
        case 8:
            Tick(m_browser.lstSongs, "song");
            break;
        case 9:
        case 10:
            ClickSomewhere();
            break;
        case 11:
            MoveSomewhere();
            break;
        default:
            Narrow();
        }
    }

private:
    unsigned Below(unsigned limit) { return static_cast<unsigned>(m_random() % limit); }

    QString OneOf(const std::vector<const char*>& texts) {
        return QString::fromUtf8(texts[Below(static_cast<unsigned>(texts.size()))]);
    }

    /// Names that repeat, differ by case, begin one another; many artists of one album; all kinds.
    std::vector<ArtistRecord> RandomLibrary() {
        std::vector<ArtistRecord> artists(1 + Below(9));
        for (ArtistRecord& artist : artists) {
            artist.Name =
                OneOf({"Abba", "abba", "ABBA", "Abba 2", "Blue River", "Tom & Ann", "Ärzte"});
            artist.Albums.resize(Below(2) == 0 ? 1 : 1 + Below(4));
            for (AlbumRecord& album : artist.Albums) {
                album.Name = OneOf({"Live", "LIVE", "Jazz", "River", "Hits", "Hits 2"});
                album.Tracks.resize(Below(3) == 0 ? 1 : 1 + Below(5));
                for (TrackRecord& track : album.Tracks) {
                    track.Title = OneOf({"Song", "song", "Old Song", "Intro", "River", "Ä & B"});
                    track.TrackNumber = static_cast<qint32>(Below(4));
                    track.FileSize = static_cast<qint32>(Below(5000));
                    track.Kind = static_cast<Kind>(Below(3));
                }
            }
        }
        return artists;
    }

    QString RandomText() {
        return OneOf({"a", "e", "s", "ri", "river", "RIVER", "old song", "live", "abba", "abba 2",
                      "ä", "&", "intro", "jazz river", "nowhere", "zzz", "", "", "  "});
    }

    // ---- the lists

    FakeListControl& AnyList() {
        FakeListControl* const lists[] = {&m_browser.lstArtists, &m_browser.lstAlbums,
                                          &m_browser.lstSongs};
        return *lists[Below(3)];
    }

    int AnyRow(const FakeListControl& list) {
        return static_cast<int>(Below(static_cast<unsigned>(list.ListCount())));
    }

    void Tick(FakeListControl& list, const char* what) {
        if (list.ListCount() == 0) {
            Last = "nothing to tick";
            return;
        }
        const int row = AnyRow(list);
        const bool ticked = !list.Selected(row);
        Last = std::string(ticked ? "tick " : "untick ") + what + " row " + std::to_string(row);
        m_model.SetTracks(TracksOf(list, row), ticked);
        if (row == list.ListIndex() && Below(2) == 0) {
            list.UserSpace();
        } else {
            list.UserToggle(row);
        }
        EXPECT_EQ(list.ListIndex(), row);
        EXPECT_TRUE(list.HasFocus());
    }

    /// The tracks of the model that a row stands for.
    std::vector<TrackRecord*> TracksOf(const FakeListControl& list, int row) {
        const RowTables& rows = m_browser.Linked.Rows();
        std::vector<TrackRecord*> tracks;
        const auto addAlbum = [&tracks](AlbumRecord& album) {
            for (TrackRecord& track : album.Tracks) {
                tracks.push_back(&track);
            }
        };
        const auto albumOf = [&](qint32 albumRow) -> AlbumRecord& {
            return m_model.Shown.at(rows.Albums.AlbumRowArtist.at(albumRow))
                .Albums.at(rows.Albums.AlbumRowAlbum.at(albumRow));
        };
        const int first = row == 0 ? 1 : row;
        const int last = row == 0 ? list.ListCount() - 1 : row;
        for (int r = first; r <= last; ++r) {
            if (&list == &m_browser.lstArtists) {
                for (AlbumRecord& album : m_model.Shown.at(rows.ArtistRows.at(r)).Albums) {
                    addAlbum(album);
                }
            } else if (&list == &m_browser.lstAlbums) {
                addAlbum(albumOf(r));
            } else {
                tracks.push_back(&albumOf(rows.Songs.SongRowAlbumRow.at(r))
                                      .Tracks.at(rows.Songs.SongRowTrack.at(r)));
            }
        }
        return tracks;
    }

    void ClickSomewhere() {
        FakeListControl& list = AnyList();
        if (list.ListCount() == 0) {
            Last = "nothing to click";
            return;
        }
        const int row = AnyRow(list);
        Last = "click row " + std::to_string(row);
        if (Below(4) == 0) {
            list.UserRightClick(row);
        } else {
            list.UserClick(row);
        }
        EXPECT_EQ(list.ListIndex(), row);
    }

    void MoveSomewhere() {
        FakeListControl& list = AnyList();
        Last = "move";
        list.UserArrow(static_cast<int>(Below(7)) - 3);
    }

    // ---- searches, tabs and the ways back

    void Narrow() {
        const CurrentRecords before = CurrentRecordsOf(m_browser);
        const std::optional<QString> meanwhile = PlanMeanwhile();
        switch (Below(8)) {
        case 0:
        case 1:
        case 2:
        case 3:
            TypeText(RandomText(), meanwhile);
            break;
        case 4:
            TypeText(m_browser.Form.txtSearch.Text() + OneOf({"a", "r", " ", "q"}), meanwhile);
            break;
        case 5:
            Last = "press Clear";
            if (m_model.SearchingText) {
                m_model.PressClear(meanwhile);
            }
            m_browser.Form.cmdClear.UserPress();
            break;
        case 6:
            Last = "press Search";
            m_model.PressSearch(meanwhile);
            m_browser.Form.cmdSearch.UserPress();
            break;
        default: {
            const int tab = static_cast<int>(Below(3));
            const QString caption = m_browser.Form.tbsFilter.Captions[tab];
            Last = "tab " + caption.toStdString();
            m_model.ChooseTab(caption, meanwhile);
            m_browser.Form.tbsFilter.UserSelectTab(tab);
        }
        }
        m_browser.Events.OnYield = {};
        Last += meanwhile ? ", meanwhile \"" + meanwhile->toStdString() + '"' : "";
        EXPECT_TRUE(CurrentRecordsOf(m_browser) ==
                    StillCurrent(before, m_model.Shown, m_model.Search));
    }

    void TypeText(const QString& text, const std::optional<QString>& meanwhile) {
        Last = "type \"" + text.toStdString() + '"';
        m_model.Type(text, meanwhile);
        m_browser.Form.txtSearch.UserReplace(text);
    }

    /// Now and then the user goes on while the search runs: types, or clicks and ticks in vain.
    std::optional<QString> PlanMeanwhile() {
        std::optional<QString> text;
        if (Below(4) == 0) {
            text = RandomText();
        }
        const bool clicks = Below(4) == 0;
        m_browser.Events.Yields = 0;
        m_browser.Events.OnYield = [this, text, clicks](int yield) {
            if (yield == 1 && text) {
                m_browser.Form.txtSearch.UserReplace(*text);
            }
            if (clicks && yield < 12) {
                ActInVain();
            }
        };
        return text;
    }

    void ActInVain() {
        FakeListControl& list = AnyList();
        if (list.ListCount() > 0) {
            list.UserClick(AnyRow(list));
            list.UserToggle(AnyRow(list));
        }
        m_browser.Form.cmdClear.UserPress();
        m_browser.Form.tbsFilter.UserSelectTab(static_cast<int>(Below(3)));
    }

    std::mt19937 m_random;
    BrowserFixture m_browser;
    SelectionModel m_model;
};

class RandomWalkTest : public testing::TestWithParam<unsigned> {};

} // namespace

TEST_P(RandomWalkTest, EverythingFitsAfterEveryStep) {
    Walker walker(GetParam());
    walker.Check();
    for (int step = 1; step <= 400; ++step) {
        walker.Step();
        walker.Check();
        ASSERT_FALSE(HasFailure()) << "step " << step << ": " << walker.Last;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomWalkTest, testing::Range(1U, 1 + Walks(24)));
