// Messages from other programs of the suite: a process of its own finds the palette through the registry and
// asks it for something.
#include <gmock/gmock.h>

#include "palette_fixture.h"

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

namespace {

constexpr int kChoicesChanged = 1;
constexpr int kLineNeeded = 2;
constexpr int kLinesChanged = 3;

class PaletteMessages : public PaletteTest {
  protected:
    // What the other program ends with while this one goes on; -1 if it does not end.
    int Call(int code, int value) {
        SYSTEMTIME now{};
        GetLocalTime(&now);
        wchar_t command[512];
        wchar_t folder[MAX_PATH];
        GetModuleFileNameW(nullptr, folder, MAX_PATH);
        std::wstring program = folder;
        program.replace(program.find_last_of(L'\\') + 1, std::wstring::npos, L"palette_caller.exe");
        swprintf(command, 512, L"palette_caller %lu %04d%02d %d %d", GetCurrentProcessId(), now.wYear,
                 now.wMonth, code, value);
        STARTUPINFOW start{};
        start.cb = sizeof(start);
        PROCESS_INFORMATION process{};
        if (!CreateProcessW(program.c_str(), command, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                            &process)) {
            ADD_FAILURE() << "the other program does not start: error " << GetLastError();
            return -1;
        }
        const bool ended =
            windows::WaitFor([&] { return WaitForSingleObject(process.hProcess, 0) == WAIT_OBJECT_0; },
                             std::chrono::seconds(30));
        DWORD status = 0;
        GetExitCodeProcess(process.hProcess, &status);
        if (!ended) TerminateProcess(process.hProcess, 9);
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
        return ended ? static_cast<int>(status) : -1;
    }
    std::int32_t StoredLine() { return Stored(&CKV2D_DocXData::m_lineId); }
};

}  // namespace

TEST_F(PaletteMessages, WithoutAPalette_NobodyIsFound) {
    Start();
    EXPECT_EQ(Call(kChoicesChanged, 0), 2);
}

TEST_F(PaletteMessages, ChoicesChanged_ShowsTheRecord) {
    StartWithDrawing(kAppPid);
    Store([](CKV2D_DocXData& data) { data.m_specId = 7; });
    EXPECT_EQ(Palette().Choice(kSpecRow), L"");
    EXPECT_EQ(Call(kChoicesChanged, 0), 0);
    EXPECT_EQ(Palette().Choice(kSpecRow), L"SS300");
}

TEST_F(PaletteMessages, LineNeeded_StoresTheFirstLineThatIsOffered) {
    StartWithDrawing(kAppPid);
    FilterLines({11});
    EXPECT_EQ(Call(kLineNeeded, 5), 0);
    EXPECT_EQ(StoredLine(), 12);
}

TEST_F(PaletteMessages, LineNeeded_ReadsTheFileAnew) {
    StartWithDrawing(kAppPid);
    m_database.WithLine(5, 10, "A-first");
    EXPECT_EQ(Call(kLineNeeded, 5), 0);
    EXPECT_EQ(StoredLine(), 10);
}

TEST_F(PaletteMessages, LineNeeded_ForADrawingThatHasOne_ChangesNothing) {
    StartWithDrawing(kAppPid);
    Store([](CKV2D_DocXData& data) { data.m_lineId = 13; });
    EXPECT_EQ(Call(kLineNeeded, 5), 0);
    EXPECT_EQ(StoredLine(), 13);
}

TEST_F(PaletteMessages, LineNeeded_OfNoProjectOrOneWithoutLines_ChangesNothing) {
    StartWithDrawing(kAppPid);
    for (int project : {0, -5, 6, 999}) {
        EXPECT_EQ(Call(kLineNeeded, project), 0) << project;
        EXPECT_EQ(StoredLine(), 0) << project;
    }
}

