// The main window: menus, document tabs, command line.
#include <gtest/gtest.h>

#include "frame_fixture.h"

namespace frame_test {
namespace {

class FrameWindow : public FrameTest {
  protected:
    frame::CommandWindow& CommandLine() { return m_frame->CommandLine(); }
    HWND Input() {
        CommandLine().TakeKey(0);
        return ::GetFocus();
    }
    // A key as the message loop hands it on.
    void Press(WPARAM key) {
        MSG message{};
        message.hwnd = Input();
        message.message = WM_KEYDOWN;
        message.wParam = key;
        EXPECT_TRUE(CommandLine().PreTranslateMessage(&message));
    }
    void Enter(const std::wstring& line) {
        CommandLine().SetInput(line);
        Press(VK_RETURN);
    }
    std::wstring Title() { return windows::TextOf(*m_frame); }
};

TEST_F(FrameWindow, Accessors_GiveTheFrameAndTheView) {
    EXPECT_EQ(m_frame, acedGetAcadFrame());
    EXPECT_EQ(&m_frame->View(), acedGetAcadDwgView());
    EXPECT_EQ(m_frame->GetSafeHwnd(), adsw_acadMainWnd());
}

TEST_F(FrameWindow, Title_NamesTheDrawing) {
    EXPECT_EQ(L"Workbench", Title());
    m_frame->SetDrawingTitle(L"P&ID-001.dwg");
    EXPECT_EQ(L"Workbench - P&ID-001.dwg", Title());
}

TEST_F(FrameWindow, Enter_HandsTheLineOverAndEmptiesTheInput) {
    Enter(L"_.ZOOM _E");
    Enter(L"");
    ASSERT_EQ(2u, m_entered.size());
    EXPECT_EQ(L"_.ZOOM _E", m_entered[0]);
    EXPECT_EQ(L"", m_entered[1]);
    EXPECT_EQ(L"", CommandLine().Input());
}

TEST_F(FrameWindow, Escape_CancelsAndEmptiesTheInput) {
    CommandLine().SetInput(L"LIN");
    Press(VK_ESCAPE);
    EXPECT_EQ(1, m_cancelled);
    EXPECT_EQ(L"", CommandLine().Input());
}

TEST_F(FrameWindow, ArrowKeys_BringEarlierLinesBack) {
    Enter(L"first");
    Enter(L"second");
    Enter(L"second");
    Press(VK_UP);
    EXPECT_EQ(L"second", CommandLine().Input());
    Press(VK_UP);
    EXPECT_EQ(L"first", CommandLine().Input());
    Press(VK_UP);
    EXPECT_EQ(L"first", CommandLine().Input());
    Press(VK_DOWN);
    Press(VK_DOWN);
    EXPECT_EQ(L"", CommandLine().Input());
}

TEST_F(FrameWindow, History_GrowsAndKeepsTheEndInSight) {
    for (int i = 0; i < 3000; ++i)
        CommandLine().Append(L"line " + std::to_wstring(i) + L" of a long session\n");
    EXPECT_NE(std::wstring::npos, CommandLine().History().find(L"line 0 of"));
    windows::PumpWaiting();
    const HWND edit = ::GetWindow(CommandLine(), GW_CHILD);
    std::wstring shown = windows::TextOf(edit);
    if (shown.find(L"line 2999") == std::wstring::npos)
        shown = windows::TextOf(::GetWindow(edit, GW_HWNDNEXT));
    EXPECT_NE(std::wstring::npos, shown.find(L"line 2999"));
}

TEST_F(FrameWindow, MenuCommands_ReachTheWorkbench) {
    m_frame->SetDocuments({L"A.dwg"}, 0);
    m_frame->SendMessage(WM_COMMAND, frame::kCommandNew, 0);
    m_frame->SendMessage(WM_COMMAND, frame::kCommandSaveAs, 0);
    EXPECT_EQ((std::vector<UINT>{frame::kCommandNew, frame::kCommandSaveAs}), m_commands);
}

TEST_F(FrameWindow, WithoutDocuments_WhatNeedsOneIsGrey) {
    const HMENU file = ::GetSubMenu(::GetMenu(*m_frame), 0);
    const auto isGrey = [&](UINT id) {
        m_frame->SendMessage(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(file), 0);
        return (::GetMenuState(file, id, MF_BYCOMMAND) & MF_GRAYED) != 0;
    };
    EXPECT_TRUE(isGrey(frame::kCommandSave));
    EXPECT_TRUE(isGrey(frame::kCommandClose));
    EXPECT_FALSE(isGrey(frame::kCommandOpen));
    m_frame->SetDocuments({L"A.dwg"}, 0);
    EXPECT_FALSE(isGrey(frame::kCommandSave));
}

TEST_F(FrameWindow, WindowMenu_ListsTheDocumentsAndActivatesThem) {
    m_frame->SetDocuments({L"A.dwg", L"B & C.dwg"}, 1);
    const HMENU menu = ::GetSubMenu(::GetMenu(*m_frame), 2);
    m_frame->SendMessage(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), MAKELPARAM(2, 0));
    wchar_t text[64];
    ::GetMenuStringW(menu, frame::kCommandFirstDocument + 1, text, 64, MF_BYCOMMAND);
    EXPECT_STREQ(L"B && C.dwg", text);
    EXPECT_NE(0u, ::GetMenuState(menu, frame::kCommandFirstDocument + 1, MF_BYCOMMAND) & MF_CHECKED);
    m_frame->SendMessage(WM_COMMAND, frame::kCommandFirstDocument, 0);
    m_frame->SendMessage(WM_COMMAND, frame::kCommandNextDocument, 0);
    EXPECT_EQ((std::vector<std::size_t>{0, 0}), m_activated);
}

TEST_F(FrameWindow, PaletteMenu_ShowsAndHidesSets) {
    const auto made = MakeShownSet();
    const HMENU view = ::GetSubMenu(::GetMenu(*m_frame), 1);
    const HMENU palettes = ::GetSubMenu(view, ::GetMenuItemCount(view) - 1);
    m_frame->SendMessage(WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(palettes), 0);
    EXPECT_NE(0u, ::GetMenuState(palettes, frame::kCommandFirstPalette, MF_BYCOMMAND) & MF_CHECKED);
    m_frame->SendMessage(WM_COMMAND, frame::kCommandFirstPalette, 0);
    EXPECT_FALSE(made->set.IsWindowVisible());
    m_frame->SendMessage(WM_COMMAND, frame::kCommandFirstPalette, 0);
    EXPECT_TRUE(made->set.IsWindowVisible());
    m_frame->SendMessage(WM_COMMAND, frame::kCommandLastPalette, 0);
}

TEST_F(FrameWindow, SmallFrame_LaysOutWithoutHarm) {
    const auto made = MakeShownSet();
    for (const int height : {300, 120, 1}) {
        m_frame->SetWindowPos(nullptr, 0, 0, 400, height, SWP_NOMOVE | SWP_NOZORDER);
        windows::PumpWaiting();
        EXPECT_TRUE(::IsWindow(m_frame->View()));
    }
}

TEST_F(FrameWindow, FocusTakenFromAModelessDialog_LeavesTheDialogAboveTheFrame) {
    const HWND dialog = CreateWindowExW(0, L"#32770", L"Modeless", WS_POPUP | WS_CAPTION | WS_VISIBLE, 200,
                                        200, 300, 200, *m_frame, nullptr, nullptr, nullptr);
    ::SetFocus(dialog);
    m_frame->OfferFocusToCommandLine();
    EXPECT_EQ(m_frame->GetSafeHwnd(), ::GetActiveWindow());
    EXPECT_TRUE(::IsChild(CommandLine(), ::GetFocus()));
    HWND upper = ::GetTopWindow(nullptr);
    while (upper != nullptr && upper != dialog && upper != m_frame->GetSafeHwnd())
        upper = ::GetWindow(upper, GW_HWNDNEXT);
    EXPECT_EQ(dialog, upper);
    ::DestroyWindow(dialog);
}

TEST_F(FrameWindow, FocusOfTheDrawing_IsLeftToADialogThatDisablesTheFrame) {
    CEdit edit;
    edit.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 100, 20), m_frame, 77);
    edit.SetFocus();
    m_frame->EnableWindow(FALSE);
    m_frame->FocusDrawing();
    EXPECT_FALSE(::IsChild(CommandLine(), ::GetFocus()));
    m_frame->EnableWindow(TRUE);
    edit.SetFocus();
    m_frame->FocusDrawing();
    EXPECT_TRUE(::IsChild(CommandLine(), ::GetFocus()));
}

TEST_F(FrameWindow, Frames_MadeAndDestroyed_LeaveNothingBehind) {
    const auto once = [] {
        auto* other = new frame::MainFrame({});  // deletes itself with its window
        ASSERT_TRUE(other->CreateFrame(false));
        other->ShowWindow(SW_SHOW);
        other->SetForegroundWindow();
        other->RequestWork();
        other->SetDocuments({L"A.dwg"}, 0);
        other->SendMessage(WM_COMMAND, frame::kCommandNew, 0);
        windows::PumpWaiting();
        other->SendMessage(WM_CLOSE);
        windows::PumpWaiting();
    };
    once();
    const windows::HandleCount before = windows::HandleCount::Now();
    for (int i = 0; i < 20; ++i)
        once();
    const windows::HandleCount after = windows::HandleCount::Now();
    EXPECT_EQ(after.windows, before.windows);
    EXPECT_LE(after.gdi, before.gdi + 2);
    EXPECT_TRUE(::IsWindowVisible(*m_frame));
}

}  // namespace
}  // namespace frame_test
