// Users who act at the worst moment: in every yield of a search and of a job, while a message or
// the prompt stands open. They type, tick, cancel, close, unplug, minimise. After every step the
// window must show what a plain model of the library says, and be at rest.

#include "tests/app/LibraryModel.h"
#include "tests/app/ProgramFixture.h"
#include "tests/support/Walks.h"

#include <gtest/gtest.h>

#include <random>

using namespace Qt::StringLiterals;

namespace {

class Walker : public ProgramFixture {
public:
    explicit Walker(unsigned seed) : m_random(seed) {
        for (const char letter : {'E', 'F'}) {
            m_tracks[letter] = RandomTracks(letter);
            if (seed % 16 == 0 && letter == 'E') {
                m_tracks[letter].front().FileSize = 50000001;
            }
            m_model.Add(letter, m_tracks[letter]);
            Plug(letter);
        }
        files.BeforeCall = [this](const RecordedFiles::RecordedCall& call) { Hear(call); };
        events.OnYield = [this](int) { AtYield(); };
        messages.WhileShown = [this](const ShownMessage& message) { AtMessage(message); };
        AtPrompt = [this](OverwritePrompt& prompt) { Answer(prompt); };
        Start();
        form.txtDestination.SetText(u"D:\\Music"_s);
        form.chkTrackNum.SetValue(false);
    }

    bool IsClosed() const { return form.Form1.Closed; }

    void Step() {
        messages.Shown.clear();
        m_asked = 0;
        Act(Below(14));
    }

    void Check() {
        m_model.ExpectWholeFiles(files);
        if (IsClosed()) {
            // A maximised window keeps the size and the position of an earlier exit.
            EXPECT_EQ(store.Values.size(), form.Form1.State() == WindowState::Maximized ? 6 : 10);
            return;
        }
        ExpectAtRest();
        EXPECT_EQ(form.Form1.Caption(), u"Songlift"_s);
        EXPECT_EQ(form.timScan.Enabled(), form.Combo1.ListCount() == 0);
        if (form.Combo1.Text().isEmpty()) {
            EXPECT_EQ(form.lstArtists.ListCount(), 0);
            EXPECT_FALSE(form.cmdCopy.Enabled());
        } else {
            m_model.ExpectShown(form);
            EXPECT_EQ(form.cmdClear.Enabled(), !m_model.InForce.isEmpty());
        }
    }

    int Meanwhiles = 0;
    int Copies = 0;
    int Questions = 0;

private:
    unsigned Below(unsigned limit) { return static_cast<unsigned>(m_random() % limit); }

    std::vector<SampleTrack> RandomTracks(char letter) {
        std::vector<SampleTrack> tracks;
        for (unsigned a = 0, artists = 1 + Below(4); a < artists; ++a) {
            for (unsigned b = 0, albums = 1 + Below(3); b < albums; ++b) {
                for (unsigned s = 0, songs = 1 + Below(4); s < songs; ++s) {
                    SampleTrack& track = tracks.emplace_back();
                    track.Artist = u"Artist a%1"_s.arg(a);
                    track.Album = u"Album a%1b%2"_s.arg(a).arg(b);
                    track.Title = u"Song a%1b%2s%3"_s.arg(a).arg(b).arg(s);
                    track.FileSize = Below(3000000);
                    track.Location = QLatin1Char(letter) + u"00/%1.mp3"_s.arg(tracks.size());
                    if (Below(3) == 0) {
                        track.TypeText = u"MPEG-4 video file"_s;
                    }
                }
            }
        }
        return tracks;
    }

    void Plug(char letter) {
        PlugIn(QLatin1Char(letter), Text(letter == 'E' ? "ONE" : "TWO"), m_tracks[letter]);
    }

    bool IsPlugged(char letter) {
        return std::any_of(
            drives.Mounted.begin(), drives.Mounted.end(),
            [letter](const auto& drive) { return drive.Letter == QLatin1Char(letter); });
    }

    bool IsCopying() const { return form.cmdCopy.Caption() == u"&Cancel"_s; }

    QString Tab() const { return form.tbsFilter.SelectedCaption(); }

    /// A database that is opened is loaded.
    void Hear(const RecordedFiles::RecordedCall& call) {
        if (call.Call == FileCall::OpenForReading && call.Path.endsWith(u"iTunesDB"_s)) {
            m_model.Load(call.Path[0].toLatin1());
        }
    }

    // ---- what the user does

    FakeListControl& AnyList() {
        FakeListControl* const lists[] = {&form.lstArtists, &form.lstAlbums, &form.lstSongs};
        return *lists[Below(3)];
    }

