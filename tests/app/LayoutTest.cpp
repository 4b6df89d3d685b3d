#include "app/Layout.h"
#include "app/ControlGroups.h"
#include "tests/fakes/FakeForm1.h"

#include <gtest/gtest.h>

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

TEST_F(LayoutTest, DraggingTheFirstHandleIntoTheArtists) {
    Drag(0, 2000);
    ExpectLists(1880, 2045, 4120, 6210, 5430); // 6210-2000-90
    EXPECT_DOUBLE_EQ(form.Handle0.Left(), 2000);
}

TEST_F(LayoutTest, DraggingTheFirstHandleToTheFarLeftStopsWithTheArtists21PixelsWide) {
    Drag(0, 420); // exactly 20 pixels right of the list's left edge: not far enough
    ExpectLists(315, 480, 5685, 6210, 5430); // 6210-120-315-90
    EXPECT_DOUBLE_EQ(form.Handle0.Left(), 435);
}

TEST_F(LayoutTest, DraggingTheFirstHandleIntoTheAlbums) {
    Drag(0, 4000);
    ExpectLists(3835, 4000, 2165, 6210, 5430); // 4000-120-45, 6210-4000-45
    EXPECT_DOUBLE_EQ(form.Handle0.Left(), 3955);
}

TEST_F(LayoutTest, DraggingTheFirstHandlePastTheAlbumsStopsWithThese21PixelsWide) {
    Drag(0, 5865);                            // exactly 20 pixels left of the albums' right edge
    ExpectLists(5685, 5850, 315, 6210, 5430); // 6210-120-405, 6210-360
    EXPECT_DOUBLE_EQ(form.Handle0.Left(), 5805);
}

TEST_F(LayoutTest, InTheGapBetweenTheListsNothingIsResized) {
    Drag(0, 3140);
    ExpectLists(3000, 3165, 3000, 6210, 5430);
    EXPECT_DOUBLE_EQ(form.Handle0.Left(), 3120);
}

TEST_F(LayoutTest, DraggingTheSecondHandleIntoTheAlbums) {
    Drag(1, 5000);
    ExpectLists(3000, 3165, 1835, 5045, 6595); // 11640-5000-45
    EXPECT_DOUBLE_EQ(form.Handle1.Left(), 5000);
}

TEST_F(LayoutTest, DraggingTheSecondHandleToTheFarLeftStopsWithTheAlbums21PixelsWide) {
    Drag(1, 3465);
    ExpectLists(3000, 3165, 315, 3525, 8115); // 11640-3165-315-45
    EXPECT_DOUBLE_EQ(form.Handle1.Left(), 3480);
}

TEST_F(LayoutTest, DraggingTheSecondHandleIntoTheSongs) {
    Drag(1, 8000);
    ExpectLists(3000, 3165, 4790, 8000, 3640); // 8000-3165-45
    EXPECT_DOUBLE_EQ(form.Handle1.Left(), 7955);
}

TEST_F(LayoutTest, TheSecondHandleStops22PixelsFromTheSongsRightEdge) {
    Drag(1, 11311);                            // not yet: 22 pixels are 330 twips, 11640-330=11310
    ExpectLists(3000, 3165, 8115, 11325, 315); // 11640-3120-405
    EXPECT_DOUBLE_EQ(form.Handle1.Left(), 11280);
}

