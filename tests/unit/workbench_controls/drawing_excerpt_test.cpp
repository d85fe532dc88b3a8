#include "controls/drawing_excerpt.h"

#include <gtest/gtest.h>

using controls::TakeDrawingExcerpt;

namespace {

const std::string kHead = "  0\nSECTION\n  2\nENTITIES\n";
const std::string kEnd = "  0\nENDSEC\n  0\nEOF\n";
const std::string kLine = "  0\nLINE\n  8\n0\n";
const std::string kInsert = "  0\nINSERT\n  8\n0\n";
const std::string kAttribute = "  0\nATTRIB\n  8\n0\n";
const std::string kChainEnd = "  0\nSEQEND\n";
constexpr std::size_t kPlenty = 1 << 20;

std::string Blocks(const std::string& content) {
    return "  0\nSECTION\n  2\nBLOCKS\n  0\nBLOCK\n  2\nB\n" + content + "  0\nENDBLK\n  0\nENDSEC\n";
}

std::string Times(std::size_t count, const std::string& text) {
    std::string all;
    for (std::size_t i = 0; i < count; ++i)
        all += text;
    return all;
}

}  // namespace

TEST(DrawingExcerpt, FewEntities_AreLeftAsTheyAre) {
    const std::string file = kHead + kLine + kLine + kEnd;
    EXPECT_EQ(TakeDrawingExcerpt(file, true, {2, kPlenty}), file);
    EXPECT_EQ(TakeDrawingExcerpt("999\nnote\n" + file, true), "999\nnote\n" + file);
}

TEST(DrawingExcerpt, EntitiesBeyondTheLimit_AreCutOff) {
    EXPECT_EQ(TakeDrawingExcerpt(kHead + kLine + kLine + kLine + kEnd, true, {2, kPlenty}),
              kHead + kLine + kLine + kEnd);
}

TEST(DrawingExcerpt, StatedLimit_IsTenThousandEntities) {
    const std::string excerpt = TakeDrawingExcerpt(kHead + Times(10'001, kLine) + kEnd, true);
    EXPECT_TRUE(excerpt == kHead + Times(10'000, kLine) + kEnd) << excerpt.size();
}

TEST(DrawingExcerpt, PartsOfAnEntity_StayWithIt) {
    const std::string insert = kInsert + kAttribute + kAttribute + kChainEnd;
    EXPECT_EQ(TakeDrawingExcerpt(kHead + insert + kLine + kEnd, true, {1, kPlenty}), kHead + insert + kEnd);
}

TEST(DrawingExcerpt, EntitiesOfBlocks_HaveALimitOfTheirOwn) {
    const std::string file = Blocks(kLine + kLine) + kHead + kLine + kLine + kEnd;
    EXPECT_EQ(TakeDrawingExcerpt(file, true, {2, kPlenty}), file);
    EXPECT_EQ(TakeDrawingExcerpt(Blocks(kLine + kInsert + kAttribute + kChainEnd) + kHead + kLine + kEnd,
                                 true, {1, kPlenty}),
              Blocks(kLine) + kHead + kLine + kEnd)
        << "what goes takes its chain along, and the block stays a whole one";
}

TEST(DrawingExcerpt, ChainBeyondTheBytes_EndsEarlyAndIsClosed) {
    const std::size_t room = kInsert.size() + 3 * kAttribute.size();
    EXPECT_EQ(TakeDrawingExcerpt(kHead + kInsert + Times(5, kAttribute) + kChainEnd + kEnd, true, {9, room}),
              kHead + kInsert + Times(3, kAttribute) + kChainEnd + kEnd);
}

TEST(DrawingExcerpt, OneEntityBeyondTheBytes_IsLeftOutAndTheNextIsShown) {
    const std::string large = "  0\nTEXT\n  1\n" + std::string(200, 'x') + "\n";
    EXPECT_EQ(TakeDrawingExcerpt(kHead + large + kLine + kEnd, true, {9, 100}), kHead + kLine + kEnd);
}

TEST(DrawingExcerpt, WhatFollowsTheModel_IsLeftOut) {
    const std::string objects = "  0\nSECTION\n  2\nOBJECTS\n  0\nXRECORD\n  0\nENDSEC\n  0\nEOF\n";
    EXPECT_EQ(TakeDrawingExcerpt(kHead + kLine + "  0\nENDSEC\n" + objects, true), kHead + kLine + kEnd);
}

TEST(DrawingExcerpt, TablesBeyondTheBytes_AreNotShown) {
    const std::string tables = "  0\nSECTION\n  2\nTABLES\n" + Times(50, "  0\nLAYER\n") + "  0\nENDSEC\n";
    EXPECT_EQ(TakeDrawingExcerpt(tables + kHead + kLine + kEnd, true, {9, 300}), "");
    EXPECT_NE(TakeDrawingExcerpt(tables + kHead + kLine + kEnd, true, {9, 3000}), "");
}

TEST(DrawingExcerpt, BeginningOfALongerFile_ShowsWhatCameWhole) {
    EXPECT_EQ(TakeDrawingExcerpt(kHead + kLine + kLine + "  0\nLINE\n  8", false),
              kHead + kLine + kLine + kEnd);
    EXPECT_EQ(TakeDrawingExcerpt(Blocks(kLine) + "  0\nSEC", false), "") << "the model was not reached";
}

TEST(DrawingExcerpt, WholeFileThatEndsInTheMiddle_IsNotShown) {
    EXPECT_EQ(TakeDrawingExcerpt(kHead + kLine + kLine, true), "");
    EXPECT_EQ(TakeDrawingExcerpt("  0\nSECTION\n  2", true), "");
}

TEST(DrawingExcerpt, FileWithoutAModel_IsLeftAsItIs) {
    const std::string file = Blocks(kLine) + "  0\nEOF\n";
    EXPECT_EQ(TakeDrawingExcerpt(file, true), file);
}

TEST(DrawingExcerpt, FileWithoutAModelBeyondTheLimit_KeepsItsEnd) {
    EXPECT_EQ(TakeDrawingExcerpt(Blocks(kLine + kLine) + "  0\nEOF\n", true, {1, kPlenty}),
              Blocks(kLine) + "  0\nEOF\n");
}

TEST(DrawingExcerpt, OtherText_IsLeftAsItIs) {
    for (const char* text : {"", "\n", "no drawing", "  0\nEOF\n", "  1\n"})
        EXPECT_EQ(TakeDrawingExcerpt(text, true), text);
}
