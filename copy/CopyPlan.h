#pragma once

#include "library/MusicLibrary.h"

#include <QStringList>

#include <vector>

/// What the folders and the file names of a job are made of.
struct CopyOptions {
    bool ArtistFolder = false;
    bool AlbumFolder = false;
    bool ArtistName = false;
    bool AlbumName = false;
    bool TrackNumber = false;
};

/// One track of a job, and the names of its copy where the disk can hold them.
struct PlannedTrack {
    const TrackRecord& Track;
    /// The folders below the destination, the outermost first.
    QStringList Folders;
    /// The file's name, without the number that it gets if the name occurs again.
    QString Name;
    /// With its dot.
    QString Extension;
    /// Another folder begins: the file names given so far no longer count.
    bool StartsFolder = false;
    /// The name that the job gives its copy when it knows the folder; the plan leaves it empty.
    QString FileName = {};
};

/// Every track that is ticked together with its album and its artist, in the order of the library,
/// whose records must stay as they are while the plan is in use.
std::vector<PlannedTrack> PlanCopy(const MusicLibrary& library, const CopyOptions& options);
