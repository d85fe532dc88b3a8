#include "platform/memory_path.h"

#include <algorithm>

namespace platform {

namespace {

constexpr wchar_t kLongPathPrefix[] = L"\\\\?\\";

bool IsLetter(wchar_t ch) {
    return (ch >= L'a' && ch <= L'z') || (ch >= L'A' && ch <= L'Z');
}

bool IsValidName(const std::wstring& name, bool allowWildcards) {
    const std::wstring_view forbidden = allowWildcards ? L"<>:\"|" : L"<>:\"|*?";
    return std::none_of(name.begin(), name.end(), [&](wchar_t ch) {
        return static_cast<std::uint32_t>(ch) < 0x20 || forbidden.find(ch) != std::wstring_view::npos;
    });
}

std::vector<std::wstring> SplitNames(const std::wstring& text) {
    std::vector<std::wstring> names;
    size_t start = 0;
    while (start <= text.size()) {
        const size_t end = std::min(text.find(L'\\', start), text.size());
        if (end > start) names.push_back(text.substr(start, end - start));
        start = end + 1;
    }
    return names;
}

// Takes the root off the text's front.
std::wstring TakeRoot(std::wstring& text) {
    std::wstring root = L"C:";
    if (text.rfind(L"\\\\", 0) == 0) {
        const size_t server = std::min(text.find(L'\\', 2), text.size());
        const size_t share = std::min(text.find(L'\\', std::min(server + 1, text.size())), text.size());
        root = text.substr(0, share);
        text.erase(0, share);
    } else if (text.size() >= 2 && IsLetter(text[0]) && text[1] == L':') {
        root = text.substr(0, 2);
        text.erase(0, 2);
    }
    return root;
}

void TrimEnd(std::wstring& name) {
    while (!name.empty() && (name.back() == L'.' || name.back() == L' '))
        name.pop_back();
}

}  // namespace

MemoryPath ParseMemoryPath(const std::wstring& path, bool allowWildcards) {
    MemoryPath result;
    std::wstring text = path;
    std::replace(text.begin(), text.end(), L'/', L'\\');
    if (text.rfind(kLongPathPrefix, 0) == 0) text.erase(0, 4);
    if (text.empty()) {
        result.error = kPathNotFound;
        return result;
    }
    result.root = TakeRoot(text);
    result.endsInBackslash = text.size() > 1 && text.back() == L'\\';
    for (std::wstring& name : SplitNames(text)) {
        if (name == L".") continue;
        if (name == L"..") {
            if (!result.names.empty()) result.names.pop_back();
            continue;
        }
        result.names.push_back(std::move(name));
    }
    if (!result.names.empty() && !result.endsInBackslash && !allowWildcards) TrimEnd(result.names.back());
    for (size_t i = 0; i < result.names.size(); ++i) {
        const bool isLast = i + 1 == result.names.size();
        if (!IsValidName(result.names[i], allowWildcards && isLast)) result.error = kInvalidName;
    }
    if (!result.names.empty() && result.names.back().empty()) result.names.pop_back();
    return result;
}

}  // namespace platform
