#include "frame/dock_layout.h"

#include <algorithm>

namespace frame {

namespace {

constexpr int kCatchable = 40;  // of a caption, in pixels

struct Column {
    int width = 0;
    int minWidth = 0;
};

Column ColumnOf(const std::vector<DockedBar>& bars) {
    Column column;
    for (const DockedBar& bar : bars) {
        column.width =
            std::max(column.width, std::clamp(bar.width, bar.minWidth, std::max(bar.minWidth, bar.maxWidth)));
        column.minWidth = std::max(column.minWidth, bar.minWidth);
    }
    return column;
}

std::vector<LayoutRect> Stack(const LayoutRect& column, std::size_t count) {
    std::vector<LayoutRect> rects;
    const int bars = static_cast<int>(count);
    for (int i = 0; i < bars; ++i)
        rects.push_back({column.left, column.top + column.Height() * i / bars, column.right,
                         column.top + column.Height() * (i + 1) / bars});
    return rects;
}

}  // namespace

DockLayout LayOutDocks(const LayoutRect& area, const std::vector<DockedBar>& left,
                       const std::vector<DockedBar>& right) {
    Column leftColumn = ColumnOf(left);
    Column rightColumn = ColumnOf(right);
    const int splitters = (left.empty() ? 0 : kSplitterWidth) + (right.empty() ? 0 : kSplitterWidth);
    int missing = leftColumn.width + rightColumn.width + splitters + kSmallestCenter - area.Width();
    for (Column* column : {&rightColumn, &leftColumn}) {
        if (missing <= 0) break;
        const int given = std::min(missing, column->width - column->minWidth);
        column->width -= given;
        missing -= given;
    }

    DockLayout layout;
    layout.center = area;
    if (!left.empty()) {
        layout.leftWidth = leftColumn.width;
        const int edge = area.left + leftColumn.width;
        layout.left = Stack({area.left, area.top, edge, area.bottom}, left.size());
        layout.leftSplitter = {edge, area.top, edge + kSplitterWidth, area.bottom};
        layout.center.left = edge + kSplitterWidth;
    }
    if (!right.empty()) {
        layout.rightWidth = rightColumn.width;
        const int edge = area.right - rightColumn.width;
        layout.right = Stack({edge, area.top, area.right, area.bottom}, right.size());
        layout.rightSplitter = {edge - kSplitterWidth, area.top, edge, area.bottom};
        layout.center.right = edge - kSplitterWidth;
    }
    layout.center.right = std::max(layout.center.right, layout.center.left);
    return layout;
}

DockSide DockSideAt(const LayoutRect& area, int x, int y, bool leftAllowed, bool rightAllowed) {
    if (y < area.top || y >= area.bottom) return DockSide::kFloating;
    if (leftAllowed && x >= area.left - kDockZone && x < area.left + kDockZone) return DockSide::kLeft;
    if (rightAllowed && x >= area.right - kDockZone && x < area.right + kDockZone) return DockSide::kRight;
    return DockSide::kFloating;
}

LayoutRect KeepOnScreen(const LayoutRect& rect, const LayoutRect& screen) {
    const int dx =
        std::clamp(0, screen.left + kCatchable - rect.right, screen.right - kCatchable - rect.left);
    const int dy = std::clamp(0, screen.top - rect.top,
                              std::max(screen.top - rect.top, screen.bottom - kCatchable - rect.top));
    return {rect.left + dx, rect.top + dy, rect.right + dx, rect.bottom + dy};
}

}  // namespace frame
