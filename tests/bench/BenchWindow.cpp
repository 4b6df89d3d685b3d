#include "tests/bench/BenchWindow.h"

#include "tests/bench/BenchLibrary.h"

#include <QApplication>

namespace {

/// A place on a disk: copying within a memory file system would measure nothing that users do.
/// SONGLIFT_BENCH_FOLDER names another disk.
QString ScratchTemplate() {
    return qEnvironmentVariable("SONGLIFT_BENCH_FOLDER", QCoreApplication::applicationDirPath()) +
           QStringLiteral("/scratch-XXXXXX");
}

} // namespace

BenchWindow::BenchWindow(const std::vector<SampleTrack>& tracks, bool sqlite)
    : m_folder(ScratchTemplate()) {
    const QString other = m_folder.filePath(QStringLiteral("two"));
    MakeDevice(DeviceFolder(), tracks, sqlite);
    MakeDevice(other, tracks, sqlite);
    qputenv("SONGLIFT_DRIVES", (DeviceFolder() + QLatin1Char(':') + other).toUtf8());
    const Services services{m_files,         m_drives,   m_store, m_shell,
                            m_windowManager, m_messages, m_events};
    m_form = std::make_unique<Form1>(services, m_window.Controls(), m_preview.Controls(),
                                     [](OverwritePrompt&) {});
    m_form->Form_Load();
    Paint();
}

void BenchWindow::Reload() {
    ComboControl& devices = Controls().Combo1;
    devices.SetText(devices.List(devices.Text() == devices.List(0) ? 1 : 0));
}

void BenchWindow::Paint() {
    QCoreApplication::processEvents();
}
