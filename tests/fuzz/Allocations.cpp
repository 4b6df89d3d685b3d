#include "tests/fuzz/Allocations.h"

#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdlib>

#include <malloc.h>

#ifdef SONGLIFT_SANITIZED
// The sanitizer's own header for these is not in every compiler's package.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*)(const volatile void*, size_t),
                                                         void (*)(const volatile void*));
extern "C" size_t __sanitizer_get_allocated_size(const volatile void*);
// NOLINTEND(bugprone-reserved-identifier)
#endif

namespace {

// Constant from the start: the first allocations come before any constructor.
constinit std::atomic<qint64> Allocated = 0;
constinit std::atomic<qint64> Highest = 0;
constinit std::atomic<qint64> ToGo = 0; // until the failure; 0 for none
constinit std::atomic<bool> Struck = false;

void Add(qint64 bytes) {
    const qint64 now = Allocated += bytes;
    if (now > Highest) {
        Highest = now;
    }
}

} // namespace

namespace Allocations {

qint64 Bytes() {
    return Allocated;
}

qint64 Peak() {
    return Highest;
}

void ResetPeak() {
    Highest = Allocated.load();
}

void FailNth(qint64 nth) {
    Struck = false;
    ToGo = nth;
}

bool HasFailed() {
    return Struck;
}

} // namespace Allocations

#ifdef SONGLIFT_SANITIZED

namespace {

const int Installed = __sanitizer_install_malloc_and_free_hooks(
    [](const volatile void*, size_t size) { Add(qint64(size)); },
    [](const volatile void* block) { Add(-qint64(__sanitizer_get_allocated_size(block))); });

} // namespace

#else

extern "C" {

// The C library's own, under the names it has for programs that bring another malloc.
// NOLINTBEGIN(bugprone-reserved-identifier)
void* __libc_malloc(size_t size);
void* __libc_calloc(size_t count, size_t size);
void* __libc_realloc(void* block, size_t size);
void* __libc_memalign(size_t alignment, size_t size);
void __libc_free(void* block);
// NOLINTEND(bugprone-reserved-identifier)

static bool Fails() {
    if (ToGo == 0 || --ToGo != 0) {
        return false;
    }
    Struck = true;
    errno = ENOMEM;
    return true;
}

static void* Counted(void* block) {
    Add(qint64(malloc_usable_size(block)));
    return block;
}

void* malloc(size_t size) {
    return Fails() ? nullptr : Counted(__libc_malloc(size));
}

void* calloc(size_t count, size_t size) {
    return Fails() ? nullptr : Counted(__libc_calloc(count, size));
}

void* realloc(void* block, size_t size) {
    if (Fails()) {
        return nullptr;
    }
    const auto before = qint64(malloc_usable_size(block));
    void* moved = __libc_realloc(block, size);
    if (moved != nullptr || size == 0) {
        Add(qint64(malloc_usable_size(moved)) - before);
    }
    return moved;
}

void free(void* block) {
    Add(-qint64(malloc_usable_size(block)));
    __libc_free(block);
}

void* memalign(size_t alignment, size_t size) {
    return Fails() ? nullptr : Counted(__libc_memalign(alignment, size));
}

void* aligned_alloc(size_t alignment, size_t size) {
    return memalign(alignment, size);
}

int posix_memalign(void** block, size_t alignment, size_t size) {
    *block = memalign(alignment, size);
    return *block != nullptr ? 0 : ENOMEM;
}
}

#endif
