// Copying what is no plain file of music, or is to get no plain name.

#include "platform/linux/LinuxCopy.h"

#include "tests/platform/LinuxFixture.h"

#include <gtest/gtest.h>

#include <QFile>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

class OddFiles : public LinuxFixture {
protected:
    OddFiles() {
        MakeFolder(Native(QStringLiteral("source")));
        MakeFolder(Target());
    }

    QString Source(const QString& name) const { return Native(QStringLiteral("source/") + name); }
    QString Target(const QString& name = QString()) const {
        return Native(QStringLiteral("target")) + (name.isEmpty() ? name : QLatin1Char('/') + name);
    }
    int CopyError(const QString& name, const QString& targetName) {
        return NumberOf([&] { m_files.CopyFile(Source(name), Target(targetName)); });
    }
};

/// The parameter is one of the two ways in which a copy is made.
class OddFilesInEitherWay
    : public OddFiles,
      public testing::WithParamInterface<void (*)(const CopySource&, int, const QByteArray&)> {};

} // namespace

TEST_F(OddFiles, ASocketIsNoFile) {
    const FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM, 0));
    sockaddr_un address{AF_UNIX, {}};
    const QByteArray path = Source(QStringLiteral("socket")).toUtf8();
    ASSERT_LT(static_cast<size_t>(path.size()), sizeof address.sun_path);
    std::copy(path.begin(), path.end(), address.sun_path);
    ASSERT_EQ(bind(socket.Get(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(CopyError(QStringLiteral("socket"), QStringLiteral("x")), 53);
}

TEST_F(OddFiles, NothingIsGivenThePartName) {
    WriteFile(Source(QStringLiteral("a")), "new");
    for (const char* name : {".songlift.part", ".SongLift.PART"}) {
        EXPECT_EQ(CopyError(QStringLiteral("a"), QString::fromLatin1(name)), 70);
        EXPECT_EQ(MoveError(Source(QStringLiteral("a")), Target(QString::fromLatin1(name))), 70);
        EXPECT_EQ(CreationError(Target(QString::fromLatin1(name))), 70);
    }
    EXPECT_EQ(NamesIn(Target()), QStringList());
}

TEST_F(OddFiles, AFileThatOnlyClaimsToBeHugeFillsNoDisk) {
    const TestMount mount = TestMount::Memory(Native(QStringLiteral("target")), "size=2m");
    if (!mount.IsMounted()) {
        GTEST_SKIP() << "no small disk can be mounted here";
    }
    WriteFile(Source(QStringLiteral("huge")), "begin");
    ASSERT_EQ(truncate(Source(QStringLiteral("huge")).toUtf8().constData(), off_t{1} << 43), 0);
    EXPECT_EQ(CopyError(QStringLiteral("huge"), QStringLiteral("huge")), 0);
    EXPECT_EQ(m_files.FileLength(Target(QStringLiteral("huge"))), qint64{1} << 43);
}

TEST_P(OddFilesInEitherWay, TheBytesBetweenHolesStayInTheirPlaces) {
    const QByteArray bytes = Pattern(100000);
    QFile file(Source(QStringLiteral("holes")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    for (const qint64 at : {0, 1 << 20, 3 << 20}) {
        ASSERT_TRUE(file.seek(at));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }
    ASSERT_TRUE(file.resize(5 << 20));
    file.close();
    const FileDescriptor source(
        open(Source(QStringLiteral("holes")).toUtf8().constData(), O_RDONLY | O_CLOEXEC));
    const FileDescriptor folder(
        open(Target().toUtf8().constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    struct stat info {};
    ASSERT_EQ(fstat(source.Get(), &info), 0);
    GetParam()({source.Get(), info}, folder.Get(), "holes");
    const QByteArray copied = ReadFile(Target(QStringLiteral("holes")));
    EXPECT_TRUE(copied == ReadFile(Source(QStringLiteral("holes"))));
    EXPECT_EQ(copied.size(), 5 << 20);
    EXPECT_TRUE(copied.mid(3 << 20, 100000) == bytes);
    ASSERT_EQ(stat(Target(QStringLiteral("holes")).toUtf8().constData(), &info), 0);
    EXPECT_LT(info.st_blocks * 512, 1 << 20);
}

INSTANTIATE_TEST_SUITE_P(EitherWay, OddFilesInEitherWay,
                         testing::Values(&CopyWhole, &CopyUnderPartName), [](const auto& way) {
                             return way.param == &CopyWhole ? "AsTheDiskAllows" : "UnderPartName";
                         });
