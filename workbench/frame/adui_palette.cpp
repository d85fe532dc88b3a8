#include <aduiPalette.h>
#include <aduiPaletteSet.h>

IMPLEMENT_DYNAMIC(CAdUiPalette, CWnd)

BEGIN_MESSAGE_MAP(CAdUiPalette, CWnd)
ON_WM_CREATE()
ON_WM_SIZE()
END_MESSAGE_MAP()

CAdUiPalette::CAdUiPalette() = default;

CAdUiPalette::~CAdUiPalette() {
    if (m_pPaletteSet != nullptr) m_pPaletteSet->Forget(this);
}

BOOL CAdUiPalette::Create(DWORD dwStyle, LPCTSTR lpszTitle, CAdUiPaletteSet* pPaletteSetParent,
                          DWORD dwPaletteStyle) {
    if (pPaletteSetParent == nullptr || pPaletteSetParent->GetSafeHwnd() == nullptr) return FALSE;
    m_pPaletteSet = pPaletteSetParent;
    m_strName = lpszTitle;
    m_dwPaletteStyle = dwPaletteStyle;
    CRect client;
    pPaletteSetParent->GetClientRect(&client);
    const HWND focus = ::GetFocus();
    const BOOL created = CWnd::Create(
        AfxRegisterWndClass(CS_DBLCLKS, LoadCursor(nullptr, IDC_ARROW), GetSysColorBrush(COLOR_BTNFACE)),
        lpszTitle, dwStyle | WS_CLIPCHILDREN, client, pPaletteSetParent, 0);
    // A dialog on the palette takes the focus when it is made; what the user types is meant for the drawing.
    if (focus != nullptr && created && ::IsChild(m_hWnd, ::GetFocus())) ::SetFocus(focus);
    return created;
}

BOOL CAdUiPalette::Load(IUnknown*) {
    return TRUE;
}

BOOL CAdUiPalette::Save(IUnknown*) {
    return TRUE;
}

void CAdUiPalette::OnSetActive() {}

bool CAdUiPalette::CanFrameworkTakeFocus() {
    return true;
}

CAdUiPaletteSet* CAdUiPalette::GetPaletteSet() {
    return m_pPaletteSet;
}

CString CAdUiPalette::GetName() {
    return m_strName;
}

DWORD CAdUiPalette::GetPaletteStyle() {
    return m_dwPaletteStyle;
}

int CAdUiPalette::OnCreate(LPCREATESTRUCT lpCreateStruct) {
    return CWnd::OnCreate(lpCreateStruct);
}

void CAdUiPalette::OnSize(UINT nType, int cx, int cy) {
    CWnd::OnSize(nType, cx, cy);
}
