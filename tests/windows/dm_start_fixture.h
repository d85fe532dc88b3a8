// The module in the workbench with the palette of the flow diagrams, a small database, and what a launcher
// left in the registry.
#pragma once

#include <acdocman.h>
#include <afxwin.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "dm_driver.h"
#include "drawing_manager/manager_registry.h"
#include "frame/main_frame.h"
#include "frame/session.h"
#include "support/test_platform.h"
#include "support/windows_driver.h"
#include "unit/database/a_database.h"

inline constexpr UINT kNotifyMessage = 1924;
inline constexpr wchar_t kProductKeyName[] = L"Software\\KALVOR\\Orvex\\2023";
inline const std::wstring kLauncherKey = std::wstring(kProductKeyName) + L"\\TESSARC\\AutoCAD";
inline const std::wstring kManagerKey = std::wstring(kProductKeyName) + L"\\KALVOR 2D\\PID\\DrawingManager";

inline constexpr char kDrawing[] =
    "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n10\n0.0\n20\n0.0\n11\n10.0\n21\n5.0\n0\nENDSEC\n0\nEOF\n";

// The program's one application object, which the module asks for the automation object.
class TestApp : public CWinApp {
  public:
    TestApp() : CWinApp(L"Drawing Manager start test") {}
    LPDISPATCH GetIDispatch(BOOL addReference) override {
        if (addReference) m_dispatch->AddRef();
        return m_dispatch;
    }
    IDispatch* m_dispatch = nullptr;
};
extern TestApp g_app;

// Fails the test if a Drawing Manager other than `known` comes up while it lives, and puts that one away.
class NoManagerComes {
  public:
    explicit NoManagerComes(HWND known = nullptr) : m_timer(SetTimer(nullptr, 0, 10, &NoManagerComes::Look)) {
        s_known = known;
    }
    ~NoManagerComes() {
        windows::PumpWaiting();
        KillTimer(nullptr, m_timer);
    }

  private:
    static void CALLBACK Look(HWND, UINT, UINT_PTR, DWORD) {
        HWND dialog = nullptr;
        while ((dialog = FindWindowExW(nullptr, dialog, L"#32770", L"Drawing Manager")) != nullptr) {
            if (dialog == s_known || !IsWindowVisible(dialog)) continue;
            ADD_FAILURE() << "the Drawing Manager came up";
            PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
        }
    }
    static inline HWND s_known = nullptr;
    UINT_PTR m_timer;
};

class DrawingManagerStart : public SystemTest {
  protected:
    DrawingManagerStart() : m_database(*this) {}

    void SetUp() override {
        OleInitialize(nullptr);
        SetEnvironmentVariableW(L"CommonProgramFiles", InRoot(L"Common").c_str());
        SetMachineValue(L"NetworkAppPath", InRoot(L"App"));
        SetMachineValue(L"Installation", L"User Settings Path", GetRoot());
        m_database.WithClient(1, "Acme").WithClientProject(1, 5);
        AddStandard(5, "Pump House", L"Drawings");
        AddStandard(6, "Tank Farm", L"Tanks");
    }
    void TearDown() override {
        m_session.reset();
        windows::PumpWaiting();
        OleUninitialize();
    }

    void AddStandard(int id, const std::string& name, const std::wstring& folder) {
        PutFolder(InRoot(folder));
        m_database.WithProject(id, name)
            .WithGeneral(id, "General", "ProjectVersion = 2016")
            .WithGeneral(id, "Drawings Location", "PID = " + platform::GetText().Narrow(InRoot(folder)));
    }
    std::wstring InDrawings(const std::wstring& name) { return InRoot(L"Drawings\\" + name); }

    // A session with the palette of the flow diagrams. Without drawings it starts with an untitled one.
    void Start(const std::vector<std::wstring>& drawings = {}) {
        frame::Options options;
        options.drawings = drawings;
        m_session = std::make_unique<frame::Session>();
        ASSERT_TRUE(m_session->Start(options));
        g_app.m_dispatch = m_session->Automation();
        windows::PumpWaiting();
        Enter(L"(kv2dMenu_Init 2 T)");
        // The controls and the menu file are missing here, and the module says so.
        m_boxesOfStart = m_boxes.Shown().size();
    }
    void Enter(const wchar_t* line) {
        m_session->Enter(line);
        windows::PumpWaiting();
    }
    // The boxes since Start.
    std::vector<windows::Box> Boxes() const {
        return {m_boxes.Shown().begin() + static_cast<std::ptrdiff_t>(m_boxesOfStart), m_boxes.Shown().end()};
    }

    // As the command and the end of the last document ask for the Drawing Manager.
    void Request() { PostMessageW(GetDlgItem(*m_session->Frame(), 10), kNotifyMessage, 1, 0); }
    // The request that performs the hand-over and opens nothing.
    void SpendFirstRequest() {
        const NoManagerComes none;
        SetNumber(kManagerKey, kShowWindowValue, 0);
        Request();
        windows::PumpWaiting();
        SetNumber(kManagerKey, kShowWindowValue, 1);
    }
    // Runs what brings the dialog up, and in it `action`, which ends it.
    void InManager(const std::function<void()>& start, const std::function<void(ManagerDriver&)>& action) {
        const windows::WhenDialogOpens opened([&](HWND window) {
            ManagerDriver driver(window);
            action(driver);
        });
        start();
        EXPECT_TRUE(windows::WaitFor([&] { return opened.Ran(); }, std::chrono::seconds(60)));
        windows::PumpWaiting();
    }
    void InManager(const std::function<void(ManagerDriver&)>& action) {
        InManager([this] { Request(); }, action);
    }
    // Opens the rows and gives the answer OK.
    void OpenRows(const std::vector<std::wstring>& rows, int command) {
        InManager([&](ManagerDriver& driver) {
            driver.SelectRows(rows);
            driver.Command(command);
        });
    }

    void SetNumber(const std::wstring& key, const std::wstring& name, std::uint32_t value) {
        platform::GetRegistry().WriteDword(platform::Hive::kCurrentUser, key, name, value);
    }
    std::uint32_t GetNumber(const std::wstring& key, const std::wstring& name) {
        std::uint32_t value = 0xDEAD;
        platform::GetRegistry().ReadDword(platform::Hive::kCurrentUser, key, name, value);
        return value;
    }
    void LeaveByLauncher(std::uint32_t project, const std::wstring& drawing) {
        SetNumber(kLauncherKey, L"ProjectId", project);
        platform::GetRegistry().WriteString(platform::Hive::kCurrentUser, kLauncherKey, L"DrawingName",
                                            drawing);
    }
    static std::wstring CurrentFile() {
        const AcApDocument* document = acDocManager->curDocument();
        return document ? document->fileName() : L"";
    }

    ADatabase m_database;
    windows::BoxAnswers m_boxes;
    size_t m_boxesOfStart = 0;
    std::unique_ptr<frame::Session> m_session;
};
