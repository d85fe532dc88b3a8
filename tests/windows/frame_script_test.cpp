// Scripts against real windows: each directive does what it says, and fails when it should.
#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

#include "frame/script_player.h"
#include "frame/window_finder.h"
#include "frame_fixture.h"

namespace frame_test {
namespace {

// For what happens in the end, however slow the machine is.
constexpr std::chrono::seconds kLongPatience{60};
constexpr int kEdit = 301, kButton = 302, kCombo = 303, kList = 304, kTree = 305;

// A dialog with one of each control that scripts work on.
class ScriptDialog {
  public:
    explicit ScriptDialog(HWND owner) {
        m_window =
            CreateWindowExW(0, L"#32770", L"Script dialog", WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_VISIBLE,
                            200, 200, 400, 320, owner, nullptr, nullptr, nullptr);
        Make(L"Edit", L"", kEdit, WS_BORDER, 10, 20);
        Make(L"Button", L"&Go", kButton, 0, 40, 24);
        const HWND combo = Make(L"ComboBox", L"", kCombo, CBS_DROPDOWNLIST, 70, 100);
        for (const wchar_t* item : {L"One", L"Two"})
            SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item));
        const HWND list = Make(L"ListBox", L"", kList, LBS_NOTIFY | WS_BORDER, 100, 80);
        for (const wchar_t* item : {L"Alpha", L"Beta"})
            SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item));
        const HWND tree = Make(WC_TREEVIEWW, L"", kTree, WS_BORDER, 190, 80);
        const HTREEITEM client = AddItem(tree, TVI_ROOT, L"Acme");
        AddItem(tree, client, L"Pump Station 4");
        SetWindowSubclass(m_window, &ScriptDialog::Record, 1, reinterpret_cast<DWORD_PTR>(this));
    }
    ~ScriptDialog() { DestroyWindow(m_window); }
    HWND Window() const { return m_window; }
    HWND Item(int id) const { return GetDlgItem(m_window, id); }

    std::vector<std::pair<int, int>> m_commands;  // id, code
    bool m_closed = false;

  private:
    HWND Make(const wchar_t* name, const wchar_t* text, int id, DWORD style, int top, int height) {
        return CreateWindowExW(0, name, text, WS_CHILD | WS_VISIBLE | style, 10, top, 200, height, m_window,
                               reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
    }
    static HTREEITEM AddItem(HWND tree, HTREEITEM parent, const wchar_t* text) {
        TVINSERTSTRUCTW insert{};
        insert.hParent = parent;
        insert.item.mask = TVIF_TEXT;
        insert.item.pszText = const_cast<wchar_t*>(text);
        return reinterpret_cast<HTREEITEM>(
            SendMessageW(tree, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insert)));
    }
    static LRESULT CALLBACK Record(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                   DWORD_PTR self) {
        auto* dialog = reinterpret_cast<ScriptDialog*>(self);
        // The pointer on its way to the dialog crosses the drawing, which takes the focus from other windows.
        if (message == WM_ACAD_KEEPFOCUS) return 1;
        if (message == WM_COMMAND) dialog->m_commands.emplace_back(LOWORD(wParam), HIWORD(wParam));
        if (message == WM_SYSCOMMAND && wParam == SC_CLOSE) {
            dialog->m_closed = true;
            return 0;
        }
        return DefSubclassProc(window, message, wParam, lParam);
    }

    HWND m_window = nullptr;
};

class FrameScript : public FrameTest {
  protected:
    // Plays the text to its end. True if every step did what it should, sooner or later.
    bool Play(const std::wstring& text) { return PlayLines(L"@timeout 30\n" + text); }
    // Plays the text. True if it ends with its last line, after waiting in vain for a short while.
    bool WaitsInVainAtTheEnd(const std::wstring& text) {
        const std::size_t last = text.rfind(L'\n') + 1;
        const std::wstring lines = text.substr(0, last) + L"@timeout 0.3\n" + text.substr(last);
        const auto number = std::count(lines.begin(), lines.end(), L'\n') + 1;
        m_transcript.clear();
        return !PlayLines(lines) && Said(L"*** line " + std::to_wstring(number) + L": ");
    }
    bool PlayLines(const std::wstring& text) {
        bool finished = false;
        bool succeeded = false;
        frame::ScriptPlayer::Stage stage;
        stage.idle = [this] { return m_idle; };
        stage.enter = [this](const std::wstring& line) {
            m_lines.push_back(line);
            m_output += line + L"\n";
            if (m_onEnter) m_onEnter();
        };
        stage.output = [this] { return m_output; };
        stage.note = [this](const std::wstring& line) { m_transcript += line + L"\n"; };
        stage.currentDocument = [this] { return m_document; };
        stage.mainWindow = [this] { return m_frame->GetSafeHwnd(); };
        stage.docks = [this] { return &m_frame->Docks(); };
        stage.finished = [&](bool result) {
            finished = true;
            succeeded = result;
        };
        stage.pictureFolder = m_pictures;
        frame::ScriptPlayer player(frame::ParseScript(text), stage);
        player.Start();
        EXPECT_TRUE(windows::WaitFor([&] { return finished; }, kLongPatience)) << "the script does not end";
        windows::PumpWaiting();
        return succeeded;
    }
    bool Said(const std::wstring& text) const { return m_transcript.find(text) != std::wstring::npos; }

