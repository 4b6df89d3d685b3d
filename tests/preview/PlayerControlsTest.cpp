#include "tests/preview/PlayerTest.h"

#include "platform/player/PlayerBar.h"

using namespace Qt::StringLiterals;
using MediaSamples::Film;
using MediaSamples::Tone;

namespace {

/// The window with a film of 320 by 240 pixels and 20 seconds that plays.
class PlayerControls : public PlayerTest {
protected:
    PlayerControls() {
        Preview(Film(u"medium.mp4"_s, u"320x240"_s));
        window.activateWindow();
        // Before the length of the film is known, there is nothing to drag.
        EXPECT_TRUE(Becomes([&] { return Position().isEnabled(); }));
    }

    void ClickPositionAt(double share) {
        QTest::mouseClick(&Position(), Qt::LeftButton, Qt::NoModifier, PointAt(share));
    }
    QPoint PointAt(double share) const {
        return {int(Position().width() * share), Position().height() / 2};
    }
    bool IsAbout(double share) const {
        return std::abs(Position().value() - 20'000 * share) < 2'000;
    }
    void ExpectStaysAbout(double share) {
        EXPECT_FALSE(Becomes([&] { return !IsAbout(share); }, 700)) << Position().value();
    }
};

TEST_F(PlayerControls, HaveSpokenNamesAndTheTimeBesideThePosition) {
    EXPECT_EQ(PlayButton().accessibleName(), u"Pause"_s);
    EXPECT_EQ(Position().accessibleName(), u"Position"_s);
    EXPECT_EQ(Volume().accessibleName(), u"Volume"_s);
    EXPECT_TRUE(Becomes([&] { return TimeText() == u"0:01 / 0:20"_s; }));
}

TEST_F(PlayerControls, TheButtonPausesAndPlays) {
    ExpectPlayingOn();
    QTest::mouseClick(&PlayButton(), Qt::LeftButton);
    ASSERT_TRUE(Becomes([&] { return !IsPlaying(); }));
    EXPECT_EQ(PlayButton().accessibleName(), u"Play"_s);
    QTest::qWait(100);
    const int position = Position().value();
    QTest::qWait(300);
    EXPECT_EQ(Position().value(), position);
    QTest::mouseClick(&PlayButton(), Qt::LeftButton);
    ASSERT_TRUE(Becomes([&] { return IsPlaying(); }));
    ExpectPlayingOn();
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

TEST_F(PlayerControls, AClickOnThePositionJumpsThereAlsoWhilePaused) {
    for (const double share : {0.75, 0.25}) {
        ClickPositionAt(share);
        EXPECT_TRUE(IsAbout(share));
        ExpectStaysAbout(share);
    }
    Pause();
    ClickPositionAt(0.5);
    ExpectStaysAbout(0.5);
    EXPECT_FALSE(IsPlaying());
}

TEST_F(PlayerControls, ThePositionCanBeDragged) {
    QTest::mousePress(&Position(), Qt::LeftButton, Qt::NoModifier, PointAt(0.25));
    for (const double share : {0.3, 0.4, 0.5, 0.6}) {
        QTest::mouseMove(&Position(), PointAt(share));
        QTest::qWait(50);
        EXPECT_TRUE(IsAbout(share)) << share << " " << Position().value();
    }
    QTest::mouseRelease(&Position(), Qt::LeftButton, Qt::NoModifier, PointAt(0.6));
    ExpectStaysAbout(0.6);
    ExpectPlayingOn();
}

TEST_F(PlayerControls, ArrowKeysMoveFiveSeconds) {
    Pause();
    QTest::qWait(100);
    const int position = Position().value();
    QTest::keyClick(&Position(), Qt::Key_Right);
    EXPECT_FALSE(
        Becomes([&] { return std::abs(Position().value() - position - 5000) > 100; }, 500));
}

TEST_F(PlayerControls, AtTheEndTheLastPictureStaysAndPlayBeginsAgain) {
    ClickPositionAt(0.97);
    ASSERT_TRUE(Becomes([&] { return !IsPlaying(); }));
    EXPECT_EQ(Position().value(), Position().maximum());
    EXPECT_EQ(TimeText(), u"0:20 / 0:20"_s);
    EXPECT_GT(window.grab().toImage().pixelColor(40, 100).lightness(), 0);
    EXPECT_TRUE(IsOpen(player.Source()));
    PlayButton().click();
    EXPECT_TRUE(Becomes([&] { return IsPlaying() && Position().value() < 5'000; }));
    ExpectPlayingOn();
    EXPECT_LT(Position().value(), 5'000);
}

TEST_F(PlayerControls, TheVolumeIsKeptFromFileToFile) {
    Volume().setValue(30);
    player.SetSource(Tone(u"tone.mp3"_s, u"libmp3lame"_s));
    EXPECT_EQ(Volume().value(), 30);
}

TEST_F(PlayerControls, ANarrowBarLeavesOutVolumeAndTime) {
    struct Case {
        int Width;
        bool Volume, Time;
    };
    for (const auto& [width, volume, time] :
         {Case{300, true, true}, Case{299, false, true}, Case{200, false, true},
          Case{199, false, false}, Case{160, false, false}, Case{400, true, true}}) {
        window.resize(width, 200);
        EXPECT_EQ(Volume().isVisible(), volume) << width;
        EXPECT_EQ(Child<QLabel>("TimeLabel").isVisible(), time) << width;
        EXPECT_TRUE(Position().isVisible());
    }
}

TEST_F(PlayerControls, IconsHaveTheColourOfTextsInLightAndDarkWindows) {
    for (const QColor& text : {QColor(Qt::black), QColor(Qt::white)}) {
        QPalette palette;
        palette.setColor(QPalette::WindowText, text);
        window.setPalette(palette);
        const QImage icon = PlayButton().icon().pixmap(16, 16).toImage();
        int seen = 0;
        for (int i = 0; i < icon.width() * icon.height(); ++i) {
            const QColor pixel = icon.pixelColor(i % icon.width(), i / icon.width());
            seen += pixel.alpha() == 255 ? 1 : 0;
            EXPECT_TRUE(pixel.alpha() < 255 || pixel == text);
        }
        EXPECT_GT(seen, 20);
    }
}

/// What a bar shows of states that no short film comes into.
class PlayerBarTexts : public testing::Test {
protected:
    QWidget window;
    PlayerBar bar{&window};
};

TEST_F(PlayerBarTexts, AreMinutesAndSecondsThenHoursAndTheDurationOnlyWhereItIsKnown) {
    struct Case {
        double Position, Duration;
        QString Text;
    };
    const Case cases[] = {{12.9, 225, u"0:12 / 3:45"_s},
                          {0, 59.99, u"0:00 / 0:59"_s},
                          {600, 3599, u"10:00 / 59:59"_s},
                          {3600, 36'061, u"1:00:00 / 10:01:01"_s},
                          {75, 0, u"1:15"_s},
                          {1e300, 1e300, u"277777:46:40 / 277777:46:40"_s}}; // is bounded
    for (const auto& [position, duration, text] : cases) {
        Playback playback;
        playback.At = Playback::Stage::Open;
        playback.Position = position;
        playback.Duration = duration;
        bar.Show(playback);
        EXPECT_EQ(bar.findChild<QLabel*>(u"TimeLabel"_s)->text(), text);
        EXPECT_EQ(bar.findChild<QSlider*>(u"PositionSlider"_s)->isEnabled(), duration > 0);
    }
}

/// Its edge stands for seconds of a song, which nobody wants to skip by holding the handle there.
TEST_F(PlayerBarTexts, ASliderStaysWhereItIsWhenItsHandleIsTakenHoldOf) {
    bar.VolumeChosen = [](int) {};
    auto& volume = *bar.findChild<QSlider*>(u"VolumeSlider"_s);
    volume.resize(70, 20);
    volume.setValue(50);
    const QPoint leftOfMiddle(31, 10); // the handle is 13 pixels wide
    QTest::mousePress(&volume, Qt::LeftButton, Qt::NoModifier, leftOfMiddle);
    EXPECT_EQ(volume.value(), 50);
    EXPECT_TRUE(volume.isSliderDown());
}

} // namespace
