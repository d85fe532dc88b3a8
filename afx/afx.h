// The base of the framework: run-time classes, failures, text, files.
#pragma once

#include "afx_port.h"
#include "afxstr.h"
#include "afxv_w32.h"
#include "atltypes.h"

class CObject;

// What is known of a class at run time. Compare by address.
struct CRuntimeClass {
    const char* m_lpszClassName;
    const CRuntimeClass* m_pBaseClass;  // null for CObject

    bool IsDerivedFrom(const CRuntimeClass* pBaseClass) const {
        for (const CRuntimeClass* p = this; p; p = p->m_pBaseClass) {
            if (p == pBaseClass) return true;
        }
        return false;
    }
};

#define RUNTIME_CLASS(class_name) (class_name::GetThisClass())

#define DECLARE_DYNAMIC(class_name)             \
  public:                                       \
    static const CRuntimeClass* GetThisClass(); \
    const CRuntimeClass* GetRuntimeClass() const override;

#define IMPLEMENT_DYNAMIC(class_name, base_class_name)                                        \
    const CRuntimeClass* class_name::GetThisClass() {                                         \
        static const CRuntimeClass runtimeClass{#class_name, RUNTIME_CLASS(base_class_name)}; \
        return &runtimeClass;                                                                 \
    }                                                                                         \
    const CRuntimeClass* class_name::GetRuntimeClass() const {                                \
        return RUNTIME_CLASS(class_name);                                                     \
    }

class AFX_PORT CObject {
  public:
    CObject() = default;
    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;
    virtual ~CObject() = default;

    static const CRuntimeClass* GetThisClass();
    virtual const CRuntimeClass* GetRuntimeClass() const;
    bool IsKindOf(const CRuntimeClass* pClass) const { return GetRuntimeClass()->IsDerivedFrom(pClass); }
};

// A failure of the framework. Failures are thrown as pointers, and whoever catches one calls Delete. One that
// reaches a window procedure is caught there and shown in a message box with its text.
class AFX_PORT CException : public CObject {
    DECLARE_DYNAMIC(CException)

  public:
    // Writes the text, cut to `nMaxError` characters with the closing null. False if there is none.
    virtual BOOL GetErrorMessage(LPWSTR lpszError, UINT nMaxError, UINT* pnHelpContext = nullptr) const;
    // Shows the text in a message box over the active window; without a text, that of the string resource
    // `nMessageID`. The result is the box's answer.
    virtual int ReportError(UINT nType = MB_OK, UINT nMessageID = 0);
    void Delete() { delete this; }
};

// A bad argument: an index outside an array or a text, a value that a function does not take.
class AFX_PORT CInvalidArgException : public CException {
    DECLARE_DYNAMIC(CInvalidArgException)

  public:
    BOOL GetErrorMessage(LPWSTR lpszError, UINT nMaxError, UINT* pnHelpContext = nullptr) const override;
};

// Something that the platform refused: no window class, no menu, no image.
class AFX_PORT CResourceException : public CException {
    DECLARE_DYNAMIC(CResourceException)

  public:
    BOOL GetErrorMessage(LPWSTR lpszError, UINT nMaxError, UINT* pnHelpContext = nullptr) const override;
};

// The user's own choice ended the operation; it is not shown.
class AFX_PORT CUserException : public CException {
    DECLARE_DYNAMIC(CUserException)

  public:
    int ReportError(UINT nType = MB_OK, UINT nMessageID = 0) override;
};

class AFX_PORT CFileException : public CException {
    DECLARE_DYNAMIC(CFileException)

  public:
    enum {
        none,
        genericException,
        fileNotFound,
        badPath,
        tooManyOpenFiles,
        accessDenied,
        invalidFile,
        removeCurrentDir,
        directoryFull,
        badSeek,
        hardIO,
        sharingViolation,
        lockViolation,
        diskFull,
        endOfFile
    };

    explicit CFileException(int cause = none, LONG lOsError = -1, LPCWSTR lpszFileName = nullptr);

    int m_cause;            // one of the values above
    LONG m_lOsError;        // the system's own number, -1 if there is none
    CString m_strFileName;  // may be empty

    static int OsErrorToException(LONG lOsError);
    BOOL GetErrorMessage(LPWSTR lpszError, UINT nMaxError, UINT* pnHelpContext = nullptr) const override;
};

[[noreturn]] AFX_PORT void AfxThrowInvalidArgException();
[[noreturn]] AFX_PORT void AfxThrowResourceException();
[[noreturn]] AFX_PORT void AfxThrowUserException();
[[noreturn]] AFX_PORT void AfxThrowFileException(int cause, LONG lOsError = -1,
                                                 LPCWSTR lpszFileName = nullptr);

class AFX_PORT CFile {
  public:
    // Renames or moves a file; raises a CFileException with the system's error on failure.
    static void Rename(LPCWSTR lpszOldName, LPCWSTR lpszNewName);
};

#include "afxcoll.h"
