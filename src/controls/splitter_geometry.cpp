#include "controls/splitter_geometry.h"

#include <algorithm>

namespace {

constexpr int kInitialThickness = 5;

int ClampCoordinate(int nValue, int nMin, int nMax) {
    return std::max(nMin, std::min(nValue, nMax));
}

}  // namespace

SplitterType GetSplitterType(const CPixelRect& rect) {
    return rect.Width() >= rect.Height() ? kSplitterHorizontal : kSplitterVertical;
}

CPixelRect ThinSplitterRect(CPixelRect rect, SplitterType type) {
    if (type == kSplitterHorizontal) {
        rect.bottom = rect.top + kInitialThickness;
    } else {
        rect.right = rect.left + kInitialThickness;
    }
    return rect;
}

CPixelPoint GetCenter(const CPixelRect& rect) {
    return {rect.left + rect.Width() / 2, rect.top + rect.Height() / 2};
}

int GetCenterOnAxis(const CPixelRect& rect, SplitterType type) {
    const CPixelPoint center = GetCenter(rect);
    return type == kSplitterVertical ? center.x : center.y;
}

CPixelPoint ClampToRange(CPixelPoint point, int nMin, int nMax) {
    return {ClampCoordinate(point.x, nMin, nMax), ClampCoordinate(point.y, nMin, nMax)};
}

CPixelRect MoveCenterTo(CPixelRect rect, CPixelPoint point, SplitterType type) {
    const CPixelPoint center = GetCenter(rect);
    const int dx = type == kSplitterVertical ? point.x - center.x : 0;
    const int dy = type == kSplitterHorizontal ? point.y - center.y : 0;
    return {rect.left + dx, rect.top + dy, rect.right + dx, rect.bottom + dy};
}
