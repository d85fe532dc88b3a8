#include "controls/preview_picture.h"

#include <cstdlib>

namespace controls {

namespace {

constexpr std::string_view kDrawingMark = "AC10";
constexpr std::size_t kPreviewAddressAt = 13;
// Opens the block of pictures.
constexpr std::string_view kSentinel("\x1F\x25\x6D\x07\xD4\x36\x28\x28\x9D\x57\xCA\x3F\x9D\x44\x10\x2B", 16);
constexpr std::size_t kCountAfterSentinel = 4;  // behind the block's size
constexpr std::size_t kEntrySize = 9;           // code, start, size
constexpr std::uint8_t kBitmapCode = 2;
constexpr std::uint8_t kPngCode = 6;
constexpr int kMostPictures = 16;

constexpr std::uint32_t kBitmapHeaderSize = 40;
constexpr int kLargestSide = 4096;
constexpr std::int64_t kMostPixels = 4 << 20;
constexpr std::uint32_t kUncompressed = 0;

// What a PNG begins with: its mark, then the length and the type of its first chunk, then width and height.
constexpr std::string_view kPngStart("\x89PNG\r\n\x1A\n\0\0\0\rIHDR", 16);

// Little-endian numbers out of bytes, with every place checked.
class Bytes {
  public:
    explicit Bytes(std::string_view bytes) : m_bytes(bytes) {}
    bool Has(std::size_t at, std::size_t count) const {
        return at <= m_bytes.size() && count <= m_bytes.size() - at;
    }
    std::uint32_t Number(std::size_t at, std::size_t count) const {
        std::uint32_t number = 0;
        for (std::size_t i = count; i-- > 0;)
            number = number << 8 | static_cast<std::uint8_t>(m_bytes[at + i]);
        return number;
    }
    std::uint32_t BigNumber(std::size_t at) const {
        std::uint32_t number = 0;
        for (std::size_t i = 0; i < 4; ++i)
            number = number << 8 | static_cast<std::uint8_t>(m_bytes[at + i]);
        return number;
    }
    std::string_view Part(std::size_t at, std::size_t count) const { return m_bytes.substr(at, count); }

  private:
    std::string_view m_bytes;
};

bool IsSensibleSize(std::int64_t width, std::int64_t height) {
    return width >= 1 && height >= 1 && width <= kLargestSide && height <= kLargestSide &&
           width * height <= kMostPixels;
}

}  // namespace

bool IsBinaryDrawing(std::string_view file) {
    return file.size() > kPreviewAddressAt && file.starts_with(kDrawingMark) && file[6] == '\0';
}

PreviewPicture FindPreviewPicture(std::string_view file) {
    PreviewPicture found;
    const Bytes bytes(file);
    if (!IsBinaryDrawing(file) || !bytes.Has(kPreviewAddressAt, 4)) return found;
    const std::size_t block = bytes.Number(kPreviewAddressAt, 4);
    const std::size_t count_at = block + kSentinel.size() + kCountAfterSentinel;
    if (!bytes.Has(block, kSentinel.size() + kCountAfterSentinel + 1) ||
        bytes.Part(block, kSentinel.size()) != kSentinel)
        return found;
    const std::uint32_t count = bytes.Number(count_at, 1);
    for (std::uint32_t i = 0; i < count && i < kMostPictures; ++i) {
        const std::size_t entry = count_at + 1 + i * kEntrySize;
        if (!bytes.Has(entry, kEntrySize)) break;
        const std::uint32_t code = bytes.Number(entry, 1);
        const std::size_t start = bytes.Number(entry + 1, 4), size = bytes.Number(entry + 5, 4);
        if (size == 0 || !bytes.Has(start, size)) continue;
        if (code == kPngCode) return {PreviewKind::kPng, bytes.Part(start, size)};
        if (code == kBitmapCode) found = {PreviewKind::kBitmap, bytes.Part(start, size)};
    }
    return found;
}

bool MeasureBitmap(std::string_view picture, BitmapLayout& layout) {
    const Bytes bytes(picture);
    if (!bytes.Has(0, kBitmapHeaderSize) || bytes.Number(0, 4) != kBitmapHeaderSize) return false;
    const auto width = static_cast<std::int32_t>(bytes.Number(4, 4));
    const auto height = static_cast<std::int32_t>(bytes.Number(8, 4));
    const std::uint32_t bits = bytes.Number(14, 2);
    if (!IsSensibleSize(width, std::abs(std::int64_t{height}))) return false;
    if (bits != 1 && bits != 4 && bits != 8 && bits != 24 && bits != 32) return false;
    if (bytes.Number(16, 4) != kUncompressed) return false;
    std::size_t colors = bytes.Number(32, 4);
    if (bits > 8)
        colors = 0;
    else if (colors == 0)
        colors = std::size_t{1} << bits;
    else if (colors > std::size_t{1} << bits)
        return false;
    const std::size_t rowSize = (static_cast<std::size_t>(width) * bits + 31) / 32 * 4;
    layout = {width, height, kBitmapHeaderSize + colors * 4};
    return bytes.Has(layout.bitsOffset, rowSize * static_cast<std::size_t>(std::abs(height)));
}

bool MeasurePng(std::string_view picture, int& width, int& height) {
    const Bytes bytes(picture);
    if (!picture.starts_with(kPngStart) || !bytes.Has(kPngStart.size(), 8)) return false;
    const std::int64_t across = bytes.BigNumber(kPngStart.size()),
                       down = bytes.BigNumber(kPngStart.size() + 4);
    if (!IsSensibleSize(across, down)) return false;
    width = static_cast<int>(across);
    height = static_cast<int>(down);
    return true;
}

}  // namespace controls
