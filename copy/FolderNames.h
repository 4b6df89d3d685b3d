#pragma once

#include "platform/FileSystem.h"

#include <QHash>

/// The names of the folders of one job. A name that the target's file system cannot hold is changed
/// to one that it can, and numbered where another artist or album has that one already, so that two
/// names never become one folder.
class FolderNames {
public:
    explicit FolderNames(FileSystem& files) : m_files(files) {}

    /// The name to use in the folder `parent` for the safe name `name`, always the same for the
    /// same `parent` and `name`.
    QString NameFor(const QString& parent, const QString& name);
    /// A new job begins.
    void StartOver();

private:
    FileSystem& m_files;
    /// By the folder's path. Asking costs a wait.
    QHash<QString, NameLimits> m_limits;
    /// By the folder's path with its safe name.
    QHash<QString, QString> m_names;
    /// Which name has a folder, by its path. Letter case makes no difference, as on many drives.
    QHash<QString, QString> m_owners;
};
