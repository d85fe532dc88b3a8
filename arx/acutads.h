// Result lists and printing.
#pragma once

#include "acutmem.h"

// Builds a list from pairs of type and value; RTNONE or 0 ends it. Types without a value (RTLB, RTLE, RTDOTE,
// RTT, RTNIL, RTVOID) take none. Integers pass as int, reals as double, points as ads_point, texts as const
// ACHAR*, binary data as const ads_binary*, handles (5, 1005, 320 to 329) as texts, RTENAME and 330 to 369 as
// ads_name. An unknown type gives null and nothing is left allocated.
ARX_PORT resbuf* acutBuildList(int type, ...);

// Prints to the command line. %s is wide text.
ARX_PORT int acutPrintf(const ACHAR* format, ...);
