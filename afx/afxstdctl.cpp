#include "afxstdctl.h"

#include "afxapp.h"

IMPLEMENT_DYNAMIC(CStatic, CWnd)
IMPLEMENT_DYNAMIC(CButton, CWnd)
IMPLEMENT_DYNAMIC(CEdit, CWnd)
IMPLEMENT_DYNAMIC(CComboBox, CWnd)

namespace {

int Send(HWND hWnd, UINT nMsg, WPARAM wParam = 0, LPARAM lParam = 0) {
    return static_cast<int>(::SendMessageW(hWnd, nMsg, wParam, lParam));
}

int SendText(HWND hWnd, UINT nMsg, WPARAM wParam, LPCTSTR lpszText) {
    return Send(hWnd, nMsg, wParam, reinterpret_cast<LPARAM>(lpszText));
}

// The text of a row, by the messages for its length and for itself.
void GetRowText(HWND hWnd, UINT nLengthMsg, UINT nTextMsg, int nIndex, CString& rString) {
    rString.Empty();
    const int nLength = Send(hWnd, nLengthMsg, static_cast<WPARAM>(nIndex));
    if (nLength < 0) AfxThrowInvalidArgException();
    Send(hWnd, nTextMsg, static_cast<WPARAM>(nIndex), reinterpret_cast<LPARAM>(rString.GetBuffer(nLength)));
    rString.ReleaseBuffer();
}

}  // namespace

BOOL CStatic::Create(LPCTSTR lpszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
    return CWnd::Create(WC_STATIC, lpszText, dwStyle, rect, pParentWnd, nID);
}

HICON CStatic::SetIcon(HICON hIcon) {
    return reinterpret_cast<HICON>(SendMessage(STM_SETICON, reinterpret_cast<WPARAM>(hIcon)));
}

HICON CStatic::GetIcon() const {
    return reinterpret_cast<HICON>(SendMessage(STM_GETICON));
}

BOOL CButton::Create(LPCTSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
    return CWnd::Create(WC_BUTTON, lpszCaption, dwStyle, rect, pParentWnd, nID);
}

int CButton::GetCheck() const {
    return Send(m_hWnd, BM_GETCHECK);
}

void CButton::SetCheck(int nCheck) {
    Send(m_hWnd, BM_SETCHECK, static_cast<WPARAM>(nCheck));
}

UINT CButton::GetButtonStyle() const {
    return GetStyle() & 0xFFFF;
}

HICON CButton::SetIcon(HICON hIcon) {
    return reinterpret_cast<HICON>(SendMessage(BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(hIcon)));
}

HICON CButton::GetIcon() const {
    return reinterpret_cast<HICON>(SendMessage(BM_GETIMAGE, IMAGE_ICON));
}

BOOL CButton::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
    if (message != WM_DRAWITEM) return CWnd::OnChildNotify(message, wParam, lParam, pResult);
    DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
    return TRUE;
}

BOOL CEdit::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
    return CWnd::Create(WC_EDIT, nullptr, dwStyle, rect, pParentWnd, nID);
}

void CEdit::GetSel(int& nStartChar, int& nEndChar) const {
    DWORD dwStart = 0;
    DWORD dwEnd = 0;
    SendMessage(EM_GETSEL, reinterpret_cast<WPARAM>(&dwStart), reinterpret_cast<LPARAM>(&dwEnd));
    nStartChar = static_cast<int>(dwStart);
    nEndChar = static_cast<int>(dwEnd);
}

void CEdit::SetSel(int nStartChar, int nEndChar, BOOL bNoScroll) {
    Send(m_hWnd, EM_SETSEL, static_cast<WPARAM>(nStartChar), nEndChar);
    if (!bNoScroll) Send(m_hWnd, EM_SCROLLCARET);
}

void CEdit::ReplaceSel(LPCTSTR lpszNewText, BOOL bCanUndo) {
    SendText(m_hWnd, EM_REPLACESEL, static_cast<WPARAM>(bCanUndo), lpszNewText);
}

BOOL CEdit::SetReadOnly(BOOL bReadOnly) {
    return Send(m_hWnd, EM_SETREADONLY, static_cast<WPARAM>(bReadOnly));
}

void CEdit::LimitText(int nChars) {
    Send(m_hWnd, EM_LIMITTEXT, static_cast<WPARAM>(nChars));
}

BOOL CComboBox::Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID) {
    return CWnd::Create(WC_COMBOBOX, nullptr, dwStyle, rect, pParentWnd, nID);
}

int CComboBox::GetCount() const {
    return Send(m_hWnd, CB_GETCOUNT);
}

int CComboBox::GetCurSel() const {
    return Send(m_hWnd, CB_GETCURSEL);
}

int CComboBox::SetCurSel(int nSelect) {
    return Send(m_hWnd, CB_SETCURSEL, static_cast<WPARAM>(nSelect));
}

int CComboBox::AddString(LPCTSTR lpszString) {
    return SendText(m_hWnd, CB_ADDSTRING, 0, lpszString);
}

void CComboBox::ResetContent() {
    Send(m_hWnd, CB_RESETCONTENT);
}

int CComboBox::FindString(int nStartAfter, LPCTSTR lpszString) const {
    return SendText(m_hWnd, CB_FINDSTRING, static_cast<WPARAM>(nStartAfter), lpszString);
}

int CComboBox::FindStringExact(int nIndexStart, LPCTSTR lpszFind) const {
    return SendText(m_hWnd, CB_FINDSTRINGEXACT, static_cast<WPARAM>(nIndexStart), lpszFind);
}

void CComboBox::GetLBText(int nIndex, CString& rString) const {
    GetRowText(m_hWnd, CB_GETLBTEXTLEN, CB_GETLBTEXT, nIndex, rString);
}

DWORD_PTR CComboBox::GetItemData(int nIndex) const {
    return static_cast<DWORD_PTR>(SendMessage(CB_GETITEMDATA, static_cast<WPARAM>(nIndex)));
}

int CComboBox::SetItemData(int nIndex, DWORD_PTR dwItemData) {
    return Send(m_hWnd, CB_SETITEMDATA, static_cast<WPARAM>(nIndex), static_cast<LPARAM>(dwItemData));
}

int CComboBox::SetItemHeight(int nIndex, UINT cyItemHeight) {
    return Send(m_hWnd, CB_SETITEMHEIGHT, static_cast<WPARAM>(nIndex), cyItemHeight);
}

int CComboBox::GetItemHeight(int nIndex) const {
    return Send(m_hWnd, CB_GETITEMHEIGHT, static_cast<WPARAM>(nIndex));
}

BOOL CComboBox::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
    if (message == WM_DRAWITEM) {
        DrawItem(reinterpret_cast<LPDRAWITEMSTRUCT>(lParam));
        return TRUE;
    }
    if (message == WM_MEASUREITEM) {
        MeasureItem(reinterpret_cast<LPMEASUREITEMSTRUCT>(lParam));
        return TRUE;
    }
    return CWnd::OnChildNotify(message, wParam, lParam, pResult);
}
