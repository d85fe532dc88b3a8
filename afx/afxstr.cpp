#include "afxstr.h"

#include <algorithm>
#include <cstdarg>
#include <vector>

#include "afxwin.h"

namespace {

constexpr const wchar_t* kBlanks = L" \t\n\v\f\r";

int ToInt(size_t nPosition) {
    return nPosition == std::wstring::npos ? -1 : static_cast<int>(nPosition);
}

size_t Clamp(int nValue, int nMax) {
    return static_cast<size_t>(std::clamp(nValue, 0, nMax));
}

}  // namespace

CString::CString(const wchar_t* lpsz) : m_str(lpsz ? lpsz : L"") {}

CString::CString(const wchar_t* lpch, int nLength) {
    if (lpch && nLength > 0) m_str.assign(lpch, static_cast<size_t>(nLength));
}

CString::CString(wchar_t ch, int nRepeat) : m_str(static_cast<size_t>(std::max(nRepeat, 0)), ch) {}

CString::CString(const char* lpsz) {
    if (!lpsz) return;
    const int nLength = ::MultiByteToWideChar(CP_ACP, 0, lpsz, -1, nullptr, 0);
    if (nLength <= 1) return;
    m_str.resize(static_cast<size_t>(nLength));
    ::MultiByteToWideChar(CP_ACP, 0, lpsz, -1, m_str.data(), nLength);
    m_str.pop_back();
}

CString& CString::operator=(const wchar_t* lpsz) {
    m_str = std::wstring(lpsz ? lpsz : L"");
    return *this;
}

CString& CString::operator=(wchar_t ch) {
    m_str.assign(1, ch);
    return *this;
}

wchar_t CString::GetAt(int nIndex) const {
    if (nIndex < 0 || nIndex >= GetLength()) AfxThrowInvalidArgException();
    return m_str[static_cast<size_t>(nIndex)];
}

void CString::SetAt(int nIndex, wchar_t ch) {
    if (nIndex < 0 || nIndex >= GetLength()) AfxThrowInvalidArgException();
    m_str[static_cast<size_t>(nIndex)] = ch;
}

CString& CString::operator+=(const CString& str) {
    m_str += str.m_str;
    return *this;
}

CString& CString::operator+=(const wchar_t* lpsz) {
    if (lpsz) m_str += lpsz;
    return *this;
}

CString& CString::operator+=(wchar_t ch) {
    m_str += ch;
    return *this;
}

CString CString::Mid(int nFirst) const {
    return Mid(nFirst, GetLength());
}

CString CString::Mid(int nFirst, int nCount) const {
    return CString(m_str.substr(Clamp(nFirst, GetLength()), Clamp(nCount, GetLength())));
}

CString CString::Left(int nCount) const {
    return CString(m_str.substr(0, Clamp(nCount, GetLength())));
}

CString CString::Right(int nCount) const {
    return CString(m_str.substr(m_str.size() - Clamp(nCount, GetLength())));
}

int CString::Find(wchar_t ch, int nStart) const {
    if (nStart < 0 || nStart > GetLength()) return -1;
    return ToInt(m_str.find(ch, static_cast<size_t>(nStart)));
}

int CString::Find(const wchar_t* lpszSub, int nStart) const {
    if (!lpszSub || nStart < 0 || nStart > GetLength()) return -1;
    return ToInt(m_str.find(lpszSub, static_cast<size_t>(nStart)));
}

int CString::ReverseFind(wchar_t ch) const {
    return ToInt(m_str.rfind(ch));
}

int CString::FindOneOf(const wchar_t* lpszCharSet) const {
    return lpszCharSet ? ToInt(m_str.find_first_of(lpszCharSet)) : -1;
}

CString& CString::MakeUpper() {
    ::CharUpperBuffW(m_str.data(), static_cast<DWORD>(m_str.size()));
    return *this;
}

CString& CString::MakeLower() {
    ::CharLowerBuffW(m_str.data(), static_cast<DWORD>(m_str.size()));
    return *this;
}

