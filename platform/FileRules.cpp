#include "platform/FileRules.h"

#include "platform/Paths.h"
#include "platform/RuntimeError.h"

#include <QStringList>

#include <algorithm>

void RequireReplaceable(bool isFile, Existing existing) {
    if (!isFile) {
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
    if (existing == Existing::Keep) {
        throw RuntimeError(ErrorNumber::FileAlreadyExists);
    }
}

QString NearestFolder(FileSystem& files, const QString& path) {
    if (path.size() > Paths::LongestPath || !files.FolderExists(Paths::DrivePart(path))) {
        return {};
    }
    QString folder = path;
    while (!folder.isEmpty() && !files.FolderExists(folder)) {
        folder = Paths::ParentFolder(folder);
    }
    return folder;
}

void MakeFolderChain(FileSystem& files, const QString& path,
                     const std::function<void(const QString&)>& requireName) {
    QStringList missing; // the highest first
    for (QString folder = path; !files.FolderExists(folder); folder = Paths::ParentFolder(folder)) {
        if (folder.isEmpty()) {
            throw RuntimeError(ErrorNumber::PathNotFound);
        }
        missing.prepend(folder);
    }
    std::for_each(missing.begin(), missing.end(), requireName);
    for (const QString& folder : missing) {
        if (!files.FolderExists(folder)) { // "x/.." exists by now
            files.CreateFolder(folder);
        }
    }
}

void ThrowMissing(FileSystem& files, const QString& path) {
    const bool hasFolder = files.FolderExists(Paths::ParentFolder(path));
    throw RuntimeError(hasFolder ? ErrorNumber::FileNotFound : ErrorNumber::PathNotFound);
}
