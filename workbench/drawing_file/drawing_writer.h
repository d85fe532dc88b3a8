// Writes a drawing as ASCII DXF.
#pragma once

#include <string>

#include "dbmain.h"

namespace workbench::drawing_file {

// The bytes of a file with everything that the database holds and that is not erased: release 2000, or the
// later one that the drawing was read from. Reading them gives the same drawing again.
std::string WriteDrawing(const AcDbDatabase& database);

}  // namespace workbench::drawing_file
