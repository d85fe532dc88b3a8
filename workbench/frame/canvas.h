// A picture in memory that lines and filled shapes are drawn into, smoothly, without asking the system.
#pragma once

#include <cstdint>
#include <vector>

#include "frame/view_transform.h"

namespace frame {

// 0x00RRGGBB, the layout of a 32-bit device independent bitmap.
using Color = std::uint32_t;

// Draws into rows of pixels that belong to the caller, first row on top. Everything outside is clipped; any
// finite coordinates are allowed.
class Canvas {
  public:
    Canvas(Color* pixels, int width, int height) : m_pixels(pixels), m_width(width), m_height(height) {}

    int Width() const { return m_width; }
    int Height() const { return m_height; }
    void Fill(Color color);
    // One pixel, for what is too small to have a shape. Outside the picture: nothing.
    void DrawPoint(ScreenPoint at, Color color);
    // A line one pixel wide with smoothed edges.
    void DrawLine(ScreenPoint from, ScreenPoint to, Color color);
    // Fills a convex polygon.
    void FillPolygon(const std::vector<ScreenPoint>& corners, Color color);

  private:
    void Blend(int x, int y, Color color, double share);
    bool Clip(ScreenPoint& from, ScreenPoint& to) const;

    Color* m_pixels;
    int m_width;
    int m_height;
};

}  // namespace frame
