// The text coding of the process's ANSI code page.
#pragma once

#include "platform/platform.h"

namespace platform {

class AnsiCoding : public TextCoding {
  public:
    AnsiCoding();
    // Another code page than the process's, for tests: 932 has characters of two bytes, 65001 is UTF-8.
    explicit AnsiCoding(unsigned codePage);

    std::wstring Widen(std::string_view bytes) override;
    std::string Narrow(std::wstring_view text) override;
    const ByteTable* GetByteTable() override;

  private:
    size_t DecodeOne(std::string_view bytes, std::wstring& text) const;
    void EncodeOne(std::wstring_view character, std::string& bytes) const;

    unsigned m_codePage;
    bool m_isOneToOne = false;
    ByteTable m_table{};
};

}  // namespace platform
