// Whole sessions in this process: modules, documents, automation, the workspace, questions to the user.
#include <acadi.h>
#include <acedads.h>
#include <gtest/gtest.h>
#include <oleauto.h>

#include "frame/session.h"
#include "frame/window_finder.h"
#include "frame_fixture.h"
#include "host/host.h"

namespace frame_test {
namespace {

std::wstring ProgramFolder() {
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return std::wstring(path).substr(0, std::wstring(path).find_last_of(L'\\') + 1);
}

std::wstring TemporaryFolder() {
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    const std::wstring made = folder + std::to_wstring(GetCurrentProcessId()) + L"-frame-session\\";
    CreateDirectoryW(made.c_str(), nullptr);
    return made;
}

void WriteFileText(const std::wstring& path, const std::string& text) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    CloseHandle(file);
}

const std::string kDrawing =
    "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n10\n0.0\n20\n0.0\n11\n10.0\n21\n5.0\n0\nENDSEC\n0\nEOF\n";

class FrameSession : public testing::Test {
  protected:
    void SetUp() override {
        OleInitialize(nullptr);
        m_folder = TemporaryFolder();
        m_options.withoutModule = true;
    }
    void TearDown() override {
        m_session.reset();
        windows::PumpWaiting();
        OleUninitialize();
    }
    void Start() {
        m_session = std::make_unique<frame::Session>();
        ASSERT_TRUE(m_session->Start(m_options));
        windows::PumpWaiting();
    }
    workbench::host::Host& Host() { return m_session->TheHost(); }
    bool Said(const std::wstring& text) const {
        return m_session->TheTranscript().Text().find(text) != std::wstring::npos;
    }
    std::wstring Title() { return windows::TextOf(*m_session->Frame()); }
    std::wstring Drawing(const std::wstring& name, const std::string& text = kDrawing) {
        WriteFileText(m_folder + name, text);
        return m_folder + name;
    }
    std::wstring TestModule() { return ProgramFolder() + L"frame_test_module.arx"; }

    std::wstring m_folder;
    frame::Options m_options;
    std::unique_ptr<frame::Session> m_session;
};

// A system on which no window can be made, as one whose screen is not there yet.
class NoWindows {
  public:
    NoWindows() : m_hook(SetWindowsHookExW(WH_CBT, Refuse, nullptr, GetCurrentThreadId())) {}
    ~NoWindows() { UnhookWindowsHookEx(m_hook); }
    NoWindows(const NoWindows&) = delete;
    NoWindows& operator=(const NoWindows&) = delete;

