// Looking for devices while one of them does not answer.

#include "app/ControlGroups.h"
#include "platform/ThreadWorker.h"
#include "tests/library/DevicesWindow.h"

#include <atomic>
#include <chrono>
#include <thread>

using namespace Qt::StringLiterals;

/// The iPods E and F. E does not answer until Answers is set.
class DeviceLooks : public DevicesWindow {
protected:
    DeviceLooks() {
        AttachIPod('E', u"TIRED"_s, {u"one"_s});
        AttachIPod('F', u"OTHER"_s, {u"two"_s});
        Window.Combo1.DropDown = [this] { Slow.Combo1_DropDown(); };
        Window.Combo1.Click = [this] { Slow.Combo1_Click(); };
        Files.BeforeCall = [this](const RecordedFiles::RecordedCall& call) {
            if (call.Path.startsWith(u'E')) {
                ++Asked;
                while (!Answers) {
                    std::this_thread::sleep_for(std::chrono::milliseconds(1));
                }
                ++Answered;
            }
        };
    }

    /// The files must outlive every question.
    ~DeviceLooks() override {
        Answers = true;
        while (Answered < Asked) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }

    QStringList Listed() {
        Window.Combo1.UserDropDown();
        return Window.Combo1.Entries();
    }
    /// Answers, and waits until E is listed again.
    void Answer() {
        Answers = true;
        for (int looks = 0; looks < 5000 && Listed().size() < 2; ++looks) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        EXPECT_EQ(Listed(), (QStringList{u"(E:) TIRED"_s, u"(F:) OTHER"_s}));
    }

    std::atomic<bool> Answers = false;
    std::atomic<int> Asked = 0;
    std::atomic<int> Answered = 0;
    ThreadWorker Worker;
    DeviceSelection Slow{Music,
                         Drives,
                         {Files, Worker, Events, Boxes},
                         Window.WindowManager,
                         DeviceControlsOf(Window.Controls)};
};

TEST_F(DeviceLooks, ADriveThatDoesNotAnswerIsSkippedAndAskedAgainOnceItHasAnswered) {
    EXPECT_EQ(Listed(), QStringList{u"(F:) OTHER"_s});
    EXPECT_EQ(Listed(), QStringList{u"(F:) OTHER"_s});
    EXPECT_EQ(Asked, 1);
    Answer();
}

TEST_F(DeviceLooks, ADriveWhoseLibraryIsShownStaysWhileItsDiskStarts) {
    Answers = true;
    EXPECT_EQ(Listed().size(), 2);
    Window.Combo1.UserChoose(0);
    Answers = false;
    EXPECT_EQ(Listed(), (QStringList{u"(E:) TIRED"_s, u"(F:) OTHER"_s}));
    EXPECT_EQ(Slow.LoadedDevice, u"(E:) TIRED"_s);
    EXPECT_EQ(Music.Library.TrackCount, 1);
}

TEST_F(DeviceLooks, AChosenDriveThatDoesNotAnswerIsReportedLostUnlessTheWindowIsClosed) {
    Answers = true;
    EXPECT_EQ(Listed().size(), 2);
    Answers = false;
    Events.IsClosed = true;
    Window.Combo1.UserChoose(0);
    EXPECT_EQ(Boxes.Texts(), QStringList());
    Events.IsClosed = false;
    Answer();

    Answers = false;
    Window.Combo1.UserChoose(0);
    ExpectErrorLoadingIPod();
    EXPECT_EQ(Slow.LoadedDevice, QString());
    Answer();
}
