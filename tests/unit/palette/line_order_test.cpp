#include "palette/line_order.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::IsEmpty;

TEST(OrderLinesByUse, UsedLinesComeFirst_BothPartsKeepTheirOrder) {
    std::vector<std::wstring> names{L"A", L"B", L"C", L"D", L"E"};
    std::vector<int> ids{1, 2, 3, 4, 5};
    OrderLinesByUse(names, ids, {5, 99, 2, 2});
    EXPECT_THAT(ids, ElementsAre(2, 5, 1, 3, 4));
    EXPECT_THAT(names, ElementsAre(L"B", L"E", L"A", L"C", L"D"));
}

TEST(OrderLinesByUse, NothingUsed_ChangesNothing) {
    std::vector<std::wstring> names{L"A", L"B"};
    std::vector<int> ids{7, 3};
    OrderLinesByUse(names, ids, {});
    EXPECT_THAT(ids, ElementsAre(7, 3));
    EXPECT_THAT(names, ElementsAre(L"A", L"B"));
}

TEST(OrderLinesByUse, LinesOfOneId_StayTogether) {
    std::vector<std::wstring> names{L"A", L"B", L"C"};
    std::vector<int> ids{0, 4, 0};
    OrderLinesByUse(names, ids, {0});
    EXPECT_THAT(names, ElementsAre(L"A", L"C", L"B"));
}

TEST(RemoveFilteredLines, TakesTheLineOutOfEveryList) {
    std::vector<int> ids{1, 2, 3, 2};
    std::vector<std::wstring> names{L"A", L"B", L"C", L"B2"};
    std::vector<bool> flags{true, false, true, true};
    RemoveFilteredLines(ids, names, flags, {2, 8});
    EXPECT_THAT(ids, ElementsAre(1, 3));
    EXPECT_THAT(names, ElementsAre(L"A", L"C"));
    EXPECT_THAT(flags, ElementsAre(true, true));
}

TEST(RemoveFilteredLines, AllFiltered_LeavesEmptyLists) {
    std::vector<int> ids{1, 2};
    std::vector<std::wstring> names{L"A", L"B"};
    std::vector<bool> flags{true, true};
    RemoveFilteredLines(ids, names, flags, {1, 2});
    EXPECT_THAT(ids, IsEmpty());
    EXPECT_THAT(names, IsEmpty());
    EXPECT_THAT(flags, IsEmpty());
}

TEST(RemoveFilteredLines, ThenOrderByUse_AFilteredLineThatIsUsedDoesNotAppear) {
    std::vector<int> ids{1, 2, 3};
    std::vector<std::wstring> names{L"A", L"B", L"C"};
    std::vector<bool> flags{true, true, true};
    RemoveFilteredLines(ids, names, flags, {3});
    OrderLinesByUse(names, ids, {3, 2});
    EXPECT_THAT(names, ElementsAre(L"B", L"A"));
}
