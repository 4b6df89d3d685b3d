#include "app/Form1Window.h"

#include "app/DesignLayout.h"
#include "browser/MediaFilter.h"

namespace {

constexpr int ScanMilliseconds = 1000;

} // namespace

Form1Window::Form1Window(WindowManager& windowManager)
    : m_window(nullptr, QStringLiteral("Form1")),
      m_Picture2(m_window.Widget(), QStringLiteral("Picture2")),
      m_Picture1(m_Picture2.Widget(), QStringLiteral("Picture1")),
      m_Combo1(m_Picture2.Widget(), QStringLiteral("Combo1")),
      m_lblSearch(m_window.Widget(), QStringLiteral("lblSearch"), QStringLiteral("Search:")),
      m_txtSearch(m_window.Widget(), QStringLiteral("txtSearch")),
      m_cmdSearch(m_window.Widget(), QStringLiteral("cmdSearch"), QStringLiteral("&Search")),
      m_cmdClear(m_window.Widget(), QStringLiteral("cmdClear"), QStringLiteral("Clear")),
      m_tbsFilter(m_window.Widget(), QStringLiteral("tbsFilter"), FilterTabs()),
      m_lstArtists(m_window.Widget(), QStringLiteral("lstArtists")),
      m_lstAlbums(m_window.Widget(), QStringLiteral("lstAlbums")),
      m_lstSongs(m_window.Widget(), QStringLiteral("lstSongs")),
      m_Handle0(m_window.Widget(), QStringLiteral("Handle0")),
      m_Handle1(m_window.Widget(), QStringLiteral("Handle1")),
      m_pctNoDevice(m_window.Widget(), QStringLiteral("pctNoDevice")),
      m_frmDP(m_window.Widget(), QStringLiteral("frmDP"), QStringLiteral("Sort by Folders:")),
      m_chkArtist(m_frmDP.Widget(), QStringLiteral("chkArtist"), QStringLiteral("Artist")),
      m_chkAlbum(m_frmDP.Widget(), QStringLiteral("chkAlbum"), QStringLiteral("Album")),
      m_chkGenre(m_frmDP.Widget(), QStringLiteral("chkGenre"), QStringLiteral("Genre")),
      m_frmTN(m_window.Widget(), QStringLiteral("frmTN"), QStringLiteral("Include in Filename:")),
      m_chkArtistName(m_frmTN.Widget(), QStringLiteral("chkArtistName"),
                      QStringLiteral("Artist name")),
      m_chkAlbumName(m_frmTN.Widget(), QStringLiteral("chkAlbumName"),
                     QStringLiteral("Album name")),
      m_chkTrackNum(m_frmTN.Widget(), QStringLiteral("chkTrackNum"),
                    QStringLiteral("Track number")),
      m_frmDestination(m_window.Widget(), QStringLiteral("frmDestination"),
                       QStringLiteral("Destination:")),
      m_pctDestination(m_frmDestination.Widget(), QStringLiteral("pctDestination")),
      m_txtDestination(m_pctDestination.Widget(), QStringLiteral("txtDestination")),
      m_cmdBrowse(m_pctDestination.Widget(), QStringLiteral("cmdBrowse"),
                  QStringLiteral("Browse...")),
      m_cmdCopy(m_window.Widget(), QStringLiteral("cmdCopy"),
                QStringLiteral("&Copy to Destination")),
      m_prgCopy(m_window.Widget(), QStringLiteral("prgCopy")),
      m_lblMessage(m_window.Widget(), QStringLiteral("lblMessage")),
      m_Divider(m_window.Widget(), QStringLiteral("Divider")),
      m_lblFullName(m_window.Widget(), QStringLiteral("lblFullName")), m_timScan(ScanMilliseconds),
      m_mnuPopup(m_window.Widget(), QStringLiteral("mnuPopup"), QStringLiteral("mnuPreview"),
                 QStringLiteral("Preview")),
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
    m_Combo1.Widget()->setAccessibleName(QStringLiteral("iPod"));
    // On Linux a combo box speaks its chosen entry instead of its name, and is named by the label
    // that belongs to it.
    m_Picture1.Widget()->setAccessibleName(QStringLiteral("iPod"));
    m_Picture1.Widget()->setBuddy(m_Combo1.Widget());
    m_txtSearch.Widget()->setAccessibleName(QStringLiteral("Search"));
    m_tbsFilter.Widget()->setAccessibleName(QStringLiteral("Filter"));
    m_lstArtists.Widget()->setAccessibleName(QStringLiteral("Artists"));
    m_lstAlbums.Widget()->setAccessibleName(QStringLiteral("Albums"));
    m_lstSongs.Widget()->setAccessibleName(QStringLiteral("Songs"));
    m_txtDestination.Widget()->setAccessibleName(QStringLiteral("Destination"));
    m_prgCopy.Widget()->setAccessibleName(QStringLiteral("Progress"));
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
    m_Combo1.SetToolTip(QStringLiteral("The iPod that is shown; opening the list looks for more"));
    m_cmdClear.SetToolTip(QStringLiteral("Ends the search"));
    m_tbsFilter.Widget()->setTabToolTip(0, QStringLiteral("Tracks of every kind"));
    m_tbsFilter.Widget()->setTabToolTip(1, QStringLiteral("What the iPod itself calls audio"));
    m_tbsFilter.Widget()->setTabToolTip(2, QStringLiteral("What the iPod itself calls video"));
    m_chkArtist.SetToolTip(QStringLiteral("Makes a folder for each artist"));
    m_chkAlbum.SetToolTip(QStringLiteral("Makes a folder for each album, within the artist's"));
    m_chkArtistName.SetToolTip(QStringLiteral("File names like \"Artist - Title.mp3\""));
    m_chkAlbumName.SetToolTip(QStringLiteral("File names like \"Album - Title.mp3\""));
    m_chkTrackNum.SetToolTip(QStringLiteral("File names like \"07 Title.mp3\""));
    m_cmdCopy.SetToolTip(
        QStringLiteral("Starts and stops copying what is ticked. A folder \"tmp\" in the "
                       "destination is used on the way, and deleted at the end."));
    m_mnuPopup.SetEntryToolTip(QStringLiteral("Plays it from the iPod, in a window of its own"));

    m_Combo1.Widget()->setPlaceholderText(QStringLiteral("iPod"));
    m_txtSearch.Widget()->setPlaceholderText(QStringLiteral("Artist, album or title"));
    m_txtDestination.Widget()->setPlaceholderText(QStringLiteral("The folder to copy into"));
}
