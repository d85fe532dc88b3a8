#include "platform/ansi_coding.h"

#include <windows.h>

#include <algorithm>

namespace platform {

namespace {

// The lone surrogates that stand for bytes which do not decode; no text of a file has them otherwise.
constexpr unsigned kEscapeBase = 0xDC00;
constexpr unsigned kFirstEscape = kEscapeBase + 0x80;
constexpr unsigned kLastEscape = kEscapeBase + 0xFF;
constexpr size_t kLongestCharacter = 4;  // bytes
constexpr char kSubstitute = '?';

bool IsAscii(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

bool IsEscape(wchar_t ch) {
    return ch >= kFirstEscape && ch <= kLastEscape;
}

bool IsHighSurrogate(wchar_t ch) {
    return ch >= 0xD800 && ch < 0xDC00;
}

bool IsLowSurrogate(wchar_t ch) {
    return ch >= 0xDC00 && ch < 0xE000;
}

int Decode(unsigned codePage, std::string_view bytes, wchar_t* text, size_t room) {
    return MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, bytes.data(), static_cast<int>(bytes.size()),
                               text, static_cast<int>(room));
}

}  // namespace

AnsiCoding::AnsiCoding() : AnsiCoding(GetACP()) {}

AnsiCoding::AnsiCoding(unsigned codePage) : m_codePage(codePage) {
    CPINFO info{};
    m_isOneToOne = GetCPInfo(codePage, &info) && info.MaxCharSize == 1;
    for (unsigned byte = 0; byte < m_table.size(); ++byte) {
        const char narrow = static_cast<char>(byte);
        const bool decodes = Decode(codePage, std::string_view(&narrow, 1), &m_table[byte], 1) == 1;
        if (!decodes) m_table[byte] = static_cast<wchar_t>(kEscapeBase + byte);
    }
    // A code page that turns two bytes into one character would lose one of them.
    ByteTable sorted = m_table;
    std::sort(sorted.begin(), sorted.end());
    if (std::adjacent_find(sorted.begin(), sorted.end()) != sorted.end()) m_isOneToOne = false;
}

const ByteTable* AnsiCoding::GetByteTable() {
    return m_isOneToOne ? &m_table : nullptr;
}

std::wstring AnsiCoding::Widen(std::string_view bytes) {
    std::wstring text;
    text.reserve(bytes.size());
    size_t position = 0;
    while (position < bytes.size()) {
        const char byte = bytes[position];
        if (IsAscii(byte) || m_isOneToOne) {
            text += m_table[static_cast<unsigned char>(byte)];
            ++position;
        } else {
            position += DecodeOne(bytes.substr(position), text);
        }
    }
    return text;
}

// Decodes the shortest sequence that is a whole character and encodes back to its bytes; the result is its
// length.
size_t AnsiCoding::DecodeOne(std::string_view bytes, std::wstring& text) const {
    for (size_t length = 1; length <= std::min(kLongestCharacter, bytes.size()); ++length) {
        wchar_t decoded[2];
        const int count = Decode(m_codePage, bytes.substr(0, length), decoded, 2);
        const bool isEscape = count == 1 && IsEscape(decoded[0]);
        if (count <= 0 || isEscape) continue;
        text.append(decoded, static_cast<size_t>(count));
        return length;
    }
    text += static_cast<wchar_t>(kEscapeBase + static_cast<unsigned char>(bytes.front()));
    return 1;
}

std::string AnsiCoding::Narrow(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        const wchar_t ch = text[i];
        if (ch < 0x80) {
            bytes += static_cast<char>(ch);
        } else if (IsHighSurrogate(ch) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
            EncodeOne(text.substr(i, 2), bytes);
            ++i;
        } else if (IsEscape(ch)) {
            bytes += static_cast<char>(ch - kEscapeBase);
        } else {
            EncodeOne(text.substr(i, 1), bytes);
        }
    }
    return bytes;
}

// Letters that only look like the right ones are not taken: they would change the text unseen.
void AnsiCoding::EncodeOne(std::wstring_view character, std::string& bytes) const {
    char encoded[2 * kLongestCharacter];
    BOOL substituted = FALSE;
    const bool isUtf8 = m_codePage == CP_UTF8;
    const int count = WideCharToMultiByte(m_codePage, isUtf8 ? WC_ERR_INVALID_CHARS : WC_NO_BEST_FIT_CHARS,
                                          character.data(), static_cast<int>(character.size()), encoded,
                                          sizeof encoded, nullptr, isUtf8 ? nullptr : &substituted);
    if (count <= 0 || substituted) {
        bytes += kSubstitute;
    } else {
        bytes.append(encoded, static_cast<size_t>(count));
    }
}

}  // namespace platform
