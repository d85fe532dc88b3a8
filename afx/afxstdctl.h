// The standard controls. Part of afxwin.h. Members send the control's messages; what they return is the
// control's answer.
#pragma once

#include "afxwnd.h"

class AFX_PORT CStatic : public CWnd {
    DECLARE_DYNAMIC(CStatic)

  public:
    BOOL Create(LPCTSTR lpszText, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID = 0xffff);
    HICON SetIcon(HICON hIcon);
    HICON GetIcon() const;
};

class AFX_PORT CButton : public CWnd {
    DECLARE_DYNAMIC(CButton)

  public:
    BOOL Create(LPCTSTR lpszCaption, DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    int GetCheck() const;
    void SetCheck(int nCheck);
    UINT GetButtonStyle() const;
    HICON SetIcon(HICON hIcon);
    HICON GetIcon() const;

    // Draws an owner-drawn button.
    virtual void DrawItem(LPDRAWITEMSTRUCT) {}

  protected:
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

class AFX_PORT CEdit : public CWnd {
    DECLARE_DYNAMIC(CEdit)

  public:
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    void GetSel(int& nStartChar, int& nEndChar) const;
    void SetSel(int nStartChar, int nEndChar, BOOL bNoScroll = FALSE);
    void ReplaceSel(LPCTSTR lpszNewText, BOOL bCanUndo = FALSE);
    BOOL SetReadOnly(BOOL bReadOnly = TRUE);
    void LimitText(int nChars = 0);
};

class AFX_PORT CComboBox : public CWnd {
    DECLARE_DYNAMIC(CComboBox)

  public:
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParentWnd, UINT nID);
    int GetCount() const;
    int GetCurSel() const;
    int SetCurSel(int nSelect);
    int AddString(LPCTSTR lpszString);
    void ResetContent();
    int FindString(int nStartAfter, LPCTSTR lpszString) const;
    int FindStringExact(int nIndexStart, LPCTSTR lpszFind) const;
    void GetLBText(int nIndex,
                   CString& rString) const;  // raises the invalid argument failure for a bad index
    DWORD_PTR GetItemData(int nIndex) const;
    int SetItemData(int nIndex, DWORD_PTR dwItemData);
    int SetItemHeight(int nIndex, UINT cyItemHeight);
    int GetItemHeight(int nIndex) const;

  protected:
    virtual void DrawItem(LPDRAWITEMSTRUCT) {}
    virtual void MeasureItem(LPMEASUREITEMSTRUCT) {}
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};
