#include "frame/display_list.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace frame {

namespace {

constexpr std::size_t kGroupSize = 32;
constexpr double kPointSize = 0.8;  // of a pixel: below this a shape is one point

// Interleaves the bits of two 16-bit numbers: neighbours in the plane become neighbours in the order.
std::uint32_t Interleave(std::uint32_t x, std::uint32_t y) {
    const auto spread = [](std::uint32_t v) {
        v = (v | (v << 8)) & 0x00FF00FF;
        v = (v | (v << 4)) & 0x0F0F0F0F;
        v = (v | (v << 2)) & 0x33333333;
        return (v | (v << 1)) & 0x55555555;
    };
    return spread(x) | (spread(y) << 1);
}

Color Rgb(double red, double green, double blue) {
    const auto part = [](double v) { return static_cast<Color>(std::lround(std::clamp(v, 0.0, 1.0) * 255)); };
    return (part(red) << 16) | (part(green) << 8) | part(blue);
}

// Indices from 10 on run around the colour circle in steps of 15 degrees; in each step five brightnesses,
// each in full and in half saturation.
Color WheelColor(int index) {
    static constexpr std::array<double, 5> kBrightness = {1.0, 0.65, 0.5, 0.3, 0.15};
    const double hue = (index - 10) / 10 * 15 / 60.0;
    const double value = kBrightness[static_cast<std::size_t>(index % 10 / 2)];
    const double low = index % 2 == 0 ? 0.0 : value / 2;
    const auto channel = [&](double shift) {
        const double at = std::fmod(hue + shift, 6.0);
        const double share = std::clamp(std::abs(at - 3.0) - 1.0, 0.0, 1.0);
        return low + (value - low) * share;
    };
    return Rgb(channel(0), channel(4), channel(2));
}

bool IsLight(Color color) {
    return ((color >> 16) & 0xFF) + ((color >> 8) & 0xFF) + (color & 0xFF) > 3 * 128;
}

}  // namespace

Color IndexColor(int index, Color background) {
    switch (index) {
        case 1:
            return 0xFF0000;
        case 2:
            return IsLight(background) ? 0xB0A000 : 0xFFFF00;
        case 3:
            return IsLight(background) ? 0x00A000 : 0x00FF00;
        case 4:
            return IsLight(background) ? 0x009AA0 : 0x00FFFF;
        case 5:
            return IsLight(background) ? 0x0000FF : 0x4060FF;
        case 6:
            return 0xFF00FF;
        case 8:
            return 0x808080;
        case 9:
            return 0xC0C0C0;
        default:
            break;
    }
    if (index >= 10 && index <= 249) return WheelColor(index);
    if (index >= 250 && index <= 255) {
        const double gray = 0.2 + (index - 250) * 0.16;
        return Rgb(gray, gray, gray);
    }
    return IsLight(background) ? 0x000000 : 0xFFFFFF;
}

void DisplayList::AddStroke(const std::vector<WorldPoint>& points, std::uint8_t color) {
    AddShape(points, color, false);
}

void DisplayList::AddFilled(const std::vector<WorldPoint>& corners, std::uint8_t color) {
    AddShape(corners, color, true);
}

void DisplayList::AddShape(const std::vector<WorldPoint>& points, std::uint8_t color, bool filled) {
    Shape shape;
    shape.first = static_cast<std::uint32_t>(m_points.size());
    shape.color = color;
    shape.filled = filled;
    for (const WorldPoint& point : points) {
        if (!std::isfinite(point.x) || !std::isfinite(point.y)) continue;
        m_points.push_back(point);
        shape.box.Add(point);
    }
    shape.count = static_cast<std::uint32_t>(m_points.size()) - shape.first;
    if (shape.count == 0) return;
    m_extents.Add(shape.box);
    m_shapes.push_back(shape);
}

