// Copying what is no plain file of music, or is to get no plain name.

#include "platform/linux/LinuxCopy.h"

#include "tests/platform/LinuxFixture.h"

#include <gtest/gtest.h>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

class OddFiles : public LinuxFixture {
protected:
    OddFiles() {
        MakeFolder(Native(u"source"_s));
        MakeFolder(Target());
    }

    QString Source(const QString& name) const { return Native(u"source/"_s + name); }
    QString Target(const QString& name = QString()) const {
        return Native(u"target"_s) + (name.isEmpty() ? name : u'/' + name);
    }
    int CopyError(const QString& name, const QString& targetName) {
        return NumberOf(
            [&] { m_files.CopyFile(Source(name), Target(targetName), Existing::Replace, {}); });
    }
};

} // namespace

TEST_F(OddFiles, ASocketIsNoFile) {
    const FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM, 0));
    sockaddr_un address{AF_UNIX, {}};
    const QByteArray path = Source(u"socket"_s).toUtf8();
    ASSERT_LT(static_cast<size_t>(path.size()), sizeof address.sun_path);
    std::copy(path.begin(), path.end(), address.sun_path);
    ASSERT_EQ(bind(socket.Get(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(CopyError(u"socket"_s, u"x"_s), 53);
}

TEST_F(OddFiles, NoFileIsGivenThePartName) {
    WriteFile(Source(u"a"_s), "new");
    // Blanks and dots at the end are lost on the drives people carry away.
    for (const char* name :
         {".songlift.part", ".SongLift.PART", ".songlift.part.", ".songlift.part. "}) {
        EXPECT_EQ(CopyError(u"a"_s, QString::fromLatin1(name)), 70);
        EXPECT_EQ(MoveError(Source(u"a"_s), Target(QString::fromLatin1(name))), 70);
        EXPECT_EQ(CreationError(Target(QString::fromLatin1(name))), 70);
    }
    EXPECT_EQ(NamesIn(Target()), QStringList());
}
