#include "platform/NameRules.h"

#include "platform/Paths.h"
#include "platform/RuntimeError.h"

#include <algorithm>
#include <array>

void RequireNoPartName(const QString& name) {
    if (WithoutDotsAndBlanksAtEnd(name).compare(QLatin1String(PartName), Qt::CaseInsensitive) ==
        0) {
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
}

void RequireFolderName(const QString& path) {
    QString trimmed = path;
    while (trimmed.endsWith(Paths::Separator(path))) {
        trimmed.chop(1);
    }
    const bool isDrive = trimmed == Paths::DrivePart(trimmed);
    const QString name = isDrive ? QString() : Paths::FileName(trimmed);
    if (std::any_of(name.begin(), name.end(),
                    [](QChar c) { return QStringView(u":*?\"<>|").contains(c); })) {
        throw RuntimeError(ErrorNumber::BadFileName);
    }
}

QString WithoutDotsAndBlanksAtEnd(QString text) {
    while (text.endsWith(QLatin1Char('.')) || text.endsWith(QLatin1Char(' '))) {
        text.chop(1);
    }
    return text;
}

bool IsDeviceName(const QString& name) {
    const QString base = WithoutDotsAndBlanksAtEnd(name.section(QLatin1Char('.'), 0, 0)).toUpper();
    static const std::array<QString, 6> devices = {
        QStringLiteral("CON"), QStringLiteral("PRN"),    QStringLiteral("AUX"),
        QStringLiteral("NUL"), QStringLiteral("CONIN$"), QStringLiteral("CONOUT$")};
    if (std::find(devices.begin(), devices.end(), base) != devices.end()) {
        return true;
    }
    const bool isNumbered =
        base.startsWith(QLatin1String("COM")) || base.startsWith(QLatin1String("LPT"));
    return isNumbered && base.size() == 4 && QStringView(u"123456789¹²³").contains(base[3]);
}
