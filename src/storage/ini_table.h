// The rows of an ini document: a compact table, the text it points into, and an index over section and key.
//
// A row is the triple of section, key and value; the order of rows is the order in which they came. Texts lie
// where they were read, in the bytes of the file, which the table shares; what is set later goes to blocks of
// its own. So loading copies no text, a row that was not changed is written back from the very bytes it came
// from, and copying a table is copying two flat arrays. A text that is replaced keeps its room as long as the
// table lives.
//
// The index is an open-addressing table of hashes and row numbers. It is made when it is first needed: a file
// whose rows stand in strict order, as every saved file's do, cannot hold a key twice and is read without it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "storage/ini_text.h"

struct alignas(32) CIniRow {
    // Marks in the low bits of the hash.
    static constexpr std::uint32_t kKeyWide = 1;
    static constexpr std::uint32_t kValueWide = 2;
    static constexpr std::uint32_t kHasLineFeed = 4;  // in key or value; a file's row never has one
    static constexpr std::uint32_t kIntact = 8;       // lies in the file as it is saved: "key = value", CR LF
    static constexpr std::uint32_t kMarks = 15;

    const char* m_pKey;
    const char* m_pValue;
    std::uint32_t m_nKeySize;    // bytes
    std::uint32_t m_nValueSize;  // bytes
    std::uint32_t m_nSection;    // index of the section
    std::uint32_t m_uHash;       // of section and key, and the marks

    CIniText GetKey() const { return {m_pKey, m_nKeySize, Is(kKeyWide)}; }
    CIniText GetValue() const { return {m_pValue, m_nValueSize, Is(kValueWide)}; }
    bool Is(std::uint32_t uMark) const { return (m_uHash & uMark) != 0; }
};

struct CIniSection {
    CIniText m_text;
    std::uint32_t m_uHash;
    bool m_bLineFeed;
    // The section's rows all lie between these two numbers, the second one excluded.
    std::uint32_t m_nFirstRow;
    std::uint32_t m_nEndRow;
    std::uint32_t m_nRows;
};

class CIniTable {
  public:
    static constexpr std::uint32_t kNone = 0xFFFFFFFF;

    CIniTable() = default;
    // The copy shares the texts; new ones go to blocks of its own.
    CIniTable(const CIniTable& other);
    CIniTable& operator=(const CIniTable&) = delete;

    std::uint32_t GetRowCount() const { return static_cast<std::uint32_t>(m_aRows.size()); }
    const CIniRow& GetRow(std::uint32_t nRow) const { return m_aRows[nRow]; }
    const CIniSection& GetSection(std::uint32_t nSection) const { return m_aSections[nSection]; }

    std::uint32_t FindSection(const CIniText& name) const;
    std::uint32_t FindRow(std::uint32_t nSection, const CIniText& key) const;

    // Adds the section if it is not there.
    std::uint32_t AddSection(const CIniText& name);
    // The pair of section and key must not be there yet.
    void AppendRow(std::uint32_t nSection, const CIniText& key, const CIniText& value);
    void SetValue(std::uint32_t nRow, const CIniText& value);

    // What ReadLines leaves in force: the section of the last header.
    struct CReadEnd {
        std::uint32_t m_nSection;
        bool m_bHeader;  // false if no line was a header
    };
    // Merges the lines of a file, beginning in `nSection`, as if each were set by itself.
    CReadEnd ReadLines(const std::shared_ptr<const std::string>& pBytes, std::string_view lines,
                       std::uint32_t nSection);

    // The order in which the rows are saved: row numbers, sorted by section and then by key. Empty if the
    // rows stand in that order already.
    std::vector<std::uint32_t> GetSavingOrder() const;
    void Reorder(const std::vector<std::uint32_t>& anOrder);

    // The file's bytes of a key or value whose kept form differs from them; else of the text itself.
    std::string_view GetOriginal(const CIniText& text, std::string& strBuffer) const;
    bool HasOriginals() const { return !m_originals.empty(); }

  private:
    struct Slot {
        std::uint32_t m_uHash = 0;
        std::uint32_t m_nEntry = 0;  // number + 1; 0 is a free slot
    };

    struct RowSlot {
        // The row's number + 1, with as many bits of its hash above it as there is room for: one look tells
        // nearly always whether the row is worth going to. 0 is a free slot.
        std::uint32_t m_uEntry = 0;
        // About where the key's text lies, so that text and row can be fetched at the same time.
        std::uint32_t m_uTextPlace = 0;
    };

    struct CLoad;

    static constexpr size_t kFirstBlock = 512;  // bytes
    static constexpr size_t kLargestBlock = 1 << 20;
    // The slots are far apart; they are fetched so many rows before they are needed.
    static constexpr std::uint32_t kPrefetchAhead = 12;

    CIniText Keep(const CIniText& text);
    void NoteOriginal(const CIniText& kept, std::wstring_view strText, std::string_view original);
    CIniText KeepWithOriginal(std::wstring_view strText, std::string_view original);
    void ReadNarrowLine(CLoad& load, std::string_view line, bool bCarriageReturn);
    void ReadWideLine(CLoad& load, std::string_view line);
    void AddCandidate(CLoad& load, const CIniText& key, const CIniText& value, std::uint32_t uMarks);
    bool IsBehindLast(const CIniText& key, std::uint32_t nSection) const;
    void ReserveForMore(const CLoad& load);
    void MergeRows(std::uint32_t nFirst);
    void CountSections();
    void BuildRowIndex(std::uint32_t nRows) const;
    void InsertSlot(std::uint32_t uHash, std::uint32_t nRow) const;
    void PrefetchSlot(std::uint32_t uHash) const;
    std::uint32_t FindSlotRow(std::uint32_t uHash, std::uint32_t nSection, const CIniText& key) const;

    std::vector<std::uint32_t> RankSections() const;
    void SortTail(std::vector<std::uint32_t>& anTail, const std::vector<std::uint32_t>& anRanks) const;
    void SortKeys(std::uint32_t* pFirst, std::uint32_t* pEnd) const;

    std::vector<CIniRow> m_aRows;
    std::vector<CIniSection> m_aSections;
    std::vector<Slot> m_aSectionSlots;
    mutable std::vector<RowSlot> m_aRowSlots;  // empty until they are needed
    mutable std::uint32_t m_nSorted = 0;       // so many rows from the first on are known to be in order
    bool m_bAsciiKeys = true;

    std::vector<std::shared_ptr<const char[]>> m_apBlocks;
    char* m_pRoom = nullptr;  // free bytes in the last block
    size_t m_nRoom = 0;
    size_t m_nNextBlock = kFirstBlock;
    std::map<const char*, std::string_view> m_originals;  // by the place of the kept text
};
