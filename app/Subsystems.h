#pragma once

#include "app/Form1Controls.h"
#include "browser/MediaFilter.h"
#include "copy/CopyJob.h"
#include "library/DeviceSelection.h"
#include "platform/SettingsStore.h"
#include "platform/Worker.h"
#include "selection/CheckPropagation.h"

/// The services of the platform that the program uses.
struct Services {
    FileSystem& Files;
    DriveService& Drives;
    SettingsStore& Store;
    Shell& Desktop;
    WindowManager& Windows;
    Messages& MessageBoxes;
    EventLoop& Events;
    /// Two threads: one for operations that can hang, and one that reads ahead and helps to copy.
    Worker& Background;
    Worker& Ahead;
};

/// Everything between the platform and the window, put together: each subsystem with what it needs
/// of the others, and the events of the controls wired to their handlers.
struct Subsystems {
    Subsystems(const Services& services, Form1Controls& controls);
    Subsystems(const Subsystems&) = delete;
    Subsystems& operator=(const Subsystems&) = delete;

    LoadMusic Loading;
    DeviceSelection Devices;
    TextFitting Fitting;
    LinkedLists Lists;
    SearchResult Result;
    ArtistList Artists;
    MediaFilter Filter;
    SelectionSummary Summary;
    Search WordSearch;
    CheckPropagation Checks;
    PatientFileSystem CopyFiles;
    Destination Target;
    OverwritePrompt Prompt;
    CopyJob Job;

private:
    Browser Shown();
    void WireDevices(Form1Controls& controls);
    void WireLists(Form1Controls& controls);
    void WireMouse(Form1Controls& controls);
    void WireSearch(Form1Controls& controls);
    void WireCopy(Form1Controls& controls);
    void ForgetLibrary();
    void AwaitLibrary();
    void ShowLibrary();
    void ShowNoMusic();
    void ShowNoDevice();
};
