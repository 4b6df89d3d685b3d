#include "tests/preview/PlayerTest.h"

#include <QFile>
#include <QTimer>

#include <set>

using namespace Qt::StringLiterals;
using MediaSamples::Film;
using MediaSamples::Make;
using MediaSamples::Tone;

namespace {

QString Mp3() {
    return Tone(u"tone.mp3"_s, u"libmp3lame"_s);
}

QString SmallFilm(const QString& name, const QStringList& extra = {}) {
    return Film(name, u"160x120"_s, 20, {}, extra);
}

QColor ColourAt(QWidget& window, int x, int y) {
    return window.grab().toImage().pixelColor(x, y);
}

bool IsRed(const QColor& colour) {
    return colour.red() > 230 && colour.green() < 25 && colour.blue() < 25;
}

// ---- formats

struct Format {
    const char* Name;
    QString (*Make)();
};

void PrintTo(const Format& format, std::ostream* out) {
    *out << format.Name;
}

const Format formats[] = {
    {"Mp3", Mp3},
    {"AacM4a", [] { return Tone(u"tone.m4a"_s, u"aac"_s); }},
    {"AacRaw", [] { return Tone(u"tone.aac"_s, u"aac"_s); }},
    {"AudioBook",
     [] {
         return Make(u"tone.m4b"_s, {u"-i"_s, Tone(u"tone.m4a"_s, u"aac"_s), u"-c"_s, u"copy"_s,
                                     u"-f"_s, u"ipod"_s});
     }},
    {"Alac", [] { return Tone(u"lossless.m4a"_s, u"alac"_s); }},
    {"Wav", [] { return Tone(u"tone.wav"_s, u"pcm_s16le"_s); }},
    {"Aiff", [] { return Tone(u"tone.aif"_s, u"pcm_s16be"_s); }},
    {"AiffOf24Bits", [] { return Tone(u"deep.aif"_s, u"pcm_s24be"_s); }},
    {"WavOf24Bits", [] { return Tone(u"deep.wav"_s, u"pcm_s24le"_s); }},
    {"WavOfFloatingPoint", [] { return Tone(u"float.wav"_s, u"pcm_f32le"_s); }},
    {"Surround",
     [] {
         return Make(u"surround.m4a"_s, {u"-i"_s, Mp3(), u"-ac"_s, u"6"_s});
     }},
    {"Mp4", [] { return SmallFilm(u"film.mp4"_s); }},
    {"M4v",
     [] {
         return SmallFilm(u"film.m4v"_s, {u"-f"_s, u"mp4"_s});
     }},
    {"QuickTime", [] { return SmallFilm(u"film.mov"_s); }},
};

class PlayerFormat : public PlayerTest, public testing::WithParamInterface<Format> {};

INSTANTIATE_TEST_SUITE_P(All, PlayerFormat, testing::ValuesIn(formats),
                         [](const auto& run) { return std::string(run.param.Name); });

TEST_P(PlayerFormat, PlaysOnAMachineWithoutASoundDevice) {
    Preview(GetParam().Make());
    EXPECT_FALSE(SaysItCannotPlay());
    ExpectPlayingOn();
    EXPECT_NEAR(Position().maximum(), 20'000, 200);
}

// ---- sizes

class PlayerSize : public PlayerTest {
protected:
    QSize Pixels() const { return {PixelWidth(), PixelHeight()}; }
    QSize SmallPlayer() const { return {360, Bar()}; }
};

TEST_F(PlayerSize, WithoutAFilmThePlayerIsSmall) {
    EXPECT_EQ(Pixels(), SmallPlayer());
    EXPECT_EQ(player.Source(), QString());
    player.SetSource(SmallFilm(u"film.mp4"_s));
    player.SetSource(Mp3());
    EXPECT_EQ(Pixels(), SmallPlayer());
}

TEST_F(PlayerSize, AFilmHasItsShapeAndItsOwnSizeAsFarAsTheScreenHasRoomWhenSetSourceReturns) {
    ASSERT_EQ(window.screen()->availableGeometry().size(), QSize(800, 800));
    struct Case {
        const char* Size;
        const char* Filter;
        QSize Expected;
    };
    // 16 pixels across and 48 down are left to the window's frame.
    const int tallest = 752 - Bar();
    const Case cases[] = {
        {"160x120", "", {160, 120}},
        {"1600x1200", "", {784, 588}},
        {"160x120", ",setsar=2", {320, 120}},
        {"32x16", "", {160, 16}},
        {"400x1600", "", {tallest / 4, tallest}},
    };
    for (const auto& [size, filter, expected] : cases) {
        const QString name = QLatin1String(size) + QLatin1String(filter) + u".mp4"_s;
        const QString film = Film(name, QLatin1String(size), 2, QLatin1String(filter));
        player.SetSource(film);
        EXPECT_EQ(player.Source(), film);
        EXPECT_NEAR(player.Width(), expected.width() * 15, 15) << size;
        EXPECT_EQ(player.Height(), (expected.height() + Bar()) * 15) << size;
    }
}

TEST_F(PlayerSize, AFilmThatStandsUprightIsShownUpright) {
    const QString lying = Film(u"lying.mov"_s, u"240x160"_s, 2,
                               u",drawbox=color=blue:t=fill,drawbox=w=120:color=red:t=fill"_s);
    Preview(Make(u"upright.mov"_s,
                 {u"-i"_s, lying, u"-c"_s, u"copy"_s, u"-metadata:s:v:0"_s, u"rotate=90"_s}));
    EXPECT_EQ(Pixels(), QSize(160, 240 + Bar()));
    // The red left half of the lying film stands below.
    EXPECT_TRUE(Becomes([&] { return ColourAt(window, 2, 237).red() > 230; }));
    for (const int x : {2, 80, 157}) {
        EXPECT_GT(ColourAt(window, x, 2).blue(), 230);
        EXPECT_GT(ColourAt(window, x, 110).blue(), 230);
        EXPECT_GT(ColourAt(window, x, 130).red(), 230);
    }
    window.resize(300, 200);
    EXPECT_TRUE(Becomes([&] { return ColourAt(window, 150, 5).blue() > 230; }));
}

TEST_F(PlayerSize, ThePlayerFollowsItsWindowThePictureKeepsItsShapeAndATinyOneLeavesTheBarUsable) {
    Preview(SmallFilm(u"film.mp4"_s));
    EXPECT_EQ(player.Widget()->size(), QSize(160, 120 + Bar()));
    window.resize(400, 120 + Bar());
    EXPECT_EQ(player.Widget()->geometry(), QRect(0, 0, 400, 120 + Bar()));
    EXPECT_EQ(PixelWidth(), 400);
    EXPECT_EQ(PictureRect(), QRect(120, 0, 160, 120));
    window.resize(320, 300 + Bar());
    EXPECT_EQ(PictureRect(), QRect(0, 30, 320, 240));
    Preview(Film(u"tiny.mp4"_s, u"32x16"_s, 20));
    EXPECT_EQ(PictureRect().size(), QSize(32, 16));
    EXPECT_TRUE(PlayButton().isVisible());
    EXPECT_TRUE(Becomes([&] { return Position().width() >= 100; })) << Position().width();
    window.resize(320, 300);
    player.SetSource(Mp3()); // in a window that keeps its size
    EXPECT_EQ(Pixels(), SmallPlayer());
    EXPECT_TRUE(Becomes([&] { return player.Widget()->size() == window.size(); }));
}

TEST_F(PlayerSize, AFilmThatIsKnownLateTellsItsSizeUnlessItWasStopped) {
    player.Widget()->Patience = 0;
    player.SizeChanged = [&] { window.resize(PixelWidth(), PixelHeight()); };
    Preview(SmallFilm(u"film.mp4"_s));
    player.SetSource(QString());
    EXPECT_FALSE(Becomes([&] { return window.size() != SmallPlayer(); }, 500));
    EXPECT_FALSE(SaysItCannotPlay());
    Preview(SmallFilm(u"film.mp4"_s));
    EXPECT_EQ(window.size(), SmallPlayer());
    EXPECT_TRUE(Becomes([&] { return window.size() == QSize(160, 120 + Bar()); }));
    EXPECT_EQ(player.Widget()->size(), window.size());
    EXPECT_EQ(player.Width(), 160 * 15);
}

// ---- the device's file

using PlayerFile = PlayerTest;

TEST_F(PlayerFile, IsClosedAtOnceWhenAnEmptySourceReturns) {
    const QString path = PlayFilm();
    EXPECT_TRUE(IsOpen(path));
    QElapsedTimer time;
    time.start();
    player.SetSource(QString());
    EXPECT_LT(time.elapsed(), 500);
    EXPECT_FALSE(IsOpen(path));
    EXPECT_EQ(player.Source(), QString());
    EXPECT_FALSE(IsPlaying());
    EXPECT_EQ(Position().value(), 0);
    EXPECT_FALSE(PlayButton().isEnabled());
    EXPECT_FALSE(SaysItCannotPlay());
    EXPECT_FALSE(Becomes([&] { return IsPlaying() || Position().value() > 0; }, 300));
}

TEST_F(PlayerFile, IsReplacedByASecondSourceOrPlaysAgainFromTheBeginning) {
    for (const QString& second : {Mp3(), SmallFilm(u"film.mp4"_s)}) {
        const QString first = PlayFilm(); // the second time after a pause and a stop
        ASSERT_TRUE(Becomes([&] { return Position().value() > 1000; }));
        player.SetSource(second);
        EXPECT_EQ(IsOpen(first), first == second);
        EXPECT_EQ(TimesOpen(second), 1);
        EXPECT_EQ(player.Source(), second);
        EXPECT_TRUE(Becomes([&] { return Position().value() < 1000; }));
        ExpectPlayingOn();
        EXPECT_NEAR(Position().maximum(), 20'000, 200);
        Pause();
        player.SetSource(QString());
    }
}

TEST_F(PlayerFile, IsFoundWhereTheFileSystemSaysItIsAndMayHaveAnyName) {
    const QString path = MediaSamples::Folder() + u"/--vo=null #1 %41 {x}\n ü.mp3?a=b"_s;
    ASSERT_TRUE(QFile::copy(Mp3(), path));
    const QString onDevice = u"E:\\iPod_Control\\Music\\F00\\ABCD.mp3"_s;
    files.SetNativePath(onDevice, path);
    Preview(onDevice);
    EXPECT_EQ(player.Source(), onDevice);
    EXPECT_TRUE(IsOpen(path));
    ExpectPlayingOn();
}

TEST_F(PlayerFile, ManySourcesInARowLeaveNoneOpen) {
    const QString film = SmallFilm(u"film.mp4"_s);
    const QString tone = Mp3();
    player.Widget()->Patience = 0;
    for (int i = 0; i < 20; ++i) {
        Preview(film);
        Preview(tone);
        QTest::qWait(i % 4);
    }
    EXPECT_FALSE(IsOpen(film));
    EXPECT_TRUE(Becomes([&] { return Position().value() > 100; }));
    EXPECT_EQ(TimesOpen(tone), 1);
    player.SetSource(QString());
    EXPECT_FALSE(IsOpen(tone));
}

// ---- the picture

using PlayerPicture = PlayerTest;

int Colours(const QImage& image) {
    std::set<QRgb> colours;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            colours.insert(image.pixel(x, y));
        }
    }
    return int(colours.size());
}

TEST_F(PlayerPicture, IsReallyDrawnAndMovesAndIsGoneAfterAStop) {
    PlayFilm();
    const auto picture = [this] { return window.grab(QRect(0, 0, 160, 120)).toImage(); };
    EXPECT_TRUE(Becomes([&] { return Colours(picture()) > 100; }));
    const QImage before = picture();
    EXPECT_TRUE(Becomes([&] { return picture() != before; }));
    player.SetSource(QString());
    EXPECT_EQ(Colours(picture()), 1);
}

TEST_F(PlayerPicture, HasTheFilmsColoursAndStandsBetweenBlackBarsInAWindowOfAnotherShape) {
    Preview(Film(u"red.mp4"_s, FilmSize, 20, u",drawbox=color=red:t=fill"_s));
    window.resize(401, 120 + Bar());
    EXPECT_TRUE(Becomes([&] { return IsRed(ColourAt(window, 200, 60)); }));
    for (const int x : {0, 60, 119, 281, 340, 400}) {
        EXPECT_EQ(ColourAt(window, x, 60), QColor(Qt::black)) << x;
    }
    for (const int x : {122, 160, 240, 278}) {
        EXPECT_TRUE(IsRed(ColourAt(window, x, 60))) << x;
    }
}

TEST_F(PlayerPicture, IsStraightWhateverItsWidth) {
    const QString halves = u",drawbox=color=blue:t=fill,drawbox=w=48:color=red:t=fill"_s;
    Preview(Film(u"halves.mp4"_s, u"98x70"_s, 20, halves));
    window.resize(400, 200);
    EXPECT_TRUE(Becomes([&] { return IsRed(ColourAt(window, PictureRect().x() + 3, 3)); }));
    for (const int y : {3, 60, 120, PictureRect().bottom() - 3}) {
        EXPECT_TRUE(IsRed(ColourAt(window, PictureRect().x() + 3, y))) << y;
        EXPECT_GT(ColourAt(window, PictureRect().right() - 3, y).blue(), 230) << y;
    }
}

TEST_F(PlayerPicture, IsTheCoverOfMusicThatHasOne) {
    for (const QString& tone : {Mp3(), Tone(u"tone.m4a"_s, u"aac"_s)}) {
        const QString name = u"cover."_s + tone.right(3);
        Preview(MediaSamples::ToneWithCover(tone, name, u"red"_s));
        ASSERT_EQ(window.size(), QSize(360, 200 + Bar())) << name.toStdString();
        EXPECT_TRUE(Becomes([&] { return IsRed(ColourAt(window, 180, 100)); }));
        EXPECT_EQ(PictureRect(), QRect(92, 12, 176, 176));
        EXPECT_EQ(ColourAt(window, 40, 100), window.palette().color(QPalette::Window));
        ExpectPlayingOn();
    }
}

TEST_F(PlayerPicture, LeavesTimeForTheRestOfTheWindow) {
    Preview(Film(u"hd.mp4"_s, u"1280x720"_s, 10));
    ExpectPlayingOn();
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] { ++ticks; });
    timer.start(10);
    QTest::qWait(1000);
    EXPECT_GT(ticks, 20);
}

// ---- the end

TEST(PlayerEnd, ThePlayerGoesBeforeOrAfterItsWindowWhileItPlaysOrStillOpensTheFile) {
    const QString path = SmallFilm(u"film.mp4"_s);
    RecordedFiles files;
    for (const bool playerFirst : {true, false}) {
        for (const int milliseconds : {0, 0, 0, 0, 0, 1, 50, 300}) {
            auto window = std::make_unique<QWidget>();
            window->show();
            auto player = std::make_unique<MediaPlayer>(window.get(), u"QTControl"_s, files);
            player->Widget()->Patience = milliseconds == 0 ? 0 : 20'000;
            player->SetSource(path);
            QTest::qWait(milliseconds);
            if (playerFirst) {
                player.reset();
                EXPECT_EQ(window->findChild<QWidget*>(u"QTControl"_s), nullptr);
            } else {
                window.reset();
                EXPECT_EQ(player->Widget(), nullptr);
            }
            QTest::qWait(20);
        }
    }
}

} // namespace
