#pragma once

#include "platform/WindowManager.h"

#include <QString>

/// What the desktop offers for dealing with folders.
class Shell {
public:
    virtual ~Shell() = default;

    /// Lets the user choose a folder. `startFolder` is selected first if it exists; the path of the
    /// selected folder is shown all the time. Empty when cancelled.
    virtual QString BrowseForFolder(WindowHandle owner, const QString& prompt,
                                    const QString& startFolder) = 0;
    /// The user's documents folder; empty where the desktop knows none.
    virtual QString DocumentsFolder() = 0;
};
