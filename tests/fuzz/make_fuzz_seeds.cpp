// Writes the databases to start changing from: make-fuzz-seeds <folder>

#include "tests/fuzz/Seeds.h"

#include <QDir>
#include <QFile>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

bool WriteInto(const QString& folder, const std::vector<QByteArray>& seeds) {
    if (!QDir().mkpath(folder)) {
        return false;
    }
    for (size_t i = 0; i < seeds.size(); ++i) {
        QFile file(folder + u"/seed-%1"_s.arg(i));
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
    const bool written = WriteInto(folder + u"/itunesdb"_s, ITunesDBSeeds()) &&
                         WriteInto(folder + u"/sqlite"_s, SqliteSeeds());
    if (!written) {
        std::perror(argv[1]);
    }
    return written ? 0 : 1;
}
