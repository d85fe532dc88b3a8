// Builds the files of a small database for a test:
//
//     ADatabase(*this).WithProject(5, "Pump").WithLine(5, 17, "Steam");
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "database/line_list.h"
#include "sizes/size_table.h"
#include "support/test_platform.h"

class ADatabase {
  public:
    // An empty database, with nothing cached of an earlier one.
    explicit ADatabase(TestSystem& system) : m_system(system) {
        DropLineCache();
        DropSizeTableCache();
        m_system.UseDatabase();
    }

    // Adds a row to a section of a file of the database and writes the file: "KV2D_PRJ_5 = Pump".
    ADatabase& WithRow(const std::wstring& strFile, const std::string& strSection,
                       const std::string& strRow) {
        Sections& sections = m_files[strFile];
        auto section = sections.begin();
        while (section != sections.end() && section->first != strSection)
            ++section;
        if (section == sections.end()) section = sections.insert(section, {strSection, {}});
        section->second.push_back(strRow);
        m_system.PutFile(m_system.InData(strFile), GetText(sections));
        return *this;
    }

    ADatabase& WithClient(int nId, const std::string& strName) {
        return WithRow(L"ClientDatafile.ini", "ClientList",
                       "KV2D_CLIENT_" + std::to_string(nId) + " = " + strName);
    }
    ADatabase& WithClientProject(int nClientId, int nProjectId) {
        return WithRow(L"ClientDatafile.ini", "ProjectList - " + std::to_string(nClientId),
                       std::to_string(nProjectId) + " = x");
    }

    // A live project with its folder.
    ADatabase& WithProject(int nId, const std::string& strName) {
        m_names[nId] = strName;
        WithProjectRow(nId, strName);
        m_system.PutFolder(GetProjectFolder(nId));
        return *this;
    }
    ADatabase& WithProjectRow(int nId, const std::string& strName) {
        return WithRow(L"ProjectDatafile.ini", "ProjectList",
                       "KV2D_PRJ_" + std::to_string(nId) + " = " + strName);
    }
    ADatabase& WithDeletedProjectRow(int nId, const std::string& strName) {
        return WithRow(L"ProjectDatafile.ini", "DeletedProjects",
                       "KV2D_PRJ_" + std::to_string(nId) + " = " + strName);
    }
    // A row of a file in the folder of a project that WithProject added.
    ADatabase& WithProjectFileRow(int nId, const std::wstring& strFile, const std::string& strSection,
                                  const std::string& strRow) {
        return WithRow(GetRelativeFolder(nId) + strFile, strSection, strRow);
    }
    ADatabase& WithGeneral(int nId, const std::string& strSection, const std::string& strRow) {
        return WithProjectFileRow(nId, L"General.ini", strSection, strRow);
    }
    // The project holds its lines per drawing, in this folder.
    ADatabase& WithLocalLines(int nId, const std::wstring& strFolder) {
        WithGeneral(nId, "General", "LocalLineIni = 1");
        return WithGeneral(nId, "General",
                           "LocalLineIniPath = " + std::string(strFolder.begin(), strFolder.end()));
    }
    ADatabase& WithLine(int nProjectId, int nLineId, const std::string& strName) {
        return WithProjectFileRow(nProjectId, L"Lines.ini", "LineList",
                                  "KV2D_LINE_" + std::to_string(nLineId) + " = " + strName);
    }
    ADatabase& WithDeletedLine(int nProjectId, int nLineId, const std::string& strName) {
        return WithProjectFileRow(nProjectId, L"Lines.ini", "DeletedLines",
                                  "KV2D_LINE_" + std::to_string(nLineId) + " = " + strName);
    }
    ADatabase& WithLastLineId(int nId) {
        return WithRow(L"LineDatafile.ini", "General", "LastLineId = " + std::to_string(nId));
    }
    ADatabase& WithSpec(int nId, const std::string& strName) {
        return WithRow(L"SpecDatafile.ini", "SpecList", "KV2D_SPEC_" + std::to_string(nId) + " = " + strName);
    }
    ADatabase& WithClientSpec(int nId, const std::string& strClient) {
        return WithRow(L"SpecDatafile.ini", "ClientSpecs",
                       "KV2D_SPEC_" + std::to_string(nId) + " = " + strClient);
    }
    ADatabase& WithProjectSpec(int nId, const std::string& strProject) {
        return WithRow(L"SpecDatafile.ini", "ProjectSpecs",
                       "KV2D_SPEC_" + std::to_string(nId) + " = " + strProject);
    }
    // Switches a spec on, by its key or its name.
    ADatabase& WithEnabledSpec(int nProjectId, const std::string& strKey) {
        return WithProjectFileRow(nProjectId, L"Specs.ini", "SpecList", strKey + " = x");
    }

    // The full path of the folder that WithProject made, with a backslash behind it.
    std::wstring GetProjectFolder(int nId) { return m_system.InData(GetRelativeFolder(nId)); }

  private:
    using Sections = std::vector<std::pair<std::string, std::vector<std::string>>>;

    std::wstring GetRelativeFolder(int nId) {
        const std::string strName = m_names.at(nId);
        return L"Projects\\KV2D_PRJ_" + std::to_wstring(nId) + L" - " +
               std::wstring(strName.begin(), strName.end()) + L"\\";
    }

    static std::string GetText(const Sections& sections) {
        std::string strText;
        for (const auto& [strSection, astrRows] : sections) {
            strText += (strText.empty() ? "[" : "\r\n[") + strSection + "]\r\n";
            for (const std::string& strRow : astrRows)
                strText += strRow + "\r\n";
        }
        return strText;
    }

    TestSystem& m_system;
    std::map<std::wstring, Sections> m_files;
    std::map<int, std::string> m_names;
};
