// The entries of message maps. Part of afxwin.h.
//
// Each entry holds a function made from the handler's own type, which takes the arguments out of the message:
// a handler with the wrong arguments does not compile.
#pragma once

#include <type_traits>
#include <utility>

#include "afxcmdtarget.h"
#include "afxgdi.h"
#include "afxwnd.h"

// Reflected messages: the original's number plus this.
constexpr UINT WM_REFLECT_BASE = 0xBC00;

#define BEGIN_MESSAGE_MAP(theClass, baseClass)          \
    const AFX_MSGMAP* theClass::GetMessageMap() const { \
        return GetThisMessageMap();                     \
    }                                                   \
    const AFX_MSGMAP* theClass::GetThisMessageMap() {   \
        using ThisClass [[maybe_unused]] = theClass;    \
        using TheBaseClass = baseClass;                 \
        static const AFX_MSGMAP_ENTRY messageEntries[] = {
#define END_MESSAGE_MAP()                                                                    \
    { 0, 0, 0, 0, nullptr }                                                                  \
    }                                                                                        \
    ;                                                                                        \
    static const AFX_MSGMAP messageMap = {&TheBaseClass::GetThisMessageMap, messageEntries}; \
    return &messageMap;                                                                      \
    }

// Calls a handler on the object that the entry's class makes of the target.
template <auto Handler>
struct AfxHandler;
template <class C, class R, class... Args, R (C::*Handler)(Args...)>
struct AfxHandler<Handler> {
    using Result = R;
    template <class... Given>
    static R Call(CCmdTarget* pTarget, Given&&... args) {
        return (static_cast<C*>(pTarget)->*Handler)(std::forward<Given>(args)...);
    }
};

