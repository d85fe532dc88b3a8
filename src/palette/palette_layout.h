// Where everything in the palette goes, in pixels of its client area.
#pragma once

#include <optional>
#include <vector>

#include "controls/pixel_geometry.h"

struct CPaletteLayoutInput {
    int nWidth = 0;
    int nHeight = 0;
    int nMenuSize = 16;
    bool bMenuLoaded = false;
    bool bIsoButton = false;
    bool bSwapButton = false;
    int nNewLineRow = -1;
    int nComboCount = 0;
};

struct CPaletteRowRects {
    CPixelRect title;
    CPixelRect combo;
};

struct CPaletteLayout {
    const wchar_t* szDrawingManagerText = L"";
    CPixelRect drawingManager;
    // A menu that is not loaded, and buttons that the discipline does not have, stay where they are.
    std::optional<CPixelRect> menu;
    std::optional<CPixelRect> isoButton;
    std::vector<CPaletteRowRects> rows;
    std::optional<CPixelRect> swapButton;
    std::optional<CPixelRect> newLineButton;
};

// A client area too small for everything gives rectangles with negative sizes, which the window system shows
// as nothing.
CPaletteLayout ArrangePalette(const CPaletteLayoutInput& input);
