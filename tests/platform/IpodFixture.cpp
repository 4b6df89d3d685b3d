#include "tests/platform/IpodFixture.h"

#include "platform/NameRules.h"
#include "platform/Paths.h"

#include <QFile>

using namespace Qt::StringLiterals;

IpodFixture::IpodFixture() {
    MakeFolder(Ipod(u"iPod_Control"_s));
    MakeFolder(Ipod(u"Notes"_s));
    MakeFolder(Home({}));
    WriteFile(Ipod(u"Notes/note.txt"_s), "note");
    WriteFile(Home(u"Song.mp3"_s), "song");
    m_drive = m_disk.Attach(u"IPOD"_s);
}

void IpodFixture::SetUp() {
    if (m_drive.isEmpty()) {
        GTEST_SKIP() << "no folder can be put into a drive here";
    }
}

QString IpodFixture::Ipod(const QString& name) const {
    return m_disk.Native(u"IPOD/"_s + name);
}

QString IpodFixture::Home(const QString& name) const {
    return m_disk.Native(u"home/"_s + name);
}

int IpodFixture::CreationError(const QString& path) {
    return NumberOf([&] { m_files.CreateFolder(path); });
}

int IpodFixture::DeleteError(const QString& path) {
    return NumberOf([&] { m_files.DeleteFolder(path, {}); });
}

void IpodFixture::ExpectReadOnly(const QString& folder) {
    EXPECT_TRUE(m_files.IsOnIpod(folder)) << qPrintable(folder);
    const QString note = Paths::Join(folder, u"note.txt"_s);
    const QString fresh = Paths::Join(folder, u"new"_s);
    const QString song = Home(u"Song.mp3"_s);
    const auto move = [this](const QString& source, const QString& target) {
        const auto file = m_files.OpenForReadingAndWriting(source);
        m_files.MoveFile(*file, target, Existing::Replace, {});
    };
    const std::function<void()> changes[] = {
        [&] { m_files.CreateFolder(fresh); },
        [&] { m_files.CreateFolderChain(fresh); },
        [&] { m_files.CopyFile(song, fresh, Existing::Replace, {}); },
        [&] { m_files.CopyFile(song, note, Existing::Replace, {}); },
        [&] { m_files.OpenForReadingAndWriting(note); },
        [&] { m_files.OpenForReadingAndWriting(fresh); },
        [&] { move(song, fresh); },
        [&] { move(note, Home(u"note.txt"_s)); },
    };
    for (const auto& change : changes) {
        EXPECT_EQ(NumberOf(change), 70);
    }
    const QString part = Ipod(u"Notes/"_s + QString::fromLatin1(PartName));
    WriteFile(part, "a stranger's");
    m_files.RemoveLeftovers(folder);
    EXPECT_TRUE(QFile::remove(part));
    EXPECT_EQ(NamesIn(Ipod(u"Notes"_s)), QStringList(u"note.txt"_s));
    EXPECT_EQ(ReadFile(Ipod(u"Notes/note.txt"_s)), "note");
    EXPECT_EQ(ReadFile(song), "song");
}