// How each window message hands its parameters to its handler.
namespace AfxCrack {
template <auto H, class... Args>
bool Finish(CCmdTarget* pTarget, AFX_MSGCALL& call, Args&&... args) {
    if constexpr (std::is_void_v<typename AfxHandler<H>::Result>) {
        AfxHandler<H>::Call(pTarget, std::forward<Args>(args)...);
        call.lResult = 0;
    } else if constexpr (std::is_pointer_v<typename AfxHandler<H>::Result>) {
        call.lResult = reinterpret_cast<LRESULT>(AfxHandler<H>::Call(pTarget, std::forward<Args>(args)...));
    } else {
        call.lResult = static_cast<LRESULT>(AfxHandler<H>::Call(pTarget, std::forward<Args>(args)...));
    }
    return true;
}
template <class T>
T* Pointer(LPARAM lParam) {
    return reinterpret_cast<T*>(lParam);
}
template <class T>
CWnd* Window(T handle) {
    return CWnd::FromHandle((HWND)handle);
}
inline int X(LPARAM lParam) {
    return GET_X_LPARAM(lParam);
}
inline int Y(LPARAM lParam) {
    return GET_Y_LPARAM(lParam);
}

template <auto H>
bool Plain(CCmdTarget* t, AFX_MSGCALL& c) {
    return Finish<H>(t, c);
}
template <auto H>
bool Raw(CCmdTarget* t, AFX_MSGCALL& c) {
    return Finish<H>(t, c, c.wParam, c.lParam);
}
template <auto H>
bool Timer(CCmdTarget* t, AFX_MSGCALL& c) {
    return Finish<H>(t, c, static_cast<UINT_PTR>(c.wParam));
}
template <auto H>
bool Bool(CCmdTarget* t, AFX_MSGCALL& c) {
    return Finish<H>(t, c, static_cast<BOOL>(c.wParam));
}
template <auto H>
bool BoolAndNumber(CCmdTarget* t, AFX_MSGCALL& c) {
    return Finish<H>(t, c, static_cast<BOOL>(c.wParam), static_cast<DWORD>(c.lParam));
}
template <auto H>
bool FlagsAndXY(CCmdTarget* t, AFX_MSGCALL& c) {
    return Finish<H>(t, c, static_cast<UINT>(c.wParam), X(c.lParam), Y(c.lParam));
}
template <auto H>
bool FlagsAndPoint(CCmdTarget* t, AFX_MSGCALL& c) {
    return Finish<H>(t, c, static_cast<UINT>(c.wParam), CPoint(c.lParam));
}
template <auto H>
bool Wheel(CCmdTarget* t, AFX_MSGCALL& c) {
    return Finish<H>(t, c, static_cast<UINT>(GET_KEYSTATE_WPARAM(c.wParam)),
                     static_cast<short>(GET_WHEEL_DELTA_WPARAM(c.wParam)), CPoint(c.lParam));
}
template <auto H>
bool Key(CCmdTarget* t, AFX_MSGCALL& c) {
    return Finish<H>(t, c, static_cast<UINT>(c.wParam), static_cast<UINT>(LOWORD(c.lParam)),
                     static_cast<UINT>(HIWORD(c.lParam)));
}
template <auto H>
bool Create(CCmdTarget* t, AFX_MSGCALL& c) {
    return Finish<H>(t, c, Pointer<CREATESTRUCT>(c.lParam));
}
template <auto H>
bool SideAndRect(CCmdTarget* t, AFX_MSGCALL& c) {
    return Finish<H>(t, c, static_cast<UINT>(c.wParam), Pointer<RECT>(c.lParam));
}
template <auto H>
bool WindowPos(CCmdTarget* t, AFX_MSGCALL& c) {
    return Finish<H>(t, c, Pointer<WINDOWPOS>(c.lParam));
}
template <auto H>
bool MinMax(CCmdTarget* t, AFX_MSGCALL& c) {
    return Finish<H>(t, c, Pointer<MINMAXINFO>(c.lParam));
}
template <auto H>
bool WindowInWParam(CCmdTarget* t, AFX_MSGCALL& c) {
    return Finish<H>(t, c, Window(c.wParam));
}
template <auto H>
bool WindowInLParam(CCmdTarget* t, AFX_MSGCALL& c) {
    return Finish<H>(t, c, Window(c.lParam));
}
template <auto H>
bool WindowAndWords(CCmdTarget* t, AFX_MSGCALL& c) {
    return Finish<H>(t, c, Window(c.wParam), static_cast<UINT>(LOWORD(c.lParam)),
                     static_cast<UINT>(HIWORD(c.lParam)));
}
template <auto H>
bool Activate(CCmdTarget* t, AFX_MSGCALL& c) {
    return Finish<H>(t, c, static_cast<UINT>(LOWORD(c.wParam)), Window(c.lParam),
                     static_cast<BOOL>(HIWORD(c.wParam)));
}
template <auto H>
bool MenuPopup(CCmdTarget* t, AFX_MSGCALL& c) {
    return Finish<H>(t, c, CMenu::FromHandle(reinterpret_cast<HMENU>(c.wParam)),
                     static_cast<UINT>(LOWORD(c.lParam)), static_cast<BOOL>(HIWORD(c.lParam)));
}
template <auto H>
bool Erase(CCmdTarget* t, AFX_MSGCALL& c) {
    return Finish<H>(t, c, CDC::FromHandle(reinterpret_cast<HDC>(c.wParam)));
}
template <auto H>
bool DrawItem(CCmdTarget* t, AFX_MSGCALL& c) {
    Finish<H>(t, c, static_cast<int>(c.wParam), Pointer<DRAWITEMSTRUCT>(c.lParam));
    c.lResult = TRUE;
    return true;
}
template <auto H>
bool MeasureItem(CCmdTarget* t, AFX_MSGCALL& c) {
    Finish<H>(t, c, static_cast<int>(c.wParam), Pointer<MEASUREITEMSTRUCT>(c.lParam));
    c.lResult = TRUE;
    return true;
}
// The seven colour messages share one handler, which is told which part it is about (CTLCOLOR_MSGBOX, ...).
template <auto H>
bool CtlColor(CCmdTarget* t, AFX_MSGCALL& c) {
    return Finish<H>(t, c, CDC::FromHandle(reinterpret_cast<HDC>(c.wParam)), Window(c.lParam),
                     c.nMessage - WM_CTLCOLORMSGBOX);
}
// A null brush leaves the colours to the parent.
template <auto H>
bool CtlColorReflect(CCmdTarget* t, AFX_MSGCALL& c) {
    Finish<H>(t, c, CDC::FromHandle(reinterpret_cast<HDC>(c.wParam)),
              c.nMessage - WM_REFLECT_BASE - WM_CTLCOLORMSGBOX);
    return c.lResult != 0;
}

// Commands and notifications. The Ex forms tell by their result whether they took it.
template <auto H>
bool Command(CCmdTarget* t, AFX_MSGCALL&) {
    AfxHandler<H>::Call(t);
    return true;
}
template <auto H>
bool CommandEx(CCmdTarget* t, AFX_MSGCALL& c) {
    return AfxHandler<H>::Call(t, c.nID) != FALSE;
}
template <auto H>
bool CommandRange(CCmdTarget* t, AFX_MSGCALL& c) {
    AfxHandler<H>::Call(t, c.nID);
    return true;
}
template <auto H>
bool ReflectedControlEx(CCmdTarget* t, AFX_MSGCALL&) {
    return AfxHandler<H>::Call(t) != FALSE;
}
template <auto H>
bool Notify(CCmdTarget* t, AFX_MSGCALL& c) {
    AfxHandler<H>::Call(t, Pointer<NMHDR>(c.lParam), &c.lResult);
    return true;
}
template <auto H>
bool NotifyEx(CCmdTarget* t, AFX_MSGCALL& c) {
    return AfxHandler<H>::Call(t, c.nID, Pointer<NMHDR>(c.lParam), &c.lResult) != FALSE;
}
template <auto H>
bool ReflectedNotifyEx(CCmdTarget* t, AFX_MSGCALL& c) {
    return AfxHandler<H>::Call(t, Pointer<NMHDR>(c.lParam), &c.lResult) != FALSE;
}
}  // namespace AfxCrack

