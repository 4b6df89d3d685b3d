#include "platform/JointCopy.h"

#include "platform/RuntimeError.h"
#include "tests/fakes/RecordedFiles.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <future>
#include <map>
#include <thread>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// Files of which nothing but the names is kept.
class NamedFiles : public RecordedFiles {
public:
    std::function<bool()> BeginNewFile(const QString& source, const QString&,
                                       const CopyControl& control) override {
        if (source == u"1"_s && std::exchange(m_firstWasBegun, true)) {
            return [this, source, control] { return CopyAlone(source, control); };
        }
        CopyBytes(source);
        return [this, source, control, open = Open] {
            const bool isPlaced = control.BeginPlacing();
            if (IsFull) {
                throw RuntimeError(ErrorNumber::DiskFull);
            }
            Names += isPlaced ? QStringList(source) : QStringList();
            return isPlaced;
        };
    }

    std::function<void(const QString&)> CopyBytes;
    /// No file can get its name, and the user stops the one that is tried alone.
    bool IsFull = false;
    /// Shared with each file that waits for its name.
    std::shared_ptr<int> Open = std::make_shared<int>();
    /// In the order in which they were given.
    QStringList Names;

private:
    bool CopyAlone(const QString& source, const CopyControl& control) {
        Names += source + u" alone"_s;
        control.SetRemover([this] { Names += u"removed"_s; });
        if (IsFull) {
            control.Stop();
            control.RemoveLeftover();
        }
        return true;
    }

    /// It is begun a second time only when it is tried alone.
    bool m_firstWasBegun = false;
};

class JointCopyTest : public testing::Test {
protected:
    /// Copies the files "1", "2" and "3" on two threads. The other one begins the first file, with
    /// `copyFirst`, and this one the second.
    CopiedFiles Copy(const std::function<void()>& copyFirst) {
        std::promise<void> firstHasBegun;
        files->CopyBytes = [&](const QString& source) {
            if (source == u"1"_s) {
                firstHasBegun.set_value();
                copyFirst();
            } else {
                begun.at(source).set_value();
            }
        };
        std::thread other([this] { copy.TakePart(); });
        firstHasBegun.get_future().wait();
        const CopiedFiles copied = copy.Finish();
        EXPECT_EQ(files->Open.use_count(), 1);
        hasFinished.set_value();
        other.join();
        return copied;
    }

