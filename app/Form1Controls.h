#pragma once

#include "platform/Controls.h"
#include "platform/Window.h"

/// The main window and all its controls, by name, as the window's builder provides them. Each
/// subsystem gets a small struct of the controls that it uses.
struct Form1Controls {
    Window& Form1;

    Control& Picture2;
    PictureControl& Picture1;
    ComboControl& Combo1;
    LabelControl& lblSearch;
    TextControl& txtSearch;
    ButtonControl& cmdSearch;
    ButtonControl& cmdClear;
    TabsControl& tbsFilter;

    ListControl& lstArtists;
    ListControl& lstAlbums;
    ListControl& lstSongs;
    HandleControl& Handle0;
    HandleControl& Handle1;
    /// Lies over the lists.
    NoDeviceControl& pctNoDevice;

    Control& frmDP;
    CheckControl& chkArtist;
    CheckControl& chkAlbum;
    CheckControl& chkGenre;
    Control& frmTN;
    CheckControl& chkArtistName;
    CheckControl& chkAlbumName;
    CheckControl& chkTrackNum;
    Control& frmDestination;
    Control& pctDestination;
    TextControl& txtDestination;
    ButtonControl& cmdBrowse;
    ButtonControl& cmdCopy;

    ProgressControl& prgCopy;
    LabelControl& lblMessage;
    Control& Divider;
    LabelControl& lblFullName;

    TimerControl& timScan;
    PopupMenu& mnuPopup;
    MenuEntry& mnuPreview;
};
