#include "drawing_file/dxf_text.h"

#include <charconv>
#include <cstdint>

#include "drawing_file/code_pages.h"

namespace workbench::drawing_file {
namespace {

constexpr std::string_view kUnicodeEscape = "\\U+";
constexpr std::size_t kUnicodeDigits = 4;
constexpr char kControlOffset = 0x40;  // "^J" is the control character 10, as J is 74
constexpr char32_t kFirstSupplementary = 0x10000;
constexpr char32_t kHighSurrogate = 0xD800;
constexpr char32_t kLowSurrogate = 0xDC00;
constexpr char32_t kLastSurrogate = 0xDFFF;

bool IsHighSurrogate(char32_t c) {
    return c >= kHighSurrogate && c < kLowSurrogate;
}
bool IsLowSurrogate(char32_t c) {
    return c >= kLowSurrogate && c <= kLastSurrogate;
}

char32_t JoinedSurrogates(char32_t high, char32_t low) {
    return kFirstSupplementary + ((high - kHighSurrogate) << 10) + (low - kLowSurrogate);
}

// Appends a character in the form that the platform's wide characters have. Two halves of a pair that arrive
// one by one become one character where wide characters have 32 bits.
void AppendCharacter(std::wstring& text, char32_t c) {
    if constexpr (sizeof(wchar_t) == 2) {
        if (c >= kFirstSupplementary) {
            text += static_cast<wchar_t>(kHighSurrogate + ((c - kFirstSupplementary) >> 10));
            text += static_cast<wchar_t>(kLowSurrogate + ((c - kFirstSupplementary) & 0x3FF));
            return;
        }
    } else if (IsLowSurrogate(c) && !text.empty() && IsHighSurrogate(static_cast<char32_t>(text.back()))) {
        text.back() = static_cast<wchar_t>(JoinedSurrogates(static_cast<char32_t>(text.back()), c));
        return;
    }
    text += static_cast<wchar_t>(c);
}

// Takes one character of UTF-8 off the front of `bytes`; false if there is no valid one.
bool TakeUtf8(std::string_view& bytes, char32_t& c) {
    const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned char first = byteAt(0);
    std::size_t length = 1;
    char32_t lowest = 0;
    if (first < 0x80) {
        c = first;
    } else if (first >= 0xC2 && first <= 0xDF) {
        length = 2, lowest = 0x80, c = first & 0x1F;
    } else if ((first & 0xF0) == 0xE0) {
        length = 3, lowest = 0x800, c = first & 0x0F;
    } else if (first >= 0xF0 && first <= 0xF4) {
        length = 4, lowest = kFirstSupplementary, c = first & 0x07;
    } else {
        return false;
    }
    if (bytes.size() < length) return false;
    for (std::size_t i = 1; i < length; ++i) {
        if ((byteAt(i) & 0xC0) != 0x80) return false;
        c = (c << 6) | (byteAt(i) & 0x3F);
    }
    bytes.remove_prefix(length);
    return c >= lowest && c <= 0x10FFFF && !(c >= kHighSurrogate && c <= kLastSurrogate);
}

bool IsUtf8(std::string_view bytes) {
    char32_t c = 0;
    while (!bytes.empty()) {
        if (!TakeUtf8(bytes, c)) return false;
    }
    return true;
}

// Takes an escape off the front of `bytes`; false if none stands there.
bool TakeEscape(std::string_view& bytes, char32_t& c) {
    if (bytes.size() >= 2 && bytes[0] == '^') {
        const char next = bytes[1];
        if (next != ' ' && (next <= kControlOffset || next >= kControlOffset + 32)) return false;
        c = next == ' ' ? U'^' : static_cast<char32_t>(next - kControlOffset);
        bytes.remove_prefix(2);
        return true;
    }
    const std::size_t length = kUnicodeEscape.size() + kUnicodeDigits;
    if (bytes.size() < length || !bytes.starts_with(kUnicodeEscape)) return false;
    std::uint32_t code = 0;
    const char* digits = bytes.data() + kUnicodeEscape.size();
    const auto result = std::from_chars(digits, digits + kUnicodeDigits, code, 16);
    if (result.ptr != digits + kUnicodeDigits || code == 0) return false;
    c = code;
    bytes.remove_prefix(length);
    return true;
}

void AppendUnicodeEscape(std::string& bytes, char32_t unit) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    bytes += kUnicodeEscape;
    for (int shift = 12; shift >= 0; shift -= 4)
        bytes += kDigits[(unit >> shift) & 0xF];
}

bool BeginsEscape(std::wstring_view text) {
    if (!text.starts_with(L"\\U+") || text.size() < kUnicodeEscape.size() + kUnicodeDigits) return false;
    const auto digits = text.substr(kUnicodeEscape.size(), kUnicodeDigits);
    return digits.find_first_not_of(L"0123456789ABCDEFabcdef") == std::wstring_view::npos;
}

// The byte of Windows-1252 for a character, or 0. Only what prints: the five codes that stand for nothing
// there are control characters to other programs.
char WesternByte(char32_t c) {
    if (c >= 0xA0 && c <= 0xFF) return static_cast<char>(c);
    const char16_t* table = UpperHalfOfCodePage(kWesternCodePage);
    for (int i = 0; i < 32; ++i) {
        if (c > 0xFF && table[i] == c) return static_cast<char>(128 + i);
    }
    return 0;
}

void AppendUtf8(std::string& bytes, char32_t c) {
    const auto continuation = [c](int shift) { return static_cast<char>(0x80 | ((c >> shift) & 0x3F)); };
    if (c < 0x800) {
        bytes += static_cast<char>(0xC0 | (c >> 6));
    } else if (c < kFirstSupplementary) {
        bytes += static_cast<char>(0xE0 | (c >> 12));
        bytes += continuation(6);
    } else {
        bytes += static_cast<char>(0xF0 | (c >> 18));
        bytes += continuation(12);
        bytes += continuation(6);
    }
    bytes += continuation(0);
}

void AppendAsEscapes(std::string& bytes, char32_t c) {
    if (c >= kFirstSupplementary) {
        AppendUnicodeEscape(bytes, kHighSurrogate + ((c - kFirstSupplementary) >> 10));
        AppendUnicodeEscape(bytes, kLowSurrogate + ((c - kFirstSupplementary) & 0x3FF));
    } else {
        AppendUnicodeEscape(bytes, c);
    }
}

void AppendEncoded(std::string& bytes, char32_t c, Encoding encoding) {
    if (c == U'^') {
        bytes += "^ ";
    } else if (c < U' ') {
        bytes += '^';
        bytes += static_cast<char>(c + kControlOffset);
    } else if (c < 0x80) {
        bytes += static_cast<char>(c);
    } else if (encoding == Encoding::kUtf8 && !(c >= kHighSurrogate && c <= kLastSurrogate)) {
        AppendUtf8(bytes, c);
    } else if (const char byte = encoding == Encoding::kWestern ? WesternByte(c) : '\0') {
        bytes += byte;
    } else {
        AppendAsEscapes(bytes, c);
    }
}

// Takes one character off the front of `text`, joining the halves of a pair where wide characters have 16
// bits.
char32_t TakeCharacter(std::wstring_view& text) {
    auto c = static_cast<char32_t>(text[0]);
    text.remove_prefix(1);
    if (IsHighSurrogate(c) && !text.empty() && IsLowSurrogate(static_cast<char32_t>(text[0]))) {
        c = JoinedSurrogates(c, static_cast<char32_t>(text[0]));
        text.remove_prefix(1);
    }
    return c;
}

}  // namespace

