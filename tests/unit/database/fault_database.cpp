#include "fault_database.h"

#include "a_database.h"

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
    system.PutFile(strFirst + L"Iso.ini", Lines({"[Settings]", "Variable 044 = Plan1"}));
    system.PutFile(system.InData(L"Drawings\\a.dwg"), "drawing");
}

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
    for (const wchar_t* pszName :
         {L"General.ini", L"Lines.ini", L"Specs.ini", L"UserAccess.ini", L"Iso.ini", L"Ortho.ini"}) {
        const std::wstring strName = pszName;
        const std::string strNarrow(strName.begin(), strName.end());
        files["5 " + strNarrow] = {system.InData(L"Projects\\KV2D_PRJ_5 - Old\\" + strName),
                                   system.InData(L"Projects\\KV2D_PRJ_5 - New\\" + strName)};
        files["6 " + strNarrow] = {system.InData(L"Projects\\KV2D_PRJ_6\\" + strName),
                                   system.InData(L"Projects\\KV2D_PRJ_6 - Tank\\" + strName)};
    }
    return files;
}

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
