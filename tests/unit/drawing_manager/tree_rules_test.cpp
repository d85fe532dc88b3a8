#include "drawing_manager/tree_rules.h"

#include <gtest/gtest.h>

namespace {

int Sign(int n) {
    return (n > 0) - (n < 0);
}

int Compare(unsigned uKindA, const wchar_t* pszA, unsigned uKindB, const wchar_t* pszB) {
    return Sign(CompareTreeItems(uKindA, pszA, uKindB, pszB));
}

constexpr std::uint32_t kAllBits =
    kEditClients | kEditProjects | kEditClientLike | kEditReserved6 | kEditFolders;

}  // namespace

TEST(CompareTreeItems, Clients_StandBeforeStandardsWhateverTheirNames) {
    for (unsigned uProject : {kItemProject, kItemLocked}) {
        for (unsigned uClient : {kItemClient, kItemClientLike}) {
            EXPECT_EQ(Compare(uProject, L"A", uClient, L"Z"), 1);
            EXPECT_EQ(Compare(uClient, L"Z", uProject, L"A"), -1);
        }
    }
}

TEST(CompareTreeItems, SameRank_IsOrderedByLabel) {
    EXPECT_EQ(Compare(kItemFolder, L"A", kItemFolder, L"B"), -1);
    EXPECT_EQ(Compare(kItemProject, L"B", kItemLocked, L"A"), 1);
    EXPECT_EQ(Compare(kItemClient, L"A", kItemClientLike, L"A"), 0);
}

TEST(CompareTreeItems, Capitals_StandAheadOfSmallLetters) {
    EXPECT_EQ(Compare(kItemFolder, L"Zulu", kItemFolder, L"alpha"), -1);
    EXPECT_EQ(Compare(kItemFolder, L"pump", kItemFolder, L"Pump"), 1);
}

TEST(CompareTreeItems, FolderAndOtherKinds_FallToTheLabels) {
    EXPECT_EQ(Compare(kItemFolder, L"A", kItemClient, L"B"), -1);
    EXPECT_EQ(Compare(kItemNone, L"", kItemProject, L"A"), -1);
    EXPECT_EQ(Compare(6, L"B", kItemClient, L"A"), 1);
}

TEST(CanEditLabel, FolderMask_AllowsFoldersOnly) {
    for (unsigned uKind = 0; uKind <= kItemNone; ++uKind) {
        EXPECT_EQ(CanEditLabel(kEditFolders, uKind, {kItemProject, kItemClient}), uKind == kItemFolder)
            << uKind;
    }
}

TEST(CanEditLabel, EachBit_AllowsItsKind) {
    EXPECT_TRUE(CanEditLabel(kEditClients, kItemClient, {}));
    EXPECT_TRUE(CanEditLabel(kEditProjects, kItemProject, {}));
    EXPECT_TRUE(CanEditLabel(kEditClientLike, kItemClientLike, {}));
    EXPECT_TRUE(CanEditLabel(kEditReserved6, kItemReserved6, {}));
    EXPECT_FALSE(CanEditLabel(0, kItemFolder, {}));
    EXPECT_FALSE(CanEditLabel(kEditClients, kItemProject, {}));
    for (unsigned uReserved : {4u, 5u, 7u, 8u, 9u, 10u})
        EXPECT_FALSE(CanEditLabel(kAllBits, uReserved, {}));
}

TEST(CanEditLabel, LockedKind_LocksItsWholeSubtree) {
    EXPECT_FALSE(CanEditLabel(kAllBits, kItemLocked, {}));
    EXPECT_FALSE(CanEditLabel(kAllBits, kItemFolder, {kItemFolder, kItemLocked, kItemClient}));
    EXPECT_TRUE(CanEditLabel(kAllBits, kItemFolder, {kItemFolder, kItemProject, kItemClient}));
}

TEST(ItemDataToId, ValueWithoutSign_ReadsAsNegative) {
    EXPECT_EQ(ItemDataToId(0xFFFFFFFFu), -1);
    EXPECT_EQ(ItemDataToId(0xFFFFFFFFFFFFFFFFull), -1);
    EXPECT_EQ(ItemDataToId(7), 7);
}
