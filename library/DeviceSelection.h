#pragma once

#include "library/DeviceLook.h"
#include "library/LoadMusic.h"
#include "platform/Drives.h"
#include "platform/NestedFlag.h"
#include "platform/WindowManager.h"

/// The list of devices, and the controls that tell about them.
struct DeviceControls {
    Window& Form1;
    ComboControl& Combo1;
    PictureControl& Picture1;
    LabelControl& lblMessage;
    /// Over the lists.
    NoDeviceControl& pctNoDevice;
    TimerControl& timScan;
};

/// Finds the attached iPods, lists them in Combo1, and loads the chosen one. What a window shows of
/// a library belongs to others, who hear of it through the events.
class DeviceSelection {
public:
    DeviceSelection(LoadMusic& loadMusic, DriveService& drives, const LoadServices& services,
                    WindowManager& windowManager, const DeviceControls& controls);

    /// Raised when the shown library is about to go (another device is chosen, or none is left):
    /// whoever keeps rows, results or sizes of it forgets them. Raised before any list changes.
    Event LibraryLeaves;
    /// Raised after that when a device has been chosen, which is about to be loaded.
    Event DeviceChosen;
    /// Raised after a library with at least one track has been loaded: it is to be shown.
    Event LibraryLoaded;
    /// Raised instead when there was no track.
    Event NoMusicFound;
    /// Raised by every scan after which no device is chosen: nothing is to be shown. Whoever has
    /// done so already leaves the window as it is.
    Event NoDeviceChosen;

    /// The entry the user last chose; restored after each rescan.
    QString SelectedDevice;
    /// The entry whose library is loaded.
    QString LoadedDevice;
    /// The list is being changed by code, so that Combo1_Click does nothing.
    bool SuppressComboClick() const { return bool(m_suppressComboClick); }

    /// Rebuilds the list of devices.
    void Combo1_DropDown();
    /// Loads the chosen device.
    void Combo1_Click();
    /// One poll while no device is listed.
    void timScan_Timer();

private:
    void ListDevices();
    void ListDevice(const Drive& drive);
    void ForgetDevice();
    void ResetWindow();
    void MakeReady();
    void ReportLoad();
    void ReportLostDevice();
    std::optional<bool> HasDatabase(const QString& driveRoot);

    LoadMusic& m_loadMusic;
    DriveService& m_drives;
    DeviceLook m_look;
    Messages& m_messages;
    WindowManager& m_windowManager;
    DeviceControls m_controls;
    NestedFlag m_suppressComboClick;
};
