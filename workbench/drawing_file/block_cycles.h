// Blocks that contain themselves: nobody could ever draw them.
#pragma once

#include "database/database_data.h"

namespace workbench::drawing_file {

// A block that refers to itself, directly or through others; null if there is none.
const database::BlockRecordData* FindBlockCycle(const AcDbImpDatabase& drawing);

}  // namespace workbench::drawing_file
