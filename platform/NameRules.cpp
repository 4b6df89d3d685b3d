#include "platform/NameRules.h"

#include "platform/Paths.h"
#include "platform/RuntimeError.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

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
    if (std::any_of(name.begin(), name.end(), [](QChar c) { return u":*?\"<>|"_s.contains(c); })) {
        throw RuntimeError(ErrorNumber::BadFileName);
    }
}

QString FoldedName(const QString& name) {
    return name.normalized(QString::NormalizationForm_D)
        .toCaseFolded()
        .normalized(QString::NormalizationForm_D);
}

QString WithoutDotsAndBlanksAtEnd(QString text) {
    while (text.endsWith(u'.') || text.endsWith(u' ')) {
        text.chop(1);
    }
    return text;
}

bool IsDeviceName(const QString& name) {
    const QString base = WithoutDotsAndBlanksAtEnd(name.section(u'.', 0, 0)).toUpper();
    static const std::array<QString, 6> devices = {u"CON"_s, u"PRN"_s,    u"AUX"_s,
                                                   u"NUL"_s, u"CONIN$"_s, u"CONOUT$"_s};
    if (std::find(devices.begin(), devices.end(), base) != devices.end()) {
        return true;
    }
    const bool isNumbered = base.startsWith(u"COM"_s) || base.startsWith(u"LPT"_s);
    return isNumbered && base.size() == 4 && u"123456789¹²³"_s.contains(base[3]);
}