  private:
    static LRESULT CALLBACK Refuse(int code, WPARAM wParam, LPARAM lParam) {
        return code == HCBT_CREATEWND ? 1 : CallNextHookEx(nullptr, code, wParam, lParam);
    }
    HHOOK m_hook;
};

TEST_F(FrameSession, WithoutAWindow_DoesNotStart) {
    frame::Session session;
    {
        const NoWindows noWindows;
        EXPECT_FALSE(session.Start(m_options));
    }
    EXPECT_EQ(session.Frame(), nullptr);
    EXPECT_EQ(session.ExitStatus(), 2);
}

TEST_F(FrameSession, Start_OpensANewDrawing) {
    Start();
    EXPECT_EQ(1, acDocManager->documentCount());
    EXPECT_EQ(L"Workbench - Drawing1.dwg", Title());
    EXPECT_EQ(m_session->Frame(), acedGetAcadFrame());
    EXPECT_EQ(0, m_session->ExitStatus());
}

TEST_F(FrameSession, Start_WithDrawings_OpensThemInstead) {
    m_options.drawings = {Drawing(L"one.dwg"), Drawing(L"two.dwg")};
    Start();
    EXPECT_EQ(2, acDocManager->documentCount());
    EXPECT_EQ(L"Workbench - two.dwg", Title());
    EXPECT_EQ(1u, m_session->Frame()->View().Content().ShapeCount());
}

TEST_F(FrameSession, WithoutDrawing_NothingIsOpen) {
    m_options.withoutDrawing = true;
    Start();
    EXPECT_EQ(0, acDocManager->documentCount());
    EXPECT_EQ(L"Workbench", Title());
    m_session->Enter(L"(princ 1)");
    m_session->Frame()->SendMessage(WM_COMMAND, frame::kCommandZoomExtents, 0);
}

TEST_F(FrameSession, Input_RunsAndIsShownWithItsOutput) {
    Start();
    m_session->Enter(L"(princ (+ 40 2))");
    EXPECT_TRUE(Said(L"42"));
    EXPECT_NE(std::wstring::npos, m_session->Frame()->CommandLine().History().find(L"42"));
    EXPECT_TRUE(m_session->IsIdle());
}

TEST_F(FrameSession, DrawnLine_IsSeenWhenTheSessionIsIdle) {
    Start();
    m_session->Enter(L"_.LINE 0,0 100,50 ");
    m_session->Enter(L"");
    m_session->OnIdle();
    EXPECT_EQ(1u, m_session->Frame()->View().Content().ShapeCount());
}

TEST_F(FrameSession, QueuedText_RunsAfterAMouseMoveOverTheView) {
    Start();
    acDocManager->sendStringToExecute(acDocManager->curDocument(), L"(princ \"queued text ran\") ", false,
                                      true, true);
    EXPECT_FALSE(Said(L"queued text ran\""));
    EXPECT_FALSE(m_session->IsIdle());
    acedGetAcadDwgView()->SendMessage(WM_MOUSEMOVE, 0, 0);
    windows::PumpWaiting();
    EXPECT_TRUE(Said(L"queued text ran"));
    EXPECT_TRUE(m_session->IsIdle());
}

TEST_F(FrameSession, QueuedText_WaitsWhileTheFrameIsDisabled) {
    Start();
    m_session->Frame()->EnableWindow(FALSE);
    acDocManager->sendStringToExecute(acDocManager->curDocument(), L"(princ (* 6 111)) ", false, true, true);
    EXPECT_FALSE(m_session->OnIdle());
    EXPECT_FALSE(Said(L"666"));
    m_session->Frame()->EnableWindow(TRUE);
    EXPECT_TRUE(m_session->OnIdle());
    EXPECT_TRUE(Said(L"666"));
}

TEST_F(FrameSession, ModuleThatIsMissing_IsToldAndTheSessionGoesOn) {
    m_options.withoutModule = false;
    m_options.module = L"C:\\no such folder\\missing.arx";
    const windows::BoxAnswers boxes({IDOK});
    Start();
    ASSERT_EQ(1u, boxes.Shown().size());
    EXPECT_NE(std::wstring::npos, boxes.Shown()[0].text.find(L"missing.arx"));
    EXPECT_NE(std::wstring::npos, boxes.Shown()[0].text.find(L"goes on without it"));
    EXPECT_EQ(1, acDocManager->documentCount());
}

TEST_F(FrameSession, FileThatIsNoModule_IsToldAndTheSessionGoesOn) {
    m_options.withoutModule = false;
    m_options.module = Drawing(L"text.arx");
    {
        const windows::BoxAnswers boxes({IDOK});
        Start();
        EXPECT_EQ(1u, boxes.Shown().size());
    }
    EXPECT_EQ(0u, Host().Apps().Count());
}

TEST_F(FrameSession, LibraryWithoutTheTwoExports_IsRefused) {
    m_options.withoutModule = false;
    m_options.module = ProgramFolder() + L"libwinpthread-1.dll";
    const windows::BoxAnswers boxes({IDOK});
    Start();
    ASSERT_EQ(1u, boxes.Shown().size());
    EXPECT_NE(std::wstring::npos, boxes.Shown()[0].text.find(L"does not export acrxEntryPoint"));
}

TEST_F(FrameSession, Module_GetsItsCommandsAndFunctionsIntoTheHost) {
    m_options.withoutModule = false;
    m_options.module = TestModule();
    Start();
    m_session->Enter(L"TESTCMD");
    EXPECT_TRUE(Said(L"TESTCMD runs"));
    m_session->Enter(L"(princ (1+ (testfunction)))");
    EXPECT_TRUE(Said(L"43"));
    EXPECT_TRUE(m_session->Frame()->Docks().Find(L"TEST")->IsWindowVisible());
}

TEST_F(FrameSession, ModuleLoadedAndUnloadedAHundredTimes_LeavesNothingBehind) {
    Start();
    const std::wstring path = TestModule();
    const auto once = [&] {
        ASSERT_TRUE(Host().Apps().loadModule(path.c_str(), false, false));
        ASSERT_TRUE(Host().Apps().unloadModule(path.c_str(), false));
        windows::PumpWaiting();
    };
    once();
    const windows::HandleCount before = windows::HandleCount::Now();
    const std::size_t reactors = Host().Documents().ReactorCount();
    const std::size_t commands = Host().Commands().Count();
    for (int i = 0; i < 100; ++i)
        once();
    EXPECT_EQ(before, windows::HandleCount::Now());
    EXPECT_EQ(reactors, Host().Documents().ReactorCount());
    EXPECT_EQ(commands, Host().Commands().Count());
    EXPECT_TRUE(m_session->Frame()->Docks().Bars().empty());
    EXPECT_EQ(nullptr, GetModuleHandleW(L"frame_test_module.arx"));
}

TEST_F(FrameSession, Workspace_HidesThePalettes) {
    m_options.withoutModule = false;
    m_options.module = TestModule();
    Start();
    CAdUiDockControlBar* bar = m_session->Frame()->Docks().Find(L"TEST");
    ASSERT_NE(nullptr, bar);
    m_session->Enter(L"(setvar \"WSCURRENT\" \"Plant\")");
    EXPECT_FALSE(bar->IsWindowVisible());
    m_session->Frame()->ShowControlBar(bar, TRUE, FALSE);
    m_session->Enter(L"(setvar \"SNAPSTYL\" 1)");
    EXPECT_TRUE(bar->IsWindowVisible());
}

TEST_F(FrameSession, OpenedFileThatIsNoDrawing_IsToldWithItsLine) {
    m_options.drawings = {Drawing(L"bad.dwg", "0\nSECTION\nthis is no drawing\n")};
    const windows::BoxAnswers boxes({IDOK});
    Start();
    ASSERT_EQ(1u, boxes.Shown().size());
    EXPECT_NE(std::wstring::npos, boxes.Shown()[0].text.find(L"bad.dwg"));
    EXPECT_NE(std::wstring::npos, boxes.Shown()[0].text.find(L"ine 3"));
    EXPECT_EQ(0, acDocManager->documentCount());
}

TEST_F(FrameSession, ScriptedSession_WritesMessagesDownInsteadOfShowingThem) {
    m_options.drawings = {Drawing(L"bad.dwg", "this is no drawing")};
    m_options.scriptFile = m_folder + L"script.txt";
    WriteFileText(m_options.scriptFile, "@timeout 60\n@wait \"a window that never comes\"\n");
    const windows::BoxAnswers boxes;
    Start();
    EXPECT_TRUE(boxes.Shown().empty());
    EXPECT_TRUE(Said(L"[Workbench: The drawing cannot be opened:"));
}

TEST_F(FrameSession, ChangedDrawing_IsAskedForBeforeItCloses) {
    Start();
    m_session->Enter(L"_.LINE 0,0 100,50 ");
    m_session->Enter(L"");
    {
        const windows::BoxAnswers boxes({IDCANCEL});
        m_session->Frame()->SendMessage(WM_COMMAND, frame::kCommandClose, 0);
        ASSERT_EQ(1u, boxes.Shown().size());
        EXPECT_EQ(L"Save changes to Drawing1.dwg?", boxes.Shown()[0].text);
    }
    EXPECT_EQ(1, acDocManager->documentCount());
    const windows::BoxAnswers boxes({IDNO});
    m_session->Frame()->SendMessage(WM_COMMAND, frame::kCommandClose, 0);
    EXPECT_EQ(0, acDocManager->documentCount());
}

TEST_F(FrameSession, ClosedWindow_WithACancelledQuestion_StaysOpen) {
    Start();
    m_session->Enter(L"_.LINE 0,0 100,50 ");
    m_session->Enter(L"");
    {
        const windows::BoxAnswers boxes({IDCANCEL});
        m_session->Frame()->SendMessage(WM_CLOSE);
    }
    ASSERT_NE(nullptr, m_session->Frame());
    const windows::BoxAnswers boxes({IDNO});
    m_session->Frame()->SendMessage(WM_CLOSE);
    EXPECT_EQ(nullptr, m_session->Frame());
}

TEST_F(FrameSession, LockThatAnApplicationForgot_DoesNotKeepTheWindowOpen) {
    Start();
    ASSERT_EQ(Acad::eOk, acDocManager->lockDocument(acDocManager->curDocument()));
    m_session->Frame()->SendMessage(WM_CLOSE);
    EXPECT_EQ(nullptr, m_session->Frame());
    EXPECT_TRUE(Said(L"1 locks of Drawing1.dwg were left in place"));
}

TEST_F(FrameSession, QuickNew_FollowsTheTemplateOfTheEnvironment) {
    m_options.withoutDrawing = true;
    Start();
    acedSetEnv(L"QnewTemplate", Drawing(L"template.dwt").c_str());
    m_session->Frame()->SendMessage(WM_COMMAND, frame::kCommandNew, 0);
    EXPECT_EQ(1u, m_session->Frame()->View().Content().ShapeCount());
    EXPECT_FALSE(acDocManager->curDocument()->isNamedDrawing());
    acedSetEnv(L"QnewTemplate", L"C:\\no such.dwt");
    m_session->Frame()->SendMessage(WM_COMMAND, frame::kCommandNew, 0);
    EXPECT_EQ(2, acDocManager->documentCount());
    EXPECT_TRUE(m_session->Frame()->View().Content().Empty());
}

TEST_F(FrameSession, ScriptFromAFile_IsPlayedToItsEnd) {
    m_options.scriptFile = m_folder + L"script.txt";
    WriteFileText(m_options.scriptFile,
                  "(princ \"hello from a script\")\n@assertoutput \"hello from a script\"\n");
    Start();
    EXPECT_TRUE(windows::WaitFor([&] { return m_session->Frame() == nullptr; }));
    EXPECT_TRUE(Said(L"@assertoutput \"hello from a script\"\n"));
    EXPECT_FALSE(Said(L"***"));
}

// The calls that a client makes, by name.
class Client {
  public:
    explicit Client(IDispatch* object) : m_object(object) {}
    ~Client() {
        if (m_object != nullptr) m_object->Release();
    }
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;

