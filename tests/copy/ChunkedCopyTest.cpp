#include "copy/ChunkedCopy.h"

#include "platform/RuntimeError.h"
#include "tests/fakes/FakeFileSystem.h"
#include "tests/fakes/FakeServices.h"

#include <gtest/gtest.h>

namespace {

QString Text(const char* text) {
    return QString::fromUtf8(text);
}

const QString Source = Text("E:\\iPod_Control\\Music\\F00\\ABCD.m4v");
const QString Target = Text("D:\\Music\\Film.m4v");
const QString Base = Text("D:\\Music\\tmp\\");
const QString Temp = Text("D:\\Music\\tmp\\copy.tmp");

class ChunkedCopyTest : public testing::Test {
protected:
    ChunkedCopyTest() {
        files.AddDrive(Text("E:"));
        files.AddFolder(Text("D:\\Music"));
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

    FakeFileSystem files;
    FakeEventLoop events;
    std::vector<qint64> chunksEnd;
    bool cancelCopy = false;
    ChunkedCopy chunkedCopy{files, [this](qint64 done) {
                                chunksEnd.push_back(done);
                                events.Yield();
                                return !cancelCopy;
                            }};
};

} // namespace

TEST_F(ChunkedCopyTest, AFileOf50000001BytesTakesOneChunkAndALastStepOfOneByte) {
    files.AddLargeFile(Source, 50000001);
    EXPECT_TRUE(Copy(50000000));
    EXPECT_EQ(Sizes(FileCall::Write), (std::vector<qint64>{50000000, 1}));
    EXPECT_EQ(chunksEnd, std::vector<qint64>{50000000});
    EXPECT_EQ(events.Yields, 1);
    EXPECT_TRUE(files.SameContent(Source, Target));
    EXPECT_FALSE(files.HasFile(Temp));
}

TEST_F(ChunkedCopyTest, AFileOf120000000BytesTakesTwoChunksAndALastStepOf20000000) {
    files.AddLargeFile(Source, 120000000);
    EXPECT_TRUE(Copy(50000000));
    EXPECT_EQ(Sizes(FileCall::Read), (std::vector<qint64>{50000000, 50000000, 20000000}));
    EXPECT_EQ(chunksEnd, (std::vector<qint64>{50000000, 100000000}));
    EXPECT_EQ(events.Yields, 2);
    EXPECT_TRUE(files.SameContent(Source, Target));
}

TEST_F(ChunkedCopyTest, CancelDuringTheFirstChunkWritesThatChunkWholeAndLeavesTheDestination) {
    files.AddFile(Source, "0123456789");
    files.AddFile(Target, "old film");
    events.OnYield = [this](int) { cancelCopy = true; };
    EXPECT_FALSE(Copy(4));
    EXPECT_EQ(files.Bytes(Temp), QByteArray("0123"));
    EXPECT_EQ(files.Bytes(Target), QByteArray("old film"));
    EXPECT_EQ(events.Yields, 1);
    EXPECT_EQ(files.OpenFiles, 0);
}

TEST_F(ChunkedCopyTest, CancelWithoutADestinationCreatesNone) {
    files.AddFile(Source, "0123456789");
    cancelCopy = true;
    EXPECT_FALSE(Copy(4));
    EXPECT_FALSE(files.HasFile(Target));
}

TEST_F(ChunkedCopyTest, CancelDuringTheSecondChunkStopsThere) {
    files.AddFile(Source, "0123456789");
    events.OnYield = [this](int number) { cancelCopy = number == 2; };
    EXPECT_FALSE(Copy(4));
    EXPECT_EQ(files.Bytes(Temp), QByteArray("01234567"));
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
    files.BeforeCall = [&](const FakeFileSystem::RecordedCall& call) {
        EXPECT_EQ(files.Bytes(Target), QByteArray("old film"));
        if (call.Call == FileCall::MoveFile) {
            EXPECT_EQ(files.Bytes(Temp), QByteArray("0123456789"));
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

TEST_F(ChunkedCopyTest, ATempOfAnotherProgramThatHasTakenTheNameIsNotMoved) {
    files.AddFile(Source, "0123456789");
    events.OnYield = [this](int number) {
        if (number == 1) {
            files.Remove(Base);
            files.AddFile(Temp, "half of another film");
        }
    };
    EXPECT_EQ(ErrorOfCopy(4), 70);
    EXPECT_FALSE(files.HasFile(Target));
    EXPECT_EQ(files.Bytes(Temp), QByteArray("half of another film"));
}

TEST_F(ChunkedCopyTest, ATempLeftBehindIsReusedUnderTheSameName) {
    files.AddFile(Source, "0123456789");
    files.AddFile(Temp, "left");
    EXPECT_TRUE(Copy(4));
    EXPECT_EQ(files.CallsOf(FileCall::OpenForReadingAndWriting), QStringList{Temp});
    EXPECT_EQ(files.CountOf(FileCall::CreateFolder), 0);
    EXPECT_EQ(files.Bytes(Target), QByteArray("0123456789"));
}

TEST_F(ChunkedCopyTest, ALongerTempLeftBehindLeavesNoTail) {
    files.AddFile(Source, "0123456789");
    files.AddFile(Temp, QByteArray(1000, 'x'));
    EXPECT_TRUE(Copy(4));
    EXPECT_EQ(files.Bytes(Target), QByteArray("0123456789"));
}

TEST_F(ChunkedCopyTest, AMissingBaseFolderIsCreated) {
    files.AddFile(Source, "0123456789");
    EXPECT_TRUE(Copy(4));
    EXPECT_EQ(files.CallsOf(FileCall::CreateFolder), QStringList{Base});
}

TEST_F(ChunkedCopyTest, AnExactMultipleOfTheChunkEndsInTheLastStep) {
    files.AddFile(Source, "01234567");
    EXPECT_TRUE(Copy(4));
    EXPECT_EQ(files.Bytes(Target), QByteArray("01234567"));
    EXPECT_EQ(events.Yields, 1);
    EXPECT_EQ(Sizes(FileCall::Write), (std::vector<qint64>{4, 4}));
}

TEST_F(ChunkedCopyTest, AnEmptyFileIsCopiedWithoutReading) {
    files.AddFile(Source, "");
    EXPECT_TRUE(Copy(4));
    EXPECT_EQ(files.Bytes(Target), QByteArray());
    EXPECT_EQ(files.CountOf(FileCall::Read), 0);
    EXPECT_EQ(files.CountOf(FileCall::Write), 0);
}

TEST_F(ChunkedCopyTest, TheModificationTimeIsKept) {
    files.AddFile(Source, "0123456789", 77);
    EXPECT_TRUE(Copy(4));
    EXPECT_EQ(files.ModificationTime(Target), 77);
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

TEST_F(ChunkedCopyTest, AFullDiskIsRaisedAndTheNextCallSucceedsOnceThereIsRoom) {
    files.AddFile(Source, "0123456789");
    files.DiskFullAfter(6);
    EXPECT_EQ(ErrorOfCopy(4), 61);
    EXPECT_FALSE(files.HasFile(Target));
    files.ClearFailures();
    EXPECT_TRUE(Copy(4));
    EXPECT_EQ(files.Bytes(Target), QByteArray("0123456789"));
}

TEST_F(ChunkedCopyTest, ASourceThatEndsEarlyRaisesDeviceIOError) {
    files.AddFile(Source, "0123456789");
    files.BeforeCall = [this](const FakeFileSystem::RecordedCall& call) {
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

TEST_F(ChunkedCopyTest, TheDeviceIsOnlyRead) {
    files.AddFile(Source, "0123456789");
    EXPECT_TRUE(Copy(4));
    EXPECT_EQ(files.ChangesBelow(Text("E:")), QStringList());
    EXPECT_EQ(files.Bytes(Source), QByteArray("0123456789"));
}

TEST_F(ChunkedCopyTest, NativePathsWorkAlike) {
    files.AddFile(Source, "0123456789");
    files.AddFolder(Text("/home/ana/Music"));
    EXPECT_TRUE(chunkedCopy.NewCopy(Source, Text("/home/ana/Music/Film.m4v"),
                                    Text("/home/ana/Music/tmp/"), 4, Existing::Replace, {}));
    EXPECT_EQ(files.Bytes(Text("/home/ana/Music/Film.m4v")), QByteArray("0123456789"));
}
