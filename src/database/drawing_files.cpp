// The listing of a folder's drawings with the texts that the user sees beside them.
#include <cwchar>
#include <iterator>

#include "database/project_general.h"
#include "platform/invalid_argument.h"
#include "platform/platform.h"
#include "storage/path_text.h"

namespace {

std::wstring FormatSize(std::uint64_t uBytes) {
    return std::to_wstring(uBytes >> 10) + L" KB";
}

std::wstring FormatDate(const platform::CalendarTime& time) {
    wchar_t szText[128];
    const int nLength = std::swprintf(szText, std::size(szText), L"%04d-%02d-%02d %02d:%02d:%02d", time.year,
                                      time.month, time.day, time.hour, time.minute, time.second);
    return nLength > 0 ? std::wstring(szText, nLength) : std::wstring();
}

}  // namespace

void ListDrawings(const std::wstring& strFolder, std::vector<std::wstring>& astrNames,
                  std::vector<std::wstring>& astrSizes, std::vector<std::wstring>& astrDates, bool bBackups) {
    astrNames.clear();
    astrSizes.clear();
    astrDates.clear();
    const std::wstring strBase = EnsureBackslash(strFolder);
    for (const platform::FoundEntry& entry :
         platform::GetFiles().Find(strBase + (bBackups ? L"*.bak" : L"*.dwg"))) {
        if (entry.isDirectory) continue;
        std::wstring strSize, strDate;
        GetFileSizeAndDate(strBase + entry.name, strSize, strDate);
        astrNames.push_back(entry.name.substr(0, entry.name.rfind(L'.')));
        astrSizes.push_back(strSize);
        astrDates.push_back(strDate);
    }
}

bool GetFileSizeAndDate(const std::wstring& strPath, std::wstring& strSize, std::wstring& strDate) {
    strSize.clear();
    strDate.clear();
    platform::FileStatus status;
    if (platform::GetFiles().GetStatus(strPath, status) != platform::kDone) return false;
    strSize = FormatSize(status.size);
    platform::CalendarTime time;
    if (!platform::GetClock().ToLocal(status.modified, time)) platform::ThrowInvalidArgument();
    strDate = FormatDate(time);
    return true;
}
