#include "database/id_lists.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <random>

namespace {

using testing::ElementsAre;

TEST(IdLists, SortIdsAndNames_CapitalsStandAheadOfSmallLetters) {
    std::vector<int> anIds{1, 2, 3};
    std::vector<std::wstring> astrNames{L"b", L"C", L"a"};
    SortIdsAndNames(anIds, astrNames);
    EXPECT_THAT(astrNames, ElementsAre(L"C", L"a", L"b"));
    EXPECT_THAT(anIds, ElementsAre(2, 3, 1));
}

TEST(IdLists, SortIdsNamesFlags_EqualNamesKeepTheirOrder) {
    std::vector<int> anIds{5, 4, 3, 2};
    std::vector<std::wstring> astrNames{L"b", L"a", L"b", L"a"};
    std::vector<bool> abFlags{true, false, false, true};
    SortIdsNamesFlags(anIds, astrNames, abFlags);
    EXPECT_THAT(anIds, ElementsAre(4, 2, 5, 3));
    EXPECT_THAT(astrNames, ElementsAre(L"a", L"a", L"b", L"b"));
    EXPECT_THAT(abFlags, ElementsAre(false, true, true, false));
}

TEST(IdLists, SortIdsAndNames_OfNothing_IsNothing) {
    std::vector<int> anIds;
    std::vector<std::wstring> astrNames;
    SortIdsAndNames(anIds, astrNames);
    EXPECT_TRUE(anIds.empty());
}

// The sort that the other programs of the suite show.
void BubbleSort(std::vector<int>& anIds, std::vector<std::wstring>& astrNames) {
    for (bool bSwapped = true; bSwapped;) {
        bSwapped = false;
        for (size_t i = 0; i + 1 < astrNames.size(); ++i) {
            if (!(astrNames[i] > astrNames[i + 1])) continue;
            std::swap(astrNames[i], astrNames[i + 1]);
            std::swap(anIds[i], anIds[i + 1]);
            bSwapped = true;
        }
    }
}

TEST(IdLists, SortIdsAndNames_OrdersAsABubbleSortDoes) {
    std::mt19937 random(7);
    for (int nRound = 0; nRound < 200; ++nRound) {
        std::vector<int> anIds;
        std::vector<std::wstring> astrNames;
        for (int i = 0; i < nRound % 40; ++i) {
            anIds.push_back(i);
            std::wstring strName(random() % 3, L' ');
            for (wchar_t& ch : strName)
                ch = L"aBb \u00C4"[random() % 5];
            astrNames.push_back(strName);
        }
        std::vector<int> anExpectedIds = anIds;
        std::vector<std::wstring> astrExpectedNames = astrNames;
        BubbleSort(anExpectedIds, astrExpectedNames);
        SortIdsAndNames(anIds, astrNames);
        ASSERT_EQ(astrNames, astrExpectedNames);
        ASSERT_EQ(anIds, anExpectedIds);
    }
}

TEST(IdLists, FindIdInText_NumberBeyond32Bits_StopsAtTheLargest) {
    int nId = 0;
    EXPECT_TRUE(FindIdInText(L"KV2D_LINE_99999999999", L"KV2D_LINE_", nId));
    EXPECT_EQ(nId, 2147483647);
}

TEST(IdLists, FindIdInText_NothingBehindThePrefix_IsFoundAsZero) {
    int nId = 9;
    EXPECT_TRUE(FindIdInText(L"x KV2D_LINE_", L"KV2D_LINE_", nId));
    EXPECT_EQ(nId, 0);
    nId = 9;
    EXPECT_FALSE(FindIdInText(L"KV2D_LINE", L"KV2D_LINE_", nId));
    EXPECT_EQ(nId, 0);
}

}  // namespace
