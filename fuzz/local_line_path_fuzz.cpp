// Any text as the path of a drawing: the path of its line file is made of it as documented, and the file
// listed.
//
// Input: pieces that end in a zero byte: the drawing, the application, the line file, a line of the drawing.
#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "database/line_list.h"
#include "fuzz_database.h"

namespace {

// What a long file shows, a short one shows too, in a hundredth of the time.
constexpr std::size_t kLongestInput = 512;

std::wstring GetExpectedWord(const std::wstring& drawing) {
    std::wstring word = drawing;
    const size_t dwg = drawing.find(L".dwg");
    if (dwg != std::wstring::npos) {
        const size_t slash = drawing.rfind(L'\\', dwg);
        const size_t start = slash == std::wstring::npos ? 0 : slash + 1;
        word = drawing.substr(start, drawing.find(L'\\', dwg) - start);
    }
    return word.substr(0, word.find(L'.'));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    size = std::min(size, kLongestInput);
    FuzzDatabase::Get().Start();
    FuzzInput input(data, size);
    const std::wstring drawing = input.TakeText();
    const std::wstring application = input.TakeText();
    const std::wstring path = GetLocalLineIniPath(drawing, application, 6);
    FUZZ_CHECK(path == FuzzDatabase::kLocal + application + L"_6_" + GetExpectedWord(drawing) + L"line.ini");
    if (input.IsEmpty()) return 0;

    FuzzDatabase::Get().PutFile(path, input.TakePiece());
    std::vector<std::wstring> lines(1, input.TakeText());
    std::erase(lines.front(), L'\n');  // text in a drawing has no line ends
    std::vector<int> ids;
    std::vector<std::wstring> names;
    std::vector<bool> flags;
    FUZZ_CHECK(GetLocalLineList(6, application, drawing, lines, ids, names, flags, true, true, false, true) ==
               kLineOk);
    FUZZ_CHECK(!ids.empty() && ids.size() == names.size() && ids.size() == flags.size());
    return 0;
}
