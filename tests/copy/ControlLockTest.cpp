#include "copy/ControlLock.h"
#include "app/ControlGroups.h"

#include "tests/fakes/FakeForm1.h"

#include <gtest/gtest.h>

#include <stdexcept>

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

TEST(ControlLock, TheControlsAreDisabledInTheirOrder) {
    for (size_t count = 0; count <= 18; ++count) { // the last time without a failure
        FakeForm1 form;
        FakeFaults::FailNth(static_cast<int>(count) + 1, [] { throw std::runtime_error("stop"); });
        const auto disable = [&] { DisableControls(LockedControlsOf(form.Controls)); };
        if (count < 18) {
            EXPECT_THROW(disable(), std::runtime_error);
        } else {
            disable();
        }
        EXPECT_EQ(FakeFaults::Stop(), count < 18);
        const std::vector<Control*> controls = Locked(form);
        for (size_t i = 0; i < controls.size(); ++i) {
            EXPECT_EQ(controls[i]->Enabled(), i >= count) << i << " after " << count;
        }
    }
}

TEST(ControlLock, TheCopyButtonTheBarAndTheGenreBoxAreNotTouched) {
    FakeForm1 form;
    DisableControls(LockedControlsOf(form.Controls));
    EXPECT_TRUE(form.cmdCopy.Enabled());
    EXPECT_TRUE(form.prgCopy.Enabled());
    EXPECT_TRUE(form.chkGenre.Enabled());
    form.chkGenre.SetEnabled(false);
    form.cmdCopy.SetEnabled(false);
    EnableControls(LockedControlsOf(form.Controls), true);
    EXPECT_FALSE(form.chkGenre.Enabled());
    EXPECT_FALSE(form.cmdCopy.Enabled());
}

TEST(ControlLock, WithoutATextSearchTheClearButtonStaysDisabled) {
    for (const bool searching : {true, false}) {
        FakeForm1 form;
        DisableControls(LockedControlsOf(form.Controls));
        EnableControls(LockedControlsOf(form.Controls), searching);
        for (const Control* control : Locked(form)) {
            EXPECT_EQ(control->Enabled(), searching || control != &form.cmdClear);
        }
    }
}
