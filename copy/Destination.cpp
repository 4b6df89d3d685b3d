#include "copy/Destination.h"

#include "platform/Paths.h"
#include "platform/RuntimeError.h"

#include <QStringList>

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

bool HoldsForbidden(const QString& text, QChar separator) {
    const QChar otherSeparator = separator == u'/' ? u'\\' : u'/';
    const QString doubled(2, separator);
    return text.contains(otherSeparator) || text.contains(doubled) ||
           std::any_of(text.begin(), text.end(), [](QChar c) { return u":*?\"<>|"_s.contains(c); });
}

} // namespace

Destination::Destination(FileSystem& files, Shell& shell, WindowManager& windowManager,
                         const DestinationControls& controls)
    : m_files(files), m_picker(shell), m_windowManager(windowManager), m_controls(controls) {
}

bool Destination::ValidatePath(const QString& Path) {
    // A folder that an earlier call has left behind is not deleted: it may be in use by now.
    m_probeFolder.clear();
    if (Path.size() > Paths::LongestPath) {
        return false;
    }
    // A level's path is a beginning of the whole, so its length is enough to remember.
    std::vector<qsizetype> levelsBelow;
    QString level = Path;
    for (QString parent = Paths::ParentFolder(level); !m_files.FolderExists(parent);
         parent = Paths::ParentFolder(level)) {
        if (parent.isEmpty()) {
            return false;
        }
        levelsBelow.push_back(level.size());
        level = parent;
    }
    try {
        m_files.CreateFolder(level);
        m_probeFolder = level;
        for (auto size = levelsBelow.rbegin(); size != levelsBelow.rend(); ++size) {
            m_files.CreateFolder(Path.left(*size));
        }
        return true;
    } catch (const RuntimeError& error) {
        if (error.Number != ErrorNumber::BadFileName) {
            m_createFailed = true;
        }
        return false;
    }
}

bool Destination::IsValidPath(const QString& Path) {
    const QString drive = Paths::DrivePart(Path);
    if (drive.isEmpty() || !m_files.FolderExists(drive)) {
        return false;
    }
    const QChar separator = Paths::Separator(Path);
    const QString rest = Path.mid(drive.size());
    if (HoldsForbidden(rest, separator)) {
        return false;
    }
    bool afterSep = drive.endsWith(separator);
    for (const QChar c : rest) {
        if (c == u'.' || c == u' ') {
            continue; // a component of only dots and blanks counts as empty
        }
        if (c == separator && afterSep) {
            return false;
        }
        afterSep = c == separator;
    }
    if (Path.endsWith(separator)) {
        return true;
    }
    return !Path.endsWith(u'.') && !afterSep;
}

void Destination::CreatePath(const QString& Path) {
    const QChar separator = Paths::Separator(Path);
    QString current = Paths::DrivePart(Path);
    QStringList pieces = Path.mid(current.size()).split(separator);
    if (pieces.last().isEmpty()) {
        pieces.removeLast(); // a separator at the end begins no further folder
    }
    bool creating = false;
    for (const QString& piece : pieces) {
        current += piece + separator;
        creating = creating || !m_files.FolderExists(current);
        if (creating) {
            m_files.CreateFolder(current);
        }
    }
}

void Destination::txtDestination_Change() {
    const QString text = m_controls.txtDestination.Text();
    const double room = m_controls.txtDestination.Width() - 4 * m_windowManager.TwipsPerPixelX();
    // Measured in the window's font, which the box shares.
    const bool isTooWide = m_controls.Form1.TextWidth(text) >= room;
    m_controls.txtDestination.SetToolTip(isTooWide ? text : QString());
}

void Destination::cmdBrowse_Click() {
    const QString folder =
        m_picker.BrowseDirectorysOnly(m_controls.Form1.Handle(), u"Select a destination folder:"_s,
                                      m_controls.txtDestination.Text());
    if (!folder.isEmpty()) {
        m_controls.txtDestination.SetText(folder);
    }
}
