#include "copy/ChunkedCopy.h"

#include "platform/RuntimeError.h"
#include "tests/fakes/FakeServices.h"
#include "tests/fakes/RecordedFiles.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const QString Source = u"E:\\iPod_Control\\Music\\F00\\ABCD.m4v"_s;
const QString Target = u"D:\\Music\\Film.m4v"_s;
const QString Base = u"D:\\Music\\tmp\\"_s;
const QString Temp = u"D:\\Music\\tmp\\copy.tmp"_s;

class ChunkedCopyTest : public testing::Test {
protected:
    ChunkedCopyTest() {
        files.AddDrive(u"E:"_s);
        files.AddFolder(u"D:\\Music"_s);
    }

    bool Copy(qint32 bytesAtOnce) {
        return chunkedCopy.NewCopy(Source, Target, Base, bytesAtOnce, Existing::Replace, {});
    }

    int ErrorOfCopy(qint32 bytesAtOnce) {
        try {
            Copy(bytesAtOnce);
        } catch (const RuntimeError& error) {
            return int(error.Number);
        }
        return 0;
    }

    std::vector<qint64> Sizes(FileCall call) const {
        std::vector<qint64> sizes;
        for (const auto& recorded : files.Calls) {
            if (recorded.Call == call) {
                sizes.push_back(recorded.Size);
            }
        }
        return sizes;
    }

    RecordedFiles files;
    FakeEventLoop events;
    /// The bytes of the target after each chunk but the last.
    std::vector<qint64> chunksEnd;
    bool cancelCopy = false;
    ChunkedCopy chunkedCopy{files, [this] {
                                chunksEnd.push_back(files.Length(Temp));
                                events.Yield();
                                return !cancelCopy;
                            }};
};

} // namespace

TEST_F(ChunkedCopyTest, AFileIsCopiedInChunksWithAYieldAfterEachButTheLast) {
    struct Case {
        qint64 Length;
        std::vector<qint64> Chunks, Ends;
    };
    constexpr qint32 chunk = 50000000;
    for (const Case& file :
         {Case{0, {}, {}}, Case{chunk, {chunk}, {}}, Case{chunk + 1, {chunk, 1}, {chunk}},
          Case{2 * chunk, {chunk, chunk}, {chunk}},
          Case{120000000, {chunk, chunk, 20000000}, {chunk, 2 * chunk}}}) {
        files.AddLargeFile(Source, file.Length, 0, 77);
        files.Calls.clear();
        chunksEnd.clear();
        EXPECT_TRUE(Copy(chunk));
        EXPECT_EQ(Sizes(FileCall::Read), file.Chunks);
        EXPECT_EQ(Sizes(FileCall::Write), file.Chunks);
        EXPECT_EQ(chunksEnd, file.Ends);
        EXPECT_TRUE(files.SameContent(Source, Target));
        EXPECT_EQ(files.ModificationTime(Target), 77);
        EXPECT_FALSE(files.HasFile(Temp));
        EXPECT_EQ(files.ChangesBelow(u"E:"_s), QStringList());
    }
}

TEST_F(ChunkedCopyTest, ACancelledCopyEndsAfterItsChunkAndLeavesTheDestination) {
    files.AddFile(Source, "0123456789");
    files.AddFile(Target, "old film");
    for (const auto& [yield, written] : {std::pair(1, "0123"), std::pair(2, "01234567")}) {
        files.Remove(Base);
        events.Yields = 0;
        cancelCopy = false;
        events.OnYield = [&, last = yield](int number) { cancelCopy = number == last; };
        EXPECT_FALSE(Copy(4));
        EXPECT_EQ(files.Bytes(Temp), QByteArray(written));
        EXPECT_EQ(files.Bytes(Target), QByteArray("old film"));
        EXPECT_EQ(events.Yields, yield);
        EXPECT_EQ(files.OpenFiles, 0);
    }
}

TEST_F(ChunkedCopyTest, ACancelThatComesInTheLastStepIsTooLate) {
    files.AddFile(Source, "0123");
    cancelCopy = true;
    EXPECT_TRUE(Copy(4));
    EXPECT_EQ(files.Bytes(Target), QByteArray("0123"));
}

