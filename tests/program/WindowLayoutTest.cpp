// The real window's layout: nothing overlaps, nothing is cut off, the splitters follow the mouse.

#include "tests/app/ProgramFixture.h"
#include "tests/program/RealWindow.h"
#include "tests/window/QtInput.h"

#include <QDialog>
#include <QGroupBox>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class WindowLayout : public testing::Test, protected RealWindow {
protected:
    static bool IsMeantToOverlap(const QWidget& one, const QWidget& other) {
        // The copy button stands over the frame around the destination.
        return (one.objectName() == QLatin1String("cmdCopy") &&
                other.objectName() == QLatin1String("frmDestination")) ||
               (other.objectName() == QLatin1String("cmdCopy") &&
                one.objectName() == QLatin1String("frmDestination"));
    }

    static QList<QWidget*> VisibleChildren(const QWidget& parent) {
        QList<QWidget*> children;
        for (QWidget* child :
             parent.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (child->isVisible() && !child->objectName().isEmpty()) {
                children.append(child);
            }
        }
        return children;
    }

    void ExpectTidy() {
        for (const char* name :
             {"", "Picture2", "frmDP", "frmTN", "frmDestination", "pctDestination"}) {
            const QWidget& parent = *name == '\0' ? Top() : Widget(name);
            const QList<QWidget*> children = VisibleChildren(parent);
            for (qsizetype i = 0; i < children.size(); ++i) {
                const QWidget& child = *children[i];
                EXPECT_TRUE(parent.rect().contains(child.geometry()))
                    << child.objectName().toStdString() << " sticks out";
                for (qsizetype j = i + 1; j < children.size(); ++j) {
                    EXPECT_TRUE(!child.geometry().intersects(children[j]->geometry()) ||
                                IsMeantToOverlap(child, *children[j]))
                        << child.objectName().toStdString() << " overlaps "
                        << children[j]->objectName().toStdString();
                }
            }
        }
    }

    void ExpectCaptionsFit() {
        for (const char* name :
             {"cmdSearch", "cmdClear", "cmdBrowse", "cmdCopy", "chkArtist", "chkAlbum",
              "chkArtistName", "chkAlbumName", "chkTrackNum", "lblSearch"}) {
            const QWidget& widget = Widget(name);
            EXPECT_GE(widget.width(), widget.sizeHint().width()) << name;
            EXPECT_GE(widget.height(), widget.sizeHint().height()) << name;
        }
    }

    double Right(const Control& control) { return control.Left() + control.Width(); }
};

} // namespace

TEST_F(WindowLayout, IsTidyAtItsDesignSize) {
    Start(SmallLibrary());
    ExpectTidy();
    ExpectCaptionsFit();
}

TEST_F(WindowLayout, IsTidyAtItsSmallest) {
    Start(SmallLibrary());
    Top().resize(1, 1);
    QCoreApplication::processEvents();
    ExpectTidy();
    ExpectCaptionsFit();
    EXPECT_GT(controls.lstArtists.Height(), 0);
}

TEST_F(WindowLayout, IsTidyWhenItIsLarge) {
    Start(SmallLibrary());
    Top().resize(2400, 1500);
    QCoreApplication::processEvents();
    ExpectTidy();
    EXPECT_EQ(Widget("prgCopy").geometry().right(), Widget("lstSongs").geometry().right());
}

TEST_F(WindowLayout, KeepsTheListsRatioThroughManySizes) {
    Start(SmallLibrary());
    const double share = controls.lstArtists.Width() / controls.lstSongs.Width();
    for (int width = 900; width < 1600; width += 7) {
        Top().resize(width, 700);
    }
    Top().resize(980, 660);
    QCoreApplication::processEvents();
    EXPECT_NEAR(controls.lstArtists.Width() / controls.lstSongs.Width(), share, 0.001);
    ExpectTidy();
}

TEST_F(WindowLayout, ASplitterFollowsTheMouse) {
    Start(SmallLibrary());
    const double before = controls.lstArtists.Width();
    Drag("Handle0", 60);
    EXPECT_NEAR(controls.lstArtists.Width(), before + 60 * 15, 4 * 15);
    EXPECT_DOUBLE_EQ(controls.lstAlbums.Left(), Right(controls.lstArtists) + 45);
    ExpectTidy();
}

TEST_F(WindowLayout, ASplitterStopsAtTheSmallestList) {
    Start(SmallLibrary());
    Drag("Handle1", 5000);
    EXPECT_DOUBLE_EQ(controls.lstSongs.Width(), 315);
    Drag("Handle0", -5000);
    EXPECT_DOUBLE_EQ(controls.lstArtists.Width(), 315);
    ExpectTidy();
}

TEST_F(WindowLayout, ASplitterIsDarkOnlyWhileItIsHeld) {
    Start(SmallLibrary());
    Drag("Handle0", 10);
    EXPECT_EQ(controls.Handle0.BackColor(), SystemColor::ButtonFace);
}

TEST_F(WindowLayout, ASplitterLetsGoWhenAMessageTakesTheMouseAway) {
    Start(SmallLibrary());
    QWidget& handle = Widget("Handle0");
    QtInput::Press(handle, handle.rect().center());
    ASSERT_EQ(controls.Handle0.BackColor(), SystemColor::DarkShadow3D);
    {
        QDialog message(&Top());
        message.setWindowModality(Qt::ApplicationModal);
        message.show();
        QCoreApplication::processEvents();
        QtInput::Release(handle, handle.rect().center());
    }
    const double width = controls.lstArtists.Width();
    QtInput::MoveTo(handle, QPoint(0, 30));
    QtInput::MoveTo(handle, QPoint(2, 40));
    EXPECT_EQ(controls.Handle0.BackColor(), SystemColor::ButtonFace);
    EXPECT_EQ(controls.lstArtists.Width(), width);
}

TEST_F(WindowLayout, TheGenreBoxThatDoesNothingIsNotShown) {
    Start(SmallLibrary());
    EXPECT_FALSE(Widget("chkGenre").isVisible());
}

TEST_F(WindowLayout, EveryControlSpeaksANameOrItsOwnText) {
    Start(SmallLibrary());
    const std::pair<const char*, const char*> names[] = {
        {"Combo1", "iPod"},      {"lstArtists", "Artists"}, {"lstAlbums", "Albums"},
        {"lstSongs", "Songs"},   {"txtSearch", "Search"},   {"txtDestination", "Destination"},
        {"prgCopy", "Progress"},
    };
    for (const auto& [control, name] : names) {
        EXPECT_EQ(Widget(control).accessibleName(), QString::fromLatin1(name));
    }
}

TEST_F(WindowLayout, TheSizeAndTheSplittersComeBack) {
    Start(SmallLibrary());
    // With a title bar no larger than the screen, to whose size it would be cut.
    const QSize size =
        Top().minimumSize().expandedTo(Top().screen()->availableSize() - QSize(10, 30));
    Top().resize(size);
    Drag("Handle0", 40);
    QCoreApplication::processEvents();
    const double artists = controls.lstArtists.Width();
    const double albums = controls.lstAlbums.Width();
    Top().close();

    RealWindow again;
    again.store.Values = store.Values;
    again.Start(SmallLibrary());
    EXPECT_EQ(again.Top().size(), size);
    EXPECT_NEAR(again.controls.lstArtists.Width(), artists, 8);
    EXPECT_NEAR(again.controls.lstAlbums.Width(), albums, 8);
}
