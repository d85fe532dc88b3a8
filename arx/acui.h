// The host's dialogs that know about drawings, on top of adui.h.
#pragma once

#include "acuiDialog.h"
#include "adui.h"

// Prepares the host's user interface library for the calling module. To be called once when the module is
// attached; a second call does nothing.
ARX_PORT void InitAcUiDLL();
