// The workbench's application object.
#pragma once

#include <afxwin.h>

#include "frame/session.h"

namespace frame {

class ARX_PORT WorkbenchApp : public CWinApp {
  public:
    WorkbenchApp() : CWinApp(L"Workbench") {}

    BOOL InitInstance() override;
    int ExitInstance() override;
    BOOL OnIdle(LONG lCount) override;
    // The automation object (acadi.h).
    LPDISPATCH GetIDispatch(BOOL bAddRef) override;

  private:
    std::unique_ptr<Session> m_session;
};

}  // namespace frame
