// The host's windows and its application object, as framework objects. None of them is the caller's to
// delete.
#pragma once

#include <afxwin.h>

#include "arx_port.h"

// The main window. `ShowControlBar` of it shows and hides palette sets.
ARX_PORT CMDIFrameWnd* acedGetAcadFrame();
// The view of the current drawing, or null while no drawing is open.
ARX_PORT CView* acedGetAcadDwgView();
// The application object: `PumpMessage` lets one message through, `GetIDispatch` gives the automation object
// (acadi.h).
ARX_PORT CWinApp* acedGetAcadWinApp();
// The library or program that holds the host's own resources.
ARX_PORT HINSTANCE acedGetAcadResourceInstance();
// The main window's handle, null before there is one: the owner for message boxes.
ARX_PORT HWND adsw_acadMainWnd();
