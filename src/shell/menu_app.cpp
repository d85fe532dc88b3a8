#include "shell/menu_app.h"

#include "acutads.h"
#include "document/doc_data.h"
#include "document/doc_reactors.h"
#include "palette/menu_palette_set.h"
#include "platform/platform.h"
#include "shell/commands.h"
#include "shell/control_registration.h"
#include "shell/lisp_functions.h"
#include "shell/notify_window.h"

// The service that licences are activated at. Deployments without activation leave it empty, and nothing in
// this module asks it.
extern constexpr wchar_t kActivationEndpoint[] = L"";

namespace {

constexpr wchar_t kThumbnailMissingText[] =
    L"The AutoCAD Drawing Thumbnail ActiveX control\nappears not to be properly installed.\n\nPlease check "
    L"software "
    L"installation.";

// Attached at load, and detached by their destructors when the library goes.
kv2dDocManagerReactor g_docManagerReactor(false);
kv2dEditorReactor g_editorReactor(false);

AcApDataManager<CDocData> g_docData;

CMenuApp g_app;

}  // namespace

ACDB_REGISTER_OBJECT_ENTRY_AUTO(kv2dDocManagerReactor);
ACDB_REGISTER_OBJECT_ENTRY_AUTO(kv2dEditorReactor);

namespace {

struct CMenuCommands {
    static void kv2dMenu_kv2dDrawingManager() { ::kv2dMenu_kv2dDrawingManager(); }
    static void kv2dMenukv2dNewLineNumber() { ::kv2dMenu_kv2dNewLineNumber(); }
    static int ads_kv2dmenu_init() { return kv2dMenu_Init(); }
    static int ads_kv2dmenu_docxdatahaschanged() { return kv2dMenu_DocXDataHasChanged(); }
    static int ads_kv2dmenu_docxrecordhaschanged() { return kv2dMenu_DocXRecordHasChanged(); }
    static int ads_kv2dmenu_settogglestate() { return kv2dMenu_SetToggleState(); }
    static int ads_kv2dmenu_settabbedmenu() { return kv2dMenu_SetTabbedMenu(); }
};

}  // namespace

ACED_ARXCOMMAND_ENTRY_AUTO(CMenuCommands, kv2dMenu, _kv2dDrawingManager, kv2dDrawingManager, ACRX_CMD_MODAL,
                           nullptr);
ACED_ARXCOMMAND_ENTRY_AUTO(CMenuCommands, kv2dMenu, kv2dNewLineNumber, kv2dNewLineNumber,
                           ACRX_CMD_TRANSPARENT, nullptr);

// The order is the code that the host reports. The names are small because LISP does not tell letter case.
ACED_ADSSYMBOL_ENTRY_AUTO(CMenuCommands, kv2dmenu_init, false);
ACED_ADSSYMBOL_ENTRY_AUTO(CMenuCommands, kv2dmenu_docxdatahaschanged, false);
ACED_ADSSYMBOL_ENTRY_AUTO(CMenuCommands, kv2dmenu_docxrecordhaschanged, false);
ACED_ADSSYMBOL_ENTRY_AUTO(CMenuCommands, kv2dmenu_settogglestate, false);
ACED_ADSSYMBOL_ENTRY_AUTO(CMenuCommands, kv2dmenu_settabbedmenu, false);

AcRx::AppRetCode CMenuApp::On_kInitAppMsg(void* appId) {
    const AcRx::AppRetCode result = AcRxArxApp::On_kInitAppMsg(appId);
    // The base has just unlocked the module; locked again, it cannot be unloaded by the user.
    acrxDynamicLinker->lockApplication(appId);
    acutPrintf(L"\nLoading %s...", acedGetAppName());
    RegisterMenuControl();
    if (!RegisterThumbnailControl())
        platform::GetBoxes().Show(platform::BoxOwner::kHostMainWindow, kThumbnailMissingText, L"",
                                  platform::kBoxIconError);
    g_docManagerReactor.Attach();
    g_editorReactor.Attach();
    CArxMsgHandler::CreateNotifyWindow();
    return result;
}

AcRx::AppRetCode CMenuApp::On_kUnloadAppMsg(void* appId) {
    AcRxArxApp::On_kUnloadAppMsg(appId);
    acutPrintf(L"\nUnloading %s...", acedGetAppName());
    CMenuPaletteSet::Destroy();
    CArxMsgHandler::DestroyNotifyWindow();
    return AcRx::kRetOK;
}

AcRx::AppRetCode CMenuApp::On_kLoadDwgMsg(void* appId) {
    AcRxArxApp::On_kLoadDwgMsg(appId);
    return AcRx::kRetOK;
}

AcRx::AppRetCode CMenuApp::On_kUnloadDwgMsg(void* appId) {
    AcRxArxApp::On_kUnloadDwgMsg(appId);
    return AcRx::kRetOK;
}

// What the LISP function answers is for the host's result, not for this message.
AcRx::AppRetCode CMenuApp::On_kInvkSubrMsg(void* appId) {
    AcRxArxApp::On_kInvkSubrMsg(appId);
    return AcRx::kRetOK;
}

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* appId) {
    return DispatchAppMessage(g_app, static_cast<int>(msg), appId);
}

extern "C" int acrxGetApiVersion() {
    return kArxHostApiVersion;
}
