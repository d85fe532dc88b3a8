// Splitter, owner-drawn button and error box in real windows.
#include <afxcmn.h>
#include <afxwin.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "acestext.h"
#include "controls/acad_error_box.h"
#include "controls/button_st.h"
#include "controls/splitter_control.h"
#include "dm_owner_wnd.h"
#include "resources/resource.h"
#include "support/test_platform.h"
#include "support/windows_driver.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class DrawnSplitter : public CSplitterControl {
  public:
    using CSplitterControl::DrawLine;
};

class Splitter : public testing::Test {
  protected:
    CRect Place() const {
        CRect rect;
        m_bar.GetWindowRect(rect);
        m_owner.ScreenToClient(rect);
        return rect;
    }
    void Drag(int dx, int dy) {
        windows::MouseDown(m_bar, {2, 50});
        windows::MouseMove(m_bar, {2 + dx, 50 + dy}, MK_LBUTTON);
        windows::MouseUp(m_bar, {2 + dx, 50 + dy});
    }

    OwnerWnd m_owner;
    DrawnSplitter m_bar;
};

class OwnerDrawnButton : public testing::Test {
  protected:
    OwnerDrawnButton() {
        m_plain.Create(L"Plain", WS_CHILD | WS_VISIBLE | WS_TABSTOP, CRect(10, 100, 80, 130), &m_owner, 2);
        m_button.Create(L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, CRect(10, 10, 40, 40), &m_owner, 1);
    }
    COLORREF PixelOf(int x, int y) {
        m_button.RedrawWindow();
        windows::PumpWaiting();
        CClientDC dc(&m_button);
        return dc.GetPixel(x, y);
    }
    // Whether anything but the background is drawn inside the border.
    bool HasPicture() {
        const COLORREF background = GetSysColor(COLOR_BTNFACE);
        m_button.RedrawWindow();
        CClientDC dc(&m_button);
        for (int y = 4; y < 26; ++y) {
            for (int x = 4; x < 26; ++x) {
                if (dc.GetPixel(x, y) != background) return true;
            }
        }
        return false;
    }

    OwnerWnd m_owner;
    CButton m_plain;
    CButtonST m_button;
};

class ErrorBox : public SystemTest {};

}  // namespace

// --- splitter

TEST_F(Splitter, RunsAlongTheLongerSideAndIsThinned) {
    m_bar.Create(WS_CHILD | WS_VISIBLE, CRect(100, 10, 120, 310), &m_owner, 77);
    EXPECT_EQ(Place(), CRect(100, 10, 105, 310));
    EXPECT_EQ(m_bar.SetStyle(kSplitterVertical), kSplitterVertical);
    EXPECT_TRUE(m_bar.GetStyle() & SS_NOTIFY);
    CSplitterControl square;
    square.Create(WS_CHILD | WS_VISIBLE, CRect(200, 10, 240, 50), &m_owner, 78);
    EXPECT_EQ(square.SetStyle(kSplitterVertical), kSplitterHorizontal);
}

