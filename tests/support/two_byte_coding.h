// A code page with characters of two bytes for tests: the bytes 0x81 to 0x9F begin one, and its second byte
// lies between 0x40 and 0x7E, among them brackets and the backslash. Other bytes above 0x7F do not decode.
#pragma once

#include "platform/platform.h"

class TwoByteCoding : public platform::TextCoding {
  public:
    std::wstring Widen(std::string_view bytes) override;
    std::string Narrow(std::wstring_view text) override;
    const platform::ByteTable* GetByteTable() override { return nullptr; }

    // Gives the characters that begin with 0x90 a second code, which begins with 0xE0.
    bool m_hasDoublets = false;
};
