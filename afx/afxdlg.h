// CDialog and data exchange. Part of afxwin.h.
#pragma once

#include "afxwnd.h"

// One run of UpdateData.
class AFX_PORT CDataExchange {
  public:
    CDataExchange(CWnd* pDlgWnd, BOOL bSaveAndValidate)
        : m_bSaveAndValidate(bSaveAndValidate), m_pDlgWnd(pDlgWnd) {}

    BOOL m_bSaveAndValidate;
    CWnd* m_pDlgWnd;

    // The control's handle; raises the invalid argument failure if the dialog has no such control. The second
    // remembers it as an edit, for Fail.
    HWND PrepareCtrl(int nIDC);
    HWND PrepareEditCtrl(int nIDC);
    // Puts the focus on the last prepared control and ends the exchange (UpdateData returns FALSE).
    [[noreturn]] void Fail();

  private:
    HWND m_hWndLastControl = nullptr;
    bool m_bEditLastControl = false;
};

// Binds a member to a control on the first exchange; nothing on later ones. A control that was made as an OLE
// control already is left as it is.
AFX_PORT void DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl);
AFX_PORT void DDX_Text(CDataExchange* pDX, int nIDC, CString& value);
// A text that is not a whole number is told to the user and fails the exchange.
AFX_PORT void DDX_Text(CDataExchange* pDX, int nIDC, int& value);
AFX_PORT void DDX_Check(CDataExchange* pDX, int nIDC, int& value);

class AFX_PORT CDialog : public CWnd {
    DECLARE_DYNAMIC(CDialog)

  public:
    CDialog() = default;
    explicit CDialog(UINT nIDTemplate, CWnd* pParentWnd = nullptr);
    explicit CDialog(LPCTSTR lpszTemplateName, CWnd* pParentWnd = nullptr);
    ~CDialog() override;

    // Modeless. The template is looked for in the current resource module, then in the libraries that joined
    // as extension modules. False without a template or if OnInitDialog's window could not be made.
    BOOL Create(UINT nIDTemplate, CWnd* pParentWnd = nullptr);
    BOOL Create(LPCTSTR lpszTemplateName, CWnd* pParentWnd = nullptr);
    BOOL CreateIndirect(LPCDLGTEMPLATE lpDialogTemplate, CWnd* pParentWnd, HINSTANCE hInst = nullptr);

    // Runs the dialog over its parent (null: the main window), whose top-level window is disabled for the
    // time. The result is EndDialog's argument, -1 if the dialog could not be made or the program is ending.
    virtual INT_PTR DoModal();
    void EndDialog(int nResult);

    // Override. TRUE lets the system put the focus on the first control. The base runs UpdateData(FALSE),
    // which binds the members; a failing exchange ends the dialog with -1.
    virtual BOOL OnInitDialog();

    BOOL PreTranslateMessage(MSG* pMsg) override;

  protected:
    virtual void OnOK();      // UpdateData(TRUE), then EndDialog(IDOK)
    virtual void OnCancel();  // EndDialog(IDCANCEL)

    LRESULT HandleInitDialog(WPARAM wParam, LPARAM lParam);

    LPCTSTR m_lpszTemplateName = nullptr;
    CWnd* m_pParentWnd = nullptr;

    DECLARE_MESSAGE_MAP()

  private:
    BOOL CreateFromTemplate(LPCTSTR lpszTemplateName, CWnd* pParentWnd);

    bool m_bAutoCenter = false;  // the template leaves the position to the framework
};
