#include "afxdisp.h"

IMPLEMENT_DYNAMIC(COleException, CException)
IMPLEMENT_DYNAMIC(COleDispatchException, CException)

namespace {

CString TextOfCode(SCODE sc) {
    CString strText;
    strText.Format(L"An object of another program or library failed (code 0x%08X).",
                   static_cast<unsigned>(sc));
    return strText;
}

}  // namespace

BOOL AfxOleInit() {
    // Never ended: the program's last windows may still hold objects when its static objects go.
    static const HRESULT hr = ::OleInitialize(nullptr);
    return SUCCEEDED(hr);
}

BOOL COleException::GetErrorMessage(LPWSTR lpszError, UINT nMaxError, UINT*) const {
    if (!lpszError || nMaxError == 0) return FALSE;
    lstrcpynW(lpszError, TextOfCode(m_sc), static_cast<int>(nMaxError));
    return TRUE;
}

BOOL COleDispatchException::GetErrorMessage(LPWSTR lpszError, UINT nMaxError, UINT*) const {
    if (!lpszError || nMaxError == 0) return FALSE;
    const CString strText = m_strDescription.IsEmpty() ? TextOfCode(m_scError) : m_strDescription;
    lstrcpynW(lpszError, strText, static_cast<int>(nMaxError));
    return TRUE;
}

void AfxThrowOleException(SCODE sc) {
    throw new COleException(sc);
}

void AfxThrowOleDispatchException(LPCTSTR lpszDescription, SCODE sc) {
    throw new COleDispatchException(lpszDescription, sc);
}

HRESULT AfxEvent::Argument::Take(const VARIANT& source, VARTYPE vt) {
    return ::VariantChangeType(&m_value, const_cast<VARIANT*>(&source), 0, vt);
}
