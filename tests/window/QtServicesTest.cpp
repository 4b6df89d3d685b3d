#include "platform/qt/QtEventLoop.h"
#include "platform/qt/QtLabelControl.h"
#include "platform/qt/QtMessages.h"
#include "platform/qt/QtPopupMenu.h"
#include "platform/qt/QtShell.h"
#include "platform/qt/QtWindow.h"
#include "platform/qt/ShownText.h"
#include "tests/window/QtInput.h"

#include <QDir>
#include <QFileDialog>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

TEST(QtEventLoop, YieldsHandlePendingEventsEveryTenMillisecondsAndOtherwiseCostNothing) {
    for (const bool afterYield : {false, true}) {
        QtEventLoop events;
        int handled = 0;
        QElapsedTimer clock;
        clock.start();
        if (afterYield) {
            QTimer::singleShot(0, [&] { ++handled; });
            events.Yield();
            EXPECT_EQ(handled, 1);
            handled = 0;
        } else {
            events.BeginWork();
        }
        QTimer::singleShot(0, [&] { ++handled; });
        events.Yield();
        const int handledAtOnce = handled;
        if (clock.elapsed() < 10) {
            EXPECT_EQ(handledAtOnce, 0);
        }
        QTest::qSleep(15);
        events.Yield();
        EXPECT_EQ(handled, 1);
        clock.restart();
        for (int i = 0; i < 1000000; ++i) {
            events.Yield();
        }
        EXPECT_LT(clock.elapsed(), 3000);
    }
}

/// The folder picker, with a user who acts on it and closes it.
class FolderPicker : public testing::Test {
protected:
    QTemporaryDir folder;
    QtShell shell;

    /// The dialog keeps its looks in the user's settings, which are not the tests' to change.
    static void SetUpTestSuite() {
        static const QTemporaryDir settings;
        qputenv("XDG_CONFIG_HOME", settings.path().toUtf8());
    }

    QString Pick(const QString& start, const std::function<void(QFileDialog&)>& act) {
        QTimer::singleShot(0, [act] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            act(*dialog);
            if (dialog->isVisible()) {
                dialog->reject();
            }
        });
        return shell.BrowseForFolder(0, u"Select a destination folder:"_s, start);
    }
};

TEST_F(FolderPicker, BeginsInTheGivenFolderAndShowsThePromptAndReturnsNothingWhenCancelled) {
    const QString picked = Pick(folder.path(), [&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory().canonicalPath(), QDir(folder.path()).canonicalPath());
        EXPECT_EQ(dialog.windowTitle(), u"Select a destination folder:"_s);
        EXPECT_EQ(dialog.fileMode(), QFileDialog::Directory);
    });
    EXPECT_EQ(picked, QString());
}

TEST_F(FolderPicker, TheChosenFolderIsReturned) {
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"My Music"_s));
    const QString music = folder.filePath(u"My Music"_s);
    const QString picked = Pick(folder.path(), [&](QFileDialog& dialog) {
        dialog.selectFile(music);
        QMetaObject::invokeMethod(&dialog, "accept");
    });
    EXPECT_EQ(picked, music);
    EXPECT_TRUE(QDir::isAbsolutePath(shell.DocumentsFolder()));
}

TEST_F(FolderPicker, AFolderThatIsMissingOrEmptyPreselectsNothing) {
    for (const QString& start : {QString(), folder.filePath(u"gone"_s), u"E:\\Music"_s}) {
        Pick(start, [](QFileDialog& dialog) {
            EXPECT_EQ(dialog.directory().canonicalPath(), QDir::home().canonicalPath());
        });
    }
}

