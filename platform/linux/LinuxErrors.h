#pragma once

#include "platform/RuntimeError.h"

/// From the system's error codes (errno values) to the numbers that the program goes by.

/// The number of a failure. ENOENT counts as a missing file; where it may mean a missing folder,
/// the caller decides.
ErrorNumber ErrorNumberOf(int error);

/// Throws the RuntimeError of a failure.
[[noreturn]] void ThrowError(int error);

/// Throws the RuntimeError of a failure to make or replace something in a folder: what is missing
/// then is the folder, and a name that the file system refuses, or that is taken, is a denied
/// permission.
[[noreturn]] void ThrowCreationError(int error);

/// Whether a failure to open says that the path leads to nothing. A name too long for the file
/// system, links in a circle and links that lead out of a drive count: no file answers to them.
bool IsMissing(int error);
