// What people with weak eyes can tell apart: text from its ground, check boxes from theirs, and the
// control that keys reach from the others. Measured on what is really painted.

#include "platform/qt/BoxPalette.h"
#include "tests/program/RealWindow.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTabBar>

#include <map>

using namespace Qt::StringLiterals;

namespace {

/// The least contrast of a text, and that of a sign: a box, its check, or a focus ring.
constexpr double LeastOfText = 4.5;
constexpr double LeastOfSign = 3;

/// How many pixels of a picture are so.
int Count(const QImage& image, const std::function<bool(int x, int y)>& isSo) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += isSo(x, y) ? 1 : 0;
        }
    }
    return count;
}

/// How many pixels differ from a colour by at least that contrast.
int CountOf(const QImage& image, QRgb ground, double contrast) {
    return Count(image,
                 [&](int x, int y) { return Contrast(image.pixel(x, y), ground) >= contrast; });
}

/// The colour of most pixels.
QRgb GroundOf(const QImage& image) {
    std::map<QRgb, int> counts;
    QRgb ground = image.pixel(0, 0);
    Count(image, [&](int x, int y) {
        const QRgb color = image.pixel(x, y);
        ground = ++counts[color] > counts[ground] ? color : ground;
        return true;
    });
    return ground;
}

/// An area of a widget, and of what lies below it.
QImage Painted(QWidget& widget, QRect area) {
    area.moveTopLeft(widget.mapTo(widget.window(), area.topLeft()));
    return widget.window()->grab(area).toImage().convertToFormat(QImage::Format_RGB32);
}
QImage Painted(QWidget& widget) {
    return Painted(widget, widget.rect());
}

/// The palette that the program starts with, or a dark one.
class PaletteInForce {
public:
    explicit PaletteInForce(bool dark) {
        if (dark) {
            QPalette palette(QColor(45, 47, 51));
            palette.setColor(QPalette::Base, QColor(30, 31, 34));
            palette.setColor(QPalette::Highlight, QColor(52, 111, 186));
            palette.setColor(QPalette::HighlightedText, Qt::white);
            QApplication::setPalette(WithReadableSelection(palette));
        }
    }
    ~PaletteInForce() { QApplication::setPalette(m_before); }
    PaletteInForce(const PaletteInForce&) = delete;
    PaletteInForce& operator=(const PaletteInForce&) = delete;

private:
    QPalette m_before = QApplication::palette();
};

class ContrastOfWindow : public testing::TestWithParam<bool>,
                         private PaletteInForce,
                         protected RealWindow {
protected:
    ContrastOfWindow() : PaletteInForce(GetParam()) {
        Start();
        TickRow("lstSongs", 1); // so that the copy button is enabled
        Top().setAttribute(Qt::WA_KeyboardFocusChange);
    }

    void Focus(const char* name) {
        Widget(name).setFocus(Qt::TabFocusReason);
        QCoreApplication::processEvents();
        ASSERT_TRUE(Widget(name).hasFocus()) << name;
    }

    void ExpectLegible(QWidget& widget, QRect area, const std::string& what) {
        const QImage image = Painted(widget, area);
        // Few pixels of a letter have the text's whole colour; most are smoothed.
        EXPECT_GE(CountOf(image, GroundOf(image), LeastOfText), 2) << what;
    }
    void ExpectLegible(const char* name) {
        ExpectLegible(Widget(name), Widget(name).rect().adjusted(3, 3, -3, -3), name);
    }

    /// Where the text of a row is.
    static QRect TextArea(const QListView& list, int row) {
        return list.visualRect(list.model()->index(row, 0)).adjusted(26, 2, -2, -2);
    }
    static QRect BoxArea(const QListView& list, int row) {
        const QPoint middle = list.viewport()->mapFrom(&list, QtInput::CheckBoxOf(list, row));
        const int side = list.style()->pixelMetric(QStyle::PM_IndicatorWidth);
        QRect area(0, 0, side, side);
        area.moveCenter(middle);
        return area;
    }

    /// The outline of an empty box, or its area, stands out; so does a check in it.
    static void ExpectBox(const QImage& empty, const QImage& ticked, QRgb around,
                          const std::string& what) {
        const int side = empty.width();
        EXPECT_GE(CountOf(empty, around, LeastOfSign), 2 * side) << what << ", empty";
        const QRgb inside = empty.pixel(side / 2, side / 2);
        const QRect middle(side / 4, side / 4, side / 2, side / 2);
        EXPECT_GE(CountOf(ticked.copy(middle), inside, LeastOfSign), side / 2)
            << what << ", ticked";
    }
};

INSTANTIATE_TEST_SUITE_P(Palettes, ContrastOfWindow, testing::Bool(), [](const auto& dark) {
    return std::string(dark.param ? "Dark" : "Light");
});

