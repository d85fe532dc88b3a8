#include "test_control.h"

#include <windows.h>

#include <ocidl.h>
#include <olectl.h>

// The interfaces of COM have no virtual destructor, whose slot would change their layout.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace test_control {

const CLSID kClass = {0x6B0D0F3A, 0x9C11, 0x4E57, {0x93, 0x1E, 0x2A, 0x77, 0x14, 0x5C, 0x60, 0x01}};
const wchar_t kClassText[] = L"{6B0D0F3A-9C11-4E57-931E-2A77145C6001}";

namespace {

constexpr IID kEvents = {0x6B0D0F3B, 0x9C11, 0x4E57, {0x93, 0x1E, 0x2A, 0x77, 0x14, 0x5C, 0x60, 0x01}};

class Control;
Control* g_control = nullptr;
Record g_seen;

class Control : public IOleObject,
                public IOleInPlaceObject,
                public IDispatch,
                public IConnectionPointContainer,
                public IConnectionPoint,
                public IProvideClassInfo2,
                public IPersistStreamInit {
  public:
    Control() {
        ++g_seen.alive;
        g_control = this;
    }
    virtual ~Control() {
        CloseWindow();
        if (m_site) m_site->Release();
        if (m_sink) m_sink->Release();
        --g_seen.alive;
        g_control = nullptr;
    }

    IDispatch* Sink() const { return m_sink; }

    // IUnknown
    STDMETHODIMP QueryInterface(REFIID iid, void** ppv) override {
        if (iid == IID_IUnknown || iid == IID_IOleObject) {
            *ppv = static_cast<IOleObject*>(this);
        } else if (iid == IID_IOleWindow || iid == IID_IOleInPlaceObject) {
            *ppv = static_cast<IOleInPlaceObject*>(this);
        } else if (iid == IID_IDispatch) {
            *ppv = static_cast<IDispatch*>(this);
        } else if (iid == IID_IConnectionPointContainer) {
            *ppv = static_cast<IConnectionPointContainer*>(this);
        } else if (iid == IID_IProvideClassInfo2) {
            *ppv = static_cast<IProvideClassInfo2*>(this);
        } else if (iid == IID_IPersistStreamInit) {
            *ppv = static_cast<IPersistStreamInit*>(this);
        } else {
            *ppv = nullptr;
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_refs; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG refs = --m_refs;
        if (refs == 0) delete this;
        return refs;
    }

    // IOleObject
    STDMETHODIMP SetClientSite(IOleClientSite* site) override {
        if (site) site->AddRef();
        if (m_site) m_site->Release();
        m_site = site;
        g_seen.siteSet = site != nullptr;
        return S_OK;
    }
    STDMETHODIMP GetClientSite(IOleClientSite**) override { return E_NOTIMPL; }
    STDMETHODIMP SetHostNames(LPCOLESTR, LPCOLESTR) override { return S_OK; }
    STDMETHODIMP Close(DWORD) override {
        g_seen.closed = true;
        CloseWindow();
        return S_OK;
    }
    STDMETHODIMP SetMoniker(DWORD, IMoniker*) override { return E_NOTIMPL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    STDMETHODIMP InitFromData(IDataObject*, BOOL, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP GetClipboardData(DWORD, IDataObject**) override { return E_NOTIMPL; }
    STDMETHODIMP DoVerb(LONG, LPMSG, IOleClientSite* site, LONG, HWND parent, LPCRECT rect) override {
        if (g_seen.refuses) return E_FAIL;
        IOleInPlaceSite* inPlace = nullptr;
        if (FAILED(site->QueryInterface(IID_IOleInPlaceSite, reinterpret_cast<void**>(&inPlace))))
            return E_FAIL;
        IOleInPlaceFrame* frame = nullptr;
        IOleInPlaceUIWindow* document = nullptr;
        RECT position{};
        RECT clip{};
        OLEINPLACEFRAMEINFO info{};
        info.cb = sizeof(info);
        HWND siteWindow = nullptr;
        const bool allowed = inPlace->CanInPlaceActivate() == S_OK &&
                             SUCCEEDED(inPlace->GetWindow(&siteWindow)) &&
                             SUCCEEDED(inPlace->GetWindowContext(&frame, &document, &position, &clip, &info));
        inPlace->OnInPlaceActivate();
        if (frame) frame->Release();
        inPlace->Release();
        if (!allowed || siteWindow != parent || !EqualRect(&position, rect)) return E_FAIL;
        g_seen.userMode = AmbientUserMode(site);
        g_seen.rect = *rect;
        g_seen.window = CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_TABSTOP, rect->left, rect->top,
                                        rect->right - rect->left, rect->bottom - rect->top, parent, nullptr,
                                        GetModuleHandleW(nullptr), nullptr);
        return g_seen.window ? S_OK : E_FAIL;
    }
    STDMETHODIMP EnumVerbs(IEnumOLEVERB**) override { return E_NOTIMPL; }
    STDMETHODIMP Update() override { return S_OK; }
    STDMETHODIMP IsUpToDate() override { return S_OK; }
    STDMETHODIMP GetUserClassID(CLSID* clsid) override {
        *clsid = kClass;
        return S_OK;
    }
    STDMETHODIMP GetUserType(DWORD, LPOLESTR*) override { return E_NOTIMPL; }
    STDMETHODIMP SetExtent(DWORD, SIZEL* size) override {
        g_seen.extent = *size;
        return S_OK;
    }
    STDMETHODIMP GetExtent(DWORD, SIZEL*) override { return E_NOTIMPL; }
    STDMETHODIMP Advise(IAdviseSink*, DWORD*) override { return E_NOTIMPL; }
    STDMETHODIMP EnumAdvise(IEnumSTATDATA**) override { return E_NOTIMPL; }
    STDMETHODIMP GetMiscStatus(DWORD, DWORD* status) override {
        *status = OLEMISC_SETCLIENTSITEFIRST;
        return S_OK;
    }
    STDMETHODIMP SetColorScheme(LOGPALETTE*) override { return E_NOTIMPL; }

    // IOleInPlaceObject
    STDMETHODIMP GetWindow(HWND* window) override {
        *window = g_seen.window;
        return g_seen.window ? S_OK : E_FAIL;
    }
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP InPlaceDeactivate() override {
        CloseWindow();
        return S_OK;
    }
    STDMETHODIMP UIDeactivate() override { return S_OK; }
    STDMETHODIMP SetObjectRects(LPCRECT position, LPCRECT) override {
        g_seen.rect = *position;
        return S_OK;
    }
    STDMETHODIMP ReactivateAndUndo() override { return E_NOTIMPL; }

    // IDispatch
    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID dispid, REFIID, LCID, WORD flags, DISPPARAMS* params, VARIANT* result,
                        EXCEPINFO* info, UINT*) override;

    // IConnectionPointContainer, IConnectionPoint
    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints**) override { return E_NOTIMPL; }
    STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) override {
        *point = nullptr;
        if (iid != kEvents) return CONNECT_E_NOCONNECTION;
        AddRef();
        *point = this;
        return S_OK;
    }
    STDMETHODIMP GetConnectionInterface(IID* iid) override {
        *iid = kEvents;
        return S_OK;
    }
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer**) override { return E_NOTIMPL; }
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override {
        if (FAILED(sink->QueryInterface(kEvents, reinterpret_cast<void**>(&m_sink)))) {
            return CONNECT_E_CANNOTCONNECT;
        }
        ++g_seen.sinks;
        *cookie = 77;
        return S_OK;
    }
    STDMETHODIMP Unadvise(DWORD cookie) override {
        if (cookie != 77 || !m_sink) return CONNECT_E_NOCONNECTION;
        m_sink->Release();
        m_sink = nullptr;
        --g_seen.sinks;
        return S_OK;
    }
    STDMETHODIMP EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }

    // IProvideClassInfo2
    STDMETHODIMP GetClassInfo(ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetGUID(DWORD kind, GUID* guid) override {
        *guid = kEvents;
        return kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID ? S_OK : E_INVALIDARG;
    }

    // IPersistStreamInit
    STDMETHODIMP GetClassID(CLSID* clsid) override { return GetUserClassID(clsid); }
    STDMETHODIMP IsDirty() override { return S_FALSE; }
    STDMETHODIMP Load(IStream*) override { return E_NOTIMPL; }
    STDMETHODIMP Save(IStream*, BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP GetSizeMax(ULARGE_INTEGER*) override { return E_NOTIMPL; }
    STDMETHODIMP InitNew() override { return S_OK; }

  private:
    static bool AmbientUserMode(IOleClientSite* site) {
        IDispatch* ambient = nullptr;
        if (FAILED(site->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&ambient)))) return false;
        VARIANT value;
        VariantInit(&value);
        DISPPARAMS none{};
        const HRESULT hr = ambient->Invoke(DISPID_AMBIENT_USERMODE, IID_NULL, 0, DISPATCH_PROPERTYGET, &none,
                                           &value, nullptr, nullptr);
        ambient->Release();
        return SUCCEEDED(hr) && value.vt == VT_BOOL && value.boolVal == VARIANT_TRUE;
    }
    void CloseWindow() {
        if (g_seen.window && IsWindow(g_seen.window)) DestroyWindow(g_seen.window);
        g_seen.window = nullptr;
    }

    ULONG m_refs = 1;
    IOleClientSite* m_site = nullptr;
    IDispatch* m_sink = nullptr;
};

