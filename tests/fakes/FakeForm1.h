#pragma once

#include "app/Form1Controls.h"
#include "tests/fakes/FakeControls.h"
#include "tests/fakes/FakeWindow.h"

/// The main window made of fakes, each under its own name, laid out roughly as the real one, with
/// the captions of the design. The window is the active one.
struct FakeForm1 {
    std::shared_ptr<FakeFocus> Focus = std::make_shared<FakeFocus>();
    FakeWindowManager WindowManager{Focus};
    FakeWindow Form1;

    FakeControl Picture2{Focus};
    FakePictureControl Picture1{Focus};
    FakeComboControl Combo1{Focus};
    FakeLabelControl lblSearch{Focus};
    FakeTextControl txtSearch{Focus};
    FakeButtonControl cmdSearch{Focus};
    FakeButtonControl cmdClear{Focus};
    FakeTabsControl tbsFilter{Focus};

    FakeListControl lstArtists{Focus};
    FakeListControl lstAlbums{Focus};
    FakeListControl lstSongs{Focus};
    FakeHandleControl Handle0{Focus};
    FakeHandleControl Handle1{Focus};
    FakeNoDeviceControl pctNoDevice{Focus};

    FakeControl frmDP{Focus};
    FakeCheckControl chkArtist{Focus};
    FakeCheckControl chkAlbum{Focus};
    FakeCheckControl chkGenre{Focus};
    FakeControl frmTN{Focus};
    FakeCheckControl chkArtistName{Focus};
    FakeCheckControl chkAlbumName{Focus};
    FakeCheckControl chkTrackNum{Focus};
    FakeControl frmDestination{Focus};
    FakeControl pctDestination{Focus};
    FakeTextControl txtDestination{Focus};
    FakeButtonControl cmdBrowse{Focus};
    FakeButtonControl cmdCopy{Focus};

    FakeProgressControl prgCopy{Focus};
    FakeLabelControl lblMessage{Focus};
    FakeControl Divider{Focus};
    FakeLabelControl lblFullName{Focus};

    FakeTimerControl timScan;
    FakePopupMenu mnuPopup;
    MenuEntry mnuPreview;

    Form1Controls Controls{.Form1 = Form1,
                           .Picture2 = Picture2,
                           .Picture1 = Picture1,
                           .Combo1 = Combo1,
                           .lblSearch = lblSearch,
                           .txtSearch = txtSearch,
                           .cmdSearch = cmdSearch,
                           .cmdClear = cmdClear,
                           .tbsFilter = tbsFilter,
                           .lstArtists = lstArtists,
                           .lstAlbums = lstAlbums,
                           .lstSongs = lstSongs,
                           .Handle0 = Handle0,
                           .Handle1 = Handle1,
                           .pctNoDevice = pctNoDevice,
                           .frmDP = frmDP,
                           .chkArtist = chkArtist,
                           .chkAlbum = chkAlbum,
                           .chkGenre = chkGenre,
                           .frmTN = frmTN,
                           .chkArtistName = chkArtistName,
                           .chkAlbumName = chkAlbumName,
                           .chkTrackNum = chkTrackNum,
                           .frmDestination = frmDestination,
                           .pctDestination = pctDestination,
                           .txtDestination = txtDestination,
                           .cmdBrowse = cmdBrowse,
                           .cmdCopy = cmdCopy,
                           .prgCopy = prgCopy,
                           .lblMessage = lblMessage,
                           .Divider = Divider,
                           .lblFullName = lblFullName,
                           .timScan = timScan,
                           .mnuPopup = mnuPopup,
                           .mnuPreview = mnuPreview};

    FakeForm1();
    FakeForm1(const FakeForm1&) = delete;
    FakeForm1& operator=(const FakeForm1&) = delete;

private:
    void PutIntoContainers();
    void SetCaptions();
    void LayOut();
};
