// CWnd: a window. Part of afxwin.h.
//
// All windows belong to the main thread. A CWnd is tied to a window by Create, CreateEx, SubclassWindow or
// Attach; from then on FromHandle returns it, until the window is destroyed, Detach is called or the CWnd is
// destroyed. A CWnd that is destroyed before its window destroys the window too if it made it; a window that
// it only subclassed or was attached to gets its own procedure back and lives on.
#pragma once

#include "afxcmdtarget.h"
#include "afxgdi.h"

class CDataExchange;
class COleControlSite;
class CToolTipCtrl;

// Values of RunModalLoop's flags: send the parent no WM_ENTERIDLE; show the window when the queue is empty.
constexpr DWORD MLF_NOIDLEMSG = 0x0001;
constexpr DWORD MLF_SHOWONIDLE = 0x0004;

class AFX_PORT CWnd : public CCmdTarget {
    DECLARE_DYNAMIC(CWnd)

  public:
    CWnd() = default;
    ~CWnd() override;

    HWND m_hWnd = nullptr;

    // --- handle map
    HWND GetSafeHwnd() const { return m_hWnd; }
    operator HWND() const { return m_hWnd; }
    BOOL Attach(HWND hWndNew);  // false for null or a handle that another CWnd is attached to
    HWND Detach();
    // Null for a null handle. A window without a CWnd gets one that lives until the message loop is idle.
    static CWnd* FromHandle(HWND hWnd);
    // Null if the window has no CWnd of its own.
    static CWnd* FromHandlePermanent(HWND hWnd);
    static void DeleteTempMap();

