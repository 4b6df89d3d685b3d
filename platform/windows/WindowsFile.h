#pragma once

#include "platform/FileSystem.h"
#include "platform/windows/WindowsHandle.h"

#include <mutex>

/// An open file of the system.
class WindowsFile : public BinaryFile {
public:
    enum class Use { Reading, Writing };

    WindowsFile(WindowsHandle file, Use use) : m_file(std::move(file)), m_use(use) {}

    void Read(const std::shared_ptr<char>& buffer, qint64 size) override;
    bool WriteFrom(BinaryFile& source, qint64 size, const CopyControl& control) override;
    void Truncate(qint64 size) override;
    /// A file that was opened for writing stays open for the system, so that no other program takes
    /// it before it has its final name.
    void Close() override;
    void TakeModificationTime(BinaryFile& source) override;

    HANDLE Get() const { return m_file.Get(); }
    /// To be held while it is moved or deleted: a thread that was given up may still be at it.
    std::unique_lock<std::mutex> Lock() { return std::unique_lock(m_mutex); }
    /// Whether it still has the name that it was opened by.
    bool HasItsName() const { return m_file.IsOpen(); }
    /// To be called when it was renamed: from now on other programs may open it.
    void LetGo() { m_file.Close(); }
    /// Does nothing where it has been renamed.
    void Delete();

private:
    std::mutex m_mutex;
    WindowsHandle m_file;
    Use m_use;
};

/// A service is given only files that it has opened itself. Throws std::bad_cast for others.
inline WindowsFile& AsWindowsFile(BinaryFile& file) {
    return dynamic_cast<WindowsFile&>(file);
}
