#pragma once

#include "library/MusicLibrary.h"

#include <QHashFunctions>

#include <unordered_map>

/// Adds tracks to a library, grouped by the lower-cased names of artist and album.
class TrackGrouping {
public:
    explicit TrackGrouping(MusicLibrary& library) : m_library(library) {}

    /// Adds a track, the first one to an empty library. Throws, and adds nothing, when the library
    /// is full (Overflow) or memory runs out.
    void Add(TrackRecord&& track, const QString& artistName, const QString& albumName);

private:
    struct NameHash {
        size_t operator()(const QString& name) const {
            return qHash(name, QHashSeed::globalSeed());
        }
    };
    /// Indices of groups by their lower-cased names. No QHash, which ends the program when it is
    /// out of memory.
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
    // over the spelling of its last track, but its lower-cased name, the key, never changes.
    qsizetype m_artist = -1;
    qsizetype m_album = -1;
    GroupTable m_artists;
    /// One table an artist.
    std::vector<GroupTable> m_albums;
};
