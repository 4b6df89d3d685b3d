#include "copy/EnsureFolder.h"

#include "platform/RuntimeError.h"

void EnsureFolder(FileSystem& files, const QString& folder) {
    if (files.FolderExists(folder)) {
        return;
    }
    try {
        files.CreateFolder(folder);
    } catch (const RuntimeError& error) {
        if (error.Number != ErrorNumber::FileAlreadyExists) {
            throw;
        }
    }
}