    // --- making and subclassing
    // A null class name takes a plain class of the framework. `nID` is the child id.
    BOOL Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                CWnd* pParentWnd, UINT nID);
    BOOL CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, int x, int y,
                  int nWidth, int nHeight, HWND hWndParent, HMENU nIDorHMenu, LPVOID lpParam = nullptr);
    BOOL CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                  const RECT& rect, CWnd* pParentWnd, UINT nID, LPVOID lpParam = nullptr);
    BOOL SubclassWindow(HWND hWnd);
    BOOL SubclassDlgItem(UINT nID, CWnd* pParent);
    HWND UnsubclassWindow();
    virtual BOOL DestroyWindow();

    // --- OLE controls
    // Makes an OLE control a child of `pParentWnd`. False, and no window, if the class is not registered or
    // the control refuses; nothing is raised. A child of the parent that already has the id is taken for a
    // placeholder: the control takes its place in the tab order, and the placeholder is destroyed, if and
    // only if the control could be made.
    BOOL CreateControl(REFCLSID clsid, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                       CWnd* pParentWnd, UINT nID);
    // By program id or by a class id in braces.
    BOOL CreateControl(LPCTSTR pszClass, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                       CWnd* pParentWnd, UINT nID);
    // Without a control these three do nothing. A call that the control refuses raises a
    // COleDispatchException or COleException.
    void SetProperty(DISPID dwDispID, VARTYPE vtProp, ...);
    void GetProperty(DISPID dwDispID, VARTYPE vtProp, void* pvProp) const;
    void InvokeHelper(DISPID dwDispID, WORD wFlags, VARTYPE vtRet, void* pvRet, const BYTE* pbParamInfo, ...);
    // Null if the window is not an OLE control.
    LPUNKNOWN GetControlUnknown() const;

    // --- text, style, state
    void SetWindowText(LPCTSTR lpszString);
    void GetWindowText(CString& rString) const;
    int GetWindowTextLength() const;
    DWORD GetStyle() const;
    DWORD GetExStyle() const;
    BOOL ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT nFlags = 0);
    BOOL ModifyStyleEx(DWORD dwRemove, DWORD dwAdd, UINT nFlags = 0);
    void SetFont(CFont* pFont, BOOL bRedraw = TRUE);
    CFont* GetFont() const;
    HICON SetIcon(HICON hIcon, BOOL bBigIcon);
    BOOL EnableWindow(BOOL bEnable = TRUE);
    BOOL IsWindowEnabled() const;
    BOOL ShowWindow(int nCmdShow);
    BOOL IsWindowVisible() const;
    CWnd* SetFocus();
    static CWnd* GetFocus();
    CWnd* SetActiveWindow();
    static CWnd* GetActiveWindow();
    BOOL SetForegroundWindow();
    CWnd* SetCapture();
    static CWnd* GetCapture();
    int GetDlgCtrlID() const;

    // --- relations
    CWnd* GetParent() const;
    CWnd* SetParent(CWnd* pWndNewParent);
    CWnd* GetOwner() const;  // the one given to SetOwner, else the parent
    void SetOwner(CWnd* pOwnerWnd);
    CWnd* GetDlgItem(int nID) const;  // null if there is none
    void GetDlgItem(int nID, HWND* phWnd) const;
    CWnd* GetWindow(UINT nCmd) const;
    BOOL IsChild(const CWnd* pWnd) const;
    CWnd* GetNextDlgTabItem(CWnd* pWndCtl, BOOL bPrevious = FALSE) const;
    static CWnd* WindowFromPoint(POINT point);
    // The owner for a message box or a modal dialog: `pParent` or the main window, its top-level parent, its
    // last active popup.
    static CWnd* GetSafeOwner(CWnd* pParent = nullptr);

    // --- position
    void MoveWindow(int x, int y, int nWidth, int nHeight, BOOL bRepaint = TRUE);
    void MoveWindow(LPCRECT lpRect, BOOL bRepaint = TRUE);
    BOOL SetWindowPos(const CWnd* pWndInsertAfter, int x, int y, int cx, int cy, UINT nFlags);
    void GetWindowRect(LPRECT lpRect) const;
    void GetClientRect(LPRECT lpRect) const;
    void ClientToScreen(LPPOINT lpPoint) const;
    void ClientToScreen(LPRECT lpRect) const;
    void ScreenToClient(LPPOINT lpPoint) const;
    void ScreenToClient(LPRECT lpRect) const;
    void CenterWindow(CWnd* pAlternateOwner = nullptr);
    int SetWindowRgn(HRGN hRgn, BOOL bRedraw);

    // --- painting
    void Invalidate(BOOL bErase = TRUE);
    void InvalidateRect(LPCRECT lpRect, BOOL bErase = TRUE);
    void UpdateWindow();
    BOOL RedrawWindow(LPCRECT lpRectUpdate = nullptr, CRgn* prgnUpdate = nullptr,
                      UINT flags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE);
    void SetRedraw(BOOL bRedraw = TRUE);
    CDC* GetDC();  // give it back with ReleaseDC
    int ReleaseDC(CDC* pDC);

    // --- messages
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    // Called for each message of the queue, for the window it is meant for and then each of its parents. TRUE
    // means dealt with: the message is not dispatched.
    virtual BOOL PreTranslateMessage(MSG* pMsg);
    // TRUE if one of the windows from the message's own up to `hWndStop` took it.
    static BOOL WalkPreTranslateTree(HWND hWndStop, MSG* pMsg);
    BOOL IsDialogMessage(LPMSG lpMsg);
    int MessageBox(LPCTSTR lpszText, LPCTSTR lpszCaption = nullptr, UINT nType = MB_OK);
    UINT_PTR SetTimer(UINT_PTR nIDEvent, UINT nElapse, TIMERPROC lpfnTimer = nullptr);
    BOOL KillTimer(UINT_PTR nIDEvent);

    // Turns tips for the child windows on or off. While the mouse rests on a child, this window gets
    // WM_NOTIFY TTN_NEEDTEXT (from id 0; uFlags TTF_IDISHWND, idFrom the child's handle); an empty answer
    // shows nothing.
    BOOL EnableToolTips(BOOL bEnable = TRUE);
    // Describes the child under the client point in `pTI`; the result is its id, -1 if there is none.
    virtual INT_PTR OnToolHitTest(CPoint point, TOOLINFO* pTI) const;

    // --- dialogs
    // TRUE takes the controls' contents into the members, FALSE the other way. False if an exchange failed
    // (the user has been told).
    BOOL UpdateData(BOOL bSaveAndValidate = TRUE);
    UINT IsDlgButtonChecked(int nIDButton) const;
    // Runs until EndModalLoop; the result is its argument. -1 if the program is ending.
    int RunModalLoop(DWORD dwFlags = 0);
    virtual BOOL ContinueModal();
    virtual void EndModalLoop(int nResult);

    // --- for derived classes and the framework
    // Called once, after the CWnd has been tied to a window and before it sees a message.
    virtual void PreSubclassWindow() {}
    virtual BOOL PreCreateWindow(CREATESTRUCT& cs);
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual LRESULT DefWindowProc(UINT nMsg, WPARAM wParam, LPARAM lParam);
    // Does what happens without a handler, with the parameters of the message being handled.
    LRESULT Default();
    // The message being handled.
    // Sends the message being handled to the child `hWndChild` as a reflected one. TRUE if the child took it.
    static BOOL ReflectLastMsg(HWND hWndChild, LRESULT* pResult = nullptr);

    // --- default handlers of messages; each does what happens without a handler
    int OnCreate(LPCREATESTRUCT) { return static_cast<int>(Default()); }
    void OnDestroy() { Default(); }
    void OnNcDestroy();
    void OnSize(UINT, int, int) { Default(); }
    void OnSizing(UINT, LPRECT) { Default(); }
    void OnMoving(UINT, LPRECT) { Default(); }
    void OnClose() { Default(); }
    void OnPaint() { Default(); }
    BOOL OnEraseBkgnd(CDC*) { return static_cast<BOOL>(Default()); }
    void OnTimer(UINT_PTR) { Default(); }
    void OnLButtonDown(UINT, CPoint) { Default(); }
    void OnLButtonUp(UINT, CPoint) { Default(); }
    void OnLButtonDblClk(UINT, CPoint) { Default(); }
    void OnRButtonDown(UINT, CPoint) { Default(); }
    void OnMButtonDown(UINT, CPoint) { Default(); }
    void OnMButtonUp(UINT, CPoint) { Default(); }
    void OnMouseMove(UINT, CPoint) { Default(); }
    void OnMouseLeave() { Default(); }
    BOOL OnMouseWheel(UINT, short, CPoint) { return static_cast<BOOL>(Default()); }
    BOOL OnSetCursor(CWnd*, UINT, UINT) { return static_cast<BOOL>(Default()); }
    void OnActivate(UINT, CWnd*, BOOL) { Default(); }
    void OnActivateApp(BOOL, DWORD) { Default(); }
    void OnEnable(BOOL) { Default(); }
    void OnSetFocus(CWnd*) { Default(); }
    void OnKillFocus(CWnd*) { Default(); }
    void OnCancelMode() { Default(); }
    void OnCaptureChanged(CWnd*) { Default(); }
    void OnSysColorChange() { Default(); }
    UINT OnGetDlgCode() { return static_cast<UINT>(Default()); }
    void OnWindowPosChanged(WINDOWPOS*) { Default(); }
    void OnChar(UINT, UINT, UINT) { Default(); }
    void OnGetMinMaxInfo(MINMAXINFO*) { Default(); }
    void OnInitMenuPopup(CMenu*, UINT, BOOL) { Default(); }
    // These three offer the message to the child that it is about first.
    HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nCtlColor);
    void OnDrawItem(int nIDCtl, LPDRAWITEMSTRUCT lpDrawItemStruct);
    void OnMeasureItem(int nIDCtl, LPMEASUREITEMSTRUCT lpMeasureItemStruct);

  protected:
    virtual void DoDataExchange(CDataExchange*) {}
    // WM_COMMAND: offers it to the control (reflected), then to the message map. TRUE if taken.
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    // WM_NOTIFY, likewise.
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    // A reflected message. The base looks into the message map for ON_..._REFLECT entries.
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    BOOL ReflectChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    // After the last message of the window; the CWnd is detached. A class whose objects delete themselves
    // does so here.
    virtual void PostNcDestroy() {}

    DECLARE_MESSAGE_MAP()

  public:
    // The framework's own.
    enum : UINT { kOwnsWindow = 1, kInModalLoop = 2, kContinueModal = 4 };
    UINT m_nFlags = 0;
    int m_nModalResult = 0;
    WNDPROC m_pfnSuper = nullptr;  // the procedure that DefWindowProc calls; null: the system's default
    HWND m_hWndOwner = nullptr;
    COleControlSite* m_pCtrlSite = nullptr;  // owned

    // Ties the CWnd to a window and puts its procedure in front of the window's.
    BOOL AttachAndSubclass(HWND hWnd);

  private:
    void FilterToolTipMessage(MSG* pMsg);
    void DeleteToolTip();

    CToolTipCtrl* m_pToolTip = nullptr;  // owned
    HWND m_hWndTool = nullptr;           // the child that it has a tool for
};
