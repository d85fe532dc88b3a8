// Splits the text of a drawing interchange file into groups: a line with a code and a line with its value.
//
// Line ends are LF or CR LF. Blanks around a code are ignored; a value is kept as it stands. Groups are views
// into the caller's text, so a file of any size takes no memory of its own here.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "drawing_file/drawing_error.h"

namespace workbench::drawing_file {

struct Group {
    std::string_view value;
    std::int32_t code = 0;
    std::uint32_t line = 0;  // of the value, counted from 1
};

class GroupReader {
  public:
    // `text` outlives the reader and its groups. A byte order mark at its start is skipped.
    explicit GroupReader(std::string_view text);

    // The next group; false at the end of the text. Throws DrawingError for a code that is not a number from
    // 0 to 1071, a zero byte, and a text that ends between a code and its value.
    bool Next(Group& group);

    // The number of the last line read; 0 before the first.
    std::uint32_t Line() const { return m_line; }

  private:
    bool ReadLine(std::string_view& line);

    std::string_view m_rest;
    std::uint32_t m_line = 0;
};

// A text without the blanks and tabs at its ends.
std::string_view Trimmed(std::string_view text);

// The value as a word of the format itself (a type, a marker, the name of a variable), without blanks around
// it. Throws DrawingError for one that is empty or holds escapes or letters outside ASCII: such a word would
// be another one once it is written.
std::string_view WordOf(const Group& group);

// The values of groups. Blanks around a number are ignored. Each throws DrawingError with the group's line
// where the value is not of its type or does not fit, e.g. "12x", "1e999" or "nan" for a real.
double RealOf(const Group& group);
std::int64_t Int64Of(const Group& group);
std::int32_t Int32Of(const Group& group);
// Values from 32768 to 65535 are taken as the same 16 bits with a sign, as other programs write them.
std::int16_t Int16Of(const Group& group);
// Hexadecimal, at most 16 digits. An empty value is handle 0.
std::uint64_t HandleOf(const Group& group);

}  // namespace workbench::drawing_file
