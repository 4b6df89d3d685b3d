#include "tests/fakes/RecordedFiles.h"

#include "platform/Paths.h"
#include "tests/fakes/FakeFaults.h"
#include "tests/fakes/RealFiles.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

bool IsSame(const QString& path, const QString& other) {
    return path.compare(other, Qt::CaseInsensitive) == 0;
}

bool IsAtOrBelow(const QString& path, const QString& folder) {
    return IsSame(path, folder) ||
           path.startsWith(Paths::WithSeparator(folder), Qt::CaseInsensitive);
}

QString TextOf(const RecordedFiles::RecordedCall& call) {
    return call.Target.isNull() ? call.Path : call.Path + u" > "_s + call.Target;
}

/// 0 leaves it as it is.
void SetTime(QFile& file, qint64 seconds) {
    file.flush(); // a later write would change it again
    EXPECT_TRUE(seconds == 0 || file.setFileTime(QDateTime::fromSecsSinceEpoch(seconds),
                                                 QFileDevice::FileModificationTime));
}

bool Changes(FileCall call) {
    using enum FileCall;
    static constexpr FileCall changing[] = {
        CreateFolder, CreateFolderChain,        DeleteFolder, CopyFile, MoveFile,
        DeleteFile,   OpenForReadingAndWriting, Write,        Truncate, TakeModificationTime};
    return std::find(std::begin(changing), std::end(changing), call) != std::end(changing);
}

} // namespace

/// An open file of RecordedFiles.
class RecordedFile : public BinaryFile {
public:
    RecordedFile(RecordedFiles& files, std::unique_ptr<BinaryFile> file, const QString& path)
        : m_files(files), m_file(std::move(file)), m_path(path) {
        ++m_files.OpenFiles;
    }
    ~RecordedFile() override { CountAsClosed(); }

    void Read(const std::shared_ptr<char>& buffer, qint64 size) override {
        m_files.Record(FileCall::Read, m_path, {}, size);
        m_file->Read(buffer, size);
    }
    bool WriteFrom(BinaryFile& source, qint64 size, const CopyControl& control) override {
        const auto& from = static_cast<RecordedFile&>(source);
        m_files.Record(FileCall::Read, from.m_path, {}, size);
        m_files.Record(FileCall::Write, m_path, {}, size);
        return m_file->WriteFrom(*from.m_file, size, control);
    }
    void Truncate(qint64 size) override {
        m_files.Record(FileCall::Truncate, m_path, {}, size);
        m_file->Truncate(size);
    }
    void Close() override {
        m_files.Record(FileCall::Close, m_path);
        m_file->Close();
        CountAsClosed();
    }
    void TakeModificationTime(BinaryFile& source) override {
        if (m_files.RecordSafely(FileCall::TakeModificationTime, m_path)) {
            m_file->TakeModificationTime(*static_cast<RecordedFile&>(source).m_file);
        }
    }

    BinaryFile& File() const { return *m_file; }
    const QString& Path() const { return m_path; }

private:
    void CountAsClosed() {
        m_files.OpenFiles -= m_isOpen ? 1 : 0;
        m_isOpen = false;
    }

    RecordedFiles& m_files;
    std::unique_ptr<BinaryFile> m_file;
    QString m_path;
    bool m_isOpen = true;
};

RecordedFiles::RecordedFiles() : m_folder(SharedFolder::Path() + u"/XXXXXX"_s) {
    if (!m_folder.isValid()) {
        qFatal("no folder for the files");
    }
}

// ---- paths

QString RecordedFiles::Real(const QString& path) const {
    const QString folder = QFileInfo(m_folder.path()).fileName();
    if (Paths::IsDriveForm(path)) {
        return SharedFolder::OnDrive(folder + u'\\' + path[0] + path.mid(2));
    }
    const bool isInside = path.startsWith(u'/') && !path.contains(u"/.."_s);
    return SharedFolder::Native(folder + (isInside ? u"/native"_s : u"/nowhere/x"_s) + path);
}

QString RecordedFiles::Host(const QString& path) const {
    return Paths::IsDriveForm(path)
               ? m_folder.filePath(path[0].toUpper() + path.mid(2).replace(u'\\', u'/'))
               : m_folder.filePath(u"native"_s + path);
}

QString RecordedFiles::RootOf(const QString& path) const {
    QString root;
    for (const auto& [drive, bytes] : m_freeBytes) {
        root = IsAtOrBelow(path, drive) && drive.size() > root.size() ? drive : root;
    }
    return root;
}

