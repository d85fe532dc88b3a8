#include "controls/splitter_control.h"

#include "controls/rect_conversion.h"

namespace {

constexpr COLORREF kLineColor = 0xC8C8C8;

// Shared by all bars for as long as the process lives.
HCURSOR g_hCursorVertical = nullptr;
HCURSOR g_hCursorHorizontal = nullptr;

void LoadSharedCursors() {
    if (!g_hCursorVertical) g_hCursorVertical = ::LoadCursor(nullptr, IDC_SIZEWE);
    if (!g_hCursorHorizontal) g_hCursorHorizontal = ::LoadCursor(nullptr, IDC_SIZENS);
}

}  // namespace

BEGIN_MESSAGE_MAP(CSplitterControl, CStatic)
ON_WM_PAINT()
ON_WM_MOUSEMOVE()
ON_WM_SETCURSOR()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
END_MESSAGE_MAP()

void CSplitterControl::Create(DWORD dwStyle, const CRect& rect, CWnd* pParent, UINT nID) {
    const CPixelRect rcGiven = ToPixelRect(rect);
    m_nType = GetSplitterType(rcGiven);
    CStatic::Create(L"", dwStyle | SS_NOTIFY, ToRect(ThinSplitterRect(rcGiven, GetType())), pParent, nID);
    LoadSharedCursors();
    if (!m_hWnd || !pParent) return;
    m_nMin = m_nMax = GetCenterOnAxis(GetRectIn(*pParent, *this), GetType());
}

int CSplitterControl::SetStyle(int nType) {
    const int nOldType = m_nType;
    m_nType = nType;
    return nOldType;
}

void CSplitterControl::SetRange(int nMin, int nMax) {
    m_nMin = nMin;
    m_nMax = nMax;
}

void CSplitterControl::ChangePos(int dx, int dy) {
    if (dx == 0 && dy == 0) return;
    CWnd* pParent = m_hWnd ? GetParent() : nullptr;
    if (!pParent) return;
    CRect rect = ToRect(GetRectIn(*pParent, *this));
    rect.OffsetRect(dx, dy);
    MoveWindow(rect);
}

void CSplitterControl::DrawLine(CDC* pDC, int x, int y) {
    CRect rect;
    GetWindowRect(rect);
    CPen pen(PS_SOLID, 1, kLineColor);
    const int nOldMode = pDC->SetROP2(R2_NOTXORPEN);
    CPen* pOldPen = pDC->SelectObject(&pen);
    for (int nOffset : {-1, 1}) {
        if (GetType() == kSplitterVertical) {
            pDC->MoveTo(x + nOffset, rect.top);
            pDC->LineTo(x + nOffset, rect.bottom);
        } else {
            pDC->MoveTo(rect.left, y + nOffset);
            pDC->LineTo(rect.right, y + nOffset);
        }
    }
    pDC->SetROP2(nOldMode);
    pDC->SelectObject(pOldPen);
}

void CSplitterControl::DrawFeedback() {
    CWindowDC dcScreen(nullptr);
    DrawLine(&dcScreen, m_nX, m_nY);
}

void CSplitterControl::OnPaint() {
    Default();
}

void CSplitterControl::OnLButtonDown(UINT nFlags, CPoint point) {
    CStatic::OnLButtonDown(nFlags, point);
    m_bIsPressed = TRUE;
    SetCapture();
    CRect rect;
    GetWindowRect(rect);
    const CPixelPoint center = GetCenter(ToPixelRect(rect));
    if (GetType() == kSplitterVertical) {
        m_nX = m_nSavePos = center.x;
    } else {
        m_nY = m_nSavePos = center.y;
    }
    DrawFeedback();
}

void CSplitterControl::OnMouseMove(UINT nFlags, CPoint point) {
    CWnd* pParent = m_bIsPressed ? GetParent() : nullptr;
    if (pParent) {
        DrawFeedback();
        CPoint moved = point;
        ClientToScreen(&moved);
        pParent->ScreenToClient(&moved);
        const CPixelPoint held = ClampToRange({moved.x, moved.y}, m_nMin, m_nMax);
        CPoint onScreen(held.x, held.y);
        pParent->ClientToScreen(&onScreen);
        m_nX = onScreen.x;
        m_nY = onScreen.y;
        DrawFeedback();
    }
    CStatic::OnMouseMove(nFlags, point);
}

void CSplitterControl::OnLButtonUp(UINT nFlags, CPoint point) {
    if (m_bIsPressed) {
        DrawFeedback();
        m_bIsPressed = FALSE;
        CWnd* pOwner = GetOwner();
        if (pOwner && pOwner->m_hWnd) {
            MoveToFeedback(*pOwner);
            NotifyOwner(*pOwner);
        }
    }
    CStatic::OnLButtonUp(nFlags, point);
    ::ReleaseCapture();
}

void CSplitterControl::MoveToFeedback(CWnd& wndOwner) {
    CWnd* pParent = GetParent();
    if (!pParent) return;
    CPoint point(m_nX, m_nY);
    wndOwner.ScreenToClient(&point);
    MoveWindow(ToRect(MoveCenterTo(GetRectIn(*pParent, *this), {point.x, point.y}, GetType())));
}

void CSplitterControl::NotifyOwner(CWnd& wndOwner) {
    SPC_NMHDR notification{};
    notification.hdr.hwndFrom = m_hWnd;
    notification.hdr.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID());
    notification.hdr.code = SPN_SIZED;
    notification.delta = (GetType() == kSplitterVertical ? m_nX : m_nY) - m_nSavePos;
    wndOwner.SendMessage(WM_NOTIFY, notification.hdr.idFrom, reinterpret_cast<LPARAM>(&notification));
}

BOOL CSplitterControl::OnSetCursor(CWnd* pWnd, UINT nHitTest, UINT uMessage) {
    if (nHitTest != HTCLIENT) return CStatic::OnSetCursor(pWnd, nHitTest, uMessage);
    ::SetCursor(GetType() == kSplitterVertical ? g_hCursorVertical : g_hCursorHorizontal);
    return FALSE;
}
