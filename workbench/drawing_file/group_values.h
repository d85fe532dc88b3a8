// Groups of a file as values in memory.
#pragma once

#include <span>

#include "database/builder.h"
#include "drawing_file/dxf_text.h"
#include "drawing_file/group_reader.h"

namespace workbench::drawing_file {

// What reading a drawing needs everywhere.
struct ReadContext {
    database::Builder& builder;
    TextDecoder decoder;

    // Throws DrawingError for bytes that the drawing's code page does not have.
    std::wstring Text(const Group& group) const;
    std::wstring Text(std::string_view value, std::uint32_t line) const;
};

// A text as it stands; a number, a handle or hexadecimal digits without blanks around them, once they have
// been found to be what their code says. Throws DrawingError where they are not.
database::RawGroup RawOf(const Group& group, const ReadContext& context);

// Takes the next item of extended data or of an extension record off the front of `groups`: one group, or the
// three of a point. False, with nothing taken, for a code that such data cannot have.
bool TakeItem(std::span<const Group>& groups, const ReadContext& context, database::DataItem& item);

// The extended data of an object. Throws DrawingError where it breaks the format: no name in front, a code
// that is none of extended data, strings over 255 bytes, more than 16 KB, braces that do not match.
database::DataItems XdataOf(std::span<const Group> groups, const ReadContext& context);

}  // namespace workbench::drawing_file
