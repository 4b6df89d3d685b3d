// Whole requests on the real window, with the mouse and the keys of a user.

#include "tests/app/ProgramFixture.h"
#include "tests/program/RealWindow.h"
#include "tests/window/QtInput.h"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

namespace {

class WindowRequest : public testing::Test, protected RealWindow {
protected:
    static QString Q(const char* text) { return QString::fromUtf8(text); }
};

} // namespace

TEST_F(WindowRequest, TickingAnAlbumAndASongAndPressingCopyCopiesThem) {
    Start(SmallLibrary());
    TickRow("lstAlbums", 1); // Deep
    ClickRow("lstArtists", 2);
    TickRow("lstSongs", 2); // Night Bus
    EXPECT_EQ(controls.lblMessage.Caption(), Q("Selected: 3.0 MB of 3.5 MB"));
    ClickOn("cmdCopy");
    EXPECT_EQ(messages.Texts(), QStringList({Q("Copy completed!")}));
    EXPECT_EQ(files.FilesBelow(Q("D:\\Music")),
              QStringList({Q("D:\\Music\\Blue River\\Deep\\01 Source.mp3"),
                           Q("D:\\Music\\Blue River\\Deep\\02 Delta.mp3"),
                           Q("D:\\Music\\The Lamps\\Evening\\01 Night Bus.mp3")}));
}

TEST_F(WindowRequest, TheSameWithoutAMouse) {
    Start(SmallLibrary());
    Key(Qt::Key_Down); // from the first artist, which has the focus, to The Lamps
    EXPECT_EQ(controls.lblFullName.Caption(), Q("The Lamps"));
    Key(Qt::Key_Tab);
    Key(Qt::Key_Tab); // the songs
    Key(Qt::Key_Down);
    Key(Qt::Key_Down);
    Key(Qt::Key_Space);
    EXPECT_EQ(controls.lblMessage.Caption(), Q("Selected: 2 KB of 3.5 MB"));
    EXPECT_TRUE(controls.lstArtists.Selected(2));
    for (int tab = 0; tab < 8; ++tab) {
        Key(Qt::Key_Tab);
    }
    ASSERT_TRUE(Widget("cmdCopy").hasFocus());
    Key(Qt::Key_Space);
    EXPECT_EQ(files.FilesBelow(Q("D:\\Music")),
              QStringList({Q("D:\\Music\\The Lamps\\Evening\\01 Night Bus.mp3")}));
}

TEST_F(WindowRequest, TypingSearchesAndDeletingTheTextEndsTheSearch) {
    Start(SmallLibrary());
    ClickOn("txtSearch");
    Type("dusk");
    EXPECT_EQ(Rows(controls.lstArtists), QStringList({Q("All (1 Artist)"), Q("The Lamps")}));
    EXPECT_TRUE(Widget("txtSearch").hasFocus());
    for (int letter = 0; letter < 4; ++letter) {
        Key(Qt::Key_Backspace);
    }
    EXPECT_EQ(controls.lstArtists.ListCount(), 3);
    EXPECT_TRUE(Widget("txtSearch").hasFocus());
    EXPECT_FALSE(controls.cmdClear.Enabled());
}

TEST_F(WindowRequest, TypingInASmallLibraryNeverShowsTheTabsGrey) {
    struct : QObject {
        int Paints = 0;
        int GreyPaints = 0;
        bool eventFilter(QObject* tabs, QEvent* event) override {
            if (event->type() == QEvent::Paint) {
                ++Paints;
                GreyPaints += static_cast<QWidget*>(tabs)->isEnabled() ? 0 : 1;
            }
            return false;
        }
    } painted;
    Start(SmallLibrary());
    ClickOn("txtSearch");
    QCoreApplication::processEvents();
    Widget("tbsFilter").installEventFilter(&painted);
    for (const char* letter : {"d", "u", "s", "k"}) {
        Type(letter);
        QTest::qWait(20); // a person's pause: the last yield is long ago
    }
    Key(Qt::Key_Backspace);
    QCoreApplication::processEvents();
    EXPECT_EQ(Rows(controls.lstArtists), QStringList({Q("All (1 Artist)"), Q("The Lamps")}));
    EXPECT_GE(painted.Paints, 1);
    EXPECT_EQ(painted.GreyPaints, 0);
}

TEST_F(WindowRequest, AMarkMadeInAResultSurvivesTheSearch) {
    Start(SmallLibrary());
    ClickOn("txtSearch");
    Type("dusk");
    TickRow("lstSongs", 1);
    ClickOn("cmdClear");
    EXPECT_EQ(controls.lblMessage.Caption(), Q("Selected: 1 KB of 3.5 MB"));
    EXPECT_TRUE(controls.lstArtists.Selected(2));
    EXPECT_TRUE(Widget("txtSearch").hasFocus());
}

TEST_F(WindowRequest, TheVideoTabShowsTheFilmAlone) {
    Start(SmallLibrary());
    ClickTab(2);
    EXPECT_EQ(Rows(controls.lstArtists), QStringList({Q("All (1 Artist)"), Q("The Lamps")}));
    ClickRow("lstArtists", 1);
    EXPECT_EQ(Rows(controls.lstSongs), QStringList({Q("All (1 Video)"), Q("Film")}));
    ClickTab(0);
    EXPECT_EQ(controls.lstArtists.ListCount(), 3);
}

