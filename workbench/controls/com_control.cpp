#include "controls/com_control.h"

#include <algorithm>

#include "controls/server.h"

namespace controls {

LONG g_liveObjects = 0;

ComControl::ComControl(REFCLSID classId, REFIID dispatchId, REFIID eventsId)
    : m_classId(classId), m_dispatchId(dispatchId), m_eventsId(eventsId), m_events(*this, eventsId) {
    InterlockedIncrement(&g_liveObjects);
}

ComControl::~ComControl() {
    DestroyControlWindow();
    if (m_site) m_site->Release();
    InterlockedDecrement(&g_liveObjects);
}

STDMETHODIMP ComControl::QueryInterface(REFIID id, void** object) {
    if (!object) return E_POINTER;
    if (id == IID_IUnknown || id == IID_IOleObject)
        *object = static_cast<IOleObject*>(this);
    else if (id == IID_IDispatch || id == m_dispatchId)
        *object = static_cast<IDispatch*>(this);
    else if (id == IID_IOleControl)
        *object = static_cast<IOleControl*>(this);
    else if (id == IID_IOleInPlaceObject || id == IID_IOleWindow)
        *object = static_cast<IOleInPlaceObject*>(this);
    else if (id == IID_IOleInPlaceActiveObject)
        *object = static_cast<IOleInPlaceActiveObject*>(this);
    else if (id == IID_IPersistStreamInit || id == IID_IPersist)
        *object = static_cast<IPersistStreamInit*>(this);
    else if (id == IID_IConnectionPointContainer)
        *object = static_cast<IConnectionPointContainer*>(this);
    else if (id == IID_IProvideClassInfo || id == IID_IProvideClassInfo2)
        *object = static_cast<IProvideClassInfo2*>(this);
    else
        return *object = nullptr, E_NOINTERFACE;
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) ComControl::AddRef() {
    return InterlockedIncrement(&m_references);
}

STDMETHODIMP_(ULONG) ComControl::Release() {
    const LONG left = InterlockedDecrement(&m_references);
    if (left == 0) delete this;
    return left;
}

STDMETHODIMP ComControl::SetClientSite(IOleClientSite* site) {
    if (site) site->AddRef();
    if (m_site) m_site->Release();
    m_site = site;
    return S_OK;
}

STDMETHODIMP ComControl::GetClientSite(IOleClientSite** site) {
    if (!site) return E_POINTER;
    *site = m_site;
    if (m_site) m_site->AddRef();
    return S_OK;
}

STDMETHODIMP ComControl::Close(DWORD) {
    return InPlaceDeactivate();
}

STDMETHODIMP ComControl::DoVerb(LONG verb, LPMSG, IOleClientSite* site, LONG, HWND, LPCRECT position) {
    switch (verb) {
        case OLEIVERB_PRIMARY:
        case OLEIVERB_SHOW:
        case OLEIVERB_INPLACEACTIVATE:
        case OLEIVERB_UIACTIVATE:
            return Activate(site ? site : m_site, position);
        case OLEIVERB_HIDE:
            if (m_window) ShowWindow(m_window, SW_HIDE);
            return S_OK;
        default:
            return verb > 0 ? OLEOBJ_S_INVALIDVERB : E_NOTIMPL;
    }
}

HRESULT ComControl::Activate(IOleClientSite* site, LPCRECT position) {
    if (!site) return E_UNEXPECTED;
    if (m_window) {
        ShowWindow(m_window, SW_SHOW);
        return S_OK;
    }
    IOleInPlaceSite* place = nullptr;
    HRESULT hr = site->QueryInterface(IID_IOleInPlaceSite, reinterpret_cast<void**>(&place));
    if (FAILED(hr)) return hr;
    HWND parent = nullptr;
    hr = place->CanInPlaceActivate() == S_OK ? place->OnInPlaceActivate() : E_FAIL;
    if (SUCCEEDED(hr)) hr = place->GetWindow(&parent);
    RECT rect = {}, clip = {};
    OLEINPLACEFRAMEINFO frameInfo = {};
    frameInfo.cb = sizeof frameInfo;
    IOleInPlaceFrame* frame = nullptr;
    IOleInPlaceUIWindow* document = nullptr;
    if (SUCCEEDED(hr)) hr = place->GetWindowContext(&frame, &document, &rect, &clip, &frameInfo);
    if (frame) frame->Release();
    if (document) document->Release();
    if (SUCCEEDED(hr)) {
        m_window = CreateControlWindow(parent, position ? *position : rect);
        hr = m_window ? site->ShowObject() : E_FAIL;
    }
    place->Release();
    return hr;
}

void ComControl::DestroyControlWindow() {
    const HWND window = m_window;
    m_window = nullptr;
    if (window) DestroyWindow(window);
}

STDMETHODIMP ComControl::GetUserClassID(CLSID* id) {
    if (!id) return E_POINTER;
    *id = m_classId;
    return S_OK;
}

STDMETHODIMP ComControl::SetExtent(DWORD aspect, SIZEL* size) {
    if (aspect != DVASPECT_CONTENT) return E_FAIL;
    if (!size) return E_POINTER;
    m_extent = *size;
    return S_OK;
}

STDMETHODIMP ComControl::GetExtent(DWORD aspect, SIZEL* size) {
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    if (!size) return E_POINTER;
    *size = m_extent;
    return S_OK;
}

STDMETHODIMP ComControl::GetMiscStatus(DWORD aspect, DWORD* status) {
    if (!status) return E_POINTER;
    *status = 0;
    if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
    *status = OLEMISC_RECOMPOSEONRESIZE | OLEMISC_CANTLINKINSIDE | OLEMISC_INSIDEOUT |
              OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_SETCLIENTSITEFIRST;
    return S_OK;
}

STDMETHODIMP ComControl::GetControlInfo(CONTROLINFO* info) {
    if (!info) return E_POINTER;
    info->hAccel = nullptr;
    info->cAccel = 0;
    info->dwFlags = 0;
    return S_OK;
}

STDMETHODIMP ComControl::GetWindow(HWND* window) {
    if (!window) return E_POINTER;
    *window = m_window;
    return m_window ? S_OK : E_FAIL;
}

STDMETHODIMP ComControl::InPlaceDeactivate() {
    if (!m_window) return S_OK;
    DestroyControlWindow();
    IOleInPlaceSite* place = nullptr;
    if (m_site && SUCCEEDED(m_site->QueryInterface(IID_IOleInPlaceSite, reinterpret_cast<void**>(&place)))) {
        place->OnInPlaceDeactivate();
        place->Release();
    }
    return S_OK;
}

STDMETHODIMP ComControl::UIDeactivate() {
    return S_OK;
}

STDMETHODIMP ComControl::SetObjectRects(LPCRECT position, LPCRECT) {
    if (!position) return E_POINTER;
    if (m_window)
        MoveWindow(m_window, position->left, position->top, position->right - position->left,
                   position->bottom - position->top, TRUE);
    return S_OK;
}

STDMETHODIMP ComControl::GetSizeMax(ULARGE_INTEGER* size) {
    if (!size) return E_POINTER;
    size->QuadPart = 0;
    return S_OK;
}

HRESULT ComControl::LoadInfo(REFGUID id, ITypeInfo** info) const {
    if (!info) return E_POINTER;
    *info = nullptr;
    ITypeLib* library = nullptr;
    HRESULT hr = LoadTypeLibEx(GetServerPath().c_str(), REGKIND_NONE, &library);
    if (FAILED(hr)) return hr;
    hr = library->GetTypeInfoOfGuid(id, info);
    library->Release();
    return hr;
}

STDMETHODIMP ComControl::GetTypeInfoCount(UINT* count) {
    if (!count) return E_POINTER;
    *count = 1;
    return S_OK;
}

STDMETHODIMP ComControl::GetTypeInfo(UINT index, LCID, ITypeInfo** info) {
    return index == 0 ? LoadInfo(m_dispatchId, info) : DISP_E_BADINDEX;
}

STDMETHODIMP ComControl::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    ITypeInfo* info = nullptr;
    HRESULT hr = LoadInfo(m_dispatchId, &info);
    if (FAILED(hr)) return hr;
    hr = info->GetIDsOfNames(names, count, ids);
    info->Release();
    return hr;
}

