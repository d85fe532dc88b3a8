#include "drawing_manager/dialog_layout.h"

#include <algorithm>
#include <cstdint>

#include "resources/resource.h"

namespace {

constexpr int kMargin = 8;  // also the thickness of a splitter
constexpr int kPaneTop = 65;
constexpr int kBottomRow = 30;
constexpr int kBottomRowPitch = 38;
constexpr int kLabelWidth = 85;
constexpr int kLocationLeft = 85;
constexpr int kIconButton = 30;
constexpr int kIconButtonPitch = 38;
constexpr int kIconButtonTop = 15;
constexpr int kLeastSplitterX = 265;
constexpr int kLeastRightPane = 333;
constexpr int kFirstDrawingButton = 97;  // from the right edge of the vertical splitter
constexpr int kNameColumnSlack = 21;     // scroll bar and borders

// The edges of the window's content.
struct CFrame {
    int nMargin;  // left
    int nRight;
    int nBottomRowTop;
};

CFrame MeasureFrame(const CPixelRect& rcWindow) {
    const int nMargin = kMargin - rcWindow.left;
    return {nMargin, rcWindow.right - 2 * nMargin - rcWindow.left,
            rcWindow.bottom + rcWindow.left - kBottomRowPitch};
}

void Place(CLayout& layout, int nControlId, int x, int y, int nWidth, int nHeight) {
    layout.aPlacements.push_back({nControlId, MakePixelRect(x, y, nWidth, nHeight)});
}

void PlaceAlways(CLayout& layout, const CFrame& frame) {
    Place(layout, IDC_HELP_BUTTON, frame.nRight - 60, 10, 60, 30);
    Place(layout, IDC_OPEN_STANDARD, 189, kIconButtonTop, kIconButton, kIconButton);
    Place(layout, IDC_SHOW_HIDE, 227, kIconButtonTop, kIconButton, kIconButton);
    Place(layout, IDC_STANDARD_BOX, 181, -3, 84, 56);
}

void PlaceDrawingButtons(CLayout& layout, int nSplitterRight) {
    const int nFirst = nSplitterRight + kFirstDrawingButton;
    int x = nFirst;
    for (int nId :
         {IDC_OPEN_DRAWING, IDC_NEW_DRAWING, IDC_COPY_DRAWING, IDC_RENAME_DRAWING, IDC_DELETE_DRAWING}) {
        Place(layout, nId, x, kIconButtonTop, kIconButton, kIconButton);
        x += kIconButtonPitch;
    }
    Place(layout, IDC_DRAWING_BOX, nFirst - 8, -3, 198, 56);
    Place(layout, IDC_SINGLE_DOC, nFirst + 206, 18, 95, 20);
}

void PlaceWithDrawings(CLayout& layout, const CFrame& frame, const CLayoutInput& input) {
    const int nPaneBottom = frame.nBottomRowTop - kMargin;
    Place(layout, IDC_EXPLORE, frame.nRight - kIconButton, frame.nBottomRowTop, kIconButton, kIconButton);

    const int nSplitterX =
        std::min(std::max(input.rcSplitterV.left, kLeastSplitterX), frame.nRight - kLeastRightPane);
    const CPixelRect rcV = MakePixelRect(nSplitterX, kPaneTop, kMargin, nPaneBottom - kPaneTop);
    layout.aPlacements.push_back({IDC_SPLITTER_VERTICAL, rcV});

    const int nSplitterY = std::min(std::max(input.rcSplitterH.top, kPaneTop + input.nMinPane),
                                    nPaneBottom - input.nMinPane - kMargin);
    const int nLeftWidth = rcV.left - frame.nMargin;
    const CPixelRect rcH = MakePixelRect(frame.nMargin, nSplitterY, nLeftWidth, kMargin);
    layout.aPlacements.push_back({IDC_SPLITTER_HORIZONTAL, rcH});

    Place(layout, IDC_THUMBNAIL, frame.nMargin, rcH.bottom, nLeftWidth, nPaneBottom - rcH.bottom);
    Place(layout, IDC_LOCATION, kLocationLeft, frame.nBottomRowTop, frame.nRight - 123, kBottomRow);
    Place(layout, IDC_LOCATION_LABEL, frame.nMargin, frame.nBottomRowTop, kLabelWidth - frame.nMargin,
          kBottomRow);
    Place(layout, IDC_DRAWINGS_LABEL, rcV.right, kIconButtonTop, kLabelWidth, kBottomRow);
    PlaceDrawingButtons(layout, rcV.right);

    const int nListWidth = frame.nRight - rcV.right;
    Place(layout, IDC_DRAWING_LIST, rcV.right, kPaneTop, nListWidth, nPaneBottom - kPaneTop);
    layout.nNameColumnWidth = nListWidth - input.nOtherColumnsWidth - kNameColumnSlack;
    Place(layout, IDC_TREE, frame.nMargin, kPaneTop, nLeftWidth, rcH.top - kPaneTop);
}

void PlaceTreeAlone(CLayout& layout, const CFrame& frame, const CPixelRect& rcWindow) {
    Place(layout, IDC_THUMBNAIL, 0, 0, 0, 0);
    Place(layout, IDC_TREE, frame.nMargin, kPaneTop, frame.nRight - frame.nMargin,
          rcWindow.bottom + rcWindow.left - kMargin - kPaneTop);
}

// Codes of the edge in a sizing message.
enum SizingEdge : unsigned {
    kEdgeLeft = 1,
    kEdgeTop = 3,
    kEdgeTopLeft = 4,
    kEdgeTopRight = 5,
    kEdgeBottomLeft = 7,
};

// Gives the rectangle a width by moving its left or its right edge.
void SetWidth(CPixelRect& rect, int nWidth, unsigned uEdge) {
    if (uEdge == kEdgeLeft || uEdge == kEdgeTopLeft || uEdge == kEdgeBottomLeft) {
        rect.left = rect.right - nWidth;
    } else {
        rect.right = rect.left + nWidth;
    }
}

void SetHeight(CPixelRect& rect, int nHeight, unsigned uEdge) {
    if (uEdge == kEdgeTop || uEdge == kEdgeTopLeft || uEdge == kEdgeTopRight) {
        rect.top = rect.bottom - nHeight;
    } else {
        rect.bottom = rect.top + nHeight;
    }
}

}  // namespace