TEST_F(ChunkedCopyTest, AnExistingDestinationStaysUntilAllBytesAreThere) {
    files.AddFile(Source, "0123456789");
    files.AddFile(Target, "old film");
    bool moved = false;
    files.BeforeCall = [&](const RecordedFiles::RecordedCall& call) {
        EXPECT_EQ(files.Bytes(Target), QByteArray("old film"));
        if (call.Call == FileCall::MoveFile) {
            EXPECT_EQ(call.Target, Target);
            moved = true;
        }
    };
    EXPECT_TRUE(Copy(4));
    EXPECT_TRUE(moved);
    EXPECT_EQ(files.Bytes(Target), QByteArray("0123456789"));
}

TEST_F(ChunkedCopyTest, AnImpossibleTargetIsToldBeforeTheFirstChunk) {
    files.AddFile(Source, "0123456789");
    files.AddFolder(Target);
    EXPECT_EQ(ErrorOfCopy(4), 70);
    EXPECT_EQ(files.CountOf(FileCall::Write), 0);
}

TEST_F(ChunkedCopyTest, ALongerTempLeftBehindIsReusedAndLeavesNoTail) {
    files.AddFile(Source, "0123456789");
    files.AddFile(Temp, QByteArray(1000, 'x'));
    EXPECT_TRUE(Copy(4));
    EXPECT_EQ(files.CallsOf(FileCall::OpenForReadingAndWriting), QStringList{Temp});
    EXPECT_EQ(files.CountOf(FileCall::CreateFolder), 0);
    EXPECT_EQ(files.Bytes(Target), QByteArray("0123456789"));
}

TEST_F(ChunkedCopyTest, ADriveThatKeepsNoTimesTakesTheFileAllTheSame) {
    files.AddFile(Source, "0123456789");
    files.FailNthCall(FileCall::TakeModificationTime, 1, ErrorNumber::PermissionDenied);
    EXPECT_TRUE(Copy(4));
    EXPECT_EQ(files.FailuresStruck, 1);
    EXPECT_EQ(files.Bytes(Target), QByteArray("0123456789"));
}

TEST_F(ChunkedCopyTest, EveryFailingCallIsRaisedAndLeavesTheDestinationAndNoTempNorOpenFile) {
    for (const FileCall call :
         {FileCall::CreateFolder, FileCall::FileLength, FileCall::OpenForReading,
          FileCall::RequireTarget, FileCall::OpenForReadingAndWriting, FileCall::Read,
          FileCall::Write, FileCall::Truncate, FileCall::Close, FileCall::MoveFile}) {
        files.Remove(Base);
        files.AddFile(Source, "0123456789");
        files.AddFile(Target, "old film");
        files.FailNthCall(call, 1, ErrorNumber::DiskFull);
        EXPECT_EQ(ErrorOfCopy(4), 61) << static_cast<int>(call);
        EXPECT_EQ(files.Bytes(Target), QByteArray("old film"));
        EXPECT_FALSE(files.HasFile(Temp));
        EXPECT_EQ(files.OpenFiles, 0);
    }
}

TEST_F(ChunkedCopyTest, ALateFailureOfClosingTheCopyIsRaised) {
    files.AddFile(Source, "0123456789");
    files.FailPath(FileCall::Close, Temp, ErrorNumber::DiskFull);
    EXPECT_EQ(ErrorOfCopy(4), 61);
    EXPECT_FALSE(files.HasFile(Target));
}

TEST_F(ChunkedCopyTest, ASourceThatEndsEarlyRaisesDeviceIOError) {
    files.AddFile(Source, "0123456789");
    files.BeforeCall = [this](const RecordedFiles::RecordedCall& call) {
        if (call.Call == FileCall::OpenForReading) {
            files.AddFile(Source, "012345");
        }
    };
    EXPECT_EQ(ErrorOfCopy(4), 57);
    EXPECT_FALSE(files.HasFile(Target));
}

TEST_F(ChunkedCopyTest, AChunkOfNoBytesIsRefused) {
    files.AddFile(Source, "0123456789");
    EXPECT_EQ(ErrorOfCopy(0), 5);
    EXPECT_EQ(ErrorOfCopy(-4), 5);
}
