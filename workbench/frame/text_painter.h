// Draws a drawing's texts with the system's fonts.
#pragma once

#include <windows.h>

#include <cstdint>
#include <map>
#include <utility>

#include "frame/display_list.h"

namespace frame {

class TextPainter {
  public:
    TextPainter() = default;
    ~TextPainter();
    TextPainter(const TextPainter&) = delete;
    TextPainter& operator=(const TextPainter&) = delete;

    // Draws the texts in sight that are large enough to be read, the first `mostTexts` of them. `dc` draws
    // into the view's picture.
    void Draw(HDC dc, const DisplayList& list, const ViewTransform& view, Color background,
              std::size_t mostTexts = SIZE_MAX);
    // Draws a thin line in place of each text in sight that is too small to be read.
    static void DrawSmall(Canvas& canvas, const DisplayList& list, const ViewTransform& view,
                          Color background);

  private:
    void DrawOne(HDC dc, const DisplayText& text, const ViewTransform& view);
    HFONT FontFor(int height, int tenthsOfDegree);
    void DropFonts();

    std::map<std::pair<int, int>, HFONT> m_fonts;
};

}  // namespace frame
