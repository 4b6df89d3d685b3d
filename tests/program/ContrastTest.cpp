// What people with weak eyes can tell apart: text from its ground, check boxes from theirs, and the
// control that keys reach from the others. Measured on what is really painted.

#include "app/Application.h"
#include "platform/qt/BoxPalette.h"
#include "tests/app/ProgramFixture.h"
#include "tests/program/RealWindow.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionViewItem>
#include <QTabBar>

#include <gtest/gtest.h>

#include <cmath>
#include <map>

namespace {

/// The least contrast of a text, and that of a sign: a box, its check, or a focus ring.
constexpr double LeastOfText = 4.5;
constexpr double LeastOfSign = 3;

double Luminance(QRgb color) {
    const auto linear = [](int part) {
        const double share = part / 255.0;
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(color)) + 0.7152 * linear(qGreen(color)) +
           0.0722 * linear(qBlue(color));
}

double Contrast(QRgb one, QRgb other) {
    const double a = Luminance(one);
    const double b = Luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

/// An area of a widget, and of what lies below it.
QImage Painted(QWidget& widget, QRect area) {
    area.moveTopLeft(widget.mapTo(widget.window(), area.topLeft()));
    return widget.window()->grab(area).toImage().convertToFormat(QImage::Format_RGB32);
}

/// The colour of most pixels.
QRgb GroundOf(const QImage& image) {
    std::map<QRgb, int> counts;
    QRgb ground = image.pixel(0, 0);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb color = image.pixel(x, y);
            if (++counts[color] > counts[ground]) {
                ground = color;
            }
        }
    }
    return ground;
}

/// How many pixels stand out from a colour by so much.
int CountOf(const QImage& image, QRgb ground, double contrast) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += Contrast(image.pixel(x, y), ground) >= contrast ? 1 : 0;
        }
    }
    return count;
}

