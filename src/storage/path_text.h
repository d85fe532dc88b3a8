// Helpers for paths and delimited text.
#pragma once

#include <string>
#include <vector>

// The path with a backslash behind it, unless it is empty or ends in one.
std::wstring EnsureBackslash(const std::wstring& strPath);

// The path up to and including its last backslash; empty if it holds none.
std::wstring GetFolderOfPath(const std::wstring& strPath);

// Creates every missing folder of a file's path. The last component is taken as the file's name and is not
// created. What cannot be made is passed over in silence.
void EnsureFolderOfPath(const std::wstring& strFilePath);

// Splits at `chDelimiter`; inside `chQuote` the delimiter is text, and a doubled quote is one quote.
// `astrFields` is emptied first; the empty text gives no field.
void SplitQuotedString(const std::wstring& strText, std::vector<std::wstring>& astrFields,
                       wchar_t chDelimiter, wchar_t chQuote);

// The leading integer of a text as the C library's wtoi reads it: blanks, a sign, digits; 0 if there is none.
// Numbers beyond 32 bits stop at the largest or smallest one.
int LeadingInteger(const std::wstring& strText);
