// A film on a device that stops to answer.

#include "tests/preview/PlayerTest.h"
#include "tests/support/ServedDisk.h"

#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

TEST_F(PlayerTest, OnADeviceThatHangsAFilmIsClosedAtOnceAndTheNextOnePlays) {
    const QTemporaryDir folder;
    SlowDisk device(folder.path());
    if (!device.IsMounted()) {
        GTEST_SKIP() << device.Impossible().toStdString();
    }
    const QString film = MediaSamples::Film(u"film.mp4"_s, u"160x120"_s);
    ASSERT_TRUE(QFile::copy(film, device.Content() + u"/film.mp4"_s));
    player.Widget()->Patience = 200;
    device.Be("speed=20000");
    Preview(folder.filePath(u"film.mp4"_s));
    device.Be("stall=read");

    QElapsedTimer time;
    time.start();
    player.SetSource(QString());
    EXPECT_LT(time.elapsed(), 500);

    player.Widget()->Patience = 20'000;
    Preview(film);
    EXPECT_TRUE(Becomes([&] { return Position().value() > 100; }));
    device.Be("");
}
