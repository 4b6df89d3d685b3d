// Users who act at the worst moment: in every yield of a search and of a job, while a message or
// the prompt stands open. They type, tick, cancel, close, unplug, minimise. After every step the
// window must show what a plain model of the library says, and be at rest.

#include "tests/app/ProgramFixture.h"
#include "tests/support/Walks.h"

#include "selection/SelectionSummary.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

using namespace Qt::StringLiterals;

namespace {

/// A song with a title of its own, so that a row's text tells which one it is.
struct Song {
    QString Artist, Album, Title;
    qint64 Size = 0;
    bool IsVideo = false;
    bool Ticked = false;
    QString File;
};

bool HoldsEveryWord(const QString& text, const QString& words) {
    for (const QString& word : words.split(u' ')) {
        if (!text.toLower().contains(word)) {
            return false;
        }
    }
    return true;
}

class Walker : public ProgramFixture {
public:
    explicit Walker(unsigned seed) : m_random(seed) {
        for (const char letter : {'E', 'F'}) {
            m_libraries[letter] = RandomLibrary(seed % 16 == 0 && letter == 'E');
            Plug(letter);
        }
        files.BeforeCall = [this](const FakeFileSystem::RecordedCall& call) { Hear(call); };
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
        CheckFiles();
        if (IsClosed()) {
            // A maximised window keeps the size and the position of an earlier exit.
            EXPECT_EQ(store.Values.size(), form.Form1.State() == WindowState::Maximized ? 6 : 10);
            return;
        }
        CheckRest();
        if (form.Combo1.Text().isEmpty()) {
            EXPECT_EQ(form.lstArtists.ListCount(), 0);
            EXPECT_FALSE(form.cmdCopy.Enabled());
        } else {
            CheckLists();
            CheckSummary();
        }
    }

    int Meanwhiles = 0;
    int Copies = 0;
    int Questions = 0;

private:
    unsigned Below(unsigned limit) { return static_cast<unsigned>(m_random() % limit); }

    std::vector<Song> RandomLibrary(bool withLargeFile) {
        std::vector<Song> songs;
        for (unsigned a = 0, artists = 1 + Below(4); a < artists; ++a) {
            for (unsigned b = 0, albums = 1 + Below(3); b < albums; ++b) {
                for (unsigned s = 0, count = 1 + Below(4); s < count; ++s) {
                    songs.push_back({u"Artist a%1"_s.arg(a), u"Album a%1b%2"_s.arg(a).arg(b),
                                     u"Song a%1b%2s%3"_s.arg(a).arg(b).arg(s), Below(3000000),
                                     Below(3) == 0, false, u"%1.mp3"_s.arg(songs.size())});
                }
            }
        }
        if (withLargeFile) {
            songs.front().Size = 50000001;
        }
        return songs;
    }

    void Plug(char letter) {
        std::vector<SampleTrack> tracks;
        for (const Song& song : m_libraries[letter]) {
            tracks.push_back({song.Artist, song.Album, song.Title, 0, song.Size,
                              QLatin1Char(letter) + u"00/"_s + song.File,
                              song.IsVideo ? u"MPEG-4 video file"_s : u"MPEG audio file"_s});
        }
        PlugIn(QLatin1Char(letter), Text(letter == 'E' ? "ONE" : "TWO"), tracks);
    }

    bool IsPlugged(char letter) {
        return std::any_of(
            drives.Mounted.begin(), drives.Mounted.end(),
            [letter](const auto& drive) { return drive.Letter == QLatin1Char(letter); });
    }

    // ---- the model

    bool IsCopying() const { return form.cmdCopy.Caption() == u"&Cancel"_s; }

    std::vector<Song>& Loaded() { return m_libraries[m_loaded]; }

    bool IsShown(const Song& song) {
        const QString tab = form.tbsFilter.SelectedCaption();
        return (tab == u"All Files"_s || song.IsVideo == (tab == u"Video"_s)) &&
               (HoldsEveryWord(song.Artist, m_inForce) || HoldsEveryWord(song.Album, m_inForce) ||
                HoldsEveryWord(song.Title, m_inForce));
    }

