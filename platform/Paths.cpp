#include "platform/Paths.h"

using namespace Qt::StringLiterals;

namespace Paths {

namespace {

/// The share that a path begins with, as in `\\server\share\Music`; empty for other texts, and for
/// those that name a device ("\\?\", "\\.\").
QString ShareOf(const QString& path) {
    if (!path.startsWith(u"\\\\"_s)) {
        return {};
    }
    const QString server = path.section(u'\\', 2, 2);
    const QString share = path.section(u'\\', 3, 3);
    const bool isDevice = server == u"?"_s || server == u"."_s;
    const bool isShare = !server.isEmpty() && !isDevice && !share.isEmpty();
    return isShare ? path.left(2 + server.size() + 1 + share.size()) : QString();
}

bool IsRoot(const QString& path) {
    const QString drive = DrivePart(path);
    if (path.size() <= drive.size()) {
        return !drive.isEmpty();
    }
    const QChar separator = Separator(path);
    return !drive.isEmpty() && !drive.endsWith(separator) && path == drive + separator;
}

} // namespace

bool IsDriveForm(const QString& path) {
    if (path.size() < 2 || path[1] != u':') {
        return false;
    }
    const char16_t letter = path[0].unicode();
    return (letter >= u'A' && letter <= u'Z') || (letter >= u'a' && letter <= u'z');
}

QChar Separator(const QString& path) {
    const bool isWindows = IsDriveForm(path) || path.startsWith(u"\\\\"_s);
    return isWindows ? u'\\' : u'/';
}

QString WithSeparator(const QString& folder) {
    const QChar separator = Separator(folder);
    return folder.endsWith(separator) ? folder : folder + separator;
}

QString Join(const QString& folder, const QString& name) {
    return WithSeparator(folder) + name;
}

QString ParentFolder(const QString& path) {
    if (IsRoot(path)) {
        return {};
    }
    const QChar separator = Separator(path);
    QString trimmed = path;
    while (trimmed.endsWith(separator) && !IsRoot(trimmed)) {
        trimmed.chop(1);
    }
    const qsizetype cut = trimmed.lastIndexOf(separator);
    if (cut < 0 || IsRoot(trimmed)) {
        return {};
    }
    const QString root = trimmed.left(cut + 1);
    return IsRoot(root) ? root : trimmed.left(cut);
}

QString FileName(const QString& path) {
    return path.mid(path.lastIndexOf(Separator(path)) + 1);
}

QString Extension(const QString& path) {
    const QString name = FileName(path);
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot < 0 ? QString() : name.mid(dot + 1);
}

QString DrivePart(const QString& path) {
    if (IsDriveForm(path)) {
        return path.left(2);
    }
    return path.startsWith(u'/') ? u"/"_s : ShareOf(path);
}

} // namespace Paths
