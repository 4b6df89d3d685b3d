#pragma once

#include "copy/CopyErrors.h"
#include "copy/CopyPlan.h"
#include "copy/FolderNames.h"
#include "copy/Naming.h"
#include "platform/PatientFileSystem.h"

#include <deque>
#include <functional>
#include <memory>

/// A folder that is entered before its turn comes.
struct FolderAhead {
    /// With a separator at its end.
    QString Path;
    /// Makes and enters it, on any thread. False where that fails or was stopped, or where names
    /// must be others than in the folder at hand: its turn will tell.
    std::function<bool(FileSystem&, const CopyControl&)> Enter;
};

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

    /// The last track's folders have these names, and `place` was led there.
    bool AreEntered(const QStringList& names) const;
    /// The folders of the next track have these names, and may have to be made.
    void ChooseFolders(const QStringList& names);
    /// Makes the chosen folders where they are missing, the outermost first, but without the first
    /// `made` ones, and leads `place` there. After a failure, which `place` then names, `made`
    /// stands at the folder that failed.
    void EnterFolders(qsizetype& made, CopyPlace& place);
    /// Chooses the folders of a later track, after those that were chosen ahead before.
    FolderAhead ChooseAhead(const QStringList& names);
    /// Leads `place` to the folders with these names, if they were entered ahead.
    bool TakeAhead(const QStringList& names, CopyPlace& place);
    /// No folders are chosen ahead any more.
    void ForgetAhead() { m_chosenAhead.clear(); }
    /// Gives a track's copy its name, unless it has one already.
    void NameFile(PlannedTrack& planned);

private:
    struct Folders {
        /// As the plan names them.
        QStringList Names = {};
        QStringList Paths = {};
        /// The innermost one, with a separator.
        QString Last = {};
    };
    struct Attempt;
    struct Ahead {
        Folders Chosen;
        std::shared_ptr<Attempt> Entering;
    };

    Folders FoldersOf(const QStringList& names);
    static void MakeAndEnter(FileSystem& files, const Folders& folders, Attempt& attempt,
                             const CopyControl& control);
    std::shared_ptr<Attempt> EndedAhead(const QStringList& names) const;
    void HaveEntered(const Attempt& attempt, CopyPlace& place);

    PatientFileSystem& m_files;
    Naming m_naming;
    FolderNames m_folderNames;
    QString m_root;
    /// The folders of the track at hand, and whether they were entered.
    Folders m_folders;
    bool m_areEntered = false;
    /// The folder of the last track, and what it can hold.
    QString m_enteredFolder;
    NameLimits m_limits;
    /// The folders of later tracks, in their order.
    std::deque<Ahead> m_chosenAhead;
};
