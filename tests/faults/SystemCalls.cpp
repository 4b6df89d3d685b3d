#include "tests/faults/SystemCalls.h"

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <dirent.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>
#include <utility>

namespace {

SystemCallHook theHook;
/// A thread of an earlier test, given up because it hung, may still end and close its files.
std::atomic<bool> isHooked = false;
bool isAsking = false;

/// Whether the hook wants the call to fail; errno then says how.
bool Fails(SystemCall& call) {
    if (!isHooked || isAsking) {
        return false;
    }
    const int before = errno;
    isAsking = true;
    const int error = theHook(call);
    isAsking = false;
    errno = error != 0 ? error : before;
    return error != 0;
}

bool Fails(SystemCall&& call) {
    return Fails(call);
}

} // namespace

HookedSystemCalls::HookedSystemCalls(SystemCallHook hook) {
    theHook = std::move(hook);
    isHooked = theHook != nullptr;
}

HookedSystemCalls::~HookedSystemCalls() {
    isHooked = false;
    theHook = nullptr;
}

// The C library's own under the names that the linker gives them, and what it puts in their place.

int RealOpen(const char*, int, ...) asm("__real_open");
int HookedOpen(const char*, int, ...) asm("__wrap_open");
int RealOpenat(int, const char*, int, ...) asm("__real_openat");
int HookedOpenat(int, const char*, int, ...) asm("__wrap_openat");
long RealSyscall(long, ...) asm("__real_syscall");
long HookedSyscall(long, ...) asm("__wrap_syscall");
int RealFcntl(int, int, ...) asm("__real_fcntl");
int HookedFcntl(int, int, ...) asm("__wrap_fcntl");
ssize_t RealRead(int, void*, size_t) asm("__real_read");
ssize_t HookedRead(int, void*, size_t) asm("__wrap_read");
ssize_t RealWrite(int, const void*, size_t) asm("__real_write");
ssize_t HookedWrite(int, const void*, size_t) asm("__wrap_write");
int RealClose(int) asm("__real_close");
int HookedClose(int) asm("__wrap_close");
int RealRenameat(int, const char*, int, const char*) asm("__real_renameat");
int HookedRenameat(int, const char*, int, const char*) asm("__wrap_renameat");
int RealRenameat2(int, const char*, int, const char*, unsigned) asm("__real_renameat2");
int HookedRenameat2(int, const char*, int, const char*, unsigned) asm("__wrap_renameat2");
int RealLinkat(int, const char*, int, const char*, int) asm("__real_linkat");
int HookedLinkat(int, const char*, int, const char*, int) asm("__wrap_linkat");
int RealUnlinkat(int, const char*, int) asm("__real_unlinkat");
int HookedUnlinkat(int, const char*, int) asm("__wrap_unlinkat");
int RealMkdirat(int, const char*, mode_t) asm("__real_mkdirat");
int HookedMkdirat(int, const char*, mode_t) asm("__wrap_mkdirat");
int RealFstat(int, struct stat*) asm("__real_fstat");
int HookedFstat(int, struct stat*) asm("__wrap_fstat");
int RealFstatat(int, const char*, struct stat*, int) asm("__real_fstatat");
int HookedFstatat(int, const char*, struct stat*, int) asm("__wrap_fstatat");
int RealStatx(int, const char*, int, unsigned, struct statx*) asm("__real_statx");
int HookedStatx(int, const char*, int, unsigned, struct statx*) asm("__wrap_statx");
int RealFstatvfs(int, struct statvfs*) asm("__real_fstatvfs");
int HookedFstatvfs(int, struct statvfs*) asm("__wrap_fstatvfs");
int RealFlock(int, int) asm("__real_flock");
int HookedFlock(int, int) asm("__wrap_flock");
int RealFutimens(int, const timespec*) asm("__real_futimens");
int HookedFutimens(int, const timespec*) asm("__wrap_futimens");
int RealUtimensat(int, const char*, const timespec*, int) asm("__real_utimensat");
int HookedUtimensat(int, const char*, const timespec*, int) asm("__wrap_utimensat");
int RealFtruncate(int, off_t) asm("__real_ftruncate");
int HookedFtruncate(int, off_t) asm("__wrap_ftruncate");
off_t RealLseek(int, off_t, int) asm("__real_lseek");
off_t HookedLseek(int, off_t, int) asm("__wrap_lseek");
int RealFaccessat(int, const char*, int, int) asm("__real_faccessat");
int HookedFaccessat(int, const char*, int, int) asm("__wrap_faccessat");
DIR* RealFdopendir(int) asm("__real_fdopendir");
DIR* HookedFdopendir(int) asm("__wrap_fdopendir");
dirent* RealReaddir(DIR*) asm("__real_readdir");
dirent* HookedReaddir(DIR*) asm("__wrap_readdir");

