#include "frame/canvas.h"

#include <algorithm>
#include <cmath>

namespace frame {

namespace {

Color Mix(Color below, Color above, unsigned share256) {
    const unsigned keep = 256 - share256;
    const Color redBlue = ((below & 0xFF00FF) * keep + (above & 0xFF00FF) * share256) >> 8;
    const Color green = ((below & 0x00FF00) * keep + (above & 0x00FF00) * share256) >> 8;
    return (redBlue & 0xFF00FF) | (green & 0x00FF00);
}

bool Finite(ScreenPoint point) {
    return std::isfinite(point.x) && std::isfinite(point.y);
}

}  // namespace

void Canvas::Fill(Color color) {
    std::fill_n(m_pixels, static_cast<std::size_t>(m_width) * static_cast<std::size_t>(m_height), color);
}

void Canvas::Blend(int x, int y, Color color, double share) {
    if (x < 0 || y < 0 || x >= m_width || y >= m_height) return;
    Color& pixel = m_pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width) +
                            static_cast<std::size_t>(x)];
    pixel = Mix(pixel, color, static_cast<unsigned>(std::clamp(share, 0.0, 1.0) * 256));
}

void Canvas::DrawPoint(ScreenPoint at, Color color) {
    if (at.x < 0 || at.y < 0 || !(at.x < m_width) || !(at.y < m_height)) return;
    Blend(static_cast<int>(at.x), static_cast<int>(at.y), color, 1);
}

// Cuts the line down to the picture and a pixel around it, so that the loops below run over pixels in sight
// only.
bool Canvas::Clip(ScreenPoint& from, ScreenPoint& to) const {
    if (!Finite(from) || !Finite(to)) return false;
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    double first = 0;
    double last = 1;
    const auto cut = [&](double step, double distance) {
        if (step == 0) return distance >= 0;
        const double at = distance / step;
        if (step < 0) {
            first = std::max(first, at);
        } else {
            last = std::min(last, at);
        }
        return first <= last;
    };
    if (!cut(-dx, from.x + 1) || !cut(dx, m_width + 1 - from.x) || !cut(-dy, from.y + 1) ||
        !cut(dy, m_height + 1 - from.y))
        return false;
    const ScreenPoint start = from;
    from = {start.x + first * dx, start.y + first * dy};
    to = {start.x + last * dx, start.y + last * dy};
    return true;
}

void Canvas::DrawLine(ScreenPoint from, ScreenPoint to, Color color) {
    if (!Clip(from, to)) return;
    const bool steep = std::abs(to.y - from.y) > std::abs(to.x - from.x);
    // Along: the axis on which the line advances a pixel a step. Across: where the two pixels share the line.
    double along0 = steep ? from.y : from.x;
    double across0 = steep ? from.x : from.y;
    double along1 = steep ? to.y : to.x;
    double across1 = steep ? to.x : to.y;
    if (along0 > along1) {
        std::swap(along0, along1);
        std::swap(across0, across1);
    }
    const double length = along1 - along0;
    const double slope = length > 0 ? (across1 - across0) / length : 0;
    const int first = static_cast<int>(std::floor(along0));
    const int last = static_cast<int>(std::floor(along1));
    for (int along = first; along <= last; ++along) {
        // Pixel centres lie at halves; the ends of the line do not reach past themselves.
        const double center = std::clamp(along + 0.5, along0, std::max(along0, along1));
        const double across = across0 + (center - along0) * slope - 0.5;
        const int low = static_cast<int>(std::floor(across));
        const double share = across - low;
        if (steep) {
            Blend(low, along, color, 1 - share);
            Blend(low + 1, along, color, share);
        } else {
            Blend(along, low, color, 1 - share);
            Blend(along, low + 1, color, share);
        }
    }
}

void Canvas::FillPolygon(const std::vector<ScreenPoint>& corners, Color color) {
    if (corners.size() < 3 || !std::all_of(corners.begin(), corners.end(), Finite)) return;
    double top = corners[0].y;
    double bottom = corners[0].y;
    for (const ScreenPoint& corner : corners) {
        top = std::min(top, corner.y);
        bottom = std::max(bottom, corner.y);
    }
    const int firstRow = static_cast<int>(std::clamp(std::floor(top), 0.0, static_cast<double>(m_height)));
    const int lastRow = static_cast<int>(std::clamp(std::ceil(bottom), -1.0, m_height - 1.0));
    for (int row = firstRow; row <= lastRow; ++row) {
        const double y = row + 0.5;
        double left = m_width;
        double right = -1;
        for (std::size_t i = 0; i < corners.size(); ++i) {
            const ScreenPoint& a = corners[i];
            const ScreenPoint& b = corners[(i + 1) % corners.size()];
            if ((a.y > y) == (b.y > y)) continue;
            const double x = a.x + (y - a.y) / (b.y - a.y) * (b.x - a.x);
            left = std::min(left, x);
            right = std::max(right, x);
        }
        const int firstColumn = static_cast<int>(std::max(0.0, std::floor(left + 0.5)));
        const int lastColumn = static_cast<int>(std::min(m_width - 1.0, std::floor(right - 0.5)));
        for (int column = firstColumn; column <= lastColumn; ++column)
            Blend(column, row, color, 1);
    }
}

}  // namespace frame