TEST_F(LayoutTest, JustBeforeThe22PixelsTheSongsAreNarrowerThanTheFloorForOnePosition) {
    Drag(1, 11309);
    ExpectLists(3000, 3165, 8099, 11309, 331);
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

TEST_F(LayoutTest, TheTabStripRunsToTheEdgeOfTheWindow) {
    form.Form1.UserResize(15000, 9000);
    EXPECT_DOUBLE_EQ(form.tbsFilter.Width(), 15000 - 120);
}

TEST_F(LayoutTest, TheRightHandControlsKeepTheirDistanceFromTheRightEdge) {
    form.Form1.UserResize(14000, 9000); // 2,000 wider
    EXPECT_DOUBLE_EQ(form.txtSearch.Left(), 8000);
    EXPECT_DOUBLE_EQ(form.lblSearch.Left(), 7400);
    EXPECT_DOUBLE_EQ(form.cmdSearch.Left(), 11120);
    EXPECT_DOUBLE_EQ(form.cmdClear.Left(), 12440);
    EXPECT_DOUBLE_EQ(form.cmdCopy.Left(), 11000);
    EXPECT_DOUBLE_EQ(form.frmDestination.Width(), 8180);
    EXPECT_DOUBLE_EQ(form.pctDestination.Width(), 7940);
    EXPECT_DOUBLE_EQ(form.cmdBrowse.Left(), 6740);
    EXPECT_DOUBLE_EQ(form.txtDestination.Width(), 6680);
    EXPECT_DOUBLE_EQ(form.prgCopy.Width(), 13520);
    EXPECT_DOUBLE_EQ(form.lblFullName.Width(), 8720);
}

TEST_F(LayoutTest, InANarrowWindowTheDeviceBoxAndTheSearchBoxGiveWayInTheirProportion) {
    // Of 9,660 twips 120 + 90 + 600 + 3,000 go to what stands around the two: they get 5,850,
    // three quarters of their 7,800.
    form.Form1.UserResize(9660, 9000);
    EXPECT_DOUBLE_EQ(form.Picture2.Width(), 3600);
    EXPECT_DOUBLE_EQ(form.Combo1.Width(), 3000);
    EXPECT_DOUBLE_EQ(form.lblSearch.Left(), 3810);
    EXPECT_DOUBLE_EQ(form.txtSearch.Left(), 4410);
    EXPECT_DOUBLE_EQ(form.txtSearch.Width(), 2250);
    form.Form1.UserResize(12000, 9000);
    EXPECT_DOUBLE_EQ(form.Combo1.Width(), 4200);
    EXPECT_DOUBLE_EQ(form.txtSearch.Width(), 3000);
}

TEST_F(LayoutTest, TheDestinationBoxIsToldOfItsNewWidth) {
    int told = 0;
    layout.DestinationResized = [&] { ++told; };
    form.Form1.UserResize(14000, 9000);
    EXPECT_EQ(told, 1);
}

TEST_F(LayoutTest, TheListsAndHandlesTakeTheHeightThatTheBottomMarginLeaves) {
    form.Form1.UserResize(12000, 10000); // 1,000 higher
    EXPECT_DOUBLE_EQ(form.lstArtists.Height(), 4600);
    EXPECT_DOUBLE_EQ(form.lstAlbums.Height(), 4600);
    EXPECT_DOUBLE_EQ(form.lstSongs.Height(), 4600);
    EXPECT_DOUBLE_EQ(form.Handle0.Height(), 4600);
    EXPECT_DOUBLE_EQ(form.Handle1.Height(), 4600);
    EXPECT_DOUBLE_EQ(form.frmDP.Top(), 5800);
    EXPECT_DOUBLE_EQ(form.frmTN.Top(), 5800);
    EXPECT_DOUBLE_EQ(form.frmDestination.Top(), 5800);
    EXPECT_DOUBLE_EQ(form.cmdCopy.Top(), 6580);
    EXPECT_DOUBLE_EQ(form.prgCopy.Top(), 7420);
    EXPECT_DOUBLE_EQ(form.lblMessage.Top(), 7840);
    EXPECT_DOUBLE_EQ(form.lblFullName.Top(), 7840);
}

TEST_F(LayoutTest, WhatToDoWithoutADeviceLiesOverTheThreeLists) {
    form.Form1.UserResize(14000, 10000); // 2,000 wider and 1,000 higher
    EXPECT_DOUBLE_EQ(form.pctNoDevice.Left(), 120);
    EXPECT_DOUBLE_EQ(form.pctNoDevice.Top(), 1200);
    EXPECT_DOUBLE_EQ(form.pctNoDevice.Width(), 13520);
    EXPECT_DOUBLE_EQ(form.pctNoDevice.Height(), 4600);
}

TEST_F(LayoutTest, TheDividerStands7PixelsLeftOfTheFullName) {
    form.Form1.UserResize(14000, 9500);
    EXPECT_DOUBLE_EQ(form.Divider.Left(), 4920 - 105);
    EXPECT_DOUBLE_EQ(form.Divider.Top(), form.lblMessage.Top());
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

TEST_F(LayoutTest, MinimisingWhileIdleLeavesTheCaption) {
    form.lblMessage.SetCaption(QStringLiteral("Selected: 0 KB of 1.4 GB"));
    form.Form1.SetState(WindowState::Minimized);
    EXPECT_EQ(form.Form1.Caption(), QStringLiteral("Songlift"));
}

TEST_F(LayoutTest, MinimisingDuringALoadShowsTheMessageInTheTaskBar) {
    library.LoadingMusic = true;
    form.lblMessage.SetCaption(QStringLiteral("Loading music... 42%"));
    form.Form1.SetState(WindowState::Minimized);
    EXPECT_EQ(form.Form1.Caption(), QStringLiteral("Loading music... 42%"));
    form.Form1.SetState(WindowState::Normal);
    EXPECT_EQ(form.Form1.Caption(), QStringLiteral("Songlift"));
}

TEST_F(LayoutTest, MinimisingDuringACopyShowsTheMessageInTheTaskBar) {
    copying = true;
    form.lblMessage.SetCaption(QStringLiteral("Copying files... 3 of 120"));
    form.Form1.SetState(WindowState::Minimized);
    EXPECT_EQ(form.Form1.Caption(), QStringLiteral("Copying files... 3 of 120"));
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
