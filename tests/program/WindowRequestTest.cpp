// Whole requests on the real window, with the mouse and the keys of a user.

#include "app/OverwriteWindow.h"
#include "platform/qt/QtMessages.h"
#include "tests/program/RealWindow.h"

using namespace Qt::StringLiterals;

namespace {

class WindowRequest : public testing::Test, protected RealWindow {
protected:
    const QStringList theLamps = {u"All (1 Artist)"_s, u"The Lamps"_s};

    /// Does this at every copy of the job.
    void AtEachCopy(const std::function<void()>& act) {
        files.BeforeCall = [act](const RecordedFiles::RecordedCall& call) {
            if (call.Call == FileCall::CopyFile) {
                act();
            }
        };
    }

    QWidget* RightClickOnSong(int row) {
        auto& songs = Widget<QListView>("lstSongs");
        QtInput::Click(songs, QtInput::TextOf(songs, row), Qt::RightButton);
        return QApplication::activePopupWidget();
    }
};

} // namespace

TEST_F(WindowRequest, TickingAnAlbumAndASongAndPressingCopyCopiesThem) {
    Start();
    TickRow("lstAlbums", 1); // Deep
    ClickRow("lstArtists", 2);
    TickRow("lstSongs", 2); // Night Bus
    EXPECT_EQ(controls.lblMessage.Caption(), u"Selected: 50 KB of 63 KB"_s);
    EXPECT_EQ(Copy(), QStringList({u"Copy completed!"_s}));
    EXPECT_EQ(Copied(), QStringList({u"D:\\Music\\Blue River\\Deep\\01 Source.mp3"_s,
                                     u"D:\\Music\\Blue River\\Deep\\02 Delta.mp3"_s,
                                     u"D:\\Music\\The Lamps\\Evening\\01 Night Bus.mp3"_s}));
}

TEST_F(WindowRequest, TheSameWithoutAMouse) {
    Start();
    Key(Qt::Key_Down); // from the first artist, which has the focus, to The Lamps
    EXPECT_EQ(controls.lblFullName.Caption(), u"The Lamps"_s);
    Key(Qt::Key_Tab);
    Key(Qt::Key_Tab); // the songs
    Key(Qt::Key_Down);
    Key(Qt::Key_Down);
    Key(Qt::Key_Space);
    EXPECT_EQ(controls.lblMessage.Caption(), u"Selected: 2 KB of 63 KB"_s);
    EXPECT_TRUE(controls.lstArtists.Selected(2));
    for (int tab = 0; tab < 8; ++tab) {
        Key(Qt::Key_Tab);
    }
    ASSERT_TRUE(Widget("cmdCopy").hasFocus());
    Key(Qt::Key_Space);
    EXPECT_EQ(Copied(), QStringList({u"D:\\Music\\The Lamps\\Evening\\01 Night Bus.mp3"_s}));
}

TEST_F(WindowRequest, TypingSearchesAndAMarkMadeInAResultSurvivesTheSearch) {
    Start();
    ClickOn("txtSearch");
    Type("dusk");
    EXPECT_EQ(Rows(controls.lstArtists), theLamps);
    EXPECT_TRUE(Widget("txtSearch").hasFocus());
    for (int letter = 0; letter < 4; ++letter) {
        Key(Qt::Key_Backspace);
    }
    EXPECT_EQ(controls.lstArtists.ListCount(), 3);
    EXPECT_TRUE(Widget("txtSearch").hasFocus());
    EXPECT_FALSE(controls.cmdClear.Enabled());
    Type("dusk");
    TickRow("lstSongs", 1);
    ClickOn("cmdClear");
    EXPECT_EQ(controls.lblMessage.Caption(), u"Selected: 1 KB of 63 KB"_s);
    EXPECT_TRUE(controls.lstArtists.Selected(2));
    EXPECT_TRUE(Widget("txtSearch").hasFocus());
}

TEST_F(WindowRequest, TypingInASmallLibraryNeverShowsTheTabsGrey) {
    struct : QObject {
        int Paints = 0;
        bool eventFilter(QObject* tabs, QEvent* event) override {
            if (event->type() == QEvent::Paint) {
                ++Paints;
                EXPECT_TRUE(static_cast<QWidget*>(tabs)->isEnabled());
            }
            return false;
        }
    } painted;
    Start();
    ClickOn("txtSearch");
    QtInput::Settle();
    Widget("tbsFilter").installEventFilter(&painted);
    for (const char* letter : {"d", "u", "s", "k"}) {
        Type(letter);
        QTest::qWait(20); // a person's pause: the last yield is long ago
    }
    Key(Qt::Key_Backspace);
    QtInput::Settle();
    EXPECT_EQ(Rows(controls.lstArtists), theLamps);
    EXPECT_GE(painted.Paints, 1);
}

