#include "tests/platform/IpodFixture.h"
#include "tests/platform/LinuxFixture.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

class LinuxIpod : public IpodFixture {};

} // namespace

TEST_F(LinuxIpod, NothingIsChangedOnItThroughALink) {
    MakeLink(Ipod(u"Notes"_s), Home(u"link"_s));
    ExpectReadOnly(Home(u"link"_s));
    EXPECT_EQ(DeleteError(Home(u"link"_s)), 0); // only the link goes
    EXPECT_TRUE(IsThere(Ipod(u"Notes/note.txt"_s)));
}

TEST_F(LinuxIpod, NothingIsChangedOnItThroughASecondMount) {
    MakeFolder(Home(u"mounted"_s));
    const TestMount mount = TestMount::Bind(Ipod(u"Notes"_s), Home(u"mounted"_s));
    SKIP_UNLESS(mount.IsMounted(), "no folder can be mounted twice here");
    ExpectReadOnly(Home(u"mounted"_s));
}

TEST_F(LinuxIpod, AnAttachedFolderThatGetsAnotherNumberIsStillOne) {
    EXPECT_TRUE(m_files.IsOnIpod(Ipod({})));
    // As on disks that give a folder another number when it comes back into memory.
    ASSERT_TRUE(QDir().rename(Ipod({}), Home(u"earlier"_s)));
    MakeFolder(Ipod(u"iPod_Control"_s));
    MakeFolder(Ipod(u"Notes"_s));
    EXPECT_TRUE(m_files.IsOnIpod(Ipod(u"Notes"_s)));
}

TEST_F(LinuxIpod, WhatIsNoneCanBeOneAfterTheNextLookAtTheDrives) {
    MakeFolder(Home(u"Music"_s));
    EXPECT_FALSE(m_files.IsOnIpod(Home(u"Music"_s)));
    MakeFolder(Home(u"iPod_Control"_s));
    qputenv("SONGLIFT_DRIVES", Home({}).toUtf8());
    m_disk.Drives().Drives();
    EXPECT_TRUE(m_files.IsOnIpod(Home(u"Music"_s)));
}

TEST_F(LinuxIpod, AnAttachedFolderOutlivesTheDeletionOfAFolderAboveIt) {
    const QString backup = Home(u"tmp/backups/IPOD"_s);
    MakeFolder(backup + u"/iPod_Control"_s);
    WriteFile(backup + u"/iPod_Control/file"_s, "x");
    WriteFile(Home(u"tmp/backups/other"_s), "x");
    qputenv("SONGLIFT_DRIVES", backup.toUtf8());
    EXPECT_EQ(DeleteError(Home(u"tmp"_s)), 0);
    EXPECT_EQ(ReadFile(backup + u"/iPod_Control/file"_s), "x");
    EXPECT_EQ(NamesIn(Home(u"tmp/backups"_s)), QStringList(u"IPOD"_s));
}