TEST_F(Splitter, Drag_MovesTheBarAndTellsTheOwnerOnce) {
    m_bar.Create(WS_CHILD | WS_VISIBLE, CRect(100, 10, 120, 310), &m_owner, 77);
    m_bar.SetRange(50, 400);
    windows::MouseDown(m_bar, {2, 50});
    windows::MouseMove(m_bar, {10, 50}, MK_LBUTTON);
    windows::MouseMove(m_bar, {42, 50}, MK_LBUTTON);
    EXPECT_EQ(Place().left, 100) << "only the line moves while the bar is dragged";
    EXPECT_THAT(m_owner.m_sized, IsEmpty());
    windows::MouseUp(m_bar, {42, 50});
    EXPECT_EQ(Place(), CRect(140, 10, 145, 310));
    ASSERT_EQ(m_owner.m_sized.size(), 1u);
    EXPECT_EQ(m_owner.m_sized[0].delta, 40);
    EXPECT_EQ(m_owner.m_sized[0].hdr.idFrom, 77u);
    EXPECT_EQ(m_owner.m_sized[0].hdr.hwndFrom, m_bar.m_hWnd);
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(Splitter, DragBeyondTheRange_StopsAtTheLimit) {
    m_bar.Create(WS_CHILD | WS_VISIBLE, CRect(100, 10, 120, 310), &m_owner, 77);
    m_bar.SetRange(90, 150);
    Drag(1000, 0);
    EXPECT_EQ(Place().left, 148);
    Drag(-1000, 0);
    EXPECT_EQ(Place().left, 88);
    ASSERT_EQ(m_owner.m_sized.size(), 2u);
    EXPECT_EQ(m_owner.m_sized[0].delta, 48);
    EXPECT_EQ(m_owner.m_sized[1].delta, -60);
}

TEST_F(Splitter, NewBar_CannotLeaveItsPlaceAndStillTells) {
    m_bar.Create(WS_CHILD | WS_VISIBLE, CRect(100, 10, 120, 310), &m_owner, 77);
    Drag(60, 0);
    EXPECT_EQ(Place().left, 100);
    ASSERT_EQ(m_owner.m_sized.size(), 1u);
    EXPECT_EQ(m_owner.m_sized[0].delta, 0);
}

TEST_F(Splitter, LyingBar_MovesUpAndDown) {
    m_bar.Create(WS_CHILD | WS_VISIBLE, CRect(10, 200, 310, 220), &m_owner, 77);
    m_bar.SetRange(50, 300);
    windows::MouseDown(m_bar, {50, 2});
    windows::MouseMove(m_bar, {90, -28}, MK_LBUTTON);
    windows::MouseUp(m_bar, {90, -28});
    EXPECT_EQ(Place(), CRect(10, 170, 310, 175));
    ASSERT_EQ(m_owner.m_sized.size(), 1u);
    EXPECT_EQ(m_owner.m_sized[0].delta, -30);
}

TEST_F(Splitter, OwnerThatIsNotTheParent_IsTold) {
    OwnerWnd other;
    m_bar.Create(WS_CHILD | WS_VISIBLE, CRect(100, 10, 120, 310), &m_owner, 77);
    m_bar.SetRange(50, 400);
    m_bar.SetOwner(&other);
    Drag(30, 0);
    EXPECT_THAT(m_owner.m_sized, IsEmpty());
    ASSERT_EQ(other.m_sized.size(), 1u);
    EXPECT_EQ(other.m_sized[0].delta, 30);
}

TEST_F(Splitter, ReleaseWithoutAPress_TellsNothingAndFreesTheMouse) {
    m_bar.Create(WS_CHILD | WS_VISIBLE, CRect(100, 10, 120, 310), &m_owner, 77);
    m_owner.SetCapture();
    windows::MouseUp(m_bar, {2, 50});
    EXPECT_THAT(m_owner.m_sized, IsEmpty());
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(Splitter, ChangePos_MovesTheBarWithoutTelling) {
    m_bar.ChangePos(5, 5);  // no window yet
    m_bar.Create(WS_CHILD | WS_VISIBLE, CRect(100, 10, 120, 310), &m_owner, 77);
    m_bar.ChangePos(7, -3);
    EXPECT_EQ(Place(), CRect(107, 7, 112, 307));
    m_bar.ChangePos(0, 0);
    EXPECT_EQ(Place(), CRect(107, 7, 112, 307));
    EXPECT_THAT(m_owner.m_sized, IsEmpty());
}

TEST_F(Splitter, Cursor_ShowsTheWayItMoves) {
    m_bar.Create(WS_CHILD | WS_VISIBLE, CRect(100, 10, 120, 310), &m_owner, 77);
    m_bar.SendMessage(WM_SETCURSOR, reinterpret_cast<WPARAM>(m_bar.m_hWnd),
                      MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_SIZEWE));
    m_bar.SetStyle(kSplitterHorizontal);
    m_bar.SendMessage(WM_SETCURSOR, reinterpret_cast<WPARAM>(m_bar.m_hWnd),
                      MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_SIZENS));
}

TEST_F(Splitter, LineDrawnTwice_LeavesTheScreenAsItWas) {
    m_bar.Create(WS_CHILD | WS_VISIBLE, CRect(100, 10, 120, 310), &m_owner, 77);
    m_bar.SetRange(50, 400);
    windows::PumpWaiting();
    CRect bar;
    m_bar.GetWindowRect(bar);
    // Of the line where the bar is, and of the line 30 pixels to the right.
    const auto pixelAt = [&](int moved) {
        return CWindowDC(nullptr).GetPixel(bar.CenterPoint().x - 1 + moved, bar.CenterPoint().y);
    };
    const COLORREF before = pixelAt(0);
    const COLORREF beforeMoved = pixelAt(30);
    windows::MouseDown(m_bar, {2, 50});
    EXPECT_NE(pixelAt(0), before);
    windows::MouseMove(m_bar, {32, 50}, MK_LBUTTON);
    EXPECT_EQ(pixelAt(0), before);
    EXPECT_NE(pixelAt(30), beforeMoved);
    windows::MouseMove(m_bar, {80, 50}, MK_LBUTTON);
    EXPECT_EQ(pixelAt(30), beforeMoved);
    windows::MouseUp(m_bar, {80, 50});
}

