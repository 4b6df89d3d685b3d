#include "platform/RuntimeError.h"
#include "tests/fakes/FakeForm1.h"
#include "tests/fakes/FakeServices.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

TEST(FakeWindow, RaisesResizeOnlyForAChangeOfSizeOrState) {
    FakeWindow window;
    int resizes = 0;
    window.Resize = [&] { ++resizes; };
    window.SetSize(6000, 4500);
    window.SetSize(6000, 4500);
    EXPECT_EQ(resizes, 1);
    window.SetState(WindowState::Maximized);
    window.SetState(WindowState::Maximized);
    EXPECT_EQ(resizes, 2);
    window.MoveTo(10, 20);
    window.SetCaption(QStringLiteral("Songlift"));
    EXPECT_EQ(resizes, 2);
}

TEST(FakeWindow, TakesItsNormalSizeBackWhenRestored) {
    FakeWindow window;
    window.SetSize(6000, 4500);
    window.MoveTo(150, 300);
    window.SetState(WindowState::Maximized);
    EXPECT_EQ(window.Width(), 28800);
    EXPECT_EQ(window.Left(), 0);
    window.SetState(WindowState::Normal);
    EXPECT_EQ(window.Width(), 6000);
    EXPECT_EQ(window.Left(), 150);
}

TEST(FakeWindow, TellsWhoClosesItAndStaysOpenWhenRefused) {
    FakeWindow window;
    std::vector<UnloadMode> modes;
    bool refuse = true;
    window.QueryUnload = [&](bool& cancel, UnloadMode mode) {
        modes.push_back(mode);
        cancel = refuse;
    };
    window.Show();
    window.UserClose();
    EXPECT_FALSE(window.Closed);
    EXPECT_TRUE(window.Visible);
    refuse = false;
    window.Unload();
    EXPECT_TRUE(window.Closed);
    EXPECT_FALSE(window.Visible);
    window.Unload();
    EXPECT_EQ(modes, std::vector<UnloadMode>({UnloadMode::User, UnloadMode::Program}));
}

TEST(FakeWindow, AModalWindowThatTheScriptLeavesOpenIsClosedByTheUser) {
    FakeWindow window;
    std::vector<UnloadMode> modes;
    window.QueryUnload = [&](bool&, UnloadMode mode) { modes.push_back(mode); };
    window.ShowModal();
    EXPECT_EQ(modes, std::vector<UnloadMode>({UnloadMode::User}));
    window.ModalScript = [&] { window.Unload(); };
    window.ShowModal();
    EXPECT_EQ(modes, std::vector<UnloadMode>({UnloadMode::User, UnloadMode::Program}));
    EXPECT_TRUE(window.Closed);
}

TEST(FakeWindow, AModalWindowThatNeverClosesFailsTheTest) {
    FakeWindow window;
    window.QueryUnload = [](bool& cancel, UnloadMode) { cancel = true; };
    EXPECT_THROW(window.ShowModal(), std::logic_error);
}

TEST(FakeMessages, AnswersByTheScriptThenMostCarefully) {
    FakeMessages messages;
    messages.Answers = {MessageAnswer::Retry, MessageAnswer::OK};
    const auto show = [&](MessageButtons buttons) {
        return messages.Show(QStringLiteral("text"), QStringLiteral("title"), buttons,
                             MessageIcon::Question);
    };
    EXPECT_EQ(show(MessageButtons::AbortRetryIgnore), MessageAnswer::Retry);
    EXPECT_EQ(show(MessageButtons::OKCancel), MessageAnswer::OK);
    EXPECT_EQ(show(MessageButtons::OK), MessageAnswer::OK);
    EXPECT_EQ(show(MessageButtons::OKCancel), MessageAnswer::Cancel);
    EXPECT_EQ(show(MessageButtons::YesNo), MessageAnswer::No);
    EXPECT_EQ(show(MessageButtons::RetryCancel), MessageAnswer::Cancel);
    EXPECT_EQ(show(MessageButtons::AbortRetryIgnore), MessageAnswer::Abort);
    ASSERT_EQ(messages.Shown.size(), 7u);
    EXPECT_EQ(messages.Shown[1], (ShownMessage{QStringLiteral("text"), QStringLiteral("title"),
                                               MessageButtons::OKCancel, MessageIcon::Question}));
}

TEST(FakeMessages, AnAnswerWithoutAButtonFailsTheTest) {
    FakeMessages messages;
    messages.Answers = {MessageAnswer::Yes};
    EXPECT_THROW(messages.Show(QString(), QString(), MessageButtons::OK, MessageIcon::Critical),
                 std::logic_error);
}

