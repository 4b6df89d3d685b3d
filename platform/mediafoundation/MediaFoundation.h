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
    decltype(&::MFShutdown) Shutdown = nullptr;
    decltype(&::MFCreateMediaType) CreateMediaType = nullptr;
    /// MFCreateMFByteStreamOnStream, which the compiler's header does not have.
    HRESULT(WINAPI* CreateByteStream)(IStream*, IMFByteStream**) = nullptr;
    decltype(&::MFCreateSourceReaderFromByteStream) CreateSourceReader = nullptr;

    /// Null where this Windows lacks them.
    static const MediaFoundation* Find();
};
