// The whole program, with one call after another of a window, a control or a service failing in
// ways that nobody expects. Whatever fails, the next request must work.

#include "tests/app/LibraryModel.h"
#include "tests/app/ProgramFixture.h"
#include "tests/fakes/UnexpectedFailure.h"
#include "tests/fakes/UserSteps.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class FailingProgram : public ProgramFixture {
public:
    FailingProgram() {
        AtPrompt = [](OverwritePrompt& prompt) { prompt.Take(OverwritePrompt::Replace, true); };
        model.Add('E', SmallLibrary());
    }

    void StartWithTwoDevices() {
        PlugIn(u'E', u"ONE"_s, SmallLibrary());
        PlugIn(u'F', u"TWO"_s, SmallLibrary());
        Start();
        form.txtDestination.SetText(u"D:\\Music"_s);
    }

    /// Chooses the last device, as a user does who finds the window empty. One whose database could
    /// be read only so far counts as loaded, and is loaded again only after another one.
    void ChooseDevice() {
        form.timScan.Elapse();
        form.Combo1.UserDropDown();
        ASSERT_GT(form.Combo1.ListCount(), 0);
        if (FailsInReader) {
            form.Combo1.UserChoose(0);
        }
        form.Combo1.UserChoose(form.Combo1.ListCount() - 1);
    }

    /// Whatever is shown, its rows, marks and summary fit one another.
    void ExpectFits(bool keepsTicks) {
        // What could not be filled is empty until the next click, or its rows are what they say.
        for (FakeListControl* list : {&form.lstSongs, &form.lstAlbums}) {
            const int artist = form.lstArtists.ListIndex();
            if (const int last = list->ListCount() - 1; last >= 1) {
                list->UserClick(0);
                EXPECT_GT(form.lstSongs.ListCount(), 0);
                list->UserClick(last);
                const QString name = form.lblFullName.Caption();
                EXPECT_TRUE(name.contains(list->List(last)));
                EXPECT_TRUE(artist < 1 || name.startsWith(form.lstArtists.List(artist)));
            }
        }
        for (FakeListControl* list : {&form.lstArtists, &form.lstAlbums, &form.lstSongs}) {
            if (list->ListCount() > 0) {
                list->UserClick(0);
            }
        }
        if (form.cmdClear.Enabled() || form.tbsFilter.SelectedCaption() != u"All Files"_s) {
            EXPECT_LT(form.lstSongs.ListCount(), 7); // no search here finds all six
            model.ShownTitles = form.lstSongs.Texts();
        }
        if (!keepsTicks) {
            model.TakeTicks(form.lstSongs);
        }
        model.ExpectShown(form);
        model.ShownTitles.reset();
    }

    /// Shows the whole library, and finds out what is ticked.
    void ShowAll() {
        // A text that is in the box and not in force comes into force by no tab.
        const bool isSearched = form.cmdClear.Enabled();
        ActOn(form, "tab Audio, tab All Files");
        EXPECT_EQ(form.cmdClear.Enabled(), isSearched);
        ActOn(form, "type, clear, artist All, album All");
        model.TakeTicks(form.lstSongs);
        model.ExpectShown(form);
    }

    /// Ticks all and copies all, through a search and back.
    void ExpectNextRequestsWork() {
        form.txtSearch.UserReplace(u"dusk"_s);
        EXPECT_EQ(form.lstSongs.Texts().last(), u"Dusk"_s);
        form.txtSearch.UserReplace(QString());
        form.tbsFilter.UserSelectTab(2);
        EXPECT_EQ(form.lstSongs.Texts().last(), u"Film"_s);
        form.tbsFilter.UserSelectTab(0);
        if (form.lstArtists.Selected(0)) {
            form.lstArtists.UserTick(0, false); // some of an artist's songs may not be ticked
        }
        form.lstArtists.UserTick(0, true);
        EXPECT_EQ(form.lblMessage.Caption(), u"Selected: 63 KB of 63 KB"_s);
        messages.Shown.clear();
        form.cmdCopy.UserPress();
        EXPECT_EQ(messages.Texts(), QStringList({u"Copy completed!"_s}));
        EXPECT_EQ(files.FilesBelow(u"D:\\Music"_s).size(), 6);
        ExpectAtRest();
        model.ExpectWholeFiles(files);
        form.Form1.UserClose();
        EXPECT_TRUE(form.Form1.Closed);
        EXPECT_EQ(store.Values.size(), 10);
    }

    /// A failure of this kind is told by the reader of a database, if it strikes there.
    bool FailsInReader = false;
    LibraryModel model;
};

