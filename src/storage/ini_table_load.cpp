// Reading the lines of a file into the table.
#include <algorithm>
#include <limits>

#include "storage/ini_table.h"
#include "storage/ini_trim.h"

namespace {

constexpr char kSeparator[] = " = ";
constexpr size_t kSampleRows = 64;
constexpr size_t kLongestLine = std::numeric_limits<std::uint32_t>::max() / sizeof(wchar_t);

size_t FindSeparator(std::string_view line) {
    const char* pEnd = line.data() + line.size();
    const char* pScan = line.data() + 1;
    while (pScan + 1 < pEnd) {
        const auto* pEqual =
            static_cast<const char*>(std::memchr(pScan, '=', static_cast<size_t>(pEnd - pScan - 1)));
        if (!pEqual) break;
        if (pEqual[-1] == ' ' && pEqual[1] == ' ') return static_cast<size_t>(pEqual - line.data() - 1);
        pScan = pEqual + 1;
    }
    return std::string_view::npos;
}

CIniText MakeNarrow(std::string_view bytes) {
    return {bytes.data(), static_cast<std::uint32_t>(bytes.size()), false};
}

}  // namespace

struct CIniTable::CLoad {
    std::string_view m_lines;
    const char* m_pNow;  // in the lines
    std::uint32_t m_nFirstRow;
    std::uint32_t m_nSection;
    bool m_bHeader = false;
    bool m_bOrdered;  // the rows are new, and each stands behind the one ahead of it
};

CIniTable::CReadEnd CIniTable::ReadLines(const std::shared_ptr<const std::string>& pBytes,
                                         std::string_view lines, std::uint32_t nSection) {
    m_apBlocks.emplace_back(pBytes, pBytes->data());
    m_pRoom = nullptr;
    m_nRoom = 0;
    CLoad load{lines, lines.data(), GetRowCount(), nSection, false, m_aRows.empty()};
    const bool bNarrow = platform::GetText().GetByteTable() || IsAscii(lines);
    const char* const pEnd = lines.data() + lines.size();
    while (load.m_pNow < pEnd) {
        const char* pLine = load.m_pNow;
        const auto nRest = static_cast<size_t>(pEnd - pLine);
        const auto* pLineFeed = static_cast<const char*>(std::memchr(pLine, '\n', nRest));
        const char* pLineEnd = pLineFeed ? pLineFeed : pEnd;
        load.m_pNow = pLineFeed ? pLineFeed + 1 : pEnd;
        const bool bCarriageReturn = pLineFeed && pLineFeed > pLine && pLineFeed[-1] == '\r';
        if (bCarriageReturn) --pLineEnd;
        const std::string_view line(pLine, static_cast<size_t>(pLineEnd - pLine));
        if (line.empty() || line.size() > kLongestLine) continue;
        if (bNarrow || IsAscii(line)) {
            ReadNarrowLine(load, line, bCarriageReturn);
        } else {
            ReadWideLine(load, line);
        }
    }
    if (load.m_bOrdered) {
        m_nSorted = GetRowCount();
        m_aRowSlots.clear();
    } else {
        MergeRows(load.m_nFirstRow);
    }
    CountSections();
    return {load.m_nSection, load.m_bHeader};
}

void CIniTable::ReadNarrowLine(CLoad& load, std::string_view line, bool bCarriageReturn) {
    if (line.front() == '[' && line.back() == ']') {
        const std::string_view name = line.substr(1, line.size() - 2);
        load.m_nSection = AddSection(MakeNarrow(TrimSection(name)));
        load.m_bHeader = true;
        return;
    }
    const size_t nSeparator = FindSeparator(line);
    if (nSeparator == std::string_view::npos) return;
    const std::string_view untrimmed = line.substr(0, nSeparator);
    const std::string_view key = TrimKey(untrimmed);
    const bool bIntact = bCarriageReturn && key.size() == untrimmed.size();
    AddCandidate(load, MakeNarrow(key), MakeNarrow(line.substr(nSeparator + kSeparatorLength)),
                 bIntact ? CIniRow::kIntact : 0);
}

// In a code page with characters of several bytes, a byte tells nothing without the ones ahead of it: the
// grammar is applied to the characters.
void CIniTable::ReadWideLine(CLoad& load, std::string_view line) {
    const std::wstring strLine = platform::GetText().Widen(line);
    const std::wstring_view wide = strLine;
    if (wide.front() == L'[' && wide.back() == L']') {
        const std::wstring_view name = TrimSection(wide.substr(1, wide.size() - 2));
        const std::string_view original = TrimSection(line.substr(1, line.size() - 2));
        const size_t nSections = m_aSections.size();
        load.m_nSection = AddSection(CIniTextMaker(name).Get());
        if (m_aSections.size() > nSections) NoteOriginal(m_aSections.back().m_text, name, original);
        load.m_bHeader = true;
        return;
    }
    const size_t nSeparator = strLine.find(L" = ");
    if (nSeparator == std::wstring::npos) return;
    const size_t nByteSeparator = line.find(kSeparator);
    const std::wstring_view key = TrimKey(wide.substr(0, nSeparator));
    AddCandidate(load, KeepWithOriginal(key, TrimKey(line.substr(0, nByteSeparator))),
                 KeepWithOriginal(wide.substr(nSeparator + kSeparatorLength),
                                  line.substr(std::min(line.size(), nByteSeparator + kSeparatorLength))),
                 0);
}

