#include "drawing_manager/html_help.h"

#include <windows.h>

#include <array>

#include "platform/platform.h"

namespace {

using HtmlHelpFunction = HWND(WINAPI*)(HWND hWndCaller, LPCWSTR pszFile, UINT uCommand, DWORD_PTR dwData);

constexpr UINT kDisplayTopic = 0;
constexpr wchar_t kViewerKey[] = L"CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}\\InprocServer32";
constexpr wchar_t kViewerFile[] = L"hhctrl.ocx";

// The registered location, in which set-up may have written environment variables.
std::wstring GetRegisteredViewer() {
    std::wstring strPath;
    platform::GetRegistry().ReadString(platform::Hive::kClassesRoot, kViewerKey, L"", strPath);
    std::array<wchar_t, MAX_PATH> szExpanded{};
    const DWORD nLength = ::ExpandEnvironmentStringsW(strPath.c_str(), szExpanded.data(),
                                                      static_cast<DWORD>(szExpanded.size()));
    return nLength == 0 || nLength > szExpanded.size() ? std::wstring() : std::wstring(szExpanded.data());
}

HtmlHelpFunction LoadViewer() {
    const std::wstring strRegistered = GetRegisteredViewer();
    HMODULE hViewer = strRegistered.empty() ? nullptr : ::LoadLibraryW(strRegistered.c_str());
    if (!hViewer) hViewer = ::LoadLibraryW(kViewerFile);
    if (!hViewer) return nullptr;
    return reinterpret_cast<HtmlHelpFunction>(
        reinterpret_cast<void*>(::GetProcAddress(hViewer, "HtmlHelpW")));
}

}  // namespace

void ShowHelpTopic(const std::wstring& strTopic) {
    static const HtmlHelpFunction pfnHtmlHelp = LoadViewer();
    if (pfnHtmlHelp) pfnHtmlHelp(nullptr, strTopic.c_str(), kDisplayTopic, 0);
}
