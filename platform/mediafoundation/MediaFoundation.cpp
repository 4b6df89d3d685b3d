#include "platform/mediafoundation/MediaFoundation.h"

namespace {

template <class Function>
bool Load(Function& function, HMODULE library, const char* name) {
    const FARPROC found = library != nullptr ? GetProcAddress(library, name) : nullptr;
    function = reinterpret_cast<Function>(reinterpret_cast<void*>(found));
    return function != nullptr;
}

HMODULE LoadSystemLibrary(const wchar_t* name) {
    return LoadLibraryExW(name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
}

} // namespace

const MediaFoundation* MediaFoundation::Find() {
    static MediaFoundation functions;
    static const bool isThere = [] {
        const HMODULE platform = LoadSystemLibrary(L"mfplat.dll");
        const HMODULE readers = LoadSystemLibrary(L"mfreadwrite.dll");
        return Load(functions.Startup, platform, "MFStartup") &&
               Load(functions.CreateMediaType, platform, "MFCreateMediaType") &&
               Load(functions.CreateByteStream, platform, "MFCreateMFByteStreamOnStream") &&
               Load(functions.CreateSourceReader, readers, "MFCreateSourceReaderFromByteStream") &&
               SUCCEEDED(functions.Startup(MF_VERSION, MFSTARTUP_FULL));
    }();
    return isThere ? &functions : nullptr;
}
