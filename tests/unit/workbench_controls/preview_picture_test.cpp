#include "controls/preview_picture.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

using namespace controls;

namespace {

std::string Number(std::uint64_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i)
        text += static_cast<char>(value >> (8 * i) & 0xFF);
    return text;
}

const std::string kSentinel("\x1F\x25\x6D\x07\xD4\x36\x28\x28\x9D\x57\xCA\x3F\x9D\x44\x10\x2B", 16);

// A drawing of the binary kind whose preview block holds one entry.
std::string Drawing(int code, std::uint32_t start, const std::string& picture, std::uint32_t size) {
    std::string file = std::string("AC1027\0\0\0\0\0\0\0", 13) + Number(0x20, 4);
    file.resize(0x20);
    file += kSentinel + Number(0, 4) + Number(1, 1) + Number(static_cast<std::uint32_t>(code), 1) +
            Number(start, 4) + Number(size, 4);
    file.resize(0x60);
    return file + picture;
}

std::string Bitmap(std::int32_t width, std::int32_t height, int bits, std::uint32_t colors = 0) {
    return Number(40, 4) + Number(static_cast<std::uint32_t>(width), 4) +
           Number(static_cast<std::uint32_t>(height), 4) + Number(1, 2) +
           Number(static_cast<std::uint32_t>(bits), 2) + Number(0, 4) + std::string(12, '\0') +
           Number(colors, 4) + Number(0, 4);
}

}  // namespace

TEST(PreviewPicture, IsFoundByItsPlaceInTheHeader) {
    const PreviewPicture bitmap = FindPreviewPicture(Drawing(2, 0x60, "picture", 7));
    EXPECT_EQ(bitmap.kind, PreviewKind::kBitmap);
    const std::string file = Drawing(6, 0x60, "picture", 7);
    const PreviewPicture png = FindPreviewPicture(file);
    EXPECT_EQ(png.kind, PreviewKind::kPng);
    EXPECT_EQ(png.bytes, "picture");
}

TEST(PreviewPicture, PlacesOutsideTheFile_AreNone) {
    EXPECT_EQ(FindPreviewPicture(Drawing(2, 0x60, "picture", 8)).kind, PreviewKind::kNone);
    EXPECT_EQ(FindPreviewPicture(Drawing(2, 0xFFFFFFFF, "picture", 7)).kind, PreviewKind::kNone);
    EXPECT_EQ(FindPreviewPicture(Drawing(2, 0x60, "picture", 0)).kind, PreviewKind::kNone);
    EXPECT_EQ(FindPreviewPicture(Drawing(3, 0x60, "picture", 7)).kind, PreviewKind::kNone)
        << "a metafile is not shown";
}

TEST(PreviewPicture, EveryPrefixOfAFile_IsSafe) {
    const std::string file = Drawing(6, 0x60, "picture", 7);
    for (size_t length = 0; length < file.size(); ++length)
        EXPECT_EQ(FindPreviewPicture(std::string_view(file).substr(0, length)).kind, PreviewKind::kNone)
            << length;
}

TEST(PreviewPicture, PngWinsOverABitmap_InEitherOrder) {
    for (const auto& [first, second] : {std::pair(2, 6), std::pair(6, 2)}) {
        std::string file = std::string("AC1032\0\0\0\0\0\0\0", 13) + Number(0x20, 4);
        file.resize(0x20);
        file += kSentinel + Number(0, 4) + Number(2, 1);
        for (const int code : {first, second})
            file += Number(static_cast<std::uint32_t>(code), 1) + Number(code == 6 ? 0x60 : 0x63, 4) +
                    Number(3, 4);
        file.resize(0x60);
        file += "pngbmp";
        EXPECT_EQ(FindPreviewPicture(file).kind, PreviewKind::kPng);
        EXPECT_EQ(FindPreviewPicture(file).bytes, "png");
    }
}

TEST(PreviewPicture, EntryThatLeadsAstray_DoesNotHideTheGoodOne) {
    std::string file = std::string("AC1032\0\0\0\0\0\0\0", 13) + Number(0x20, 4);
    file.resize(0x20);
    file += kSentinel + Number(0, 4) + Number(3, 1);
    file += Number(1, 1) + Number(0, 4) + Number(0, 4);
    file += Number(6, 1) + Number(0xFFFFFFF0, 4) + Number(0x20, 4);
    file += Number(2, 1) + Number(0x60, 4) + Number(7, 4);
    file.resize(0x60);
    file += "picture";
    EXPECT_EQ(FindPreviewPicture(file).kind, PreviewKind::kBitmap);
    EXPECT_EQ(FindPreviewPicture(file).bytes, "picture");
}

