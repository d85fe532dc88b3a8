#include "palette/menu_palette.h"

#include "controls/module_resources.h"
#include "document/palette_link.h"
#include "drawing_manager/palette_discipline.h"
#include "palette/menu_palette_child_dlg.h"
#include "palette/menu_palette_set.h"
#include "resources/resource.h"
#include "storage/applications.h"

namespace {

// The host's profile node. The palette asks for it as the host's own palettes do, and keeps nothing in it.
constexpr IID kProfileNodeId = {0x2933BF80, 0x7B36, 0x11D2, {0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60}};

void TouchProfileNode(IUnknown* pNode) {
    IUnknown* pXml = nullptr;
    if (pNode && SUCCEEDED(pNode->QueryInterface(kProfileNodeId, reinterpret_cast<void**>(&pXml))) && pXml)
        pXml->Release();
}

}  // namespace

BEGIN_MESSAGE_MAP(CMenuPalette, CAdUiPalette)
ON_WM_CREATE()
ON_WM_SIZE()
END_MESSAGE_MAP()

CMenuPalette::CMenuPalette() = default;

CMenuPalette::~CMenuPalette() {
    delete m_pChildDlg;
}

CMenuPalette* CMenuPalette::GetPalette() {
    CMenuPaletteSet* pSet = CMenuPaletteSet::GetInstance(kAppNone);
    return pSet ? static_cast<CMenuPalette*>(pSet->GetPalette(0)) : nullptr;
}

CPaletteLink* GetPaletteLink() {
    CMenuPalette* pPalette = CMenuPalette::GetPalette();
    return pPalette ? pPalette->m_pChildDlg : nullptr;
}

int GetPaletteDiscipline() {
    const CMenuPalette* pPalette = CMenuPalette::GetPalette();
    return pPalette ? pPalette->m_eApp : kAppNone;
}

BOOL CMenuPalette::Load(IUnknown* pNode) {
    CAdUiPalette::Load(pNode);
    TouchProfileNode(pNode);
    return TRUE;
}

BOOL CMenuPalette::Save(IUnknown* pNode) {
    CAdUiPalette::Save(pNode);
    TouchProfileNode(pNode);
    return TRUE;
}

void CMenuPalette::OnSetActive() {
    CAdUiPalette::OnSetActive();
}

bool CMenuPalette::CanFrameworkTakeFocus() {
    CAdUiPaletteSet* pSet = GetPaletteSet();
    return pSet && pSet->IsFloating() == TRUE;
}

int CMenuPalette::OnCreate(LPCREATESTRUCT pCreate) {
    if (CAdUiPalette::OnCreate(pCreate) == -1) return -1;
    const CModuleResourceScope resources;
    m_pChildDlg = new CMenuPaletteChildDlg(this);
    m_pChildDlg->Create(IDD_PALETTE_CHILD, this);
    CRect rect;
    GetWindowRect(&rect);
    m_pChildDlg->MoveWindow(0, 0, rect.Width(), rect.Height(), TRUE);
    return 0;
}

void CMenuPalette::OnSize(UINT nType, int cx, int cy) {
    CAdUiPalette::OnSize(nType, cx, cy);
    if (!m_pChildDlg) return;
    m_pChildDlg->MoveWindow(0, 0, cx, cy, TRUE);
    m_pChildDlg->QueueLayout(CRect(0, 0, cx, cy));
}
