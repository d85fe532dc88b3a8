// Drawing objects and device contexts. Part of afxwin.h.
//
// An object owns its handle: the destructor deletes it, Detach gives it up. FromHandle returns an object for
// a handle that belongs to somebody else; such an object lives until the message loop is idle next time and
// does not delete the handle.
#pragma once

#include "afx.h"

class CWnd;

class AFX_PORT CGdiObject : public CObject {
    DECLARE_DYNAMIC(CGdiObject)

  public:
    CGdiObject() = default;
    ~CGdiObject() override;

    HGDIOBJ m_hObject = nullptr;

    BOOL Attach(HGDIOBJ hObject);  // false for a null handle
    HGDIOBJ Detach();
    BOOL DeleteObject();
    int GetObject(int nCount, LPVOID lpObject) const;
};

class AFX_PORT CPen : public CGdiObject {
  public:
    CPen() = default;
    CPen(int nPenStyle, int nWidth, COLORREF crColor);
    BOOL CreatePen(int nPenStyle, int nWidth, COLORREF crColor);
    operator HPEN() const { return static_cast<HPEN>(m_hObject); }
    static CPen* FromHandle(HPEN hPen);
};

class AFX_PORT CBrush : public CGdiObject {
  public:
    CBrush() = default;
    explicit CBrush(COLORREF crColor);
    BOOL CreateSolidBrush(COLORREF crColor);
    operator HBRUSH() const { return static_cast<HBRUSH>(m_hObject); }
    static CBrush* FromHandle(HBRUSH hBrush);
};

class AFX_PORT CFont : public CGdiObject {
  public:
    BOOL CreateFontIndirect(const LOGFONT* lpLogFont);
    BOOL CreateFont(int nHeight, int nWidth, int nEscapement, int nOrientation, int nWeight, BYTE bItalic,
                    BYTE bUnderline, BYTE cStrikeOut, BYTE nCharSet, BYTE nOutPrecision, BYTE nClipPrecision,
                    BYTE nQuality, BYTE nPitchAndFamily, LPCTSTR lpszFacename);
    int GetLogFont(LOGFONT* pLogFont) const;
    operator HFONT() const { return static_cast<HFONT>(m_hObject); }
    static CFont* FromHandle(HFONT hFont);
};

class AFX_PORT CBitmap : public CGdiObject {
  public:
    BOOL CreateCompatibleBitmap(class CDC* pDC, int nWidth, int nHeight);
    operator HBITMAP() const { return static_cast<HBITMAP>(m_hObject); }
    static CBitmap* FromHandle(HBITMAP hBitmap);
};

class AFX_PORT CRgn : public CGdiObject {
  public:
    BOOL CreateRectRgn(int x1, int y1, int x2, int y2);
    BOOL CreateRoundRectRgn(int x1, int y1, int x2, int y2, int x3, int y3);
    BOOL CreatePolygonRgn(const POINT* lpPoints, int nCount, int nMode);
    int CombineRgn(const CRgn* pRgn1, const CRgn* pRgn2, int nCombineMode);
    int GetRgnBox(LPRECT lpRect) const;
    operator HRGN() const { return static_cast<HRGN>(m_hObject); }
    static CRgn* FromHandle(HRGN hRgn);
};

class AFX_PORT CDC : public CObject {
    DECLARE_DYNAMIC(CDC)

  public:
    CDC() = default;
    ~CDC() override;  // deletes the context

    HDC m_hDC = nullptr;

    operator HDC() const { return m_hDC; }
    BOOL Attach(HDC hDC);
    HDC Detach();
    static CDC* FromHandle(HDC hDC);
    BOOL CreateCompatibleDC(CDC* pDC);  // null: compatible with the screen
    BOOL DeleteDC();
    int SaveDC();
    BOOL RestoreDC(int nSavedDC);

    // Each returns what was selected before.
    CPen* SelectObject(CPen* pPen);
    CBrush* SelectObject(CBrush* pBrush);
    CFont* SelectObject(CFont* pFont);
    CBitmap* SelectObject(CBitmap* pBitmap);

