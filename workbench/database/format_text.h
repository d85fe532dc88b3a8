// printf formats over wide text, the same on every platform.
#pragma once

#include <cstdarg>
#include <string>

namespace workbench::database {

// %s and %S are wide text, %c a wide character; numbers as in C, with the lengths h, l, ll, I64 and z. What
// is no conversion is copied as it stands and takes no argument.
std::wstring FormatText(const wchar_t* format, std::va_list arguments);

}  // namespace workbench::database
