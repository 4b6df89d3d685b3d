#pragma once

#include <QSize>
#include <QString>

/// What the player is doing. Times are in seconds.
struct Playback {
    enum class Stage {
        Empty,   // no file
        Opening, // it is not known yet what the file holds
        Open,    // it plays or pauses
        Failed   // the file cannot be played
    };
    enum class Picture { None, Film, Cover };

    Stage At = Stage::Empty;
    /// What the user can do about a file that cannot be played; empty where that is not known.
    QString Why;
    Picture Shows = Picture::None;
    /// The natural size in pixels, as the picture is to be seen; empty until its first frame has
    /// been decoded.
    QSize PictureSize;
    /// How the decoded picture must be turned to be seen upright: 0, 90, 180 or 270 degrees
    /// clockwise.
    int Rotation = 0;
    double Position = 0;
    /// 0 while it is not known.
    double Duration = 0;
    bool Paused = false;
    /// The file has been played to its end.
    bool AtEnd = false;
};
