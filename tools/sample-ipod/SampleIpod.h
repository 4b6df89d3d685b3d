#pragma once

#include <QString>

enum class SampleKind {
    /// Playable music and video, for people.
    Full,
    /// Stand-ins without music, for tests.
    Small
};

/// Where the iPod keeps its list of tracks.
enum class SampleModel {
    /// In the binary database.
    Classic,
    /// In the SQLite library; the binary database is there and names no track.
    Newer
};

/// Makes a folder that looks like an attached iPod: `iPod_Control/Music/F00...` with the files, and
/// the databases in `iPod_Control/iTunes`. A complete folder of the same catalogue and model is
/// kept as it is; one that this function has not made is left alone and refused. Throws
/// std::runtime_error.
void MakeSampleIpod(const QString& folder, SampleKind kind, SampleModel model);
