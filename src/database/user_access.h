// Who may work in a project: UserAccess.ini in the project's folder, which the Standards Manager writes.
#pragma once

#include <array>
#include <string>
#include <vector>

// "UserAccess.ini" in the project's folder; empty if the project does not resolve to a folder.
std::wstring GetUserAccessIniPath(int nProjectId);

// A snapshot of the allowed users of each discipline. A missing file gives empty lists.
class CKV2D_UserAccess {
  public:
    explicit CKV2D_UserAccess(int nProjectId);

    // Replaces the lists by the project's. An id below 1 and a project without a folder leave them as they
    // were. On disk: as CKV2D_ProjectGeneral::Load, which tells the version.
    void Load(int nProjectId);

    // The users of a discipline; other numbers give an empty list.
    void GetUsers(int nApp, std::vector<std::wstring>& astrUsers) const;

    int m_nReserved = 0;
    int m_nProjectId = 0;
    std::array<std::vector<std::wstring>, 4> m_astrUsers;  // by discipline, 0 is kAppElectric
};

// Whether a user of that name may work in the discipline of the project: the administrator always, everyone
// if the discipline has no list, else whoever is listed, in any letter case. False for an empty name and for
// an application that is no discipline, without reading a file.
bool IsUserAllowed(int nProjectId, int nApp, const std::wstring& strUser);

// Whether the current user may work in the discipline of the project. There is no look-up of the current
// user: the name is a constant, the administrator's, so the answer is true for every discipline, without
// reading a file, and false for every other number. A refusal shows a message box if `bShowMessage` is set.
bool CheckUserAccess(int nProjectId, int nApp, bool bShowMessage);
