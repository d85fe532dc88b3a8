// The host's character type. All texts that cross the host interface are wide and end in a zero.
#pragma once

using ACHAR = wchar_t;

#define ACRX_T(x) L##x
#define ACDB_T(x) L##x
