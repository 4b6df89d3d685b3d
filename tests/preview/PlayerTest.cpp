#include "tests/preview/PlayerTest.h"

using namespace Qt::StringLiterals;

PlayerTest::PlayerTest() : player(&window, u"QTControl"_s, files), FilmSize(u"160x120"_s) {
    window.resize(640, 480);
    player.Widget()->Patience = 20'000; // a busy machine fails no test
}

bool PlayerTest::IsPlaying() const {
    return PlayButton().accessibleName() == u"Pause"_s;
}

bool PlayerTest::SaysItCannotPlay() const {
    const QLabel& message = Child<QLabel>("MessageLabel");
    return message.isVisibleTo(player.Widget()) &&
           message.text() == u"This file cannot be played."_s;
}

QString PlayerTest::PlayFilm() {
    const QString film = MediaSamples::Film(u"film.mp4"_s, FilmSize);
    Preview(film);
    ExpectPlayingOn();
    return film;
}
