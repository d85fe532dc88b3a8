// Reads the symbol tables of a drawing file.
#pragma once

#include "drawing_file/file_tree.h"
#include "drawing_file/group_values.h"

namespace workbench::drawing_file {

// Linetypes come first, as layers name them; of two records with one name the first counts. Throws
// DrawingError for a record without a name, unless it is a text style (shape files have none).
void ReadTables(const FileTree& tree, ReadContext& context);

}  // namespace workbench::drawing_file
