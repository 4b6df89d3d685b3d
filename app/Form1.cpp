#include "app/Form1.h"

Form1::Form1(const Services& services, Form1Controls& controls, PreviewControls& preview,
             std::function<void(OverwritePrompt&)> showOverwrite)
    : m_messages(services.MessageBoxes), m_controls(controls), m_previewControls(preview),
      m_loadMusic(services.Files, services.MessageBoxes, controls),
      m_devices(m_loadMusic, services.Drives, services.Files, services.MessageBoxes,
                services.Windows, controls),
      m_textFitting(services.Windows, controls),
      m_lists(m_state, m_loadMusic.Library, m_textFitting, controls),
      m_artistList(m_state, m_loadMusic.Library, m_lists, controls),
      m_mediaFilter(m_state, m_loadMusic.Library, m_devices, m_artistList, controls),
      m_summary(m_state, m_loadMusic.Library, controls),
      m_checks(m_state, m_loadMusic.Library, m_lists, m_artistList, m_summary, controls),
      m_search(m_state, m_loadMusic.Library, m_artistList, m_summary, services.Events,
               services.Windows, controls),
      m_destination(services.Files, services.Desktop, services.Windows, controls),
      m_copyJob(services.Files, services.MessageBoxes, services.Events, services.Windows, controls,
                m_loadMusic.Library, m_state, m_artistList, m_summary, m_destination, m_prompt),
      m_layout(services.Windows, m_loadMusic.Library, m_copyJob.Copying, m_textFitting, controls),
      m_settings(services.Store, services.Desktop, services.Windows, m_layout, controls),
      m_preview(m_state, m_lists, services.Files, services.MessageBoxes, controls, preview),
      m_showOverwrite(std::move(showOverwrite)) {
    m_layout.KeepDesign();
    WireDevices();
    WireBrowser();
    WireSearch();
    WireCopy();
    WireWindow();
}

void Form1::WireDevices() {
    m_controls.Combo1.DropDown = [this] { m_devices.Combo1_DropDown(); };
    m_controls.Combo1.Click = [this] { m_devices.Combo1_Click(); };
    m_controls.timScan.Timer = [this] { m_devices.timScan_Timer(); };
    m_devices.LibraryLeaves = [this] { ForgetLibrary(); };
    m_devices.LibraryLoaded = [this] { ShowLibrary(); };
}

void Form1::WireBrowser() {
    m_controls.lstArtists.Click = [this] { m_lists.lstArtists_Click(); };
    m_controls.lstAlbums.Click = [this] { m_lists.lstAlbums_Click(); };
    m_controls.lstSongs.Click = [this] { m_lists.lstSongs_Click(); };
    m_controls.lstArtists.ItemCheck = [this](int Item) { m_checks.lstArtists_ItemCheck(Item); };
    m_controls.lstAlbums.ItemCheck = [this](int Item) { m_checks.lstAlbums_ItemCheck(Item); };
    m_controls.lstSongs.ItemCheck = [this](int Item) { m_checks.lstSongs_ItemCheck(Item); };

    m_controls.lstArtists.MouseMove = [this](const MouseState&) {
        m_textFitting.lstArtists_MouseMove();
    };
    m_controls.lstAlbums.MouseMove = [this](const MouseState&) {
        m_textFitting.lstAlbums_MouseMove();
    };
    m_controls.lstSongs.MouseMove = [this](const MouseState&) {
        m_textFitting.lstSongs_MouseMove();
    };
    m_controls.lstArtists.Scroll = [this] { m_textFitting.lstArtists_Scroll(); };
    m_controls.lstAlbums.Scroll = [this] { m_textFitting.lstAlbums_Scroll(); };
    m_controls.lstSongs.Scroll = [this] { m_textFitting.lstSongs_Scroll(); };
    m_controls.lstSongs.MouseDown = [this](const MouseState& mouse) {
        m_textFitting.lstSongs_MouseDown(mouse);
    };
    m_controls.mnuPreview.Click = [this] { m_preview.mnuPreview_Click(); };
}