// clang-format off

// Handlers with names and arguments of their own: LRESULT f(WPARAM, LPARAM); void f(); BOOL f(UINT nID);
// void f(UINT nID); void f(NMHDR*, LRESULT*); BOOL f(UINT id, NMHDR*, LRESULT*).
#define ON_MESSAGE(message, memberFxn) {message, 0, 0, 0, &AfxCrack::Raw<memberFxn>},
#define ON_COMMAND(id, memberFxn) {WM_COMMAND, 0, UINT(id), UINT(id), &AfxCrack::Command<memberFxn>},
#define ON_COMMAND_EX(id, memberFxn) {WM_COMMAND, 0, UINT(id), UINT(id), &AfxCrack::CommandEx<memberFxn>},
#define ON_COMMAND_RANGE(id, idLast, memberFxn) {WM_COMMAND, 0, UINT(id), UINT(idLast), &AfxCrack::CommandRange<memberFxn>},
#define ON_CONTROL(code, id, memberFxn) {WM_COMMAND, UINT(code), UINT(id), UINT(id), &AfxCrack::Command<memberFxn>},
#define ON_NOTIFY(code, id, memberFxn) {WM_NOTIFY, UINT(code), UINT(id), UINT(id), &AfxCrack::Notify<memberFxn>},
#define ON_NOTIFY_EX(code, id, memberFxn) {WM_NOTIFY, UINT(code), UINT(id), UINT(id), &AfxCrack::NotifyEx<memberFxn>},
#define ON_CONTROL_REFLECT(code, memberFxn) {WM_COMMAND + WM_REFLECT_BASE, UINT(code), 0, 0, &AfxCrack::Command<memberFxn>},
#define ON_CONTROL_REFLECT_EX(code, memberFxn) {WM_COMMAND + WM_REFLECT_BASE, UINT(code), 0, 0, &AfxCrack::ReflectedControlEx<memberFxn>},
#define ON_NOTIFY_REFLECT(code, memberFxn) {WM_NOTIFY + WM_REFLECT_BASE, UINT(code), 0, 0, &AfxCrack::Notify<memberFxn>},
#define ON_NOTIFY_REFLECT_EX(code, memberFxn) {WM_NOTIFY + WM_REFLECT_BASE, UINT(code), 0, 0, &AfxCrack::ReflectedNotifyEx<memberFxn>},

#define ON_BN_CLICKED(id, memberFxn) ON_CONTROL(BN_CLICKED, id, memberFxn)
#define ON_CBN_SELCHANGE(id, memberFxn) ON_CONTROL(CBN_SELCHANGE, id, memberFxn)

