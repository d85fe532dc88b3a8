// Which lines of the project a drawing uses, and which it does not offer.
#pragma once

#include <vector>

#include "acadstrc.h"

class AcDbDatabase;

// Line ids, above 0 and each once, that the piping elements in the model space carry. One pass over the model
// space; `out` is emptied first.
void CollectUsedLineIds(AcDbDatabase* pDatabase, std::vector<int>& out);

// The ids in the current drawing's list of filtered lines, in their order. The list is made, empty, if the
// drawing has none. `out` is emptied first, also on failure.
Acad::ErrorStatus ReadFilteredLineIds(std::vector<int>& out);
