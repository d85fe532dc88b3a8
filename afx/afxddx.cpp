// Data exchange between a dialog's members and its controls.
#include <cwchar>

#include "afxapp.h"
#include "afxdlg.h"
#include "afxstdctl.h"

HWND CDataExchange::PrepareCtrl(int nIDC) {
    HWND hWnd = nullptr;
    m_pDlgWnd->GetDlgItem(nIDC, &hWnd);
    if (!hWnd) AfxThrowInvalidArgException();
    m_hWndLastControl = hWnd;
    m_bEditLastControl = false;
    return hWnd;
}

HWND CDataExchange::PrepareEditCtrl(int nIDC) {
    const HWND hWnd = PrepareCtrl(nIDC);
    m_bEditLastControl = true;
    return hWnd;
}

void CDataExchange::Fail() {
    if (m_bSaveAndValidate && m_hWndLastControl) {
        ::SetFocus(m_hWndLastControl);
        if (m_bEditLastControl) ::SendMessageW(m_hWndLastControl, EM_SETSEL, 0, -1);
    }
    AfxThrowUserException();
}

void DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl) {
    if (rControl.m_hWnd || rControl.m_pCtrlSite) return;
    if (!rControl.SubclassWindow(pDX->PrepareCtrl(nIDC))) AfxThrowInvalidArgException();
}

void DDX_Text(CDataExchange* pDX, int nIDC, CString& value) {
    const HWND hWnd = pDX->PrepareEditCtrl(nIDC);
    if (pDX->m_bSaveAndValidate) {
        CWnd::FromHandle(hWnd)->GetWindowText(value);
        return;
    }
    // Setting an equal text would move the caret and send a needless change notification.
    CString strNow;
    CWnd::FromHandle(hWnd)->GetWindowText(strNow);
    if (strNow.Compare(value) != 0) ::SetWindowTextW(hWnd, value);
}

void DDX_Text(CDataExchange* pDX, int nIDC, int& value) {
    CString strText;
    if (!pDX->m_bSaveAndValidate) {
        strText.Format(L"%d", value);
        DDX_Text(pDX, nIDC, strText);
        return;
    }
    DDX_Text(pDX, nIDC, strText);
    wchar_t* pEnd = nullptr;
    errno = 0;
    const long nValue = std::wcstol(strText, &pEnd, 10);
    if (strText.IsEmpty() || *pEnd != L'\0' || errno == ERANGE) {
        AfxMessageBox(L"Please enter a whole number.", MB_ICONEXCLAMATION);
        pDX->Fail();
    }
    value = nValue;
}

void DDX_Check(CDataExchange* pDX, int nIDC, int& value) {
    const HWND hWnd = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate) {
        value = static_cast<int>(::SendMessageW(hWnd, BM_GETCHECK, 0, 0));
    } else {
        // Out of the three states it counts as not checked.
        const bool bValid = value >= BST_UNCHECKED && value <= BST_INDETERMINATE;
        ::SendMessageW(hWnd, BM_SETCHECK, static_cast<WPARAM>(bValid ? value : BST_UNCHECKED), 0);
    }
}
