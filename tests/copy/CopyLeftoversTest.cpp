// What a killed job has left is looked for in each folder that the job comes to.

#include "tests/copy/CopyFixture.h"
#include "tests/fakes/FakeFaults.h"

using namespace Qt::StringLiterals;

namespace {

class CopyLeftovers : public CopyFixture, public testing::Test {
protected:
    CopyLeftovers() {
        AddTrack("Abba", "Arrival", "One", "one");
        AddTrack("Abba", "Arrival", "Two", "two");
        AddTrack("Abba", "Live", "Three", "three");
        AddTrack("Beck", "Guero", "Girl", "girl");
    }
};

} // namespace

TEST_F(CopyLeftovers, EachFolderIsClearedOnceBeforeItsFirstFile) {
    SetOptions("AB");
    files.BeforeCall = [this](const RecordedFiles::RecordedCall& call) {
        if (call.Call == FileCall::CopyFile) {
            ASSERT_FALSE(files.ClearedFolders.isEmpty());
            EXPECT_TRUE(call.Target.startsWith(files.ClearedFolders.back()));
        }
    };
    Press();
    EXPECT_EQ(files.ClearedFolders,
              QStringList({u"D:\\Music\\Abba\\Arrival\\"_s, u"D:\\Music\\Abba\\Live\\"_s,
                           u"D:\\Music\\Beck\\Guero\\"_s}));
}

TEST_F(CopyLeftovers, EachFolderIsClearedOnceThoughAFileBeforeItFails) {
    events.ToYield = 1000; // files are copied together
    SetOptions("B");
    files.FailNthCall(FileCall::CopyFile, 1, ErrorNumber::FileNotFound);
    messages.Answers = {MessageAnswer::Ignore, MessageAnswer::OK};
    Press();
    EXPECT_EQ(files.ClearedFolders, QStringList({u"D:\\Music\\Arrival\\"_s, u"D:\\Music\\Live\\"_s,
                                                 u"D:\\Music\\Guero\\"_s}));
}

TEST_F(CopyLeftovers, WithoutFoldersTheRootIsClearedOnceAJob) {
    Press();
    EXPECT_EQ(files.ClearedFolders, QStringList(u"D:\\Music\\"_s));
    promptUses = {PromptUse::SkipAll};
    Press();
    EXPECT_EQ(files.ClearedFolders, QStringList({u"D:\\Music\\"_s, u"D:\\Music\\"_s}));
}

TEST_F(CopyLeftovers, AFolderOfWhichEveryFileIsSkippedIsClearedToo) {
    SetOptions("A");
    files.AddFile(u"D:\\Music\\Beck\\Girl.mp3"_s, "old");
    promptUses = {PromptUse::Skip};
    Press();
    EXPECT_EQ(Bytes("D:\\Music\\Beck\\Girl.mp3"), QByteArray("old"));
    EXPECT_EQ(files.ClearedFolders, QStringList({u"D:\\Music\\Abba\\"_s, u"D:\\Music\\Beck\\"_s}));
}

TEST_F(CopyLeftovers, AJobThatFailsAtItsStartDeletesNothingInTheDestinationOfTheJobBefore) {
    Press();
    const QString own = u"D:\\Music\\tmp\\mine.txt"_s;
    files.AddFile(own, "mine");
    files.AddFolder(u"D:\\Other"_s);
    form.txtDestination.SetText(u"D:\\Other"_s);
    files.BeforeCall = [](const RecordedFiles::RecordedCall& call) {
        if (call.Call == FileCall::FreeBytes) { // the last of the checks
            FakeFaults::FailNth(1, [] { throw RuntimeError(ErrorNumber::Overflow); });
        }
    };
    Press();
    EXPECT_TRUE(FakeFaults::Stop());
    EXPECT_EQ(messages.Texts().last(), u"Error 6: Overflow"_s);
    EXPECT_TRUE(files.HasFile(own));
    ExpectIdle();
}
