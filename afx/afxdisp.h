// OLE: failures of calls, event sink maps, the types of calls by dispatch id.
#pragma once

#include <array>
#include <tuple>
#include <utility>

#include "afxwin.h"

// Initialises OLE for the main thread, once; it ends with the process. False if OLE refuses. CreateControl
// does it by itself.
AFX_PORT BOOL AfxOleInit();

class AFX_PORT COleException : public CException {
    DECLARE_DYNAMIC(COleException)

  public:
    explicit COleException(SCODE sc) : m_sc(sc) {}
    SCODE m_sc;
    BOOL GetErrorMessage(LPWSTR lpszError, UINT nMaxError, UINT* pnHelpContext = nullptr) const override;
};

// What the called object itself reported.
class AFX_PORT COleDispatchException : public CException {
    DECLARE_DYNAMIC(COleDispatchException)

  public:
    explicit COleDispatchException(LPCTSTR lpszDescription, SCODE scError)
        : m_strDescription(lpszDescription), m_scError(scError) {}
    CString m_strDescription;
    SCODE m_scError;
    BOOL GetErrorMessage(LPWSTR lpszError, UINT nMaxError, UINT* pnHelpContext = nullptr) const override;
};

[[noreturn]] AFX_PORT void AfxThrowOleException(SCODE sc);
[[noreturn]] AFX_PORT void AfxThrowOleDispatchException(LPCTSTR lpszDescription, SCODE sc);

// Parameters of InvokeHelper, one character each: string literals that are put side by side, cast to
// `const BYTE*` or kept in a `static BYTE params[]`. A BSTR parameter is passed as LPCTSTR, a BOOL one as
// BOOL, a VARIANT one as const VARIANT*.
#define VTS_NONE nullptr
#define VTS_I2 "\x02"
#define VTS_I4 "\x03"
#define VTS_R8 "\x05"
#define VTS_COLOR VTS_UI4
#define VTS_BOOL "\x0B"
#define VTS_VARIANT "\x0C"
#define VTS_UNKNOWN "\x0D"
#define VTS_BSTR "\x08"
#define VTS_DISPATCH "\x09"
#define VTS_UI4 "\x13"

// Event sink maps. The handler's own types tell how the event's arguments are converted: short, int, long,
// unsigned long, double, LPCTSTR (BSTR), BOOL, LPDISPATCH; the VTS list is for the reader. An
// event whose arguments cannot be converted fails with DISP_E_TYPEMISMATCH, and the handler is not called.
#define BEGIN_EVENTSINK_MAP(theClass, baseClass)                \
    const AFX_EVENTSINKMAP* theClass::GetEventSinkMap() const { \
        return GetThisEventSinkMap();                           \
    }                                                           \
    const AFX_EVENTSINKMAP* theClass::GetThisEventSinkMap() {   \
        using TheBaseClass = baseClass;                         \
        static const AFX_EVENTSINKMAP_ENTRY eventSinkEntries[] = {
#define ON_EVENT(theClass, id, dispid, pfnHandler, vtsParams) {id, dispid, &AfxEvent::Call<pfnHandler>},
#define END_EVENTSINK_MAP()                                                                              \
    { 0, 0, nullptr }                                                                                    \
    }                                                                                                    \
    ;                                                                                                    \
    static const AFX_EVENTSINKMAP eventSinkMap = {&TheBaseClass::GetThisEventSinkMap, eventSinkEntries}; \
    return &eventSinkMap;                                                                                \
    }

namespace AfxEvent {
// One argument, converted and kept alive for the length of the call.
class AFX_PORT Argument {
  public:
    Argument() { ::VariantInit(&m_value); }
    ~Argument() { ::VariantClear(&m_value); }
    Argument(const Argument&) = delete;
    Argument& operator=(const Argument&) = delete;
    HRESULT Take(const VARIANT& source, VARTYPE vt);

    void Get(short& value) const { value = m_value.iVal; }
    void Get(int& value) const { value = m_value.lVal; }
    void Get(long& value) const { value = m_value.lVal; }
    void Get(unsigned long& value) const { value = m_value.ulVal; }
    void Get(double& value) const { value = m_value.dblVal; }
    void Get(LPCTSTR& value) const { value = m_value.bstrVal ? m_value.bstrVal : L""; }
    void Get(LPDISPATCH& value) const { value = m_value.pdispVal; }

  private:
    VARIANT m_value;
};

template <class T>
constexpr VARTYPE kType = VT_EMPTY;
template <>
inline constexpr VARTYPE kType<short> = VT_I2;
template <>
inline constexpr VARTYPE kType<int> = VT_I4;  // BOOL too: VARIANT_TRUE arrives as -1
template <>
inline constexpr VARTYPE kType<long> = VT_I4;
template <>
inline constexpr VARTYPE kType<unsigned long> = VT_UI4;
template <>
inline constexpr VARTYPE kType<double> = VT_R8;
template <>
inline constexpr VARTYPE kType<LPCTSTR> = VT_BSTR;
template <>
inline constexpr VARTYPE kType<LPDISPATCH> = VT_DISPATCH;

template <auto Handler>
struct Caller;
template <class C, class R, class... Args, R (C::*Handler)(Args...)>
struct Caller<Handler> {
    static HRESULT Call(CCmdTarget* pTarget, const DISPPARAMS* pArgs) {
        return Run(pTarget, pArgs, std::index_sequence_for<Args...>());
    }

  private:
    template <size_t... I>
    static HRESULT Run(CCmdTarget* pTarget, const DISPPARAMS* pArgs, std::index_sequence<I...>) {
        constexpr size_t kCount = sizeof...(Args);
        if (pArgs->cArgs != kCount) return DISP_E_BADPARAMCOUNT;
        [[maybe_unused]] std::array<Argument, kCount> given;
        HRESULT hr = S_OK;
        ((hr = FAILED(hr) ? hr : given[I].Take(pArgs->rgvarg[kCount - 1 - I], kType<Args>)), ...);
        if (FAILED(hr)) return hr;
        std::tuple<Args...> values{};
        (given[I].Get(std::get<I>(values)), ...);
        (static_cast<C*>(pTarget)->*Handler)(std::get<I>(values)...);
        return S_OK;
    }
};

template <auto Handler>
HRESULT Call(CCmdTarget* pTarget, const DISPPARAMS* pArgs) {
    return Caller<Handler>::Call(pTarget, pArgs);
}
}  // namespace AfxEvent
