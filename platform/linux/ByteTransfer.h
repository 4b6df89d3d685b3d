#pragma once

#include <sys/types.h>

/// Copies up to `size` bytes from the current position of the open file `source` to that of
/// `target`. Returns how many: fewer only where the source ends. Throws RuntimeError.
off_t TransferBytes(int source, int target, off_t size);

/// Copies from the current position of `source` to the end that reading finds. Throws RuntimeError.
void TransferRest(int source, int target);
