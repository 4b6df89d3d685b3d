#pragma once

#include "platform/WindowManager.h"

#include <QString>

/// What the desktop offers around files.
class Shell {
public:
    virtual ~Shell() = default;

    /// Lets the user pick a folder of the file system. `startFolder` is selected first where it
    /// exists; the selected folder's path is shown while the user looks around. Empty when
    /// cancelled.
    virtual QString BrowseForFolder(WindowHandle owner, const QString& prompt,
                                    const QString& startFolder) = 0;
    /// The user's documents folder; empty where the desktop knows none.
    virtual QString DocumentsFolder() = 0;
};
