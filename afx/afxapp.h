// The thread with its message loop, the application, modules and their resources. Part of afxwin.h.
#pragma once

#include "afxwnd.h"

class AFX_PORT CWinThread : public CCmdTarget {
    DECLARE_DYNAMIC(CWinThread)

  public:
    ~CWinThread() override;

    CWnd* m_pMainWnd = nullptr;  // not owned; when its window goes it becomes null and the message loop ends

    virtual BOOL InitInstance() { return TRUE; }
    // The message loop; the result is the argument of AfxPostQuitMessage, unless ExitInstance has another.
    virtual int Run();
    virtual int ExitInstance();  // the result is that of Run
    // Called with growing `lCount` while there is no message; FALSE when there is no more to do.
    virtual BOOL OnIdle(LONG lCount);
    // Waits for one message and deals with it. FALSE when it was the one that ends the program.
    virtual BOOL PumpMessage();
    virtual BOOL PreTranslateMessage(MSG* pMsg);
    virtual CWnd* GetMainWnd();
    // Called with a failure that reached a window procedure. Shows it, except for one in WM_CREATE (the
    // window is not made) and in WM_PAINT (the window counts as painted). The result is the message's.
    virtual LRESULT ProcessWndProcException(CException* e, const MSG* pMsg);
};

class AFX_PORT CWinApp : public CWinThread {
    DECLARE_DYNAMIC(CWinApp)

  public:
    explicit CWinApp(LPCTSTR lpszAppName = nullptr);
    ~CWinApp() override;

    CString m_strAppName;  // the caption of AfxMessageBox
    HINSTANCE m_hInstance;

    virtual int DoMessageBox(LPCTSTR lpszPrompt, UINT nType);
};

// The program's application object; a plain one if it made none, as test programs do not.
AFX_PORT CWinApp* AfxGetApp();
AFX_PORT CWinThread* AfxGetThread();
// Before there is a main window: the active window, null if there is none of those either.
AFX_PORT CWnd* AfxGetMainWnd();
AFX_PORT LPCTSTR AfxGetAppName();
AFX_PORT BOOL AfxPumpMessage();
AFX_PORT BOOL AfxPreTranslateMessage(MSG* pMsg);
AFX_PORT void AfxPostQuitMessage(int nExitCode);
// What a program's entry function does: InitInstance, Run, ExitInstance of the application object. The result
// is the program's exit code.
AFX_PORT int AfxWinMain();

// The box belongs to the active popup of the main window; without icon flags it has the exclamation mark.
AFX_PORT int AfxMessageBox(LPCTSTR lpszText, UINT nType = MB_OK, UINT nIDHelp = 0);
AFX_PORT int AfxMessageBox(UINT nIDPrompt, UINT nType = MB_OK, UINT nIDHelp = static_cast<UINT>(-1));

// The program's own instance, in modules too.
AFX_PORT HINSTANCE AfxGetInstanceHandle();
// Where templates, strings, icons and menus are looked for; the program's instance until it is set.
AFX_PORT HINSTANCE AfxGetResourceHandle();
AFX_PORT void AfxSetResourceHandle(HINSTANCE hInstResource);
// The module that holds a resource: the current one, else the first of the extension modules that has it,
// else the program. The current one if none has it.
AFX_PORT HINSTANCE AfxFindResourceHandle(LPCTSTR lpszName, LPCTSTR lpszType);

// Registers a window class for the given properties once, and returns its name. Null cursor, brush and icon
// make a class without them. Raises a CResourceException if the system refuses. A class stays until the
// program ends.
AFX_PORT LPCTSTR AfxRegisterWndClass(UINT nClassStyle, HCURSOR hCursor = nullptr,
                                     HBRUSH hbrBackground = nullptr, HICON hIcon = nullptr);

// Switches the resource module and puts the old one back on every way out.
class CTemporaryResourceHandle {
  public:
    explicit CTemporaryResourceHandle(HINSTANCE hInstResource) : m_hOld(AfxGetResourceHandle()) {
        AfxSetResourceHandle(hInstResource);
    }
    ~CTemporaryResourceHandle() { AfxSetResourceHandle(m_hOld); }
    CTemporaryResourceHandle(const CTemporaryResourceHandle&) = delete;
    CTemporaryResourceHandle& operator=(const CTemporaryResourceHandle&) = delete;

  private:
    HINSTANCE m_hOld;
};

AFX_PORT LRESULT CALLBACK AfxWndProc(HWND hWnd, UINT nMsg, WPARAM wParam, LPARAM lParam);
