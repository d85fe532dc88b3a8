#include "afxgdi.h"

#include "afxapp.h"
#include "afxtempmap.h"

IMPLEMENT_DYNAMIC(CGdiObject, CObject)
IMPLEMENT_DYNAMIC(CDC, CObject)

namespace {

template <class OBJECT>
using GdiMap = AfxTempMap<OBJECT, HGDIOBJ, &CGdiObject::m_hObject>;

// Never destroyed: a static object of another library may still ask while the program ends.
template <class OBJECT>
GdiMap<OBJECT>& TempObjects() {
    static auto& map = *new GdiMap<OBJECT>;
    return map;
}

AfxTempMap<CDC, HDC, &CDC::m_hDC>& TempDCs() {
    static auto& map = *new AfxTempMap<CDC, HDC, &CDC::m_hDC>;
    return map;
}

template <class OBJECT>
OBJECT* Select(HDC hDC, OBJECT* pObject) {
    if (!pObject || !pObject->m_hObject) return nullptr;
    return TempObjects<OBJECT>().Find(::SelectObject(hDC, pObject->m_hObject));
}

}  // namespace

void AfxClearTempGdiObjects() {
    TempObjects<CPen>().Clear();
    TempObjects<CBrush>().Clear();
    TempObjects<CFont>().Clear();
    TempObjects<CBitmap>().Clear();
    TempObjects<CRgn>().Clear();
    TempObjects<CGdiObject>().Clear();
    TempDCs().Clear();
}

CGdiObject::~CGdiObject() {
    DeleteObject();
}

BOOL CGdiObject::Attach(HGDIOBJ hObject) {
    if (!hObject) return FALSE;
    DeleteObject();
    m_hObject = hObject;
    return TRUE;
}

HGDIOBJ CGdiObject::Detach() {
    return std::exchange(m_hObject, nullptr);
}

BOOL CGdiObject::DeleteObject() {
    return m_hObject && ::DeleteObject(Detach());
}

int CGdiObject::GetObject(int nCount, LPVOID lpObject) const {
    return ::GetObjectW(m_hObject, nCount, lpObject);
}

CPen::CPen(int nPenStyle, int nWidth, COLORREF crColor) {
    if (!CreatePen(nPenStyle, nWidth, crColor)) AfxThrowResourceException();
}

BOOL CPen::CreatePen(int nPenStyle, int nWidth, COLORREF crColor) {
    return Attach(::CreatePen(nPenStyle, nWidth, crColor));
}

CPen* CPen::FromHandle(HPEN hPen) {
    return TempObjects<CPen>().Find(hPen);
}

CBrush::CBrush(COLORREF crColor) {
    if (!CreateSolidBrush(crColor)) AfxThrowResourceException();
}

BOOL CBrush::CreateSolidBrush(COLORREF crColor) {
    return Attach(::CreateSolidBrush(crColor));
}

CBrush* CBrush::FromHandle(HBRUSH hBrush) {
    return TempObjects<CBrush>().Find(hBrush);
}

BOOL CFont::CreateFontIndirect(const LOGFONT* lpLogFont) {
    return Attach(::CreateFontIndirectW(lpLogFont));
}

BOOL CFont::CreateFont(int nHeight, int nWidth, int nEscapement, int nOrientation, int nWeight, BYTE bItalic,
                       BYTE bUnderline, BYTE cStrikeOut, BYTE nCharSet, BYTE nOutPrecision,
                       BYTE nClipPrecision, BYTE nQuality, BYTE nPitchAndFamily, LPCTSTR lpszFacename) {
    return Attach(::CreateFontW(nHeight, nWidth, nEscapement, nOrientation, nWeight, bItalic, bUnderline,
                                cStrikeOut, nCharSet, nOutPrecision, nClipPrecision, nQuality,
                                nPitchAndFamily, lpszFacename));
}

int CFont::GetLogFont(LOGFONT* pLogFont) const {
    return GetObject(sizeof(LOGFONT), pLogFont);
}

CFont* CFont::FromHandle(HFONT hFont) {
    return TempObjects<CFont>().Find(hFont);
}

