#include "platform/linux/LinuxCopy.h"
#include "tests/platform/LinuxFixture.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

/// An iPod that is attached as drive E:, beside a home folder.
class IpodFixture : public LinuxFixture {
protected:
    IpodFixture() {
        MakeFolder(Ipod(u"/iPod_Control/Music/F00"_s));
        MakeFolder(Ipod(u"/Notes"_s));
        WriteFile(Ipod(u"/iPod_Control/Music/F00/ABCD.mp3"_s), "abcd");
        WriteFile(Ipod(u"/Notes/note.txt"_s), "note");
        MakeFolder(Home());
        WriteFile(Home(u"/Song.mp3"_s), "song");
        qputenv("SONGLIFT_DRIVES", Ipod().toUtf8());
    }

    QString Ipod(const QString& below = QString()) const { return Native(u"IPOD"_s) + below; }
    QString Home(const QString& below = QString()) const { return Native(u"home"_s) + below; }

    /// Whether every change in an existing folder that holds "note.txt" is refused, and none made.
    void ExpectReadOnly(const QString& folder) {
        EXPECT_TRUE(m_files.IsOnIpod(folder)) << qPrintable(folder);
        const QString base = folder + (folder.startsWith(u'/') ? u'/' : u'\\');
        const QString note = base + u"note.txt"_s;
        const QString fresh = base + u"new"_s;
        const QString song = Home(u"/Song.mp3"_s);
        EXPECT_EQ(CreationError(fresh), 70);
        EXPECT_EQ(ChainError(fresh), 70);
        EXPECT_EQ(NumberOf([&] { m_files.CopyFile(song, fresh, Existing::Replace, {}); }), 70);
        EXPECT_EQ(NumberOf([&] { m_files.CopyFile(song, note, Existing::Replace, {}); }), 70);
        EXPECT_EQ(MoveError(song, fresh), 70);
        EXPECT_EQ(MoveError(note, Home(u"/note.txt"_s)), 70);
        EXPECT_EQ(WritingError(note), 70);
        EXPECT_EQ(WritingError(fresh), 70);
        const QString part = QString::fromLatin1(PartName);
        WriteFile(Ipod(u"/Notes/"_s + part), "a stranger's");
        m_files.RemoveLeftovers(folder);
        EXPECT_TRUE(QFile::remove(Ipod(u"/Notes/"_s + part)));
        EXPECT_EQ(NamesIn(Ipod(u"/Notes"_s)), QStringList(u"note.txt"_s));
        EXPECT_EQ(ReadFile(Ipod(u"/Notes/note.txt"_s)), "note");
        EXPECT_EQ(ReadFile(song), "song");
    }

    int DeleteError(const QString& path) {
        return NumberOf([&] { m_files.DeleteFolder(path, {}); });
    }
};

} // namespace

TEST_F(IpodFixture, NothingIsChangedOnItByItsLetter) {
    ExpectReadOnly(u"E:\\Notes"_s);
    ExpectReadOnly(u"e:\\NOTES"_s);
    EXPECT_EQ(DeleteError(u"E:\\Notes"_s), 70);
    EXPECT_TRUE(IsThere(Ipod(u"/Notes/note.txt"_s)));
}

TEST_F(IpodFixture, NothingIsChangedOnItByItsNativePath) {
    ExpectReadOnly(Ipod(u"/Notes"_s));
    EXPECT_EQ(DeleteError(Ipod(u"/Notes"_s)), 70);
    EXPECT_TRUE(IsThere(Ipod(u"/Notes/note.txt"_s)));
}

TEST_F(IpodFixture, NothingIsChangedOnItThroughALink) {
    MakeLink(Ipod(u"/Notes"_s), Home(u"/link"_s));
    ExpectReadOnly(Home(u"/link"_s));
    EXPECT_EQ(DeleteError(Home(u"/link"_s)), 0); // only the link goes
    EXPECT_TRUE(IsThere(Ipod(u"/Notes/note.txt"_s)));
}

