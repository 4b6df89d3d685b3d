#pragma once

#include "copy/BrowseDirectorysOnly.h"
#include "platform/Controls.h"
#include "platform/FileSystem.h"
#include "platform/Window.h"

/// The destination's box, and the window that owns the picker and has the box's font.
struct DestinationControls {
    Window& Form1;
    TextControl& txtDestination;
};

/// The destination folder: its text box, its picker, and whether a folder of that path can be made.
class Destination {
public:
    Destination(FileSystem& files, Shell& shell, WindowManager& windowManager,
                const DestinationControls& controls);

    /// The topmost folder that ValidatePath created to try a path; the caller deletes it. Empty
    /// when there is none.
    QString ProbeFolder;
    /// ValidatePath could not create a folder, and not because of a bad name.
    bool CreateFailed = false;

    /// Whether the folder `Path` can be made. Finds out by making it and every folder that is
    /// missing above it. Throws nothing.
    bool ValidatePath(const QString& Path);
    // Two that no operation needs at present, kept ready for one that checks or makes a typed path.

    /// Whether `Path` is a well-formed path on a drive that exists.
    bool IsValidPath(const QString& Path);
    /// Creates each missing folder of `Path`. Throws what the first failing creation throws.
    void CreatePath(const QString& Path);

    /// Shows a path that is wider than its box in the box's tooltip.
    void txtDestination_Change();
    /// Lets the user pick the destination.
    void cmdBrowse_Click();

private:
    FileSystem& m_files;
    FolderPicker m_picker;
    WindowManager& m_windowManager;
    DestinationControls m_controls;
};
