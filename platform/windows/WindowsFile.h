#pragma once

#include "platform/FileSystem.h"
#include "platform/windows/WindowsHandle.h"

#include <string>

/// An open file of the system.
class WindowsFile : public BinaryFile {
public:
    enum class Use { Reading, Writing };

    WindowsFile(WindowsHandle file, Use use) : m_file(std::move(file)), m_use(use) {}

    void Read(char* buffer, qint64 size) override;
    bool WriteFrom(BinaryFile& source, qint64 size, const CopyControl& control) override;
    void Truncate(qint64 size) override;
    /// One that was opened for writing stays open beneath, so that nobody else takes it before it
    /// has its final name.
    void Close() override;
    void TakeModificationTime(BinaryFile& source) override;

    HANDLE Get() const { return m_file.Get(); }
    /// Whether it stands under the name that it was opened by.
    bool HasItsName() const { return m_file.IsOpen(); }
    /// It was renamed or deleted, and is everybody's from now on.
    void LetGo() { m_file.Close(); }

private:
    WindowsHandle m_file;
    Use m_use;
};

/// The one service that makes files here makes no others. Throws std::bad_cast for any other.
inline WindowsFile& AsWindowsFile(BinaryFile& file) {
    return dynamic_cast<WindowsFile&>(file);
}
