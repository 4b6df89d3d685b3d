// Databases as they lie on real devices. They belong to nobody who could give them away, so they
// are in no checkout: SONGLIFT_SAMPLES names the folder that holds them.

#include "tests/library/LoadingWindow.h"

#include <QFile>

using namespace Qt::StringLiterals;

class SampleDevices : public LoadingWindow {
protected:
    void LoadSample(const QString& name) {
        QFile file(qEnvironmentVariable("SONGLIFT_SAMPLES") + u'/' + name);
        if (!qEnvironmentVariableIsSet("SONGLIFT_SAMPLES") || !file.open(QIODevice::ReadOnly)) {
            GTEST_SKIP() << "no samples";
        }
        Load(file.readAll());
    }

    int HundredthsOfGigabytes() const { return int(Library.TotalSize / (1 << 30) * 100); }

    void ExpectCounts(size_t artists, size_t albums, int tracks) const {
        size_t foundAlbums = 0;
        int audio = 0;
        for (const ArtistRecord& artist : Library.Artists) {
            foundAlbums += artist.Albums.size();
            for (const AlbumRecord& album : artist.Albums) {
                for (const TrackRecord& track : album.Tracks) {
                    audio += track.Kind == KindAudio ? 1 : 0;
                    EXPECT_TRUE(track.Location.startsWith(u"E:\\iPod_Control\\Music\\F"_s));
                }
            }
        }
        EXPECT_EQ(Library.Artists.size(), artists);
        EXPECT_EQ(foundAlbums, albums);
        EXPECT_EQ(Library.TrackCount, tracks);
        EXPECT_EQ(audio, tracks);
        EXPECT_EQ(Window.prgCopy.Max(), float(tracks));
        EXPECT_TRUE(Boxes.Shown.empty());
        ExpectConsistent(Library);
        ExpectEnded();
    }
};

TEST_F(SampleDevices, TheSmallOneLoads) {
    LoadSample(u"device-a.iTunesDB"_s);
    if (!IsSkipped()) {
        ExpectCounts(4, 13, 142);
        EXPECT_EQ(HundredthsOfGigabytes(), 148);
    }
}

TEST_F(SampleDevices, TheLargeOneLoads) {
    LoadSample(u"device-b.iTunesDB"_s);
    if (!IsSkipped()) {
        ExpectCounts(21, 50, 525);
        EXPECT_EQ(HundredthsOfGigabytes(), 186);
    }
}
