#include "tests/fakes/FakeFileSystem.h"

#include "platform/NameRules.h"
#include "platform/Paths.h"
#include "platform/RuntimeError.h"

#include <QRegularExpression>

#include <algorithm>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

bool HoldsAny(const QString& text, const char* characters) {
    return std::any_of(text.begin(), text.end(), [characters](QChar c) {
        return c.unicode() < 128 && c.unicode() > 0 &&
               std::strchr(characters, static_cast<char>(c.unicode())) != nullptr;
    });
}

bool IsDevice(const QString& name) {
    static const QRegularExpression device(u"^(con|prn|aux|nul|(com|lpt)[1-9]) *(\\..*)?$"_s,
                                           QRegularExpression::CaseInsensitiveOption);
    return device.match(name).hasMatch();
}

/// What Windows refuses, or makes so that nobody can open it.
bool IsBadForWindows(const QString& name) {
    return name.endsWith(u'.') || name.endsWith(u' ') || IsDevice(name) ||
           std::any_of(name.begin(), name.end(), [](QChar c) { return c < u' '; });
}

bool IsRefused(const QString& name, const NameLimits& limits) {
    const bool countsBytes = limits.CountedIn == NameLimits::Unit::Utf8Bytes;
    return !name.isValidUtf16() || name.contains(u'\0') ||
           (countsBytes ? name.toUtf8().size() : name.size()) > limits.Longest ||
           (limits.IsForWindows && IsBadForWindows(name));
}

} // namespace

/// An open file of a FakeFileSystem.
class FakeBinaryFile : public BinaryFile {
public:
    FakeBinaryFile(FakeFileSystem& files, FakeFileSystem::EntryPointer entry, const QString& path,
                   bool writable)
        : m_files(files), m_entry(std::move(entry)), m_path(path), m_writable(writable) {
        ++m_files.OpenFiles;
    }

    ~FakeBinaryFile() override { Release(); }

    void Read(const std::shared_ptr<char>& buffer, qint64 size) override {
        Begin(FileCall::Read, size);
        if (m_position + size > m_entry->Content.Length()) {
            throw RuntimeError(ErrorNumber::DeviceIOError);
        }
        m_entry->Content.Read(buffer.get(), m_position, size);
        m_position += size;
    }

    bool WriteFrom(BinaryFile& source, qint64 size, const CopyControl& control) override {
        const auto bytes = std::make_shared<char[]>(static_cast<size_t>(size));
        source.Read({bytes, bytes.get()}, size);
        Write(bytes.get(), size);
        control.AddBytes(size);
        return !control.IsStopped();
    }

    void Truncate(qint64 size) override {
        Begin(FileCall::Truncate, size);
        const qint64 before = m_entry->Content.Length();
        m_entry->Content.Truncate(size);
        m_files.GiveSpace(m_path, before - m_entry->Content.Length());
    }

    void Close() override {
        Begin(FileCall::Close, 0);
        Release();
    }

    void TakeModificationTime(BinaryFile& source) override {
        try {
            m_files.Record(FileCall::TakeModificationTime, m_path);
            const auto& from = static_cast<FakeBinaryFile&>(source);
            m_entry->ModificationTime = from.m_entry->ModificationTime;
        } catch (const RuntimeError&) {
            // It never fails: some drives keep no times.
        }
    }

    const QString& Path() const { return m_path; }
    bool HasItsName() const {
        const auto found = m_files.m_entries.find(FakeFileSystem::Key(m_path));
        return found != m_files.m_entries.end() && found->second == m_entry;
    }

private:
    void Write(const char* buffer, qint64 size) {
        Begin(FileCall::Write, size);
        if (!m_writable) {
            throw RuntimeError(ErrorNumber::PermissionDenied);
        }
        const qint64 inside = std::min(size, m_entry->Content.Length() - m_position);
        const qint64 fits = inside + m_files.TakeSpace(m_path, size - inside);
        m_entry->Content.Write(buffer, m_position, fits);
        m_entry->ModificationTime = ++m_files.m_clock;
        m_position += fits;
        if (fits < size) {
            throw RuntimeError(ErrorNumber::DiskFull);
        }
    }

    void Begin(FileCall call, qint64 size) {
        if (m_closed) {
            throw std::logic_error("a closed file was used");
        }
        m_files.Record(call, m_path, {}, size);
    }

    void Release() {
        if (!m_closed) {
            m_closed = true;
            --m_files.OpenFiles;
        }
    }

    FakeFileSystem& m_files;
    FakeFileSystem::EntryPointer m_entry;
    QString m_path;
    bool m_writable;
    bool m_closed = false;
    qint64 m_position = 0;
};

// ---- keys

QString FakeFileSystem::Key(const QString& path) {
    const QChar separator = Paths::Separator(path);
    QString key = path;
    while (key.endsWith(separator)) {
        key.chop(1);
    }
    if (Paths::IsDriveForm(path)) {
        return key.normalized(QString::NormalizationForm_D)
            .toCaseFolded()
            .normalized(QString::NormalizationForm_D);
    }
    // A relative path is on no drive; the root's key is empty but not null.
    return path.startsWith(separator) ? (key.isEmpty() ? u""_s : key) : u"\u0001nowhere/"_s + key;
}

