#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>

/// Real files, for tests of what works on them; paths as Qt takes them.

void WriteFile(const QString& path, const QByteArray& content);
QByteArray ReadFile(const QString& path);
/// `size` bytes that repeat at no power of two.
QByteArray Pattern(qsizetype size);
void MakeFolder(const QString& path);
/// All names in a folder, hidden ones too, in byte order.
QStringList NamesIn(const QString& folder);

/// Where a QTemporaryDir is made: in memory, if there is room.
QString FolderInMemory();

/// The number of the error that a step raises, 0 where it raises none.
int NumberOf(const std::function<void()>& step);
