// Extension modules: libraries of classes that use the program's framework.
#pragma once

#include "afxwin.h"

// One a module, a static object filled with zeros.
struct AFX_EXTENSION_MODULE {
    BOOL bInitialized;
    HMODULE hModule;
    HMODULE hResource;
};

// On attach. Notes the module's handle; false for a null handle.
AFX_PORT BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hModule);
// On detach. Deletes the module's CDynLinkLibrary, which takes it out of the resource chain.
AFX_PORT void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL bAll = FALSE);

// Made with new after AfxInitExtensionModule: puts the module into the chain in which resources are looked
// for. AfxTermExtensionModule deletes it.
class AFX_PORT CDynLinkLibrary : public CCmdTarget {
    DECLARE_DYNAMIC(CDynLinkLibrary)

  public:
    explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL bSystem = FALSE);
    ~CDynLinkLibrary() override;

    HMODULE m_hModule;
    HMODULE m_hResource;
};