void Form1::WireSearch() {
    m_controls.tbsFilter.Click = [this] { m_mediaFilter.tbsFilter_Click(); };
    m_controls.txtSearch.Change = [this] { m_search.txtSearch_Change(); };
    m_controls.txtSearch.GotFocus = [this] { m_search.txtSearch_GotFocus(); };
    m_controls.txtSearch.LostFocus = [this] { m_search.txtSearch_LostFocus(); };
    m_controls.lblSearch.Click = [this] { m_search.lblSearch_Click(); };
    m_controls.cmdSearch.Click = [this] { m_search.cmdSearch_Click(); };
    m_controls.cmdClear.Click = [this] { m_artistList.cmdClear_Click(); };
    m_mediaFilter.RunSearch = [this] { m_search.DoSearch(); };
    m_artistList.RunSearch = [this] { m_search.DoSearch(); };
}

void Form1::WireCopy() {
    m_controls.txtDestination.Change = [this] { m_destination.txtDestination_Change(); };
    m_controls.cmdBrowse.Click = [this] { m_destination.cmdBrowse_Click(); };
    m_controls.cmdCopy.Click = [this] { m_copyJob.cmdCopy_Click(); };
    m_copyJob.ShowOverwrite = [this] { m_showOverwrite(m_prompt); };
}

void Form1::WireWindow() {
    m_controls.Form1.Resize = [this] { m_layout.Form_Resize(); };
    m_controls.Form1.QueryUnload = [this](bool& cancel, UnloadMode mode) {
        Form_Unload(cancel, mode);
    };
    m_previewControls.frmPreview.QueryUnload = [this](bool& cancel, UnloadMode mode) {
        m_preview.Form_QueryUnload(cancel, mode);
    };
    m_previewControls.QTControl.SizeChanged = [this] { m_preview.QTControl_SizeChanged(); };
    m_layout.DestinationResized = [this] { m_destination.txtDestination_Change(); };

    const auto wireHandle = [this](HandleControl& handle, int Index) {
        handle.MouseDown = [this, Index](const MouseState&) { m_layout.Handle_MouseDown(Index); };
        handle.MouseMove = [this, Index](const MouseState& mouse) {
            m_layout.Handle_MouseMove(Index, mouse.X);
        };
        handle.MouseUp = [this, Index](const MouseState&) { m_layout.Handle_MouseUp(Index); };
    };
    wireHandle(m_controls.Handle0, 0);
    wireHandle(m_controls.Handle1, 1);
}

void Form1::Form_Load() {
    m_settings.Check();
    m_settings.RestoreOptions();
    m_controls.prgCopy.SetValue(0);
    m_controls.Form1.SetCaption(QStringLiteral("Songlift"));
    m_layout.LayOutLists();
    m_settings.RestoreWindow();
    m_layout.Form_Resize();
    m_settings.RestoreHandles();
    m_controls.Form1.Show();
    m_controls.lstArtists.SetFocus();
    m_devices.Combo1_DropDown();
    if (m_controls.Combo1.ListCount() > 0) {
        m_controls.Combo1.SetText(m_controls.Combo1.List(0));
    }
}

void Form1::Form_Unload(bool& cancel, UnloadMode) {
    if (m_copyJob.Copying) {
        m_copyJob.CancelCopy = true;
        m_copyJob.CUnload = true;
        cancel = true;
        return;
    }
    m_previewControls.frmPreview.Unload();
    if (!m_settings.Save()) {
        m_messages.Show(QStringLiteral("Your settings could not be saved. The next start will have "
                                       "the earlier ones."),
                        QStringLiteral("Error"), MessageButtons::OK, MessageIcon::Exclamation);
    }
}

void Form1::ForgetLibrary() {
    m_state = BrowserState();
    m_mediaFilter.ResetState();
    m_search.ResetState();
    m_textFitting.AdjustText(QString()); // else a resize would bring the old name back
    m_controls.prgCopy.SetValue(0);      // it showed how much of the library is ticked
}

void Form1::ShowLibrary() {
    m_artistList.ShowLibrary();
    m_summary.CalculateSize(false);
}
