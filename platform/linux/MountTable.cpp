#include "platform/linux/MountTable.h"

#include <QFile>

#include <libmount/libmount.h>
#include <memory>
#include <sys/sysmacros.h>

namespace {

struct TableCloser {
    void operator()(libmnt_table* table) const { mnt_unref_table(table); }
};
struct IteratorCloser {
    void operator()(libmnt_iter* iterator) const { mnt_free_iter(iterator); }
};

/// 0 for two mounts at the same folder, as libmount expects it.
int DiffersInFolder(libmnt_table*, libmnt_fs* one, libmnt_fs* other) {
    return qstrcmp(mnt_fs_get_target(one), mnt_fs_get_target(other));
}

QByteArray DeviceText(dev_t device) {
    return QByteArray::number(major(device)) + ':' + QByteArray::number(minor(device));
}

} // namespace

std::vector<Mount> ReadMountTable(const QString& file) {
    std::vector<Mount> mounts;
    const std::unique_ptr<libmnt_table, TableCloser> table(
        mnt_new_table_from_file(QFile::encodeName(file).constData()));
    if (!table) {
        return mounts;
    }
    mnt_table_uniq_fs(table.get(), 0, DiffersInFolder);
    const std::unique_ptr<libmnt_iter, IteratorCloser> lines(mnt_new_iter(MNT_ITER_FORWARD));
    libmnt_fs* line = nullptr;
    while (mnt_table_next_fs(table.get(), lines.get(), &line) == 0) {
        mounts.push_back({DeviceText(mnt_fs_get_devno(line)), mnt_fs_get_root(line),
                          mnt_fs_get_target(line), mnt_fs_get_fstype(line),
                          mnt_fs_get_source(line)});
    }
    return mounts;
}
