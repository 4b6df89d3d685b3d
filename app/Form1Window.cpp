#include "app/Form1Window.h"

#include "app/DesignLayout.h"
#include "browser/MediaFilter.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int ScanMilliseconds = 1000;

} // namespace

Form1Window::Form1Window(WindowManager& windowManager)
    : m_window(nullptr, u"Form1"_s), m_Picture2(m_window.Widget(), u"Picture2"_s),
      m_Picture1(m_Picture2.Widget(), u"Picture1"_s), m_Combo1(m_Picture2.Widget(), u"Combo1"_s),
      m_lblSearch(m_window.Widget(), u"lblSearch"_s, u"Search:"_s),
      m_txtSearch(m_window.Widget(), u"txtSearch"_s),
      m_cmdSearch(m_window.Widget(), u"cmdSearch"_s, u"&Search"_s),
      m_cmdClear(m_window.Widget(), u"cmdClear"_s, u"Clear"_s),
      m_tbsFilter(m_window.Widget(), u"tbsFilter"_s, FilterTabs()),
      m_lstArtists(m_window.Widget(), u"lstArtists"_s),
      m_lstAlbums(m_window.Widget(), u"lstAlbums"_s), m_lstSongs(m_window.Widget(), u"lstSongs"_s),
      m_Handle0(m_window.Widget(), u"Handle0"_s), m_Handle1(m_window.Widget(), u"Handle1"_s),
      m_pctNoDevice(m_window.Widget(), u"pctNoDevice"_s),
      m_frmDP(m_window.Widget(), u"frmDP"_s, u"Sort by Folders:"_s),
      m_chkArtist(m_frmDP.Widget(), u"chkArtist"_s, u"Artist"_s),
      m_chkAlbum(m_frmDP.Widget(), u"chkAlbum"_s, u"Album"_s),
      m_chkGenre(m_frmDP.Widget(), u"chkGenre"_s, u"Genre"_s),
      m_frmTN(m_window.Widget(), u"frmTN"_s, u"Include in Filename:"_s),
      m_chkArtistName(m_frmTN.Widget(), u"chkArtistName"_s, u"Artist name"_s),
      m_chkAlbumName(m_frmTN.Widget(), u"chkAlbumName"_s, u"Album name"_s),
      m_chkTrackNum(m_frmTN.Widget(), u"chkTrackNum"_s, u"Track number"_s),
      m_frmDestination(m_window.Widget(), u"frmDestination"_s, u"Destination:"_s),
      m_pctDestination(m_frmDestination.Widget(), u"pctDestination"_s),
      m_txtDestination(m_pctDestination.Widget(), u"txtDestination"_s),
      m_cmdBrowse(m_pctDestination.Widget(), u"cmdBrowse"_s, u"Browse..."_s),
      m_cmdCopy(m_window.Widget(), u"cmdCopy"_s, u"&Copy to Destination"_s),
      m_prgCopy(m_window.Widget(), u"prgCopy"_s), m_lblMessage(m_window.Widget(), u"lblMessage"_s),
      m_Divider(m_window.Widget(), u"Divider"_s),
      m_lblFullName(m_window.Widget(), u"lblFullName"_s), m_timScan(ScanMilliseconds),
      m_mnuPopup(m_window.Widget(), u"mnuPopup"_s, u"mnuPreview"_s, u"Preview"_s),
      m_controls(ByName()) {
    m_chkGenre.SetVisible(false); // a box that does nothing misleads
    m_cmdCopy.MakePrimary();
    NameForScreenReaders();
    OrderTabs();
    Explain();
    LayOutDesign(m_controls, windowManager);
}

