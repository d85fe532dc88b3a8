// Which lines the palette offers and in which order.
#pragma once

#include <string>
#include <unordered_set>
#include <vector>

// Takes every line whose id is in `filtered` out of the parallel lists; the others keep their order. `flags`
// may be shorter than `ids` (a list without flags).
void RemoveFilteredLines(std::vector<int>& anIds, std::vector<std::wstring>& astrNames,
                         std::vector<bool>& abFlags, const std::vector<int>& anFiltered);

// Lines whose id is in `used` first, in list order; behind them the others, in list order.
void OrderLinesByUse(std::vector<std::wstring>& astrNames, std::vector<int>& anIds,
                     const std::vector<int>& anUsed);
