#include "tests/fuzz/Seeds.h"

#include "tests/library/LibraryLines.h"
#include "tests/support/ITunesDBWriter.h"
#include "tests/support/SqliteLibraryWriter.h"

#include <QTemporaryDir>

using namespace ITunesDBChunks;
using namespace Qt::StringLiterals;

namespace {

std::vector<SampleTrack> SmallLibrary() {
    return {{u"ABBA"_s, u"Gold"_s, u"Waterloo"_s, 1, 1000, u"F00/A.mp3"_s},
            {u"Abba"_s, u"Gold"_s, u"Fernando"_s, 2, 2000, u"F01/B.m4a"_s, u"AAC audio file"_s},
            {u"Björk"_s, {}, u"Jóga"_s, 3, 4000, u"F02/C.wav"_s, u"WAV audio file"_s},
            {{}, {}, {}, 0, 3000, u"F02/D.mp4"_s, u"MPEG-4 video file"_s}};
}

/// Headers as short as the reader can do with: less that does not count for a change to hit.
ITunesDBLayout ShortHeaders() {
    ITunesDBLayout layout;
    layout.DatabaseHeader = 24;
    layout.DataSetHeader = 16;
    layout.ListHeader = 12;
    layout.TrackHeader = 49;
    layout.AlbumList = false;
    layout.Playlists = 0;
    return layout;
}

/// Both files as `tracks` and then the two SQL texts make them, in pages as small as SQLite has.
QByteArray SqliteSeed(const std::vector<SampleTrack>& tracks, const QString& inLibrary = {},
                      const QString& inLocations = {}) {
    const QTemporaryDir folder;
    const QString library = folder.filePath(u"Library.itdb"_s);
    const QString locations = folder.filePath(u"Locations.itdb"_s);
    WriteSqliteLibrary(library, locations, tracks);
    const QString smallPages = u"Pragma page_size = 512; Vacuum;"_s;
    RunSql(library, inLibrary + u';' + smallPages);
    RunSql(locations, inLocations + u';' + smallPages);
    return ReadAll(library) + ReadAll(locations);
}

} // namespace

std::vector<QByteArray> ITunesDBSeeds() {
    const std::vector<SampleTrack> tracks = SmallLibrary();
    const ITunesDBLayout bare = ShortHeaders();
    ITunesDBLayout everything;
    everything.MoreTrackLists = 1;
    everything.WriteEmptyItems = true;
    ITunesDBLayout tooFew = bare;
    tooFew.StatedTrackCount = 1;
    ITunesDBLayout none = bare;
    none.StatedTrackCount = 0;
    const QByteArray track = Track(5, 6, {Item(1, u"title"_s), Item(4, u"artist"_s)}, 49);
    return {
        WriteITunesDB(tracks, bare),
        WriteITunesDB({tracks[0]}, everything),
        WriteITunesDB({tracks[0], tracks[3]}, tooFew),
        WriteITunesDB({tracks[0]}, none),
        track + track, // without a head
        ListHead("mhlt", 2, 12) + track + Track(1, 1, {Item(3, u"ab"_s, 43)}, 49),
    };
}

std::vector<QByteArray> SqliteSeeds() {
    const std::vector<SampleTrack> tracks = SmallLibrary();
    return {
        SqliteSeed(tracks),
        SqliteSeed({}),
        SqliteSeed({tracks[0]}, u"Pragma encoding = 'UTF-16'; Create Index i On item (artist)"_s,
                   u"Delete From location_kind_map"_s),
        SqliteSeed(tracks, u"Update item Set artist = track_number, album = 1.5, title = x'41ff'"_s,
                   u"Update location Set file_size = '12', kind_id = 0.4, location = NULL"_s),
        SqliteSeed(tracks,
                   u"Alter Table item Rename To tracks;"
                   "Create View item As Select * From tracks Where pid > 0 Or pid < 1"_s,
                   u"Drop Table base_location; Create View base_location As Values (1, 'M/N')"_s),
        // Rows that reach into overflow pages.
        SqliteSeed({tracks[0]}, u"Update item Set title = hex(zeroblob(700))"_s,
                   u"Update location Set file_size = 3000000000"_s),
    };
}
