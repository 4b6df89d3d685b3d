#include "tests/preview/PlayerTest.h"

using namespace Qt::StringLiterals;
using MediaSamples::Film;
using MediaSamples::Read;
using MediaSamples::Tone;
using MediaSamples::Write;

namespace {

QString Song() {
    return Tone(u"tone.m4a"_s, u"aac"_s);
}

/// Bytes without order.
QByteArray Noise(int size) {
    QByteArray bytes(size, 0);
    quint32 state = 12345;
    for (char& byte : bytes) {
        state = state * 1664525 + 1013904223;
        byte = static_cast<char>(state >> 24);
    }
    return bytes;
}

/// The song behind a copy protection that nobody but its maker can open.
QByteArray ProtectedSong() {
    QByteArray bytes = Read(Song());
    const qsizetype codec = bytes.indexOf("mp4a", bytes.indexOf("stsd"));
    EXPECT_GT(codec, 0);
    return bytes.replace(codec, 4, "drms");
}

struct BadFile {
    const char* Name;
    const char* FileName;
    QByteArray (*Bytes)();
};

void PrintTo(const BadFile& file, std::ostream* out) {
    *out << file.Name;
}

const BadFile badFiles[] = {
    {"AnEmptyFile", "empty.mp3", [] { return QByteArray(); }},
    {"AText", "text.mp3", [] { return QByteArray("This is a letter to my aunt.\n").repeated(99); }},
    {"Noise", "noise.m4a", [] { return Noise(100'000); }},
    {"AFilmCutOffBeforeItsIndex", "cut.mp4",
     [] { return Read(Film(u"film.mp4"_s, u"160x120"_s)).first(20'000); }},
    {"AWaveFileWithoutSound", "header.wav",
     [] { return Read(Tone(u"tone.wav"_s, u"pcm_s16le"_s)).first(44); }},
    {"AProtectedSong", "protected.m4p", ProtectedSong},
    {"APicture", "picture.mp3", [] { return Read(MediaSamples::Picture(u"red"_s)); }},
};

class UnplayableFile : public PlayerTest, public testing::WithParamInterface<BadFile> {};

INSTANTIATE_TEST_SUITE_P(All, UnplayableFile, testing::ValuesIn(badFiles),
                         [](const auto& run) { return std::string(run.param.Name); });

TEST_P(UnplayableFile, GivesASmallPlayerThatSaysSoAndIsReadyForTheNext) {
    Preview(Song());
    const QString path = Write(QLatin1String(GetParam().FileName), GetParam().Bytes());
    Preview(path);
    EXPECT_TRUE(SaysItCannotPlay());
    EXPECT_FALSE(IsOpen(path));
    EXPECT_EQ(window.size(), QSize(360, Bar()));
    EXPECT_FALSE(PlayButton().isVisible());
    EXPECT_FALSE(IsPlaying());
    EXPECT_EQ(player.Source(), path);
    Preview(Song());
    EXPECT_FALSE(SaysItCannotPlay());
    EXPECT_TRUE(PlayButton().isVisible());
    ExpectPlayingOn();
}

/// A file that only tells where others are must not get them opened.
class FileThatRefersToAnother : public PlayerTest {
protected:
    void ExpectRefused(const QString& name, const QByteArray& text) {
        Preview(Write(name, QByteArray(text).replace("OTHER", Song().toUtf8())));
        EXPECT_TRUE(SaysItCannotPlay()) << text.toStdString();
        EXPECT_FALSE(IsOpen(Song())) << text.toStdString();
    }
};

TEST_F(FileThatRefersToAnother, IsNotPlayed) {
    ExpectRefused(u"list.mp3"_s, "#EXTM3U\n#EXTINF:20,Song\nOTHER\n");
    ExpectRefused(u"list.m3u"_s, "OTHER\n");
    ExpectRefused(u"list.pls"_s, "[playlist]\nFile1=OTHER\nNumberOfEntries=1\n");
    ExpectRefused(u"edl.mp3"_s, "# mpv EDL v0\nOTHER\n");
    ExpectRefused(u"cue.mp3"_s, "FILE \"OTHER\" MP3\n  TRACK 01 AUDIO\n    INDEX 01 00:00:00\n");
    ExpectRefused(u"concat.mp3"_s, "ffconcat version 1.0\nfile 'OTHER'\n");
    ExpectRefused(u"stream.mp4"_s, "#EXTM3U\n#EXT-X-VERSION:3\n#EXT-X-TARGETDURATION:20\n"
                                   "#EXT-X-MEDIA-SEQUENCE:0\n#EXTINF:20.0,\nfile://OTHER\n"
                                   "#EXT-X-ENDLIST\n");
    ExpectRefused(u"text.mov"_s, "RTSPtextfile://OTHER\n");
}

} // namespace
