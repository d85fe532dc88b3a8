// The module in the workbench: loading and unloading, the host's messages, and what LISP can do to the
// palette.
#include <acdocman.h>
#include <adui.h>
#include <rxdlinkr.h>
#include <rxmfcapi.h>

#include <cstdlib>

#include "frame/main_frame.h"
#include "frame/session.h"
#include "known_controls.h"
#include "support/test_platform.h"
#include "support/windows_driver.h"

namespace {

using platform::Hive;

constexpr wchar_t kPidKey[] = L"Software\\KALVOR\\Orvex\\2023\\KALVOR 2D\\PID\\ToolboxMenu";

std::wstring ProgramFolder() {
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::wstring(path).substr(0, std::wstring(path).find_last_of(L'\\') + 1);
}

// A session with the module, on a registry and an environment of its own. The controls' keys are as the
// registrar leaves them, so that loading asks nothing; the menu control itself cannot be made, and the
// palette says so.
class ModuleTest : public SystemTest {
  protected:
    void SetUp() override {
        OleInitialize(nullptr);
        PutFolder(InRoot(L"Common\\KALVOR"));
        SetEnvironmentVariableW(L"CommonProgramFiles", InRoot(L"Common").c_str());
        SetMachineValue(L"NetworkAppPath", InRoot(L"App"));
        SetMachineValue(L"Installation", L"User Settings Path", GetRoot());
    }
    void TearDown() override {
        m_session.reset();
        windows::PumpWaiting();
        OleUninitialize();
    }

    void Start() {
        frame::Options options;
        options.module = ProgramFolder() + L"kv2dMenuOEM64.arx";
        m_session = std::make_unique<frame::Session>();
        ASSERT_TRUE(m_session->Start(options));
        windows::PumpWaiting();
    }
    void Enter(const wchar_t* line) {
        m_session->Enter(line);
        windows::PumpWaiting();
    }
    size_t CountSaid(const std::wstring& text) const {
        size_t count = 0;
        const std::wstring said = m_session->TheTranscript().Text();
        for (size_t at = said.find(text); at != std::wstring::npos; at = said.find(text, at + 1))
            ++count;
        return count;
    }
    DWORD ShowMenu() {
        std::uint32_t value = 99;
        platform::GetRegistry().ReadDword(Hive::kCurrentUser, kPidKey, L"Show Menu", value);
        return value;
    }
    // A control of the palette's dialog; null while there is none.
    HWND FindPaletteControl(int id) const {
        struct Search {
            int id;
            HWND found;
        } search = {id, nullptr};
        EnumThreadWindows(
            GetCurrentThreadId(),
            [](HWND window, LPARAM data) -> BOOL {
                EnumChildWindows(
                    window,
                    [](HWND child, LPARAM inner) -> BOOL {
                        auto* sought = reinterpret_cast<Search*>(inner);
                        if (GetDlgCtrlID(child) == sought->id) sought->found = child;
                        return sought->found == nullptr;
                    },
                    data);
                return reinterpret_cast<Search*>(data)->found == nullptr;
            },
            reinterpret_cast<LPARAM>(&search));
        return search.found;
    }
    HWND NotifyWindow() const { return GetDlgItem(m_session->Frame()->m_hWnd, 10); }

