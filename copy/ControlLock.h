#pragma once

#include "platform/Controls.h"

/// Everything that could change the library or the options while a copy job runs. chkGenre is left
/// out: it has no effect on what is copied.
struct LockedControls {
    ComboControl& Combo1;
    TabsControl& tbsFilter;
    ListControl& lstArtists;
    ListControl& lstAlbums;
    ListControl& lstSongs;
    CheckControl& chkAlbumName;
    CheckControl& chkArtistName;
    CheckControl& chkTrackNum;
    TextControl& txtDestination;
    CheckControl& chkArtist;
    CheckControl& chkAlbum;
    ButtonControl& cmdBrowse;
    TextControl& txtSearch;
    ButtonControl& cmdSearch;
    ButtonControl& cmdClear;
    Control& frmDP;
    Control& frmTN;
    Control& frmDestination;
};

/// Disables it, in this order.
void DisableControls(const LockedControls& controls);

/// Enables it again; cmdClear only while a text search is in force (`SearchingText`).
void EnableControls(const LockedControls& controls, bool SearchingText);
