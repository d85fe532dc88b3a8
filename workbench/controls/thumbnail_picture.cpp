#include "controls/thumbnail_picture.h"

#include <objidl.h>

// GDI+ wants these two from a header that defines them as macros.
#include <algorithm>
namespace Gdiplus {
using std::max;
using std::min;
}  // namespace Gdiplus
#include <gdiplus.h>
#include <shlwapi.h>

#include <vector>

#include "controls/drawing_excerpt.h"
#include "controls/file_bytes.h"
#include "controls/preview_picture.h"
#include "dbmain.h"
#include "drawing_file/drawing_reader.h"
#include "frame/drawing_display.h"
#include "frame/text_painter.h"

namespace controls {

namespace {

// Of a larger file the beginning is looked at: reading more over a slow network would hold up the designer.
constexpr std::size_t kMostFileBytes = 16u << 20;
// Entities that are drawn, those of blocks counted each time that they are seen.
constexpr std::size_t kMostPlacedEntities = 50'000;
// A small picture with more texts than these that can be read is covered by them; each costs up to a
// millisecond.
constexpr std::size_t kMostReadableTexts = 300;

frame::Color ToCanvasColor(COLORREF color) {
    return static_cast<frame::Color>(GetRValue(color)) << 16 |
           static_cast<frame::Color>(GetGValue(color)) << 8 | GetBValue(color);
}

// The largest rectangle of a picture's shape in the middle of the room.
RECT FitInto(int pictureWidth, int pictureHeight, int width, int height) {
    int fitWidth = width, fitHeight = MulDiv(width, pictureHeight, pictureWidth);
    if (fitHeight > height) {
        fitHeight = height;
        fitWidth = MulDiv(height, pictureWidth, pictureHeight);
    }
    const int left = (width - fitWidth) / 2, top = (height - fitHeight) / 2;
    return {left, top, left + fitWidth, top + fitHeight};
}

bool DrawBitmapPreview(std::string_view bytes, HDC dc, int width, int height) {
    BitmapLayout layout;
    if (!MeasureBitmap(bytes, layout)) return false;
    const int rows = layout.height < 0 ? -layout.height : layout.height;
    const RECT at = FitInto(layout.width, rows, width, height);
    // The header is copied: it lies unaligned in the file.
    std::vector<BYTE> header(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(layout.bitsOffset));
    auto* info = reinterpret_cast<BITMAPINFO*>(header.data());
    // True colours need no table, and the rows begin where one would lie.
    if (info->bmiHeader.biBitCount > 8) info->bmiHeader.biClrUsed = 0;
    SetStretchBltMode(dc, HALFTONE);
    return StretchDIBits(dc, at.left, at.top, at.right - at.left, at.bottom - at.top, 0, 0, layout.width,
                         rows, bytes.data() + layout.bitsOffset, info, DIB_RGB_COLORS, SRCCOPY) != 0;
}

// GDI+ for the length of one picture.
class GdiplusSession {
  public:
    GdiplusSession() {
        Gdiplus::GdiplusStartupInput input;
        m_started = Gdiplus::GdiplusStartup(&m_token, &input, nullptr) == Gdiplus::Ok;
    }
    ~GdiplusSession() {
        if (m_started) Gdiplus::GdiplusShutdown(m_token);
    }
    GdiplusSession(const GdiplusSession&) = delete;
    GdiplusSession& operator=(const GdiplusSession&) = delete;
    bool Started() const { return m_started; }

  private:
    ULONG_PTR m_token = 0;
    bool m_started = false;
};

bool DrawPngPreview(std::string_view bytes, HDC dc, int width, int height) {
    int pictureWidth = 0, pictureHeight = 0;
    if (!MeasurePng(bytes, pictureWidth, pictureHeight)) return false;
    const GdiplusSession session;
    if (!session.Started()) return false;
    IStream* stream =
        SHCreateMemStream(reinterpret_cast<const BYTE*>(bytes.data()), static_cast<UINT>(bytes.size()));
    if (!stream) return false;
    bool drawn = false;
    {
        Gdiplus::Bitmap picture(stream);
        if (picture.GetLastStatus() == Gdiplus::Ok && picture.GetWidth() > 0 && picture.GetHeight() > 0) {
            const RECT at = FitInto(static_cast<int>(picture.GetWidth()),
                                    static_cast<int>(picture.GetHeight()), width, height);
            Gdiplus::Graphics graphics(dc);
            graphics.SetInterpolationMode(Gdiplus::InterpolationModeHighQualityBicubic);
            drawn = graphics.DrawImage(&picture, static_cast<INT>(at.left), static_cast<INT>(at.top),
                                       static_cast<INT>(at.right - at.left),
                                       static_cast<INT>(at.bottom - at.top)) == Gdiplus::Ok;
        }
    }
    stream->Release();
    return drawn;
}

bool DrawModel(std::string_view excerpt, HDC dc, std::uint32_t* pixels, int width, int height,
               frame::Color back) {
    AcDbDatabase database(false, true);
    std::wstring error;
    if (!workbench::drawing_file::ReadDrawing(excerpt, database, error)) return false;
    const frame::DisplayList list = frame::BuildDisplayList(&database, kMostPlacedEntities);
    frame::ViewTransform view;
    view.SetWindowSize(width, height);
    view.ZoomExtents(list.Extents());
    GdiFlush();
    frame::Canvas canvas(pixels, width, height);
    list.Draw(canvas, view, back);
    frame::TextPainter::DrawSmall(canvas, list, view, back);
    frame::TextPainter painter;
    painter.Draw(dc, list, view, back, kMostReadableTexts);
    return true;
}

}  // namespace

bool DrawThumbnail(const std::wstring& path, HDC dc, std::uint32_t* pixels, int width, int height,
                   COLORREF back) {
    const frame::Color canvasBack = ToCanvasColor(back);
    std::fill_n(pixels, static_cast<std::size_t>(width) * static_cast<std::size_t>(height), canvasBack);
    std::string bytes;
    bool isWhole = false;
    if (path.empty() || !ReadFileStart(path, kMostFileBytes, bytes, isWhole)) return false;
    if (!IsBinaryDrawing(bytes))
        return DrawModel(TakeDrawingExcerpt(bytes, isWhole), dc, pixels, width, height, canvasBack);
    const PreviewPicture preview = FindPreviewPicture(bytes);
    if (preview.kind == PreviewKind::kPng) return DrawPngPreview(preview.bytes, dc, width, height);
    return preview.kind == PreviewKind::kBitmap && DrawBitmapPreview(preview.bytes, dc, width, height);
}

}  // namespace controls
