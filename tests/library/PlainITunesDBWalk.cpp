#include "tests/library/PlainReaders.h"

#include "platform/RuntimeError.h"

#include <QStringList>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

struct Bytes {
    QByteArray Data;
    qint64 Last;

    int At(qint64 p) const {
        if (p > Last) {
            throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
        }
        return quint8(Data[p]);
    }
    qint32 Long(qint64 p) const {
        const double value =
            At(p) + At(p + 1) * 256.0 + At(p + 2) * 65536.0 + At(p + 3) * 16777216.0;
        if (value >= 2147483648.0) {
            throw RuntimeError(ErrorNumber::Overflow);
        }
        return qint32(value);
    }
    bool Tag(qint64 p, const char* tag) const {
        return At(p) == tag[0] && At(p + 1) == tag[1] && At(p + 2) == tag[2] && At(p + 3) == tag[3];
    }
};

struct Pending {
    QString Title, Location, Album, Artist;
    qint32 TrackNumber = 0, FileSize = 0;
    ::Kind Kind = KindOther;
};

template <class Record>
Record& Group(std::vector<Record>& records, const QString& name) {
    const QString compared = name.isEmpty() ? u"unknown"_s : name.toLower();
    for (Record& record : records) {
        if (record.Name.toLower() == compared) {
            return record;
        }
    }
    return records.emplace_back();
}

QString Stored(const QString& name) {
    return name.isEmpty() ? u"UNKNOWN"_s : name;
}

void Commit(MusicLibrary& library, Pending& pending, qint32 count) {
    if (library.TrackCount == 32767) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
    if (library.TrackCount < 1) {
        library.Artists.clear();
    }
    ArtistRecord& artist = Group(library.Artists, pending.Artist);
    AlbumRecord& album = Group(artist.Albums, pending.Album);
    artist.Name = Stored(pending.Artist);
    album.Name = Stored(pending.Album);
    TrackRecord& track = album.Tracks.emplace_back();
    track.Location = u"E:"_s + pending.Location.split(u':').join(u'\\');
    track.Title = Stored(pending.Title);
    track.TrackNumber = pending.TrackNumber;
    track.FileSize = pending.FileSize;
    track.Kind = pending.Kind;
    library.TotalSize += pending.FileSize;
    library.TrackCount = qint16(library.TrackCount + 1);
    pending = {};
    if (count == 0) {
        throw RuntimeError(ErrorNumber::TypeMismatch);
    }
    if (std::nearbyint((100.0 / count) * library.TrackCount) > 32767) {
        throw RuntimeError(ErrorNumber::Overflow);
    }
}

QString TextAt(const Bytes& bytes, qint64 p, qint32 length) {
    QString text;
    for (qint64 pair = p + 40; pair - p < length; pair += 2) {
        text += QChar(ushort(bytes.At(pair) + 256 * bytes.At(pair + 1)));
    }
    return text;
}

void Take(Pending& pending, int type, const QString& text) {
    (type == 1   ? pending.Title
     : type == 2 ? pending.Location
     : type == 3 ? pending.Album
                 : pending.Artist) = text;
}

void Walk(const Bytes& bytes, MusicLibrary& library) {
    qint64 p = 0;
    qint32 count = 0;
    for (qint64 head = 0; head <= bytes.Last - 12; ++head) {
        if (bytes.Tag(head, "mhlt")) {
            p = head;
            count = bytes.Long(head + 8);
            if (count <= 0) {
                return;
            }
            break;
        }
    }
    Pending pending;
    bool none = true;
    bool end = false;
    for (;; ++p) {
        if (p > bytes.Last - 41) {
            end = true;
        } else if (bytes.At(p) != 'm') {
            continue;
        } else if (bytes.Tag(p, "mhsd")) {
            end = true;
        }
        const int type = end ? 0 : bytes.At(p + 12);
        if (end || bytes.Tag(p, "mhit")) {
            if (!none) {
                Commit(library, pending, count);
                if (end) {
                    return;
                }
            }
            none = false;
            pending.FileSize = bytes.Long(p + 36);
            pending.TrackNumber = bytes.Long(p + 44);
            p += 48;
        } else if (bytes.Tag(p, "mhod") && (type == 6 || (type >= 1 && type <= 4))) {
            const qint32 length = bytes.Long(p + 8);
            const QString text = TextAt(bytes, p, length);
            if (type == 6) {
                pending.Kind = KindFromTypeText(text);
            } else {
                Take(pending, type, text);
            }
            p += length > 0 ? length - 1 : 0;
        }
    }
}

} // namespace

PlainITunesDBWalk::PlainITunesDBWalk(const QByteArray& bytes) {
    try {
        Walk({bytes + '\0', bytes.size()}, Library);
    } catch (const RuntimeError& error) {
        Error = int(error.Number);
    }
}
