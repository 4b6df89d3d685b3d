#pragma once

#include "platform/linux/FileDescriptor.h"

#include <QByteArray>

/// Opens `name` (relative, "." for the folder itself) below the open folder `root`. Links are
/// followed as long as they stay below it; one that leads out gives EXDEV. The check and the
/// opening are one step of the kernel, so that no link can be swapped in between.
FileDescriptor OpenBeneath(int root, const QByteArray& name, int flags);

/// The same for kernels without that step: what was reached is held first, then its place is
/// checked, and only then is it opened.
FileDescriptor OpenBeneathByChecking(int root, const QByteArray& name, int flags);

/// The absolute path of what is open, without links; empty where the system cannot tell.
QByteArray PathOfOpen(int descriptor);

/// A path by which the kernel itself reaches what is open, whatever its name has become.
QByteArray DescriptorPath(int descriptor);
