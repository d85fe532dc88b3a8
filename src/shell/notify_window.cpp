#include "shell/notify_window.h"

#include "palette/menu_palette.h"
#include "palette/menu_palette_child_dlg.h"
#include "palette/notify_link.h"
#include "rxmfcapi.h"
#include "storage/trace.h"

namespace {

CArxMsgHandler* g_pNotifyWindow = nullptr;
constexpr UINT kNotifyWindowId = 10;

}  // namespace

BEGIN_MESSAGE_MAP(CArxMsgHandler, CWnd)
ON_MESSAGE(kNotifyMessage, &CArxMsgHandler::OnKV2DNotify)
END_MESSAGE_MAP()

void CArxMsgHandler::CreateNotifyWindow() {
    if (!g_pNotifyWindow) g_pNotifyWindow = new CArxMsgHandler;
    if (g_pNotifyWindow->m_hWnd) return;
    g_pNotifyWindow->Create(nullptr, nullptr, WS_CHILD | WS_MINIMIZE, CRect(0, 0, 1, 1), acedGetAcadFrame(),
                            kNotifyWindowId);
}

void CArxMsgHandler::DestroyNotifyWindow() {
    if (g_pNotifyWindow && g_pNotifyWindow->m_hWnd) g_pNotifyWindow->DestroyWindow();
    delete g_pNotifyWindow;
    g_pNotifyWindow = nullptr;
}

CArxMsgHandler* CArxMsgHandler::GetNotifyWindow() {
    return g_pNotifyWindow && g_pNotifyWindow->m_hWnd ? g_pNotifyWindow : nullptr;
}

LRESULT CArxMsgHandler::OnKV2DNotify(WPARAM wParam, LPARAM) {
    Trace(L"+ CArxMsgHandler::OnKV2DNotify");
    const CMenuPalette* pPalette = CMenuPalette::GetPalette();
    if (wParam == kRequestDrawingManager && pPalette) pPalette->m_pChildDlg->StartDrawingManager();
    // The way out shows a plus sign too; the readers of traces know the pair.
    Trace(L"+ CArxMsgHandler::OnKV2DNotify");
    return 0;
}

void PostDrawingManagerRequest() {
    if (CArxMsgHandler* pWindow = CArxMsgHandler::GetNotifyWindow())
        pWindow->PostMessage(kNotifyMessage, kRequestDrawingManager, 0);
}