CLayout ComputeLayout(const CLayoutInput& input) {
    CLayout layout;
    const CFrame frame = MeasureFrame(input.rcWindow);
    PlaceAlways(layout, frame);
    if (input.bShowDrawings) {
        PlaceWithDrawings(layout, frame, input);
    } else {
        PlaceTreeAlone(layout, frame, input.rcWindow);
    }
    return layout;
}

CSizeLimits GetSizeLimits(const CMeasuredControls& controls, int nMinPane) {
    const int nHelpWidth = controls.rcHelp.Width();
    if (controls.bListVisible) {
        return {
            controls.rcSingleDoc.right + 15 + nHelpWidth - controls.rcWindow.left,
            controls.rcLocation.bottom + 10 + nMinPane - controls.rcTree.Height() - controls.rcWindow.top};
    }
    return {controls.rcStandardBox.right + 19 + nHelpWidth - controls.rcWindow.left,
            controls.rcTree.top + 2 * nMinPane};
}

CPixelRect LimitDraggedRect(CPixelRect rect, unsigned uEdge, const CSizeLimits& limits) {
    if (rect.Width() < limits.nMinWidth) SetWidth(rect, limits.nMinWidth, uEdge);
    if (rect.Height() < limits.nMinHeight) SetHeight(rect, limits.nMinHeight, uEdge);
    if (rect.Width() > kMaxDialogWidth) SetWidth(rect, kMaxDialogWidth, uEdge);
    if (rect.Height() > kMaxDialogHeight) SetHeight(rect, kMaxDialogHeight, uEdge);
    return rect;
}

CSplitterRange GetVerticalRange(const CMeasuredControls& controls) {
    return {controls.rcStandardBox.right + 3,
            controls.rcList.left - 4 + (controls.rcHelp.left - controls.rcSingleDoc.right)};
}

CSplitterRange GetHorizontalRange(const CMeasuredControls& controls, int nMinPane) {
    return {controls.rcTree.top + nMinPane, controls.rcList.bottom - nMinPane};
}

CPixelRect GrowToFit(CPixelRect rcWindow, const CPixelRect& rcWindowInClient, const CPixelRect& rcExplore) {
    constexpr int nRoomRight = 18;
    constexpr int nRoomBelow = 39;
    const int nLayoutRoomRight = 2 * (kMargin - rcWindowInClient.left);
    const int nLayoutRoomBelow = kMargin - rcWindowInClient.left - rcWindowInClient.top;
    rcWindow.right =
        rcWindow.left + std::max(rcWindow.Width(), rcExplore.right + std::min(nRoomRight, nLayoutRoomRight));
    rcWindow.bottom =
        rcWindow.top + std::max(rcWindow.Height(), rcExplore.bottom + std::min(nRoomBelow, nLayoutRoomBelow));
    return rcWindow;
}
