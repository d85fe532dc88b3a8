// Database functions of the result-buffer interface.
#pragma once

#include "adscodes.h"
#include "adsdef.h"
#include "arx_port.h"

// Registers an application name in the working database, for xdata. RTNORM also if it is registered already.
// RTERROR if there is no working database, the name is not a symbol name, or the document is not locked for
// writing.
ARX_PORT int acdbRegApp(const ACHAR* applicationName);
