#pragma once

#include "tests/bench/BenchProgram.h"
#include "tests/support/SampleTrack.h"

#include <QTemporaryDir>

#include <memory>

/// A folder on a disk: copying within a memory file system would measure nothing that users do.
/// SONGLIFT_BENCH_FOLDER names another disk. Ends the program where no folder can be made: its path
/// would be empty, and what is written below it would be anywhere.
class ScratchFolder : public QTemporaryDir {
public:
    ScratchFolder();
};

/// The program with the devices of a scratch folder attached, of which the first is loaded.
class BenchWindow {
public:
    /// Attaches two devices with the same library, so that each can be chosen anew.
    BenchWindow(const std::vector<SampleTrack>& tracks, bool sqlite);

    Form1Controls& Controls() { return m_program->Controls(); }
    FileSystem& Files() { return m_program->Files(); }
    TimedEventLoop& Events() { return m_program->Events(); }
    FakeMessages& MessageBoxes() { return m_program->MessageBoxes(); }
    /// The folder of the first device.
    QString DeviceFolder() const;
    /// A folder on the same disk.
    QString Scratch(const QString& name) const { return m_folder.filePath(name); }
    /// Chooses the device that is not loaded, which loads the library afresh.
    void Reload();
    /// Lets the window paint what has changed.
    static void Paint() { BenchProgram::Paint(); }

private:
    ScratchFolder m_folder;
    std::unique_ptr<BenchProgram> m_program;
};
