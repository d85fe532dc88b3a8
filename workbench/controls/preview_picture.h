// The preview picture that binary drawing files carry in their header.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace controls {

enum class PreviewKind { kNone, kBitmap, kPng };

struct PreviewPicture {
    PreviewKind kind = PreviewKind::kNone;
    std::string_view bytes;  // of the picture, inside the file's
};

// Looks into the first bytes of a file of any kind. Every place and length in the header is checked against
// what is there; a PNG wins over a bitmap. kNone for anything that is not whole.
PreviewPicture FindPreviewPicture(std::string_view file);

// True for files that begin as the binary drawings of the CAD host do.
bool IsBinaryDrawing(std::string_view file);

// A device independent bitmap as it lies in a file: header, colour table, rows.
struct BitmapLayout {
    int width = 0;
    int height = 0;  // rows; below 0 for rows from the top down
    std::size_t bitsOffset = 0;
};

// False unless header, colour table and all rows lie inside `bytes`, for uncompressed pictures of 1 to 32
// bits a pixel, at most 4,096 pixels a side and 4,194,304 pixels in all.
bool MeasureBitmap(std::string_view bytes, BitmapLayout& layout);

// Reads the size that a PNG says of itself. False for other bytes, and beyond the limits of bitmaps: a few
// bytes can claim a picture that would take minutes to unpack.
bool MeasurePng(std::string_view bytes, int& width, int& height);

}  // namespace controls