TEST_F(IpodFixture, NothingIsChangedOnItThroughASecondMount) {
    MakeFolder(Home(u"/mounted"_s));
    const TestMount mount = TestMount::Bind(Ipod(u"/Notes"_s), Home(u"/mounted"_s));
    SKIP_UNLESS(mount.IsMounted(), "no folder can be mounted twice here");
    ExpectReadOnly(Home(u"/mounted"_s));
}

TEST_F(IpodFixture, AFolderThatDoesNotExistYetIsOnItToo) {
    EXPECT_TRUE(m_files.IsOnIpod(u"E:\\"_s));
    EXPECT_TRUE(m_files.IsOnIpod(u"E:\\nix\\nix\\nix"_s));
    EXPECT_TRUE(m_files.IsOnIpod(Ipod(u"/nix/nix/nix/"_s)));
}

TEST_F(IpodFixture, BesideItChangesAreAllowed) {
    MakeFolder(Native(u"IPOD 2"_s));
    EXPECT_FALSE(m_files.IsOnIpod(Native()));
    EXPECT_FALSE(m_files.IsOnIpod(Home()));
    EXPECT_FALSE(m_files.IsOnIpod(Native(u"IPOD 2"_s)));
    EXPECT_FALSE(m_files.IsOnIpod(u"Q:\\x"_s));
    EXPECT_FALSE(m_files.IsOnIpod(QString()));
    EXPECT_EQ(CreationError(Native(u"IPOD 2/Music"_s)), 0);
    EXPECT_EQ(CreationError(Native(u"IPOD 3"_s)), 0);
}

TEST_F(IpodFixture, OnADriveThatIsNotAnIpodChangesAreAllowed) {
    qputenv("SONGLIFT_DRIVES", Home().toUtf8());
    EXPECT_FALSE(m_files.IsOnIpod(u"E:\\Music"_s));
    EXPECT_EQ(CreationError(u"E:\\Music"_s), 0);
    EXPECT_FALSE(m_files.IsOnIpod(Ipod())); // not attached
}

TEST_F(IpodFixture, ItsFolderIsRecognisedInAnyCase) {
    MakeFolder(Native(u"SECOND/IPOD_CONTROL"_s));
    qputenv("SONGLIFT_DRIVES", (Ipod() + u':' + Native(u"SECOND"_s)).toUtf8());
    EXPECT_TRUE(m_files.IsOnIpod(Native(u"SECOND"_s)));
    EXPECT_EQ(CreationError(u"F:\\Music"_s), 70);
    EXPECT_EQ(CreationError(u"E:\\Music"_s), 70);
}

TEST_F(IpodFixture, AnAttachedFolderThatGetsAnotherNumberIsStillOne) {
    EXPECT_TRUE(m_files.IsOnIpod(Ipod()));
    // As on disks that give a folder another number when it comes back into memory.
    ASSERT_TRUE(QDir().rename(Ipod(), Native(u"earlier"_s)));
    MakeFolder(Ipod(u"/iPod_Control"_s));
    MakeFolder(Ipod(u"/Notes"_s));
    EXPECT_TRUE(m_files.IsOnIpod(Ipod(u"/Notes"_s)));
}

TEST_F(IpodFixture, AnAttachedFolderOutlivesTheDeletionOfAFolderAboveIt) {
    const QString backup = Home(u"/tmp/backups/IPOD"_s);
    MakeFolder(backup + u"/iPod_Control"_s);
    WriteFile(backup + u"/iPod_Control/file"_s, "x");
    WriteFile(Home(u"/tmp/backups/other"_s), "x");
    qputenv("SONGLIFT_DRIVES", backup.toUtf8());
    EXPECT_EQ(DeleteError(Home(u"/tmp"_s)), 0);
    EXPECT_EQ(ReadFile(backup + u"/iPod_Control/file"_s), "x");
    EXPECT_EQ(NamesIn(Home(u"/tmp/backups"_s)), QStringList(u"IPOD"_s));
}