using Act = std::function<void(FailingProgram&)>;

struct Scenario {
    std::string Name;
    Act Prepare;
    Act Handler;
    /// What the user does about it; nothing where the window shows the library all along.
    Act Remedy;
    /// A tick may end half done, and another device has none; other failures lose none.
    bool KeepsTicks = true;
};

void PrintTo(const Scenario& scenario, std::ostream* out) {
    *out << scenario.Name;
}

const Act Nothing = [](FailingProgram&) {};
Act Start(const char* steps) {
    return [steps](FailingProgram& program) {
        program.StartWithTwoDevices();
        ActOn(program.form, steps);
    };
}
const Act StartEmpty = [](FailingProgram& program) {
    program.Start();
    program.form.txtDestination.SetText(u"D:\\Music"_s);
    program.PlugIn(u'E', u"ONE"_s, SmallLibrary());
    program.PlugIn(u'F', u"TWO"_s, SmallLibrary());
};
const Act ChooseOther = [](FailingProgram& program) { program.form.Combo1.UserChoose(1); };
const Act ChooseAgain = [](FailingProgram& program) { program.ChooseDevice(); };
const Act OpenPreview = [](FailingProgram& program) {
    program.form.lstSongs.UserClick(1);
    program.form.mnuPreview.Click();
};

/// `meanwhile` is what the user does in the second yield.
Scenario After(const char* prepare, const char* steps, const char* meanwhile = nullptr) {
    const auto handler = [steps, meanwhile](FailingProgram& program) {
        program.events.Yields = 0;
        program.events.OnYield = [&program, meanwhile](int yield) {
            if (yield == 2 && meanwhile) {
                RunHandler([&] { ActOn(program.form, meanwhile); });
            }
        };
        ActOn(program.form, steps);
    };
    const bool keepsTicks = !QString::fromLatin1(steps).contains(u"tick"_s);
    return {std::string(prepare) + ", and then " + steps +
                (meanwhile ? std::string(", meanwhile ") + meanwhile : std::string()),
            Start(prepare), handler, Nothing, keepsTicks};
}

const char* const Untouched = "artist Blue River";
const char* const Ticked = "tick album Deep";
const char* const AllTicked = "tick artist All";
const char* const NothingFound = "tick album Deep, type nowhere";
/// Delta is ticked and not shown.
const char* const Result = "tick album Deep, type s, artist The Lamps, tick song Dusk";
const char* const Filtered = "tick album Deep, tab Audio, artist The Lamps, tick song Dusk";