TEST_F(WindowRequest, TheLastOfManyTicksIsStillInView) {
    std::vector<SampleTrack> tracks;
    for (int i = 0; i < 300; ++i) {
        tracks.push_back({QStringLiteral("Artist"), QStringLiteral("Album"),
                          QStringLiteral("Song %1").arg(i), i + 1, 1000,
                          QStringLiteral("F00/%1.mp3").arg(i)});
    }
    Start(tracks);
    auto& songs = Widget<QListView>("lstSongs");
    TickRow("lstSongs", 250);
    const QRect before = songs.visualRect(songs.model()->index(250, 0));
    TickRow("lstSongs", 250);
    EXPECT_EQ(songs.visualRect(songs.model()->index(250, 0)), before);
    EXPECT_TRUE(songs.viewport()->rect().contains(before.center()));
}

TEST_F(WindowRequest, PressingCancelDuringTheJobStopsIt) {
    Start(SmallLibrary());
    TickRow("lstArtists", 0);
    files.BeforeCall = [this](const FakeFileSystem::RecordedCall& call) {
        if (call.Call == FileCall::CopyFile) {
            files.BeforeCall = {};
            EXPECT_EQ(controls.cmdCopy.Caption(), Q("&Cancel"));
            ClickOn("cmdCopy");
        }
    };
    ClickOn("cmdCopy");
    EXPECT_TRUE(messages.Shown.empty());
    EXPECT_EQ(files.FilesBelow(Q("D:\\Music")).size(), 1);
    EXPECT_TRUE(controls.lstArtists.Enabled());
}

TEST_F(WindowRequest, NothingButTheButtonAnswersDuringTheJob) {
    Start(SmallLibrary());
    TickRow("lstArtists", 0);
    files.BeforeCall = [this](const FakeFileSystem::RecordedCall& call) {
        if (call.Call == FileCall::CopyFile) {
            TickRow("lstArtists", 1);
            ClickTab(1);
            ClickOn("chkArtist");
            ClickOn("cmdClear");
        }
    };
    ClickOn("cmdCopy");
    files.BeforeCall = {};
    EXPECT_EQ(messages.Texts(), QStringList({Q("Copy completed!")}));
    EXPECT_EQ(files.FilesBelow(Q("D:\\Music")).size(), 6);
    EXPECT_EQ(controls.tbsFilter.SelectedCaption(), Q("All Files"));
    EXPECT_TRUE(controls.chkArtist.Value());
}

TEST_F(WindowRequest, ARightClickOnASongOffersItsPreview) {
    Start(SmallLibrary());
    auto& songs = Widget<QListView>("lstSongs");
    QtInput::Click(songs, QtInput::TextOf(songs, 3), Qt::RightButton); // Source
    QWidget* menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    EXPECT_EQ(player.Source(), Q("E:\\iPod_Control\\Music\\F00\\AAAA.mp3"));
    EXPECT_TRUE(frmPreview.Visible);
    EXPECT_EQ(frmPreview.Caption(), Q("Source"));
    EXPECT_EQ(controls.lblFullName.Caption(), Q("Blue River / Deep / Source"));
}

TEST_F(WindowRequest, ARightClickOnTheAllRowOpensNoMenu) {
    Start(SmallLibrary());
    auto& songs = Widget<QListView>("lstSongs");
    QtInput::Click(songs, QtInput::TextOf(songs, 0), Qt::RightButton);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(WindowRequest, ALongNameIsShortenedAndWholeInTheTooltip) {
    SampleTrack track = SmallLibrary().front();
    track.Title = QString(300, QLatin1Char('x'));
    Start({track});
    ClickRow("lstSongs", 1);
    const QString whole = Q("Blue River / Deep / ") + track.Title;
    EXPECT_TRUE(controls.lblFullName.Caption().endsWith(Q("...")));
    EXPECT_EQ(controls.lblFullName.ToolTip(), whole);
    Top().resize(3000, 700);
    QCoreApplication::processEvents();
    EXPECT_EQ(controls.lblFullName.Caption(), whole);
    EXPECT_EQ(controls.lblFullName.ToolTip(), QString());
}

TEST_F(WindowRequest, TheFocusFollowsTheMouseAmongTheListsOnly) {
    Start(SmallLibrary());
    QWidget& songs = Widget("lstSongs");
    QtInput::MoveTo(songs, songs.rect().center());
    EXPECT_TRUE(songs.hasFocus());
    ClickOn("txtSearch");
    QtInput::MoveTo(songs, songs.rect().center() + QPoint(5, 5));
    EXPECT_TRUE(Widget("txtSearch").hasFocus());
}

TEST_F(WindowRequest, AnIpodPluggedInLaterLoadsByItself) {
    program.Form_Load();
    ASSERT_EQ(controls.lblMessage.Caption(), Q("No compatible iPod detected."));
    ASSERT_TRUE(controls.timScan.Enabled());
    drives.Mounted.clear();
    files.AddDrive(Q("E:"));
    Start(SmallLibrary());
    EXPECT_EQ(controls.lstArtists.ListCount(), 3);
}
