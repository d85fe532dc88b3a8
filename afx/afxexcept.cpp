// Run-time classes, failures, and the one file operation that fails by them.
#include <algorithm>

#include "afxwin.h"

const CRuntimeClass* CObject::GetThisClass() {
    static const CRuntimeClass runtimeClass{"CObject", nullptr};
    return &runtimeClass;
}

const CRuntimeClass* CObject::GetRuntimeClass() const {
    return GetThisClass();
}

IMPLEMENT_DYNAMIC(CException, CObject)
IMPLEMENT_DYNAMIC(CInvalidArgException, CException)
IMPLEMENT_DYNAMIC(CResourceException, CException)
IMPLEMENT_DYNAMIC(CUserException, CException)
IMPLEMENT_DYNAMIC(CFileException, CException)

namespace {

struct FileCause {
    LONG lOsError;
    int cause;
    const wchar_t* lpszText;
};

// The first row of a cause gives its text.
constexpr FileCause kFileCauses[] = {
    {ERROR_FILE_NOT_FOUND, CFileException::fileNotFound, L"The file does not exist"},
    {ERROR_PATH_NOT_FOUND, CFileException::badPath, L"The folder does not exist"},
    {ERROR_INVALID_NAME, CFileException::badPath, L""},
    {ERROR_BAD_PATHNAME, CFileException::badPath, L""},
    {ERROR_BAD_NETPATH, CFileException::badPath, L""},
    {ERROR_INVALID_DRIVE, CFileException::badPath, L""},
    {ERROR_TOO_MANY_OPEN_FILES, CFileException::tooManyOpenFiles, L"Too many files are open"},
    {ERROR_ACCESS_DENIED, CFileException::accessDenied, L"The system denies access to the file"},
    {ERROR_ALREADY_EXISTS, CFileException::accessDenied, L""},
    {ERROR_FILE_EXISTS, CFileException::accessDenied, L""},
    {ERROR_WRITE_PROTECT, CFileException::accessDenied, L""},
    {ERROR_INVALID_HANDLE, CFileException::invalidFile, L"The file is not open"},
    {ERROR_CURRENT_DIRECTORY, CFileException::removeCurrentDir, L"The folder is in use as the current one"},
    {ERROR_NOT_READY, CFileException::hardIO, L"The device reports a fault"},
    {ERROR_SHARING_VIOLATION, CFileException::sharingViolation, L"Another program has the file open"},
    {ERROR_LOCK_VIOLATION, CFileException::lockViolation, L"Another program has locked a part of the file"},
    {ERROR_DISK_FULL, CFileException::diskFull, L"The disk is full"},
    {ERROR_HANDLE_EOF, CFileException::endOfFile, L"The file ends before its content does"},
};

const wchar_t* FileCauseText(int cause) {
    for (const FileCause& row : kFileCauses) {
        if (row.cause == cause && *row.lpszText) return row.lpszText;
    }
    return L"The file operation failed";
}

BOOL CopyText(const CString& strText, LPWSTR lpszError, UINT nMaxError) {
    if (!lpszError || nMaxError == 0) return FALSE;
    lstrcpynW(lpszError, strText, static_cast<int>(nMaxError));
    return TRUE;
}

}  // namespace

BOOL CException::GetErrorMessage(LPWSTR lpszError, UINT nMaxError, UINT*) const {
    if (lpszError && nMaxError > 0) *lpszError = L'\0';
    return FALSE;
}

int CException::ReportError(UINT nType, UINT nMessageID) {
    wchar_t szText[1024];
    if (GetErrorMessage(szText, static_cast<UINT>(std::size(szText)))) return AfxMessageBox(szText, nType);
    CString strText;
    if (nMessageID == 0 || !strText.LoadString(nMessageID)) strText = L"The operation failed.";
    return AfxMessageBox(strText, nType);
}

BOOL CInvalidArgException::GetErrorMessage(LPWSTR lpszError, UINT nMaxError, UINT*) const {
    return CopyText(L"A value is not allowed here, or lies outside its range.", lpszError, nMaxError);
}

BOOL CResourceException::GetErrorMessage(LPWSTR lpszError, UINT nMaxError, UINT*) const {
    return CopyText(L"A window, a menu or an image could not be made.", lpszError, nMaxError);
}

int CUserException::ReportError(UINT, UINT) {
    return IDCANCEL;
}

CFileException::CFileException(int cause, LONG lOsError, LPCWSTR lpszFileName)
    : m_cause(cause), m_lOsError(lOsError), m_strFileName(lpszFileName) {}

int CFileException::OsErrorToException(LONG lOsError) {
    if (lOsError == NO_ERROR) return none;
    for (const FileCause& row : kFileCauses) {
        if (row.lOsError == lOsError) return row.cause;
    }
    return genericException;
}

BOOL CFileException::GetErrorMessage(LPWSTR lpszError, UINT nMaxError, UINT*) const {
    CString strText(FileCauseText(m_cause));
    if (m_strFileName.IsEmpty()) {
        strText += L'.';
    } else {
        strText += L":\n" + m_strFileName;
    }
    return CopyText(strText, lpszError, nMaxError);
}

void AfxThrowInvalidArgException() {
    throw new CInvalidArgException;
}

void AfxThrowResourceException() {
    throw new CResourceException;
}

void AfxThrowUserException() {
    throw new CUserException;
}

void AfxThrowFileException(int cause, LONG lOsError, LPCWSTR lpszFileName) {
    throw new CFileException(cause, lOsError, lpszFileName);
}

void CFile::Rename(LPCWSTR lpszOldName, LPCWSTR lpszNewName) {
    if (::MoveFileW(lpszOldName, lpszNewName)) return;
    const LONG lOsError = static_cast<LONG>(::GetLastError());
    AfxThrowFileException(CFileException::OsErrorToException(lOsError), lOsError, lpszOldName);
}
