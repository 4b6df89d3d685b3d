#include "app/Layout.h"
#include "app/ControlGroups.h"
#include "tests/fakes/FakeForm1.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// The window: 12,000 by 9,000 twips; a pixel is 15 twips. Lists at 120 (3,000 wide), 3,165 (3,000
// wide) and 6,210 (5,430 wide, up to 11,640).
class LayoutTest : public testing::Test {
protected:
    LayoutTest() {
        layout.KeepDesign();
        form.Form1.Resize = [this] { layout.Form_Resize(); };
    }

    void Drag(int index, double position) {
        FakeHandleControl& handle = index == 0 ? form.Handle0 : form.Handle1;
        layout.Handle_MouseDown(index);
        layout.Handle_MouseMove(index, position - handle.Left());
        layout.Handle_MouseUp(index);
    }

    void ExpectLists(double artists, double albumsLeft, double albums, double songsLeft,
                     double songs) {
        EXPECT_DOUBLE_EQ(form.lstArtists.Left(), 120);
        EXPECT_DOUBLE_EQ(form.lstArtists.Width(), artists);
        EXPECT_DOUBLE_EQ(form.lstAlbums.Left(), albumsLeft);
        EXPECT_DOUBLE_EQ(form.lstAlbums.Width(), albums);
        EXPECT_DOUBLE_EQ(form.lstSongs.Left(), songsLeft);
        EXPECT_DOUBLE_EQ(form.lstSongs.Width(), songs);
    }

    FakeForm1 form;
    MusicLibrary library;
    bool copying = false;
    TextFitting textFitting{form.WindowManager, FittingControlsOf(form.Controls)};
    Layout layout{form.WindowManager, library, [this] { return copying; }, textFitting,
                  form.Controls};
};

} // namespace

TEST_F(LayoutTest, AMouseMoveWithoutAPressOnAHandleChangesNothing) {
    layout.Handle_MouseMove(0, -1000);
    layout.Handle_MouseMove(1, 1000);
    ExpectLists(3000, 3165, 3000, 6210, 5430);
    EXPECT_DOUBLE_EQ(form.Handle0.Left(), 3120);
    EXPECT_DOUBLE_EQ(form.Handle1.Left(), 6165);
}

TEST_F(LayoutTest, AHandleIsDarkWhileItIsDragged) {
    layout.Handle_MouseDown(1);
    EXPECT_TRUE(layout.Dragging);
    EXPECT_EQ(form.Handle1.BackColor(), SystemColor::DarkShadow3D);
    EXPECT_EQ(form.Handle0.BackColor(), SystemColor::ButtonFace);
    layout.Handle_MouseUp(1);
    EXPECT_FALSE(layout.Dragging);
    EXPECT_EQ(form.Handle1.BackColor(), SystemColor::ButtonFace);
}

TEST_F(LayoutTest, ADraggedHandleResizesTheListsAtItsSidesDownTo21Pixels) {
    const struct {
        const char* Rule;
        int Handle;
        double To, Stands;
        double Artists, AlbumsLeft, Albums, SongsLeft, Songs;
    } drags[] = {
        {"into the artists", 0, 2000, 2000, 1880, 2045, 4120, 6210, 5430},
        {"to 20 pixels of the artists", 0, 420, 435, 315, 480, 5685, 6210, 5430},
        {"into the albums", 0, 4000, 3955, 3835, 4000, 2165, 6210, 5430},
        {"to 20 pixels of the albums", 0, 5865, 5805, 5685, 5850, 315, 6210, 5430},
        {"into the gap between the lists", 0, 3140, 3120, 3000, 3165, 3000, 6210, 5430},
        {"back into the albums", 1, 5000, 5000, 3000, 3165, 1835, 5045, 6595},
        {"back to 20 pixels of the albums", 1, 3465, 3480, 3000, 3165, 315, 3525, 8115},
        {"into the songs", 1, 8000, 7955, 3000, 3165, 4790, 8000, 3640},
        // 22 pixels from the songs' right edge are at 11640 - 330 = 11310
        {"beyond 22 pixels of the songs", 1, 11311, 11280, 3000, 3165, 8115, 11325, 315},
        {"just before them", 1, 11309, 11264, 3000, 3165, 8099, 11309, 331},
    };
    for (const auto& drag : drags) {
        SCOPED_TRACE(drag.Rule);
        form.lstArtists.Move(120, 1200, 3000, 3600);
        form.lstAlbums.Move(3165, 1200, 3000, 3600);
        form.lstSongs.Move(6210, 1200, 5430, 3600);
        form.Handle0.SetLeft(3120);
        form.Handle1.SetLeft(6165);
        Drag(drag.Handle, drag.To);
        ExpectLists(drag.Artists, drag.AlbumsLeft, drag.Albums, drag.SongsLeft, drag.Songs);
        EXPECT_DOUBLE_EQ((drag.Handle == 0 ? form.Handle0 : form.Handle1).Left(), drag.Stands);
    }
}

TEST_F(LayoutTest, AResizeSharesTheWidthInTheRatioOfTheLists) {
    form.Form1.UserResize(12000 + 11430, 9000); // the lists together are 11,430 wide
    EXPECT_FLOAT_EQ(float(form.lstArtists.Width()), 6000);
    EXPECT_FLOAT_EQ(float(form.lstAlbums.Left()), 6165);
    EXPECT_FLOAT_EQ(float(form.lstAlbums.Width()), 6000);
    EXPECT_FLOAT_EQ(float(form.lstSongs.Left()), 12210);
    EXPECT_FLOAT_EQ(float(form.lstSongs.Width()), 10860);
    EXPECT_FLOAT_EQ(float(form.Handle0.Left()), 6120);
    EXPECT_FLOAT_EQ(float(form.Handle1.Left()), 12165);
}

