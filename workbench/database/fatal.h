// The end of code that used the host wrongly.
#pragma once

#include <string>

namespace workbench::database {

// Calls the installed handler, and ends the program with the text if that returns or there is none.
[[noreturn]] void Fatal(const std::wstring& text);

}  // namespace workbench::database
