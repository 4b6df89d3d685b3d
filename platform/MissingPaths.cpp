#include "platform/MissingPaths.h"

#include "platform/Paths.h"
#include "platform/RuntimeError.h"

QStringList MissingFolders(FileSystem& files, const QString& path) {
    QStringList missing;
    for (QString folder = path; !files.FolderExists(folder); folder = Paths::ParentFolder(folder)) {
        if (folder.isEmpty()) {
            throw RuntimeError(ErrorNumber::PathNotFound);
        }
        missing.prepend(folder);
    }
    return missing;
}

void ThrowMissing(FileSystem& files, const QString& path) {
    const bool hasFolder = files.FolderExists(Paths::ParentFolder(path));
    throw RuntimeError(hasFolder ? ErrorNumber::FileNotFound : ErrorNumber::PathNotFound);
}
