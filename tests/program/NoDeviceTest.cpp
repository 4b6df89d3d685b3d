// The real window while no iPod is listed: it says what to do in place of the lists.

#include "tests/program/RealWindow.h"
#include "tests/support/ITunesDBWriter.h"

#include <QAccessible>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {

class NoDevice : public testing::Test, protected RealWindow {
protected:
    const QString command = u"udisksctl mount -b /dev/sdX2"_s;

    QScrollArea& Panel() { return Widget<QScrollArea>("pctNoDevice"); }
    QLineEdit& Command() { return *Panel().findChild<QLineEdit*>(); }
    int Hidden() { return Panel().verticalScrollBar()->maximum(); }

    /// What is shown, as a screen reader hears it.
    QStringList ShownTexts() {
        QStringList shown;
        for (QLabel* text : Panel().findChildren<QLabel*>()) {
            if (text->isVisible()) {
                EXPECT_EQ(QAccessible::queryAccessibleInterface(text)->text(QAccessible::Name),
                          text->text());
                shown += text->text();
            }
        }
        return shown;
    }

    void ExpectNothingIsCutOff() {
        for (const QLabel* text : Panel().findChildren<QLabel*>()) {
            EXPECT_GE(text->height(), text->heightForWidth(text->width()))
                << text->text().toStdString();
            EXPECT_TRUE(Panel().widget()->rect().contains(text->geometry()));
        }
        EXPECT_GT(Command().width(), Command().fontMetrics().horizontalAdvance(command));
        EXPECT_EQ(Panel().widget()->width(), Panel().viewport()->width());
    }
};

} // namespace

TEST_F(NoDevice, TheInstructionsCoverTheListsAtEverySizeAndAreCompleteInAllButSmallWindows) {
    StartWithout();
    EXPECT_EQ(Hidden(), 0);
    for (const QSize size : {QSize(980, 660), QSize(980, 480), QSize(1, 1), QSize(2400, 1500)}) {
        Resize(size.width(), size.height());
        EXPECT_TRUE(Panel().isVisible());
        EXPECT_EQ(Panel().geometry(), Widget("lstArtists").geometry() |
                                          Widget("lstAlbums").geometry() |
                                          Widget("lstSongs").geometry());
        ExpectNothingIsCutOff();
        // In a low window the picture gives way; in a small one the rest can be scrolled to.
        EXPECT_EQ(Hidden() > 0, size.width() == 1) << size.height();
    }
    EXPECT_EQ(controls.lblMessage.Caption(), u"No compatible iPod detected."_s);
}

TEST_F(NoDevice, TheCommandCanBeReachedAndCopiedWithTheKeyboard) {
    StartWithout();
    Widget("tbsFilter").setFocus();
    Key(Qt::Key_Tab);
    ASSERT_TRUE(Command().hasFocus());
    QGuiApplication::clipboard()->clear();
    QTest::keyClick(Top().windowHandle(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(Top().windowHandle(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), command);
    Type("rm");
    EXPECT_EQ(Command().text(), command);
    Key(Qt::Key_Tab);
    EXPECT_TRUE(Widget("chkArtist").hasFocus());
}

TEST_F(NoDevice, AllOfItIsShownAndHeard) {
    StartWithout();
    EXPECT_EQ(ShownTexts(),
              QStringList({u"Connect your iPod"_s,
                           u"Plug it in, and its library appears here by itself."_s,
                           u"Songlift needs it mounted as a drive, and most desktops see to that.\n"
                           u"On one that does not, open a terminal and type:"_s,
                           u"Put the iPod's data partition in the place of sdX2: \"lsblk\" lists "
                           u"them all."_s}));
    QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(&Command());
    EXPECT_EQ(heard->text(QAccessible::Name), u"Command"_s);
    EXPECT_EQ(heard->text(QAccessible::Value), command);
    EXPECT_TRUE(heard->state().readOnly);
}

TEST_F(NoDevice, ItIsHiddenWhileAnIpodIsThereAndShownWhileNoneIs) {
    StartWithout();
    ASSERT_TRUE(controls.timScan.Enabled());
    Command().setFocus();
    Start(); // plugs one in
    EXPECT_FALSE(Panel().isVisible());
    EXPECT_TRUE(Widget("lstArtists").hasFocus());
    EXPECT_EQ(controls.lstArtists.ListCount(), 3);
    Widget("lstSongs").setFocus();
    Key(Qt::Key_Tab);
    EXPECT_TRUE(Widget("chkArtist").hasFocus());

    Unplug();
    Raise(controls.Combo1.DropDown);
    EXPECT_TRUE(Panel().isVisible());
}

TEST_F(NoDevice, WhenTheChosenIpodIsGoneAndAnotherListedItAsksToChooseOne) {
    Start();
    controls.lstArtists.SetSelected(0, true);
    ASSERT_GT(controls.prgCopy.Value(), 0);
    files.AddDrive(u"F:"_s);
    files.AddFile(u"F:\\iPod_Control\\iTunes\\iTunesDB"_s, WriteITunesDB(SmallLibrary()));
    drives.Mounted = {{u'F', u"OTHER"_s}};

    Raise(controls.Combo1.DropDown);

    EXPECT_EQ(ShownTexts(),
              QStringList({u"Choose an iPod"_s,
                           u"The list above names those that are connected.\nIf "
                           u"yours is missing, connect it and open the list again."_s}));
    EXPECT_FALSE(Command().isVisible());
    EXPECT_EQ(Panel().accessibleName(), u"Choose an iPod"_s);
    EXPECT_EQ(controls.prgCopy.Value(), 0);

    controls.Combo1.SetText(u"(F:) OTHER"_s);
    EXPECT_FALSE(Panel().isVisible());
    EXPECT_EQ(controls.lstArtists.ListCount(), 3);
}

TEST_F(NoDevice, AnIpodThatCannotBeReadIsReported) {
    files.FailNthCall(FileCall::Read, 1, ErrorNumber::DeviceIOError);
    Start(SmallLibrary());
    EXPECT_EQ(ShownTexts(), QStringList({u"This iPod's library cannot be read"_s,
                                         u"Its music may still be there.\nConnect it again, and "
                                         "start Songlift again."_s}));
}

TEST_F(NoDevice, AnIpodWithoutMusicIsReported) {
    Start({});
    EXPECT_EQ(ShownTexts(),
              QStringList({u"No music on this iPod"_s,
                           u"Songlift found no songs and no videos in its library.\nOnce there are "
                           u"some, connect it and start Songlift again."_s}));
    EXPECT_FALSE(Command().isVisible());
    EXPECT_EQ(controls.lblMessage.Caption(), u"No music found."_s);
}
