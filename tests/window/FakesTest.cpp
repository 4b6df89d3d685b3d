// What the fakes refuse and count, since tests would pass without it.

#include "tests/fakes/FakeForm1.h"
#include "tests/fakes/FakeServices.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

TEST(AFake, FailsTheTestWhoseUserGivesAnAnswerWithoutAButtonOrLeavesAModalWindowOpen) {
    FakeWindow window;
    window.QueryUnload = [](bool& cancel, UnloadMode) { cancel = true; };
    EXPECT_THROW(window.ShowModal(), std::logic_error);
    FakeMessages messages;
    messages.Answers = {MessageAnswer::Yes};
    EXPECT_THROW(messages.Show({}, {}, MessageButtons::OK, MessageIcon::Critical),
                 std::logic_error);
}

TEST(FakeForm1, ItsControlsShareOneFocusAndADisabledFrameKeepsTheUserOut) {
    FakeForm1 form;
    form.Controls.lstSongs.SetFocus();
    form.txtSearch.UserEnter();
    EXPECT_FALSE(form.lstSongs.HasFocus());
    EXPECT_EQ(form.WindowManager.GetFocus(), form.txtSearch.Handle());
    EXPECT_EQ(form.WindowManager.GetActiveWindow(), form.Form1.Handle());
    form.frmDestination.SetEnabled(false);
    form.Picture2.SetEnabled(false);
    form.txtDestination.Change = form.Combo1.DropDown = [] { ADD_FAILURE() << "an event"; };
    form.txtDestination.UserType(u"x"_s);
    form.Combo1.UserDropDown();
    EXPECT_EQ(form.txtDestination.Text(), QString());
}

TEST(FakeListControl, CountsWhatWouldBePaintedOnlyWhileVisible) {
    FakeListControl list;
    list.SetVisible(false);
    list.Fill({{u"a"_s, false}});
    list.SetSelected(0, true);
    list.SetListIndex(0);
    EXPECT_EQ(list.ChangesWhileVisible, 0);
    list.SetVisible(true);
    list.SetSelected(0, false);
    EXPECT_EQ(list.ChangesWhileVisible, 1);
    EXPECT_EQ(list.VisibleChanges, 2);
}

} // namespace
