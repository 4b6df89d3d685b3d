// A handler of the real window fails unexpectedly: the user is told, and the program goes on. So it
// does when the desktop ends the session and the window refuses to close.

#include "app/Application.h"
#include "platform/qt/QtMessages.h"
#include "platform/qt/QtTimer.h"
#include "tests/program/RealWindow.h"

#include <QThread>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

class FailingWindow : public testing::Test, protected RealWindow {
protected:
    FailingWindow() {
        std::swap(Program().MessageBoxes, m_told);
        Start();
        TickRow("lstArtists", 0);
    }
    ~FailingWindow() override { std::swap(Program().MessageBoxes, m_told); }

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

TEST_F(FailingWindow, AJobThatFailsIsReportedAndTheNextOneCopies) {
    Fail(FileCall::FileExists, std::out_of_range("a programming error"));
    EXPECT_EQ(Copy(), QStringList({u"Error 9: Subscript out of range"_s}));
    EXPECT_EQ(controls.cmdCopy.Caption(), u"&Copy to destination"_s);
    EXPECT_TRUE(controls.lstArtists.Enabled());
    EXPECT_EQ(Copy(), QStringList({u"Copy completed!"_s}));
    EXPECT_EQ(Copied().size(), 6);
}

TEST_F(FailingWindow, AFailureInAYieldDoesNotReachTheJob) {
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
    EXPECT_EQ(Copy(), QStringList({u"Error 7: Out of memory"_s, u"Copy completed!"_s}));
    EXPECT_EQ(Copied().size(), 6);
}

TEST_F(FailingWindow, ADeviceThatFailsToLoadIsLoadedWhenItIsChosenAgain) {
    files.AddFile(u"F:\\iPod_Control\\iTunes\\iTunesDB"_s,
                  files.Bytes(u"E:\\iPod_Control\\iTunes\\iTunesDB"_s));
    drives.Mounted.push_back({u'F', u"OTHER"_s});
    controls.Combo1.DropDown();
    Fail(FileCall::OpenForReading, std::logic_error("a programming error"));
    Widget("Combo1").setFocus();
    Key(Qt::Key_Down);
    EXPECT_EQ(messages.Texts(), QStringList({u"Error 5: Invalid procedure call or argument"_s}));
    EXPECT_EQ(controls.lstArtists.ListCount(), 0);
    EXPECT_FALSE(controls.timScan.Enabled());
    controls.Combo1.SetText(u"(F:) OTHER"_s);
    EXPECT_EQ(controls.lstArtists.ListCount(), 3);
}

TEST_F(FailingWindow, AFailureThatCannotBeShownStillEndsTheHandler) {
    messages.WhileShown = [](const ShownMessage&) { throw std::bad_alloc(); };
    Fail(FileCall::FileExists, std::out_of_range("a programming error"));
    Copy();
    messages.WhileShown = {};
    EXPECT_EQ(Copy(), QStringList({u"Copy completed!"_s}));
}

TEST(ASessionsEnd, WaitsForNoAnswerToAMessage) {
    QtWindow window(nullptr, u"Form1"_s);
    QtMessages messages(window.Widget());
    const auto ask = [&messages](const std::function<void(QWidget*)>& act) {
        QTimer::singleShot(0, qApp, [act] { act(QApplication::activeModalWidget()); });
        return messages.Show({}, {}, MessageButtons::YesNo, MessageIcon::Question);
    };
    int closes = 0;
    window.QueryUnload = [&](bool& cancel, UnloadMode) {
        ++closes;
        const MessageAnswer answer = ask([](QWidget* box) {
            if (box != nullptr) {
                ADD_FAILURE() << "a message waits";
                box->close();
            }
        });
        EXPECT_EQ(answer, MessageAnswer::No);
        cancel = true; // the tests go on
    };
    window.Show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window.Widget()));
    QEvent quit(QEvent::Quit);
    QCoreApplication::sendEvent(qApp, &quit);
    EXPECT_EQ(closes, 1);
    QCoreApplication::processEvents();

    // It was called off; the next message is for the user again.
    EXPECT_EQ(ask([](QWidget* box) { QTest::keyClick(box, Qt::Key_Return); }), MessageAnswer::Yes);
}
