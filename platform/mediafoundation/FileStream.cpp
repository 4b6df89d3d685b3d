#include "platform/mediafoundation/FileStream.h"

#include <atomic>
#include <utility>

namespace {

/// `File` is MediaFile, or has what that has.
template <class File>
class FileStream : public IStream {
public:
    explicit FileStream(std::shared_ptr<File> file) : m_file(std::move(file)) {}
    virtual ~FileStream() = default;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        if (id != IID_IUnknown && id != IID_ISequentialStream && id != IID_IStream) {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        *object = this;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_users; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG users = --m_users;
        if (users == 0) {
            delete this;
        }
        return users;
    }

    HRESULT STDMETHODCALLTYPE Read(void* buffer, ULONG size, ULONG* count) override {
        const qint64 read = m_file->Read(static_cast<char*>(buffer), size);
        if (count != nullptr) {
            *count = read > 0 ? static_cast<ULONG>(read) : 0;
        }
        m_position += read > 0 ? read : 0;
        return read < 0 ? STG_E_READFAULT : read < size ? S_FALSE : S_OK;
    }
    HRESULT STDMETHODCALLTYPE Seek(LARGE_INTEGER move, DWORD origin,
                                   ULARGE_INTEGER* position) override {
        const qint64 from = origin == STREAM_SEEK_SET   ? 0
                            : origin == STREAM_SEEK_CUR ? m_position
                                                        : m_file->Size();
        const qint64 found = m_file->Seek(from + move.QuadPart);
        if (found < 0) {
            return STG_E_INVALIDFUNCTION;
        }
        m_position = found;
        if (position != nullptr) {
            position->QuadPart = static_cast<ULONGLONG>(found);
        }
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Stat(STATSTG* info, DWORD) override {
        *info = {};
        info->type = STGTY_STREAM;
        info->cbSize.QuadPart = static_cast<ULONGLONG>(m_file->Size());
        info->grfMode = STGM_READ;
        return S_OK;
    }

    // It is only read, by one reader.
    HRESULT STDMETHODCALLTYPE Write(const void*, ULONG, ULONG*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetSize(ULARGE_INTEGER) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CopyTo(IStream*, ULARGE_INTEGER, ULARGE_INTEGER*,
                                     ULARGE_INTEGER*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Commit(DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Revert() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE LockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE UnlockRegion(ULARGE_INTEGER, ULARGE_INTEGER, DWORD) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Clone(IStream**) override { return E_NOTIMPL; }

private:
    std::atomic<ULONG> m_users = 1;
    std::shared_ptr<File> m_file;
    qint64 m_position = 0;
};

} // namespace

ComPointer<IStream> NewFileStream(std::shared_ptr<MediaFile> file) {
    return ComPointer<IStream>(new FileStream(std::move(file)));
}

ComPointer<IStream> NewFileStream(std::shared_ptr<WaveOfAiff> file) {
    return ComPointer<IStream>(new FileStream(std::move(file)));
}
