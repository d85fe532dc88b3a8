#include "shell/commands.h"

#include "dbapserv.h"
#include "document/drawing_queries.h"
#include "palette/menu_palette_set.h"
#include "palette/new_line_dlg.h"
#include "palette/notify_link.h"
#include "shell/profile_first_use.h"
#include "storage/trace.h"

void kv2dMenu_kv2dDrawingManager() {
    Trace(L"+ kv2dMenu_kv2dDrawingManager()");
    std::wstring strProfile;
    GetSysVarString(L"CPROFILE", strProfile);
    const wchar_t* szRootKey = acdbHostApplicationServices()->getUserRegistryProductRootKey();
    if (IsProfileFirstUse(szRootKey ? szRootKey : L"", strProfile)) ShowMenuPaletteSet(true);
    // Not from here: the dialog closes and opens drawings, which a command's context does not allow.
    PostDrawingManagerRequest();
    Trace(L"- kv2dMenu_kv2dDrawingManager()");
}

void kv2dMenu_kv2dNewLineNumber() {
    CNewLineDlg(nullptr).DoModal();
}
