#pragma once

#include "app/Layout.h"
#include "app/Preview.h"
#include "app/Settings.h"
#include "browser/ArtistList.h"
#include "browser/MediaFilter.h"
#include "copy/CopyJob.h"
#include "library/DeviceSelection.h"
#include "selection/CheckPropagation.h"
#include "selection/Search.h"

/// What the program needs of the platform.
struct Services {
    FileSystem& Files;
    DriveService& Drives;
    SettingsStore& Store;
    Shell& Desktop;
    WindowManager& Windows;
    Messages& MessageBoxes;
    EventLoop& Events;
};

/// The main window: owns the subsystems, wires the events of its controls to their handlers, and
/// holds start-up and shutdown.
class Form1 {
public:
    /// `showOverwrite` makes the overwrite prompt's window, shows it and returns when it is closed.
    Form1(const Services& services, Form1Controls& controls, PreviewControls& preview,
          std::function<void(OverwritePrompt&)> showOverwrite);
    Form1(const Form1&) = delete;
    Form1& operator=(const Form1&) = delete;

    /// Restores the settings, shows the window, and loads the first iPod that is attached. Throws
    /// RuntimeError before anything is shown when a stored number is none.
    void Form_Load();

private:
    void Form_Unload(bool& cancel, UnloadMode mode);
    void ForgetLibrary();
    void ShowLibrary();

    void WireDevices();
    void WireBrowser();
    void WireSearch();
    void WireCopy();
    void WireWindow();

    Messages& m_messages;
    Form1Controls& m_controls;
    PreviewControls& m_previewControls;
    BrowserState m_state;
    OverwritePrompt m_prompt;

    LoadMusic m_loadMusic;
    DeviceSelection m_devices;
    TextFitting m_textFitting;
    LinkedLists m_lists;
    ArtistList m_artistList;
    MediaFilter m_mediaFilter;
    SelectionSummary m_summary;
    CheckPropagation m_checks;
    Search m_search;
    Destination m_destination;
    CopyJob m_copyJob;
    Layout m_layout;
    Settings m_settings;
    Preview m_preview;
    std::function<void(OverwritePrompt&)> m_showOverwrite;
};
