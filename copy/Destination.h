#pragma once

#include "copy/BrowseDirectorysOnly.h"
#include "platform/Controls.h"
#include "platform/FileSystem.h"
#include "platform/Window.h"

#include <utility>

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

    /// Whether the folder `Path` can be made. Finds out by making it and every folder that is
    /// missing above it. Throws nothing.
    bool ValidatePath(const QString& Path);
    /// The topmost folder that the last ValidatePath created; empty when there is none.
    const QString& ProbeFolder() const { return m_probeFolder; }
    /// Gives the probe folder away, to be deleted, and forgets it.
    QString TakeProbeFolder() { return std::exchange(m_probeFolder, QString()); }
    /// A ValidatePath could not create a folder, and not because of a bad name.
    bool CreateFailed() const { return m_createFailed; }
    /// The same, and forgets it.
    bool TakeCreateFailed() { return std::exchange(m_createFailed, false); }
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

    QString m_probeFolder;
    bool m_createFailed = false;
};
