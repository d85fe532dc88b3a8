#include "palette/line_order.h"

#include <numeric>

namespace {

using IdSet = std::unordered_set<int>;

// Entries of `from` at the places in `places`; places beyond its end are left out.
template <class Array>
Array Pick(const Array& from, const std::vector<size_t>& places) {
    Array picked;
    picked.reserve(places.size());
    for (size_t i : places)
        if (i < from.size()) picked.push_back(from[i]);
    return picked;
}

}  // namespace

void RemoveFilteredLines(std::vector<int>& anIds, std::vector<std::wstring>& astrNames,
                         std::vector<bool>& abFlags, const std::vector<int>& anFiltered) {
    if (anFiltered.empty()) return;
    const IdSet filtered(anFiltered.begin(), anFiltered.end());
    std::vector<size_t> kept;
    for (size_t i = 0; i < anIds.size(); ++i)
        if (!filtered.contains(anIds[i])) kept.push_back(i);
    anIds = Pick(anIds, kept);
    astrNames = Pick(astrNames, kept);
    abFlags = Pick(abFlags, kept);
}

void OrderLinesByUse(std::vector<std::wstring>& astrNames, std::vector<int>& anIds,
                     const std::vector<int>& anUsed) {
    const IdSet used(anUsed.begin(), anUsed.end());
    std::vector<size_t> order;
    order.reserve(anIds.size());
    for (bool bUsed : {true, false})
        for (size_t i = 0; i < anIds.size(); ++i)
            if (used.contains(anIds[i]) == bUsed) order.push_back(i);
    astrNames = Pick(astrNames, order);
    anIds = Pick(anIds, order);
}
