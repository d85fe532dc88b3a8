#include "drawing_manager/lock_files.h"

#include <string_view>

#include "platform/letter_case.h"
#include "platform/platform.h"

namespace {

constexpr std::wstring_view kLockExtension = L".DWL";

}  // namespace

CLockFiles::CLockFiles(const std::wstring& strFolder) {
    for (const platform::FoundEntry& entry : platform::GetFiles().Find(strFolder + L"*.dwl")) {
        // Longer extensions may match as well, by their short form.
        std::wstring strName = platform::ToUpper(entry.name);
        if (!strName.ends_with(kLockExtension)) continue;
        strName.resize(strName.size() - kLockExtension.size());
        m_titles.insert(std::move(strName));
    }
}

bool CLockFiles::Has(const std::wstring& strTitle) const {
    return m_titles.contains(platform::ToUpper(strTitle));
}