bool FakeFileSystem::IsBelow(const QString& key, const QString& folderKey) {
    if (folderKey.isEmpty()) {
        return key.startsWith(u'/');
    }
    return key.size() > folderKey.size() && key.startsWith(folderKey) &&
           key[folderKey.size()] == Paths::Separator(key);
}

const FakeFileSystem::Entry* FakeFileSystem::Find(const QString& path) const {
    const auto found = m_entries.find(Key(path));
    return found == m_entries.end() ? nullptr : found->second.get();
}

const FakeFileSystem::Entry& FakeFileSystem::FileAt(const QString& path) const {
    const Entry* entry = Find(path);
    if (entry == nullptr || entry->IsFolder) {
        throw std::logic_error("no such file: " + path.toStdString());
    }
    return *entry;
}

FakeFileSystem::Drive* FakeFileSystem::DriveFor(const QString& path) {
    const QString key = Key(path);
    Drive* best = nullptr;
    qsizetype length = -1;
    for (auto& [rootKey, drive] : m_drives) {
        if ((key == rootKey || IsBelow(key, rootKey)) && rootKey.size() > length) {
            best = &drive;
            length = rootKey.size();
        }
    }
    return best;
}

// ---- FileSystem

bool FakeFileSystem::FileExists(const QString& path) {
    try {
        Record(FileCall::FileExists, path);
    } catch (const RuntimeError&) {
        return false;
    }
    return HasFile(path);
}

bool FakeFileSystem::FolderExists(const QString& path) {
    try {
        Record(FileCall::FolderExists, path);
    } catch (const RuntimeError&) {
        return false;
    }
    return HasFolder(path);
}

void FakeFileSystem::RequireParent(const QString& path) const {
    const QString parent = Paths::ParentFolder(path);
    if (parent.isEmpty() || !HasFolder(parent)) {
        throw RuntimeError(ErrorNumber::PathNotFound);
    }
}

void FakeFileSystem::MakeFolder(const QString& path) {
    auto entry = std::make_shared<Entry>();
    entry->Path = path;
    while (entry->Path.endsWith(Paths::Separator(path))) {
        entry->Path.chop(1);
    }
    entry->IsFolder = true;
    m_entries[Key(path)] = entry;
}

