#include "dm_fixture.h"

#include "drawing_manager/manager_registry.h"
#include "drawing_manager/palette_discipline.h"
#include "storage/applications.h"
#include "storage/registry_settings.h"

int g_nPaletteDiscipline = kAppPid;

int GetPaletteDiscipline() {
    return g_nPaletteDiscipline;
}

namespace {

std::string Narrow(const std::wstring& text) {
    return platform::GetText().Narrow(text);
}

}  // namespace

DrawingManagerTest::DrawingManagerTest() : m_database(*this) {
    g_nPaletteDiscipline = kAppPid;
}

void DrawingManagerTest::AddStandardWithoutLocation(int id, const std::string& name) {
    m_database.WithProject(id, name).WithGeneral(id, "General", "ProjectVersion = 2016");
}

void DrawingManagerTest::AddStandard(int id, const std::string& name, const std::wstring& drawingsFolder) {
    AddStandardWithoutLocation(id, name);
    PutFolder(InRoot(drawingsFolder));
    m_database.WithGeneral(id, "Drawings Location", "PID = " + Narrow(InRoot(drawingsFolder)));
}

void DrawingManagerTest::UseUsualDatabase() {
    m_database.WithClient(1, "Acme");
    AddStandard(5, "Pump House", L"Drawings");
    AddStandard(6, "Tank Farm", L"Tanks");
    m_database.WithClientProject(1, 5);
    SetValue(kProjectIdValue, 5);
}

void DrawingManagerTest::PutDrawings(std::initializer_list<const wchar_t*> names) {
    for (const wchar_t* name : names)
        PutFile(InDrawings(name), "drawing");
}

void DrawingManagerTest::SetValue(const std::wstring& name, std::uint32_t value) {
    WriteDisciplineDword(g_nPaletteDiscipline, kManagerSubkey, name, value);
}

void DrawingManagerTest::SetValue(const std::wstring& name, const std::wstring& text) {
    WriteDisciplineString(g_nPaletteDiscipline, kManagerSubkey, name, text);
}

std::uint32_t DrawingManagerTest::GetNumber(const std::wstring& name, std::uint32_t missing) {
    return ReadDisciplineDword(g_nPaletteDiscipline, kManagerSubkey, name, missing);
}

std::wstring DrawingManagerTest::GetText(const std::wstring& name) {
    return ReadDisciplineString(g_nPaletteDiscipline, kManagerSubkey, name);
}

INT_PTR DrawingManagerTest::Run(ManagerDlg& dialog, const std::function<void(ManagerDriver&)>& action) {
    windows::WhenDialogOpens opened([&](HWND window) {
        ManagerDriver driver(window);
        action(driver);
        windows::PumpWaiting();
        if (!dialog.m_bEnded) driver.Escape();
    });
    return dialog.DoModal();
}

INT_PTR DrawingManagerTest::Run(const std::function<void(ManagerDriver&)>& action) {
    ManagerDlg dialog;
    return Run(dialog, action);
}

std::vector<windows::Box> DrawingManagerTest::RunAndAnswer(
    std::vector<int> answers, const std::function<void(ManagerDriver&)>& action) {
    windows::BoxAnswers boxes(std::move(answers));
    Run(action);
    return boxes.Shown();
}
