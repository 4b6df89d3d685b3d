#include "platform/qt/QtEventLoop.h"
#include "platform/qt/QtLabelControl.h"
#include "platform/qt/QtMessages.h"
#include "platform/qt/QtPopupMenu.h"
#include "platform/qt/QtShell.h"
#include "platform/qt/QtWindow.h"
#include "platform/qt/ShownText.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>

namespace {

TEST(QtEventLoop, TheFirstYieldHandlesWhatIsPending) {
    QtEventLoop events;
    int handled = 0;
    QTimer::singleShot(0, [&] { ++handled; });
    events.Yield();
    EXPECT_EQ(handled, 1);
}

TEST(QtEventLoop, AYieldRightAfterAnotherDoesNothingAndALaterOneDoes) {
    QtEventLoop events;
    QElapsedTimer clock;
    clock.start();
    events.Yield();
    int handled = 0;
    QTimer::singleShot(0, [&] { ++handled; });
    events.Yield();
    const int handledAtOnce = handled;
    if (clock.elapsed() < 10) {
        EXPECT_EQ(handledAtOnce, 0);
    }
    QTest::qSleep(15);
    events.Yield();
    EXPECT_EQ(handled, 1);
}

TEST(QtEventLoop, WorkThatBeginsIsLeftAloneForTenMilliseconds) {
    QtEventLoop events;
    QElapsedTimer clock;
    clock.start();
    events.BeginWork();
    int handled = 0;
    QTimer::singleShot(0, [&] { ++handled; });
    events.Yield();
    const int handledAtOnce = handled;
    if (clock.elapsed() < 10) {
        EXPECT_EQ(handledAtOnce, 0);
    }
    QTest::qSleep(15);
    events.Yield();
    EXPECT_EQ(handled, 1);
}

TEST(QtEventLoop, AMillionYieldsCostNextToNothing) {
    QtEventLoop events;
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < 1000000; ++i) {
        events.Yield();
    }
    EXPECT_LT(clock.elapsed(), 3000);
}

/// The folder picker, with a user who acts on it.
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
        });
        return shell.BrowseForFolder(0, QStringLiteral("Select a destination folder:"), start);
    }
};

TEST_F(FolderPicker, BeginsInTheFolderThatWasGivenAndShowsThePrompt) {
    Pick(folder.path(), [&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory().canonicalPath(), QDir(folder.path()).canonicalPath());
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Select a destination folder:"));
        EXPECT_EQ(dialog.fileMode(), QFileDialog::Directory);
        dialog.reject();
    });
}

TEST_F(FolderPicker, ACancelledPickerGivesNothing) {
    EXPECT_EQ(Pick(folder.path(), [](QFileDialog& dialog) { dialog.reject(); }), QString());
}

TEST_F(FolderPicker, TheChosenFolderIsGiven) {
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("My Music")));
    const QString music = folder.filePath(QStringLiteral("My Music"));
    EXPECT_EQ(Pick(folder.path(),
                   [&](QFileDialog& dialog) {
                       dialog.selectFile(music);
                       QMetaObject::invokeMethod(&dialog, "accept");
                   }),
              music);
}

TEST_F(FolderPicker, AFolderThatIsMissingOrEmptyPreselectsNothing) {
    for (const QString& start :
         {QString(), folder.filePath(QStringLiteral("gone")), QStringLiteral("E:\\Music")}) {
        Pick(start, [](QFileDialog& dialog) {
            EXPECT_EQ(dialog.directory().canonicalPath(), QDir::home().canonicalPath());
            dialog.reject();
        });
    }
}

TEST_F(FolderPicker, TheDocumentsFolderIsAnAbsolutePath) {
    EXPECT_TRUE(QDir::isAbsolutePath(shell.DocumentsFolder()));
}

