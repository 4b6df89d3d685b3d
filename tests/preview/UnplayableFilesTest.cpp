#include "platform/RuntimeError.h"
#include "tests/preview/PlayerTest.h"

#include <QFile>

#include <sys/stat.h>

using MediaSamples::Film;
using MediaSamples::Read;
using MediaSamples::Tone;
using MediaSamples::Write;

namespace {

QString Song() {
    return Tone(QStringLiteral("tone.m4a"), QStringLiteral("aac"));
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
     [] {
         return Read(Film(QStringLiteral("film.mp4"), QStringLiteral("160x120"))).first(20'000);
     }},
    {"AWaveFileWithoutSound", "header.wav",
     [] { return Read(Tone(QStringLiteral("tone.wav"), QStringLiteral("pcm_s16le"))).first(44); }},
    {"AProtectedSong", "protected.m4p", ProtectedSong},
    {"APicture", "picture.mp3",
     [] {
         return Read(MediaSamples::Make(QStringLiteral("picture.png"),
                                        {QStringLiteral("-f"), QStringLiteral("lavfi"),
                                         QStringLiteral("-i"),
                                         QStringLiteral("color=red:size=32x32:duration=0.04"),
                                         QStringLiteral("-frames:v"), QStringLiteral("1")}));
     }},
};

class UnplayableFile : public PlayerTest, public testing::WithParamInterface<BadFile> {};

INSTANTIATE_TEST_SUITE_P(All, UnplayableFile, testing::ValuesIn(badFiles),
                         [](const auto& run) { return std::string(run.param.Name); });

TEST_P(UnplayableFile, GivesASmallPlayerThatSaysSo) {
    const QString path = Write(QLatin1String(GetParam().FileName), GetParam().Bytes());
    Preview(path);
    EXPECT_TRUE(SaysItCannotPlay());
    EXPECT_FALSE(IsOpen(path));
    EXPECT_EQ(window.size(), QSize(360, Bar()));
    EXPECT_FALSE(PlayButton().isVisible());
    EXPECT_FALSE(IsPlaying());
    EXPECT_EQ(player.Source(), path);
}

TEST_P(UnplayableFile, LeavesThePlayerReadyForTheNext) {
    Preview(Song());
    Preview(Write(QLatin1String(GetParam().FileName), GetParam().Bytes()));
    Preview(Song());
    EXPECT_FALSE(SaysItCannotPlay());
    EXPECT_TRUE(PlayButton().isVisible());
    EXPECT_TRUE(Becomes([&] { return Position().value() > 100; }));
}

using UnplayablePath = PlayerTest;

TEST_F(UnplayablePath, AMissingFileSaysSo) {
    player.SetSource(MediaSamples::Folder() + QStringLiteral("/none.mp3"));
    EXPECT_TRUE(SaysItCannotPlay());
}

TEST_F(UnplayablePath, AFolderSaysSo) {
    player.SetSource(MediaSamples::Folder());
    EXPECT_TRUE(SaysItCannotPlay());
}

TEST_F(UnplayablePath, APipeSaysSoInsteadOfWaiting) {
    const QString path = MediaSamples::Folder() + QStringLiteral("/pipe.mp3");
    ASSERT_EQ(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    player.SetSource(path);
    EXPECT_TRUE(SaysItCannotPlay());
}

TEST_F(UnplayablePath, AFileThatTheFileSystemCannotNameSaysSo) {
    const QString path = QStringLiteral("E:\\iPod_Control\\Music\\F00\\ABCD.mp3");
    files.FailPath(FileCall::NativePath, path, ErrorNumber::DeviceUnavailable);
    player.SetSource(path);
    EXPECT_TRUE(SaysItCannotPlay());
    EXPECT_EQ(files.FailuresStruck, 1);
}

TEST_F(UnplayablePath, TheMessageIsGoneAfterAStop) {
    player.SetSource(MediaSamples::Folder());
    player.SetSource(QString());
    EXPECT_FALSE(SaysItCannotPlay());
}

/// A file that only tells where others are must not get them opened.
class FileThatRefersToAnother : public PlayerTest {
protected:
    void ExpectRefused(const char* name, const QByteArray& text) {
        const QByteArray other = Song().toUtf8();
        const QString path = Write(QLatin1String(name), QByteArray(text).replace("OTHER", other));
        Preview(path);
        EXPECT_TRUE(SaysItCannotPlay()) << text.toStdString();
        EXPECT_FALSE(IsOpen(Song())) << text.toStdString();
    }
};

TEST_F(FileThatRefersToAnother, IsNotPlayed) {
    ExpectRefused("list.mp3", "#EXTM3U\n#EXTINF:20,Song\nOTHER\n");
    ExpectRefused("list.m3u", "OTHER\n");
    ExpectRefused("list.pls", "[playlist]\nFile1=OTHER\nNumberOfEntries=1\n");
    ExpectRefused("edl.mp3", "# mpv EDL v0\nOTHER\n");
    ExpectRefused("cue.mp3", "FILE \"OTHER\" MP3\n  TRACK 01 AUDIO\n    INDEX 01 00:00:00\n");
    ExpectRefused("concat.mp3", "ffconcat version 1.0\nfile 'OTHER'\n");
    ExpectRefused("stream.mp4", "#EXTM3U\n#EXT-X-VERSION:3\n#EXT-X-TARGETDURATION:20\n"
                                "#EXT-X-MEDIA-SEQUENCE:0\n#EXTINF:20.0,\nfile://OTHER\n"
                                "#EXT-X-ENDLIST\n");
    ExpectRefused("text.mov", "RTSPtextfile://OTHER\n");
}

} // namespace
