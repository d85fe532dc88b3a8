#include "controls/balloon_tip.h"

#include "controls/rect_conversion.h"

namespace {

constexpr UINT_PTR kTimerId = 500;
constexpr int kIconSize = 30;
constexpr double kIconShare = 0.05;   // its left edge, as a share of the text's width
constexpr int kWrappedTextDrop = 16;  // room for the title above a message of several lines

bool g_bBalloonActive = false;

void CreateTipFont(CFont& font, int nWeight) {
    font.CreateFont(-8, 0, 0, 0, nWeight, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                    CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH, L"MS Sans Serif");
}

bool FitsInLine(CDC& dc, const CString& strText, const CRect& rect) {
    // Drawn as one line, a text of several would show its line feeds as boxes.
    if (strText.Find(L'\n') >= 0) return false;
    return dc.GetTextExtent(strText).cx <= rect.Width();
}

}  // namespace

BEGIN_MESSAGE_MAP(CBalloonTip, CFrameWnd)
ON_WM_CREATE()
ON_WM_PAINT()
ON_WM_TIMER()
ON_WM_LBUTTONDOWN()
ON_WM_RBUTTONDOWN()
ON_WM_ACTIVATE()
ON_WM_ACTIVATEAPP()
END_MESSAGE_MAP()

CBalloonTip::CBalloonTip(const CString& strMessage, BOOL bUp) : m_bBalloonUp(bUp), m_strMessage(strMessage) {
    CreateTipFont(m_fontNormal, FW_NORMAL);
    CreateTipFont(m_fontBold, FW_BOLD);
}

CBalloonTip* CBalloonTip::Show(CPoint ptAnchor, const CRect* pRect, int nCharWidth, int nLineHeight,
                               const CString& strMessage, const LOGFONT&, int nSeconds, BOOL bUp,
                               const CString& strTitle, UINT nIconId, int nLines) {
    if (g_bBalloonActive) return nullptr;
    auto* pTip = new CBalloonTip(strMessage, bUp);
    g_bBalloonActive = true;

    const CBalloonText text{nCharWidth, nLineHeight, static_cast<size_t>(strMessage.GetLength()), nLines};
    const int nHeight = GetBalloonHeight(text, pRect->Width());
    pTip->m_rcWindow =
        ToRect(GetBalloonRect({ptAnchor.x, ptAnchor.y}, pRect->Width(), nHeight, bUp != FALSE));
    // The frame deletes itself, and drops the flag, if its window cannot be made.
    const LPCTSTR pszClass = AfxRegisterWndClass(0);
    if (!pTip->CFrameWnd::Create(pszClass, L"", 0, pTip->m_rcWindow)) return nullptr;

    pTip->m_strTitle = strTitle;
    pTip->m_nIconId = nIconId;
    pTip->m_nSeconds = nSeconds;
    if (nSeconds != 0) pTip->SetTimer(kTimerId, static_cast<UINT>(nSeconds) * 1000);

    // The window was made with a caption and a frame, which are gone by now: what they took off the height is
    // made up for by the position. Its right and bottom edges stand in for its size, since the window's
    // region decides what shows.
    const CRect& rc = pTip->m_rcWindow;
    const int nFrame = ::GetSystemMetrics(SM_CYSIZEFRAME);
    const int nTop = bUp ? rc.top + 2 * nFrame + ::GetSystemMetrics(SM_CYCAPTION) : rc.top - nFrame;
    ::SetWindowPos(pTip->m_hWnd, HWND_TOPMOST, rc.left, nTop, rc.right, rc.bottom,
                   SWP_SHOWWINDOW | SWP_NOACTIVATE);
    return pTip;
}

void CBalloonTip::Hide(CBalloonTip* pTip) {
    if (!g_bBalloonActive || !pTip) return;
    pTip->CloseTip();
    g_bBalloonActive = false;
}

BOOL CBalloonTip::PreCreateWindow(CREATESTRUCT& cs) {
    if (!CFrameWnd::PreCreateWindow(cs)) return FALSE;
    // Owned by a window that nobody sees, the balloon has no button on the task bar.
    if (!m_wndInvisibleParent.m_hWnd) {
        m_wndInvisibleParent.CreateEx(0, AfxRegisterWndClass(0), L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr);
    }
    cs.hwndParent = m_wndInvisibleParent.m_hWnd;
    return TRUE;
}

void CBalloonTip::PostNcDestroy() {
    g_bBalloonActive = false;
    CFrameWnd::PostNcDestroy();
}

