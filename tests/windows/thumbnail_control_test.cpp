// The drawing thumbnail control in a real window: our drawings, preview pictures of binary ones, and what
// neither is.
#include <gmock/gmock.h>

#include "control_fixture.h"
#include "controls/thumbnail_ids.h"

namespace {

using control_test::kRed;
using control_test::PaintedPicture;

constexpr DISPID kFileId = 0;
constexpr DISPID kOptionId = 1;
constexpr COLORREF kBack = RGB(192, 192, 192);
constexpr COLORREF kGreen = RGB(0, 255, 0);
const CRect kThumbnailPlace(10, 10, 214, 214);

std::string Number(std::uint64_t value, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i)
        text += static_cast<char>(value >> (8 * i) & 0xFF);
    return text;
}

// A binary drawing with one picture in its header.
std::string BinaryDrawing(int code, const std::string& picture) {
    std::string file = std::string("AC1027\0\0\0\0\0\0\0", 13) + Number(0x20, 4);
    file.resize(0x20);
    file += std::string("\x1F\x25\x6D\x07\xD4\x36\x28\x28\x9D\x57\xCA\x3F\x9D\x44\x10\x2B", 16) +
            Number(0, 4) + Number(1, 1) + Number(static_cast<std::uint64_t>(code), 1) + Number(0x60, 4) +
            Number(picture.size(), 4);
    file.resize(0x60);
    return file + picture;
}

// Red above green, `width` by `height`.
std::string Bitmap(int width, int height) {
    std::string bytes = Number(40, 4) + Number(static_cast<std::uint64_t>(width), 4) +
                        Number(static_cast<std::uint64_t>(height), 4) + Number(1, 2) + Number(24, 2) +
                        std::string(24, '\0');
    for (int row = 0; row < height; ++row) {
        for (int x = 0; x < width; ++x)
            bytes += row < height / 2 ? std::string("\0\xFF\0", 3) : std::string("\0\0\xFF", 3);
        bytes.append(static_cast<size_t>((4 - width * 3 % 4) % 4), '\0');
    }
    return bytes;
}

// Four by four pixels, all red.
std::string Png() {
    return std::string(
        "\x89\x50\x4e\x47\x0d\x0a\x1a\x0a\x00\x00\x00\x0d\x49\x48\x44\x52\x00\x00\x00\x04\x00\x00\x00\x04\x08"
        "\x02"
        "\x00\x00\x00\x26\x93\x09\x29\x00\x00\x00\x10\x49\x44\x41\x54\x78\x9c\x63\xf8\xcf\xc0\x00\x47\x0c\xc4"
        "\x71"
        "\x00\xae\x93\x0f\xf1\xd0\x5f\x23\x9e\x00\x00\x00\x00\x49\x45\x4e\x44\xae\x42\x60\x82",
        73);
}

std::string Line(double x1, double y1, double x2, double y2, int color = 1) {
    return "  0\nLINE\n  8\n0\n 62\n" + std::to_string(color) + "\n 10\n" + std::to_string(x1) + "\n 20\n" +
           std::to_string(y1) + "\n 11\n" + std::to_string(x2) + "\n 21\n" + std::to_string(y2) + "\n";
}

std::string Section(const std::string& name, const std::string& content) {
    return "  0\nSECTION\n  2\n" + name + "\n" + content + "  0\nENDSEC\n";
}

std::string Drawing(const std::string& entities) {
    return Section("ENTITIES", entities) + "  0\nEOF\n";
}

class ThumbnailControlTest : public SystemTest {
  protected:
    ThumbnailControlTest() : m_class(L"DwgThumbnail.ocx", controls::kThumbnailClassId) {}
    void SetUp() override {
        // The system finds its readers of PNG among the real classes.
        RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr);
        ASSERT_TRUE(m_window.Make(controls::kThumbnailClassId, kThumbnailPlace));
        Control().SetProperty(DISPID_BACKCOLOR, VT_UI4, kBack);
    }
    CWnd& Control() { return m_window.m_control; }
    // As the Drawing Manager does it.
    void ShowPath(const std::wstring& path) {
        Control().SetProperty(kFileId, VT_BSTR, path.c_str());
        if (!path.empty()) Control().SetProperty(kOptionId, VT_UI4, 0u);
    }
    PaintedPicture Show(const std::string& bytes, const wchar_t* name = L"a.dwg") {
        PutFile(InRoot(name), bytes);
        ShowPath(InRoot(name));
        return PaintedPicture(Control());
    }
    bool ShowsNoPreview(const std::string& bytes) {
        const PaintedPicture picture = Show(bytes, L"b.dwg");
        ShowPath(InRoot(L"is not there.dwg"));
        return PaintedPicture(Control()).DifferencesFrom(picture) == 0;
    }
    // The colours apart from the back.
    static size_t Ink(const PaintedPicture& picture) {
        return static_cast<size_t>(picture.Width() * picture.Height()) - picture.Count(kBack);
    }

    control_test::ServedClass m_class;
    control_test::ControlWindow m_window;
};

