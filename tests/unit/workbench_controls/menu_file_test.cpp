#include "controls/menu_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "controls/utf8.h"

using controls::ItemKind;
using controls::MenuFile;

namespace {

std::wstring ErrorOf(const std::string& bytes) {
    MenuFile menu;
    std::wstring error;
    EXPECT_FALSE(ParseMenuFile(bytes, menu, error)) << bytes;
    EXPECT_TRUE(menu.tabs.empty());
    return error;
}

const std::string kStart = "TabbedMenu\t1\nTab\tA\n";

}  // namespace

TEST(MenuFile, TabsAndItems) {
    MenuFile menu;
    std::wstring error;
    ASSERT_TRUE(
        ParseMenuFile("\xEF\xBB\xBFTabbedMenu\t1\r\n# note\r\n\r\nTab\tValves\r\n"
                      "Command\t101\tgate.ico\tGate\tGate valve\t(c:gate)\r\n"
                      "Toggle\t102\t\tAuto\t\tAutoTag\r\nTab\tEmpty",
                      menu, error));
    ASSERT_EQ(menu.tabs.size(), 2u);
    EXPECT_EQ(menu.tabs[0].label, L"Valves");
    ASSERT_EQ(menu.tabs[0].items.size(), 2u);
    EXPECT_EQ(menu.tabs[0].items[0].icon, L"gate.ico");
    EXPECT_EQ(menu.tabs[0].items[0].text, L"(c:gate)");
    EXPECT_EQ(menu.FindItem(101)->kind, ItemKind::kCommand);
    EXPECT_EQ(menu.FindItem(102)->kind, ItemKind::kToggle);
    EXPECT_EQ(menu.FindItem(103), nullptr);
    EXPECT_TRUE(menu.tabs[1].items.empty());
}

TEST(MenuFile, Faults_NameTheirLine) {
    EXPECT_EQ(ErrorOf(""), L"Line 0: this is not a menu file.");
    EXPECT_EQ(ErrorOf("Menu\t1\n"), L"Line 1: this is not a menu file.");
    EXPECT_EQ(ErrorOf("TabbedMenu\t2\n"), L"Line 1: this menu file is of another version.");
    EXPECT_EQ(ErrorOf("TabbedMenu\t1\nCommand\t1\t\ta\tb\tc\n"), L"Line 2: an item stands below a tab.");
    EXPECT_EQ(ErrorOf(kStart + "Command\t1\t\ta\tb\n"),
              L"Line 3: an item has a number, an icon, a label, a tip and a text.");
    EXPECT_EQ(ErrorOf(kStart + "Something\n"), L"Line 3: a line begins with Tab, Command or Toggle.");
    EXPECT_EQ(ErrorOf(kStart + "Command\t1\t..\\a.ico\ta\tb\tc\n"),
              L"Line 3: an icon is named without a folder.");
    EXPECT_EQ(ErrorOf(kStart + "Command\t1\t\ta\tb\tc\nToggle\t1\t\ta\tb\tc\n"),
              L"Line 4: the number is taken by another item.");
    EXPECT_EQ(ErrorOf(kStart + "Tab\t\xFF\n"), L"Line 3: the text is not UTF-8.");
}

TEST(MenuFile, FaultsOfTabsAndItems_AreTold) {
    EXPECT_EQ(ErrorOf("TabbedMenu\t1\nTab\t\n"), L"Line 2: a tab has a label and nothing else.");
    EXPECT_EQ(ErrorOf("TabbedMenu\t1\nTab\tA\tB\n"), L"Line 2: a tab has a label and nothing else.");
    EXPECT_EQ(ErrorOf(kStart + "Toggle\t1\ta.ico\tb\tc\t\n"), L"Line 3: an item has a text.");
    EXPECT_EQ(ErrorOf(kStart + "command\t1\t\ta\tb\tc\n"),
              L"Line 3: a line begins with Tab, Command or Toggle.");
    EXPECT_EQ(ErrorOf("TabbedMenu 1\n"), L"Line 1: this is not a menu file.");
}

TEST(MenuFile, ItemNumbers_AreShortAndAboveZero) {
    for (const char* number : {"0", "-1", "32768", "99999999999999999999", "", "1x"})
        EXPECT_EQ(ErrorOf(kStart + "Command\t" + number + "\t\ta\tb\tc\n"),
                  L"Line 3: an item's number lies between 1 and 32767.")
            << number;
}

TEST(Utf8, TornOverlongAndSurrogateBytes_AreRefused) {
    std::wstring text;
    for (const char* bytes : {"\xC3", "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\x80", "\xE2\x82"})
        EXPECT_FALSE(controls::Utf8ToWide(bytes, text));
    EXPECT_TRUE(controls::Utf8ToWide("\xC3\xA9\xE2\x82\xAC", text));
    EXPECT_EQ(text, L"\u00E9\u20AC");
}

TEST(MenuFile, DemonstrationMenus_AreWhole) {
    int count = 0;
    for (const auto& entry :
         std::filesystem::recursive_directory_iterator(KV2D_DEMO_FOLDER "/share/Application")) {
        if (entry.path().extension() != ".tbm") continue;
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
        MenuFile menu;
        std::wstring error;
        EXPECT_TRUE(ParseMenuFile(bytes, menu, error)) << entry.path();
        EXPECT_GE(menu.tabs.size(), 4u) << entry.path();
        ++count;
    }
    EXPECT_EQ(count, 10) << "five menus in two sizes";
}