    bool IsThere() const { return m_object != nullptr; }
    HRESULT Call(const wchar_t* name, WORD flags, std::vector<VARIANT> arguments, VARIANT* result = nullptr) {
        DISPID id = 0;
        auto* text = const_cast<wchar_t*>(name);
        const HRESULT known = m_object->GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &id);
        if (FAILED(known)) return known;
        std::reverse(arguments.begin(), arguments.end());
        DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
        EXCEPINFO exception{};
        const HRESULT called = m_object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, result,
                                                &exception, nullptr);
        if (exception.bstrDescription != nullptr) m_error = exception.bstrDescription;
        SysFreeString(exception.bstrSource);
        SysFreeString(exception.bstrDescription);
        for (VARIANT& argument : arguments)
            VariantClear(&argument);
        return called;
    }
    IDispatch* Object(const wchar_t* name, WORD flags, std::vector<VARIANT> arguments = {}) {
        VARIANT result;
        VariantInit(&result);
        return SUCCEEDED(Call(name, flags, std::move(arguments), &result)) && result.vt == VT_DISPATCH
                   ? result.pdispVal
                   : nullptr;
    }
    std::wstring Text(const wchar_t* name) {
        VARIANT result;
        VariantInit(&result);
        std::wstring text;
        if (SUCCEEDED(Call(name, DISPATCH_PROPERTYGET, {}, &result)) && result.vt == VT_BSTR)
            text = result.bstrVal;
        VariantClear(&result);
        return text;
    }
    bool Flag(const wchar_t* name) {
        VARIANT result;
        VariantInit(&result);
        return SUCCEEDED(Call(name, DISPATCH_PROPERTYGET, {}, &result)) && result.boolVal != VARIANT_FALSE;
    }
    const std::wstring& Error() const { return m_error; }

  private:
    IDispatch* m_object;
    std::wstring m_error;
};

