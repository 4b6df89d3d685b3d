#include "platform/PatientFileSystem.h"

#include "platform/ScopeGuard.h"

#include <exception>
#include <mutex>
#include <utility>

namespace {

/// A file on its way to the caller that opens it, who may have given up meanwhile.
struct Delivery {
    std::mutex Mutex;
    bool IsUnwanted = false;
    std::shared_ptr<BinaryFile> File;
};

} // namespace

void PatientFileSystem::Wait(std::function<void()> operation, const CopyControl& control) {
    if (!MayGoOn) {
        operation();
        return;
    }
    bool isStopped = false;
    const auto mayGoOn = [&] {
        ScopeGuard stopped([&control] { control.Stop(); });
        isStopped = !MayGoOn();
        if (!isStopped) {
            stopped.Dismiss();
        }
        return !isStopped;
    };
    try {
        m_worker.Do(std::move(operation), mayGoOn);
    } catch (const std::exception&) {
        if (!isStopped) {
            throw;
        }
    }
    if (isStopped) {
        throw OperationStopped();
    }
}

/// The result of `operation`.
template <class Operation>
auto PatientFileSystem::Ask(Operation operation, const CopyControl& control) {
    const auto result = std::make_shared<decltype(operation())>();
    Wait([operation, result] { *result = operation(); }, control);
    return std::move(*result);
}

/// The result of an operation that may leave something beside its target when it is stopped.
template <class Operation>
auto PatientFileSystem::AskToCopy(Operation operation, const CopyControl& control) {
    try {
        return Ask(std::move(operation), control);
    } catch (const OperationStopped&) {
        Wait([control] { control.RemoveLeftover(); }, {});
        throw;
    }
}

/// An open file of the other service. The worker closes it.
class PatientFile : public BinaryFile {
public:
    PatientFile(PatientFileSystem& owner, std::shared_ptr<BinaryFile> file)
        : m_owner(owner), m_file(std::move(file)) {}
    ~PatientFile() override {
        try {
            m_owner.m_worker.DoLater([file = std::exchange(m_file, nullptr)] {});
        } catch (const std::exception&) {
            // Memory has run out; the file is closed all the same.
            return;
        }
    }

    static const std::shared_ptr<BinaryFile>& Of(BinaryFile& file) {
        return dynamic_cast<PatientFile&>(file).m_file;
    }

    void Read(const std::shared_ptr<char>& buffer, qint64 size) override {
        m_owner.Wait([file = m_file, buffer, size] { file->Read(buffer, size); }, {});
    }
    bool WriteFrom(BinaryFile& source, qint64 size, const CopyControl& control) override {
        return m_owner.Ask([file = m_file, from = Of(source), size,
                            control] { return file->WriteFrom(*from, size, control); },
                           control);
    }
    void Truncate(qint64 size) override {
        m_owner.Wait([file = m_file, size] { file->Truncate(size); }, {});
    }
    void Close() override {
        m_owner.Wait([file = m_file] { file->Close(); }, {});
    }
    void TakeModificationTime(BinaryFile& source) override {
        m_owner.Wait([file = m_file, from = Of(source)] { file->TakeModificationTime(*from); }, {});
    }

private:
    PatientFileSystem& m_owner;
    std::shared_ptr<BinaryFile> m_file;
};

void PatientFileSystem::Do(std::function<void(FileSystem&)> operation, const CopyControl& control) {
    Wait([files = m_files, operation = std::move(operation)] { operation(*files); }, control);
}

bool PatientFileSystem::FileExists(const QString& path) {
    return Ask([files = m_files, path] { return files->FileExists(path); });
}

bool PatientFileSystem::WouldReplace(const QString& path) {
    return Ask([files = m_files, path] { return files->WouldReplace(path); });
}

bool PatientFileSystem::FolderExists(const QString& path) {
    return Ask([files = m_files, path] { return files->FolderExists(path); });
}

void PatientFileSystem::CreateFolder(const QString& path) {
    Wait([files = m_files, path] { files->CreateFolder(path); }, {});
}

void PatientFileSystem::CreateFolderChain(const QString& path) {
    Wait([files = m_files, path] { files->CreateFolderChain(path); }, {});
}

