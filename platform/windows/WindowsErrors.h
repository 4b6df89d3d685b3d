#pragma once

#include "platform/RuntimeError.h"
#include "platform/windows/WindowsApi.h"

/// From the system's error codes to the numbers that the program goes by.

/// The number of a failure. A missing file counts as such; where it may mean a missing folder, the
/// caller decides.
ErrorNumber ErrorNumberOf(DWORD error);

/// Throws the RuntimeError of a failure.
[[noreturn]] void ThrowError(DWORD error);

/// Throws the RuntimeError of a failure to make or replace something in a folder: what is missing
/// then is the folder, and a name that the file system refuses, or that is taken, is a denied
/// permission.
[[noreturn]] void ThrowCreationError(DWORD error);

/// Throws the RuntimeError of a failure to give a whole file its name.
[[noreturn]] void ThrowPlacingError(DWORD error);

/// Whether a failure to open says that the path leads to nothing.
bool IsMissing(DWORD error);
