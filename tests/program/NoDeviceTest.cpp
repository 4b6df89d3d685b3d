// The real window while no iPod is listed: what to do stands where the lists would be.

#include "tests/app/ProgramFixture.h"
#include "tests/program/RealWindow.h"
#include "tests/support/ITunesDBWriter.h"
#include "tests/window/QtInput.h"

#include <QAccessible>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class NoDevice : public testing::Test, protected RealWindow {
protected:
    static QString Q(const char* text) { return QString::fromUtf8(text); }

    QScrollArea& Panel() { return Widget<QScrollArea>("pctNoDevice"); }
    QLineEdit& Command() { return *Panel().findChild<QLineEdit*>(); }

    void StartWithout() {
        program.Form_Load();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&Top()));
        QCoreApplication::processEvents();
    }

    QStringList ShownTexts() {
        QStringList shown;
        for (const QLabel* text : Panel().findChildren<QLabel*>()) {
            if (text->isVisible()) {
                shown += text->text();
            }
        }
        return shown;
    }

    QRect ListsArea() {
        return Widget("lstArtists").geometry() | Widget("lstAlbums").geometry() |
               Widget("lstSongs").geometry();
    }

    void ExpectNothingIsCutOff() {
        const QList<QLabel*> texts = Panel().findChildren<QLabel*>();
        ASSERT_EQ(texts.size(), 4);
        for (const QLabel* text : texts) {
            EXPECT_GE(text->height(), text->heightForWidth(text->width()))
                << text->text().toStdString();
            EXPECT_TRUE(Panel().widget()->rect().contains(text->geometry()));
        }
        EXPECT_GT(Command().width(), Command().fontMetrics().horizontalAdvance(Command().text()));
        EXPECT_EQ(Panel().widget()->width(), Panel().viewport()->width());
    }
};

} // namespace

TEST_F(NoDevice, WhatToDoCoversTheListsAtEverySize) {
    StartWithout();
    for (const QSize size : {QSize(980, 660), QSize(1, 1), QSize(2400, 1500)}) {
        Top().resize(size);
        QCoreApplication::processEvents();
        EXPECT_TRUE(Panel().isVisible());
        EXPECT_EQ(Panel().geometry(), ListsArea());
        ExpectNothingIsCutOff();
    }
    EXPECT_EQ(controls.lblMessage.Caption(), Q("No compatible iPod detected."));
}

TEST_F(NoDevice, AllOfItIsSeenAtTheDesignSizeAndTheRestCanBeScrolledToInASmallWindow) {
    StartWithout();
    EXPECT_EQ(Panel().verticalScrollBar()->maximum(), 0);
    Top().resize(980, 480); // the picture gives way to the text
    QCoreApplication::processEvents();
    EXPECT_EQ(Panel().verticalScrollBar()->maximum(), 0);
    Top().resize(1, 1);
    QCoreApplication::processEvents();
    EXPECT_GT(Panel().verticalScrollBar()->maximum(), 0);
}

TEST_F(NoDevice, TheCommandCanBeReachedAndCopiedWithTheKeyboard) {
    StartWithout();
    Widget("tbsFilter").setFocus();
    Key(Qt::Key_Tab);
    ASSERT_TRUE(Command().hasFocus());
    QGuiApplication::clipboard()->clear();
    QTest::keyClick(Top().windowHandle(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(Top().windowHandle(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), Q("udisksctl mount -b /dev/sdX2"));
    Type("rm");
    EXPECT_EQ(Command().text(), Q("udisksctl mount -b /dev/sdX2"));
    Key(Qt::Key_Tab);
    EXPECT_TRUE(Widget("chkArtist").hasFocus());
}

TEST_F(NoDevice, AScreenReaderHearsTheWholeOfIt) {
    StartWithout();
    QStringList heard;
    for (QLabel* text : Panel().findChildren<QLabel*>()) {
        heard += QAccessible::queryAccessibleInterface(text)->text(QAccessible::Name);
    }
    EXPECT_EQ(heard,
              QStringList({Q("Connect your iPod"),
                           Q("Plug it in, and its library appears here by itself."),
                           Q("Songlift needs it mounted as a drive, and most desktops see to "
                             "that.\nOn one that does not, open a terminal and type:"),
                           Q("Put the iPod's data partition in the place of sdX2: \"lsblk\" lists "
                             "them all.")}));
    QAccessibleInterface* command = QAccessible::queryAccessibleInterface(&Command());
    EXPECT_EQ(command->text(QAccessible::Name), Q("Command"));
    EXPECT_EQ(command->text(QAccessible::Value), Q("udisksctl mount -b /dev/sdX2"));
    EXPECT_TRUE(command->state().readOnly);
}

TEST_F(NoDevice, ItIsGoneWhenAnIpodIsThereAndBackWhenNoneIs) {
    StartWithout();
    Command().setFocus();
    Start(SmallLibrary());
    EXPECT_FALSE(Panel().isVisible());
    EXPECT_TRUE(Widget("lstArtists").hasFocus());
    EXPECT_EQ(controls.lstArtists.ListCount(), 3);

    drives.Mounted.clear();
    Raise(controls.Combo1.DropDown);
    EXPECT_TRUE(Panel().isVisible());
}

TEST_F(NoDevice, WhenTheChosenIpodIsGoneAndAnotherListedItAsksToChooseOne) {
    Start(SmallLibrary());
    controls.lstArtists.SetSelected(0, true);
    ASSERT_GT(controls.prgCopy.Value(), 0);
    files.AddDrive(Q("F:"));
    files.AddFile(Q("F:\\iPod_Control\\iTunes\\iTunesDB"), WriteITunesDB(SmallLibrary()));
    drives.Mounted = {{QLatin1Char('F'), Q("OTHER")}};

    Raise(controls.Combo1.DropDown);

    EXPECT_EQ(ShownTexts(),
              QStringList({Q("Choose an iPod"),
                           Q("The list above names those that are connected.\nIf yours is missing, "
                             "connect it and open the list again.")}));
    EXPECT_FALSE(Command().isVisible());
    EXPECT_EQ(Panel().accessibleName(), Q("Choose an iPod"));
    EXPECT_EQ(controls.prgCopy.Value(), 0);

    controls.Combo1.SetText(Q("(F:) OTHER"));
    EXPECT_FALSE(Panel().isVisible());
    EXPECT_EQ(controls.lstArtists.ListCount(), 3);
}

TEST_F(NoDevice, OfAnIpodWithoutMusicItSaysSo) {
    Start({});
    EXPECT_EQ(ShownTexts(),
              QStringList({Q("No music on this iPod"),
                           Q("Songlift found no songs and no videos in its library.\nOnce there "
                             "are some, connect it and start Songlift again.")}));
    EXPECT_FALSE(Command().isVisible());
    EXPECT_EQ(controls.lblMessage.Caption(), Q("No music found."));
}

TEST_F(NoDevice, ItTakesNoPartInTheOrderOfTabsWhileAnIpodIsListed) {
    Start(SmallLibrary());
    Widget("lstSongs").setFocus();
    Key(Qt::Key_Tab);
    EXPECT_TRUE(Widget("chkArtist").hasFocus());
}
