// The upper halves of the single-byte code pages that drawings name in $DWGCODEPAGE.
#pragma once

#include <string_view>

namespace workbench::drawing_file {

inline constexpr int kWesternCodePage = 1252;

// The number at the end of a name such as "ANSI_1252" or "dos850"; 1252 where there is none.
int NumberOfCodePage(std::string_view name);

// True for the East Asian code pages, in which two bytes make a character.
bool IsDoubleByteCodePage(int number);

// The characters of the bytes 128 to 255 of a single-byte code page; those of Windows-1252 for a page that is
// not known. A byte that stands for nothing maps to the control character of the same number.
const char16_t* UpperHalfOfCodePage(int number);

}  // namespace workbench::drawing_file
