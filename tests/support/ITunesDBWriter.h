#pragma once

#include "tests/support/SampleTrack.h"

#include <QByteArray>

#include <optional>
#include <vector>

/// How a binary database is laid out; the defaults are what devices write.
struct ITunesDBLayout {
    /// Header lengths in bytes of the database, a data set, a list and a track.
    quint32 DatabaseHeader = 244;
    quint32 DataSetHeader = 96;
    quint32 ListHeader = 92;
    quint32 TrackHeader = 624;
    /// The types of a track's data items, in order: 1 title, 2 location, 3 album, 4 artist, 6 file
    /// type; any other gets a text of no meaning.
    std::vector<quint32> Items = {1, 4, 3, 5, 6, 2};
    /// Items without a text are written all the same.
    bool WriteEmptyItems = false;
    /// The number that the head of the track list tells, where it is not the true one.
    std::optional<quint32> StatedTrackCount = {};
    /// A list of albums stands before the tracks.
    bool AlbumList = true;
    /// Data sets behind the tracks: playlists that name every track, and more heads of track lists.
    int Playlists = 2;
    int MoreTrackLists = 0;
};

/// The bytes of a binary database that holds `tracks`.
QByteArray WriteITunesDB(const std::vector<SampleTrack>& tracks, const ITunesDBLayout& layout = {});

/// The pieces of a binary database, to put together by hand.
namespace ITunesDBChunks {

/// Four bytes, the lowest first.
QByteArray Number(quint32 value);
/// A data item ("mhod") of a type. `statedLength` takes the place of its true length.
QByteArray Item(quint32 type, const QString& text, std::optional<quint32> statedLength = {});
/// A track ("mhit") with its data items, of which the file size and the track number are told.
QByteArray Track(qint64 fileSize, qint32 trackNumber, const std::vector<QByteArray>& items,
                 quint32 header = 624);
/// A list's head: its tag ("mhlt", "mhla", "mhlp") and the number of its entries.
QByteArray ListHead(const char* tag, quint32 count, quint32 header = 92);
/// A data set ("mhsd") of a type: 1 tracks, 2 and 3 playlists, 4 albums.
QByteArray DataSet(quint32 type, const QByteArray& content, quint32 header = 96);
/// The whole database ("mhbd").
QByteArray Database(const std::vector<QByteArray>& dataSets, quint32 header = 244);

} // namespace ITunesDBChunks
