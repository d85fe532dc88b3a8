// See gepnt3d.h, which holds the geometry types together.
#pragma once

#include "gepnt3d.h"
