#include "platform/qt/QtProgressControl.h"

#include <QElapsedTimer>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class PaintCounter : public QObject {
public:
    int Paints = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        Paints += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

/// A bar 300 pixels wide on the screen, all painted.
class Progress : public testing::Test {
protected:
    QWidget window;
    QtProgressControl progress{&window, QStringLiteral("prgCopy")};
    PaintCounter counter;

    Progress() {
        window.resize(400, 100);
        progress.Move(0, 0, 4500, 300);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
        Settle();
        progress.Widget()->installEventFilter(&counter);
    }

    static void Settle() {
        for (int i = 0; i < 5; ++i) {
            QCoreApplication::processEvents();
        }
    }
};

TEST_F(Progress, PaintsOnlyWhenAnotherPixelIsFilled) {
    progress.SetMax(32767);
    Settle();
    counter.Paints = 0;
    for (int value = 1; value <= 32767; ++value) {
        progress.SetValue(float(value));
    }
    Settle();
    EXPECT_GE(counter.Paints, 1);
    EXPECT_LE(counter.Paints, 301);
}

TEST_F(Progress, AValueThatFillsNoFurtherPixelPaintsNothing) {
    progress.SetMax(1000000000);
    progress.SetValue(500000000);
    Settle();
    counter.Paints = 0;
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 32767; ++i) {
        progress.SetValue(500000000.0F + float(i));
    }
    EXPECT_LT(timer.elapsed(), 200);
    Settle();
    EXPECT_EQ(counter.Paints, 0);
}

TEST_F(Progress, LessThanNothingIsAnEmptyBar) {
    progress.SetMax(10);
    progress.SetValue(-5);
    EXPECT_EQ(progress.Widget()->value(), 0);
}

TEST_F(Progress, AWiderBarShowsTheSameShare) {
    progress.SetMax(4);
    progress.SetValue(1);
    EXPECT_EQ(progress.Widget()->value(), 75);
    progress.SetWidth(6000);
    EXPECT_EQ(progress.Widget()->maximum(), 400);
    EXPECT_EQ(progress.Widget()->value(), 100);
}

TEST_F(Progress, ABarWithoutWidthHurtsNobody) {
    progress.SetWidth(0);
    progress.SetMax(4);
    progress.SetValue(2);
    EXPECT_EQ(progress.Value(), 2);
}

} // namespace
