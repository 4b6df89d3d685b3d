#include "platform/qt/QtListControl.h"

#include <QPaintEvent>
#include <QSignalSpy>
#include <QStyle>
#include <QTest>

#include <gtest/gtest.h>

namespace {

/// Remembers what is painted.
class PaintSpy : public QObject {
public:
    int Paints = 0;
    QRegion Painted;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            ++Paints;
            Painted += static_cast<QPaintEvent*>(event)->region();
        }
        return false;
    }
};

/// A list on the screen, all painted, of 1,000 rows.
class ListPainting : public testing::Test {
protected:
    QWidget window;
    QtListControl list{&window, QStringLiteral("lstSongs")};
    PaintSpy spy;

    ListPainting() {
        window.resize(400, 400);
        list.Move(0, 0, 4500, 4500);
        list.Fill(Rows(1000));
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
        Settle();
        list.Widget()->viewport()->installEventFilter(&spy);
    }

    static std::vector<ListRow> Rows(int count) {
        std::vector<ListRow> rows;
        for (int row = 0; row < count; ++row) {
            rows.push_back({QStringLiteral("Song %1").arg(row), false});
        }
        return rows;
    }

    static void Settle() {
        for (int i = 0; i < 5; ++i) {
            QCoreApplication::processEvents();
        }
    }

    QRect RowArea(int row) {
        return list.Widget()->visualRect(list.Widget()->model()->index(row, 0));
    }
};

TEST_F(ListPainting, AHiddenListPaintsNothingWhateverChanges) {
    list.SetVisible(false);
    Settle();
    list.Fill(Rows(2000));
    Settle();
    for (int row = 0; row < 2000; ++row) {
        list.SetSelected(row, true);
    }
    list.SetListIndex(1500);
    Settle();
    EXPECT_EQ(spy.Paints, 0);
}

TEST_F(ListPainting, AListShownAgainPaintsOnce) {
    list.SetVisible(false);
    for (int row = 0; row < 1000; ++row) {
        list.SetSelected(row, true);
    }
    list.SetVisible(true);
    Settle();
    EXPECT_EQ(spy.Paints, 1);
    EXPECT_TRUE(spy.Painted.contains(RowArea(3)));
}

TEST_F(ListPainting, ATickWhileHiddenTellsTheViewNothing) {
    QSignalSpy changes(list.Widget()->model(), &QAbstractItemModel::dataChanged);
    list.SetVisible(false);
    for (int row = 0; row < 1000; ++row) {
        list.SetSelected(row, true);
    }
    EXPECT_EQ(changes.count(), 0);
    list.SetVisible(true);
    list.SetSelected(3, false);
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(ListPainting, ATickPaintsItsRowAndNoOther) {
    list.SetSelected(3, true);
    Settle();
    EXPECT_EQ(spy.Paints, 1);
    EXPECT_TRUE(RowArea(3).contains(spy.Painted.boundingRect()));
}

TEST_F(ListPainting, ATickOutOfViewPaintsNothing) {
    list.SetSelected(900, true);
    Settle();
    EXPECT_EQ(spy.Paints, 0);
}

TEST_F(ListPainting, AHiddenListKeepsTheFocusForWhenItIsShown) {
    QApplication::setActiveWindow(&window);
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    list.SetFocus();
    list.SetVisible(false);
    EXPECT_EQ(ControlWidget::ControlOf(QApplication::focusWidget()), 0u);
    list.SetVisible(true);
    EXPECT_EQ(ControlWidget::ControlOf(QApplication::focusWidget()), list.Handle());
}

TEST_F(ListPainting, AnAbsurdNameIsPaintedInNoTime) {
    QElapsedTimer timer;
    timer.start();
    list.Fill({{QString(20000000, QLatin1Char('x')), false}, {QStringLiteral("a\nb"), true}});
    list.SetListIndex(0);
    list.Refresh();
    EXPECT_GE(spy.Paints, 1);
    EXPECT_LT(timer.elapsed(), 2000);
}

TEST_F(ListPainting, RowsAreOfOneHeightWhicheverScriptTheLastOneIsIn) {
    list.Fill({{QStringLiteral("Latin"), false}});
    const int height = RowArea(0).height();
    EXPECT_GE(height, 20);
    for (const char* last : {"\xE9\x9D\x92\xE3\x81\x84", "\xD9\x82\xD9\x85\xD8\xB1",
                             "\xE0\xB8\x97\xE0\xB8\xB5\xE0\xB9\x88", ""}) {
        list.Fill({{QStringLiteral("Latin"), false}, {QString::fromUtf8(last), false}});
        EXPECT_EQ(RowArea(0).height(), height) << last;
        EXPECT_EQ(RowArea(1).height(), height) << last;
    }
}

TEST_F(ListPainting, RowsGrowWithTheLettersAndKeepTheirBoxesApart) {
    const int usual = RowArea(0).height();
    QFont font = list.Widget()->font();
    for (const double factor : {0.5, 2.0}) {
        font.setPointSizeF(QApplication::font().pointSizeF() * factor);
        list.Widget()->setFont(font);
        Settle();
        EXPECT_GE(RowArea(0).height(),
                  list.Widget()->style()->pixelMetric(QStyle::PM_IndicatorHeight) + 5);
        EXPECT_GE(RowArea(0).height(), 1.1 * list.Widget()->fontMetrics().height());
    }
    EXPECT_GT(RowArea(0).height(), 1.5 * usual);
}

TEST_F(ListPainting, RowsAreAllOfOneHeightWhateverTheirNames) {
    list.Fill({{QStringLiteral("a"), false},
               {QStringLiteral("b\nc\nd"), false},
               {QString::fromUtf8("\xE3\x81\x82\xE0\xB8\x97"), false},
               {QString(), false}});
    EXPECT_GT(RowArea(0).height(), 8);
    for (int row = 1; row < 4; ++row) {
        EXPECT_EQ(RowArea(row).height(), RowArea(0).height());
        EXPECT_EQ(RowArea(row).top(), row * RowArea(0).height());
    }
}

} // namespace
