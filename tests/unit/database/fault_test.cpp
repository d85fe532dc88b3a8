// Every operation of the database against a system that fails: one call after the other, a disk that fills up
// at every byte, and every file held by another process.
#include <gmock/gmock.h>

#include <algorithm>
#include <set>

#include "a_database.h"
#include "database/client_list.h"
#include "database/line_list.h"
#include "database/project_general.h"
#include "database/project_list.h"
#include "database/spec_list.h"
#include "database/user_access.h"
#include "platform/invalid_argument.h"
#include "sizes/size_table.h"
#include "storage/install_paths.h"

namespace {

constexpr wchar_t kDrawing[] = L"c:\\p\\Plant1.dwg";
constexpr wchar_t kNewDrawing[] = L"c:\\p\\Fresh.dwg";

// Project 5 keeps its lines in one file and bears a folder with its former name; project 6 keeps them per
// drawing and has the older form of folder. Neither has a GUID yet, and size.tp is in the old form.
void ArrangeDatabase(TestSystem& system) {
    ADatabase(system)
        .WithClient(1, "Acme")
        .WithClientProject(1, 5)
        .WithProjectRow(5, "New")
        .WithProjectRow(6, "Tank")
        .WithSpec(3, "Pipe Spec A")
        .WithSpec(4, "Acme's")
        .WithClientSpec(4, "1")
        .WithLastLineId(7);
    const std::wstring strFirst = system.InData(L"Projects\\KV2D_PRJ_5 - Old\\");
    system.PutFile(strFirst + L"General.ini", Lines({"[Units]", "Working = 0"}));
    system.PutFile(strFirst + L"Lines.ini",
                   Lines({"[DeletedLines]", "KV2D_LINE_2 = Oil", "", "[LineList]", "KV2D_LINE_1 = Steam"}));
    system.PutFile(strFirst + L"Specs.ini", Lines({"[SpecList]", "KV2D_SPEC_4 = x", "pipe spec a = x"}));
    system.PutFile(strFirst + L"UserAccess.ini", Lines({"[Flow]", "1 = Bob"}));
    const std::wstring strLocal = system.InData(L"Local\\");
    const std::string strNarrowLocal(strLocal.begin(), strLocal.end() - 1);
    system.PutFile(system.InData(L"Projects\\KV2D_PRJ_6\\General.ini"),
                   Lines({"[General]", "LocalLineIni = 1", "LocalLineIniPath = " + strNarrowLocal}));
    system.PutFile(strLocal + L"PID_6_Plant1line.ini", Lines({"[LineList]", "KV2D_LINE_1 = Steam"}));
    system.PutFile(strLocal + L"LineDatafile.ini", Lines({"[General]", "LastLineId = 1"}));
    system.PutFile(system.InData(L"Standards\\Piping\\ANSI\\size.tp"),
                   Lines({"3,3\",DN 80,88.9", "1,1\",DN 25,33.4"}));
    system.PutFile(system.InData(L"Drawings\\a.dwg"), "drawing");
}

// Where a file may lie: the folder of a project is renamed on the way.
using Places = std::vector<std::wstring>;

// All files that may be there before or after an operation, by name.
std::map<std::string, Places> GetAllFiles(TestSystem& system) {
    std::map<std::string, Places> files = {
        {"clients", {system.InData(L"ClientDatafile.ini")}},
        {"projects", {system.InData(L"ProjectDatafile.ini")}},
        {"specs", {system.InData(L"SpecDatafile.ini")}},
        {"counter", {system.InData(L"LineDatafile.ini")}},
        {"local counter", {system.InData(L"Local\\LineDatafile.ini")}},
        {"local lines", {system.InData(L"Local\\PID_6_Plant1line.ini")}},
        {"fresh local lines", {system.InData(L"Local\\PID_6_Freshline.ini")}},
        {"sizes", {system.InData(L"Standards\\Piping\\ANSI\\size.tp")}},
        {"drawing", {system.InData(L"Drawings\\a.dwg")}},
        // Where the local files of a project go that does not resolve.
        {"root counter", {L"C:\\LineDatafile.ini"}},
        {"root lines", {L"C:\\PID_6_Plant1line.ini"}},
        {"root fresh lines", {L"C:\\PID_6_Freshline.ini"}},
    };
    for (const wchar_t* pszName : {L"General.ini", L"Lines.ini", L"Specs.ini", L"UserAccess.ini"}) {
        const std::wstring strName = pszName;
        const std::string strNarrow(strName.begin(), strName.end());
        files["5 " + strNarrow] = {system.InData(L"Projects\\KV2D_PRJ_5 - Old\\" + strName),
                                   system.InData(L"Projects\\KV2D_PRJ_5 - New\\" + strName)};
        files["6 " + strNarrow] = {system.InData(L"Projects\\KV2D_PRJ_6\\" + strName),
                                   system.InData(L"Projects\\KV2D_PRJ_6 - Tank\\" + strName)};
    }
    return files;
}

constexpr char kAbsent[] = "(absent)";

using Snapshot = std::map<std::string, std::string>;

// The contents of all files, past the log and the faults.
Snapshot TakeSnapshot(TestSystem& system) {
    Snapshot snapshot;
    for (const auto& [strFile, places] : GetAllFiles(system)) {
        snapshot[strFile] = kAbsent;
        for (const std::wstring& strPath : places) {
            if (!system.HasFile(strPath)) continue;
            EXPECT_EQ(snapshot[strFile], kAbsent) << strFile << " is there twice";
            snapshot[strFile] = system.GetBytes(strPath);
        }
    }
    return snapshot;
}

void PrintTo(const struct COperation& operation, std::ostream* pStream);

struct COperation {
    const char* pszName;
    std::function<int()> run;
    std::set<int> codes;  // the documented ones
    // Contents that a file may also have when a call has failed.
    std::vector<std::pair<std::string, std::string>> alsoAllowed = {};
};

void PrintTo(const COperation& operation, std::ostream* pStream) {
    *pStream << operation.pszName;
}

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

using Allowed = std::vector<std::pair<std::string, std::string>>;

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

std::vector<COperation> GetReadingOperations() {
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

std::vector<COperation> GetWritingOperations() {
    const auto createLine = [] {
        int nId = 99;
        std::wstring strName = L"left over";
        const int nCode = CreateLine(5, nId, strName);
        EXPECT_EQ(nId == 0, nCode != kLineOk);
        EXPECT_EQ(strName.empty(), nCode != kLineOk);
        return nCode;
    };
    const auto createLocalLine = [] {
        int nId = 99;
        std::wstring strName;
        return CreateLocalLine(6, L"PID", kDrawing, nId, strName);
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
        {"GetLocalLineList",
         [] {
             return RunGetLocalLineList(kDrawing, {L"Steam", L"Water"});
         },
         {0},
         WithRootFiles("root lines", 2, LiveLines({"KV2D_LINE_1 = Steam", "KV2D_LINE_2 = Water"}),
                       // The file was not read, and so made anew.
                       {{"local counter", Counter(3)},
                        {"local lines", LiveLines({"KV2D_LINE_2 = Steam", "KV2D_LINE_3 = Water"})},
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
                                                         "KV2D_LINE_4 = Line 4", "KV2D_LINE_5 = Line 5"})}})},
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
           Lines({"[General]", "LocalLineIni = 1", "ProjectGuid = 00000002-0000-0000-0000-000000000000"})}}},
    };
}