TextDecoder::TextDecoder(std::string_view codePage, bool isUtf8) : m_table(nullptr), m_isUtf8(isUtf8) {
    const int number = NumberOfCodePage(codePage);
    if (!isUtf8 && !IsDoubleByteCodePage(number)) m_table = UpperHalfOfCodePage(number);
}

std::optional<std::wstring> TextDecoder::Decode(std::string_view bytes) const {
    const bool isUtf8 = m_isUtf8 && IsUtf8(bytes);
    const char16_t* table = m_isUtf8 ? UpperHalfOfCodePage(kWesternCodePage) : m_table;
    std::wstring text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        char32_t c = 0;
        const unsigned char byte = static_cast<unsigned char>(bytes[0]);
        if ((byte == '^' || byte == '\\') && TakeEscape(bytes, c)) {
            AppendCharacter(text, c);
            continue;
        }
        if (isUtf8) {
            TakeUtf8(bytes, c);
        } else {
            if (byte >= 128 && table == nullptr) return std::nullopt;
            c = byte < 128 ? byte : table[byte - 128];
            bytes.remove_prefix(1);
        }
        // A zero would end the text for every reader of zero-terminated strings.
        if (c != 0) AppendCharacter(text, c);
    }
    return text;
}

std::string EncodeText(std::wstring_view text, Encoding encoding) {
    std::string bytes;
    bytes.reserve(text.size());
    while (!text.empty()) {
        const bool beginsEscape = BeginsEscape(text);
        const char32_t c = TakeCharacter(text);
        if (beginsEscape) {
            AppendUnicodeEscape(bytes, c);
        } else {
            AppendEncoded(bytes, c, encoding);
        }
    }
    return bytes;
}

}  // namespace workbench::drawing_file