BOOL CBitmap::CreateCompatibleBitmap(CDC* pDC, int nWidth, int nHeight) {
    return Attach(::CreateCompatibleBitmap(pDC->m_hDC, nWidth, nHeight));
}

CBitmap* CBitmap::FromHandle(HBITMAP hBitmap) {
    return TempObjects<CBitmap>().Find(hBitmap);
}

BOOL CRgn::CreateRectRgn(int x1, int y1, int x2, int y2) {
    return Attach(::CreateRectRgn(x1, y1, x2, y2));
}

BOOL CRgn::CreateRoundRectRgn(int x1, int y1, int x2, int y2, int x3, int y3) {
    return Attach(::CreateRoundRectRgn(x1, y1, x2, y2, x3, y3));
}

BOOL CRgn::CreatePolygonRgn(const POINT* lpPoints, int nCount, int nMode) {
    return Attach(::CreatePolygonRgn(lpPoints, nCount, nMode));
}

int CRgn::CombineRgn(const CRgn* pRgn1, const CRgn* pRgn2, int nCombineMode) {
    return ::CombineRgn(*this, pRgn1 ? HRGN(*pRgn1) : nullptr, pRgn2 ? HRGN(*pRgn2) : nullptr, nCombineMode);
}

int CRgn::GetRgnBox(LPRECT lpRect) const {
    return ::GetRgnBox(*this, lpRect);
}

CRgn* CRgn::FromHandle(HRGN hRgn) {
    return TempObjects<CRgn>().Find(hRgn);
}

CDC::~CDC() {
    DeleteDC();
}

BOOL CDC::Attach(HDC hDC) {
    if (!hDC) return FALSE;
    DeleteDC();
    m_hDC = hDC;
    return TRUE;
}

HDC CDC::Detach() {
    return std::exchange(m_hDC, nullptr);
}

CDC* CDC::FromHandle(HDC hDC) {
    return TempDCs().Find(hDC);
}

BOOL CDC::CreateCompatibleDC(CDC* pDC) {
    return Attach(::CreateCompatibleDC(pDC ? pDC->m_hDC : nullptr));
}

BOOL CDC::DeleteDC() {
    return m_hDC && ::DeleteDC(Detach());
}

int CDC::SaveDC() {
    return ::SaveDC(m_hDC);
}

BOOL CDC::RestoreDC(int nSavedDC) {
    return ::RestoreDC(m_hDC, nSavedDC);
}

CPen* CDC::SelectObject(CPen* pPen) {
    return Select(m_hDC, pPen);
}

CBrush* CDC::SelectObject(CBrush* pBrush) {
    return Select(m_hDC, pBrush);
}

CFont* CDC::SelectObject(CFont* pFont) {
    return Select(m_hDC, pFont);
}

CBitmap* CDC::SelectObject(CBitmap* pBitmap) {
    return Select(m_hDC, pBitmap);
}

int CDC::SetROP2(int nDrawMode) {
    return ::SetROP2(m_hDC, nDrawMode);
}

int CDC::SetBkMode(int nBkMode) {
    return ::SetBkMode(m_hDC, nBkMode);
}

COLORREF CDC::SetBkColor(COLORREF crColor) {
    return ::SetBkColor(m_hDC, crColor);
}

COLORREF CDC::SetTextColor(COLORREF crColor) {
    return ::SetTextColor(m_hDC, crColor);
}

COLORREF CDC::GetTextColor() const {
    return ::GetTextColor(m_hDC);
}

int CDC::GetDeviceCaps(int nIndex) const {
    return ::GetDeviceCaps(m_hDC, nIndex);
}

CPoint CDC::MoveTo(int x, int y) {
    CPoint ptOld;
    ::MoveToEx(m_hDC, x, y, &ptOld);
    return ptOld;
}

BOOL CDC::LineTo(int x, int y) {
    return ::LineTo(m_hDC, x, y);
}

void CDC::FillRect(LPCRECT lpRect, CBrush* pBrush) {
    ::FillRect(m_hDC, lpRect, *pBrush);
}

