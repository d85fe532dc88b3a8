// OLE controls in windows: making, placing, calling by dispatch id, and releasing them.
#include "afxocc.h"

#include <cstdarg>
#include <vector>

#include "afxoccsite.h"
#include "afxwndimpl.h"

namespace {

constexpr int kHimetricPerInch = 2540;

SIZEL ToHimetric(int nWidth, int nHeight) {
    const CClientDC dc(nullptr);
    return {::MulDiv(nWidth, kHimetricPerInch, dc.GetDeviceCaps(LOGPIXELSX)),
            ::MulDiv(nHeight, kHimetricPerInch, dc.GetDeviceCaps(LOGPIXELSY))};
}

// The interface through which the control sends its events.
HRESULT FindEventInterface(IOleObject* pObject, IConnectionPointContainer* pPoints, IID& iid) {
    AfxComPtr<IProvideClassInfo2> pInfo;
    if (SUCCEEDED(pInfo.Query(pObject)) &&
        SUCCEEDED(pInfo->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &iid))) {
        return S_OK;
    }
    AfxComPtr<IEnumConnectionPoints> pEnum;
    AfxComPtr<IConnectionPoint> pFirst;
    HRESULT hr = pPoints->EnumConnectionPoints(pEnum.Receive());
    if (FAILED(hr)) return hr;
    if (pEnum->Next(1, pFirst.Receive(), nullptr) != S_OK) return E_FAIL;
    return pFirst->GetConnectionInterface(&iid);
}

// The arguments of a call, in the reverse order that IDispatch wants.
class CallArguments {
  public:
    CallArguments(const BYTE* pbParams, va_list args) {
        for (; pbParams && *pbParams; ++pbParams)
            m_values.insert(m_values.begin(), Next(*pbParams, args));
    }
    ~CallArguments() {
        // Only texts are this object's own.
        for (VARIANT& value : m_values) {
            if (value.vt == VT_BSTR) ::VariantClear(&value);
        }
    }
    CallArguments(const CallArguments&) = delete;
    CallArguments& operator=(const CallArguments&) = delete;

    DISPPARAMS Params(WORD wFlags) {
        DISPPARAMS params{m_values.data(), nullptr, static_cast<UINT>(m_values.size()), 0};
        if (wFlags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) {
            params.rgdispidNamedArgs = &m_dispidPut;
            params.cNamedArgs = 1;
        }
        return params;
    }

  private:
    static VARIANT Next(VARTYPE vt, va_list& args) {
        VARIANT value;
        ::VariantInit(&value);
        value.vt = vt;
        switch (vt) {
            case VT_I2:
                value.iVal = static_cast<short>(va_arg(args, int));
                break;
            case VT_I4:
                value.lVal = va_arg(args, long);
                break;
            case VT_UI4:
                value.ulVal = va_arg(args, unsigned long);
                break;
            case VT_R8:
                value.dblVal = va_arg(args, double);
                break;
            case VT_BOOL:
                value.boolVal = va_arg(args, int) ? VARIANT_TRUE : VARIANT_FALSE;
                break;
            case VT_BSTR:
                value.bstrVal = ::SysAllocString(va_arg(args, LPCTSTR));
                break;
            case VT_DISPATCH:
                value.pdispVal = va_arg(args, LPDISPATCH);
                break;
            case VT_UNKNOWN:
                value.punkVal = va_arg(args, LPUNKNOWN);
                break;
            case VT_VARIANT:
                // By reference: the value stays the caller's, whatever it holds.
                value.vt = VT_VARIANT | VT_BYREF;
                value.pvarVal = const_cast<VARIANT*>(va_arg(args, const VARIANT*));
                break;
            default:
                AfxThrowInvalidArgException();
        }
        return value;
    }

    std::vector<VARIANT> m_values;
    DISPID m_dispidPut = DISPID_PROPERTYPUT;
};