    std::shared_ptr<NamedFiles> files = std::make_shared<NamedFiles>();
    CopyControl control;
    JointCopy copy{files, {{u"1"_s, u"a"_s}, {u"2"_s, u"b"_s}, {u"3"_s, u"c"_s}}, 60'000, control};
    std::map<QString, std::promise<void>> begun;
    std::future<void> secondHasBegun = begun[u"2"_s].get_future();
    std::future<void> thirdHasBegun = begun[u"3"_s].get_future();
    std::promise<void> hasFinished;
};

TEST_F(JointCopyTest, NamesAreGivenInOrderWhicheverFileIsReadyFirst) {
    const CopiedFiles copied = Copy([&] { thirdHasBegun.wait(); });
    EXPECT_EQ(copied.Count, 3U);
    EXPECT_EQ(files->Names, QStringList({u"1"_s, u"2"_s, u"3"_s}));
}

TEST_F(JointCopyTest, AFileThatFailsBesideOthersIsTriedAloneAndThoseGetNoName) {
    const CopiedFiles copied = Copy([&] {
        secondHasBegun.wait();
        throw RuntimeError(ErrorNumber::DiskFull);
    });
    EXPECT_EQ(copied.Count, 1U);
    EXPECT_FALSE(copied.Failure);
    EXPECT_EQ(files->Names, QStringList(u"1 alone"_s));
}

TEST_F(JointCopyTest, AStopDoesNotWaitForAFileThatHangsAndItGetsNoNameLater) {
    const CopiedFiles copied = Copy([&] {
        secondHasBegun.wait();
        control.Stop();
        hasFinished.get_future().wait();
    });
    EXPECT_EQ(copied.Count, 0U);
    EXPECT_EQ(files->Names, QStringList());
}

TEST_F(JointCopyTest, NothingIsBegunAfterAStop) {
    control.Stop();
    files->CopyBytes = [](const QString& source) { ADD_FAILURE() << qPrintable(source); };
    EXPECT_EQ(copy.Finish().Count, 0U);
}

TEST_F(JointCopyTest, OnceTheTimeIsOverNoneIsBegunButTheFirst) {
    JointCopy late(files, {{u"1"_s, u"a"_s}, {u"2"_s, u"b"_s}}, 0, control);
    files->CopyBytes = [](const QString&) {};
    EXPECT_EQ(late.Finish().Count, 1U);
    EXPECT_EQ(files->Names, QStringList(u"1"_s));
}

TEST_F(JointCopyTest, AFileThatIsTriedAloneCanBeStoppedThoughItFailedWhileItWasNamed) {
    files->IsFull = true;
    Copy([&] { secondHasBegun.wait(); });
    EXPECT_EQ(files->Names, QStringList({u"1 alone"_s, u"removed"_s}));
}

TEST_F(JointCopyTest, AFileIsNotBegunBesideOneWhoseNameDiffersOnlyInItsSpelling) {
    JointCopy alike(files, {{u"1"_s, u"Bj\u00F6rk"_s}, {u"2"_s, u"BJO\u0308RK"_s}}, 60'000,
                    control);
    files->CopyBytes = [&](const QString& source) {
        EXPECT_EQ(files->Names, source == u"1"_s ? QStringList() : QStringList(u"1"_s));
        std::this_thread::sleep_for(50ms);
    };
    std::thread other([&] { alike.TakePart(); });
    EXPECT_EQ(alike.Finish().Count, 2U);
    other.join();
}

TEST_F(JointCopyTest, AFileIsPreparedForAfterAllBeforeItAndBeforeAllOthers) {
    std::atomic<bool> isPrepared = false;
    const auto prepare = [&](FileSystem&, const CopyControl&) {
        EXPECT_EQ(files->Names, QStringList(u"1"_s));
        std::this_thread::sleep_for(50ms);
        isPrepared = true;
        return true;
    };
    JointCopy joint(files, {{u"1"_s, u"a"_s}, {u"2"_s, u"b"_s, prepare}, {u"3"_s, u"c"_s}}, 60'000,
                    control);
    files->CopyBytes = [&](const QString& source) {
        EXPECT_EQ(isPrepared, source != u"1"_s);
        std::this_thread::sleep_for(50ms);
    };
    std::thread other([&] { joint.TakePart(); });
    EXPECT_EQ(joint.Finish().Count, 3U);
    other.join();
}

TEST_F(JointCopyTest, AFileThatWasStoppedWhileItWasPreparedForIsNotBegun) {
    const auto hang = [](FileSystem&, const CopyControl& stopped) {
        stopped.Stop();
        return true;
    };
    JointCopy joint(files, {{u"1"_s, u"a"_s}, {u"2"_s, u"b"_s, hang}}, 60'000, control);
    files->CopyBytes = [](const QString& source) { EXPECT_EQ(source, u"1"_s); };
    EXPECT_EQ(joint.Finish().Count, 1U);
}

TEST_F(JointCopyTest, AFileThatCannotBePreparedForEndsTheCopyingWithoutAFailure) {
    const auto fail = [](FileSystem&, const CopyControl&) { return false; };
    JointCopy joint(files, {{u"1"_s, u"a"_s}, {u"2"_s, u"b"_s, fail}, {u"3"_s, u"c"_s}}, 60'000,
                    control);
    files->CopyBytes = [](const QString& source) { EXPECT_EQ(source, u"1"_s); };
    const CopiedFiles copied = joint.Finish();
    EXPECT_EQ(copied.Count, 1U);
    EXPECT_FALSE(copied.Failure);
    EXPECT_FALSE(copied.IsRefused);
}

} // namespace
