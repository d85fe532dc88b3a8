#include "drawing_manager/window_position.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cwctype>
#include <limits>

#include "drawing_manager/dialog_layout.h"

namespace {

constexpr size_t kNumberCount = 13;

bool IsDigit(wchar_t ch) {
    return ch >= L'0' && ch <= L'9';
}

// Reads one number as a "%d" does: blanks, a sign, digits. False without a digit.
bool ReadNumber(const std::wstring& strText, size_t& nPosition, int& nNumber) {
    while (nPosition < strText.size() && std::iswspace(static_cast<wint_t>(strText[nPosition])))
        ++nPosition;
    bool bNegative = false;
    if (nPosition < strText.size() && (strText[nPosition] == L'-' || strText[nPosition] == L'+')) {
        bNegative = strText[nPosition++] == L'-';
    }
    if (nPosition >= strText.size() || !IsDigit(strText[nPosition])) return false;
    constexpr std::int64_t nLimit = std::int64_t{1} << 32;
    std::int64_t nValue = 0;
    for (; nPosition < strText.size() && IsDigit(strText[nPosition]); ++nPosition) {
        nValue = std::min(nLimit, nValue * 10 + (strText[nPosition] - L'0'));
    }
    nValue = bNegative ? -nValue : nValue;
    nNumber = static_cast<int>(
        std::clamp<std::int64_t>(nValue, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
    return true;
}

// The far edge of a span that is at most `nMost` long.
int LimitSpan(int nNear, int nFar, int nMost) {
    const std::int64_t nLimited = std::min<std::int64_t>(nFar, std::int64_t{nNear} + nMost);
    return static_cast<int>(nLimited);
}

}  // namespace

std::wstring FormatWindowPosition(const CWindowPosition& position) {
    std::wstring strText;
    for (const CPixelRect* pRect : {&position.rcWindow, &position.rcSplitterV, &position.rcSplitterH}) {
        for (int nEdge : {pRect->left, pRect->top, pRect->right, pRect->bottom}) {
            strText += std::to_wstring(nEdge) + L",";
        }
    }
    return strText + (position.bListVisible ? L"1" : L"0");
}

CWindowPosition ParseWindowPosition(const std::wstring& strText) {
    std::array<int, kNumberCount> anNumbers{};
    anNumbers.back() = 1;
    size_t nPosition = 0;
    for (int& nNumber : anNumbers) {
        if (!ReadNumber(strText, nPosition, nNumber)) break;
        if (nPosition >= strText.size() || strText[nPosition] != L',') break;
        ++nPosition;
    }
    const auto rectAt = [&anNumbers](size_t n) {
        return CPixelRect{anNumbers[n], anNumbers[n + 1], anNumbers[n + 2], anNumbers[n + 3]};
    };
    return {rectAt(0), rectAt(4), rectAt(8), anNumbers.back() == 1};
}

CPixelRect ClampWindowRect(const CPixelRect& rect) {
    CPixelRect clamped = rect;
    clamped.left = std::max(clamped.left, 0);
    clamped.top = std::max(clamped.top, 0);
    clamped.right = LimitSpan(clamped.left, clamped.right, kMaxDialogWidth);
    clamped.bottom = LimitSpan(clamped.top, clamped.bottom, kMaxDialogHeight);
    return clamped;
}
