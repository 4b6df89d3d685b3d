#pragma once

#include <fcntl.h>
#include <sys/stat.h>

/// Whether two descriptions are of the same file or folder.
inline bool IsSameFile(const struct stat& one, const struct stat& other) {
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

/// Whether `name` in `folder` is the file that `file` describes; `flags` as of fstatat.
inline bool IsSameFile(const struct stat& file, int folder, const char* name, int flags) {
    struct stat found {};
    return fstatat(folder, name, &found, flags) == 0 && IsSameFile(file, found);
}