TEST_F(PaletteMessages, LineNeeded_OfAProjectWithLocalLines_TakesTheDrawings) {
    UseUsualDatabase();
    m_database.WithLocalLines(6, InRoot(L"Local"));
    PutFile(InRoot(L"Local\\PID_6_Plantline.ini"), Lines({"[LineList]", "KV2D_LINE_42 = L-42"}));
    StartPalette(kAppPid);
    const std::wstring path = InRoot(L"KV2D_PRJ_6\\Plant.dwg");
    PutDrawing(path, [this](AcDbDatabase&) { Store([](CKV2D_DocXData& data) { data.m_appId = kAppPid; }); });
    Open(path);
    // The file as it is now: a drawing's own lines are read anew each time.
    PutFile(InRoot(L"Local\\PID_6_Plantline.ini"), Lines({"[LineList]", "KV2D_LINE_43 = L-43"}));
    EXPECT_EQ(Call(kLineNeeded, 6), 0);
    EXPECT_EQ(StoredLine(), 43);
}

TEST_F(PaletteMessages, LinesChanged_ReadsThemAnew) {
    StartWithDrawing(kAppPid);
    m_database.WithLine(5, 16, "P-16");
    Refill();
    EXPECT_THAT(Palette().Items(kPidLineRow), Not(Contains(L"P-16")));
    EXPECT_EQ(Call(kLinesChanged, 5), 0);
    EXPECT_THAT(Palette().Items(kPidLineRow), Contains(L"P-16"));
}

TEST_F(PaletteMessages, LinesOfADrawingChanged_ReadsThemAnew) {
    UseUsualDatabase();
    m_database.WithLocalLines(6, InRoot(L"Local"));
    const std::wstring file = InRoot(L"Local\\PID_6_Plantline.ini");
    PutFile(file, Lines({"[LineList]", "KV2D_LINE_42 = L-42"}));
    StartPalette(kAppPid);
    const std::wstring path = InRoot(L"KV2D_PRJ_6\\Plant.dwg");
    PutDrawing(path, [this](AcDbDatabase&) { Store([](CKV2D_DocXData& data) { data.m_appId = kAppPid; }); });
    Open(path);
    PutFile(file, Lines({"[LineList]", "KV2D_LINE_42 = L-42", "KV2D_LINE_43 = L-43"}));
    EXPECT_EQ(Call(kLinesChanged, 6), 0);
    EXPECT_THAT(Palette().Items(kPidLineRow), ElementsAre(L"L-42", L"L-43"));
}

TEST_F(PaletteMessages, OtherCodes_DoNothing) {
    StartWithDrawing(kAppPid);
    Store([](CKV2D_DocXData& data) { data.m_specId = 7; });
    m_database.WithLine(5, 16, "P-16");
    for (int code : {0, 4, 99, -1}) {
        EXPECT_EQ(Call(code, 5), 0) << code;
        EXPECT_EQ(Palette().Choice(kSpecRow), L"") << code;
        EXPECT_THAT(Palette().Items(kPidLineRow), SizeIs(3)) << code;
        EXPECT_EQ(StoredLine(), 0) << code;
    }
}

TEST_F(PaletteMessages, WithoutADrawing_EveryCodeIsSafe) {
    UseUsualDatabase();
    StartPalette(kAppIsometric);
    CloseAllDrawings();
    for (int code : {kChoicesChanged, kLineNeeded, kLinesChanged})
        EXPECT_EQ(Call(code, 5), 0) << code;
    EXPECT_THAT(Palette().Items(kLineRow), IsEmpty());
}

TEST_F(PaletteMessages, HiddenPalette_AnswersToo) {
    StartWithDrawing(kAppPid);
    Frame().ShowControlBar(Set(L"PID"), FALSE, FALSE);
    EXPECT_EQ(Call(kLineNeeded, 5), 0);
    EXPECT_EQ(StoredLine(), 11);
}

TEST_F(PaletteMessages, DockedAndFloated_IsFoundAtTheSameHandle) {
    StartWithDrawing(kAppPid);
    Frame().Docks().Dock(*Set(L"PID"), frame::DockSide::kFloating);
    EXPECT_EQ(Call(kLineNeeded, 5), 0);
    EXPECT_EQ(StoredLine(), 11);
}
