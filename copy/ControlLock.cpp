#include "copy/ControlLock.h"

#include <array>

namespace {

std::array<Control*, 18> LockedControls(Form1Controls& controls) {
    // chkGenre is left out: it has no effect on what is copied.
    return {&controls.Combo1,        &controls.tbsFilter,   &controls.lstArtists,
            &controls.lstAlbums,     &controls.lstSongs,    &controls.chkAlbumName,
            &controls.chkArtistName, &controls.chkTrackNum, &controls.txtDestination,
            &controls.chkArtist,     &controls.chkAlbum,    &controls.cmdBrowse,
            &controls.txtSearch,     &controls.cmdSearch,   &controls.cmdClear,
            &controls.frmDP,         &controls.frmTN,       &controls.frmDestination};
}

} // namespace

void DisableControls(Form1Controls& controls) {
    for (Control* control : LockedControls(controls)) {
        control->SetEnabled(false);
    }
}

void EnableControls(Form1Controls& controls, bool SearchingText) {
    for (Control* control : LockedControls(controls)) {
        control->SetEnabled(control != &controls.cmdClear || SearchingText);
    }
}
