// Names that read from right to left, as the window paints them.

#include "app/OverwriteWindow.h"
#include "platform/qt/ShownText.h"
#include "tests/program/RealWindow.h"

#include <QApplication>
#include <QLabel>
#include <QListView>
#include <QStyledItemDelegate>
#include <QTextLayout>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

QString Hebrew() {
    return QStringLiteral(u"\u05E9\u05DC\u05D5\u05DD");
}

QString Arabic() {
    return QStringLiteral(u"\u0623\u063A\u0646\u064A\u0629");
}

/// Where a part of a shown text is, from the left: behind its first character, since at a part's
/// end there may be two places.
double PlaceOf(const QString& shown, const QString& part) {
    QTextLayout layout(shown);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    const int begin = int(shown.indexOf(part));
    EXPECT_GE(begin, 0) << part.toStdString();
    return line.cursorToX(begin + 1);
}

class ReadingOrder : public testing::Test, protected RealWindow {
protected:
    static SampleTrack Track(const QString& artist, const QString& album, const QString& title) {
        SampleTrack track;
        track.Artist = artist;
        track.Album = album;
        track.Title = title;
        track.FileSize = 1000;
        track.Location = QStringLiteral("F00/AAAA.mp3");
        return track;
    }

    QString FullName() { return Widget<QLabel>("lblFullName").text(); }
};

TEST_F(ReadingOrder, OfTheFullNameIsArtistAlbumTitle) {
    Start({Track(QStringLiteral("Blue River"), Hebrew(), Arabic())});
    ClickRow("lstSongs", 1);
    EXPECT_LT(PlaceOf(FullName(), QStringLiteral("Blue River")), PlaceOf(FullName(), Hebrew()));
    EXPECT_LT(PlaceOf(FullName(), Hebrew()), PlaceOf(FullName(), Arabic()));
}

TEST_F(ReadingOrder, OfTheFullNameIsTheSameWhenTheArtistReadsFromTheRight) {
    Start({Track(Hebrew() + QStringLiteral(" ABC 12!?"), QStringLiteral("Live"), Arabic())});
    ClickRow("lstSongs", 1);
    EXPECT_LT(PlaceOf(FullName(), Hebrew()), PlaceOf(FullName(), QStringLiteral("Live")));
    EXPECT_LT(PlaceOf(FullName(), QStringLiteral("Live")), PlaceOf(FullName(), Arabic()));
    // Within the name the order is its own: the first word is the rightmost.
    EXPECT_LT(PlaceOf(FullName(), QStringLiteral("ABC 12")), PlaceOf(FullName(), Hebrew()));
    EXPECT_LT(PlaceOf(FullName(), QStringLiteral("!?")),
              PlaceOf(FullName(), QStringLiteral("ABC 12")));
    EXPECT_FALSE(FullName().isRightToLeft()) << "it would stand at the window's right edge";
}

TEST_F(ReadingOrder, MarksAreNotSpoken) {
    Start({Track(QStringLiteral("Blue River"), Hebrew(), Arabic())});
    ClickRow("lstSongs", 1);
    EXPECT_EQ(Widget("lblFullName").accessibleName(),
              QStringLiteral("Blue River / %1 / %2").arg(Hebrew(), Arabic()));
    ClickRow("lstSongs", 0);
    ClickRow("lstArtists", 0);
    ClickRow("lstAlbums", 0);
    EXPECT_EQ(FullName(), QString());
    EXPECT_EQ(Widget("lblFullName").accessibleName(), QString());
}

TEST_F(ReadingOrder, OfThePromptsPathIsFromTheRootToTheFile) {
    OverwritePrompt prompt;
    prompt.OverwriteFile = QStringLiteral("/home/%1/%2/01 Song.mp3").arg(Hebrew(), Arabic());
    OverwriteWindow question(nullptr, prompt);
    QString shown;
    QTimer::singleShot(0, [&shown] {
        QWidget* asking = QApplication::activeModalWidget();
        shown = asking->findChild<QLabel*>(QStringLiteral("lblMessage"))->text();
        asking->close();
    });
    question.Ask();
    const QString parts[] = {
        QStringLiteral("File"),    QStringLiteral("home"),   Hebrew(), Arabic(),
        QStringLiteral("01 Song"), QStringLiteral("Replace")};
    for (size_t i = 1; i < std::size(parts); ++i) {
        EXPECT_LT(PlaceOf(shown, parts[i - 1]), PlaceOf(shown, parts[i])) << i;
    }
}

TEST_F(ReadingOrder, OfAMessagesPathIsFromTheRootToTheFile) {
    QString shown = ShownText::Message(
        QStringLiteral("File not found: \"E:\\%1\\%2\\A.mp3\"").arg(Hebrew(), Arabic()));
    shown.remove(QChar(0x200B)); // where a line may be broken
    EXPECT_LT(PlaceOf(shown, QStringLiteral("E:")), PlaceOf(shown, Hebrew()));
    EXPECT_LT(PlaceOf(shown, Hebrew()), PlaceOf(shown, Arabic()));
    EXPECT_LT(PlaceOf(shown, Arabic()), PlaceOf(shown, QStringLiteral("A.mp3")));
}

TEST_F(ReadingOrder, OfOtherTextsIsLeftAlone) {
    const QString text = QStringLiteral("AC/DC / \"Caf\u00E9/Bar\" / \u9752\u3044\u706F\u53F0");
    EXPECT_EQ(ShownText::InReadingOrder(text), text);
}

TEST_F(ReadingOrder, OfARowIsTheNamesOwnAndItsBoxStaysAtTheLeft) {
    Start({Track(QStringLiteral("Blue River"), Hebrew(), Arabic() + QStringLiteral(" ABC!?"))});
    auto& list = Widget<QListView>("lstSongs");
    const QString shown = static_cast<QStyledItemDelegate*>(list.itemDelegate())
                              ->displayText(list.model()->index(1, 0).data(), QLocale());
    EXPECT_LT(PlaceOf(shown, QStringLiteral("!?")), PlaceOf(shown, QStringLiteral("ABC")));
    EXPECT_LT(PlaceOf(shown, QStringLiteral("ABC")), PlaceOf(shown, Arabic()));
    EXPECT_FALSE(shown.isRightToLeft());
    const QImage row = list.viewport()->grab(list.visualRect(list.model()->index(1, 0))).toImage();
    // What is painted of the row all lies near its left end.
    const QRgb ground = row.pixel(row.width() - 2, row.height() / 2);
    int right = 0;
    for (int x = 0; x < row.width(); ++x) {
        right = row.pixel(x, row.height() / 2) != ground ? x : right;
    }
    EXPECT_GT(right, 20);
    EXPECT_LT(right, row.width() / 2);
}

} // namespace
