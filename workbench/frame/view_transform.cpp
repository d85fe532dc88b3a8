#include "frame/view_transform.h"

#include <algorithm>
#include <cmath>

namespace frame {

namespace {
constexpr double kMargin = 0.95;
constexpr double kSmallestScale = 1e-9;
constexpr double kLargestScale = 1e9;
// The limits of a drawing nobody has drawn in yet: an A3 sheet in millimetres.
constexpr double kNewDrawingWidth = 420;
constexpr double kNewDrawingHeight = 297;
}  // namespace

void WorldBox::Add(WorldPoint point) {
    if (!std::isfinite(point.x) || !std::isfinite(point.y)) return;
    if (empty) {
        minX = maxX = point.x;
        minY = maxY = point.y;
        empty = false;
        return;
    }
    minX = std::min(minX, point.x);
    maxX = std::max(maxX, point.x);
    minY = std::min(minY, point.y);
    maxY = std::max(maxY, point.y);
}

void WorldBox::Add(const WorldBox& box) {
    if (box.empty) return;
    Add(WorldPoint{box.minX, box.minY});
    Add(WorldPoint{box.maxX, box.maxY});
}

bool WorldBox::Overlaps(const WorldBox& other) const {
    if (empty || other.empty) return false;
    return minX <= other.maxX && other.minX <= maxX && minY <= other.maxY && other.minY <= maxY;
}

void ViewTransform::SetWindowSize(int width, int height) {
    m_width = std::max(width, 1);
    m_height = std::max(height, 1);
}

ScreenPoint ViewTransform::ToScreen(WorldPoint point) const {
    return {m_width / 2.0 + (point.x - m_center.x) * m_scale,
            m_height / 2.0 - (point.y - m_center.y) * m_scale};
}

WorldPoint ViewTransform::ToWorld(ScreenPoint point) const {
    return {m_center.x + (point.x - m_width / 2.0) / m_scale,
            m_center.y - (point.y - m_height / 2.0) / m_scale};
}

WorldBox ViewTransform::Visible() const {
    WorldBox box;
    box.Add(ToWorld({0, 0}));
    box.Add(ToWorld({static_cast<double>(m_width), static_cast<double>(m_height)}));
    return box;
}

void ViewTransform::ZoomExtents(const WorldBox& box) {
    WorldBox shown = box;
    if (shown.empty) {
        shown.Add(WorldPoint{0, 0});
        shown.Add(WorldPoint{kNewDrawingWidth, kNewDrawingHeight});
    }
    m_center = {shown.minX + shown.Width() / 2, shown.minY + shown.Height() / 2};
    double scale = kLargestScale;
    if (shown.Width() > 0) scale = std::min(scale, m_width * kMargin / shown.Width());
    if (shown.Height() > 0) scale = std::min(scale, m_height * kMargin / shown.Height());
    if (scale == kLargestScale) scale = 1;
    m_scale = std::clamp(scale, kSmallestScale, kLargestScale);
}

void ViewTransform::ZoomAbout(ScreenPoint fixed, double factor) {
    const double scale = m_scale * factor;
    if (!(scale >= kSmallestScale && scale <= kLargestScale)) return;
    const WorldPoint anchor = ToWorld(fixed);
    m_scale = scale;
    const WorldPoint moved = ToWorld(fixed);
    m_center.x += anchor.x - moved.x;
    m_center.y += anchor.y - moved.y;
}

void ViewTransform::PanPixels(double dx, double dy) {
    m_center.x -= dx / m_scale;
    m_center.y += dy / m_scale;
}

}  // namespace frame
