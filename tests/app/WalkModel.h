#pragma once

#include <QString>
#include <QStringList>

#include <map>
#include <random>
#include <set>
#include <vector>

/// A song with a title of its own, so that a row's text tells which one it is.
struct WalkSong {
    QString Artist, Album, Title;
    qint64 Size = 0;
    bool IsVideo = false;
    bool Ticked = false;
    QString File;
};

std::vector<WalkSong> RandomSongs(std::mt19937& random, bool withLargeFile);

/// What the window must show, told as plainly as can be: of two devices one is loaded, a text may
/// narrow its lists, and each of its songs is ticked or not.
class WalkModel {
public:
    /// The artist, the album or the title of a song.
    using Name = QString WalkSong::*;

    /// The songs of the devices, by their letters.
    std::map<char, std::vector<WalkSong>> Devices;
    char LoadedDevice = 'E';
    /// The text that narrows the lists; null for none.
    QString InForce;

    std::vector<WalkSong>& Loaded() { return Devices[LoadedDevice]; }
    const std::vector<WalkSong>& Loaded() const { return Devices.at(LoadedDevice); }

    /// Another device, or the same again: the ticks are gone.
    void Load(char device);
    /// A text of blanks narrows nothing.
    void Narrow(const QString& text);
    /// Ticks the songs that rows with these texts stand for.
    void Tick(Name name, const QStringList& rows, const QString& tab, bool ticked);

    /// The rows of a list beside a current artist and album; null for the "All" rows.
    std::set<QString> Rows(Name name, const QString& tab, const QString& artist,
                           const QString& album) const;
    /// A row may be ticked for a song that the result leaves out, and must be for one that it
    /// shows.
    bool MayBeTicked(Name name, const QString& row) const;
    bool MustBeTicked(Name name, const QString& row, const QString& tab) const;
    bool HasTicks() const;
    QString Summary() const;
    /// A file of a song's title and length; equal titles of the two devices have sizes of their
    /// own.
    bool IsWhole(const QString& file, qint64 length) const;

private:
    bool IsShown(const WalkSong& song, const QString& tab) const;
};
