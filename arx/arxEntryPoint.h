// The application object of a module with commands and LISP functions, and the tables of both.
#pragma once

#include "acedads.h"
#include "dbxEntryPoint.h"

#ifdef _WIN32
#include <windows.h>
#endif

// The longest name that is loaded from the string resources.
inline constexpr int kArxNameLength = 132;

struct _ADSK_ARXCOMMAND_ENTRY {
    const ACHAR* pszGroupName;
    const ACHAR* pszGlobalCmdName;
    const ACHAR* pszLocalCmdName;  // null: string resource localNameID
    Adesk::Int32 commandFlags;
    AcRxFunctionPtr functionAddr;
    AcEdUIContext* UIContext;
    Adesk::UInt32 localNameID;
};

struct _ADSK_ADSSYMBOL_ENTRY {
    const ACHAR* pszName;  // null: string resource nameID
    int (*fptr)();
    bool bRegFunc;
    Adesk::UInt32 nameID;
};

using ADSK_ARXCOMMAND_ENTRY = _ADSK_ARXCOMMAND_ENTRY;
using ADSK_ADSSYMBOL_ENTRY = _ADSK_ADSSYMBOL_ENTRY;

extern "C" {
extern ADSK_ARXCOMMAND_ENTRY* const __start_arxcmd[];
extern ADSK_ARXCOMMAND_ENTRY* const __stop_arxcmd[];
extern ADSK_ADSSYMBOL_ENTRY* const __start_arxlisp[];
extern ADSK_ADSSYMBOL_ENTRY* const __stop_arxlisp[];
}
ARX_ENTRY_SECTION("arxcmd") static ADSK_ARXCOMMAND_ENTRY* const arxNoCommandEntry = nullptr;
ARX_ENTRY_SECTION("arxlisp") static ADSK_ADSSYMBOL_ENTRY* const arxNoSymbolEntry = nullptr;

