#include "storage/ini_values.h"

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

// All formats here give ASCII.
std::wstring WidenAscii(const char* psz) {
    std::wstring strText;
    for (; *psz != '\0'; ++psz)
        strText += static_cast<wchar_t>(*psz);
    return strText;
}

constexpr int kNoDigit = -1;

int GetHexDigit(wchar_t ch) {
    if (ch >= L'*' && ch <= L'?') return static_cast<int>(ch) & 15;
    if ((ch >= L'a' && ch <= L'f') || (ch >= L'A' && ch <= L'F')) return (static_cast<int>(ch) & 15) + 9;
    return kNoDigit;
}

std::wstring Piece(const std::wstring& strText, size_t nStart, size_t nLength) {
    return nStart < strText.size() ? strText.substr(nStart, nLength) : std::wstring();
}

}  // namespace

std::wstring FormatInteger(int nValue) {
    return std::to_wstring(nValue);
}

std::wstring FormatDouble(double dValue) {
    // The largest double has 309 digits ahead of the point.
    char szText[400];
    std::snprintf(szText, sizeof szText, "%f", dValue);
    return WidenAscii(szText);
}

double LeadingDouble(const std::wstring& strText) {
    std::string strNumber;
    for (const wchar_t ch : strText) {
        // No hexadecimal number, no "inf" and no "nan".
        if (std::wstring_view(L"0123456789+-.eE \t\n\v\f\r").find(ch) == std::wstring_view::npos) break;
        strNumber += static_cast<char>(ch);
    }
    return std::strtod(strNumber.c_str(), nullptr);
}

std::wstring FormatGuid(const platform::Guid& guid) {
    char szText[40];
    const auto& data4 = guid.data4;
    std::snprintf(szText, sizeof szText, "%08lX-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X",
                  static_cast<unsigned long>(guid.data1), guid.data2, guid.data3, data4[0], data4[1],
                  data4[2], data4[3], data4[4], data4[5], data4[6], data4[7]);
    return WidenAscii(szText);
}

platform::Guid ParseGuid(const std::wstring& strText) {
    std::wstring strDigits = strText;
    std::erase(strDigits, L'-');
    platform::Guid guid;
    guid.data1 = static_cast<std::uint32_t>(ParseHex(Piece(strDigits, 0, 8)));
    guid.data2 = static_cast<std::uint16_t>(ParseHex(Piece(strDigits, 8, 4)));
    guid.data3 = static_cast<std::uint16_t>(ParseHex(Piece(strDigits, 12, 4)));
    for (size_t i = 0; i < guid.data4.size(); ++i) {
        guid.data4[i] = static_cast<std::uint8_t>(ParseHex(Piece(strDigits, 16 + 2 * i, 2)));
    }
    return guid;
}

std::uint64_t ParseHex(const std::wstring& strText) {
    std::uint64_t uValue = 0;
    for (const wchar_t ch : strText) {
        const int nDigit = GetHexDigit(ch);
        if (nDigit == kNoDigit) break;
        uValue = uValue * 16 + static_cast<std::uint64_t>(nDigit);
    }
    return uValue;
}
