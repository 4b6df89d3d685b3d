#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <algorithm>
#include <cstdlib>
#include <cstring>

/// Bytes that follow from their position alone, so that a large file need not be kept. The period
/// is a prime: no two blocks of a round size begin alike, and a block that got lost, doubled or
/// misplaced shows.
namespace FilePattern {

constexpr qint64 Period = 65521;

inline const QByteArray& Table() {
    static const QByteArray table = [] {
        QByteArray bytes(Period, Qt::Uninitialized);
        quint32 state = 2463534242U;
        for (char& byte : bytes) {
            state ^= state << 13;
            state ^= state >> 17;
            state ^= state << 5;
            byte = static_cast<char>(state >> 11);
        }
        return bytes;
    }();
    return table;
}

/// The `size` pattern bytes from `phase` on.
inline void Fill(char* buffer, qint64 size, qint64 phase) {
    while (size > 0) {
        const qint64 from = phase % Period;
        const qint64 part = std::min(size, Period - from);
        std::memcpy(buffer, Table().constData() + from, static_cast<size_t>(part));
        buffer += part;
        phase += part;
        size -= part;
    }
}

} // namespace FilePattern

/// What a fake file holds: real bytes, or a pattern that takes no memory until it is written over.
class FakeFileContent {
public:
    static FakeFileContent OfBytes(const QByteArray& bytes) {
        FakeFileContent content;
        content.m_length = bytes.size();
        content.m_bytes = bytes;
        return content;
    }

    /// `length` bytes of the pattern; files of different `seed` differ.
    static FakeFileContent OfPattern(qint64 length, qint64 seed) {
        FakeFileContent content;
        content.m_length = length;
        content.m_phase = std::abs(seed % FilePattern::Period);
        return content;
    }

    qint64 Length() const { return m_length; }

    /// Copies `size` bytes from `position` on, which must be there.
    void Read(char* buffer, qint64 position, qint64 size) const {
        if (IsPattern()) {
            FilePattern::Fill(buffer, size, m_phase + position);
        } else {
            std::memcpy(buffer, m_bytes.constData() + position, static_cast<size_t>(size));
        }
    }

    /// Writes over or behind the bytes at `position`, which is at most the length.
    void Write(const char* buffer, qint64 position, qint64 size) {
        if (IsPattern()) {
            *this = OfBytes(Bytes());
        }
        m_length = std::max(m_length, position + size);
        m_bytes.resize(m_length);
        std::memcpy(m_bytes.data() + position, buffer, static_cast<size_t>(size));
    }

    void Truncate(qint64 size) {
        m_length = std::min(size, m_length);
        m_bytes.truncate(m_length);
    }

    QByteArray Bytes() const {
        QByteArray bytes = m_bytes;
        if (IsPattern()) {
            bytes.resize(m_length);
            Read(bytes.data(), 0, m_length);
        }
        return bytes;
    }

    bool operator==(const FakeFileContent& other) const {
        bool isEqual = m_length == other.m_length;
        char mine[FilePattern::Period];
        char others[FilePattern::Period];
        for (qint64 position = 0; isEqual && position < m_length; position += sizeof mine) {
            const qint64 size = std::min<qint64>(sizeof mine, m_length - position);
            Read(mine, position, size);
            other.Read(others, position, size);
            isEqual = std::memcmp(mine, others, static_cast<size_t>(size)) == 0;
        }
        return isEqual;
    }

private:
    bool IsPattern() const { return m_phase >= 0; }

    qint64 m_length = 0;
    qint64 m_phase = -1; // where in the pattern it begins, -1 for real bytes
    QByteArray m_bytes;
};
