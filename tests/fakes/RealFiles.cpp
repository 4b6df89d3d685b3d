#include "tests/fakes/RealFiles.h"

#include "platform/RuntimeError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

void WriteFile(const QString& path, const QByteArray& content) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(path);
    ASSERT_EQ(file.write(content), content.size());
}

QByteArray ReadFile(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    return file.readAll();
}

QByteArray Pattern(qsizetype size) {
    QByteArray bytes(size, '\0');
    for (qsizetype i = 0; i < size; ++i) {
        bytes[i] = static_cast<char>((i * 31 + i / 251) % 251);
    }
    return bytes;
}

void MakeFolder(const QString& path) {
    ASSERT_TRUE(QDir().mkpath(path)) << qPrintable(path);
}

QStringList NamesIn(const QString& folder) {
    return QDir(folder).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

int NumberOf(const std::function<void()>& step) {
    try {
        step();
    } catch (const RuntimeError& error) {
        return int(error.Number);
    }
    return 0;
}

QString FolderInMemory() {
    const QStorageInfo memory(u"/dev/shm"_s);
    const bool hasRoom = memory.isReady() && memory.bytesAvailable() > qint64{1} << 30 &&
                         QFileInfo(memory.rootPath()).isWritable();
    return (hasRoom ? memory.rootPath() : QDir::tempPath()) + u"/songlift-XXXXXX"_s;
}