// Where the code page has two codes for a character, the file's own bytes are noted beside the kept text.
void CIniTable::NoteOriginal(const CIniText& kept, std::wstring_view strText, std::string_view original) {
    const bool bDiffers = kept.m_bWide || kept.GetBytes() != original;
    if (bDiffers && platform::GetText().Widen(original) == strText) m_originals[kept.m_pBytes] = original;
}

CIniText CIniTable::KeepWithOriginal(std::wstring_view strText, std::string_view original) {
    const CIniText kept = Keep(CIniTextMaker(strText).Get());
    NoteOriginal(kept, strText, original);
    return kept;
}

bool CIniTable::IsBehindLast(const CIniText& key, std::uint32_t nSection) const {
    const CIniRow& last = m_aRows.back();
    if (last.m_nSection != nSection) {
        return CompareText(m_aSections[last.m_nSection].m_text, m_aSections[nSection].m_text) < 0;
    }
    if (!m_bAsciiKeys) return CompareText(last.GetKey(), key) < 0;
    const int nCompared = std::memcmp(last.m_pKey, key.m_pBytes, std::min(last.m_nKeySize, key.m_nSize));
    return nCompared != 0 ? nCompared < 0 : last.m_nKeySize < key.m_nSize;
}

// Makes room by the share of the lines that has been read, once there is something to go by.
void CIniTable::ReserveForMore(const CLoad& load) {
    const size_t nRead = m_aRows.size() - load.m_nFirstRow;
    if (nRead < kSampleRows) return m_aRows.reserve(m_aRows.size() + kSampleRows);
    const auto dShare =
        static_cast<double>(load.m_pNow - load.m_lines.data()) / static_cast<double>(load.m_lines.size());
    const auto nExpected = static_cast<size_t>(static_cast<double>(nRead) / dShare * 1.02);
    m_aRows.reserve(std::max(load.m_nFirstRow + nExpected, m_aRows.size() + m_aRows.size() / 2) + 1);
}

void CIniTable::AddCandidate(CLoad& load, const CIniText& key, const CIniText& value, std::uint32_t uMarks) {
    const CIniHash hash = HashText(key.m_pBytes, key.m_nSize, load.m_nSection);
    m_bAsciiKeys &= hash.m_bAscii && !key.m_bWide;
    if (load.m_bOrdered) {
        if (!m_aRows.empty() && !IsBehindLast(key, load.m_nSection)) load.m_bOrdered = false;
        // As long as no key can have come before, an empty value has nothing to empty.
        if (load.m_bOrdered && value.m_nSize == 0) return;
    }
    if (m_aRows.size() == m_aRows.capacity()) ReserveForMore(load);
    uMarks |= (key.m_bWide ? CIniRow::kKeyWide : 0) | (value.m_bWide ? CIniRow::kValueWide : 0);
    m_aRows.push_back({key.m_pBytes, value.m_pBytes, key.m_nSize, value.m_nSize, load.m_nSection,
                       (hash.m_uHash & ~CIniRow::kMarks) | uMarks});
}

// Sets the rows from the first new one on, one by one: a key that is there takes the value, and a new key
// with an empty value is left out.
void CIniTable::MergeRows(std::uint32_t nFirst) {
    BuildRowIndex(nFirst);
    const std::uint32_t nRows = GetRowCount();
    std::uint32_t nEnd = nFirst;
    for (std::uint32_t nRow = nFirst; nRow < nRows; ++nRow) {
        if (nRow + kPrefetchAhead < nRows) PrefetchSlot(m_aRows[nRow + kPrefetchAhead].m_uHash);
        const CIniRow row = m_aRows[nRow];
        const std::uint32_t nFound = FindSlotRow(row.m_uHash, row.m_nSection, row.GetKey());
        if (nFound == kNone) {
            if (row.m_nValueSize == 0) continue;
            m_aRows[nEnd] = row;
            InsertSlot(row.m_uHash, nEnd);
            ++nEnd;
        } else if (!(m_aRows[nFound].GetValue() == row.GetValue())) {
            CIniRow& found = m_aRows[nFound];
            found.m_pValue = row.m_pValue;
            found.m_nValueSize = row.m_nValueSize;
            found.m_uHash &= ~(CIniRow::kValueWide | CIniRow::kIntact);
            found.m_uHash |= row.m_uHash & CIniRow::kValueWide;
        }
    }
    m_aRows.resize(nEnd);
    m_nSorted = std::min(m_nSorted, nFirst);
}
