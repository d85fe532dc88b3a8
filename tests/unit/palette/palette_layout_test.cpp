#include "palette/palette_layout.h"

#include <gtest/gtest.h>

#include <ostream>

#include "palette/palette_rows.h"

void PrintTo(const CPixelRect& rect, std::ostream* out) {
    *out << '(' << rect.left << ',' << rect.top << ',' << rect.right << ',' << rect.bottom << ')';
}

namespace {

CPaletteLayoutInput Discipline(int nApp, int nWidth, int nHeight, int nMenuSize) {
    const CPaletteDiscipline& discipline = *FindPaletteDiscipline(nApp);
    CPaletteLayoutInput input;
    input.nWidth = nWidth;
    input.nHeight = nHeight;
    input.nMenuSize = nMenuSize;
    input.bMenuLoaded = true;
    input.bIsoButton = discipline.m_bIsoButton;
    input.bSwapButton = discipline.m_bSwapButton;
    input.nNewLineRow = discipline.m_nNewLineRow;
    input.nComboCount = static_cast<int>(discipline.m_aRows.size());
    return input;
}

// The arithmetic once more, as one walk from the top down with running edges, to compare every rectangle
// with.
CPaletteLayout WalkedLayout(const CPaletteLayoutInput& in) {
    CPaletteLayout out;
    const int nLimitedSize = in.nMenuSize > 32 ? 32 : in.nMenuSize;
    const int nTop = nLimitedSize >= 32 ? 55 : 30;
    const int nRight = in.nWidth - 10;
    const int nButton = in.nWidth - 15;
    out.szDrawingManagerText = nButton < 70    ? L"Dwg Mgr"
                               : nButton < 150 ? L"Drawing Mgr"
                                               : L"Drawing Manager";
    out.drawingManager = {5, 5, 5 + nButton, 31};
    const int nRow = in.nMenuSize == 16 ? 62 : 77;
    const int nRows = nRow * in.nComboCount;
    const int nIso = in.bIsoButton ? 68 : 0;
    int nMenu = 0;
    if (in.bMenuLoaded) {
        int nBottom = in.nHeight - 10;
        if (nIso != 0) nBottom -= 5 + nIso;
        if (nRows != 0) nBottom -= 5 + nRows;
        nMenu = nBottom - nTop;
        out.menu = CPixelRect{5, nTop, 5 + (in.nWidth - 10) - 5, nTop + nMenu};
    }
    if (in.bIsoButton) {
        int y = nTop;
        if (nMenu != 0) y += nMenu + 5;
        int nLeft = 5, nIsoRight = nRight;
        if (nIsoRight - nLeft > 68) {
            const int nShrink = (nIsoRight - nLeft - 68) / 2;
            nLeft += nShrink;
            nIsoRight -= nShrink;
        }
        out.isoButton = CPixelRect{nLeft, y, nIsoRight, y + 68};
    }
    if (in.nComboCount == 0) return out;
    int y = nTop;
    if (nMenu != 0) y += 5 + nMenu;
    if (nIso != 0) y += 5 + nIso;
    const int nTitle = in.nMenuSize == 16 ? 25 : 40;
    const int nSmall = nLimitedSize >= 32 ? 60 : 30;
    CPixelRect last{};
    for (int i = 0; i < in.nComboCount; ++i, y += nRow) {
        CPixelRect title{5, y, nRight, y + nTitle};
        if (i == 2 && (in.bSwapButton || in.nNewLineRow >= 3)) title.right -= 4 + nSmall;
        if (i == 3 && in.nNewLineRow >= 3) title.right -= 4 + nSmall;
        last = title;
        out.rows.push_back({title, {5, y + nTitle, nRight, y + nRow}});
        const CPixelRect beside{title.left > title.right ? title.left : title.right, title.top + 1,
                                title.right + 4 + nSmall, title.bottom - 1};
        if (i == 2 && in.bSwapButton) out.swapButton = beside;
    }
    if (in.nNewLineRow >= 3)
        out.newLineButton = CPixelRect{last.left > last.right ? last.left : last.right, last.top + 1,
                                       last.right + 4 + nSmall, last.bottom - 1};
    return out;
}

void ExpectSame(const CPaletteLayout& is, const CPaletteLayout& should) {
    ASSERT_STREQ(is.szDrawingManagerText, should.szDrawingManagerText);
    ASSERT_EQ(is.drawingManager, should.drawingManager);
    ASSERT_EQ(is.menu, should.menu);
    ASSERT_EQ(is.isoButton, should.isoButton);
    ASSERT_EQ(is.swapButton, should.swapButton);
    ASSERT_EQ(is.newLineButton, should.newLineButton);
    ASSERT_EQ(is.rows.size(), should.rows.size());
    for (size_t i = 0; i < is.rows.size(); ++i) {
        ASSERT_EQ(is.rows[i].title, should.rows[i].title) << i;
        ASSERT_EQ(is.rows[i].combo, should.rows[i].combo) << i;
    }
}

}  // namespace

