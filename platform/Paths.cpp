#include "platform/Paths.h"

namespace Paths {

namespace {

bool IsRoot(const QString& path) {
    return path == QLatin1String("/") ||
           (IsDriveForm(path) && QStringView(path).mid(2).compare(QLatin1String("\\")) == 0) ||
           (IsDriveForm(path) && path.size() == 2);
}

} // namespace

bool IsDriveForm(const QString& path) {
    if (path.size() < 2 || path[1] != QLatin1Char(':')) {
        return false;
    }
    const char16_t letter = path[0].unicode();
    return (letter >= u'A' && letter <= u'Z') || (letter >= u'a' && letter <= u'z');
}

QChar Separator(const QString& path) {
    return IsDriveForm(path) ? QLatin1Char('\\') : QLatin1Char('/');
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
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    return dot < 0 ? QString() : name.mid(dot + 1);
}

QString DrivePart(const QString& path) {
    if (IsDriveForm(path)) {
        return path.left(2);
    }
    return path.startsWith(QLatin1Char('/')) ? QStringLiteral("/") : QString();
}

} // namespace Paths
