// Memory that crosses the host interface.
#pragma once

#include "acadstrc.h"
#include "adsdef.h"
#include "arx_port.h"

// A copy of `text` that acutDelString frees; null for null.
ARX_PORT Acad::ErrorStatus acutNewString(const ACHAR* text, ACHAR*& copy);
// Frees a text that the host handed over and sets the pointer to null.
ARX_PORT void acutDelString(ACHAR*& text);

// A zeroed item of the given type; acutRelRb frees it.
ARX_PORT resbuf* acutNewRb(int type);
// Frees the items from `list` to the end, with their strings and binary data. RTNORM, also for null.
ARX_PORT int acutRelRb(resbuf* list);
