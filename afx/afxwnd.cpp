// CWnd: handle map, making windows, the way of a message to its handler.
#include "afxwnd.h"

#include <stdexcept>
#include <unordered_map>

#include "afxcmn.h"
#include "afxtempmap.h"
#include "afxwin.h"
#include "afxwndimpl.h"

IMPLEMENT_DYNAMIC(CWnd, CCmdTarget)

BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
ON_WM_NCDESTROY()
ON_WM_CTLCOLOR()
ON_WM_DRAWITEM()
ON_WM_MEASUREITEM()
END_MESSAGE_MAP()

namespace {

// Never destroyed: static objects of other libraries may still hold windows while the program ends.
std::unordered_map<HWND, CWnd*>& Windows() {
    static auto& map = *new std::unordered_map<HWND, CWnd*>;
    return map;
}

AfxTempMap<CWnd, HWND, &CWnd::m_hWnd>& TempWindows() {
    static auto& map = *new AfxTempMap<CWnd, HWND, &CWnd::m_hWnd>;
    return map;
}

MSG g_msgCurrent{};
CWnd* g_pWndInit = nullptr;  // waits for its window

LRESULT CALLBACK CbtHook(int nCode, WPARAM wParam, LPARAM lParam) {
    const auto hWnd = reinterpret_cast<HWND>(wParam);
    // The system makes the thread's input method window inside the first creation.
    if (nCode == HCBT_CREATEWND && g_pWndInit && !(::GetClassLongPtrW(hWnd, GCL_STYLE) & CS_IME)) {
        CWnd* pWnd = std::exchange(g_pWndInit, nullptr);
        pWnd->m_nFlags |= CWnd::kOwnsWindow;
        pWnd->AttachAndSubclass(hWnd);
    }
    return ::CallNextHookEx(nullptr, nCode, wParam, lParam);
}

// A failure of the language's library that reached a window procedure, in the framework's form.
class CStandardException : public CException {
  public:
    explicit CStandardException(const char* lpszWhat) : m_strText(lpszWhat) {}
    BOOL GetErrorMessage(LPWSTR lpszError, UINT nMaxError, UINT*) const override {
        lstrcpynW(lpszError, L"The operation failed:\n" + m_strText, static_cast<int>(nMaxError));
        return TRUE;
    }

  private:
    CString m_strText;
};

LRESULT ShowFailure(CException* e, const MSG& msg) {
    const LRESULT lResult = AfxGetThread()->ProcessWndProcException(e, &msg);
    e->Delete();
    return lResult;
}

}  // namespace

LRESULT AfxCallGuarded(const MSG& msg, const std::function<LRESULT()>& call) {
    try {
        return call();
    } catch (CException* e) {
        return ShowFailure(e, msg);
    } catch (const std::logic_error&) {
        return ShowFailure(new CInvalidArgException, msg);
    } catch (const std::exception& e) {
        return ShowFailure(new CStandardException(e.what()), msg);
    }
}

LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam) {
    CWnd* pWnd = CWnd::FromHandlePermanent(hWnd);
    if (!pWnd) return ::DefWindowProcW(hWnd, nMsg, wParam, lParam);
    const MSG msgOuter = g_msgCurrent;
    const MSG msg{hWnd, nMsg, wParam, lParam, 0, {}};
    g_msgCurrent = msg;
    const LRESULT lResult = AfxCallGuarded(msg, [&] { return pWnd->WindowProc(nMsg, wParam, lParam); });
    g_msgCurrent = msgOuter;
    return lResult;
}

namespace {

// The library of the common controls registers its classes when it is first used.
void RegisterCommonControls() {
    [[maybe_unused]] static const BOOL bDone = [] {
        const INITCOMMONCONTROLSEX which{sizeof(which), ICC_WIN95_CLASSES};
        return ::InitCommonControlsEx(&which);
    }();
}

}  // namespace

AfxCreateHook::AfxCreateHook(CWnd* pWnd)
    : m_hHook(::SetWindowsHookExW(WH_CBT, CbtHook, nullptr, ::GetCurrentThreadId())),
      m_pWnd(pWnd),
      m_pOuter(std::exchange(g_pWndInit, pWnd)) {
    RegisterCommonControls();
}

AfxCreateHook::~AfxCreateHook() {
    ::UnhookWindowsHookEx(m_hHook);
    g_pWndInit = m_pOuter;
}

bool AfxCreateHook::Taken() const {
    return g_pWndInit != m_pWnd;
}

CWnd::~CWnd() {
    DeleteToolTip();
    if (m_hWnd) {
        if (m_nFlags & kOwnsWindow) {
            ::DestroyWindow(m_hWnd);
        } else {
            UnsubclassWindow();
        }
    }
    AfxDeleteControlSite(m_pCtrlSite);
}

