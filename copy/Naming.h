#pragma once

#include "platform/NameLimits.h"

#include <QHash>
#include <QString>
#include <QtGlobal>

#include <vector>

/// The name for `Text` that file systems accept, never empty.
QString MakeSafeName(const QString& Text);

/// Numbers file names that occur again in one folder, also those that become equal because its file
/// system cannot hold them whole.
class Naming {
public:
    /// A new destination folder begins: the next file name forgets the earlier ones.
    void ChangeFolder() { m_folderChanged = true; }
    /// From now on, file names must fit these limits.
    void FitTo(const NameLimits& limits) { m_limits = limits; }

    /// The name of a file for the safe name `Name` and the extension `Ext` with its dot. It differs
    /// from every file name given since the folder changed. Letter case makes a difference here,
    /// although it makes none on many drives.
    QString MakeFileName(const QString& Name, const QString& Ext);

    /// No file name was given since the folder changed.
    bool FolderChanged() const { return m_folderChanged; }
    /// The file names given since the folder changed.
    const std::vector<QString>& UsedNames() const { return m_usedNames; }
    /// For each of UsedNames, the number to try when that name occurs again.
    const std::vector<qint32>& UsedCounts() const { return m_usedCounts; }

private:
    void Enter(const QString& name);

    bool m_folderChanged = false;
    NameLimits m_limits;
    std::vector<QString> m_usedNames;
    std::vector<qint32> m_usedCounts;
    /// Where in UsedNames a name stands. No name is entered twice, so that this finds what a search
    /// from the first entry on would find, at the cost of one look-up.
    QHash<QString, qsizetype> m_indexOf;
};
