#include "frame/drawing_view.h"

#include <cmath>

#include "frame/drawing_display.h"
#include "frame/ui_colors.h"

namespace frame {

namespace {

constexpr double kWheelFactor = 1.2;  // per notch
constexpr int kAxisLength = 42;
constexpr int kPickBox = 4;
constexpr COLORREF kEmptyColor = RGB(128, 134, 142);

COLORREF ToColorRef(Color color) {
    return RGB((color >> 16) & 0xFF, (color >> 8) & 0xFF, color & 0xFF);
}

}  // namespace

BEGIN_MESSAGE_MAP(DrawingView, CView)
ON_WM_ERASEBKGND()
ON_WM_SIZE()
ON_WM_MOUSEWHEEL()
ON_WM_MOUSEMOVE()
ON_WM_MOUSELEAVE()
ON_WM_MBUTTONDOWN()
ON_WM_MBUTTONUP()
ON_MESSAGE(WM_MBUTTONDBLCLK, &DrawingView::OnMButtonDblClk)
ON_WM_LBUTTONDOWN()
ON_WM_CHAR()
END_MESSAGE_MAP()

DrawingView::~DrawingView() {
    DropPicture();
}

bool DrawingView::CreateIn(CWnd& parent) {
    return Create(AfxRegisterWndClass(CS_DBLCLKS, LoadCursor(nullptr, IDC_CROSS)), L"Drawing",
                  WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS, CRect(0, 0, 10, 10), &parent,
                  AFX_IDW_PANE_FIRST) != FALSE;
}

void DrawingView::ShowDocument(AcApDocument* document) {
    if (document == m_document) return;
    if (m_document != nullptr) m_views[m_document] = m_view;
    m_document = document;
    m_list = BuildDisplayList(document == nullptr ? nullptr : document->database());
    const auto known = m_views.find(document);
    const int width = m_view.Width();
    const int height = m_view.Height();
    if (known != m_views.end()) {
        m_view = known->second;
        m_view.SetWindowSize(width, height);
    } else {
        m_view.ZoomExtents(m_list.Extents());
    }
    Redraw();
}

void DrawingView::ForgetDocument(AcApDocument* document) {
    m_views.erase(document);
    if (m_document != document) return;
    m_document = nullptr;
    m_list = DisplayList();
    Redraw();
}

void DrawingView::Regenerate() {
    m_list = BuildDisplayList(m_document == nullptr ? nullptr : m_document->database());
    Redraw();
}

void DrawingView::ZoomExtents() {
    m_view.ZoomExtents(m_list.Extents());
    Redraw();
}

void DrawingView::ZoomBy(double factor) {
    m_view.ZoomAbout({m_view.Width() / 2.0, m_view.Height() / 2.0}, factor);
    Redraw();
}

void DrawingView::SetLightBackground(bool light) {
    m_background = light ? kLightBackground : kDarkBackground;
    Redraw();
}

void DrawingView::Redraw() {
    m_dirty = true;
    if (GetSafeHwnd() != nullptr) Invalidate(FALSE);
}

void DrawingView::DropPicture() {
    if (m_pictureDc == nullptr) return;
    SelectObject(m_pictureDc, m_bitmapBefore);
    DeleteObject(m_picture);
    DeleteDC(m_pictureDc);
    m_pictureDc = nullptr;
    m_pixels = nullptr;
}

bool DrawingView::MakePicture() {
    if (m_pictureDc != nullptr) return true;
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = m_view.Width();
    info.bmiHeader.biHeight = -m_view.Height();  // first row on top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    m_picture = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (m_picture == nullptr) return false;
    m_pixels = static_cast<Color*>(bits);
    m_pictureDc = CreateCompatibleDC(nullptr);
    m_bitmapBefore = SelectObject(m_pictureDc, m_picture);
    m_dirty = true;
    return true;
}

void DrawingView::Render() {
    GdiFlush();
    Canvas canvas(m_pixels, m_view.Width(), m_view.Height());
    canvas.Fill(m_background);
    m_list.Draw(canvas, m_view, m_background);
    TextPainter::DrawSmall(canvas, m_list, m_view, m_background);
    DrawAxes(canvas);
    m_texts.Draw(m_pictureDc, m_list, m_view, m_background);
    m_dirty = false;
}

// The drawing's axes in the lower left corner.
void DrawingView::DrawAxes(Canvas& canvas) {
    const double x = 18.5;
    const double y = m_view.Height() - 18.5;
    const Color across = IndexColor(1, m_background);
    const Color up = IndexColor(3, m_background);
    canvas.DrawLine({x, y}, {x + kAxisLength, y}, across);
    canvas.FillPolygon({{x + kAxisLength, y - 4}, {x + kAxisLength + 9, y}, {x + kAxisLength, y + 4}},
                       across);
    canvas.DrawLine({x, y}, {x, y - kAxisLength}, up);
    canvas.FillPolygon({{x - 4, y - kAxisLength}, {x, y - kAxisLength - 9}, {x + 4, y - kAxisLength}}, up);
    const HGDIOBJ before = SelectObject(m_pictureDc, InterfaceFont());
    SetBkMode(m_pictureDc, TRANSPARENT);
    SetTextAlign(m_pictureDc, TA_TOP | TA_LEFT);
    SetTextColor(m_pictureDc, ToColorRef(IndexColor(7, m_background)));
    TextOutW(m_pictureDc, static_cast<int>(x) + kAxisLength + 12, static_cast<int>(y) - 8, L"X", 1);
    TextOutW(m_pictureDc, static_cast<int>(x) - 3, static_cast<int>(y) - kAxisLength - 25, L"Y", 1);
    SelectObject(m_pictureDc, before);
}

void DrawingView::DrawCrosshair(CDC& dc) {
    const HPEN pen = CreatePen(PS_SOLID, 1, ToColorRef(IndexColor(9, m_background)));
    const HGDIOBJ before = ::SelectObject(dc, pen);
    dc.MoveTo(0, m_cursor.y);
    dc.LineTo(m_cursor.x - kPickBox, m_cursor.y);
    dc.MoveTo(m_cursor.x + kPickBox, m_cursor.y);
    dc.LineTo(m_view.Width(), m_cursor.y);
    dc.MoveTo(m_cursor.x, 0);
    dc.LineTo(m_cursor.x, m_cursor.y - kPickBox);
    dc.MoveTo(m_cursor.x, m_cursor.y + kPickBox);
    dc.LineTo(m_cursor.x, m_view.Height());
    ::SelectObject(dc, before);
    DeleteObject(pen);
}

void DrawingView::InvalidateCrosshair() {
    InvalidateRect(CRect(0, m_cursor.y, m_view.Width(), m_cursor.y + 1), FALSE);
    InvalidateRect(CRect(m_cursor.x, 0, m_cursor.x + 1, m_view.Height()), FALSE);
}

void DrawingView::OnDraw(CDC* dc) {
    if (m_document == nullptr || !MakePicture()) {
        CRect client;
        GetClientRect(&client);
        dc->FillSolidRect(client, kEmptyColor);
        return;
    }
    if (m_dirty) Render();
    ::BitBlt(*dc, 0, 0, m_view.Width(), m_view.Height(), m_pictureDc, 0, 0, SRCCOPY);
    if (m_cursorInside) DrawCrosshair(*dc);
}

BOOL DrawingView::OnEraseBkgnd(CDC*) {
    return TRUE;
}

void DrawingView::OnSize(UINT type, int cx, int cy) {
    CView::OnSize(type, cx, cy);
    if (cx <= 0 || cy <= 0) return;
    // Until the window has its first real size, a whole drawing cannot be shown whole.
    const bool first = m_view.Width() <= 10;
    DropPicture();
    m_view.SetWindowSize(cx, cy);
    if (first) m_view.ZoomExtents(m_list.Extents());
    Redraw();
}

BOOL DrawingView::OnMouseWheel(UINT, short delta, CPoint point) {
    if (m_document == nullptr) return TRUE;
    ScreenToClient(&point);
    m_view.ZoomAbout({static_cast<double>(point.x), static_cast<double>(point.y)},
                     std::pow(kWheelFactor, delta / static_cast<double>(WHEEL_DELTA)));
    Redraw();
    return TRUE;
}

void DrawingView::OnMouseMove(UINT, CPoint point) {
    m_events.mouseMoved();
    if (m_document == nullptr || (m_cursorInside && point == m_cursor)) return;
    if (!m_cursorInside) {
        TRACKMOUSEEVENT leave{sizeof leave, TME_LEAVE, m_hWnd, 0};
        TrackMouseEvent(&leave);
    }
    InvalidateCrosshair();
    if (m_panning) {
        m_view.PanPixels(point.x - m_cursor.x, point.y - m_cursor.y);
        Redraw();
    }
    m_cursor = point;
    m_cursorInside = true;
    InvalidateCrosshair();
    m_events.cursorMoved(m_view.ToWorld({static_cast<double>(point.x), static_cast<double>(point.y)}));
}

void DrawingView::OnMouseLeave() {
    InvalidateCrosshair();
    m_cursorInside = false;
}

void DrawingView::OnMButtonDown(UINT, CPoint point) {
    m_cursor = point;
    m_panning = true;
    SetCapture();
}

void DrawingView::OnMButtonUp(UINT, CPoint) {
    m_panning = false;
    if (GetCapture() == this) ReleaseCapture();
}

LRESULT DrawingView::OnMButtonDblClk(WPARAM, LPARAM) {
    ZoomExtents();
    return 0;
}

void DrawingView::OnLButtonDown(UINT, CPoint) {
    m_events.typed(0);
}

void DrawingView::OnChar(UINT character, UINT, UINT) {
    m_events.typed(static_cast<wchar_t>(character));
}

}  // namespace frame
