#include "platform/linux/LinuxFileSystem.h"
#include "tests/fakes/RealFiles.h"
#include "tests/fakes/SharedFolder.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

const QString Nothing = u"/nonexistent"_s;

/// Attached as the last drive, for the whole life of the process.
struct AttachedFolder {
    AttachedFolder() {
        qputenv("SONGLIFT_DRIVES", Folder.path().toUtf8());
        Letter = Drives.Drives().back().Path;
    }

    QTemporaryDir Folder{FolderInMemory()};
    /// Does not look at the system's mounts, which come and go while other tests run: a look takes
    /// time and memory, which some tests measure.
    LinuxDrives Drives{{Nothing, Nothing, Nothing}};
    LinuxFileSystem Files{Drives};
    QString Letter;
};

AttachedFolder& Attached() {
    static AttachedFolder folder;
    return folder;
}

} // namespace

QString SharedFolder::Path() {
    return Attached().Folder.path();
}

QString SharedFolder::OnDrive(const QString& below) {
    return Attached().Letter + u'\\' + below;
}

QString SharedFolder::Native(const QString& below) {
    return Path() + u'/' + below;
}

FileSystem& SharedFolder::Files() {
    return Attached().Files;
}