int CBalloonTip::OnCreate(LPCREATESTRUCT lpCreateStruct) {
    if (CFrameWnd::OnCreate(lpCreateStruct) == -1) return -1;
    ModifyStyle(WS_CAPTION | WS_THICKFRAME, 0);
    CRect rcClient;
    GetClientRect(rcClient);
    const CBalloonShape shape = GetBalloonShape(ToPixelRect(rcClient), m_bBalloonUp != FALSE);
    m_rcText = ToRect(shape.rcText);
    m_rgnBody.CreateRoundRectRgn(shape.rcBody.left, shape.rcBody.top, shape.rcBody.right, shape.rcBody.bottom,
                                 shape.nCornerWidth, shape.nCornerHeight);
    POINT aptTail[3];
    for (size_t i = 0; i < shape.aTail.size(); ++i)
        aptTail[i] = {shape.aTail[i].x, shape.aTail[i].y};
    m_rgnTail.CreatePolygonRgn(aptTail, 3, ALTERNATE);

    CRgn rgnShape;
    if (!CombineShape(rgnShape)) return -1;
    SetWindowRgn(static_cast<HRGN>(rgnShape.Detach()), TRUE);
    return 0;
}

bool CBalloonTip::CombineShape(CRgn& rgnShape) {
    rgnShape.CreateRectRgn(0, 0, 0, 0);
    if (rgnShape.CombineRgn(&m_rgnTail, &m_rgnBody, RGN_OR) != ERROR) return true;
    AfxMessageBox(L"ERROR in Combining Region");
    return false;
}

void CBalloonTip::OnPaint() {
    CPaintDC dc(this);
    CRgn rgnShape;
    if (!CombineShape(rgnShape)) return;
    CBrush brFill(::GetSysColor(COLOR_INFOBK));
    CBrush brFrame(RGB(0, 0, 0));
    dc.FillRgn(&rgnShape, &brFill);
    dc.FrameRgn(&rgnShape, &brFrame, 1, 1);
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextColor(RGB(0, 0, 0));
    DrawContents(dc);
}

void CBalloonTip::DrawContents(CDC& dc) {
    CFont* pOldFont = dc.SelectObject(&m_fontBold);
    const HANDLE hIcon =
        ::LoadImage(nullptr, MAKEINTRESOURCE(m_nIconId), IMAGE_ICON, 0, 0, LR_SHARED | LR_DEFAULTSIZE);
    ::DrawIconEx(dc, static_cast<int>(m_rcText.Width() * kIconShare), m_rcText.top, static_cast<HICON>(hIcon),
                 kIconSize, kIconSize, 0, nullptr, DI_NORMAL);
    if (!m_strTitle.IsEmpty()) {
        const UINT uFormat = FitsInLine(dc, m_strTitle, m_rcText) ? DT_SINGLELINE : DT_WORDBREAK;
        dc.DrawText(m_strTitle, m_rcText, DT_CENTER | uFormat);
    }
    dc.SelectObject(&m_fontNormal);
    if (FitsInLine(dc, m_strMessage, m_rcText)) {
        dc.DrawText(m_strMessage, m_rcText, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    } else {
        // For good: a second painting draws the text another step lower.
        m_rcText.top += kWrappedTextDrop;
        dc.DrawText(m_strMessage, m_rcText, DT_CENTER | DT_WORDBREAK);
    }
    dc.SelectObject(pOldFont);
}

void CBalloonTip::CloseTip() {
    // Destroying the window deactivates it, which comes here again; the timer is gone then.
    if (m_nSeconds != 0 && !KillTimer(kTimerId)) return;
    m_nSeconds = -1;
    DestroyWindow();
}

void CBalloonTip::OnTimer(UINT_PTR) {
    if (KillTimer(kTimerId)) DestroyWindow();
}

void CBalloonTip::OnLButtonDown(UINT, CPoint) {
    // A balloon that is up stays up when it is clicked; the right button closes it.
    if (!g_bBalloonActive) CloseTip();
}

void CBalloonTip::OnRButtonDown(UINT, CPoint) {
    CloseTip();
}

void CBalloonTip::OnActivate(UINT nState, CWnd* pWndOther, BOOL bMinimized) {
    CFrameWnd::OnActivate(nState, pWndOther, bMinimized);
    if ((nState == WA_INACTIVE || nState == WA_CLICKACTIVE) && g_bBalloonActive) CloseTip();
}

void CBalloonTip::OnActivateApp(BOOL bActive, DWORD dwThreadID) {
    CFrameWnd::OnActivateApp(bActive, dwThreadID);
    if (bActive || !g_bBalloonActive) return;
    CloseTip();
    g_bBalloonActive = false;
}
