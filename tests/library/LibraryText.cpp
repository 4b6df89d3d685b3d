#include "tests/library/LibraryText.h"

void ExpectConsistent(const MusicLibrary& library) {
    int tracks = 0;
    double size = 0;
    for (const ArtistRecord& artist : library.Artists) {
        ASSERT_FALSE(artist.Name.isEmpty());
        ASSERT_FALSE(artist.Albums.empty());
        ASSERT_FALSE(artist.Checked);
        ASSERT_EQ(artist.SourceIndex, 0);
        for (const AlbumRecord& album : artist.Albums) {
            ASSERT_FALSE(album.Name.isEmpty());
            ASSERT_FALSE(album.Tracks.empty());
            ASSERT_FALSE(album.Checked);
            ASSERT_EQ(album.SourceIndex, 0);
            for (const TrackRecord& track : album.Tracks) {
                ++tracks;
                size += track.FileSize;
                ASSERT_FALSE(track.Title.isEmpty());
                ASSERT_FALSE(track.Checked);
                ASSERT_EQ(track.SourceIndex, 0);
            }
        }
    }
    ASSERT_EQ(library.TrackCount, tracks);
    ASSERT_EQ(library.TotalSize, size);
}
