#pragma once

#include "app/ControlGroups.h"
#include "library/LoadMusic.h"
#include "tests/fakes/FakeFileSystem.h"
#include "tests/fakes/FakeForm1.h"
#include "tests/fakes/FakeServices.h"
#include "tests/library/LibraryText.h"
#include "tests/support/ITunesDBWriter.h"

/// A window on fakes that loads the binary database of an iPod at E:.
class LoadingWindow : public testing::Test {
protected:
    FakeForm1 Window;
    FakeMessages Boxes;
    FakeFileSystem Files;
    LoadMusic Music{Files, Boxes, LoadControlsOf(Window.Controls)};
    MusicLibrary& Library = Music.Library;

    static QString DatabasePath() { return QStringLiteral("E:\\iPod_Control\\iTunes\\iTunesDB"); }

    void Load(const QByteArray& database) {
        Files.AddFile(DatabasePath(), database);
        Music.LoadITunesDB(QStringLiteral("E:"));
    }

    /// Loads a list of track chunks between a head that tells `count` and the next data set.
    void LoadTracks(quint32 count, const std::vector<QByteArray>& tracks) {
        QByteArray list = ITunesDBChunks::ListHead("mhlt", count);
        for (const QByteArray& track : tracks) {
            list += track;
        }
        Load(ITunesDBChunks::Database(
            {ITunesDBChunks::DataSet(1, list), ITunesDBChunks::DataSet(2, QByteArray(200, '\0'))}));
    }

    /// The load has ended with this error box, and with nothing else on the screen.
    void ExpectError(const QString& text) const {
        ASSERT_EQ(Boxes.Shown.size(), 1U);
        EXPECT_EQ(Boxes.Shown[0], (ShownMessage{text, QStringLiteral("Error"), MessageButtons::OK,
                                                MessageIcon::Critical}));
        ExpectEnded();
    }

    void ExpectEnded() const {
        EXPECT_FALSE(Library.LoadingMusic);
        EXPECT_EQ(Window.prgCopy.Value(), 0);
        EXPECT_EQ(Window.Form1.Caption(), QStringLiteral("Songlift"));
    }
};

/// A track that has nothing but a title.
inline QByteArray TitledTrack(const QString& title) {
    return ITunesDBChunks::Track(0, 0, {ITunesDBChunks::Item(1, title)});
}
