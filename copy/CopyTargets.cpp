#include "copy/CopyTargets.h"

#include "copy/EnsureFolder.h"
#include "platform/Paths.h"

#include <exception>
#include <memory>

void CopyTargets::StartOver(const QString& root) {
    m_root = root;
    m_enteredFolder.clear();
    m_namesOfLast.reset();
    m_folderNames.StartOver();
}

/// At the end removes what a killed job has left in the last folder, even if all its files are
/// going to be skipped, and asks what names it can hold. All in one go, since each wait for the
/// disk costs time.
void CopyTargets::EnterFolders(const QStringList& names, qsizetype& made, CopyPlace& place) {
    QString folder = m_root;
    QStringList folders;
    for (const QString& name : names) {
        folders += folder + m_folderNames.NameFor(folder, name);
        folder = Paths::WithSeparator(folders.last());
    }
    const bool isOther = folder != m_enteredFolder;
    struct Entered {
        qsizetype Made;
        NameLimits Limits = {};
    };
    const auto entered = std::make_shared<Entered>(Entered{made});
    // Every attempt looks again for the folder that failed: a disk that is back may have it.
    const auto enter = [=](FileSystem& files) {
        for (; entered->Made < folders.size(); ++entered->Made) {
            EnsureFolder(files, folders[entered->Made]);
        }
        if (isOther) {
            files.RemoveLeftovers(folder);
            entered->Limits = files.LimitsOf(folder);
        }
    };
    try {
        if (made < folders.size() || isOther) {
            m_files.Do(enter);
        }
    } catch (const std::exception&) {
        made = entered->Made;
        place.FileName = Paths::FileName(folders[made]);
        place.DestFolder = folders[made].chopped(place.FileName.size());
        throw;
    }
    if (isOther) {
        m_enteredFolder = folder;
        m_naming.FitTo(entered->Limits);
    }
    place.DestFolder = folder;
    m_namesOfLast = names;
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
