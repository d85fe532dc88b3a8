#include "controls/module_resources.h"

namespace {
HINSTANCE g_hModule = nullptr;
}

void SetModuleInstance(HINSTANCE hInstance) {
    g_hModule = hInstance;
}

HINSTANCE GetModuleInstance() {
    return g_hModule;
}

CModuleResourceScope::CModuleResourceScope() : m_hPrevious(AfxGetResourceHandle()) {
    AfxSetResourceHandle(g_hModule);
}

CModuleResourceScope::~CModuleResourceScope() {
    AfxSetResourceHandle(m_hPrevious);
}
