#include "storage/message_format.h"

std::wstring FormatMessageText(std::wstring_view strFormat,
                               std::initializer_list<CMessageArgument> arguments) {
    std::wstring strText;
    auto pNext = arguments.begin();
    for (size_t i = 0; i < strFormat.size(); ++i) {
        const bool bPlace = strFormat[i] == L'%' && i + 1 < strFormat.size() &&
                            (strFormat[i + 1] == L's' || strFormat[i + 1] == L'd');
        if (bPlace && pNext != arguments.end()) {
            strText += pNext->GetText();
            ++pNext;
            ++i;
        } else {
            strText += strFormat[i];
        }
    }
    return strText;
}
