// Reads the input as a drawing. One that is refused leaves an empty database and a text for the user; one
// that is read is written, read again and written again, and the two writings are the same byte for byte.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "database/database_data.h"
#include "drawing_file/drawing_reader.h"
#include "drawing_file/drawing_writer.h"

using workbench::drawing_file::ReadDrawing;
using workbench::drawing_file::WriteDrawing;

namespace {

// Room for a record of every kind; longer ones take the time of many.
constexpr std::size_t kLongestInput = 16 * 1024;

[[noreturn]] void Fail(const char* what, const std::string& first, const std::string& second) {
    std::fprintf(stderr, "%s\n--- first\n%s\n--- second\n%s\n", what, first.c_str(), second.c_str());
    std::abort();
}

// Some lines on either side of a place.
std::string Around(const std::string& text, std::ptrdiff_t place) {
    const auto from = static_cast<std::size_t>(std::max<std::ptrdiff_t>(0, place - 200));
    return text.substr(from, 400);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > kLongestInput) return 0;
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    AcDbDatabase drawing(false, true);
    std::wstring error;
    if (!ReadDrawing(bytes, drawing, error)) {
        if (error.empty()) Fail("a drawing is refused without a word", bytes, "");
        if (!workbench::database::DataOf(drawing).stubs.empty())
            Fail("a refused drawing leaves objects", bytes, "");
        return 0;
    }
    const std::string first = WriteDrawing(drawing);
    AcDbDatabase again(false, true);
    if (!ReadDrawing(first, again, error)) {
        Fail("a drawing of ours is refused", first, std::string(error.begin(), error.end()));
    }
    const std::string second = WriteDrawing(again);
    if (first != second) {
        const auto ends = std::mismatch(first.begin(), first.end(), second.begin(), second.end());
        Fail("a drawing changes when it is saved again", Around(first, ends.first - first.begin()),
             Around(second, ends.second - second.begin()));
    }
    return 0;
}
