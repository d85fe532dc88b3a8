// The place of an OLE control in its parent window. Internal to the framework.
#pragma once

#include "afxdisp.h"

// Holds one reference.
template <class T>
class AfxComPtr {
  public:
    AfxComPtr() = default;
    ~AfxComPtr() { Release(); }
    AfxComPtr(const AfxComPtr&) = delete;
    AfxComPtr& operator=(const AfxComPtr&) = delete;
    T* operator->() const { return m_p; }
    T* Get() const { return m_p; }
    explicit operator bool() const { return m_p != nullptr; }
    // Where a function puts a reference that is this one's from then on.
    T** Receive() {
        Release();
        return &m_p;
    }
    void Attach(T* p) { *Receive() = p; }
    template <class From>
    HRESULT Query(From* pFrom) {
        return pFrom ? pFrom->QueryInterface(__uuidof(T), reinterpret_cast<void**>(Receive())) : E_POINTER;
    }
    void Release() {
        if (m_p) std::exchange(m_p, nullptr)->Release();
    }

  private:
    T* m_p = nullptr;
};

class CControlClientSite;

// Owns the control: deleting the site closes and releases it.
class COleControlSite {
  public:
    COleControlSite(HWND hWndParent, UINT nID) : m_hWndParent(hWndParent), m_nID(nID) {}
    ~COleControlSite();
    COleControlSite(const COleControlSite&) = delete;
    COleControlSite& operator=(const COleControlSite&) = delete;

    // Makes the control and shows it in `rect` of the parent. The result is its window, null on failure.
    HWND Activate(REFCLSID clsid, const RECT& rect);
    void Move(const RECT& rect);
    // The control's Enabled property, if it has one.
    void SetEnabled(bool bEnabled);
    // Calls the control by dispatch id. `pbParams` tells the types of the arguments (VTS_...), null for none.
    // Raises the failures that CWnd::InvokeHelper documents.
    void Invoke(DISPID dispid, WORD wFlags, VARTYPE vtRet, void* pvRet, const BYTE* pbParams, va_list args);
    LPUNKNOWN GetUnknown() const { return m_pObject.Get(); }

  private:
    void InitNew(const RECT& rect);
    void ConnectEvents();

    HWND m_hWndParent;
    UINT m_nID;
    AfxComPtr<IOleObject> m_pObject;
    AfxComPtr<IOleInPlaceObject> m_pInPlace;
    AfxComPtr<IDispatch> m_pDispatch;
    AfxComPtr<IConnectionPoint> m_pEvents;
    DWORD m_dwCookie = 0;
    CControlClientSite* m_pClientSite = nullptr;  // one reference
};
