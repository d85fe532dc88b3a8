// The dialog that creates a line number.
#pragma once

#include <afxwin.h>

#include <string>

class CNewLineDlg : public CDialog {
  public:
    explicit CNewLineDlg(CWnd* pParent);
    INT_PTR DoModal() override;

  protected:
    void DoDataExchange(CDataExchange* pDX) override;
    BOOL OnInitDialog() override;
    void OnOK() override;
    DECLARE_MESSAGE_MAP()

  private:
    void ShowError(const std::wstring& strFormat, const std::wstring& strArgument = {});

    std::wstring m_strTitle;  // of the message boxes
    CString m_strLine;
};
