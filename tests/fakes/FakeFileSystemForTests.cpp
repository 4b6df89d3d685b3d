// The part of FakeFileSystem that tests use: the tree they build and look at, what was called, and
// what is to fail.

#include "tests/fakes/FakeFileSystem.h"

#include "platform/Paths.h"
#include "platform/RuntimeError.h"
#include "tests/fakes/FakeFaults.h"

#include <optional>
#include <set>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

const char* NameOf(FileCall call) {
    static constexpr std::array names = {
        "FileExists",   "FolderExists", "CreateFolder",   "CreateFolderChain",
        "DeleteFolder", "CopyFile",     "RequireTarget",  "MoveFile",
        "DeleteFile",   "FileLength",   "OpenForReading", "OpenForReadingAndWriting",
        "DriveOf",      "FreeBytes",    "NativePath",     "Read",
        "Write",        "Truncate",     "Close",          "TakeModificationTime"};
    return names.at(static_cast<size_t>(call));
}

bool Changes(FileCall call) {
    using enum FileCall;
    static const std::set<FileCall> changing = {
        CreateFolder, CreateFolderChain,        DeleteFolder, CopyFile, MoveFile,
        DeleteFile,   OpenForReadingAndWriting, Write,        Truncate, TakeModificationTime};
    return changing.contains(call);
}

} // namespace

// ---- building the tree

void FakeFileSystem::AddDrive(const QString& root, double freeBytes) {
    m_drives[Key(root)] = {root, freeBytes};
    if (Key(root).isEmpty() || Paths::IsDriveForm(root)) {
        auto entry = std::make_shared<Entry>();
        entry->Path = root;
        entry->IsFolder = true;
        m_entries[Key(root)] = entry;
    } else {
        AddFolder(root);
    }
}

void FakeFileSystem::RemoveDrive(const QString& root) {
    m_drives.erase(Key(root));
    Remove(root);
}

void FakeFileSystem::SetFreeBytes(const QString& root, double freeBytes) {
    m_drives.at(Key(root)).FreeBytes = freeBytes;
}

void FakeFileSystem::AddFolder(const QString& path) {
    if (Find(path) != nullptr) {
        return;
    }
    const QString parent = Paths::ParentFolder(path);
    if (parent.isEmpty()) {
        AddDrive(Paths::DrivePart(path));
        return;
    }
    AddFolder(parent);
    MakeFolder(path);
}

void FakeFileSystem::AddFile(const QString& path, const QByteArray& bytes,
                             qint64 modificationTime) {
    AddFolder(Paths::ParentFolder(path));
    auto entry = std::make_shared<Entry>();
    entry->Path = path;
    entry->Content = FakeFileContent::OfBytes(bytes);
    entry->ModificationTime = modificationTime;
    m_entries[Key(path)] = entry;
}

void FakeFileSystem::AddLargeFile(const QString& path, qint64 length, qint64 seed,
                                  qint64 modificationTime) {
    AddFile(path, {}, modificationTime);
    m_entries.at(Key(path))->Content = FakeFileContent::OfPattern(length, seed);
}

void FakeFileSystem::Remove(const QString& path) {
    Drop(Key(path));
}

void FakeFileSystem::SetNativePath(const QString& path, const QString& native) {
    m_nativePaths[Key(path)] = native;
}

// ---- looking at the tree

bool FakeFileSystem::HasFile(const QString& path) const {
    const Entry* entry = Find(path);
    return entry != nullptr && !entry->IsFolder;
}

bool FakeFileSystem::HasFolder(const QString& path) const {
    const Entry* entry = Find(path);
    return entry != nullptr && entry->IsFolder;
}

QByteArray FakeFileSystem::Bytes(const QString& path) const {
    return FileAt(path).Content.Bytes();
}

qint64 FakeFileSystem::Length(const QString& path) const {
    return FileAt(path).Content.Length();
}

qint64 FakeFileSystem::ModificationTime(const QString& path) const {
    return FileAt(path).ModificationTime;
}

bool FakeFileSystem::SameContent(const QString& path, const QString& otherPath) const {
    return FileAt(path).Content == FileAt(otherPath).Content;
}