void PutText(VARIANT* result, const std::wstring& text) {
    result->vt = VT_BSTR;
    result->bstrVal = SysAllocString(text.c_str());
}

void PutBool(VARIANT* result, bool value) {
    if (!result) return;
    result->vt = VT_BOOL;
    result->boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
}

std::wstring TextOfPut(DISPID dispid, const VARIANTARG& value) {
    std::wstring text = std::to_wstring(dispid) + L" ";
    if (value.vt == VT_BSTR) return text + (value.bstrVal ? value.bstrVal : L"");
    if (value.vt == VT_UI4) return text + std::to_wstring(value.ulVal);
    return text + L"?";
}

STDMETHODIMP Control::Invoke(DISPID dispid, REFIID, LCID, WORD flags, DISPPARAMS* params, VARIANT* result,
                             EXCEPINFO* info, UINT*) {
    const bool put = (flags & DISPATCH_PROPERTYPUT) != 0;
    const bool named = params->cNamedArgs == 1 && *params->rgdispidNamedArgs == DISPID_PROPERTYPUT;
    if (put != named) return DISP_E_PARAMNOTFOUND;
    const VARIANTARG* args = params->rgvarg;
    if (put) g_seen.puts.push_back(TextOfPut(dispid, args[0]));
    if (put && g_seen.takesAll) return S_OK;
    switch (dispid) {
        case 1:
            if (put && args[0].vt == VT_I2) {
                g_seen.iconSizes.push_back(args[0].iVal);
            } else if (put) {
                if (args[0].vt != VT_BSTR) return DISP_E_TYPEMISMATCH;
                g_seen.text = args[0].bstrVal ? args[0].bstrVal : L"";
            } else {
                PutText(result, g_seen.text);
            }
            return S_OK;
        case 2:
            if (put) {
                if (args[0].vt != VT_I2) return DISP_E_TYPEMISMATCH;
                g_seen.size = args[0].iVal;
            } else {
                result->vt = VT_I2;
                result->iVal = g_seen.size;
            }
            return S_OK;
        case 4:
            if (params->cArgs != 1 || args[0].vt != VT_BSTR) return DISP_E_BADPARAMCOUNT;
            g_seen.loaded.push_back(args[0].bstrVal ? args[0].bstrVal : L"");
            PutBool(result, g_seen.loadsAll || g_seen.loaded.back().starts_with(L"good"));
            return S_OK;
        case 10:
            if (put || params->cArgs != 1 || args[0].vt != VT_I2) return DISP_E_TYPEMISMATCH;
            result->vt = VT_I2;
            result->iVal = g_seen.kinds[args[0].iVal];
            return S_OK;
        case 11:
            if (put) {
                if (params->cArgs != 2 || args[0].vt != VT_BOOL || args[1].vt != VT_BSTR) {
                    return DISP_E_TYPEMISMATCH;
                }
                g_seen.states[args[1].bstrVal] = args[0].boolVal != VARIANT_FALSE;
            } else {
                g_seen.asked.push_back(args[0].bstrVal);
                PutBool(result, g_seen.states[args[0].bstrVal]);
            }
            return S_OK;
        case 20:
            info->bstrDescription = SysAllocString(L"The menu is torn.");
            info->scode = E_ABORT;
            return DISP_E_EXCEPTION;
        case 21:
            return E_OUTOFMEMORY;
        case 22:
            if (params->cArgs != 3 || args[2].vt != VT_I4 || args[1].vt != VT_R8) return DISP_E_TYPEMISMATCH;
            if (args[0].vt != (VT_VARIANT | VT_BYREF) || args[0].pvarVal->vt != VT_I4)
                return DISP_E_TYPEMISMATCH;
            result->vt = VT_R8;
            result->dblVal = args[2].lVal + args[1].dblVal + args[0].pvarVal->lVal;
            return S_OK;
        case DISPID_ENABLED:
            g_seen.enabled = args[0].boolVal != VARIANT_FALSE;
            return S_OK;
        default:
            return DISP_E_MEMBERNOTFOUND;
    }
}

