#include "storage/ini_text.h"

#include <algorithm>

bool IsAscii(std::string_view bytes) {
    unsigned char uAll = 0;
    for (const char ch : bytes)
        uAll |= static_cast<unsigned char>(ch);
    return uAll < 0x80;
}

void WidenText(const CIniText& text, std::wstring& strResult) {
    if (text.m_bWide) {
        strResult.resize(text.m_nSize / sizeof(wchar_t));
        std::memcpy(strResult.data(), text.m_pBytes, text.m_nSize);
        return;
    }
    // Nearly every text is ASCII; whether this one is shows on the way.
    strResult.resize(text.m_nSize);
    if (!short_text::WidenAscii(text.m_pBytes, text.m_nSize, strResult.data())) {
        strResult = platform::GetText().Widen(text.GetBytes());
    }
}

std::wstring WidenText(const CIniText& text) {
    std::wstring strResult;
    WidenText(text, strResult);
    return strResult;
}

std::string NarrowText(const CIniText& text) {
    return text.m_bWide ? platform::GetText().Narrow(WidenText(text)) : std::string(text.GetBytes());
}

int CompareText(const CIniText& left, const CIniText& right) {
    const platform::ByteTable* pTable = platform::GetText().GetByteTable();
    const bool bNarrow = !left.m_bWide && !right.m_bWide;
    // In a code page with characters of several bytes, even a byte below 128 may be half a character.
    if (!bNarrow || (!pTable && !(IsAscii(left.GetBytes()) && IsAscii(right.GetBytes())))) {
        return WidenText(left).compare(WidenText(right));
    }
    const size_t nCommon = std::min(left.m_nSize, right.m_nSize);
    const auto [pLeft, pRight] = std::mismatch(left.m_pBytes, left.m_pBytes + nCommon, right.m_pBytes);
    if (pLeft == left.m_pBytes + nCommon) {
        return left.m_nSize == right.m_nSize ? 0 : left.m_nSize < right.m_nSize ? -1 : 1;
    }
    const auto uLeft = static_cast<unsigned char>(*pLeft);
    const auto uRight = static_cast<unsigned char>(*pRight);
    const bool bLess = pTable ? (*pTable)[uLeft] < (*pTable)[uRight] : uLeft < uRight;
    return bLess ? -1 : 1;
}

void CIniTextMaker::MakeFromOthers(std::wstring_view strText) {
    m_strBytes = platform::GetText().Narrow(strText);
    if (platform::GetText().Widen(m_strBytes) == strText) {
        m_text = {m_strBytes.data(), static_cast<std::uint32_t>(m_strBytes.size()), false};
    } else {
        m_text = {reinterpret_cast<const char*>(strText.data()),
                  static_cast<std::uint32_t>(strText.size() * sizeof(wchar_t)), true};
    }
}
