#include "platform/qt/QtSettingsStore.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

/// A user without settings, in a folder of the test's own.
class SettingsFile : public testing::Test {
protected:
    QTemporaryDir home;
    QByteArray before = qgetenv("XDG_CONFIG_HOME");

    SettingsFile() { qputenv("XDG_CONFIG_HOME", home.path().toUtf8()); }
    ~SettingsFile() override {
        if (before.isNull()) {
            qunsetenv("XDG_CONFIG_HOME");
        } else {
            qputenv("XDG_CONFIG_HOME", before);
        }
    }

    QString FilePath() const { return home.filePath(QStringLiteral("Songlift/Songlift.conf")); }

    /// What a later run of the program reads.
    static QString ReadLater(const QString& key) {
        QtSettingsStore later;
        return later.Read(key, QStringLiteral("absent"));
    }
};

TEST_F(SettingsFile, AnAbsentKeyHasItsDefault) {
    QtSettingsStore store;
    EXPECT_EQ(store.Read(QStringLiteral("DestPath"), QStringLiteral("x")), QStringLiteral("x"));
    EXPECT_FALSE(QFile::exists(FilePath()));
}

TEST_F(SettingsFile, WhatWasWrittenIsOnTheDiskOnceItIsKept) {
    QtSettingsStore store;
    store.Write(QStringLiteral("DestFolders"), QStringLiteral("3"));
    EXPECT_FALSE(QFile::exists(FilePath()));
    EXPECT_TRUE(store.Flush());
    QFile file(FilePath());
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), QByteArray("[Settings]\nDestFolders=3\n"));
}

TEST_F(SettingsFile, EveryTextComesBackAsItWas) {
    const QString texts[] = {
        QStringLiteral("/home/ana/My Music"),
        QStringLiteral("a, b; c, "),
        QStringLiteral("E:\\Music\\x"),
        QString::fromUtf8("/home/\xC3\xA4\xC3\xB6/\xE9\x9F\xB3\xE6\xA5\xBD/\xF0\x9F\x8E\xB5"),
        QStringLiteral("\"quoted\" = %41 #x ~ @ByteArray(x)"),
        QStringLiteral("@Invalid()"),
        QStringLiteral(" leading and trailing "),
        QStringLiteral("line\nbreak\ttab\\"),
        QStringLiteral("1234.5"),
        QStringLiteral("true"),
        QString::fromLatin1(""),
    };
    for (const QString& text : texts) {
        {
            QtSettingsStore store;
            store.Write(QStringLiteral("DestPath"), text);
            EXPECT_EQ(store.Read(QStringLiteral("DestPath"), QStringLiteral("absent")), text);
        }
        EXPECT_EQ(ReadLater(QStringLiteral("DestPath")), text) << text.toStdString();
    }
}

TEST_F(SettingsFile, AnEmptyTextIsNoAbsentOne) {
    QtSettingsStore store;
    store.Write(QStringLiteral("DestPath"), QString());
    EXPECT_EQ(ReadLater(QStringLiteral("DestPath")), QString());
}

TEST_F(SettingsFile, AnotherKeyLeavesTheRestAlone) {
    QtSettingsStore store;
    store.Write(QStringLiteral("Left"), QStringLiteral("15"));
    store.Write(QStringLiteral("Top"), QStringLiteral("30"));
    store.Write(QStringLiteral("Left"), QStringLiteral("45"));
    EXPECT_EQ(ReadLater(QStringLiteral("Left")), QStringLiteral("45"));
    EXPECT_EQ(ReadLater(QStringLiteral("Top")), QStringLiteral("30"));
}

TEST_F(SettingsFile, ATextWithCommasThatSomebodyTypedInIsOneText) {
    ASSERT_TRUE(QDir(home.path()).mkpath(QStringLiteral("Songlift")));
    QFile file(FilePath());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[Settings]\nDestPath=/home/ana/Rock, Pop\n");
    file.close();
    EXPECT_EQ(ReadLater(QStringLiteral("DestPath")), QStringLiteral("/home/ana/Rock, Pop"));
}

TEST_F(SettingsFile, AFileOfRubbishGivesTheDefaults) {
    ASSERT_TRUE(QDir(home.path()).mkpath(QStringLiteral("Songlift")));
    QFile file(FilePath());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray("\0\xff[[[=\n\x01", 8));
    file.close();
    QtSettingsStore store;
    EXPECT_EQ(store.Read(QStringLiteral("DestPath"), QStringLiteral("absent")),
              QStringLiteral("absent"));
    store.Write(QStringLiteral("DestPath"), QStringLiteral("x"));
    EXPECT_TRUE(store.Flush());
    EXPECT_EQ(ReadLater(QStringLiteral("DestPath")), QStringLiteral("x"));
}

TEST_F(SettingsFile, AFolderThatCannotBeMadeIsToldAndHurtsNobody) {
    QFile inTheWay(home.filePath(QStringLiteral("Songlift")));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    inTheWay.close();
    {
        QtSettingsStore store;
        store.Write(QStringLiteral("DestPath"), QStringLiteral("x"));
        EXPECT_FALSE(store.Flush());
    }
    EXPECT_EQ(ReadLater(QStringLiteral("DestPath")), QStringLiteral("absent"));
}

} // namespace
