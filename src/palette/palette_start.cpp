// How the palette opens the Drawing Manager, and what it does with its answer.
#include "acdocman.h"
#include "controls/acad_error_box.h"
#include "controls/module_resources.h"
#include "document/drawing_queries.h"
#include "drawing_manager/drawing_manager_dlg.h"
#include "drawing_manager/manager_registry.h"
#include "palette/host_automation.h"
#include "palette/launcher_data.h"
#include "palette/menu_palette_child_dlg.h"
#include "palette/notify_link.h"
#include "storage/registry_settings.h"
#include "storage/trace.h"

namespace {

constexpr wchar_t kOpenErrorText[] = L"Error opening drawing:\n%s";

// 1 until the first request for the Drawing Manager of the process.
bool g_bFirstStart = true;

void OpenDrawing(const std::wstring& strTitle, const std::wstring& strPath) {
    const Acad::ErrorStatus status = acDocManager->appContextOpenDocument(strPath.c_str());
    if (status != Acad::eOk) ShowMessageWithAcadError(strTitle, kOpenErrorText, status, strPath, L"");
}

}  // namespace

void CMenuPaletteChildDlg::DocDestroyed() {
    // The document that is going still counts.
    if (acDocManager->documentCount() - 1 > 0) return;
    if (m_pDrawingManager && m_pDrawingManager->m_bClosingDocuments) return;
    if (ReadDisciplineDword(m_eApp, kManagerSubkey, kShowWindowValue, 1) == 0) return;
    EnableCtrls(false);
    PostDrawingManagerRequest();
}

void CMenuPaletteChildDlg::StartDrawingManager() {
    if (!g_bFirstStart) {
        OnBnClickedButtonDrawingManager();
        return;
    }
    g_bFirstStart = false;
    const CLauncherData launcher = TakeLauncherData();
    if (launcher.m_nProjectId > 0)
        WriteDisciplineDword(m_eApp, kManagerSubkey, kProjectIdValue,
                             static_cast<std::uint32_t>(launcher.m_nProjectId));
    if (!launcher.m_strDrawing.empty()) {
        OpenDrawing(L"TESSARC +", launcher.m_strDrawing);
        return;
    }
    if (ReadDisciplineDword(m_eApp, kManagerSubkey, kShowWindowValue, 1) == 1) CloseUntitledDrawing();
}

// The host's empty first drawing makes room for the Drawing Manager, which opens when it has gone.
void CMenuPaletteChildDlg::CloseUntitledDrawing() {
    AcApDocument* pDocument = acDocManager->curDocument();
    if (!pDocument) return;
    acdbSetDbmod(pDocument->database(), 0);
    int nTitled = 0;
    GetSysVarShort(L"DWGTITLED", nTitled);
    if (nTitled == 0) acDocManager->closeDocument(pDocument);
}

void CMenuPaletteChildDlg::OnBnClickedButtonDrawingManager() {
    Trace(L"+ CMenuPaletteChildDlg::OnBnClickedButtonDrawingManager");
    CDrawingManagerDlg dialog;
    INT_PTR nAnswer;
    {
        const CModuleResourceScope resources;
        m_pDrawingManager = &dialog;
        nAnswer = dialog.DoModal();
        m_pDrawingManager = nullptr;
    }
    if (nAnswer == IDOK)
        OpenDrawings(dialog);
    else if (nAnswer == IDCANCEL && !dialog.m_strStandardTemplate.empty())
        StartDrawingFromTemplate(dialog.m_strStandardTemplate, dialog.m_strTitle);
    Trace(L"- CMenuPaletteChildDlg::OnBnClickedButtonDrawingManager");
}

void CMenuPaletteChildDlg::OpenDrawings(const CDrawingManagerDlg& dialog) {
    const CWaitCursor waitCursor;
    for (const std::wstring& strPath : dialog.m_astrOpenList) {
        if (!dialog.m_bOpenReadOnly)
            OpenDrawing(dialog.m_strTitle, strPath);
        else if (!OpenReadOnly(strPath, dialog.m_strTitle))
            break;
    }
}
