// What an ActiveX control is to its container, for controls that are one child window: creation in place,
// size, dispatch, one outgoing interface. A control derives from it and supplies its window and its members.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <olectl.h>

#include <string>
#include <vector>

namespace controls {

// Objects and locks that keep the library loaded.
extern LONG g_liveObjects;

class ComControl : public IOleObject,
                   public IOleControl,
                   public IOleInPlaceObject,
                   public IOleInPlaceActiveObject,
                   public IPersistStreamInit,
                   public IDispatch,
                   public IConnectionPointContainer,
                   public IProvideClassInfo2 {
  public:
    // `eventsId` is the outgoing interface, IID_NULL for a control without events. `typeInfo` may be null.
    ComControl(REFCLSID classId, REFIID dispatchId, REFIID eventsId);
    ComControl(const ComControl&) = delete;
    ComControl& operator=(const ComControl&) = delete;

    // IUnknown
    STDMETHODIMP QueryInterface(REFIID id, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;

    // IOleObject
    STDMETHODIMP SetClientSite(IOleClientSite* site) override;
    STDMETHODIMP GetClientSite(IOleClientSite** site) override;
    STDMETHODIMP SetHostNames(LPCOLESTR, LPCOLESTR) override { return S_OK; }
    STDMETHODIMP Close(DWORD saveOption) override;
    STDMETHODIMP SetMoniker(DWORD, IMoniker*) override { return E_NOTIMPL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
    STDMETHODIMP InitFromData(IDataObject*, BOOL, DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP GetClipboardData(DWORD, IDataObject**) override { return E_NOTIMPL; }
    STDMETHODIMP DoVerb(LONG verb, LPMSG message, IOleClientSite* site, LONG index, HWND parent,
                        LPCRECT position) override;
    STDMETHODIMP EnumVerbs(IEnumOLEVERB**) override { return E_NOTIMPL; }
    STDMETHODIMP Update() override { return S_OK; }
    STDMETHODIMP IsUpToDate() override { return S_OK; }
    STDMETHODIMP GetUserClassID(CLSID* id) override;
    STDMETHODIMP GetUserType(DWORD, LPOLESTR*) override { return E_NOTIMPL; }
    STDMETHODIMP SetExtent(DWORD aspect, SIZEL* size) override;
    STDMETHODIMP GetExtent(DWORD aspect, SIZEL* size) override;
    STDMETHODIMP Advise(IAdviseSink*, DWORD*) override { return OLE_E_ADVISENOTSUPPORTED; }
    STDMETHODIMP Unadvise(DWORD) override { return OLE_E_ADVISENOTSUPPORTED; }
    STDMETHODIMP EnumAdvise(IEnumSTATDATA**) override { return E_NOTIMPL; }
    STDMETHODIMP GetMiscStatus(DWORD aspect, DWORD* status) override;
    STDMETHODIMP SetColorScheme(LOGPALETTE*) override { return S_OK; }

    // IOleControl
    STDMETHODIMP GetControlInfo(CONTROLINFO* info) override;
    STDMETHODIMP OnMnemonic(MSG*) override { return S_OK; }
    STDMETHODIMP OnAmbientPropertyChange(DISPID) override { return S_OK; }
    STDMETHODIMP FreezeEvents(BOOL) override { return S_OK; }

    // IOleWindow, IOleInPlaceObject, IOleInPlaceActiveObject
    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP InPlaceDeactivate() override;
    STDMETHODIMP UIDeactivate() override;
    STDMETHODIMP SetObjectRects(LPCRECT position, LPCRECT clip) override;
    STDMETHODIMP ReactivateAndUndo() override { return E_NOTIMPL; }
    STDMETHODIMP TranslateAccelerator(LPMSG) override { return S_FALSE; }
    STDMETHODIMP OnFrameWindowActivate(BOOL) override { return S_OK; }
    STDMETHODIMP OnDocWindowActivate(BOOL) override { return S_OK; }
    STDMETHODIMP ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }

    // IPersist, IPersistStreamInit: nothing is kept.
    STDMETHODIMP GetClassID(CLSID* id) override { return GetUserClassID(id); }
    STDMETHODIMP IsDirty() override { return S_FALSE; }
    STDMETHODIMP Load(IStream*) override { return S_OK; }
    STDMETHODIMP Save(IStream*, BOOL) override { return S_OK; }
    STDMETHODIMP GetSizeMax(ULARGE_INTEGER* size) override;
    STDMETHODIMP InitNew() override { return S_OK; }

    // IDispatch: called by number; the numbers stand in the type library.
    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO*, UINT* wrongArgument) override;

    // IConnectionPointContainer
    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints**) override { return E_NOTIMPL; }
    STDMETHODIMP FindConnectionPoint(REFIID id, IConnectionPoint** point) override;

    // IProvideClassInfo2
    STDMETHODIMP GetClassInfo(ITypeInfo** info) override;
    STDMETHODIMP GetGUID(DWORD kind, GUID* id) override;

  protected:
    virtual ~ComControl();

    // The control's window in `parent`; null on failure.
    virtual HWND CreateControlWindow(HWND parent, const RECT& position) = 0;
    // A member by its number. `arguments` are in the order of the call. DISP_E_MEMBERNOTFOUND for others.
    virtual HRESULT InvokeMember(DISPID id, WORD flags, const std::vector<VARIANT*>& arguments,
                                 VARIANT* result) = 0;

    // Calls a member of the outgoing interface on every sink; `arguments` are in the order of the call.
    void FireEvent(DISPID id, std::vector<VARIANT> arguments);

    HWND m_window = nullptr;

  private:
    // The outgoing interface's sinks. Lives and dies with the control.
    class EventPoint final : public IConnectionPoint {
      public:
        EventPoint(ComControl& control, REFIID eventsId) : m_control(control), m_eventsId(eventsId) {}
        ~EventPoint();
        EventPoint(const EventPoint&) = delete;
        EventPoint& operator=(const EventPoint&) = delete;

        STDMETHODIMP QueryInterface(REFIID id, void** object) override;
        STDMETHODIMP_(ULONG) AddRef() override { return m_control.AddRef(); }
        STDMETHODIMP_(ULONG) Release() override { return m_control.Release(); }
        STDMETHODIMP GetConnectionInterface(IID* id) override;
        STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override;
        STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override;
        STDMETHODIMP Unadvise(DWORD cookie) override;
        STDMETHODIMP EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }

        // Calls a member of every sink.
        void Fire(DISPID id, std::vector<VARIANT>& arguments);

      private:
        struct Sink {
            DWORD cookie;
            IDispatch* dispatch;
        };
        ComControl& m_control;
        IID m_eventsId;
        std::vector<Sink> m_sinks;
        DWORD m_lastCookie = 0;
    };

    HRESULT Activate(IOleClientSite* site, LPCRECT position);
    void DestroyControlWindow();
    HRESULT LoadInfo(REFGUID id, ITypeInfo** info) const;

    LONG m_references = 1;
    CLSID m_classId;
    IID m_dispatchId;
    IID m_eventsId;
    IOleClientSite* m_site = nullptr;
    SIZEL m_extent = {2540, 2540};  // units of 0.01 millimetre
    EventPoint m_events;
};

// Arguments as a member wants them: E_INVALIDARG converts to the error of a wrong argument.
HRESULT ToText(const VARIANT* argument, std::wstring& text);
HRESULT ToShort(const VARIANT* argument, short& number);
HRESULT ToLong(const VARIANT* argument, LONG& number);
HRESULT ToBool(const VARIANT* argument, bool& value);

// Results.
void SetResult(VARIANT* result, bool value);
void SetResult(VARIANT* result, short value);
void SetResult(VARIANT* result, LONG value);
void SetResult(VARIANT* result, const std::wstring& text);

}  // namespace controls
