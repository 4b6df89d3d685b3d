// What the controls look like: whole and telling, in the colours of the desktop.

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
#include <QHelpEvent>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

TEST(Contrast, IsThatOfTheAccessibilityGuidelines) {
    EXPECT_NEAR(Contrast(Qt::white, Qt::black), 21, 0.001);
    EXPECT_NEAR(Contrast(Qt::black, Qt::white), 21, 0.001);
    EXPECT_NEAR(Contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.478, 0.001);
    EXPECT_NEAR(Contrast(Qt::red, Qt::green), 2.914, 0.001);
    EXPECT_NEAR(Contrast(Qt::blue, Qt::black), 2.444, 0.001);
    EXPECT_NEAR(Contrast(QColor(10, 10, 10), Qt::black), 1.061, 0.001);
}

TEST(SelectionColour, IsAdjustedUntilItsTextCanBeRead) {
    for (const auto& [ground, text] :
         {std::pair(QColor(120, 160, 220), QColor(Qt::white)), {QColor(90, 90, 90), Qt::black}}) {
        QPalette palette;
        palette.setColor(QPalette::Highlight, ground);
        palette.setColor(QPalette::HighlightedText, text);
        palette = WithReadableSelection(palette);
        for (const auto group : {QPalette::Active, QPalette::Inactive}) {
            const double contrast = Contrast(palette.color(group, QPalette::Highlight), text);
            EXPECT_GE(contrast, 4.5);
            EXPECT_LT(contrast, 5.2); // and no further
        }
    }
}

class QtLooks : public testing::Test {
protected:
    QWidget window;

    void Show() {
        window.resize(600, 400);
        QtInput::ShowActive(window);
    }

    static QImage Picture(QWidget& widget) { return widget.grab().toImage(); }

