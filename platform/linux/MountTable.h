#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

/// A line of the kernel's table of mounts.
struct Mount {
    /// The device's numbers, for example "8:18"; the first is 0 where there is no block device.
    QByteArray Device;
    /// The folder of the device's file system that is mounted, "/" for the whole.
    QByteArray Root;
    QByteArray Folder;
    /// For example "vfat".
    QByteArray Type;
    /// For example "/dev/sdb2".
    QByteArray Source;
};

/// The mounts in mount order, without those that a later one at the same folder hides. Lines that
/// make no sense are skipped; a table that cannot be read is empty. Unlike
/// QStorageInfo::mountedVolumes this asks no mount itself: one whose server or disk hangs would
/// block the window.
std::vector<Mount> ReadMountTable(const QString& file);
