// Folders on a disk that hangs, which the window must not wait for.

#include "platform/qt/QtShell.h"
#include "platform/qt/QtTextControl.h"
#include "tests/fakes/Text.h"
#include "tests/support/ServedDisk.h"
#include "tests/window/QtInput.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QListWidget>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

/// A disk with the folders "A/Music" and "B".
class HangingFolder : public testing::Test {
protected:
    QTemporaryDir folder;
    SlowDisk disk{folder.path()};

    void SetUp() override {
        if (!disk.IsMounted()) {
            GTEST_SKIP() << disk.Impossible().toStdString();
        }
        ASSERT_TRUE(QDir(disk.Content()).mkpath(u"A/Music"_s) &&
                    QDir(disk.Content()).mkdir(u"B"_s));
    }
};

} // namespace

TEST_F(HangingFolder, IsOfferedWhenTheDiskAnswersUnlessTheUserWentOn) {
    const QTemporaryDir other;
    ASSERT_TRUE(QDir(other.path()).mkdir(u"Pictures"_s));
    QWidget window;
    QtTextControl box(&window, u"box"_s);
    box.Move(150, 150, 4500, 450);
    box.CompletePaths();
    QtInput::ShowActive(window);
    box.SetFocus();
    const auto offered = [&window] {
        const auto* list = window.findChild<QListWidget*>(u"FolderList"_s);
        return list != nullptr && list->isVisible() ? list->item(0)->text() : QString();
    };
    const auto type = [&](const QString& path) {
        box.SetText(path);
        QElapsedTimer time;
        time.start();
        QtInput::Type(window, u"/"_s);
        EXPECT_LT(time.elapsed(), 500);
    };

    disk.Be("stall=find");
    type(folder.filePath(u"A"_s));
    EXPECT_EQ(offered(), QString());
    disk.Be("");
    EXPECT_TRUE(QTest::qWaitFor([&] { return offered() == u"Music"_s; }));

    disk.Be("stall=find");
    type(folder.filePath(u"B"_s));
    type(other.path());
    EXPECT_EQ(offered(), u"Pictures"_s);
    disk.Be("");
    QTest::qWait(200);
    EXPECT_EQ(offered(), u"Pictures"_s);
}

TEST_F(HangingFolder, IsNotWaitedForByTheFolderPicker) {
    disk.Be("stall=find");
    QTimer::singleShot(0, [] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->directory().canonicalPath(), QDir::home().canonicalPath());
        dialog->reject();
    });
    QElapsedTimer time;
    time.start();
    QtShell().BrowseForFolder(0, {}, folder.filePath(u"A"_s));
    EXPECT_LT(time.elapsed(), 1000);
    disk.Be("");
}
