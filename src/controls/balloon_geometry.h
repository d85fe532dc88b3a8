// The measures of a balloon tip: how large it is, where it stands, and the outline of its body and tail.
#pragma once

#include <array>
#include <cstddef>

#include "controls/pixel_geometry.h"

// Works the number of lines out from the length of the text.
inline constexpr int kBalloonComputeLines = -1;

// What a balloon's size is computed from.
struct CBalloonText {
    int nCharWidth = 0;   // average width of a character, in pixels
    int nLineHeight = 0;  // in pixels
    size_t nLength = 0;   // characters of the message
    int nLines = kBalloonComputeLines;
};

// The height in pixels of a balloon `nWidth` pixels wide. A width of 0 or less counts as one line.
int GetBalloonHeight(const CBalloonText& text, int nWidth);

// Where the balloon stands: centred on the anchor, above it for `bUp`, else below, and never left of or above
// the screen (the right and bottom edges stay where they were computed).
CPixelRect GetBalloonRect(CPixelPoint anchor, int nWidth, int nHeight, bool bUp);

// The shape of a balloon and where its text is drawn, in the client coordinates given.
struct CBalloonShape {
    CPixelRect rcText;
    CPixelRect rcBody;
    int nCornerWidth = 0;  // of the ellipse at the body's corners
    int nCornerHeight = 0;
    std::array<CPixelPoint, 3> aTail{};
};
CBalloonShape GetBalloonShape(const CPixelRect& rcClient, bool bUp);
