#include "palette/menu_palette_set.h"

#include "document/palette_link.h"
#include "palette/menu_palette.h"
#include "palette/menu_palette_child_dlg.h"
#include "rxmfcapi.h"
#include "storage/applications.h"
#include "storage/registry_settings.h"

namespace {

CMenuPaletteSet* g_pPaletteSet = nullptr;
// Set right after the window was made. Positions that the host sends while it builds the window are not the
// user's doing and are not stored.
bool g_bSetCreated = false;

const CRect kInitialRect(0, 0, 125, 250);
constexpr DWORD kWindowStyle = 0x400000;
constexpr DWORD kPaletteSetStyle = 30;
constexpr DWORD kPaletteWindowStyle = WS_CHILD | WS_VISIBLE;
constexpr DWORD kPaletteStyle = 1;
constexpr DWORD kDockAnySide = 61440;
constexpr DWORD kDockLeftOrRight = 20480;
constexpr UINT kPreferredDockBar = 59420;

// Under these ids the host keeps the window's position apart for each discipline.
constexpr CLSID kToolIds[] = {
    {0x51D98004, 0x8BE6, 0x47C5, {0xBA, 0x1D, 0xD0, 0x89, 0x42, 0x4A, 0x35, 0x1B}},
    {0x134346C2, 0x235A, 0x452A, {0x98, 0xD9, 0xA0, 0x87, 0xFD, 0xE3, 0x66, 0xDB}},
    {0x39F211D9, 0xFB89, 0x4D2B, {0xBD, 0x42, 0x37, 0x4C, 0xB2, 0xD2, 0x0F, 0x32}},
    {0xE5480326, 0xB64B, 0x4835, {0xA3, 0x33, 0xAE, 0x60, 0x0D, 0x73, 0x65, 0x1C}},
};

}  // namespace

BEGIN_MESSAGE_MAP(CMenuPaletteSet, CAdUiPaletteSet)
ON_WM_WINDOWPOSCHANGED()
END_MESSAGE_MAP()

CMenuPaletteSet::CMenuPaletteSet() : CAdUiPaletteSet(0) {}

CMenuPaletteSet::~CMenuPaletteSet() {
    // Taken away first: the window is hidden on its way out, and that must not be stored as the user's
    // choice.
    CMenuPalette* pPalette = m_pPalette;
    m_pPalette = nullptr;
    DestroyWindow();
    delete pPalette;
}

CMenuPaletteSet* CMenuPaletteSet::GetInstance(int nApp) {
    if (!g_pPaletteSet && nApp != kAppNone) {
        g_pPaletteSet = new CMenuPaletteSet;
        g_pPaletteSet->Build(nApp);
    }
    return g_pPaletteSet;
}

void CMenuPaletteSet::Build(int nApp) {
    const std::wstring strName = IsDiscipline(nApp) ? GetApplicationName(nApp) : std::wstring();
    m_pPalette = new CMenuPalette;
    Create(strName.c_str(), kWindowStyle, kInitialRect, acedGetAcadFrame(), kPaletteSetStyle);
    g_bSetCreated = true;
    m_pPalette->Create(kPaletteWindowStyle, strName.c_str(), this, kPaletteStyle);
    m_pPalette->m_eApp = nApp;
    AddPalette(m_pPalette);
    // The second call narrows the first: the host wants every side enabled while it learns the tool id.
    EnableDocking(kDockAnySide);
    if (IsDiscipline(nApp)) {
        CLSID toolId = kToolIds[nApp - kFirstDiscipline];
        SetToolID(&toolId);
    }
    EnableDocking(kDockLeftOrRight);
    CRect rectFloating(10, 10, 135, 505);
    InitFloatingPosition(&rectFloating);
    RestoreControlBar(kPreferredDockBar, nullptr);
    if (m_pPalette->m_pChildDlg) m_pPalette->m_pChildDlg->Fill(nApp);
}

void CMenuPaletteSet::Destroy() {
    delete g_pPaletteSet;
    g_pPaletteSet = nullptr;
}

void CMenuPaletteSet::GetMinimumSize(CSize& size) {
    CAdUiPaletteSet::GetMinimumSize(size);
}

void CMenuPaletteSet::GetMaximumSize(CSize& size) {
    CAdUiPaletteSet::GetMaximumSize(size);
}

// Any move or resize stores that the palette shows; only hiding it stores that it does not.
void CMenuPaletteSet::OnWindowPosChanged(WINDOWPOS* pPosition) {
    CAdUiPaletteSet::OnWindowPosChanged(pPosition);
    if (!g_bSetCreated || !m_pPalette) return;
    const CMenuPalette* pPalette = CMenuPalette::GetPalette();
    if (!pPalette || pPalette->m_eApp == kAppNone) return;
    WriteDisciplineDword(pPalette->m_eApp, kToolboxSubkey, kShowMenuValue,
                         pPosition->flags & SWP_HIDEWINDOW ? 0 : 1);
}

void ShowMenuPaletteSet(bool bShow) {
    acedGetAcadFrame()->ShowControlBar(CMenuPaletteSet::GetInstance(kAppNone), bShow, FALSE);
}

void ShowPaletteSet() {
    ShowMenuPaletteSet(true);
}
