#include "platform/windows/WindowsFileSystem.h"
#include "tests/fakes/SharedFolder.h"

#include <QDir>
#include <QTemporaryDir>

QString SharedFolder::Path() {
    static const QTemporaryDir folder;
    return folder.path();
}

QString SharedFolder::OnDrive(const QString& below) {
    return QDir::toNativeSeparators(Path()) + u'\\' + below; // every path is on a drive
}

QString SharedFolder::Native(const QString& below) {
    return QDir::toNativeSeparators(Path() + u'/' + below);
}

FileSystem& SharedFolder::Files() {
    static WindowsFileSystem files;
    return files;
}
