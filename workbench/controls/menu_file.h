// The menu files (.tbm) of the tabbed menu control: tabs of items with icons. docs/menu-files.md tells the
// format.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace controls {

// The numbers that programs see as the kind of an item.
enum class ItemKind : short { kCommand = 0, kToggle = 1 };

struct MenuItem {
    int id = 0;  // from 1 to 32,767, once in a file
    ItemKind kind = ItemKind::kCommand;
    std::wstring icon;  // file name beside the menu file, below Icons
    std::wstring label;
    std::wstring tip;
    std::wstring text;  // what the event carries: a command's text, or a toggle's name
};

struct MenuTab {
    std::wstring label;
    std::vector<MenuItem> items;
};

struct MenuFile {
    std::vector<MenuTab> tabs;

    // Null if there is no such item.
    const MenuItem* FindItem(int id) const;
};

// Reads the bytes of a menu file. False, with the place of the fault in `error` ("Line 7: ..."), for anything
// that is not whole; `menu` is then empty.
bool ParseMenuFile(std::string_view bytes, MenuFile& menu, std::wstring& error);

}  // namespace controls
