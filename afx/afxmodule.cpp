// Modules, where resources are looked for, and window classes.
#include <algorithm>
#include <vector>

#include "afxdllx.h"

IMPLEMENT_DYNAMIC(CDynLinkLibrary, CCmdTarget)

namespace {

HINSTANCE g_hResource = nullptr;

std::vector<CDynLinkLibrary*>& Libraries() {
    static auto& libraries = *new std::vector<CDynLinkLibrary*>;
    return libraries;
}

}  // namespace

HINSTANCE AfxGetInstanceHandle() {
    return ::GetModuleHandleW(nullptr);
}

HINSTANCE AfxGetResourceHandle() {
    return g_hResource ? g_hResource : AfxGetInstanceHandle();
}

void AfxSetResourceHandle(HINSTANCE hInstResource) {
    g_hResource = hInstResource;
}

HINSTANCE AfxFindResourceHandle(LPCTSTR lpszName, LPCTSTR lpszType) {
    const HINSTANCE hCurrent = AfxGetResourceHandle();
    if (::FindResourceW(hCurrent, lpszName, lpszType)) return hCurrent;
    for (const CDynLinkLibrary* pLibrary : Libraries()) {
        if (::FindResourceW(pLibrary->m_hResource, lpszName, lpszType)) return pLibrary->m_hResource;
    }
    const HINSTANCE hProgram = AfxGetInstanceHandle();
    return ::FindResourceW(hProgram, lpszName, lpszType) ? hProgram : hCurrent;
}

LPCTSTR AfxRegisterWndClass(UINT nClassStyle, HCURSOR hCursor, HBRUSH hbrBackground, HICON hIcon) {
    CString strName;
    strName.Format(L"Afx:%x:%p:%p:%p", nClassStyle, static_cast<void*>(hCursor),
                   static_cast<void*>(hbrBackground), static_cast<void*>(hIcon));
    WNDCLASSEXW wc{};
    wc.cbSize = sizeof(wc);
    wc.style = nClassStyle;
    wc.lpfnWndProc = ::DefWindowProcW;
    wc.hInstance = AfxGetInstanceHandle();
    wc.hCursor = hCursor;
    wc.hbrBackground = hbrBackground;
    wc.hIcon = hIcon;
    wc.lpszClassName = strName;
    ATOM atom = ::RegisterClassExW(&wc);
    if (!atom) {
        WNDCLASSEXW found{};
        found.cbSize = sizeof(found);
        atom = static_cast<ATOM>(::GetClassInfoExW(wc.hInstance, strName, &found));
    }
    if (!atom) AfxThrowResourceException();
    return MAKEINTATOM(atom);
}

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HMODULE hModule) {
    if (!hModule) return FALSE;
    state = {TRUE, hModule, hModule};
    return TRUE;
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state, BOOL) {
    if (!state.bInitialized) return;
    const std::vector<CDynLinkLibrary*> libraries = Libraries();
    for (CDynLinkLibrary* pLibrary : libraries) {
        if (pLibrary->m_hModule == state.hModule) delete pLibrary;
    }
    if (g_hResource == state.hModule) g_hResource = nullptr;
    state.bInitialized = FALSE;
}

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state, BOOL)
    : m_hModule(state.hModule), m_hResource(state.hResource) {
    Libraries().insert(Libraries().begin(), this);
}

CDynLinkLibrary::~CDynLinkLibrary() {
    std::erase(Libraries(), this);
}
