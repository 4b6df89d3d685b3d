#include "platform/linux/LinuxNames.h"

#include "platform/linux/FolderListing.h"

#include <QStringDecoder>

#include <algorithm>

namespace {

bool IsAscii(const QByteArray& name) {
    return std::none_of(name.begin(), name.end(), [](char c) { return (c & 0x80) != 0; });
}

/// What two names have in common that differ only in case or in composition. Empty for bytes that
/// are no UTF-8: they equal no text.
QString FoldedName(const QByteArray& name) {
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(name);
    if (decoder.hasError()) {
        return {};
    }
    return text.normalized(QString::NormalizationForm_D)
        .toCaseFolded()
        .normalized(QString::NormalizationForm_D);
}

} // namespace

std::optional<QByteArray> EncodeName(const QString& text) {
    if (!text.isValidUtf16() || text.contains(QChar(u'\0'))) {
        return std::nullopt;
    }
    return text.toUtf8();
}

QByteArray FindNameIgnoringCase(int folder, const QByteArray& wanted) {
    const bool wantedIsAscii = IsAscii(wanted);
    const QString wantedFolded = FoldedName(wanted);
    QByteArray found;
    ListFolder(folder, [&](const QByteArray& name, unsigned char) {
        // Nearly all names on an iPod are plain ASCII, and unfolding them costs more than listing.
        const bool isSame = wantedIsAscii && IsAscii(name)
                                ? name.compare(wanted, Qt::CaseInsensitive) == 0
                                : FoldedName(name) == wantedFolded;
        if (isSame && (found.isEmpty() || name < found)) {
            found = name;
        }
    });
    return found;
}
