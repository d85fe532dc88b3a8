#include "storage/path_text.h"

#include <limits>

#include "platform/platform.h"

namespace {

constexpr wchar_t kBackslash = L'\\';

bool IsBlank(wchar_t ch) {
    return ch == L' ' || (ch >= L'\t' && ch <= L'\r');
}

}  // namespace

std::wstring EnsureBackslash(const std::wstring& strPath) {
    if (strPath.empty() || strPath.back() == kBackslash) return strPath;
    return strPath + kBackslash;
}

std::wstring GetFolderOfPath(const std::wstring& strPath) {
    return strPath.substr(0, strPath.rfind(kBackslash) + 1);
}

void EnsureFolderOfPath(const std::wstring& strFilePath) {
    std::wstring strFolder = GetFolderOfPath(strFilePath);
    strFolder.erase(strFolder.find_last_not_of(kBackslash) + 1);
    std::vector<std::wstring> astrFields;
    SplitQuotedString(strFolder, astrFields, kBackslash, L'"');
    if (astrFields.empty()) return;
    std::wstring strRunning = astrFields.front();
    for (size_t i = 1; i < astrFields.size(); ++i) {
        strRunning += kBackslash + astrFields[i];
        // On a share the first steps fail, and most folders exist: only the last result would tell anything.
        platform::GetFiles().MakeFolder(strRunning);
    }
}

void SplitQuotedString(const std::wstring& strText, std::vector<std::wstring>& astrFields,
                       wchar_t chDelimiter, wchar_t chQuote) {
    astrFields.clear();
    if (strText.empty()) return;
    std::wstring strField;
    bool bQuoted = false;
    for (size_t i = 0; i < strText.size(); ++i) {
        const wchar_t ch = strText[i];
        if (bQuoted) {
            const bool bDoubled = ch == chQuote && i + 1 < strText.size() && strText[i + 1] == chQuote;
            if (ch != chQuote) {
                strField += ch;
            } else if (bDoubled) {
                strField += ch;
                ++i;
            } else {
                bQuoted = false;
            }
        } else if (ch == chDelimiter) {
            astrFields.push_back(strField);
            strField.clear();
        } else if (ch == chQuote) {
            bQuoted = true;
        } else {
            strField += ch;
        }
    }
    astrFields.push_back(strField);
}

int LeadingInteger(const std::wstring& strText) {
    constexpr long long nLargest = std::numeric_limits<int>::max();
    constexpr long long nSmallest = std::numeric_limits<int>::min();
    size_t i = 0;
    while (i < strText.size() && IsBlank(strText[i]))
        ++i;
    const bool bNegative = i < strText.size() && strText[i] == L'-';
    if (i < strText.size() && (strText[i] == L'-' || strText[i] == L'+')) ++i;
    long long nValue = 0;
    for (; i < strText.size() && strText[i] >= L'0' && strText[i] <= L'9'; ++i) {
        nValue = nValue * 10 + (strText[i] - L'0');
        if (nValue > nLargest) return static_cast<int>(bNegative ? nSmallest : nLargest);
    }
    return static_cast<int>(bNegative ? -nValue : nValue);
}