BOOL CWnd::Attach(HWND hWndNew) {
    if (!hWndNew || m_hWnd || FromHandlePermanent(hWndNew)) return FALSE;
    m_hWnd = hWndNew;
    Windows()[hWndNew] = this;
    return TRUE;
}

HWND CWnd::Detach() {
    if (m_hWnd) Windows().erase(m_hWnd);
    m_nFlags &= ~kOwnsWindow;
    m_pfnSuper = nullptr;
    return std::exchange(m_hWnd, nullptr);
}

CWnd* CWnd::FromHandle(HWND hWnd) {
    CWnd* pWnd = FromHandlePermanent(hWnd);
    return pWnd ? pWnd : TempWindows().Find(hWnd);
}

CWnd* CWnd::FromHandlePermanent(HWND hWnd) {
    const auto found = Windows().find(hWnd);
    return found == Windows().end() ? nullptr : found->second;
}

void CWnd::DeleteTempMap() {
    TempWindows().Clear();
    AfxClearTempGdiObjects();
    AfxClearTempMenus();
    AfxClearTempImageLists();
}

BOOL CWnd::Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                  CWnd* pParentWnd, UINT nID) {
    return CreateEx(0, lpszClassName, lpszWindowName, dwStyle | WS_CHILD, rect, pParentWnd, nID);
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                    const RECT& rect, CWnd* pParentWnd, UINT nID, LPVOID lpParam) {
    return CreateEx(dwExStyle, lpszClassName, lpszWindowName, dwStyle, rect.left, rect.top,
                    rect.right - rect.left, rect.bottom - rect.top, pParentWnd ? pParentWnd->m_hWnd : nullptr,
                    reinterpret_cast<HMENU>(static_cast<UINT_PTR>(nID)), lpParam);
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, int x,
                    int y, int nWidth, int nHeight, HWND hWndParent, HMENU nIDorHMenu, LPVOID lpParam) {
    CREATESTRUCT cs{lpParam, AfxGetInstanceHandle(),     nIDorHMenu,     hWndParent,    nHeight,  nWidth, y,
                    x,       static_cast<LONG>(dwStyle), lpszWindowName, lpszClassName, dwExStyle};
    if (!PreCreateWindow(cs)) {
        PostNcDestroy();
        return FALSE;
    }
    HWND hWnd = nullptr;
    bool bTaken = false;
    {
        const AfxCreateHook hook(this);
        hWnd =
            ::CreateWindowExW(cs.dwExStyle, cs.lpszClass, cs.lpszName, static_cast<DWORD>(cs.style), cs.x,
                              cs.y, cs.cx, cs.cy, cs.hwndParent, cs.hMenu, cs.hInstance, cs.lpCreateParams);
        bTaken = hook.Taken();
    }
    // A window that came and went has called it already.
    if (!bTaken) PostNcDestroy();
    return hWnd != nullptr;
}

BOOL CWnd::PreCreateWindow(CREATESTRUCT& cs) {
    if (!cs.lpszClass) cs.lpszClass = AfxRegisterWndClass(CS_DBLCLKS, ::LoadCursorW(nullptr, IDC_ARROW));
    return TRUE;
}

BOOL CWnd::AttachAndSubclass(HWND hWnd) {
    if (!Attach(hWnd)) return FALSE;
    PreSubclassWindow();
    const auto pfnOld = reinterpret_cast<WNDPROC>(
        ::SetWindowLongPtrW(hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&AfxWndProc)));
    if (pfnOld != &AfxWndProc) m_pfnSuper = pfnOld;
    return TRUE;
}

BOOL CWnd::SubclassWindow(HWND hWnd) {
    return AttachAndSubclass(hWnd);
}

BOOL CWnd::SubclassDlgItem(UINT nID, CWnd* pParent) {
    return SubclassWindow(::GetDlgItem(pParent->m_hWnd, static_cast<int>(nID)));
}

HWND CWnd::UnsubclassWindow() {
    if (!m_hWnd) return nullptr;
    const auto pfnNow = reinterpret_cast<WNDPROC>(::GetWindowLongPtrW(m_hWnd, GWLP_WNDPROC));
    // A later subclass of somebody else stays in front, and forwards to this procedure.
    if (m_pfnSuper && pfnNow == &AfxWndProc) {
        ::SetWindowLongPtrW(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_pfnSuper));
    }
    return Detach();
}

BOOL CWnd::DestroyWindow() {
    return m_hWnd && ::DestroyWindow(m_hWnd);
}

