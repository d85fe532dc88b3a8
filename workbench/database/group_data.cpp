#include "group_data.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace workbench::database {
namespace {

// What Windows-1252 has between 80 and 9F, and above FF.
constexpr std::array<wchar_t, 27> kCodePageLetters = {0x20AC, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                      0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x017D, 0x2018,
                                                      0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0x02DC,
                                                      0x2122, 0x0161, 0x203A, 0x0153, 0x017E, 0x0178};

constexpr std::size_t kEscapeLength = 7;  // \U+XXXX

bool IsInCodePage(wchar_t letter) {
    if (letter < 0x80 || (letter >= 0xA0 && letter <= 0xFF)) {
        return true;
    }
    for (const wchar_t known : kCodePageLetters) {
        if (known == letter) {
            return true;
        }
    }
    return false;
}

std::size_t ValueSize(const DataItem& item) {
    switch (acdbGroupCodeToType(item.code)) {
        case AcDb::kDwgText:
            return 1 + NarrowLength(std::get<std::wstring>(item.value));
        case AcDb::kDwgBChunk:
            return 1 + std::get<Bytes>(item.value).size();
        case AcDb::kDwg3Real:
            return 3 * sizeof(double);
        case AcDb::kDwgInt16:
            return 2;
        case AcDb::kDwgInt32:
            return 4;
        default:
            return 8;
    }
}

bool IsXDataCode(int code) {
    return code >= kFirstXDataCode && acdbGroupCodeToType(code) != AcDb::kDwgNotRecognized;
}

bool HasLongText(const DataItem& item) {
    if (const auto* text = std::get_if<std::wstring>(&item.value)) {
        return NarrowLength(*text) > kLongestXDataString;
    }
    const auto* bytes = std::get_if<Bytes>(&item.value);
    return bytes != nullptr && bytes->size() > kLongestXDataString;
}

struct CodeRange {
    int first, last;
    AcDb::DwgDataType type;
};

// From the lowest to the highest.
constexpr CodeRange kCodeRanges[] = {
    {0, 4, AcDb::kDwgText},
    {5, 5, AcDb::kDwgHandle},
    {6, 9, AcDb::kDwgText},
    {10, 18, AcDb::kDwg3Real},
    {38, 59, AcDb::kDwgReal},
    {60, 79, AcDb::kDwgInt16},
    {90, 99, AcDb::kDwgInt32},
    {100, 102, AcDb::kDwgText},
    {105, 105, AcDb::kDwgHandle},
    {110, 112, AcDb::kDwg3Real},
    {140, 149, AcDb::kDwgReal},
    {160, 169, AcDb::kDwgInt64},
    {170, 179, AcDb::kDwgInt16},
    {210, 210, AcDb::kDwg3Real},
    {270, 279, AcDb::kDwgInt16},
    {280, 299, AcDb::kDwgInt8},
    {300, 309, AcDb::kDwgText},
    {310, 319, AcDb::kDwgBChunk},
    {320, 329, AcDb::kDwgHandle},
    {330, 339, AcDb::kDwgSoftPointerId},
    {340, 349, AcDb::kDwgHardPointerId},
    {350, 359, AcDb::kDwgSoftOwnershipId},
    {360, 369, AcDb::kDwgHardOwnershipId},
    {370, 389, AcDb::kDwgInt16},
    {390, 399, AcDb::kDwgHandle},
    {400, 409, AcDb::kDwgInt16},
    {410, 419, AcDb::kDwgText},
    {420, 429, AcDb::kDwgInt32},
    {430, 439, AcDb::kDwgText},
    {440, 459, AcDb::kDwgInt32},
    {460, 469, AcDb::kDwgReal},
    {470, 479, AcDb::kDwgText},
    {480, 481, AcDb::kDwgHandle},
    {1000, 1003, AcDb::kDwgText},
    {1004, 1004, AcDb::kDwgBChunk},
    {1005, 1005, AcDb::kDwgHandle},
    {1010, 1013, AcDb::kDwg3Real},
    {1040, 1042, AcDb::kDwgReal},
    {1070, 1070, AcDb::kDwgInt16},
    {1071, 1071, AcDb::kDwgInt32},
};

}  // namespace

std::size_t NarrowLength(std::wstring_view text) {
    std::size_t length = 0;
    for (const wchar_t letter : text) {
        const std::uint32_t code = letter;  // wider than a letter where those have 16 bits
        const bool needsTwoEscapes = code > 0xFFFF;
        length += IsInCodePage(letter) ? 1 : kEscapeLength * (needsTwoEscapes ? 2 : 1);
    }
    return length;
}

std::size_t XDataSize(const DataItems& items) {
    std::size_t size = 0;
    for (const DataItem& item : items) {
        size += sizeof item.code + ValueSize(item);
    }
    return size;
}

Acad::ErrorStatus CheckXData(const DataItems& items) {
    int openBraces = 0;
    bool inApplication = false;
    for (const DataItem& item : items) {
        if (item.code == kApplicationNameCode) {
            if (openBraces != 0) {
                return Acad::eInvalidResBuf;
            }
            inApplication = true;
        }
        if (!inApplication || !IsXDataCode(item.code)) {
            return Acad::eInvalidResBuf;
        }
        if (HasLongText(item)) {
            return Acad::eXdataSizeExceeded;
        }
        if (item.code == 1002) {
            const auto& brace = std::get<std::wstring>(item.value);
            if (brace != L"{" && brace != L"}") {
                return Acad::eInvalidResBuf;
            }
            openBraces += brace == L"{" ? 1 : -1;
            if (openBraces < 0) {
                return Acad::eInvalidResBuf;
            }
        }
    }
    if (openBraces != 0) {
        return Acad::eInvalidResBuf;
    }
    return XDataSize(items) > kLongestXData ? Acad::eXdataSizeExceeded : Acad::eOk;
}

}  // namespace workbench::database

AcDb::DwgDataType acdbGroupCodeToType(int code) {
    using namespace workbench::database;
    const auto* range = std::partition_point(std::begin(kCodeRanges), std::end(kCodeRanges),
                                             [code](const CodeRange& each) { return each.last < code; });
    return range != std::end(kCodeRanges) && code >= range->first ? range->type : AcDb::kDwgNotRecognized;
}
