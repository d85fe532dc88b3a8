#include "controls/button_st.h"

namespace {

constexpr int kPressedOffset = 1;
constexpr int kIconMargin = 3;
constexpr int kTipWidth = 400;
constexpr int kFocusInset = 3;

}  // namespace

BEGIN_MESSAGE_MAP(CButtonST, CButton)
ON_CONTROL_REFLECT_EX(BN_CLICKED, &CButtonST::OnClicked)
ON_MESSAGE(BM_SETSTYLE, &CButtonST::OnSetStyle)
ON_MESSAGE(WM_MOUSELEAVE, &CButtonST::OnMouseLeft)
ON_WM_MOUSEMOVE()
ON_WM_KILLFOCUS()
ON_WM_CANCELMODE()
ON_WM_ACTIVATE()
ON_WM_ENABLE()
ON_WM_GETDLGCODE()
ON_WM_SYSCOLORCHANGE()
ON_WM_CTLCOLOR_REFLECT()
END_MESSAGE_MAP()

CButtonST::CButtonST() {
    ReadDefaultColors();
}

CButtonST::~CButtonST() {
    FreeIcons();
}

void CButtonST::ReadDefaultColors() {
    for (ColorIndex back : {kBackIn, kBackOut, kBackFocus})
        m_acrColors[back] = ::GetSysColor(COLOR_BTNFACE);
    for (ColorIndex text : {kTextIn, kTextOut, kTextFocus})
        m_acrColors[text] = ::GetSysColor(COLOR_BTNTEXT);
}

void CButtonST::FreeIcons() {
    for (CButtonIcon& icon : m_aIcons) {
        if (icon.hIcon) ::DestroyIcon(icon.hIcon);
        icon = {};
    }
}

bool CButtonST::LoadButtonIcon(CButtonIcon& icon, int nIcon, int cx, int cy) {
    const LPCTSTR pszName = MAKEINTRESOURCE(nIcon);
    const HINSTANCE hModule = AfxFindResourceHandle(pszName, RT_GROUP_ICON);
    icon.hIcon = static_cast<HICON>(::LoadImage(hModule, pszName, IMAGE_ICON, cx, cy, 0));
    ICONINFO info{};
    if (!icon.hIcon || !::GetIconInfo(icon.hIcon, &info)) return false;
    BITMAP bitmap{};
    ::GetObject(info.hbmMask, sizeof(bitmap), &bitmap);
    icon.dwWidth = static_cast<DWORD>(bitmap.bmWidth);
    // An icon of one colour keeps both of its masks in one bitmap, one above the other.
    icon.dwHeight = static_cast<DWORD>(info.hbmColor ? bitmap.bmHeight : bitmap.bmHeight / 2);
    ::DeleteObject(info.hbmMask);
    if (info.hbmColor) ::DeleteObject(info.hbmColor);
    return true;
}

DWORD CButtonST::SetIcon(int nIcon, int cx, int cy, int nIconOut, int cxOut, int cyOut) {
    FreeIcons();
    const bool bLoaded = LoadButtonIcon(m_aIcons[0], nIcon, cx, cy) &&
                         (nIconOut == 0 || LoadButtonIcon(m_aIcons[1], nIconOut, cxOut, cyOut));
    if (!bLoaded) FreeIcons();
    if (m_hWnd) Invalidate();
    return bLoaded ? BTNST_OK : BTNST_INVALIDRESOURCE;
}

DWORD CButtonST::SetFlat(BOOL bFlat, BOOL bRepaint) {
    m_bIsFlat = bFlat != FALSE;
    if (bRepaint && m_hWnd) Invalidate();
    return BTNST_OK;
}

void CButtonST::SetTooltipText(LPCTSTR lpszText, BOOL bActivate) {
    if (!lpszText) return;
    if (!m_toolTip.m_hWnd) {
        m_toolTip.Create(this);
        m_toolTip.SetMaxTipWidth(kTipWidth);
    }
    // The tool is the window itself and not a rectangle in it, so it stays right when the button is resized.
    if (m_toolTip.GetToolCount() == 0) {
        m_toolTip.AddTool(this, lpszText);
    } else {
        m_toolTip.UpdateTipText(lpszText, this);
    }
    m_toolTip.Activate(bActivate);
}