Form1Controls Form1Window::ByName() {
    return {.Form1 = m_window,
            .Picture2 = m_Picture2,
            .Picture1 = m_Picture1,
            .Combo1 = m_Combo1,
            .lblSearch = m_lblSearch,
            .txtSearch = m_txtSearch,
            .cmdSearch = m_cmdSearch,
            .cmdClear = m_cmdClear,
            .tbsFilter = m_tbsFilter,
            .lstArtists = m_lstArtists,
            .lstAlbums = m_lstAlbums,
            .lstSongs = m_lstSongs,
            .Handle0 = m_Handle0,
            .Handle1 = m_Handle1,
            .pctNoDevice = m_pctNoDevice,
            .frmDP = m_frmDP,
            .chkArtist = m_chkArtist,
            .chkAlbum = m_chkAlbum,
            .chkGenre = m_chkGenre,
            .frmTN = m_frmTN,
            .chkArtistName = m_chkArtistName,
            .chkAlbumName = m_chkAlbumName,
            .chkTrackNum = m_chkTrackNum,
            .frmDestination = m_frmDestination,
            .pctDestination = m_pctDestination,
            .txtDestination = m_txtDestination,
            .cmdBrowse = m_cmdBrowse,
            .cmdCopy = m_cmdCopy,
            .prgCopy = m_prgCopy,
            .lblMessage = m_lblMessage,
            .Divider = m_Divider,
            .lblFullName = m_lblFullName,
            .timScan = m_timScan,
            .mnuPopup = m_mnuPopup,
            .mnuPreview = m_mnuPopup.Entry};
}

/// Screen readers speak the texts of labels, buttons and boxes; the others need a name.
void Form1Window::NameForScreenReaders() {
    m_Combo1.Widget()->setAccessibleName(u"iPod"_s);
    // Where a combo box speaks its chosen entry instead of its name, it is named by the label that
    // belongs to it.
    m_Picture1.Widget()->setAccessibleName(u"iPod"_s);
    m_Picture1.Widget()->setBuddy(m_Combo1.Widget());
    m_txtSearch.Widget()->setAccessibleName(u"Search"_s);
    m_tbsFilter.Widget()->setAccessibleName(u"Filter"_s);
    m_lstArtists.Widget()->setAccessibleName(u"Artists"_s);
    m_lstAlbums.Widget()->setAccessibleName(u"Albums"_s);
    m_lstSongs.Widget()->setAccessibleName(u"Songs"_s);
    m_txtDestination.Widget()->setAccessibleName(u"Destination"_s);
    m_prgCopy.Widget()->setAccessibleName(u"Progress"_s);
}

void Form1Window::OrderTabs() {
    QWidget* const order[] = {
        m_Combo1.Widget(),       m_txtSearch.Widget(),   m_cmdSearch.Widget(),
        m_cmdClear.Widget(),     m_tbsFilter.Widget(),   m_lstArtists.Widget(),
        m_lstAlbums.Widget(),    m_lstSongs.Widget(),    m_pctNoDevice.Command(),
        m_chkArtist.Widget(),    m_chkAlbum.Widget(),    m_chkArtistName.Widget(),
        m_chkAlbumName.Widget(), m_chkTrackNum.Widget(), m_txtDestination.Widget(),
        m_cmdBrowse.Widget(),    m_cmdCopy.Widget()};
    for (size_t i = 1; i < std::size(order); ++i) {
        QWidget::setTabOrder(order[i - 1], order[i]);
    }
}

/// Tool tips, where the caption does not say everything. Those of the destination and of the full
/// name show what does not fit into them.
void Form1Window::Explain() {
    m_Combo1.SetToolTip(u"The iPod that is shown; opening the list looks for more"_s);
    m_cmdClear.SetToolTip(u"Ends the search"_s);
    m_tbsFilter.Widget()->setTabToolTip(0, u"Tracks of every kind"_s);
    m_tbsFilter.Widget()->setTabToolTip(1, u"What the iPod itself calls audio"_s);
    m_tbsFilter.Widget()->setTabToolTip(2, u"What the iPod itself calls video"_s);
    m_chkArtist.SetToolTip(u"Makes a folder for each artist"_s);
    m_chkAlbum.SetToolTip(u"Makes a folder for each album, within the artist's"_s);
    m_chkArtistName.SetToolTip(u"File names like \"Artist - Title.mp3\""_s);
    m_chkAlbumName.SetToolTip(u"File names like \"Album - Title.mp3\""_s);
    m_chkTrackNum.SetToolTip(u"File names like \"07 Title.mp3\""_s);
    m_cmdCopy.SetToolTip(u"Starts and stops copying what is ticked. A folder \"tmp\" in the "
                         "destination is used on the way, and deleted at the end."_s);
    m_mnuPopup.SetEntryToolTip(u"Plays it from the iPod, in a window of its own"_s);

    m_Combo1.Widget()->setPlaceholderText(u"iPod"_s);
    m_txtSearch.Widget()->setPlaceholderText(u"Artist, album or title"_s);
    m_txtDestination.Widget()->setPlaceholderText(u"The folder to copy into"_s);
}