std::vector<COperation> GetAllOperations() {
    std::vector<COperation> operations = GetReadingOperations();
    for (auto&& more : {GetRepairingOperations(), GetWritingOperations()}) {
        operations.insert(operations.end(), more.begin(), more.end());
    }
    return operations;
}

class FaultTest : public testing::TestWithParam<COperation> {
  protected:
    void SetUp() override {
        TestSystem system(SystemKind::kMemory);
        ArrangeDatabase(system);
        m_before = TakeSnapshot(system);
        m_nExpected = GetParam().run();
        m_after = TakeSnapshot(system);
    }

    bool IsAllowed(const std::string& strFile, const std::string& strContent) const {
        const auto& also = GetParam().alsoAllowed;
        return strContent == m_before.at(strFile) || strContent == m_after.at(strFile) ||
               std::find(also.begin(), also.end(), std::pair(strFile, strContent)) != also.end();
    }

    // Whether the content is the first bytes, that many, of a content that the file may have.
    bool IsPartOfAllowed(const std::string& strFile, const std::string& strContent, size_t nBytes) const {
        if (strContent.size() != nBytes) return false;
        const auto isPart = [&](const std::string& strWhole) {
            return strWhole.substr(0, nBytes) == strContent;
        };
        const auto& also = GetParam().alsoAllowed;
        return isPart(m_after.at(strFile)) || std::any_of(also.begin(), also.end(), [&](const auto& allowed) {
                   return allowed.first == strFile && isPart(allowed.second);
               });
    }