class Factory : public IClassFactory {
  public:
    virtual ~Factory() = default;
    STDMETHODIMP QueryInterface(REFIID iid, void** ppv) override {
        const bool known = iid == IID_IUnknown || iid == IID_IClassFactory;
        *ppv = known ? this : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    // One static object: there is nothing to count.
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP CreateInstance(IUnknown*, REFIID iid, void** ppv) override {
        auto* control = new Control;
        const HRESULT hr = control->QueryInterface(iid, ppv);
        control->Release();
        return hr;
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }
};

HRESULT Fire(DISPID dispid, VARIANTARG* args, UINT count) {
    if (!g_control || !g_control->Sink()) return E_UNEXPECTED;
    DISPPARAMS params{args, nullptr, count, 0};
    return g_control->Sink()->Invoke(dispid, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &params, nullptr,
                                     nullptr, nullptr);
}

}  // namespace

Record& Seen() {
    return g_seen;
}

HRESULT FirePicked(short id, const wchar_t* text) {
    VARIANTARG args[2];
    args[1].vt = VT_I2;
    args[1].iVal = id;
    args[0].vt = VT_BSTR;
    args[0].bstrVal = SysAllocString(text);
    const HRESULT hr = Fire(1, args, 2);
    SysFreeString(args[0].bstrVal);
    return hr;
}

HRESULT FirePlain() {
    return Fire(2, nullptr, 0);
}

HRESULT FireFlag(bool flag) {
    VARIANTARG arg;
    arg.vt = VT_BOOL;
    arg.boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
    return Fire(3, &arg, 1);
}

HRESULT FirePickedWithWrongTypes() {
    VARIANTARG args[2];
    args[1].vt = VT_BSTR;
    args[1].bstrVal = SysAllocString(L"not a number");
    args[0].vt = VT_EMPTY;
    const HRESULT hr = Fire(1, args, 2);
    SysFreeString(args[1].bstrVal);
    return hr;
}

HRESULT FirePickedWithTooFew() {
    VARIANTARG arg;
    arg.vt = VT_I2;
    arg.iVal = 1;
    return Fire(1, &arg, 1);
}

Registration::Registration(const CLSID& classId) {
    static Factory factory;
    OleInitialize(nullptr);
    g_seen = Record{};
    CoRegisterClassObject(classId, &factory, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &m_cookie);
}

Registration::~Registration() {
    CoRevokeClassObject(m_cookie);
    OleUninitialize();
}

}  // namespace test_control
