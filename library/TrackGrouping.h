#pragma once

#include "library/MusicLibrary.h"

#include <QHashFunctions>

#include <unordered_map>

/// Adds tracks to a library, grouped by the lower-cased names of artist and album.
class TrackGrouping {
public:
    explicit TrackGrouping(MusicLibrary& library) : m_library(library) {}

    /// Adds a track; where TrackCount is 0, whatever the library holds goes first. Throws, and adds
    /// nothing, when the library is full (Overflow) or memory runs out.
    void Add(TrackRecord&& track, const QString& artistName, const QString& albumName);

private:
    struct NameHash {
        size_t operator()(const QString& name) const {
            return qHash(name, QHashSeed::globalSeed());
        }
    };
    /// Indices of groups by their lower-cased names. Not a QHash, which ends the program when
    /// memory runs out.
    using GroupTable = std::unordered_map<QString, qsizetype, NameHash>;

    template <class Record>
    static qsizetype FindOrAdd(GroupTable& groups, std::vector<Record>& records,
                               const QString& name);
    void Put(TrackRecord&& track, const QString& artistName, const QString& albumName);
    void DropEmptyGroups();
    qsizetype FindArtist(const QString& name);
    qsizetype FindAlbum(const QString& name);

    MusicLibrary& m_library;
    // Tracks of one album mostly follow each other, so the last group is tried first. A group takes
    // on the spelling of its last track, but its key, the lower-cased name, never changes.
    qsizetype m_artist = -1;
    qsizetype m_album = -1;
    GroupTable m_artists;
    /// One table per artist.
    std::vector<GroupTable> m_albums;
};