    bool m_idle = true;
    std::vector<std::wstring> m_lines;
    std::wstring m_transcript;
    std::wstring m_output;
    std::wstring m_document = L"P&ID-001.dwg";
    std::wstring m_pictures;
    std::function<void()> m_onEnter;
};

TEST_F(FrameScript, Input_IsEnteredLineByLine) {
    EXPECT_TRUE(Play(L"first\n\n(+ 1 2)\n"));
    EXPECT_EQ((std::vector<std::wstring>{L"first", L"", L"(+ 1 2)"}), m_lines);
}

TEST_F(FrameScript, Input_WaitsForTheCommandLine) {
    m_idle = false;
    EXPECT_TRUE(WaitsInVainAtTheEnd(L"first"));
    EXPECT_TRUE(m_lines.empty());
    EXPECT_TRUE(Said(L"first: the command line is not free"));
}

TEST_F(FrameScript, LineThatCannotBeParsed_FailsBeforeAnythingRuns) {
    EXPECT_FALSE(Play(L"first\n@clik 5"));
    EXPECT_TRUE(m_lines.empty());
    EXPECT_TRUE(Said(L"*** line 3: there is no directive @clik"));
}

TEST_F(FrameScript, Directives_GoOnWhileInputRunsADialog) {
    m_onEnter = [this] {
        // As a command that opens a modal dialog: it returns only when the dialog has gone.
        ScriptDialog dialog(*m_frame);
        m_frame->EnableWindow(FALSE);
        EXPECT_TRUE(windows::WaitFor([&] { return !dialog.m_commands.empty(); }, kLongPatience));
        m_frame->EnableWindow(TRUE);
    };
    EXPECT_TRUE(
        Play(L"open\n@wait \"Script dialog\"\n@click Go\n@waitgone \"Script dialog\"\nnext\n@click Go"));
    EXPECT_EQ(2u, m_lines.size());
}

TEST_F(FrameScript, Wait_FailsWithWhatIsOpenInstead) {
    const ScriptDialog dialog(*m_frame);
    EXPECT_TRUE(Play(L"@wait \"Script\""));
    EXPECT_TRUE(WaitsInVainAtTheEnd(L"@wait \"Drawing Manager\""));
    EXPECT_TRUE(Said(L"@wait \"Drawing Manager\": it did not come; open dialogs: [Script dialog]"));
    EXPECT_TRUE(WaitsInVainAtTheEnd(L"@waitgone \"Script dialog\""));
}

TEST_F(FrameScript, Click_PressesAnEnabledButtonByIdOrText) {
    ScriptDialog dialog(*m_frame);
    EXPECT_TRUE(Play(L"@click 302\n@click Go"));
    EXPECT_EQ((std::vector<std::pair<int, int>>{{kButton, BN_CLICKED}, {kButton, BN_CLICKED}}),
              dialog.m_commands);
    EnableWindow(dialog.Item(kButton), FALSE);
    EXPECT_TRUE(WaitsInVainAtTheEnd(L"@click 302"));
    EXPECT_TRUE(Said(L"the control is disabled"));
    EXPECT_TRUE(WaitsInVainAtTheEnd(L"@click 999"));
    EXPECT_TRUE(Said(L"there is no such control"));
    ShowWindow(dialog.Item(kButton), SW_HIDE);
    EXPECT_TRUE(WaitsInVainAtTheEnd(L"@waitcontrol 302"));
}

TEST_F(FrameScript, ClickAt_IsAClickOfTheMouse) {
    ScriptDialog dialog(*m_frame);
    EXPECT_TRUE(Play(L"@clickat 302 20 10\n@waitcontrol 302"));
    EXPECT_TRUE(windows::WaitFor([&] { return !dialog.m_commands.empty(); }, kLongPatience));
}

