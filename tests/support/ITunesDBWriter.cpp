#include "tests/support/ITunesDBWriter.h"

#include <cstring>

using namespace Qt::StringLiterals;

QString MpegAudioText() {
    return u"MPEG audio file"_s;
}

namespace ITunesDBChunks {

namespace {

/// A chunk: its tag, its header's length, one number (a total length or a count), the header's
/// other fields and filler up to its length, then what the chunk holds.
QByteArray Chunk(const char* tag, quint32 header, quint32 number, const QByteArray& fields,
                 const QByteArray& content) {
    QByteArray head = tag + Number(header) + Number(number) + fields;
    if (head.size() < qsizetype(header)) {
        head.append(qsizetype(header) - head.size(), '\0');
    }
    return head + content;
}

/// A chunk whose number is its total length.
QByteArray SizedChunk(const char* tag, quint32 header, const QByteArray& fields,
                      const QByteArray& content) {
    return Chunk(tag, header, header + quint32(content.size()), fields, content);
}

} // namespace

QByteArray Number(quint32 value) {
    QByteArray bytes;
    for (int shift = 0; shift < 32; shift += 8) {
        bytes += char(quint8(value >> shift));
    }
    return bytes;
}

QByteArray Item(quint32 type, const QString& text, std::optional<quint32> statedLength) {
    QByteArray units;
    for (const QChar unit : text) {
        units += char(unit.cell());
        units += char(unit.row());
    }
    const QByteArray content = Number(1) + Number(quint32(units.size())) + Number(1) + Number(0);
    const quint32 length = statedLength.value_or(24 + quint32(content.size() + units.size()));
    return Chunk("mhod", 24, length, Number(type), content + units);
}

QByteArray Track(qint64 fileSize, qint32 trackNumber, const std::vector<QByteArray>& items,
                 quint32 header) {
    QByteArray content;
    for (const QByteArray& item : items) {
        content += item;
    }
    QByteArray fields = Number(quint32(items.size()));
    fields.append(36 - 12 - fields.size(), '\0');
    fields += Number(quint32(fileSize)) + Number(215'000) + Number(quint32(trackNumber));
    return SizedChunk("mhit", header, fields, content);
}

QByteArray ListHead(const char* tag, quint32 count, quint32 header) {
    return Chunk(tag, header, count, {}, {});
}

QByteArray DataSet(quint32 type, const QByteArray& content, quint32 header) {
    return SizedChunk("mhsd", header, Number(type), content);
}

QByteArray Database(const std::vector<QByteArray>& dataSets, quint32 header) {
    QByteArray content;
    for (const QByteArray& dataSet : dataSets) {
        content += dataSet;
    }
    const QByteArray fields = Number(1) + Number(0x19) + Number(quint32(dataSets.size()));
    return SizedChunk("mhbd", header, fields, content);
}

/// An entry of a list ("mhia", "mhyp", "mhip").
QByteArray Entry(const char* tag, quint32 header, quint32 id, const QByteArray& content) {
    return SizedChunk(tag, header, Number(1) + Number(id), content);
}

} // namespace ITunesDBChunks

using namespace ITunesDBChunks;

namespace {

QString TextOf(const SampleTrack& track, quint32 type) {
    switch (type) {
    case 1:
        return track.Title;
    case 2:
        return track.Location.isEmpty()
                   ? QString()
                   : u":iPod_Control:Music:"_s + QString(track.Location).replace(u'/', u':');
    case 3:
        return track.Album;
    case 4:
        return track.Artist;
    case 6:
        return track.TypeText;
    default:
        return u"Other"_s;
    }
}

QByteArray TrackChunk(const SampleTrack& track, const ITunesDBLayout& layout) {
    std::vector<QByteArray> items;
    for (const quint32 type : layout.Items) {
        const QString text = TextOf(track, type);
        if (!text.isEmpty() || layout.WriteEmptyItems) {
            items.push_back(Item(type, text));
        }
    }
    return Track(track.FileSize, track.TrackNumber, items, layout.TrackHeader);
}

QByteArray AlbumList(const std::vector<SampleTrack>& tracks, const ITunesDBLayout& layout) {
    QByteArray entries;
    quint32 count = 0;
    for (size_t i = 0; i < tracks.size(); ++i) {
        if (i == 0 || tracks[i].Album != tracks[i - 1].Album) {
            ++count;
            entries +=
                Entry("mhia", 88, count, Item(200, tracks[i].Album) + Item(201, tracks[i].Artist));
        }
    }
    return DataSet(4, ListHead("mhla", count, layout.ListHeader) + entries, layout.DataSetHeader);
}

QByteArray Playlist(size_t trackCount, const ITunesDBLayout& layout) {
    QByteArray entries = Item(1, u"MY IPOD"_s);
    for (size_t i = 0; i < trackCount; ++i) {
        entries += Entry("mhip", 76, quint32(i), {});
    }
    return DataSet(2, ListHead("mhlp", 1, layout.ListHeader) + Entry("mhyp", 184, 1, entries),
                   layout.DataSetHeader);
}

} // namespace

QByteArray WriteITunesDB(const std::vector<SampleTrack>& tracks, const ITunesDBLayout& layout) {
    std::vector<QByteArray> dataSets;
    if (layout.AlbumList) {
        dataSets.push_back(AlbumList(tracks, layout));
    }
    QByteArray list = ListHead("mhlt", layout.StatedTrackCount.value_or(quint32(tracks.size())),
                               layout.ListHeader);
    for (const SampleTrack& track : tracks) {
        list += TrackChunk(track, layout);
    }
    dataSets.push_back(DataSet(1, list, layout.DataSetHeader));
    for (int i = 0; i < layout.Playlists; ++i) {
        dataSets.push_back(Playlist(tracks.size(), layout));
    }
    for (int i = 0; i < layout.MoreTrackLists; ++i) {
        dataSets.push_back(
            DataSet(6, ListHead("mhlt", 0, layout.ListHeader), layout.DataSetHeader));
    }
    return Database(dataSets, layout.DatabaseHeader);
}
