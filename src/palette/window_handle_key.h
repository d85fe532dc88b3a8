// The registry entries through which other programs of the suite find the palette's dialog.
#pragma once

#include <cstdint>
#include <string>

inline constexpr wchar_t kToolboxMenuValue[] = L"ToolboxMenu";

// Key of a main window below HKEY_CURRENT_USER, with the present year and month: the window's handle stands
// in it as a signed decimal number. A moment that has no local time raises the invalid-argument failure.
std::wstring GetWindowHandleKey(std::int32_t nMainWindow);

// Stores the dialog's handle under the key of the main window.
void WriteWindowHandle(std::int32_t nMainWindow, const std::wstring& strName, std::uint32_t uDialog);

// Takes the value out again, and with it every entry of another month: what processes that died left behind.
// A process that crossed into a new month has its own entry removed by that sweep.
void RemoveWindowHandle(std::int32_t nMainWindow, const std::wstring& strName);