TEST_F(Splitter, Line_IsTwoLightStripesBesideItsPlace) {
    m_bar.Create(WS_CHILD | WS_VISIBLE, CRect(100, 10, 120, 310), &m_owner, 77);
    CRect bar;
    m_bar.GetWindowRect(bar);
    CWindowDC screen(nullptr);
    CDC picture;
    CBitmap bitmap;
    picture.CreateCompatibleDC(&screen);
    bitmap.CreateCompatibleBitmap(&screen, 100, bar.bottom + 10);
    CBitmap* before = picture.SelectObject(&bitmap);
    PatBlt(picture, 0, 0, 100, bar.bottom + 10, WHITENESS);
    m_bar.DrawLine(&picture, 50, 0);
    const int middle = bar.CenterPoint().y;
    for (int x : {49, 51}) {
        EXPECT_EQ(picture.GetPixel(x, bar.top - 1), RGB(255, 255, 255));
        EXPECT_EQ(picture.GetPixel(x, bar.top), COLORREF{0xC8C8C8});
        EXPECT_EQ(picture.GetPixel(x, middle), COLORREF{0xC8C8C8});
        EXPECT_EQ(picture.GetPixel(x, bar.bottom - 1), COLORREF{0xC8C8C8});
        EXPECT_EQ(picture.GetPixel(x, bar.bottom), RGB(255, 255, 255));
    }
    for (int x : {48, 50, 52})
        EXPECT_EQ(picture.GetPixel(x, middle), RGB(255, 255, 255));
    picture.SelectObject(before);
}

// --- owner-drawn button

TEST_F(OwnerDrawnButton, Icon_IsDrawn) {
    EXPECT_FALSE(HasPicture());
    EXPECT_EQ(m_button.SetIcon(IDI_OPEN, 24, 24), BTNST_OK);
    EXPECT_TRUE(HasPicture());
    m_button.EnableWindow(FALSE);
    EXPECT_TRUE(HasPicture());
}

TEST_F(OwnerDrawnButton, MissingIcon_LeavesAnEmptyButtonAndNoHandle) {
    m_button.SetIcon(IDI_OPEN, 24, 24);
    EXPECT_TRUE(HasPicture());  // the first picture also makes objects that stay
    m_button.SetIcon(4711, 24, 24);
    HasPicture();
    const windows::HandleCount before = windows::HandleCount::Now();
    for (int i = 0; i < 50; ++i)
        EXPECT_EQ(m_button.SetIcon(4711, 24, 24), BTNST_INVALIDRESOURCE);
    EXPECT_FALSE(HasPicture());
    for (int i = 0; i < 50; ++i)
        EXPECT_EQ(m_button.SetIcon(IDI_OPEN, 24, 24), BTNST_OK);
    m_button.SetIcon(4711, 24, 24);
    EXPECT_LE(windows::HandleCount::Now().gdi, before.gdi + 2);
}

TEST_F(OwnerDrawnButton, FlatButton_ShowsItsBorderUnderTheMouseOnly) {
    const COLORREF background = GetSysColor(COLOR_BTNFACE);
    EXPECT_EQ(PixelOf(0, 0), background);
    windows::MouseMove(m_button, {15, 15});
    EXPECT_NE(PixelOf(29, 15), background);
    m_button.SendMessage(WM_MOUSELEAVE);
    EXPECT_EQ(PixelOf(29, 15), background);
}

TEST_F(OwnerDrawnButton, MouseOverAnotherWindow_DoesNotLightIt) {
    windows::MouseMove(m_button, {15, 200});
    EXPECT_EQ(PixelOf(29, 15), GetSysColor(COLOR_BTNFACE));
}

TEST_F(OwnerDrawnButton, RaisedButton_AlwaysHasABorder) {
    m_button.SetFlat(FALSE);
    EXPECT_NE(PixelOf(29, 15), GetSysColor(COLOR_BTNFACE));
}

