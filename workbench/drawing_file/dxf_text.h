// Text of drawing interchange files: bytes in the code page of the drawing, with escapes for what it lacks.
//
// "\U+XXXX" stands for the character of that code, "^J" for a control character, "^ " for the "^" itself.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace workbench::drawing_file {

class TextDecoder {
  public:
    // `codePage` as $DWGCODEPAGE has it ("ANSI_1252", in any case; unknown names mean Windows-1252); `isUtf8`
    // for drawings of release 2007 or later, whatever the code page says.
    TextDecoder(std::string_view codePage, bool isUtf8);

    // The text with its escapes resolved; nullopt if a byte above 127 stands in a double-byte code page, for
    // which there is no table. A text that is not valid UTF-8 where UTF-8 is due is taken as Windows-1252.
    std::optional<std::wstring> Decode(std::string_view bytes) const;

  private:
    const char16_t* m_table;  // of the bytes 128 to 255; null for UTF-8 and for double-byte code pages
    bool m_isUtf8;
};

enum class Encoding { kWestern, kUtf8 };

// The bytes of a text for a drawing in code page ANSI_1252 (releases before 2007) or in UTF-8 (from 2007).
// Decoding gives the same text again: characters outside the code page become "\U+XXXX" in upper case (two of
// them above U+FFFF), control characters "^J", "^" becomes "^ ", and a backslash that would begin an escape
// "\U+005C".
std::string EncodeText(std::wstring_view text, Encoding encoding);

}  // namespace workbench::drawing_file
