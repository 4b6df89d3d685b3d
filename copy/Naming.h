#pragma once

#include "platform/NameLimits.h"

#include <QHash>
#include <QString>
#include <QtGlobal>

#include <vector>

/// Turns library text into names that file systems accept, and numbers the file names that come
/// again in one folder, also those that become equal because its file system cannot hold them
/// whole.
class Naming {
public:
    Naming();

    /// A new destination folder has begun: the names given so far are forgotten by the next call,
    /// and the next file name clears this.
    bool FolderChanged = false;
    /// What the file names must fit.
    NameLimits Limits;

    /// The safe name for `Text`, never empty. With `IsFile`, `Ext` (the extension with its dot) is
    /// appended, and the name differs from every file name given since the folder changed. Letter
    /// case makes a difference here, although it makes none on many drives.
    QString MakeSafeName(const QString& Text, bool IsFile, const QString& Ext);

    /// The file names given since the folder changed; a single empty one after it has changed.
    const std::vector<QString>& UsedNames() const { return m_usedNames; }
    /// For each of UsedNames, the number to try when that name comes again.
    const std::vector<qint32>& UsedCounts() const { return m_usedCounts; }

private:
    void StartOver();
    void Enter(const QString& name);

    std::vector<QString> m_usedNames;
    std::vector<qint32> m_usedCounts;
    /// Where in UsedNames a name stands. No name is entered twice, so that this finds what a search
    /// from the first entry on would find, at the cost of one look-up.
    QHash<QString, qsizetype> m_indexOf;
};