TEST_F(LayoutTest, InANarrowWindowTheDeviceBoxAndTheSearchBoxGiveWayInTheirProportion) {
    form.Form1.UserResize(9660, 9000);
    EXPECT_LT(form.txtSearch.Width(), 3000);
    EXPECT_DOUBLE_EQ(form.Picture2.Width() / 4800, form.txtSearch.Width() / 3000);
    form.Form1.UserResize(12000, 9000);
    EXPECT_DOUBLE_EQ(form.Combo1.Width(), 4200);
    EXPECT_DOUBLE_EQ(form.txtSearch.Width(), 3000);
}

TEST_F(LayoutTest, AWiderAndHigherWindowKeepsTheDistancesFromItsEdges) {
    const std::vector<const Control*> right = {
        &form.txtSearch,      &form.lblSearch, &form.cmdSearch,      &form.cmdClear,
        &form.tbsFilter,      &form.lstSongs,  &form.frmDestination, &form.pctDestination,
        &form.txtDestination, &form.cmdBrowse, &form.cmdCopy,        &form.prgCopy,
        &form.lblFullName};
    const std::vector<const Control*> below = {
        &form.lstArtists, &form.lstAlbums,   &form.lstSongs,       &form.Handle0, &form.Handle1,
        &form.frmDP,      &form.frmTN,       &form.frmDestination, &form.cmdCopy, &form.prgCopy,
        &form.lblMessage, &form.lblFullName, &form.Divider};
    const auto rightEdge = [](const Control* one) { return one->Left() + one->Width(); };
    const auto lowerEdge = [](const Control* one) { return one->Top() + one->Height(); };
    std::map<const Control*, double> rightEdges, lowerEdges;
    for (const Control* control : right) {
        rightEdges[control] = rightEdge(control) + 2000;
    }
    for (const Control* control : below) {
        lowerEdges[control] = lowerEdge(control) + 1000;
    }
    int told = 0;
    layout.DestinationResized = [&] { ++told; };
    form.Form1.UserResize(14000, 10000);
    for (const auto& [control, edge] : rightEdges) {
        EXPECT_FLOAT_EQ(float(rightEdge(control)), float(edge));
    }
    for (const auto& [control, edge] : lowerEdges) {
        EXPECT_DOUBLE_EQ(lowerEdge(control), edge);
    }
    EXPECT_DOUBLE_EQ(rightEdge(&form.pctNoDevice), rightEdge(&form.prgCopy));
    EXPECT_DOUBLE_EQ(lowerEdge(&form.pctNoDevice), lowerEdge(&form.lstArtists));
    EXPECT_DOUBLE_EQ(form.lblFullName.Left() - form.Divider.Left(), 105);
    EXPECT_EQ(told, 1); // the destination box, of its new width
}

TEST_F(LayoutTest, AListNeverGetsLowerThan19Pixels) {
    form.Form1.UserResize(12000, 3000);
    EXPECT_DOUBLE_EQ(form.lstArtists.Height(), 285);
    EXPECT_DOUBLE_EQ(form.Form1.Height(), 1200 + 285 + 4200); // above the lists, they, below them
}

TEST_F(LayoutTest, AWindowNarrowerThanItsMinimumIsWidened) {
    form.Form1.UserResize(3000, 9000);
    const double narrowest = form.Form1.Width();
    EXPECT_GT(narrowest, 3000);
    form.Form1.UserResize(narrowest - 15, 9000);
    EXPECT_DOUBLE_EQ(form.Form1.Width(), narrowest);
    EXPECT_GE(form.lblSearch.Left(), form.Picture2.Left() + form.Picture2.Width());
    EXPECT_GT(form.txtDestination.Width(), 0);
}

TEST_F(LayoutTest, MinimisingDuringALoadOrACopyShowsTheMessageInTheTaskBar) {
    form.lblMessage.SetCaption(u"Loading music... 42%"_s);
    for (const bool loads : {false, true}) {
        for (const bool copies : {false, true}) {
            library.LoadingMusic = loads;
            copying = copies;
            form.Form1.SetState(WindowState::Minimized);
            EXPECT_EQ(form.Form1.Caption(),
                      loads || copies ? u"Loading music... 42%"_s : u"Songlift"_s);
            form.Form1.SetState(WindowState::Normal);
            EXPECT_EQ(form.Form1.Caption(), u"Songlift"_s);
        }
    }
}

TEST_F(LayoutTest, AWindowMinimisedFromMaximisedWasMaximised) {
    form.Form1.SetState(WindowState::Maximized);
    form.Form1.SetState(WindowState::Minimized);
    EXPECT_TRUE(layout.WasMaximized);
    form.Form1.SetState(WindowState::Normal);
    EXPECT_FALSE(layout.WasMaximized);
}

TEST_F(LayoutTest, TheListsAreLaidOutBetweenTheHandles) {
    form.Handle0.SetLeft(2120);
    form.Handle1.SetLeft(7120);
    layout.LayOutLists();
    ExpectLists(2000, 2165, 4955, 7165, 4475);
}

TEST_F(LayoutTest, HandlesFarOutsideTheWindowLeaveEveryListItsFloor) {
    form.Handle0.SetLeft(-90000);
    form.Handle1.SetLeft(900000);
    layout.LayOutLists();
    EXPECT_DOUBLE_EQ(form.lstArtists.Width(), 315);
    EXPECT_DOUBLE_EQ(form.lstSongs.Width(), 315);
    EXPECT_DOUBLE_EQ(form.lstSongs.Left() + form.lstSongs.Width(), 11640);
}
