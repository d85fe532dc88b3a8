#include "format_text.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cwchar>
#include <string_view>

namespace workbench::database {
namespace {

struct Conversion {
    std::string flags;  // of the set "-+ #0"
    int width = -1;
    int precision = -1;
    std::wstring_view length;
    wchar_t letter = 0;
};

constexpr int kWidest = 4096;

int ReadNumber(const wchar_t*& at, std::va_list& arguments) {
    if (*at == L'*') {
        ++at;
        const int value = va_arg(arguments, int);
        return value < 0 ? 0 : std::min(value, kWidest);
    }
    int value = 0;
    for (; *at >= L'0' && *at <= L'9'; ++at) {
        value = std::min(value * 10 + (*at - L'0'), kWidest);
    }
    return value;
}

// `at` stands behind the percent sign and is moved behind the conversion.
Conversion ReadConversion(const wchar_t*& at, std::va_list& arguments) {
    Conversion conversion;
    for (; *at != 0 && std::wcschr(L"-+ #0", *at) != nullptr; ++at) {
        conversion.flags.push_back(static_cast<char>(*at));
    }
    if (*at == L'*' || (*at >= L'0' && *at <= L'9')) {
        conversion.width = ReadNumber(at, arguments);
    }
    if (*at == L'.') {
        ++at;
        conversion.precision = ReadNumber(at, arguments);
    }
    for (const std::wstring_view length : {L"I64", L"ll", L"hh", L"l", L"h", L"z", L"w"}) {
        if (std::wstring_view(at).starts_with(length)) {
            conversion.length = length;
            at += length.size();
            break;
        }
    }
    conversion.letter = *at;
    if (*at != 0) {
        ++at;
    }
    return conversion;
}

template <class Number>
std::wstring FormatNumber(const Conversion& conversion, const char* length, Number number) {
    std::string format = "%" + conversion.flags;
    if (conversion.width >= 0) {
        format += std::to_string(conversion.width);
    }
    if (conversion.precision >= 0) {
        format += "." + std::to_string(conversion.precision);
    }
    format += length;
    format.push_back(static_cast<char>(conversion.letter));
    const int needed = std::snprintf(nullptr, 0, format.c_str(), number);
    if (needed < 0) {
        return {};
    }
    std::string narrow(static_cast<std::size_t>(needed) + 1, '\0');
    std::snprintf(narrow.data(), narrow.size(), format.c_str(), number);
    narrow.pop_back();
    return {narrow.begin(), narrow.end()};
}

std::wstring Padded(const Conversion& conversion, std::wstring text) {
    if (conversion.precision >= 0) {
        text.resize(std::min(text.size(), static_cast<std::size_t>(conversion.precision)));
    }
    if (conversion.width > static_cast<int>(text.size())) {
        const std::size_t missing = static_cast<std::size_t>(conversion.width) - text.size();
        const bool left = conversion.flags.find('-') != std::string::npos;
        text.insert(left ? text.size() : 0, missing, L' ');
    }
    return text;
}

std::intmax_t ReadInteger(const Conversion& conversion, std::va_list& arguments) {
    const bool isSigned = conversion.letter == L'd' || conversion.letter == L'i';
    if (conversion.length == L"ll" || conversion.length == L"I64") {
        return va_arg(arguments, long long);
    }
    if (conversion.length == L"z") {
        return static_cast<std::intmax_t>(va_arg(arguments, std::size_t));
    }
    if (conversion.length == L"l") {
        const long value = va_arg(arguments, long);
        return isSigned ? value : static_cast<std::intmax_t>(static_cast<unsigned long>(value));
    }
    const int value = va_arg(arguments, int);
    return isSigned ? value : static_cast<std::intmax_t>(static_cast<unsigned int>(value));
}

std::wstring FormatOne(const Conversion& conversion, std::va_list& arguments) {
    switch (conversion.letter) {
        case L's':
        case L'S': {
            const wchar_t* text = va_arg(arguments, const wchar_t*);
            return Padded(conversion, text == nullptr ? L"(null)" : text);
        }
        case L'c':
            return Padded(conversion, std::wstring(1, static_cast<wchar_t>(va_arg(arguments, int))));
        case L'd':
        case L'i':
        case L'u':
        case L'x':
        case L'X':
        case L'o':
            return FormatNumber(conversion, "j", ReadInteger(conversion, arguments));
        case L'f':
        case L'F':
        case L'e':
        case L'E':
        case L'g':
        case L'G':
            return FormatNumber(conversion, "", va_arg(arguments, double));
        case L'p':
            return FormatNumber(conversion, "", va_arg(arguments, void*));
        default:
            return {};
    }
}

}  // namespace

std::wstring FormatText(const wchar_t* format, std::va_list arguments) {
    std::va_list rest;
    va_copy(rest, arguments);
    std::wstring text;
    const wchar_t* at = format;
    while (*at != 0) {
        if (*at != L'%') {
            text.push_back(*at++);
            continue;
        }
        const wchar_t* start = at++;
        if (*at == L'%') {
            text.push_back(*at++);
            continue;
        }
        const Conversion conversion = ReadConversion(at, rest);
        if (conversion.letter == 0 || std::wcschr(L"sScdiuxXofFeEgGp", conversion.letter) == nullptr) {
            text.append(start, at);
        } else {
            text += FormatOne(conversion, rest);
        }
    }
    va_end(rest);
    return text;
}

}  // namespace workbench::database
