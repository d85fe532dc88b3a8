// Reads the entities of a section or a block, with their attributes and vertices.
#pragma once

#include <functional>
#include <span>

#include "drawing_file/file_tree.h"
#include "drawing_file/group_values.h"

namespace workbench::drawing_file {

// Which block an entity's record belongs to.
using BlockOfRecord = std::function<database::BlockRecordData&(const class RecordBody&)>;

// Throws DrawingError for an entity that is damaged, a reference to a block that the drawing lacks,
// attributes, vertices or sequence ends in the wrong place.
void ReadEntities(std::span<const Record> records, ReadContext& context, const BlockOfRecord& blockOf);

}  // namespace workbench::drawing_file
