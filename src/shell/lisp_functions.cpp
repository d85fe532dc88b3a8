#include "shell/lisp_functions.h"

#include "acedads.h"
#include "acutads.h"
#include "adscodes.h"
#include "palette/menu_palette.h"
#include "palette/menu_palette_child_dlg.h"
#include "palette/menu_palette_set.h"
#include "rxmfcapi.h"
#include "shell/lisp_arguments.h"
#include "storage/applications.h"
#include "storage/registry_settings.h"

namespace {

constexpr int kLispDone = 0;

int RefuseArguments(const wchar_t* szFormat) {
    acutPrintf(L"%s", szFormat);
    return RSERR;
}

// Null while there is no palette.
CMenuPaletteChildDlg* GetChildDialog() {
    const CMenuPalette* pPalette = CMenuPalette::GetPalette();
    return pPalette ? pPalette->m_pChildDlg : nullptr;
}

// Shows the set as the discipline's stored flag says, or always; stores what was decided.
void ShowSet(CMenuPaletteSet* pSet, bool bUseStoredState) {
    const CMenuPalette* pPalette = pSet->m_pPalette ? CMenuPalette::GetPalette() : nullptr;
    const int nApp = pPalette ? pPalette->m_eApp : kAppNone;
    const std::uint32_t uShow =
        bUseStoredState ? ReadDisciplineDword(nApp, kToolboxSubkey, kShowMenuValue, 1) : 1;
    WriteDisciplineDword(nApp, kToolboxSubkey, kShowMenuValue, uShow);
    acedGetAcadFrame()->ShowControlBar(pSet, static_cast<BOOL>(uShow), FALSE);
}

}  // namespace

int kv2dMenu_Init() {
    acedRetVoid();
    int nApp = 0;
    bool bUseStoredState = false;
    if (!TakeInitArguments(acedGetArgs(), nApp, bUseStoredState))
        return RefuseArguments(L"Function format is: BOOL.success (kv2dMenu_Init eApp BOOL.ini)\n");
    if (CMenuPaletteSet* pSet = CMenuPaletteSet::GetInstance(nApp)) ShowSet(pSet, bUseStoredState);
    acedRetT();
    return kLispDone;
}

int kv2dMenu_DocXDataHasChanged() {
    acedRetVoid();
    if (!TakeNoArguments(acedGetArgs()))
        return RefuseArguments(L"Function format is: VOID (kv2dMenu_DocXDataHasChanged)\n");
    if (CMenuPaletteChildDlg* pDialog = GetChildDialog()) pDialog->UpdateCurrentSelections();
    return kLispDone;
}

int kv2dMenu_DocXRecordHasChanged() {
    acedRetVoid();
    if (!TakeNoArguments(acedGetArgs()))
        return RefuseArguments(L"Function format is: VOID (kv2dMenu_DocXRecordHasChanged)\n");
    if (CMenuPaletteChildDlg* pDialog = GetChildDialog()) pDialog->UpdateForActiveDocument();
    return kLispDone;
}

int kv2dMenu_SetTabbedMenu() {
    acedRetVoid();
    std::wstring strMenu;
    if (!TakeMenuArguments(acedGetArgs(), strMenu))
        return RefuseArguments(L"Function format is: VOID (kv2dMenu_SetTabbedMenu STR.Menu)\n");
    if (CMenuPaletteChildDlg* pDialog = GetChildDialog()) pDialog->SetMenuByCommand(strMenu);
    return kLispDone;
}

int kv2dMenu_SetToggleState() {
    acedRetVoid();
    std::wstring strName;
    bool bState = false;
    if (!TakeToggleArguments(acedGetArgs(), strName, bState))
        return RefuseArguments(
            L"Function format is: VOID (kv2dMenu_SetToggleState STR.ToggleName BOOL.State)\n");
    if (CMenuPaletteChildDlg* pDialog = GetChildDialog()) pDialog->SetToggle(strName, bState);
    return kLispDone;
}