QPalette DarkPalette() {
    QPalette palette(QColor(45, 47, 51));
    palette.setColor(QPalette::Base, QColor(30, 31, 34));
    palette.setColor(QPalette::Highlight, QColor(52, 111, 186));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

/// The palette that the program starts with, and a dark one.
class PaletteInForce {
public:
    explicit PaletteInForce(bool dark) : m_before(QApplication::palette()) {
        if (dark) {
            QApplication::setPalette(WithReadableSelection(DarkPalette()));
        }
    }
    ~PaletteInForce() { QApplication::setPalette(m_before); }
    PaletteInForce(const PaletteInForce&) = delete;
    PaletteInForce& operator=(const PaletteInForce&) = delete;

private:
    QPalette m_before;
};

class ContrastOfWindow : public testing::TestWithParam<bool>,
                         private PaletteInForce,
                         protected RealWindow {
protected:
    ContrastOfWindow() : PaletteInForce(GetParam()) {}

    void SetUp() override {
        Start(SmallLibrary());
        TickRow("lstSongs", 1); // so that the copy button is enabled
        Top().setAttribute(Qt::WA_KeyboardFocusChange);
    }

    void Focus(const char* name) {
        Widget(name).setFocus(Qt::TabFocusReason);
        QCoreApplication::processEvents();
    }

    void ExpectLegible(QWidget& widget, QRect area, const std::string& what) {
        const QImage image = Painted(widget, area);
        // Few pixels of a letter have the text's whole colour; most are smoothed.
        EXPECT_GE(CountOf(image, GroundOf(image), LeastOfText), 2) << what;
    }

    void ExpectLegible(const char* name) {
        QWidget& widget = Widget(name);
        ExpectLegible(widget, widget.rect().adjusted(3, 3, -3, -3), name);
    }

    /// Where the text of a row is.
    static QRect TextArea(const QListView& list, int row) {
        return list.visualRect(list.model()->index(row, 0)).adjusted(26, 2, -2, -2);
    }

    static QRect BoxArea(const QListView& list, int row) {
        QStyleOptionViewItem option;
        option.initFrom(&list);
        option.rect = list.visualRect(list.model()->index(row, 0));
        option.features = QStyleOptionViewItem::HasCheckIndicator;
        return list.style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, &list);
    }

    void ExpectRowsLegible(const std::string& when) {
        for (const char* name : {"lstArtists", "lstAlbums", "lstSongs"}) {
            auto& list = Widget<QListView>(name);
            for (int row = 0; row < 2; ++row) {
                ExpectLegible(*list.viewport(), TextArea(list, row),
                              name + (" row " + std::to_string(row)) + when);
            }
        }
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

TEST_P(ContrastOfWindow, TextsStandOutFromTheirGround) {
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
}

TEST_P(ContrastOfWindow, RowsStandOutWhetherCurrentOrNotAndWhereverTheFocusIs) {
    Focus("lstArtists");
    ExpectRowsLegible(", artists focused");
    Focus("cmdBrowse");
    ExpectRowsLegible(", none focused");
}

TEST_P(ContrastOfWindow, SelectedTextStandsOut) {
    auto& box = Widget<QLineEdit>("txtDestination");
    Focus("txtDestination");
    box.selectAll();
    ExpectLegible(box, QRect(4, 4, 60, box.height() - 8), "selected text");
}

TEST_P(ContrastOfWindow, TheCopyButtonAloneHasTheBrightColourWhileItCanBePressed) {
    const QRgb bright = Top().palette().color(QPalette::Highlight).rgb();
    const auto ground = [this](const char* name) {
        return GroundOf(Painted(Widget(name), Widget(name).rect()));
    };
    for (const char* caption : {"&Copy to Destination", "&Cancel"}) {
        controls.cmdCopy.SetCaption(QString::fromLatin1(caption));
        for (const char* focus : {"cmdBrowse", "cmdCopy"}) {
            Focus(focus);
            EXPECT_EQ(ground("cmdCopy"), bright) << caption;
            ExpectLegible("cmdCopy");
        }
    }
    EXPECT_NE(ground("cmdBrowse"), bright);
    controls.cmdCopy.SetEnabled(false);
    EXPECT_NE(ground("cmdCopy"), bright);
}

TEST_P(ContrastOfWindow, CheckBoxesInRowsStandOut) {
    for (const char* focus : {"lstSongs", "cmdBrowse"}) {
        Focus(focus);
        auto& list = Widget<QListView>("lstSongs");
        for (const int current : {1, 2}) {
            list.setCurrentIndex(list.model()->index(current, 0));
            const QRect area = BoxArea(list, 2);
            controls.lstSongs.SetSelected(2, false);
            const QImage empty = Painted(*list.viewport(), area);
            controls.lstSongs.SetSelected(2, true);
            const QImage ticked = Painted(*list.viewport(), area);
            const QImage row = Painted(*list.viewport(), TextArea(list, 2));
            ExpectBox(empty, ticked, GroundOf(row),
                      std::string(focus) + " focused, row " + std::to_string(current) + " current");
        }
    }
}

TEST_P(ContrastOfWindow, CheckBoxesStandOut) {
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
        Focus(name == std::string("cmdBrowse") ? "cmdCopy" : "cmdBrowse");
        const QImage before = Painted(widget, widget.rect());
        Focus(name);
        ASSERT_TRUE(widget.hasFocus()) << name;
        const QImage after = Painted(widget, widget.rect());
        // In a list it is the current row that shows it, and the copy button has that colour.
        const bool isBright = qobject_cast<const QListView*>(&widget) != nullptr ||
                              widget.objectName() == QLatin1String("cmdCopy");
        const auto role = isBright ? QPalette::Highlight : QPalette::Window;
        const QRgb ground = Top().palette().color(role).rgb();
        int ring = 0;
        for (int y = 0; y < after.height(); ++y) {
            for (int x = 0; x < after.width(); ++x) {
                const QRgb color = after.pixel(x, y);
                ring += color != before.pixel(x, y) && Contrast(color, ground) >= LeastOfSign;
            }
        }
        EXPECT_GE(ring, 40) << name;
    }
}

INSTANTIATE_TEST_SUITE_P(Palettes, ContrastOfWindow, testing::Bool(), [](const auto& dark) {
    return std::string(dark.param ? "Dark" : "Light");
});

} // namespace
