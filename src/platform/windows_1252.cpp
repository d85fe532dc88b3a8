#include "platform/windows_1252.h"

namespace platform {

namespace {

constexpr unsigned kFirstSpecial = 0x80;
constexpr unsigned kLastSpecial = 0x9F;

constexpr std::array<std::uint16_t, 32> kSpecials = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

constexpr ByteTable MakeTable() {
    ByteTable table{};
    for (unsigned byte = 0; byte < table.size(); ++byte) {
        const bool isSpecial = byte >= kFirstSpecial && byte <= kLastSpecial;
        table[byte] = static_cast<wchar_t>(isSpecial ? kSpecials[byte - kFirstSpecial] : byte);
    }
    return table;
}

constexpr ByteTable kTable = MakeTable();

char NarrowOne(wchar_t ch) {
    const auto code = static_cast<std::uint32_t>(ch);
    if (code < kFirstSpecial || (code > kLastSpecial && code <= 0xFF)) return static_cast<char>(code);
    for (unsigned i = 0; i < kSpecials.size(); ++i) {
        if (kSpecials[i] == code) return static_cast<char>(kFirstSpecial + i);
    }
    return '?';
}

}  // namespace

std::wstring Windows1252Coding::Widen(std::string_view bytes) {
    std::wstring text(bytes.size(), L'\0');
    for (size_t i = 0; i < bytes.size(); ++i)
        text[i] = kTable[static_cast<unsigned char>(bytes[i])];
    return text;
}

std::string Windows1252Coding::Narrow(std::wstring_view text) {
    std::string bytes(text.size(), '\0');
    for (size_t i = 0; i < text.size(); ++i)
        bytes[i] = NarrowOne(text[i]);
    return bytes;
}

const ByteTable* Windows1252Coding::GetByteTable() {
    return &kTable;
}

}  // namespace platform