TEST_F(ThumbnailControlTest, Drawing_IsShownToItsExtentsOnTheBackColour) {
    const PaintedPicture picture = Show(Drawing(Line(1000, 1000, 1100, 1000) + Line(1100, 1000, 1100, 1100) +
                                                Line(1000, 1000, 1000, 1100) + Line(1000, 1100, 1100, 1100)));
    EXPECT_GT(Ink(picture), 4u * 150);
    EXPECT_EQ(picture.At(100, 100), kBack);
    EXPECT_GT(picture.Count(kBack), 30'000u);
}

TEST_F(ThumbnailControlTest, LinesArcsCirclesTextAndBlocks_AreDrawn) {
    const std::string frame = Line(0, 0, 100, 0, 7) + Line(0, 100, 100, 100, 7);
    const size_t empty = Ink(Show(Drawing(frame)));
    const std::string blocks = Section("BLOCKS", "  0\nBLOCK\n  8\n0\n  2\nB\n 70\n0\n 10\n0\n 20\n0\n" +
                                                     Line(0, 0, 40, 40) + "  0\nENDBLK\n");
    for (const std::string& entity :
         {std::string("  0\nCIRCLE\n  8\n0\n 10\n50\n 20\n50\n 40\n30\n"),
          std::string("  0\nARC\n  8\n0\n 10\n50\n 20\n50\n 40\n30\n 50\n0\n 51\n180\n"),
          std::string("  0\nTEXT\n  8\n0\n 10\n10\n 20\n50\n 40\n15\n  1\nPump\n"),
          std::string("  0\nINSERT\n  8\n0\n  2\nB\n 10\n30\n 20\n30\n")})
        EXPECT_GT(Ink(Show(blocks + Drawing(frame + entity))), empty + 20) << entity;
}

TEST_F(ThumbnailControlTest, BinaryDrawing_ShowsItsBitmap) {
    const PaintedPicture picture = Show(BinaryDrawing(2, Bitmap(20, 20)));
    EXPECT_EQ(picture.At(100, 20), kRed);
    EXPECT_EQ(picture.At(100, 180), kGreen);
    EXPECT_EQ(Ink(picture), 200u * 200u);
}

TEST_F(ThumbnailControlTest, PictureOfAnotherShape_KeepsItInTheMiddle) {
    const PaintedPicture picture = Show(BinaryDrawing(2, Bitmap(40, 20)));
    EXPECT_EQ(picture.At(100, 20), kBack);
    EXPECT_EQ(picture.At(100, 60), kRed);
    EXPECT_EQ(picture.At(100, 140), kGreen);
    EXPECT_EQ(picture.At(100, 180), kBack);
}

TEST_F(ThumbnailControlTest, BinaryDrawing_ShowsItsPng) {
    const PaintedPicture picture = Show(BinaryDrawing(6, Png()));
    EXPECT_EQ(picture.At(100, 100), kRed);
    EXPECT_GT(picture.Count(kRed), 150u * 150u);
}

TEST_F(ThumbnailControlTest, AnythingElse_IsNoPreview) {
    const PaintedPicture missing = (ShowPath(InRoot(L"is not there.dwg")), PaintedPicture(Control()));
    EXPECT_GT(Ink(missing), 50u) << "a text";
    EXPECT_GT(missing.Count(kBack), 30'000u);
    EXPECT_TRUE(ShowsNoPreview(""));
    EXPECT_TRUE(ShowsNoPreview("no drawing at all"));
    EXPECT_TRUE(ShowsNoPreview(std::string("MZ\x90\0\3\0", 6)));
    EXPECT_TRUE(ShowsNoPreview(Drawing(Line(0, 0, 1, 1)).substr(0, 60))) << "torn";
    EXPECT_TRUE(ShowsNoPreview(BinaryDrawing(3, "a metafile")));
    EXPECT_TRUE(ShowsNoPreview(BinaryDrawing(2, Bitmap(20, 20).substr(0, 200))));
    EXPECT_TRUE(ShowsNoPreview(BinaryDrawing(6, Png().substr(0, 30))));
    EXPECT_TRUE(ShowsNoPreview(BinaryDrawing(6, "not a png")));
    EXPECT_TRUE(ShowsNoPreview(BinaryDrawing(2, "").substr(0, 40)));
}

TEST_F(ThumbnailControlTest, EmptyPath_ShowsNothing) {
    EXPECT_GT(Ink(Show(Drawing(Line(0, 0, 1, 1)))), 0u);
    ShowPath(L"");
    EXPECT_EQ(Ink(PaintedPicture(Control())), 0u);
}

TEST_F(ThumbnailControlTest, PropertiesReadBack) {
    ShowPath(L"C:\\some.dwg");
    CString path;
    Control().GetProperty(kFileId, VT_BSTR, &path);
    EXPECT_EQ(path, L"C:\\some.dwg");
    long color = 0;
    Control().GetProperty(DISPID_BACKCOLOR, VT_I4, &color);
    EXPECT_EQ(static_cast<COLORREF>(color), kBack);
    Control().SetProperty(DISPID_BACKCOLOR, VT_UI4, RGB(0, 0, 128));
    ShowPath(L"");
    EXPECT_EQ(PaintedPicture(Control()).At(5, 5), RGB(0, 0, 128));
}

TEST_F(ThumbnailControlTest, SameNameAgain_ReadsTheFileAgain) {
    EXPECT_GT(Show(BinaryDrawing(2, Bitmap(20, 20))).Count(kGreen), 0u);
    EXPECT_EQ(Show(Drawing(Line(0, 0, 1, 1))).Count(kGreen), 0u);
}

TEST_F(ThumbnailControlTest, FileThatAnotherProgramHasOpen_IsShown) {
    PutFile(InRoot(L"held.dwg"), BinaryDrawing(2, Bitmap(20, 20)));
    const auto held = HoldFile(InRoot(L"held.dwg"), platform::Hold::kWritingShared);
    ShowPath(InRoot(L"held.dwg"));
    EXPECT_GT(PaintedPicture(Control()).Count(kRed), 0u);
}

TEST_F(ThumbnailControlTest, LargeDrawing_IsDrawnFromItsFirstTenThousandEntities) {
    std::string lines;
    for (int i = 0; i < 10'000; ++i)
        lines += Line(i % 100, i / 100, i % 100 + 0.5, i / 100 + 0.5);
    const PaintedPicture first = Show(Drawing(lines));
    const PaintedPicture all = Show(Drawing(lines + Line(0, 0, 100'000, 100'000)));
    EXPECT_EQ(all.DifferencesFrom(first), 0u) << "the far line would make the others a dot";
    EXPECT_GT(Ink(all), 1000u);
}

// Would take years if every reference was followed.
TEST_F(ThumbnailControlTest, BlocksThatMultiply_AreShownInPart) {
    for (const bool empty : {false, true}) {
        std::string blocks;
        for (int level = 0; level < 15; ++level) {
            blocks += "  0\nBLOCK\n  8\n0\n  2\nB" + std::to_string(level) + "\n 70\n0\n 10\n0\n 20\n0\n";
            if (level == 14) blocks += Line(0, 0, 30, 30);
            for (int i = 0; i < 20 && level > 0; ++i)
                blocks += "  0\nINSERT\n  8\n0\n  2\nB" + std::to_string(level - 1) + "\n 10\n" +
                          std::to_string(i) + "\n 20\n" + std::to_string(level) + "\n";
            if (level == 0 && !empty) blocks += Line(0, 0, 3, 3);
            blocks += "  0\nENDBLK\n";
        }
        const PaintedPicture picture =
            Show(Section("BLOCKS", blocks) + Drawing("  0\nINSERT\n  8\n0\n  2\nB14\n 10\n0\n 20\n0\n"));
        EXPECT_GT(Ink(picture), 50u);
    }
}

TEST_F(ThumbnailControlTest, ManyLargeTexts_AreShown) {
    std::string texts;
    for (int i = 0; i < 12'000; ++i)
        texts += "  0\nTEXT\n  8\n0\n 10\n" + std::to_string(i % 100) + "\n 20\n" + std::to_string(i / 100) +
                 "\n 40\n25\n 50\n" + std::to_string(i % 360) + "\n  1\nPUMP STATION " + std::to_string(i) +
                 "\n";
    EXPECT_GT(Ink(Show(Drawing(texts))), 10'000u);
}

TEST_F(ThumbnailControlTest, AnotherSize_DrawsAnew) {
    Show(BinaryDrawing(2, Bitmap(20, 20)));
    Control().MoveWindow(CRect(10, 10, 110, 60));
    const PaintedPicture small(Control());
    EXPECT_LT(small.Width(), 110);
    EXPECT_GT(small.Count(kRed), 100u);
    Control().MoveWindow(CRect(10, 10, 10, 10));
    Control().MoveWindow(kThumbnailPlace);
    EXPECT_EQ(PaintedPicture(Control()).At(100, 20), kRed);
}

TEST_F(ThumbnailControlTest, ManyDrawings_LeaveNoHandlesBehind) {
    const auto round = [this] {
        Show(BinaryDrawing(2, Bitmap(20, 20)));
        Show(BinaryDrawing(6, Png()));
        Show(Drawing(Line(0, 0, 1, 1) + "  0\nTEXT\n  8\n0\n 10\n0\n 20\n0\n 40\n1\n  1\nx\n"));
        Show("nothing");
    };
    round();
    const int before = windows::HandleCount::Now().gdi;
    for (int i = 0; i < 25; ++i)
        round();
    EXPECT_LE(windows::HandleCount::Now().gdi, before + 2);
}

}  // namespace
