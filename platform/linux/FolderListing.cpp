#include "platform/linux/FolderListing.h"

#include "platform/linux/FileDescriptor.h"

#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <memory>

namespace {

struct FolderCloser {
    void operator()(DIR* stream) const { closedir(stream); }
};

} // namespace

int ListFolder(int folder, const FolderVisitor& visit) {
    // A descriptor of its own, so that the caller's reading position does not matter.
    FileDescriptor descriptor(OpenWithoutTrace(folder, ".", O_DIRECTORY));
    if (!descriptor.IsOpen()) {
        return descriptor.Error();
    }
    const std::unique_ptr<DIR, FolderCloser> stream(fdopendir(descriptor.Get()));
    if (!stream) {
        return errno;
    }
    descriptor.Release();
    while (true) {
        errno = 0;
        const dirent* entry = readdir(stream.get());
        if (entry == nullptr) {
            return errno;
        }
        if (std::strcmp(entry->d_name, ".") != 0 && std::strcmp(entry->d_name, "..") != 0) {
            visit(QByteArray(entry->d_name), entry->d_type);
        }
    }
}

int OpenWithoutTrace(int folder, const char* name, int flags) {
    const int descriptor = openat(folder, name, flags | O_RDONLY | O_NOATIME | O_CLOEXEC);
    if (descriptor >= 0 || errno != EPERM) {
        return descriptor;
    }
    return openat(folder, name, flags | O_RDONLY | O_CLOEXEC);
}
