// The old form of a size table: plain text, one row a line, the columns by commas or by position.
#pragma once

#include <string>
#include <vector>

#include "storage/text_stream.h"

struct CSizeRow {
    std::wstring strKey;  // see NormaliseSizeKey
    std::wstring strInch;
    std::wstring strInchNps;
    std::wstring strMetricNominal;
    std::wstring strOutsideDiameter;
};

// All rows of the table. A line with two or three fields, or an empty one, raises
// platform::ThrowInvalidArgument.
std::vector<CSizeRow> ParseOldSizeTable(CTextStream& stream);

// The inch text in NPS wording: `6" X 4"` becomes "NPS 6 X NPS 4".
std::wstring MakeNpsWording(const std::wstring& strInch);
