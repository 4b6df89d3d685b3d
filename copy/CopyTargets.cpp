#include "copy/CopyTargets.h"

#include "copy/EnsureFolder.h"
#include "platform/Paths.h"

#include <atomic>
#include <exception>
#include <utility>

using namespace Qt::StringLiterals;

/// How far an attempt to enter a track's folders has come. Read also while one that was given up
/// goes on.
struct CopyTargets::Attempt {
    /// So many of them are known to exist, the outermost first.
    std::atomic<qsizetype> Made = 0;
    /// The last one is a folder that the job was not in a moment ago.
    bool IsOther = true;
    /// Of the last one, if it is another.
    NameLimits Limits = {};
    /// What an attempt that was made ahead has thrown.
    std::exception_ptr Failure = {};
    /// An attempt that was made ahead has entered the last one, or failed.
    std::atomic<bool> HasEnded = false;
};

void CopyTargets::StartOver(const QString& root) {
    m_root = root;
    m_enteredFolder.clear();
    m_areEntered = false;
    m_chosenAhead.clear();
    m_folderNames.StartOver();
}

QString CopyTargets::TemporaryFolder() const {
    return m_root.isEmpty() ? QString() : m_root + u"tmp"_s;
}

bool CopyTargets::AreEntered(const QStringList& names) const {
    return m_areEntered && names == m_folders.Names;
}

CopyTargets::Folders CopyTargets::FoldersOf(const QStringList& names) {
    Folders folders{.Names = names, .Last = m_root};
    for (const QString& name : names) {
        folders.Paths += folders.Last + m_folderNames.NameFor(folders.Last, name);
        folders.Last = Paths::WithSeparator(folders.Paths.last());
    }
    return folders;
}

void CopyTargets::ChooseFolders(const QStringList& names) {
    m_areEntered = false;
    m_folders = FoldersOf(names);
}

/// At the end removes what a killed job has left in the last folder, even if all its files are
/// going to be skipped, and asks what names it can hold. All in one go, since each wait for the
/// disk costs time.
void CopyTargets::MakeAndEnter(FileSystem& files, const Folders& folders, Attempt& attempt,
                               const CopyControl& control) {
    for (; attempt.Made < folders.Paths.size() && !control.IsStopped(); ++attempt.Made) {
        EnsureFolder(files, folders.Paths[attempt.Made]);
    }
    if (attempt.IsOther && !control.IsStopped()) {
        files.RemoveLeftovers(folders.Last);
        attempt.Limits = files.LimitsOf(folders.Last);
    }
}

void CopyTargets::EnterFolders(qsizetype& made, CopyPlace& place) {
    std::shared_ptr<Attempt> attempt = EndedAhead(m_folders.Names);
    try {
        if (attempt && attempt->Failure) {
            m_chosenAhead.pop_front();
            std::rethrow_exception(attempt->Failure); // to meet it again can cost half a minute
        }
        // Every attempt looks again for the folder that failed: a disk that is back may have it.
        attempt = std::make_shared<Attempt>();
        attempt->Made = made;
        attempt->IsOther = m_folders.Last != m_enteredFolder;
        const CopyControl control;
        const auto enter = [folders = m_folders, attempt, control](FileSystem& files) {
            MakeAndEnter(files, folders, *attempt, control);
        };
        if (made < m_folders.Paths.size() || attempt->IsOther) {
            m_files.Do(enter, control);
        }
    } catch (const std::exception&) {
        made = attempt->Made;
        if (made < m_folders.Paths.size()) {
            place.FileName = Paths::FileName(m_folders.Paths[made]);
            place.DestFolder = m_folders.Paths[made].chopped(place.FileName.size());
        }
        throw;
    }
    HaveEntered(*attempt, place);
}

FolderAhead CopyTargets::ChooseAhead(const QStringList& names) {
    const Ahead ahead = {FoldersOf(names), std::make_shared<Attempt>()};
    m_chosenAhead.push_back(ahead);
    const auto enter = [ahead, limits = m_limits](FileSystem& files, const CopyControl& control) {
        Attempt& attempt = *ahead.Entering;
        try {
            MakeAndEnter(files, ahead.Chosen, attempt, control);
        } catch (const std::exception&) {
            attempt.Failure = std::current_exception();
        }
        attempt.HasEnded = !control.IsStopped();
        return attempt.HasEnded && !attempt.Failure && attempt.Limits == limits;
    };
    return {ahead.Chosen.Last, enter};
}

/// The attempt to enter the folders with these names, if one was made ahead; else null.
std::shared_ptr<CopyTargets::Attempt> CopyTargets::EndedAhead(const QStringList& names) const {
    const bool isEnded = !m_chosenAhead.empty() && m_chosenAhead.front().Entering->HasEnded &&
                         m_chosenAhead.front().Chosen.Names == names;
    return isEnded ? m_chosenAhead.front().Entering : nullptr;
}

bool CopyTargets::TakeAhead(const QStringList& names, CopyPlace& place) {
    const std::shared_ptr<Attempt> attempt = EndedAhead(names);
    if (!attempt || attempt->Failure) {
        return false;
    }
    m_folders = m_chosenAhead.front().Chosen;
    m_chosenAhead.pop_front();
    HaveEntered(*attempt, place);
    return true;
}

/// The folders of the track at hand are there.
void CopyTargets::HaveEntered(const Attempt& attempt, CopyPlace& place) {
    if (attempt.IsOther) {
        m_limits = attempt.Limits;
        m_naming.FitTo(m_limits);
    }
    m_enteredFolder = m_folders.Last;
    m_areEntered = true;
    place.DestFolder = m_folders.Last;
}

void CopyTargets::NameFile(PlannedTrack& planned) {
    if (!planned.FileName.isEmpty()) {
        return; // a second name would make a second file of it
    }
    if (planned.StartsFolder) {
        m_naming.ChangeFolder();
    }
    planned.FileName = m_naming.MakeFileName(planned.Name, planned.Extension);
}
