// Any bytes as a size table: it is read, converted or refused. A refused table stays as it is, and a
// converted one reads as the same rows.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>

#include "fuzz_database.h"
#include "platform/invalid_argument.h"
#include "sizes/size_table.h"

namespace {

// What a long file shows, a short one shows too, in a hundredth of the time.
constexpr std::size_t kLongestInput = 768;

const std::wstring kTable = std::wstring(FuzzDatabase::kData) + L"Standards\\Piping\\ANSI\\size.tp";

using Rows = std::map<std::wstring, std::wstring>;

// The rows of a section that a file can hold: a row without a value vanishes.
Rows GetRows(CKV2D_IniFile& ini, int sizeSet) {
    ini.SetSection(GetSizeSetName(sizeSet));
    std::vector<std::wstring> keys, values;
    ini.GetSectionEntries(keys, values);
    Rows rows;
    for (size_t i = 0; i < keys.size(); ++i) {
        if (!values[i].empty()) rows[keys[i]] = values[i];
    }
    return rows;
}

void CheckReadAgain(CKV2D_IniFile& first) {
    DropSizeTableCache();
    CKV2D_IniFile second = LoadSizeTable(L"size.tp", L"ANSI");
    for (int sizeSet = 0; sizeSet < 4; ++sizeSet)
        FUZZ_CHECK(GetRows(first, sizeSet) == GetRows(second, sizeSet));
}

void CheckKey(std::string_view line) {
    std::wstring text = platform::GetText().Widen(line);
    std::wstring first, second;
    SplitSizeKey(text, first, second);
    NormaliseSizeKey(text);
    FUZZ_CHECK(text == (second.empty() ? first : first + L"X" + second));
    FUZZ_CHECK(first.size() >= 5 && (first[first.size() - 3] == L'.' || first.ends_with(L"inf")));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    size = std::min(size, kLongestInput);
    FuzzDatabase& database = FuzzDatabase::Get();
    database.Start();
    const std::string_view table(reinterpret_cast<const char*>(data), size);
    database.PutFile(kTable, table);
    CheckKey(table.substr(0, table.find('\n')));
    try {
        CKV2D_IniFile first = LoadSizeTable(L"size.tp", L"ANSI");
        FUZZ_CHECK(LoadSizeTable(L"Size.tp", L"ANSI").GetRowCount() == first.GetRowCount());
        CheckReadAgain(first);
    } catch (const platform::InvalidArgument&) {
        FUZZ_CHECK(database.GetBytes(kTable) == table);
    }
    return 0;
}
