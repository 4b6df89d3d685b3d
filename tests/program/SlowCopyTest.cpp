// A copy from a slow device on the real window.

#include "platform/ThreadWorker.h"
#include "tests/program/RealWindow.h"
#include "tests/support/ServedDisk.h"

using namespace Qt::StringLiterals;

TEST(SlowCopy, TheBarIsPaintedAgainAndAgainInsideAFile) {
    ThreadWorker worker;
    RealWindow window(&worker);
    window.files.AddDrive(u"E:"_s);
    SlowDisk device(window.files.Host(u"E:"_s));
    if (!device.Impossible().isEmpty()) {
        GTEST_SKIP() << qPrintable(device.Impossible());
    }
    ASSERT_TRUE(device.IsMounted());
    SampleTrack track = SmallLibrary().front();
    track.FileSize = 1500000;
    window.Start({track});
    window.TickRow("lstArtists", 0);
    QtInput::Settle();

    device.Be("speed=1000000");
    const PaintSpy bar(&window.Widget("prgCopy"));
    EXPECT_EQ(window.Copy(), QStringList(u"Copy completed!"_s));
    EXPECT_GE(bar.Paints, 5); // two of them before the first bytes and after the last
}