// A command whose function is the static member GROUP##GLOBAL of the class.
#define ACED_ARXCOMMAND_ENTRY_AUTO(CLASS, GROUP, GLOBAL, LOCAL, FLAGS, CONTEXT)                     \
    static ADSK_ARXCOMMAND_ENTRY arxCommandEntry_##GROUP##GLOBAL = {                                \
        ACRX_T(#GROUP), ACRX_T(#GLOBAL), ACRX_T(#LOCAL), FLAGS, &CLASS::GROUP##GLOBAL, CONTEXT, 0}; \
    ARX_ENTRY_SECTION("arxcmd")                                                                     \
    static ADSK_ARXCOMMAND_ENTRY* const arxCommandEntryPointer_##GROUP##GLOBAL =                    \
        &arxCommandEntry_##GROUP##GLOBAL

// The same with the local name in the string resources.
#define ACED_ARXCOMMAND_ENTRYBYID_AUTO(CLASS, GROUP, GLOBAL, LOCALID, FLAGS, CONTEXT)              \
    static ADSK_ARXCOMMAND_ENTRY arxCommandEntry_##GROUP##GLOBAL = {                               \
        ACRX_T(#GROUP), ACRX_T(#GLOBAL), nullptr, FLAGS, &CLASS::GROUP##GLOBAL, CONTEXT, LOCALID}; \
    ARX_ENTRY_SECTION("arxcmd")                                                                    \
    static ADSK_ARXCOMMAND_ENTRY* const arxCommandEntryPointer_##GROUP##GLOBAL =                   \
        &arxCommandEntry_##GROUP##GLOBAL

// A LISP function: the static member ads_NAME of the class.
#define ACED_ADSSYMBOL_ENTRY_AUTO(CLASS, NAME, REGFUNC)                                              \
    static ADSK_ADSSYMBOL_ENTRY arxSymbolEntry_##NAME = {ACRX_T(#NAME), &CLASS::ads_##NAME, REGFUNC, \
                                                         0xFFFFFFFF};                                \
    ARX_ENTRY_SECTION("arxlisp")                                                                     \
    static ADSK_ADSSYMBOL_ENTRY* const arxSymbolEntryPointer_##NAME = &arxSymbolEntry_##NAME

// A name from the string resources of the module, an empty text if it is not there.
class ArxResourceName {
  public:
    ArxResourceName(HINSTANCE__* instance, [[maybe_unused]] Adesk::UInt32 id) {
#ifdef _WIN32
        LoadStringW(instance, id, m_text, kArxNameLength);
#else
        static_cast<void>(instance);
#endif
    }
    const ACHAR* Text() const {
        return m_text;
    }

  private:
    ACHAR m_text[kArxNameLength] = {};
};

class AcRxArxApp : public AcRxDbxApp {
  public:
    AcRx::AppRetCode On_kInitAppMsg(void* appId) override;
    AcRx::AppRetCode On_kUnloadAppMsg(void* appId) override;
    AcRx::AppRetCode On_kLoadDwgMsg(void* appId) override;
    AcRx::AppRetCode On_kUnloadDwgMsg(void* appId) override;
    AcRx::AppRetCode On_kInvkSubrMsg(void* appId) override;

  private:
    void AddCommand(const ADSK_ARXCOMMAND_ENTRY& entry);
    // Calls `visit(row, index)` for each row of the LISP table; the index counts the rows that are there.
    template <class Visit>
    static void ForEachSymbol(Visit visit);
};

inline AcRx::AppRetCode AcRxArxApp::On_kInitAppMsg(void* appId) {
    const AcRx::AppRetCode result = AcRxDbxApp::On_kInitAppMsg(appId);
    for (ADSK_ARXCOMMAND_ENTRY* const* entry = __start_arxcmd; entry != __stop_arxcmd; ++entry) {
        if (*entry != nullptr) {
            AddCommand(**entry);
        }
    }
    return result;
}

inline void AcRxArxApp::AddCommand(const ADSK_ARXCOMMAND_ENTRY& entry) {
    const ArxResourceName loadedName(m_hdllInstance, entry.localNameID);
    const ACHAR* localName = entry.pszLocalCmdName != nullptr ? entry.pszLocalCmdName : loadedName.Text();
    const bool session = (entry.commandFlags & ACRX_CMD_SESSION) != 0;
    const AcRxResourceInstance resources(session ? nullptr : m_hdllInstance);
    acedRegCmds->addCommand(entry.pszGroupName, entry.pszGlobalCmdName, localName, entry.commandFlags,
                            entry.functionAddr, entry.UIContext, -1, &resources, nullptr);
}

inline AcRx::AppRetCode AcRxArxApp::On_kUnloadAppMsg(void* appId) {
    const AcRx::AppRetCode result = AcRxDbxApp::On_kUnloadAppMsg(appId);
    for (ADSK_ARXCOMMAND_ENTRY* const* entry = __start_arxcmd; entry != __stop_arxcmd; ++entry) {
        if (*entry != nullptr) {
            acedRegCmds->removeCmd((*entry)->pszGroupName, (*entry)->pszGlobalCmdName);
        }
    }
    return result;
}

template <class Visit>
void AcRxArxApp::ForEachSymbol(Visit visit) {
    int index = 0;
    for (ADSK_ADSSYMBOL_ENTRY* const* entry = __start_arxlisp; entry != __stop_arxlisp; ++entry) {
        if (*entry != nullptr) {
            visit(**entry, index++);
        }
    }
}

inline AcRx::AppRetCode AcRxArxApp::On_kLoadDwgMsg(void* appId) {
    const AcRx::AppRetCode result = AcRxDbxApp::On_kLoadDwgMsg(appId);
    ForEachSymbol([this](const ADSK_ADSSYMBOL_ENTRY& row, int index) {
        const ArxResourceName loadedName(m_hdllInstance, row.nameID);
        acedDefun(row.pszName != nullptr ? row.pszName : loadedName.Text(), index);
        if (row.bRegFunc) {
            acedRegFunc(row.fptr, index);
        }
    });
    return result;
}

inline AcRx::AppRetCode AcRxArxApp::On_kUnloadDwgMsg(void* appId) {
    const AcRx::AppRetCode result = AcRxDbxApp::On_kUnloadDwgMsg(appId);
    ForEachSymbol([this](const ADSK_ADSSYMBOL_ENTRY& row, int index) {
        const ArxResourceName loadedName(m_hdllInstance, row.nameID);
        acedUndef(row.pszName != nullptr ? row.pszName : loadedName.Text(), index);
    });
    return result;
}

inline AcRx::AppRetCode AcRxArxApp::On_kInvkSubrMsg(void* appId) {
    const AcRx::AppRetCode result = AcRxDbxApp::On_kInvkSubrMsg(appId);
    const int code = acedGetFunCode();
    ForEachSymbol([code](const ADSK_ADSSYMBOL_ENTRY& row, int index) {
        if (index == code) {
            row.fptr();
        }
    });
    return result;
}
