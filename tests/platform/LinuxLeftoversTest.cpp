#include "tests/platform/LinuxFixture.h"

#include "platform/linux/LinuxCopy.h"

#include <fcntl.h>
#include <sys/file.h>

namespace {

const QString Part = QString::fromLatin1(PartName);

class LinuxLeftovers : public LinuxFixture {};

} // namespace

TEST_F(LinuxLeftovers, OnlyWhatAKilledCopyHasLeftIsRemoved) {
    WriteFile(Native(Part), "half of a song");
    WriteFile(Native(QStringLiteral("Song.mp3")), "song");
    MakeFolder(Native(QStringLiteral("below")));
    WriteFile(Native(QStringLiteral("below/") + Part), "of another folder");
    m_files.RemoveLeftovers(Native());
    EXPECT_EQ(NamesIn(Native()),
              QStringList({QStringLiteral("Song.mp3"), QStringLiteral("below")}));
    EXPECT_EQ(ReadFile(Native(QStringLiteral("Song.mp3"))), "song");
    EXPECT_EQ(NamesIn(Native(QStringLiteral("below"))), QStringList(Part));
    m_files.RemoveLeftovers(Native(QStringLiteral("below/")));
    EXPECT_EQ(NamesIn(Native(QStringLiteral("below"))), QStringList());
}

TEST_F(LinuxLeftovers, ACopyThatRunsElsewhereKeepsItsPartFile) {
    WriteFile(Native(Part), "being written");
    {
        const FileDescriptor running(open(Native(Part).toUtf8().constData(), O_WRONLY | O_CLOEXEC));
        ASSERT_EQ(flock(running.Get(), LOCK_EX | LOCK_NB), 0);
        m_files.RemoveLeftovers(Native());
        EXPECT_EQ(ReadFile(Native(Part)), "being written");
    }
    m_files.RemoveLeftovers(Native());
    EXPECT_FALSE(IsThere(Native(Part)));
}

TEST_F(LinuxLeftovers, ALinkUnderThatNameIsRemovedAndNotFollowed) {
    WriteFile(Native(QStringLiteral("other")), "precious");
    MakeLink(QStringLiteral("other"), Native(Part));
    m_files.RemoveLeftovers(Native());
    EXPECT_EQ(NamesIn(Native()), QStringList(QStringLiteral("other")));
    EXPECT_EQ(ReadFile(Native(QStringLiteral("other"))), "precious");
}

TEST_F(LinuxLeftovers, AFolderOrAPipeInTheWayHoldsNothingUp) {
    MakeFolder(Native(Part));
    WriteFile(Native(Part) + QStringLiteral("/mine"), "mine");
    m_files.RemoveLeftovers(Native());
    EXPECT_EQ(ReadFile(Native(Part) + QStringLiteral("/mine")), "mine");
    MakeFolder(Native(QStringLiteral("pipes")));
    ASSERT_TRUE(MakePipe(Native(QStringLiteral("pipes/") + Part)));
    m_files.RemoveLeftovers(Native(QStringLiteral("pipes")));
    EXPECT_EQ(NamesIn(Native(QStringLiteral("pipes"))), QStringList());
}

TEST_F(LinuxLeftovers, AMissingOrForbiddenFolderIsNotAFailure) {
    m_files.RemoveLeftovers(Native(QStringLiteral("nix")));
    m_files.RemoveLeftovers(QString());
    m_files.RemoveLeftovers(QStringLiteral("Q:\\"));
    EXPECT_EQ(NamesIn(Native()), QStringList());
    WriteFile(Native(Part), "left by another user");
    SetMode(Native(), 0555);
    const int number = NumberOfNobody([this] { m_files.RemoveLeftovers(Native()); });
    SetMode(Native(), 0755);
    if (number == -1) {
        GTEST_SKIP() << "this process cannot become another user";
    }
    EXPECT_EQ(number, 0);
    EXPECT_TRUE(IsThere(Native(Part)));
}

TEST_F(LinuxLeftovers, AFolderOnADriveIsClearedToo) {
    MakeFolder(Native(QStringLiteral("Music")));
    WriteFile(Native(QStringLiteral("Music/") + Part), "half");
    m_files.RemoveLeftovers(QStringLiteral("E:\\MUSIC\\"));
    EXPECT_EQ(NamesIn(Native(QStringLiteral("Music"))), QStringList());
}
