#pragma once

#include "platform/NameLimits.h"

#include <QByteArray>
#include <QString>
#include <QtGlobal>

#include <optional>

/// The text as the system's bytes (UTF-8). Nothing for a text that they cannot hold exactly, with
/// half a surrogate pair or a NUL: written some other way, the names of two titles could become
/// equal.
std::optional<QByteArray> EncodeName(const QString& text);

/// What names the file system of an open folder can hold.
NameLimits NameLimitsOf(int folder);

/// The same by what statfs(2) reports: its type, and the longest name in bytes. `isOnDisk` tells,
/// of one that is served by a program (FUSE), whether it lies on a block device of this computer.
NameLimits NameLimitsByType(quint32 type, long longest, bool isOnDisk);

/// The name in the open folder that equals `wanted` but for case and for how accents are composed
/// (HFS+ stores them decomposed); the first in byte order where several do, empty where none does.
QByteArray FindNameIgnoringCase(int folder, const QByteArray& wanted);
