#include "platform/linux/LinuxDrives.h"

#include "platform/RuntimeError.h"
#include "tests/platform/LinuxFixture.h"
#include "tests/support/ServedDisk.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// A computer with one disk of its own, whose tables a test writes.
class DrivesFixture : public testing::Test {
protected:
    DrivesFixture() {
        qunsetenv("SONGLIFT_DRIVES");
        AddDisk("8:0", "pci0000:00/ata1/block/sda", false);
        AddPartition("8:1", "pci0000:00/ata1/block/sda/sda1");
        Mount("8:1", "/", "ext4", "/dev/sda1");
    }
    ~DrivesFixture() override { qunsetenv("SONGLIFT_DRIVES"); }

    QString Path(const QString& name) const { return m_folder.filePath(name); }

    void AddDevice(const QString& number, const QString& place) {
        const QString name = place.section(u'/', -1);
        MakeFolder(Path(u"sys/devices/"_s + place));
        MakeFolder(Path(u"sys/dev/block"_s));
        MakeFolder(Path(u"sys/class/block"_s));
        const QString target = u"../../devices/"_s + place;
        MakeLink(target, Path(u"sys/class/block/"_s + name));
        MakeLink(target, Path(u"sys/dev/block/"_s + number));
    }

    void AddDisk(const char* number, const char* place, bool saysRemovable) {
        AddDevice(QString::fromLatin1(number), QString::fromLatin1(place));
        WriteFile(Path(u"sys/devices/%1/removable"_s.arg(QLatin1String(place))),
                  saysRemovable ? "1\n" : "0\n");
    }

    void AddPartition(const char* number, const char* place) {
        AddDevice(QString::fromLatin1(number), QString::fromLatin1(place));
        WriteFile(Path(u"sys/devices/%1/partition"_s.arg(QLatin1String(place))), "1\n");
    }

    /// A memory stick with one partition: AddStick("8:16", "sdb").
    void AddStick(const char* number, const char* name, int minor) {
        const QByteArray disk = QByteArray("pci0000:00/usb1/1-2/block/") + name;
        AddDisk(number, disk.constData(), true);
        AddPartition(("8:" + QByteArray::number(minor)).constData(),
                     (disk + '/' + name + '1').constData());
    }

    /// The stick "sdb", mounted where desktops do that.
    void MountStick(const char* folder = "/media/ana/IPOD") {
        AddStick("8:16", "sdb", 17);
        Mount("8:17", folder, "vfat", "/dev/sdb1");
    }

    void Mount(const char* device, const char* folder, const char* type, const char* source,
               const char* root = "/") {
        m_lines += QByteArray("36 27 ") + device + ' ' + root + ' ' + folder +
                   " rw,relatime shared:9 - " + type + ' ' + source + " rw\n";
        WriteFile(Path(u"mountinfo"_s), m_lines);
    }

    void Unmount(const QByteArray& folder) {
        QByteArrayList kept;
        for (const QByteArray& line : m_lines.split('\n')) {
            if (!line.contains(' ' + folder + ' ')) {
                kept.append(line);
            }
        }
        m_lines = kept.join('\n');
        WriteFile(Path(u"mountinfo"_s), m_lines);
    }

    void AddDiskLink(const char* kind, const char* name, const char* device) {
        const QString folder = Path(u"disk/"_s + QLatin1String(kind));
        MakeFolder(folder);
        MakeLink(u"../../"_s + QLatin1String(device), folder + u'/' + QString::fromUtf8(name));
    }

    void RemoveDiskLink(const char* kind, const char* name) {
        const QString link =
            Path(u"disk/%1/%2"_s.arg(QLatin1String(kind)).arg(QString::fromUtf8(name)));
        ASSERT_TRUE(QFile::remove(link));
    }

    /// The drives as "E:VOLUME F:OTHER".
    std::string Listed() {
        QStringList texts;
        for (const Drive& drive : m_drives.Drives()) {
            EXPECT_EQ(drive.Path, drive.Letter + u":"_s);
            EXPECT_TRUE(m_drives.IsRemovable(drive));
            texts.append(drive.Path + m_drives.VolumeName(drive));
        }
        return texts.join(u' ').toStdString();
    }