TEST(PreviewPicture, BlockWithoutItsMark_IsNone) {
    std::string file = Drawing(2, 0x60, "picture", 7);
    file[0x20] = 'x';
    EXPECT_EQ(FindPreviewPicture(file).kind, PreviewKind::kNone);
}

TEST(PreviewPicture, DemonstrationsBinaryDrawing_HasAWholeOne) {
    std::ifstream file(KV2D_DEMO_FOLDER "/binary/TF-PID-002.dwg", std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    const PreviewPicture preview = FindPreviewPicture(bytes);
    ASSERT_EQ(preview.kind, PreviewKind::kBitmap);
    BitmapLayout layout;
    ASSERT_TRUE(MeasureBitmap(preview.bytes, layout));
    EXPECT_EQ(layout.width, 256);
    EXPECT_EQ(layout.height, 192);
}

TEST(PreviewPicture, DxfText_IsNoBinaryDrawing) {
    EXPECT_FALSE(IsBinaryDrawing("  0\nSECTION\n  2\nHEADER\n"));
    EXPECT_FALSE(IsBinaryDrawing("AC10"));
    EXPECT_TRUE(IsBinaryDrawing(Drawing(2, 0x60, "x", 1)));
}

TEST(PreviewBitmap, RowsAndColoursMustLieInside) {
    BitmapLayout layout;
    EXPECT_TRUE(MeasureBitmap(Bitmap(2, 2, 24) + std::string(16, 'x'), layout));
    EXPECT_EQ(layout.bitsOffset, 40u);
    EXPECT_FALSE(MeasureBitmap(Bitmap(2, 2, 24) + std::string(15, 'x'), layout));
    EXPECT_TRUE(MeasureBitmap(Bitmap(4, -1, 8) + std::string(1024 + 4, 'x'), layout));
    EXPECT_EQ(layout.bitsOffset, 40u + 1024u);
    EXPECT_TRUE(MeasureBitmap(Bitmap(4, 1, 8, 2) + std::string(8 + 4, 'x'), layout));
    EXPECT_FALSE(MeasureBitmap(Bitmap(4, 1, 8, 257) + std::string(4096, 'x'), layout));
}

TEST(PreviewBitmap, SizesThatMakeNoSense_AreRefused) {
    BitmapLayout layout;
    const std::string room(4096, 'x');
    EXPECT_FALSE(MeasureBitmap(Bitmap(0, 1, 24) + room, layout));
    EXPECT_FALSE(MeasureBitmap(Bitmap(-1, 1, 24) + room, layout));
    EXPECT_FALSE(MeasureBitmap(Bitmap(1, 0, 24) + room, layout));
    EXPECT_FALSE(MeasureBitmap(Bitmap(1, -2147483647 - 1, 24) + room, layout));
    EXPECT_FALSE(MeasureBitmap(Bitmap(5000, 1, 24) + room, layout));
    EXPECT_FALSE(MeasureBitmap(Bitmap(1, 1, 16) + room, layout));
}

TEST(PreviewBitmap, TooManyPixelsInAll_AreRefused) {
    BitmapLayout layout;
    EXPECT_TRUE(MeasureBitmap(Bitmap(4096, 1024, 1) + std::string(1 << 20, 'x'), layout));
    EXPECT_FALSE(MeasureBitmap(Bitmap(4096, 1025, 1) + std::string(1 << 20, 'x'), layout));
}

TEST(PreviewPng, SizeIsReadFromItsFirstChunk) {
    const auto png = [](std::uint32_t width, std::uint32_t height) {
        std::string text("\x89PNG\r\n\x1A\n\0\0\0\rIHDR", 16);
        for (const std::uint32_t side : {width, height})
            for (int shift = 24; shift >= 0; shift -= 8)
                text += static_cast<char>(side >> shift & 0xFF);
        return text;
    };
    int width = 0, height = 0;
    ASSERT_TRUE(MeasurePng(png(320, 200), width, height));
    EXPECT_EQ(width, 320);
    EXPECT_EQ(height, 200);
    EXPECT_FALSE(MeasurePng(png(0, 200), width, height));
    EXPECT_FALSE(MeasurePng(png(30'000, 1), width, height));
    EXPECT_FALSE(MeasurePng(png(4096, 4096), width, height)) << "more than four million pixels";
    EXPECT_FALSE(MeasurePng(png(0x80000001, 2), width, height));
    EXPECT_FALSE(MeasurePng(png(320, 200).substr(0, 23), width, height));
    EXPECT_FALSE(MeasurePng("GIF89a" + png(320, 200), width, height));
    EXPECT_EQ(width, 320) << "a refused picture leaves the result alone";
}
