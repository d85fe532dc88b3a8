// Where the controls of the Drawing Manager stand and how far its window and splitters may go. Numbers in,
// numbers out: the dialog measures and moves.
#pragma once

#include <vector>

#include "controls/pixel_geometry.h"

inline constexpr int kMaxDialogWidth = 1600;
inline constexpr int kMaxDialogHeight = 1200;

struct CPlacement {
    int nControlId = 0;
    CPixelRect rect;  // client coordinates of the dialog
};

struct CLayoutInput {
    // The window's rectangle in client coordinates: left and top are negative by the frame.
    CPixelRect rcWindow;
    CPixelRect rcSplitterV;
    CPixelRect rcSplitterH;
    bool bShowDrawings = true;
    int nMinPane = 50;           // least height of the tree
    int nOtherColumnsWidth = 0;  // of the list's size and date columns together
};

struct CLayout {
    std::vector<CPlacement> aPlacements;  // in the order in which the controls are to be moved
    int nNameColumnWidth = 0;             // only with the drawings shown
};

CLayout ComputeLayout(const CLayoutInput& input);

// The least size of the window while it is being dragged.
struct CSizeLimits {
    int nMinWidth = 0;
    int nMinHeight = 0;
    bool operator==(const CSizeLimits&) const = default;
};

// Rectangles of the dialog and its controls, all in client coordinates of the dialog.
struct CMeasuredControls {
    CPixelRect rcWindow;
    CPixelRect rcStandardBox;  // the group box of the two left buttons
    CPixelRect rcSingleDoc;
    CPixelRect rcHelp;
    CPixelRect rcLocation;
    CPixelRect rcTree;
    CPixelRect rcList;
    bool bListVisible = true;
};
CSizeLimits GetSizeLimits(const CMeasuredControls& controls, int nMinPane);

// Holds a dragged window rectangle to the least and the greatest size, by moving the edge that is being
// dragged. `uEdge` is the edge code of the sizing message (1 left to 8 bottom right).
CPixelRect LimitDraggedRect(CPixelRect rect, unsigned uEdge, const CSizeLimits& limits);

// How far the centre of a splitter may go.
struct CSplitterRange {
    int nMin = 0;
    int nMax = 0;
    bool operator==(const CSplitterRange&) const = default;
};
CSplitterRange GetVerticalRange(const CMeasuredControls& controls);
CSplitterRange GetHorizontalRange(const CMeasuredControls& controls, int nMinPane);

// The window's rectangle, in screen coordinates, grown so that the explorer button (client coordinates) fits.
// `rcWindowInClient` is the same rectangle in client coordinates. Where the window's frame is so slim that
// the layout itself leaves less room below the button than is asked for here, the layout's room is enough:
// the window would grow at every call.
CPixelRect GrowToFit(CPixelRect rcWindow, const CPixelRect& rcWindowInClient, const CPixelRect& rcExplore);
