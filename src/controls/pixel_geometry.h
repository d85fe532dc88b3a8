// Rectangles and points in whole pixels for the arithmetic that is tested without windows.
#pragma once

struct CPixelPoint {
    int x = 0;
    int y = 0;
    bool operator==(const CPixelPoint&) const = default;
};

// Right and bottom lie outside the rectangle, as in the platform's.
struct CPixelRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    bool operator==(const CPixelRect&) const = default;
};

// The rectangle with its corner at (x, y).
inline CPixelRect MakePixelRect(int x, int y, int nWidth, int nHeight) {
    return {x, y, x + nWidth, y + nHeight};
}
