#include "tests/bench/BenchWindow.h"

#include "tests/bench/BenchLibrary.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

ScratchFolder::ScratchFolder()
    : QTemporaryDir(
          qEnvironmentVariable("SONGLIFT_BENCH_FOLDER", QCoreApplication::applicationDirPath()) +
          u"/scratch-XXXXXX"_s) {
    if (!isValid()) {
        qFatal("no folder can be made: %s", qPrintable(errorString()));
    }
}

BenchWindow::BenchWindow(const std::vector<SampleTrack>& tracks, bool sqlite) {
    const QString other = m_folder.filePath(u"two"_s);
    MakeDevice(DeviceFolder(), tracks, sqlite);
    MakeDevice(other, tracks, sqlite);
    qputenv("SONGLIFT_DRIVES", (DeviceFolder() + u':' + other).toUtf8());
    m_program = std::make_unique<BenchProgram>();
}

QString BenchWindow::DeviceFolder() const {
    return m_folder.filePath(u"one"_s);
}

void BenchWindow::Reload() {
    ComboControl& devices = Controls().Combo1;
    devices.SetText(devices.List(devices.Text() == devices.List(0) ? 1 : 0));
}