TEST_F(FrameScript, ClickAt_IsNotLedAstrayByOtherMovements) {
    ScriptDialog dialog(*m_frame);
    std::wstring clicks;
    for (int i = 0; i < 20; ++i)
        clicks += L"@clickat 302 20 10\n";
    std::thread elsewhere([] {
        INPUT toTheCorner{};
        toTheCorner.type = INPUT_MOUSE;
        toTheCorner.mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
        for (int i = 0; i < 2000; ++i)
            SendInput(1, &toTheCorner, sizeof toTheCorner);
    });
    EXPECT_TRUE(Play(clicks));
    elsewhere.join();
    EXPECT_TRUE(windows::WaitFor([&] { return dialog.m_commands.size() == 20; }, kLongPatience))
        << dialog.m_commands.size();
}

TEST_F(FrameScript, SetText_AndTyping_ReachTheEdit) {
    ScriptDialog dialog(*m_frame);
    SetForegroundWindow(dialog.Window());
    SetFocus(dialog.Item(kEdit));
    EXPECT_TRUE(
        Play(L"@settext 301 \"DN 50\"\n@asserttext 301 \"DN 50\"\n@press End\n@type \" x\"\n@asserttext 301 "
             L"\"DN 50 x\""));
    EXPECT_TRUE(WaitsInVainAtTheEnd(L"@asserttext 301 \"DN 80\""));
    EXPECT_TRUE(Said(L"it is \"DN 50 x\", not \"DN 80\""));
}

TEST_F(FrameScript, Press_UnknownKey_Fails) {
    EXPECT_FALSE(Play(L"@press Entr"));
    EXPECT_TRUE(Said(L"there is no such key"));
}

TEST_F(FrameScript, Choose_SelectsAndTellsTheDialog) {
    ScriptDialog dialog(*m_frame);
    EXPECT_TRUE(Play(L"@choose 303 Two\n@assertchoice 303 Two\n@choose 304 Beta\n@assertchoice 304 Beta"));
    EXPECT_TRUE(windows::WaitFor([&] { return dialog.m_commands.size() == 2; }, kLongPatience));
    EXPECT_EQ((std::pair<int, int>{kCombo, CBN_SELCHANGE}), dialog.m_commands[0]);
    EXPECT_EQ((std::pair<int, int>{kList, LBN_SELCHANGE}), dialog.m_commands[1]);
    EXPECT_TRUE(WaitsInVainAtTheEnd(L"@choose 303 Three"));
    EXPECT_TRUE(WaitsInVainAtTheEnd(L"@assertchoice 303 One"));
}

TEST_F(FrameScript, Rows_AreFoundByTheirWholeText) {
    const ScriptDialog dialog(*m_frame);
    EXPECT_TRUE(
        Play(L"@assertrow 304 Beta\n@assertnorow 304 Bet\n@clickrow 304 Beta\n@assertchoice 304 Beta"));
    EXPECT_TRUE(WaitsInVainAtTheEnd(L"@assertrow 304 Gamma"));
    EXPECT_TRUE(WaitsInVainAtTheEnd(L"@assertnorow 304 Alpha"));
}

TEST_F(FrameScript, Tree_SelectsTheItemAtTheEndOfThePath) {
    const ScriptDialog dialog(*m_frame);
    EXPECT_TRUE(Play(L"@tree 305 \"Acme\\Pump Station 4\""));
    const HWND tree = dialog.Item(kTree);
    const auto selected = reinterpret_cast<HTREEITEM>(SendMessageW(tree, TVM_GETNEXTITEM, TVGN_CARET, 0));
    EXPECT_EQ(frame::FindTreeItem(tree, L"Acme\\Pump Station 4"), selected);
    EXPECT_NE(nullptr, selected);
    EXPECT_TRUE(WaitsInVainAtTheEnd(L"@tree 305 \"Acme\\Pump\""));
}

TEST_F(FrameScript, Menu_ChoosesFromTheBar) {
    m_frame->SetDocuments({L"A.dwg"}, 0);
    EXPECT_TRUE(Play(L"@menu \"File\\Save As...\""));
    EXPECT_EQ(std::vector<UINT>{frame::kCommandSaveAs}, m_commands);
    EXPECT_FALSE(Play(L"@menu \"File\\Print\""));
    EXPECT_TRUE(Said(L"there is no item \"Print\""));
    m_frame->SetDocuments({}, -1);
    EXPECT_FALSE(Play(L"@menu \"File\\Save\""));
    EXPECT_TRUE(Said(L"the item is grey"));
}

TEST_F(FrameScript, CloseDialog_PressesTheCloseBox) {
    ScriptDialog dialog(*m_frame);
    EXPECT_TRUE(Play(L"@closedialog"));
    EXPECT_TRUE(windows::WaitFor([&] { return dialog.m_closed; }, kLongPatience));
}

