// Text of an ini document in the form in which the document keeps it: the bytes of the file. Only a text with
// a character that the code page lacks is kept wide, since it must be read back as it was given until it is
// saved. One text has one form, so that equal texts have equal bytes.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "platform/platform.h"
#include "storage/ini_hash.h"
#include "storage/ini_short_text.h"

struct CIniText {
    const char* m_pBytes = nullptr;
    std::uint32_t m_nSize = 0;  // bytes
    bool m_bWide = false;       // the bytes are those of wide characters

    std::string_view GetBytes() const { return {m_pBytes, m_nSize}; }
    bool operator==(const CIniText& other) const {
        return m_nSize == other.m_nSize && m_bWide == other.m_bWide &&
               short_text::AreEqual(m_pBytes, other.m_pBytes, m_nSize);
    }
};

// What a line has between its key and its value. Its length counts whatever the separator is.
inline constexpr wchar_t kUsualSeparator[] = L" = ";
inline constexpr size_t kSeparatorLength = 3;

bool IsAscii(std::string_view bytes);

// The wide form of a kept text.
void WidenText(const CIniText& text, std::wstring& strResult);
std::wstring WidenText(const CIniText& text);

// The bytes that stand for a kept text in the file.
std::string NarrowText(const CIniText& text);

// Compares by wide character codes: less than 0, 0 or more than 0.
int CompareText(const CIniText& left, const CIniText& right);

// Turns a wide text into its kept form, without allocating for an ASCII text of usual length.
class CIniTextMaker {
  public:
    explicit CIniTextMaker(std::wstring_view strText);
    CIniTextMaker(const CIniTextMaker&) = delete;
    CIniTextMaker& operator=(const CIniTextMaker&) = delete;

    // Lives as long as this object, and a wide one as long as the text that was given.
    const CIniText& Get() const { return m_text; }

  private:
    static constexpr size_t kUsualSize = 200;

    void MakeFromOthers(std::wstring_view strText);

    CIniText m_text;
    char m_aBuffer[kUsualSize];
    std::string m_strBytes;
};

inline CIniTextMaker::CIniTextMaker(std::wstring_view strText) {
    const bool bUsual = strText.size() <= kUsualSize;
    if (bUsual && short_text::NarrowAscii(strText.data(), strText.size(), m_aBuffer)) {
        m_text = {m_aBuffer, static_cast<std::uint32_t>(strText.size()), false};
    } else {
        MakeFromOthers(strText);
    }
}
