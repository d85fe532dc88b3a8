// Control bars.
#pragma once

#include "afxwin.h"
