// The words that the window has for controls whose captions do not say it all, for eyes and ears.

#include "tests/program/RealWindow.h"

#include <QAccessible>
#include <QAction>
#include <QTabBar>

using namespace Qt::StringLiterals;

namespace {

class ToolTips : public testing::Test, protected RealWindow {
protected:
    ToolTips() { Start(); }
};

} // namespace

TEST_F(ToolTips, AreShownWhereACaptionNeedsAnExplanationAndNowhereElse) {
    for (const char* name : {"Combo1", "cmdClear", "chkArtist", "chkAlbum", "chkArtistName",
                             "chkAlbumName", "chkTrackNum", "cmdCopy"}) {
        const QWidget& widget = Widget(name);
        EXPECT_FALSE(widget.toolTip().isEmpty()) << name;
        EXPECT_EQ(
            QAccessible::queryAccessibleInterface(&Widget(name))->text(QAccessible::Description),
            widget.toolTip())
            << name;
    }
    for (int tab = 0; tab < 3; ++tab) {
        EXPECT_FALSE(Widget<QTabBar>("tbsFilter").tabToolTip(tab).isEmpty());
    }
    for (const char* name : {"cmdSearch", "cmdBrowse", "lblSearch", "prgCopy", "lblMessage"}) {
        EXPECT_EQ(Widget(name).toolTip(), QString()) << name;
    }
    EXPECT_FALSE(Widget("chkGenre").isVisible()); // a box that does nothing
}

TEST_F(ToolTips, ExplainTmpAndThePreviewAndShowWhatDoesNotFit) {
    EXPECT_EQ(controls.cmdCopy.ToolTip(),
              u"Starts and stops copying what is ticked. A folder \"tmp\" in the destination is "
              u"used on the way, and deleted at the end."_s);
    EXPECT_EQ(Top().findChild<QAction*>(u"mnuPreview"_s)->toolTip(),
              u"Plays it from the iPod, in a window of its own"_s);
    EXPECT_EQ(controls.lblFullName.ToolTip(), QString());
    EXPECT_EQ(controls.txtDestination.ToolTip(), QString());
    const QString path = u"D:\\"_s + u"x"_s.repeated(300);
    controls.txtDestination.SetText(path);
    EXPECT_EQ(controls.txtDestination.ToolTip(), path);
}

TEST_F(ToolTips, EveryControlSpeaksANameOrItsOwnText) {
    const std::pair<const char*, QString> names[] = {
        {"lstArtists", u"Artists"_s}, {"lstAlbums", u"Albums"_s},
        {"lstSongs", u"Songs"_s},     {"tbsFilter", u"Filter"_s},
        {"txtSearch", u"Search"_s},   {"txtDestination", u"Destination"_s},
        {"prgCopy", u"Progress"_s},   {"Combo1", u"iPod"_s}};
    for (const auto& [control, name] : names) {
        EXPECT_EQ(Widget(control).accessibleName(), name);
    }
    // The list of iPods is named by the picture beside it.
    const auto labels =
        QAccessible::queryAccessibleInterface(&Widget("Combo1"))->relations(QAccessible::Label);
    ASSERT_EQ(labels.size(), 1);
    EXPECT_EQ(labels[0].first->text(QAccessible::Name), u"iPod"_s);
}
