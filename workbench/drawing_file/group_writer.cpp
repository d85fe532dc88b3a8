#include "drawing_file/group_writer.h"

#include <charconv>
#include <cmath>

namespace workbench::drawing_file {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr int kHexadecimal = 16;
constexpr int kCodeWidth = 3;
constexpr char kDigits[] = "0123456789ABCDEF";

template <typename Number, typename... Format>
std::string NumberText(Number number, Format... format) {
    char buffer[64];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, number, format...);
    return std::string(buffer, result.ptr);
}

std::string HexadecimalDigits(const database::Bytes& bytes) {
    std::string digits;
    for (const std::uint8_t byte : bytes) {
        digits += kDigits[byte >> 4];
        digits += kDigits[byte & 0xF];
    }
    return digits;
}

}  // namespace

void GroupWriter::Code(int code) {
    const std::string digits = std::to_string(code);
    if (digits.size() < kCodeWidth) m_bytes.append(kCodeWidth - digits.size(), ' ');
    m_bytes += digits;
    m_bytes += kLineEnd;
}

void GroupWriter::Name(int code, std::string_view ascii) {
    Code(code);
    m_bytes += ascii;
    m_bytes += kLineEnd;
}

void GroupWriter::Text(int code, std::wstring_view text) {
    Name(code, EncodeText(text, m_encoding));
}

void GroupWriter::Integer(int code, std::int64_t value) {
    Name(code, NumberText(value));
}

void GroupWriter::Real(int code, double value) {
    // No file can hold what is not a number.
    std::string text = NumberText(std::isfinite(value) ? value : 0.0);
    if (text.find_first_of(".e") == std::string::npos) text += ".0";
    Name(code, text);
}

void GroupWriter::Point(int code, double x, double y, double z) {
    Real(code, x);
    Real(code + 10, y);
    Real(code + 20, z);
}

void GroupWriter::Handle(int code, std::uint64_t handle) {
    std::string digits = NumberText(handle, kHexadecimal);
    for (char& digit : digits) {
        if (digit >= 'a') digit = static_cast<char>(digit - 'a' + 'A');
    }
    Name(code, digits);
}

void GroupWriter::Item(const database::DataItem& item) {
    if (const auto* text = std::get_if<std::wstring>(&item.value)) {
        Text(item.code, *text);
    } else if (const auto* real = std::get_if<double>(&item.value)) {
        Real(item.code, *real);
    } else if (const auto* point = std::get_if<AcGePoint3d>(&item.value)) {
        Point(item.code, point->x, point->y, point->z);
    } else if (const auto* bytes = std::get_if<database::Bytes>(&item.value)) {
        Name(item.code, HexadecimalDigits(*bytes));
    } else {
        const std::int64_t number = std::get<std::int64_t>(item.value);
        switch (acdbGroupCodeToType(item.code)) {
            case AcDb::kDwgInt8:
            case AcDb::kDwgInt16:
            case AcDb::kDwgInt32:
            case AcDb::kDwgInt64:
                Integer(item.code, number);
                break;
            default:
                Handle(item.code, static_cast<std::uint64_t>(number));
        }
    }
}

}  // namespace workbench::drawing_file
