#include "copy/ControlLock.h"

#include <array>

namespace {

std::array<Control*, 18> InOrder(const LockedControls& controls) {
    return {&controls.Combo1,        &controls.tbsFilter,   &controls.lstArtists,
            &controls.lstAlbums,     &controls.lstSongs,    &controls.chkAlbumName,
            &controls.chkArtistName, &controls.chkTrackNum, &controls.txtDestination,
            &controls.chkArtist,     &controls.chkAlbum,    &controls.cmdBrowse,
            &controls.txtSearch,     &controls.cmdSearch,   &controls.cmdClear,
            &controls.frmDP,         &controls.frmTN,       &controls.frmDestination};
}

} // namespace

void DisableControls(const LockedControls& controls) {
    for (Control* control : InOrder(controls)) {
        control->SetEnabled(false);
    }
}

void EnableControls(const LockedControls& controls, bool SearchingText) {
    for (Control* control : InOrder(controls)) {
        control->SetEnabled(control != &controls.cmdClear || SearchingText);
    }
}