TEST_F(FrameScript, ResizeDialog_GivesItsWindowTheSize) {
    const ScriptDialog dialog(*m_frame);
    EXPECT_TRUE(Play(L"@resizedialog 500 410"));
    RECT rect{};
    GetWindowRect(dialog.Window(), &rect);
    EXPECT_EQ(500, rect.right - rect.left);
    EXPECT_EQ(410, rect.bottom - rect.top);
    EXPECT_EQ(200, rect.left);
}

TEST_F(FrameScript, Drag_HoldsTheButtonUntilItsRelease) {
    ScriptDialog dialog(*m_frame);
    EXPECT_TRUE(Play(L"@holdat 302 20 10\n@dragto 302 22 200\n@release"));
    EXPECT_TRUE(dialog.m_commands.empty()) << "a button let go outside is not clicked";
    EXPECT_TRUE(Play(L"@holdat 302 20 10\n@dragto 302 22 200\n@dragto 302 22 10\n@release"));
    EXPECT_TRUE(windows::WaitFor([&] { return dialog.m_commands.size() == 1; }, kLongPatience));
}

TEST_F(FrameScript, Palettes_AreDockedSizedAndAsserted) {
    const auto made = MakeShownSet();
    EXPECT_TRUE(
        Play(L"@assertpalette PID left\n@dock PID right\n@assertpalette pid right\n@resize PID 200 0\n"
             L"@dock PID floating\n@assertpalette PID floating"));
    EXPECT_TRUE(WaitsInVainAtTheEnd(L"@assertpalette PID left"));
    EXPECT_TRUE(Said(L"it is \"floating\", not \"left\""));
    EXPECT_FALSE(Play(L"@dock PID top"));
    EXPECT_TRUE(WaitsInVainAtTheEnd(L"@dock ORTHO left"));
    Show(*made, false);
    EXPECT_TRUE(Play(L"@assertpalette PID hidden"));
}

TEST_F(FrameScript, Documents_TitlesAndOutput_AreAsserted) {
    EXPECT_TRUE(
        Play(L"hello\n@assertdocument \"p&id-001.DWG\"\n@assertoutput hello\n@asserttitle Workbench"));
    EXPECT_TRUE(WaitsInVainAtTheEnd(L"@assertdocument none"));
    EXPECT_TRUE(WaitsInVainAtTheEnd(L"@assertoutput goodbye"));
    EXPECT_TRUE(WaitsInVainAtTheEnd(L"@assertoutput hello\n@assertoutput @assertoutput"))
        << "a directive is no output";
    m_document.clear();
    EXPECT_TRUE(Play(L"@assertdocument none"));
}

TEST_F(FrameScript, Visible_And_Enabled_AreAsserted) {
    const ScriptDialog dialog(*m_frame);
    EXPECT_TRUE(Play(L"@assertvisible 302 yes\n@assertvisible 999 no\n@assertenabled 302 yes"));
    EXPECT_TRUE(WaitsInVainAtTheEnd(L"@assertvisible 302 no"));
    EXPECT_TRUE(WaitsInVainAtTheEnd(L"@assertenabled 302 no"));
}

TEST_F(FrameScript, Picture_IsWritten) {
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    m_pictures = folder;
    const std::wstring path = m_pictures + L"\\frame_script_test.png";
    DeleteFileW(path.c_str());
    EXPECT_TRUE(Play(L"@picture frame_script_test\n@assertfile \"" + path + L"\""));
    EXPECT_TRUE(DeleteFileW(path.c_str()));
    EXPECT_TRUE(WaitsInVainAtTheEnd(L"@assertfile \"" + path + L"\""));
    m_pictures = L"C:\\no such folder";
    EXPECT_FALSE(Play(L"@picture frame_script_test"));
}

TEST_F(FrameScript, Timeout_WantsANumber) {
    EXPECT_FALSE(Play(L"@timeout soon"));
    EXPECT_FALSE(Play(L"@timeout 0"));
}

TEST_F(FrameScript, EndThatDoesNotCome_IsNotWaitedForForEver) {
    m_idle = false;
    EXPECT_FALSE(Play(L"@timeout 0.2"));
    EXPECT_TRUE(Said(L"the end: the command line is not free"));
}

TEST_F(FrameScript, Quit_LeavesOutTheRest) {
    EXPECT_TRUE(Play(L"first\n@quit\nsecond"));
    EXPECT_EQ(std::vector<std::wstring>{L"first"}, m_lines);
}

}  // namespace
}  // namespace frame_test
