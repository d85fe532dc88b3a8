// Library attach and detach: what happens before the host's first message and after its last.
#include <afxdllx.h>

#include "acui.h"
#include "controls/module_resources.h"
#include "platform/invalid_argument.h"
#include "platform/win32_platform.h"
#include "rxmfcapi.h"
#include "shell/trace_file.h"

HINSTANCE__* _hdllInstance = nullptr;

namespace {

AFX_EXTENSION_MODULE g_extensionModule = {};
bool g_bAttached = false;

void ThrowFrameworkInvalidArgument() {
    AfxThrowInvalidArgException();
}

void* GetHostMainWindow() {
    return adsw_acadMainWnd();
}

void Attach(HINSTANCE hInstance) {
    if (g_bAttached) return;
    g_bAttached = true;
    _hdllInstance = hInstance;
    SetModuleInstance(hInstance);
    platform::InstallWin32Platform();
    platform::SetHostMainWindow(GetHostMainWindow);
    platform::SetInvalidArgumentThrower(ThrowFrameworkInvalidArgument);
    StartTraceFile();
    if (AfxInitExtensionModule(g_extensionModule, hInstance)) new CDynLinkLibrary(g_extensionModule);
    InitAcUiDLL();
}

void Detach() {
    if (!g_bAttached) return;
    StopTraceFile();
    AfxTermExtensionModule(g_extensionModule);
    g_bAttached = false;
    _hdllInstance = nullptr;
    SetModuleInstance(nullptr);
}

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE hInstance, DWORD nReason, LPVOID) {
    if (nReason == DLL_PROCESS_ATTACH)
        Attach(hInstance);
    else if (nReason == DLL_PROCESS_DETACH)
        Detach();
    return TRUE;
}
