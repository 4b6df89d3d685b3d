#include "copy/CopyTargets.h"

#include "copy/EnsureFolder.h"
#include "platform/Paths.h"

#include <atomic>
#include <exception>
#include <utility>

using namespace Qt::StringLiterals;

/// How far the work of entering a track's folders has come. Read also while an attempt that was
/// given up goes on.
struct CopyTargets::Entry {
    /// So many of them are known to exist, the outermost first.
    std::atomic<qsizetype> Made = 0;
    /// The last one is a folder that the job was not in a moment ago.
    bool IsOther = true;
    /// Of the last one, if it is another.
    NameLimits Limits = {};
    std::atomic<bool> IsOver = false;
};

void CopyTargets::StartOver(const QString& root) {
    m_root = root;
    m_enteredFolder.clear();
    m_areEntered = false;
    m_ahead.clear();
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
std::function<void(FileSystem&)> CopyTargets::Entering(const Folders& folders,
                                                       const std::shared_ptr<Entry>& entry) {
    return [folders, entry](FileSystem& files) {
        for (; entry->Made < folders.Paths.size(); ++entry->Made) {
            EnsureFolder(files, folders.Paths[entry->Made]);
        }
        if (entry->IsOther) {
            files.RemoveLeftovers(folders.Last);
            entry->Limits = files.LimitsOf(folders.Last);
        }
        entry->IsOver = true;
    };
}

void CopyTargets::EnterFolders(qsizetype& made, CopyPlace& place) {
    // Every attempt looks again for the folder that failed: a disk that is back may have it.
    const auto entry = std::make_shared<Entry>();
    entry->Made = made;
    entry->IsOther = m_folders.Last != m_enteredFolder;
    try {
        if (made < m_folders.Paths.size() || entry->IsOther) {
            m_files.Do(Entering(m_folders, entry));
        }
    } catch (const std::exception&) {
        made = entry->Made;
        if (made < m_folders.Paths.size()) {
            place.FileName = Paths::FileName(m_folders.Paths[made]);
            place.DestFolder = m_folders.Paths[made].chopped(place.FileName.size());
        }
        throw;
    }
    Enter(*entry, place);
}

FolderAhead CopyTargets::ChooseAhead(const QStringList& names) {
    const Ahead ahead = {FoldersOf(names), std::make_shared<Entry>()};
    m_ahead.push_back(ahead);
    const auto enter = [ahead, limits = m_limits](FileSystem& files) {
        try {
            Entering(ahead.Chosen, ahead.How)(files);
            return ahead.How->Limits == limits;
        } catch (const std::exception&) {
            return false; // tried again, and reported, when their turn comes
        }
    };
    return {ahead.Chosen.Last, enter};
}

bool CopyTargets::TakeAhead(const QStringList& names, CopyPlace& place) {
    if (m_ahead.empty() || !m_ahead.front().How->IsOver || names != m_ahead.front().Chosen.Names) {
        return false;
    }
    const Ahead ahead = m_ahead.front();
    m_ahead.pop_front();
    m_folders = ahead.Chosen;
    Enter(*ahead.How, place);
    return true;
}

/// The folders of the track at hand are there.
void CopyTargets::Enter(const Entry& entry, CopyPlace& place) {
    if (entry.IsOther) {
        m_limits = entry.Limits;
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
