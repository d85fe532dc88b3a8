#include "storage/ini_table.h"

#include <algorithm>
#include <bit>

namespace {

constexpr std::uint32_t kSectionSeed = 0x5EC710;

// In a wide text it may be another character's byte, which does no harm.
bool HasLineFeed(const CIniText& text) {
    return std::memchr(text.m_pBytes, '\n', text.m_nSize) != nullptr;
}

// At most half of the slots are taken.
size_t GetSlotCount(size_t nEntries) {
    return std::bit_ceil(std::max<size_t>(2 * nEntries, 16));
}

// The low bits of a hash hold marks.
size_t GetFirstSlot(std::uint32_t uHash, size_t nSlots) {
    return (uHash >> 4) & (nSlots - 1);
}

// The bits of an address that differ within 64 gigabytes, less those within 16 bytes.
constexpr int kPlaceShift = 4;
constexpr std::uintptr_t kPlaceBits = (std::uintptr_t{1} << (32 + kPlaceShift)) - 1;

std::uint32_t GetTextPlace(const char* pText) {
    return static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(pText) >> kPlaceShift);
}

// A place that lies elsewhere costs time, nothing else: the address is only a hint to the processor.
void PrefetchText(const char* pNeighbour, std::uint32_t uPlace) {
    const std::uintptr_t uBase = reinterpret_cast<std::uintptr_t>(pNeighbour) & ~kPlaceBits;
    __builtin_prefetch(
        reinterpret_cast<const char*>(uBase | static_cast<std::uintptr_t>(uPlace) << kPlaceShift));
}

}  // namespace

CIniTable::CIniTable(const CIniTable& other)
    : m_aRows(other.m_aRows),
      m_aSections(other.m_aSections),
      m_aSectionSlots(other.m_aSectionSlots),
      m_aRowSlots(other.m_aRowSlots),
      m_nSorted(other.m_nSorted),
      m_bAsciiKeys(other.m_bAsciiKeys),
      m_apBlocks(other.m_apBlocks),
      m_originals(other.m_originals) {}

CIniText CIniTable::Keep(const CIniText& text) {
    if (text.m_nSize == 0) return {"", 0, false};
    if (text.m_nSize > m_nRoom) {
        const size_t nSize = std::max<size_t>(text.m_nSize, m_nNextBlock);
        m_nNextBlock = std::min(2 * m_nNextBlock, kLargestBlock);
        std::shared_ptr<char[]> pBlock(new char[nSize]);
        m_pRoom = pBlock.get();
        m_nRoom = nSize;
        m_apBlocks.push_back(std::move(pBlock));
    }
    CIniText kept = text;
    kept.m_pBytes = m_pRoom;
    std::memcpy(m_pRoom, text.m_pBytes, text.m_nSize);
    m_pRoom += text.m_nSize;
    m_nRoom -= text.m_nSize;
    return kept;
}

std::uint32_t CIniTable::FindSection(const CIniText& name) const {
    if (m_aSectionSlots.empty()) return kNone;
    const std::uint32_t uHash = HashText(name.m_pBytes, name.m_nSize, kSectionSeed).m_uHash;
    const size_t nMask = m_aSectionSlots.size() - 1;
    for (size_t i = GetFirstSlot(uHash, m_aSectionSlots.size());; i = (i + 1) & nMask) {
        const Slot& slot = m_aSectionSlots[i];
        if (slot.m_nEntry == 0) return kNone;
        if (slot.m_uHash == uHash && m_aSections[slot.m_nEntry - 1].m_text == name) return slot.m_nEntry - 1;
    }
}

std::uint32_t CIniTable::AddSection(const CIniText& name) {
    const std::uint32_t nFound = FindSection(name);
    if (nFound != kNone) return nFound;
    const CIniHash hash = HashText(name.m_pBytes, name.m_nSize, kSectionSeed);
    m_aSections.push_back({Keep(name), hash.m_uHash, HasLineFeed(name), 0, 0, 0});
    const auto insert = [this](std::uint32_t nSection) {
        size_t i = GetFirstSlot(m_aSections[nSection].m_uHash, m_aSectionSlots.size());
        while (m_aSectionSlots[i].m_nEntry != 0)
            i = (i + 1) & (m_aSectionSlots.size() - 1);
        m_aSectionSlots[i] = {m_aSections[nSection].m_uHash, nSection + 1};
    };
    const auto nSections = static_cast<std::uint32_t>(m_aSections.size());
    if (2 * m_aSections.size() > m_aSectionSlots.size()) {
        m_aSectionSlots.assign(GetSlotCount(2 * m_aSections.size()), Slot());
        for (std::uint32_t nSection = 0; nSection < nSections; ++nSection)
            insert(nSection);
    } else {
        insert(nSections - 1);
    }
    return nSections - 1;
}

void CIniTable::InsertSlot(std::uint32_t uHash, std::uint32_t nRow) const {
    const size_t nMask = m_aRowSlots.size() - 1;
    size_t i = GetFirstSlot(uHash, m_aRowSlots.size());
    while (m_aRowSlots[i].m_uEntry != 0)
        i = (i + 1) & nMask;
    m_aRowSlots[i] = {(uHash & ~static_cast<std::uint32_t>(nMask)) | (nRow + 1),
                      GetTextPlace(m_aRows[nRow].m_pKey)};
}

