#include "tests/platform/LinuxFixture.h"

#include <gtest/gtest.h>

#include <QDir>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

class DeleteFixture : public LinuxFixture {
protected:
    int DeleteError(const QString& path) {
        return NumberOf([&] { m_files.DeleteFolder(path, {}); });
    }
};

/// A folder in a folder in a folder ...: too deep for any path text.
void MakeNest(const QString& path, int depth) {
    MakeFolder(path);
    FileDescriptor folder(open(path.toUtf8().constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    for (int level = 0; level < depth; ++level) {
        ASSERT_EQ(mkdirat(folder.Get(), "deeper", 0755), 0);
        folder = FileDescriptor(openat(folder.Get(), "deeper", O_PATH | O_DIRECTORY | O_CLOEXEC));
    }
    const FileDescriptor file(openat(folder.Get(), "file", O_CREAT | O_WRONLY | O_CLOEXEC, 0644));
    ASSERT_TRUE(file.IsOpen());
}

} // namespace

TEST_F(DeleteFixture, AFolderOfManyFilesIsDeleted) {
    const TestMount mount = TestMount::Memory(Native(), "size=64m"); // faster, where it can be had
    MakeFolder(Native(u"tmp"_s));
    for (int i = 0; i < 2000; ++i) {
        WriteFile(Native(u"tmp/%1"_s.arg(i)), QByteArray());
    }
    EXPECT_EQ(DeleteError(Native(u"tmp"_s)), 0);
    EXPECT_EQ(NamesIn(Native()), QStringList());
}

TEST_F(DeleteFixture, NamesThatAreNotTextAreDeleted) {
    MakeFolder(Native(u"tmp"_s));
    const QByteArray folder = Native(u"tmp"_s).toUtf8();
    ASSERT_EQ(mkdir((folder + "/bad\xFF\n").constData(), 0755), 0);
    ASSERT_EQ(mkdir((folder + "/bad\xFF\n/\x01").constData(), 0755), 0);
    EXPECT_EQ(DeleteError(Native(u"tmp"_s)), 0);
    EXPECT_EQ(NamesIn(Native()), QStringList());
}

TEST_F(DeleteFixture, LinksAreRemovedAndNotFollowed) {
    MakeFolder(Native(u"precious/inner"_s));
    WriteFile(Native(u"precious/inner/letter"_s), "x");
    MakeFolder(Native(u"tmp/sub"_s));
    MakeLink(u"../precious"_s, Native(u"tmp/folder-link"_s));
    MakeLink(u"../../precious/inner/letter"_s, Native(u"tmp/sub/file-link"_s));
    MakeLink(u"nix"_s, Native(u"tmp/dead-link"_s));
    EXPECT_EQ(DeleteError(Native(u"tmp"_s)), 0);
    EXPECT_EQ(NamesIn(Native()), QStringList(u"precious"_s));
    EXPECT_EQ(ReadFile(Native(u"precious/inner/letter"_s)), "x");
}

TEST_F(DeleteFixture, OfALinkToAFolderOnlyTheLinkIsRemoved) {
    MakeFolder(Native(u"precious/inner"_s));
    MakeLink(u"precious"_s, Native(u"tmp"_s));
    EXPECT_EQ(DeleteError(Native(u"tmp"_s)), 0);
    EXPECT_EQ(NamesIn(Native()), QStringList(u"precious"_s));
    EXPECT_EQ(NamesIn(Native(u"precious"_s)), QStringList(u"inner"_s));
}

TEST_F(DeleteFixture, AnythingButAFolderCountsAsAMissingFolder) {
    WriteFile(Native(u"file"_s), "x");
    MakeLink(u"file"_s, Native(u"link"_s));
    MakeLink(u"nix"_s, Native(u"dead"_s));
    for (const char* name : {"file", "link", "dead", "nix", "nix/nix"}) {
        EXPECT_EQ(DeleteError(Native(QString::fromLatin1(name))), 76) << name;
    }
    EXPECT_EQ(DeleteError(u"Q:\\"_s), 76);
    EXPECT_EQ(DeleteError(QString()), 76);
    EXPECT_EQ(NamesIn(Native()), QStringList({u"dead"_s, u"file"_s, u"link"_s}));
}

TEST_F(DeleteFixture, APathThatEndsInDotsDeletesNothing) {
    MakeFolder(Native(u"a/b"_s));
    EXPECT_EQ(DeleteError(Native(u"a/b/.."_s)), 76);
    EXPECT_EQ(DeleteError(Native(u"a/."_s)), 76);
    EXPECT_EQ(DeleteError(u"E:\\a\\b\\.."_s), 76);
    EXPECT_TRUE(IsThere(Native(u"a/b"_s)));
}

TEST_F(DeleteFixture, ADrivesRootIsLeftAlone) {
    WriteFile(Native(u"file"_s), "x");
    EXPECT_EQ(DeleteError(u"E:\\"_s), 0);
    EXPECT_EQ(DeleteError(u"E:"_s), 0);
    EXPECT_TRUE(IsThere(Native(u"file"_s)));
}

TEST_F(DeleteFixture, ASharedTemporaryFolderIsLeftAlone) {
    MakeFolder(Native(u"tmp"_s));
    WriteFile(Native(u"tmp/of-someone"_s), "x");
    SetMode(Native(u"tmp"_s), 01777);
    EXPECT_EQ(DeleteError(Native(u"tmp"_s)), 0);
    EXPECT_EQ(DeleteError(u"E:\\TMP"_s), 0);
    EXPECT_EQ(ReadFile(Native(u"tmp/of-someone"_s)), "x");
}

TEST_F(DeleteFixture, ASharedTemporaryFolderInsideIsLeftAloneAndTheRestIsDeleted) {
    MakeFolder(Native(u"tmp/a/shared"_s));
    MakeFolder(Native(u"tmp/b/c"_s));
    WriteFile(Native(u"tmp/a/shared/of-someone"_s), "x");
    WriteFile(Native(u"tmp/a/file"_s), "x");
    SetMode(Native(u"tmp/a/shared"_s), 01777);
    EXPECT_EQ(DeleteError(Native(u"tmp"_s)), 0);
    EXPECT_EQ(NamesIn(Native(u"tmp"_s)), QStringList(u"a"_s));
    EXPECT_EQ(NamesIn(Native(u"tmp/a"_s)), QStringList(u"shared"_s));
    EXPECT_EQ(ReadFile(Native(u"tmp/a/shared/of-someone"_s)), "x");
}

TEST_F(DeleteFixture, AMountPointIsLeftAlone) {
    MakeFolder(Native(u"tmp"_s));
    const TestMount mount = TestMount::Memory(Native(u"tmp"_s));
    SKIP_UNLESS(mount.IsMounted(), "no disk can be mounted here");
    SetMode(Native(u"tmp"_s), 0755);
    WriteFile(Native(u"tmp/file"_s), "x");
    EXPECT_EQ(DeleteError(Native(u"tmp"_s)), 0);
    EXPECT_EQ(ReadFile(Native(u"tmp/file"_s)), "x");
}

TEST_F(DeleteFixture, MountPointsInsideAreLeftAloneAndTheRestIsDeleted) {
    MakeFolder(Native(u"precious"_s));
    WriteFile(Native(u"precious/letter"_s), "x");
    MakeFolder(Native(u"tmp/a/mounted"_s));
    MakeFolder(Native(u"tmp/b"_s));
    WriteFile(Native(u"tmp/file"_s), "y");
    // A folder of the same disk: its device number does not tell.
    const TestMount folder = TestMount::Bind(Native(u"precious"_s), Native(u"tmp/a/mounted"_s));
    const TestMount file = TestMount::Bind(Native(u"precious/letter"_s), Native(u"tmp/file"_s));
    SKIP_UNLESS(folder.IsMounted() && file.IsMounted(), "nothing can be mounted here");
    EXPECT_EQ(DeleteError(Native(u"tmp"_s)), 0);
    EXPECT_EQ(ReadFile(Native(u"precious/letter"_s)), "x");
    EXPECT_EQ(NamesIn(Native(u"tmp"_s)), QStringList({u"a"_s, u"file"_s}));
    EXPECT_EQ(NamesIn(Native(u"tmp/a"_s)), QStringList(u"mounted"_s));
}

TEST_F(DeleteFixture, DeepNestingTakesFewOpenFilesAndLittleStack) {
    const TestMount mount = TestMount::Memory(Native(), "size=64m"); // faster, where it can be had
    MakeNest(Native(u"tmp"_s), 1000);
    const int number = RunInChild([this] {
        const rlimit fewFiles{32, 32};
        setrlimit(RLIMIT_NOFILE, &fewFiles);
        m_files.DeleteFolder(Native(u"tmp"_s), {});
    });
    EXPECT_EQ(number, 0);
    EXPECT_EQ(NamesIn(Native()), QStringList());
}

TEST_F(DeleteFixture, AnEntryThatMayNotBeDeletedDoesNotProtectTheRest) {
    MakeFolder(Native(u"tmp"_s));
    MakeFolder(Native(u"tmp/closed"_s));
    MakeFolder(Native(u"tmp/open"_s));
    WriteFile(Native(u"tmp/closed/file"_s), "x");
    SetMode(Native(), 0777);
    SetMode(Native(u"tmp"_s), 0777);
    SetMode(Native(u"tmp/open"_s), 0777);
    SetMode(Native(u"tmp/closed"_s), 0555);
    const int number = NumberOfNobody([this] { m_files.DeleteFolder(Native(u"tmp"_s), {}); });
    SKIP_UNLESS(number != -1, "this process cannot become another user");
    EXPECT_EQ(number, 70);
    EXPECT_EQ(NamesIn(Native(u"tmp"_s)), QStringList(u"closed"_s));
    EXPECT_EQ(ReadFile(Native(u"tmp/closed/file"_s)), "x");
    SetMode(Native(u"tmp/closed"_s), 0755);
}

TEST_F(DeleteFixture, AnEmptyFolderThatMayNotBeReadIsDeleted) {
    MakeFolder(Native(u"tmp/dark"_s));
    SetMode(Native(), 0777);
    SetMode(Native(u"tmp"_s), 0777);
    SetMode(Native(u"tmp/dark"_s), 0);
    const int number = NumberOfNobody([this] { m_files.DeleteFolder(Native(u"tmp"_s), {}); });
    SKIP_UNLESS(number != -1, "this process cannot become another user");
    EXPECT_EQ(number, 0);
    EXPECT_EQ(NamesIn(Native()), QStringList());
}
