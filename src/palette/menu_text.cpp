#include "palette/menu_text.h"

#include "storage/message_format.h"

std::wstring GetMenuCommandText(const std::wstring& strItem) {
    return strItem.empty() || strItem.back() != L' ' ? strItem + L' ' : strItem;
}

std::wstring GetToggleExpression(int nApplicationId, const std::wstring& strItem, bool bState) {
    const std::wstring strTrimmed = strItem.substr(0, strItem.find_last_not_of(L' ') + 1);
    return FormatMessageText(L"(kv2dMenu_OnSelchangeToggle %d \"%s\" %d) ",
                             {nApplicationId, strTrimmed, bState ? 1 : 0});
}