const Scenario Scenarios[] = {
    After(Untouched, "artist The Lamps"),
    After(Untouched, "artist All"),
    After("artist All", "artist The Lamps"),
    After(Untouched, "album Deep"),
    After(Untouched, "song Delta"),
    After(Ticked, "type us"),
    After(Ticked, "type nowhere"),
    After(Result, "type so"),
    After(Result, "type film"),
    After(Result, "type nowhere"),
    After(NothingFound, "type film"),
    After(Result, "type film", "type dusk"),
    After(Result, "type"),
    After(Result, "clear"),
    After(Ticked, "tab Audio"),
    After(Filtered, "tab Video"),
    After(Filtered, "tab All Files"),
    After(Filtered, "type us"),
    After("tick album Deep, tab Audio, type delta", "clear"),
    After(Untouched, "tick artist The Lamps"),
    After(Ticked, "tick artist All"),
    After(Untouched, "tick album Wide"),
    After(Ticked, "untick album Deep"),
    After("artist All", "tick album All"),
    After("artist All", "tick song Dusk"),
    After("album Deep", "tick song All"),
    After(Result, "tick song Film"),
    After(AllTicked, "copy"),
    After("tick artist All, copy", "copy"),
    After(AllTicked, "copy", "copy"), // cancels
    After(AllTicked, "copy", "close"),
    {"copy while a result is shown", Start("tick artist All, type river"),
     [](FailingProgram& program) { ActOn(program.form, "copy"); },
     [](FailingProgram& program) {
         EXPECT_EQ(program.form.lstArtists.Texts(),
                   QStringList({u"All (1 Artist)"_s, u"Blue River"_s}));
     }},
    {"choose another device", Start(Untouched), ChooseOther, ChooseAgain, false},
    {"choose another device during a search", Start(Result), ChooseOther, ChooseAgain, false},
    {"open the list of devices", Start(Untouched),
     [](FailingProgram& program) { program.form.Combo1.UserDropDown(); }, ChooseAgain, false},
    {"choose a device that is gone",
     [](FailingProgram& program) {
         program.StartWithTwoDevices();
         program.Unplug(u'F');
     },
     ChooseOther, ChooseAgain, false},
    {"poll for devices", StartEmpty, [](FailingProgram& program) { program.form.timScan.Elapse(); },
     ChooseAgain, false},
    {"preview", Start(Untouched), OpenPreview,
     [](FailingProgram& program) {
         program.form.lstArtists.UserClick(0);
         OpenPreview(program);
         EXPECT_EQ(program.player.Source(), u"E:\\iPod_Control\\Music\\F00\\AAAB.mp3"_s);
         EXPECT_TRUE(program.frmPreview.Visible);
     }},
    {"close the preview",
     [](FailingProgram& program) {
         program.StartWithTwoDevices();
         OpenPreview(program);
     },
     [](FailingProgram& program) { program.frmPreview.UserClose(); },
     [](FailingProgram& program) {
         program.frmPreview.UserClose();
         EXPECT_FALSE(program.frmPreview.Visible);
         EXPECT_EQ(program.player.Source(), QString());
     }},
    {"resize", Start(Untouched),
     [](FailingProgram& program) { program.form.Form1.UserResize(15000, 10000); },
     [](FailingProgram& program) {
         program.form.Form1.UserResize(16000, 11000);
         FailingProgram other;
         other.StartWithTwoDevices();
         other.form.Form1.UserResize(16000, 11000);
         EXPECT_EQ(program.form.prgCopy.Width(), other.form.prgCopy.Width());
         EXPECT_EQ(program.form.lstSongs.Height(), other.form.lstSongs.Height());
         EXPECT_EQ(program.form.cmdCopy.Top(), other.form.cmdCopy.Top());
     }},
    {"minimise and come back", Start(Untouched),
     [](FailingProgram& program) {
         program.form.Form1.SetState(WindowState::Minimized);
         program.form.Form1.SetState(WindowState::Normal);
     },
     [](FailingProgram& program) { program.form.Form1.SetState(WindowState::Normal); }},
    {"drag a splitter", Start(Untouched),
     [](FailingProgram& program) {
         program.form.Handle0.UserMouseDown(10);
         program.form.Handle0.UserMouseMove(500);
         program.form.Handle0.UserMouseUp(500);
     },
     [](FailingProgram& program) {
         program.form.Handle0.UserMouseDown(10);
         program.form.Handle0.UserMouseUp(10);
         EXPECT_EQ(program.form.Handle0.BackColor(), SystemColor::ButtonFace);
     }},
    {"close", Start(Untouched), [](FailingProgram& program) { program.form.Form1.UserClose(); },
     [](FailingProgram& program) { program.form.Form1.Show(); }},
};

class FailingProgramTest : public testing::TestWithParam<Scenario> {};

} // namespace

TEST_P(FailingProgramTest, TheNextRequestWorks) {
    const bool keepsTicks = GetParam().KeepsTicks;
    FailingProgram unfailing;
    GetParam().Prepare(unfailing);
    if (!unfailing.form.Combo1.Text().isEmpty()) {
        unfailing.ShowAll();
    }
    const QStringList ticked = unfailing.model.TickedTitles();
    int nth = 0;
    for (bool struck = true; struck && !HasFailure();) {
        SCOPED_TRACE(testing::Message() << "call " << ++nth);
        FailingProgram program;
        GetParam().Prepare(program);
        program.FailsInReader = nth % 3 != 2; // the third kind is a programming error
        struck = RunFailing([&] { GetParam().Handler(program); }, nth, nth);
        program.events.OnYield = {};
        program.ExpectAtRest();
        program.model.ExpectWholeFiles(program.files);
        GetParam().Remedy(program);
        program.model.Tick(&ModelSong::Title, ticked, u"All Files"_s, true);
        program.ExpectFits(keepsTicks);
        program.ShowAll();
        EXPECT_TRUE(!keepsTicks || program.model.TickedTitles() == ticked);
        program.ExpectNextRequestsWork();
    }
    EXPECT_GT(nth, 1);
    RecordProperty("failures", nth - 1);
}

INSTANTIATE_TEST_SUITE_P(Handlers, FailingProgramTest, testing::ValuesIn(Scenarios));
