#include "platform/letter_case.h"

#include <algorithm>

namespace platform {

namespace {

constexpr wchar_t kSmallSharpS = 0xDF;
constexpr wchar_t kSmallYDiaeresis = 0xFF;
constexpr wchar_t kCapitalYDiaeresis = 0x178;

bool IsBetween(wchar_t ch, unsigned first, unsigned last) {
    return ch >= static_cast<wchar_t>(first) && ch <= static_cast<wchar_t>(last);
}

// Blocks in which a capital stands directly ahead of its small letter.
bool IsInPairsFromEven(wchar_t ch) {
    return IsBetween(ch, 0x100, 0x12F) || IsBetween(ch, 0x132, 0x137) || IsBetween(ch, 0x14A, 0x177) ||
           IsBetween(ch, 0x3D8, 0x3EF) || IsBetween(ch, 0x460, 0x481) || IsBetween(ch, 0x48A, 0x4BF) ||
           IsBetween(ch, 0x4D0, 0x52F) || IsBetween(ch, 0x1E00, 0x1E95) || IsBetween(ch, 0x1EA0, 0x1EFF);
}

bool IsInPairsFromOdd(wchar_t ch) {
    return IsBetween(ch, 0x139, 0x148) || IsBetween(ch, 0x179, 0x17E) || IsBetween(ch, 0x4C1, 0x4CE);
}

}  // namespace

wchar_t ToUpper(wchar_t ch) {
    if (IsBetween(ch, 'a', 'z')) return static_cast<wchar_t>(ch - 0x20);
    if (IsBetween(ch, 0, 0x7F)) return ch;
    if (IsBetween(ch, 0xE0, 0xFE) && ch != 0xF7) return static_cast<wchar_t>(ch - 0x20);
    if (ch == kSmallYDiaeresis) return kCapitalYDiaeresis;
    if (IsInPairsFromEven(ch)) return static_cast<wchar_t>(ch & ~1);
    if (IsInPairsFromOdd(ch)) return static_cast<wchar_t>(((ch - 1) | 1));
    if (ch == 0x3AC) return 0x386;
    if (IsBetween(ch, 0x3AD, 0x3AF)) return static_cast<wchar_t>(ch - 37);
    if (IsBetween(ch, 0x3B1, 0x3CB) && ch != 0x3C2) return static_cast<wchar_t>(ch - 0x20);
    if (ch == 0x3CC) return 0x38C;
    if (IsBetween(ch, 0x3CD, 0x3CE)) return static_cast<wchar_t>(ch - 63);
    if (IsBetween(ch, 0x430, 0x44F)) return static_cast<wchar_t>(ch - 0x20);
    if (IsBetween(ch, 0x450, 0x45F)) return static_cast<wchar_t>(ch - 0x50);
    return ch;
}

wchar_t ToLower(wchar_t ch) {
    if (IsBetween(ch, 'A', 'Z')) return static_cast<wchar_t>(ch + 0x20);
    if (IsBetween(ch, 0, 0x7F)) return ch;
    if (IsBetween(ch, 0xC0, 0xDE) && ch != 0xD7) return static_cast<wchar_t>(ch + 0x20);
    if (ch == kSmallSharpS) return ch;
    if (ch == kCapitalYDiaeresis) return kSmallYDiaeresis;
    if (IsInPairsFromEven(ch)) return static_cast<wchar_t>(ch | 1);
    if (IsInPairsFromOdd(ch)) return static_cast<wchar_t>((ch + 1) & ~1);
    if (ch == 0x386) return 0x3AC;
    if (IsBetween(ch, 0x388, 0x38A)) return static_cast<wchar_t>(ch + 37);
    if (ch == 0x38C) return 0x3CC;
    if (IsBetween(ch, 0x38E, 0x38F)) return static_cast<wchar_t>(ch + 63);
    if (IsBetween(ch, 0x391, 0x3AB) && ch != 0x3A2) return static_cast<wchar_t>(ch + 0x20);
    if (IsBetween(ch, 0x410, 0x42F)) return static_cast<wchar_t>(ch + 0x20);
    if (IsBetween(ch, 0x400, 0x40F)) return static_cast<wchar_t>(ch + 0x50);
    return ch;
}

std::wstring ToUpper(std::wstring_view text) {
    std::wstring result(text);
    for (wchar_t& ch : result)
        ch = ToUpper(ch);
    return result;
}

std::wstring ToLower(std::wstring_view text) {
    std::wstring result(text);
    for (wchar_t& ch : result)
        ch = ToLower(ch);
    return result;
}

int CompareWithoutCase(std::wstring_view left, std::wstring_view right) {
    const size_t common = std::min(left.size(), right.size());
    for (size_t i = 0; i < common; ++i) {
        const wchar_t l = ToUpper(left[i]);
        const wchar_t r = ToUpper(right[i]);
        if (l != r) return l < r ? -1 : 1;
    }
    if (left.size() == right.size()) return 0;
    return left.size() < right.size() ? -1 : 1;
}

}  // namespace platform