    Snapshot m_before;
    Snapshot m_after;
    int m_nExpected = 0;
};

TEST_P(FaultTest, OneCallFails_GivesADocumentedCodeAndWholeFiles) {
    const size_t nRuns = ForEachFailingCall(ArrangeDatabase, [&](TestSystem& system) {
        const int nCode = GetParam().run();
        EXPECT_TRUE(GetParam().codes.count(nCode)) << nCode;
        for (const auto& [strFile, strContent] : TakeSnapshot(system)) {
            EXPECT_TRUE(IsAllowed(strFile, strContent)) << strFile << ":\n" << strContent;
        }
    });
    EXPECT_GT(nRuns, 1u);
}

// A disk that fills up leaves what was written so far.
TEST_P(FaultTest, EveryWriteFailsAtAByte_LeavesThatManyBytesOfAFile) {
    size_t nLargest = 0;
    for (const auto& [strFile, strContent] : m_after)
        nLargest = std::max(nLargest, strContent.size());
    for (size_t nByte = 0; nByte <= nLargest; ++nByte) {
        SCOPED_TRACE("byte " + std::to_string(nByte));
        TestSystem system(SystemKind::kMemory);
        ArrangeDatabase(system);
        system.GetMemory().files.FailWriteAt(L"", nByte);
        const int nCode = GetParam().run();
        EXPECT_TRUE(GetParam().codes.count(nCode)) << nCode;
        for (const auto& [strFile, strContent] : TakeSnapshot(system)) {
            EXPECT_TRUE(IsAllowed(strFile, strContent) || IsPartOfAllowed(strFile, strContent, nByte))
                << strFile << ":\n"
                << strContent;
        }
        // What is left of the files can be read.
        system.GetMemory().files.ClearFaults();
        GetParam().run();
    }
}

TEST_P(FaultTest, FilesCannotBeCreated_StayAsTheyAre) {
    TestSystem system(SystemKind::kMemory);
    ArrangeDatabase(system);
    system.GetMemory().files.RefuseCreate(L"");
    const int nCode = GetParam().run();
    EXPECT_TRUE(GetParam().codes.count(nCode)) << nCode;
    EXPECT_EQ(TakeSnapshot(system), m_before);
}

TEST_P(FaultTest, FoldersCannotBeRenamed_GivesADocumentedCodeAndWholeFiles) {
    TestSystem system(SystemKind::kMemory);
    ArrangeDatabase(system);
    system.GetMemory().files.RefuseMove(L"");
    const int nCode = GetParam().run();
    EXPECT_TRUE(GetParam().codes.count(nCode)) << nCode;
    for (const auto& [strFile, strContent] : TakeSnapshot(system)) {
        EXPECT_TRUE(IsAllowed(strFile, strContent)) << strFile << ":\n" << strContent;
    }
}

TEST_P(FaultTest, FileHeldByAnotherProcess_StaysAsItIs) {
    for (const auto& [strFile, strContent] : m_before) {
        if (strContent == kAbsent) continue;
        for (platform::Hold hold : {platform::Hold::kReading, platform::Hold::kReadingShared,
                                    platform::Hold::kWriting, platform::Hold::kWritingShared}) {
            SCOPED_TRACE(strFile + " held " + std::to_string(static_cast<int>(hold)));
            TestSystem system(SystemKind::kMemory);
            ArrangeDatabase(system);
            const auto held = system.HoldFile(GetAllFiles(system)[strFile].front(), hold);
            const int nCode = GetParam().run();
            EXPECT_TRUE(GetParam().codes.count(nCode)) << nCode;
            EXPECT_EQ(TakeSnapshot(system)[strFile], strContent);
        }
    }
}

std::string GetTestName(const testing::TestParamInfo<COperation>& operation) {
    std::string strName = operation.param.pszName;
    for (char& ch : strName) {
        if (!std::isalnum(static_cast<unsigned char>(ch))) ch = '_';
    }
    return strName;
}

INSTANTIATE_TEST_SUITE_P(All, FaultTest, testing::ValuesIn(GetAllOperations()), GetTestName);

}  // namespace
