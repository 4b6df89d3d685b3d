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
    /// The job is over.
    void Forget() { m_root.clear(); }
    /// The job's own folder for files that have no name yet, without a separator; empty while there
    /// is no job.
    QString TemporaryFolder() const;

    /// The last track's folders have these names, and EnterFolders has led there.
    bool AreEntered(const QStringList& names) const { return names == m_namesOfLast; }
    /// The folders of the next track have these names, and may have to be made.
    void ChooseFolders(const QStringList& names);
    /// Makes the chosen folders where they are missing, the outermost first, but without the first
    /// `made` ones, and leads `place` there. After a failure, which `place` then names, `made`
    /// stands at the folder that failed.
    void EnterFolders(qsizetype& made, CopyPlace& place);
    /// Gives a track's copy its name, unless it has one already.
    void NameFile(PlannedTrack& planned);

private:
    PatientFileSystem& m_files;
    Naming m_naming;
    FolderNames m_folderNames;
    QString m_root;
    /// The folders of the track at hand: as the plan names them, and their paths.
    QStringList m_names;
    QStringList m_folders;
    /// The folder of the last track.
    QString m_enteredFolder;
    /// The last track's folders as the plan names them, once they were entered.
    std::optional<QStringList> m_namesOfLast;
};
