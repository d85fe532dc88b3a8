// The notification window, without the module around it: how it comes and goes, and what it hears.
#include "shell/notify_window.h"

#include <gmock/gmock.h>

#include "frame_fixture.h"
#include "palette/notify_link.h"
#include "storage/trace.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kWindowId = 10;

std::vector<std::wstring> g_markers;

void NoteMarker(const std::wstring& marker) {
    g_markers.push_back(marker);
}

class NotifyWindowTest : public frame_test::FrameTest {
  protected:
    void SetUp() override {
        FrameTest::SetUp();
        g_markers.clear();
        SetTraceHook(NoteMarker);
    }
    void TearDown() override {
        SetTraceHook(nullptr);
        CArxMsgHandler::DestroyNotifyWindow();
        FrameTest::TearDown();
    }
    HWND Find() const { return ::GetDlgItem(*m_frame, kWindowId); }
};

TEST_F(NotifyWindowTest, Create_MakesAHiddenChildOfTheFrame) {
    EXPECT_EQ(CArxMsgHandler::GetNotifyWindow(), nullptr);
    CArxMsgHandler::CreateNotifyWindow();
    ASSERT_NE(CArxMsgHandler::GetNotifyWindow(), nullptr);
    const HWND window = CArxMsgHandler::GetNotifyWindow()->m_hWnd;
    EXPECT_EQ(Find(), window);
    EXPECT_EQ(GetParent(window), m_frame->m_hWnd);
    EXPECT_FALSE(IsWindowVisible(window));
    const LONG_PTR style = GetWindowLongPtrW(window, GWL_STYLE);
    EXPECT_EQ(style & (WS_CHILD | WS_MINIMIZE | WS_VISIBLE), WS_CHILD | WS_MINIMIZE);
    EXPECT_EQ(windows::TextOf(window), L"");
}

TEST_F(NotifyWindowTest, SecondCreate_ChangesNothing) {
    CArxMsgHandler::CreateNotifyWindow();
    CArxMsgHandler* const first = CArxMsgHandler::GetNotifyWindow();
    const HWND window = first->m_hWnd;
    const int count = windows::HandleCount::Now().windows;
    CArxMsgHandler::CreateNotifyWindow();
    EXPECT_EQ(CArxMsgHandler::GetNotifyWindow(), first);
    EXPECT_EQ(first->m_hWnd, window);
    EXPECT_EQ(windows::HandleCount::Now().windows, count);
}

TEST_F(NotifyWindowTest, Destroy_LeavesNone) {
    CArxMsgHandler::CreateNotifyWindow();
    const HWND window = CArxMsgHandler::GetNotifyWindow()->m_hWnd;
    CArxMsgHandler::DestroyNotifyWindow();
    EXPECT_EQ(CArxMsgHandler::GetNotifyWindow(), nullptr);
    EXPECT_FALSE(IsWindow(window));
    CArxMsgHandler::DestroyNotifyWindow();
    EXPECT_EQ(CArxMsgHandler::GetNotifyWindow(), nullptr);
    CArxMsgHandler::CreateNotifyWindow();
    EXPECT_NE(Find(), nullptr) << "it can come again";
}

TEST_F(NotifyWindowTest, WindowTakenAwayByTheHost_IsNoneAndComesAgain) {
    CArxMsgHandler::CreateNotifyWindow();
    ::DestroyWindow(CArxMsgHandler::GetNotifyWindow()->m_hWnd);
    EXPECT_EQ(CArxMsgHandler::GetNotifyWindow(), nullptr);
    PostDrawingManagerRequest();
    CArxMsgHandler::CreateNotifyWindow();
    EXPECT_NE(CArxMsgHandler::GetNotifyWindow(), nullptr);
}

TEST_F(NotifyWindowTest, EveryRequest_IsAnsweredWithZeroAndTraced) {
    CArxMsgHandler::CreateNotifyWindow();
    for (const WPARAM request : {0, 1, 2, 1924}) {
        g_markers.clear();
        EXPECT_EQ(SendMessageW(Find(), 1924, request, 7), 0);
        EXPECT_THAT(g_markers,
                    ElementsAre(L"+ CArxMsgHandler::OnKV2DNotify", L"+ CArxMsgHandler::OnKV2DNotify"))
            << "a plus sign on the way out too, and nothing between without a palette";
    }
}

TEST_F(NotifyWindowTest, Request_IsPostedAndNotSent) {
    CArxMsgHandler::CreateNotifyWindow();
    PostDrawingManagerRequest();
    EXPECT_THAT(g_markers, IsEmpty());
    MSG message = {};
    ASSERT_TRUE(PeekMessageW(&message, Find(), 1924, 1924, PM_REMOVE));
    EXPECT_EQ(message.wParam, 1u);
    EXPECT_EQ(message.lParam, 0);
}

TEST_F(NotifyWindowTest, RequestWithoutAWindow_GoesNowhere) {
    PostDrawingManagerRequest();
    MSG message = {};
    EXPECT_FALSE(PeekMessageW(&message, nullptr, 1924, 1924, PM_REMOVE));
}

}  // namespace
