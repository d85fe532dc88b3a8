// Another program of the suite, as the palette meets it: finds the palette's dialog through the registry and
// sends it message 1924.
//
//     palette_caller PROCESS MONTH CODE VALUE
//
// PROCESS is the id of the test program whose registry branch is to be read, or - for the user's own; MONTH
// is the year and month of the entry ("202611"), or - for the first there is. The exit status is 0 if the
// message was answered with 0, 2 if no dialog was found, 3 for another answer, 4 if nobody answered.
#include <windows.h>

#include <cstdlib>
#include <string>

namespace {

constexpr UINT kMessage = 1924;
constexpr UINT kPatience = 20000;  // milliseconds

// The first subkey whose name begins with a text; empty for none.
std::wstring FindSubkey(const std::wstring& key, const std::wstring& beginning) {
    HKEY opened = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, key.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) return {};
    std::wstring found;
    wchar_t name[256];
    DWORD length = 256;
    for (DWORD i = 0;
         RegEnumKeyExW(opened, i, name, &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
         ++i, length = 256) {
        if (!std::wstring(name).starts_with(beginning)) continue;
        found = key + L"\\" + name;
        break;
    }
    RegCloseKey(opened);
    return found;
}

HWND FindPaletteDialog(const std::wstring& process, const std::wstring& month) {
    const std::wstring branch =
        process == L"-" ? L""
                        : FindSubkey(L"Software\\kv2dTests", L"kv2d_" + process + L"_") + L"\\CurrentUser\\";
    const std::wstring months = branch + L"Software\\KALVOR\\Orvex\\2023\\WindowHandle";
    const std::wstring handles = month == L"-" ? FindSubkey(months, L"") : months + L"\\" + month;
    DWORD handle = 0;
    DWORD size = sizeof(handle);
    const LSTATUS status = RegGetValueW(HKEY_CURRENT_USER, FindSubkey(handles, L"").c_str(), L"ToolboxMenu",
                                        RRF_RT_REG_DWORD, nullptr, &handle, &size);
    return status == ERROR_SUCCESS ? reinterpret_cast<HWND>(static_cast<UINT_PTR>(handle)) : nullptr;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count != 5) return 1;
    const HWND dialog = FindPaletteDialog(arguments[1], arguments[2]);
    if (!IsWindow(dialog)) return 2;
    DWORD_PTR answer = 99;
    if (!SendMessageTimeoutW(dialog, kMessage, static_cast<WPARAM>(_wtoi(arguments[3])), _wtoi(arguments[4]),
                             SMTO_NORMAL, kPatience, &answer))
        return 4;
    return answer == 0 ? 0 : 3;
}
