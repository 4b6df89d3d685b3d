#pragma once

#include "app/Form1Controls.h"
#include "app/NoDevicePanel.h"
#include "platform/qt/QtButtonControl.h"
#include "platform/qt/QtCheckControl.h"
#include "platform/qt/QtComboControl.h"
#include "platform/qt/QtContainers.h"
#include "platform/qt/QtHandleControl.h"
#include "platform/qt/QtLabelControl.h"
#include "platform/qt/QtListControl.h"
#include "platform/qt/QtPictureControl.h"
#include "platform/qt/QtPopupMenu.h"
#include "platform/qt/QtProgressControl.h"
#include "platform/qt/QtTabsControl.h"
#include "platform/qt/QtTextControl.h"
#include "platform/qt/QtTimer.h"
#include "platform/qt/QtWindow.h"

/// The real main window: makes its controls, with their captions and accessible names, and lays
/// them out at the design size.
class Form1Window {
public:
    explicit Form1Window(WindowManager& windowManager);
    Form1Window(const Form1Window&) = delete;
    Form1Window& operator=(const Form1Window&) = delete;

    QtWindow& Window() { return m_window; }
    Form1Controls& Controls() { return m_controls; }

private:
    Form1Controls ByName();
    void NameForScreenReaders();
    void OrderTabs();
    void Explain();

    // In the order of the window, top to bottom and left to right. Where two overlap, the one made
    // later is on top.
    QtWindow m_window;
    QtPanelControl m_Picture2;
    QtPictureControl m_Picture1;
    QtComboControl m_Combo1;
    QtLabelControl m_lblSearch;
    QtTextControl m_txtSearch;
    QtButtonControl m_cmdSearch;
    QtButtonControl m_cmdClear;
    QtTabsControl m_tbsFilter;
    QtListControl m_lstArtists;
    QtListControl m_lstAlbums;
    QtListControl m_lstSongs;
    QtHandleControl m_Handle0;
    QtHandleControl m_Handle1;
    NoDevicePanel m_pctNoDevice;
    QtFrameControl m_frmDP;
    QtCheckControl m_chkArtist;
    QtCheckControl m_chkAlbum;
    QtCheckControl m_chkGenre;
    QtFrameControl m_frmTN;
    QtCheckControl m_chkArtistName;
    QtCheckControl m_chkAlbumName;
    QtCheckControl m_chkTrackNum;
    QtFrameControl m_frmDestination;
    QtPanelControl m_pctDestination;
    QtTextControl m_txtDestination;
    QtButtonControl m_cmdBrowse;
    QtButtonControl m_cmdCopy;
    QtProgressControl m_prgCopy;
    QtLabelControl m_lblMessage;
    QtLineControl m_Divider;
    QtLabelControl m_lblFullName;
    QtTimer m_timScan;
    QtPopupMenu m_mnuPopup;
    Form1Controls m_controls;
};