// Window messages; the handler has the message's own name (ON_WM_SIZE: OnSize), with CWnd's arguments.
#define AFX_ON_WM(message, crack, handler) {message, 0, 0, 0, &AfxCrack::crack<&ThisClass::handler>},
#define ON_WM_CREATE() AFX_ON_WM(WM_CREATE, Create, OnCreate)
#define ON_WM_DESTROY() AFX_ON_WM(WM_DESTROY, Plain, OnDestroy)
#define ON_WM_NCDESTROY() AFX_ON_WM(WM_NCDESTROY, Plain, OnNcDestroy)
#define ON_WM_SIZE() AFX_ON_WM(WM_SIZE, FlagsAndXY, OnSize)
#define ON_WM_SIZING() AFX_ON_WM(WM_SIZING, SideAndRect, OnSizing)
#define ON_WM_MOVING() AFX_ON_WM(WM_MOVING, SideAndRect, OnMoving)
#define ON_WM_CLOSE() AFX_ON_WM(WM_CLOSE, Plain, OnClose)
#define ON_WM_PAINT() AFX_ON_WM(WM_PAINT, Plain, OnPaint)
#define ON_WM_ERASEBKGND() AFX_ON_WM(WM_ERASEBKGND, Erase, OnEraseBkgnd)
#define ON_WM_TIMER() AFX_ON_WM(WM_TIMER, Timer, OnTimer)
#define ON_WM_LBUTTONDOWN() AFX_ON_WM(WM_LBUTTONDOWN, FlagsAndPoint, OnLButtonDown)
#define ON_WM_LBUTTONUP() AFX_ON_WM(WM_LBUTTONUP, FlagsAndPoint, OnLButtonUp)
#define ON_WM_LBUTTONDBLCLK() AFX_ON_WM(WM_LBUTTONDBLCLK, FlagsAndPoint, OnLButtonDblClk)
#define ON_WM_RBUTTONDOWN() AFX_ON_WM(WM_RBUTTONDOWN, FlagsAndPoint, OnRButtonDown)
#define ON_WM_MBUTTONDOWN() AFX_ON_WM(WM_MBUTTONDOWN, FlagsAndPoint, OnMButtonDown)
#define ON_WM_MBUTTONUP() AFX_ON_WM(WM_MBUTTONUP, FlagsAndPoint, OnMButtonUp)
#define ON_WM_MOUSEMOVE() AFX_ON_WM(WM_MOUSEMOVE, FlagsAndPoint, OnMouseMove)
#define ON_WM_MOUSELEAVE() AFX_ON_WM(WM_MOUSELEAVE, Plain, OnMouseLeave)
#define ON_WM_MOUSEWHEEL() AFX_ON_WM(WM_MOUSEWHEEL, Wheel, OnMouseWheel)
#define ON_WM_SETCURSOR() AFX_ON_WM(WM_SETCURSOR, WindowAndWords, OnSetCursor)
#define ON_WM_ACTIVATE() AFX_ON_WM(WM_ACTIVATE, Activate, OnActivate)
#define ON_WM_ACTIVATEAPP() AFX_ON_WM(WM_ACTIVATEAPP, BoolAndNumber, OnActivateApp)
#define ON_WM_ENABLE() AFX_ON_WM(WM_ENABLE, Bool, OnEnable)
#define ON_WM_SETFOCUS() AFX_ON_WM(WM_SETFOCUS, WindowInWParam, OnSetFocus)
#define ON_WM_KILLFOCUS() AFX_ON_WM(WM_KILLFOCUS, WindowInWParam, OnKillFocus)
#define ON_WM_CANCELMODE() AFX_ON_WM(WM_CANCELMODE, Plain, OnCancelMode)
#define ON_WM_CAPTURECHANGED() AFX_ON_WM(WM_CAPTURECHANGED, WindowInLParam, OnCaptureChanged)
#define ON_WM_SYSCOLORCHANGE() AFX_ON_WM(WM_SYSCOLORCHANGE, Plain, OnSysColorChange)
#define ON_WM_GETDLGCODE() AFX_ON_WM(WM_GETDLGCODE, Plain, OnGetDlgCode)
#define ON_WM_WINDOWPOSCHANGED() AFX_ON_WM(WM_WINDOWPOSCHANGED, WindowPos, OnWindowPosChanged)
#define ON_WM_CHAR() AFX_ON_WM(WM_CHAR, Key, OnChar)
#define ON_WM_GETMINMAXINFO() AFX_ON_WM(WM_GETMINMAXINFO, MinMax, OnGetMinMaxInfo)
#define ON_WM_INITMENUPOPUP() AFX_ON_WM(WM_INITMENUPOPUP, MenuPopup, OnInitMenuPopup)
#define ON_WM_DRAWITEM() AFX_ON_WM(WM_DRAWITEM, DrawItem, OnDrawItem)
#define ON_WM_MEASUREITEM() AFX_ON_WM(WM_MEASUREITEM, MeasureItem, OnMeasureItem)
// HBRUSH OnCtlColor(CDC*, CWnd*, UINT) for all parts; HBRUSH CtlColor(CDC*, UINT) reflected to the control.
#define ON_WM_CTLCOLOR() \
    AFX_ON_WM(WM_CTLCOLORMSGBOX, CtlColor, OnCtlColor) AFX_ON_WM(WM_CTLCOLOREDIT, CtlColor, OnCtlColor) \
    AFX_ON_WM(WM_CTLCOLORLISTBOX, CtlColor, OnCtlColor) AFX_ON_WM(WM_CTLCOLORBTN, CtlColor, OnCtlColor) \
    AFX_ON_WM(WM_CTLCOLORDLG, CtlColor, OnCtlColor) AFX_ON_WM(WM_CTLCOLORSCROLLBAR, CtlColor, OnCtlColor) \
    AFX_ON_WM(WM_CTLCOLORSTATIC, CtlColor, OnCtlColor)
#define ON_WM_CTLCOLOR_REFLECT() \
    AFX_ON_WM(WM_CTLCOLOREDIT + WM_REFLECT_BASE, CtlColorReflect, CtlColor) \
    AFX_ON_WM(WM_CTLCOLORLISTBOX + WM_REFLECT_BASE, CtlColorReflect, CtlColor) \
    AFX_ON_WM(WM_CTLCOLORBTN + WM_REFLECT_BASE, CtlColorReflect, CtlColor) \
    AFX_ON_WM(WM_CTLCOLORSTATIC + WM_REFLECT_BASE, CtlColorReflect, CtlColor)
// clang-format on
