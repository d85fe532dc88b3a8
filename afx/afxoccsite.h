// The COM objects that an OLE control sees of its container. Internal to the framework.
#pragma once

#include "afxocc.h"

// The interfaces of COM have no virtual destructor, whose slot would change their layout; the objects are
// only deleted by their own Release.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// Counts references for a COM object made of several interfaces. A new object has one.
template <class... Interfaces>
class AfxComObject : public Interfaces... {
  public:
    virtual ~AfxComObject() = default;
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_nRefs; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG nRefs = --m_nRefs;
        if (nRefs == 0) delete this;
        return nRefs;
    }

  private:
    ULONG m_nRefs = 1;
};

// The client site, the in-place site and frame, and the ambient properties.
class CControlClientSite : public AfxComObject<IOleClientSite, IOleInPlaceSite, IOleInPlaceFrame, IDispatch> {
  public:
    explicit CControlClientSite(HWND hWndParent) : m_hWndParent(hWndParent) {}
    void SetRect(const RECT& rect) { m_rect = rect; }

    STDMETHODIMP QueryInterface(REFIID iid, void** ppv) override;
    STDMETHODIMP_(ULONG) AddRef() override { return AfxComObject::AddRef(); }
    STDMETHODIMP_(ULONG) Release() override { return AfxComObject::Release(); }

    // IOleClientSite
    STDMETHODIMP SaveObject() override { return E_NOTIMPL; }
    STDMETHODIMP GetMoniker(DWORD, DWORD, IMoniker** ppMoniker) override;
    STDMETHODIMP GetContainer(IOleContainer** ppContainer) override;
    STDMETHODIMP ShowObject() override { return S_OK; }
    STDMETHODIMP OnShowWindow(BOOL) override { return S_OK; }
    STDMETHODIMP RequestNewObjectLayout() override { return E_NOTIMPL; }

    // IOleWindow, of the site and of the frame
    STDMETHODIMP GetWindow(HWND* phWnd) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }

    // IOleInPlaceSite
    STDMETHODIMP CanInPlaceActivate() override { return S_OK; }
    STDMETHODIMP OnInPlaceActivate() override { return S_OK; }
    STDMETHODIMP OnUIActivate() override { return S_OK; }
    STDMETHODIMP GetWindowContext(IOleInPlaceFrame** ppFrame, IOleInPlaceUIWindow** ppDoc, LPRECT lprcPosRect,
                                  LPRECT lprcClipRect, LPOLEINPLACEFRAMEINFO lpFrameInfo) override;
    STDMETHODIMP Scroll(SIZE) override { return E_NOTIMPL; }
    STDMETHODIMP OnUIDeactivate(BOOL) override { return S_OK; }
    STDMETHODIMP OnInPlaceDeactivate() override { return S_OK; }
    STDMETHODIMP DiscardUndoState() override { return E_NOTIMPL; }
    STDMETHODIMP DeactivateAndUndo() override { return E_NOTIMPL; }
    STDMETHODIMP OnPosRectChange(LPCRECT) override { return S_OK; }

    // IOleInPlaceFrame: there are no borders and menus to share
    STDMETHODIMP GetBorder(LPRECT) override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP RequestBorderSpace(LPCBORDERWIDTHS) override { return INPLACE_E_NOTOOLSPACE; }
    STDMETHODIMP SetBorderSpace(LPCBORDERWIDTHS) override { return S_OK; }
    STDMETHODIMP SetActiveObject(IOleInPlaceActiveObject*, LPCOLESTR) override { return S_OK; }
    STDMETHODIMP InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) override { return E_NOTIMPL; }
    STDMETHODIMP SetMenu(HMENU, HOLEMENU, HWND) override { return S_OK; }
    STDMETHODIMP RemoveMenus(HMENU) override { return E_NOTIMPL; }
    STDMETHODIMP SetStatusText(LPCOLESTR) override { return S_OK; }
    STDMETHODIMP EnableModeless(BOOL) override { return S_OK; }
    STDMETHODIMP TranslateAccelerator(LPMSG, WORD) override { return S_FALSE; }

    // IDispatch: the ambient properties
    STDMETHODIMP GetTypeInfoCount(UINT* pctinfo) override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID dispid, REFIID, LCID, WORD wFlags, DISPPARAMS*, VARIANT* pResult, EXCEPINFO*,
                        UINT*) override;

  private:
    HWND m_hWndParent;
    RECT m_rect{};
};

// Receives the control's events and hands them to the event sink map of the parent window.
class CControlEventSink : public AfxComObject<IDispatch> {
  public:
    CControlEventSink(HWND hWndParent, UINT nID, REFIID iidEvents)
        : m_hWndParent(hWndParent), m_nID(nID), m_iidEvents(iidEvents) {}

    STDMETHODIMP QueryInterface(REFIID iid, void** ppv) override;
    STDMETHODIMP GetTypeInfoCount(UINT* pctinfo) override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    STDMETHODIMP Invoke(DISPID dispid, REFIID, LCID, WORD, DISPPARAMS* pParams, VARIANT*, EXCEPINFO*,
                        UINT*) override;

  private:
    HWND m_hWndParent;
    UINT m_nID;
    IID m_iidEvents;
};

#pragma GCC diagnostic pop
