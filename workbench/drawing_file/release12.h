// What drawings of release 12 lack: subclass markers, without which later releases refuse an entity.
#pragma once

#include "database/object_data.h"

namespace workbench::drawing_file {

// Puts the markers of the entity's kind (3DFACE, DIMENSION, SHAPE, VIEWPORT) between the groups in `extra`.
// Kinds that release 12 did not have stay as they are.
void AddMarkersToRelease12(database::ProxyEntityData& entity);

}  // namespace workbench::drawing_file
