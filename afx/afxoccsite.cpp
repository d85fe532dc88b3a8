#include "afxoccsite.h"

#include "afxwndimpl.h"

STDMETHODIMP CControlClientSite::QueryInterface(REFIID iid, void** ppv) {
    if (iid == IID_IUnknown || iid == IID_IOleClientSite) {
        *ppv = static_cast<IOleClientSite*>(this);
    } else if (iid == IID_IOleWindow || iid == IID_IOleInPlaceSite) {
        *ppv = static_cast<IOleInPlaceSite*>(this);
    } else if (iid == IID_IOleInPlaceUIWindow || iid == IID_IOleInPlaceFrame) {
        *ppv = static_cast<IOleInPlaceFrame*>(this);
    } else if (iid == IID_IDispatch) {
        *ppv = static_cast<IDispatch*>(this);
    } else {
        *ppv = nullptr;
        return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
}

STDMETHODIMP CControlClientSite::GetMoniker(DWORD, DWORD, IMoniker** ppMoniker) {
    *ppMoniker = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP CControlClientSite::GetContainer(IOleContainer** ppContainer) {
    *ppContainer = nullptr;
    return E_NOINTERFACE;
}

STDMETHODIMP CControlClientSite::GetWindow(HWND* phWnd) {
    *phWnd = m_hWndParent;
    return S_OK;
}

STDMETHODIMP CControlClientSite::GetWindowContext(IOleInPlaceFrame** ppFrame, IOleInPlaceUIWindow** ppDoc,
                                                  LPRECT lprcPosRect, LPRECT lprcClipRect,
                                                  LPOLEINPLACEFRAMEINFO lpFrameInfo) {
    AddRef();
    *ppFrame = this;
    *ppDoc = nullptr;
    *lprcPosRect = m_rect;
    *lprcClipRect = m_rect;
    lpFrameInfo->fMDIApp = FALSE;
    lpFrameInfo->hwndFrame = ::GetAncestor(m_hWndParent, GA_ROOT);
    lpFrameInfo->haccel = nullptr;
    lpFrameInfo->cAccelEntries = 0;
    return S_OK;
}

STDMETHODIMP CControlClientSite::GetTypeInfoCount(UINT* pctinfo) {
    *pctinfo = 0;
    return S_OK;
}

STDMETHODIMP CControlClientSite::Invoke(DISPID dispid, REFIID, LCID, WORD wFlags, DISPPARAMS*,
                                        VARIANT* pResult, EXCEPINFO*, UINT*) {
    if (!(wFlags & DISPATCH_PROPERTYGET) || !pResult) return DISP_E_MEMBERNOTFOUND;
    ::VariantInit(pResult);
    pResult->vt = VT_I4;
    switch (dispid) {
        case DISPID_AMBIENT_BACKCOLOR:
            pResult->lVal = static_cast<LONG>(::GetSysColor(COLOR_BTNFACE));
            return S_OK;
        case DISPID_AMBIENT_FORECOLOR:
            pResult->lVal = static_cast<LONG>(::GetSysColor(COLOR_BTNTEXT));
            return S_OK;
        case DISPID_AMBIENT_LOCALEID:
            pResult->lVal = static_cast<LONG>(::GetThreadLocale());
            return S_OK;
        case DISPID_AMBIENT_USERMODE:
            pResult->vt = VT_BOOL;
            pResult->boolVal = VARIANT_TRUE;
            return S_OK;
        case DISPID_AMBIENT_UIDEAD:
            pResult->vt = VT_BOOL;
            pResult->boolVal = VARIANT_FALSE;
            return S_OK;
        default:
            pResult->vt = VT_EMPTY;
            return DISP_E_MEMBERNOTFOUND;
    }
}

STDMETHODIMP CControlEventSink::QueryInterface(REFIID iid, void** ppv) {
    const bool bKnown = iid == IID_IUnknown || iid == IID_IDispatch || iid == m_iidEvents;
    *ppv = bKnown ? static_cast<IDispatch*>(this) : nullptr;
    if (!bKnown) return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

STDMETHODIMP CControlEventSink::GetTypeInfoCount(UINT* pctinfo) {
    *pctinfo = 0;
    return S_OK;
}

STDMETHODIMP CControlEventSink::Invoke(DISPID dispid, REFIID, LCID, WORD, DISPPARAMS* pParams, VARIANT*,
                                       EXCEPINFO*, UINT*) {
    CWnd* pParent = CWnd::FromHandlePermanent(m_hWndParent);
    if (!pParent || !pParams) return DISP_E_MEMBERNOTFOUND;
    const MSG msg{m_hWndParent, WM_COMMAND, m_nID, 0, 0, {}};
    HRESULT hr = E_FAIL;
    // A failure of the handler is shown and must not reach the control, which knows nothing of it.
    AfxCallGuarded(msg, [&] {
        hr = pParent->OnEvent(m_nID, dispid, pParams);
        return LRESULT{0};
    });
    return hr;
}
