// Reads the input as a menu file. One that is refused leaves an empty menu and names its line; one that is
// read keeps the rules of the format, and written down again it reads as the same menu.
#include <cstdint>
#include <set>
#include <string>
#include <string_view>

#include "controls/menu_file.h"
#include "fuzz_check.h"

using controls::ItemKind;
using controls::MenuFile;
using controls::MenuItem;

namespace {

void AppendUtf8(std::string& bytes, char32_t letter) {
    const auto add = [&bytes](char32_t byte) { bytes += static_cast<char>(byte); };
    if (letter < 0x80) return add(letter);
    if (letter < 0x800) {
        add(0xC0 | letter >> 6);
    } else if (letter < 0x10000) {
        add(0xE0 | letter >> 12);
        add(0x80 | (letter >> 6 & 0x3F));
    } else {
        add(0xF0 | letter >> 18);
        add(0x80 | (letter >> 12 & 0x3F));
        add(0x80 | (letter >> 6 & 0x3F));
    }
    add(0x80 | (letter & 0x3F));
}

std::string ToUtf8(const std::wstring& text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto letter = static_cast<char32_t>(text[i]);
        const bool isPair =
            sizeof(wchar_t) == 2 && letter >= 0xD800 && letter < 0xDC00 && i + 1 < text.size();
        if (isPair)
            letter = 0x10000 + ((letter - 0xD800) << 10) + (static_cast<char32_t>(text[++i]) - 0xDC00);
        AppendUtf8(bytes, letter);
    }
    return bytes;
}

std::string Write(const MenuFile& menu) {
    std::string bytes = "TabbedMenu\t1\r\n";
    for (const controls::MenuTab& tab : menu.tabs) {
        bytes += "Tab\t" + ToUtf8(tab.label) + "\r\n";
        for (const MenuItem& item : tab.items) {
            bytes += item.kind == ItemKind::kToggle ? "Toggle\t" : "Command\t";
            bytes += std::to_string(item.id);
            for (const std::wstring* field : {&item.icon, &item.label, &item.tip, &item.text})
                bytes += "\t" + ToUtf8(*field);
            bytes += "\r\n";
        }
    }
    return bytes;
}

void CheckItem(const MenuFile& menu, const MenuItem& item, std::set<int>& ids) {
    FUZZ_CHECK(item.id >= 1 && item.id <= 32767);
    FUZZ_CHECK(ids.insert(item.id).second);
    FUZZ_CHECK(menu.FindItem(item.id) == &item);
    FUZZ_CHECK(item.icon.find_first_of(L"\\/:") == std::wstring::npos);
    FUZZ_CHECK(!item.text.empty());
    for (const std::wstring* field : {&item.icon, &item.label, &item.tip, &item.text})
        FUZZ_CHECK(field->find_first_of(L"\t\n") == std::wstring::npos);
}

bool IsSame(const MenuItem& a, const MenuItem& b) {
    return a.id == b.id && a.kind == b.kind && a.icon == b.icon && a.label == b.label && a.tip == b.tip &&
           a.text == b.text;
}

void CheckSame(const MenuFile& first, const MenuFile& second) {
    FUZZ_CHECK(first.tabs.size() == second.tabs.size());
    for (std::size_t i = 0; i < first.tabs.size(); ++i) {
        FUZZ_CHECK(first.tabs[i].label == second.tabs[i].label);
        FUZZ_CHECK(first.tabs[i].items.size() == second.tabs[i].items.size());
        for (std::size_t k = 0; k < first.tabs[i].items.size(); ++k)
            FUZZ_CHECK(IsSame(first.tabs[i].items[k], second.tabs[i].items[k]));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    MenuFile menu;
    std::wstring error;
    if (!ParseMenuFile(bytes, menu, error)) {
        FUZZ_CHECK(menu.tabs.empty());
        FUZZ_CHECK(error.starts_with(L"Line ") && error.ends_with(L"."));
        return 0;
    }
    FUZZ_CHECK(error.empty());
    std::set<int> ids;
    for (const controls::MenuTab& tab : menu.tabs) {
        FUZZ_CHECK(!tab.label.empty());
        for (const MenuItem& item : tab.items)
            CheckItem(menu, item, ids);
    }
    MenuFile again;
    FUZZ_CHECK(ParseMenuFile(Write(menu), again, error));
    CheckSame(menu, again);
    return 0;
}
