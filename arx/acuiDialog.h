// CAcUiDialog: the base of dialogs of a module, modal ones and those that lie in a palette.
#pragma once

#include "aduiDialog.h"

class ARX_PORT CAcUiDialog : public CAdUiDialog {
    DECLARE_DYNAMIC(CAcUiDialog)

  public:
    explicit CAcUiDialog(UINT idd, CWnd* pParent = nullptr, HINSTANCE hDialogResource = nullptr);
    ~CAcUiDialog() override;

  protected:
    DECLARE_MESSAGE_MAP()
};
