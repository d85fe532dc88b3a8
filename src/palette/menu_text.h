// The texts that a pick in the tabbed menu sends to the host's command line.
#pragma once

#include <string>

// Cancels whatever command runs; goes ahead of every text.
inline constexpr wchar_t kThreeEscapes[] = L"\x1b\x1b\x1b";

// Sent when a spec is chosen, changed or not.
inline constexpr wchar_t kSpecClickExpression[] = L"(kv2dMenu_OnSpecClick) ";

// A command's text with the blank at its end that makes the host run it: one is added unless there is one.
std::wstring GetMenuCommandText(const std::wstring& strItem);

// The LISP call that tells of a toggle: trailing blanks of the item's text are left out, the state is 0 or 1.
std::wstring GetToggleExpression(int nApplicationId, const std::wstring& strItem, bool bState);
