#include "tests/preview/PlayerTest.h"

#include <QFile>
#include <QTimer>

#include <fcntl.h>

#include <set>

using MediaSamples::Film;
using MediaSamples::Tone;

namespace {

// ---- formats

struct Format {
    const char* Name;
    QString (*Make)();
};

void PrintTo(const Format& format, std::ostream* out) {
    *out << format.Name;
}

QString Small(const char* name) {
    return Film(QLatin1String(name), QStringLiteral("160x120"));
}

const Format formats[] = {
    {"Mp3", [] { return Tone(QStringLiteral("tone.mp3"), QStringLiteral("libmp3lame")); }},
    {"AacM4a", [] { return Tone(QStringLiteral("tone.m4a"), QStringLiteral("aac")); }},
    {"AacRaw", [] { return Tone(QStringLiteral("tone.aac"), QStringLiteral("aac")); }},
    {"Alac", [] { return Tone(QStringLiteral("lossless.m4a"), QStringLiteral("alac")); }},
    {"Wav", [] { return Tone(QStringLiteral("tone.wav"), QStringLiteral("pcm_s16le")); }},
    {"Aiff", [] { return Tone(QStringLiteral("tone.aif"), QStringLiteral("pcm_s16be")); }},
    {"Mp4", [] { return Small("film.mp4"); }},
    {"M4v",
     [] {
         return Film(QStringLiteral("film.m4v"), QStringLiteral("160x120"), 20, {},
                     {QStringLiteral("-f"), QStringLiteral("mp4")});
     }},
    {"QuickTime", [] { return Small("film.mov"); }},
};

class PlayerFormat : public PlayerTest, public testing::WithParamInterface<Format> {};

INSTANTIATE_TEST_SUITE_P(All, PlayerFormat, testing::ValuesIn(formats),
                         [](const auto& run) { return std::string(run.param.Name); });

TEST_P(PlayerFormat, PlaysOnAMachineWithoutASoundDevice) {
    Preview(GetParam().Make());
    EXPECT_TRUE(IsPlaying());
    EXPECT_FALSE(SaysItCannotPlay());
    EXPECT_TRUE(Becomes([&] { return Position().value() > 300; })) << Position().value();
    EXPECT_NEAR(Position().maximum(), 20'000, 200);
}

QImage Grab(QWidget& window) {
    return window.grab().toImage();
}

// ---- sizes

using PlayerSize = PlayerTest;

TEST_F(PlayerSize, BeforeTheFirstFileThePlayerIsSmall) {
    EXPECT_EQ(PixelWidth(), 360);
    EXPECT_EQ(PixelHeight(), Bar());
    EXPECT_EQ(player.Source(), QString());
}

TEST_F(PlayerSize, AFilmHasItsOwnSizeInTwipsWhenSetSourceReturns) {
    player.SetSource(Small("film.mp4"));
    EXPECT_EQ(player.Width(), 160 * 15);
    EXPECT_EQ(player.Height(), (120 + Bar()) * 15);
    EXPECT_EQ(player.Source(), Small("film.mp4"));
}

TEST_F(PlayerSize, AFilmLargerThanTheScreenIsScaledDownInItsShape) {
    ASSERT_EQ(window.screen()->availableGeometry().size(), QSize(800, 800));
    player.SetSource(Film(QStringLiteral("large.mp4"), QStringLiteral("1600x1200"), 2));
    // 16 pixels are left to the window's frame.
    EXPECT_EQ(PixelWidth(), 784);
    EXPECT_EQ(PixelHeight(), 588 + Bar());
}

TEST_F(PlayerSize, ATallFilmIsScaledDownUntilWindowAndBarFitTheScreen) {
    player.SetSource(Film(QStringLiteral("tall.mp4"), QStringLiteral("400x1600"), 2));
    // 48 pixels are left to the window's frame.
    EXPECT_EQ(PixelHeight(), 752);
    EXPECT_NEAR(PixelWidth(), (752 - Bar()) / 4.0, 1);
}

TEST_F(PlayerSize, PixelsThatAreNotSquareWidenTheFilm) {
    player.SetSource(Film(QStringLiteral("anamorphic.mp4"), QStringLiteral("160x120"), 2,
                          QStringLiteral(",setsar=2")));
    EXPECT_EQ(PixelWidth(), 320);
    EXPECT_EQ(PixelHeight(), 120 + Bar());
}

TEST_F(PlayerSize, AFilmThatStandsUprightIsShownUpright) {
    const QString lying = Film(QStringLiteral("lying.mov"), QStringLiteral("240x160"), 2,
                               QStringLiteral(",drawbox=color=blue:t=fill,"
                                              "drawbox=w=120:color=red:t=fill"));
    const QStringList turned = {QStringLiteral("-i"),
                                lying,
                                QStringLiteral("-c"),
                                QStringLiteral("copy"),
                                QStringLiteral("-metadata:s:v:0"),
                                QStringLiteral("rotate=90")};
    Preview(MediaSamples::Make(QStringLiteral("upright.mov"), turned));
    EXPECT_EQ(PixelWidth(), 160);
    EXPECT_EQ(PixelHeight(), 240 + Bar());
    // The red left half of the lying film stands below.
    EXPECT_TRUE(Becomes([&] { return Grab(window).pixelColor(2, 237).red() > 230; }));
    for (const int x : {2, 80, 157}) {
        EXPECT_GT(Grab(window).pixelColor(x, 2).blue(), 230);
        EXPECT_GT(Grab(window).pixelColor(x, 110).blue(), 230);
        EXPECT_GT(Grab(window).pixelColor(x, 130).red(), 230);
    }
    window.resize(300, 200);
    EXPECT_TRUE(Becomes([&] { return Grab(window).pixelColor(150, 5).blue() > 230; }));
}

TEST_F(PlayerSize, ATinyFilmLeavesTheBarUsable) {
    Preview(Film(QStringLiteral("tiny.mp4"), QStringLiteral("32x16"), 20));
    EXPECT_EQ(PixelWidth(), 160);
    EXPECT_EQ(PixelHeight(), 16 + Bar());
    EXPECT_EQ(PictureRect().size(), QSize(32, 16));
    EXPECT_TRUE(PlayButton().isVisible());
    EXPECT_TRUE(Position().isVisible());
    EXPECT_TRUE(Becomes([&] { return Position().width() >= 100; })) << Position().width();
}

TEST_F(PlayerSize, MusicGivesASmallPlayer) {
    player.SetSource(Tone(QStringLiteral("tone.mp3"), QStringLiteral("libmp3lame")));
    EXPECT_EQ(player.Width(), 360 * 15);
    EXPECT_EQ(player.Height(), Bar() * 15);
}

TEST_F(PlayerSize, AVideoAndThenAnAudioTrackEachGiveTheirSize) {
    Preview(Small("film.mp4"));
    EXPECT_EQ(player.Widget()->size(), QSize(160, 120 + Bar()));
    Preview(Tone(QStringLiteral("tone.mp3"), QStringLiteral("libmp3lame")));
    EXPECT_EQ(player.Widget()->size(), QSize(360, Bar()));
    Preview(Small("film.mov"));
    EXPECT_EQ(player.Widget()->size(), QSize(160, 120 + Bar()));
}

TEST_F(PlayerSize, ThePlayerFollowsItsWindowAndThePictureKeepsItsShape) {
    Preview(Small("film.mp4"));
    window.resize(400, 120 + Bar());
    EXPECT_EQ(player.Widget()->geometry(), QRect(0, 0, 400, 120 + Bar()));
    EXPECT_EQ(PixelWidth(), 400);
    EXPECT_EQ(PictureRect(), QRect(120, 0, 160, 120));
    window.resize(320, 300 + Bar());
    EXPECT_EQ(PictureRect(), QRect(0, 30, 320, 240));
}

TEST_F(PlayerSize, AWindowThatKeepsItsSizeIsFilled) {
    window.show();
    player.SetSource(Small("film.mp4"));
    EXPECT_EQ(PixelWidth(), 160);
    EXPECT_TRUE(Becomes([&] { return player.Widget()->size() == QSize(640, 480); }));
}

TEST_F(PlayerSize, AFilmThatIsKnownLateTellsItsSize) {
    player.Widget()->Patience = 0;
    player.SizeChanged = [&] { window.resize(PixelWidth(), PixelHeight()); };
    Preview(Small("film.mp4"));
    EXPECT_EQ(window.size(), QSize(360, Bar()));
    EXPECT_TRUE(Becomes([&] { return window.size() == QSize(160, 120 + Bar()); }));
    EXPECT_EQ(player.Widget()->size(), window.size());
    EXPECT_EQ(player.Width(), 160 * 15);
}

TEST_F(PlayerSize, LateNewsOfAFileThatWasStoppedChangesNothing) {
    player.Widget()->Patience = 0;
    Preview(Small("film.mp4"));
    player.SetSource(QString());
    EXPECT_FALSE(Becomes([&] { return window.size() != QSize(360, Bar()); }, 500));
    EXPECT_FALSE(SaysItCannotPlay());
}

// ---- the device's file

using PlayerFile = PlayerTest;

TEST_F(PlayerFile, IsOpenForReadingOnlyWhileItPlays) {
    const QString path = Small("film.mp4");
    player.SetSource(path);
    const auto descriptors = OpenDescriptors(path);
    ASSERT_EQ(descriptors.size(), 1u);
    const QString number = QString::fromStdString(descriptors[0].filename().string());
    QFile info(QStringLiteral("/proc/self/fdinfo/") + number);
    ASSERT_TRUE(info.open(QIODevice::ReadOnly));
    const QList<QByteArray> words = info.readAll().simplified().split(' ');
    const int flags = words.value(words.indexOf("flags:") + 1).toInt(nullptr, 8);
    ASSERT_NE(flags, 0);
    EXPECT_EQ(flags & O_ACCMODE, O_RDONLY);
}

TEST_F(PlayerFile, IsClosedWhenAnEmptySourceReturns) {
    const QString path = Small("film.mp4");
    Preview(path);
    ASSERT_TRUE(Becomes([&] { return Position().value() > 100; }));
    EXPECT_TRUE(IsOpen(path));
    player.SetSource(QString());
    EXPECT_FALSE(IsOpen(path));
    EXPECT_EQ(player.Source(), QString());
}

TEST_F(PlayerFile, StoppingIsAtOnce) {
    Preview(Small("film.mp4"));
    ASSERT_TRUE(Becomes([&] { return Position().value() > 100; }));
    QElapsedTimer time;
    time.start();
    player.SetSource(QString());
    EXPECT_LT(time.elapsed(), 500);
    EXPECT_FALSE(IsPlaying());
    EXPECT_EQ(Position().value(), 0);
    EXPECT_FALSE(PlayButton().isEnabled());
    EXPECT_FALSE(SaysItCannotPlay());
    EXPECT_FALSE(Becomes([&] { return IsPlaying() || Position().value() > 0; }, 300));
}

TEST_F(PlayerFile, IsReplacedByASecondSource) {
    const QString first = Small("film.mp4");
    const QString second = Tone(QStringLiteral("tone.mp3"), QStringLiteral("libmp3lame"));
    Preview(first);
    ASSERT_TRUE(Becomes([&] { return Position().value() > 1000; }));
    player.SetSource(second);
    EXPECT_FALSE(IsOpen(first));
    EXPECT_TRUE(IsOpen(second));
    EXPECT_EQ(player.Source(), second);
    EXPECT_TRUE(Becomes([&] { return Position().value() < 1000; }));
    EXPECT_TRUE(Becomes([&] { return Position().value() > 100; }));
}

TEST_F(PlayerFile, PlaysAgainFromTheBeginningWhenItIsGivenAgain) {
    const QString path = Small("film.mp4");
    Preview(path);
    ASSERT_TRUE(Becomes([&] { return Position().value() > 1000; }));
    player.SetSource(path);
    EXPECT_TRUE(Becomes([&] { return Position().value() < 1000; }));
    EXPECT_TRUE(Becomes([&] { return Position().value() > 100; }));
    EXPECT_NEAR(Position().maximum(), 20'000, 200);
    EXPECT_EQ(OpenDescriptors(path).size(), 1u);
}

TEST_F(PlayerFile, PlaysAfterItWasPausedAndStopped) {
    Preview(Small("film.mp4"));
    PlayButton().click();
    ASSERT_TRUE(Becomes([&] { return !IsPlaying(); }));
    player.SetSource(QString());
    Preview(Small("film.mov"));
    EXPECT_TRUE(Becomes([&] { return Position().value() > 300; }));
    EXPECT_TRUE(IsPlaying());
}

TEST_F(PlayerFile, IsFoundWhereTheFileSystemSaysItIs) {
    const QString path = Tone(QStringLiteral("tone.mp3"), QStringLiteral("libmp3lame"));
    const QString onDevice = QStringLiteral("E:\\iPod_Control\\Music\\F00\\ABCD.mp3");
    files.SetNativePath(onDevice, path);
    player.SetSource(onDevice);
    EXPECT_EQ(player.Source(), onDevice);
    EXPECT_TRUE(IsOpen(path));
}

TEST_F(PlayerFile, MayHaveAnyName) {
    const QString path =
        MediaSamples::Folder() + QStringLiteral("/--vo=null #1 %41 {x}\n ü.mp3?a=b");
    ASSERT_TRUE(QFile::copy(Tone(QStringLiteral("tone.mp3"), QStringLiteral("libmp3lame")), path));
    Preview(path);
    EXPECT_TRUE(IsOpen(path));
    EXPECT_TRUE(Becomes([&] { return Position().value() > 100; }));
}

TEST_F(PlayerFile, ManySourcesInARowLeaveNoneOpen) {
    const QString film = Small("film.mp4");
    const QString tone = Tone(QStringLiteral("tone.mp3"), QStringLiteral("libmp3lame"));
    player.Widget()->Patience = 0;
    for (int i = 0; i < 20; ++i) {
        Preview(film);
        Preview(tone);
        QTest::qWait(i % 4);
    }
    EXPECT_FALSE(IsOpen(film));
    EXPECT_EQ(OpenDescriptors(tone).size(), 1u);
    EXPECT_TRUE(Becomes([&] { return Position().value() > 100; }));
    player.SetSource(QString());
    EXPECT_FALSE(IsOpen(tone));
}

// ---- the picture

using PlayerPicture = PlayerTest;

int ColoursIn(const QImage& image, const QRect& part) {
    std::set<QRgb> colours;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) {
            colours.insert(image.pixel(x, y));
        }
    }
    return int(colours.size());
}

TEST_F(PlayerPicture, IsReallyDrawn) {
    Preview(Small("film.mp4"));
    EXPECT_TRUE(Becomes([&] { return ColoursIn(Grab(window), {0, 0, 160, 120}) > 100; }));
}

TEST_F(PlayerPicture, Moves) {
    Preview(Small("film.mp4"));
    ASSERT_TRUE(Becomes([&] { return Position().value() > 100; }));
    const QImage before = Grab(window).copy(0, 0, 160, 120);
    EXPECT_TRUE(Becomes([&] { return Grab(window).copy(0, 0, 160, 120) != before; }));
}

TEST_F(PlayerPicture, StandsBetweenBlackBarsInAWindowOfAnotherShape) {
    const QString path = Film(QStringLiteral("white.mp4"), QStringLiteral("160x120"), 20,
                              QStringLiteral(",drawbox=color=white:t=fill"));
    Preview(path);
    window.resize(401, 120 + Bar());
    const auto red = [&](int x) { return qRed(Grab(window).pixel(x, 60)); };
    EXPECT_TRUE(Becomes([&] { return red(200) > 240; }));
    for (const int x : {0, 60, 119, 281, 340, 400}) {
        EXPECT_EQ(red(x), 0) << x;
    }
    for (const int x : {122, 160, 240, 278}) {
        EXPECT_GT(red(x), 240) << x;
    }
}

TEST_F(PlayerPicture, HasTheFilmsColours) {
    const QString path = Film(QStringLiteral("red.mp4"), QStringLiteral("160x120"), 20,
                              QStringLiteral(",drawbox=color=red:t=fill"));
    Preview(path);
    EXPECT_TRUE(Becomes([&] {
        const QColor colour = Grab(window).pixelColor(80, 60);
        return colour.red() > 230 && colour.green() < 25 && colour.blue() < 25;
    }));
}

TEST_F(PlayerPicture, IsGoneAfterAStop) {
    Preview(Small("film.mp4"));
    ASSERT_TRUE(Becomes([&] { return ColoursIn(Grab(window), {0, 0, 160, 120}) > 100; }));
    player.SetSource(QString());
    EXPECT_EQ(ColoursIn(Grab(window), {0, 0, 160, 120}), 1);
}

TEST_F(PlayerPicture, IsTheCoverOfMusicThatHasOne) {
    const QString tones[] = {Tone(QStringLiteral("tone.mp3"), QStringLiteral("libmp3lame")),
                             Tone(QStringLiteral("tone.m4a"), QStringLiteral("aac"))};
    for (const QString& tone : tones) {
        const QString name = QStringLiteral("cover.") + tone.right(3);
        Preview(MediaSamples::ToneWithCover(tone, name, QStringLiteral("red")));
        ASSERT_EQ(window.size(), QSize(360, 200 + Bar())) << name.toStdString();
        EXPECT_TRUE(Becomes([&] {
            const QColor colour = Grab(window).pixelColor(180, 100);
            return colour.red() > 230 && colour.green() < 25 && colour.blue() < 25;
        })) << name.toStdString();
        EXPECT_EQ(PictureRect(), QRect(92, 12, 176, 176));
        EXPECT_EQ(Grab(window).pixelColor(40, 100), window.palette().color(QPalette::Window));
        EXPECT_TRUE(Becomes([&] { return Position().value() > 300; }));
    }
}

TEST_F(PlayerPicture, LeavesTimeForTheRestOfTheWindow) {
    Preview(Film(QStringLiteral("hd.mp4"), QStringLiteral("1280x720"), 10));
    ASSERT_TRUE(Becomes([&] { return Position().value() > 100; }));
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] { ++ticks; });
    timer.start(10);
    QTest::qWait(1000);
    EXPECT_GT(ticks, 20);
}