void CDC::FillSolidRect(LPCRECT lpRect, COLORREF crColor) {
    const COLORREF crOld = ::SetBkColor(m_hDC, crColor);
    ::ExtTextOutW(m_hDC, 0, 0, ETO_OPAQUE, lpRect, nullptr, 0, nullptr);
    ::SetBkColor(m_hDC, crOld);
}

void CDC::FrameRect(LPCRECT lpRect, CBrush* pBrush) {
    ::FrameRect(m_hDC, lpRect, *pBrush);
}

void CDC::DrawFocusRect(LPCRECT lpRect) {
    ::DrawFocusRect(m_hDC, lpRect);
}

void CDC::Draw3dRect(LPCRECT lpRect, COLORREF crTopLeft, COLORREF crBottomRight) {
    const CRect rc(lpRect);
    FillSolidRect(CRect(rc.left, rc.top, rc.right - 1, rc.top + 1), crTopLeft);
    FillSolidRect(CRect(rc.left, rc.top, rc.left + 1, rc.bottom - 1), crTopLeft);
    FillSolidRect(CRect(rc.right - 1, rc.top, rc.right, rc.bottom), crBottomRight);
    FillSolidRect(CRect(rc.left, rc.bottom - 1, rc.right, rc.bottom), crBottomRight);
}

BOOL CDC::DrawState(CPoint point, CSize size, HICON hIcon, UINT nFlags, HBRUSH hBrush) {
    return ::DrawStateW(m_hDC, hBrush, nullptr, reinterpret_cast<LPARAM>(hIcon), 0, point.x, point.y, size.cx,
                        size.cy, nFlags | DST_ICON);
}

BOOL CDC::FillRgn(CRgn* pRgn, CBrush* pBrush) {
    return ::FillRgn(m_hDC, *pRgn, *pBrush);
}

BOOL CDC::FrameRgn(CRgn* pRgn, CBrush* pBrush, int nWidth, int nHeight) {
    return ::FrameRgn(m_hDC, *pRgn, *pBrush, nWidth, nHeight);
}

COLORREF CDC::GetPixel(int x, int y) const {
    return ::GetPixel(m_hDC, x, y);
}

BOOL CDC::BitBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, DWORD dwRop) {
    return ::BitBlt(m_hDC, x, y, nWidth, nHeight, pSrcDC ? pSrcDC->m_hDC : nullptr, xSrc, ySrc, dwRop);
}

int CDC::DrawText(const CString& str, LPRECT lpRect, UINT nFormat) {
    return ::DrawTextW(m_hDC, str, str.GetLength(), lpRect, nFormat);
}

CSize CDC::GetTextExtent(const CString& str) const {
    CSize size;
    ::GetTextExtentPoint32W(m_hDC, str, str.GetLength(), &size);
    return size;
}

BOOL CDC::GetTextMetrics(LPTEXTMETRIC lpMetrics) const {
    return ::GetTextMetricsW(m_hDC, lpMetrics);
}

namespace {

HWND HandleOf(CWnd* pWnd) {
    return pWnd ? pWnd->m_hWnd : nullptr;
}

}  // namespace

CClientDC::CClientDC(CWnd* pWnd) : m_hWnd(HandleOf(pWnd)) {
    if (!Attach(::GetDC(m_hWnd))) AfxThrowResourceException();
}

CClientDC::~CClientDC() {
    ::ReleaseDC(m_hWnd, Detach());
}

CWindowDC::CWindowDC(CWnd* pWnd) : m_hWnd(HandleOf(pWnd)) {
    if (!Attach(::GetWindowDC(m_hWnd))) AfxThrowResourceException();
}

CWindowDC::~CWindowDC() {
    ::ReleaseDC(m_hWnd, Detach());
}

CPaintDC::CPaintDC(CWnd* pWnd) : m_hWnd(HandleOf(pWnd)) {
    if (!Attach(::BeginPaint(m_hWnd, &m_ps))) AfxThrowResourceException();
}

CPaintDC::~CPaintDC() {
    Detach();
    ::EndPaint(m_hWnd, &m_ps);
}
