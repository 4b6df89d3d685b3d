#pragma once

#include "platform/Shell.h"

#include <QString>

/// Lets the user pick a folder.
class FolderPicker {
public:
    explicit FolderPicker(Shell& shell);

    /// The folder to preselect, with a NUL character at its end.
    QString InitialFolder;

    /// Returns the folder that the user picks; empty if cancelled, or if the choice has no path.
    /// `Owner` is the window below the picker.
    QString BrowseDirectorysOnly(WindowHandle Owner, const QString& Prompt,
                                 const QString& StartFolder);

private:
    Shell& m_shell;
};
