#include "library/DeviceSelection.h"

#include "platform/RuntimeError.h"
#include "platform/ScopeGuard.h"

#include <exception>

namespace {

/// Runs one step of the scan for devices. A device may vanish at any moment, and the scan goes on
/// with what it could find out.
template <class Step>
void IgnoringErrors(const Step& step) {
    try {
        step();
    } catch (const std::exception&) {
        return;
    }
}

/// The drive of an entry, as "E:" of "(E:) MY IPOD".
QString DriveOfEntry(const QString& entry) {
    return entry.mid(1, 2);
}

} // namespace

DeviceSelection::DeviceSelection(LoadMusic& loadMusic, DriveService& drives, FileSystem& files,
                                 Messages& messages, WindowManager& windowManager,
                                 Form1Controls& controls)
    : m_loadMusic(loadMusic), m_drives(drives), m_files(files), m_messages(messages),
      m_windowManager(windowManager), m_controls(controls) {
}

void DeviceSelection::Combo1_DropDown() {
    ScopeGuard suppressed([this] { SuppressComboClick = false; });
    SuppressComboClick = true;
    IgnoringErrors([this] { m_controls.Combo1.Clear(); });
    IgnoringErrors([this] { ListDevices(); });
    IgnoringErrors([this] { m_controls.Combo1.SetText(SelectedDevice); });
    if (m_controls.Combo1.Text().isEmpty()) {
        ResetWindow();
    }
    const bool isEmpty = m_controls.Combo1.ListCount() == 0;
    if (isEmpty) {
        IgnoringErrors([this] {
            m_controls.lblMessage.SetCaption(QStringLiteral("No compatible iPod detected."));
        });
    }
    IgnoringErrors([this, isEmpty] { m_controls.timScan.SetEnabled(isEmpty); });
}

void DeviceSelection::timScan_Timer() {
    Combo1_DropDown();
    m_controls.Combo1.Refresh();
    if (m_controls.Combo1.ListCount() < 1) {
        return;
    }
    const QString first = m_controls.Combo1.List(0);
    m_controls.Combo1.SetText(first);
    ScopeGuard suppressed([this] { SuppressComboClick = false; });
    SuppressComboClick = true;
    m_controls.Combo1.SetText(first);
}

void DeviceSelection::Combo1_Click() {
    if (SuppressComboClick) {
        return;
    }
    const QString device = m_controls.Combo1.Text();
    const QString driveRoot = DriveOfEntry(device);
    if (device == LoadedDevice) {
        if (!device.isEmpty() && !HasDatabase(driveRoot)) {
            ReportLostDevice();
            Combo1_DropDown();
        }
        return;
    }
    ScopeGuard failed([this] { ForgetDevice(); });
    SelectedDevice = LoadedDevice = device;
    PrepareBrowser();
    // The binary database is required even where the SQLite library is used.
    if (!HasDatabase(driveRoot)) {
        // Nothing of this device is loaded: should it come back, choosing it again loads it.
        LoadedDevice.clear();
        m_loadMusic.Library.TrackCount = 0;
        ReportLostDevice();
        Combo1_DropDown();
        failed.Dismiss();
        return;
    }
    ScopeGuard pointer([this] { m_controls.Form1.SetMousePointer(MousePointer::Default); });
    m_controls.Form1.SetMousePointer(MousePointer::Hourglass);
    if (m_files.FileExists(DevicePaths::LibraryDatabase(driveRoot))) {
        m_loadMusic.LoadSQLiteLibrary(driveRoot);
    } else {
        m_loadMusic.LoadITunesDB(driveRoot);
    }
    ShowLibrary();
    failed.Dismiss();
    pointer.Run();
}

/// What failed half loaded is not shown; choosing the device again loads it.
void DeviceSelection::ForgetDevice() {
    m_loadMusic.Library.TrackCount = 0;
    ResetWindow();
}

void DeviceSelection::ListDevices() {
    for (const Drive& drive : m_drives.Drives()) {
        IgnoringErrors([&] { ListDevice(drive); });
    }
}