VARIANT Text(const std::wstring& text) {
    VARIANT value;
    value.vt = VT_BSTR;
    value.bstrVal = SysAllocString(text.c_str());
    return value;
}

VARIANT Flag(bool flag) {
    VARIANT value;
    value.vt = VT_BOOL;
    value.boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
    return value;
}

VARIANT Number(long number) {
    VARIANT value;
    value.vt = VT_I4;
    value.lVal = number;
    return value;
}

class FrameAutomation : public FrameSession {
  protected:
    // The way from the application object to its documents.
    IDispatch* Documents() {
        void* application = nullptr;
        EXPECT_EQ(S_OK, m_session->Automation()->QueryInterface(IID_IAcadApplication, &application));
        Client client(static_cast<IDispatch*>(application));
        return client.Object(L"Documents", DISPATCH_PROPERTYGET);
    }
};

TEST_F(FrameAutomation, Application_AnswersToItsInterfaceAndNoOther) {
    Start();
    void* object = nullptr;
    EXPECT_EQ(E_NOINTERFACE, m_session->Automation()->QueryInterface(IID_IStream, &object));
    EXPECT_EQ(nullptr, object);
    Client documents(Documents());
    ASSERT_TRUE(documents.IsThere());
    EXPECT_EQ(DISP_E_UNKNOWNNAME, documents.Call(L"Nonsense", DISPATCH_METHOD, {}));
}