    QTemporaryDir m_folder;
    QByteArray m_lines;
    LinuxDrives m_drives{{Path(u"mountinfo"_s), Path(u"sys"_s), Path(u"disk"_s)}};
};

Drive DriveOfLetter(char16_t letter) {
    return {QChar(letter), QChar(letter) + u":"_s};
}

} // namespace

TEST_F(DrivesFixture, TheComputersOwnDiskIsNoDrive) {
    EXPECT_EQ(Listed(), "");
}

TEST_F(DrivesFixture, ADeviceThatSaysItIsRemovableIsADrive) {
    AddDisk("179:0", "pci0000:00/mmc/block/mmcblk0", true);
    AddPartition("179:1", "pci0000:00/mmc/block/mmcblk0/mmcblk0p1");
    Mount("179:1", "/mnt/card", "vfat", "/dev/mmcblk0p1");
    EXPECT_EQ(Listed(), "E:card");
}

TEST_F(DrivesFixture, AWholeDeviceWithoutPartitionsCanBeADrive) {
    AddDisk("11:0", "pci0000:00/ata2/block/sr0", true);
    Mount("11:0", "/mnt/disc", "iso9660", "/dev/sr0");
    EXPECT_EQ(Listed(), "E:disc");
}

TEST_F(DrivesFixture, ADeviceOnUsbIsADriveEvenIfItIsNotMarkedRemovable) {
    AddDisk("8:16", "pci0000:00/0000:00:14.0/usb2/2-1/host6/block/sdb", false);
    AddPartition("8:18", "pci0000:00/0000:00:14.0/usb2/2-1/host6/block/sdb/sdb2");
    Mount("8:18", "/mnt/ipod", "hfsplus", "/dev/sdb2");
    EXPECT_EQ(Listed(), "E:ipod");
}

TEST_F(DrivesFixture, ADeviceIsNotOnUsbBecauseANameResemblesIt) {
    AddDisk("8:16", "pci0000:00/usbcard/block/sdb", false);
    Mount("8:16", "/mnt/disk", "ext4", "/dev/sdb");
    EXPECT_EQ(Listed(), "");
}

TEST_F(DrivesFixture, AMountInAFolderWhereDesktopsMountIsADrive) {
    Mount("0:50", "/media/ana/Player", "fuse.ifuse", "ifuse");
    Mount("8:1", "/run/media/ana/Copy", "ext4", "/dev/sda1");
    EXPECT_EQ(Listed(), "E:Player F:Copy");
}

TEST_F(DrivesFixture, AMountInAFolderThatOnlyResemblesThoseIsNotADrive) {
    Mount("0:50", "/media", "fuse.ifuse", "ifuse");
    Mount("0:51", "/mediathek/x", "fuse.ifuse", "ifuse");
    Mount("0:52", "/srv/media/x", "fuse.ifuse", "ifuse");
    EXPECT_EQ(Listed(), "");
}

TEST_F(DrivesFixture, PseudoFileSystemsAreNoDrivesAnywhere) {
    Mount("0:40", "/media/chroot/proc", "proc", "proc");
    Mount("0:41", "/media/chroot/tmp", "tmpfs", "tmpfs");
    Mount("0:42", "/media/stick", "autofs", "systemd-1");
    Mount("0:43", "/run/media/ana/gvfs", "fuse.gvfsd-fuse", "gvfsd-fuse");
    EXPECT_EQ(Listed(), "");
}

TEST_F(DrivesFixture, ALaterMountHidesAnEarlierOneAtTheSameFolder) {
    AddStick("8:16", "sdb", 17);
    Mount("0:42", "/media/stick", "autofs", "systemd-1");
    Mount("8:17", "/media/stick", "vfat", "/dev/sdb1");
    EXPECT_EQ(Listed(), "E:stick");
    Mount("0:43", "/media/stick", "tmpfs", "tmpfs");
    EXPECT_EQ(Listed(), "");
}

TEST_F(DrivesFixture, ADeviceThatIsMountedTwiceIsOneDrive) {
    MountStick();
    Mount("8:17", "/srv/ipod", "vfat", "/dev/sdb1");
    EXPECT_EQ(Listed(), "E:IPOD");
}

