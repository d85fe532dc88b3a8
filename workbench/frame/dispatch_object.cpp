#include "frame/dispatch_object.h"

#include <windows.h>

#include "frame/hostile_host.h"

namespace frame {

namespace {

// A converted copy of an argument.
class Converted {
  public:
    Converted(const VARIANTARG& source, VARTYPE type) {
        VariantInit(&m_value);
        m_succeeded = SUCCEEDED(VariantChangeType(&m_value, const_cast<VARIANTARG*>(&source), 0, type));
    }
    ~Converted() { VariantClear(&m_value); }
    Converted(const Converted&) = delete;
    Converted& operator=(const Converted&) = delete;
    bool Succeeded() const { return m_succeeded; }
    const VARIANT& Value() const { return m_value; }

  private:
    VARIANT m_value;
    bool m_succeeded;
};

HRESULT FailWith(const std::wstring& error, EXCEPINFO* exception) {
    if (exception != nullptr) {
        *exception = EXCEPINFO{};
        exception->scode = E_FAIL;
        exception->bstrSource = SysAllocString(L"Workbench");
        exception->bstrDescription = SysAllocString(error.c_str());
    }
    return DISP_E_EXCEPTION;
}

}  // namespace

CallArguments::CallArguments(const DISPPARAMS& parameters) {
    for (UINT i = parameters.cArgs; i > 0; --i)
        m_arguments.push_back(&parameters.rgvarg[i - 1]);
}

const VARIANTARG* CallArguments::At(std::size_t index) const {
    if (index >= m_arguments.size()) return nullptr;
    const VARIANTARG* argument = m_arguments[index];
    const bool leftOut =
        argument->vt == VT_EMPTY || (argument->vt == VT_ERROR && argument->scode == DISP_E_PARAMNOTFOUND);
    return leftOut ? nullptr : argument;
}

std::wstring CallArguments::Text(std::size_t index) const {
    const VARIANTARG* argument = At(index);
    if (argument == nullptr) return {};
    const Converted text(*argument, VT_BSTR);
    if (!text.Succeeded() || text.Value().bstrVal == nullptr) return {};
    return std::wstring(text.Value().bstrVal, SysStringLen(text.Value().bstrVal));
}

bool CallArguments::Flag(std::size_t index, bool otherwise) const {
    const VARIANTARG* argument = At(index);
    if (argument == nullptr) return otherwise;
    const Converted flag(*argument, VT_BOOL);
    return flag.Succeeded() ? flag.Value().boolVal != VARIANT_FALSE : otherwise;
}

bool CallArguments::IsNumber(std::size_t index) const {
    const VARIANTARG* argument = At(index);
    return argument != nullptr && (argument->vt & ~VT_BYREF) != VT_BSTR;
}

long CallArguments::Number(std::size_t index, long otherwise) const {
    const VARIANTARG* argument = At(index);
    if (argument == nullptr) return otherwise;
    const Converted number(*argument, VT_I4);
    return number.Succeeded() ? number.Value().lVal : otherwise;
}

HRESULT DispatchObject::QueryInterface(REFIID iid, void** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (HostileHost::Fails("IUnknown::QueryInterface", __builtin_return_address(0))) return E_NOINTERFACE;
    if (iid != IID_IUnknown && iid != IID_IDispatch && !Offers(iid)) return E_NOINTERFACE;
    *object = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
}

ULONG DispatchObject::AddRef() {
    return ++m_references;
}

ULONG DispatchObject::Release() {
    const ULONG left = --m_references;
    if (left == 0) delete this;
    return left;
}

HRESULT DispatchObject::GetTypeInfoCount(UINT* count) {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT DispatchObject::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
    if (info != nullptr) *info = nullptr;
    return DISP_E_BADINDEX;
}

HRESULT DispatchObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    if (HostileHost::Fails("IDispatch::GetIDsOfNames", __builtin_return_address(0)))
        return DISP_E_UNKNOWNNAME;
    if (names == nullptr || ids == nullptr || count == 0) return E_POINTER;
    for (UINT i = 0; i < count; ++i)
        ids[i] = DISPID_UNKNOWN;
    for (std::size_t i = 0; i < m_members.size(); ++i) {
        if (_wcsicmp(m_members[i].name, names[0]) == 0) ids[0] = static_cast<DISPID>(i) + 1;
    }
    // The names of arguments are not known here.
    return ids[0] == DISPID_UNKNOWN || count > 1 ? DISP_E_UNKNOWNNAME : S_OK;
}

HRESULT DispatchObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                               EXCEPINFO* exception, UINT*) {
    if (HostileHost::Fails("IDispatch::Invoke", __builtin_return_address(0)))
        return FailWith(L"The host refuses.", exception);
    if (parameters == nullptr) return E_POINTER;
    if (id < 1 || id > static_cast<DISPID>(m_members.size())) return DISP_E_MEMBERNOTFOUND;
    if ((m_members[static_cast<std::size_t>(id) - 1].kinds & flags) == 0) return DISP_E_MEMBERNOTFOUND;
    if (parameters->cNamedArgs != 0 && (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) == 0)
        return DISP_E_NONAMEDARGS;
    VARIANT answer;
    VariantInit(&answer);
    std::wstring error;
    const HRESULT called = Call(id, CallArguments(*parameters), answer, error);
    if (result != nullptr && SUCCEEDED(called) && error.empty()) {
        *result = answer;
    } else {
        VariantClear(&answer);
    }
    return error.empty() ? called : FailWith(error, exception);
}

void SetText(VARIANT& result, const std::wstring& text) {
    result.vt = VT_BSTR;
    result.bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
}

void SetFlag(VARIANT& result, bool flag) {
    result.vt = VT_BOOL;
    result.boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
}

void SetNumber(VARIANT& result, long number) {
    result.vt = VT_I4;
    result.lVal = number;
}

void SetObject(VARIANT& result, IDispatch* object) {
    result.vt = VT_DISPATCH;
    result.pdispVal = object;
}

}  // namespace frame
