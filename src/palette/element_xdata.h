// The record that the piping programs leave on every element they draw.
#pragma once

#include <array>
#include <cstdint>
#include <string>

struct resbuf;

struct CElementXData {
    std::int32_t m_nElement = 0;
    std::int16_t m_nShort1 = 0;
    std::int16_t m_nShort2 = 0;
    std::array<std::uint8_t, 8> m_aBlockWord{};
    std::int32_t m_nField = 0;
    std::int32_t m_nLineId = 0;
    std::int16_t m_nVersion = 0;
    std::wstring m_strText;  // version 2 and above
};

// Reads the items in their fixed order; the application name ahead of them may be missing. The first item
// that is not what stands in its place ends the reading: what was read so far stays.
CElementXData ReadElementXData(const resbuf* pItems);

// True for the names, in any letter case, of the blocks that the piping programs insert.
bool IsPipingElementBlock(const std::wstring& strBlockName);
