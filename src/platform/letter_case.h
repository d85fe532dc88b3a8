// Upper and lower case of single letters, the same on every system: Latin, Greek and Cyrillic letters, one
// code for one code. Everything else is left as it is.
#pragma once

#include <string>
#include <string_view>

namespace platform {

wchar_t ToUpper(wchar_t ch);
wchar_t ToLower(wchar_t ch);
std::wstring ToUpper(std::wstring_view text);
std::wstring ToLower(std::wstring_view text);

// Compares by the codes of the upper-case letters, as the file system orders names: less than 0, 0 or more
// than 0. "a_b" stands behind "aab", since "_" is greater than "A".
int CompareWithoutCase(std::wstring_view left, std::wstring_view right);

inline bool EqualWithoutCase(std::wstring_view left, std::wstring_view right) {
    return left.size() == right.size() && CompareWithoutCase(left, right) == 0;
}

}  // namespace platform
