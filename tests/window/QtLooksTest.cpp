// What the controls look like: sharp, whole and telling, in the colours of the desktop.

#include "platform/qt/PlayerDrawing.h"
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

    static QPalette TwoColours() {
        QPalette palette;
        palette.setColor(QPalette::WindowText, Qt::black);
        palette.setColor(QPalette::Button, Qt::yellow);
        palette.setColor(QPalette::Highlight, Qt::blue);
        return palette;
    }

    /// The player on white, in the main window's place for it.
    static QImage Player(qreal ratio) {
        QImage image(QSize(32, 40) * ratio, QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::white);
        QPainter painter(&image);
        DrawPlayer(painter, QRectF(0, 0, 32, 40), TwoColours());
        return image;
    }

    static void HoverOver(QWidget& widget, QPoint position) {
        QHelpEvent event(QEvent::ToolTip, position, widget.mapToGlobal(position));
        QCoreApplication::sendEvent(&widget, &event);
    }
};

TEST_F(QtLooks, ThePlayerIsSharpAtEveryScale) {
    const QRgb black = QColor(Qt::black).rgb();
    const QRgb yellow = QColor(Qt::yellow).rgb();
    const std::pair<qreal, int> lineWidths[] = {{1, 1}, {1.5, 2}, {2, 2}, {3, 3}};
    for (const auto& [ratio, width] : lineWidths) {
        const QImage player = Player(ratio);
        const int middle = player.width() / 2;
        const int bottom = player.height() - 1;
        int left = 0;
        while (player.pixelColor(left, bottom / 2) == QColor(Qt::white)) {
            ++left;
        }
        for (int line = 0; line < width; ++line) {
            EXPECT_EQ(player.pixel(middle, line), black) << ratio;
            EXPECT_EQ(player.pixel(middle, bottom - line), black) << ratio;
            EXPECT_EQ(player.pixel(left + line, bottom / 2), black) << ratio;
        }
        EXPECT_EQ(player.pixel(middle, width), yellow) << ratio;
        EXPECT_EQ(player.pixel(middle, bottom - width), yellow) << ratio;
        EXPECT_EQ(player.pixel(left + width, bottom / 2), yellow) << ratio;
        EXPECT_EQ(player.pixel(qRound(10 * ratio), qRound(7 * ratio)), QColor(Qt::blue).rgb());
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
