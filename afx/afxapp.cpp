#include "afxapp.h"

#include <algorithm>

#include "afxdisp.h"
#include "afxwndimpl.h"

IMPLEMENT_DYNAMIC(CWinThread, CCmdTarget)
IMPLEMENT_DYNAMIC(CWinApp, CWinThread)

namespace {

CWinApp* g_pApp = nullptr;
int g_nQuitCode = 0;

}  // namespace

CWinThread::~CWinThread() = default;

int CWinThread::Run() {
    for (;;) {
        MSG msg;
        for (LONG lCount = 0; !::PeekMessageW(&msg, nullptr, 0, 0, PM_NOREMOVE) && OnIdle(lCount);)
            ++lCount;
        if (!PumpMessage()) return ExitInstance();
    }
}

int CWinThread::ExitInstance() {
    return g_nQuitCode;
}

BOOL CWinThread::OnIdle(LONG) {
    CWnd::DeleteTempMap();
    return FALSE;
}

BOOL CWinThread::PumpMessage() {
    MSG msg;
    if (::GetMessageW(&msg, nullptr, 0, 0) <= 0) {
        g_nQuitCode = static_cast<int>(msg.wParam);
        return FALSE;
    }
    if (!PreTranslateMessage(&msg)) {
        ::TranslateMessage(&msg);
        ::DispatchMessageW(&msg);
    }
    return TRUE;
}

BOOL CWinThread::PreTranslateMessage(MSG* pMsg) {
    CWnd* pMainWnd = GetMainWnd();
    const HWND hWndMain = pMainWnd ? pMainWnd->m_hWnd : nullptr;
    if (CWnd::WalkPreTranslateTree(hWndMain, pMsg)) return TRUE;
    // A window outside the main window's tree leaves the main window's accelerators in force.
    if (!hWndMain || !pMsg->hwnd || ::GetAncestor(pMsg->hwnd, GA_ROOTOWNER) == hWndMain) return FALSE;
    return pMainWnd->PreTranslateMessage(pMsg);
}

CWnd* CWinThread::GetMainWnd() {
    return m_pMainWnd ? m_pMainWnd : CWnd::GetActiveWindow();
}

LRESULT CWinThread::ProcessWndProcException(CException* e, const MSG* pMsg) {
    if (pMsg->message == WM_CREATE) return -1;
    if (pMsg->message == WM_PAINT) {
        // Unpainted, the window would ask again at once, and fail again.
        ::ValidateRect(pMsg->hwnd, nullptr);
        return 0;
    }
    e->ReportError(MB_ICONEXCLAMATION);
    return pMsg->message == WM_COMMAND ? TRUE : 0;
}

CWinApp::CWinApp(LPCTSTR lpszAppName) : m_strAppName(lpszAppName), m_hInstance(::GetModuleHandleW(nullptr)) {
    g_pApp = this;
}

CWinApp::~CWinApp() {
    if (g_pApp == this) g_pApp = nullptr;
}

int CWinApp::DoMessageBox(LPCTSTR lpszPrompt, UINT nType) {
    CWnd* pOwner = CWnd::GetSafeOwner();
    if (!(nType & MB_ICONMASK)) nType |= MB_ICONEXCLAMATION;
    return ::MessageBoxW(pOwner ? pOwner->m_hWnd : nullptr, lpszPrompt, AfxGetAppName(), nType);
}

CWinApp* AfxGetApp() {
    if (!g_pApp) {
        static CWinApp* pPlain = new CWinApp;
        g_pApp = pPlain;
    }
    return g_pApp;
}

CWinThread* AfxGetThread() {
    return AfxGetApp();
}

CWnd* AfxGetMainWnd() {
    return AfxGetThread()->GetMainWnd();
}

LPCTSTR AfxGetAppName() {
    return AfxGetApp()->m_strAppName;
}

BOOL AfxPumpMessage() {
    return AfxGetThread()->PumpMessage();
}

BOOL AfxPreTranslateMessage(MSG* pMsg) {
    return AfxGetThread()->PreTranslateMessage(pMsg);
}

void AfxPostQuitMessage(int nExitCode) {
    ::PostQuitMessage(nExitCode);
}

int AfxGetQuitCode() {
    return g_nQuitCode;
}

void AfxMainWndDestroyed(CWnd* pWnd) {
    CWinThread* pThread = AfxGetThread();
    if (pThread->m_pMainWnd != pWnd) return;
    pThread->m_pMainWnd = nullptr;
    AfxPostQuitMessage(0);
}

int AfxWinMain() {
    CWinThread* pThread = AfxGetThread();
    return pThread->InitInstance() ? pThread->Run() : pThread->ExitInstance();
}

int AfxMessageBox(LPCTSTR lpszText, UINT nType, UINT) {
    return AfxGetApp()->DoMessageBox(lpszText, nType);
}

int AfxMessageBox(UINT nIDPrompt, UINT nType, UINT nIDHelp) {
    CString strPrompt;
    strPrompt.LoadString(nIDPrompt);
    return AfxMessageBox(strPrompt, nType, nIDHelp);
}