TEST(QtPopupMenu, OpensWithItsEntryAtTheGivenPlaceAndReportsTheChoice) {
    QWidget window;
    QtLabelControl label(&window, u"lblSearch"_s);
    label.Move(150, 300, 3000, 3000);
    window.show();
    QtPopupMenu menu(&window, u"mnuPopup"_s, u"mnuPreview"_s, u"Preview"_s);
    int clicks = 0;
    menu.Entry.Click = [&] { ++clicks; };
    menu.PopUp(label, 600, 750);
    auto* shown = window.findChild<QMenu*>(u"mnuPopup"_s);
    ASSERT_NE(shown, nullptr);
    EXPECT_EQ(shown->pos(), window.mapToGlobal(QPoint(50, 70))); // a pixel is 15 twips
    EXPECT_EQ(shown->actions().value(0)->text(), u"Preview"_s);
    EXPECT_EQ(clicks, 0);
    QTest::keyClick(shown, Qt::Key_Return); // the one entry is the chosen one
    EXPECT_EQ(clicks, 1);
    EXPECT_FALSE(shown->isVisible());
}

TEST(TheHourglass, IsHiddenWhileTheUserIsAskedAndShownAgainAfterwards) {
    QtWindow window(nullptr, u"Form1"_s);
    QtWindow prompt(window.Widget(), u"frmOverwrite"_s, Qt::Dialog);
    QtMessages messages(window.Widget());
    QtShell shell;
    const std::function<void()> questions[] = {
        [&] { messages.Show({}, {}, MessageButtons::OK, MessageIcon::Information); },
        [&] { shell.BrowseForFolder(0, {}, {}); }, [&] { prompt.ShowModal(); }};
    for (const auto& ask : questions) {
        window.SetMousePointer(MousePointer::Hourglass);
        QTimer::singleShot(0, [] {
            EXPECT_EQ(QApplication::overrideCursor(), nullptr);
            QApplication::activeModalWidget()->close();
        });
        ask();
        EXPECT_NE(QApplication::overrideCursor(), nullptr);
        window.SetMousePointer(MousePointer::Default);
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    }
}

TEST(ShownText, AccessKeysAreRemovedAndDoubledAmpersandsBecomeOne) {
    EXPECT_EQ(ShownText::WithoutAccessKeys(u"&Search"_s), u"Search"_s);
    EXPECT_EQ(ShownText::WithoutAccessKeys(u"Simon && Garfunkel"_s), u"Simon & Garfunkel"_s);
    EXPECT_EQ(ShownText::WithoutAccessKeys(u"a &&&b&"_s), u"a &b"_s);
    EXPECT_EQ(ShownText::WithoutAccessKeys(QString()), QString());
}

TEST(ShownText, OneLineHasNoBreaksAndNoEndlessNamesAndIsNotCutInsideACharacter) {
    const QString x999 = u"x"_s.repeated(999);
    EXPECT_EQ(ShownText::OneLine(u"a\nb\tc\r\u2028d"_s), u"a b c  d"_s);
    EXPECT_EQ(ShownText::OneLine(x999 + u'x'), x999 + u'x');
    EXPECT_EQ(ShownText::OneLine(x999 + u"xx"_s), x999 + u"x..."_s);
    EXPECT_EQ(ShownText::OneLine(x999 + u"\U0001F3B5"_s), x999 + u"..."_s);
}

TEST(ShownText, AToolTipShowsMarkupAsItIs) {
    EXPECT_EQ(ShownText::ToolTip(u"<b>A & B</b>"_s), u"<qt>&lt;b&gt;A &amp; B&lt;/b&gt;</qt>"_s);
    EXPECT_EQ(ShownText::ToolTip(QString()), QString());
}

TEST(ShownText, ALongRunOfAMessageCanBeBrokenAndASentenceIsLeftAlone) {
    const QString run = u"x"_s.repeated(16);
    EXPECT_EQ(ShownText::Message(run), run);
    EXPECT_EQ(ShownText::Message(run + u'y'), run + u"\u200By"_s);
    EXPECT_EQ(ShownText::Message(run + run + u'y'), run + u'\u200B' + run + u"\u200By"_s);
    EXPECT_EQ(ShownText::Message(run + u"\u0301y"_s), run + u"\u0301\u200By"_s);
    EXPECT_EQ(ShownText::Message(u"Copy completed!\r\nBye\rnow"_s), u"Copy completed!\nBye\nnow"_s);
}

} // namespace
