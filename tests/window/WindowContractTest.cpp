#include "platform/qt/QtWindow.h"
#include "tests/fakes/FakeWindow.h"
#include "tests/window/QtInput.h"

using namespace Qt::StringLiterals;

namespace {

/// What the fake window and the real one do alike. Both log who asks to close them.
class WindowContract : public testing::TestWithParam<bool> {
protected:
    using Log = std::vector<std::string>;

    FakeWindow fake;
    QtWindow real{nullptr, u"Form1"_s};
    const bool isReal = GetParam();
    Window& window = isReal ? static_cast<Window&>(real) : fake;
    int resizes = 0;
    bool refuses = false;
    Log log;

    WindowContract() {
        window.SetSize(9000, 6000);
        window.Resize = [this] { ++resizes; };
        window.QueryUnload = [this](bool& cancel, UnloadMode mode) {
            log.push_back(mode == UnloadMode::User ? "user" : "program");
            cancel = refuses;
        };
    }

    bool IsVisible() const { return isReal ? real.Widget()->isVisible() : fake.Visible; }
    void UserCloses() {
        if (isReal) {
            real.Widget()->close();
        } else {
            fake.UserClose();
        }
    }
    /// Shows the window modally while the user, or the program, does this.
    void ShowModal(const std::function<void()>& act) {
        fake.ModalScript = act;
        if (isReal) {
            QTimer::singleShot(0, act);
        }
        window.ShowModal();
        log.emplace_back("returned");
    }
};

INSTANTIATE_TEST_SUITE_P(Windows, WindowContract, testing::Bool(),
                         [](const auto& real) { return std::string(real.param ? "Qt" : "Fake"); });

TEST_P(WindowContract, ResizeIsRaisedBeforeTheSetterReturnsForAChangeOfSizeOrState) {
    for (const bool shown : {false, true}) {
        resizes = 0;
        window.SetSize(6000, 4500);
        EXPECT_EQ(resizes, 1);
        window.SetSize(6000, 4500);
        EXPECT_EQ(resizes, 1);
        window.SetSize(6000, 6000);
        window.SetSize(9000, 6000);
        EXPECT_EQ(resizes, 3);
        if (!shown) {
            window.Show();
        }
    }
    resizes = 0;
    window.MoveTo(150, 300);
    window.SetCaption(u"Songlift"_s);
    EXPECT_EQ(window.Caption(), u"Songlift"_s);
    EXPECT_EQ(resizes, 0);
    window.SetState(WindowState::Maximized);
    EXPECT_GE(resizes, 1);
}

TEST_P(WindowContract, ARestoredWindowHasItsNormalSizeAndPlaceAgain) {
    window.Show();
    window.MoveTo(150, 300);
    window.SetState(WindowState::Maximized);
    QCoreApplication::processEvents();
    EXPECT_EQ(window.State(), WindowState::Maximized);
    EXPECT_GT(window.Width(), 9000);
    EXPECT_EQ(window.Left(), 0);
    window.SetState(WindowState::Normal);
    QCoreApplication::processEvents();
    EXPECT_EQ(window.Width(), 9000);
    EXPECT_EQ(window.Height(), 6000);
    EXPECT_EQ(window.Left(), 150);
    EXPECT_EQ(window.Top(), 300);
}

TEST_P(WindowContract, AHandlerLearnsWhoClosesItAndMayRefuse) {
    window.Unload(); // not shown yet
    EXPECT_EQ(log, Log({"program"}));
    window.Show();
    refuses = true;
    UserCloses();
    EXPECT_TRUE(IsVisible());
    window.Unload();
    EXPECT_TRUE(IsVisible());
    refuses = false;
    UserCloses();
    EXPECT_FALSE(IsVisible());
    EXPECT_EQ(log, Log({"program", "user", "program", "user"}));
    window.Show();
    EXPECT_TRUE(IsVisible());
}

TEST_P(WindowContract, ShowModalWaitsUntilTheWindowIsClosed) {
    ShowModal([&] { window.Unload(); });
    EXPECT_EQ(log, Log({"program", "returned"}));
    log.clear();
    refuses = true;
    ShowModal([&] {
        UserCloses();
        refuses = false;
        UserCloses();
    });
    EXPECT_EQ(log, Log({"user", "user", "returned"}));
}

} // namespace
