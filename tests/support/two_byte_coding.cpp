#include "support/two_byte_coding.h"

namespace {

constexpr unsigned kFirstLead = 0x81;
constexpr unsigned kLastLead = 0x9F;
constexpr unsigned kFirstTrail = 0x40;
constexpr unsigned kLastTrail = 0x7E;
constexpr unsigned kTrails = kLastTrail - kFirstTrail + 1;
constexpr unsigned kFirstCharacter = 0x4E00;
constexpr unsigned kLastCharacter = kFirstCharacter + (kLastLead - kFirstLead + 1) * kTrails - 1;
constexpr unsigned kLeadWithDoublet = 0x90;
constexpr unsigned kDoubletLead = 0xE0;
constexpr unsigned kEscapeBase = 0xDC00;

}  // namespace

std::wstring TwoByteCoding::Widen(std::string_view bytes) {
    std::wstring text;
    for (size_t i = 0; i < bytes.size(); ++i) {
        const unsigned byte = static_cast<unsigned char>(bytes[i]);
        const unsigned next = i + 1 < bytes.size() ? static_cast<unsigned char>(bytes[i + 1]) : 0;
        const unsigned lead = m_hasDoublets && byte == kDoubletLead ? kLeadWithDoublet : byte;
        if (byte < 0x80) {
            text += static_cast<wchar_t>(byte);
        } else if (lead >= kFirstLead && lead <= kLastLead && next >= kFirstTrail && next <= kLastTrail) {
            text +=
                static_cast<wchar_t>(kFirstCharacter + (lead - kFirstLead) * kTrails + (next - kFirstTrail));
            ++i;
        } else {
            text += static_cast<wchar_t>(kEscapeBase + byte);
        }
    }
    return text;
}

std::string TwoByteCoding::Narrow(std::wstring_view text) {
    std::string bytes;
    for (const wchar_t ch : text) {
        const auto code = static_cast<std::uint32_t>(ch);
        if (code < 0x80) {
            bytes += static_cast<char>(code);
        } else if (code >= kFirstCharacter && code <= kLastCharacter) {
            bytes += static_cast<char>(kFirstLead + (code - kFirstCharacter) / kTrails);
            bytes += static_cast<char>(kFirstTrail + (code - kFirstCharacter) % kTrails);
        } else if (code >= kEscapeBase + 0x80 && code <= kEscapeBase + 0xFF) {
            bytes += static_cast<char>(code - kEscapeBase);
        } else {
            bytes += '?';
        }
    }
    return bytes;
}
