#include "database/project_general.h"

#include "database/project_list.h"
#include "storage/applications.h"
#include "storage/ini_file.h"
#include "storage/install_paths.h"
#include "storage/path_text.h"

namespace {

// Defaults of General.ini.
constexpr int kDefaultWorkingUnits = 1;
constexpr int kDefaultDisplayedUnits = 2;
constexpr int kDefaultRatingsFormat = 1;
constexpr int kDefaultProjectVersion = 2015;

constexpr int kUnitsUnknown = -1;

// Whoever first reads a project without an identity gives it one.
void ReadOrCreateGuid(CKV2D_IniFile& ini, platform::Guid& guid) {
    const platform::Guid guidNone;
    ini.GetGuid(L"ProjectGuid", guid, guidNone);
    if (guid != guidNone) return;
    guid = platform::GetGuids().Create();
    ini.SetGuid(L"ProjectGuid", guid);
}

}  // namespace

std::wstring GetGeneralIniPath(int nProjectId) {
    return GetProjectFilePath(nProjectId, L"General.ini");
}

CKV2D_ProjectGeneral::CKV2D_ProjectGeneral(int nProjectId) {
    Load(nProjectId);
}

bool CKV2D_ProjectGeneral::Load(int nProjectId) {
    m_nReserved = 0;
    m_nProjectId = nProjectId;
    if (nProjectId < 1) return false;

    m_nWorkingUnits = kUnitsUnknown;
    m_nDisplayedUnits = kUnitsUnknown;
    m_nRatingsFormat = 0;
    m_nProjectVersion = 0;
    m_ProjectGuid = platform::Guid();
    const std::wstring strPath = GetGeneralIniPath(nProjectId);
    if (strPath.empty()) return false;

    CKV2D_IniFile ini;
    ini.Open(strPath);
    ini.SetSection(L"Units");
    ini.GetInt(L"Working", m_nWorkingUnits, kDefaultWorkingUnits);
    ini.GetInt(L"Displayed", m_nDisplayedUnits, kDefaultDisplayedUnits);
    ini.GetInt(L"RatingsFormat", m_nRatingsFormat, kDefaultRatingsFormat);

    ini.SetSection(L"General");
    ReadOrCreateGuid(ini, m_ProjectGuid);
    ini.GetBool(L"LocalLineIni", m_bLocalLineIni, false);
    ini.GetString(L"BordersLocation", m_strBordersLocation, L"");
    ini.GetString(L"TemplatesLocation", m_strTemplatesLocation, L"");
    ini.GetString(L"LibrariesLocation", m_strLibrariesLocation, GetLibrariesPath());
    ini.GetString(L"LocalLineIniPath", m_strLocalLineIniPath, L"");
    ini.GetInt(L"ProjectVersion", m_nProjectVersion, kDefaultProjectVersion);

    ini.SetSection(L"Drawings Location");
    for (int nApp = kFirstDiscipline; nApp <= kLastDiscipline; ++nApp) {
        ini.GetString(GetProjectFileWord(nApp, m_nProjectVersion),
                      m_strDrawingsLocation[nApp - kFirstDiscipline], L"");
    }
    return true;
}

std::wstring CKV2D_ProjectGeneral::GetDrawingsLocation(int nApp) const {
    return IsDiscipline(nApp) ? EnsureBackslash(m_strDrawingsLocation[nApp - kFirstDiscipline])
                              : std::wstring();
}