void CIniTable::PrefetchSlot(std::uint32_t uHash) const {
    __builtin_prefetch(&m_aRowSlots[GetFirstSlot(uHash, m_aRowSlots.size())], 1);
}

// Indexes the first rows, which hold no key twice. The slots are far apart, so they are fetched ahead of
// time.
void CIniTable::BuildRowIndex(std::uint32_t nRows) const {
    m_aRowSlots.assign(GetSlotCount(m_aRows.size()), RowSlot());
    for (std::uint32_t nRow = 0; nRow < nRows; ++nRow) {
        if (nRow + kPrefetchAhead < nRows) PrefetchSlot(m_aRows[nRow + kPrefetchAhead].m_uHash);
        InsertSlot(m_aRows[nRow].m_uHash, nRow);
    }
}

std::uint32_t CIniTable::FindSlotRow(std::uint32_t uHash, std::uint32_t nSection, const CIniText& key) const {
    const size_t nMask = m_aRowSlots.size() - 1;
    const auto uRowBits = static_cast<std::uint32_t>(nMask);
    for (size_t i = GetFirstSlot(uHash, m_aRowSlots.size());; i = (i + 1) & nMask) {
        const RowSlot& slot = m_aRowSlots[i];
        if (slot.m_uEntry == 0) return kNone;
        if (((slot.m_uEntry ^ uHash) & ~uRowBits) != 0) continue;
        PrefetchText(m_aRows.front().m_pKey, slot.m_uTextPlace);
        const std::uint32_t nRow = (slot.m_uEntry & uRowBits) - 1;
        const CIniRow& row = m_aRows[nRow];
        const bool bSameHash = ((row.m_uHash ^ uHash) & ~CIniRow::kMarks) == 0;
        if (bSameHash && row.m_nSection == nSection && row.GetKey() == key) return nRow;
    }
}

std::uint32_t CIniTable::FindRow(std::uint32_t nSection, const CIniText& key) const {
    if (m_aRows.empty() || nSection == kNone) return kNone;
    if (m_aRowSlots.empty()) BuildRowIndex(GetRowCount());
    return FindSlotRow(HashText(key.m_pBytes, key.m_nSize, nSection).m_uHash, nSection, key);
}

void CIniTable::AppendRow(std::uint32_t nSection, const CIniText& key, const CIniText& value) {
    const CIniHash hash = HashText(key.m_pBytes, key.m_nSize, nSection);
    std::uint32_t uMarks = (key.m_bWide ? CIniRow::kKeyWide : 0) | (value.m_bWide ? CIniRow::kValueWide : 0);
    if (HasLineFeed(key) || HasLineFeed(value)) uMarks |= CIniRow::kHasLineFeed;
    m_bAsciiKeys &= hash.m_bAscii && !key.m_bWide;
    const std::uint32_t nRow = GetRowCount();
    m_aRows.push_back({Keep(key).m_pBytes, Keep(value).m_pBytes, key.m_nSize, value.m_nSize, nSection,
                       (hash.m_uHash & ~CIniRow::kMarks) | uMarks});
    CIniSection& section = m_aSections[nSection];
    if (section.m_nRows++ == 0) section.m_nFirstRow = nRow;
    section.m_nEndRow = nRow + 1;
    if (m_aRowSlots.empty()) return;
    if (2 * m_aRows.size() > m_aRowSlots.size()) return BuildRowIndex(GetRowCount());
    InsertSlot(hash.m_uHash, nRow);
}

void CIniTable::SetValue(std::uint32_t nRow, const CIniText& value) {
    CIniRow& row = m_aRows[nRow];
    row.m_pValue = Keep(value).m_pBytes;
    row.m_nValueSize = value.m_nSize;
    row.m_uHash &= ~(CIniRow::kValueWide | CIniRow::kIntact);
    if (value.m_bWide) row.m_uHash |= CIniRow::kValueWide;
    if (HasLineFeed(value)) row.m_uHash |= CIniRow::kHasLineFeed;
}

void CIniTable::CountSections() {
    for (CIniSection& section : m_aSections)
        section.m_nRows = section.m_nFirstRow = section.m_nEndRow = 0;
    for (std::uint32_t nRow = 0; nRow < GetRowCount(); ++nRow) {
        CIniSection& section = m_aSections[m_aRows[nRow].m_nSection];
        if (section.m_nRows++ == 0) section.m_nFirstRow = nRow;
        section.m_nEndRow = nRow + 1;
    }
}

std::string_view CIniTable::GetOriginal(const CIniText& text, std::string& strBuffer) const {
    if (!m_originals.empty()) {
        const auto original = m_originals.find(text.m_pBytes);
        if (original != m_originals.end()) return original->second;
    }
    if (!text.m_bWide) return text.GetBytes();
    strBuffer = NarrowText(text);
    return strBuffer;
}