void FakeFileSystem::CreateFolder(const QString& path) {
    Record(FileCall::CreateFolder, path);
    if (const Entry* entry = Find(path)) {
        throw RuntimeError(entry->IsFolder ? ErrorNumber::FileAlreadyExists
                                           : ErrorNumber::PermissionDenied);
    }
    RequireFolderName(path);
    RequireParent(path);
    QString trimmed = path;
    while (trimmed.endsWith(Paths::Separator(path))) {
        trimmed.chop(1);
    }
    if (IsRefused(Paths::FileName(trimmed), Limits)) {
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
    MakeFolder(path);
}

void FakeFileSystem::CreateFolderChain(const QString& path) {
    Record(FileCall::CreateFolderChain, path);
    std::vector<QString> missing;
    for (QString folder = path; !HasFolder(folder); folder = Paths::ParentFolder(folder)) {
        if (Paths::ParentFolder(folder).isEmpty() || HasFile(folder)) {
            throw RuntimeError(ErrorNumber::PathNotFound);
        }
        missing.push_back(folder);
    }
    std::for_each(missing.begin(), missing.end(), RequireFolderName);
    std::for_each(missing.rbegin(), missing.rend(),
                  [this](const QString& folder) { MakeFolder(folder); });
}

void FakeFileSystem::DeleteFolder(const QString& path, const CopyControl&) {
    Record(FileCall::DeleteFolder, path);
    if (!HasFolder(path)) {
        throw RuntimeError(ErrorNumber::PathNotFound);
    }
    Drop(Key(path));
}

void FakeFileSystem::Drop(const QString& key) {
    const auto drop = [this](auto entry) {
        GiveSpace(entry->second->Path, entry->second->Content.Length());
        return m_entries.erase(entry);
    };
    if (const auto found = m_entries.find(key); found != m_entries.end()) {
        drop(found);
    }
    auto below = m_entries.lower_bound(key + Paths::Separator(key));
    while (below != m_entries.end() && IsBelow(below->first, key)) {
        below = drop(below);
    }
}

FakeFileSystem::EntryPointer FakeFileSystem::RequireFile(const QString& path) const {
    const auto found = m_entries.find(Key(path));
    if (found == m_entries.end() || found->second->IsFolder) {
        RequireParent(path);
        throw RuntimeError(ErrorNumber::FileNotFound);
    }
    return found->second;
}

void FakeFileSystem::RequireFileTarget(const QString& path, Existing existing) const {
    RequireParent(path);
    if (HasFolder(path)) {
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
    if (HasFile(path) && existing == Existing::Keep) {
        throw RuntimeError(ErrorNumber::FileAlreadyExists);
    }
    const QString name = Paths::FileName(path);
    if (IsRefused(name, Limits) || (Paths::IsDriveForm(path) && HoldsAny(name, "/:*?\"<>|"))) {
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
}

qint64 FakeFileSystem::TakeSpace(const QString& path, qint64 bytes) {
    Drive* drive = DriveFor(path);
    qint64 fits = bytes;
    if (drive != nullptr) {
        fits = std::min(fits, static_cast<qint64>(drive->FreeBytes));
    }
    if (m_bytesUntilFull >= 0) {
        fits = std::min(fits, m_bytesUntilFull);
        m_bytesUntilFull -= fits;
        FailuresStruck += fits < bytes ? 1 : 0;
    }
    if (drive != nullptr) {
        drive->FreeBytes -= static_cast<double>(fits);
    }
    return fits;
}

void FakeFileSystem::GiveSpace(const QString& path, qint64 bytes) {
    if (Drive* drive = DriveFor(path)) {
        drive->FreeBytes += static_cast<double>(bytes);
    }
}

bool FakeFileSystem::CopyFile(const QString& source, const QString& target, Existing existing,
                              const CopyControl& control) {
    Record(FileCall::CopyFile, source, target);
    const EntryPointer from = RequireFile(source);
    RequireFileTarget(target, existing);
    if (Key(source) == Key(target)) {
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
    const qint64 length = from->Content.Length();
    const qint64 fits = TakeSpace(target, length);
    if (fits < length) {
        GiveSpace(target, fits);
        throw RuntimeError(ErrorNumber::DiskFull);
    }
    control.AddBytes(length);
    if (!control.BeginPlacing()) {
        GiveSpace(target, length);
        return false;
    }
    Drop(Key(target));
    auto entry = std::make_shared<Entry>(*from);
    entry->Path = target;
    m_entries[Key(target)] = entry;
    return true;
}

void FakeFileSystem::RequireTarget(const QString& target, Existing existing) {
    Record(FileCall::RequireTarget, target);
    RequireFileTarget(target, existing);
}

bool FakeFileSystem::MoveFile(BinaryFile& file, const QString& target, Existing existing,
                              const CopyControl& control) {
    const auto& moved = static_cast<FakeBinaryFile&>(file);
    const QString source = moved.Path();
    Record(FileCall::MoveFile, source, target);
    RequireParent(source);
    if (!moved.HasItsName()) {
        throw RuntimeError(ErrorNumber::PermissionDenied);
    }
    RequireFileTarget(target, existing);
    if (!control.BeginPlacing()) {
        return false;
    }
    const EntryPointer entry = m_entries.at(Key(source));
    if (Key(source) != Key(target)) {
        Drop(Key(target));
    }
    m_entries.erase(Key(source));
    entry->Path = target;
    m_entries[Key(target)] = entry;
    return true;
}

void FakeFileSystem::DeleteFile(BinaryFile& file) {
    const auto& deleted = static_cast<FakeBinaryFile&>(file);
    try {
        Record(FileCall::DeleteFile, deleted.Path());
        if (deleted.HasItsName()) {
            Drop(Key(deleted.Path()));
        }
    } catch (const RuntimeError&) {
        // It never fails.
    }
}

qint64 FakeFileSystem::FileLength(const QString& path) {
    Record(FileCall::FileLength, path);
    return RequireFile(path)->Content.Length();
}

std::unique_ptr<BinaryFile> FakeFileSystem::OpenForReading(const QString& path) {
    Record(FileCall::OpenForReading, path);
    return std::make_unique<FakeBinaryFile>(*this, RequireFile(path), path, false);
}

std::unique_ptr<BinaryFile> FakeFileSystem::OpenForReadingAndWriting(const QString& path) {
    Record(FileCall::OpenForReadingAndWriting, path);
    if (!HasFile(path)) {
        RequireFileTarget(path, Existing::Replace);
        AddFile(path, {}, ++m_clock);
    }
    return std::make_unique<FakeBinaryFile>(*this, RequireFile(path), path, true);
}

bool FakeFileSystem::IsOnIpod(const QString& path) {
    const QString root = Key(IpodRoot);
    return !IpodRoot.isNull() && (Key(path) == root || IsBelow(Key(path), root));
}

QString FakeFileSystem::DriveOf(const QString& path) {
    Record(FileCall::DriveOf, path);
    if (Paths::IsDriveForm(path)) {
        return path.left(2);
    }
    const Drive* drive = DriveFor(path);
    return drive == nullptr ? QString() : drive->Root;
}

double FakeFileSystem::FreeBytes(const QString& path) {
    Record(FileCall::FreeBytes, path);
    const Drive* drive = DriveFor(path);
    if (drive == nullptr) {
        throw RuntimeError(ErrorNumber::DeviceUnavailable);
    }
    return drive->FreeBytes;
}

QString FakeFileSystem::NativePath(const QString& path) {
    Record(FileCall::NativePath, path);
    const auto found = m_nativePaths.find(Key(path));
    return found == m_nativePaths.end() ? path : found->second;
}
