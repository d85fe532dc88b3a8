// The part of a large drawing file that a thumbnail is drawn from.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace controls {

// ASCII DXF with at most `mostEntities` entities of the model: what follows them is left out, so the result
// is a whole file again. A file with fewer is returned as it is, and so is text that is not DXF.
std::string TakeDrawingExcerpt(std::string_view bytes, std::size_t mostEntities);

}  // namespace controls
