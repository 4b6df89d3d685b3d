#include "tests/bench/BenchWindow.h"

#include "tests/bench/BenchLibrary.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

BenchWindow::BenchWindow(const std::vector<SampleTrack>& tracks, bool sqlite)
    : m_folder(ScratchTemplate()) {
    if (!m_folder.isValid()) { // its path is empty, and what is written below it would be anywhere
        qFatal("no folder can be made in %s", qPrintable(ScratchTemplate()));
    }
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

QString ScratchTemplate() {
    return qEnvironmentVariable("SONGLIFT_BENCH_FOLDER", QCoreApplication::applicationDirPath()) +
           u"/scratch-XXXXXX"_s;
}
