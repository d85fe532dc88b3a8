#include "drawing_file/group_reader.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

#include "drawing_file/group_codes.h"

namespace workbench::drawing_file {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t kQuotedLength = 40;

// The text in quotation marks for a message: hostile bytes do not reach the user's screen.
std::wstring Quoted(std::string_view text) {
    std::wstring quoted = L"\"";
    for (char c : text.substr(0, kQuotedLength)) {
        quoted += c >= ' ' && c <= '~' ? static_cast<wchar_t>(c) : L'?';
    }
    return quoted + (text.size() > kQuotedLength ? L"...\"" : L"\"");
}

// Reads the whole of `text`; a plus sign ahead of a number is allowed.
template <typename Number, typename... Format>
bool Parse(std::string_view text, Number& number, Format... format) {
    if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number, format...);
    return !text.empty() && result.ec == std::errc() && result.ptr == end;
}

std::int64_t IntegerBetween(const Group& group, std::int64_t lowest, std::int64_t highest) {
    std::int64_t number = 0;
    if (!Parse(Trimmed(group.value), number)) {
        throw DrawingError{group.line, Quoted(group.value) + L" is not a whole number."};
    }
    if (number < lowest || number > highest) {
        throw DrawingError{group.line, Quoted(group.value) + L" does not fit a value of group code " +
                                           std::to_wstring(group.code) + L"."};
    }
    return number;
}

}  // namespace

GroupReader::GroupReader(std::string_view text) : m_rest(text) {
    if (m_rest.starts_with(kByteOrderMark)) m_rest.remove_prefix(kByteOrderMark.size());
}

bool GroupReader::ReadLine(std::string_view& line) {
    if (m_rest.empty()) return false;
    const auto end = m_rest.find('\n');
    line = m_rest.substr(0, end);
    m_rest.remove_prefix(end == std::string_view::npos ? m_rest.size() : end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    ++m_line;
    if (line.find('\0') != std::string_view::npos) throw DrawingError{m_line, L"The line holds a zero byte."};
    return true;
}

bool GroupReader::Next(Group& group) {
    std::string_view codeText;
    if (!ReadLine(codeText)) return false;
    if (!Parse(Trimmed(codeText), group.code) || !IsGroupCode(group.code)) {
        throw DrawingError{m_line, Quoted(codeText) + L" is not a group code."};
    }
    if (!ReadLine(group.value)) throw DrawingError{m_line, L"The file ends behind a group code."};
    group.line = m_line;
    return true;
}

std::string_view Trimmed(std::string_view text) {
    const char* blanks = " \t";
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string_view WordOf(const Group& group) {
    const std::string_view word = Trimmed(group.value);
    const auto isForeign = [](char c) { return c < ' ' || c > '~' || c == '^' || c == '\\'; };
    if (word.empty() || std::any_of(word.begin(), word.end(), isForeign)) {
        throw DrawingError{group.line, Quoted(group.value) + L" is not a word of the format."};
    }
    return word;
}

double RealOf(const Group& group) {
    double number = 0;
    if (!Parse(Trimmed(group.value), number, std::chars_format::general) || !std::isfinite(number)) {
        throw DrawingError{group.line, Quoted(group.value) + L" is not a number."};
    }
    return number;
}

std::int64_t Int64Of(const Group& group) {
    return IntegerBetween(group, std::numeric_limits<std::int64_t>::min(),
                          std::numeric_limits<std::int64_t>::max());
}

std::int32_t Int32Of(const Group& group) {
    return static_cast<std::int32_t>(IntegerBetween(group, std::numeric_limits<std::int32_t>::min(),
                                                    std::numeric_limits<std::int32_t>::max()));
}

std::int16_t Int16Of(const Group& group) {
    return static_cast<std::int16_t>(IntegerBetween(group, std::numeric_limits<std::int16_t>::min(),
                                                    std::numeric_limits<std::uint16_t>::max()));
}

std::uint64_t HandleOf(const Group& group) {
    std::uint64_t handle = 0;
    const std::string_view digits = Trimmed(group.value);
    if (!digits.empty() && (digits[0] == '+' || !Parse(digits, handle, 16))) {
        throw DrawingError{group.line, Quoted(group.value) + L" is not a handle."};
    }
    return handle;
}

}  // namespace workbench::drawing_file
