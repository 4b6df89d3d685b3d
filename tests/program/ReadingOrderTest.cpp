// Names that read from right to left, as the window paints them.

#include "app/OverwriteWindow.h"
#include "platform/qt/ShownText.h"
#include "tests/program/RealWindow.h"

#include <QLabel>
#include <QStyledItemDelegate>
#include <QTextLayout>

using namespace Qt::StringLiterals;

namespace {

const QString Hebrew = u"\u05E9\u05DC\u05D5\u05DD"_s;
const QString Arabic = u"\u0623\u063A\u0646\u064A\u0629"_s;

/// Parts of a shown text stand in this order from the left. Looked at behind a part's first
/// character, since at its end there may be two places.
void ExpectOrder(const QString& shown, const QStringList& parts) {
    QTextLayout layout(shown);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    double before = -1;
    for (const QString& part : parts) {
        const qsizetype begin = shown.indexOf(part);
        ASSERT_GE(begin, 0) << part.toStdString();
        const double place = line.cursorToX(int(begin) + 1);
        EXPECT_LT(before, place) << part.toStdString();
        before = place;
    }
}

class ReadingOrder : public testing::Test, protected RealWindow {
protected:
    void ShowSong(const QString& artist, const QString& album, const QString& title) {
        Start({{artist, album, title, 0, 1000, u"F00/AAAA.mp3"_s}});
        ClickRow("lstSongs", 1);
    }

    QString FullName() { return Widget<QLabel>("lblFullName").text(); }
};

TEST_F(ReadingOrder, OfTheFullNameIsArtistAlbumTitleAlsoWhenTheArtistReadsFromTheRight) {
    ShowSong(Hebrew + u" ABC 12!?"_s, u"Live"_s, Arabic);
    ExpectOrder(FullName(), {Hebrew, u"Live"_s, Arabic});
    // Within the name the order is its own: the first word is the rightmost.
    ExpectOrder(FullName(), {u"!?"_s, u"ABC 12"_s, Hebrew});
    EXPECT_FALSE(FullName().isRightToLeft()) << "it would stand at the window's right edge";
    // The marks that bring this about are not spoken.
    EXPECT_EQ(Widget("lblFullName").accessibleName(),
              u"%1 ABC 12!? / Live / %2"_s.arg(Hebrew, Arabic));
    for (const char* list : {"lstSongs", "lstArtists", "lstAlbums"}) {
        ClickRow(list, 0);
    }
    EXPECT_EQ(FullName(), QString());
    EXPECT_EQ(Widget("lblFullName").accessibleName(), QString());
}

TEST_F(ReadingOrder, OfThePromptsPathIsFromTheRootToTheFile) {
    OverwritePrompt prompt;
    prompt.AskAbout(u"/home/%1/%2/01 Song.mp3"_s.arg(Hebrew, Arabic));
    OverwriteWindow question(nullptr, prompt);
    QString shown;
    QTimer::singleShot(0, [&shown] {
        QWidget* asking = QApplication::activeModalWidget();
        shown = asking->findChild<QLabel*>(u"lblMessage"_s)->text();
        asking->close();
    });
    question.Ask();
    ExpectOrder(shown, {u"File"_s, u"home"_s, Hebrew, Arabic, u"01 Song"_s, u"Replace"_s});
}

TEST_F(ReadingOrder, OfAMessagesPathIsFromTheRootToTheFileAndOfOtherTextsTheirOwn) {
    QString shown =
        ShownText::Message(u"File not found: \"E:\\%1\\%2\\A.mp3\""_s.arg(Hebrew, Arabic));
    shown.remove(QChar(0x200B)); // where a line may be broken
    ExpectOrder(shown, {u"E:"_s, Hebrew, Arabic, u"A.mp3"_s});
    const QString text = u"AC/DC / \"Caf\u00E9/Bar\" / \u9752\u3044\u706F\u53F0"_s;
    EXPECT_EQ(ShownText::InReadingOrder(text), text);
}

TEST_F(ReadingOrder, OfARowIsTheNamesOwnAndItsBoxStaysAtTheLeft) {
    ShowSong(u"Blue River"_s, Hebrew, Arabic + u" ABC!?"_s);
    auto& list = Widget<QListView>("lstSongs");
    const QModelIndex index = list.model()->index(1, 0);
    const QString shown = static_cast<QStyledItemDelegate*>(list.itemDelegate())
                              ->displayText(index.data(), QLocale());
    ExpectOrder(shown, {u"!?"_s, u"ABC"_s, Arabic});
    EXPECT_FALSE(shown.isRightToLeft());
    // What is painted of the row all lies near its left end.
    const QImage row = list.viewport()->grab(list.visualRect(index)).toImage();
    const QRgb ground = row.pixel(row.width() - 2, row.height() / 2);
    int right = 0;
    for (int x = 0; x < row.width(); ++x) {
        right = row.pixel(x, row.height() / 2) != ground ? x : right;
    }
    EXPECT_GT(right, 20);
    EXPECT_LT(right, row.width() / 2);
}

} // namespace