    int SetROP2(int nDrawMode);
    int SetBkMode(int nBkMode);
    COLORREF SetBkColor(COLORREF crColor);
    COLORREF SetTextColor(COLORREF crColor);
    COLORREF GetTextColor() const;
    int GetDeviceCaps(int nIndex) const;

    CPoint MoveTo(int x, int y);
    CPoint MoveTo(POINT point) { return MoveTo(point.x, point.y); }
    BOOL LineTo(int x, int y);
    BOOL LineTo(POINT point) { return LineTo(point.x, point.y); }
    void FillRect(LPCRECT lpRect, CBrush* pBrush);
    void FillSolidRect(LPCRECT lpRect, COLORREF crColor);
    void FrameRect(LPCRECT lpRect, CBrush* pBrush);
    void DrawFocusRect(LPCRECT lpRect);
    void Draw3dRect(LPCRECT lpRect, COLORREF crTopLeft, COLORREF crBottomRight);
    BOOL DrawState(CPoint point, CSize size, HICON hIcon, UINT nFlags, HBRUSH hBrush = nullptr);
    BOOL FillRgn(CRgn* pRgn, CBrush* pBrush);
    BOOL FrameRgn(CRgn* pRgn, CBrush* pBrush, int nWidth, int nHeight);
    COLORREF GetPixel(int x, int y) const;
    BOOL BitBlt(int x, int y, int nWidth, int nHeight, CDC* pSrcDC, int xSrc, int ySrc, DWORD dwRop);

    int DrawText(const CString& str, LPRECT lpRect, UINT nFormat);
    CSize GetTextExtent(const CString& str) const;
    BOOL GetTextMetrics(LPTEXTMETRIC lpMetrics) const;
};

// The client area of a window; null takes the whole screen.
class AFX_PORT CClientDC : public CDC {
  public:
    explicit CClientDC(CWnd* pWnd);
    ~CClientDC() override;

  protected:
    HWND m_hWnd;
};

// The whole window with its frame; null takes the whole screen.
class AFX_PORT CWindowDC : public CDC {
  public:
    explicit CWindowDC(CWnd* pWnd);
    ~CWindowDC() override;

  protected:
    HWND m_hWnd;
};

// For use in OnPaint only.
class AFX_PORT CPaintDC : public CDC {
  public:
    explicit CPaintDC(CWnd* pWnd);
    ~CPaintDC() override;

    PAINTSTRUCT m_ps;

  protected:
    HWND m_hWnd;
};

class AFX_PORT CMenu : public CObject {
    DECLARE_DYNAMIC(CMenu)

  public:
    CMenu() = default;
    ~CMenu() override;  // destroys the menu

    HMENU m_hMenu = nullptr;

    HMENU GetSafeHmenu() const { return m_hMenu; }
    operator HMENU() const { return m_hMenu; }
    BOOL Attach(HMENU hMenu);
    HMENU Detach();
    static CMenu* FromHandle(HMENU hMenu);
    BOOL CreateMenu();
    BOOL CreatePopupMenu();
    BOOL LoadMenu(UINT nIDResource);  // from the current resource module
    BOOL DestroyMenu();

    // Null if the item is not a popup. The popup belongs to this menu.
    CMenu* GetSubMenu(int nPos) const;
    BOOL AppendMenu(UINT nFlags, UINT_PTR nIDNewItem = 0, LPCTSTR lpszNewItem = nullptr);
    UINT EnableMenuItem(UINT nIDEnableItem, UINT nEnable);
    UINT CheckMenuItem(UINT nIDCheckItem, UINT nCheck);
    int GetMenuItemCount() const;
    UINT GetMenuItemID(int nPos) const;
    UINT GetMenuState(UINT nID, UINT nFlags) const;
    int GetMenuString(UINT nIDItem, CString& rString, UINT nFlags) const;
    BOOL TrackPopupMenu(UINT nFlags, int x, int y, CWnd* pWnd, LPCRECT lpRect = nullptr);
};
