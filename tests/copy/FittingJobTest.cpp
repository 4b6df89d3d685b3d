// What becomes of names that the destination cannot hold.

#include "tests/copy/CopyFixture.h"

using namespace Qt::StringLiterals;

namespace {

class FittingJobTest : public CopyFixture, public testing::Test {
protected:
    static QString Times(int count, const char* text) { return Text(text).repeated(count); }

    void CopyToWindowsDisk() { files.Limits = {255, NameLimits::Unit::Utf16Units, true}; }

    /// Copies without one question.
    void PressAndComplete() {
        Press();
        EXPECT_EQ(messages.Shown, std::vector{Completed});
        EXPECT_EQ(prompted, QStringList());
        messages.Shown.clear();
    }
};

} // namespace

TEST_F(FittingJobTest, TitlesThatBecomeEqualWhenTheyAreCutAreNumbered) {
    const QByteArray title = Times(90, "青").toUtf8();
    AddTrack("Abba", "Arrival", title + "one", "first");
    AddTrack("Abba", "Arrival", title + "two", "second");
    PressAndComplete();
    EXPECT_EQ(Names(), QStringList({Times(82, "青") + u" (2).mp3"_s, Times(83, "青") + u".mp3"_s}));
}

TEST_F(FittingJobTest, ASecondJobAsksAboutTheNameThatIsReallyUsed) {
    AddTrack("Abba", "Arrival", Times(90, "青").toUtf8(), "first");
    PressAndComplete();
    promptUses = {PromptUse::Skip};
    Press();
    EXPECT_EQ(prompted, QStringList{u"D:\\Music\\"_s + Times(83, "青") + u".mp3"_s});
}

TEST_F(FittingJobTest, ArtistsThatBecomeEqualKeepAFolderEach) {
    const QByteArray name = Times(90, "青").toUtf8();
    AddTrack(name + "one", "Arrival", "Tiger", "first");
    AddTrack(name + "two", "Arrival", "Tiger", "second");
    AddTrack("Abba", "Arrival", "Tiger", "third");
    SetOptions("A");
    PressAndComplete();
    EXPECT_EQ(Names(), QStringList({u"Abba\\Tiger.mp3"_s, Times(83, "青") + u" (2)\\Tiger.mp3"_s,
                                    Times(85, "青") + u"\\Tiger.mp3"_s}));
}

TEST_F(FittingJobTest, AnArtistWhoReallyHasTheNameThatAnotherOneGotHasAFolderOfItsOwn) {
    CopyToWindowsDisk();
    AddTrack("CON", "Arrival", "Tiger", "first");
    AddTrack("con_", "Arrival", "Tiger", "second");
    SetOptions("A");
    PressAndComplete();
    EXPECT_EQ(Names(), QStringList({u"CON_\\Tiger.mp3"_s, u"con_ (2)\\Tiger.mp3"_s}));
}

TEST_F(FittingJobTest, AFolderThatIsEnteredAheadHasLimitsOfItsOwn) {
    events.ToYield = 1000;
    AddTrack("Abba", "Arrival", "Longer title", "first");
    AddTrack("Abba", "Live", "Longer title", "second");
    AddTrack("Abba", "Live", "Another title", "third");
    SetOptions("B");
    files.BeforeCall = [this](const RecordedFiles::RecordedCall& call) {
        if (call.Call == FileCall::CopyFile) {
            files.Limits.Longest = 10;
        }
    };
    PressAndComplete();
    EXPECT_EQ(Names(), QStringList({u"Arrival\\Longer title.mp3"_s, u"Live\\Anothe.mp3"_s,
                                    u"Live\\Longer.mp3"_s}));
}

TEST_F(FittingJobTest, AFolderThatWasNotReachedAheadIsAskedForItsLimitsInItsTurn) {
    CopyToWindowsDisk();
    events.ToYield = 1000;
    files.AddFolder(u"D:\\Music\\Live"_s);
    AddTrack("Abba", "Arrival", "CON", "first");
    AddTrack("Abba", "Live", "CON", "second");
    SetOptions("B");
    files.FailNthCall(FileCall::CopyFile, 1, ErrorNumber::FileNotFound);
    messages.Answers = {MessageAnswer::Ignore, MessageAnswer::OK};
    Press();
    EXPECT_EQ(Names(), QStringList{u"Live\\CON_.mp3"_s});
}
