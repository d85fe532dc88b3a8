// Windows-1252 as the memory platform's text coding: 256 bytes and 256 characters, one for one. The five
// bytes that the code page leaves open stand for the control characters of the same number.
#pragma once

#include "platform/platform.h"

namespace platform {

class Windows1252Coding : public TextCoding {
  public:
    std::wstring Widen(std::string_view bytes) override;
    // A character outside the code page becomes "?".
    std::string Narrow(std::wstring_view text) override;
    const ByteTable* GetByteTable() override;
};

}  // namespace platform