TEST(PaletteLayout, EveryRectangle_AtEveryWidthAndMenuSize) {
    for (int nApp = 1; nApp <= 4; ++nApp) {
        for (int nMenuSize : {0, 16, 24, 32, 48}) {
            for (bool bLoaded : {true, false}) {
                for (int nWidth = 1; nWidth <= 2000; ++nWidth) {
                    // Short palettes too, where the menu gets no height or less than none.
                    CPaletteLayoutInput input = Discipline(nApp, nWidth, 40 + nWidth * 7 % 1100, nMenuSize);
                    input.bMenuLoaded = bLoaded;
                    ASSERT_NO_FATAL_FAILURE(ExpectSame(ArrangePalette(input), WalkedLayout(input)))
                        << nApp << ' ' << nMenuSize << ' ' << nWidth;
                }
            }
        }
    }
}

TEST(PaletteLayout, MenuOfNoHeight_NeedsNoGap) {
    CPaletteLayoutInput input = Discipline(1, 125, 30 + 10 + 5 + 62, 16);
    const CPaletteLayout layout = ArrangePalette(input);
    EXPECT_EQ(layout.menu->Height(), 0);
    EXPECT_EQ(layout.rows[0].title.top, 30);
}

TEST(PaletteLayout, DrawingManagerText_FollowsTheWidth) {
    EXPECT_STREQ(ArrangePalette(Discipline(2, 84, 400, 16)).szDrawingManagerText, L"Dwg Mgr");
    EXPECT_STREQ(ArrangePalette(Discipline(2, 85, 400, 16)).szDrawingManagerText, L"Drawing Mgr");
    EXPECT_STREQ(ArrangePalette(Discipline(2, 164, 400, 16)).szDrawingManagerText, L"Drawing Mgr");
    EXPECT_STREQ(ArrangePalette(Discipline(2, 165, 400, 16)).szDrawingManagerText, L"Drawing Manager");
    EXPECT_EQ(ArrangePalette(Discipline(2, 165, 400, 16)).drawingManager, (CPixelRect{5, 5, 155, 31}));
}

TEST(PaletteLayout, Electric_MenuEndsAboveItsOneRow) {
    const CPaletteLayout layout = ArrangePalette(Discipline(1, 125, 500, 16));
    ASSERT_TRUE(layout.menu);
    EXPECT_EQ(*layout.menu, (CPixelRect{5, 30, 115, 500 - 10 - 5 - 62}));
    EXPECT_FALSE(layout.isoButton);
    EXPECT_FALSE(layout.swapButton);
    EXPECT_FALSE(layout.newLineButton);
    ASSERT_EQ(layout.rows.size(), 1u);
    EXPECT_EQ(layout.rows[0].title, (CPixelRect{5, 428, 115, 453}));
    EXPECT_EQ(layout.rows[0].combo, (CPixelRect{5, 453, 115, 490}));
}

TEST(PaletteLayout, IconSize24_UsesSmallTopAndButtonsButTallRows) {
    const CPaletteLayout layout = ArrangePalette(Discipline(2, 200, 600, 24));
    EXPECT_EQ(layout.menu->top, 30);
    ASSERT_EQ(layout.rows.size(), 3u);
    EXPECT_EQ(layout.rows[1].title.top - layout.rows[0].title.top, 77);
    EXPECT_EQ(layout.rows[0].title.Height(), 40);
    EXPECT_EQ(layout.rows[0].combo.Height(), 37);
    EXPECT_EQ(layout.newLineButton->Width(), 4 + 30);
}

TEST(PaletteLayout, IconSizes_SetTopRowsAndButtons) {
    struct {
        int nMenuSize, nTop, nRowHeight, nTitleHeight, nButton;
    } const expected[] = {{0, 30, 77, 40, 30},
                          {16, 30, 62, 25, 30},
                          {24, 30, 77, 40, 30},
                          {32, 55, 77, 40, 60},
                          {48, 55, 77, 40, 60}};
    for (const auto& e : expected) {
        const CPaletteLayout layout = ArrangePalette(Discipline(4, 300, 900, e.nMenuSize));
        EXPECT_EQ(layout.menu->top, e.nTop) << e.nMenuSize;
        EXPECT_EQ(layout.rows[1].title.top - layout.rows[0].title.top, e.nRowHeight) << e.nMenuSize;
        EXPECT_EQ(layout.rows[0].title.Height(), e.nTitleHeight) << e.nMenuSize;
        EXPECT_EQ(layout.rows[0].combo.Height(), 37) << e.nMenuSize;
        EXPECT_EQ(layout.rows[2].title.right, 290 - 4 - e.nButton) << e.nMenuSize;
        EXPECT_EQ(layout.swapButton->Width(), 4 + e.nButton) << e.nMenuSize;
    }
}

TEST(PaletteLayout, Isometric_StacksMenuIsoButtonAndRows) {
    const CPaletteLayout layout = ArrangePalette(Discipline(3, 200, 700, 16));
    EXPECT_EQ(*layout.menu, (CPixelRect{5, 30, 190, 700 - 10 - (5 + 68) - (5 + 4 * 62)}));
    const int nMenuHeight = layout.menu->Height();
    ASSERT_TRUE(layout.isoButton);
    EXPECT_EQ(layout.isoButton->top, 30 + nMenuHeight + 5);
    EXPECT_EQ(layout.isoButton->Height(), 68);
    EXPECT_EQ(layout.rows[0].title.top, layout.isoButton->bottom + 5);
    EXPECT_EQ(layout.rows[3].combo.bottom, 690);
}

