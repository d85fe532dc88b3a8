#include "palette_fixture.h"

#include <acdbads.h>
#include <afxwin.h>
#include <dbobjptr.h>
#include <dbxrecrd.h>
#include <gmock/gmock.h>
#include <objbase.h>
#include <rxdlinkr.h>

#include "document/drawing_queries.h"
#include "known_controls.h"
#include "palette/palette_layout.h"
#include "palette/palette_rows.h"
#include "storage/install_paths.h"
#include "storage/registry_settings.h"
#include "unit/document/xdata_items.h"

namespace {

// The program's one application object.
CWinApp g_app(L"Palette test");

constexpr CLSID kMenuClass = {0xBC137D8F, 0x1378, 0x43CE, {0x98, 0xAF, 0xE2, 0x63, 0x57, 0x33, 0xFE, 0xC7}};

// The module beside the program.
std::wstring ModulePath() {
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::wstring(path).substr(0, std::wstring(path).find_last_of(L'\\') + 1) + L"kv2dMenuOEM64.arx";
}

std::wstring GetVariable(const wchar_t* name) {
    wchar_t value[1024] = L"";
    GetEnvironmentVariableW(name, value, 1024);
    return value;
}

HWND FirstChildOfClass(HWND parent, const wchar_t* name) {
    for (HWND child = GetWindow(parent, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        if (windows::ClassOf(child) == name) return child;
        if (const HWND below = FirstChildOfClass(child, name)) return below;
    }
    return nullptr;
}

}  // namespace

// --- PaletteWindow

int PaletteWindow::ComboId(int row) {
    return IDC_PALETTE_COMBO_1 + 2 * row;
}

int PaletteWindow::TitleId(int row) {
    return IDC_PALETTE_TITLE_1 + 2 * row;
}

std::vector<std::wstring> PaletteWindow::Items(int row) const {
    const HWND combo = Combo(row);
    std::vector<std::wstring> items;
    const auto count = static_cast<WPARAM>(SendMessageW(combo, CB_GETCOUNT, 0, 0));
    for (WPARAM i = 0; i < count; ++i) {
        std::wstring text(static_cast<size_t>(SendMessageW(combo, CB_GETLBTEXTLEN, i, 0)), L'\0');
        SendMessageW(combo, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(text.data()));
        items.push_back(text);
    }
    return items;
}

std::vector<int> PaletteWindow::Data(int row) const {
    const HWND combo = Combo(row);
    std::vector<int> data;
    const auto count = static_cast<WPARAM>(SendMessageW(combo, CB_GETCOUNT, 0, 0));
    for (WPARAM i = 0; i < count; ++i)
        data.push_back(static_cast<int>(SendMessageW(combo, CB_GETITEMDATA, i, 0)));
    return data;
}

int PaletteWindow::ChosenIndex(int row) const {
    return static_cast<int>(SendMessageW(Combo(row), CB_GETCURSEL, 0, 0));
}

std::wstring PaletteWindow::Choice(int row) const {
    const int index = ChosenIndex(row);
    return index < 0 ? std::wstring() : Items(row)[static_cast<size_t>(index)];
}

bool PaletteWindow::Shown(int id) const {
    return (GetWindowLongPtrW(windows::Control(m_dialog, id), GWL_STYLE) & WS_VISIBLE) != 0;
}

RECT PaletteWindow::RectOf(int id) const {
    RECT rect{};
    GetWindowRect(windows::Control(m_dialog, id), &rect);
    MapWindowPoints(nullptr, m_dialog, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

int PaletteWindow::Width() const {
    RECT rect{};
    GetClientRect(m_dialog, &rect);
    return rect.right;
}

int PaletteWindow::Height() const {
    RECT rect{};
    GetClientRect(m_dialog, &rect);
    return rect.bottom;
}

// --- SentMessages

namespace {

UINT g_wantedMessage = 0;
std::vector<CWPSTRUCT> g_sentMessages;

LRESULT CALLBACK NoteSentMessage(int code, WPARAM wParam, LPARAM lParam) {
    const auto* sent = reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code == HC_ACTION && sent->message == g_wantedMessage) g_sentMessages.push_back(*sent);
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

SentMessages::SentMessages(UINT message) {
    g_wantedMessage = message;
    g_sentMessages.clear();
    m_hook = SetWindowsHookExW(WH_CALLWNDPROC, NoteSentMessage, nullptr, GetCurrentThreadId());
}

SentMessages::~SentMessages() {
    UnhookWindowsHookEx(m_hook);
}

const std::vector<CWPSTRUCT>& SentMessages::Seen() const {
    return g_sentMessages;
}

int SentMessages::To(HWND window) const {
    return static_cast<int>(std::count_if(Seen().begin(), Seen().end(),
                                          [window](const CWPSTRUCT& sent) { return sent.hwnd == window; }));
}

// --- PaletteTest: the program

PaletteTest::PaletteTest() : m_database(*this), m_commonFilesBefore(GetVariable(L"CommonProgramFiles")) {
    OleInitialize(nullptr);
    m_control = std::make_unique<test_control::Registration>(kMenuClass);
    test_control::Seen().loadsAll = true;
    PutFolder(InRoot(L"Common\\KALVOR"));
    SetEnvironmentVariableW(L"CommonProgramFiles", InRoot(L"Common").c_str());
    SetMachineValue(L"NetworkAppPath", InRoot(L"App"));
    SetMachineValue(L"Installation", L"User Settings Path", GetRoot());
    KnowControls();
    SetMenuSize(16);
}

PaletteTest::~PaletteTest() {
    End();
    SetEnvironmentVariableW(L"CommonProgramFiles", m_commonFilesBefore.c_str());
    m_control.reset();
    OleUninitialize();
}

void PaletteTest::SetMenuSize(int size) {
    PutFile(InRoot(L"UserSettings.ini"), Lines({"[AutoCAD Settings]", "MenuSize = " + std::to_string(size)}));
}

void PaletteTest::Start(const std::string& startUp, When module) {
    frame::Options options;
    if (!startUp.empty()) {
        options.lispFile = InRoot(L"start.lsp");
        PutFile(options.lispFile, startUp);
    }
    options.module = ModulePath();
    options.withoutModule = module == When::kLater;
    m_session = std::make_unique<frame::Session>();
    ASSERT_TRUE(m_session->Start(options));
    Frame().SetWindowPos(nullptr, 0, 0, 1000, 800, SWP_NOZORDER);
    windows::PumpWaiting();
}

void PaletteTest::LoadModule() {
    ASSERT_TRUE(acrxDynamicLinker->loadModule(ModulePath().c_str(), false));
}

void PaletteTest::Init(int app, bool useStored) {
    Enter(L"(kv2dMenu_Init " + std::to_wstring(app) + (useStored ? L" T)" : L" nil)"));
}

void PaletteTest::End() {
    m_session.reset();
    windows::PumpWaiting();
}

void PaletteTest::Enter(const std::wstring& line) {
    m_session->Enter(line);
    windows::PumpWaiting();
}

bool PaletteTest::Said(const std::wstring& text) const {
    return m_session->TheTranscript().Text().find(text) != std::wstring::npos;
}

bool PaletteTest::SetShows(const wchar_t* name) {
    CAdUiDockControlBar* set = Set(name);
    return set && set->IsWindowVisible();
}

// --- the palette

PaletteWindow PaletteTest::Palette() {
    for (const wchar_t* name : {L"ELECTRIC", L"PID", L"ISOMETRIC", L"ORTHO", L""}) {
        if (CAdUiDockControlBar* set = Set(name))
            return PaletteWindow(FirstChildOfClass(set->m_hWnd, L"#32770"));
    }
    ADD_FAILURE() << "there is no palette";
    return PaletteWindow();
}

void PaletteTest::ChooseIndex(int row, int index) {
    windows::SelectRow(Palette().Dialog(), PaletteWindow::ComboId(row), index);
    windows::PumpWaiting();
}

void PaletteTest::Choose(int row, const std::wstring& item) {
    const std::vector<std::wstring> items = Palette().Items(row);
    const auto found = std::find(items.begin(), items.end(), item);
    ASSERT_NE(found, items.end()) << "no item in row " << row;
    ChooseIndex(row, static_cast<int>(found - items.begin()));
}

void PaletteTest::WaitForLayout() {
    // Its last sign: the button's width, which follows every width.
    const PaletteWindow palette = Palette();
    EXPECT_TRUE(windows::WaitFor([&] {
        const RECT button = palette.RectOf(IDC_PALETTE_DRAWING_MANAGER);
        return button.right - button.left == std::max(palette.Width() - 15, 0) && button.top == 5;
    }));
}

void PaletteTest::ResizeSet(int width, int height) {
    for (const wchar_t* name : {L"ELECTRIC", L"PID", L"ISOMETRIC", L"ORTHO", L""}) {
        if (CAdUiDockControlBar* set = Set(name)) Frame().Docks().Resize(*set, width, height);
    }
    WaitForLayout();
}

std::uint32_t PaletteTest::StoredNumber(int app, const std::wstring& subkey, const std::wstring& name,
                                        std::uint32_t missing) {
    return ReadDisciplineDword(app, subkey, name, missing);
}

void PaletteTest::CloseAllDrawings() {
    while (AcApDocument* document = acDocManager->curDocument())
        ASSERT_EQ(acDocManager->appContextCloseDocument(document), Acad::eOk);
}

std::vector<PaletteTest::Sent> PaletteTest::SentBy(const std::function<void()>& action) {
    std::deque<workbench::host::QueuedInput>& queue = Host().Documents().Current()->Queue();
    queue.clear();
    // A frame that is disabled, as below a dialog, runs nothing.
    Frame().EnableWindow(FALSE);
    action();
    std::vector<Sent> sent;
    for (const workbench::host::QueuedInput& input : queue)
        sent.push_back({input.text, input.echo, input.activate, input.wrapUpInactive});
    queue.clear();
    Frame().EnableWindow(TRUE);
    return sent;
}

// --- database

void PaletteTest::PutSizes(int count) {
    std::string text;
    for (const char* section :
         {"Imperial US Sizes", "Imperial NPS Sizes", "Metric OD Sizes", "Metric NPS Sizes"}) {
        text += "[" + std::string(section) + "]\r\n";
        for (int i = 1; i <= count; ++i)
            text += " " + std::to_string(i) + ".00 = " + std::to_string(i) + " " + section[0] + "\r\n";
    }
    PutFile(InData(L"Standards\\Piping\\ANSI\\size.tp"), text);
}

void PaletteTest::UseUsualDatabase() {
    PutSizes();
    m_database.WithClient(1, "Acme").WithProject(5, "Pump").WithProject(6, "Tank").WithClientProject(1, 5);
    for (int project : {5, 6})
        m_database.WithGeneral(project, "General", "ProjectVersion = 2016");
    m_database.WithSpec(3, "CS150").WithSpec(7, "SS300").WithSpec(8, "Off");
    m_database.WithEnabledSpec(5, "KV2D_SPEC_3").WithEnabledSpec(5, "KV2D_SPEC_7");
    m_database.WithLine(5, 11, "P-11").WithLine(5, 12, "P-12").WithLine(5, 13, "P-13");
    m_database.WithDeletedLine(5, 14, "P-14").WithLastLineId(14);
}

// --- drawings

AcApDocument* PaletteTest::NewDrawing(int projectId) {
    EXPECT_EQ(acDocManager->appContextNewDocument(nullptr), Acad::eOk);
    if (projectId != 0) {
        Store([&](CKV2D_DocXData& data) { data.m_projectId = projectId; });
        Refill();
    }
    return acDocManager->curDocument();
}

void PaletteTest::PutDrawing(const std::wstring& path, const std::function<void(AcDbDatabase&)>& fill) {
    ASSERT_EQ(acDocManager->appContextNewDocument(nullptr), Acad::eOk);
    AcApDocument* document = acDocManager->curDocument();
    if (fill) {
        acDocManager->lockDocument(document);
        fill(*document->database());
        acDocManager->unlockDocument(document);
    }
    PutFolder(path.substr(0, path.find_last_of(L'\\')));
    EXPECT_EQ(document->database()->saveAs(path.c_str()), Acad::eOk);
    EXPECT_EQ(acDocManager->appContextCloseDocument(document), Acad::eOk);
}

AcApDocument* PaletteTest::Open(const std::wstring& path) {
    EXPECT_EQ(acDocManager->appContextOpenDocument(path.c_str()), Acad::eOk);
    windows::PumpWaiting();
    return acDocManager->curDocument();
}

void PaletteTest::Activate(AcApDocument* document) {
    EXPECT_EQ(acDocManager->activateDocument(document), Acad::eOk);
    windows::PumpWaiting();
}

void PaletteTest::AddElement(int lineId, const wchar_t* block) {
    AcApDocument* document = acDocManager->curDocument();
    acDocManager->lockDocument(document);
    acdbRegApp(kDocXDataAppName);
    const AcDbObjectId id = TestDrawing(*document->database()).AddReference(block);
    {
        XDataItems items;
        items.App().Long(1).Short(0).Short(0).Text(L"VALVE").Long(0).Long(lineId);
        AcDbObjectPointer<AcDbBlockReference> reference(id, AcDb::kForWrite);
        EXPECT_EQ(reference->setXData(items.Get()), Acad::eOk);
    }
    acDocManager->unlockDocument(document);
}

void PaletteTest::FilterLines(const std::vector<int>& lineIds) {
    AcApDocument* document = acDocManager->curDocument();
    acDocManager->lockDocument(document);
    AcDbObjectId id;
    EXPECT_EQ(FindOrCreateXrecord(L"FilteredLineIds", kDocXDataAppName, id, true, nullptr), Acad::eOk);
    {
        XDataItems items;
        for (int lineId : lineIds)
            items.Long(lineId, 90);
        AcDbObjectPointer<AcDbXrecord> record(id, AcDb::kForWrite);
        EXPECT_EQ(record->setFromRbChain(*items.Get()), Acad::eOk);
    }
    acDocManager->unlockDocument(document);
}

void PaletteTest::Store(const std::function<void(CKV2D_DocXData&)>& change) {
    CKV2D_DocXData data(kDocXDataAppName);
    change(data);
    data.m_dirty = true;
}

std::int32_t PaletteTest::Stored(std::int32_t CKV2D_DocXData::*field) {
    return CKV2D_DocXData(kDocXDataAppName).*field;
}

int PaletteTest::Variable(const wchar_t* name) {
    int value = -1;
    EXPECT_TRUE(GetSysVarShort(name, value));
    return value;
}
