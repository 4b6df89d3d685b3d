// A handler of the real window fails unexpectedly: the user is told, and the program goes on.

#include "app/Application.h"
#include "platform/qt/QtTimer.h"
#include "tests/app/ProgramFixture.h"
#include "tests/program/RealWindow.h"

#include <QThread>

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

class FailingWindow : public testing::Test, protected RealWindow {
protected:
    FailingWindow() { std::swap(Program().MessageBoxes, m_told); }
    ~FailingWindow() override { std::swap(Program().MessageBoxes, m_told); }

    static QString Q(const char* text) { return QString::fromUtf8(text); }

    /// Lets the next call of that kind fail in a way that no rule knows.
    template <class Exception>
    void Fail(FileCall call, const Exception& exception) {
        files.BeforeCall = [this, call, exception](const FakeFileSystem::RecordedCall& recorded) {
            if (recorded.Call == call) {
                const Exception thrown = exception;
                files.BeforeCall = {}; // ends this function's own captures
                throw thrown;
            }
        };
    }

private:
    static Application& Program() { return static_cast<Application&>(*qApp); }

    Messages* m_told = &messages;
};

} // namespace

TEST_F(FailingWindow, AJobThatFailsIsToldAndTheNextOneCopies) {
    Start(SmallLibrary());
    TickRow("lstArtists", 0);
    Fail(FileCall::FileExists, std::out_of_range("a programming error"));
    ClickOn("cmdCopy");
    EXPECT_EQ(messages.Texts(), QStringList({Q("Error 9: Subscript out of range")}));
    EXPECT_EQ(controls.cmdCopy.Caption(), Q("&Copy to destination"));
    EXPECT_TRUE(controls.lstArtists.Enabled());
    messages.Shown.clear();
    ClickOn("cmdCopy");
    EXPECT_EQ(messages.Texts(), QStringList({Q("Copy completed!")}));
    EXPECT_EQ(files.FilesBelow(Q("D:\\Music")).size(), 6);
}

TEST_F(FailingWindow, AFailureInAYieldDoesNotReachTheJob) {
    Start(SmallLibrary());
    TickRow("lstArtists", 0);
    QtTimer soon(0);
    soon.Timer = [&soon] {
        soon.SetEnabled(false);
        throw std::bad_alloc();
    };
    int copies = 0;
    files.BeforeCall = [&](const FakeFileSystem::RecordedCall& recorded) {
        if (recorded.Call == FileCall::CopyFile && ++copies == 2) {
            soon.SetEnabled(true);
            QThread::msleep(12); // until the job's yield asks the system again
        }
    };
    ClickOn("cmdCopy");
    EXPECT_EQ(messages.Texts(), QStringList({Q("Error 7: Out of memory"), Q("Copy completed!")}));
    EXPECT_EQ(files.FilesBelow(Q("D:\\Music")).size(), 6);
}

TEST_F(FailingWindow, ADeviceThatFailsToLoadIsLoadedWhenItIsChosenAgain) {
    Start(SmallLibrary());
    files.AddFile(Q("F:\\iPod_Control\\iTunes\\iTunesDB"),
                  files.Bytes(Q("E:\\iPod_Control\\iTunes\\iTunesDB")));
    drives.Mounted.push_back({QLatin1Char('F'), Q("OTHER")});
    controls.Combo1.DropDown();
    Fail(FileCall::OpenForReading, std::logic_error("a programming error"));
    Widget("Combo1").setFocus();
    Key(Qt::Key_Down);
    EXPECT_EQ(messages.Texts(), QStringList({Q("Error 5: Invalid procedure call or argument")}));
    EXPECT_EQ(controls.lstArtists.ListCount(), 0);
    EXPECT_EQ(controls.timScan.Enabled(), false);
    controls.Combo1.SetText(Q("(F:) OTHER"));
    EXPECT_EQ(controls.lstArtists.ListCount(), 3);
}

TEST_F(FailingWindow, AFailureThatCannotBeShownEndsTheHandlerAllTheSame) {
    messages.WhileShown = [](const ShownMessage&) { throw std::bad_alloc(); };
    Start(SmallLibrary());
    TickRow("lstArtists", 0);
    Fail(FileCall::FileExists, std::out_of_range("a programming error"));
    ClickOn("cmdCopy");
    messages.WhileShown = {};
    ClickOn("cmdCopy");
    EXPECT_EQ(messages.Texts().last(), Q("Copy completed!"));
}
