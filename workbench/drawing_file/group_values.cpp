#include "drawing_file/group_values.h"

#include <algorithm>

#include "drawing_file/group_codes.h"

namespace workbench::drawing_file {

using database::Bytes;
using database::DataItem;
using database::DataItems;
using database::RawGroup;

namespace {

constexpr int kCoordinateStep = 10;

int DigitOf(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

Bytes BytesOf(const Group& group) {
    std::string_view digits = group.value;
    while (digits.ends_with(' '))
        digits.remove_suffix(1);
    const auto isNoDigit = [](char c) { return DigitOf(c) < 0; };
    if (digits.size() % 2 != 0 || std::any_of(digits.begin(), digits.end(), isNoDigit)) {
        throw DrawingError{group.line, L"Binary data is not made of pairs of hexadecimal digits."};
    }
    Bytes bytes(digits.size() / 2);
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        bytes[i] = static_cast<std::uint8_t>(DigitOf(digits[2 * i]) * 16 + DigitOf(digits[2 * i + 1]));
    }
    return bytes;
}

// In dimension styles of release 12 the code of a handle is a name; handles of objects are read elsewhere.
bool IsText(int code) {
    return TypeOfGroup(code) == GroupType::kText || code == kCodeHandle;
}

void CheckValue(const Group& group) {
    switch (TypeOfGroup(group.code)) {
        case GroupType::kReal:
            RealOf(group);
            break;
        case GroupType::kHandle:
            HandleOf(group);
            break;
        case GroupType::kBinary:
            BytesOf(group);
            break;
        default:
            // Unsigned flags and counts are written into signed codes too often to refuse a whole drawing for
            // them.
            Int64Of(group);
    }
}

AcGePoint3d TakePoint(std::span<const Group>& groups) {
    AcGePoint3d point;
    double* coordinates[] = {&point.x, &point.y, &point.z};
    const int first = groups[0].code;
    for (int i = 0; i < 3; ++i) {
        if (groups.empty() || groups[0].code != first + i * kCoordinateStep) break;
        *coordinates[i] = RealOf(groups[0]);
        groups = groups.subspan(1);
    }
    return point;
}

}  // namespace

std::wstring ReadContext::Text(const Group& group) const {
    return Text(group.value, group.line);
}

std::wstring ReadContext::Text(std::string_view value, std::uint32_t line) const {
    auto text = decoder.Decode(value);
    if (!text) throw DrawingError{line, L"Text in the drawing's code page ($DWGCODEPAGE) cannot be read."};
    return *std::move(text);
}

RawGroup RawOf(const Group& group, const ReadContext& context) {
    const auto code = static_cast<std::int16_t>(group.code);
    if (IsText(group.code)) return {code, context.Text(group)};
    CheckValue(group);
    // A tab is a blank to readers of numbers, but would be written as the escape that it is in a text.
    return {code, context.Text(Trimmed(group.value), group.line)};
}

bool TakeItem(std::span<const Group>& groups, const ReadContext& context, DataItem& item) {
    const Group group = groups[0];
    item.code = static_cast<std::int16_t>(group.code);
    switch (acdbGroupCodeToType(group.code)) {
        case AcDb::kDwgText:
            item.value = context.Text(group);
            break;
        case AcDb::kDwgInt16:
            item.value = std::int64_t{Int16Of(group)};
            break;
        case AcDb::kDwgInt8:
        case AcDb::kDwgInt32:
            item.value = std::int64_t{Int32Of(group)};
            break;
        case AcDb::kDwgInt64:
            item.value = Int64Of(group);
            break;
        case AcDb::kDwgReal:
            item.value = RealOf(group);
            break;
        case AcDb::kDwg3Real:
            item.value = TakePoint(groups);
            return true;
        case AcDb::kDwgBChunk:
            item.value = BytesOf(group);
            break;
        case AcDb::kDwgHandle:
        case AcDb::kDwgSoftPointerId:
        case AcDb::kDwgHardPointerId:
        case AcDb::kDwgSoftOwnershipId:
        case AcDb::kDwgHardOwnershipId:
            item.value = static_cast<std::int64_t>(HandleOf(group));
            break;
        default:
            return false;
    }
    groups = groups.subspan(1);
    return true;
}

DataItems XdataOf(std::span<const Group> groups, const ReadContext& context) {
    DataItems items;
    if (groups.empty()) return items;
    const std::uint32_t line = groups[0].line;
    while (!groups.empty()) {
        const Group& group = groups[0];
        DataItem item;
        if (group.code < kFirstXdataCode || !TakeItem(groups, context, item)) {
            throw DrawingError{group.line, L"Group code " + std::to_wstring(group.code) +
                                               L" cannot stand in extended data."};
        }
        items.push_back(std::move(item));
    }
    switch (database::CheckXData(items)) {
        case Acad::eOk:
            return items;
        case Acad::eXdataSizeExceeded:
            throw DrawingError{line, L"Extended data holds a text over 255 bytes or more than 16 KB."};
        default:
            throw DrawingError{line, L"The braces of extended data do not match."};
    }
}

}  // namespace workbench::drawing_file
