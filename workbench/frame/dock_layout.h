// Where docked palette sets lie in the frame: arithmetic only.
#pragma once

#include <vector>

namespace frame {

enum class DockSide { kLeft, kRight, kFloating };

struct LayoutRect {
    int left = 0, top = 0, right = 0, bottom = 0;
    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    friend bool operator==(const LayoutRect&, const LayoutRect&) = default;
};

struct DockedBar {
    int width = 0;     // wanted
    int minWidth = 0;  // what the bar accepts
    int maxWidth = 0;
};

struct DockLayout {
    std::vector<LayoutRect> left;   // one per bar docked left, from top to bottom
    std::vector<LayoutRect> right;  // one per bar docked right
    LayoutRect leftSplitter;        // empty while no bar is docked left
    LayoutRect rightSplitter;
    LayoutRect center;  // what remains for the drawing
    int leftWidth = 0;  // the width that the left column has got; 0 without bars
    int rightWidth = 0;
};

constexpr int kSplitterWidth = 5;
// However wide the palettes: this much of the drawing stays in sight while the frame is wide enough for it.
constexpr int kSmallestCenter = 120;

// Divides `area`. The bars of one side share a column as wide as the widest of them wants, in equal parts of
// its height. When the columns and the smallest centre do not fit, the columns give way down to their
// smallest widths.
DockLayout LayOutDocks(const LayoutRect& area, const std::vector<DockedBar>& left,
                       const std::vector<DockedBar>& right);

// The side at which a bar docks that is dropped with the mouse at `x`, `y`: within `kDockZone` pixels of the
// left or right edge of `area`, if that side is allowed; floating otherwise.
constexpr int kDockZone = 40;
DockSide DockSideAt(const LayoutRect& area, int x, int y, bool leftAllowed, bool rightAllowed);

// Moves a floating rectangle so far into `screen` that its caption can be caught with the mouse.
LayoutRect KeepOnScreen(const LayoutRect& rect, const LayoutRect& screen);

}  // namespace frame
