#include "platform/windows/WindowsPaths.h"

#include "platform/NameRules.h"
#include "platform/Paths.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Longer texts are no paths.
constexpr qsizetype LongestPath = 32000;
/// On every file system of Windows.
constexpr qsizetype LongestName = 255;

std::wstring Literal(const QString& drive) {
    const QString text =
        Paths::IsDriveForm(drive) ? u"\\\\?\\"_s + drive : u"\\\\?\\UNC"_s + drive.mid(1);
    return text.toStdWString();
}

} // namespace

bool IsUsableName(const QString& name) {
    const auto isRefused = [](QChar c) { return c < u' ' || u"\"*/:<>?\\|"_s.contains(c); };
    return name.size() <= LongestName && std::none_of(name.begin(), name.end(), isRefused) &&
           name.isValidUtf16() && WithoutDotsAndBlanksAtEnd(name) == name && !IsDeviceName(name);
}

std::optional<std::wstring> SystemPath(const QString& path) {
    std::optional<std::wstring> result = SystemRoot(path);
    const QString rest = path.mid(Paths::DrivePart(path).size());
    if (!result || path.size() > LongestPath || !(rest.isEmpty() || rest.startsWith(u'\\'))) {
        return std::nullopt;
    }
    const QStringList names = rest.split(u'\\', Qt::SkipEmptyParts);
    if (!std::all_of(names.begin(), names.end(), IsUsableName)) {
        return std::nullopt;
    }
    *result += names.join(u'\\').toStdWString();
    return result;
}

std::optional<std::wstring> SystemRoot(const QString& path) {
    const QString drive = Paths::DrivePart(path);
    const bool isOnShare = drive.startsWith(u"\\\\"_s);
    const bool isUsable = isOnShare && IsUsableName(drive.section(u'\\', 2, 2)) &&
                          IsUsableName(drive.section(u'\\', 3, 3));
    if (!isUsable && !Paths::IsDriveForm(drive)) {
        return std::nullopt;
    }
    return Literal(drive) + L'\\';
}
