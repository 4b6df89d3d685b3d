// Users who tick, click, search and change tabs at random. After everything they do, records,
// lists, summary and buttons must fit one another, and only a tick changes what is ticked.

#include "tests/selection/BrowserInvariants.h"
#include "tests/support/Walks.h"

#include <gtest/gtest.h>

#include <random>

using namespace Qt::StringLiterals;

namespace {

class Walker {
public:
    explicit Walker(unsigned seed) : m_random(seed), m_browser(RandomLibrary()) {}

    /// What was done last, for the message of a failure.
    std::string Last;

    void Check() const {
        ExpectInvariants(m_browser);
        if (m_browser.WordSearch.SearchingText()) {
            EXPECT_EQ(m_browser.WordSearch.SearchString(), m_browser.Form.txtSearch.Text());
        }
    }

    void Step() {
        const unsigned die = Below(16);
        const std::string ticked = CheckedRecords(WholeLibrary(m_browser));
        if (die >= 12) {
            Narrow();
        } else if (FakeListControl& list = *m_lists[die % 3]; list.ListCount() > 0) {
            if (die < 9) {
                Tick(list);
            } else {
                Click(list);
            }
        }
        if (die >= 9) {
            EXPECT_EQ(CheckedRecords(WholeLibrary(m_browser)), ticked);
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
        if (row == list.ListIndex() && Below(2) == 0) {
            list.UserSpace();
        } else {
            list.UserToggle(row);
        }
        EXPECT_EQ(list.ListIndex(), row);
        EXPECT_EQ(list.Selected(row), ticked);
        EXPECT_TRUE(list.HasFocus());
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

    /// Now and then the user goes on while the search runs: types, or clicks and ticks in vain.
    void Narrow() {
        const bool types = Below(4) == 0;
        const bool clicks = Below(4) == 0;
        m_browser.Events.Yields = 0;
        m_browser.Events.OnYield = [this, types, clicks](int yield) {
            if (yield == 1 && types) {
                m_browser.Form.txtSearch.UserReplace(RandomText());
            }
            if (clicks && yield < 12) {
                ActInVain();
            }
        };
        const unsigned die = Below(8);
        if (die == 0) {
            Last = "press Clear";
            m_browser.Form.cmdClear.UserPress();
        } else if (die == 1) {
            Last = "press Search";
            m_browser.Form.cmdSearch.UserPress();
        } else if (die == 2) {
            Last = "change the tab";
            m_browser.Form.tbsFilter.UserSelectTab(static_cast<int>(Below(3)));
        } else {
            const QString text = RandomText();
            Last = "type \"" + text.toStdString() + '"';
            m_browser.Form.txtSearch.UserReplace(text);
        }
        m_browser.Events.OnYield = {};
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
    FakeListControl* const m_lists[3] = {&m_browser.lstArtists, &m_browser.lstAlbums,
                                         &m_browser.lstSongs};
};

class RandomWalkTest : public testing::TestWithParam<unsigned> {};

} // namespace

TEST_P(RandomWalkTest, ListsAndRecordsAgreeAfterEveryStep) {
    Walker walker(GetParam());
    walker.Check();
    for (int step = 1; step <= 400; ++step) {
        walker.Step();
        walker.Check();
        ASSERT_FALSE(HasFailure()) << "step " << step << ": " << walker.Last;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomWalkTest, testing::Range(1U, 1 + Walks(24)));