QStringList FakeFileSystem::FilesBelow(const QString& folder) const {
    return Below(folder, false);
}

QStringList FakeFileSystem::FoldersBelow(const QString& folder) const {
    return Below(folder, true);
}

QStringList FakeFileSystem::Below(const QString& folder, bool folders) const {
    QStringList paths;
    for (const auto& [key, entry] : m_entries) {
        if (entry->IsFolder == folders && IsBelow(key, Key(folder))) {
            paths += entry->Path;
        }
    }
    paths.sort();
    return paths;
}

// ---- what was called

QString FakeFileSystem::TextOf(const RecordedCall& call) {
    return call.Target.isNull() ? call.Path : call.Path + u" > "_s + call.Target;
}

QString FakeFileSystem::NamedTextOf(const RecordedCall& call) {
    return QLatin1String(NameOf(call.Call)) + u' ' + TextOf(call);
}

QStringList FakeFileSystem::CallsOf(FileCall call) const {
    QStringList texts;
    for (const RecordedCall& recorded : Calls) {
        if (recorded.Call == call) {
            texts += TextOf(recorded);
        }
    }
    return texts;
}

int FakeFileSystem::CountOf(FileCall call) const {
    return static_cast<int>(CallsOf(call).size());
}

QStringList FakeFileSystem::CallTexts() const {
    QStringList texts;
    for (const RecordedCall& call : Calls) {
        texts += NamedTextOf(call);
    }
    return texts;
}

QStringList FakeFileSystem::ChangesBelow(const QString& folder) const {
    QStringList texts;
    const QString folderKey = Key(folder);
    for (const RecordedCall& call : Calls) {
        // A copy reads its source; a move takes its source away.
        const bool sourceChanges = call.Call != FileCall::CopyFile;
        const auto isThere = [&folderKey](const QString& path) {
            return !path.isNull() && (Key(path) == folderKey || IsBelow(Key(path), folderKey));
        };
        if (Changes(call.Call) && ((sourceChanges && isThere(call.Path)) || isThere(call.Target))) {
            texts += NamedTextOf(call);
        }
    }
    return texts;
}

// ---- failures

void FakeFileSystem::FailNthCall(int nth, ErrorNumber errorNumber) {
    m_failures.push_back({true, FileCall::FileExists, {}, nth, errorNumber});
}

void FakeFileSystem::FailNthCall(FileCall call, int nth, ErrorNumber errorNumber) {
    m_failures.push_back({false, call, {}, nth, errorNumber});
}

void FakeFileSystem::FailPath(const QString& path, ErrorNumber errorNumber) {
    m_failures.push_back({true, FileCall::FileExists, Key(path), 0, errorNumber});
}

void FakeFileSystem::FailPath(FileCall call, const QString& path, ErrorNumber errorNumber) {
    m_failures.push_back({false, call, Key(path), 0, errorNumber});
}

void FakeFileSystem::DiskFullAfter(qint64 bytes) {
    m_bytesUntilFull = bytes;
}

void FakeFileSystem::ClearFailures() {
    m_failures.clear();
    m_bytesUntilFull = -1;
}

bool FakeFileSystem::Strikes(Failure& failure, const RecordedCall& call) const {
    if (!failure.AnyCall && failure.Call != call.Call) {
        return false;
    }
    if (!failure.Key.isNull() && failure.Key != Key(call.Path) &&
        (call.Target.isNull() || failure.Key != Key(call.Target))) {
        return false;
    }
    if (failure.Key.isNull()) {
        // Counts down to 0 and stays below it: such a failure strikes once.
        return --failure.CallsToGo == 0;
    }
    return true;
}

void FakeFileSystem::Record(FileCall call, const QString& path, const QString& target,
                            qint64 size) {
    Calls.push_back({call, path, target, size});
    const RecordedCall recorded = Calls.back();
    FakeFaults::Call();
    if (BeforeCall) {
        BeforeCall(recorded);
    }
    std::optional<ErrorNumber> number;
    for (Failure& failure : m_failures) {
        if (Strikes(failure, recorded)) {
            number = failure.Number;
        }
    }
    if (number) {
        ++FailuresStruck;
        throw RuntimeError(*number);
    }
}