    void Act(unsigned choice) {
        static const QStringList texts = {u"a1"_s, u"artist a0"_s, u"b1 album"_s,
                                          u"s0"_s, u"song"_s,      u"none"_s,
                                          u"  "_s, QString(),      u"b"_s};
        FakeListControl& list = AnyList();
        const int rows = list.ListCount();
        const int row = rows > 0 ? static_cast<int>(Below(static_cast<unsigned>(rows))) : 0;
        const QString text = texts[Below(static_cast<unsigned>(texts.size()))];
        switch (choice) {
        case 0:
        case 1:
        case 2:
        case 3:
            if (rows > 0) {
                Tick(list, row);
            }
            break;
        case 4:
            if (rows > 0) {
                list.UserClick(row);
            }
            break;
        case 5:
        case 6:
            if (form.txtSearch.Usable() && form.txtSearch.Text() != text) {
                m_model.Narrow(text);
            }
            form.txtSearch.UserReplace(text);
            break;
        case 7:
            form.tbsFilter.UserSelectTab(static_cast<int>(Below(3)));
            break;
        case 8:
            PressSearchOrClear();
            break;
        case 9:
        case 10:
            PressCopy();
            break;
        case 11:
            ChooseDevice();
            break;
        case 12:
            Preview(row);
            break;
        default:
            (Below(2) == 0 ? form.chkArtist : form.chkAlbum).UserPress();
            if (Below(40) == 0) {
                Close();
            }
        }
        MoveWindow();
    }

    LibraryModel::Name NameIn(const FakeListControl& list) const {
        return &list == &form.lstArtists  ? &ModelSong::Artist
               : &list == &form.lstAlbums ? &ModelSong::Album
                                          : &ModelSong::Title;
    }

    /// Ticks in a search's yield are in vain: the lists are about
    /// to be filled anew.
    void Tick(FakeListControl& list, int row) {
        const bool ticked = !list.Selected(row);
        const QStringList texts = row == 0 ? list.Texts() : QStringList(list.List(row));
        if (list.Usable() && !m_yielding) {
            m_model.Tick(NameIn(list), texts, Tab(), ticked);
        }
        list.UserToggle(row);
    }

    void PressSearchOrClear() {
        const bool clears = Below(2) == 0;
        if (!m_yielding && clears && form.cmdClear.Usable()) {
            m_model.Narrow({});
        }
        if (!m_yielding && !clears && form.cmdSearch.Usable()) {
            m_model.Narrow(form.txtSearch.Text());
        }
        (clears ? form.cmdClear : form.cmdSearch).UserPress();
    }

    void PressCopy() {
        if (m_yielding) {
            form.cmdCopy.UserPress(); // cancels, or is in vain
            return;
        }
        const bool starts = form.cmdCopy.Usable();
        const std::vector<ModelSong> songs = m_model.Loaded();
        m_undisturbed = IsPlugged(m_model.LoadedDevice);
        form.cmdCopy.UserPress();
        Copies += starts ? 1 : 0;
        const QStringList texts = messages.Texts();
        const auto asked = texts.count(u"Are you sure you want to quit?"_s);
        EXPECT_EQ(asked > 0, m_asked > 0);
        Questions += static_cast<int>(asked);
        EXPECT_LE(texts.count(u"Copy completed!"_s), 1);
        if (texts.contains(u"Copy completed!"_s) && m_undisturbed) {
            for (const ModelSong& song : songs) {
                EXPECT_TRUE(!song.Ticked || files.HasFile(TargetOf(song)))
                    << TargetOf(song).toStdString();
            }
        }
    }

    QString TargetOf(const ModelSong& song) const {
        return u"D:\\Music\\"_s + (form.chkArtist.Value() ? song.Artist + u"\\"_s : QString()) +
               (form.chkAlbum.Value() ? song.Album + u"\\"_s : QString()) + song.Title + u".mp3"_s;
    }

    void ChooseDevice() {
        if (Below(3) == 0) {
            PlugOrUnplug();
        }
        form.Combo1.UserDropDown();
        if (form.Combo1.ListCount() > 0) {
            form.Combo1.UserChoose(
                static_cast<int>(Below(static_cast<unsigned>(form.Combo1.ListCount()))));
        }
        form.timScan.Elapse();
    }

    void PlugOrUnplug() {
        const char letter = Below(2) == 0 ? 'E' : 'F';
        m_undisturbed = false;
        if (IsPlugged(letter)) {
            Unplug(QLatin1Char(letter));
        } else {
            Plug(letter);
        }
    }

    /// A running job keeps the window, and asks.
    void Close() {
        const bool copying = IsCopying();
        form.Form1.UserClose();
        EXPECT_EQ(IsClosed(), !copying);
        m_asked += copying ? 1 : 0;
    }