// ---- the end

using PlayerEnd = testing::Test;

TEST_F(PlayerEnd, ThePlayerGoesWhileItPlays) {
    const QString path = Small("film.mp4");
    FakeFileSystem files;
    for (const int milliseconds : {0, 1, 50, 300}) {
        QWidget window;
        window.show();
        auto player = std::make_unique<MpvPlayer>(&window, QStringLiteral("QTControl"), files);
        player->SetSource(path);
        QTest::qWait(milliseconds);
        player.reset();
        EXPECT_EQ(window.findChild<QWidget*>(QStringLiteral("QTControl")), nullptr);
        QTest::qWait(20);
    }
}

TEST_F(PlayerEnd, TheWindowGoesFirstWhileItPlays) {
    const QString path = Small("film.mp4");
    FakeFileSystem files;
    auto window = std::make_unique<QWidget>();
    window->show();
    MpvPlayer player(window.get(), QStringLiteral("QTControl"), files);
    player.SetSource(path);
    QTest::qWait(100);
    window.reset();
    EXPECT_EQ(player.Widget(), nullptr);
    QTest::qWait(100);
}

TEST_F(PlayerEnd, ThePlayerGoesWhileItIsStillOpeningTheFile) {
    FakeFileSystem files;
    for (int i = 0; i < 10; ++i) {
        QWidget window;
        MpvPlayer player(&window, QStringLiteral("QTControl"), files);
        player.Widget()->Patience = 0;
        player.SetSource(Small("film.mp4"));
    }
}

} // namespace