TEST_F(DrivesFixture, OfADevicesMountsTheOneThatShowsMostIsTheDriveInThePlaceOfTheFirst) {
    AddStick("8:16", "sdb", 17);
    Mount("8:17", "/srv/music", "vfat", "/dev/sdb1", "/iPod_Control/Music");
    Mount("0:50", "/media/ana/A", "fuse.x", "a");
    Mount("8:17", "/media/ana/IPOD", "vfat", "/dev/sdb1");
    Mount("8:17", "/media/ana/notes", "vfat", "/dev/sdb1", "/Notes");
    EXPECT_EQ(Listed(), "E:IPOD F:A");
}

TEST_F(DrivesFixture, AFileSystemWithADeviceNumberOfItsOwnIsFoundByItsSource) {
    AddStick("8:16", "sdb", 17);
    Mount("0:44", "/mnt/stick", "btrfs", "/dev/sdb1");
    EXPECT_EQ(Listed(), "E:stick");
}

TEST_F(DrivesFixture, TheVolumeNameIsTheLabelOrElseTheMountFoldersName) {
    MountStick("/media/ana/ANAS\\040IPOD\\134\\011x");
    AddDiskLink("by-label", "OTHER", "sda1");
    EXPECT_EQ(Listed(), "E:ANAS IPOD\\\tx");
    const std::pair<const char*, const char*> labels[] = {
        {"MY\\x20IPOD", "E:MY IPOD"},
        {"M\xC3\xBCsik\\x2f\\xe2\\x99\\xab\\x5cx", "E:M\xC3\xBCsik/\xE2\x99\xAB\\x"},
        {"A\\xzz\\x2", "E:A\\xzz\\x2"}, // an incomplete escape stays as it is
    };
    for (const auto& [label, listed] : labels) {
        AddDiskLink("by-label", label, "sdb1");
        EXPECT_EQ(Listed(), listed);
        RemoveDiskLink("by-label", label);
    }
}

TEST_F(DrivesFixture, LettersFollowTheMountOrder) {
    AddStick("8:16", "sdb", 17);
    AddStick("8:32", "sdc", 33);
    Mount("8:33", "/media/ana/ZEBRA", "vfat", "/dev/sdc1");
    Mount("8:17", "/media/ana/APPLE", "vfat", "/dev/sdb1");
    EXPECT_EQ(Listed(), "E:ZEBRA F:APPLE");
}

TEST_F(DrivesFixture, AVolumeKeepsItsLetterWhileItStaysMounted) {
    Mount("0:50", "/media/ana/A", "fuse.x", "a");
    Mount("0:51", "/media/ana/B", "fuse.x", "b");
    EXPECT_EQ(Listed(), "E:A F:B");
    Unmount("/media/ana/A");
    EXPECT_EQ(Listed(), "F:B");
    Mount("0:52", "/media/ana/C", "fuse.x", "c");
    EXPECT_EQ(Listed(), "F:B G:C");
}

TEST_F(DrivesFixture, AVolumeThatComesBackHasItsOldLetter) {
    AddStick("8:16", "sdb", 17);
    AddStick("8:32", "sdc", 33);
    AddDiskLink("by-uuid", "AAAA-1111", "sdb1");
    Mount("8:17", "/media/ana/IPOD", "vfat", "/dev/sdb1");
    EXPECT_EQ(Listed(), "E:IPOD");
    Unmount("/media/ana/IPOD");
    EXPECT_EQ(Listed(), "");
    RemoveDiskLink("by-uuid", "AAAA-1111");
    AddDiskLink("by-uuid", "AAAA-1111", "sdc1");
    Mount("8:33", "/media/ana/IPOD", "vfat", "/dev/sdc1");
    EXPECT_EQ(Listed(), "E:IPOD");
}

TEST_F(DrivesFixture, AnotherVolumeInTheSamePlaceIsNotTakenForTheFirst) {
    MountStick();
    AddDiskLink("by-uuid", "AAAA-1111", "sdb1");
    EXPECT_EQ(Listed(), "E:IPOD");
    RemoveDiskLink("by-uuid", "AAAA-1111");
    AddDiskLink("by-uuid", "BBBB-2222", "sdb1");
    EXPECT_EQ(Listed(), "F:IPOD");
}

