#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cwchar>
#include <cwctype>
#include <limits>

#include "interpreter.h"
#include "reader.h"

namespace workbench::lisp {
namespace {

// Longer texts come from programs that run away.
constexpr std::size_t kLongestText = 16 * 1024 * 1024;

Value Strcat(Interpreter&, const Arguments& arguments) {
    std::wstring text;
    for (const Value& argument : arguments) {
        text += TextArgument(argument);
        if (text.size() > kLongestText) {
            throw Error{L"string too long"};
        }
    }
    return text;
}

Value Strcase(Interpreter&, const Arguments& arguments) {
    std::wstring text = TextArgument(arguments[0]);
    const bool lower = arguments.size() > 1 && arguments[1].IsTrue();
    for (wchar_t& letter : text) {
        const auto code = static_cast<std::wint_t>(letter);
        letter = static_cast<wchar_t>(lower ? std::towlower(code) : std::towupper(code));
    }
    return text;
}

// Counts from 1.
Value Substr(Interpreter&, const Arguments& arguments) {
    const std::wstring& text = TextArgument(arguments[0]);
    const std::int32_t start = IntegerArgument(arguments[1]);
    if (start < 1) {
        throw Error{L"bad argument value: positive " + std::to_wstring(start)};
    }
    const auto from = static_cast<std::size_t>(start) - 1;
    if (from >= text.size()) {
        return L"";
    }
    const std::int32_t length =
        arguments.size() > 2 ? IntegerArgument(arguments[2]) : std::numeric_limits<std::int32_t>::max();
    return text.substr(from, static_cast<std::size_t>(std::max(length, 0)));
}

Value Strlen(Interpreter&, const Arguments& arguments) {
    std::size_t length = 0;
    for (const Value& argument : arguments) {
        length += TextArgument(argument).size();
    }
    return static_cast<std::int32_t>(length);
}

Value Atoi(Interpreter&, const Arguments& arguments) {
    const double number = std::trunc(std::wcstod(TextArgument(arguments[0]).c_str(), nullptr));
    const double limit = std::numeric_limits<std::int32_t>::max();
    return std::isnan(number) ? Value(0)
                              : Value(static_cast<std::int32_t>(std::clamp(number, -limit, limit)));
}

Value Rtos(Interpreter&, const Arguments& arguments) {
    constexpr int kMostDecimals = 8;
    const int decimals =
        arguments.size() > 2 ? std::clamp(IntegerArgument(arguments[2]), 0, kMostDecimals) : 4;
    char buffer[400];
    std::snprintf(buffer, sizeof buffer, "%.*f", decimals, NumberArgument(arguments[0]));
    return std::wstring(buffer, buffer + std::char_traits<char>::length(buffer));
}

Value Ascii(Interpreter&, const Arguments& arguments) {
    const std::wstring& text = TextArgument(arguments[0]);
    return text.empty() ? 0 : static_cast<std::int32_t>(text[0]);
}

Value Chr(Interpreter&, const Arguments& arguments) {
    const std::int32_t code = IntegerArgument(arguments[0]);
    if (code < 1 || code > 0xFFFF) {
        throw Error{L"bad argument value: " + std::to_wstring(code)};
    }
    return std::wstring(1, static_cast<wchar_t>(code));
}

Value Read(Interpreter& lisp, const Arguments& arguments) {
    Value value;
    Reader(lisp, TextArgument(arguments[0])).Read(value);
    return value;
}

// Prints and gives the value; without an argument the result prints as nothing.
void AddPrint(Interpreter& interpreter, const wchar_t* name, bool quoted, const wchar_t* before,
              const wchar_t* after) {
    interpreter.Define(name, 0, 2, [=](Interpreter& lisp, const Arguments& a) {
        if (a.empty()) {
            return Value(Void());
        }
        lisp.Around().Print(before + ToText(a[0], quoted) + after);
        return a[0];
    });
}

}  // namespace

void AddTextFunctions(Interpreter& interpreter) {
    interpreter.Define(L"STRCAT", 0, -1, Strcat);
    interpreter.Define(L"STRCASE", 1, 2, Strcase);
    interpreter.Define(L"SUBSTR", 2, 3, Substr);
    interpreter.Define(L"STRLEN", 0, -1, Strlen);
    interpreter.Define(L"ITOA", 1, 1, [](Interpreter&, const Arguments& a) {
        return Value(std::to_wstring(IntegerArgument(a[0])));
    });
    interpreter.Define(L"ATOI", 1, 1, Atoi);
    interpreter.Define(L"ATOF", 1, 1, [](Interpreter&, const Arguments& a) {
        return Value(std::wcstod(TextArgument(a[0]).c_str(), nullptr));
    });
    interpreter.Define(L"RTOS", 1, 3, Rtos);
    interpreter.Define(L"ASCII", 1, 1, Ascii);
    interpreter.Define(L"CHR", 1, 1, Chr);
    interpreter.Define(L"READ", 1, 1, Read);
    interpreter.Define(L"VL-PRINC-TO-STRING", 1, 1,
                       [](Interpreter&, const Arguments& a) { return Value(ToText(a[0], false)); });
    interpreter.Define(L"VL-PRIN1-TO-STRING", 1, 1,
                       [](Interpreter&, const Arguments& a) { return Value(ToText(a[0], true)); });
    AddPrint(interpreter, L"PRINC", false, L"", L"");
    AddPrint(interpreter, L"PRIN1", true, L"", L"");
    AddPrint(interpreter, L"PRINT", true, L"\n", L" ");
    interpreter.Define(L"PROMPT", 1, 1, [](Interpreter& lisp, const Arguments& a) {
        lisp.Around().Print(TextArgument(a[0]));
        return Value();
    });
    interpreter.Define(L"ALERT", 1, 1, [](Interpreter& lisp, const Arguments& a) {
        lisp.Around().Print(TextArgument(a[0]) + L"\n");
        return Value();
    });
    interpreter.Define(L"TERPRI", 0, 0, [](Interpreter& lisp, const Arguments&) {
        lisp.Around().Print(L"\n");
        return Value();
    });
}

}  // namespace workbench::lisp
