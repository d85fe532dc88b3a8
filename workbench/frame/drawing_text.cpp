#include "frame/drawing_text.h"

#include <algorithm>
#include <cwctype>

namespace frame {

namespace {

// Reads `count` digits of `base` from `at`. -1 if there are fewer.
long Digits(const std::wstring& text, std::size_t at, std::size_t count, int base) {
    if (at + count > text.size()) return -1;
    long value = 0;
    for (std::size_t i = at; i < at + count; ++i) {
        const wchar_t c = text[i];
        int digit = -1;
        if (c >= L'0' && c <= L'9') digit = c - L'0';
        if (base == 16 && c >= L'A' && c <= L'F') digit = c - L'A' + 10;
        if (base == 16 && c >= L'a' && c <= L'f') digit = c - L'a' + 10;
        if (digit < 0) return -1;
        value = value * base + digit;
    }
    return value;
}

// "\U+00B0" at `at`: appends the character and moves on.
bool TakeUnicode(const std::wstring& text, std::size_t& at, std::wstring& plain) {
    if (text.compare(at, 3, L"\\U+") != 0) return false;
    const long code = Digits(text, at + 3, 4, 16);
    if (code <= 0) return false;
    plain += static_cast<wchar_t>(code);
    at += 7;
    return true;
}

// "%%d" and its kin at `at`.
bool TakePercent(const std::wstring& text, std::size_t& at, std::wstring& plain) {
    if (text.compare(at, 2, L"%%") != 0 || at + 2 >= text.size()) return false;
    switch (std::towlower(static_cast<std::wint_t>(text[at + 2]))) {
        case L'd':
            plain += L'\u00B0';
            break;
        case L'p':
            plain += L'\u00B1';
            break;
        case L'c':
            plain += L'\u2300';
            break;
        case L'%':
            plain += L'%';
            break;
        case L'u':
        case L'o':
            break;
        default: {
            const long code = Digits(text, at + 2, 3, 10);
            if (code <= 0) return false;
            plain += static_cast<wchar_t>(code);
            at += 5;
            return true;
        }
    }
    at += 3;
    return true;
}

// The codes of paragraph text that have an argument up to a semicolon.
bool HasArgument(wchar_t code) {
    return std::wstring(L"ACfFHQTWp").find(code) != std::wstring::npos;
}

// "\S1^2;" at `at`, which stands on the S: a fraction.
void TakeFraction(const std::wstring& text, std::size_t& at, std::wstring& plain) {
    for (++at; at < text.size() && text[at] != L';'; ++at)
        plain += text[at] == L'^' || text[at] == L'#' ? L'/' : text[at];
    at = std::min(at + 1, text.size());
}

}  // namespace

std::wstring PlainLine(const std::wstring& text) {
    std::wstring plain;
    for (std::size_t at = 0; at < text.size();) {
        if (TakePercent(text, at, plain) || TakeUnicode(text, at, plain)) continue;
        plain += text[at++];
    }
    return plain;
}

std::vector<std::wstring> PlainParagraphs(const std::wstring& text) {
    std::vector<std::wstring> lines(1);
    for (std::size_t at = 0; at < text.size();) {
        std::wstring& line = lines.back();
        if (TakePercent(text, at, line) || TakeUnicode(text, at, line)) continue;
        const wchar_t c = text[at++];
        if (c == L'{' || c == L'}') continue;
        if (c == L'\n') {
            lines.emplace_back();
            continue;
        }
        if (c != L'\\' || at >= text.size()) {
            line += c;
            continue;
        }
        const wchar_t code = text[at];
        if (code == L'P') {
            lines.emplace_back();
            ++at;
        } else if (code == L'S') {
            TakeFraction(text, at, line);
        } else if (code == L'~') {
            line += L' ';
            ++at;
        } else if (code == L'\\' || code == L'{' || code == L'}') {
            line += code;
            ++at;
        } else if (HasArgument(code)) {
            at = std::min(text.find(L';', at), text.size() - 1) + 1;
        } else {
            ++at;
        }
    }
    return lines;
}

}  // namespace frame
