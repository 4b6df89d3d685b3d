#pragma once

#include "platform/windows/WindowsApi.h"

#include <mfapi.h>
#include <mfidl.h>
#include <mfreadwrite.h>

#include <memory>

/// Releases an object of COM.
struct Release {
    template <class Object>
    void operator()(Object* object) const {
        object->Release();
    }
};
template <class Object>
using ComPointer = std::unique_ptr<Object, Release>;

/// Media Foundation's functions, looked up when they are needed: some editions of Windows lack
/// them.
struct MediaFoundation {
    decltype(&::MFStartup) Startup = nullptr;
    decltype(&::MFCreateMediaType) CreateMediaType = nullptr;
    /// MFCreateMFByteStreamOnStream, which the compiler's header does not have.
    HRESULT(WINAPI* CreateByteStream)(IStream*, IMFByteStream**) = nullptr;
    decltype(&::MFCreateSourceReaderFromByteStream) CreateSourceReader = nullptr;

    /// Null where this Windows lacks them. It is never shut down: a thread that hangs on a device
    /// may use it to the program's end.
    static const MediaFoundation* Find();
};
