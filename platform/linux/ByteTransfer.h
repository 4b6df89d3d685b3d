#pragma once

#include "platform/CopyControl.h"

#include <sys/types.h>

// Bytes of open files, from their current positions on. All of it throws RuntimeError.

/// Reads up to `size` bytes; returns how many, 0 at the end.
ssize_t ReadSome(int file, char* buffer, size_t size);

/// Copies exactly `size` bytes. A source that ends earlier has lost its end meanwhile, and half of
/// a song is none: DeviceIOError. False when `control` has stopped it.
bool TransferAll(int source, int target, off_t size, const CopyControl& control);

/// Copies to the end that reading finds. False when `control` has stopped it.
bool TransferRest(int source, int target, const CopyControl& control);
