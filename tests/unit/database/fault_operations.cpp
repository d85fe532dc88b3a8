#include "fault_operations.h"

#include <gtest/gtest.h>

#include "database/client_list.h"
#include "database/line_list.h"
#include "database/project_general.h"
#include "database/project_list.h"
#include "database/project_template.h"
#include "database/spec_list.h"
#include "database/user_access.h"
#include "fault_database.h"
#include "storage/applications.h"
#include "storage/install_paths.h"

namespace {

// What a list operation fills, with the check that it is a list.
struct CLists {
    std::vector<int> anIds{99};
    std::vector<std::wstring> astrNames{L"left over"};
    std::vector<bool> abFlags{true, true};

    int Check(int nCode) const {
        EXPECT_EQ(anIds.size(), astrNames.size());
        return nCode;
    }
    int CheckFlags(int nCode) const {
        EXPECT_EQ(anIds.size(), abFlags.size());
        EXPECT_TRUE(nCode == 0 || anIds.empty());
        return Check(nCode);
    }
};

int RunGetLocalLineList(const wchar_t* pszDrawing, const std::vector<std::wstring>& astrDrawingLines) {
    CLists lists;
    return lists.CheckFlags(GetLocalLineList(6, L"PID", pszDrawing, astrDrawingLines, lists.anIds,
                                             lists.astrNames, lists.abFlags, true, true, false, true));
}

int RunGetLineList(bool bUseCache) {
    CLists lists;
    return lists.CheckFlags(
        GetLineList(5, lists.anIds, lists.astrNames, lists.abFlags, true, true, false, bUseCache));
}

std::string LiveLines(std::initializer_list<std::string_view> rows) {
    return Lines({"[LineList]"}) + Lines(rows);
}

std::string Counter(int nLastId) {
    return Lines({"[General]", "LastLineId = " + std::to_string(nLastId)});
}

// Where a failed read leads, in silence, beside what stands in the comments below. A file that cannot be read
// counts as empty and is then written with the new rows alone.
const std::string kGuidAlone = Lines({"[General]", "ProjectGuid = 00000001-0000-0000-0000-000000000000"});

// A project that does not resolve keeps its local lines in the root of the current drive; its General.ini may
// have been taken for empty.
Allowed WithRootFiles(const char* pszFile, int nLastId, const std::string& strLines, Allowed allowed) {
    allowed.insert(allowed.end(),
                   {{"root counter", Counter(nLastId)}, {pszFile, strLines}, {"6 General.ini", kGuidAlone}});
    return allowed;
}

std::vector<COperation> GetClientAndProjectOperations() {
    return {
        {"GetClientList",
         [] {
             CLists l;
             return l.Check(GetClientList(l.anIds, l.astrNames));
         },
         {0, 1}},
        {"GetClientProjects",
         [] {
             CLists l;
             return static_cast<int>(GetClientProjects(1, l.anIds));
         },
         {0, 1}},
        {"GetProjectsOfClients",
         [] {
             std::vector<std::vector<int>> aanProjectIds{{99}};
             const bool bDone = GetProjectsOfClients({1, 2}, aanProjectIds);
             EXPECT_EQ(aanProjectIds.size(), 2u);
             return static_cast<int>(bDone);
         },
         {0, 1}},
        {"GetClientOfProject",
         [] {
             int nId = 99;
             std::wstring strName;
             return static_cast<int>(GetClientOfProject(5, nId, strName));
         },
         {0, 1}},
        {"GetProjectList",
         [] {
             CLists l;
             return l.Check(GetProjectList(l.anIds, l.astrNames, false));
         },
         {0, 5}},
        {"GetProjectName", [] { return static_cast<int>(GetProjectName(5, true, true).size()); }, {0, 3}},
        {"GetGeneralIniPath", [] { return static_cast<int>(GetGeneralIniPath(5).empty()); }, {0, 1}},
        {"GetUserAccessIniPath", [] { return static_cast<int>(GetUserAccessIniPath(5).empty()); }, {0, 1}},
        {"GetLinesIniPath", [] { return static_cast<int>(GetLinesIniPath(5).empty()); }, {0, 1}},
        {"GetSpecsIniPath", [] { return static_cast<int>(GetSpecsIniPath(6).empty()); }, {0, 1}},
    };
}

std::vector<COperation> GetSpecAndDrawingOperations() {
    return {
        {"SpecIdFromKey", [] { return SpecIdFromKey(L"pipe spec A", true); }, {0, 3}},
        {"GetSpecScopes",
         [] {
             CLists l;
             std::vector<int> anScopes{99};
             const int nCode = GetSpecScopes(l.anIds, anScopes, l.astrNames);
             EXPECT_EQ(anScopes.size(), l.anIds.size());
             return l.Check(nCode);
         },
         {0, 5}},
        {"GetSpecsByScope",
         [] {
             CLists global, client, project;
             const int nCode = GetSpecsByScope(1, 5, global.anIds, global.astrNames, client.anIds,
                                               client.astrNames, project.anIds, project.astrNames, true);
             return global.Check(client.Check(project.Check(nCode)));
         },
         {0, 5}},
        {"ListDrawings",
         [] {
             std::vector<std::wstring> astrNames, astrSizes, astrDates;
             ListDrawings(GetDatafilePath(L"Drawings"), astrNames, astrSizes, astrDates, false);
             EXPECT_EQ(astrNames.size(), astrSizes.size());
             EXPECT_EQ(astrNames.size(), astrDates.size());
             return static_cast<int>(astrNames.size());
         },
         {0, 1}},
        {"GetFileSizeAndDate",
         [] {
             std::wstring strSize, strDate;
             return static_cast<int>(
                 GetFileSizeAndDate(GetDatafilePath(L"Drawings\\a.dwg"), strSize, strDate));
         },
         {0, 1}},
    };
}

// Reading that may rename a project's folder, write a GUID or convert a table.
std::vector<COperation> GetRepairingOperations() {
    return {
        {"GetProjectFolder 5",
         [] {
             std::wstring s;
             return GetProjectFolder(5, s);
         },
         {0, 3, 5}},
        {"GetProjectFolder 6",
         [] {
             std::wstring s;
             return GetProjectFolder(6, s);
         },
         {0, 3, 5}},
        {"CKV2D_ProjectRef", [] { return static_cast<int>(CKV2D_ProjectRef(5).m_strPath.empty()); }, {0, 1}},
        {"CKV2D_ProjectGeneral",
         [] { return static_cast<int>(CKV2D_ProjectGeneral(0).Load(5)); },
         {0, 1},
         {{"5 General.ini", kGuidAlone}}},
        {"CKV2D_UserAccess",
         [] { return static_cast<int>(CKV2D_UserAccess(5).m_astrUsers[1].size()); },
         {0, 1},
         {{"5 General.ini", kGuidAlone}}},
        {"IsUserAllowed",
         [] { return static_cast<int>(IsUserAllowed(5, kAppPid, L"Eve")); },
         {0, 1},
         {{"5 General.ini", kGuidAlone}}},
        {"GetProjectSpecIds",
         [] {
             CLists l;
             return GetProjectSpecIds(5, l.anIds);
         },
         {0, 5}},
        {"GetProjectSpecs",
         [] {
             CLists l;
             return l.Check(GetProjectSpecs(5, l.anIds, l.astrNames));
         },
         {0}},
        {"GetLineList", [] { return RunGetLineList(false); }, {0, 3}},
        {"GetLineList, cached twice",
         [] {
             RunGetLineList(true);
             return RunGetLineList(true);
         },
         {0, 3}},
        {"LineIdFromKey", [] { return LineIdFromKey(5, L"steam", true, true); }, {0, 1}},
        {"OpenProjectLineIni",
         [] {
             CKV2D_IniFile ini;
             return static_cast<int>(OpenProjectLineIni(ini, 5, true));
         },
         {0, 1}},
        {"ReloadProjectLineCache",
         [] {
             RunGetLineList(true);
             return static_cast<int>(ReloadProjectLineCache());
         },
         {0, 1}},
        {"GetSizeList",
         [] {
             CLists l;
             GetSizeList(L"ANSI", 2, l.anIds, l.astrNames, false);
             return l.Check(0);
         },
         {0}},
    };
}

// The settings files of a project whose General.ini counts as empty hold the imperial defaults.
std::vector<COperation> GetTemplateOperations() {
    const auto getRepairs = [](const char* pszScale) {
        return Lines({"Variable 180 = 40", "Variable 181 = 36", "Variable 182 = 36",
                      std::string("Variable 185 = ") + pszScale});
    };
    const std::string strSection = Lines({"[Settings]"});
    const std::string strTemplate = Lines({"[Settings]", "Variable 044 = Plan1"});
    const auto getOrtho = [](const char* pszScale, const char* pszUnits) {
        const std::string strScale = pszScale;
        return Lines({"[Settings]", "Variable 071 = " + strScale, "Variable 179 = " + strScale,
                      "Variable 180 = 40", "Variable 181 = 36", "Variable 182 = 36",
                      std::string("Variable 183 = ") + pszUnits, "Variable 185 = " + strScale});
    };
    return {
        {"GetProjectTemplateName",
         [] { return static_cast<int>(GetProjectTemplateName(5, kAppIsometric).size()); },
         {4, 5},  // "acad" or "Plan1"
         {{"5 General.ini", kGuidAlone},
          {"5 Iso.ini", strTemplate + getRepairs("0.375000")},
          {"5 Iso.ini", strSection + getRepairs("10.000000")}}},
        {"GetProjectTemplateName without a file",
         [] { return static_cast<int>(GetProjectTemplateName(6, kAppOrtho).size()); },
         {4},
         {{"6 General.ini", kGuidAlone}, {"6 Ortho.ini", getOrtho("0.500000", "39")}}},
    };
}

std::vector<COperation> GetLineOperations() {
    const auto createLine = [] {
        int nId = 99;
        std::wstring strName = L"left over";
        const int nCode = CreateLine(5, nId, strName);
        EXPECT_EQ(nId == 0, nCode != kLineOk);
        EXPECT_EQ(strName.empty(), nCode != kLineOk);
        return nCode;
    };
    return {
        {"CreateLine",
         createLine,
         {0, 3},
         {{"5 Lines.ini", LiveLines({"KV2D_LINE_8 = Line 8"})},
          {"counter", Counter(1)},
          {"5 Lines.ini",
           Lines({"[DeletedLines]", "KV2D_LINE_2 = Oil", "", "[LineList]", "KV2D_LINE_1 = Line 1"})}}},
        {"RenameLine", [] { return RenameLine(5, 1, L"Water"); }, {0, 3}},
        {"RenameLine of a deleted line", [] { return RenameLine(5, 2, L"Water"); }, {0, 3}},
        {"RenameLine, refused", [] { return RenameLine(5, 1, L"Oil"); }, {3, 8}},
    };
}

std::vector<COperation> GetLocalLineOperations() {
    const auto createLocalLine = [] {
        int nId = 99;
        std::wstring strName;
        return CreateLocalLine(6, L"PID", kDrawing, nId, strName);
    };
    return {
        {"GetLocalLineIniPath",
         [] { return static_cast<int>(GetLocalLineIniPath(kDrawing, L"PID", 6).empty()); },
         {0},
         {{"6 General.ini", kGuidAlone}}},
        {"OpenLocalLineIni",
         [] {
             CKV2D_IniFile ini;
             return static_cast<int>(OpenLocalLineIni(ini, L"PID", kDrawing, 6, false));
         },
         {0, 1},
         {{"6 General.ini", kGuidAlone}}},
        {"CreateLocalLine",
         createLocalLine,
         {0},
         WithRootFiles("root lines", 1, LiveLines({"KV2D_LINE_1 = Line 1"}),
                       {{"local lines", LiveLines({"KV2D_LINE_1 = Line 1"})},     // the counter was not read
                        {"local lines", LiveLines({"KV2D_LINE_2 = Line 2"})}})},  // the lines were not read
        {"RenameLocalLine",
         [] { return RenameLocalLine(6, L"PID", kDrawing, 1, L"Water"); },
         {0, 3},
         {{"6 General.ini", kGuidAlone}}},
        {"CreateLocalLineIni",
         [] {
             CreateLocalLineIni(6, L"PID", kDrawing, {L"A", L"B"});
             return 0;
         },
         {0},
         WithRootFiles(
             "root lines", 2, LiveLines({"KV2D_LINE_1 = A", "KV2D_LINE_2 = B"}),
             // The file was not made anew.
             {{"local lines", LiveLines({"KV2D_LINE_1 = Steam", "KV2D_LINE_2 = A", "KV2D_LINE_3 = B"})},
              // The counter was not read.
              {"local counter", Counter(2)},
              {"local lines", LiveLines({"KV2D_LINE_1 = A", "KV2D_LINE_2 = B"})},
              // Its lines were not written.
              {"local lines", LiveLines({})}})},
    };
}

std::vector<COperation> GetLocalListOperations() {
    return {
        {"GetLocalLineList",
         [] {
             return RunGetLocalLineList(kDrawing, {L"Steam", L"Water"});
         },
         {0},
         WithRootFiles("root lines", 2, LiveLines({"KV2D_LINE_1 = Steam", "KV2D_LINE_2 = Water"}),
                       // The file was not read, and so made anew.
                       {{"local counter", Counter(3)},
                        {"local lines", LiveLines({"KV2D_LINE_2 = Steam", "KV2D_LINE_3 = Water"})},
                        // It cannot be read for good, so the lines join it once more.
                        {"local counter", Counter(5)},
                        {"local lines", LiveLines({"KV2D_LINE_4 = Steam", "KV2D_LINE_5 = Water"})},
                        // The counter was not read; the file was not read when the line joined it.
                        {"local lines", LiveLines({"KV2D_LINE_1 = Water"})},
                        {"local lines", LiveLines({"KV2D_LINE_2 = Water"})}})},
        {"GetLocalLineList of a new drawing",
         [] { return RunGetLocalLineList(kNewDrawing, {}); },
         {0},
         WithRootFiles(
             "root fresh lines", 1, LiveLines({"KV2D_LINE_1 = Line 1"}),
             {{"fresh local lines", LiveLines({"KV2D_LINE_1 = Line 1"})},  // the counter was not read
              {"fresh local lines", LiveLines({})}})},                     // its line was not written
        {"GetLocalLineList of a new drawing with lines",
         [] {
             return RunGetLocalLineList(kNewDrawing, {L"Steam", L"Water"});
         },
         {0},
         WithRootFiles("root fresh lines", 2, LiveLines({"KV2D_LINE_1 = Steam", "KV2D_LINE_2 = Water"}),
                       // The counter was not read.
                       {{"local counter", Counter(2)},
                        {"fresh local lines", LiveLines({"KV2D_LINE_1 = Steam", "KV2D_LINE_2 = Water"})},
                        // Only the first line was written whole, so the second joins it again.
                        {"local counter", Counter(4)},
                        {"fresh local lines", LiveLines({"KV2D_LINE_2 = Steam", "KV2D_LINE_4 = Water"})},
                        // The new file's lines were not written, so they join it again.
                        {"local counter", Counter(5)},
                        {"fresh local lines", LiveLines({"KV2D_LINE_4 = Steam", "KV2D_LINE_5 = Water"})},
                        // The new file was not read, so they join it again, and their names are taken.
                        {"fresh local lines", LiveLines({"KV2D_LINE_2 = Steam", "KV2D_LINE_3 = Water",
                                                         "KV2D_LINE_4 = Line 4", "KV2D_LINE_5 = Line 5"})}}),
         // A name that was cut off is a line of its own, and whatever is missing joins the file.
         [](const std::string& strFile, const std::string& strContent) {
             return strFile == "fresh local lines" &&
                    strContent.starts_with("[LineList]\r\nKV2D_LINE_2 = S") &&
                    strContent.find("= Steam\r\n") != std::string::npos &&
                    strContent.ends_with(" = Water\r\n");
         }},
        {"ReloadLocalLineCache",
         [] {
             CKV2D_IniFile ini;
             OpenLocalLineIni(ini, L"PID", kDrawing, 6, true);
             return static_cast<int>(ReloadLocalLineCache(L"PID", kDrawing));
         },
         {0, 1},
         {{"6 General.ini", kGuidAlone},
          // The GUID was not written, or the file not read, the first time; the second load makes another
          // GUID.
          {"6 General.ini",
           Lines({"[General]", "LocalLineIni = 1", "LocalLineIniPath = C:\\Test\\Data\\Local",
                  "ProjectGuid = 00000002-0000-0000-0000-000000000000"})},
          {"6 General.ini", Lines({"[General]", "ProjectGuid = 00000002-0000-0000-0000-000000000000"})},
          // The path was cut off, so its row is dropped.
          {"6 General.ini",
           Lines({"[General]", "LocalLineIni = 1", "ProjectGuid = 00000002-0000-0000-0000-000000000000"})}},
         // What is left of the path, or of the row ahead of it, stands for it.
         [](const std::string& strFile, const std::string& strContent) {
             return strFile == "6 General.ini" && strContent.starts_with("[General]\r\nLocalLineIni = 1\r") &&
                    strContent.ends_with("\r\nProjectGuid = 00000002-0000-0000-0000-000000000000\r\n");
         }},
    };
}

}  // namespace

std::vector<COperation> GetAllOperations() {
    std::vector<COperation> operations;
    for (auto&& more :
         {GetClientAndProjectOperations(), GetSpecAndDrawingOperations(), GetRepairingOperations(),
          GetTemplateOperations(), GetLineOperations(), GetLocalLineOperations(), GetLocalListOperations()}) {
        operations.insert(operations.end(), more.begin(), more.end());
    }
    return operations;
}
