// Palette sets in the frame: shown, hidden, docked, dragged, resized, closed, and back in their places.
#include <gtest/gtest.h>

#include "frame_fixture.h"

namespace frame_test {
namespace {

constexpr int kCaption = 22;  // height of a set's caption in pixels

class FramePalette : public FrameTest {
  protected:
    // Presses the mouse on the set's caption, moves it over the points of the screen and lets go (or not).
    void Drag(RecordingSet& set, const std::vector<POINT>& points, bool release = true) {
        windows::MouseDown(set, {20, 10});
        const HWND holder = ::GetCapture();
        ASSERT_NE(nullptr, holder);
        for (const POINT& point : points) {
            POINT client = point;
            ::ScreenToClient(holder, &client);
            windows::MouseMove(holder, client, MK_LBUTTON);
        }
        if (!release) return;
        POINT client = points.back();
        ::ScreenToClient(holder, &client);
        windows::MouseUp(holder, client);
        windows::PumpWaiting();
    }
    POINT FramePoint(int x, int y) const {
        POINT point{x, y};
        ::ClientToScreen(*m_frame, &point);
        return point;
    }
    POINT Middle() const { return FramePoint(500, 300); }
    POINT LeftEdge() const { return FramePoint(5, 300); }
    POINT RightEdge() const {
        CRect client;
        m_frame->GetClientRect(&client);
        return FramePoint(client.right - 5, 300);
    }
    void ClickClose(RecordingSet& set) {
        CRect client;
        set.GetClientRect(&client);
        const POINT button{client.right - 10, 10};
        windows::MouseDown(set, button);
        windows::MouseUp(set, button);
        windows::PumpWaiting();
    }
    CRect ClientOf(const CWnd& window) {
        CRect client;
        window.GetClientRect(&client);
        return client;
    }
};

TEST_F(FramePalette, Create_IsHiddenUntilItIsShown) {
    const auto made = MakeSet(FreshToolId());
    EXPECT_FALSE(made->set.IsWindowVisible());
    EXPECT_EQ(&made->palette, made->set.GetPalette(0));
    EXPECT_EQ(nullptr, made->set.GetPalette(1));
    EXPECT_EQ(nullptr, made->set.GetPalette(-1));
    EXPECT_EQ(1, made->palette.m_nActivated);
    EXPECT_EQ(1, made->palette.m_nLoaded);
    EXPECT_STREQ(L"PID", made->set.GetName());
    Show(*made, true);
    EXPECT_TRUE(made->set.IsWindowVisible());
    EXPECT_TRUE(made->palette.IsWindowVisible());
}

TEST_F(FramePalette, Create_SecondTime_IsRefused) {
    const auto made = MakeSet(FreshToolId());
    EXPECT_FALSE(made->set.Create(L"PID", 0, CRect(0, 0, 10, 10), acedGetAcadFrame(), 30));
}

TEST_F(FramePalette, AddPalette_WithoutAWindow_IsRefused) {
    const auto made = MakeSet(FreshToolId());
    RecordingPalette bare;
    EXPECT_EQ(-1, made->set.AddPalette(&bare));
    EXPECT_EQ(-1, made->set.AddPalette(nullptr));
    EXPECT_FALSE(bare.Create(WS_CHILD, L"x", nullptr, 1));
}

TEST_F(FramePalette, SecondPalette_IsSeenWhenItIsMadeTheActiveOne) {
    const auto made = MakeShownSet();
    RecordingPalette second;
    ASSERT_TRUE(second.Create(WS_CHILD | WS_VISIBLE, L"Second", &made->set, 1));
    EXPECT_EQ(1, made->set.AddPalette(&second));
    EXPECT_FALSE(second.IsWindowVisible());
    EXPECT_TRUE(made->set.SetActivePalette(1));
    EXPECT_TRUE(second.IsWindowVisible());
    EXPECT_FALSE(made->palette.IsWindowVisible());
    EXPECT_TRUE(made->set.RemovePalette(1));
    EXPECT_TRUE(made->palette.IsWindowVisible());
    EXPECT_FALSE(made->set.RemovePalette(1));
}

TEST_F(FramePalette, FirstTime_DocksLeftWithTheSizeGivenToCreate) {
    const auto made = MakeShownSet();
    EXPECT_TRUE(made->set.IsDocked());
    EXPECT_FALSE(made->set.IsFloating());
    const CRect set = InFrame(made->set);
    EXPECT_EQ(0, set.left);
    EXPECT_EQ(125, set.right);
    EXPECT_GT(set.Height(), 300);
    EXPECT_EQ(125, made->palette.m_size.cx);
    EXPECT_EQ(set.Height() - kCaption, made->palette.m_size.cy);
}

TEST_F(FramePalette, Shown_TakesItsRoomFromTheView_HiddenGivesItBack) {
    const auto made = MakeSet(FreshToolId());
    const CRect alone = InFrame(m_frame->View());
    Show(*made, true);
    const CRect beside = InFrame(m_frame->View());
    EXPECT_EQ(alone.right, beside.right);
    EXPECT_EQ(125 + frame::kSplitterWidth, beside.left);
    Show(*made, false);
    EXPECT_EQ(alone.left, InFrame(m_frame->View()).left);
}

TEST_F(FramePalette, Hidden_HearsItOnce_ShownHearsThatItIsPlaced) {
    const auto made = MakeSet(FreshToolId());
    made->set.m_nPlaced = 0;
    Show(*made, true);
    EXPECT_GT(made->set.m_nPlaced, 0);
    EXPECT_EQ(0, made->set.m_nHidden);
    Show(*made, false);
    EXPECT_EQ(1, made->set.m_nHidden);
}

TEST_F(FramePalette, ShowControlBar_WithoutASet_DoesNothing) {
    m_frame->ShowControlBar(nullptr, TRUE, FALSE);
    m_frame->ShowControlBar(nullptr, FALSE, FALSE);
}

TEST_F(FramePalette, CloseButton_HidesTheSet) {
    const auto made = MakeShownSet();
    ClickClose(made->set);
    EXPECT_FALSE(made->set.IsWindowVisible());
    EXPECT_EQ(1, made->set.m_nHidden);
    Show(*made, true);
    EXPECT_TRUE(made->set.IsWindowVisible());
}

TEST_F(FramePalette, CloseButton_LetGoBesideIt_KeepsTheSet) {
    const auto made = MakeShownSet();
    windows::MouseDown(made->set, {ClientOf(made->set).right - 10, 10});
    windows::MouseUp(made->set, {20, 100});
    EXPECT_TRUE(made->set.IsWindowVisible());
    EXPECT_EQ(nullptr, ::GetCapture());
}

TEST_F(FramePalette, DraggedOutOfTheDock_FloatsUnderTheMouse) {
    const auto made = MakeShownSet();
    Drag(made->set, {FramePoint(60, 200), Middle()});
    EXPECT_TRUE(made->set.IsFloating());
    EXPECT_TRUE(made->set.IsWindowVisible());
    EXPECT_EQ(0u, made->set.GetStyle() & WS_CHILD);
    CRect window;
    made->set.GetWindowRect(&window);
    EXPECT_TRUE(window.PtInRect(Middle()));
    EXPECT_EQ(125, window.Width());
    EXPECT_EQ(495, window.Height());
    EXPECT_EQ(0, InFrame(m_frame->View()).left);
    EXPECT_EQ(ClientOf(made->set).right, made->palette.m_size.cx);
}

TEST_F(FramePalette, DraggedToTheRightEdge_DocksThere) {
    const auto made = MakeShownSet();
    Drag(made->set, {Middle(), RightEdge()});
    EXPECT_TRUE(made->set.IsDocked());
    EXPECT_EQ(ClientOf(*m_frame).right, InFrame(made->set).right);
    EXPECT_EQ(0, InFrame(m_frame->View()).left);
    Drag(made->set, {Middle(), LeftEdge()});
    EXPECT_EQ(0, InFrame(made->set).left);
}

TEST_F(FramePalette, ClickOnTheCaption_MovesNothing) {
    const auto made = MakeShownSet();
    const CRect before = InFrame(made->set);
    windows::MouseDown(made->set, {20, 10});
    windows::MouseUp(::GetCapture(), {21, 11});
    EXPECT_TRUE(made->set.IsDocked());
    EXPECT_EQ(before, InFrame(made->set));
    EXPECT_EQ(nullptr, ::GetCapture());
}

TEST_F(FramePalette, EscapeWhileDragging_PutsItBack) {
    const auto made = MakeShownSet();
    Drag(made->set, {Middle(), RightEdge()}, false);
    EXPECT_TRUE(made->set.IsFloating());
    EXPECT_TRUE(m_frame->Docks().CancelDrag());
    EXPECT_TRUE(made->set.IsDocked());
    EXPECT_EQ(0, InFrame(made->set).left);
    EXPECT_EQ(nullptr, ::GetCapture());
    EXPECT_FALSE(m_frame->Docks().CancelDrag());
}

TEST_F(FramePalette, SetDestroyedWhileDragged_LeavesNothingBehind) {
    auto made = MakeShownSet();
    Drag(made->set, {Middle(), RightEdge()}, false);
    made.reset();
    EXPECT_EQ(nullptr, ::GetCapture());
    EXPECT_FALSE(m_frame->Docks().CancelDrag());
    EXPECT_TRUE(m_frame->Docks().Bars().empty());
}

TEST_F(FramePalette, SideThatIsNotEnabled_IsNotDockedAt) {
    const auto made = MakeShownSet();
    made->set.EnableDocking(CBRS_ALIGN_LEFT);
    Drag(made->set, {Middle(), RightEdge()});
    EXPECT_TRUE(made->set.IsFloating());
    EXPECT_FALSE(m_frame->Docks().Dock(made->set, frame::DockSide::kRight));
    made->set.EnableDocking(0);
    Drag(made->set, {Middle(), LeftEdge()});
    EXPECT_TRUE(made->set.IsFloating());
}

TEST_F(FramePalette, DoubleClickOnTheCaption_FloatsAndDocks) {
    const auto made = MakeShownSet();
    made->set.SendMessage(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(20, 10));
    EXPECT_TRUE(made->set.IsFloating());
    CRect window;
    made->set.GetWindowRect(&window);
    EXPECT_EQ(CRect(10, 10, 135, 505), window);
    made->set.SendMessage(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(20, 10));
    EXPECT_TRUE(made->set.IsDocked());
}

TEST_F(FramePalette, FloatingSetThatIsMoved_HearsIt) {
    const auto made = MakeShownSet();
    m_frame->Docks().Float(made->set, {300, 200, 425, 600});
    made->set.m_nPlaced = 0;
    made->set.SetWindowPos(nullptr, 340, 220, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    EXPECT_EQ(1, made->set.m_nPlaced);
}

TEST_F(FramePalette, FloatingOutOfSight_ComesBackIntoView) {
    const auto made = MakeShownSet();
    m_frame->Docks().Float(made->set, {9000, 9000, 9125, 9500});
    CRect window;
    made->set.GetWindowRect(&window);
    EXPECT_LT(window.left, GetSystemMetrics(SM_CXSCREEN));
    EXPECT_LT(window.top, GetSystemMetrics(SM_CYSCREEN));
}

TEST_F(FramePalette, Splitter_ChangesTheWidthWithinTheLimits) {
    const auto made = MakeShownSet();
    const HWND splitter = ::WindowFromPoint(FramePoint(125 + 2, 300));
    const auto dragTo = [&](int x) {
        windows::MouseDown(splitter, {2, 100});
        POINT there = FramePoint(x, 300);
        ::ScreenToClient(splitter, &there);
        windows::MouseMove(splitter, there, MK_LBUTTON);
        windows::MouseUp(splitter, there);
    };
    dragTo(302);
    EXPECT_EQ(300, InFrame(made->set).right);
    EXPECT_EQ(300, made->palette.m_size.cx);
    EXPECT_EQ(300 + frame::kSplitterWidth, InFrame(m_frame->View()).left);
    dragTo(1);
    CSize smallest;
    made->set.GetMinimumSize(smallest);
    EXPECT_EQ(smallest.cx, InFrame(made->set).right);
    dragTo(5000);
    EXPECT_EQ(frame::kSmallestCenter, InFrame(m_frame->View()).Width());
}

TEST_F(FramePalette, Resize_DockedAndFloating) {
    const auto made = MakeShownSet();
    m_frame->Docks().Resize(made->set, 84, 0);
    EXPECT_EQ(84, made->palette.m_size.cx);
    m_frame->Docks().Float(made->set, {300, 100, 425, 600});
    m_frame->Docks().Resize(made->set, 220, 333);
    CRect window;
    made->set.GetWindowRect(&window);
    EXPECT_EQ(CSize(220, 333), CSize(window.Width(), window.Height()));
    m_frame->Docks().Resize(made->set, 1, 1);
    made->set.GetWindowRect(&window);
    CSize smallest;
    made->set.GetMinimumSize(smallest);
    EXPECT_EQ(smallest, CSize(window.Width(), window.Height()));
}

TEST_F(FramePalette, Place_IsKeptForEachToolId) {
    const GUID first = FreshToolId();
    const GUID second = FreshToolId();
    {
        const auto made = MakeSet(first);
        Show(*made, true);
        m_frame->Docks().Dock(made->set, frame::DockSide::kRight);
        m_frame->Docks().Resize(made->set, 210, 0);
    }
    {
        const auto made = MakeSet(second);
        Show(*made, true);
        EXPECT_EQ(0, InFrame(made->set).left);
        m_frame->Docks().Float(made->set, {333, 111, 500, 600});
    }
    const auto again = MakeSet(first);
    Show(*again, true);
    EXPECT_EQ(ClientOf(*m_frame).right - 210, InFrame(again->set).left);
    const auto other = MakeSet(second);
    Show(*other, true);
    EXPECT_TRUE(other->set.IsFloating());
    CRect window;
    other->set.GetWindowRect(&window);
    EXPECT_EQ(CRect(333, 111, 500, 600), window);
}

TEST_F(FramePalette, WithoutAToolId_NothingIsKept) {
    for (int i = 0; i < 2; ++i) {
        RecordingSet set;
        ASSERT_TRUE(set.Create(L"Nameless", 0, CRect(0, 0, 125, 250), acedGetAcadFrame(), 30));
        EXPECT_EQ(nullptr, set.GetToolID());
        set.EnableDocking(CBRS_ALIGN_ANY);
        set.RestoreControlBar(AFX_IDW_DOCKBAR_RIGHT, nullptr);
        m_frame->ShowControlBar(&set, TRUE, FALSE);
        EXPECT_EQ(ClientOf(*m_frame).right, InFrame(set).right);
        m_frame->Docks().Dock(set, frame::DockSide::kLeft);
    }
}

TEST_F(FramePalette, TwoSetsAtOneSide_ShareIt) {
    const auto first = MakeShownSet();
    const auto second = MakeSet(FreshToolId(), L"ISOMETRIC");
    Show(*second, true);
    EXPECT_EQ(InFrame(first->set).bottom, InFrame(second->set).top);
    EXPECT_EQ(&second->set, m_frame->Docks().Find(L"isometric"));
    EXPECT_EQ(nullptr, m_frame->Docks().Find(L"ORTHO"));
}

TEST_F(FramePalette, HideAll_HidesEverySet) {
    const auto docked = MakeShownSet();
    const auto floating = MakeShownSet();
    m_frame->Docks().Float(floating->set, {300, 100, 425, 600});
    m_frame->Docks().HideAll();
    EXPECT_FALSE(docked->set.IsWindowVisible());
    EXPECT_FALSE(floating->set.IsWindowVisible());
    EXPECT_EQ(1, docked->set.m_nHidden);
}

TEST_F(FramePalette, DisabledFrame_DisablesFloatingSets) {
    const auto made = MakeShownSet();
    m_frame->Docks().Float(made->set, {300, 100, 425, 600});
    m_frame->EnableWindow(FALSE);
    EXPECT_FALSE(made->set.IsWindowEnabled());
    m_frame->EnableWindow(TRUE);
    EXPECT_TRUE(made->set.IsWindowEnabled());
}

TEST_F(FramePalette, MouseOverTheDrawing_TakesTheFocusOnlyIfThePaletteLetsIt) {
    const auto made = MakeShownSet();
    CEdit edit;
    edit.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 50, 20), &made->palette, 7);
    made->palette.m_bTakeFocus = false;
    edit.SetFocus();
    m_frame->View().SendMessage(WM_MOUSEMOVE, 0, MAKELPARAM(30, 30));
    EXPECT_EQ(edit.GetSafeHwnd(), ::GetFocus());
    made->palette.m_bTakeFocus = true;
    m_frame->View().SendMessage(WM_MOUSEMOVE, 0, MAKELPARAM(31, 30));
    EXPECT_TRUE(m_frame->CommandLine().IsChild(CWnd::GetFocus()));
}

TEST_F(FramePalette, SetsMadeAndDestroyed_LeaveNothingBehind) {
    const auto once = [this] {
        const auto made = MakeSet(GUID{1, 2, 3, {4, 5, 6, 7, 8, 9, 10, 11}});
        Show(*made, true);
        m_frame->Docks().Float(made->set, {300, 100, 425, 600});
        m_frame->Docks().Dock(made->set, frame::DockSide::kRight);
        windows::PumpWaiting();
    };
    for (int i = 0; i < 3; ++i)
        once();  // what is made once and kept
    const windows::HandleCount before = windows::HandleCount::Now();
    for (int i = 0; i < 100; ++i)
        once();
    const windows::HandleCount after = windows::HandleCount::Now();
    EXPECT_EQ(before.windows, after.windows);
    EXPECT_EQ(before.gdi, after.gdi);
    EXPECT_TRUE(m_frame->Docks().Bars().empty());
}

TEST_F(FramePalette, SetDestroyedBeforeItsPalette_IsForgottenByIt) {
    RecordingPalette palette;
    {
        RecordingSet set;
        ASSERT_TRUE(set.Create(L"PID", 0, CRect(0, 0, 125, 250), acedGetAcadFrame(), 30));
        ASSERT_TRUE(palette.Create(WS_CHILD | WS_VISIBLE, L"PID", &set, 1));
        set.AddPalette(&palette);
        EXPECT_EQ(&set, palette.GetPaletteSet());
    }
    EXPECT_EQ(nullptr, palette.GetPaletteSet());
    EXPECT_EQ(nullptr, palette.GetSafeHwnd());
    EXPECT_EQ(1, palette.m_nSaved);
}

TEST_F(FramePalette, FrameGoneFirst_TheSetLosesItsWindow) {
    const auto docked = MakeShownSet();
    const auto floating = MakeShownSet();
    m_frame->Docks().Float(floating->set, {300, 100, 425, 600});
    frame::SetHostFrame(nullptr);
    m_frame->DestroyWindow();
    m_frame = nullptr;
    EXPECT_EQ(nullptr, docked->set.GetSafeHwnd());
    EXPECT_EQ(nullptr, floating->set.GetSafeHwnd());
    EXPECT_EQ(nullptr, acedGetAcadFrame());
    EXPECT_EQ(nullptr, adsw_acadMainWnd());
}

}  // namespace
}  // namespace frame_test