TEST(QtPopupMenu, OpensWithItsEntryAndTellsTheChoice) {
    QWidget window;
    QtLabelControl label(&window, QStringLiteral("lblSearch"));
    label.Move(150, 300, 3000, 3000);
    window.show();
    QtPopupMenu menu(&window, QStringLiteral("mnuPopup"), QStringLiteral("mnuPreview"),
                     QStringLiteral("Preview"));
    int clicks = 0;
    menu.Entry.Click = [&] { ++clicks; };
    menu.PopUp(label, 600, 750);
    auto* shown = window.findChild<QMenu*>(QStringLiteral("mnuPopup"));
    ASSERT_NE(shown, nullptr);
    EXPECT_TRUE(shown->isVisible());
    EXPECT_EQ(shown->pos(), window.mapToGlobal(QPoint(50, 70))); // a pixel is 15 twips
    ASSERT_EQ(shown->actions().size(), 1);
    EXPECT_EQ(shown->actions().constFirst()->text(), QStringLiteral("Preview"));
    EXPECT_EQ(shown->actions().constFirst()->objectName(), QStringLiteral("mnuPreview"));
    EXPECT_EQ(clicks, 0);
    QTest::keyClick(shown, Qt::Key_Return); // the one entry is the chosen one
    EXPECT_EQ(clicks, 1);
    EXPECT_FALSE(shown->isVisible());
}

TEST(TheHourglass, IsLiftedWhileTheUserIsAskedAndBackAfterwards) {
    QtWindow window(nullptr, QStringLiteral("Form1"));
    QtWindow prompt(window.Widget(), QStringLiteral("frmOverwrite"), Qt::Dialog);
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

TEST(ShownText, AccessKeysGoAndDoubledAmpersandsBecomeOne) {
    EXPECT_EQ(ShownText::WithoutAccessKeys(QStringLiteral("&Search")), QStringLiteral("Search"));
    EXPECT_EQ(ShownText::WithoutAccessKeys(QStringLiteral("Simon && Garfunkel")),
              QStringLiteral("Simon & Garfunkel"));
    EXPECT_EQ(ShownText::WithoutAccessKeys(QStringLiteral("a &&&b&")), QStringLiteral("a &b"));
    EXPECT_EQ(ShownText::WithoutAccessKeys(QString()), QString());
}

TEST(ShownText, OneLineHasNoBreaksAndNoEndlessNames) {
    EXPECT_EQ(ShownText::OneLine(QStringLiteral("a\nb\tc\r\u2028d")), QStringLiteral("a b c  d"));
    EXPECT_EQ(ShownText::OneLine(QString(1000, QLatin1Char('x'))), QString(1000, QLatin1Char('x')));
    EXPECT_EQ(ShownText::OneLine(QString(1001, QLatin1Char('x'))),
              QString(1000, QLatin1Char('x')) + QStringLiteral("..."));
}

TEST(ShownText, ACutTakesNoHalfCharacters) {
    const QString note = QString::fromUtf8("\xF0\x9F\x8E\xB5");
    EXPECT_EQ(ShownText::OneLine(QString(999, QLatin1Char('x')) + note),
              QString(999, QLatin1Char('x')) + QStringLiteral("..."));
}

TEST(ShownText, AToolTipShowsMarkupAsItIs) {
    EXPECT_EQ(ShownText::ToolTip(QStringLiteral("<b>A & B</b>")),
              QStringLiteral("<qt>&lt;b&gt;A &amp; B&lt;/b&gt;</qt>"));
    EXPECT_EQ(ShownText::ToolTip(QString()), QString());
}

TEST(ShownText, ALongRunOfAMessageCanBeBrokenAndASentenceIsLeftAlone) {
    const QString run(16, QLatin1Char('x'));
    EXPECT_EQ(ShownText::Message(run + QStringLiteral("y")),
              run + QChar(0x200B) + QStringLiteral("y"));
    EXPECT_EQ(ShownText::Message(run), run);
    EXPECT_EQ(ShownText::Message(QStringLiteral("Copy completed!\r\nBye\rnow")),
              QStringLiteral("Copy completed!\nBye\nnow"));
}

} // namespace
