// What the application does about a handler that fails unexpectedly (the user is told, and the
// program goes on), and when the desktop ends the session and the window refuses to close.

#include "app/Application.h"
#include "platform/qt/QtMessages.h"
#include "tests/program/RealWindow.h"

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

class ApplicationTest : public testing::Test, protected RealWindow {
protected:
    ApplicationTest() {
        std::swap(Program().MessageBoxes, m_told);
        Start();
        TickRow("lstArtists", 0);
    }
    ~ApplicationTest() override { std::swap(Program().MessageBoxes, m_told); }

    /// Presses the copy button, with the job failing in a way that no rule knows.
    QStringList CopyAndFail() {
        files.BeforeCall = [](const RecordedFiles::RecordedCall& recorded) {
            if (recorded.Call == FileCall::FileExists) {
                throw std::out_of_range("a programming error");
            }
        };
        const QStringList told = Copy();
        files.BeforeCall = {};
        return told;
    }

private:
    static Application& Program() { return static_cast<Application&>(*qApp); }

    Messages* m_told = &messages;
};

} // namespace

TEST_F(ApplicationTest, AFailureIsReportedAndTheNextJobCopies) {
    EXPECT_EQ(CopyAndFail(), QStringList({u"Error 9: Subscript out of range"_s}));
    EXPECT_EQ(controls.cmdCopy.Caption(), u"&Copy to destination"_s);
    EXPECT_EQ(Copy(), QStringList({u"Copy completed!"_s}));
    EXPECT_EQ(Copied().size(), 6);
}

TEST_F(ApplicationTest, AFailureThatCannotBeShownStillEndsTheHandler) {
    messages.WhileShown = [](const ShownMessage&) { throw std::bad_alloc(); };
    CopyAndFail();
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