BOOL CButtonST::PreTranslateMessage(MSG* pMsg) {
    if (m_toolTip.m_hWnd) m_toolTip.RelayEvent(pMsg);
    // The second click of a double click presses the button like the first one.
    if (pMsg->message == WM_LBUTTONDBLCLK) pMsg->message = WM_LBUTTONDOWN;
    return CButton::PreTranslateMessage(pMsg);
}

void CButtonST::PreSubclassWindow() {
    m_nTypeStyle = GetButtonStyle() & BS_TYPEMASK;
    m_bIsDefault = m_nTypeStyle == BS_DEFPUSHBUTTON;
    ModifyStyle(BS_TYPEMASK, BS_OWNERDRAW);
    CButton::PreSubclassWindow();
}

LRESULT CButtonST::OnSetStyle(WPARAM wParam, LPARAM lParam) {
    // The dialog makes the focused button the default one by its style, which would end the own drawing.
    const UINT nNewType = static_cast<UINT>(wParam) & BS_TYPEMASK;
    if (nNewType != BS_OWNERDRAW) m_bIsDefault = nNewType == BS_DEFPUSHBUTTON;
    return DefWindowProc(BM_SETSTYLE, (wParam & ~static_cast<WPARAM>(BS_TYPEMASK)) | BS_OWNERDRAW, lParam);
}

UINT CButtonST::OnGetDlgCode() {
    return CButton::OnGetDlgCode() | (m_bIsDefault ? DLGC_DEFPUSHBUTTON : DLGC_UNDEFPUSHBUTTON);
}

BOOL CButtonST::OnClicked() {
    SetFocus();
    return FALSE;  // the parent has its own use for the click
}

void CButtonST::OnMouseMove(UINT nFlags, CPoint point) {
    CButton::OnMouseMove(nFlags, point);
    CPoint onScreen = point;
    ClientToScreen(&onScreen);
    const HWND hWndUnder = ::WindowFromPoint(onScreen);
    if (hWndUnder != m_hWnd) {
        CancelHover();
    } else if (!m_bMouseOnButton) {
        m_bMouseOnButton = true;
        Invalidate();
        TRACKMOUSEEVENT track{sizeof(track), TME_LEAVE, m_hWnd, 0};
        ::_TrackMouseEvent(&track);
    }
}

void CButtonST::CancelHover() {
    if (!m_bMouseOnButton) return;
    m_bMouseOnButton = false;
    Invalidate();
}

LRESULT CButtonST::OnMouseLeft(WPARAM, LPARAM) {
    CancelHover();
    return 0;
}

void CButtonST::OnKillFocus(CWnd* pNewWnd) {
    CButton::OnKillFocus(pNewWnd);
    CancelHover();
}

void CButtonST::OnCancelMode() {
    CButton::OnCancelMode();
    CancelHover();
}

void CButtonST::OnActivate(UINT nState, CWnd* pWndOther, BOOL bMinimized) {
    CButton::OnActivate(nState, pWndOther, bMinimized);
    if (nState == WA_INACTIVE) CancelHover();
}

void CButtonST::OnEnable(BOOL bEnable) {
    CButton::OnEnable(bEnable);
    if (bEnable) return;
    // Wherever the focus is, in this window or not: the button passes it on behind itself as if it had it.
    if (CWnd* pParent = GetParent()) {
        CWnd* pNext = pParent->GetNextDlgTabItem(this);
        (pNext && pNext->m_hWnd != m_hWnd ? pNext : pParent)->SetFocus();
    }
    CancelHover();
}

void CButtonST::OnSysColorChange() {
    CButton::OnSysColorChange();
    ReadDefaultColors();
    Invalidate();
}

HBRUSH CButtonST::CtlColor(CDC*, UINT) {
    return static_cast<HBRUSH>(::GetStockObject(NULL_BRUSH));
}