TEST_F(WindowRequest, NothingButTheButtonAnswersDuringTheJobAndThatCancelsIt) {
    Start();
    TickRow("lstArtists", 0);
    AtEachCopy([this] {
        TickRow("lstArtists", 1);
        ClickTab(1);
        ClickOn("chkArtist");
        ClickOn("cmdClear");
    });
    EXPECT_EQ(Copy(), QStringList({u"Copy completed!"_s}));
    EXPECT_EQ(Copied().size(), 6);
    EXPECT_EQ(controls.tbsFilter.SelectedCaption(), u"All Files"_s);
    EXPECT_TRUE(controls.chkArtist.Value());
    files.Remove(u"D:\\Music\\Blue River"_s);
    AtEachCopy([this] {
        EXPECT_EQ(controls.cmdCopy.Caption(), u"&Cancel"_s);
        ClickOn("cmdCopy");
        QTest::qSleep(20); // until a yield is due: only then is a click seen between two files
    });
    EXPECT_EQ(Copy(), QStringList());
    EXPECT_EQ(files.FilesBelow(u"D:\\Music\\Blue River"_s).size(), 1);
    EXPECT_TRUE(controls.lstArtists.Enabled());
    ClickTab(2);
    EXPECT_EQ(Rows(controls.lstArtists), theLamps); // the one film's
}

TEST_F(WindowRequest, BehindAQuestionNothingAnswersAndItsAnswerGoesOn) {
    Start();
    TickRow("lstArtists", 0);
    ASSERT_EQ(Copy(), QStringList({u"Copy completed!"_s}));
    QtMessages boxes(&Top());
    AtPrompt = [this](OverwritePrompt& prompt) { OverwriteWindow(&Top(), prompt).Ask(); };
    messages.WhileShown = [&](const ShownMessage& shown) {
        messages.Answers = {boxes.Show(shown.Text, shown.Title, shown.Buttons, shown.Icon)};
    };
    int questions = 0;
    QTimer user;
    QObject::connect(&user, &QTimer::timeout, qApp, [&] {
        for (QWidget* question : QApplication::topLevelWidgets()) {
            if (question->isVisible() && question->windowType() == Qt::Dialog) {
                ++questions;
                ClickOn("cmdCopy");
                TickRow("lstArtists", 0);
                QTest::keyClick(Top().windowHandle(), Qt::Key_C, Qt::AltModifier);
                QTest::keyClick(question, Qt::Key_Return);
            }
        }
    });
    user.start(0);
    EXPECT_EQ(Copy(), QStringList({u"Copy completed!"_s}));
    EXPECT_EQ(questions, 7); // one for each file, and the message
    EXPECT_TRUE(controls.lstArtists.Selected(0));
}

TEST_F(WindowRequest, ARightClickOnASongOffersItsPreviewAndOnTheAllRowNothing) {
    Start();
    EXPECT_EQ(RightClickOnSong(0), nullptr);
    QWidget* menu = RightClickOnSong(3); // Source
    ASSERT_NE(menu, nullptr);
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    EXPECT_EQ(player.Source(), u"E:\\iPod_Control\\Music\\F00\\AAAA.mp3"_s);
    EXPECT_TRUE(frmPreview.Visible);
    EXPECT_EQ(frmPreview.Caption(), u"Source"_s);
    EXPECT_EQ(controls.lblFullName.Caption(), u"Blue River / Deep / Source"_s);
}

TEST_F(WindowRequest, ALongNameIsShortenedAndWholeInTheTooltip) {
    SampleTrack track = SmallLibrary().front();
    track.Title = u"x"_s.repeated(300);
    Start({track});
    ClickRow("lstSongs", 1);
    const QString whole = u"Blue River / Deep / "_s + track.Title;
    EXPECT_TRUE(controls.lblFullName.Caption().endsWith(u"..."_s));
    EXPECT_EQ(controls.lblFullName.ToolTip(), whole);
    Resize(3000, 700);
    EXPECT_EQ(controls.lblFullName.Caption(), whole);
    EXPECT_EQ(controls.lblFullName.ToolTip(), QString());
}

TEST_F(WindowRequest, TheFocusFollowsTheMouseAmongTheListsOnly) {
    Start();
    QWidget& songs = Widget("lstSongs");
    QtInput::MoveTo(songs, songs.rect().center());
    EXPECT_TRUE(songs.hasFocus());
    ClickOn("txtSearch");
    QtInput::MoveTo(songs, songs.rect().center() + QPoint(5, 5));
    EXPECT_TRUE(Widget("txtSearch").hasFocus());
}
