// CString: the wide text type in which the framework takes and gives texts.
#pragma once

#include <cwchar>
#include <string>
#include <string_view>

#include "afx_port.h"
#include "afxv_w32.h"

// Positions and lengths count wide characters. A position or count outside the text is clamped to it, so no
// operation fails on bad numbers; Find and its kin return -1 when nothing is found.
class AFX_PORT CString {
  public:
    CString() = default;
    CString(const CString&) = default;
    CString(CString&&) noexcept = default;
    CString(const wchar_t* lpsz);  // null makes an empty text
    CString(const wchar_t* lpch, int nLength);
    CString(const std::wstring& str) : m_str(str) {}
    CString(std::wstring&& str) noexcept : m_str(std::move(str)) {}
    explicit CString(wchar_t ch, int nRepeat = 1);
    explicit CString(const char* lpsz);  // narrow text in the ANSI code page

    CString& operator=(const CString&) = default;
    CString& operator=(CString&&) noexcept = default;
    CString& operator=(const wchar_t* lpsz);
    CString& operator=(wchar_t ch);

    operator const wchar_t*() const { return m_str.c_str(); }
    const wchar_t* GetString() const { return m_str.c_str(); }
    const std::wstring& ToStdString() const { return m_str; }

    int GetLength() const { return static_cast<int>(m_str.size()); }
    bool IsEmpty() const { return m_str.empty(); }
    void Empty() { m_str.clear(); }
    wchar_t GetAt(int nIndex) const;     // an index outside the text raises the invalid argument failure
    void SetAt(int nIndex, wchar_t ch);  // likewise
    wchar_t operator[](int nIndex) const { return GetAt(nIndex); }

    CString& operator+=(const CString& str);
    CString& operator+=(const wchar_t* lpsz);
    CString& operator+=(wchar_t ch);

    CString Mid(int nFirst) const;
    CString Mid(int nFirst, int nCount) const;
    CString Left(int nCount) const;
    CString Right(int nCount) const;

    int Find(wchar_t ch, int nStart = 0) const;
    int Find(const wchar_t* lpszSub, int nStart = 0) const;
    int ReverseFind(wchar_t ch) const;
    int FindOneOf(const wchar_t* lpszCharSet) const;

    CString& MakeUpper();
    CString& MakeLower();
    CString& TrimLeft();
    CString& TrimLeft(wchar_t ch);
    CString& TrimLeft(const wchar_t* lpszTargets);
    CString& TrimRight();
    CString& TrimRight(wchar_t ch);
    CString& TrimRight(const wchar_t* lpszTargets);
    CString& Trim() { return TrimLeft().TrimRight(); }
    CString& Trim(wchar_t ch) { return TrimLeft(ch).TrimRight(ch); }
    CString& Trim(const wchar_t* lpszTargets) { return TrimLeft(lpszTargets).TrimRight(lpszTargets); }

    // Each returns how many replacements or removals were made, Insert and Delete the new length.
    int Replace(wchar_t chOld, wchar_t chNew);
    int Replace(const wchar_t* lpszOld, const wchar_t* lpszNew);
    int Remove(wchar_t ch);
    int Insert(int nIndex, const wchar_t* lpsz);
    int Delete(int nIndex, int nCount = 1);

    int Compare(const wchar_t* lpsz) const { return std::wcscmp(m_str.c_str(), lpsz); }
    int CompareNoCase(const wchar_t* lpsz) const { return _wcsicmp(m_str.c_str(), lpsz); }

    // The writable buffer has room for at least `nMinBufferLength` characters and the closing null.
    // ReleaseBuffer takes the text up to its first null, or `nNewLength` characters.
    wchar_t* GetBuffer(int nMinBufferLength = 0);
    void ReleaseBuffer(int nNewLength = -1);

    // printf's rules as the platform has them for wide text: %s takes a wide text.
    void Format(const wchar_t* lpszFormat, ...);
    void FormatV(const wchar_t* lpszFormat, va_list args);

    // From the string table of the current resource module. False, and an empty text, if there is none.
    BOOL LoadString(UINT nID);

  private:
    std::wstring m_str;
};

inline CString operator+(const CString& a, const CString& b) {
    return CString(a.ToStdString() + b.ToStdString());
}
inline CString operator+(const CString& a, const wchar_t* b) {
    return CString(a) += b;
}
inline CString operator+(const wchar_t* a, const CString& b) {
    return CString(a) += b;
}
inline CString operator+(const CString& a, wchar_t b) {
    return CString(a) += b;
}
inline CString operator+(wchar_t a, const CString& b) {
    return CString(a) += b;
}
inline CString operator+(const CString& a, const std::wstring& b) {
    return CString(a.ToStdString() + b);
}
inline CString operator+(const std::wstring& a, const CString& b) {
    return CString(a + b.ToStdString());
}

inline bool operator==(const CString& a, const CString& b) {
    return a.ToStdString() == b.ToStdString();
}
inline bool operator==(const CString& a, const wchar_t* b) {
    return a.Compare(b) == 0;
}
inline bool operator==(const wchar_t* a, const CString& b) {
    return b.Compare(a) == 0;
}
inline bool operator==(const CString& a, const std::wstring& b) {
    return a.ToStdString() == b;
}
inline bool operator<(const CString& a, const CString& b) {
    return a.ToStdString() < b.ToStdString();
}
