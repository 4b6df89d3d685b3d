#include "tests/places/TreeListing.h"

#include <QCryptographicHash>
#include <QFile>

#include <filesystem>
#include <functional>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

using std::filesystem::path;

QString TextOf(const path& name) {
    return QString::fromUtf8(QByteArray::fromStdString(name.string()).toPercentEncoding(" /<>$.'"));
}

void Walk(const path& folder, const path& except, const std::function<void(const path&)>& visit) {
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path() == except) {
            continue;
        }
        visit(entry.path());
        if (!entry.is_symlink() && entry.is_directory()) {
            Walk(entry.path(), except, visit);
        }
    }
}

QByteArray ContentOf(const path& file, const struct stat& info) {
    constexpr off_t longestRead = off_t{64} << 20;
    if (info.st_size > longestRead) {
        return "huge";
    }
    QFile opened(QFile::decodeName(file.c_str()));
    if (!opened.open(QIODevice::ReadOnly)) {
        return "unreadable";
    }
    return QCryptographicHash::hash(opened.readAll(), QCryptographicHash::Sha256).toHex();
}

QString LineOf(const path& file) {
    struct stat info {};
    if (lstat(file.c_str(), &info) != 0) {
        return TextOf(file) + u" is gone"_s;
    }
    QByteArray content;
    if (S_ISREG(info.st_mode)) {
        content = ContentOf(file, info);
    } else if (S_ISLNK(info.st_mode)) {
        content = QByteArray::fromStdString(std::filesystem::read_symlink(file).string());
    }
    return u"%1 mode %2 inode %3 names %4 size %5 changed %6.%7 %8"_s.arg(
        TextOf(file), QString::number(info.st_mode, 8), QString::number(info.st_ino),
        QString::number(info.st_nlink), QString::number(info.st_size),
        QString::number(info.st_mtim.tv_sec), QString::number(info.st_mtim.tv_nsec),
        QString::fromUtf8(content));
}

} // namespace

QStringList ListTree(const QString& folder, const QString& except) {
    QStringList lines;
    Walk(path(folder.toStdString()), path(except.toStdString()),
         [&](const path& file) { lines.append(LineOf(file)); });
    lines.sort();
    return lines;
}

QStringList FilesIn(const QString& folder) {
    const path root(folder.toStdString());
    QStringList names;
    Walk(root, path(), [&](const path& file) {
        const QString name = QString::fromStdString(file.lexically_relative(root).string());
        if (std::filesystem::is_symlink(file)) {
            names.append(name + u" -> "_s +
                         QString::fromStdString(std::filesystem::read_symlink(file).string()));
        } else if (!std::filesystem::is_directory(file)) {
            names.append(name);
        }
    });
    names.sort();
    return names;
}
