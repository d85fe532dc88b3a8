#include "controls/balloon_geometry.h"

#include <algorithm>

namespace {

constexpr int kExtraLines = 6;  // title, margins and tail
constexpr int kTextLeft = 40;   // room for the icon
constexpr int kTextRightMargin = 20;
constexpr int kTextTopBelowTail = 35;

int Part(int nWhole, double dShare) {
    return static_cast<int>(nWhole * dShare);
}

}  // namespace

int GetBalloonHeight(const CBalloonText& text, int nWidth) {
    int nLines = text.nLines;
    if (nLines == kBalloonComputeLines) {
        const long long nTextWidth =
            static_cast<long long>(text.nCharWidth) * static_cast<long long>(text.nLength);
        nLines = nWidth > 0 ? static_cast<int>(nTextWidth / nWidth) : 0;
    }
    return (std::max(nLines, 1) + kExtraLines) * text.nLineHeight;
}

CPixelRect GetBalloonRect(CPixelPoint anchor, int nWidth, int nHeight, bool bUp) {
    const int nHalf = nWidth / 2;
    CPixelRect rect{anchor.x - nHalf, anchor.y, anchor.x + nHalf, anchor.y};
    if (bUp) {
        rect.top -= nHeight;
    } else {
        rect.bottom += nHeight;
    }
    rect.left = std::max(rect.left, 0);
    rect.top = std::max(rect.top, 0);
    return rect;
}

CBalloonShape GetBalloonShape(const CPixelRect& rcClient, bool bUp) {
    const int w = rcClient.Width();
    const int h = rcClient.Height();
    CBalloonShape shape;
    shape.nCornerWidth = Part(w, 0.18);
    shape.nCornerHeight = Part(h, 0.25);
    shape.rcText.left = kTextLeft;
    shape.rcText.right = w - kTextRightMargin;
    if (bUp) {
        shape.rcText.top = Part(h, 0.1);
        shape.rcText.bottom = Part(h, 0.7);
        shape.rcBody = {rcClient.left, rcClient.top, rcClient.right, rcClient.bottom - shape.nCornerHeight};
        const int nRoot = rcClient.bottom - Part(h, 0.4);
        shape.aTail = {CPixelPoint{rcClient.left + Part(w, 0.93), nRoot},
                       CPixelPoint{rcClient.left + Part(w, 0.65), rcClient.bottom},
                       CPixelPoint{rcClient.left + Part(w, 0.7), nRoot}};
    } else {
        shape.rcText.top = kTextTopBelowTail;
        shape.rcText.bottom = Part(h, 0.9);
        shape.rcBody = {rcClient.left, rcClient.bottom - Part(h, 0.75), rcClient.right, rcClient.bottom};
        const int nRoot = Part(h, 0.4);
        shape.aTail = {CPixelPoint{rcClient.left + Part(w, 0.07), nRoot},
                       CPixelPoint{rcClient.left + Part(w, 0.35), rcClient.top},
                       CPixelPoint{rcClient.left + Part(w, 0.3), nRoot}};
    }
    return shape;
}