    std::unique_ptr<frame::Session> m_session;
};

TEST_F(ModuleTest, LoadWithoutControls_TellsEachAndGoesOn) {
    const windows::BoxAnswers boxes({IDOK, IDOK, IDOK});
    Start();
    ASSERT_EQ(boxes.Shown().size(), 3u);
    EXPECT_EQ(boxes.Shown()[0].text, L"Couldn't find ocx file: \n" +
                                         InRoot(L"Common\\KALVOR\\KalvorMenu.ocx") +
                                         L"\n\nPlease check software installation.");
    EXPECT_EQ(boxes.Shown()[0].owner, m_session->Frame()->m_hWnd);
    EXPECT_EQ(boxes.Shown()[1].text, L"Couldn't find ocx file: \n" +
                                         InRoot(L"Common\\KALVOR\\DwgThumbnail.ocx") +
                                         L"\n\nPlease check software installation.");
    EXPECT_EQ(boxes.Shown()[1].owner, nullptr);
    EXPECT_EQ(boxes.Shown()[2].text,
              L"The AutoCAD Drawing Thumbnail ActiveX control\nappears not to be properly "
              L"installed.\n\nPlease check "
              L"software installation.");
    EXPECT_NE(NotifyWindow(), nullptr);
    Enter(L"(kv2dMenu_Init 2)");
    EXPECT_EQ(CountSaid(L"Function format is: BOOL.success (kv2dMenu_Init eApp BOOL.ini)"), 1u);
}

TEST_F(ModuleTest, LoadWithKnownControls_AsksNothing) {
    KnowControls();
    const windows::BoxAnswers boxes;
    Start();
    EXPECT_TRUE(boxes.Shown().empty());
    EXPECT_EQ(CountSaid(L"Loading "), 1u);
    EXPECT_EQ(CMDIFrameWnd::FromHandle(GetParent(NotifyWindow())), m_session->Frame());
}

TEST_F(ModuleTest, LoadWithoutControls_LeavesTheCommandsThere) {
    const windows::BoxAnswers boxes({IDOK, IDOK, IDOK});
    Start();
    for (const wchar_t* command : {L"kv2dDrawingManager", L"_kv2dDrawingManager", L"KV2DDRAWINGMANAGER"})
        Enter(command);
    EXPECT_EQ(CountSaid(L"Unknown command"), 0u);
    Enter(L"kv2dNoSuchCommand");
    EXPECT_EQ(CountSaid(L"Unknown command"), 1u);
}

TEST_F(ModuleTest, LastKeyOfTheThumbnailWrong_IsToldWithoutRunningTheRegistrar) {
    KnowControls();
    platform::GetRegistry().WriteString(Hive::kLocalMachine,
                                        L"Software\\Classes\\AUTOCAD.DwgThumbnailCtrl.4\\CLSID", L"", L"{}");
    const windows::BoxAnswers boxes({IDOK});
    Start();
    ASSERT_EQ(boxes.Shown().size(), 1u) << "no box about a missing file";
    EXPECT_TRUE(boxes.Shown()[0].text.starts_with(L"The AutoCAD Drawing Thumbnail ActiveX control"));
    EXPECT_EQ(boxes.Shown()[0].owner, m_session->Frame()->m_hWnd);
    EXPECT_EQ(boxes.Shown()[0].caption, L"");
}

TEST_F(ModuleTest, EveryDocument_HasTheFunctions) {
    KnowControls();
    Start();
    Enter(L"(kv2dMenu_SetTabbedMenu)");
    Enter(L"_.NEW");
    Enter(L"");
    Enter(L"(kv2dMenu_SetTabbedMenu)");
    EXPECT_EQ(CountSaid(L"Function format is: VOID (kv2dMenu_SetTabbedMenu STR.Menu)"), 2u);
    EXPECT_EQ(CountSaid(L"no function definition"), 0u);
}

TEST_F(ModuleTest, DocXDataHasChanged_ShowsTheStoredChoiceAgain) {
    KnowControls();
    const windows::BoxAnswers boxes({IDOK, IDOK});
    Start();
    Enter(L"(kv2dMenu_Init 1 nil)");
    const HWND combo = FindPaletteControl(209);
    ASSERT_NE(combo, nullptr);
    // Without a notification: what shows is no longer what is stored.
    SendMessageW(combo, CB_SETCURSEL, 1, 0);
    Enter(L"(kv2dMenu_DocXDataHasChanged)");
    EXPECT_EQ(SendMessageW(combo, CB_GETCURSEL, 0, 0), 0);
}

TEST_F(ModuleTest, DocXRecordHasChanged_LooksAtTheDrawingAnew) {
    KnowControls();
    const windows::BoxAnswers boxes({IDOK});
    Start();
    Enter(L"(kv2dMenu_Init 2 nil)");
    const HWND combo = FindPaletteControl(209);
    ASSERT_NE(combo, nullptr);
    EnableWindow(combo, TRUE);
    Enter(L"(kv2dMenu_DocXRecordHasChanged)");
    EXPECT_FALSE(IsWindowEnabled(combo)) << "a drawing without a project";
}

TEST_F(ModuleTest, LoadTwice_IsOneModule) {
    KnowControls();
    Start();
    acrxDynamicLinker->loadModule((ProgramFolder() + L"kv2dMenuOEM64.arx").c_str(), false);
    EXPECT_EQ(CountSaid(L"Loading "), 1u);
}

TEST_F(ModuleTest, UserCannotUnload_BecauseTheModuleLocksItself) {
    KnowControls();
    Start();
    const std::wstring path = ProgramFolder() + L"kv2dMenuOEM64.arx";
    EXPECT_TRUE(acrxDynamicLinker->isApplicationLocked(path.c_str()));
    EXPECT_FALSE(acrxDynamicLinker->unloadModule(path.c_str(), false));
    EXPECT_NE(NotifyWindow(), nullptr);
}

TEST_F(ModuleTest, MessagesWithoutMeaning_GiveZeroAndTouchNothing) {
    KnowControls();
    Start();
    const HMODULE module = GetModuleHandleW(L"kv2dMenuOEM64.arx");
    ASSERT_NE(module, nullptr);
    using EntryPoint = int (*)(int, void*);
    const auto entry =
        reinterpret_cast<EntryPoint>(reinterpret_cast<void*>(GetProcAddress(module, "acrxEntryPoint")));
    ASSERT_NE(entry, nullptr);
    for (int message : {0, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 255, -1})
        EXPECT_EQ(entry(message, nullptr), 0) << message;
    EXPECT_NE(NotifyWindow(), nullptr);
    EXPECT_EQ(CountSaid(L"Loading "), 1u);
}

TEST_F(ModuleTest, Init_ShowsThePaletteAndStoresIt) {
    KnowControls();
    const windows::BoxAnswers boxes({IDOK});
    Start();
    Enter(L"(princ (kv2dMenu_Init 2 T))");
    ASSERT_EQ(boxes.Shown().size(), 1u);
    EXPECT_EQ(boxes.Shown()[0].text, L"Error opening menu:\n" + InRoot(L"App\\Tessarc\\PID\\PID16.tbm"));
    EXPECT_EQ(boxes.Shown()[0].caption, L"TESSARC + Tabbed Menu Toolbox");
    EXPECT_EQ(ShowMenu(), 1u);
}

TEST_F(ModuleTest, Init_WithStoredZero_HidesUnlessForced) {
    KnowControls();
    const windows::BoxAnswers boxes({IDOK});
    Start();
    platform::GetRegistry().WriteDword(Hive::kCurrentUser, kPidKey, L"Show Menu", 0);
    Enter(L"(princ (if (kv2dMenu_Init 2 T) \"gave T\" \"gave nil\"))");
    EXPECT_EQ(CountSaid(L"gave nil"), 1u) << "only in the input";
    EXPECT_GT(CountSaid(L"gave T"), 1u);
    EXPECT_EQ(ShowMenu(), 0u);
    Enter(L"(kv2dMenu_Init 2 nil)");
    EXPECT_EQ(ShowMenu(), 1u);
}

TEST_F(ModuleTest, InitOfAnotherDiscipline_KeepsTheFirst) {
    KnowControls();
    const windows::BoxAnswers boxes({IDOK});
    Start();
    Enter(L"(kv2dMenu_Init 2 T)");
    Enter(L"(kv2dMenu_Init 3 T)");
    EXPECT_EQ(boxes.Shown().size(), 1u) << "no second palette opened a menu";
    std::uint32_t value = 0;
    EXPECT_FALSE(platform::GetRegistry().ReadDword(
        Hive::kCurrentUser, L"Software\\KALVOR\\Orvex\\2023\\KALVOR 2D\\ISOMETRIC\\ToolboxMenu", L"Show Menu",
        value));
}

TEST_F(ModuleTest, WrongArguments_PrintTheFormat) {
    KnowControls();
    Start();
    Enter(L"(kv2dMenu_Init 2.0 T)");
    EXPECT_EQ(CountSaid(L"Function format is: BOOL.success (kv2dMenu_Init eApp BOOL.ini)"), 1u);
    Enter(L"(kv2dMenu_DocXDataHasChanged 1)");
    EXPECT_EQ(CountSaid(L"Function format is: VOID (kv2dMenu_DocXDataHasChanged)"), 1u);
    Enter(L"(kv2dMenu_DocXRecordHasChanged nil)");
    EXPECT_EQ(CountSaid(L"Function format is: VOID (kv2dMenu_DocXRecordHasChanged)"), 1u);
    Enter(L"(kv2dMenu_SetTabbedMenu)");
    EXPECT_EQ(CountSaid(L"Function format is: VOID (kv2dMenu_SetTabbedMenu STR.Menu)"), 1u);
    Enter(L"(kv2dMenu_SetToggleState \"x\")");
    EXPECT_EQ(CountSaid(L"Function format is: VOID (kv2dMenu_SetToggleState STR.ToggleName BOOL.State)"), 1u);
}

TEST_F(ModuleTest, WithoutAPalette_TheFunctionsDoNothing) {
    KnowControls();
    const windows::BoxAnswers boxes;
    Start();
    Enter(L"(kv2dMenu_DocXDataHasChanged)");
    Enter(L"(kv2dMenu_DocXRecordHasChanged)");
    Enter(L"(kv2dMenu_SetTabbedMenu \"SCHEMATIC\")");
    Enter(L"(kv2dMenu_SetToggleState \"x\" 5)");
    EXPECT_EQ(CountSaid(L"Function format"), 0u);
    SendMessageW(NotifyWindow(), 1924, 1, 0);
    EXPECT_TRUE(boxes.Shown().empty());
}

// 100 times in a run of the suite; KV2D_LOADS=1000 in the environment makes it any other number.
TEST_F(ModuleTest, LoadAndUnloadManyTimes_LeavesNothingBehind) {
    const char* wanted = std::getenv("KV2D_LOADS");
    const int loads = wanted ? std::atoi(wanted) : 100;
    KnowControls();
    const auto once = [this] {
        Start();
        m_session.reset();
        windows::PumpWaiting();
    };
    for (int i = 0; i < 3; ++i)
        once();
    const windows::HandleCount before = windows::HandleCount::Now();
    for (int i = 0; i < loads; ++i)
        once();
    const windows::HandleCount after = windows::HandleCount::Now();
    EXPECT_LE(after.gdi, before.gdi + 2);
    EXPECT_LE(after.windows, before.windows);
    EXPECT_EQ(GetModuleHandleW(L"kv2dMenuOEM64.arx"), nullptr);
}

}  // namespace
