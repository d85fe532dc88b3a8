// The module's own resources: templates, menus, icons and texts lie in the library, not in the host's
// program.
#pragma once

#include <afxwin.h>

// The library's instance handle; set once when the library is attached.
void SetModuleInstance(HINSTANCE hInstance);
HINSTANCE GetModuleInstance();

// Makes the library the place where the framework looks for resources, for the life of the object.
class CModuleResourceScope {
  public:
    CModuleResourceScope();
    ~CModuleResourceScope();
    CModuleResourceScope(const CModuleResourceScope&) = delete;
    CModuleResourceScope& operator=(const CModuleResourceScope&) = delete;

  private:
    HINSTANCE m_hPrevious;
};
