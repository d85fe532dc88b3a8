// The application object of a module, and the table of classes that a module registers.
//
// The table is collected by the linker: each entry is a pointer in one section of the module, and the loader
// of the table walks from the section's start to its end. An object file without entries leaves a null there,
// and padding may leave others.
#pragma once

#include <cstddef>

#include "accmd.h"
#include "aced.h"
#include "rxboiler.h"
#include "rxdlinkr.h"

struct HINSTANCE__;

// The module's instance handle, saved by its library attach step.
extern HINSTANCE__* _hdllInstance;

struct _ADSK_RXOBJECT_ENTRY {
    AcRxClass* (*pClassDesc)();
    void (*rxInit)();
    bool bRegistered;
};

using ADSK_RXOBJECT_ENTRY = _ADSK_RXOBJECT_ENTRY;

// An optimiser may turn the order of the rows, which LISP function codes depend on, unless it is told.
// Compilers that do not know the attribute keep the order.
#if __has_cpp_attribute(gnu::no_reorder)
#define ARX_ENTRY_SECTION(NAME) [[gnu::used, gnu::no_reorder, gnu::section(NAME)]]
#else
#define ARX_ENTRY_SECTION(NAME) [[gnu::used, gnu::section(NAME)]]
#endif

extern "C" {
extern ADSK_RXOBJECT_ENTRY* const __start_arxclass[];
extern ADSK_RXOBJECT_ENTRY* const __stop_arxclass[];
}
ARX_ENTRY_SECTION("arxclass") static ADSK_RXOBJECT_ENTRY* const arxNoClassEntry = nullptr;

// Puts a class with ACRX_DECLARE_MEMBERS into the table. The rows of one source file keep the order of its
// lines.
#define ACDB_REGISTER_OBJECT_ENTRY_AUTO(CLASS)                                                \
    static ADSK_RXOBJECT_ENTRY arxClassEntry_##CLASS = {&CLASS::desc, &CLASS::rxInit, false}; \
    ARX_ENTRY_SECTION("arxclass")                                                             \
    static ADSK_RXOBJECT_ENTRY* const arxClassEntryPointer_##CLASS = &arxClassEntry_##CLASS

class AcRxDbxApp {
  public:
    AcRxDbxApp() = default;
    AcRxDbxApp(const AcRxDbxApp&) = delete;
    AcRxDbxApp& operator=(const AcRxDbxApp&) = delete;

    virtual AcRx::AppRetCode On_kInitAppMsg(void* appId);
    virtual AcRx::AppRetCode On_kUnloadAppMsg(void* appId);
    virtual AcRx::AppRetCode On_kLoadDwgMsg(void* appId);
    virtual AcRx::AppRetCode On_kUnloadDwgMsg(void* appId);
    virtual AcRx::AppRetCode On_kInvkSubrMsg(void* appId);
    virtual AcRx::AppRetCode On_kCfgMsg(void*) { return kDone; }
    virtual AcRx::AppRetCode On_kEndMsg(void*) { return kDone; }
    virtual AcRx::AppRetCode On_kQuitMsg(void*) { return kDone; }
    virtual AcRx::AppRetCode On_kSaveMsg(void*) { return kDone; }
    virtual AcRx::AppRetCode On_kDependencyMsg(void*) { return kDone; }
    virtual AcRx::AppRetCode On_kNoDependencyMsg(void*) { return kDone; }
    virtual AcRx::AppRetCode On_kOleUnloadAppMsg(void*) { return kDone; }
    virtual AcRx::AppRetCode On_kPreQuitMsg(void*) { return kDone; }
    virtual AcRx::AppRetCode On_kInitDialogMsg(void*) { return kDone; }
    virtual AcRx::AppRetCode On_kEndDialogMsg(void*) { return kDone; }
    virtual AcRx::AppRetCode On_kNullMsg(void*) { return kDone; }
    virtual void RegisterServerComponents() {}
    // Last, so that the operations keep their places.
    virtual ~AcRxDbxApp() = default;

    HINSTANCE__* GetModuleInstance() const { return m_hdllInstance; }

  protected:
    static constexpr AcRx::AppRetCode kDone = AcRx::kRetOK;

    static void UnregisterClass(ADSK_RXOBJECT_ENTRY& entry);

    HINSTANCE__* m_hdllInstance = nullptr;
    bool m_bUnlocked = true;
    bool m_bMDIAware = true;
};

inline AcRx::AppRetCode AcRxDbxApp::On_kInitAppMsg(void* appId) {
    m_hdllInstance = _hdllInstance;
    if (m_bUnlocked) {
        acrxDynamicLinker->unlockApplication(appId);
    }
    if (m_bMDIAware) {
        acrxDynamicLinker->registerAppMDIAware(appId);
    }
    RegisterServerComponents();
    bool registeredAny = false;
    for (ADSK_RXOBJECT_ENTRY* const* entry = __start_arxclass; entry != __stop_arxclass; ++entry) {
        if (*entry != nullptr) {
            (*entry)->rxInit();
            (*entry)->bRegistered = true;
            registeredAny = true;
        }
    }
    if (registeredAny) {
        acrxBuildClassHierarchy();
    }
    return kDone;
}

inline AcRx::AppRetCode AcRxDbxApp::On_kUnloadAppMsg(void*) {
    for (ADSK_RXOBJECT_ENTRY* const* entry = __start_arxclass; entry != __stop_arxclass; ++entry) {
        if (*entry != nullptr && (*entry)->bRegistered) {
            UnregisterClass(**entry);
        }
    }
    return kDone;
}

// Derived classes go before their parent.
inline void AcRxDbxApp::UnregisterClass(ADSK_RXOBJECT_ENTRY& leaving) {
    for (ADSK_RXOBJECT_ENTRY* const* entry = __start_arxclass; entry != __stop_arxclass; ++entry) {
        if (*entry != nullptr && *entry != &leaving && (*entry)->bRegistered &&
            (*entry)->pClassDesc()->myParent() == leaving.pClassDesc()) {
            UnregisterClass(**entry);
        }
    }
    deleteAcRxClass(leaving.pClassDesc());
    leaving.bRegistered = false;
}

inline AcRx::AppRetCode AcRxDbxApp::On_kLoadDwgMsg(void*) {
    return kDone;
}
inline AcRx::AppRetCode AcRxDbxApp::On_kUnloadDwgMsg(void*) {
    return kDone;
}
inline AcRx::AppRetCode AcRxDbxApp::On_kInvkSubrMsg(void*) {
    return kDone;
}
