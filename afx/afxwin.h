// The framework's windows: everything but the common controls, OLE and extension modules.
#pragma once

#include "afx.h"

#include "afxapp.h"
#include "afxcmdtarget.h"
#include "afxdlg.h"
#include "afxframe.h"
#include "afxgdi.h"
#include "afxmsg_.h"
#include "afxstdctl.h"
#include "afxwnd.h"
