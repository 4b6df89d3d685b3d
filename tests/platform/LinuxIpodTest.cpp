#include "platform/linux/LinuxCopy.h"
#include "tests/platform/LinuxFixture.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

namespace {

/// An iPod that is attached as drive E:, beside a home folder.
class IpodFixture : public LinuxFixture {
protected:
    IpodFixture() {
        MakeFolder(Ipod(QStringLiteral("/iPod_Control/Music/F00")));
        MakeFolder(Ipod(QStringLiteral("/Notes")));
        WriteFile(Ipod(QStringLiteral("/iPod_Control/Music/F00/ABCD.mp3")), "abcd");
        WriteFile(Ipod(QStringLiteral("/Notes/note.txt")), "note");
        MakeFolder(Home());
        WriteFile(Home(QStringLiteral("/Song.mp3")), "song");
        qputenv("SONGLIFT_DRIVES", Ipod().toUtf8());
    }

    QString Ipod(const QString& below = QString()) const {
        return Native(QStringLiteral("IPOD")) + below;
    }
    QString Home(const QString& below = QString()) const {
        return Native(QStringLiteral("home")) + below;
    }

    /// Whether every change in an existing folder that holds "note.txt" is refused, and none made.
    void ExpectReadOnly(const QString& folder) {
        EXPECT_TRUE(m_files.IsOnIpod(folder)) << qPrintable(folder);
        const QString base = folder + (folder.startsWith(QLatin1Char('/')) ? u'/' : u'\\');
        const QString note = base + QStringLiteral("note.txt");
        const QString fresh = base + QStringLiteral("new");
        const QString song = Home(QStringLiteral("/Song.mp3"));
        EXPECT_EQ(CreationError(fresh), 70);
        EXPECT_EQ(ChainError(fresh), 70);
        EXPECT_EQ(NumberOf([&] { m_files.CopyFile(song, fresh, Existing::Replace, {}); }), 70);
        EXPECT_EQ(NumberOf([&] { m_files.CopyFile(song, note, Existing::Replace, {}); }), 70);
        EXPECT_EQ(MoveError(song, fresh), 70);
        EXPECT_EQ(MoveError(note, Home(QStringLiteral("/note.txt"))), 70);
        EXPECT_EQ(WritingError(note), 70);
        EXPECT_EQ(WritingError(fresh), 70);
        const QString part = QString::fromLatin1(PartName);
        WriteFile(Ipod(QStringLiteral("/Notes/") + part), "a stranger's");
        m_files.RemoveLeftovers(folder);
        EXPECT_TRUE(QFile::remove(Ipod(QStringLiteral("/Notes/") + part)));
        EXPECT_EQ(NamesIn(Ipod(QStringLiteral("/Notes"))), QStringList(QStringLiteral("note.txt")));
        EXPECT_EQ(ReadFile(Ipod(QStringLiteral("/Notes/note.txt"))), "note");
        EXPECT_EQ(ReadFile(song), "song");
    }

    int DeleteError(const QString& path) {
        return NumberOf([&] { m_files.DeleteFolder(path, {}); });
    }
};

} // namespace

TEST_F(IpodFixture, NothingIsChangedOnItByItsLetter) {
    ExpectReadOnly(QStringLiteral("E:\\Notes"));
    ExpectReadOnly(QStringLiteral("e:\\NOTES"));
    EXPECT_EQ(DeleteError(QStringLiteral("E:\\Notes")), 70);
    EXPECT_TRUE(IsThere(Ipod(QStringLiteral("/Notes/note.txt"))));
}

TEST_F(IpodFixture, NothingIsChangedOnItByItsNativePath) {
    ExpectReadOnly(Ipod(QStringLiteral("/Notes")));
    EXPECT_EQ(DeleteError(Ipod(QStringLiteral("/Notes"))), 70);
    EXPECT_TRUE(IsThere(Ipod(QStringLiteral("/Notes/note.txt"))));
}

TEST_F(IpodFixture, NothingIsChangedOnItThroughALink) {
    MakeLink(Ipod(QStringLiteral("/Notes")), Home(QStringLiteral("/link")));
    ExpectReadOnly(Home(QStringLiteral("/link")));
    EXPECT_EQ(DeleteError(Home(QStringLiteral("/link"))), 0); // only the link goes
    EXPECT_TRUE(IsThere(Ipod(QStringLiteral("/Notes/note.txt"))));
}

