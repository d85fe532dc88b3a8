// Where the tabs and items of the tabbed menu stand, in pixels of the control.
#pragma once

#include <vector>

namespace controls {

struct MenuRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    bool Contains(int x, int y) const { return x >= left && x < right && y >= top && y < bottom; }
    bool operator==(const MenuRect&) const = default;
};

struct MenuLayoutInput {
    int width = 0;
    int height = 0;
    // Edge of an item's button; the icon is half as large, with as much room around it.
    int buttonSize = 32;
    int textHeight = 13;
    std::vector<int> tabTextWidths;
    int itemCount = 0;
    int scroll = 0;  // how many pixels of the items are scrolled out at the top
};

struct MenuLayout {
    std::vector<MenuRect> tabs;   // one below the other in as many rows as they need
    MenuRect page;                // where items show
    std::vector<MenuRect> items;  // scrolled; parts outside the page are clipped
    bool labelsBelow = false;     // below the icon, else beside it
    int contentHeight = 0;        // of all items
    int largestScroll = 0;
    int scroll = 0;  // the given one, brought into its range
};

// Small icons stand in columns with their labels beside them, large ones in a grid with their labels below.
MenuLayout ArrangeMenu(const MenuLayoutInput& input);

// The item at a point; -1 if there is none.
int ItemAt(const MenuLayout& layout, int x, int y);
// The tab at a point; -1 if there is none.
int TabAt(const MenuLayout& layout, int x, int y);

// The scroll position that shows an item wholly, changed as little as possible.
int ScrollToShow(const MenuLayout& layout, int item);

// The item that an arrow key leads to from `item`: columns step by 1, rows by the number of columns; stays
// inside.
int Neighbour(const MenuLayout& layout, int item, int columns, int rows);

}  // namespace controls
