#include "tests/platform/LinuxFixture.h"

#include <gtest/gtest.h>

#include <QDir>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

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

TEST_F(DeleteFixture, AFolderIsDeletedWithAllItHolds) {
    MakeFolder(Native(QStringLiteral("tmp/a/b")));
    MakeFolder(Native(QStringLiteral("tmp/c")));
    WriteFile(Native(QStringLiteral("tmp/copy.tmp")), "x");
    WriteFile(Native(QStringLiteral("tmp/.hidden")), "x");
    WriteFile(Native(QStringLiteral("tmp/a/b/file")), "x");
    ASSERT_TRUE(MakePipe(Native(QStringLiteral("tmp/c/pipe"))));
    WriteFile(Native(QStringLiteral("other")), "x");
    EXPECT_EQ(DeleteError(Native(QStringLiteral("tmp"))), 0);
    EXPECT_EQ(NamesIn(Native()), QStringList(QStringLiteral("other")));
}

TEST_F(DeleteFixture, AFolderIsDeletedByADrivePath) {
    MakeFolder(Native(QStringLiteral("New/Sub")));
    EXPECT_EQ(DeleteError(QStringLiteral("E:\\NEW\\sub\\")), 0);
    EXPECT_EQ(DeleteError(QStringLiteral("E:\\new")), 0);
    EXPECT_EQ(NamesIn(Native()), QStringList());
}

TEST_F(DeleteFixture, AFolderOfManyFilesIsDeleted) {
    const TestMount mount = TestMount::Memory(Native(), "size=64m"); // faster, where it can be had
    MakeFolder(Native(QStringLiteral("tmp")));
    for (int i = 0; i < 2000; ++i) {
        WriteFile(Native(QStringLiteral("tmp/%1").arg(i)), QByteArray());
    }
    EXPECT_EQ(DeleteError(Native(QStringLiteral("tmp"))), 0);
    EXPECT_EQ(NamesIn(Native()), QStringList());
}

TEST_F(DeleteFixture, NamesThatAreNotTextAreDeleted) {
    MakeFolder(Native(QStringLiteral("tmp")));
    const QByteArray folder = Native(QStringLiteral("tmp")).toUtf8();
    ASSERT_EQ(mkdir((folder + "/bad\xFF\n").constData(), 0755), 0);
    ASSERT_EQ(mkdir((folder + "/bad\xFF\n/\x01").constData(), 0755), 0);
    EXPECT_EQ(DeleteError(Native(QStringLiteral("tmp"))), 0);
    EXPECT_EQ(NamesIn(Native()), QStringList());
}

TEST_F(DeleteFixture, LinksAreRemovedAndNotFollowed) {
    MakeFolder(Native(QStringLiteral("precious/inner")));
    WriteFile(Native(QStringLiteral("precious/inner/letter")), "x");
    MakeFolder(Native(QStringLiteral("tmp/sub")));
    MakeLink(QStringLiteral("../precious"), Native(QStringLiteral("tmp/folder-link")));
    MakeLink(QStringLiteral("../../precious/inner/letter"),
             Native(QStringLiteral("tmp/sub/file-link")));
    MakeLink(QStringLiteral("nix"), Native(QStringLiteral("tmp/dead-link")));
    EXPECT_EQ(DeleteError(Native(QStringLiteral("tmp"))), 0);
    EXPECT_EQ(NamesIn(Native()), QStringList(QStringLiteral("precious")));
    EXPECT_EQ(ReadFile(Native(QStringLiteral("precious/inner/letter"))), "x");
}

TEST_F(DeleteFixture, OfALinkToAFolderOnlyTheLinkIsRemoved) {
    MakeFolder(Native(QStringLiteral("precious/inner")));
    MakeLink(QStringLiteral("precious"), Native(QStringLiteral("tmp")));
    EXPECT_EQ(DeleteError(Native(QStringLiteral("tmp"))), 0);
    EXPECT_EQ(NamesIn(Native()), QStringList(QStringLiteral("precious")));
    EXPECT_EQ(NamesIn(Native(QStringLiteral("precious"))), QStringList(QStringLiteral("inner")));
}

