#pragma once

#include <QString>

#include <vector>

enum class SampleFormat { Mp3, Aac, AppleLossless, Wav, Aiff, Mpeg4Video, QuickTimeMovie };

/// One track of a sample iPod. The names are as the device stores them, traps included.
struct CatalogueTrack {
    QString Artist;
    QString Album;
    QString Title;
    int TrackNumber = 0;
    SampleFormat Format = SampleFormat::Mp3;
    /// Playing time of a playable file.
    int Seconds = 3;
    /// Length in bytes of a stand-in.
    qint64 StandInBytes = 0;
};

/// About forty tracks of every format, to look at and listen to. One of them passes 50,000,000
/// bytes.
std::vector<CatalogueTrack> FullCatalogue();

/// A dozen tracks, quickly made as stand-ins, whose names meet each naming rule once.
std::vector<CatalogueTrack> SmallCatalogue();

/// The file-type text that the device stores for a format.
QString FileTypeText(SampleFormat format);

/// The extension of a format's files, without the dot.
QString FileExtension(SampleFormat format);