STDMETHODIMP ComControl::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                                EXCEPINFO*, UINT*) {
    if (!parameters) return E_POINTER;
    std::vector<VARIANT*> arguments(parameters->cArgs);
    for (UINT i = 0; i < parameters->cArgs; ++i)
        arguments[i] = &parameters->rgvarg[parameters->cArgs - 1 - i];
    VARIANT unused;
    VariantInit(&unused);
    if (result) VariantInit(result);
    const HRESULT hr = InvokeMember(id, flags, arguments, result ? result : &unused);
    VariantClear(&unused);
    return hr;
}

STDMETHODIMP ComControl::FindConnectionPoint(REFIID id, IConnectionPoint** point) {
    if (!point) return E_POINTER;
    *point = nullptr;
    if (id != m_eventsId || m_eventsId == IID_NULL) return CONNECT_E_NOCONNECTION;
    *point = &m_events;
    AddRef();
    return S_OK;
}

ComControl::EventPoint::~EventPoint() {
    for (const Sink& sink : m_sinks)
        sink.dispatch->Release();
}

STDMETHODIMP ComControl::EventPoint::QueryInterface(REFIID id, void** object) {
    if (!object) return E_POINTER;
    if (id != IID_IUnknown && id != IID_IConnectionPoint) return *object = nullptr, E_NOINTERFACE;
    *object = this;
    AddRef();
    return S_OK;
}

STDMETHODIMP ComControl::EventPoint::GetConnectionInterface(IID* id) {
    if (!id) return E_POINTER;
    *id = m_eventsId;
    return S_OK;
}

