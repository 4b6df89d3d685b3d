// Copies within a disk whose files can share their blocks.

#include "tests/platform/LinuxFixture.h"

#include <QFile>

#include <cstdlib>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

bool Runs(const QString& command) {
    return std::system(command.toUtf8().constData()) == 0;
}

class SharedBlocks : public LinuxFixture {
protected:
    static constexpr qint64 Length = 40000000;

    void SetUp() override {
        MakeFolder(Disk());
        QFile image(Native(u"image"_s));
        ASSERT_TRUE(image.open(QIODevice::WriteOnly) && image.resize(qint64{200} << 20));
        if (!Runs(u"mkfs.btrfs -q "_s + image.fileName()) ||
            !Runs(u"mount -o loop "_s + image.fileName() + u' ' + Disk())) {
            GTEST_SKIP() << "no btrfs can be made or mounted here";
        }
        m_isMounted = true;
        WriteFile(Disk() + u"/film"_s, Pattern(Length));
    }
    void TearDown() override {
        if (m_isMounted) {
            EXPECT_TRUE(Runs(u"umount "_s + Disk()));
        }
    }

    QString Disk() const { return Native(u"disk"_s); }
    double FreeBytes() {
        sync();
        return m_files.FreeBytes(Disk());
    }
    void ExpectCheapCopy(double freeBefore) {
        EXPECT_LT(freeBefore - FreeBytes(), 4e6);
        EXPECT_EQ(ReadFile(Disk() + u"/copy"_s), Pattern(Length));
    }

private:
    bool m_isMounted = false;
};

} // namespace

TEST_F(SharedBlocks, ACopiedFileTakesNoRoom) {
    const double before = FreeBytes();
    CopyControl control;
    EXPECT_TRUE(
        m_files.CopyFile(Disk() + u"/film"_s, Disk() + u"/copy"_s, Existing::Keep, control));
    EXPECT_EQ(control.BytesDone(), Length);
    ExpectCheapCopy(before);
}

TEST_F(SharedBlocks, ChunksTakeLittleRoomWhereverTheyBegin) {
    const double before = FreeBytes();
    {
        const auto from = m_files.OpenForReading(Disk() + u"/film"_s);
        const auto to = m_files.OpenForReadingAndWriting(Disk() + u"/copy"_s);
        for (const qint64 size : {10000001, 10000001, 19999998}) {
            EXPECT_TRUE(to->WriteFrom(*from, size, {}));
        }
    }
    ExpectCheapCopy(before);
}