TEST(PaletteLayout, IsoButton_IsCentredAndNeverWiderThanItsRoom) {
    EXPECT_EQ(ArrangePalette(Discipline(3, 83, 700, 16)).isoButton->Width(), 68);
    EXPECT_EQ(ArrangePalette(Discipline(3, 80, 700, 16)).isoButton->Width(), 65);
    const CPixelRect odd = *ArrangePalette(Discipline(3, 200, 700, 16)).isoButton;
    EXPECT_EQ(odd.left - 5, 190 - odd.right);  // 185 wide: 58 pixels go on each side
    EXPECT_EQ(odd.Width(), 69);
    EXPECT_EQ(ArrangePalette(Discipline(3, 201, 700, 16)).isoButton->Width(), 68);
}

TEST(PaletteLayout, SwapAndNewLine_StandAtTheRightOfTheirTitles) {
    const CPaletteLayout layout = ArrangePalette(Discipline(4, 200, 700, 16));
    const CPixelRect title2 = layout.rows[2].title;
    const CPixelRect title3 = layout.rows[3].title;
    EXPECT_EQ(layout.rows[1].title.right, 190);
    EXPECT_EQ(title2.right, 190 - 34);
    EXPECT_EQ(title3.right, 190 - 34);
    EXPECT_EQ(*layout.swapButton, (CPixelRect{156, title2.top + 1, 190, title2.bottom - 1}));
    EXPECT_EQ(*layout.newLineButton, (CPixelRect{156, title3.top + 1, 190, title3.bottom - 1}));
    EXPECT_EQ(layout.rows[2].combo.right, 190);
}

TEST(PaletteLayout, Pid_NewLineButtonStandsInTheThirdRow) {
    const CPaletteLayout layout = ArrangePalette(Discipline(2, 200, 700, 16));
    EXPECT_FALSE(layout.swapButton);
    EXPECT_EQ(*layout.newLineButton,
              (CPixelRect{156, layout.rows[2].title.top + 1, 190, layout.rows[2].title.bottom - 1}));
}

TEST(PaletteLayout, TitleNarrowerThanItsButton_KeepsTheButtonInside) {
    const CPaletteLayout layout = ArrangePalette(Discipline(4, 30, 700, 16));
    EXPECT_EQ(layout.rows[2].title.right, 20 - 34);
    EXPECT_EQ(layout.swapButton->left, 5);
    EXPECT_EQ(layout.swapButton->right, 20);
}

TEST(PaletteLayout, MenuThatFailedToLoad_GivesItsRoomToTheRest) {
    CPaletteLayoutInput input = Discipline(3, 200, 700, 16);
    input.bMenuLoaded = false;
    const CPaletteLayout layout = ArrangePalette(input);
    EXPECT_FALSE(layout.menu);
    EXPECT_EQ(layout.isoButton->top, 30);
    EXPECT_EQ(layout.rows[0].title.top, 30 + 5 + 68);

    input = Discipline(2, 200, 700, 16);
    input.bMenuLoaded = false;
    EXPECT_EQ(ArrangePalette(input).rows[0].title.top, 30);
}

TEST(PaletteLayout, NoRows_ThenOnlyTheMenu) {
    CPaletteLayoutInput input;
    input.nWidth = 100;
    input.nHeight = 300;
    input.bMenuLoaded = true;
    const CPaletteLayout layout = ArrangePalette(input);
    EXPECT_EQ(*layout.menu, (CPixelRect{5, 30, 90, 290}));
    EXPECT_TRUE(layout.rows.empty());
    EXPECT_FALSE(layout.newLineButton);
}

TEST(PaletteLayout, EveryWidth_KeepsRowsBelowEachOtherAndInsideTheMargins) {
    for (int nApp = 1; nApp <= 4; ++nApp) {
        for (int nMenuSize : {0, 16, 24, 32, 48}) {
            for (int nWidth = 1; nWidth <= 2000; ++nWidth) {
                const CPaletteLayout layout = ArrangePalette(Discipline(nApp, nWidth, 1000, nMenuSize));
                int nBottom = layout.isoButton ? layout.isoButton->bottom : layout.menu->bottom;
                for (const CPaletteRowRects& row : layout.rows) {
                    ASSERT_GE(row.title.top, nBottom) << nWidth;
                    ASSERT_EQ(row.combo.top, row.title.bottom) << nWidth;
                    ASSERT_EQ(row.combo.left, 5);
                    ASSERT_EQ(row.combo.right, nWidth - 10);
                    nBottom = row.combo.bottom;
                }
                ASSERT_EQ(nBottom, 990) << nWidth;
                if (layout.newLineButton) {
                    ASSERT_EQ(layout.newLineButton->right, nWidth - 10);
                }
            }
        }
    }
}
