#include "frame/placement.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace frame {

namespace {

constexpr int kPointsPerCircle = 96;

double Distance(WorldPoint a, WorldPoint b) {
    return std::hypot(b.x - a.x, b.y - a.y);
}

WorldPoint Between(WorldPoint a, WorldPoint b, double share) {
    return {a.x + (b.x - a.x) * share, a.y + (b.y - a.y) * share};
}

int StepsFor(double angle) {
    const double share = std::abs(angle) / (2 * std::numbers::pi);
    return std::clamp(static_cast<int>(std::ceil(share * kPointsPerCircle)), 2, kPointsPerCircle);
}

// The arc from `from` to `to` with the given bulge, without its first point.
void AppendBulge(std::vector<WorldPoint>& points, WorldPoint from, WorldPoint to, double bulge) {
    const double chord = Distance(from, to);
    if (bulge == 0 || chord == 0 || !std::isfinite(bulge)) {
        points.push_back(to);
        return;
    }
    const double angle = 4 * std::atan(bulge);
    const double radius = chord / (2 * std::sin(angle / 2));
    const double toCenter = radius * std::cos(angle / 2);
    const WorldPoint middle = Between(from, to, 0.5);
    const WorldPoint center{middle.x - (to.y - from.y) / chord * toCenter,
                            middle.y + (to.x - from.x) / chord * toCenter};
    const double start = std::atan2(from.y - center.y, from.x - center.x);
    const int steps = StepsFor(angle);
    for (int i = 1; i < steps; ++i) {
        const double at = start + angle * i / steps;
        points.push_back(
            {center.x + std::abs(radius) * std::cos(at), center.y + std::abs(radius) * std::sin(at)});
    }
    points.push_back(to);
}

}  // namespace

Placement Placement::Reference(WorldPoint at, double rotation, bool mirrored) {
    Placement placement;
    const double sign = mirrored ? -1 : 1;
    placement.m_xx = std::cos(rotation) * sign;
    placement.m_xy = -std::sin(rotation) * sign;
    placement.m_yx = std::sin(rotation);
    placement.m_yy = std::cos(rotation);
    placement.m_at = {at.x * sign, at.y};
    return placement;
}

Placement Placement::Instance(WorldPoint offset, double scaleX, double scaleY, WorldPoint origin) {
    Placement placement;
    placement.m_xx = scaleX;
    placement.m_yy = scaleY;
    placement.m_at = {offset.x - origin.x * scaleX, offset.y - origin.y * scaleY};
    return placement;
}

WorldPoint Placement::Apply(WorldPoint point) const {
    return {m_xx * point.x + m_xy * point.y + m_at.x, m_yx * point.x + m_yy * point.y + m_at.y};
}

Placement Placement::Then(const Placement& inner) const {
    Placement both;
    both.m_xx = m_xx * inner.m_xx + m_xy * inner.m_yx;
    both.m_xy = m_xx * inner.m_xy + m_xy * inner.m_yy;
    both.m_yx = m_yx * inner.m_xx + m_yy * inner.m_yx;
    both.m_yy = m_yx * inner.m_xy + m_yy * inner.m_yy;
    both.m_at = Apply(inner.m_at);
    return both;
}

double Placement::HeightFactor() const {
    return std::hypot(m_xy, m_yy);
}

double Placement::TurnedAngle(double angle) const {
    const double x = m_xx * std::cos(angle) + m_xy * std::sin(angle);
    const double y = m_yx * std::cos(angle) + m_yy * std::sin(angle);
    const bool mirrored = m_xx * m_yy - m_xy * m_yx < 0;
    return mirrored && x < 0 ? std::atan2(-y, -x) : std::atan2(y, x);
}

std::vector<WorldPoint> ArcPoints(WorldPoint center, double radius, double start, double end, bool mirrored) {
    std::vector<WorldPoint> points;
    const int steps = StepsFor(end - start);
    for (int i = 0; i <= steps; ++i) {
        const double at = start + (end - start) * i / steps;
        const double x = center.x + radius * std::cos(at);
        points.push_back({mirrored ? -x : x, center.y + radius * std::sin(at)});
    }
    return points;
}

std::vector<WorldPoint> EllipsePoints(WorldPoint center, WorldPoint majorAxis, double ratio, double start,
                                      double end) {
    std::vector<WorldPoint> points;
    if (end <= start) end += 2 * std::numbers::pi;
    const int steps = StepsFor(end - start);
    for (int i = 0; i <= steps; ++i) {
        const double at = start + (end - start) * i / steps;
        const double along = std::cos(at);
        const double across = std::sin(at) * ratio;
        points.push_back({center.x + along * majorAxis.x - across * majorAxis.y,
                          center.y + along * majorAxis.y + across * majorAxis.x});
    }
    return points;
}

std::vector<WorldPoint> PolylinePoints(const std::vector<PolylineVertex>& vertices, bool closed) {
    std::vector<WorldPoint> points;
    if (vertices.empty()) return points;
    points.push_back(vertices[0].point);
    for (std::size_t i = 1; i < vertices.size(); ++i)
        AppendBulge(points, vertices[i - 1].point, vertices[i].point, vertices[i - 1].bulge);
    if (closed && vertices.size() > 1)
        AppendBulge(points, vertices.back().point, vertices[0].point, vertices.back().bulge);
    return points;
}

std::vector<std::vector<WorldPoint>> WidePieces(const std::vector<WorldPoint>& path, double width) {
    std::vector<std::vector<WorldPoint>> pieces;
    for (std::size_t i = 1; i < path.size(); ++i) {
        const WorldPoint a = path[i - 1];
        const WorldPoint b = path[i];
        const double length = Distance(a, b);
        if (!(length > 0)) continue;
        const double x = -(b.y - a.y) / length * width / 2;
        const double y = (b.x - a.x) / length * width / 2;
        pieces.push_back({{a.x + x, a.y + y}, {b.x + x, b.y + y}, {b.x - x, b.y - y}, {a.x - x, a.y - y}});
    }
    return pieces;
}

std::vector<std::vector<WorldPoint>> Dashes(const std::vector<WorldPoint>& path,
                                            const std::vector<double>& pattern, double scale,
                                            std::size_t most) {
    double length = 0;
    for (std::size_t i = 1; i < path.size(); ++i)
        length += Distance(path[i - 1], path[i]);
    double period = 0;
    for (const double part : pattern)
        period += std::abs(part) * scale;
    if (path.size() < 2 || !(period > 0) ||
        !(length / period * static_cast<double>(pattern.size()) < static_cast<double>(most)))
        return {path};

    std::vector<std::vector<WorldPoint>> dashes;
    std::size_t part = 0;
    // Half a dash first, so that both ends of a line are drawn.
    double left = std::abs(pattern[0]) * scale / (pattern[0] > 0 ? 2 : 1);
    if (pattern[0] >= 0) dashes.push_back({path[0]});
    for (std::size_t i = 1; i < path.size(); ++i) {
        const double segment = Distance(path[i - 1], path[i]);
        double done = 0;
        while (segment - done > left) {
            done += left;
            const WorldPoint here = Between(path[i - 1], path[i], done / segment);
            if (pattern[part] > 0) dashes.back().push_back(here);
            part = (part + 1) % pattern.size();
            left = std::abs(pattern[part]) * scale;
            if (pattern[part] >= 0) dashes.push_back({here});
        }
        left -= segment - done;
        if (pattern[part] > 0) dashes.back().push_back(path[i]);
    }
    return dashes;
}

}  // namespace frame