CString& CString::TrimLeft() {
    return TrimLeft(kBlanks);
}

CString& CString::TrimLeft(wchar_t ch) {
    m_str.erase(0, std::min(m_str.find_first_not_of(ch), m_str.size()));
    return *this;
}

CString& CString::TrimLeft(const wchar_t* lpszTargets) {
    if (lpszTargets) m_str.erase(0, std::min(m_str.find_first_not_of(lpszTargets), m_str.size()));
    return *this;
}

CString& CString::TrimRight() {
    return TrimRight(kBlanks);
}

// find_last_not_of is npos for a text of targets only: npos + 1 erases from the beginning.
CString& CString::TrimRight(wchar_t ch) {
    m_str.erase(m_str.find_last_not_of(ch) + 1);
    return *this;
}

CString& CString::TrimRight(const wchar_t* lpszTargets) {
    if (lpszTargets) m_str.erase(m_str.find_last_not_of(lpszTargets) + 1);
    return *this;
}

int CString::Replace(wchar_t chOld, wchar_t chNew) {
    const auto nCount = std::count(m_str.begin(), m_str.end(), chOld);
    std::replace(m_str.begin(), m_str.end(), chOld, chNew);
    return static_cast<int>(nCount);
}

int CString::Replace(const wchar_t* lpszOld, const wchar_t* lpszNew) {
    const std::wstring strOld = lpszOld ? lpszOld : L"";
    const std::wstring strNew = lpszNew ? lpszNew : L"";
    if (strOld.empty()) return 0;
    int nCount = 0;
    for (size_t nAt = m_str.find(strOld); nAt != std::wstring::npos;
         nAt = m_str.find(strOld, nAt + strNew.size())) {
        m_str.replace(nAt, strOld.size(), strNew);
        ++nCount;
    }
    return nCount;
}

int CString::Remove(wchar_t ch) {
    return static_cast<int>(std::erase(m_str, ch));
}

int CString::Insert(int nIndex, const wchar_t* lpsz) {
    if (lpsz) m_str.insert(Clamp(nIndex, GetLength()), lpsz);
    return GetLength();
}

int CString::Delete(int nIndex, int nCount) {
    m_str.erase(Clamp(nIndex, GetLength()), Clamp(nCount, GetLength()));
    return GetLength();
}

wchar_t* CString::GetBuffer(int nMinBufferLength) {
    if (nMinBufferLength > GetLength()) m_str.resize(static_cast<size_t>(nMinBufferLength));
    return m_str.data();
}

void CString::ReleaseBuffer(int nNewLength) {
    m_str.resize(nNewLength >= 0 ? Clamp(nNewLength, GetLength()) : std::wcslen(m_str.c_str()));
}

void CString::Format(const wchar_t* lpszFormat, ...) {
    va_list args;
    va_start(args, lpszFormat);
    FormatV(lpszFormat, args);
    va_end(args);
}

void CString::FormatV(const wchar_t* lpszFormat, va_list args) {
    va_list again;
    va_copy(again, args);
    const int nLength = _vscwprintf(lpszFormat, args);
    std::wstring strResult;
    if (nLength > 0) {
        strResult.resize(static_cast<size_t>(nLength) + 1);
        _vsnwprintf(strResult.data(), strResult.size(), lpszFormat, again);
        strResult.pop_back();
    }
    va_end(again);
    m_str = std::move(strResult);
}

BOOL CString::LoadString(UINT nID) {
    m_str.clear();
    // Strings lie in the table in blocks of sixteen, which are the resources to look for.
    const HINSTANCE hInst = AfxFindResourceHandle(MAKEINTRESOURCE(nID / 16 + 1), RT_STRING);
    const wchar_t* lpszText = nullptr;
    const int nLength = ::LoadStringW(hInst, nID, reinterpret_cast<LPWSTR>(&lpszText), 0);
    if (nLength <= 0) return FALSE;
    m_str.assign(lpszText, static_cast<size_t>(nLength));
    return TRUE;
}
