#include "frame/options.h"

#include <cwctype>

namespace frame {

namespace {

std::wstring SwitchOf(const std::wstring& argument) {
    if (argument.size() < 2 || (argument[0] != L'/' && argument[0] != L'-')) return {};
    std::wstring name;
    for (const wchar_t c : argument.substr(1))
        name += static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(c)));
    return name;
}

std::wstring* ValueOf(Options& options, const std::wstring& name) {
    if (name == L"lisp") return &options.lispFile;
    if (name == L"module") return &options.module;
    if (name == L"script") return &options.scriptFile;
    if (name == L"transcript") return &options.transcriptFile;
    if (name == L"pictures") return &options.pictureFolder;
    if (name == L"hostile") return &options.hostile;
    return nullptr;
}

bool* FlagOf(Options& options, const std::wstring& name) {
    if (name == L"nomodule") return &options.withoutModule;
    if (name == L"nodrawing") return &options.withoutDrawing;
    return nullptr;
}

}  // namespace

Options ParseOptions(const std::vector<std::wstring>& arguments) {
    Options options;
    for (std::size_t i = 0; i < arguments.size() && options.error.empty(); ++i) {
        const std::wstring name = SwitchOf(arguments[i]);
        if (name.empty()) {
            options.drawings.push_back(arguments[i]);
        } else if (bool* flag = FlagOf(options, name); flag != nullptr) {
            *flag = true;
        } else if (std::wstring* value = ValueOf(options, name); value == nullptr) {
            options.error = L"There is no switch " + arguments[i] + L".";
        } else if (i + 1 == arguments.size()) {
            options.error = L"The switch " + arguments[i] + L" wants a value behind it.";
        } else {
            *value = arguments[++i];
        }
    }
    return options;
}

}  // namespace frame
