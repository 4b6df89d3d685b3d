// Users who tick, click, search and change tabs at random. After everything they do, records,
// lists, summary and buttons must fit one another and what the rules say.

#include "tests/selection/BrowserInvariants.h"
#include "tests/support/Walks.h"

#include <gtest/gtest.h>

#include <random>

using namespace Qt::StringLiterals;

namespace {

class Walker {
public:
    explicit Walker(unsigned seed)
        : m_random(seed), m_browser(RandomLibrary()), m_model(m_browser.Library.Artists) {}

    /// What was done last, for the message of a failure.
    std::string Last;

    void Check() const { ExpectInvariants(m_browser, m_model); }

    void Step() {
        const unsigned die = Below(16);
        if (die >= 12) {
            Narrow();
        } else if (FakeListControl& list = *m_lists[die % 3]; list.ListCount() > 0) {
            if (die < 9) {
                Tick(list);
            } else {
                Click(list);
            }
        }
    }

private:
    unsigned Below(unsigned limit) { return static_cast<unsigned>(m_random() % limit); }

    QString OneOf(const QStringList& texts) {
        return texts[Below(static_cast<unsigned>(texts.size()))];
    }

    /// Names that repeat, differ by case, begin one another; many artists of one album; all kinds.
    std::vector<ArtistRecord> RandomLibrary() {
        std::vector<ArtistRecord> artists(1 + Below(9));
        for (ArtistRecord& artist : artists) {
            artist.Name = OneOf({u"Abba"_s, u"abba"_s, u"ABBA"_s, u"Abba 2"_s, u"Blue River"_s,
                                 u"Tom & Ann"_s, u"Ärzte"_s});
            artist.Albums.resize(Below(2) == 0 ? 1 : 1 + Below(4));
            for (AlbumRecord& album : artist.Albums) {
                album.Name =
                    OneOf({u"Live"_s, u"LIVE"_s, u"Jazz"_s, u"River"_s, u"Hits"_s, u"Hits 2"_s});
                album.Tracks.resize(Below(3) == 0 ? 1 : 1 + Below(5));
                for (TrackRecord& track : album.Tracks) {
                    track.Title = OneOf(
                        {u"Song"_s, u"song"_s, u"Old Song"_s, u"Intro"_s, u"River"_s, u"Ä & B"_s});
                    track.TrackNumber = static_cast<qint32>(Below(4));
                    track.FileSize = static_cast<qint32>(Below(5000));
                    track.Kind = static_cast<Kind>(Below(3));
                }
            }
        }
        return artists;
    }

    QString RandomText() {
        return OneOf({u"a"_s, u"e"_s, u"s"_s, u"ri"_s, u"river"_s, u"RIVER"_s, u"old song"_s,
                      u"live"_s, u"abba"_s, u"abba 2"_s, u"ä"_s, u"&"_s, u"intro"_s,
                      u"jazz river"_s, u"nowhere"_s, u""_s, u""_s, u"  "_s});
    }

    // ---- the lists

    int AnyRow(const FakeListControl& list) {
        return static_cast<int>(Below(static_cast<unsigned>(list.ListCount())));
    }

    void Tick(FakeListControl& list) {
        const int row = AnyRow(list);
        const bool ticked = !list.Selected(row);
        Last = (ticked ? "tick " : "untick ") + list.List(row).toStdString();
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
        const auto add = [&tracks](AlbumRecord& album) {
            for (TrackRecord& track : album.Tracks) {
                tracks.push_back(&track);
            }
        };
        const auto albumOf = [&](qint32 albumRow) -> AlbumRecord& {
            return m_model.Shown.at(rows.Albums.AlbumRowArtist.at(albumRow))
                .Albums.at(rows.Albums.AlbumRowAlbum.at(albumRow));
        };
        const int last = row == 0 ? list.ListCount() - 1 : row;
        for (int r = qMax(row, 1); r <= last; ++r) {
            if (&list == &m_browser.lstArtists) {
                for (AlbumRecord& album : m_model.Shown.at(rows.ArtistRows.at(r)).Albums) {
                    add(album);
                }
            } else if (&list == &m_browser.lstAlbums) {
                add(albumOf(r));
            } else {
                tracks.push_back(&albumOf(rows.Songs.SongRowAlbumRow.at(r))
                                      .Tracks.at(rows.Songs.SongRowTrack.at(r)));
            }
        }
        return tracks;
    }

    void Click(FakeListControl& list) {
        const int row = AnyRow(list);
        Last = "click " + list.List(row).toStdString();
        if (Below(4) == 0) {
            list.UserArrow(row - list.ListIndex());
        } else {
            list.UserClick(row);
        }
        EXPECT_EQ(list.ListIndex(), row);
    }

    // ---- searches, tabs and the ways back

    void Narrow() {
        const std::optional<QString> meanwhile = PlanMeanwhile();
        const unsigned die = Below(8);
        if (die == 0) {
            Last = "press Clear";
            if (m_model.SearchingText) {
                m_model.PressClear(meanwhile);
            }
            m_browser.Form.cmdClear.UserPress();
        } else if (die == 1) {
            Last = "press Search";
            m_model.PressSearch(meanwhile);
            m_browser.Form.cmdSearch.UserPress();
        } else if (die == 2) {
            const int tab = static_cast<int>(Below(3));
            const QString caption = m_browser.Form.tbsFilter.Captions[tab];
            Last = "tab " + caption.toStdString();
            m_model.ChooseTab(caption, meanwhile);
            m_browser.Form.tbsFilter.UserSelectTab(tab);
        } else {
            const QString text =
                die == 3 ? m_model.Box + OneOf({u"a"_s, u"r"_s, u" "_s}) : RandomText();
            Last = "type \"" + text.toStdString() + '"';
            m_model.Type(text, meanwhile);
            m_browser.Form.txtSearch.UserReplace(text);
        }
        m_browser.Events.OnYield = {};
        Last += meanwhile ? ", meanwhile \"" + meanwhile->toStdString() + '"' : "";
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
        FakeListControl& list = *m_lists[Below(3)];
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
    FakeListControl* const m_lists[3] = {&m_browser.lstArtists, &m_browser.lstAlbums,
                                         &m_browser.lstSongs};
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