    void TextChanges(const QString& text) {
        if (form.txtSearch.Usable() && form.txtSearch.Text() != text) {
            m_inForce = text.trimmed().isEmpty() ? QString() : text;
        }
    }

    /// A database that is opened is loaded, and the old ticks are gone.
    void Hear(const FakeFileSystem::RecordedCall& call) {
        if (call.Call == FileCall::OpenForReading && call.Path.endsWith(u"iTunesDB"_s)) {
            m_loaded = call.Path[0].toLatin1();
            m_inForce.clear();
            for (Song& song : Loaded()) {
                song.Ticked = false;
            }
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
            TextChanges(text);
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

    /// The songs that a row stands for. Ticks in a search's yield are in vain: the lists are about
    /// to be filled anew.
    void Tick(FakeListControl& list, int row) {
        const bool ticked = !list.Selected(row);
        const QStringList texts = row == 0 ? list.Texts() : QStringList(list.List(row));
        if (list.Usable() && !m_yielding) {
            for (Song& song : Loaded()) {
                const QString& name = &list == &form.lstArtists  ? song.Artist
                                      : &list == &form.lstAlbums ? song.Album
                                                                 : song.Title;
                song.Ticked = IsShown(song) && texts.contains(name) ? ticked : song.Ticked;
            }
        }
        list.UserToggle(row);
    }

    void PressSearchOrClear() {
        const bool clears = Below(2) == 0;
        if (!m_yielding && clears && form.cmdClear.Usable()) {
            m_inForce.clear();
        }
        if (!m_yielding && !clears && form.cmdSearch.Usable()) {
            const QString text = form.txtSearch.Text();
            m_inForce = text.trimmed().isEmpty() ? QString() : text;
        }
        (clears ? form.cmdClear : form.cmdSearch).UserPress();
    }

    void PressCopy() {
        if (m_yielding) {
            form.cmdCopy.UserPress(); // cancels, or is in vain
            return;
        }
        const bool starts = form.cmdCopy.Usable();
        const std::vector<Song> songs = Loaded();
        m_undisturbed = IsPlugged(m_loaded);
        form.cmdCopy.UserPress();
        Copies += starts ? 1 : 0;
        const QStringList texts = messages.Texts();
        const auto asked = texts.count(u"Are you sure you want to quit?"_s);
        EXPECT_EQ(asked > 0, m_asked > 0);
        Questions += static_cast<int>(asked);
        EXPECT_LE(texts.count(u"Copy completed!"_s), 1);
        if (texts.contains(u"Copy completed!"_s) && m_undisturbed) {
            for (const Song& song : songs) {
                EXPECT_TRUE(!song.Ticked || files.HasFile(TargetOf(song)))
                    << TargetOf(song).toStdString();
            }
        }
    }

    QString TargetOf(const Song& song) const {
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
        EXPECT_TRUE(files.HasFile(prompt.OverwriteFile));
        EXPECT_FALSE(prompt.OverwriteAll);
        ++Meanwhiles;
        MoveWindow();
        const auto answer = static_cast<OverwritePrompt::Answer>(Below(3));
        prompt.OverwriteAnswer = answer;
        prompt.OverwriteAll = answer != OverwritePrompt::Cancel && Below(3) == 0;
    }

    // ---- what must hold

    /// No search and no job is left over.
    void CheckRest() {
        EXPECT_EQ(form.Form1.Pointer(), MousePointer::Default);
        EXPECT_NE(form.cmdCopy.Caption(), u"&Cancel"_s);
        EXPECT_EQ(form.Form1.Caption(), u"Songlift"_s);
        for (const FakeControl* frame : {&form.Picture2, &form.frmDP, &form.frmDestination}) {
            EXPECT_TRUE(frame->Enabled());
        }
        EXPECT_TRUE(form.tbsFilter.Enabled());
        EXPECT_EQ(form.timScan.Enabled(), form.Combo1.ListCount() == 0);
        for (const FakeListControl* list : {&form.lstArtists, &form.lstAlbums, &form.lstSongs}) {
            EXPECT_TRUE(list->Visible());
        }
    }

    void CheckLists() {
        std::set<QString> artists, albums, titles;
        const QString artist = Current(form.lstArtists);
        const QString album = Current(form.lstAlbums);
        for (const Song& song : Loaded()) {
            if (!IsShown(song)) {
                continue;
            }
            artists.insert(song.Artist);
            if (artist.isEmpty() || song.Artist == artist) {
                albums.insert(song.Album);
                if (album.isEmpty() || song.Album == album) {
                    titles.insert(song.Title);
                }
            }
        }
        CheckList(form.lstArtists, artists, &Song::Artist);
        CheckList(form.lstAlbums, albums, &Song::Album);
        CheckList(form.lstSongs, titles, &Song::Title);
    }

    static QString Current(const FakeListControl& list) {
        return list.ListIndex() >= 1 ? list.List(list.ListIndex()) : QString();
    }

    /// A parent in a result may be ticked for a song that the result leaves out.
    void CheckList(const FakeListControl& list, const std::set<QString>& names,
                   QString Song::*name) {
        ASSERT_EQ(list.ListCount(), names.empty() ? 0 : static_cast<int>(names.size()) + 1);
        bool allTicked = true;
        for (int row = 1; row < list.ListCount(); ++row) {
            const QString text = list.List(row);
            EXPECT_EQ(names.count(text), 1U) << text.toStdString();
            bool shown = false, any = false;
            for (const Song& song : Loaded()) {
                any = any || (song.*name == text && song.Ticked);
                shown = shown || (song.*name == text && song.Ticked && IsShown(song));
            }
            EXPECT_TRUE(list.Selected(row) || !shown) << text.toStdString();
            EXPECT_TRUE(!list.Selected(row) || any) << text.toStdString();
            allTicked = allTicked && list.Selected(row);
        }
        if (list.ListCount() > 0) {
            EXPECT_EQ(list.Selected(0), allTicked);
            EXPECT_GE(list.ListIndex(), 0);
            EXPECT_TRUE(list.Enabled());
        }
    }

    void CheckSummary() {
        double ticked = 0, total = 0;
        for (const Song& song : Loaded()) {
            total += static_cast<double>(song.Size);
            ticked += song.Ticked ? static_cast<double>(song.Size) : 0;
        }
        EXPECT_EQ(form.lblMessage.Caption(),
                  u"Selected: "_s + GetSizeInText(ticked) + u" of "_s + GetSizeInText(total));
        const bool any = std::any_of(Loaded().begin(), Loaded().end(),
                                     [](const Song& song) { return song.Ticked; });
        EXPECT_EQ(form.cmdCopy.Enabled(), any);
        EXPECT_EQ(form.cmdClear.Enabled(), !m_inForce.isEmpty());
    }

    /// The devices are untouched and every copy is whole; equal titles of the two devices have
    /// sizes of their own.
    void CheckFiles() {
        EXPECT_EQ(files.OpenFiles, 0);
        for (const char* device : {"E:", "F:"}) {
            EXPECT_EQ(files.ChangesBelow(Text(device)), QStringList());
        }
        for (const QString& file : files.FilesBelow(u"D:\\Music"_s)) {
            bool whole = false;
            for (const auto& [letter, songs] : m_libraries) {
                for (const Song& song : songs) {
                    whole = whole || (file.endsWith(song.Title + u".mp3"_s) &&
                                      files.Length(file) == song.Size);
                }
            }
            EXPECT_TRUE(whole) << file.toStdString();
        }
    }

    std::mt19937 m_random;
    std::map<char, std::vector<Song>> m_libraries;
    char m_loaded = 'E';
    /// The text that narrows the lists.
    QString m_inForce;
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
