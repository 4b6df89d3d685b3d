#pragma once

/// Locks an open file that is being written, so that no other copy that runs right now writes it
/// too or takes its name away. File systems without locks are trusted. Throws PermissionDenied
/// where another copy was first. QLockFile would leave another file behind when a copy is killed.
void LockNamed(int file, int folder, const char* name);
