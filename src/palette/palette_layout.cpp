#include "palette/palette_layout.h"

#include <algorithm>

#include "palette/palette_rows.h"

namespace {

constexpr int kMargin = 5;
constexpr int kFarMargin = 10;  // from the right and from the bottom edge
constexpr int kGap = 5;
constexpr int kSmallMenuSize = 16;
constexpr int kDrawingManagerHeight = 26;
constexpr int kShortTextWidth = 70;
constexpr int kFullTextWidth = 150;
constexpr int kIsoButtonSize = 68;
constexpr int kTitleButtonGap = 4;
constexpr int kSwapRow = 2;
constexpr int kLastRow = 3;
constexpr int kFirstNewLineRow = 3;

// The heights and widths that depend on the size of the menu's icons.
struct Measures {
    explicit Measures(int nMenuSize) {
        const bool bLarge = std::min(nMenuSize, kLargeMenuSize) >= kLargeMenuSize;
        const bool bSmall = nMenuSize == kSmallMenuSize;
        nTop = bLarge ? 55 : 30;
        nButtonWidth = bLarge ? 60 : 30;
        nRowHeight = bSmall ? 62 : 77;
        nTitleHeight = bSmall ? 25 : 40;
    }
    int nTop;
    int nButtonWidth;
    int nRowHeight;
    int nTitleHeight;
};

const wchar_t* GetDrawingManagerText(int nWidth) {
    if (nWidth < kShortTextWidth) return L"Dwg Mgr";
    return nWidth < kFullTextWidth ? L"Drawing Mgr" : L"Drawing Manager";
}

// A block of that height with the gap behind it; nothing for a block that is not there.
int WithGap(int nHeight) {
    return nHeight != 0 ? kGap + nHeight : 0;
}

CPixelRect PlaceIsoButton(int nTop, int nRight) {
    CPixelRect rect{kMargin, nTop, nRight, nTop + kIsoButtonSize};
    if (rect.Width() > kIsoButtonSize) {
        const int nShrink = (rect.Width() - kIsoButtonSize) / 2;
        rect.left += nShrink;
        rect.right -= nShrink;
    }
    return rect;
}

// The place that a button gets at the right of a title which was made narrower for it.
CPixelRect BesideTitle(const CPixelRect& title, int nButtonWidth) {
    return {std::max(title.left, title.right), title.top + 1, title.right + kTitleButtonGap + nButtonWidth,
            title.bottom - 1};
}

bool HasTitleButton(const CPaletteLayoutInput& input, int nRow) {
    const bool bNewLine = input.nNewLineRow >= kFirstNewLineRow;
    return (nRow == kSwapRow && (input.bSwapButton || bNewLine)) || (nRow == kLastRow && bNewLine);
}

void PlaceRows(const CPaletteLayoutInput& input, const Measures& measures, int nTop, CPaletteLayout& layout) {
    const int nRight = input.nWidth - kFarMargin;
    for (int nRow = 0; nRow < input.nComboCount; ++nRow, nTop += measures.nRowHeight) {
        const int nTitleBottom = nTop + measures.nTitleHeight;
        CPaletteRowRects row{{kMargin, nTop, nRight, nTitleBottom},
                             {kMargin, nTitleBottom, nRight, nTop + measures.nRowHeight}};
        if (HasTitleButton(input, nRow)) row.title.right -= kTitleButtonGap + measures.nButtonWidth;
        layout.rows.push_back(row);
    }
    if (input.bSwapButton && input.nComboCount > kSwapRow)
        layout.swapButton = BesideTitle(layout.rows[kSwapRow].title, measures.nButtonWidth);
    if (input.nNewLineRow >= kFirstNewLineRow && !layout.rows.empty())
        layout.newLineButton = BesideTitle(layout.rows.back().title, measures.nButtonWidth);
}

}  // namespace

CPaletteLayout ArrangePalette(const CPaletteLayoutInput& input) {
    const Measures measures(input.nMenuSize);
    const int nRight = input.nWidth - kFarMargin;
    CPaletteLayout layout;

    const int nButtonWidth = input.nWidth - kMargin - kFarMargin;
    layout.szDrawingManagerText = GetDrawingManagerText(nButtonWidth);
    layout.drawingManager = {kMargin, kMargin, kMargin + nButtonWidth, kMargin + kDrawingManagerHeight};

    const int nIsoHeight = input.bIsoButton ? kIsoButtonSize : 0;
    const int nRowsHeight = measures.nRowHeight * input.nComboCount;
    int nMenuHeight = 0;
    if (input.bMenuLoaded) {
        const int nBottom = input.nHeight - kFarMargin - WithGap(nIsoHeight) - WithGap(nRowsHeight);
        layout.menu = CPixelRect{kMargin, measures.nTop, nRight, nBottom};
        nMenuHeight = nBottom - measures.nTop;
    }
    if (input.bIsoButton) layout.isoButton = PlaceIsoButton(measures.nTop + WithGap(nMenuHeight), nRight);
    PlaceRows(input, measures, measures.nTop + WithGap(nMenuHeight) + WithGap(nIsoHeight), layout);
    return layout;
}
