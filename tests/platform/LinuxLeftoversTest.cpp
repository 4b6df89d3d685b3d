#include "tests/platform/LinuxFixture.h"

#include "platform/linux/LinuxCopy.h"

#include <fcntl.h>
#include <sys/file.h>

using namespace Qt::StringLiterals;

namespace {

const QString Part = QString::fromLatin1(PartName);

class LinuxLeftovers : public LinuxFixture {};

} // namespace

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
    WriteFile(Native(u"other"_s), "precious");
    MakeLink(u"other"_s, Native(Part));
    m_files.RemoveLeftovers(Native());
    EXPECT_EQ(NamesIn(Native()), QStringList(u"other"_s));
    EXPECT_EQ(ReadFile(Native(u"other"_s)), "precious");
}

TEST_F(LinuxLeftovers, AFolderOrAPipeInTheWayHoldsNothingUp) {
    MakeFolder(Native(Part));
    WriteFile(Native(Part) + u"/mine"_s, "mine");
    m_files.RemoveLeftovers(Native());
    EXPECT_EQ(ReadFile(Native(Part) + u"/mine"_s), "mine");
    MakeFolder(Native(u"pipes"_s));
    ASSERT_TRUE(MakePipe(Native(u"pipes/"_s + Part)));
    m_files.RemoveLeftovers(Native(u"pipes"_s));
    EXPECT_EQ(NamesIn(Native(u"pipes"_s)), QStringList());
}

TEST_F(LinuxLeftovers, AMissingOrForbiddenFolderIsNotAFailure) {
    m_files.RemoveLeftovers(Native(u"nix"_s));
    m_files.RemoveLeftovers(QString());
    m_files.RemoveLeftovers(u"Q:\\"_s);
    EXPECT_EQ(NamesIn(Native()), QStringList());
    WriteFile(Native(Part), "left by another user");
    SetMode(Native(), 0555);
    const int number = NumberOfNobody([this] { m_files.RemoveLeftovers(Native()); });
    SetMode(Native(), 0755);
    SKIP_UNLESS(number != -1, "this process cannot become another user");
    EXPECT_EQ(number, 0);
    EXPECT_TRUE(IsThere(Native(Part)));
}
