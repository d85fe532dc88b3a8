// Any bytes as a line file and as a counter file: lists, look-ups, creating and renaming. Many lines that
// join a file at once must leave what creating and renaming them one by one leaves.
//
// Input: pieces that end in a zero byte: the line file, the counter file, a letter that selects what is
// checked with a text to look up behind it, names of lines.
#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "database/line_file.h"
#include "database/line_list.h"
#include "fuzz_database.h"

namespace {

// What a long file shows, a short one shows too, in a hundredth of the time.
constexpr std::size_t kLongestInput = 768;

const std::wstring kLines = std::wstring(FuzzDatabase::kData) + L"Projects\\KV2D_PRJ_5 - P\\Lines.ini";
const std::wstring kCounter = std::wstring(FuzzDatabase::kData) + L"LineDatafile.ini";

struct LineLists {
    std::vector<int> ids;
    std::vector<std::wstring> names;
    std::vector<bool> flags;
};

LineLists FetchLines(bool live, bool deleted) {
    LineLists lists;
    FUZZ_CHECK(GetLineList(5, lists.ids, lists.names, lists.flags, live, deleted, false, false) == kLineOk);
    FUZZ_CHECK(lists.ids.size() == lists.names.size() && lists.ids.size() == lists.flags.size());
    FUZZ_CHECK(std::is_sorted(lists.names.begin(), lists.names.end()));
    return lists;
}

void CheckLists(const std::wstring& text) {
    const LineLists live = FetchLines(true, false);
    const LineLists all = FetchLines(true, true);
    FUZZ_CHECK(std::count(all.flags.begin(), all.flags.end(), true) ==
               static_cast<ptrdiff_t>(live.ids.size()));
    const int id = LineIdFromKey(5, text, true, false);
    const bool isKey = LineIdFromKey(5, text, false, false) != 0;
    FUZZ_CHECK(isKey || id == 0 || std::count(live.ids.begin(), live.ids.end(), id) > 0);
}

// The bytes of a file after other programs have read and saved it, as often as that changes anything: rows
// without a value are gone then, and a key that ends in " =" gets shorter with each save.
std::string ReadAndSave(const std::wstring& path) {
    std::string before, after;
    do {
        before = FuzzDatabase::Get().GetBytes(path);
        CKV2D_IniFile ini;
        ini.Open(path);
        ini.Save(true);
        after = FuzzDatabase::Get().GetBytes(path);
    } while (after != before);
    return after;
}

void CheckCreatingAndRenaming(const std::wstring& newName) {
    // A key that ends in " =" may become the new line's key with the next save, and its row takes that line's
    // place.
    ReadAndSave(kLines);
    CKV2D_IniFile before;
    before.Open(kLines);
    int id = 0;
    std::wstring name;
    FUZZ_CHECK(CreateLine(5, id, name) == kLineOk);
    // A row without a key may bear the name too: a search ends there and finds nothing.
    FUZZ_CHECK(FindLineKeyByName(before, name, true, true).empty());
    const LineLists created = FetchLines(true, true);
    FUZZ_CHECK(std::count(created.names.begin(), created.names.end(), name) > 0);
    const auto row = std::find(created.ids.begin(), created.ids.end(), id);
    FUZZ_CHECK(id < 1 || row != created.ids.end());

    std::wstring trimmed = newName;
    const bool isValid = ValidateLineName(trimmed) == kLineOk;
    const int code = RenameLine(5, id, newName);
    FUZZ_CHECK(code == kLineOk || code == kLineInvalidId || code == kLineInvalidName ||
               code == kLineAlreadyExists || code == kLineIsDeleted);
    FUZZ_CHECK(id < 1 || isValid == (code != kLineInvalidName));
    // A name with a line end, or one that a file reads as a header, does not come back; the input holds no
    // such end.
    if (code == kLineOk) {
        const LineLists renamed = FetchLines(true, true);
        FUZZ_CHECK(trimmed.find(L'\n') != std::wstring::npos ||
                   std::count(renamed.names.begin(), renamed.names.end(), trimmed) > 0);
    }
}

void CheckJoiningLines(std::string_view lines, std::string_view counter,
                       const std::vector<std::wstring>& names) {
    FuzzDatabase& database = FuzzDatabase::Get();
    const CLineFiles atOnce{L"at once", L"counter"}, oneByOne{L"one by one", L"other counter"};
    for (const CLineFiles& files : {atOnce, oneByOne}) {
        database.PutFile(files.strLines, lines);
        database.PutFile(files.strCounter, counter);
    }
    AddLinesToFile(atOnce, names);
    for (const std::wstring& name : names) {
        int id = 0;
        std::wstring defaultName;
        CreateLineInFile(oneByOne, id, defaultName);
        std::wstring newName = name;
        if (CheckRename(6, id, newName) == kLineOk) RenameLineInFile(oneByOne.strLines, id, newName);
    }
    FUZZ_CHECK(ReadAndSave(atOnce.strCounter) == ReadAndSave(oneByOne.strCounter));
    FUZZ_CHECK(ReadAndSave(atOnce.strLines) == ReadAndSave(oneByOne.strLines));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    size = std::min(size, kLongestInput);
    FuzzDatabase& database = FuzzDatabase::Get();
    database.Start();
    FuzzInput input(data, size);
    const std::string_view lines = input.TakePiece();
    const std::string_view counter = input.TakePiece();
    std::wstring text = input.TakeText();
    const wchar_t check = text.empty() ? L'\0' : text.front();
    if (check != L'\0') text.erase(0, 1);
    std::vector<std::wstring> names;
    while (!input.IsEmpty() && names.size() < 6)
        names.push_back(input.TakeText());
    // Text in a drawing has no line ends.
    for (std::wstring& name : names)
        std::erase(name, L'\n');

    database.PutFile(kLines, lines);
    database.PutFile(kCounter, counter);
    switch (check) {
        case L'l':
            CheckLists(text);
            break;
        case L'c':
            CheckCreatingAndRenaming(text);
            break;
        default:
            CheckJoiningLines(lines, counter, names);
    }
    return 0;
}
