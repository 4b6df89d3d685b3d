#include "copy/CopyTargets.h"

#include "copy/EnsureFolder.h"
#include "platform/Paths.h"

#include <atomic>
#include <exception>
#include <memory>

using namespace Qt::StringLiterals;

void CopyTargets::StartOver(const QString& root) {
    m_root = root;
    m_enteredFolder.clear();
    m_namesOfLast.reset();
    m_folderNames.StartOver();
}

QString CopyTargets::TemporaryFolder() const {
    return m_root.isEmpty() ? QString() : m_root + u"tmp"_s;
}

void CopyTargets::ChooseFolders(const QStringList& names) {
    m_namesOfLast.reset();
    m_names = names;
    m_folders.clear();
    QString folder = m_root;
    for (const QString& name : names) {
        m_folders += folder + m_folderNames.NameFor(folder, name);
        folder = Paths::WithSeparator(m_folders.last());
    }
}

/// At the end removes what a killed job has left in the last folder, even if all its files are
/// going to be skipped, and asks what names it can hold. All in one go, since each wait for the
/// disk costs time.
void CopyTargets::EnterFolders(qsizetype& made, CopyPlace& place) {
    const QString folder = m_folders.isEmpty() ? m_root : Paths::WithSeparator(m_folders.last());
    const bool isOther = folder != m_enteredFolder;
    struct Entered {
        std::atomic<qsizetype> Made; // read also while an operation that was given up goes on
        NameLimits Limits = {};
    };
    const auto entered = std::make_shared<Entered>(made);
    // Every attempt looks again for the folder that failed: a disk that is back may have it.
    const auto enter = [=, folders = m_folders](FileSystem& files) {
        for (; entered->Made < folders.size(); ++entered->Made) {
            EnsureFolder(files, folders[entered->Made]);
        }
        if (isOther) {
            files.RemoveLeftovers(folder);
            entered->Limits = files.LimitsOf(folder);
        }
    };
    try {
        if (made < m_folders.size() || isOther) {
            m_files.Do(enter);
        }
    } catch (const std::exception&) {
        made = entered->Made;
        if (made < m_folders.size()) {
            place.FileName = Paths::FileName(m_folders[made]);
            place.DestFolder = m_folders[made].chopped(place.FileName.size());
        }
        throw;
    }
    if (isOther) {
        m_enteredFolder = folder;
        m_naming.FitTo(entered->Limits);
    }
    place.DestFolder = folder;
    m_namesOfLast = m_names;
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
