// The display list of a drawing.
#pragma once

#include "frame/display_list.h"

class AcDbDatabase;

namespace frame {

// Works out what the model space of `drawing` shows: layers that are off or frozen and invisible entities are
// left out, block references are followed (to a depth of 16 and at most a few million shapes, so that a
// drawing whose blocks multiply each other cannot eat the memory). Entities that somebody has open for write
// are left out too. Null gives an empty list.
DisplayList BuildDisplayList(AcDbDatabase* drawing);

}  // namespace frame
