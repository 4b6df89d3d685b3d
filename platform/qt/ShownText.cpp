#include "platform/qt/ShownText.h"

#include "platform/Paths.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ShownText {

namespace {

constexpr qsizetype LongestLine = 1000;
constexpr qsizetype LongestMessage = 2000;
/// A run of this many characters still fits on a line of a message.
constexpr qsizetype LongestRun = 16;
constexpr char16_t ZeroWidthSpace = 0x200B;
constexpr char16_t Ellipsis = 0x2026;
/// Room for the longest path of the system with some words around it.
constexpr qsizetype LongestToolTip = 5000;

bool IsControl(QChar character) {
    return character.category() == QChar::Other_Control ||
           character.category() == QChar::Separator_Line ||
           character.category() == QChar::Separator_Paragraph;
}

/// The text with blanks in place of line breaks and other control characters.
QString WithoutBreaks(QString text) {
    if (std::any_of(text.cbegin(), text.cend(), IsControl)) {
        std::replace_if(text.begin(), text.end(), IsControl, u' ');
    }
    return text;
}

/// The first `length` code units, but never half a character, and "..." if something is cut off.
QString Cut(const QString& text, qsizetype length) {
    if (text.size() <= length) {
        return text;
    }
    const bool splits = text[length - 1].isHighSurrogate();
    return text.left(splits ? length - 1 : length) + u"..."_s;
}

/// The text with places where a line may end in the middle of long runs without a blank. Paths are
/// such runs, and a box would cut them off at its edge.
QString Breakable(const QString& text) {
    QString breakable;
    breakable.reserve(text.size() + text.size() / LongestRun);
    qsizetype run = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar character = text[i];
        run = character.isSpace() ? 0 : run + 1;
        breakable += character;
        const bool insideCharacter = character.isHighSurrogate() || i + 1 == text.size();
        if (run >= LongestRun && !insideCharacter && !text[i + 1].isMark()) {
            breakable += QChar(ZeroWidthSpace);
            run = 0;
        }
    }
    return breakable;
}

bool IsRightToLeft(QChar character) {
    return character.direction() == QChar::DirR || character.direction() == QChar::DirAL;
}

/// Whether a character separates names: the folders of a quoted path, or names like "artist /
/// album".
bool IsSeparator(const QString& text, qsizetype i, bool quoted) {
    if (quoted) {
        return text[i] == u'/' || text[i] == u'\\';
    }
    return text[i] == u'/' && i > 0 && text[i - 1] == u' ' && i + 1 < text.size() &&
           text[i + 1] == u' ';
}

} // namespace

QString OneLine(const QString& text) {
    return WithoutBreaks(Cut(text, LongestLine));
}

QString FittingLine(const QString& text, const QFontMetrics& metrics, int width) {
    QString line = WithoutBreaks(text);
    const qsizetype start = line.indexOf(u'"') + 1;
    const qsizetype end = line.lastIndexOf(u'"');
    if (start == 0 || end < start || metrics.horizontalAdvance(line) <= width) {
        return line;
    }
    const QString before = line.left(start);
    const QString behind = line.mid(end);
    const QString path = line.mid(start, end - start);
    const QString name = Paths::FileName(path);
    const QString folder = path.chopped(name.size());
    const QString dots{QChar(Ellipsis)};
    const auto roomBeside = [&](const QString& kept) {
        return width - metrics.horizontalAdvance(before + kept + behind);
    };
    const int roomOfFolder = roomBeside(name);
    if (roomOfFolder >= metrics.horizontalAdvance(dots)) {
        return before + metrics.elidedText(folder, Qt::ElideMiddle, roomOfFolder) + name + behind;
    }
    return before + dots + metrics.elidedText(name, Qt::ElideMiddle, roomBeside(dots)) + behind;
}

QString WithoutAccessKeys(const QString& caption) {
    QString text;
    text.reserve(caption.size());
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (caption[i] == u'&' && ++i == caption.size()) {
            break;
        }
        text += caption[i];
    }
    return text;
}

QString InReadingOrder(const QString& text) {
    constexpr char16_t leftToRightMark = 0x200E;
    constexpr char16_t firstStrongIsolate = 0x2068;
    constexpr char16_t popDirectionalIsolate = 0x2069;
    if (std::none_of(text.cbegin(), text.cend(), IsRightToLeft)) {
        return text;
    }
    QString ordered(leftToRightMark);
    QString part;
    const auto endPart = [&] {
        if (!part.isEmpty()) {
            ordered += QChar(firstStrongIsolate) + part + QChar(popDirectionalIsolate);
            part.clear();
        }
    };
    bool quoted = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool isQuote = text[i] == u'"';
        quoted = quoted != isQuote;
        if (isQuote || IsSeparator(text, i, quoted)) {
            endPart();
            ordered += text[i];
        } else {
            part += text[i];
        }
    }
    endPart();
    return ordered;
}

QString Message(const QString& text) {
    QString message = Cut(text, LongestMessage);
    message.replace(u"\r\n"_s, u"\n"_s);
    message.replace(u'\r', u'\n');
    return Breakable(InReadingOrder(message));
}

QString ToolTip(const QString& text) {
    if (text.isEmpty()) {
        return {};
    }
    const QString line = WithoutBreaks(Cut(text, LongestToolTip));
    return u"<qt>"_s + Breakable(InReadingOrder(line)).toHtmlEscaped() + u"</qt>"_s;
}

} // namespace ShownText