void DisplayList::AddText(DisplayText text) {
    if (text.text.empty() || !(text.height > 0) || !std::isfinite(text.at.x) || !std::isfinite(text.at.y))
        return;
    // Turned or aligned either way, the text stays within its length of the insertion point.
    const double reach =
        text.height * std::max(1.0, static_cast<double>(text.text.size()) * text.widthFactor);
    const double along = text.align == TextAlign::kCenter ? reach / 2 : reach;
    const double sign = text.align == TextAlign::kRight ? -1 : 1;
    const WorldPoint end{text.at.x + sign * along * std::cos(text.rotation),
                         text.at.y + sign * along * std::sin(text.rotation)};
    text.box = {};
    text.box.Add(text.at);
    text.box.Add(end);
    if (text.align == TextAlign::kCenter)
        text.box.Add(WorldPoint{2 * text.at.x - end.x, 2 * text.at.y - end.y});
    text.box.Add(WorldPoint{text.box.minX - text.height, text.box.minY - text.height});
    text.box.Add(WorldPoint{text.box.maxX + text.height, text.box.maxY + text.height});
    m_extents.Add(text.at);
    m_texts.push_back(std::move(text));
}

void DisplayList::Finish() {
    const double width = std::max(m_extents.Width(), 1e-12);
    const double height = std::max(m_extents.Height(), 1e-12);
    const auto place = [&](const Shape& shape) {
        const double x = ((shape.box.minX + shape.box.maxX) / 2 - m_extents.minX) / width;
        const double y = ((shape.box.minY + shape.box.maxY) / 2 - m_extents.minY) / height;
        return Interleave(static_cast<std::uint32_t>(std::clamp(x, 0.0, 1.0) * 65535),
                          static_cast<std::uint32_t>(std::clamp(y, 0.0, 1.0) * 65535));
    };
    std::vector<std::pair<std::uint32_t, Shape>> ordered;
    ordered.reserve(m_shapes.size());
    for (const Shape& shape : m_shapes)
        ordered.emplace_back(place(shape), shape);
    std::stable_sort(ordered.begin(), ordered.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    m_groups.clear();
    for (std::size_t i = 0; i < ordered.size(); ++i) {
        m_shapes[i] = ordered[i].second;
        if (i % kGroupSize == 0) m_groups.push_back({static_cast<std::uint32_t>(i), 0, {}});
        ++m_groups.back().count;
        m_groups.back().box.Add(m_shapes[i].box);
    }
}

void DisplayList::Draw(Canvas& canvas, const ViewTransform& view, Color background) const {
    std::array<Color, 256> colors;
    for (std::size_t i = 0; i < colors.size(); ++i)
        colors[i] = IndexColor(static_cast<int>(i), background);
    const WorldBox visible = view.Visible();
    const auto isPoint = [&](const WorldBox& box) {
        return std::max(box.Width(), box.Height()) * view.Scale() < kPointSize;
    };
    const auto drawPoint = [&](const WorldBox& box, std::uint8_t color) {
        canvas.DrawPoint(view.ToScreen({box.minX, box.minY}), colors[color]);
    };
    for (const Group& group : m_groups) {
        if (!group.box.Overlaps(visible)) continue;
        if (isPoint(group.box)) {
            drawPoint(group.box, m_shapes[group.first].color);
            continue;
        }
        for (std::uint32_t i = group.first; i < group.first + group.count; ++i) {
            const Shape& shape = m_shapes[i];
            if (!shape.box.Overlaps(visible)) continue;
            if (isPoint(shape.box)) {
                drawPoint(shape.box, shape.color);
            } else {
                DrawShape(canvas, view, shape, colors[shape.color]);
            }
        }
    }
}

void DisplayList::DrawShape(Canvas& canvas, const ViewTransform& view, const Shape& shape,
                            Color color) const {
    if (shape.filled) {
        std::vector<ScreenPoint> corners;
        for (std::uint32_t i = 0; i < shape.count; ++i)
            corners.push_back(view.ToScreen(m_points[shape.first + i]));
        canvas.FillPolygon(corners, color);
        return;
    }
    ScreenPoint from = view.ToScreen(m_points[shape.first]);
    for (std::uint32_t i = 1; i < shape.count; ++i) {
        const ScreenPoint to = view.ToScreen(m_points[shape.first + i]);
        canvas.DrawLine(from, to, color);
        from = to;
    }
}

}  // namespace frame
