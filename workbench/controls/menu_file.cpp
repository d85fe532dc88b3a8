#include "controls/menu_file.h"

#include <algorithm>
#include <set>

#include "controls/utf8.h"

namespace controls {

namespace {

constexpr std::wstring_view kSignature = L"TabbedMenu";
constexpr std::wstring_view kVersion = L"1";
constexpr std::wstring_view kTabWord = L"Tab";
constexpr std::wstring_view kCommandWord = L"Command";
constexpr std::wstring_view kToggleWord = L"Toggle";
constexpr wchar_t kFieldSeparator = L'\t';
constexpr wchar_t kComment = L'#';
constexpr size_t kItemFields = 6;
constexpr int kLargestId = 32767;

std::vector<std::wstring> SplitFields(std::wstring_view line) {
    std::vector<std::wstring> fields;
    for (size_t start = 0;;) {
        const size_t end = line.find(kFieldSeparator, start);
        fields.emplace_back(line.substr(start, end - start));
        if (end == std::wstring_view::npos) return fields;
        start = end + 1;
    }
}

// A decimal number from 1 to the largest id; 0 for anything else.
int ReadId(const std::wstring& text) {
    int id = 0;
    for (wchar_t ch : text) {
        if (ch < L'0' || ch > L'9') return 0;
        id = id * 10 + (ch - L'0');
        if (id > kLargestId) return 0;
    }
    return id;
}

// An icon's name is one component: a menu file must not reach for files elsewhere.
bool IsPlainName(const std::wstring& name) {
    return name.find_first_of(L"\\/:") == std::wstring::npos;
}

class Parser {
  public:
    explicit Parser(MenuFile& menu) : m_menu(menu) {}

    // An empty text means that the line was taken.
    std::wstring TakeLine(const std::wstring& line) {
        const std::vector<std::wstring> fields = SplitFields(line);
        if (!m_signed) return TakeSignature(fields);
        if (fields[0] == kTabWord) return TakeTab(fields);
        if (fields[0] == kCommandWord) return TakeItem(ItemKind::kCommand, fields);
        if (fields[0] == kToggleWord) return TakeItem(ItemKind::kToggle, fields);
        return L"a line begins with Tab, Command or Toggle.";
    }
    bool IsSigned() const { return m_signed; }

  private:
    std::wstring TakeSignature(const std::vector<std::wstring>& fields) {
        if (fields.size() != 2 || fields[0] != kSignature) return L"this is not a menu file.";
        if (fields[1] != kVersion) return L"this menu file is of another version.";
        m_signed = true;
        return {};
    }
    std::wstring TakeTab(const std::vector<std::wstring>& fields) {
        if (fields.size() != 2 || fields[1].empty()) return L"a tab has a label and nothing else.";
        m_menu.tabs.push_back({fields[1], {}});
        return {};
    }
    std::wstring TakeItem(ItemKind kind, const std::vector<std::wstring>& fields) {
        if (m_menu.tabs.empty()) return L"an item stands below a tab.";
        if (fields.size() != kItemFields) return L"an item has a number, an icon, a label, a tip and a text.";
        const int id = ReadId(fields[1]);
        if (id == 0) return L"an item's number lies between 1 and 32767.";
        if (!m_ids.insert(id).second) return L"the number is taken by another item.";
        if (!IsPlainName(fields[2])) return L"an icon is named without a folder.";
        if (fields[5].empty()) return L"an item has a text.";
        m_menu.tabs.back().items.push_back({id, kind, fields[2], fields[3], fields[4], fields[5]});
        return {};
    }

    MenuFile& m_menu;
    std::set<int> m_ids;
    bool m_signed = false;
};

}  // namespace

const MenuItem* MenuFile::FindItem(int id) const {
    for (const MenuTab& tab : tabs) {
        const auto it = std::find_if(tab.items.begin(), tab.items.end(),
                                     [id](const MenuItem& item) { return item.id == id; });
        if (it != tab.items.end()) return &*it;
    }
    return nullptr;
}

bool ParseMenuFile(std::string_view bytes, MenuFile& menu, std::wstring& error) {
    menu = {};
    error.clear();
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (bytes.starts_with(kByteOrderMark)) bytes.remove_prefix(kByteOrderMark.size());
    Parser parser(menu);
    size_t number = 0;
    while (!bytes.empty()) {
        ++number;
        const size_t end = std::min(bytes.find('\n'), bytes.size());
        std::string_view line = bytes.substr(0, end);
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
        if (line.ends_with('\r')) line.remove_suffix(1);
        std::wstring text;
        if (!Utf8ToWide(line, text))
            error = L"the text is not UTF-8.";
        else if (!text.empty() && text[0] != kComment)
            error = parser.TakeLine(text);
        if (!error.empty()) break;
    }
    if (error.empty() && !parser.IsSigned()) error = L"this is not a menu file.";
    if (error.empty()) return true;
    error = L"Line " + std::to_wstring(number) + L": " + error;
    menu = {};
    return false;
}

}  // namespace controls
