#pragma once

#include "platform/windows/WindowsApi.h"

#include <mfapi.h>
#include <mfidl.h>
#include <mfreadwrite.h>

#include <memory>

/// Releases what COM has given.
struct Release {
    template <class Object>
    void operator()(Object* object) const {
        object->Release();
    }
};
template <class Object>
using ComPointer = std::unique_ptr<Object, Release>;

/// Media Foundation's functions, found when the program runs: there are editions of Windows
/// without.
struct MediaFoundation {
    decltype(&::MFStartup) Startup = nullptr;
    decltype(&::MFShutdown) Shutdown = nullptr;
    decltype(&::MFCreateMediaType) CreateMediaType = nullptr;
    /// MFCreateMFByteStreamOnStream, which the compiler's header does not have.
    HRESULT(WINAPI* CreateByteStream)(IStream*, IMFByteStream**) = nullptr;
    decltype(&::MFCreateSourceReaderFromByteStream) CreateSourceReader = nullptr;

    /// Null where this Windows has none.
    static const MediaFoundation* Find();
};
