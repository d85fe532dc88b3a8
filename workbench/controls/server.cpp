#include "controls/server.h"

#include <olectl.h>

#include "controls/com_control.h"

namespace controls {

namespace {

HINSTANCE g_instance = nullptr;

class ClassFactory final : public IClassFactory {
  public:
    STDMETHODIMP QueryInterface(REFIID id, void** object) override {
        if (!object) return E_POINTER;
        if (id != IID_IUnknown && id != IID_IClassFactory) return *object = nullptr, E_NOINTERFACE;
        *object = this;
        return S_OK;
    }
    // One static object: the library's count of objects and locks is what keeps it.
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** object) override {
        if (!object) return E_POINTER;
        *object = nullptr;
        if (outer) return CLASS_E_NOAGGREGATION;
        IOleObject* control = kServer.create();
        const HRESULT hr = control->QueryInterface(id, object);
        control->Release();
        return hr;
    }
    STDMETHODIMP LockServer(BOOL lock) override {
        lock ? InterlockedIncrement(&g_liveObjects) : InterlockedDecrement(&g_liveObjects);
        return S_OK;
    }
};

ClassFactory g_factory;

std::wstring GuidText(REFGUID id) {
    wchar_t text[40] = {};
    StringFromGUID2(id, text, static_cast<int>(std::size(text)));
    return text;
}

// Keys are written for the whole machine: the programs that look for the controls read them there.
constexpr wchar_t kClasses[] = L"Software\\Classes\\";

bool WriteKey(const std::wstring& key, const wchar_t* name, const std::wstring& text) {
    HKEY handle = nullptr;
    if (RegCreateKeyExW(HKEY_LOCAL_MACHINE, (kClasses + key).c_str(), 0, nullptr, 0, KEY_WRITE, nullptr,
                        &handle, nullptr) != ERROR_SUCCESS)
        return false;
    const LONG result = RegSetValueExW(handle, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                                       static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
    RegCloseKey(handle);
    return result == ERROR_SUCCESS;
}

std::wstring LibraryKey() {
    return L"TypeLib\\" + GuidText(kServer.libraryId) + L"\\1.0";
}
// 32-bit programs look for type libraries in their own view of the registry.
std::wstring LibraryKey32() {
    return L"Wow6432Node\\" + LibraryKey();
}

bool WriteClass() {
    const std::wstring classKey = L"CLSID\\" + GuidText(kServer.classId);
    bool written = WriteKey(classKey, nullptr, kServer.description) &&
                   WriteKey(classKey + L"\\InprocServer32", nullptr, GetServerPath()) &&
                   WriteKey(classKey + L"\\InprocServer32", L"ThreadingModel", L"Apartment") &&
                   WriteKey(classKey + L"\\TypeLib", nullptr, GuidText(kServer.libraryId)) &&
                   WriteKey(classKey + L"\\Control", nullptr, L"");
    if (kServer.programId)
        written = written && WriteKey(classKey + L"\\ProgID", nullptr, kServer.programId) &&
                  WriteKey(kServer.programId, nullptr, kServer.description) &&
                  WriteKey(std::wstring(kServer.programId) + L"\\CLSID", nullptr, GuidText(kServer.classId));
    return written;
}

bool WriteLibrary() {
    const std::wstring path = GetServerPath();
    for (const std::wstring& key : {LibraryKey(), LibraryKey32()}) {
        if (!WriteKey(key, nullptr, std::wstring(kServer.description) + L" Type Library") ||
            !WriteKey(key + L"\\0\\win64", nullptr, path) || !WriteKey(key + L"\\FLAGS", nullptr, L"0"))
            return false;
    }
    return true;
}

void DeleteKey(const std::wstring& key) {
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, (kClasses + key).c_str());
}

}  // namespace

HINSTANCE GetServerInstance() {
    return g_instance;
}

std::wstring GetServerPath() {
    wchar_t path[MAX_PATH] = {};
    GetModuleFileNameW(g_instance, path, MAX_PATH);
    return path;
}

}  // namespace controls

using namespace controls;

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) {
        g_instance = instance;
        DisableThreadLibraryCalls(instance);
    }
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, LPVOID* object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    return classId == kServer.classId ? g_factory.QueryInterface(id, object) : CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() {
    return g_liveObjects == 0 ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
    return WriteClass() && WriteLibrary() ? S_OK : SELFREG_E_CLASS;
}

STDAPI DllUnregisterServer() {
    DeleteKey(L"CLSID\\" + GuidText(kServer.classId));
    if (kServer.programId) DeleteKey(kServer.programId);
    DeleteKey(L"TypeLib\\" + GuidText(kServer.libraryId));
    DeleteKey(L"Wow6432Node\\TypeLib\\" + GuidText(kServer.libraryId));
    return S_OK;
}
