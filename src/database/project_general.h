// A project's General.ini read into plain members, and the listing of a folder's drawings.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "platform/platform.h"

// "General.ini" in the project's folder; empty if the project does not resolve to a folder.
std::wstring GetGeneralIniPath(int nProjectId);

// A snapshot of General.ini.
class CKV2D_ProjectGeneral {
  public:
    // Loads the project; with id 0 the object waits for a later Load.
    explicit CKV2D_ProjectGeneral(int nProjectId);

    // False if the project has no General.ini path: units are -1 then, the versions 0, and m_bLocalLineIni is
    // not to be trusted. An id below 1 leaves all other members as they were. A file that cannot be opened
    // reads as an empty one.
    //
    // On disk: a project without a ProjectGuid gets one, so a mere read may create or rewrite General.ini.
    bool Load(int nProjectId);

    // The drawings folder of a discipline with a backslash behind it; empty for other numbers.
    std::wstring GetDrawingsLocation(int nApp) const;

    int m_nReserved = 0;
    int m_nProjectId = 0;
    int m_nWorkingUnits = 0;
    int m_nDisplayedUnits = 0;  // also the number of the pipe size set (GetSizeSetName)
    platform::Guid m_ProjectGuid;
    std::array<std::wstring, 4> m_strDrawingsLocation;  // by discipline, 0 is kAppElectric
    std::wstring m_strBordersLocation;
    std::wstring m_strTemplatesLocation;
    std::wstring m_strLibrariesLocation;
    std::wstring m_strLocalLineIniPath;
    int m_nProjectVersion = 0;
    int m_nRatingsFormat = 0;
    bool m_bLocalLineIni = false;  // lines are held per drawing, not per project
};

// The drawings of a folder, or with `bBackups` their backups (*.bak): names without extension, with the texts
// of GetFileSizeAndDate, in the platform's order. All lists are emptied first; a folder that does not exist
// gives empty ones.
void ListDrawings(const std::wstring& strFolder, std::vector<std::wstring>& astrNames,
                  std::vector<std::wstring>& astrSizes, std::vector<std::wstring>& astrDates, bool bBackups);

// "12 KB" (full kilobytes: a file of 1,023 bytes shows "0 KB") and "2024-03-31 14:05:09" in local time.
// False, with both texts empty, if the file's status cannot be read. A time that has no local time raises
// platform::ThrowInvalidArgument.
bool GetFileSizeAndDate(const std::wstring& strPath, std::wstring& strSize, std::wstring& strDate);
