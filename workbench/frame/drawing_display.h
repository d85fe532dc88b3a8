// The display list of a drawing.
#pragma once

#include "frame/display_list.h"

class AcDbDatabase;

namespace frame {

inline constexpr std::size_t kMostDisplayedEntities = 3'000'000;

// Works out what the model space of `drawing` shows: layers that are off or frozen and invisible entities are
// left out, block references are followed to a depth of 16. A drawing whose blocks multiply each other cannot
// eat the memory or the time: it ends with `mostEntities` entities, an entity of a block counted each time
// that it is seen, or with a few million shapes. Entities that somebody has open for write are left out too.
// Null gives an empty list.
DisplayList BuildDisplayList(AcDbDatabase* drawing, std::size_t mostEntities = kMostDisplayedEntities);

}  // namespace frame
