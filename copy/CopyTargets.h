#pragma once

#include "copy/CopyErrors.h"
#include "copy/CopyPlan.h"
#include "copy/FolderNames.h"
#include "copy/Naming.h"
#include "platform/PatientFileSystem.h"

#include <optional>

/// Where the copies of a job go: into which folders, which are made where they are missing, and
/// under which names.
class CopyTargets {
public:
    explicit CopyTargets(PatientFileSystem& files) : m_files(files), m_folderNames(files) {}

    /// A job into the folder `root` begins, which has a separator at its end.
    void StartOver(const QString& root);
    const QString& Root() const { return m_root; }

    /// The last track's folders have these names, and could be made.
    bool AreEntered(const QStringList& names) const { return names == m_namesOfLast; }
    /// From now on, they may be gone.
    void LeaveFolders() { m_namesOfLast.reset(); }
    /// Makes the folders with these names where they are missing, the outermost first, but without
    /// the first `made` ones, and leads `place` there. After a failure, which `place` then names,
    /// `made` stands at the folder that failed.
    void EnterFolders(const QStringList& names, qsizetype& made, CopyPlace& place);
    /// Gives a track's copy its name, unless it has one already.
    void NameFile(PlannedTrack& planned);

private:
    PatientFileSystem& m_files;
    Naming m_naming;
    FolderNames m_folderNames;
    QString m_root;
    /// The folder of the last track.
    QString m_enteredFolder;
    /// The last track's folders as the plan names them, if they could be made.
    std::optional<QStringList> m_namesOfLast;
};
