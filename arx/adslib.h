// The whole result-buffer interface.
#pragma once

#include "acdbads.h"
#include "acedads.h"
#include "acutads.h"
#include "adscodes.h"
#include "adsdef.h"