TEST_F(DrivesFixture, AnIdentityThatIsUnknownForAMomentNeitherMovesTheLetterNorIsForgotten) {
    MountStick();
    std::string letter = "E:IPOD";
    for (const char* identity : {"AAAA-1111", "BBBB-2222"}) {
        AddDiskLink("by-uuid", identity, "sdb1");
        EXPECT_EQ(Listed(), letter);
        RemoveDiskLink("by-uuid", identity);
        EXPECT_EQ(Listed(), letter);
        letter = "F:IPOD";
    }
    AddDiskLink("by-uuid", "BBBB-2222", "sdb1");
    EXPECT_EQ(Listed(), letter);
}

TEST_F(DrivesFixture, AttachedFoldersFollowTheMountedVolumes) {
    MakeFolder(Path(u"one"_s));
    MakeFolder(Path(u"MY SAMPLE"_s));
    Mount("0:50", "/media/ana/A", "fuse.x", "a");
    qputenv("SONGLIFT_DRIVES", (Path(u"one"_s) + u':' + Path(u"MY SAMPLE"_s)).toUtf8());
    EXPECT_EQ(Listed(), "E:A F:one G:MY SAMPLE");
}

TEST_F(DrivesFixture, EmptyAndRepeatedAttachedFoldersAreIgnored) {
    MakeFolder(Path(u"one"_s));
    const QByteArray folder = Path(u"one"_s).toUtf8();
    qputenv("SONGLIFT_DRIVES", ":" + folder + "//::" + folder + ":");
    EXPECT_EQ(Listed(), "E:one");
}

TEST_F(DrivesFixture, AnAttachedFolderAppearsOnceItIsCreated) {
    const QString folder = Path(u"late"_s);
    qputenv("SONGLIFT_DRIVES", folder.toUtf8());
    EXPECT_EQ(Listed(), "");
    MakeFolder(folder);
    EXPECT_EQ(Listed(), "E:late");
    ASSERT_TRUE(QDir().rmdir(folder));
    EXPECT_EQ(Listed(), "");
    WriteFile(folder, "a file is no drive");
    EXPECT_EQ(Listed(), "");
}

TEST_F(DrivesFixture, AnAttachedFolderThatHangsIsNotWaitedForAndStaysWhatItWas) {
    MakeFolder(Path(u"slow"_s));
    SlowDisk disk(Path(u"slow"_s));
    if (!disk.IsMounted()) {
        GTEST_SKIP() << disk.Impossible().toStdString();
    }
    MakeFolder(disk.Content() + u"/ipod"_s);
    qputenv("SONGLIFT_DRIVES", Path(u"slow/ipod"_s).toUtf8());
    for (const auto& [listed, patience] : {std::pair{"", 2500}, std::pair{"E:ipod", 500}}) {
        QThread::msleep(1200); // for a second the system remembers what it was told
        disk.Be("stall=find");
        QElapsedTimer time;
        time.start();
        EXPECT_EQ(Listed(), listed);
        EXPECT_EQ(Listed(), listed);
        EXPECT_LT(time.elapsed(), patience);
        disk.Be("");
        for (int i = 0; i < 100 && Listed() != "E:ipod"; ++i) {
            QThread::msleep(50);
        }
    }
}

TEST_F(DrivesFixture, VolumesPastZAreNotListed) {
    QByteArrayList folders;
    for (char name = 'a'; name <= 'w'; ++name) { // one more than there are letters
        folders.append(Path(QString(QLatin1Char(name))).toUtf8());
        MakeFolder(QString::fromUtf8(folders.last()));
    }
    qputenv("SONGLIFT_DRIVES", folders.join(':'));
    EXPECT_EQ(Listed(), "E:a F:b G:c H:d I:e J:f K:g L:h M:i N:j O:k P:l Q:m R:n S:o T:p U:q V:r "
                        "W:s X:t Y:u Z:v");
    ASSERT_TRUE(QDir().rmdir(Path(u"c"_s)));
    EXPECT_EQ(Listed(), "E:a F:b G:w H:d I:e J:f K:g L:h M:i N:j O:k P:l Q:m R:n S:o T:p U:q V:r "
                        "W:s X:t Y:u Z:v");
}