// Puts a result of the wanted type where the caller wants it; frees it.
void StoreResult(VARIANT& result, VARTYPE vtRet, void* pvRet) {
    if (vtRet == VT_VARIANT) {
        *static_cast<VARIANT*>(pvRet) = result;
        return;
    }
    const HRESULT hr = ::VariantChangeType(&result, &result, 0, vtRet);
    if (FAILED(hr)) {
        ::VariantClear(&result);
        AfxThrowOleException(hr);
    }
    switch (vtRet) {
        case VT_I2:
            *static_cast<short*>(pvRet) = result.iVal;
            break;
        case VT_I4:
            *static_cast<long*>(pvRet) = result.lVal;
            break;
        case VT_UI4:
            *static_cast<unsigned long*>(pvRet) = result.ulVal;
            break;
        case VT_R8:
            *static_cast<double*>(pvRet) = result.dblVal;
            break;
        case VT_BOOL:
            *static_cast<BOOL*>(pvRet) = result.boolVal != VARIANT_FALSE;
            break;
        case VT_DISPATCH:
            *static_cast<LPDISPATCH*>(pvRet) = result.pdispVal;
            break;
        case VT_BSTR:
            *static_cast<CString*>(pvRet) = result.bstrVal;
            break;
        default:
            break;
    }
    // A reference goes to the caller; everything else was copied.
    if (vtRet != VT_DISPATCH) ::VariantClear(&result);
}

[[noreturn]] void ThrowCallFailure(HRESULT hr, EXCEPINFO& info) {
    if (hr != DISP_E_EXCEPTION) AfxThrowOleException(hr);
    if (info.pfnDeferredFillIn) info.pfnDeferredFillIn(&info);
    const CString strDescription(info.bstrDescription);
    const SCODE scode = info.scode ? info.scode : hr;
    ::SysFreeString(info.bstrSource);
    ::SysFreeString(info.bstrDescription);
    ::SysFreeString(info.bstrHelpFile);
    AfxThrowOleDispatchException(strDescription, scode);
}

}  // namespace

void AfxDeleteControlSite(COleControlSite*& pSite) {
    delete std::exchange(pSite, nullptr);
}

COleControlSite::~COleControlSite() {
    if (m_pEvents) m_pEvents->Unadvise(m_dwCookie);
    if (m_pInPlace) m_pInPlace->InPlaceDeactivate();
    if (m_pObject) {
        m_pObject->Close(OLECLOSE_NOSAVE);
        m_pObject->SetClientSite(nullptr);
    }
    if (m_pClientSite) m_pClientSite->Release();
}

HWND COleControlSite::Activate(REFCLSID clsid, const RECT& rect) {
    if (!AfxOleInit()) return nullptr;
    HRESULT hr = ::CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IOleObject,
                                    reinterpret_cast<void**>(m_pObject.Receive()));
    if (FAILED(hr) || FAILED(m_pDispatch.Query(m_pObject.Get()))) return nullptr;
    m_pClientSite = new CControlClientSite(m_hWndParent);
    m_pClientSite->SetRect(rect);
    InitNew(rect);
    hr = m_pObject->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, m_pClientSite, 0, m_hWndParent, &rect);
    HWND hWnd = nullptr;
    if (FAILED(hr) || FAILED(m_pInPlace.Query(m_pObject.Get())) || FAILED(m_pInPlace->GetWindow(&hWnd))) {
        return nullptr;
    }
    ConnectEvents();
    return hWnd;
}

void COleControlSite::InitNew(const RECT& rect) {
    DWORD dwStatus = 0;
    m_pObject->GetMiscStatus(DVASPECT_CONTENT, &dwStatus);
    const bool bSiteFirst = (dwStatus & OLEMISC_SETCLIENTSITEFIRST) != 0;
    if (bSiteFirst) m_pObject->SetClientSite(m_pClientSite);
    AfxComPtr<IPersistStreamInit> pPersist;
    if (SUCCEEDED(pPersist.Query(m_pObject.Get()))) pPersist->InitNew();
    if (!bSiteFirst) m_pObject->SetClientSite(m_pClientSite);
    SIZEL size = ToHimetric(rect.right - rect.left, rect.bottom - rect.top);
    m_pObject->SetExtent(DVASPECT_CONTENT, &size);
}

void COleControlSite::ConnectEvents() {
    AfxComPtr<IConnectionPointContainer> pPoints;
    if (FAILED(pPoints.Query(m_pObject.Get()))) return;
    IID iid{};
    if (FAILED(FindEventInterface(m_pObject.Get(), pPoints.Get(), iid))) return;
    if (FAILED(pPoints->FindConnectionPoint(iid, m_pEvents.Receive()))) return;
    AfxComPtr<CControlEventSink> pSink;
    pSink.Attach(new CControlEventSink(m_hWndParent, m_nID, iid));
    if (FAILED(m_pEvents->Advise(pSink.Get(), &m_dwCookie))) m_pEvents.Release();
}

void COleControlSite::Move(const RECT& rect) {
    m_pClientSite->SetRect(rect);
    SIZEL size = ToHimetric(rect.right - rect.left, rect.bottom - rect.top);
    m_pObject->SetExtent(DVASPECT_CONTENT, &size);
    m_pInPlace->SetObjectRects(&rect, &rect);
}