TEST_F(FrameAutomation, Open_ReadOnly_OpensTheDrawing) {
    m_options.withoutDrawing = true;
    Start();
    Client documents(Documents());
    Client opened(
        documents.Object(L"Open", DISPATCH_METHOD, {Text(Drawing(L"pump.dwg")), Flag(true), Number(0)}));
    ASSERT_TRUE(opened.IsThere());
    EXPECT_EQ(L"pump.dwg", opened.Text(L"Name"));
    EXPECT_EQ(m_folder + L"pump.dwg", opened.Text(L"FullName"));
    EXPECT_TRUE(opened.Flag(L"ReadOnly"));
    EXPECT_TRUE(acDocManager->curDocument()->isReadOnly());
    EXPECT_EQ(L"Workbench - pump.dwg", Title());
}

TEST_F(FrameAutomation, Open_ForWriting_IsTheDefault) {
    Start();
    Client documents(Documents());
    Client opened(documents.Object(L"Open", DISPATCH_METHOD, {Text(Drawing(L"pump.dwg"))}));
    ASSERT_TRUE(opened.IsThere());
    EXPECT_FALSE(opened.Flag(L"ReadOnly"));
}

TEST_F(FrameAutomation, Open_WhatCannotBeOpened_FailsWithADescriptionAndNoBox) {
    Start();
    const windows::BoxAnswers boxes;
    Client documents(Documents());
    EXPECT_EQ(DISP_E_EXCEPTION,
              documents.Call(L"Open", DISPATCH_METHOD, {Text(m_folder + L"missing.dwg"), Flag(true)}));
    EXPECT_NE(L"", documents.Error());
    EXPECT_EQ(DISP_E_BADPARAMCOUNT, documents.Call(L"Open", DISPATCH_METHOD, {}));
    EXPECT_TRUE(boxes.Shown().empty());
    EXPECT_EQ(1, acDocManager->documentCount());
}

TEST_F(FrameAutomation, Add_StartsADrawingFromItsTemplate) {
    Start();
    Client documents(Documents());
    Client added(documents.Object(L"Add", DISPATCH_METHOD, {Text(Drawing(L"sheet.dwt"))}));
    ASSERT_TRUE(added.IsThere());
    EXPECT_EQ(L"Drawing2.dwg", added.Text(L"Name"));
    EXPECT_EQ(L"", added.Text(L"FullName"));
    EXPECT_EQ(1u, m_session->Frame()->View().Content().ShapeCount());
}

TEST_F(FrameAutomation, ItemAndCount_FollowTheDocuments) {
    m_options.drawings = {Drawing(L"one.dwg"), Drawing(L"two.dwg")};
    Start();
    Client documents(Documents());
    VARIANT count;
    VariantInit(&count);
    ASSERT_EQ(S_OK, documents.Call(L"Count", DISPATCH_PROPERTYGET, {}, &count));
    EXPECT_EQ(2, count.lVal);
    EXPECT_EQ(L"one.dwg", Client(documents.Object(L"Item", DISPATCH_METHOD, {Number(0)})).Text(L"Name"));
    EXPECT_EQ(L"two.dwg",
              Client(documents.Object(L"Item", DISPATCH_METHOD, {Text(L"TWO.DWG")})).Text(L"Name"));
    EXPECT_EQ(DISP_E_BADINDEX, documents.Call(L"Item", DISPATCH_METHOD, {Number(2)}));
}

TEST_F(FrameAutomation, DocumentObject_OutlivesItsDocument) {
    m_options.drawings = {Drawing(L"one.dwg")};
    Start();
    Client documents(Documents());
    Client one(documents.Object(L"Item", DISPATCH_METHOD, {Number(0)}));
    EXPECT_EQ(S_OK, one.Call(L"Close", DISPATCH_METHOD, {Flag(false)}));
    EXPECT_EQ(0, acDocManager->documentCount());
    EXPECT_EQ(DISP_E_EXCEPTION, one.Call(L"Activate", DISPATCH_METHOD, {}));
    EXPECT_EQ(L"The drawing has been closed.", one.Error());
}

}  // namespace
}  // namespace frame_test
