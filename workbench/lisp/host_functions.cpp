#include "interpreter.h"

namespace workbench::lisp {
namespace {

// What a command takes as its input: texts as they are, numbers and points as they would be typed.
std::wstring InputText(const Value& value) {
    if (value.AsText() != nullptr) {
        return *value.AsText();
    }
    if (value.IsNumber()) {
        return ToText(value, false);
    }
    std::wstring text;
    for (const Value& coordinate : ItemsOf(value)) {
        NumberArgument(coordinate);
        text += (text.empty() ? L"" : L",") + ToText(coordinate, false);
    }
    if (text.empty()) {
        throw Error{L"bad argument type: " + ToText(value, true)};
    }
    return text;
}

Value GetVariable(Interpreter& lisp, const Arguments& arguments) {
    const auto value = lisp.Around().GetVariable(TextArgument(arguments[0]));
    return value.has_value() ? *value : Value();
}

Value SetVariable(Interpreter& lisp, const Arguments& arguments) {
    const std::wstring& name = TextArgument(arguments[0]);
    if (!lisp.Around().SetVariable(name, arguments[1])) {
        throw Error{L"variable setting rejected: " + name + L" " + ToText(arguments[1], true)};
    }
    return arguments[1];
}

Value GetEnvironment(Interpreter& lisp, const Arguments& arguments) {
    const auto value = lisp.Around().GetEnvironment(TextArgument(arguments[0]));
    return value.has_value() ? Value(*value) : Value();
}

Value SetEnvironment(Interpreter& lisp, const Arguments& arguments) {
    lisp.Around().SetEnvironment(TextArgument(arguments[0]), TextArgument(arguments[1]));
    return arguments[1];
}

Value FindFile(Interpreter& lisp, const Arguments& arguments) {
    const std::wstring path = lisp.Around().FindFile(TextArgument(arguments[0]));
    return path.empty() ? Value() : Value(path);
}

Value Load(Interpreter& lisp, const Arguments& arguments) {
    const std::wstring& name = TextArgument(arguments[0]);
    std::wstring path = lisp.Around().FindFile(name);
    if (path.empty()) {
        path = lisp.Around().FindFile(name + L".lsp");
    }
    std::wstring text;
    if (path.empty() || !lisp.Around().ReadFile(path, text)) {
        if (arguments.size() > 1) {
            return arguments[1];
        }
        throw Error{L"LOAD failed: \"" + name + L"\""};
    }
    return lisp.RunText(text);
}

Value Command(Interpreter& lisp, const Arguments& arguments) {
    std::vector<std::wstring> input;
    for (const Value& argument : arguments) {
        input.push_back(InputText(argument));
    }
    if (!lisp.Around().RunCommand(input)) {
        throw Error{L"Function cancelled"};
    }
    return {};
}

Value LoadApplication(Interpreter& lisp, const Arguments& arguments) {
    const std::wstring& path = TextArgument(arguments[0]);
    if (lisp.Around().LoadApplication(path)) {
        return arguments[0];
    }
    if (arguments.size() > 1) {
        return arguments[1];
    }
    throw Error{L"ARXLOAD failed"};
}

Value UnloadApplication(Interpreter& lisp, const Arguments& arguments) {
    if (lisp.Around().UnloadApplication(TextArgument(arguments[0]))) {
        return arguments[0];
    }
    if (arguments.size() > 1) {
        return arguments[1];
    }
    throw Error{L"ARXUNLOAD failed"};
}

}  // namespace

void AddHostFunctions(Interpreter& interpreter) {
    interpreter.Define(L"GETVAR", 1, 1, GetVariable);
    interpreter.Define(L"SETVAR", 2, 2, SetVariable);
    interpreter.Define(L"GETENV", 1, 1, GetEnvironment);
    interpreter.Define(L"SETENV", 2, 2, SetEnvironment);
    interpreter.Define(L"FINDFILE", 1, 1, FindFile);
    interpreter.Define(L"LOAD", 1, 2, Load);
    interpreter.Define(L"COMMAND", 0, -1, Command);
    interpreter.Define(L"ARXLOAD", 1, 2, LoadApplication);
    interpreter.Define(L"ARXUNLOAD", 1, 2, UnloadApplication);
    interpreter.Define(L"VL-LOAD-COM", 0, 0, [](Interpreter&, const Arguments&) { return Value(); });
    const auto quit = [](Interpreter&, const Arguments&) -> Value { throw Error{L"quit / exit abort"}; };
    interpreter.Define(L"EXIT", 0, 0, quit);
    interpreter.Define(L"QUIT", 0, 0, quit);
}

}  // namespace workbench::lisp
