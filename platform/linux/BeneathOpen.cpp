#include "platform/linux/BeneathOpen.h"

#include <climits>
#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/syscall.h>

namespace {

int OpenInOneStep(int root, const QByteArray& name, int flags) {
    open_how how{};
    how.flags = static_cast<unsigned int>(flags | O_CLOEXEC);
    how.resolve = RESOLVE_BENEATH | RESOLVE_NO_MAGICLINKS;
    // EAGAIN: something was renamed meanwhile, so that the kernel could not be sure of a "..".
    for (int attempt = 0; attempt < 16; ++attempt) {
        const long result = syscall(SYS_openat2, root, name.constData(), &how, sizeof how);
        if (result >= 0 || (errno != EAGAIN && errno != EINTR)) {
            return static_cast<int>(result);
        }
    }
    return -1;
}

/// Old kernels know no openat2, and some containers refuse it.
bool KernelOpensBeneath() {
    return FileDescriptor(OpenInOneStep(AT_FDCWD, ".", O_PATH | O_DIRECTORY)).IsOpen();
}

} // namespace

FileDescriptor OpenBeneath(int root, const QByteArray& name, int flags) {
    static const bool isKnownToKernel = KernelOpensBeneath();
    return isKnownToKernel ? FileDescriptor(OpenInOneStep(root, name, flags))
                           : OpenBeneathByChecking(root, name, flags);
}

FileDescriptor OpenBeneathByChecking(int root, const QByteArray& name, int flags) {
    FileDescriptor place(
        openat(root, name.constData(), O_PATH | O_CLOEXEC | (flags & (O_DIRECTORY | O_NOFOLLOW))));
    if (!place.IsOpen()) {
        return place;
    }
    const QByteArray rootPath = PathOfOpen(root);
    const QByteArray path = PathOfOpen(place.Get());
    const bool isBeneath =
        !rootPath.isEmpty() &&
        (path == rootPath || path.startsWith(rootPath == "/" ? rootPath : rootPath + '/'));
    if (!isBeneath) {
        return FileDescriptor::Failed(EXDEV);
    }
    if ((flags & O_PATH) != 0) {
        return place;
    }
    return FileDescriptor(open(DescriptorPath(place.Get()).constData(), flags | O_CLOEXEC));
}

QByteArray PathOfOpen(int descriptor) {
    char path[PATH_MAX];
    const ssize_t length = readlink(DescriptorPath(descriptor).constData(), path, sizeof path);
    return length > 0 ? QByteArray(path, length) : QByteArray();
}

QByteArray DescriptorPath(int descriptor) {
    return "/proc/self/fd/" + QByteArray::number(descriptor);
}