STDMETHODIMP ComControl::EventPoint::GetConnectionPointContainer(IConnectionPointContainer** container) {
    if (!container) return E_POINTER;
    *container = &m_control;
    AddRef();
    return S_OK;
}

STDMETHODIMP ComControl::EventPoint::Advise(IUnknown* sink, DWORD* cookie) {
    if (!sink || !cookie) return E_POINTER;
    *cookie = 0;
    IDispatch* dispatch = nullptr;
    if (FAILED(sink->QueryInterface(m_eventsId, reinterpret_cast<void**>(&dispatch))) &&
        FAILED(sink->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&dispatch))))
        return CONNECT_E_CANNOTCONNECT;
    m_sinks.push_back({++m_lastCookie, dispatch});
    *cookie = m_lastCookie;
    return S_OK;
}

STDMETHODIMP ComControl::EventPoint::Unadvise(DWORD cookie) {
    const auto it = std::find_if(m_sinks.begin(), m_sinks.end(),
                                 [cookie](const Sink& sink) { return sink.cookie == cookie; });
    if (it == m_sinks.end()) return CONNECT_E_NOCONNECTION;
    it->dispatch->Release();
    m_sinks.erase(it);
    return S_OK;
}

STDMETHODIMP ComControl::GetClassInfo(ITypeInfo** info) {
    return LoadInfo(m_classId, info);
}

STDMETHODIMP ComControl::GetGUID(DWORD kind, GUID* id) {
    if (!id) return E_POINTER;
    *id = m_eventsId;
    return kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID && m_eventsId != IID_NULL ? S_OK : E_INVALIDARG;
}

void ComControl::EventPoint::Fire(DISPID id, std::vector<VARIANT>& arguments) {
    const std::vector<Sink> sinks = m_sinks;
    for (const Sink& sink : sinks)
        sink.dispatch->AddRef();
    for (const Sink& sink : sinks) {
        DISPPARAMS parameters = {arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
        sink.dispatch->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr,
                              nullptr, nullptr);
        sink.dispatch->Release();
    }
}

void ComControl::FireEvent(DISPID id, std::vector<VARIANT> arguments) {
    std::reverse(arguments.begin(), arguments.end());
    // A sink may let go of its connection, and of the control, while it hears the event.
    AddRef();
    m_events.Fire(id, arguments);
    for (VARIANT& argument : arguments)
        VariantClear(&argument);
    Release();
}

namespace {

// The argument in another type; the holder frees it.
class Converted {
  public:
    Converted(const VARIANT* argument, VARTYPE type) {
        VariantInit(&m_value);
        m_result = argument ? VariantChangeType(&m_value, const_cast<VARIANT*>(argument), 0, type)
                            : DISP_E_PARAMNOTFOUND;
    }
    ~Converted() { VariantClear(&m_value); }
    Converted(const Converted&) = delete;
    Converted& operator=(const Converted&) = delete;
    HRESULT Result() const { return FAILED(m_result) ? DISP_E_TYPEMISMATCH : S_OK; }
    const VARIANT& Value() const { return m_value; }

  private:
    VARIANT m_value;
    HRESULT m_result;
};

}  // namespace

HRESULT ToText(const VARIANT* argument, std::wstring& text) {
    const Converted converted(argument, VT_BSTR);
    if (converted.Result() != S_OK) return converted.Result();
    text.assign(converted.Value().bstrVal ? converted.Value().bstrVal : L"",
                SysStringLen(converted.Value().bstrVal));
    return S_OK;
}

HRESULT ToShort(const VARIANT* argument, short& number) {
    const Converted converted(argument, VT_I2);
    if (converted.Result() == S_OK) number = converted.Value().iVal;
    return converted.Result();
}

HRESULT ToLong(const VARIANT* argument, LONG& number) {
    // Colours arrive as unsigned numbers whose highest bit may be set.
    if (argument && argument->vt == VT_UI4) return number = static_cast<LONG>(argument->ulVal), S_OK;
    const Converted converted(argument, VT_I4);
    if (converted.Result() == S_OK) number = converted.Value().lVal;
    return converted.Result();
}

HRESULT ToBool(const VARIANT* argument, bool& value) {
    const Converted converted(argument, VT_BOOL);
    if (converted.Result() == S_OK) value = converted.Value().boolVal != VARIANT_FALSE;
    return converted.Result();
}

void SetResult(VARIANT* result, bool value) {
    result->vt = VT_BOOL;
    result->boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
}

void SetResult(VARIANT* result, short value) {
    result->vt = VT_I2;
    result->iVal = value;
}

void SetResult(VARIANT* result, LONG value) {
    result->vt = VT_I4;
    result->lVal = value;
}

void SetResult(VARIANT* result, const std::wstring& text) {
    result->vt = VT_BSTR;
    result->bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
}

}  // namespace controls
