// The arithmetic of a splitter bar: which way it runs, how far it may go, where it comes to lie.
#pragma once

#include "controls/pixel_geometry.h"

enum SplitterType : int {
    kSplitterVertical = 1,    // a standing bar, moves left and right
    kSplitterHorizontal = 2,  // a lying bar, moves up and down
};

// A rectangle at least as wide as high gives a lying bar.
SplitterType GetSplitterType(const CPixelRect& rect);

// The rectangle thinned to the thickness of a new bar, 5 pixels, at its left or top edge.
CPixelRect ThinSplitterRect(CPixelRect rect, SplitterType type);

CPixelPoint GetCenter(const CPixelRect& rect);

// The centre along the axis on which the bar moves.
int GetCenterOnAxis(const CPixelRect& rect, SplitterType type);

// Both coordinates are held to the same range; only the axis of the type counts in the end. With a range
// turned upside down the least position wins.
CPixelPoint ClampToRange(CPixelPoint point, int nMin, int nMax);

// The rectangle shifted along the axis of its type so that its centre comes to the point.
CPixelRect MoveCenterTo(CPixelRect rect, CPixelPoint point, SplitterType type);
