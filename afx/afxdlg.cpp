#include "afxdlg.h"

#include <vector>

#include "afxapp.h"
#include "afxmsg_.h"
#include "afxwndimpl.h"

IMPLEMENT_DYNAMIC(CDialog, CWnd)

BEGIN_MESSAGE_MAP(CDialog, CWnd)
ON_MESSAGE(WM_INITDIALOG, &CDialog::HandleInitDialog)
ON_COMMAND(IDOK, &CDialog::OnOK)
ON_COMMAND(IDCANCEL, &CDialog::OnCancel)
END_MESSAGE_MAP()

namespace {

// The system wants a dialog procedure before it sends WM_INITDIALOG; the messages go to the message map.
INT_PTR CALLBACK DialogProc(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

// The extended form of a template begins with these two words, where the plain one has its style.
struct ExtendedTemplate {
    WORD dlgVer;
    WORD signature;
    DWORD helpID;
    DWORD exStyle;
    DWORD style;
    WORD cDlgItems;
    short x;
    short y;
};

bool LeavesPositionOpen(LPCDLGTEMPLATE lpTemplate) {
    const auto* pExtended = reinterpret_cast<const ExtendedTemplate*>(lpTemplate);
    const bool bExtended = pExtended->signature == 0xFFFF;
    const DWORD dwStyle = bExtended ? pExtended->style : lpTemplate->style;
    const short x = bExtended ? pExtended->x : lpTemplate->x;
    const short y = bExtended ? pExtended->y : lpTemplate->y;
    return x == 0 && y == 0 && !(dwStyle & (WS_CHILD | DS_CENTER | DS_CENTERMOUSE | DS_ABSALIGN));
}

// Keeps a modal dialog's owner disabled, with all windows that belong to the same main window, and enables
// them again on every way out.
class DisabledOwners {
  public:
    explicit DisabledOwners(HWND hWndOwner) {
        if (!hWndOwner) return;
        m_hWndRoot = ::GetAncestor(hWndOwner, GA_ROOTOWNER);
        ::EnumThreadWindows(::GetCurrentThreadId(), Disable, reinterpret_cast<LPARAM>(this));
    }
    ~DisabledOwners() { Enable(); }
    DisabledOwners(const DisabledOwners&) = delete;
    DisabledOwners& operator=(const DisabledOwners&) = delete;
    void Enable() {
        for (const HWND hWnd : std::exchange(m_ahWnd, {}))
            ::EnableWindow(hWnd, TRUE);
    }

  private:
    static BOOL CALLBACK Disable(HWND hWnd, LPARAM lParam) {
        auto* pThis = reinterpret_cast<DisabledOwners*>(lParam);
        if (!::IsWindowVisible(hWnd) || !::IsWindowEnabled(hWnd)) return TRUE;
        if (::GetAncestor(hWnd, GA_ROOTOWNER) != pThis->m_hWndRoot) return TRUE;
        ::EnableWindow(hWnd, FALSE);
        pThis->m_ahWnd.push_back(hWnd);
        return TRUE;
    }

    HWND m_hWndRoot = nullptr;
    std::vector<HWND> m_ahWnd;
};

}  // namespace

CDialog::CDialog(UINT nIDTemplate, CWnd* pParentWnd)
    : m_lpszTemplateName(MAKEINTRESOURCE(nIDTemplate)), m_pParentWnd(pParentWnd) {}

CDialog::CDialog(LPCTSTR lpszTemplateName, CWnd* pParentWnd)
    : m_lpszTemplateName(lpszTemplateName), m_pParentWnd(pParentWnd) {}

CDialog::~CDialog() = default;

BOOL CDialog::Create(UINT nIDTemplate, CWnd* pParentWnd) {
    return Create(MAKEINTRESOURCE(nIDTemplate), pParentWnd);
}

BOOL CDialog::Create(LPCTSTR lpszTemplateName, CWnd* pParentWnd) {
    m_lpszTemplateName = lpszTemplateName;
    return CreateFromTemplate(lpszTemplateName, pParentWnd ? pParentWnd : AfxGetMainWnd());
}

BOOL CDialog::CreateFromTemplate(LPCTSTR lpszTemplateName, CWnd* pParentWnd) {
    const HINSTANCE hInst = AfxFindResourceHandle(lpszTemplateName, RT_DIALOG);
    const HRSRC hResource = ::FindResourceW(hInst, lpszTemplateName, RT_DIALOG);
    const HGLOBAL hTemplate = hResource ? ::LoadResource(hInst, hResource) : nullptr;
    const auto lpTemplate = static_cast<LPCDLGTEMPLATE>(hTemplate ? ::LockResource(hTemplate) : nullptr);
    return lpTemplate && CreateIndirect(lpTemplate, pParentWnd, hInst);
}

BOOL CDialog::CreateIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd, HINSTANCE hInst) {
    m_nModalResult = -1;
    m_bAutoCenter = LeavesPositionOpen(lpDialogTemplate);
    const AfxCreateHook hook(this);
    return ::CreateDialogIndirectParamW(hInst ? hInst : AfxGetInstanceHandle(), lpDialogTemplate,
                                        pParentWnd ? pParentWnd->m_hWnd : nullptr, DialogProc, 0) != nullptr;
}