TEST_F(OwnerDrawnButton, TooltipText_IsChangedWithoutASecondTool) {
    m_button.SetTooltipText(nullptr);
    const auto findTip = [] {
        HWND found = nullptr;
        EnumThreadWindows(
            GetCurrentThreadId(),
            [](HWND window, LPARAM result) -> BOOL {
                if (windows::ClassOf(window) == TOOLTIPS_CLASSW) *reinterpret_cast<HWND*>(result) = window;
                return TRUE;
            },
            reinterpret_cast<LPARAM>(&found));
        return found;
    };
    EXPECT_EQ(findTip(), nullptr);
    m_button.SetTooltipText(L"Open");
    const HWND tip = findTip();
    ASSERT_NE(tip, nullptr);
    m_button.SetTooltipText(L"Close 50%");
    EXPECT_EQ(findTip(), tip);
    EXPECT_EQ(SendMessageW(tip, TTM_GETTOOLCOUNT, 0, 0), 1);
    EXPECT_EQ(SendMessageW(tip, TTM_GETMAXTIPWIDTH, 0, 0), 400);
    wchar_t text[80] = L"";
    TOOLINFOW tool{};
    tool.cbSize = sizeof(tool);
    tool.lpszText = text;
    ASSERT_TRUE(SendMessageW(tip, TTM_ENUMTOOLSW, 0, reinterpret_cast<LPARAM>(&tool)));
    EXPECT_STREQ(text, L"Close 50%");
}

TEST_F(OwnerDrawnButton, Click_SetsTheFocusAndReachesTheParent) {
    m_owner.SetForegroundWindow();
    m_plain.SetFocus();
    windows::Click(m_owner, 1);
    EXPECT_EQ(GetFocus(), m_button.m_hWnd);
    EXPECT_THAT(m_owner.m_clicked, ElementsAre(1u));
}

TEST_F(OwnerDrawnButton, DoubleClick_CountsAsAClick) {
    MSG message{m_button.m_hWnd, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(15, 15), 0, {}};
    m_button.PreTranslateMessage(&message);
    EXPECT_EQ(message.message, static_cast<UINT>(WM_LBUTTONDOWN));
}

TEST_F(OwnerDrawnButton, DisablingTheFocusedButton_PassesTheFocusOn) {
    m_owner.SetForegroundWindow();
    m_button.SetFocus();
    m_button.EnableWindow(FALSE);
    EXPECT_EQ(GetFocus(), m_plain.m_hWnd);
}

TEST_F(OwnerDrawnButton, DisablingTheOnlyControl_GivesTheFocusToTheParent) {
    m_owner.SetForegroundWindow();
    m_plain.EnableWindow(FALSE);
    m_button.SetFocus();
    m_button.EnableWindow(FALSE);
    EXPECT_EQ(GetFocus(), m_owner.m_hWnd);
}

TEST_F(OwnerDrawnButton, BecomingTheDefaultButton_KeepsTheOwnDrawing) {
    EXPECT_EQ(m_button.SendMessage(WM_GETDLGCODE) & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON),
              DLGC_UNDEFPUSHBUTTON);
    m_button.SendMessage(BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
    EXPECT_EQ(m_button.GetStyle() & BS_TYPEMASK, static_cast<DWORD>(BS_OWNERDRAW));
    EXPECT_TRUE(m_button.SendMessage(WM_GETDLGCODE) & DLGC_DEFPUSHBUTTON);
    m_button.SendMessage(BM_SETSTYLE, BS_PUSHBUTTON, TRUE);
    EXPECT_FALSE(m_button.SendMessage(WM_GETDLGCODE) & DLGC_DEFPUSHBUTTON);
}

// --- error box

TEST_F(ErrorBox, WithoutAHostError_ShowsTheTextAlone) {
    ShowMessageWithAcadError(L"Title", L"From %s\nto %s", kNoAcadError, L"50%s", L"%d");
    ASSERT_EQ(GetBoxes().size(), 1u);
    EXPECT_EQ(GetBoxes()[0].text, L"From 50%s\nto %d");
    EXPECT_EQ(GetBoxes()[0].caption, L"Title");
    EXPECT_EQ(GetBoxes()[0].flags, static_cast<unsigned>(MB_ICONERROR));
    EXPECT_EQ(GetBoxes()[0].owner, platform::BoxOwner::kHostMainWindow);
}

TEST_F(ErrorBox, WithAHostError_AddsItsText) {
    ShowMessageWithAcadError(L"TESSARC +", L"Error opening drawing:\n%s", Acad::eFileNotFound,
                             L"C:\\a%s.dwg");
    ASSERT_EQ(GetBoxes().size(), 1u);
    EXPECT_EQ(GetBoxes()[0].text, std::wstring(L"Error opening drawing:\nC:\\a%s.dwg\n\nAutoCAD Error: ") +
                                      acadErrorStatusText(Acad::eFileNotFound));
}
