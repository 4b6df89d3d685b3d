#include "tests/preview/PlayerTest.h"

#include "platform/mpv/PlayerBar.h"

using MediaSamples::Film;
using MediaSamples::Tone;

namespace {

/// The window with a film of 320 by 240 pixels and 20 seconds that plays.
class PlayerControls : public PlayerTest {
protected:
    PlayerControls() {
        Preview(Film(QStringLiteral("medium.mp4"), QStringLiteral("320x240")));
        window.activateWindow();
        // Before the length of the film is known, there is nothing to drag.
        EXPECT_TRUE(Becomes([&] { return Position().isEnabled(); }));
    }

    QPoint PointAt(double share) const {
        return {int(Position().width() * share), Position().height() / 2};
    }
    bool IsAbout(double share) const {
        return std::abs(Position().value() - 20'000 * share) < 2'000;
    }
};

TEST_F(PlayerControls, HaveSpokenNames) {
    EXPECT_EQ(PlayButton().accessibleName(), QStringLiteral("Pause"));
    EXPECT_EQ(Position().accessibleName(), QStringLiteral("Position"));
    EXPECT_EQ(Volume().accessibleName(), QStringLiteral("Volume"));
}

TEST_F(PlayerControls, TheButtonPausesAndPlays) {
    ASSERT_TRUE(Becomes([&] { return Position().value() > 100; }));
    QTest::mouseClick(&PlayButton(), Qt::LeftButton);
    ASSERT_TRUE(Becomes([&] { return !IsPlaying(); }));
    EXPECT_EQ(PlayButton().accessibleName(), QStringLiteral("Play"));
    QTest::qWait(100);
    const int position = Position().value();
    QTest::qWait(300);
    EXPECT_EQ(Position().value(), position);

    QTest::mouseClick(&PlayButton(), Qt::LeftButton);
    EXPECT_TRUE(Becomes([&] { return IsPlaying() && Position().value() > position + 100; }));
}

TEST_F(PlayerControls, SpacePausesAndPlaysWhereverTheFocusIs) {
    ASSERT_TRUE(Becomes([&] { return window.isActiveWindow(); }));
    QWidget* const widgets[] = {&PlayButton(), &Position(), &Volume(), &window};
    bool playing = true;
    for (QWidget* widget : widgets) {
        widget->setFocus();
        QTest::keyClick(widget, Qt::Key_Space);
        playing = !playing;
        EXPECT_TRUE(Becomes([&] { return IsPlaying() == playing; }))
            << qPrintable(widget->objectName());
    }
}

TEST_F(PlayerControls, AClickOnThePositionJumpsThere) {
    QTest::mouseClick(&Position(), Qt::LeftButton, Qt::NoModifier, PointAt(0.75));
    EXPECT_TRUE(IsAbout(0.75));
    EXPECT_FALSE(Becomes([&] { return !IsAbout(0.75); }, 1000));
    QTest::mouseClick(&Position(), Qt::LeftButton, Qt::NoModifier, PointAt(0.25));
    EXPECT_TRUE(IsAbout(0.25));
    EXPECT_FALSE(Becomes([&] { return !IsAbout(0.25); }, 1000));
}

TEST_F(PlayerControls, ThePositionCanBeDragged) {
    QTest::mousePress(&Position(), Qt::LeftButton, Qt::NoModifier, PointAt(0.25));
    for (const double share : {0.3, 0.4, 0.5, 0.6}) {
        QTest::mouseMove(&Position(), PointAt(share));
        QTest::qWait(50);
        EXPECT_TRUE(IsAbout(share)) << share << " " << Position().value();
    }
    QTest::mouseRelease(&Position(), Qt::LeftButton, Qt::NoModifier, PointAt(0.6));
    EXPECT_FALSE(Becomes([&] { return !IsAbout(0.6); }, 1000));
    const int position = Position().value();
    EXPECT_TRUE(Becomes([&] { return Position().value() > position; }));
}

TEST_F(PlayerControls, ThePositionCanBeChangedWhilePaused) {
    PlayButton().click();
    ASSERT_TRUE(Becomes([&] { return !IsPlaying(); }));
    QTest::mouseClick(&Position(), Qt::LeftButton, Qt::NoModifier, PointAt(0.5));
    EXPECT_FALSE(Becomes([&] { return !IsAbout(0.5); }, 500));
    EXPECT_FALSE(IsPlaying());
}

TEST_F(PlayerControls, ArrowKeysMoveFiveSeconds) {
    PlayButton().click();
    ASSERT_TRUE(Becomes([&] { return !IsPlaying(); }));
    QTest::qWait(100);
    const int position = Position().value();
    QTest::keyClick(&Position(), Qt::Key_Right);
    EXPECT_FALSE(
        Becomes([&] { return std::abs(Position().value() - position - 5000) > 100; }, 500));
}

TEST_F(PlayerControls, TheTimeStandsBesideThePosition) {
    EXPECT_TRUE(Becomes([&] { return TimeText() == QLatin1String("0:01 / 0:20"); }));
}

TEST_F(PlayerControls, AtTheEndTheLastPictureStaysAndPlayBeginsAgain) {
    QTest::mouseClick(&Position(), Qt::LeftButton, Qt::NoModifier, PointAt(0.97));
    ASSERT_TRUE(Becomes([&] { return !IsPlaying(); }));
    EXPECT_EQ(Position().value(), Position().maximum());
    EXPECT_EQ(TimeText(), QStringLiteral("0:20 / 0:20"));
    const QColor middle = window.grab().toImage().pixelColor(40, 100);
    EXPECT_GT(middle.lightness(), 0);
    EXPECT_TRUE(IsOpen(player.Source()));

    PlayButton().click();
    EXPECT_TRUE(Becomes([&] { return IsPlaying() && Position().value() < 5'000; }));
    EXPECT_TRUE(Becomes([&] { return Position().value() > 300; }));
    EXPECT_LT(Position().value(), 5'000);
}

TEST_F(PlayerControls, TheVolumeIsKeptFromFileToFile) {
    Volume().setValue(30);
    player.SetSource(Tone(QStringLiteral("tone.mp3"), QStringLiteral("libmp3lame")));
    EXPECT_EQ(Volume().value(), 30);
}

TEST_F(PlayerControls, ANarrowBarLeavesOutVolumeAndTime) {
    window.resize(250, 200);
    EXPECT_FALSE(Volume().isVisible());
    EXPECT_TRUE(Child<QLabel>("TimeLabel").isVisible());
    window.resize(160, 200);
    EXPECT_FALSE(Child<QLabel>("TimeLabel").isVisible());
    EXPECT_TRUE(Position().isVisible());
    window.resize(400, 200);
    EXPECT_TRUE(Volume().isVisible());
    EXPECT_TRUE(Child<QLabel>("TimeLabel").isVisible());
}

TEST_F(PlayerControls, IconsAreSeenInLightAndDarkWindows) {
    for (const QColor& text : {QColor(Qt::black), QColor(Qt::white)}) {
        QPalette palette;
        palette.setColor(QPalette::WindowText, text);
        window.setPalette(palette);
        const QImage icon = PlayButton().icon().pixmap(16, 16).toImage();
        int seen = 0;
        for (int y = 0; y < icon.height(); ++y) {
            for (int x = 0; x < icon.width(); ++x) {
                const QColor pixel = icon.pixelColor(x, y);
                if (pixel.alpha() == 255) {
                    ++seen;
                    EXPECT_EQ(pixel, text);
                }
            }
        }
        EXPECT_GT(seen, 20);
    }
}

/// What a bar shows of states that no short film comes into.
class PlayerBarTexts : public testing::Test {
protected:
    QWidget window;
    PlayerBar bar{&window};

    QString TimeTextOf(double position, double duration) {
        Playback playback;
        playback.At = Playback::Stage::Open;
        playback.Position = position;
        playback.Duration = duration;
        bar.Show(playback);
        return bar.findChild<QLabel*>(QStringLiteral("TimeLabel"))->text();
    }
};

TEST_F(PlayerBarTexts, MinutesAndSeconds) {
    EXPECT_EQ(TimeTextOf(12.9, 225), QStringLiteral("0:12 / 3:45"));
    EXPECT_EQ(TimeTextOf(0, 59.99), QStringLiteral("0:00 / 0:59"));
    EXPECT_EQ(TimeTextOf(600, 3599), QStringLiteral("10:00 / 59:59"));
}

TEST_F(PlayerBarTexts, Hours) {
    EXPECT_EQ(TimeTextOf(3600, 36'061), QStringLiteral("1:00:00 / 10:01:01"));
}

TEST_F(PlayerBarTexts, WithoutADurationOnlyTheTime) {
    EXPECT_EQ(TimeTextOf(75, 0), QStringLiteral("1:15"));
    EXPECT_FALSE(bar.findChild<QSlider*>(QStringLiteral("PositionSlider"))->isEnabled());
}

/// Its edge stands for seconds of a song, which nobody wants to skip by holding the handle there.
TEST_F(PlayerBarTexts, ASliderStaysWhereItIsWhenItsHandleIsTakenHoldOf) {
    bar.VolumeChosen = [](int) {};
    auto& volume = *bar.findChild<QSlider*>(QStringLiteral("VolumeSlider"));
    volume.resize(70, 20);
    volume.setValue(50);
    const QPoint leftOfMiddle(31, 10); // the handle is 13 pixels wide
    QTest::mousePress(&volume, Qt::LeftButton, Qt::NoModifier, leftOfMiddle);
    EXPECT_EQ(volume.value(), 50);
    EXPECT_TRUE(volume.isSliderDown());
}

TEST_F(PlayerBarTexts, AbsurdDurationsAreBounded) {
    EXPECT_EQ(TimeTextOf(1e300, 1e300), QStringLiteral("277777:46:40 / 277777:46:40"));
}

} // namespace
