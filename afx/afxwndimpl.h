// What the framework's own sources share about windows. Internal to the framework.
#pragma once

#include <cstddef>
#include <functional>

#include "afxwnd.h"

// The size that the tip control of every version accepts; a program without the newer one's manifest gets the
// older, which refuses the whole record.
constexpr UINT AFX_TOOLINFO_SIZE = offsetof(TOOLINFO, lpReserved);

// While it lives, the next window that this thread creates is tied to the given CWnd before its first
// message.
class AfxCreateHook {
  public:
    explicit AfxCreateHook(CWnd* pWnd);
    ~AfxCreateHook();
    AfxCreateHook(const AfxCreateHook&) = delete;
    AfxCreateHook& operator=(const AfxCreateHook&) = delete;
    // Whether the window came.
    bool Taken() const;

  private:
    HHOOK m_hHook;
    CWnd* m_pWnd;
    CWnd* m_pOuter;
};

// The main window is going: ends the message loop.
void AfxMainWndDestroyed(CWnd* pWnd);
// The argument of the last AfxPostQuitMessage that a message loop has seen.
int AfxGetQuitCode();
// Calls code of the program for the message `msg`. No failure may leave a window procedure or a COM method:
// the frames of others between it and its sender cannot be unwound. What is raised is shown, and the result
// is that of CWinThread::ProcessWndProcException.
LRESULT AfxCallGuarded(const MSG& msg, const std::function<LRESULT()>& call);
// Deletes the site of an OLE control and releases the control.
void AfxDeleteControlSite(COleControlSite*& pSite);
