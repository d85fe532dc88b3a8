// A small module for tests of loading and unloading: it makes what modules make - a command, a LISP function,
// a palette set, a child window of the frame, window classes, reactors - and takes all of it away again.
#include <acdocman.h>
#include <aced.h>
#include <acedads.h>
#include <acutads.h>
#include <adui.h>
#include <afxdllx.h>
#include <rxdlinkr.h>
#include <rxmfcapi.h>

#include <memory>

namespace {

AFX_EXTENSION_MODULE g_extension;

class CountingReactor : public AcApDocManagerReactor {
  public:
    CountingReactor() { acDocManager->addReactor(this); }
    ~CountingReactor() override { acDocManager->removeReactor(this); }
};

struct Parts {
    Parts() {
        set.Create(L"TEST", 0, CRect(0, 0, 125, 250), acedGetAcadFrame(), 30);
        palette.Create(WS_CHILD | WS_VISIBLE, L"TEST", &set, 1);
        set.AddPalette(&palette);
        set.EnableDocking(CBRS_ALIGN_LEFT | CBRS_ALIGN_RIGHT);
        set.RestoreControlBar(AFX_IDW_DOCKBAR_LEFT, nullptr);
        acedGetAcadFrame()->ShowControlBar(&set, TRUE, FALSE);
        notify.Create(AfxRegisterWndClass(CS_DBLCLKS), L"", WS_CHILD | WS_MINIMIZE, CRect(0, 0, 1, 1),
                      acedGetAcadFrame(), 10);
    }
    CAdUiPaletteSet set{0};
    CAdUiPalette palette;
    CWnd notify;
    CountingReactor reactor;
};
std::unique_ptr<Parts> g_parts;

void TestCommand() {
    acutPrintf(L"\nTESTCMD runs");
}

int TestFunction() {
    acedRetInt(42);
    return 0;
}

AcEdCommandStack* Commands() {
    return acedRegCmds;
}

}  // namespace

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void*) {
    if (reason == DLL_PROCESS_ATTACH) {
        AfxInitExtensionModule(g_extension, instance);
        new CDynLinkLibrary(g_extension);
    }
    if (reason == DLL_PROCESS_DETACH) AfxTermExtensionModule(g_extension);
    return TRUE;
}

extern "C" __declspec(dllexport) int acrxGetApiVersion() {
    return kArxHostApiVersion;
}

extern "C" __declspec(dllexport) AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* appId) {
    switch (message) {
        case AcRx::kInitAppMsg:
            acrxDynamicLinker->unlockApplication(appId);
            acrxDynamicLinker->registerAppMDIAware(appId);
            Commands()->addCommand(L"TEST", L"_TESTCMD", L"TESTCMD", ACRX_CMD_MODAL, &TestCommand);
            g_parts = std::make_unique<Parts>();
            break;
        case AcRx::kUnloadAppMsg:
            g_parts.reset();
            Commands()->removeGroup(L"TEST");
            break;
        case AcRx::kLoadDwgMsg:
            acedDefun(L"testfunction", 0);
            break;
        case AcRx::kUnloadDwgMsg:
            acedUndef(L"testfunction", 0);
            break;
        case AcRx::kInvkSubrMsg:
            return static_cast<AcRx::AppRetCode>(TestFunction());
        default:
            break;
    }
    return AcRx::kRetOK;
}
