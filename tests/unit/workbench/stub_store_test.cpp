#include "database/stub_store.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace workbench::test {
namespace {

using database::StubStore;

TEST(StubStore, Places_StayWhereTheyAreAndKeepTheirOrder) {
    constexpr std::size_t kMany = 5000;
    StubStore store;
    EXPECT_TRUE(store.empty());
    std::vector<AcDbStub*> places;
    for (std::size_t i = 0; i < kMany; ++i) {
        places.push_back(&store.Add());
        places.back()->handle = i;
    }
    ASSERT_EQ(store.size(), kMany);
    std::size_t next = 0;
    for (AcDbStub& stub : store) {
        ASSERT_EQ(&stub, places[next]) << next;
        ASSERT_EQ(&store[next], places[next]) << next;
        ASSERT_EQ(stub.handle, next);
        ++next;
    }
    EXPECT_EQ(next, kMany);
}

TEST(StubStore, Empty_IsWalkedInNoSteps) {
    const StubStore store;
    EXPECT_EQ(store.begin(), store.end());
    EXPECT_EQ(std::count_if(store.begin(), store.end(), [](const AcDbStub&) { return true; }), 0);
}

TEST(StubStore, OfSecondHand_IsEmptiedByItsReplacement) {
    StubStore store;
    store.Add().handle = 5;
    store = StubStore();
    EXPECT_TRUE(store.empty());
    EXPECT_EQ(store.Add().handle, 0u);
}

}  // namespace
}  // namespace workbench::test
