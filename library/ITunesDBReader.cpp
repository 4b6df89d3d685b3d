#include "library/ITunesDBReader.h"

#include "library/FileWindow.h"
#include "library/LoadMusic.h"
#include "library/TrackGrouping.h"
#include "platform/Numbers.h"
#include "platform/ScopeGuard.h"

#include <QtEndian>

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

namespace {

/// The track that is being put together from its chunks.
struct PendingTrack {
    TrackRecord Record;
    QString Album;
    QString Artist;
};

/// The text of an item, as stored in the file: two bytes per code unit, the lower one first.
struct ItemText {
    const char* Bytes;
    qsizetype Units;
};

void Decode(const ItemText& text, QChar* units) {
    qFromLittleEndian<quint16>(text.Bytes, text.Units, units);
}

QString AsString(const ItemText& text) {
    QString string(text.Units, Qt::Uninitialized);
    Decode(text, string.data());
    return string;
}

/// Comparing texts costs less than making one. On a big-endian machine none is found to be equal.
bool IsSame(const ItemText& text, const QString& before) {
    return std::endian::native == std::endian::little && text.Units == before.size() &&
           std::memcmp(text.Bytes, before.constData(), 2 * before.size()) == 0;
}

QString AsString(const ItemText& text, const QString& before) {
    return IsSame(text, before) ? before : AsString(text);
}

/// The path of a location that is stored with ":" between its folders.
QString AsLocation(const QString& driveRoot, const ItemText& text) {
    QString location(driveRoot.size() + text.Units, Qt::Uninitialized);
    QChar* const units = std::copy(driveRoot.begin(), driveRoot.end(), location.data());
    Decode(text, units);
    for (qsizetype i = 0; i < text.Units; ++i) {
        units[i] = units[i] == u':' ? u'\\' : units[i]; // always written: this can be vectorised
    }
    return location;
}

/// Walks the bytes of a database from tag to tag. Only the track list is understood; whatever else
/// there is, chunks of unknown kinds and lengths included, is passed over byte by byte.
class TrackListWalk {
public:
    TrackListWalk(FileWindow& bytes, const QString& driveRoot, TrackGrouping& grouping,
                  LoadProgress& progress)
        : m_bytes(bytes), m_lastIndex(bytes.LastIndex()), m_driveRoot(driveRoot),
          m_grouping(grouping), m_progress(progress) {
        StartTrack();
    }

    /// Finds the head of the track list. False when the head says that the list is empty.
    bool FindTrackList();
    /// Adds the tracks from the head on, or from the first byte on where there is no head.
    void Run();

private:
    qint64 NextTag(qint64 position, qint64 end);
    bool IsTag(qint64 position, const char* tag);
    bool IsTextItem(qint64 position);
    qint32 LongAt(qint64 position);
    ItemText TextOf(qint64 item, qint32 length);
    void TakeItem(qint64 item, qint32 length);
    void StartTrack();
    void CommitTrack();
    void OpenTrack(qint64 position);

