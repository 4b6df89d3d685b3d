// What the controls look like: sharp, whole and telling, in the colours of the desktop.

#include "platform/qt/BoxPalette.h"
#include "platform/qt/QtComboControl.h"
#include "platform/qt/QtContainers.h"
#include "platform/qt/QtListControl.h"
#include "platform/qt/QtPictureControl.h"
#include "platform/qt/QtPopupMenu.h"
#include "platform/qt/QtProgressControl.h"
#include "platform/qt/QtTabsControl.h"
#include "tests/window/QtInput.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHelpEvent>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

#include <cmath>

namespace {

class QtLooks : public testing::Test {
protected:
    QWidget window;

    void Show() {
        window.resize(600, 400);
        window.show();
        QApplication::setActiveWindow(&window);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    static QImage Picture(QWidget& widget) { return widget.grab().toImage(); }

    /// How the picture looks on a ground, at a scale of the screen.
    static QImage Player(QtPictureControl& picture, QColor ground, qreal ratio) {
        QImage image(QSize(32, 40) * ratio, QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        image.fill(ground);
        picture.Widget()->render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
        return image;
    }

    /// How many pixels from `start` in the direction `step` something stands out from the ground.
    static int DistanceToSign(const QImage& image, QColor ground, QPoint start, QPoint step) {
        int distance = 0;
        while (image.valid(start) && Contrast(image.pixelColor(start), ground) < 3) {
            start += step;
            ++distance;
        }
        return distance;
    }

    static void HoverOver(QWidget& widget, QPoint position) {
        QHelpEvent event(QEvent::ToolTip, position, widget.mapToGlobal(position));
        QCoreApplication::sendEvent(&widget, &event);
    }
};

TEST_F(QtLooks, ThePlayersEdgesStandOutInLightAndDarkAtEveryScale) {
    QtPictureControl picture(&window, QStringLiteral("Picture1"));
    picture.Move(0, 0, 480, 600);
    picture.ShowDevice();
    for (const QColor& ground : {QColor(239, 239, 239), QColor(45, 47, 51)}) {
        for (const qreal ratio : {1.0, 1.25, 1.5, 2.0}) {
            const QImage player = Player(picture, ground, ratio);
            const QPoint top(player.width() / 2, 0), left(0, player.height() / 2);
            const QPoint bottom(top.x(), player.height() - 1), right(player.width() - 1, left.y());
            // The ground around it is as wide as a line above and below it, and four beside it.
            EXPECT_LE(DistanceToSign(player, ground, top, {0, 1}), std::ceil(2 * ratio)) << ratio;
            EXPECT_LE(DistanceToSign(player, ground, bottom, {0, -1}), std::ceil(2 * ratio))
                << ratio;
            EXPECT_LE(DistanceToSign(player, ground, left, {1, 0}), std::ceil(5 * ratio)) << ratio;
            EXPECT_LE(DistanceToSign(player, ground, right, {-1, 0}), std::ceil(5 * ratio))
                << ratio;
        }
    }
}

TEST_F(QtLooks, ThePlayerIsSharpAtWholeScales) {
    const QColor line(0x56, 0x62, 0x6a);
    QtPictureControl picture(&window, QStringLiteral("Picture1"));
    picture.Move(0, 0, 480, 600);
    picture.ShowDevice();
    for (const int ratio : {1, 2, 3}) {
        const QImage player = Player(picture, Qt::white, ratio);
        const QPoint middle(player.width() / 2, player.height() / 2);
        for (int i = 0; i < ratio; ++i) {
            EXPECT_EQ(player.pixelColor(middle.x(), ratio + i), line) << ratio;
            EXPECT_EQ(player.pixelColor(middle.x(), 38 * ratio + i), line) << ratio;
            EXPECT_EQ(player.pixelColor(4 * ratio + i, middle.y()), line) << ratio;
            EXPECT_EQ(player.pixelColor(27 * ratio + i, middle.y()), line) << ratio;
        }
        EXPECT_EQ(player.pixelColor(middle.x(), ratio - 1), QColor(Qt::white)) << ratio;
    }
}

TEST_F(QtLooks, ThePictureShowsThePlayerWhileThereIsADevice) {
    QtPictureControl picture(&window, QStringLiteral("Picture1"));
    picture.Move(0, 0, 480, 600);
    Show();
    const QImage empty = Picture(*picture.Widget());
    picture.ShowDevice();
    EXPECT_NE(Picture(*picture.Widget()), empty);
    picture.Clear();
    EXPECT_EQ(Picture(*picture.Widget()), empty);
}

TEST_F(QtLooks, ALongEntryEndsInDotsAndIsWholeInTheOpenList) {
    QtComboControl combo(&window, QStringLiteral("Combo1"));
    combo.Move(0, 0, 3000, 450);
    combo.AddItem(QString(60, QLatin1Char('W')));
    combo.SetText(combo.List(0));
    Show();
    const QImage box = Picture(*combo.Widget());
    // The arrow takes the last 20 pixels; the dots before it lie low.
    const QRgb ground = box.pixel(170, 8);
    for (int x = 170; x < 178; ++x) {
        for (int y = 8; y < box.height() / 2; ++y) {
            EXPECT_EQ(qGray(box.pixel(x, y)) / 32, qGray(ground) / 32) << x << ',' << y;
        }
    }
    QtInput::Click(*combo.Widget(), QPoint(50, 10));
    const QAbstractItemView& list = *combo.Widget()->view();
    EXPECT_GT(list.width(), list.fontMetrics().horizontalAdvance(combo.List(0)));
    combo.Widget()->hidePopup();
}

TEST_F(QtLooks, WithoutAnEntryTheBoxTellsWhatItIsForAndItsTextStaysEmpty) {
    QtComboControl combo(&window, QStringLiteral("Combo1"));
    combo.Move(0, 0, 3000, 450);
    Show();
    const QImage empty = Picture(*combo.Widget());
    combo.Widget()->setPlaceholderText(QStringLiteral("iPod"));
    EXPECT_NE(Picture(*combo.Widget()), empty);
    EXPECT_EQ(combo.Text(), QString());
}

TEST_F(QtLooks, TheListThatHasTheFocusIsTheBrightOne) {
    QtListControl list(&window, QStringLiteral("lstArtists"));
    QtListControl other(&window, QStringLiteral("lstAlbums"));
    list.Move(0, 0, 3000, 3000);
    other.Move(3000, 0, 3000, 3000);
    Show();
    list.Fill({{QStringLiteral("row"), false}});
    list.SetListIndex(0);
    const auto colourOfRow = [&list] {
        const QPoint end = QtInput::TextOf(*list.Widget(), 0);
        return Picture(*list.Widget()).pixelColor(end);
    };
    const QColor highlight = window.palette().color(QPalette::Highlight);
    // Styles shade the colour a little.
    const auto distance = [&highlight](const QColor& colour) {
        return std::abs(colour.red() - highlight.red()) +
               std::abs(colour.green() - highlight.green()) +
               std::abs(colour.blue() - highlight.blue());
    };
    list.SetFocus();
    EXPECT_LT(distance(colourOfRow()), 10);
    other.SetFocus();
    EXPECT_GT(distance(colourOfRow()), 60);
    EXPECT_NE(colourOfRow(), window.palette().color(QPalette::Base));
}

TEST_F(QtLooks, TheProgressBarKeepsItsOutlineAtEveryScale) {
    QtProgressControl progress(&window, QStringLiteral("prgCopy"));
    progress.Move(0, 0, 3000, 210); // 200 x 14 pixels
    QPalette palette;
    palette.setColor(QPalette::Mid, Qt::black);
    palette.setColor(QPalette::Highlight, Qt::blue);
    progress.Widget()->setPalette(palette);
    progress.SetMax(100);
    progress.SetValue(100);
    Show();
    for (const qreal ratio : {1.0, 1.5, 2.0}) {
        QImage bar(QSize(200, 14) * ratio, QImage::Format_RGB32);
        bar.setDevicePixelRatio(ratio);
        progress.Widget()->render(&bar);
        const int x = bar.width() / 2;
        EXPECT_EQ(bar.pixelColor(x, 0), QColor(Qt::black)) << ratio;
        EXPECT_EQ(bar.pixelColor(x, bar.height() / 2), QColor(Qt::blue)) << ratio;
        EXPECT_EQ(bar.pixelColor(x, bar.height() - 1), QColor(Qt::black)) << ratio;
        EXPECT_EQ(bar.pixelColor(bar.width() - 1, 10), QColor(Qt::black)) << ratio;
    }
}

TEST_F(QtLooks, TheCaptionOfAFrameKeepsOffWhatStandsAboveIt) {
    QtFrameControl frame(&window, QStringLiteral("frmDP"), QStringLiteral("Sort by Folders:"));
    frame.SetWidth(3000);
    Show();
    const auto dark = [picture = Picture(*frame.Widget())](int top, int bottom) {
        int count = 0;
        for (int y = top; y < bottom; ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                count += qGray(picture.pixel(x, y)) < 100 ? 1 : 0;
            }
        }
        return count;
    };
    EXPECT_EQ(dark(0, 6), 0);
    EXPECT_GT(dark(6, frame.Widget()->height()), 50);
}

TEST_F(QtLooks, ATabShowsAToolTipOfItsOwn) {
    QtTabsControl tabs(&window, QStringLiteral("tbsFilter"),
                       {QStringLiteral("All Files"), QStringLiteral("Audio")});
    tabs.Widget()->setTabToolTip(1, QStringLiteral("What the iPod calls audio"));
    Show();
    HoverOver(*tabs.Widget(), tabs.Widget()->tabRect(1).center());
    EXPECT_EQ(QToolTip::text(), QStringLiteral("What the iPod calls audio"));
    QToolTip::hideText();
}

TEST_F(QtLooks, AMenuEntryShowsAToolTipOnlyWhereItIsGivenOne) {
    QtPopupMenu menu(&window, QStringLiteral("mnuPopup"), QStringLiteral("mnuPreview"),
                     QStringLiteral("Preview"));
    const auto* entry = window.findChild<QAction*>(QStringLiteral("mnuPreview"));
    EXPECT_FALSE(window.findChild<QMenu*>()->toolTipsVisible());
    menu.SetEntryToolTip(QStringLiteral("Plays it"));
    EXPECT_EQ(entry->toolTip(), QStringLiteral("Plays it"));
    EXPECT_TRUE(window.findChild<QMenu*>()->toolTipsVisible());
}

} // namespace