TEST_F(IpodFixture, NothingIsChangedOnItThroughASecondMount) {
    MakeFolder(Home(QStringLiteral("/mounted")));
    const TestMount mount =
        TestMount::Bind(Ipod(QStringLiteral("/Notes")), Home(QStringLiteral("/mounted")));
    if (!mount.IsMounted()) {
        GTEST_SKIP() << "no folder can be mounted twice here";
    }
    ExpectReadOnly(Home(QStringLiteral("/mounted")));
}

TEST_F(IpodFixture, AFolderThatDoesNotExistYetIsOnItToo) {
    EXPECT_TRUE(m_files.IsOnIpod(QStringLiteral("E:\\")));
    EXPECT_TRUE(m_files.IsOnIpod(QStringLiteral("E:\\nix\\nix\\nix")));
    EXPECT_TRUE(m_files.IsOnIpod(Ipod(QStringLiteral("/nix/nix/nix/"))));
}

TEST_F(IpodFixture, BesideItChangesAreAllowed) {
    MakeFolder(Native(QStringLiteral("IPOD 2")));
    EXPECT_FALSE(m_files.IsOnIpod(Native()));
    EXPECT_FALSE(m_files.IsOnIpod(Home()));
    EXPECT_FALSE(m_files.IsOnIpod(Native(QStringLiteral("IPOD 2"))));
    EXPECT_FALSE(m_files.IsOnIpod(QStringLiteral("Q:\\x")));
    EXPECT_FALSE(m_files.IsOnIpod(QString()));
    EXPECT_EQ(CreationError(Native(QStringLiteral("IPOD 2/Music"))), 0);
    EXPECT_EQ(CreationError(Native(QStringLiteral("IPOD 3"))), 0);
}

TEST_F(IpodFixture, OnADriveThatIsNotAnIpodChangesAreAllowed) {
    qputenv("SONGLIFT_DRIVES", Home().toUtf8());
    EXPECT_FALSE(m_files.IsOnIpod(QStringLiteral("E:\\Music")));
    EXPECT_EQ(CreationError(QStringLiteral("E:\\Music")), 0);
    EXPECT_FALSE(m_files.IsOnIpod(Ipod())); // not attached
}

TEST_F(IpodFixture, ItsFolderIsRecognisedInAnyCase) {
    MakeFolder(Native(QStringLiteral("SECOND/IPOD_CONTROL")));
    qputenv("SONGLIFT_DRIVES", (Ipod() + u':' + Native(QStringLiteral("SECOND"))).toUtf8());
    EXPECT_TRUE(m_files.IsOnIpod(Native(QStringLiteral("SECOND"))));
    EXPECT_EQ(CreationError(QStringLiteral("F:\\Music")), 70);
    EXPECT_EQ(CreationError(QStringLiteral("E:\\Music")), 70);
}

TEST_F(IpodFixture, AnAttachedFolderThatGetsAnotherNumberIsStillOne) {
    EXPECT_TRUE(m_files.IsOnIpod(Ipod()));
    // As on disks that give a folder another number when it comes back into memory.
    ASSERT_TRUE(QDir().rename(Ipod(), Native(QStringLiteral("earlier"))));
    MakeFolder(Ipod(QStringLiteral("/iPod_Control")));
    MakeFolder(Ipod(QStringLiteral("/Notes")));
    EXPECT_TRUE(m_files.IsOnIpod(Ipod(QStringLiteral("/Notes"))));
}

TEST_F(IpodFixture, AnAttachedFolderOutlivesTheDeletionOfAFolderAboveIt) {
    const QString backup = Home(QStringLiteral("/tmp/backups/IPOD"));
    MakeFolder(backup + QStringLiteral("/iPod_Control"));
    WriteFile(backup + QStringLiteral("/iPod_Control/file"), "x");
    WriteFile(Home(QStringLiteral("/tmp/backups/other")), "x");
    qputenv("SONGLIFT_DRIVES", backup.toUtf8());
    EXPECT_EQ(DeleteError(Home(QStringLiteral("/tmp"))), 0);
    EXPECT_EQ(ReadFile(backup + QStringLiteral("/iPod_Control/file")), "x");
    EXPECT_EQ(NamesIn(Home(QStringLiteral("/tmp/backups"))), QStringList(QStringLiteral("IPOD")));
}