TEST_F(DrivesFixture, ADriveThatIsGoneFailsToAnswer) {
    Mount("0:50", "/media/ana/A", "fuse.x", "a");
    EXPECT_EQ(Listed(), "E:A");
    Unmount("/media/ana/A");
    m_drives.Drives();
    EXPECT_EQ(NumberOf([this] { m_drives.IsRemovable(DriveOfLetter(u'E')); }), 68);
    EXPECT_EQ(NumberOf([this] { m_drives.VolumeName(DriveOfLetter(u'E')); }), 68);
    EXPECT_EQ(NumberOf([this] { m_drives.VolumeName(DriveOfLetter(u'Q')); }), 68);
}

TEST_F(DrivesFixture, MalformedLinesAreSkipped) {
    m_lines += "\n36\n36 27 8:1 / /media/x rw\n36 27 0:50 / /media/ana/y rw - fuse.x\n"
               "36 27 0:50 / media/relative rw - fuse.x a rw\n"
               "36 27 0:50 / /media/ana/bad\\04 rw - fuse.x a rw\n";
    Mount("0:51", "/media/ana/B", "fuse.x", "b");
    EXPECT_EQ(Listed(), "E:bad\\04 F:B");
}

TEST_F(DrivesFixture, ALineMayHaveNoTagsOrMany) {
    m_lines += "36 27 0:50 / /media/ana/none rw - fuse.x a rw\n"
               "37 27 0:51 / /media/ana/many rw shared:1 master:2 propagate_from:3 - fuse.x b rw\n";
    WriteFile(Path(u"mountinfo"_s), m_lines);
    EXPECT_EQ(Listed(), "E:none F:many");
}

TEST_F(DrivesFixture, WithoutAMountTableTheAttachedFoldersRemain) {
    MakeFolder(Path(u"one"_s));
    qputenv("SONGLIFT_DRIVES", Path(u"one"_s).toUtf8());
    ASSERT_TRUE(QFile::remove(Path(u"mountinfo"_s)));
    EXPECT_EQ(Listed(), "E:one");
}

TEST_F(DrivesFixture, ARootIsFoundByItsLetterInEitherCase) {
    MakeFolder(Path(u"one"_s));
    qputenv("SONGLIFT_DRIVES", Path(u"one"_s).toUtf8());
    struct stat expected {};
    struct stat opened {};
    ASSERT_EQ(stat(Path(u"one"_s).toUtf8().constData(), &expected), 0);
    for (const char16_t letter : {u'E', u'e'}) {
        const FileDescriptor root = m_drives.OpenRoot(letter);
        ASSERT_TRUE(root.IsOpen());
        ASSERT_EQ(fstat(root.Get(), &opened), 0);
        EXPECT_EQ(opened.st_ino, expected.st_ino);
    }
    EXPECT_EQ(m_drives.OpenRoot(u'F').Error(), ENOENT);
    EXPECT_EQ(m_drives.OpenRoot(u'A').Error(), ENOENT);
}

TEST(KernelMountTable, AVolumeThatIsUnmountedLeavesNoWayToTheFolderBeneath) {
    qunsetenv("SONGLIFT_DRIVES");
    const QTemporaryDir content;
    WriteFile(content.filePath(u"song.mp3"_s), "on the volume");
    const QString place = u"/media/songlift-test-%1"_s.arg(getpid());
    if (!QDir().mkpath(place)) {
        GTEST_SKIP() << "no folder can be made in /media";
    }
    WriteFile(place + u"/song.mp3"_s, "beneath");
    {
        LinuxDrives drives;
        const size_t before = drives.Drives().size();
        TestMount mount = TestMount::Bind(content.path(), place);
        const std::vector<Drive> listed = drives.Drives();
        const bool isListed = mount.IsMounted() && listed.size() == before + 1;
        if (!isListed) {
            mount.Unmount();
            QDir(place).removeRecursively();
            GTEST_SKIP() << "a folder on a disk cannot be mounted here";
        }
        const QString letter = listed.back().Path;
        LinuxFileSystem files(drives);
        EXPECT_EQ(files.FileLength(letter + u"\\song.mp3"_s), 13);
        mount.Unmount();
        EXPECT_FALSE(files.FileExists(letter + u"\\song.mp3"_s));
        EXPECT_EQ(drives.Drives().size(), before);
    }
    QDir(place).removeRecursively();
}
