// The part of a large drawing file that a thumbnail is drawn from.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace controls {

// How much of a drawing is kept, each number once for the model and once for all blocks together.
struct ExcerptLimits {
    std::size_t entities = 10'000;
    std::size_t bytes = 4u << 20;
};

// ASCII DXF with no more entities in its model and its blocks than the limits allow, and without what follows
// the model: a whole file again, as large as the limits allow at most. The first entities are kept; one that
// alone goes beyond the bytes is left out, and a long chain of vertices or attributes ends early.
//
// `isWhole` is false for the beginning of a longer file: it may end anywhere in the model, and then shows
// what came before. The result is empty for a whole file that ends in the middle, for a beginning that does
// not reach the model, and if the tables ahead of the model are larger than the bytes allow. Text that is not
// DXF is returned as it is.
std::string TakeDrawingExcerpt(std::string_view bytes, bool isWhole, const ExcerptLimits& limits = {});

}  // namespace controls
