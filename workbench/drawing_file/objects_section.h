// Reads the objects of a drawing file: dictionaries, extension records, and what is kept as it stands.
#pragma once

#include "drawing_file/file_tree.h"
#include "drawing_file/group_values.h"

namespace workbench::drawing_file {

// The dictionary of named objects is the first one that nothing owns.
void ReadObjects(const FileTree& tree, ReadContext& context);

}  // namespace workbench::drawing_file
