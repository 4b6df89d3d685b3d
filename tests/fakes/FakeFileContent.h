#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

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

inline bool Matches(const char* buffer, qint64 size, qint64 phase) {
    while (size > 0) {
        const qint64 from = phase % Period;
        const qint64 part = std::min(size, Period - from);
        if (std::memcmp(buffer, Table().constData() + from, static_cast<size_t>(part)) != 0) {
            return false;
        }
        buffer += part;
        phase += part;
        size -= part;
    }
    return true;
}

} // namespace FilePattern

/// What a fake file holds: runs of real bytes and runs of the pattern.
class FakeFileContent {
public:
    FakeFileContent() = default;

    static FakeFileContent OfBytes(const QByteArray& bytes) {
        FakeFileContent content;
        content.Append({bytes.size(), -1, bytes});
        return content;
    }

    /// `length` bytes of the pattern; files of different `seed` differ.
    static FakeFileContent OfPattern(qint64 length, qint64 seed) {
        FakeFileContent content;
        content.Append({length, seed % FilePattern::Period, {}});
        return content;
    }

    qint64 Length() const {
        qint64 length = 0;
        for (const Run& run : m_runs) {
            length += run.Length;
        }
        return length;
    }

    /// Copies `size` bytes from `position` on, which must be there.
    void Read(char* buffer, qint64 position, qint64 size) const {
        for (const Run& run : Part(position, size).m_runs) {
            if (run.Phase < 0) {
                std::memcpy(buffer, run.Bytes.constData(), static_cast<size_t>(run.Length));
            } else {
                FilePattern::Fill(buffer, run.Length, run.Phase);
            }
            buffer += run.Length;
        }
    }

    /// Writes over or behind the bytes at `position`, which is at most the length.
    void Write(const char* buffer, qint64 position, qint64 size) {
        const qint64 length = Length();
        FakeFileContent result = Part(0, position);
        result.Append(Recognised(buffer, size));
        if (position + size < length) {
            result.Append(Part(position + size, length - position - size));
        }
        m_runs = std::move(result.m_runs);
    }

    void Truncate(qint64 size) { m_runs = Part(0, std::min(size, Length())).m_runs; }

    QByteArray Bytes() const {
        QByteArray bytes(Length(), Qt::Uninitialized);
        Read(bytes.data(), 0, bytes.size());
        return bytes;
    }

    bool operator==(const FakeFileContent& other) const {
        const qint64 length = Length();
        if (length != other.Length()) {
            return false;
        }
        if (m_runs.size() == 1 && other.m_runs.size() == 1 && m_runs[0].Phase >= 0 &&
            m_runs[0].Phase == other.m_runs[0].Phase) {
            return true;
        }
        constexpr qint64 blockSize = 1 << 20;
        QByteArray mine(blockSize, Qt::Uninitialized);
        QByteArray others(blockSize, Qt::Uninitialized);
        for (qint64 position = 0; position < length; position += blockSize) {
            const qint64 size = std::min(blockSize, length - position);
            Read(mine.data(), position, size);
            other.Read(others.data(), position, size);
            if (std::memcmp(mine.constData(), others.constData(), static_cast<size_t>(size)) != 0) {
                return false;
            }
        }
        return true;
    }

private:
    struct Run {
        qint64 Length = 0;
        qint64 Phase = -1; // where in the pattern it begins, -1 for real bytes
        QByteArray Bytes;
    };

    FakeFileContent Part(qint64 position, qint64 size) const {
        FakeFileContent part;
        qint64 start = 0;
        for (const Run& run : m_runs) {
            const qint64 from = std::max(position, start);
            const qint64 to = std::min(position + size, start + run.Length);
            if (from < to) {
                const qint64 skip = from - start;
                part.Append({to - from,
                             run.Phase < 0 ? -1 : (run.Phase + skip) % FilePattern::Period,
                             run.Phase < 0 ? run.Bytes.mid(skip, to - from) : QByteArray()});
            }
            start += run.Length;
        }
        return part;
    }

    void Append(const Run& run) {
        if (run.Length == 0) {
            return;
        }
        if (!m_runs.empty() && run.Phase >= 0 && m_runs.back().Phase >= 0 &&
            (m_runs.back().Phase + m_runs.back().Length) % FilePattern::Period == run.Phase) {
            m_runs.back().Length += run.Length;
            return;
        }
        m_runs.push_back(run);
    }

    void Append(const FakeFileContent& other) {
        for (const Run& run : other.m_runs) {
            Append(run);
        }
    }

    /// Large blocks are kept as pattern runs where every byte of them fits.
    static Run Recognised(const char* buffer, qint64 size) {
        constexpr qint64 worthwhile = 4096;
        constexpr qsizetype clue = 16;
        if (size >= worthwhile) {
            const QByteArray& table = FilePattern::Table();
            const QByteArray doubled = table + table.left(clue);
            const qsizetype phase = doubled.indexOf(QByteArray::fromRawData(buffer, clue));
            if (phase >= 0 && FilePattern::Matches(buffer, size, phase)) {
                return {size, phase, {}};
            }
        }
        return {size, -1, QByteArray(buffer, size)};
    }

    std::vector<Run> m_runs;
};
