// A load from a device that is slow, or does not answer at all, on the real window.

#include "platform/ThreadWorker.h"
#include "tests/program/RealWindow.h"

#include <QCheckBox>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

/// A device whose reads hang until it answers.
class SlowLoad : public testing::Test {
protected:
    SlowLoad() {
        m_window.PlugIn();
        m_window.files.BeforeCall = [this](const RecordedFiles::RecordedCall& call) {
            while (call.Call == FileCall::Read && !m_answers) {
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            }
        };
    }
    ~SlowLoad() override {
        m_answers = true;
        EXPECT_TRUE(QTest::qWaitFor([this] { return m_window.files.OpenFiles == 0; }));
    }

    /// Starts the program; `meanwhile` is done while its load hangs.
    void Start(const std::function<void()>& meanwhile) {
        QTimer::singleShot(50, &m_window.Top(), meanwhile);
        m_window.program.Form_Load();
    }

    ThreadWorker m_worker;
    RealWindow m_window{&m_worker};
    std::atomic<bool> m_answers = false;
};

} // namespace

TEST_F(SlowLoad, TheWindowAnswersTheDesktopAndWhatTheUserDoesIsLost) {
    auto& option = m_window.Widget<QCheckBox>("chkArtist");
    bool before = false;
    const double listWidth = m_window.controls.lstSongs.Width();

    Start([&] {
        EXPECT_EQ(m_window.controls.lblMessage.Caption(), u"Please wait..."_s);
        before = option.isChecked();
        QTest::mouseClick(&option, Qt::LeftButton);
        QTest::keyClick(m_window.Top().windowHandle(), Qt::Key_A);
        m_window.controls.cmdCopy.Click = [] { ADD_FAILURE() << "a handler ran"; };
        QMetaObject::invokeMethod(&m_window.Widget("cmdCopy"), "clicked");
        m_window.Top().resize(m_window.Top().width() + 200, m_window.Top().height());
        QTimer::singleShot(50, &m_window.Top(), [this] { m_answers = true; });
    });

    EXPECT_EQ(option.isChecked(), before);
    EXPECT_EQ(m_window.controls.txtSearch.Text(), QString());
    EXPECT_GT(m_window.controls.lstSongs.Width(), listWidth);
    EXPECT_EQ(m_window.controls.lstArtists.ListCount(), 3);
    m_window.ClickOn("chkArtist");
    EXPECT_NE(option.isChecked(), before);
}

TEST_F(SlowLoad, ClosingTheWindowEndsALoadThatHangs) {
    Start([this] {
        m_window.Top().close();
        EXPECT_TRUE(m_window.Top().isVisible()); // the load ends first
    });

    EXPECT_FALSE(m_answers);
    QCoreApplication::processEvents();
    EXPECT_FALSE(m_window.Top().isVisible());
    EXPECT_FALSE(m_window.store.Values.isEmpty());
    EXPECT_TRUE(m_window.messages.Shown.empty());
}
