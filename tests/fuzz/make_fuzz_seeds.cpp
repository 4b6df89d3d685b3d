// Writes the databases to start changing from: make-fuzz-seeds <folder>

#include "tests/fuzz/Seeds.h"

#include <QDir>
#include <QFile>

#include <cstdio>

namespace {

bool WriteInto(const QString& folder, const std::vector<QByteArray>& seeds) {
    if (!QDir().mkpath(folder)) {
        return false;
    }
    for (size_t i = 0; i < seeds.size(); ++i) {
        QFile file(folder + QStringLiteral("/seed-%1").arg(i));
        if (!file.open(QIODevice::WriteOnly) || file.write(seeds[i]) != seeds[i].size()) {
            return false;
        }
    }
    return true;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("make-fuzz-seeds <folder>\n", stderr);
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const bool written = WriteInto(folder + QStringLiteral("/itunesdb"), ITunesDBSeeds()) &&
                         WriteInto(folder + QStringLiteral("/sqlite"), SqliteSeeds());
    if (!written) {
        std::perror(argv[1]);
    }
    return written ? 0 : 1;
}
