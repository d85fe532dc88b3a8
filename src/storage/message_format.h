// Fills the formats of messages and of generated names. Unlike the C library's formats, nothing in an
// argument is ever read as a format again: a drawing named "50%s.dwg" appears in a message as it is called.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

// One argument: a text, or a whole number that is written in decimal.
class CMessageArgument {
  public:
    CMessageArgument(const std::wstring& strText) : m_strText(strText) {}
    CMessageArgument(const wchar_t* pszText) : m_strText(pszText) {}
    CMessageArgument(int nNumber) : m_strText(std::to_wstring(nNumber)) {}

    const std::wstring& GetText() const { return m_strText; }

  private:
    std::wstring m_strText;
};

// Replaces each "%s" and "%d" of `strFormat`, in order, by the next argument. Every other '%' is text, and so
// is a "%s" or "%d" for which no argument is left. Arguments beyond the last "%s" or "%d" are not used.
// FormatMessageText(L"50% of %s\\%d", {L"100%d", 7}) gives "50% of 100%d\7".
std::wstring FormatMessageText(std::wstring_view strFormat,
                               std::initializer_list<CMessageArgument> arguments);