int HookedOpen(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = va_arg(rest, mode_t);
    va_end(rest);
    return Fails({"open", -1, path, flags}) ? -1 : RealOpen(path, flags, mode);
}

int HookedOpenat(int folder, const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = va_arg(rest, mode_t);
    va_end(rest);
    return Fails({"openat", folder, path, flags}) ? -1 : RealOpenat(folder, path, flags, mode);
}

/// Only openat2 is called this way, whose wrapper the C library lacks.
long HookedSyscall(long number, ...) {
    va_list rest;
    va_start(rest, number);
    const long folder = va_arg(rest, long);
    const long path = va_arg(rest, long);
    const long how = va_arg(rest, long);
    const long size = va_arg(rest, long);
    va_end(rest);
    const bool fails =
        Fails({"openat2", static_cast<int>(folder), reinterpret_cast<const char*>(path)});
    return fails ? -1 : RealSyscall(number, folder, path, how, size);
}

int HookedFcntl(int file, int command, ...) {
    va_list rest;
    va_start(rest, command);
    const int argument = va_arg(rest, int);
    va_end(rest);
    return Fails({"fcntl", file}) ? -1 : RealFcntl(file, command, argument);
}

ssize_t HookedRead(int file, void* buffer, size_t size) {
    SystemCall call{"read", file, nullptr, 0, size, file};
    return Fails(call) ? -1 : RealRead(file, buffer, call.Size);
}

ssize_t HookedWrite(int file, const void* buffer, size_t size) {
    SystemCall call{"write", file, nullptr, 0, size};
    return Fails(call) ? -1 : RealWrite(file, buffer, call.Size);
}

int HookedClose(int file) {
    const bool fails = Fails({"close", file});
    const int error = errno;
    const int result = RealClose(file); // it is closed in any case
    errno = fails ? error : errno;
    return fails ? -1 : result;
}

int HookedRenameat(int from, const char* source, int to, const char* target) {
    return Fails({"renameat", to, target}) ? -1 : RealRenameat(from, source, to, target);
}

int HookedRenameat2(int from, const char* source, int to, const char* target, unsigned flags) {
    return Fails({"renameat2", to, target}) ? -1 : RealRenameat2(from, source, to, target, flags);
}

int HookedLinkat(int from, const char* source, int to, const char* target, int flags) {
    return Fails({"linkat", to, target}) ? -1 : RealLinkat(from, source, to, target, flags);
}

int HookedUnlinkat(int folder, const char* path, int flags) {
    return Fails({"unlinkat", folder, path}) ? -1 : RealUnlinkat(folder, path, flags);
}

int HookedMkdirat(int folder, const char* path, mode_t mode) {
    return Fails({"mkdirat", folder, path}) ? -1 : RealMkdirat(folder, path, mode);
}

int HookedFstat(int file, struct stat* info) {
    return Fails({"fstat", file}) ? -1 : RealFstat(file, info);
}

int HookedFstatat(int folder, const char* path, struct stat* info, int flags) {
    return Fails({"fstatat", folder, path}) ? -1 : RealFstatat(folder, path, info, flags);
}

int HookedStatx(int folder, const char* path, int flags, unsigned mask, struct statx* details) {
    return Fails({"statx", folder, path}) ? -1 : RealStatx(folder, path, flags, mask, details);
}

int HookedFstatvfs(int file, struct statvfs* info) {
    return Fails({"fstatvfs", file}) ? -1 : RealFstatvfs(file, info);
}

int HookedFlock(int file, int operation) {
    return Fails({"flock", file}) ? -1 : RealFlock(file, operation);
}

int HookedFutimens(int file, const timespec* times) {
    return Fails({"futimens", file}) ? -1 : RealFutimens(file, times);
}

int HookedUtimensat(int folder, const char* path, const timespec* times, int flags) {
    return Fails({"utimensat", folder, path}) ? -1 : RealUtimensat(folder, path, times, flags);
}

int HookedFtruncate(int file, off_t size) {
    return Fails({"ftruncate", file}) ? -1 : RealFtruncate(file, size);
}

off_t HookedLseek(int file, off_t offset, int whence) {
    return Fails({"lseek", file}) ? -1 : RealLseek(file, offset, whence);
}

int HookedFaccessat(int folder, const char* path, int mode, int flags) {
    return Fails({"faccessat", folder, path}) ? -1 : RealFaccessat(folder, path, mode, flags);
}

DIR* HookedFdopendir(int folder) {
    return Fails({"fdopendir", folder}) ? nullptr : RealFdopendir(folder);
}

dirent* HookedReaddir(DIR* stream) {
    return Fails({"readdir", dirfd(stream)}) ? nullptr : RealReaddir(stream);
}
