#pragma once

#include "platform/linux/MountTable.h"

#include <QString>

/// What the system reports about the block devices under mounts: the kernel in /sys, the device
/// manager in /dev/disk. libudev would report the same, but only of the computer that it runs on,
/// and not of one that a test makes up.
class BlockDevices {
public:
    BlockDevices(const QString& sysFolder, const QString& diskFolder);

    /// The kernel's name of the device under a mount, for example "sdb2"; empty where the mount
    /// has no block device.
    QString NameOf(const Mount& mount) const;
    /// Whether the device reports that it is removable, or is connected by USB.
    bool IsRemovable(const QString& name) const;
    /// The label of the device's file system; empty where it has none.
    QString LabelOf(const QString& name) const;
    /// The identity of the device's file system; empty where it is not known.
    QString UuidOf(const QString& name) const;

private:
    QString LinkTo(const QString& name, const QString& folder) const;

    QString m_sysFolder;
    QString m_diskFolder;
};
