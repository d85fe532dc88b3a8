#include "drawing_manager/drawing_names.h"

#include "platform/letter_case.h"
#include "storage/message_format.h"

namespace {

constexpr size_t kExtensionLength = 4;

// The last four characters in lower case; the whole text if it is shorter.
std::wstring GetEnding(const std::wstring& strName) {
    if (strName.size() <= kExtensionLength) return platform::ToLower(strName);
    return platform::ToLower(strName.substr(strName.size() - kExtensionLength));
}

// Where the file's own name begins.
size_t FindNameStart(const std::wstring& strPath) {
    const size_t nBackslash = strPath.rfind(L'\\');
    return nBackslash == std::wstring::npos ? 0 : nBackslash + 1;
}

// Where the extension begins, its dot included; the path's length if there is none.
size_t FindExtensionStart(const std::wstring& strPath) {
    const size_t nDot = strPath.rfind(L'.');
    return nDot == std::wstring::npos || nDot < FindNameStart(strPath) ? strPath.size() : nDot;
}

}  // namespace

bool IsBackupName(const std::wstring& strName) {
    return GetEnding(strName) == kBackupExtension;
}

void NormalizeDrawingName(std::wstring& strName) {
    const std::wstring strEnding = GetEnding(strName);
    if (strEnding == kBackupExtension || strEnding == kDrawingExtension) {
        strName.replace(strName.size() - kExtensionLength, kExtensionLength, strEnding);
    } else {
        strName += kDrawingExtension;
    }
}

std::wstring GetFileTitleOnly(const std::wstring& strPath) {
    const size_t nStart = FindNameStart(strPath);
    return strPath.substr(nStart, FindExtensionStart(strPath) - nStart);
}

std::wstring GetFileExtensionLower(const std::wstring& strPath) {
    return platform::ToLower(strPath.substr(FindExtensionStart(strPath)));
}

std::wstring MakeCopyName(const std::wstring& strPath, const PathExists& exists) {
    const std::wstring strFolder = strPath.substr(0, FindNameStart(strPath));
    const std::wstring strTitle = GetFileTitleOnly(strPath);
    const std::wstring strExtension = GetFileExtensionLower(strPath);
    for (int nCopy = 1;; ++nCopy) {
        std::wstring strCopy =
            FormatMessageText(L"%s%s (Copy %d)%s", {strFolder, strTitle, nCopy, strExtension});
        if (!exists(strCopy)) return strCopy;
    }
}

std::wstring MakeDrawingTitle(int nNumber) {
    return FormatMessageText(L"Drawing%d", {nNumber});
}

int FindFreeDrawingNumber(const std::wstring& strFolder, const PathExists& exists) {
    int nNumber = 1;
    while (exists(strFolder + MakeDrawingTitle(nNumber) + kDrawingExtension))
        ++nNumber;
    return nNumber;
}

std::wstring MakeNewFolderName(const std::wstring& strFolder, const PathExists& exists) {
    for (int nNumber = 1;; ++nNumber) {
        std::wstring strName = FormatMessageText(L"New Folder (%d)", {nNumber});
        if (!exists(strFolder + strName)) return strName;
    }
}

std::wstring TrimTrailingBackslashes(std::wstring strPath) {
    strPath.erase(strPath.find_last_not_of(L'\\') + 1);
    return strPath;
}

std::wstring MakeRenamedFolder(const std::wstring& strFolder, const std::wstring& strNewName) {
    const std::wstring strOld = TrimTrailingBackslashes(strFolder);
    return strOld.substr(0, FindNameStart(strOld)) + strNewName;
}

std::wstring MakeDeleteQuestion(const std::vector<std::wstring>& astrNames) {
    std::wstring strQuestion = L"Are you sure you want to delete these drawings?\n\n";
    for (std::wstring strName : astrNames) {
        NormalizeDrawingName(strName);
        strQuestion += strName + L"\n";
    }
    return strQuestion;
}

bool IsOnlyDefaultDrawing(const std::vector<std::wstring>& astrNames) {
    return astrNames.size() == 1 && astrNames[0] == MakeDrawingTitle(1);
}
