// The program, from its start to the usable window. With the argument "all" it then shows all
// songs. Prints the most memory that it has taken, in bytes.

#include "platform/linux/SharedHeap.h"
#include "tests/bench/BenchProgram.h"

#include <QApplication>
#include <QFile>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

long PeakMemory() {
    QFile status(u"/proc/self/status"_s);
    status.open(QIODevice::ReadOnly);
    const QByteArray text = status.readAll();
    return text.mid(text.indexOf("VmHWM:") + 6).trimmed().split(' ').first().toLong() * 1024;
}

} // namespace

int main(int argc, char** argv) {
    ShareOneHeap();
    QApplication application(argc, argv);
    BenchProgram program;
    if (argc > 1 && QByteArray(argv[1]) == "all") {
        program.Controls().lstArtists.SetListIndex(0);
        BenchProgram::Paint();
    }
    std::printf("%ld %d\n", PeakMemory(), program.Controls().lstSongs.ListCount() - 1);
}
