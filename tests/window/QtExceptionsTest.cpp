// What handlers throw never passes Qt: it is told where the user has acted, and reaches the calling
// code where the program has.

#include "platform/RuntimeError.h"
#include "platform/qt/QtFrames.h"
#include "platform/qt/QtPopupMenu.h"
#include "platform/qt/QtTextControl.h"
#include "platform/qt/QtWindow.h"
#include "tests/window/ControlKit.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace {

void Fail() {
    throw RuntimeError(ErrorNumber::Overflow);
}

class QtExceptions : public testing::Test {
protected:
    QtExceptions() {
        QtFrames::SetTeller(
            [this](const std::exception& failure) { told.append(ErrorOf(failure).Description); });
    }
    ~QtExceptions() override { QtFrames::SetTeller({}); }

    /// Makes Qt raise a failing event, and has the failure reported.
    void ExpectTold(const char* what, const std::function<void()>& act) {
        SCOPED_TRACE(what);
        told.clear();
        EXPECT_NO_THROW(act());
        EXPECT_EQ(told.value(0), u"Overflow"_s);
    }

    QStringList told;
};

TEST_F(QtExceptions, OfAControlThatTheUserUsesAreReported) {
    const std::unique_ptr<ControlKit> kit = MakeQtKit();
    ListControl& list = kit->List;
    list.Fill({{u"a"_s}, {u"b"_s}, {u"c"_s}});
    kit->Combo.AddItem(u"(E:) ONE"_s);
    kit->Combo.DropDown = kit->Combo.Click = kit->Text.GotFocus = kit->Text.Change = Fail;
    kit->Label.Click = kit->Button.Click = kit->Check.Click = kit->Tabs.Click = Fail;
    kit->Handle.MouseUp = [](const MouseState&) { Fail(); };
    kit->Timer.Timer = list.Click = Fail;
    ExpectTold("click", [&] { kit->ClickRow(list, 1); });
    ExpectTold("key", [&] { kit->PressKey(list, Qt::Key_Down); });
    list.Click = {};
    list.ItemCheck = [](int) { Fail(); };
    ExpectTold("check box", [&] { kit->ClickCheckBox(list, 1); });
    list.MouseDown = list.MouseMove = kit->Handle.MouseUp;
    ExpectTold("menu", [&] { kit->RightClickRow(list, 0); });
    ExpectTold("move", [&] { kit->HoverAt(list, 5, 5); });
    ExpectTold("drop down", [&] { kit->Click(kit->Combo); });
    ExpectTold("choice", [&] { kit->ChooseEntry(0); });
    ExpectTold("focus", [&] { kit->Click(kit->Text); });
    ExpectTold("typing", [&] { kit->TypeText(u"x"_s); });
    ExpectTold("label", [&] { kit->Click(kit->Label); });
    ExpectTold("button", [&] { kit->Click(kit->Button); });
    ExpectTold("check", [&] { kit->Click(kit->Check); });
    ExpectTold("tab", [&] { kit->ClickTab(1); });
    ExpectTold("same tab", [&] { kit->ClickTab(1); });
    ExpectTold("handle", [&] { kit->DragHandle(5); });
    kit->Timer.SetEnabled(true);
    ExpectTold("timer", [&] { kit->LetTimePass(); });
}

TEST_F(QtExceptions, OfAnEventThatAHandlerLetsInAreReportedToo) {
    const std::unique_ptr<ControlKit> kit = MakeQtKit();
    kit->Text.Change = Fail;
    kit->Text.GotFocus = [&] { kit->TypeText(u"x"_s); };
    ExpectTold("typing", [&] { kit->Text.SetFocus(); });
}

TEST_F(QtExceptions, OfAMenuAndAWindowThatTheUserChangesAreReportedAndDoNotKeepItOpen) {
    QtWindow window(nullptr, u"window"_s);
    QtPopupMenu menu(window.Widget(), u"menu"_s, u"entry"_s, u"Preview"_s);
    menu.Entry.Click = Fail;
    ExpectTold("menu", [&] { window.Widget()->findChild<QAction*>(u"entry"_s)->trigger(); });
    window.Show();
    window.Resize = Fail;
    window.QueryUnload = [](bool&, UnloadMode) { Fail(); };
    ExpectTold("resize", [&] { window.Widget()->resize(345, 234); });
    ExpectTold("state", [&] { window.Widget()->showMaximized(); });
    ExpectTold("close", [&] { window.Widget()->close(); });
    EXPECT_FALSE(window.Widget()->isVisible());
}

TEST_F(QtExceptions, OfTheProgramReachItOnceQtIsDone) {
    const std::unique_ptr<ControlKit> kit = MakeQtKit();
    auto& box = dynamic_cast<QtTextControl&>(kit->Text);
    // Who listens later is not heard any more when a failure passes Qt.
    int texts = 0;
    int focuses = 0;
    QObject listener;
    kit->Button.SetFocus();
    QObject::connect(box.Widget(), &QLineEdit::textChanged, &listener, [&] { ++texts; });
    QObject::connect(qApp, &QApplication::focusChanged, &listener, [&] { ++focuses; });
    box.Change = box.GotFocus = box.LostFocus = Fail;
    EXPECT_THROW(box.SetText(u"x"_s), RuntimeError);
    EXPECT_EQ(texts, 1);
    EXPECT_THROW(box.SetFocus(), RuntimeError);
    EXPECT_EQ(focuses, 1);
    EXPECT_THROW(box.SetEnabled(false), RuntimeError);
    EXPECT_EQ(focuses, 2);
    EXPECT_EQ(told, QStringList());
}

TEST_F(QtExceptions, OfAWindowThatTheProgramChangesReachItOnceQtIsDone) {
    QtWindow window(nullptr, u"window"_s);
    window.Show();
    window.Resize = Fail;
    window.QueryUnload = [](bool&, UnloadMode) { Fail(); };
    EXPECT_THROW(window.SetSize(6000, 4500), RuntimeError);
    EXPECT_EQ(window.Width(), 6000);
    EXPECT_THROW(window.SetState(WindowState::Maximized), RuntimeError);
    EXPECT_EQ(window.State(), WindowState::Maximized);
    EXPECT_THROW(window.Unload(), RuntimeError);
    EXPECT_FALSE(window.Widget()->isVisible());
    EXPECT_EQ(told, QStringList());
}

} // namespace
