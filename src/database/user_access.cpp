#include "database/user_access.h"

#include <algorithm>

#include "database/project_general.h"
#include "database/project_list.h"
#include "platform/letter_case.h"
#include "platform/platform.h"
#include "storage/applications.h"
#include "storage/ini_file.h"

namespace {

constexpr wchar_t kAdministrator[] = L"Administrator";

// There is no look-up of the current user; a deployment that wants checks per user changes this one value.
constexpr wchar_t kCurrentUser[] = L"Administrator";

constexpr wchar_t kRefusalText[] =
    L"You do not have permission to run this application.\n\nPlease contact your system administrator.";
constexpr wchar_t kRefusalCaption[] = L"Orvex 2023";

}  // namespace

std::wstring GetUserAccessIniPath(int nProjectId) {
    return GetProjectFilePath(nProjectId, L"UserAccess.ini");
}

CKV2D_UserAccess::CKV2D_UserAccess(int nProjectId) {
    Load(nProjectId);
}

void CKV2D_UserAccess::Load(int nProjectId) {
    m_nReserved = 0;
    m_nProjectId = nProjectId;
    if (nProjectId < 1) return;
    const std::wstring strPath = GetUserAccessIniPath(nProjectId);
    if (strPath.empty()) return;

    CKV2D_IniFile ini;
    ini.Open(strPath);
    const CKV2D_ProjectGeneral general(nProjectId);
    std::vector<std::wstring> astrUnusedKeys;
    for (int nApp = kFirstDiscipline; nApp <= kLastDiscipline; ++nApp) {
        ini.SetSection(GetProjectFileWord(nApp, general.m_nProjectVersion));
        ini.GetSectionEntries(astrUnusedKeys, m_astrUsers[nApp - kFirstDiscipline]);
    }
}

void CKV2D_UserAccess::GetUsers(int nApp, std::vector<std::wstring>& astrUsers) const {
    astrUsers.clear();
    if (IsDiscipline(nApp)) astrUsers = m_astrUsers[nApp - kFirstDiscipline];
}

bool IsUserAllowed(int nProjectId, int nApp, const std::wstring& strUser) {
    if (!IsDiscipline(nApp) || strUser.empty()) return false;
    if (platform::EqualWithoutCase(strUser, kAdministrator)) return true;
    std::vector<std::wstring> astrUsers;
    CKV2D_UserAccess(nProjectId).GetUsers(nApp, astrUsers);
    return astrUsers.empty() ||
           std::any_of(astrUsers.begin(), astrUsers.end(), [&](const std::wstring& strListed) {
               return platform::EqualWithoutCase(strListed, strUser);
           });
}

bool CheckUserAccess(int nProjectId, int nApp, bool bShowMessage) {
    const bool bAllowed = IsUserAllowed(nProjectId, nApp, kCurrentUser);
    if (!bAllowed && bShowMessage) {
        platform::GetBoxes().Show(platform::BoxOwner::kNone, kRefusalText, kRefusalCaption,
                                  platform::kBoxIconError);
    }
    return bAllowed;
}
