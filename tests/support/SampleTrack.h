#pragma once

#include <QString>
#include <QtGlobal>

/// What iPods call an MP3.
QString MpegAudioText();

/// A track for the makers of device databases. An empty text is one that the device does not store.
struct SampleTrack {
    QString Artist;
    QString Album;
    QString Title;
    qint32 TrackNumber = 0;
    qint64 FileSize = 0;
    /// Path of the media file below the device's music folder, with "/" (`F00/ABCD.mp3`).
    QString Location;
    QString TypeText = MpegAudioText();
};
