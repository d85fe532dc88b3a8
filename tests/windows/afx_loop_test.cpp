// Failures that reach a window procedure, the message loop, and tips for child windows.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "afx_test.h"
#include "support/windows_driver.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// --- failures

class ThrowingWnd : public TestFrame {
  public:
    bool m_bDoneAfterThrow = false;

  protected:
    LRESULT OnThrow(WPARAM wParam, LPARAM) {
        switch (wParam) {
            case 0:
                AfxThrowInvalidArgException();
            case 1:
                CFile::Rename(L"C:\\no such folder\\a.txt", L"C:\\no such folder\\b.txt");
                break;
            case 2:
                CStringArray().GetAt(3);
                break;
            case 3:
                AfxThrowUserException();
            case 4:
                throw std::invalid_argument("row");
            case 5:
                throw std::runtime_error("disk on fire");
        }
        m_bDoneAfterThrow = true;
        return 1;
    }
    afx_msg void OnPaint() { AfxThrowInvalidArgException(); }
    afx_msg void OnCommandThrow() { AfxThrowInvalidArgException(); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(ThrowingWnd, TestFrame)
ON_MESSAGE(kAnswerMessage, &ThrowingWnd::OnThrow)
ON_COMMAND(1, &ThrowingWnd::OnCommandThrow)
ON_WM_PAINT()
END_MESSAGE_MAP()

std::wstring ShownFor(WPARAM kind) {
    ThrowingWnd wnd;
    windows::BoxAnswers boxes;
    EXPECT_EQ(wnd.SendMessage(kAnswerMessage, kind), 0);
    EXPECT_FALSE(wnd.m_bDoneAfterThrow);
    EXPECT_TRUE(IsWindow(wnd.m_hWnd));
    if (boxes.Shown().size() != 1) return std::to_wstring(boxes.Shown().size()) + L" boxes";
    EXPECT_NE(boxes.Shown().front().icon, nullptr);
    return boxes.Shown().front().text;
}

TEST(AfxFailures, BadArgument_IsShownAndTheWindowLivesOn) {
    EXPECT_EQ(ShownFor(0), L"A value is not allowed here, or lies outside its range.");
}

TEST(AfxFailures, FileFailure_TellsTheReasonAndTheFile) {
    EXPECT_EQ(ShownFor(1), L"The folder does not exist:\nC:\\no such folder\\a.txt");
}

TEST(AfxFailures, IndexOutsideAnArray_IsShownAsABadArgument) {
    EXPECT_EQ(ShownFor(2), ShownFor(0));
}

TEST(AfxFailures, WithoutAMainWindow_TheBoxBelongsToTheActiveOne) {
    ThrowingWnd wnd;
    wnd.SetActiveWindow();
    windows::BoxAnswers boxes;
    wnd.SendMessage(kAnswerMessage, 0);
    ASSERT_EQ(boxes.Shown().size(), 1u);
    EXPECT_EQ(boxes.Shown()[0].owner, wnd.m_hWnd);
}

TEST(AfxFailures, TheUsersOwnChoice_IsNotShown) {
    EXPECT_EQ(ShownFor(3), L"0 boxes");
}

TEST(AfxFailures, LogicErrorOfTheLanguagesLibrary_IsShownAsABadArgument) {
    EXPECT_EQ(ShownFor(4), ShownFor(0));
}

TEST(AfxFailures, OtherErrorOfTheLanguagesLibrary_IsShownWithItsText) {
    EXPECT_THAT(ShownFor(5), HasSubstr(L"disk on fire"));
}

TEST(AfxFailures, FailureInPaint_IsNotShownAndDoesNotRepeat) {
    ThrowingWnd wnd;
    windows::BoxAnswers boxes;
    wnd.Invalidate();
    wnd.UpdateWindow();
    EXPECT_FALSE(GetUpdateRect(wnd.m_hWnd, nullptr, FALSE));
    EXPECT_TRUE(boxes.Shown().empty());
}

TEST(AfxFailures, FailureInACommand_CountsAsHandled) {
    ThrowingWnd wnd;
    windows::BoxAnswers boxes;
    EXPECT_EQ(wnd.SendMessage(WM_COMMAND, 1), 1);
    EXPECT_EQ(boxes.Shown().size(), 1u);
}

class FailingCreateWnd : public CWnd {
  protected:
    afx_msg int OnCreate(LPCREATESTRUCT) { AfxThrowResourceException(); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(FailingCreateWnd, CWnd)
ON_WM_CREATE()
END_MESSAGE_MAP()

TEST(AfxFailures, FailureInCreate_MakesNoWindowAndShowsNothing) {
    windows::BoxAnswers boxes;
    FailingCreateWnd wnd;
    EXPECT_FALSE(wnd.CreateEx(0, nullptr, L"", WS_POPUP, CRect(0, 0, 9, 9), nullptr, 0));
    EXPECT_TRUE(boxes.Shown().empty());
}

// --- the message loop

class PreTranslatingWnd : public CWnd {
  public:
    std::vector<std::string>* m_pLog = nullptr;
    std::string m_name;
    bool m_bTake = false;
    BOOL PreTranslateMessage(MSG* pMsg) override {
        if (pMsg->message == WM_KEYDOWN) {
            m_pLog->push_back(m_name);
            if (m_bTake) return TRUE;
        }
        return CWnd::PreTranslateMessage(pMsg);
    }
};

struct PreTranslateTree {
    std::vector<std::string> log;
    PreTranslatingWnd top, middle, leaf;
    PreTranslateTree() {
        for (auto* wnd : {&top, &middle, &leaf})
            wnd->m_pLog = &log;
        top.m_name = "top", middle.m_name = "middle", leaf.m_name = "leaf";
        top.CreateEx(0, nullptr, L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 200, 200), nullptr, 0);
        middle.Create(nullptr, L"", WS_VISIBLE, CRect(0, 0, 100, 100), &top, 1);
        leaf.Create(nullptr, L"", WS_VISIBLE, CRect(0, 0, 50, 50), &middle, 2);
    }
    void PressKeyInLeaf() {
        leaf.PostMessage(WM_KEYDOWN, 'A', 1);
        leaf.PostMessage(WM_NULL);
        for (bool done = false; !done;) {
            MSG msg;
            done = !PeekMessageW(&msg, nullptr, 0, 0, PM_NOREMOVE);
            if (!done) AfxPumpMessage();
        }
    }
};

TEST(AfxMessageLoop, PreTranslateGoesFromTheMessagesWindowUpwards) {
    PreTranslateTree tree;
    tree.PressKeyInLeaf();
    EXPECT_THAT(tree.log, ElementsAre("leaf", "middle", "top"));
}

TEST(AfxMessageLoop, WindowThatTakesAMessage_EndsTheWay) {
    PreTranslateTree tree;
    tree.middle.m_bTake = true;
    tree.PressKeyInLeaf();
    EXPECT_THAT(tree.log, ElementsAre("leaf", "middle"));
}

TEST(AfxMessageLoop, MainWindowIsTheLastToSeeAMessageAndSeesItOnce) {
    PreTranslateTree tree;
    AfxGetThread()->m_pMainWnd = &tree.top;
    tree.PressKeyInLeaf();
    AfxGetThread()->m_pMainWnd = nullptr;
    EXPECT_THAT(tree.log, ElementsAre("leaf", "middle", "top"));
}

TEST(AfxMessageLoop, MessageOfAnotherTopLevelWindow_PassesTheMainWindowToo) {
    PreTranslateTree tree;
    PreTranslatingWnd mainWnd;
    mainWnd.m_pLog = &tree.log;
    mainWnd.m_name = "main";
    mainWnd.CreateEx(0, nullptr, L"", WS_POPUP, CRect(0, 0, 9, 9), nullptr, 0);
    AfxGetThread()->m_pMainWnd = &mainWnd;
    tree.PressKeyInLeaf();
    AfxGetThread()->m_pMainWnd = nullptr;
    EXPECT_THAT(tree.log, ElementsAre("leaf", "middle", "top", "main"));
}

TEST(AfxMessageLoop, EndOfTheMainWindow_EndsTheLoopWithIdleWorkDone) {
    class App : public CWinApp {
      public:
        TestFrame m_frame;
        int m_nIdle = 0;
        BOOL InitInstance() override {
            m_pMainWnd = &m_frame;
            return TRUE;
        }
        BOOL OnIdle(LONG lCount) override {
            if (m_nIdle++ == 0) m_pMainWnd->PostMessage(WM_CLOSE);
            return CWinApp::OnIdle(lCount);
        }
    };
    App app;
    EXPECT_EQ(AfxGetApp(), &app);
    EXPECT_EQ(AfxWinMain(), 0);
    EXPECT_EQ(app.m_pMainWnd, nullptr);
    EXPECT_GT(app.m_nIdle, 0);
}

// --- tool tips

class TipWnd : public TestFrame {
  public:
    CButton m_button;
    int m_nAsked = 0;
    HWND m_hWndAsked = nullptr;
    TipWnd() {
        m_button.Create(L"B", WS_VISIBLE, CRect(20, 20, 120, 60), this, 202);
        EnableToolTips(TRUE);
    }

  protected:
    BOOL OnToolTipText(UINT, NMHDR* pNMHDR, LRESULT* pResult) {
        auto* pText = reinterpret_cast<NMTTDISPINFOW*>(pNMHDR);
        EXPECT_TRUE(pText->uFlags & TTF_IDISHWND);
        ++m_nAsked;
        m_hWndAsked = reinterpret_cast<HWND>(pNMHDR->idFrom);
        lstrcpynW(pText->szText, L"Hello", 80);
        *pResult = 0;
        return TRUE;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(TipWnd, TestFrame)
ON_NOTIFY_EX(TTN_GETDISPINFOW, 0, &TipWnd::OnToolTipText)
END_MESSAGE_MAP()

TEST(AfxToolTips, MouseOverAChild_AsksForItsTextAndShowsIt) {
    TipWnd wnd;
    wnd.SetForegroundWindow();
    POINT point{40, 20};
    wnd.m_button.ClientToScreen(&point);
    SetCursorPos(point.x, point.y);
    const auto pumped = [&](MSG& msg) { return AfxPreTranslateMessage(&msg) != FALSE; };
    windows::WaitFor([&] { return wnd.m_nAsked > 0; }, std::chrono::milliseconds(300), pumped);
    point.x += 3;
    SetCursorPos(point.x, point.y);
    EXPECT_TRUE(
        windows::WaitFor([&] { return windows::VisibleTip() != nullptr; }, windows::kPatience, pumped));
    EXPECT_EQ(wnd.m_hWndAsked, wnd.m_button.m_hWnd);
    EXPECT_EQ(windows::TextOf(windows::VisibleTip()), L"Hello");
    wnd.EnableToolTips(FALSE);
    EXPECT_EQ(windows::VisibleTip(), nullptr);
}

TEST(AfxToolTips, OwnTipControl_KeepsOneToolAndChangesItsText) {
    TestFrame wnd;
    CButton button;
    button.Create(L"B", WS_VISIBLE, CRect(20, 20, 120, 60), &wnd, 202);
    CToolTipCtrl tip;
    ASSERT_TRUE(tip.Create(&button));
    CRect rect;
    button.GetClientRect(rect);
    EXPECT_TRUE(tip.AddTool(&button, L"First", rect, 1));
    EXPECT_EQ(tip.GetToolCount(), 1);
    tip.UpdateTipText(L"Second", &button, 1);
    CString text;
    tip.GetText(text, &button, 1);
    EXPECT_EQ(text, L"Second");
    EXPECT_EQ(tip.GetToolCount(), 1);
    tip.SetMaxTipWidth(400);
    EXPECT_EQ(tip.GetMaxTipWidth(), 400);
}

}  // namespace
