#include "platform/qt/QtSettingsStore.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A user without settings, in a folder of the test's own.
class SettingsFile : public testing::Test {
protected:
    QTemporaryDir home;
    QByteArray before = qgetenv("XDG_CONFIG_HOME");
    QString path = home.filePath(u"Songlift/Songlift.conf"_s);

    SettingsFile() { qputenv("XDG_CONFIG_HOME", home.path().toUtf8()); }
    ~SettingsFile() override {
        before.isNull() ? qunsetenv("XDG_CONFIG_HOME") : qputenv("XDG_CONFIG_HOME", before);
    }

    /// What a later run of the program reads.
    static QString ReadLater(const QString& key) {
        QtSettingsStore later;
        return later.Read(key, u"absent"_s);
    }

    void WriteByHand(const QString& to, const QByteArray& bytes) {
        ASSERT_TRUE(QDir().mkpath(QFileInfo(to).path()));
        QFile file(to);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }
};

TEST_F(SettingsFile, WrittenValuesAreOnTheDiskAfterFlush) {
    QtSettingsStore store;
    EXPECT_EQ(store.Read(u"DestFolders"_s, u"x"_s), u"x"_s);
    store.Write(u"DestFolders"_s, u"2"_s);
    store.Write(u"DestFolders"_s, u"3"_s);
    store.Write(u"Top"_s, u"30"_s);
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_TRUE(store.Flush());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), QByteArray("[Settings]\nDestFolders=3\nTop=30\n"));
}

TEST_F(SettingsFile, EveryTextComesBackAsItWas) {
    const QString texts[] = {u"/home/ana/My Music"_s,
                             u"a, b; c, "_s,
                             u"E:\\Music\\x"_s,
                             u"@Invalid()"_s,
                             u"/home/\u00E4\u00F6/\u97F3\u697D/\U0001F3B5"_s,
                             u"line\nbreak\ttab\\"_s,
                             u"\"quoted\" = %41 #x ~ @ByteArray(x)"_s,
                             u" leading and trailing "_s,
                             u"1234.5"_s,
                             u"true"_s,
                             u""_s,
                             QString()};
    for (const QString& text : texts) {
        {
            QtSettingsStore store;
            store.Write(u"DestPath"_s, text);
            EXPECT_EQ(store.Read(u"DestPath"_s, u"absent"_s), text);
        }
        EXPECT_EQ(ReadLater(u"DestPath"_s), text) << text.toStdString();
    }
}

TEST_F(SettingsFile, AValueTypedInByHandIsOneTextAndAnUnreadableFileIsReplaced) {
    WriteByHand(path, "[Settings]\nDestPath=/home/ana/Rock, Pop\n");
    EXPECT_EQ(ReadLater(u"DestPath"_s), u"/home/ana/Rock, Pop"_s);
    WriteByHand(path, QByteArray("\0\xff[[[=\n\x01", 8));
    EXPECT_EQ(ReadLater(u"DestPath"_s), u"absent"_s);
    QtSettingsStore store;
    store.Write(u"DestPath"_s, u"x"_s);
    EXPECT_TRUE(store.Flush());
    EXPECT_EQ(ReadLater(u"DestPath"_s), u"x"_s);
}

TEST_F(SettingsFile, AFolderThatCannotBeMadeIsReportedAndDoesNoHarm) {
    WriteByHand(home.filePath(u"Songlift"_s), "in the way");
    {
        QtSettingsStore store;
        store.Write(u"DestPath"_s, u"x"_s);
        EXPECT_FALSE(store.Flush());
    }
    EXPECT_EQ(ReadLater(u"DestPath"_s), u"absent"_s);
}

} // namespace
