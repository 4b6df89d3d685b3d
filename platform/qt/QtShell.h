#pragma once

#include "platform/Shell.h"

/// The desktop's folder dialog, or Qt's own where it has none, and the user's folders.
class QtShell : public Shell {
public:
    QString BrowseForFolder(WindowHandle owner, const QString& prompt,
                            const QString& startFolder) override;
    QString DocumentsFolder() override;
};
