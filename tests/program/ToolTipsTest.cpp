// The words that the window has for controls whose captions do not say it all.

#include "tests/app/ProgramFixture.h"
#include "tests/program/RealWindow.h"

#include <QAccessible>
#include <QAction>
#include <QTabBar>

#include <gtest/gtest.h>

namespace {

class ToolTips : public testing::Test, protected RealWindow {};

} // namespace

TEST_F(ToolTips, StandWhereACaptionNeedsAWord) {
    Start(SmallLibrary());
    for (const char* name : {"Combo1", "cmdClear", "chkArtist", "chkAlbum", "chkArtistName",
                             "chkAlbumName", "chkTrackNum", "cmdCopy"}) {
        EXPECT_FALSE(Widget(name).toolTip().isEmpty()) << name;
        EXPECT_EQ(
            QAccessible::queryAccessibleInterface(&Widget(name))->text(QAccessible::Description),
            Widget(name).toolTip())
            << name;
    }
    for (int tab = 0; tab < 3; ++tab) {
        EXPECT_FALSE(Widget<QTabBar>("tbsFilter").tabToolTip(tab).isEmpty());
    }
    EXPECT_EQ(Top().findChild<QAction*>(QStringLiteral("mnuPreview"))->toolTip(),
              QStringLiteral("Plays it from the iPod, in a window of its own"));
}

TEST_F(ToolTips, AreMissingWhereTheCaptionSaysItAll) {
    Start(SmallLibrary());
    for (const char* name : {"cmdSearch", "cmdBrowse", "lblSearch", "prgCopy", "lblMessage"}) {
        EXPECT_EQ(Widget(name).toolTip(), QString()) << name;
    }
}

TEST_F(ToolTips, TheCopyButtonTellsWhatBecomesOfTmp) {
    Start(SmallLibrary());
    EXPECT_EQ(controls.cmdCopy.ToolTip(),
              QStringLiteral("Starts and stops copying what is ticked. A folder \"tmp\" in the "
                             "destination is used on the way, and deleted at the end."));
}

TEST_F(ToolTips, ThoseOfDestinationAndFullNameStillAppearOnlyForWhatDoesNotFit) {
    Start(SmallLibrary());
    EXPECT_EQ(controls.txtDestination.ToolTip(), QString());
    EXPECT_EQ(controls.lblFullName.ToolTip(), QString());
    const QString path = QStringLiteral("D:\\") + QString(300, QLatin1Char('x'));
    controls.txtDestination.SetText(path);
    EXPECT_EQ(controls.txtDestination.ToolTip(), path);
}

TEST_F(ToolTips, TheListOfIpodsIsNamedByThePictureBesideIt) {
    Start(SmallLibrary());
    const auto labels =
        QAccessible::queryAccessibleInterface(&Widget("Combo1"))->relations(QAccessible::Label);
    ASSERT_EQ(labels.size(), 1);
    EXPECT_EQ(labels[0].first->text(QAccessible::Name), QStringLiteral("iPod"));
}
