// What is trimmed off the names in an ini document, in narrow and in wide text.
#pragma once

#include <string_view>

namespace ini_trim {

template <typename Char>
bool IsKeyTrim(Char ch) {
    return ch == '[' || ch == ']' || ch == '\n' || ch == '\t';
}

template <typename Char>
bool IsSectionTrim(Char ch) {
    return IsKeyTrim(ch) || ch == ' ';
}

template <typename Char, typename IsTrim>
std::basic_string_view<Char> Trim(std::basic_string_view<Char> text, IsTrim isTrim) {
    while (!text.empty() && isTrim(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isTrim(text.back()))
        text.remove_suffix(1);
    return text;
}

}  // namespace ini_trim

// Brackets, tabs and line feeds go, blanks stay.
template <typename Char>
std::basic_string_view<Char> TrimKey(std::basic_string_view<Char> key) {
    return ini_trim::Trim(key, ini_trim::IsKeyTrim<Char>);
}

// Blanks go too.
template <typename Char>
std::basic_string_view<Char> TrimSection(std::basic_string_view<Char> name) {
    return ini_trim::Trim(name, ini_trim::IsSectionTrim<Char>);
}
