// The hidden window that carries requests for the Drawing Manager out of commands and reactors: what is
// posted to it is handled in the host's message loop, in application context.
#pragma once

#include <afxwin.h>

// The request in the first parameter of kNotifyMessage; any other number is ignored.
inline constexpr WPARAM kRequestDrawingManager = 1;

class CArxMsgHandler : public CWnd {
  public:
    // Makes the window; nothing if it is there already.
    static void CreateNotifyWindow();
    static void DestroyNotifyWindow();
    // Null unless the window exists.
    static CArxMsgHandler* GetNotifyWindow();

  protected:
    afx_msg LRESULT OnKV2DNotify(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()
};