TEST_F(DeleteFixture, AnythingButAFolderCountsAsAMissingFolder) {
    WriteFile(Native(QStringLiteral("file")), "x");
    MakeLink(QStringLiteral("file"), Native(QStringLiteral("link")));
    MakeLink(QStringLiteral("nix"), Native(QStringLiteral("dead")));
    for (const char* name : {"file", "link", "dead", "nix", "nix/nix"}) {
        EXPECT_EQ(DeleteError(Native(QString::fromLatin1(name))), 76) << name;
    }
    EXPECT_EQ(DeleteError(QStringLiteral("Q:\\")), 76);
    EXPECT_EQ(DeleteError(QString()), 76);
    EXPECT_EQ(NamesIn(Native()), QStringList({QStringLiteral("dead"), QStringLiteral("file"),
                                              QStringLiteral("link")}));
}

TEST_F(DeleteFixture, APathThatEndsInDotsDeletesNothing) {
    MakeFolder(Native(QStringLiteral("a/b")));
    EXPECT_EQ(DeleteError(Native(QStringLiteral("a/b/.."))), 76);
    EXPECT_EQ(DeleteError(Native(QStringLiteral("a/."))), 76);
    EXPECT_EQ(DeleteError(QStringLiteral("E:\\a\\b\\..")), 76);
    EXPECT_TRUE(IsThere(Native(QStringLiteral("a/b"))));
}

TEST_F(DeleteFixture, ADrivesRootIsLeftAlone) {
    WriteFile(Native(QStringLiteral("file")), "x");
    EXPECT_EQ(DeleteError(QStringLiteral("E:\\")), 0);
    EXPECT_EQ(DeleteError(QStringLiteral("E:")), 0);
    EXPECT_TRUE(IsThere(Native(QStringLiteral("file"))));
}

TEST_F(DeleteFixture, ASharedTemporaryFolderIsLeftAlone) {
    MakeFolder(Native(QStringLiteral("tmp")));
    WriteFile(Native(QStringLiteral("tmp/of-someone")), "x");
    SetMode(Native(QStringLiteral("tmp")), 01777);
    EXPECT_EQ(DeleteError(Native(QStringLiteral("tmp"))), 0);
    EXPECT_EQ(DeleteError(QStringLiteral("E:\\TMP")), 0);
    EXPECT_EQ(ReadFile(Native(QStringLiteral("tmp/of-someone"))), "x");
}

TEST_F(DeleteFixture, ASharedTemporaryFolderInsideIsLeftAloneAndTheRestIsDeleted) {
    MakeFolder(Native(QStringLiteral("tmp/a/shared")));
    MakeFolder(Native(QStringLiteral("tmp/b/c")));
    WriteFile(Native(QStringLiteral("tmp/a/shared/of-someone")), "x");
    WriteFile(Native(QStringLiteral("tmp/a/file")), "x");
    SetMode(Native(QStringLiteral("tmp/a/shared")), 01777);
    EXPECT_EQ(DeleteError(Native(QStringLiteral("tmp"))), 0);
    EXPECT_EQ(NamesIn(Native(QStringLiteral("tmp"))), QStringList(QStringLiteral("a")));
    EXPECT_EQ(NamesIn(Native(QStringLiteral("tmp/a"))), QStringList(QStringLiteral("shared")));
    EXPECT_EQ(ReadFile(Native(QStringLiteral("tmp/a/shared/of-someone"))), "x");
}

TEST_F(DeleteFixture, AMountPointIsLeftAlone) {
    MakeFolder(Native(QStringLiteral("tmp")));
    const TestMount mount = TestMount::Memory(Native(QStringLiteral("tmp")));
    if (!mount.IsMounted()) {
        GTEST_SKIP() << "no disk can be mounted here";
    }
    SetMode(Native(QStringLiteral("tmp")), 0755);
    WriteFile(Native(QStringLiteral("tmp/file")), "x");
    EXPECT_EQ(DeleteError(Native(QStringLiteral("tmp"))), 0);
    EXPECT_EQ(ReadFile(Native(QStringLiteral("tmp/file"))), "x");
}

