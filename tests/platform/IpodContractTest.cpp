// What may be changed on an iPod, and beside it.

#include "tests/platform/IpodFixture.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

class IpodContract : public IpodFixture {};

} // namespace

TEST_F(IpodContract, NothingIsChangedOnItByItsLetter) {
    ExpectReadOnly(m_drive + u"\\Notes"_s);
    ExpectReadOnly(m_drive.toLower() + u"\\NOTES\\"_s);
    EXPECT_EQ(DeleteError(m_drive + u"\\Notes"_s), 70);
    EXPECT_EQ(ReadFile(Ipod(u"Notes/note.txt"_s)), "note");
}

TEST_F(IpodContract, NothingIsChangedOnItByAnotherPathToItsFolder) {
    ExpectReadOnly(Ipod(u"Notes"_s));
    EXPECT_EQ(DeleteError(Ipod(u"Notes"_s)), 70);
    EXPECT_EQ(ReadFile(Ipod(u"Notes/note.txt"_s)), "note");
}

TEST_F(IpodContract, AFolderThatDoesNotExistYetIsOnItToo) {
    EXPECT_TRUE(m_files.IsOnIpod(m_drive + u"\\"_s));
    EXPECT_TRUE(m_files.IsOnIpod(m_drive + u"\\nix\\nix\\nix"_s));
    EXPECT_TRUE(m_files.IsOnIpod(Ipod(u"nix/nix/nix/"_s)));
}

TEST_F(IpodContract, BesideItChangesAreAllowed) {
    EXPECT_FALSE(m_files.IsOnIpod(m_disk.Native({})));
    EXPECT_FALSE(m_files.IsOnIpod(Home({})));
    EXPECT_FALSE(m_files.IsOnIpod(u"R:\\x"_s));
    EXPECT_FALSE(m_files.IsOnIpod(QString()));
    EXPECT_EQ(CreationError(m_disk.Native(u"IPOD 2"_s)), 0);
    EXPECT_FALSE(m_files.IsOnIpod(m_disk.Native(u"IPOD 2"_s)));
}

TEST_F(IpodContract, ADriveIsAnIpodByAFolderWhateverItsCase) {
    ASSERT_TRUE(QDir().rename(Ipod(u"iPod_Control"_s), Ipod(u"IPOD_CONTROL"_s)));
    ExpectReadOnly(m_drive + u"\\Notes"_s);
    ASSERT_TRUE(QDir().rename(Ipod(u"IPOD_CONTROL"_s), Ipod(u"Music"_s)));
    EXPECT_FALSE(m_files.IsOnIpod(m_drive + u"\\"_s));
    EXPECT_EQ(CreationError(m_drive + u"\\New"_s), 0);
}

TEST_F(IpodContract, ItIsReadByItsLetter) {
    m_files.CopyFile(m_drive + u"\\Notes\\note.txt"_s, Home(u"note.txt"_s), Existing::Keep, {});
    EXPECT_EQ(ReadFile(Home(u"note.txt"_s)), "note");
    EXPECT_TRUE(m_disk.Drives().IsRemovable({m_drive[0], m_drive}));
}
