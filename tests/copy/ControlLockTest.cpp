#include "copy/ControlLock.h"

#include "tests/fakes/FakeForm1.h"

#include <gtest/gtest.h>

namespace {

/// Every control that a job locks, in order.
std::vector<Control*> Locked(FakeForm1& form) {
    return {&form.Combo1,         &form.tbsFilter,     &form.lstArtists,    &form.lstAlbums,
            &form.lstSongs,       &form.chkAlbumName,  &form.chkArtistName, &form.chkTrackNum,
            &form.txtDestination, &form.chkArtist,     &form.chkAlbum,      &form.cmdBrowse,
            &form.txtSearch,      &form.cmdSearch,     &form.cmdClear,      &form.frmDP,
            &form.frmTN,          &form.frmDestination};
}

} // namespace

TEST(ControlLock, DisableControlsDisablesEveryControlThatCouldChangeTheJob) {
    FakeForm1 form;
    DisableControls(form.Controls);
    for (const Control* control : Locked(form)) {
        EXPECT_FALSE(control->Enabled());
    }
}

TEST(ControlLock, TheCopyButtonTheBarAndTheGenreBoxAreNotTouched) {
    FakeForm1 form;
    DisableControls(form.Controls);
    EXPECT_TRUE(form.cmdCopy.Enabled());
    EXPECT_TRUE(form.prgCopy.Enabled());
    EXPECT_TRUE(form.chkGenre.Enabled());
    form.chkGenre.SetEnabled(false);
    form.cmdCopy.SetEnabled(false);
    EnableControls(form.Controls, true);
    EXPECT_FALSE(form.chkGenre.Enabled());
    EXPECT_FALSE(form.cmdCopy.Enabled());
}

TEST(ControlLock, EnableControlsEnablesThemAllWhileATextSearchIsInForce) {
    FakeForm1 form;
    DisableControls(form.Controls);
    EnableControls(form.Controls, true);
    for (const Control* control : Locked(form)) {
        EXPECT_TRUE(control->Enabled());
    }
}

TEST(ControlLock, WithoutATextSearchTheClearButtonStaysDisabled) {
    FakeForm1 form;
    DisableControls(form.Controls);
    EnableControls(form.Controls, false);
    for (const Control* control : Locked(form)) {
        EXPECT_EQ(control->Enabled(), control != &form.cmdClear);
    }
}
