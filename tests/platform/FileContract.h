#pragma once

#include "tests/fakes/Text.h"
#include "tests/platform/RealDisk.h"

#include <gtest/gtest.h>

/// The files of the system, by paths in either form: what both answer alike.
enum class Kind { Native, OnDrive };

class FileContract : public testing::TestWithParam<Kind> {
protected:
    FileContract() {
        Add(Text("Song.mp3"), "song");
        Add(Text("Other.mp3"), "other");
    }

    FileSystem& Files() { return m_disk.Files(); }
    /// The path of something in the folder; names are separated by "/".
    QString At(const QString& name) const {
        return GetParam() == Kind::OnDrive ? m_disk.OnDrive(name) : m_disk.Native(name);
    }

    void Add(const QString& name, const QByteArray& bytes) {
        WriteFile(m_disk.Native(name), bytes);
    }
    QByteArray Bytes(const QString& name) const { return ReadFile(m_disk.Native(name)); }

    // The numbers of the errors that the operations raise, 0 where they raise none.

    int CopyError(const QString& source, const QString& target, Existing existing) {
        return NumberOf([&] { Files().CopyFile(At(source), At(target), existing, {}); });
    }
    int MoveError(const QString& source, const QString& target, Existing existing) {
        const std::unique_ptr<BinaryFile> file = Files().OpenForReadingAndWriting(At(source));
        return NumberOf([&] { Files().MoveFile(*file, At(target), existing, {}); });
    }
    int TargetError(const QString& path, Existing existing) {
        return NumberOf([&] { Files().RequireTarget(path, existing); });
    }
    int WritingError(const QString& name) {
        return NumberOf([&] { Files().OpenForReadingAndWriting(At(name)); });
    }
    int CreationError(const QString& path) {
        return NumberOf([&] { Files().CreateFolder(path); });
    }
    int ChainError(const QString& path) {
        return NumberOf([&] { Files().CreateFolderChain(path); });
    }
    int DeleteError(const QString& path) {
        return NumberOf([&] { Files().DeleteFolder(path, {}); });
    }

    RealDisk m_disk;
};

inline std::string NameOf(const testing::TestParamInfo<Kind>& kind) {
    return kind.param == Kind::Native ? "Native" : "OnDrive";
}
