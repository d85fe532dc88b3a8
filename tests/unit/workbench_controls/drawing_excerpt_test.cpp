#include "controls/drawing_excerpt.h"

#include <gtest/gtest.h>

namespace {
const std::string kHead = "  0\nSECTION\n  2\nENTITIES\n";
const std::string kEnd = "  0\nENDSEC\n  0\nEOF\n";
const std::string kLine = "  0\nLINE\n  8\n0\n";
}  // namespace

TEST(DrawingExcerpt, FewEntities_AreLeftAsTheyAre) {
    const std::string file = kHead + kLine + kLine + kEnd;
    EXPECT_EQ(controls::TakeDrawingExcerpt(file, 2), file);
}

TEST(DrawingExcerpt, EntitiesBeyondTheLimit_AreCutOff) {
    EXPECT_EQ(controls::TakeDrawingExcerpt(kHead + kLine + kLine + kLine + kEnd, 2),
              kHead + kLine + kLine + kEnd);
}

TEST(DrawingExcerpt, PartsOfAnEntity_StayWithIt) {
    const std::string insert = "  0\nINSERT\n  0\nATTRIB\n  0\nATTRIB\n  0\nSEQEND\n";
    EXPECT_EQ(controls::TakeDrawingExcerpt(kHead + insert + kLine + kEnd, 1), kHead + insert + kEnd);
}

TEST(DrawingExcerpt, EntitiesOfBlocks_AreNotCounted) {
    const std::string blocks = "  0\nSECTION\n  2\nBLOCKS\n" + kLine + kLine + "  0\nENDSEC\n";
    const std::string file = blocks + kHead + kLine + kEnd;
    EXPECT_EQ(controls::TakeDrawingExcerpt(file, 1), file);
}

TEST(DrawingExcerpt, OtherText_IsLeftAsItIs) {
    for (const char* text : {"", "\n", "no drawing", "  0\nSECTION\n  2"})
        EXPECT_EQ(controls::TakeDrawingExcerpt(text, 1), text);
}