// ---- building the tree

void RecordedFiles::AddDrive(const QString& root, double freeBytes) {
    m_freeBytes[root] = freeBytes;
    MakeFolder(Host(root));
}

void RecordedFiles::RemoveDrive(const QString& root) {
    m_freeBytes.erase(root);
    Remove(root);
}

void RecordedFiles::AddFolder(const QString& path) {
    m_freeBytes.emplace(Paths::DrivePart(path), 1e15);
    MakeFolder(Host(path));
}

std::unique_ptr<QFile> RecordedFiles::NewFile(const QString& path) {
    AddFolder(Paths::ParentFolder(path));
    QFile::remove(Host(path)); // whoever has it open reads on
    auto file = std::make_unique<QFile>(Host(path));
    EXPECT_TRUE(file->open(QIODevice::WriteOnly)) << qPrintable(path);
    return file;
}

void RecordedFiles::AddFile(const QString& path, const QByteArray& bytes, qint64 modificationTime) {
    const std::unique_ptr<QFile> file = NewFile(path);
    EXPECT_EQ(file->write(bytes), bytes.size());
    SetTime(*file, modificationTime);
}

void RecordedFiles::AddLargeFile(const QString& path, qint64 length, qint64 seed,
                                 qint64 modificationTime) {
    const std::unique_ptr<QFile> file = NewFile(path);
    EXPECT_TRUE(file->resize(length));
    static const QByteArray stamp = Pattern(65521);
    const qint64 phase = std::abs(seed % 1000);
    for (qint64 at = 0; at < length; at += 1000003) { // in no two blocks of a round size alike
        file->seek(at);
        file->write(stamp.constData() + phase, std::min(length - at, stamp.size() - phase));
    }
    SetTime(*file, modificationTime);
}

void RecordedFiles::Remove(const QString& path) {
    ASSERT_FALSE(path.contains(u".."_s)) << "may lead out of the folder of this object";
    if (!QFile::remove(Host(path))) {
        QDir(Host(path)).removeRecursively();
    }
}

// ---- looking at the tree

bool RecordedFiles::HasFile(const QString& path) const {
    return m_real.FileExists(Real(path));
}

bool RecordedFiles::HasFolder(const QString& path) const {
    return m_real.FolderExists(Real(path));
}

QByteArray RecordedFiles::Bytes(const QString& path) const {
    return ReadFile(Host(path));
}

qint64 RecordedFiles::Length(const QString& path) const {
    return QFileInfo(Host(path)).size();
}

qint64 RecordedFiles::ModificationTime(const QString& path) const {
    return QFileInfo(Host(path)).lastModified().toSecsSinceEpoch();
}

bool RecordedFiles::SameContent(const QString& path, const QString& otherPath) const {
    QFile one(Host(path));
    QFile other(Host(otherPath));
    EXPECT_TRUE(one.open(QIODevice::ReadOnly) && other.open(QIODevice::ReadOnly));
    const auto size = static_cast<size_t>(one.size());
    return one.size() == other.size() &&
           (size == 0 || std::memcmp(one.map(0, one.size()), other.map(0, one.size()), size) == 0);
}

QStringList RecordedFiles::FilesBelow(const QString& folder) const {
    QStringList paths;
    const QString host = Host(folder);
    QDirIterator below(host, QDir::Files | QDir::Hidden | QDir::System,
                       QDirIterator::Subdirectories);
    while (below.hasNext()) {
        QString rest = below.next().mid(host.size());
        paths += folder + (Paths::IsDriveForm(folder) ? rest.replace(u'/', u'\\') : rest);
    }
    paths.sort();
    return paths;
}

// ---- what was called

QStringList RecordedFiles::CallsOf(FileCall call) const {
    QStringList texts;
    for (const RecordedCall& recorded : Calls) {
        if (recorded.Call == call) {
            texts += TextOf(recorded);
        }
    }
    return texts;
}

QStringList RecordedFiles::ChangesBelow(const QString& folder) const {
    QStringList texts;
    for (const RecordedCall& call : Calls) {
        // A copy reads its source; a move takes its source away.
        const bool isThere = (call.Call != FileCall::CopyFile && IsAtOrBelow(call.Path, folder)) ||
                             IsAtOrBelow(call.Target, folder);
        if (Changes(call.Call) && isThere) {
            texts += TextOf(call);
        }
    }
    return texts;
}

