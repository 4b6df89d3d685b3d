#include "platform/linux/MountTable.h"

#include <QFile>
#include <QList>

namespace {

bool IsOctal(char c) {
    return c >= '0' && c <= '7';
}

/// Blanks, tabs, line ends and backslashes stand in the table as "\040" and so on.
QByteArray Unescaped(const QByteArray& field) {
    QByteArray text;
    for (qsizetype i = 0; i < field.size(); ++i) {
        if (field[i] == '\\' && i + 3 < field.size() && IsOctal(field[i + 1]) &&
            IsOctal(field[i + 2]) && IsOctal(field[i + 3])) {
            const int code =
                (field[i + 1] - '0') * 64 + (field[i + 2] - '0') * 8 + (field[i + 3] - '0');
            text += static_cast<char>(code);
            i += 3;
        } else {
            text += field[i];
        }
    }
    return text;
}

/// Fields: id, parent, device, root, folder, options, any number of tags, "-", type, source, ...
bool ParseLine(const QByteArray& line, Mount& mount) {
    const QList<QByteArray> fields = line.split(' ');
    const qsizetype dash = fields.indexOf("-", 6);
    if (dash < 0 || dash + 2 >= fields.size()) {
        return false;
    }
    mount.Device = fields[2];
    mount.Root = Unescaped(fields[3]);
    mount.Folder = Unescaped(fields[4]);
    mount.Type = fields[dash + 1];
    mount.Source = Unescaped(fields[dash + 2]);
    return mount.Folder.startsWith('/');
}

} // namespace

std::vector<Mount> ReadMountTable(const QString& file) {
    QFile table(file);
    std::vector<Mount> mounts;
    if (!table.open(QIODevice::ReadOnly)) {
        return mounts;
    }
    const QList<QByteArray> lines = table.readAll().split('\n');
    for (const QByteArray& line : lines) {
        Mount mount;
        if (ParseLine(line, mount)) {
            std::erase_if(mounts, [&](const Mount& m) { return m.Folder == mount.Folder; });
            mounts.push_back(mount);
        }
    }
    return mounts;
}

QByteArray MountFolderOf(const std::vector<Mount>& mounts, const QByteArray& path) {
    QByteArray longest = "/";
    for (const Mount& mount : mounts) {
        const bool holdsPath = path == mount.Folder || path.startsWith(mount.Folder + '/');
        if (holdsPath && mount.Folder.size() > longest.size()) {
            longest = mount.Folder;
        }
    }
    return longest;
}
