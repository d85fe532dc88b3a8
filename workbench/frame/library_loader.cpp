#include "frame/library_loader.h"

#include <windows.h>

#include "frame/hostile_host.h"

namespace frame {

namespace {

std::wstring SystemText(DWORD code) {
    wchar_t text[512] = L"";
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                        code, 0, text, 512, nullptr);
    std::wstring result(text, length);
    while (!result.empty() && (result.back() == L'\n' || result.back() == L'\r' || result.back() == L'.'))
        result.pop_back();
    return result.empty() ? L"error " + std::to_wstring(code) : result;
}

}  // namespace

bool SystemLibraryLoader::Load(const std::wstring& path, workbench::host::Library& library,
                               std::wstring& error) {
    // The libraries that a module brings along lie beside it.
    const HMODULE module = LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (module == nullptr) {
        error = SystemText(GetLastError());
        return false;
    }
    library.handle = module;
    library.entryPoint = reinterpret_cast<workbench::host::EntryPoint>(
        reinterpret_cast<void*>(GetProcAddress(module, "acrxEntryPoint")));
    library.apiVersion =
        reinterpret_cast<int (*)()>(reinterpret_cast<void*>(GetProcAddress(module, "acrxGetApiVersion")));
    if (library.entryPoint != nullptr && library.apiVersion != nullptr) {
        if (HostileHost::Current() != nullptr) HostileHost::Current()->Watch(module);
        return true;
    }
    error = library.entryPoint == nullptr ? L"it does not export acrxEntryPoint"
                                          : L"it does not export acrxGetApiVersion";
    FreeLibrary(module);
    library = {};
    return false;
}

void SystemLibraryLoader::Free(const workbench::host::Library& library) {
    FreeLibrary(static_cast<HMODULE>(library.handle));
}

}  // namespace frame