    /// What a widget paints at a scale of the screen.
    static QImage AtScale(QWidget& widget, qreal ratio, QColor ground = Qt::white) {
        QImage image(widget.size() * ratio, QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        image.fill(ground);
        widget.render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
        return image;
    }
};

TEST_F(QtLooks, ThePictureOfADeviceStandsOutInLightAndDarkAtEveryScale) {
    QtPictureControl picture(&window, u"Picture1"_s);
    picture.Move(0, 0, 480, 600); // 32 x 40 pixels
    for (const QColor& ground : {QColor(239, 239, 239), QColor(45, 47, 51)}) {
        for (const qreal ratio : {1.0, 1.25, 1.5, 2.0}) {
            picture.ShowDevice();
            const QImage player = AtScale(*picture.Widget(), ratio, ground);
            QRect seen;
            for (int i = 0; i < player.width() * player.height(); ++i) {
                const QPoint place(i % player.width(), i / player.width());
                if (Contrast(player.pixelColor(place), ground) >= 3) {
                    seen |= QRect(place, QSize(1, 1));
                }
            }
            EXPECT_GE(seen.height(), 36 * ratio) << ratio;
            EXPECT_GE(seen.width(), 22 * ratio) << ratio;
            picture.Clear();
            EXPECT_NE(AtScale(*picture.Widget(), ratio, ground), player);
        }
    }
}

TEST_F(QtLooks, ALongEntryEndsInDotsAndIsCompleteInTheOpenList) {
    QtComboControl combo(&window, u"Combo1"_s);
    combo.Move(0, 0, 3000, 450);
    Show();
    const QImage empty = Picture(*combo.Widget());
    combo.Widget()->setPlaceholderText(u"iPod"_s); // what the box is for
    EXPECT_NE(Picture(*combo.Widget()), empty);
    EXPECT_EQ(combo.Text(), QString());
    combo.AddItem(u"W"_s.repeated(60));
    combo.SetText(combo.List(0));
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

TEST_F(QtLooks, TheCurrentRowIsBrightInTheListThatHasTheFocusAndTintedInTheOthers) {
    QtListControl list(&window, u"lstArtists"_s);
    QtListControl other(&window, u"lstAlbums"_s);
    list.Move(0, 0, 3000, 3000);
    other.Move(3000, 0, 3000, 3000);
    Show();
    list.Fill({{u"row"_s}});
    list.SetListIndex(0);
    const auto colourOfRow = [&list] {
        return Picture(*list.Widget()).pixelColor(QtInput::TextOf(*list.Widget(), 0));
    };
    const QColor bright = window.palette().color(QPalette::Highlight);
    list.SetFocus();
    EXPECT_LT(Contrast(colourOfRow(), bright), 1.1); // styles shade the colour a little
    other.SetFocus();
    const double tint = Contrast(colourOfRow(), bright);
    EXPECT_GT(tint, 1.5);
    EXPECT_NE(colourOfRow(), window.palette().color(QPalette::Base));
    list.SetEnabled(false);
    EXPECT_GT(Contrast(colourOfRow(), bright), tint);
}

TEST_F(QtLooks, TheProgressBarKeepsItsOutlineAtEveryScale) {
    QtProgressControl progress(&window, u"prgCopy"_s);
    progress.Move(0, 0, 3000, 210); // 200 x 14 pixels
    QPalette palette;
    palette.setColor(QPalette::Mid, Qt::black);
    palette.setColor(QPalette::Highlight, Qt::blue);
    palette.setColor(QPalette::Base, Qt::yellow);
    progress.Widget()->setPalette(palette);
    progress.SetMax(100);
    progress.SetValue(75);
    for (const qreal ratio : {1.0, 1.5, 2.0}) {
        const QImage bar = AtScale(*progress.Widget(), ratio);
        const auto expect = [&](double across, double down, QColor colour) {
            const int x = int(across * (bar.width() - 1)), y = int(down * (bar.height() - 1));
            EXPECT_EQ(bar.pixelColor(x, y), colour) << ratio << ": " << x << ',' << y;
        };
        for (const double end : {0.0, 1.0}) {
            expect(0.5, end, Qt::black);
            expect(end, 0.5, Qt::black);
        }
        expect(0.7, 0.5, Qt::blue);
        expect(0.8, 0.5, Qt::yellow);
    }
}

TEST_F(QtLooks, TheCaptionOfAFrameDoesNotTouchTheControlAboveIt) {
    QtFrameControl frame(&window, u"frmDP"_s, u"Sort by Folders:"_s);
    Show();
    const QImage whole = Picture(*frame.Widget());
    frame.Widget()->setTitle(QString());
    const QImage without = Picture(*frame.Widget());
    EXPECT_NE(whole, without);
    const QRect top(0, 0, whole.width(), 6);
    EXPECT_EQ(whole.copy(top), without.copy(top));
}

TEST_F(QtLooks, ATabAndAMenuEntryShowToolTipsOfTheirOwn) {
    QtTabsControl tabs(&window, u"tbsFilter"_s, {u"All Files"_s, u"Audio"_s});
    tabs.Widget()->setTabToolTip(1, u"What the iPod calls audio"_s);
    QtPopupMenu menu(&window, u"mnuPopup"_s, u"mnuPreview"_s, u"Preview"_s);
    Show();
    const QPoint place = tabs.Widget()->tabRect(1).center();
    QHelpEvent hover(QEvent::ToolTip, place, tabs.Widget()->mapToGlobal(place));
    QCoreApplication::sendEvent(tabs.Widget(), &hover);
    EXPECT_EQ(QToolTip::text(), u"What the iPod calls audio"_s);
    QToolTip::hideText();
    EXPECT_FALSE(window.findChild<QMenu*>()->toolTipsVisible());
    menu.SetEntryToolTip(u"Plays it"_s);
    EXPECT_EQ(window.findChild<QAction*>(u"mnuPreview"_s)->toolTip(), u"Plays it"_s);
    EXPECT_TRUE(window.findChild<QMenu*>()->toolTipsVisible());
}

} // namespace
