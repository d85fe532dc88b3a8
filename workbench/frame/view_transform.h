// Where a drawing's coordinates lie on the screen: zooming and panning as plain arithmetic.
#pragma once

namespace frame {

struct WorldPoint {
    double x = 0;
    double y = 0;
};

struct ScreenPoint {
    double x = 0;
    double y = 0;
};

// A rectangle of the drawing. It starts empty and grows by what is added to it.
struct WorldBox {
    double minX = 0, minY = 0, maxX = 0, maxY = 0;
    bool empty = true;

    void Add(WorldPoint point);
    void Add(const WorldBox& box);
    bool Overlaps(const WorldBox& other) const;
    double Width() const { return maxX - minX; }
    double Height() const { return maxY - minY; }
};

// Maps a drawing onto a window of some pixels, y upwards in the drawing and downwards on the screen.
class ViewTransform {
  public:
    // Sizes below one pixel count as one.
    void SetWindowSize(int width, int height);
    int Width() const { return m_width; }
    int Height() const { return m_height; }

    ScreenPoint ToScreen(WorldPoint point) const;
    WorldPoint ToWorld(ScreenPoint point) const;
    // Pixels per drawing unit.
    double Scale() const { return m_scale; }
    // The part of the drawing that the window shows.
    WorldBox Visible() const;

    // Shows all of `box` with a margin around it. An empty box gives the view of a new drawing; a box without
    // width or height, a single point for instance, is shown in the middle.
    void ZoomExtents(const WorldBox& box);
    // Scales by `factor` so that the drawing's point under `fixed` stays there. A factor that would leave the
    // range in which coordinates can be told apart changes nothing.
    void ZoomAbout(ScreenPoint fixed, double factor);
    void PanPixels(double dx, double dy);

  private:
    int m_width = 1;
    int m_height = 1;
    double m_scale = 1;
    WorldPoint m_center{};
};

}  // namespace frame
