#include "controls/menu_layout.h"

#include <algorithm>

namespace controls {

namespace {

constexpr int kTabPadding = 7;  // beside a tab's text
constexpr int kTabSpacing = 3;  // above and below it
constexpr int kPagePadding = 4;
constexpr int kLargeButton = 48;
constexpr int kSmallColumn = 96;  // least width of a button with its label beside it
constexpr int kLargeColumn = 72;
constexpr int kLabelGap = 2;

// Tabs fill a row until the next one does not fit; a row that is full is spread over the width.
void PlaceTabs(const MenuLayoutInput& input, MenuLayout& layout) {
    const int rowHeight = input.textHeight + 2 * kTabSpacing + 2;
    const int count = static_cast<int>(input.tabTextWidths.size());
    int top = 0;
    for (int first = 0; first < count;) {
        int used = 0, last = first;
        while (last < count) {
            const int width = input.tabTextWidths[last] + 2 * kTabPadding;
            if (last > first && used + width > input.width) break;
            used += width;
            ++last;
        }
        const int extra = count > 1 && input.width > used && last < count ? input.width - used : 0;
        int x = 0;
        for (int i = first; i < last; ++i) {
            const int share = extra * (i - first + 1) / (last - first) - extra * (i - first) / (last - first);
            const int width =
                std::min(input.tabTextWidths[i] + 2 * kTabPadding + share, std::max(input.width - x, 0));
            layout.tabs.push_back({x, top, x + width, top + rowHeight});
            x += width;
        }
        top += rowHeight;
        first = last;
    }
    layout.page = {0, top, input.width, std::max(input.height, top)};
}

struct Grid {
    int columns;
    int columnWidth;
    int rowHeight;
};

Grid MeasureGrid(const MenuLayoutInput& input, bool labelsBelow) {
    const int room = std::max(input.width - 2 * kPagePadding, 1);
    const int least =
        labelsBelow ? std::max(kLargeColumn, input.buttonSize) : kSmallColumn + input.buttonSize;
    const int columns = std::max(room / least, 1);
    const int rowHeight = labelsBelow ? input.buttonSize + input.textHeight + 2 * kLabelGap
                                      : std::max(input.buttonSize, input.textHeight + 2 * kLabelGap);
    return {columns, room / columns, std::max(rowHeight, 1)};
}

}  // namespace

MenuLayout ArrangeMenu(const MenuLayoutInput& input) {
    MenuLayout layout;
    PlaceTabs(input, layout);
    layout.labelsBelow = input.buttonSize >= kLargeButton;
    const Grid grid = MeasureGrid(input, layout.labelsBelow);
    const int rows = (input.itemCount + grid.columns - 1) / grid.columns;
    layout.contentHeight = rows * grid.rowHeight + 2 * kPagePadding;
    layout.largestScroll = std::max(layout.contentHeight - layout.page.Height(), 0);
    layout.scroll = std::clamp(input.scroll, 0, layout.largestScroll);
    for (int i = 0; i < input.itemCount; ++i) {
        const int left = layout.page.left + kPagePadding + i % grid.columns * grid.columnWidth;
        const int top = layout.page.top + kPagePadding + i / grid.columns * grid.rowHeight - layout.scroll;
        layout.items.push_back({left, top, left + grid.columnWidth, top + grid.rowHeight});
    }
    return layout;
}

int ItemAt(const MenuLayout& layout, int x, int y) {
    if (!layout.page.Contains(x, y)) return -1;
    for (size_t i = 0; i < layout.items.size(); ++i)
        if (layout.items[i].Contains(x, y)) return static_cast<int>(i);
    return -1;
}

int TabAt(const MenuLayout& layout, int x, int y) {
    for (size_t i = 0; i < layout.tabs.size(); ++i)
        if (layout.tabs[i].Contains(x, y)) return static_cast<int>(i);
    return -1;
}

int ScrollToShow(const MenuLayout& layout, int item) {
    if (item < 0 || item >= static_cast<int>(layout.items.size())) return layout.scroll;
    const MenuRect& rect = layout.items[item];
    int scroll = layout.scroll;
    if (rect.bottom > layout.page.bottom) scroll += rect.bottom - layout.page.bottom;
    if (rect.top - (scroll - layout.scroll) < layout.page.top)
        scroll = layout.scroll + rect.top - layout.page.top;
    return std::clamp(scroll, 0, layout.largestScroll);
}

int Neighbour(const MenuLayout& layout, int item, int columns, int rows) {
    const int count = static_cast<int>(layout.items.size());
    if (count == 0) return -1;
    if (item < 0) return 0;
    int inRow = 1;
    while (inRow < count && layout.items[inRow].top == layout.items[0].top)
        ++inRow;
    const int next = item + columns + rows * inRow;
    return next < 0 || next >= count ? item : next;
}

}  // namespace controls
