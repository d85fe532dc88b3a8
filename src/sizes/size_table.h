// The pipe size tables (*.TP) of a piping standard, with one section per size system and one row per size.
#pragma once

#include <string>

#include "storage/ini_file.h"

// The size set numbers, which are a project's displayed units.
inline constexpr int kSizeSetMetricOd = 0;
inline constexpr int kSizeSetMetricNps = 1;
inline constexpr int kSizeSetImperialUs = 2;
inline constexpr int kSizeSetImperialNps = 3;

// The section of a size set: "Metric OD Sizes", "Metric NPS Sizes", "Imperial NPS Sizes"; "Imperial US Sizes"
// for kSizeSetImperialUs and any other number.
std::wstring GetSizeSetName(int nSizeSet);

// The two numbers of a size as they stand in keys (` 6.00`, `12.00`); `strSecond` is empty for a size without
// an "X". A text that is no number gives ` 0.00`.
void SplitSizeKey(const std::wstring& strText, std::wstring& strFirst, std::wstring& strSecond);

// Rewrites a size as its key: `6" x 4"` becomes ` 6.00X 4.00`.
void NormaliseSizeKey(std::wstring& strText);

// A copy of a size table of the standard; an empty document if the file cannot be opened. The twelve tables
// that every standard has are cached until the process ends, by file name alone, in any letter case: a second
// standard gets the first one's table.
//
// On disk: a table in the old plain form is rewritten as an ini document, in place. A line of the old form
// with two or three fields, or an empty one, raises platform::ThrowInvalidArgument and leaves the file as it
// was.
CKV2D_IniFile LoadSizeTable(const std::wstring& strFileName, const std::wstring& strStandard);

// Empties the cache, as it is when the module starts.
void DropSizeTableCache();
