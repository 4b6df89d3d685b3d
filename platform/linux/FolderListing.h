#pragma once

#include <QByteArray>

#include <functional>

/// Called with each entry's name and its type (DT_DIR and so on, DT_UNKNOWN where the file system
/// does not tell).
using FolderVisitor = std::function<void(const QByteArray& name, unsigned char type)>;

/// Visits the entries of an open folder but "." and "..", in the order in which the file system
/// lists them. Returns 0 or the errno value of the failure that ended the listing. QDirIterator
/// goes by a path, which may lead elsewhere by then, and does not tell of failures.
int ListFolder(int folder, const FolderVisitor& visit);

/// As openat for reading, but the time of the last access stays as it is where the system permits:
/// keeping it would be a write to the device.
int OpenWithoutTrace(int folder, const char* name, int flags);