    FileWindow& m_bytes;
    const qint64 m_lastIndex;
    const QString& m_driveRoot;
    TrackGrouping& m_grouping;
    LoadProgress& m_progress;
    qint64 m_start = 0;
    PendingTrack m_pending;
    // Most tracks have these in common with the track before.
    QString m_album;
    QString m_artist;
    QString m_typeText;
    Kind m_kind = KindOther;
};

bool TrackListWalk::FindTrackList() {
    const qint64 end = m_lastIndex - 12 + 1;
    for (qint64 head = NextTag(0, end); head < end; head = NextTag(head + 1, end)) {
        if (IsTag(head, "mhlt")) {
            m_start = head;
            const qint32 trackCount = LongAt(head + 8);
            if (trackCount <= 0) {
                return false;
            }
            m_progress.SetTotal(trackCount);
            return true;
        }
    }
    return true;
}

void TrackListWalk::Run() {
    bool noTrackPending = true;
    bool endOfList = false;
    qint64 position = m_start;
    while (true) {
        position = NextTag(position, m_lastIndex - 40);
        if (position > m_lastIndex - 41 || IsTag(position, "mhsd")) {
            endOfList = true;
        }
        if (endOfList || IsTag(position, "mhit")) {
            if (noTrackPending) {
                noTrackPending = false;
            } else {
                CommitTrack();
                if (endOfList) {
                    return;
                }
            }
            OpenTrack(position); // throws at the end of the bytes when the list has no track
            position += 49;
        } else if (IsTextItem(position)) {
            const qint32 length = LongAt(position + 8);
            TakeItem(position, length);
            position += qMax(length, 1); // a damaged item of length 0 must not stop the walk
        } else {
            ++position;
        }
    }
}

/// The first "m" from `position` on and before `end`. Without one: `end`, or `position` where that
/// is not before `end`.
qint64 TrackListWalk::NextTag(qint64 position, qint64 end) {
    while (position < end) {
        const char* const bytes = m_bytes.At(position, 1);
        const qint64 count = qMin(m_bytes.CountFrom(position), end - position);
        const void* const found = std::memchr(bytes, 'm', static_cast<size_t>(count));
        if (found != nullptr) {
            return position + (static_cast<const char*>(found) - bytes);
        }
        position += count;
    }
    return position;
}

bool TrackListWalk::IsTag(qint64 position, const char* tag) {
    return std::memcmp(m_bytes.At(position, 4), tag, 4) == 0;
}

bool TrackListWalk::IsTextItem(qint64 position) {
    const char* const item = m_bytes.At(position, 13);
    const char type = item[12];
    return std::memcmp(item, "mhod", 4) == 0 && ((type >= 1 && type <= 4) || type == 6);
}

qint32 TrackListWalk::LongAt(qint64 position) {
    if (position + 3 > m_lastIndex) {
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    }
    const auto* bytes = reinterpret_cast<const quint8*>(m_bytes.At(position, 4));
    return BytesToLong(bytes[0], bytes[1], bytes[2], bytes[3]);
}

ItemText TrackListWalk::TextOf(qint64 item, qint32 length) {
    // For an odd length, one byte more than the item holds is read.
    const qint64 units = length > 40 ? (qint64(length) - 40 + 1) / 2 : 0;
    if (item + 40 + 2 * units - 1 > m_lastIndex) {
        throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
    }
    return {m_bytes.At(item, 40 + 2 * units) + 40, units};
}

void TrackListWalk::TakeItem(qint64 item, qint32 length) {
    const char type = m_bytes.At(item, 13)[12];
    const ItemText text = TextOf(item, length);
    switch (type) {
    case 1:
        m_pending.Record.Title = AsString(text);
        break;
    case 2:
        m_pending.Record.Location = AsLocation(m_driveRoot, text);
        break;
    case 3:
        m_pending.Album = AsString(text, m_album);
        break;
    case 4:
        m_pending.Artist = AsString(text, m_artist);
        break;
    case 6:
        if (!IsSame(text, m_typeText)) {
            m_typeText = AsString(text);
            m_kind = KindFromTypeText(m_typeText);
        }
        m_pending.Record.Kind = m_kind;
        break;
    }
}

void TrackListWalk::StartTrack() {
    m_pending = {};
    m_pending.Record.Location = m_driveRoot;
}

void TrackListWalk::CommitTrack() {
    TrackRecord& record = m_pending.Record;
    for (QString* name : {&record.Title, &m_pending.Artist, &m_pending.Album}) {
        if (name->isEmpty()) {
            *name = UnknownName();
        }
    }
    m_grouping.Add(std::move(record), m_pending.Artist, m_pending.Album);
    m_artist = std::move(m_pending.Artist);
    m_album = std::move(m_pending.Album);
    StartTrack();
    m_progress.TrackLoaded();
}

void TrackListWalk::OpenTrack(qint64 position) {
    m_pending.Record.FileSize = LongAt(position + 36);
    m_pending.Record.TrackNumber = LongAt(position + 44);
}

} // namespace

bool ReadITunesDB(FileSystem& files, const QString& driveRoot, MusicLibrary& library,
                  LoadProgress& progress) {
    FileWindow bytes(files, DevicePaths::ITunesDB(driveRoot));
    TrackGrouping grouping(library);
    TrackListWalk walk(bytes, driveRoot, grouping, progress);
    // When the file cannot be read, nothing counts as loaded, wherever in the file the device
    // failed.
    const ScopeGuard unreadable([&] {
        if (bytes.HasFailed()) {
            library.ForgetTracks();
        }
    });
    if (!walk.FindTrackList()) {
        return false;
    }
    walk.Run();
    return true;
}
