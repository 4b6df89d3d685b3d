#include "tests/fakes/FakeForm1.h"

using namespace Qt::StringLiterals;

FakeForm1::FakeForm1() {
    PutIntoContainers();
    SetCaptions();
    LayOut();
    chkGenre.SetVisible(false);
    pctNoDevice.SetVisible(false);
    chkGenre.VisibleChanges = 0;
    Form1.Visible = true;
    WindowManager.ActiveWindow = Form1.Handle();
}

void FakeForm1::PutIntoContainers() {
    Picture1.Container = &Picture2;
    Combo1.Container = &Picture2;
    for (FakeCheckControl* option : {&chkArtist, &chkAlbum, &chkGenre}) {
        option->Container = &frmDP;
    }
    for (FakeCheckControl* option : {&chkArtistName, &chkAlbumName, &chkTrackNum}) {
        option->Container = &frmTN;
    }
    pctDestination.Container = &frmDestination;
    txtDestination.Container = &frmDestination;
    cmdBrowse.Container = &frmDestination;
}

void FakeForm1::SetCaptions() {
    Form1.SetCaption(u"Songlift"_s);
    lblSearch.SetCaption(u"Search:"_s);
    cmdSearch.SetCaption(u"&Search"_s);
    cmdClear.SetCaption(u"Clear"_s);
    cmdBrowse.SetCaption(u"Browse..."_s);
    cmdCopy.SetCaption(u"&Copy to Destination"_s);
    chkArtist.FixedCaption = u"Artist"_s;
    chkAlbum.FixedCaption = u"Album"_s;
    chkGenre.FixedCaption = u"Genre"_s;
    chkArtistName.FixedCaption = u"Artist name"_s;
    chkAlbumName.FixedCaption = u"Album name"_s;
    chkTrackNum.FixedCaption = u"Track number"_s;
    // The histories begin with what the program sets.
    Form1.Captions.clear();
    lblSearch.Captions.clear();
    for (FakeButtonControl* button : {&cmdSearch, &cmdClear, &cmdBrowse, &cmdCopy}) {
        button->Captions.clear();
    }
}

void FakeForm1::LayOut() {
    const auto place = [](auto& control, double left, double top, double width, double height) {
        control.Move(left, top, width, height);
    };
    place(Picture2, 120, 60, 4800, 600);
    place(Picture1, 0, 0, 480, 600);
    place(Combo1, 600, 120, 4200, 360);
    place(lblSearch, 5400, 240, 600, 240);
    place(txtSearch, 6000, 180, 3000, 360);
    place(cmdSearch, 9120, 180, 1200, 360);
    place(cmdClear, 10440, 180, 1200, 360);
    place(tbsFilter, 120, 780, 11880, 360);

    place(lstArtists, 120, 1200, 3000, 3600);
    place(Handle0, 3120, 1200, 45, 3600);
    place(lstAlbums, 3165, 1200, 3000, 3600);
    place(Handle1, 6165, 1200, 45, 3600);
    place(lstSongs, 6210, 1200, 5430, 3600);

    place(frmDP, 120, 4800, 2400, 1500);
    place(chkArtist, 120, 300, 2000, 300);
    place(chkAlbum, 120, 660, 2000, 300);
    place(chkGenre, 120, 1020, 2000, 300);
    place(frmTN, 2640, 4800, 2700, 1500);
    place(chkArtistName, 120, 300, 2400, 300);
    place(chkAlbumName, 120, 660, 2400, 300);
    place(chkTrackNum, 120, 1020, 2400, 300);
    place(frmDestination, 5460, 4800, 6180, 1500);
    place(pctDestination, 120, 300, 5940, 360);
    place(txtDestination, 0, 0, 4680, 360);
    place(cmdBrowse, 4740, 0, 1200, 360);
    place(cmdCopy, 9000, 5580, 2520, 480);

    place(prgCopy, 120, 6420, 11520, 300);
    place(lblMessage, 120, 6840, 4500, 240);
    place(Divider, 4815, 6840, 15, 240);
    place(lblFullName, 4920, 6840, 6720, 240);
}
