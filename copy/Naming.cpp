#include "copy/Naming.h"

#include "copy/FittingName.h"
#include "library/MusicLibrary.h"

using namespace Qt::StringLiterals;

namespace {

bool IsForbidden(QChar c) {
    return u"/\\:*?<>|"_s.contains(c);
}

/// `text` without the characters that file names cannot hold and without blanks and dots at its
/// end; empty when nothing is left.
QString Filtered(const QString& text) {
    QString result;
    result.reserve(text.size());
    QString pending; // blanks and dots that stay only if other text follows
    bool seenText = false;
    for (const QChar c : text) {
        if (IsForbidden(c)) {
            continue;
        }
        if (c == u' ') {
            if (seenText) {
                pending += c;
            }
            continue;
        }
        seenText = true;
        if (c == u'.') {
            pending += c;
            continue;
        }
        result += pending;
        result += c == u'"' ? u'\'' : c;
        pending.clear();
    }
    return result;
}

} // namespace

QString MakeSafeName(const QString& Text) {
    const QString name = Filtered(Text);
    return name.isEmpty() ? UnknownName() : name;
}

QString Naming::MakeFileName(const QString& Name, const QString& Ext) {
    if (m_folderChanged) {
        m_usedNames.clear();
        m_usedCounts.clear();
        m_indexOf.clear();
    }
    QString numbers;
    QString name = FittingName(Name, Ext, m_limits);
    for (auto used = m_indexOf.constFind(name); used != m_indexOf.cend();
         used = m_indexOf.constFind(name)) {
        if (numbers.size() > m_limits.Longest / 3) { // more would be cut off, and be the same again
            numbers.clear();
        }
        numbers += u" ("_s + QString::number(m_usedCounts[*used]) + u')';
        ++m_usedCounts[*used];
        name = FittingName(Name, numbers + Ext, m_limits);
    }
    Enter(name);
    m_folderChanged = false;
    return name;
}

void Naming::Enter(const QString& name) {
    m_indexOf.insert(name, static_cast<qsizetype>(m_usedNames.size()));
    m_usedNames.push_back(name);
    m_usedCounts.push_back(2);
}