void CWnd::OnNcDestroy() {
    AfxMainWndDestroyed(this);
    if (m_nFlags & kContinueModal) EndModalLoop(IDCANCEL);
    DeleteToolTip();
    Default();
    UnsubclassWindow();
    // After its window: a control that is closed first would destroy the window a second time.
    AfxDeleteControlSite(m_pCtrlSite);
    m_hWndOwner = nullptr;
    PostNcDestroy();
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT lResult = 0;
    return OnWndMsg(message, wParam, lParam, &lResult) ? lResult : DefWindowProc(message, wParam, lParam);
}

LRESULT CWnd::DefWindowProc(UINT nMsg, WPARAM wParam, LPARAM lParam) {
    return m_pfnSuper ? ::CallWindowProcW(m_pfnSuper, m_hWnd, nMsg, wParam, lParam)
                      : ::DefWindowProcW(m_hWnd, nMsg, wParam, lParam);
}

LRESULT CWnd::Default() {
    return DefWindowProc(g_msgCurrent.message, g_msgCurrent.wParam, g_msgCurrent.lParam);
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
    if (message == WM_COMMAND) {
        if (!OnCommand(wParam, lParam)) return FALSE;
        *pResult = 1;
        return TRUE;
    }
    if (message == WM_NOTIFY) return OnNotify(wParam, lParam, pResult);
    AFX_MSGCALL call;
    call.nMessage = message;
    call.wParam = wParam;
    call.lParam = lParam;
    if (!Route(GetMessageMap(), call)) return FALSE;
    *pResult = call.lResult;
    return TRUE;
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam) {
    const UINT nID = LOWORD(wParam);
    const auto hWndCtrl = reinterpret_cast<HWND>(lParam);
    if (hWndCtrl && ReflectLastMsg(hWndCtrl)) return TRUE;
    if (nID == 0) return FALSE;
    // Menus put 0 and accelerators 1 where controls put their code.
    return OnCmdMsg(nID, hWndCtrl ? HIWORD(wParam) : CN_COMMAND, nullptr, nullptr);
}

BOOL CWnd::OnNotify(WPARAM, LPARAM lParam, LRESULT* pResult) {
    auto* pNMHDR = reinterpret_cast<NMHDR*>(lParam);
    if (!pNMHDR || !pNMHDR->hwndFrom) return FALSE;
    if (ReflectLastMsg(pNMHDR->hwndFrom, pResult)) return TRUE;
    AFX_NOTIFY notify{pResult, pNMHDR};
    const auto nID = static_cast<UINT>(::GetDlgCtrlID(pNMHDR->hwndFrom));
    return OnCmdMsg(nID, MAKELONG(pNMHDR->code, WM_NOTIFY), &notify, nullptr);
}

BOOL CWnd::ReflectLastMsg(HWND hWndChild, LRESULT* pResult) {
    CWnd* pChild = FromHandlePermanent(hWndChild);
    if (!pChild) return FALSE;
    LRESULT lIgnored = 0;
    const MSG msg = g_msgCurrent;
    return pChild->OnChildNotify(msg.message, msg.wParam, msg.lParam, pResult ? pResult : &lIgnored);
}

BOOL CWnd::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
    return ReflectChildNotify(message, wParam, lParam, pResult);
}

BOOL CWnd::ReflectChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
    AFX_MSGCALL call;
    call.nMessage = message + WM_REFLECT_BASE;
    call.wParam = wParam;
    call.lParam = lParam;
    if (message == WM_COMMAND) call.nCode = HIWORD(wParam);
    if (message == WM_NOTIFY) call.nCode = reinterpret_cast<NMHDR*>(lParam)->code;
    if (!Route(GetMessageMap(), call)) return FALSE;
    *pResult = call.lResult;
    return TRUE;
}

HBRUSH CWnd::OnCtlColor(CDC*, CWnd* pWnd, UINT) {
    LRESULT lResult = 0;
    if (pWnd && ReflectLastMsg(pWnd->m_hWnd, &lResult)) return reinterpret_cast<HBRUSH>(lResult);
    return reinterpret_cast<HBRUSH>(Default());
}

void CWnd::OnDrawItem(int, LPDRAWITEMSTRUCT lpDrawItemStruct) {
    if (lpDrawItemStruct->CtlType != ODT_MENU && ReflectLastMsg(lpDrawItemStruct->hwndItem)) return;
    Default();
}

void CWnd::OnMeasureItem(int nIDCtl, LPMEASUREITEMSTRUCT lpMeasureItemStruct) {
    if (lpMeasureItemStruct->CtlType != ODT_MENU && ReflectLastMsg(::GetDlgItem(m_hWnd, nIDCtl))) return;
    Default();
}