INT_PTR CDialog::DoModal() {
    CWnd* pOwner = GetSafeOwner(m_pParentWnd);
    const HWND hWndOwner = pOwner ? pOwner->m_hWnd : nullptr;
    DisabledOwners owners(hWndOwner);
    // EndDialog may come before the loop, from OnInitDialog.
    m_nFlags |= kContinueModal;
    if (!CreateFromTemplate(m_lpszTemplateName, pOwner)) {
        m_nFlags &= ~kContinueModal;
        return -1;
    }
    if (m_nFlags & kContinueModal) {
        RunModalLoop((GetStyle() & DS_NOIDLEMSG) ? MLF_NOIDLEMSG | MLF_SHOWONIDLE : MLF_SHOWONIDLE);
    }
    const INT_PTR nResult = m_nModalResult;
    const bool bWasActive = m_hWnd && ::GetActiveWindow() == m_hWnd;
    if (m_hWnd) {
        SetWindowPos(nullptr, 0, 0, 0, 0,
                     SWP_HIDEWINDOW | SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE | SWP_NOZORDER);
    }
    // Enabled before it is activated: the system gives no focus to a disabled window.
    owners.Enable();
    if (bWasActive && hWndOwner) ::SetActiveWindow(hWndOwner);
    DestroyWindow();
    return nResult;
}

void CDialog::EndDialog(int nResult) {
    if (m_nFlags & (kInModalLoop | kContinueModal)) {
        // DoModal hides the window: it knows which owner to enable before the focus moves.
        EndModalLoop(nResult);
    } else {
        ::EndDialog(m_hWnd, nResult);
    }
}

LRESULT CDialog::HandleInitDialog(WPARAM, LPARAM) {
    CRect rcBefore;
    GetWindowRect(rcBefore);
    const BOOL bResult = OnInitDialog();
    CRect rcAfter;
    if (m_hWnd) GetWindowRect(rcAfter);
    if (m_bAutoCenter && rcBefore == rcAfter && !IsWindowVisible()) CenterWindow();
    return bResult;
}

BOOL CDialog::OnInitDialog() {
    if (UpdateData(FALSE)) return TRUE;
    EndDialog(-1);
    return FALSE;
}

void CDialog::OnOK() {
    if (UpdateData(TRUE)) EndDialog(IDOK);
}

void CDialog::OnCancel() {
    EndDialog(IDCANCEL);
}

BOOL CDialog::PreTranslateMessage(MSG* pMsg) {
    if (CWnd::PreTranslateMessage(pMsg)) return TRUE;
    const bool bKey = pMsg->message >= WM_KEYFIRST && pMsg->message <= WM_KEYLAST;
    const bool bMouse = pMsg->message >= WM_MOUSEFIRST && pMsg->message <= WM_MOUSELAST;
    return (bKey || bMouse) && IsDialogMessage(pMsg);
}

BOOL CWnd::UpdateData(BOOL bSaveAndValidate) {
    CDataExchange exchange(this, bSaveAndValidate);
    try {
        DoDataExchange(&exchange);
        return TRUE;
    } catch (CException* e) {
        e->ReportError(MB_ICONEXCLAMATION);
        e->Delete();
        return FALSE;
    }
}

BOOL CWnd::ContinueModal() {
    return (m_nFlags & kContinueModal) != 0;
}

void CWnd::EndModalLoop(int nResult) {
    m_nModalResult = nResult;
    if (!(m_nFlags & kContinueModal)) return;
    m_nFlags &= ~kContinueModal;
    // The loop may be waiting for a message.
    PostMessage(WM_NULL);
}

int CWnd::RunModalLoop(DWORD dwFlags) {
    bool bShow = (dwFlags & MLF_SHOWONIDLE) && !(GetStyle() & WS_VISIBLE);
    m_nFlags |= kInModalLoop | kContinueModal;
    while (ContinueModal()) {
        MSG msg;
        if (!::PeekMessageW(&msg, nullptr, 0, 0, PM_NOREMOVE)) {
            if (bShow) {
                bShow = false;
                ShowWindow(SW_SHOWNORMAL);
                UpdateWindow();
                continue;
            }
            const HWND hWndParent = ::GetParent(m_hWnd);
            if (!(dwFlags & MLF_NOIDLEMSG) && hWndParent) {
                ::SendMessageW(hWndParent, WM_ENTERIDLE, MSGF_DIALOGBOX, reinterpret_cast<LPARAM>(m_hWnd));
            }
            if (!ContinueModal()) break;
        }
        if (!AfxPumpMessage()) {
            // The outer loops have to see the end of the program too.
            AfxPostQuitMessage(AfxGetQuitCode());
            m_nModalResult = -1;
            break;
        }
    }
    m_nFlags &= ~(kInModalLoop | kContinueModal);
    return m_nModalResult;
}
