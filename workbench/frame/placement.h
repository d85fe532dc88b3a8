// Geometry of what a view draws: placing, and curves as rows of points.
#pragma once

#include <cstddef>
#include <vector>

#include "frame/view_transform.h"

namespace frame {

// An affine map of the plane.
class Placement {
  public:
    // A block reference without its scale: turned by `rotation` radians at `at`; `mirrored` is a reference
    // that is seen from behind (its normal points down).
    static Placement Reference(WorldPoint at, double rotation, bool mirrored);
    // One instance in a reference: the block's `origin` comes to `offset`, scaled.
    static Placement Instance(WorldPoint offset, double scaleX, double scaleY, WorldPoint origin);

    WorldPoint Apply(WorldPoint point) const;
    // First `inner`, then this.
    Placement Then(const Placement& inner) const;
    // By how much lengths upwards grow: for the height of texts.
    double HeightFactor() const;
    // The direction that the direction `angle` becomes. A mirrored text stays readable.
    double TurnedAngle(double angle) const;

  private:
    double m_xx = 1, m_xy = 0, m_yx = 0, m_yy = 1;
    WorldPoint m_at;
};

struct PolylineVertex {
    WorldPoint point;
    double bulge = 0;  // tangent of a quarter of the arc's angle to the next vertex
    double width = 0;
};

// Points along a circle from `start` to `end` (radians, end not below start), finely enough to look round.
// `mirrored` negates x, as for a curve whose normal points down.
std::vector<WorldPoint> ArcPoints(WorldPoint center, double radius, double start, double end, bool mirrored);
std::vector<WorldPoint> EllipsePoints(WorldPoint center, WorldPoint majorAxis, double ratio, double start,
                                      double end);
std::vector<WorldPoint> PolylinePoints(const std::vector<PolylineVertex>& vertices, bool closed);
// The quadrangles that a line `width` wide along the path covers.
std::vector<std::vector<WorldPoint>> WidePieces(const std::vector<WorldPoint>& path, double width);

// The path cut into dashes. `pattern` has dashes (above 0), gaps (below 0) and dots (0), which are scaled by
// `scale`. A pattern that would need more than `most` pieces, or has no length, gives the whole path.
std::vector<std::vector<WorldPoint>> Dashes(const std::vector<WorldPoint>& path,
                                            const std::vector<double>& pattern, double scale,
                                            std::size_t most);

}  // namespace frame
