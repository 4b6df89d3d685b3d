#include "copy/FittingName.h"

#include "library/MusicLibrary.h"
#include "platform/NameRules.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace {

int Length(const QString& text, const NameLimits& limits) {
    switch (limits.CountedIn) {
    case NameLimits::Unit::Utf16Units:
        return static_cast<int>(text.size());
    case NameLimits::Unit::DecomposedUtf16Units:
        return static_cast<int>(text.normalized(QString::NormalizationForm_D).size());
    case NameLimits::Unit::Utf8Bytes:
        break;
    }
    return static_cast<int>(text.toUtf8().size());
}

/// Without what no name can hold: NUL, half a surrogate pair, and under Windows control characters.
QString WithoutUnholdable(const QString& text, const NameLimits& limits) {
    QString result;
    result.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        const bool isPair =
            c.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        if (isPair) {
            result += c;
            result += text[++i];
        } else if (!c.isSurrogate() && c != u'\0' && !(limits.IsForWindows && c < u' ')) {
            result += c;
        }
    }
    return result;
}

/// `begin`, with a "_" where Windows takes it, followed by `end`, for a device. The "_" follows the
/// part of the name that it goes by.
QString WithMarkedDevice(const QString& begin, const QString& end, const NameLimits& limits) {
    if (!limits.IsForWindows || !IsDeviceName(begin + end)) {
        return begin;
    }
    const qsizetype dot = begin.indexOf(u'.');
    return QString(begin).insert(dot < 0 ? begin.size() : dot, u'_');
}

/// The longest beginning of `text` that holds whole letters and is at most `room` long.
QString Cut(const QString& text, int room, const NameLimits& limits) {
    QTextBoundaryFinder letters(QTextBoundaryFinder::Grapheme, text);
    qsizetype end = 0;
    for (qsizetype next = letters.toNextBoundary();
         next > 0 && Length(text.left(next), limits) <= room; next = letters.toNextBoundary()) {
        end = next;
    }
    if (end > 0) {
        return text.left(end);
    }
    // A letter with hundreds of accents keeps as many as fit.
    end = std::min<qsizetype>(text.size(), room);
    while (end > 0 && (Length(text.left(end), limits) > room || text[end - 1].isHighSurrogate())) {
        --end;
    }
    return text.left(end);
}

} // namespace

QString FittingName(const QString& text, const QString& ending, const NameLimits& limits) {
    QString begin = WithoutUnholdable(text, limits);
    QString end = WithoutUnholdable(ending, limits);
    if (WithoutDotsAndBlanksAtEnd(begin).isEmpty()) { // ".." would lead out of the folder
        begin = UnknownName();
    }
    if (limits.IsForWindows) {
        end = WithoutDotsAndBlanksAtEnd(end);
        if (end.isEmpty()) {
            begin = WithoutDotsAndBlanksAtEnd(begin);
        }
    }
    begin = WithMarkedDevice(begin, end, limits);
    if (Length(begin + end, limits) > limits.Longest) {
        const int forEnd = std::max(limits.Longest / 2, limits.Longest - Length(begin, limits));
        if (Length(end, limits) > forEnd) {
            end = WithoutDotsAndBlanksAtEnd(Cut(end, forEnd, limits));
        }
        begin = WithoutDotsAndBlanksAtEnd(Cut(begin, limits.Longest - Length(end, limits), limits));
        begin = WithMarkedDevice(begin, end, limits); // it was "CON", many blanks and a word
    }
    return (begin.isEmpty() ? UnknownName() : begin) + end; // only dots before the cut
}
