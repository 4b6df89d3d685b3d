#pragma once

#include "library/LoadMusic.h"
#include "platform/Drives.h"
#include "platform/WindowManager.h"

/// Finds the attached iPods, lists them in Combo1, and loads the chosen one.
class DeviceSelection {
public:
    DeviceSelection(LoadMusic& loadMusic, DriveService& drives, FileSystem& files,
                    Messages& messages, WindowManager& windowManager, Form1Controls& controls);

    /// Raised when the shown library is about to go (another device is chosen, or none is left):
    /// whoever keeps rows, results or sizes of it forgets them. Raised before any list changes.
    Event LibraryLeaves;
    /// Raised after a library with at least one track has been loaded, to show it in the lists and
    /// in the summary.
    Event LibraryLoaded;

    /// The entry the user last chose; restored after each rescan.
    QString SelectedDevice;
    /// The entry whose library is loaded.
    QString LoadedDevice;
    /// The list is being changed by code, so that Combo1_Click does nothing.
    bool SuppressComboClick = false;
    /// The media filter does nothing: the first tab is being selected by code, or no device is
    /// chosen.
    bool FilterLocked = false;

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
    void PrepareBrowser();
    void ShowLibrary();
    void ReportLostDevice();
    bool HasDatabase(const QString& driveRoot) const;

    LoadMusic& m_loadMusic;
    DriveService& m_drives;
    FileSystem& m_files;
    Messages& m_messages;
    WindowManager& m_windowManager;
    Form1Controls& m_controls;
};
