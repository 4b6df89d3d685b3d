#pragma once

#include "platform/CopyControl.h"

#include <QByteArray>

#include <functional>
#include <sys/stat.h>

/// A question about a folder, by what the system told about it.
using FolderTest = std::function<bool(const struct stat& folder)>;

/// Deletes the folder `name` in the open folder `parent` with all it holds. Links are removed,
/// never followed. Mount points, folders with the sticky bit (the system's shared temporary
/// folders) and those that `isKept` names are left alone with what they hold, and so are the
/// folders above them; that is no error. What cannot be deleted does not keep the rest from it; the
/// first failure is thrown at the end as RuntimeError. Nesting of any depth takes two open folders
/// only. Once `control` is stopped nothing more is deleted. fts(3) would change the program's
/// working folder or go by paths, which can be swapped, and fails when these get too long.
void DeleteTree(int parent, const QByteArray& name, const FolderTest& isKept,
                const CopyControl& control);
