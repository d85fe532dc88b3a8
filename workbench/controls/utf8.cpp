#include "controls/utf8.h"

#include <cstdint>

namespace controls {

namespace {

constexpr char32_t kLastLetter = 0x10FFFF;

bool IsSurrogate(char32_t letter) {
    return letter >= 0xD800 && letter <= 0xDFFF;
}

// How many bytes follow a leading byte, and the smallest letter that needs so many; false for a byte that
// leads nothing.
bool ReadLead(std::uint8_t lead, int& following, char32_t& letter, char32_t& smallest) {
    if (lead < 0x80) return following = 0, letter = lead, smallest = 0, true;
    if ((lead & 0xE0) == 0xC0) return following = 1, letter = lead & 0x1F, smallest = 0x80, true;
    if ((lead & 0xF0) == 0xE0) return following = 2, letter = lead & 0x0F, smallest = 0x800, true;
    if ((lead & 0xF8) == 0xF0) return following = 3, letter = lead & 0x07, smallest = 0x10000, true;
    return false;
}

void Append(std::wstring& text, char32_t letter) {
    if (sizeof(wchar_t) > 2 || letter < 0x10000) {
        text += static_cast<wchar_t>(letter);
        return;
    }
    letter -= 0x10000;
    text += static_cast<wchar_t>(0xD800 + (letter >> 10));
    text += static_cast<wchar_t>(0xDC00 + (letter & 0x3FF));
}

}  // namespace

bool Utf8ToWide(std::string_view bytes, std::wstring& text) {
    text.clear();
    for (size_t i = 0; i < bytes.size();) {
        int following = 0;
        char32_t letter = 0, smallest = 0;
        bool good = ReadLead(static_cast<std::uint8_t>(bytes[i++]), following, letter, smallest);
        for (; good && following > 0; --following) {
            good = i < bytes.size() && (static_cast<std::uint8_t>(bytes[i]) & 0xC0) == 0x80;
            if (good) letter = letter << 6 | (static_cast<std::uint8_t>(bytes[i++]) & 0x3F);
        }
        if (!good || letter < smallest || letter > kLastLetter || IsSurrogate(letter)) {
            text.clear();
            return false;
        }
        Append(text, letter);
    }
    return true;
}

}  // namespace controls
