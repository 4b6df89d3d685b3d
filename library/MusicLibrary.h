#pragma once

#include <QString>
#include <QtGlobal>

#include <vector>

/// What a track's file is, as the media filter sees it.
enum class Kind : qint16 { KindOther = 0, KindAudio = 1, KindVideo = 2 };
using enum Kind;

/// One song or video.
struct TrackRecord {
    /// Full path on the mounted device, in drive form.
    QString Location;
    QString Title;
    /// Track number on its album, 0 when the device stores none.
    qint32 TrackNumber = 0;
    /// Size in bytes, as stored in the device's database.
    qint32 FileSize = 0;
    ::Kind Kind = KindOther;
    /// The track is to be copied.
    bool Checked = false;
    /// In a search result: 0-based index of this track in the full library's album.
    qint32 SourceIndex = 0;
};

/// An album; it has at least one track.
struct AlbumRecord {
    QString Name;
    std::vector<TrackRecord> Tracks;
    bool Checked = false;
    /// In a search result: 0-based index of this album in the full library's artist.
    qint32 SourceIndex = 0;
};

/// An artist; it has at least one album.
struct ArtistRecord {
    QString Name;
    std::vector<AlbumRecord> Albums;
    bool Checked = false;
    /// In a search result: 0-based index of this artist in the full library.
    qint32 SourceIndex = 0;
};

/// The music and video on the chosen iPod. Records keep the order in which they were loaded; lists
/// are ordered through index tables and never by moving records.
struct MusicLibrary {
    /// The library, or a search result while one is shown. Not to be walked while TrackCount < 1:
    /// then it may hold what an earlier load left.
    std::vector<ArtistRecord> Artists;
    /// Number of tracks loaded, at most 32,767.
    qint16 TrackCount = 0;
    /// A load is running.
    bool LoadingMusic = false;
    /// Bytes of all loaded tracks.
    double TotalSize = 0;

    /// One more track is loaded.
    void CountTrack(qint32 fileSize) {
        ++TrackCount;
        TotalSize += fileSize;
    }
    /// Nothing counts as loaded any more. The records stay until the next load.
    void ForgetTracks() {
        TrackCount = 0;
        TotalSize = 0;
    }
};

/// The kind that a device's file-type text stands for. The comparison is exact; every text that is
/// not in the table is KindOther.
Kind KindFromTypeText(const QString& text);

/// The stored name of an artist, album or title that the device leaves empty.
const QString& UnknownName();
