#pragma once

#include "app/ControlGroups.h"
#include "library/LoadMusic.h"
#include "tests/fakes/FakeForm1.h"
#include "tests/fakes/FakeServices.h"
#include "tests/fakes/RecordedFiles.h"
#include "tests/library/LibraryText.h"
#include "tests/support/ITunesDBWriter.h"

/// A window on fakes that loads the binary database of an iPod at E:.
class LoadingWindow : public testing::Test {
protected:
    FakeForm1 Window;
    FakeMessages Boxes;
    RecordedFiles Files;
    FakeEventLoop Events;
    InlineWorker Background;
    LoadMusic Music{{Files, Background, Events, Boxes}, LoadControlsOf(Window.Controls)};
    MusicLibrary& Library = Music.Library;

    static QString DatabasePath();
    void Load(const QByteArray& database);

    /// A database with track chunks between a head that states `count` and the next data set.
    static QByteArray TrackList(quint32 count, const std::vector<QByteArray>& tracks) {
        QByteArray list = ITunesDBChunks::ListHead("mhlt", count);
        for (const QByteArray& track : tracks) {
            list += track;
        }
        return ITunesDBChunks::Database(
            {ITunesDBChunks::DataSet(1, list), ITunesDBChunks::DataSet(2, QByteArray(200, '\0'))});
    }
    void LoadTracks(quint32 count, const std::vector<QByteArray>& tracks) {
        Load(TrackList(count, tracks));
    }

    /// The library as "artist: album (titles), album (titles)".
    QStringList Groups() const;

    QStringList Titles() const {
        QStringList titles;
        for (const ArtistRecord& artist : Library.Artists) {
            for (const AlbumRecord& album : artist.Albums) {
                for (const TrackRecord& track : album.Tracks) {
                    titles += track.Title;
                }
            }
        }
        return titles;
    }

    void ExpectLoaded(const QStringList& lines) const {
        EXPECT_EQ(Lines(Library), lines);
        EXPECT_EQ(Boxes.Texts(), QStringList());
        ExpectConsistent(Library);
        ExpectEnded();
    }

    /// The load has ended with this error box, and with nothing else on the screen.
    void ExpectError(const QString& text) const;
    void ExpectEnded() const;
};

/// Tracks named by artist and album; their titles are their numbers from 1 on.
std::vector<SampleTrack> NamedTracks(const std::vector<std::pair<QString, QString>>& names);

/// A track that has nothing but a title.
inline QByteArray TitledTrack(const QString& title) {
    return ITunesDBChunks::Track(0, 0, {ITunesDBChunks::Item(1, title)});
}