TEST_F(DeleteFixture, MountPointsInsideAreLeftAloneAndTheRestIsDeleted) {
    MakeFolder(Native(QStringLiteral("precious")));
    WriteFile(Native(QStringLiteral("precious/letter")), "x");
    MakeFolder(Native(QStringLiteral("tmp/a/mounted")));
    MakeFolder(Native(QStringLiteral("tmp/b")));
    WriteFile(Native(QStringLiteral("tmp/file")), "y");
    // A folder of the same disk: its device number does not tell.
    const TestMount folder = TestMount::Bind(Native(QStringLiteral("precious")),
                                             Native(QStringLiteral("tmp/a/mounted")));
    const TestMount file = TestMount::Bind(Native(QStringLiteral("precious/letter")),
                                           Native(QStringLiteral("tmp/file")));
    if (!folder.IsMounted() || !file.IsMounted()) {
        GTEST_SKIP() << "nothing can be mounted here";
    }
    EXPECT_EQ(DeleteError(Native(QStringLiteral("tmp"))), 0);
    EXPECT_EQ(ReadFile(Native(QStringLiteral("precious/letter"))), "x");
    EXPECT_EQ(NamesIn(Native(QStringLiteral("tmp"))),
              QStringList({QStringLiteral("a"), QStringLiteral("file")}));
    EXPECT_EQ(NamesIn(Native(QStringLiteral("tmp/a"))), QStringList(QStringLiteral("mounted")));
}

TEST_F(DeleteFixture, DeepNestingTakesFewOpenFilesAndLittleStack) {
    const TestMount mount = TestMount::Memory(Native(), "size=64m"); // faster, where it can be had
    MakeNest(Native(QStringLiteral("tmp")), 1000);
    const int number = RunInChild([this] {
        const rlimit fewFiles{32, 32};
        setrlimit(RLIMIT_NOFILE, &fewFiles);
        m_files.DeleteFolder(Native(QStringLiteral("tmp")), {});
    });
    EXPECT_EQ(number, 0);
    EXPECT_EQ(NamesIn(Native()), QStringList());
}

TEST_F(DeleteFixture, AnEntryThatMayNotBeDeletedDoesNotProtectTheRest) {
    MakeFolder(Native(QStringLiteral("tmp")));
    MakeFolder(Native(QStringLiteral("tmp/closed")));
    MakeFolder(Native(QStringLiteral("tmp/open")));
    WriteFile(Native(QStringLiteral("tmp/closed/file")), "x");
    SetMode(Native(), 0777);
    SetMode(Native(QStringLiteral("tmp")), 0777);
    SetMode(Native(QStringLiteral("tmp/open")), 0777);
    SetMode(Native(QStringLiteral("tmp/closed")), 0555);
    const int number =
        NumberOfNobody([this] { m_files.DeleteFolder(Native(QStringLiteral("tmp")), {}); });
    if (number == -1) {
        GTEST_SKIP() << "this process cannot become another user";
    }
    EXPECT_EQ(number, 70);
    EXPECT_EQ(NamesIn(Native(QStringLiteral("tmp"))), QStringList(QStringLiteral("closed")));
    EXPECT_EQ(ReadFile(Native(QStringLiteral("tmp/closed/file"))), "x");
    SetMode(Native(QStringLiteral("tmp/closed")), 0755);
}

TEST_F(DeleteFixture, AnEmptyFolderThatMayNotBeReadIsDeleted) {
    MakeFolder(Native(QStringLiteral("tmp/dark")));
    SetMode(Native(), 0777);
    SetMode(Native(QStringLiteral("tmp")), 0777);
    SetMode(Native(QStringLiteral("tmp/dark")), 0);
    const int number =
        NumberOfNobody([this] { m_files.DeleteFolder(Native(QStringLiteral("tmp")), {}); });
    if (number == -1) {
        GTEST_SKIP() << "this process cannot become another user";
    }
    EXPECT_EQ(number, 0);
    EXPECT_EQ(NamesIn(Native()), QStringList());
}
