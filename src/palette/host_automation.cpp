#include "palette/host_automation.h"

#include <afxdisp.h>

#include "acadi.h"
#include "controls/acad_error_box.h"
#include "rxmfcapi.h"

namespace {

// Holds one reference of an interface.
template <class Interface>
class CComHolder {
  public:
    CComHolder() = default;
    ~CComHolder() {
        if (m_p) m_p->Release();
    }
    CComHolder(const CComHolder&) = delete;
    CComHolder& operator=(const CComHolder&) = delete;
    Interface* operator->() const { return m_p; }
    explicit operator bool() const { return m_p != nullptr; }

    Interface* m_p = nullptr;
};

class CVariant : public VARIANT {
  public:
    CVariant() { VariantInit(this); }
    explicit CVariant(const std::wstring& strText) : CVariant() {
        vt = VT_BSTR;
        bstrVal = SysAllocString(strText.c_str());
    }
    explicit CVariant(bool bValue) : CVariant() {
        vt = VT_BOOL;
        boolVal = bValue ? VARIANT_TRUE : VARIANT_FALSE;
    }
    explicit CVariant(LONG nValue) : CVariant() {
        vt = VT_I4;
        lVal = nValue;
    }
    ~CVariant() { VariantClear(this); }
    CVariant(const CVariant&) = delete;
    CVariant& operator=(const CVariant&) = delete;
};

// Calls a member by name. `pArguments` are in reverse order, as the interface wants them.
HRESULT Invoke(IDispatch* pObject, const wchar_t* szName, WORD wKind, VARIANT* pArguments, UINT nArguments,
               VARIANT* pResult) {
    DISPID nId = DISPID_UNKNOWN;
    LPOLESTR pszName = const_cast<LPOLESTR>(szName);
    const HRESULT hr = pObject->GetIDsOfNames(IID_NULL, &pszName, 1, LOCALE_USER_DEFAULT, &nId);
    if (FAILED(hr)) return hr;
    DISPPARAMS parameters = {pArguments, nullptr, nArguments, 0};
    return pObject->Invoke(nId, IID_NULL, LOCALE_USER_DEFAULT, wKind, &parameters, pResult, nullptr, nullptr);
}

void ShowAutomationError(const std::wstring& strTitle, const wchar_t* szText) {
    ShowMessageWithAcadError(strTitle, szText, kNoAcadError, L"", L"");
}

// The host's open documents; false after telling the user.
bool GetDocuments(CComHolder<IDispatch>& documents, const std::wstring& strTitle) {
    CComHolder<IDispatch> dispatch;
    dispatch.m_p = acedGetAcadWinApp()->GetIDispatch(TRUE);
    CComHolder<IDispatch> application;
    if (FAILED(dispatch->QueryInterface(IID_IAcadApplication, reinterpret_cast<void**>(&application.m_p)))) {
        ShowAutomationError(strTitle, L"Could not query the AutoCAD application interface.");
        return false;
    }
    CVariant result;
    if (FAILED(Invoke(application.m_p, L"Documents", DISPATCH_PROPERTYGET, nullptr, 0, &result)) ||
        result.vt != VT_DISPATCH || !result.pdispVal) {
        ShowAutomationError(strTitle, L"Could not get the AutoCAD documents.");
        return false;
    }
    documents.m_p = result.pdispVal;
    documents->AddRef();
    return true;
}

}  // namespace

bool OpenReadOnly(const std::wstring& strPath, const std::wstring& strTitle) {
    CComHolder<IDispatch> documents;
    if (!GetDocuments(documents, strTitle)) return false;
    CVariant password(0L), readOnly(true), path(strPath), result;
    VARIANT aArguments[] = {password, readOnly, path};
    Invoke(documents.m_p, L"Open", DISPATCH_METHOD, aArguments, 3, &result);
    return true;
}

void StartDrawingFromTemplate(const std::wstring& strTemplate, const std::wstring& strTitle) {
    CComHolder<IDispatch> documents;
    if (!GetDocuments(documents, strTitle)) return;
    CVariant name(strTemplate), result;
    Invoke(documents.m_p, L"Add", DISPATCH_METHOD, &name, 1, &result);
}
