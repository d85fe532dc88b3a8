#include "controls/menu_layout.h"

#include <gtest/gtest.h>

using namespace controls;

namespace {

MenuLayoutInput Input(int width, int height, int button, int items) {
    MenuLayoutInput input;
    input.width = width;
    input.height = height;
    input.buttonSize = button;
    input.tabTextWidths = {30, 40, 60};
    input.itemCount = items;
    return input;
}

}  // namespace

TEST(MenuLayout, TabsThatDoNotFit_GoToFurtherRows) {
    const MenuLayout wide = ArrangeMenu(Input(400, 300, 32, 0));
    EXPECT_EQ(wide.tabs[2].top, wide.tabs[0].top);
    const MenuLayout narrow = ArrangeMenu(Input(110, 300, 32, 0));
    EXPECT_EQ(narrow.tabs[1].top, narrow.tabs[0].top);
    EXPECT_GT(narrow.tabs[2].top, narrow.tabs[0].top);
    EXPECT_EQ(narrow.tabs[1].right, 110) << "a full row is spread over the width";
    EXPECT_EQ(narrow.page.top, narrow.tabs[2].bottom);
}

TEST(MenuLayout, LabelsStandBesideSmallIconsAndBelowLargeOnes) {
    EXPECT_FALSE(ArrangeMenu(Input(300, 300, 32, 3)).labelsBelow);
    EXPECT_TRUE(ArrangeMenu(Input(300, 300, 64, 3)).labelsBelow);
}

TEST(MenuLayout, TooManyItems_Scroll) {
    MenuLayoutInput input = Input(100, 200, 64, 10);
    MenuLayout layout = ArrangeMenu(input);
    EXPECT_GT(layout.largestScroll, 0);
    input.scroll = 100000;
    layout = ArrangeMenu(input);
    EXPECT_EQ(layout.scroll, layout.largestScroll);
    EXPECT_LE(layout.items.back().bottom, layout.page.bottom);
    input.scroll = -5;
    EXPECT_EQ(ArrangeMenu(input).scroll, 0);
}

TEST(MenuLayout, ScrollToShow_MovesAsLittleAsNeeded) {
    const MenuLayout layout = ArrangeMenu(Input(100, 200, 64, 10));
    EXPECT_EQ(ScrollToShow(layout, 0), 0);
    EXPECT_EQ(ScrollToShow(layout, 9), layout.items[9].bottom - layout.page.bottom);
    EXPECT_EQ(ScrollToShow(layout, -1), 0);
    EXPECT_EQ(ScrollToShow(layout, 99), 0);
}

TEST(MenuLayout, Points_FindTabsAndItemsInThePageOnly) {
    const MenuLayout layout = ArrangeMenu(Input(100, 200, 64, 10));
    EXPECT_EQ(TabAt(layout, 2, 2), 0);
    EXPECT_EQ(ItemAt(layout, 2, 2), -1);
    EXPECT_EQ(ItemAt(layout, 50, layout.items[0].top + 1), 0);
    EXPECT_EQ(ItemAt(layout, 50, layout.page.bottom + 5), -1);
}

TEST(MenuLayout, ArrowKeys_StayInsideTheItems) {
    const MenuLayout layout = ArrangeMenu(Input(300, 400, 64, 5));
    EXPECT_EQ(Neighbour(layout, 0, -1, 0), 0);
    EXPECT_EQ(Neighbour(layout, 0, 1, 0), 1);
    EXPECT_EQ(Neighbour(layout, 0, 0, 1), 4) << "four columns";
    EXPECT_EQ(Neighbour(layout, 4, 0, 1), 4);
    EXPECT_EQ(Neighbour(layout, -1, 1, 0), 0);
    EXPECT_EQ(Neighbour(ArrangeMenu(Input(300, 400, 64, 0)), -1, 1, 0), -1);
}

TEST(MenuLayout, EverySize_IsSafe) {
    for (int size : {0, 1, 5, 50, 2000})
        for (int button : {1, 16, 48, 256})
            for (int items : {0, 1, 7}) {
                const MenuLayout layout = ArrangeMenu(Input(size, size, button, items));
                EXPECT_EQ(layout.items.size(), static_cast<size_t>(items));
                EXPECT_GE(layout.page.Height(), 0);
            }
}
