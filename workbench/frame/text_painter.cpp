#include "frame/text_painter.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace frame {

namespace {

constexpr double kSmallestReadable = 3;  // pixels of a capital letter
constexpr double kLargestDrawn = 3000;
constexpr double kCapitalsOfFont = 0.727;  // height of capitals in the font's em
constexpr double kLetterWidth = 0.62;      // of the height, on the average
constexpr std::size_t kMostFonts =
    256;  // a drawing with texts at every angle must not use up the system's handles

COLORREF ToColorRef(Color color) {
    return RGB((color >> 16) & 0xFF, (color >> 8) & 0xFF, color & 0xFF);
}

// The point of the baseline that the text's insertion point stands for.
WorldPoint BaselineOf(const DisplayText& text) {
    double down = 0;
    if (text.level == TextLevel::kBottom) down = -0.25 * text.height;
    if (text.level == TextLevel::kMiddle) down = 0.5 * text.height;
    if (text.level == TextLevel::kTop) down = text.height;
    return {text.at.x + down * std::sin(text.rotation), text.at.y - down * std::cos(text.rotation)};
}

UINT AlignmentOf(const DisplayText& text) {
    if (text.align == TextAlign::kCenter) return TA_BASELINE | TA_CENTER;
    return TA_BASELINE | (text.align == TextAlign::kRight ? TA_RIGHT : TA_LEFT);
}

}  // namespace

TextPainter::~TextPainter() {
    DropFonts();
}

void TextPainter::DropFonts() {
    for (const auto& [key, font] : m_fonts)
        DeleteObject(font);
    m_fonts.clear();
}

HFONT TextPainter::FontFor(int height, int tenthsOfDegree) {
    const auto key = std::make_pair(height, tenthsOfDegree);
    const auto known = m_fonts.find(key);
    if (known != m_fonts.end()) return known->second;
    LOGFONTW description{};
    description.lfHeight = -height;
    description.lfEscapement = description.lfOrientation = tenthsOfDegree;
    description.lfCharSet = DEFAULT_CHARSET;
    description.lfOutPrecision = OUT_TT_ONLY_PRECIS;
    description.lfQuality = ANTIALIASED_QUALITY;
    lstrcpyW(description.lfFaceName, L"Tahoma");
    return m_fonts.emplace(key, CreateFontIndirectW(&description)).first->second;
}

void TextPainter::Draw(HDC dc, const DisplayList& list, const ViewTransform& view, Color background,
                       std::size_t mostTexts) {
    const WorldBox visible = view.Visible();
    const HGDIOBJ fontBefore = SelectObject(dc, GetStockObject(DEFAULT_GUI_FONT));
    SetBkMode(dc, TRANSPARENT);
    SetGraphicsMode(dc, GM_ADVANCED);
    for (const DisplayText& text : list.Texts()) {
        const double height = text.height * view.Scale();
        if (height < kSmallestReadable || height > kLargestDrawn || !text.box.Overlaps(visible)) continue;
        if (mostTexts-- == 0) break;
        if (m_fonts.size() >= kMostFonts) {
            SelectObject(dc, GetStockObject(DEFAULT_GUI_FONT));
            DropFonts();
        }
        SetTextColor(dc, ToColorRef(IndexColor(text.color, background)));
        DrawOne(dc, text, view);
    }
    SelectObject(dc, fontBefore);
}

// A font's own width is a whole number of pixels, too coarse for small letters; so a stretched text gets its
// width, and with it its direction, from a transformation. The others are drawn by turned fonts, which look
// better.
void TextPainter::DrawOne(HDC dc, const DisplayText& text, const ViewTransform& view) {
    const int height = static_cast<int>(std::lround(text.height * view.Scale() / kCapitalsOfFont));
    const double stretch = std::clamp(text.widthFactor, 0.1, 10.0);
    const bool plain = std::abs(stretch - 1) < 0.01;
    const double degrees = text.rotation * 180 / std::numbers::pi;
    SelectObject(dc, FontFor(height, plain ? static_cast<int>(std::lround(degrees * 10)) : 0));
    SetTextAlign(dc, AlignmentOf(text));
    const ScreenPoint at = view.ToScreen(BaselineOf(text));
    if (!plain) {
        const double x = std::cos(text.rotation);
        const double y = std::sin(text.rotation);
        const XFORM turned{static_cast<float>(x * stretch), static_cast<float>(-y * stretch),
                           static_cast<float>(y),           static_cast<float>(x),
                           static_cast<float>(at.x),        static_cast<float>(at.y)};
        SetWorldTransform(dc, &turned);
    }
    const POINT origin{plain ? std::lround(at.x) : 0, plain ? std::lround(at.y) : 0};
    ExtTextOutW(dc, origin.x, origin.y, 0, nullptr, text.text.c_str(), static_cast<UINT>(text.text.size()),
                nullptr);
    if (!plain) ModifyWorldTransform(dc, nullptr, MWT_IDENTITY);
}

void TextPainter::DrawSmall(Canvas& canvas, const DisplayList& list, const ViewTransform& view,
                            Color background) {
    const WorldBox visible = view.Visible();
    for (const DisplayText& text : list.Texts()) {
        if (text.height * view.Scale() >= kSmallestReadable || !text.box.Overlaps(visible)) continue;
        const double length =
            text.height * kLetterWidth * text.widthFactor * static_cast<double>(text.text.size());
        const double from = text.align == TextAlign::kLeft ? 0 : text.align == TextAlign::kCenter ? -0.5 : -1;
        const WorldPoint base = BaselineOf(text);
        const double x = std::cos(text.rotation);
        const double y = std::sin(text.rotation);
        const double up = text.height / 2;
        const WorldPoint start{base.x + from * length * x - up * y, base.y + from * length * y + up * x};
        canvas.DrawLine(view.ToScreen(start), view.ToScreen({start.x + length * x, start.y + length * y}),
                        IndexColor(text.color, background));
    }
}

}  // namespace frame
