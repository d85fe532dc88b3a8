#include <algorithm>
#include <string_view>

#include "platform/letter_case.h"
#include "platform/memory_files.h"

namespace platform {

namespace {

constexpr size_t kShortBase = 8;
constexpr size_t kShortExtension = 3;

// A question mark also matches nothing at the end of a name, and so does a dot ahead of a wildcard: "a*.*"
// matches "ab".
bool Matches(std::wstring_view name, std::wstring_view pattern) {
    if (pattern.empty()) return name.empty();
    if (pattern.front() == L'*') {
        for (size_t skipped = 0; skipped <= name.size(); ++skipped) {
            if (Matches(name.substr(skipped), pattern.substr(1))) return true;
        }
        return false;
    }
    if (name.empty()) {
        const bool isDotAheadOfWildcard =
            pattern.size() > 1 && pattern[0] == L'.' && (pattern[1] == L'*' || pattern[1] == L'?');
        return (pattern.front() == L'?' || isDotAheadOfWildcard) && Matches(name, pattern.substr(1));
    }
    if (pattern.front() != L'?' && pattern.front() != name.front()) return false;
    return Matches(name.substr(1), pattern.substr(1));
}

// The short name of a name that does not fit the old form; empty if the name is short itself.
std::wstring MakeShortName(const std::wstring& name) {
    const size_t dot = name.rfind(L'.');
    const bool hasExtension = dot != std::wstring::npos;
    std::wstring base = name.substr(0, dot);
    std::wstring extension = hasExtension ? name.substr(dot + 1) : std::wstring();
    const bool isShort = base.size() <= kShortBase && extension.size() <= kShortExtension &&
                         name.find_first_of(L" +,;=[]") == std::wstring::npos &&
                         base.find(L'.') == std::wstring::npos;
    if (isShort) return {};
    std::erase_if(base, [](wchar_t ch) { return ch == L' ' || ch == L'.'; });
    base = base.substr(0, kShortBase - 2) + L"~1";
    return hasExtension ? base + L"." + extension.substr(0, kShortExtension) : base;
}

}  // namespace

bool MatchesPattern(const std::wstring& name, const std::wstring& pattern) {
    const std::wstring upperPattern = ToUpper(pattern);
    if (upperPattern == L"*.*" || upperPattern == L"*") return true;
    const std::wstring upperName = ToUpper(name);
    if (upperPattern == L"*.") return upperName.find(L'.') == std::wstring::npos;
    if (Matches(upperName, upperPattern)) return true;
    const std::wstring shortName = MakeShortName(upperName);
    return !shortName.empty() && Matches(shortName, upperPattern);
}

}  // namespace platform
