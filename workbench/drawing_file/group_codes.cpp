#include "drawing_file/group_codes.h"

namespace workbench::drawing_file {
namespace {

struct Range {
    int first;
    int last;
    GroupType type;
};

// Everything that is not listed is text.
constexpr Range kRanges[] = {
    {5, 5, GroupType::kHandle},       {10, 59, GroupType::kReal},     {60, 79, GroupType::kInt16},
    {90, 99, GroupType::kInt32},      {105, 105, GroupType::kHandle}, {110, 149, GroupType::kReal},
    {160, 169, GroupType::kInt64},    {170, 179, GroupType::kInt16},  {210, 239, GroupType::kReal},
    {270, 289, GroupType::kInt16},    {290, 299, GroupType::kBool},   {310, 319, GroupType::kBinary},
    {320, 369, GroupType::kHandle},   {370, 389, GroupType::kInt16},  {390, 399, GroupType::kHandle},
    {400, 409, GroupType::kInt16},    {420, 429, GroupType::kInt32},  {440, 459, GroupType::kInt32},
    {460, 469, GroupType::kReal},     {480, 481, GroupType::kHandle}, {1004, 1004, GroupType::kBinary},
    {1005, 1005, GroupType::kHandle}, {1010, 1059, GroupType::kReal}, {1060, 1070, GroupType::kInt16},
    {1071, 1071, GroupType::kInt32},
};

}  // namespace

bool IsGroupCode(int code) {
    return code >= 0 && code <= kHighestGroupCode;
}

GroupType TypeOfGroup(int code) {
    for (const Range& range : kRanges) {
        if (code >= range.first && code <= range.last) return range.type;
    }
    return GroupType::kText;
}

bool IsPointCode(int code) {
    return (code >= 10 && code <= 18) || (code >= 110 && code <= 112) || code == 210 || code == 211 ||
           (code >= 1010 && code <= 1013);
}

}  // namespace workbench::drawing_file
