#include "document/distinct_texts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

namespace {

using testing::ElementsAre;

TEST(DistinctTexts, Texts_AreAddedOnceInTheirOrder) {
    std::vector<std::wstring> list;
    CDistinctTexts texts(list);
    for (const wchar_t* text : {L"b", L"a", L"", L"b", L"B", L"", L"a"})
        texts.Add(text);
    EXPECT_THAT(list, ElementsAre(L"b", L"a", L"", L"B"));
}

TEST(DistinctTexts, TextsOfTheListItself_StayAsTheyAre) {
    std::vector<std::wstring> list{L"a", L"b", L"a"};
    CDistinctTexts texts(list);
    texts.Add(L"b");
    texts.Add(L"c");
    EXPECT_THAT(list, ElementsAre(L"a", L"b", L"a", L"c"));
}

TEST(DistinctTexts, ManyTexts_AreAllKeptApart) {
    std::vector<std::wstring> list(1000, L"given");
    CDistinctTexts texts(list);
    for (int i = 0; i < 5000; ++i)
        texts.Add(std::to_wstring(i * i % 3001));
    std::set<int> squares;
    for (int i = 0; i < 5000; ++i)
        squares.insert(i * i % 3001);
    ASSERT_EQ(list.size(), 1000 + squares.size());
    EXPECT_EQ(std::set<std::wstring>(list.begin(), list.end()).size(), 1 + squares.size());
    EXPECT_EQ(list[1001], L"1");
    EXPECT_EQ(list[1002], L"4");
}

}  // namespace
