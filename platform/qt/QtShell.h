#pragma once

#include "platform/Shell.h"

class QtShell : public Shell {
public:
    QString BrowseForFolder(WindowHandle owner, const QString& prompt,
                            const QString& startFolder) override;
    QString DocumentsFolder() override;
};