void DeviceSelection::ListDevice(const Drive& drive) {
    if (drive.Letter > QLatin1Char('B') && m_drives.IsRemovable(drive) && HasDatabase(drive.Path)) {
        QString volumeName;
        IgnoringErrors([&] { volumeName = m_drives.VolumeName(drive); });
        m_controls.Combo1.AddItem(QLatin1Char('(') + drive.Letter + QStringLiteral(":) ") +
                                  volumeName);
    }
}

/// Brings the window to its state without a device. Runs at every poll, so what is reset already
/// stays untouched.
void DeviceSelection::ResetWindow() {
    const bool hadDevice = !LoadedDevice.isEmpty();
    SelectedDevice.clear();
    LoadedDevice.clear();
    if (hadDevice) {
        IgnoringErrors([this] { Raise(LibraryLeaves); });
    }
    if (m_controls.Combo1.ListCount() > 0) { // else it is about to say that there is no device
        IgnoringErrors([this] { m_controls.lblMessage.SetCaption({}); });
    }
    IgnoringErrors([this] { m_controls.lblFullName.SetCaption({}); });
    IgnoringErrors([this] { m_controls.Picture1.Clear(); });
    for (ListControl* list :
         {&m_controls.lstArtists, &m_controls.lstAlbums, &m_controls.lstSongs}) {
        IgnoringErrors([list] { list->Clear(); });
        IgnoringErrors([list] { list->SetEnabled(false); });
    }
    for (Control* control :
         {static_cast<Control*>(&m_controls.cmdCopy), static_cast<Control*>(&m_controls.cmdSearch),
          static_cast<Control*>(&m_controls.cmdClear),
          static_cast<Control*>(&m_controls.txtSearch)}) {
        IgnoringErrors([control] { control->SetEnabled(false); });
    }
    IgnoringErrors([this] { m_controls.txtSearch.SetText({}); });
    FilterLocked = true; // until a device is chosen
    IgnoringErrors([this] { m_controls.tbsFilter.Select(0); });
    IgnoringErrors([this] {
        m_controls.pctNoDevice.Tell(m_controls.Combo1.ListCount() > 0
                                        ? NoDeviceReason::NoneChosen
                                        : NoDeviceReason::NoneConnected);
        m_controls.pctNoDevice.SetVisible(true);
    });
}

void DeviceSelection::PrepareBrowser() {
    m_controls.pctNoDevice.SetVisible(false);
    Raise(LibraryLeaves);
    m_controls.Picture1.ShowDevice();
    for (ListControl* list :
         {&m_controls.lstArtists, &m_controls.lstAlbums, &m_controls.lstSongs}) {
        list->SetEnabled(true);
        list->Clear();
    }
    m_controls.lblFullName.SetCaption({});
    m_controls.cmdCopy.SetEnabled(false);
    m_controls.cmdClear.SetEnabled(false);
    m_controls.txtSearch.SetText({});
    FilterLocked = true;
    m_controls.tbsFilter.Select(0);
    FilterLocked = false;
}

void DeviceSelection::ShowLibrary() {
    if (m_loadMusic.Library.TrackCount < 1) {
        m_controls.lstArtists.SetEnabled(false);
        m_controls.lstAlbums.SetEnabled(false);
        m_controls.lstSongs.SetEnabled(false);
        m_controls.cmdSearch.SetEnabled(false);
        m_controls.cmdClear.SetEnabled(false);
        m_controls.txtSearch.SetEnabled(false);
        m_controls.lblMessage.SetCaption(QStringLiteral("No music found."));
        m_controls.pctNoDevice.Tell(NoDeviceReason::NoMusic);
        m_controls.pctNoDevice.SetVisible(true);
        return;
    }
    m_controls.lblMessage.SetCaption(QStringLiteral("Building lists..."));
    m_controls.Form1.Refresh();
    Raise(LibraryLoaded);
    m_controls.txtSearch.SetEnabled(true);
    m_controls.cmdSearch.SetEnabled(true);
    m_controls.lstArtists.SetFocus();
}

void DeviceSelection::ReportLostDevice() {
    FlashUnlessActive(m_windowManager, m_controls.Form1.Handle());
    m_messages.Show(QStringLiteral("Error loading iPod."), QStringLiteral("Error"),
                    MessageButtons::OK, MessageIcon::Critical);
}

bool DeviceSelection::HasDatabase(const QString& driveRoot) const {
    return m_files.FileExists(DevicePaths::ITunesDB(driveRoot));
}
