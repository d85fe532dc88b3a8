#include "controls/acad_error_box.h"

#include "acestext.h"
#include "platform/platform.h"
#include "storage/message_format.h"

void ShowMessageWithAcadError(const std::wstring& strTitle, const std::wstring& strFormat,
                              Acad::ErrorStatus status, const std::wstring& strArgument1,
                              const std::wstring& strArgument2) {
    std::wstring strText = FormatMessageText(strFormat, {strArgument1, strArgument2});
    if (status != kNoAcadError) {
        strText += FormatMessageText(L"\n\nAutoCAD Error: %s", {acadErrorStatusText(status)});
    }
    platform::GetBoxes().Show(platform::BoxOwner::kHostMainWindow, strText, strTitle,
                              platform::kBoxIconError);
}