COLORREF CButtonST::PickColor(ColorIndex in) const {
    const int nGroup = IsLit() ? kBackIn : m_bIsFocused ? kBackFocus : kBackOut;
    return m_acrColors[static_cast<size_t>(nGroup + in)];
}

void CButtonST::DrawItem(LPDRAWITEMSTRUCT lpDIS) {
    CDC dc;
    dc.Attach(lpDIS->hDC);
    m_bIsPressed = (lpDIS->itemState & ODS_SELECTED) != 0;
    m_bIsFocused = (lpDIS->itemState & ODS_FOCUS) != 0;
    m_bIsDisabled = (lpDIS->itemState & ODS_DISABLED) != 0;

    CRect rcItem(lpDIS->rcItem);
    if (!m_bIsFlat && (m_bIsFocused || m_bIsDefault)) {
        CBrush brFrame(RGB(0, 0, 0));
        dc.FrameRect(rcItem, &brFrame);
        rcItem.DeflateRect(1, 1);
    }
    dc.FillSolidRect(rcItem, PickColor(kBackIn));
    DrawBorder(dc, rcItem);

    CString strTitle;
    GetWindowText(strTitle);
    CRect rcTitle(lpDIS->rcItem);
    DrawButtonIcon(dc, lpDIS->rcItem, !strTitle.IsEmpty(), rcTitle);
    if (!strTitle.IsEmpty()) DrawTitle(dc, strTitle, rcTitle);

    if (m_bIsFocused && (!m_bIsFlat || m_bDrawFlatFocus)) {
        CRect rcFocus(lpDIS->rcItem);
        rcFocus.DeflateRect(kFocusInset, kFocusInset);
        dc.DrawFocusRect(rcFocus);
    }
    dc.Detach();
}

void CButtonST::DrawBorder(CDC& dc, CRect rect) const {
    const COLORREF crLight = ::GetSysColor(COLOR_BTNHIGHLIGHT);
    const COLORREF crShadow = ::GetSysColor(COLOR_BTNSHADOW);
    if (m_bIsFlat) {
        if (!m_bDrawBorder) return;
        if (m_bIsPressed) {
            dc.Draw3dRect(rect, crShadow, crLight);
        } else if (m_bMouseOnButton) {
            dc.Draw3dRect(rect, crLight, crShadow);
        }
    } else if (m_bIsPressed) {
        CBrush brFrame(crShadow);
        dc.FrameRect(rect, &brFrame);
    } else {
        dc.Draw3dRect(rect, crLight, ::GetSysColor(COLOR_3DDKSHADOW));
        rect.DeflateRect(1, 1);
        dc.Draw3dRect(rect, ::GetSysColor(COLOR_3DLIGHT), crShadow);
    }
}

void CButtonST::DrawButtonIcon(CDC& dc, const CRect& rcButton, bool bHasTitle, CRect& rcTitle) const {
    const CButtonIcon& icon = m_aIcons[1].hIcon && !IsLit() ? m_aIcons[1] : m_aIcons[0];
    if (!icon.hIcon) return;
    const int nWidth = static_cast<int>(icon.dwWidth);
    const int nHeight = static_cast<int>(icon.dwHeight);
    CPoint point(rcButton.left + (rcButton.Width() - nWidth) / 2,
                 rcButton.top + (rcButton.Height() - nHeight) / 2);
    if (bHasTitle) {
        point.x = rcButton.left + kIconMargin;
        rcTitle.left = point.x + nWidth + kIconMargin;
    }
    if (m_bIsPressed) point.Offset(kPressedOffset, kPressedOffset);
    dc.DrawState(point, CSize(nWidth, nHeight), icon.hIcon,
                 m_bIsDisabled ? DSS_DISABLED | DST_ICON : DST_ICON);
}

void CButtonST::DrawTitle(CDC& dc, const CString& strTitle, CRect rcTitle) const {
    if (m_bIsPressed) rcTitle.OffsetRect(kPressedOffset, kPressedOffset);
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextColor(m_bIsDisabled ? ::GetSysColor(COLOR_GRAYTEXT) : PickColor(kTextIn));
    dc.DrawText(strTitle, rcTitle, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
}