    void Preview(int row) {
        if (Below(2) == 0 && row > 0 && row < form.lstSongs.ListCount()) {
            form.lstSongs.UserRightClick(row);
            form.mnuPreview.Click();
        } else {
            frmPreview.UserClose();
        }
    }

    /// What the window manager, the clock and the mouse do, whatever stands open.
    void MoveWindow() {
        switch (IsClosed() ? 12 : Below(12)) {
        case 0:
            form.Form1.UserResize(9000 + Below(9000), 6000 + Below(6000));
            break;
        case 1:
            form.Form1.SetState(WindowState::Minimized);
            break;
        case 2:
            form.Form1.SetState(WindowState::Maximized);
            break;
        case 3:
            form.Form1.SetState(WindowState::Normal);
            break;
        case 4:
            form.Handle0.UserMouseDown(10);
            form.Handle0.UserMouseMove(Below(3000) - 1500.0);
            form.Handle0.UserMouseUp(10);
            break;
        case 5:
            AnyList().UserMouseMove({});
            AnyList().UserScroll();
            break;
        case 6:
            form.timScan.Elapse();
            break;
        default:
            break;
        }
    }

    // ---- the worst moments

    void AtYield() {
        EXPECT_EQ(IsCopying(), !form.Combo1.Enabled());
        EXPECT_EQ(IsCopying(), !form.lstSongs.Enabled() && !form.txtDestination.Enabled());
        EXPECT_TRUE(IsCopying() || !form.tbsFilter.Enabled());
        const bool wasYielding = std::exchange(m_yielding, true);
        if (Below(3) == 0 && !IsClosed()) {
            ++Meanwhiles;
            Act(Below(14));
            if (Below(30) == 0) {
                PlugOrUnplug();
            }
            if (IsCopying() && Below(20) == 0) {
                Close();
            }
        }
        m_yielding = wasYielding;
    }

    /// A message blocks the window, not the world around it.
    void AtMessage(const ShownMessage& message) {
        EXPECT_FALSE(IsClosed());
        ++Meanwhiles;
        MoveWindow();
        if (Below(10) == 0) {
            PlugOrUnplug();
        }
        using enum MessageAnswer;
        switch (message.Buttons) {
        case MessageButtons::YesNo:
            messages.Answers = {Below(8) == 0 ? Yes : No};
            break;
        case MessageButtons::AbortRetryIgnore:
            m_undisturbed = false;
            messages.Answers = {Below(4) == 0 ? Retry : Below(3) == 0 ? Abort : Ignore};
            break;
        default:
            messages.Answers.clear();
        }
    }

    void Answer(OverwritePrompt& prompt) {
        EXPECT_TRUE(files.HasFile(prompt.OverwriteFile()));
        EXPECT_FALSE(prompt.OverwriteAll());
        ++Meanwhiles;
        MoveWindow();
        const auto answer = static_cast<OverwritePrompt::Answer>(Below(3));
        prompt.Take(answer, answer != OverwritePrompt::Cancel && Below(3) == 0);
    }

    std::mt19937 m_random;
    std::map<char, std::vector<SampleTrack>> m_tracks;
    LibraryModel m_model;
    bool m_yielding = false;
    /// No device came or went, and nothing failed, since the job began.
    bool m_undisturbed = true;
    /// How often the window was closed while the job ran.
    int m_asked = 0;
};

} // namespace

TEST(WorstMomentWalk, TheWindowComesToRestAndShowsWhatHolds) {
    int steps = 0, meanwhiles = 0, copies = 0, questions = 0, closed = 0;
    for (unsigned seed = 1; seed <= Walks(60); ++seed) {
        Walker walker(seed);
        for (int step = 0; step < 100 && !walker.IsClosed(); ++step, ++steps) {
            SCOPED_TRACE(testing::Message() << "seed " << seed << ", step " << step);
            walker.Step();
            walker.Check();
            ASSERT_FALSE(testing::Test::HasFailure());
        }
        meanwhiles += walker.Meanwhiles;
        copies += walker.Copies;
        questions += walker.Questions;
        closed += walker.IsClosed() ? 1 : 0;
    }
    EXPECT_GT(steps, 2000);
    EXPECT_GT(meanwhiles, 3000);
    EXPECT_GT(copies, 200);
    EXPECT_GT(questions, 20);
    EXPECT_GT(closed, 5);
    testing::Test::RecordProperty("steps", steps);
    testing::Test::RecordProperty("meanwhiles", meanwhiles);
    testing::Test::RecordProperty("copies", copies);
    testing::Test::RecordProperty("questions", questions);
}
