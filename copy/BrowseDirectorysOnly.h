#pragma once

#include "platform/Shell.h"

#include <QString>

/// The picker of a folder of the file system.
class FolderPicker {
public:
    explicit FolderPicker(Shell& shell);

    /// The folder to preselect, ended by a NUL character as the desktop's pickers expect it.
    QString InitialFolder;

    /// The folder that the user picks over the window `Owner`; empty when cancelled, or when the
    /// choice has no path.
    QString BrowseDirectorysOnly(WindowHandle Owner, const QString& Prompt,
                                 const QString& StartFolder);

private:
    Shell& m_shell;
};
