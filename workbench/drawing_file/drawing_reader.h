// Reads a drawing from ASCII DXF of release 12 to 2018 into a database.
#pragma once

#include <string>
#include <string_view>

#include "dbmain.h"

namespace workbench::drawing_file {

// Empties `database` and fills it from the bytes of a file. Entities and objects of classes that nothing here
// knows are kept as they stand.
//
// False for a file that is empty, torn, binary or damaged: `error` is then a text for the user such as
// "Line 1204: "12x" is not a number.", and the database is empty.
bool ReadDrawing(std::string_view bytes, AcDbDatabase& database, std::wstring& error);

}  // namespace workbench::drawing_file