TEST_P(ContrastOfWindow, TextsStandOutFromTheirBackground) {
    controls.txtSearch.SetText(QString());
    for (const char* name : {"lblSearch", "lblMessage", "cmdSearch", "cmdBrowse", "cmdCopy",
                             "chkArtist", "chkAlbumName", "txtDestination", "Combo1"}) {
        ExpectLegible(name);
    }
    auto& tabs = Widget<QTabBar>("tbsFilter");
    for (int tab = 0; tab < 3; ++tab) {
        ExpectLegible(tabs, tabs.tabRect(tab).adjusted(6, 6, -6, -6), "tab " + std::to_string(tab));
    }
    for (const char* name : {"frmDP", "frmTN", "frmDestination"}) {
        ExpectLegible(Widget(name), QRect(0, 0, 80, 24), name);
    }
    Focus("txtDestination");
    auto& box = Widget<QLineEdit>("txtDestination");
    box.selectAll();
    ExpectLegible(box, QRect(4, 4, 60, box.height() - 8), "selected text");
}

TEST_P(ContrastOfWindow, RowsStandOutWhetherCurrentOrNotAndWhereverTheFocusIs) {
    for (const char* focus : {"lstArtists", "cmdBrowse"}) {
        Focus(focus);
        for (const char* name : {"lstArtists", "lstAlbums", "lstSongs"}) {
            auto& list = Widget<QListView>(name);
            for (const int row : {0, 1}) {
                ExpectLegible(*list.viewport(), TextArea(list, row),
                              name + (" row " + std::to_string(row)) + ", focused: " + focus);
            }
        }
    }
}

TEST_P(ContrastOfWindow, OnlyTheCopyButtonHasTheBrightColourWhileItCanBePressed) {
    const QRgb bright = Top().palette().color(QPalette::Highlight).rgb();
    const auto ground = [this](const char* name) { return GroundOf(Painted(Widget(name))); };
    for (const QString& caption : {u"&Copy to Destination"_s, u"&Cancel"_s}) {
        controls.cmdCopy.SetCaption(caption);
        for (const char* focus : {"cmdBrowse", "cmdCopy"}) {
            Focus(focus);
            EXPECT_EQ(ground("cmdCopy"), bright) << caption.toStdString();
            ExpectLegible("cmdCopy");
        }
    }
    EXPECT_NE(ground("cmdBrowse"), bright);
    controls.cmdCopy.SetEnabled(false);
    EXPECT_NE(ground("cmdCopy"), bright);
}

TEST_P(ContrastOfWindow, CheckBoxesStandOutInRowsAndElsewhere) {
    auto& list = Widget<QListView>("lstSongs");
    const auto row = [&](bool ticked) {
        controls.lstSongs.SetSelected(2, ticked);
        return Painted(*list.viewport(), BoxArea(list, 2));
    };
    for (const char* focus : {"lstSongs", "cmdBrowse"}) {
        Focus(focus);
        for (const int current : {1, 2}) {
            list.setCurrentIndex(list.model()->index(current, 0));
            ExpectBox(row(false), row(true), GroundOf(Painted(*list.viewport(), TextArea(list, 2))),
                      std::string(focus) + " focused, row " + std::to_string(current) + " current");
        }
    }
    auto& box = Widget<QCheckBox>("chkAlbumName");
    QStyleOptionButton option;
    option.initFrom(&box);
    const QRect area = box.style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, &box);
    box.setChecked(false);
    const QImage empty = Painted(box, area);
    box.setChecked(true);
    ExpectBox(empty, Painted(box, area),
              box.palette().color(QPalette::Active, QPalette::Button).rgb(), "chkAlbumName");
}

TEST_P(ContrastOfWindow, TheControlWithTheFocusStandsOut) {
    for (const char* name :
         {"Combo1", "txtSearch", "cmdSearch", "tbsFilter", "lstArtists", "lstSongs", "chkArtist",
          "chkTrackNum", "txtDestination", "cmdBrowse", "cmdCopy"}) {
        QWidget& widget = Widget(name);
        Focus(widget.objectName() == u"cmdBrowse"_s ? "cmdCopy" : "cmdBrowse");
        const QImage before = Painted(widget);
        Focus(name);
        const QImage after = Painted(widget);
        // In a list it is the current row that shows it, and the copy button has that colour.
        const bool isBright = qobject_cast<const QListView*>(&widget) != nullptr ||
                              widget.objectName() == u"cmdCopy"_s;
        const QColor ground =
            Top().palette().color(isBright ? QPalette::Highlight : QPalette::Window);
        const int ring = Count(after, [&](int x, int y) {
            return after.pixel(x, y) != before.pixel(x, y) &&
                   Contrast(after.pixel(x, y), ground) >= LeastOfSign;
        });
        EXPECT_GE(ring, 40) << name;
    }
}

} // namespace
