#include "app/ControlGroups.h"

LoadControls LoadControlsOf(const Form1Controls& all) {
    return {.Form1 = all.Form1,
            .Combo1 = all.Combo1,
            .lblMessage = all.lblMessage,
            .prgCopy = all.prgCopy};
}

DeviceControls DeviceControlsOf(const Form1Controls& all) {
    return {.Form1 = all.Form1,
            .Combo1 = all.Combo1,
            .Picture1 = all.Picture1,
            .lblMessage = all.lblMessage,
            .pctNoDevice = all.pctNoDevice,
            .timScan = all.timScan};
}

FittingControls FittingControlsOf(const Form1Controls& all) {
    return {.Form1 = all.Form1,
            .lstArtists = all.lstArtists,
            .lstAlbums = all.lstAlbums,
            .lstSongs = all.lstSongs,
            .tbsFilter = all.tbsFilter,
            .lblFullName = all.lblFullName,
            .mnuPopup = all.mnuPopup};
}

ListControls ListControlsOf(const Form1Controls& all) {
    return {.Form1 = all.Form1,
            .lstArtists = all.lstArtists,
            .lstAlbums = all.lstAlbums,
            .lstSongs = all.lstSongs,
            .tbsFilter = all.tbsFilter,
            .lblMessage = all.lblMessage};
}

ArtistListControls ArtistListControlsOf(const Form1Controls& all) {
    return {.lstArtists = all.lstArtists,
            .lstAlbums = all.lstAlbums,
            .lstSongs = all.lstSongs,
            .cmdCopy = all.cmdCopy};
}

SummaryControls SummaryControlsOf(const Form1Controls& all) {
    return {.lblMessage = all.lblMessage, .prgCopy = all.prgCopy};
}

SearchControls SearchControlsOf(const Form1Controls& all) {
    return {.Picture2 = all.Picture2,
            .txtSearch = all.txtSearch,
            .cmdSearch = all.cmdSearch,
            .cmdClear = all.cmdClear,
            .tbsFilter = all.tbsFilter};
}

CheckedListControls CheckedListControlsOf(const Form1Controls& all) {
    return {.lstArtists = all.lstArtists, .lstAlbums = all.lstAlbums, .lstSongs = all.lstSongs};
}

DestinationControls DestinationControlsOf(const Form1Controls& all) {
    return {.Form1 = all.Form1, .txtDestination = all.txtDestination};
}

LockedControls LockedControlsOf(const Form1Controls& all) {
    return {.Combo1 = all.Combo1,
            .tbsFilter = all.tbsFilter,
            .lstArtists = all.lstArtists,
            .lstAlbums = all.lstAlbums,
            .lstSongs = all.lstSongs,
            .chkAlbumName = all.chkAlbumName,
            .chkArtistName = all.chkArtistName,
            .chkTrackNum = all.chkTrackNum,
            .txtDestination = all.txtDestination,
            .chkArtist = all.chkArtist,
            .chkAlbum = all.chkAlbum,
            .cmdBrowse = all.cmdBrowse,
            .txtSearch = all.txtSearch,
            .cmdSearch = all.cmdSearch,
            .cmdClear = all.cmdClear,
            .frmDP = all.frmDP,
            .frmTN = all.frmTN,
            .frmDestination = all.frmDestination};
}

CopyControls CopyControlsOf(const Form1Controls& all) {
    return {.Form1 = all.Form1,
            .chkArtist = all.chkArtist,
            .chkAlbum = all.chkAlbum,
            .chkArtistName = all.chkArtistName,
            .chkAlbumName = all.chkAlbumName,
            .chkTrackNum = all.chkTrackNum,
            .txtDestination = all.txtDestination,
            .cmdCopy = all.cmdCopy,
            .prgCopy = all.prgCopy,
            .lblMessage = all.lblMessage,
            .Locked = LockedControlsOf(all)};
}

SettingsControls SettingsControlsOf(const Form1Controls& all) {
    return {.Form1 = all.Form1,
            .Handle0 = all.Handle0,
            .Handle1 = all.Handle1,
            .chkArtist = all.chkArtist,
            .chkAlbum = all.chkAlbum,
            .chkArtistName = all.chkArtistName,
            .chkAlbumName = all.chkAlbumName,
            .chkTrackNum = all.chkTrackNum,
            .txtDestination = all.txtDestination};
}

SongControls SongControlsOf(const Form1Controls& all) {
    return {.Form1 = all.Form1, .lstSongs = all.lstSongs};
}