// ---- failures

bool RecordedFiles::Strikes(Failure& failure, const RecordedCall& call) {
    if (failure.Call.value_or(call.Call) != call.Call) {
        return false;
    }
    if (!failure.Path.isNull()) {
        return IsSame(failure.Path, call.Path) || IsSame(failure.Path, call.Target);
    }
    return --failure.CallsToGo == 0; // stays below 0: such a failure strikes once
}

void RecordedFiles::Record(FileCall call, const QString& path, const QString& target, qint64 size) {
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

bool RecordedFiles::RecordSafely(FileCall call, const QString& path) {
    try {
        Record(call, path);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

// ---- FileSystem

bool RecordedFiles::FileExists(const QString& path) {
    return RecordSafely(FileCall::FileExists, path) && HasFile(path);
}

bool RecordedFiles::WouldReplace(const QString& path) {
    return RecordSafely(FileCall::FileExists, path) && m_real.WouldReplace(Real(path));
}

bool RecordedFiles::FolderExists(const QString& path) {
    return RecordSafely(FileCall::FolderExists, path) && HasFolder(path);
}

void RecordedFiles::CreateFolder(const QString& path) {
    Record(FileCall::CreateFolder, path);
    m_real.CreateFolder(Real(path));
}

void RecordedFiles::CreateFolderChain(const QString& path) {
    Record(FileCall::CreateFolderChain, path);
    m_real.CreateFolderChain(Real(path));
}

void RecordedFiles::DeleteFolder(const QString& path, const CopyControl& control) {
    Record(FileCall::DeleteFolder, path);
    m_real.DeleteFolder(Real(path), control);
}

bool RecordedFiles::CopyFile(const QString& source, const QString& target, Existing existing,
                             const CopyControl& control) {
    Record(FileCall::CopyFile, source, target);
    return m_real.CopyFile(Real(source), Real(target), existing, control);
}

void RecordedFiles::RequireTarget(const QString& target, Existing existing) {
    Record(FileCall::RequireTarget, target);
    m_real.RequireTarget(Real(target), existing);
}

bool RecordedFiles::MoveFile(BinaryFile& file, const QString& target, Existing existing,
                             const CopyControl& control) {
    const auto& moved = static_cast<RecordedFile&>(file);
    Record(FileCall::MoveFile, moved.Path(), target);
    return m_real.MoveFile(moved.File(), Real(target), existing, control);
}

void RecordedFiles::DeleteFile(BinaryFile& file) {
    const auto& deleted = static_cast<RecordedFile&>(file);
    if (RecordSafely(FileCall::DeleteFile, deleted.Path())) {
        m_real.DeleteFile(deleted.File());
    }
}

void RecordedFiles::RemoveLeftovers(const QString& folder) {
    ClearedFolders += folder;
    m_real.RemoveLeftovers(Real(folder));
}

qint64 RecordedFiles::FileLength(const QString& path) {
    Record(FileCall::FileLength, path);
    return m_real.FileLength(Real(path));
}

std::unique_ptr<BinaryFile> RecordedFiles::OpenForReading(const QString& path) {
    Record(FileCall::OpenForReading, path);
    return std::make_unique<RecordedFile>(*this, m_real.OpenForReading(Real(path)), path);
}

std::unique_ptr<BinaryFile> RecordedFiles::OpenForReadingAndWriting(const QString& path) {
    Record(FileCall::OpenForReadingAndWriting, path);
    return std::make_unique<RecordedFile>(*this, m_real.OpenForReadingAndWriting(Real(path)), path);
}

bool RecordedFiles::IsOnIpod(const QString& path) {
    return !IpodRoot.isNull() && IsAtOrBelow(path, IpodRoot);
}

QString RecordedFiles::DriveOf(const QString& path) {
    Record(FileCall::DriveOf, path);
    return Paths::IsDriveForm(path) ? path.left(2) : RootOf(path);
}

double RecordedFiles::FreeBytes(const QString& path) {
    Record(FileCall::FreeBytes, path);
    const auto found = m_freeBytes.find(RootOf(path));
    if (found == m_freeBytes.end()) {
        throw RuntimeError(ErrorNumber::DeviceUnavailable);
    }
    return found->second;
}

QString RecordedFiles::NativePath(const QString& path) {
    Record(FileCall::NativePath, path);
    const auto found = m_nativePaths.find(path);
    return found == m_nativePaths.end() ? path : found->second;
}