void COleControlSite::SetEnabled(bool bEnabled) {
    VARIANT value;
    ::VariantInit(&value);
    value.vt = VT_BOOL;
    value.boolVal = bEnabled ? VARIANT_TRUE : VARIANT_FALSE;
    DISPID dispidPut = DISPID_PROPERTYPUT;
    DISPPARAMS params{&value, &dispidPut, 1, 1};
    m_pDispatch->Invoke(DISPID_ENABLED, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &params, nullptr,
                        nullptr, nullptr);
}

void COleControlSite::Invoke(DISPID dispid, WORD wFlags, VARTYPE vtRet, void* pvRet, const BYTE* pbParams,
                             va_list args) {
    CallArguments arguments(pbParams, args);
    DISPPARAMS params = arguments.Params(wFlags);
    VARIANT result;
    ::VariantInit(&result);
    EXCEPINFO info{};
    const bool bWantsResult = vtRet != VT_EMPTY && pvRet;
    const HRESULT hr = m_pDispatch->Invoke(dispid, IID_NULL, LOCALE_USER_DEFAULT, wFlags, &params,
                                           bWantsResult ? &result : nullptr, &info, nullptr);
    if (FAILED(hr)) ThrowCallFailure(hr, info);
    if (bWantsResult) StoreResult(result, vtRet, pvRet);
}

BOOL CWnd::CreateControl(REFCLSID clsid, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                         CWnd* pParentWnd, UINT nID) {
    if (m_hWnd || m_pCtrlSite || !pParentWnd || !pParentWnd->m_hWnd) return FALSE;
    const HWND hWndPlaceholder = ::GetDlgItem(pParentWnd->m_hWnd, static_cast<int>(nID));
    m_pCtrlSite = new COleControlSite(pParentWnd->m_hWnd, nID);
    const HWND hWnd = m_pCtrlSite->Activate(clsid, rect);
    if (!hWnd) {
        AfxDeleteControlSite(m_pCtrlSite);
        return FALSE;
    }
    ::SetWindowLongPtrW(hWnd, GWLP_ID, nID);
    if (lpszWindowName) ::SetWindowTextW(hWnd, lpszWindowName);
    const UINT nShow = (dwStyle & WS_VISIBLE) ? SWP_SHOWWINDOW : SWP_HIDEWINDOW;
    ::SetWindowPos(hWnd, hWndPlaceholder, 0, 0, 0, 0,
                   SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | nShow | (hWndPlaceholder ? 0 : SWP_NOZORDER));
    if (hWndPlaceholder) ::DestroyWindow(hWndPlaceholder);
    return SubclassWindow(hWnd);
}

BOOL CWnd::CreateControl(LPCTSTR pszClass, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                         CWnd* pParentWnd, UINT nID) {
    CLSID clsid{};
    const HRESULT hr =
        *pszClass == L'{' ? ::CLSIDFromString(pszClass, &clsid) : ::CLSIDFromProgID(pszClass, &clsid);
    return SUCCEEDED(hr) && CreateControl(clsid, lpszWindowName, dwStyle, rect, pParentWnd, nID);
}

void CWnd::SetProperty(DISPID dwDispID, VARTYPE vtProp, ...) {
    if (!m_pCtrlSite) return;
    const BYTE abParams[] = {static_cast<BYTE>(vtProp), 0};
    va_list args;
    va_start(args, vtProp);
    m_pCtrlSite->Invoke(dwDispID, DISPATCH_PROPERTYPUT, VT_EMPTY, nullptr, abParams, args);
    va_end(args);
}

void CWnd::GetProperty(DISPID dwDispID, VARTYPE vtProp, void* pvProp) const {
    if (!m_pCtrlSite) return;
    m_pCtrlSite->Invoke(dwDispID, DISPATCH_PROPERTYGET, vtProp, pvProp, nullptr, nullptr);
}

void CWnd::InvokeHelper(DISPID dwDispID, WORD wFlags, VARTYPE vtRet, void* pvRet, const BYTE* pbParamInfo,
                        ...) {
    if (!m_pCtrlSite) return;
    va_list args;
    va_start(args, pbParamInfo);
    m_pCtrlSite->Invoke(dwDispID, wFlags, vtRet, pvRet, pbParamInfo, args);
    va_end(args);
}

LPUNKNOWN CWnd::GetControlUnknown() const {
    return m_pCtrlSite ? m_pCtrlSite->GetUnknown() : nullptr;
}
