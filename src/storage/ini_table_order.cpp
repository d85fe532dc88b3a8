// The order in which a table is saved.
#include <algorithm>
#include <numeric>

#include "storage/ini_table.h"

namespace {

constexpr size_t kPrefixBytes = 8;

// Up to eight bytes behind the part that all keys share, as a number that sorts like them.
std::uint64_t GetPrefix(const CIniRow& row, size_t nShared) {
    std::uint64_t uPrefix = 0;
    for (size_t i = nShared; i < nShared + kPrefixBytes; ++i) {
        uPrefix = uPrefix << 8 | (i < row.m_nKeySize ? static_cast<unsigned char>(row.m_pKey[i]) : 0u);
    }
    return uPrefix;
}

struct PrefixedRow {
    std::uint64_t m_uPrefix;
    std::uint32_t m_nRow;
};

}  // namespace

std::vector<std::uint32_t> CIniTable::RankSections() const {
    std::vector<std::uint32_t> anSections(m_aSections.size());
    std::iota(anSections.begin(), anSections.end(), 0u);
    std::sort(anSections.begin(), anSections.end(), [this](std::uint32_t nLeft, std::uint32_t nRight) {
        return CompareText(m_aSections[nLeft].m_text, m_aSections[nRight].m_text) < 0;
    });
    std::vector<std::uint32_t> anRanks(m_aSections.size());
    for (std::uint32_t nRank = 0; nRank < anSections.size(); ++nRank)
        anRanks[anSections[nRank]] = nRank;
    return anRanks;
}

std::vector<std::uint32_t> CIniTable::GetSavingOrder() const {
    const std::uint32_t nRows = GetRowCount();
    if (m_nSorted == nRows) return {};
    const std::vector<std::uint32_t> anRanks = RankSections();
    const auto isBefore = [&](std::uint32_t nLeft, std::uint32_t nRight) {
        const CIniRow& left = m_aRows[nLeft];
        const CIniRow& right = m_aRows[nRight];
        if (left.m_nSection != right.m_nSection) return anRanks[left.m_nSection] < anRanks[right.m_nSection];
        return CompareText(left.GetKey(), right.GetKey()) < 0;
    };
    while (m_nSorted < nRows && (m_nSorted == 0 || isBefore(m_nSorted - 1, m_nSorted)))
        ++m_nSorted;
    if (m_nSorted == nRows) return {};

    std::vector<std::uint32_t> anTail(nRows - m_nSorted);
    std::iota(anTail.begin(), anTail.end(), m_nSorted);
    SortTail(anTail, anRanks);
    // The sorted rows ahead are taken over in whole stretches between the new ones.
    std::vector<std::uint32_t> anFront(m_nSorted);
    std::iota(anFront.begin(), anFront.end(), 0u);
    std::vector<std::uint32_t> anOrder;
    anOrder.reserve(nRows);
    auto front = anFront.begin();
    for (const std::uint32_t nRow : anTail) {
        const auto next = std::lower_bound(front, anFront.end(), nRow, isBefore);
        anOrder.insert(anOrder.end(), front, next);
        anOrder.push_back(nRow);
        front = next;
    }
    anOrder.insert(anOrder.end(), front, anFront.end());
    return anOrder;
}

void CIniTable::SortTail(std::vector<std::uint32_t>& anTail,
                         const std::vector<std::uint32_t>& anRanks) const {
    const auto getRank = [&](std::uint32_t nRow) { return anRanks[m_aRows[nRow].m_nSection]; };
    // Each section's rows to their place, in as many steps as there are rows and sections.
    std::vector<std::uint32_t> anStarts(anRanks.size() + 1);
    for (const std::uint32_t nRow : anTail)
        ++anStarts[getRank(nRow) + 1];
    std::partial_sum(anStarts.begin(), anStarts.end(), anStarts.begin());
    std::vector<std::uint32_t> anPlaced(anTail.size());
    std::vector<std::uint32_t> anNext = anStarts;
    for (const std::uint32_t nRow : anTail)
        anPlaced[anNext[getRank(nRow)]++] = nRow;
    anTail = std::move(anPlaced);
    for (size_t nRank = 0; nRank < anRanks.size(); ++nRank) {
        SortKeys(anTail.data() + anStarts[nRank], anTail.data() + anStarts[nRank + 1]);
    }
}

// Sorts rows of one section by their keys.
void CIniTable::SortKeys(std::uint32_t* pFirst, std::uint32_t* pEnd) const {
    if (pEnd - pFirst < 2) return;
    const auto isBefore = [this](std::uint32_t nLeft, std::uint32_t nRight) {
        return CompareText(m_aRows[nLeft].GetKey(), m_aRows[nRight].GetKey()) < 0;
    };
    if (!m_bAsciiKeys) return std::sort(pFirst, pEnd, isBefore);
    // Keys of one kind begin alike ("KV2D_LINE_"): what differs comes first in the comparison.
    const CIniRow& first = m_aRows[*pFirst];
    size_t nShared = first.m_nKeySize;
    for (const std::uint32_t* p = pFirst + 1; p != pEnd; ++p) {
        const CIniRow& row = m_aRows[*p];
        const size_t nCommon = std::min<size_t>(nShared, row.m_nKeySize);
        const auto differing = std::mismatch(first.m_pKey, first.m_pKey + nCommon, row.m_pKey);
        nShared = static_cast<size_t>(differing.first - first.m_pKey);
    }
    std::vector<PrefixedRow> aRows;
    aRows.reserve(static_cast<size_t>(pEnd - pFirst));
    for (const std::uint32_t* p = pFirst; p != pEnd; ++p)
        aRows.push_back({GetPrefix(m_aRows[*p], nShared), *p});
    std::sort(aRows.begin(), aRows.end(), [&](const PrefixedRow& left, const PrefixedRow& right) {
        if (left.m_uPrefix != right.m_uPrefix) return left.m_uPrefix < right.m_uPrefix;
        return isBefore(left.m_nRow, right.m_nRow);
    });
    for (const PrefixedRow& row : aRows)
        *pFirst++ = row.m_nRow;
}

void CIniTable::Reorder(const std::vector<std::uint32_t>& anOrder) {
    if (anOrder.empty()) return;
    std::vector<CIniRow> aRows;
    aRows.reserve(anOrder.size());
    for (const std::uint32_t nRow : anOrder)
        aRows.push_back(m_aRows[nRow]);
    m_aRows = std::move(aRows);
    m_aRowSlots.clear();
    m_nSorted = GetRowCount();
    CountSections();
}
