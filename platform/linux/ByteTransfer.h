#pragma once

#include "platform/CopyControl.h"

#include <sys/types.h>

// Reading and copying the bytes of open files, from their current positions on. All of these throw
// RuntimeError.

/// Reads up to `size` bytes; returns how many, 0 at the end.
ssize_t ReadSome(int file, char* buffer, size_t size);

/// Copies exactly `size` bytes. A source that ends earlier has become shorter meanwhile, which is
/// DeviceIOError. False when `control` has stopped it.
bool TransferAll(int source, int target, off_t size, const CopyControl& control);

/// Copies until reading finds the end, whatever length the source reports. False when `control` has
/// stopped it.
bool TransferRest(int source, int target, const CopyControl& control);
