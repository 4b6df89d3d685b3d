#pragma once

#include "platform/player/MediaPlayer.h"
#include "platform/player/VideoArea.h"
#include "tests/fakes/RecordedFiles.h"
#include "tests/fakes/Text.h"
#include "tests/preview/MediaSamples.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QSlider>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

#include <memory>

/// A player in a window, on real files.
class PlayerTest : public testing::Test {
protected:
    RecordedFiles files;
    QWidget window;
    MediaPlayer player;

    static constexpr double twipsPerPixel = 15; // the tests' screen has 96 dots per inch
    const QString FilmSize;

    PlayerTest();

    /// Handles events until it is so, at most for the time given.
    template <class Condition>
    static bool Becomes(Condition condition, int milliseconds = 10'000) {
        QElapsedTimer waited;
        waited.start();
        while (!condition() && waited.elapsed() < milliseconds) {
            QTest::qWait(5);
        }
        return condition();
    }

    template <class Part>
    Part& Child(const char* name) const {
        return *player.Widget()->findChild<Part*>(QLatin1String(name));
    }
    QSlider& Position() const { return Child<QSlider>("PositionSlider"); }
    QSlider& Volume() const { return Child<QSlider>("VolumeSlider"); }
    QToolButton& PlayButton() const { return Child<QToolButton>("PlayButton"); }
    QString TimeText() const { return Child<QLabel>("TimeLabel").text(); }
    QRect PictureRect() const { return Child<VideoArea>("VideoArea").PictureRect(); }

    bool IsPlaying() const;
    bool SaysItCannotPlay() const;
    /// The height of the bar below the picture, in pixels.
    int Bar() const { return Child<QWidget>("PlayerBar").height(); }
    int PixelWidth() const { return qRound(player.Width() / twipsPerPixel); }
    int PixelHeight() const { return qRound(player.Height() / twipsPerPixel); }

    /// What the preview does: the window takes the player's size, and is shown.
    void Preview(const QString& path) {
        player.SetSource(path);
        window.resize(PixelWidth(), PixelHeight());
        window.show();
    }

    /// Shows a film of 160 by 120 pixels and 20 seconds, and waits until it plays.
    QString PlayFilm();
    void ExpectPlayingOn() {
        const int before = Position().value();
        EXPECT_TRUE(Becomes([&] { return Position().value() > before + 100; })) << before;
        EXPECT_TRUE(IsPlaying());
    }
    void Pause() {
        PlayButton().click();
        ASSERT_TRUE(Becomes([&] { return !IsPlaying(); }));
    }

    static int TimesOpen(const QString& path) { return MediaSamples::TimesOpen(path); }
    static bool IsOpen(const QString& path) { return TimesOpen(path) > 0; }
};
