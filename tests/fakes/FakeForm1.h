#pragma once

#include "platform/Form1Controls.h"
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

    Form1Controls Controls{
        Form1,          Picture2,       Picture1,      Combo1,       lblSearch,   txtSearch,
        cmdSearch,      cmdClear,       tbsFilter,     lstArtists,   lstAlbums,   lstSongs,
        Handle0,        Handle1,        pctNoDevice,   frmDP,        chkArtist,   chkAlbum,
        chkGenre,       frmTN,          chkArtistName, chkAlbumName, chkTrackNum, frmDestination,
        pctDestination, txtDestination, cmdBrowse,     cmdCopy,      prgCopy,     lblMessage,
        Divider,        lblFullName,    timScan,       mnuPopup,     mnuPreview,
    };

    FakeForm1();
    FakeForm1(const FakeForm1&) = delete;
    FakeForm1& operator=(const FakeForm1&) = delete;

private:
    void PutIntoContainers();
    void SetCaptions();
    void LayOut();
};
