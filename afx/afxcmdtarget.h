// CCmdTarget: what has a message map, an event sink map or an automation object. Part of afxwin.h.
#pragma once

#include "afx.h"

class CCmdTarget;

// One message, command or notification on its way to a handler. The macros of afxmsg_.h make functions that
// take a handler's arguments out of it; true means that the handler has dealt with it.
struct AFX_MSGCALL {
    UINT nMessage = 0;
    UINT nCode = 0;  // notification code
    UINT nID = 0;    // control or command
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    LRESULT lResult = 0;
};
using AFX_PMSG = bool (*)(CCmdTarget* pTarget, AFX_MSGCALL& call);

struct AFX_MSGMAP_ENTRY {
    UINT nMessage;  // the window message; WM_COMMAND and WM_NOTIFY for what controls send
    UINT nCode;
    UINT nID;
    UINT nLastID;
    AFX_PMSG pfn;  // null ends the table
};

struct AFX_MSGMAP {
    const AFX_MSGMAP* (*pfnGetBaseMap)();  // null at the root
    const AFX_MSGMAP_ENTRY* lpEntries;
};

#define DECLARE_MESSAGE_MAP()                     \
  protected:                                      \
    static const AFX_MSGMAP* GetThisMessageMap(); \
    const AFX_MSGMAP* GetMessageMap() const override;

// An event of an OLE control on its way to a handler. `pArgs` holds the arguments in the reverse order, as
// IDispatch::Invoke gets them.
using AFX_PEVENT = HRESULT (*)(CCmdTarget* pTarget, const DISPPARAMS* pArgs);

struct AFX_EVENTSINKMAP_ENTRY {
    UINT nCtrlID;
    DISPID dispid;
    AFX_PEVENT pfn;  // null ends the table
};

struct AFX_EVENTSINKMAP {
    const AFX_EVENTSINKMAP* (*pfnGetBaseMap)();
    const AFX_EVENTSINKMAP_ENTRY* lpEntries;
};

#define DECLARE_EVENTSINK_MAP()                           \
  protected:                                              \
    static const AFX_EVENTSINKMAP* GetThisEventSinkMap(); \
    const AFX_EVENTSINKMAP* GetEventSinkMap() const override;

class AFX_PORT CCmdTarget : public CObject {
    DECLARE_DYNAMIC(CCmdTarget)

  public:
    // Routes a command (nCode CN_COMMAND), a control's notification (`nCode` its code, message WM_COMMAND in
    // the high word or 0) or a WM_NOTIFY (MAKELONG(code, WM_NOTIFY), `pExtra` an AFX_NOTIFY). TRUE if a
    // handler took it. Override to send commands to further targets.
    virtual BOOL OnCmdMsg(UINT nID, int nCode, void* pExtra, void* pHandlerInfo);

    // The automation object of this one, or null if it has none. With `bAddRef` the caller releases it.
    virtual LPDISPATCH GetIDispatch(BOOL bAddRef);

    // Hands an event of control `nCtrlID` to the event sink map. DISP_E_MEMBERNOTFOUND without a handler.
    HRESULT OnEvent(UINT nCtrlID, DISPID dispid, const DISPPARAMS* pArgs);

  protected:
    static const AFX_MSGMAP* GetThisMessageMap();
    virtual const AFX_MSGMAP* GetMessageMap() const;
    static const AFX_EVENTSINKMAP* GetThisEventSinkMap();
    virtual const AFX_EVENTSINKMAP* GetEventSinkMap() const;

    // Calls the first handler of the map and its base maps that fits message, code and id, and takes the
    // call.
    bool Route(const AFX_MSGMAP* pMap, AFX_MSGCALL& call);
};

constexpr int CN_COMMAND = 0;

// What `pExtra` of OnCmdMsg points to for a WM_NOTIFY.
struct AFX_NOTIFY {
    LRESULT* pResult;
    NMHDR* pNMHDR;
};

// While it lives, the cursor is the hourglass; they nest.
class AFX_PORT CWaitCursor {
  public:
    CWaitCursor();
    ~CWaitCursor();
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;
    // Shows the hourglass again, after a message box has changed the cursor.
    void Restore();

  private:
    HCURSOR m_hOldCursor;
};