void PatientFileSystem::DeleteFolder(const QString& path, const CopyControl& control) {
    Wait([files = m_files, path, control] { files->DeleteFolder(path, control); }, control);
}

bool PatientFileSystem::CopyFile(const QString& source, const QString& target, Existing existing,
                                 const CopyControl& control) {
    return AskToCopy([files = m_files, source, target, existing,
                      control] { return files->CopyFile(source, target, existing, control); },
                     control);
}

CopiedFiles PatientFileSystem::CopyNewFiles(const std::vector<FileToCopy>& copies,
                                            qint64 milliseconds, const CopyControl& control) {
    const auto copy = std::make_shared<JointCopy>(m_files, copies, milliseconds, control);
    if (MayGoOn && copies.size() > 1) {
        m_ahead.DoLater([copy] { copy->TakePart(); });
    }
    return AskToCopy([copy] { return copy->Finish(); }, control);
}

void PatientFileSystem::ReadAhead(const QString& path) {
    m_ahead.DoLater([files = m_files, path] { files->ReadAhead(path); });
}

void PatientFileSystem::RequireTarget(const QString& target, Existing existing) {
    Wait([files = m_files, target, existing] { files->RequireTarget(target, existing); }, {});
}

bool PatientFileSystem::MoveFile(BinaryFile& file, const QString& target, Existing existing,
                                 const CopyControl& control) {
    return AskToCopy([files = m_files, moved = PatientFile::Of(file), target, existing,
                      control] { return files->MoveFile(*moved, target, existing, control); },
                     control);
}

/// Nobody waits for it: later operations on the same folder follow on the same worker.
void PatientFileSystem::DeleteFile(BinaryFile& file) {
    m_worker.DoLater(
        [files = m_files, deleted = PatientFile::Of(file)] { files->DeleteFile(*deleted); });
}

void PatientFileSystem::RemoveLeftovers(const QString& folder) {
    Wait([files = m_files, folder] { files->RemoveLeftovers(folder); }, {});
}

qint64 PatientFileSystem::FileLength(const QString& path) {
    return Ask([files = m_files, path] { return files->FileLength(path); });
}

std::unique_ptr<BinaryFile> PatientFileSystem::OpenForReading(const QString& path) {
    std::shared_ptr<BinaryFile> file = Ask([files = m_files, path] {
        return std::shared_ptr<BinaryFile>(files->OpenForReading(path));
    });
    return std::make_unique<PatientFile>(*this, std::move(file));
}

std::unique_ptr<BinaryFile> PatientFileSystem::OpenForReadingAndWriting(const QString& path) {
    const auto delivery = std::make_shared<Delivery>();
    const auto open = [files = m_files, path, delivery] {
        std::shared_ptr<BinaryFile> file = files->OpenForReadingAndWriting(path);
        std::unique_lock lock(delivery->Mutex);
        if (!delivery->IsUnwanted) {
            delivery->File = std::move(file);
            return;
        }
        lock.unlock();
        files->DeleteFile(*file); // it was created just now, for a caller that has gone
    };
    try {
        Wait(open, {});
    } catch (const OperationStopped&) {
        const std::lock_guard lock(delivery->Mutex);
        delivery->IsUnwanted = true;
        if (delivery->File) {
            m_worker.DoLater(
                [files = m_files, file = std::move(delivery->File)] { files->DeleteFile(*file); });
        }
        throw;
    }
    return std::make_unique<PatientFile>(*this, std::move(delivery->File));
}

bool PatientFileSystem::IsOnIpod(const QString& path) {
    return Ask([files = m_files, path] { return files->IsOnIpod(path); });
}

NameLimits PatientFileSystem::LimitsOf(const QString& path) {
    return Ask([files = m_files, path] { return files->LimitsOf(path); });
}

QString PatientFileSystem::DriveOf(const QString& path) {
    return Ask([files = m_files, path] { return files->DriveOf(path); });
}

double PatientFileSystem::FreeBytes(const QString& path) {
    return Ask([files = m_files, path] { return files->FreeBytes(path); });
}

QString PatientFileSystem::NativePath(const QString& path) {
    return Ask([files = m_files, path] { return files->NativePath(path); });
}
