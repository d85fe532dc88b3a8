// CAdUiDialog: the base of the host's dialogs.
#pragma once

#include <afxwin.h>

#include "arx_port.h"

// A dialog whose template lies in a module's resources.
class ARX_PORT CAdUiDialog : public CDialog {
    DECLARE_DYNAMIC(CAdUiDialog)

  public:
    // `idd` is the template's id. `hDialogResource` is the library that holds the template; null takes the
    // framework's current resource handle at the time the dialog is created.
    explicit CAdUiDialog(UINT idd, CWnd* pParent = nullptr, HINSTANCE hDialogResource = nullptr);
    ~CAdUiDialog() override;

    // As the framework's, with the template of the library given to the constructor.
    BOOL Create(UINT nIDTemplate, CWnd* pParentWnd = nullptr);
    INT_PTR DoModal() override;

  protected:
    // A modal dialog that was opened without a parent belongs to the host's frame.
    BOOL OnInitDialog() override;
    DECLARE_MESSAGE_MAP()

  private:
    HINSTANCE m_hDialogResource;
};
