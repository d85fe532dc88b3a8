#include "afxcmdtarget.h"

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap() {
    static const AFX_MSGMAP_ENTRY messageEntries[] = {{0, 0, 0, 0, nullptr}};
    static const AFX_MSGMAP messageMap = {nullptr, messageEntries};
    return &messageMap;
}

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const {
    return GetThisMessageMap();
}

const AFX_EVENTSINKMAP* CCmdTarget::GetThisEventSinkMap() {
    static const AFX_EVENTSINKMAP_ENTRY eventSinkEntries[] = {{0, 0, nullptr}};
    static const AFX_EVENTSINKMAP eventSinkMap = {nullptr, eventSinkEntries};
    return &eventSinkMap;
}

const AFX_EVENTSINKMAP* CCmdTarget::GetEventSinkMap() const {
    return GetThisEventSinkMap();
}

LPDISPATCH CCmdTarget::GetIDispatch(BOOL) {
    return nullptr;
}

BOOL CCmdTarget::OnCmdMsg(UINT nID, int nCode, void* pExtra, void*) {
    AFX_MSGCALL call;
    call.nMessage = HIWORD(nCode) == 0 ? WM_COMMAND : HIWORD(nCode);
    call.nCode = LOWORD(nCode);
    call.nID = nID;
    const auto* pNotify = static_cast<const AFX_NOTIFY*>(pExtra);
    if (call.nMessage == WM_NOTIFY) {
        call.nCode = pNotify->pNMHDR->code;
        call.lParam = reinterpret_cast<LPARAM>(pNotify->pNMHDR);
    }
    if (!Route(GetMessageMap(), call)) return FALSE;
    if (call.nMessage == WM_NOTIFY) *pNotify->pResult = call.lResult;
    return TRUE;
}

bool CCmdTarget::Route(const AFX_MSGMAP* pMap, AFX_MSGCALL& call) {
    for (; pMap; pMap = pMap->pfnGetBaseMap ? pMap->pfnGetBaseMap() : nullptr) {
        for (const AFX_MSGMAP_ENTRY* pEntry = pMap->lpEntries; pEntry->pfn; ++pEntry) {
            if (pEntry->nMessage != call.nMessage || pEntry->nCode != call.nCode) continue;
            if (call.nID < pEntry->nID || call.nID > pEntry->nLastID) continue;
            // A handler that declines leaves the message to the next class, not to its neighbours.
            if (pEntry->pfn(this, call)) return true;
            break;
        }
    }
    return false;
}

HRESULT CCmdTarget::OnEvent(UINT nCtrlID, DISPID dispid, const DISPPARAMS* pArgs) {
    for (const AFX_EVENTSINKMAP* pMap = GetEventSinkMap(); pMap;
         pMap = pMap->pfnGetBaseMap ? pMap->pfnGetBaseMap() : nullptr) {
        for (const AFX_EVENTSINKMAP_ENTRY* pEntry = pMap->lpEntries; pEntry->pfn; ++pEntry) {
            if (pEntry->nCtrlID == nCtrlID && pEntry->dispid == dispid) return pEntry->pfn(this, pArgs);
        }
    }
    return DISP_E_MEMBERNOTFOUND;
}

namespace {

int g_nWaitCursors = 0;

}  // namespace

CWaitCursor::CWaitCursor() : m_hOldCursor(::GetCursor()) {
    ++g_nWaitCursors;
    Restore();
}

CWaitCursor::~CWaitCursor() {
    if (--g_nWaitCursors == 0) ::SetCursor(m_hOldCursor);
}

void CWaitCursor::Restore() {
    ::SetCursor(::LoadCursorW(nullptr, IDC_WAIT));
}
