// The texts of typed values in an ini document.
#pragma once

#include <cstdint>
#include <string>

#include "platform/platform.h"

// "%d" and "%f" of the C library.
std::wstring FormatInteger(int nValue);
std::wstring FormatDouble(double dValue);

// The leading number of a text, 0 if there is none: blanks, a sign, digits with a point, an exponent.
double LeadingDouble(const std::wstring& strText);

// "%08lX-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X", without braces.
std::wstring FormatGuid(const platform::Guid& guid);

// Reads the form above with the "-" anywhere or nowhere. Pieces that are missing give 0.
platform::Guid ParseGuid(const std::wstring& strText);

// The number up to the first character that is no digit. Beside the hexadecimal digits, "*" to "/" and ":" to
// "?" count, with the low four bits of their code: L"1:" gives 0x1A.
std::uint64_t ParseHex(const std::wstring& strText);
