// Values that drawings keep by group code.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "acdb.h"
#include "adsdef.h"
#include "gepnt3d.h"

namespace workbench::database {

// A group as it stands in a drawing file: what no typed member covers is kept like this and written back
// unchanged. The text is decoded from the file's code page and escapes, nothing else.
struct RawGroup {
    std::int16_t code = 0;
    std::wstring text;
    friend bool operator==(const RawGroup&, const RawGroup&) = default;
};
using RawGroups = std::vector<RawGroup>;

// An item of xdata or of an extension record. What the variant holds follows from the code
// (acdbGroupCodeToType):
//   kDwgText                       std::wstring
//   kDwgInt8, 16, 32, 64           std::int64_t
//   kDwgReal                       double
//   kDwg3Real                      AcGePoint3d (in a file: the code, the code + 10 and the code + 20)
//   kDwgBChunk                     Bytes
//   kDwgHandle, ...Id              std::int64_t, the handle's number
using Bytes = std::vector<std::uint8_t>;
using DataValue = std::variant<std::int64_t, double, AcGePoint3d, std::wstring, Bytes>;

struct DataItem {
    std::int16_t code = 0;
    DataValue value;
    friend bool operator==(const DataItem&, const DataItem&) = default;
};
using DataItems = std::vector<DataItem>;

inline constexpr std::int16_t kFirstXDataCode = 1000;
inline constexpr std::int16_t kApplicationNameCode = 1001;
inline constexpr std::size_t kLongestXDataString = 255;  // bytes
inline constexpr std::size_t kLongestXData = 16 * 1024;  // bytes, all applications of one object together

// Bytes of a text in a drawing file: one for a character of the code page, seven for one that is escaped.
std::size_t NarrowLength(std::wstring_view text);

// Bytes of xdata as the limit counts them: two for each code and what its value takes.
std::size_t XDataSize(const DataItems& items);

// eOk, or what setXData says of the items: they begin with 1001, hold only codes of xdata, their strings and
// their sum keep the limits, braces (1002) match within each application. Registration of the names is not
// looked at.
Acad::ErrorStatus CheckXData(const DataItems& items);

}  // namespace workbench::database