TEST(FakeEventLoop, TellsTheNumberOfTheYield) {
    FakeEventLoop loop;
    std::vector<int> numbers;
    loop.OnYield = [&](int number) { numbers.push_back(number); };
    loop.Yield();
    loop.Yield();
    EXPECT_EQ(numbers, std::vector<int>({1, 2}));
}

TEST(FakeSettingsStore, ReadsTheDefaultUntilWritten) {
    FakeSettingsStore store;
    const QString key = QStringLiteral("Width");
    EXPECT_EQ(store.Read(key, QStringLiteral("7")), QStringLiteral("7"));
    store.Write(key, QString());
    EXPECT_EQ(store.Read(key, QStringLiteral("7")), QString());
    EXPECT_EQ(store.Writes, QStringList({key}));
}

TEST(FakeDriveService, ADriveMayFailToAnswer) {
    FakeDriveService drives;
    drives.Mounted = {{.Letter = u'E', .VolumeName = QStringLiteral("IPOD")},
                      {.Letter = u'F', .Removable = false},
                      {.Letter = u'G', .IsRemovableFails = true, .VolumeNameFails = true}};
    const std::vector<Drive> listed = drives.Drives();
    ASSERT_EQ(listed.size(), 3u);
    EXPECT_EQ(listed[1].Path, QStringLiteral("F:"));
    EXPECT_TRUE(drives.IsRemovable(listed[0]));
    EXPECT_EQ(drives.VolumeName(listed[0]), QStringLiteral("IPOD"));
    EXPECT_FALSE(drives.IsRemovable(listed[1]));
    EXPECT_THROW(drives.IsRemovable(listed[2]), RuntimeError);
    EXPECT_THROW(drives.VolumeName(listed[2]), RuntimeError);
    drives.Mounted.clear();
    EXPECT_THROW(drives.IsRemovable(listed[0]), RuntimeError);
}

TEST(FakeForm1, ItsControlsShareOneFocus) {
    FakeForm1 form;
    form.Controls.lstSongs.SetFocus();
    EXPECT_EQ(form.WindowManager.GetFocus(), form.lstSongs.Handle());
    form.txtSearch.UserEnter();
    EXPECT_FALSE(form.lstSongs.HasFocus());
    EXPECT_EQ(form.WindowManager.GetFocus(), form.txtSearch.Handle());
    EXPECT_EQ(form.WindowManager.GetActiveWindow(), form.Form1.Handle());
}

TEST(FakeForm1, ADisabledFrameKeepsTheUserOut) {
    FakeForm1 form;
    form.frmDestination.SetEnabled(false);
    form.Picture2.SetEnabled(false);
    int events = 0;
    form.txtDestination.Change = [&] { ++events; };
    form.Combo1.DropDown = [&] { ++events; };
    form.txtDestination.UserType(QStringLiteral("x"));
    form.Combo1.UserDropDown();
    EXPECT_EQ(events, 0);
    EXPECT_EQ(form.txtDestination.Text(), QString());
}

TEST(FakeListControl, CountsWhatWouldBePaintedOnlyWhileVisible) {
    FakeListControl list;
    list.SetVisible(false);
    list.Fill({{QStringLiteral("a"), false}});
    list.SetSelected(0, true);
    list.SetListIndex(0);
    EXPECT_EQ(list.ChangesWhileVisible, 0);
    list.SetVisible(true);
    list.SetSelected(0, false);
    EXPECT_EQ(list.ChangesWhileVisible, 1);
    EXPECT_EQ(list.VisibleChanges, 2);
}

TEST(FakeLabelControl, RemembersTheCaptionsThatChanged) {
    FakeLabelControl label;
    label.SetCaption(QStringLiteral("a"));
    label.SetCaption(QStringLiteral("a"));
    label.SetCaption(QStringLiteral("b"));
    EXPECT_EQ(label.Captions, QStringList({QStringLiteral("a"), QStringLiteral("b")}));
}

TEST(FakeMediaPlayerControl, TakesTheSizeOfAFilmAndKeepsItWhenStopped) {
    FakeMediaPlayerControl player;
    const QString film = QStringLiteral("E:\\film.mp4");
    player.FilmSizes[film] = {9600, 5400};
    player.SetSource(film);
    EXPECT_EQ(player.Width(), 9600);
    EXPECT_EQ(player.Height(), 5400);
    player.SetSource(QString());
    EXPECT_EQ(player.Width(), 9600);
    player.SetSource(QStringLiteral("E:\\song.mp3"));
    EXPECT_EQ(player.Width(), 4800);
    EXPECT_EQ(player.Sources, QStringList({film, QString(), QStringLiteral("E:\\song.mp3")}));
}

} // namespace
