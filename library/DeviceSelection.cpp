#include "library/DeviceSelection.h"

#include "platform/IgnoringErrors.h"
#include "platform/ScopeGuard.h"

using namespace Qt::StringLiterals;

namespace {

/// The drive of an entry, as "E:" of "(E:) MY IPOD".
QString DriveOfEntry(const QString& entry) {
    return entry.mid(1, 2);
}

} // namespace

DeviceSelection::DeviceSelection(LoadMusic& loadMusic, DriveService& drives,
                                 const LoadServices& services, WindowManager& windowManager,
                                 const DeviceControls& controls)
    : m_loadMusic(loadMusic), m_drives(drives),
      m_look(services.Files, services.Background, services.Events),
      m_messages(services.MessageBoxes), m_windowManager(windowManager), m_controls(controls) {
}

void DeviceSelection::Combo1_DropDown() {
    const NestedFlag::Guard suppressed = m_suppressComboClick.Set();
    IgnoringErrors([this] { m_controls.Combo1.Clear(); });
    IgnoringErrors([this] { ListDevices(); });
    IgnoringErrors([this] { m_controls.Combo1.SetText(SelectedDevice); });
    if (m_controls.Combo1.Text().isEmpty()) {
        ResetWindow();
    }
    const bool isEmpty = m_controls.Combo1.ListCount() == 0;
    if (isEmpty) {
        IgnoringErrors(
            [this] { m_controls.lblMessage.SetCaption(u"No compatible iPod detected."_s); });
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
    const NestedFlag::Guard suppressed = m_suppressComboClick.Set();
    m_controls.Combo1.SetText(first);
}

void DeviceSelection::Combo1_Click() {
    if (m_suppressComboClick) {
        return;
    }
    const QString device = m_controls.Combo1.Text();
    const QString driveRoot = DriveOfEntry(device);
    if (device == LoadedDevice) {
        if (!device.isEmpty() && !HasDatabase(driveRoot).value_or(true)) {
            ReportLostDevice();
            Combo1_DropDown();
        }
        return;
    }
    ScopeGuard failed([this] { ForgetDevice(); });
    SelectedDevice = LoadedDevice = device;
    MakeReady();
    // The binary database is required even where the SQLite library is used.
    std::optional<bool> hasLibrary;
    if (HasDatabase(driveRoot).value_or(false)) {
        hasLibrary = m_look.FileExists(DevicePaths::LibraryDatabase(driveRoot));
    }
    if (!hasLibrary) {
        // Not loaded, so that choosing the device again loads it once it is back.
        LoadedDevice.clear();
        m_loadMusic.Library.ForgetTracks();
        ReportLostDevice();
        Combo1_DropDown();
        failed.Dismiss();
        return;
    }
    ScopeGuard pointer([this] { m_controls.Form1.SetMousePointer(MousePointer::Default); });
    m_controls.Form1.SetMousePointer(MousePointer::Hourglass);
    if (*hasLibrary) {
        m_loadMusic.LoadSQLiteLibrary(driveRoot);
    } else {
        m_loadMusic.LoadITunesDB(driveRoot);
    }
    ReportLoad();
    failed.Dismiss();
    pointer.Run();
}

/// After a load that failed half-way nothing is shown; choosing the device again loads it.
void DeviceSelection::ForgetDevice() {
    m_loadMusic.Library.ForgetTracks();
    ResetWindow();
}

void DeviceSelection::ListDevices() {
    for (const Drive& drive : m_drives.Drives()) {
        IgnoringErrors([&] { ListDevice(drive); });
    }
}

void DeviceSelection::ListDevice(const Drive& drive) {
    // The iPod that is shown stays while its disk starts, and the ticks with it.
    const bool isLoaded = drive.Path == DriveOfEntry(LoadedDevice);
    if (drive.Letter > u'B' && m_drives.IsRemovable(drive) &&
        HasDatabase(drive.Path).value_or(isLoaded)) {
        QString volumeName;
        IgnoringErrors([&] { volumeName = m_drives.VolumeName(drive); });
        m_controls.Combo1.AddItem(u'(' + drive.Letter + u":) "_s + volumeName);
    }
}

/// Brings the window to its state without a device. Runs at every poll, so it leaves alone what is
/// reset already.
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
    IgnoringErrors([this] { m_controls.Picture1.Clear(); });
    IgnoringErrors([this] { Raise(NoDeviceChosen); });
    IgnoringErrors([this] {
        m_controls.pctNoDevice.Tell(m_controls.Combo1.ListCount() > 0
                                        ? NoDeviceReason::NoneChosen
                                        : NoDeviceReason::NoneConnected);
        m_controls.pctNoDevice.SetVisible(true);
    });
}

void DeviceSelection::MakeReady() {
    m_controls.pctNoDevice.SetVisible(false);
    Raise(LibraryLeaves);
    m_controls.Picture1.ShowDevice();
    Raise(DeviceChosen);
}

void DeviceSelection::ReportLoad() {
    if (m_loadMusic.Library.TrackCount < 1) {
        Raise(NoMusicFound);
        m_controls.lblMessage.SetCaption(u"No music found."_s);
        m_controls.pctNoDevice.Tell(m_loadMusic.HasFailed() ? NoDeviceReason::NotRead
                                                            : NoDeviceReason::NoMusic);
        m_controls.pctNoDevice.SetVisible(true);
        return;
    }
    m_controls.lblMessage.SetCaption(u"Building lists..."_s);
    m_controls.Form1.Refresh();
    Raise(LibraryLoaded);
}

void DeviceSelection::ReportLostDevice() {
    if (m_look.WindowWasClosed()) {
        return; // nobody is there to be told
    }
    FlashUnlessActive(m_windowManager, m_controls.Form1.Handle());
    m_messages.Show(u"Error loading iPod."_s, u"Error"_s, MessageButtons::OK,
                    MessageIcon::Critical);
}

/// None where the drive does not answer.
std::optional<bool> DeviceSelection::HasDatabase(const QString& driveRoot) {
    return m_look.FileExists(DevicePaths::ITunesDB(driveRoot));
}
