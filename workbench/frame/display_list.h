// What the view draws, worked out once from a drawing: strokes, filled shapes and texts, each with its
// colour.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "frame/canvas.h"
#include "frame/view_transform.h"

namespace frame {

// Where a text's insertion point lies in the text.
enum class TextAlign { kLeft, kCenter, kRight };
enum class TextLevel { kBaseline, kBottom, kMiddle, kTop };

struct DisplayText {
    std::wstring text;
    WorldPoint at;
    double height = 0;    // of capital letters, in drawing units
    double rotation = 0;  // in radians, counter-clockwise
    double widthFactor = 1;
    TextAlign align = TextAlign::kLeft;
    TextLevel level = TextLevel::kBaseline;
    std::uint8_t color = 7;
    WorldBox box = {};  // roughly: letters are taken as square
};

// Shapes in the order of their places in the drawing, in small groups with a common box, so that a view which
// shows a corner of a large drawing passes by the rest.
class DisplayList {
  public:
    // `color` is a colour index from 1 to 255; 7 is drawn in the colour that contrasts with the background.
    void AddStroke(const std::vector<WorldPoint>& points, std::uint8_t color);
    // A convex shape.
    void AddFilled(const std::vector<WorldPoint>& corners, std::uint8_t color);
    void AddText(DisplayText text);
    // To be called after the last Add and before Draw.
    void Finish();

    bool Empty() const { return m_shapes.empty() && m_texts.empty(); }
    std::size_t ShapeCount() const { return m_shapes.size(); }
    const WorldBox& Extents() const { return m_extents; }
    const std::vector<DisplayText>& Texts() const { return m_texts; }

    // Draws strokes and filled shapes. A group smaller than a pixel becomes one pixel. The texts are the
    // caller's to draw, as only it knows fonts.
    void Draw(Canvas& canvas, const ViewTransform& view, Color background) const;

  private:
    struct Shape {
        std::uint32_t first = 0;  // of its points
        std::uint32_t count = 0;
        std::uint8_t color = 7;
        bool filled = false;
        WorldBox box;
    };
    struct Group {
        std::uint32_t first = 0;
        std::uint32_t count = 0;
        WorldBox box;
    };
    void AddShape(const std::vector<WorldPoint>& points, std::uint8_t color, bool filled);
    void DrawShape(Canvas& canvas, const ViewTransform& view, const Shape& shape, Color color) const;

    std::vector<WorldPoint> m_points;
    std::vector<Shape> m_shapes;
    std::vector<Group> m_groups;
    std::vector<DisplayText> m_texts;
    WorldBox m_extents;
};

// The colour of an index from 1 to 255 before `background`: 7 is black or white, whichever is seen; an index
// outside the range counts as 7.
Color IndexColor(int index, Color background);

}  // namespace frame
