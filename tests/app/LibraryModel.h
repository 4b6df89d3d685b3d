#pragma once

#include "tests/fakes/FakeForm1.h"
#include "tests/fakes/RecordedFiles.h"
#include "tests/support/SampleTrack.h"

#include <map>
#include <optional>
#include <set>
#include <vector>

/// A song with a title of its own, so that a row's text tells which one it is.
struct ModelSong {
    QString Artist, Album, Title;
    qint64 Size = 0;
    bool IsVideo = false;
    bool Ticked = false;
};

/// What the window must show, told as plainly as can be: of the devices one is loaded, a text may
/// narrow its lists, and each of its songs is ticked or not.
class LibraryModel {
public:
    /// The artist, the album or the title of a song.
    using Name = QString ModelSong::*;

    /// The songs of the devices, by their letters.
    std::map<char, std::vector<ModelSong>> Devices;
    char LoadedDevice = 'E';
    /// The text that narrows the lists; null for none.
    QString InForce;
    /// Where it is not known what narrows the lists: the songs that are left.
    std::optional<QStringList> ShownTitles;

    void Add(char device, const std::vector<SampleTrack>& tracks);
    std::vector<ModelSong>& Loaded() { return Devices[LoadedDevice]; }
    const std::vector<ModelSong>& Loaded() const { return Devices.at(LoadedDevice); }

    /// Another device, or the same again: the ticks are gone.
    void Load(char device);
    /// A text of blanks narrows nothing.
    void Narrow(const QString& text);
    /// Ticks the songs that rows with these texts stand for.
    void Tick(Name name, const QStringList& rows, const QString& tab, bool ticked);
    /// Takes over the ticks of a list that shows all songs.
    void TakeTicks(const FakeListControl& lstSongs);
    QStringList TickedTitles() const;

    /// Fails the test unless lists, summary, full name and buttons show this.
    void ExpectShown(const FakeForm1& form) const;
    /// Fails the test unless the devices are untouched and every copy is whole.
    void ExpectWholeFiles(const RecordedFiles& files) const;

private:
    bool IsShown(const ModelSong& song, const QString& tab) const;
    std::set<QString> Rows(Name name, const QString& tab, const QString& artist,
                           const QString& album) const;
    void ExpectRows(const FakeListControl& list, Name name, const QString& tab,
                    const QString& artist, const QString& album) const;
    QString FullName(const QString& artist, const QString& album, const QString& title) const;
    QString Summary() const;
    bool IsWhole(const QString& file, qint64 length) const;
};
