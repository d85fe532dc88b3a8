// Points, sizes and rectangles with the operations that layout code wants. They are the platform's own
// records with functions added, so each passes wherever the platform takes its record.
#pragma once

#include <utility>

#include "afxv_w32.h"

class CSize : public tagSIZE {
  public:
    CSize() : tagSIZE{0, 0} {}
    CSize(LONG nWidth, LONG nHeight) : tagSIZE{nWidth, nHeight} {}
    CSize(SIZE size) : tagSIZE(size) {}

    bool operator==(SIZE size) const { return cx == size.cx && cy == size.cy; }
    CSize operator+(SIZE size) const { return {cx + size.cx, cy + size.cy}; }
    CSize operator-(SIZE size) const { return {cx - size.cx, cy - size.cy}; }
};

class CPoint : public tagPOINT {
  public:
    CPoint() : tagPOINT{0, 0} {}
    CPoint(LONG nX, LONG nY) : tagPOINT{nX, nY} {}
    CPoint(POINT point) : tagPOINT(point) {}
    // The packed form of messages: x in the low word, y in the high word, both signed.
    explicit CPoint(LPARAM dwPoint) : tagPOINT{GET_X_LPARAM(dwPoint), GET_Y_LPARAM(dwPoint)} {}

    void Offset(int nX, int nY) { x += nX, y += nY; }
    bool operator==(POINT point) const { return x == point.x && y == point.y; }
    CPoint operator+(POINT point) const { return {x + point.x, y + point.y}; }
    CSize operator-(POINT point) const { return {x - point.x, y - point.y}; }
};

class CRect : public tagRECT {
  public:
    CRect() : tagRECT{0, 0, 0, 0} {}
    CRect(LONG l, LONG t, LONG r, LONG b) : tagRECT{l, t, r, b} {}
    CRect(const RECT& rect) : tagRECT(rect) {}
    explicit CRect(LPCRECT lpRect) : tagRECT(*lpRect) {}
    CRect(POINT point, SIZE size) : tagRECT{point.x, point.y, point.x + size.cx, point.y + size.cy} {}

    operator LPRECT() { return this; }
    operator LPCRECT() const { return this; }

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    CSize Size() const { return {right - left, bottom - top}; }
    CPoint TopLeft() const { return {left, top}; }
    CPoint BottomRight() const { return {right, bottom}; }
    CPoint CenterPoint() const { return {(left + right) / 2, (top + bottom) / 2}; }
    bool IsRectEmpty() const { return right <= left || bottom <= top; }
    bool PtInRect(POINT point) const {
        return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
    }
    void SetRect(int l, int t, int r, int b) { left = l, top = t, right = r, bottom = b; }
    void InflateRect(int x, int y) { left -= x, top -= y, right += x, bottom += y; }
    void DeflateRect(int x, int y) { InflateRect(-x, -y); }
    void OffsetRect(int x, int y) { left += x, top += y, right += x, bottom += y; }
    void OffsetRect(POINT point) { OffsetRect(point.x, point.y); }
    BOOL IntersectRect(LPCRECT lpRect1, LPCRECT lpRect2) { return ::IntersectRect(this, lpRect1, lpRect2); }

    bool operator==(const RECT& rect) const { return ::EqualRect(this, &rect) != FALSE; }
};
