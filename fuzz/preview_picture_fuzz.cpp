// Looks for the preview picture in the input, and takes the picture apart as far as it is not left to the
// system: what is found lies inside the file, and every byte that drawing it would read is there. The input
// as text goes through the excerpt that drawings of the other kind are shown by.
#include <cstdint>
#include <string>
#include <string_view>

#include "controls/drawing_excerpt.h"
#include "controls/preview_picture.h"
#include "fuzz_check.h"

using namespace controls;

namespace {

constexpr int kLargestSide = 4096;
constexpr std::int64_t kMostPixels = 4 << 20;

void CheckSize(std::int64_t width, std::int64_t height) {
    FUZZ_CHECK(width >= 1 && width <= kLargestSide);
    FUZZ_CHECK(height >= 1 && height <= kLargestSide);
    FUZZ_CHECK(width * height <= kMostPixels);
}

// Reads a bitmap as the system would, row by row.
void CheckBitmap(std::string_view bytes) {
    BitmapLayout layout;
    if (!MeasureBitmap(bytes, layout)) return;
    const std::int64_t rows = layout.height < 0 ? -std::int64_t{layout.height} : layout.height;
    CheckSize(layout.width, rows);
    const auto bits = static_cast<std::int64_t>(static_cast<std::uint8_t>(bytes[14]));
    const std::int64_t rowSize = (layout.width * bits + 31) / 32 * 4;
    FUZZ_CHECK(layout.bitsOffset >= 40 && layout.bitsOffset <= 40 + 256 * 4);
    FUZZ_CHECK(layout.bitsOffset + static_cast<std::size_t>(rows * rowSize) <= bytes.size());
}

void CheckPng(std::string_view bytes) {
    int width = -1, height = -1;
    if (MeasurePng(bytes, width, height))
        CheckSize(width, height);
    else
        FUZZ_CHECK(width == -1 && height == -1);
}

void CheckPreview(std::string_view file) {
    const PreviewPicture picture = FindPreviewPicture(file);
    if (picture.kind == PreviewKind::kNone) {
        FUZZ_CHECK(picture.bytes.empty());
        return;
    }
    FUZZ_CHECK(IsBinaryDrawing(file));
    FUZZ_CHECK(!picture.bytes.empty());
    FUZZ_CHECK(picture.bytes.data() >= file.data());
    FUZZ_CHECK(picture.bytes.data() + picture.bytes.size() <= file.data() + file.size());
    picture.kind == PreviewKind::kPng ? CheckPng(picture.bytes) : CheckBitmap(picture.bytes);
}

void CheckExcerpt(std::string_view file) {
    const ExcerptLimits limits{3, 200};
    for (const bool isWhole : {true, false}) {
        const std::string excerpt = TakeDrawingExcerpt(file, isWhole, limits);
        const std::string again = TakeDrawingExcerpt(excerpt, true, limits);
        FUZZ_CHECK(excerpt.empty() || again == excerpt);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view file(reinterpret_cast<const char*>(data), size);
    CheckPreview(file);
    CheckBitmap(file);
    CheckPng(file);
    CheckExcerpt(file);
    return 0;
}
