#include "tests/app/ProgramFixture.h"

#include "tests/support/ITunesDBWriter.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString Name(const char* text) {
    return QString::fromUtf8(text);
}

SampleTrack Song(const char* artist, const char* album, const char* title, int number, int size,
                 const char* file) {
    return {Name(artist), Name(album), Name(title), number, size, Name(file)};
}

} // namespace

ProgramFixture::ProgramFixture() {
    shell.Documents = u"D:\\Documents"_s;
    files.AddDrive(u"D:"_s);
    files.AddFolder(u"D:\\Music"_s);
}

void ProgramFixture::PlugIn(QChar letter, const QString& volumeName,
                            const std::vector<SampleTrack>& tracks) {
    const QString root = letter + u":"_s;
    files.AddDrive(root);
    files.AddFile(root + u"\\iPod_Control\\iTunes\\iTunesDB"_s, WriteITunesDB(tracks));
    for (const SampleTrack& track : tracks) {
        QString location = track.Location;
        location.replace(u'/', u'\\');
        files.AddLargeFile(root + u"\\iPod_Control\\Music\\"_s + location, track.FileSize,
                           qHash(track.Location));
    }
    drives.Mounted.push_back({letter, volumeName});
}

void ProgramFixture::Unplug(QChar letter) {
    files.RemoveDrive(letter + u":"_s);
    std::erase_if(drives.Mounted,
                  [letter](const FakeDrive& drive) { return drive.Letter == letter; });
}

void ProgramFixture::ExpectAtRest() const {
    for (const FakeListControl* list : {&form.lstArtists, &form.lstAlbums, &form.lstSongs}) {
        EXPECT_TRUE(list->Visible());
    }
    EXPECT_EQ(form.Form1.Pointer(), MousePointer::Default);
    EXPECT_NE(form.cmdCopy.Caption(), u"&Cancel"_s);
    const std::vector<const Control*> lockable = {
        &form.Combo1, &form.tbsFilter, &form.Picture2,       &form.frmDP,
        &form.frmTN,  &form.chkArtist, &form.frmDestination, &form.txtDestination};
    for (const Control* control : lockable) {
        EXPECT_TRUE(control->Enabled());
    }
}

std::vector<SampleTrack> SmallLibrary() {
    std::vector<SampleTrack> tracks = {
        Song("Blue River", "Deep", "Source", 1, 16384, "F00/AAAA.mp3"),
        Song("Blue River", "Deep", "Delta", 2, 32768, "F00/AAAB.mp3"),
        Song("Blue River", "Wide", "Estuary", 1, 8192, "F00/AAAC.mp3"),
        Song("The Lamps", "Evening", "Dusk", 2, 1024, "F01/AAAD.mp3"),
        Song("The Lamps", "Evening", "Night Bus", 1, 2048, "F01/AAAE.mp3"),
        Song("The Lamps", "Evening", "Film", 0, 4096, "F01/AAAF.m4v"),
    };
    tracks.back().TypeText = u"MPEG-4 video file"_s;
    return tracks;
}
