// Texts of the host's result codes.
#pragma once

#include "acadstrc.h"
#include "arx_port.h"

// The name of a status ("eLockViolation"); an unknown number gives "Unknown error status". The text is the
// host's.
ARX_PORT const ACHAR* acadErrorStatusText(Acad::ErrorStatus es);
