// The balloon tip in real windows: where it stands, what it looks like, what closes it.
#include <afxwin.h>
#include <gtest/gtest.h>

#include "controls/balloon_tip.h"
#include "dm_driver.h"
#include "dm_owner_wnd.h"
#include "support/windows_driver.h"

namespace {

CBalloonTip* ShowTip(const CString& message, int seconds = 0, BOOL up = FALSE, int lines = -1,
                     CPoint anchor = CPoint(400, 400)) {
    const CRect rect(0, 0, 200, 20);
    return CBalloonTip::Show(anchor, &rect, 6, 16, message, LOGFONT{}, seconds, up, L"Note", 32516, lines);
}

class Balloon : public testing::Test {
  protected:
    ~Balloon() override {
        if (CWnd* left = CWnd::FromHandlePermanent(FindBalloon())) left->DestroyWindow();
    }
    static CRect PlaceOf(HWND window) {
        CRect rect;
        GetWindowRect(window, rect);
        return rect;
    }
    // The outline of the balloon's region, from the window's corner.
    static CRect OutlineOf(HWND window) {
        CRgn region;
        region.CreateRectRgn(0, 0, 0, 0);
        EXPECT_NE(GetWindowRgn(window, region), ERROR);
        CRect rect;
        region.GetRgnBox(rect);
        return rect;
    }
    // The first row of the picture, painted once more, that the title or the text is on: right of the tail
    // and below the frame of the body.
    static int FirstTextRow(CBalloonTip& tip) {
        tip.RedrawWindow();
        const CRect outline = OutlineOf(tip.m_hWnd);
        CClientDC dc(&tip);
        for (int y = outline.bottom / 4 + 4; y < outline.bottom - 4; ++y) {
            for (int x = outline.Width() * 4 / 10; x < outline.Width() * 8 / 10; ++x) {
                if (dc.GetPixel(x, y) != GetSysColor(COLOR_INFOBK)) return y;
            }
        }
        return -1;
    }
};

// A font of the balloon's text.
class TipFont : public CFont {
  public:
    explicit TipFont(int weight) {
        CreateFont(-8, 0, 0, 0, weight, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                   CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH, L"MS Sans Serif");
    }
};

// What stands in a balloon, on plain ground: the sign at a twentieth of the text's width, the title in bold,
// the message in the middle or, if it does not fit, broken 16 pixels below.
void DrawExpected(CDC& dc, CRect text, const wchar_t* message, bool fits) {
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextColor(RGB(0, 0, 0));
    const auto sign = static_cast<HICON>(
        LoadImageW(nullptr, IDI_INFORMATION, IMAGE_ICON, 0, 0, LR_SHARED | LR_DEFAULTSIZE));
    DrawIconEx(dc, text.Width() / 20, text.top, sign, 30, 30, 0, nullptr, DI_NORMAL);
    TipFont bold(FW_BOLD);
    TipFont normal(FW_NORMAL);
    CFont* before = dc.SelectObject(&bold);
    dc.DrawText(L"Note", text, DT_CENTER | DT_SINGLELINE);
    dc.SelectObject(&normal);
    if (!fits) text.top += 16;
    dc.DrawText(message, text, DT_CENTER | (fits ? DT_VCENTER | DT_SINGLELINE : DT_WORDBREAK));
    dc.SelectObject(before);
}

}  // namespace

TEST_F(Balloon, SecondShow_GivesNull) {
    CBalloonTip* tip = ShowTip(L"one");
    ASSERT_NE(tip, nullptr);
    EXPECT_EQ(ShowTip(L"two"), nullptr);
    EXPECT_EQ(FindBalloon(), tip->m_hWnd);
    CBalloonTip::Hide(tip);
    EXPECT_EQ(FindBalloon(), nullptr);
    CBalloonTip* next = ShowTip(L"three");
    EXPECT_NE(next, nullptr);
    CBalloonTip::Hide(next);
}

TEST_F(Balloon, HideOfNothing_DoesNothing) {
    CBalloonTip::Hide(nullptr);
    CBalloonTip* tip = ShowTip(L"one");
    CBalloonTip::Hide(nullptr);
    EXPECT_NE(FindBalloon(), nullptr);
    CBalloonTip::Hide(tip);
    CBalloonTip::Hide(tip);  // the pointer of a balloon that is gone, as its owner keeps it
    EXPECT_EQ(FindBalloon(), nullptr);
}

TEST_F(Balloon, HangsBelowItsAnchor) {
    CBalloonTip* tip = ShowTip(L"short");
    ASSERT_NE(tip, nullptr);
    const CRect place = PlaceOf(tip->m_hWnd);
    EXPECT_EQ(place.left, 400 - 100);
    EXPECT_EQ(place.top, 400 - GetSystemMetrics(SM_CYSIZEFRAME));
    EXPECT_FALSE(GetWindowLongPtrW(tip->m_hWnd, GWL_STYLE) & (WS_CAPTION | WS_THICKFRAME));
    EXPECT_TRUE(GetWindowLongPtrW(tip->m_hWnd, GWL_EXSTYLE) & WS_EX_TOPMOST);
    // Its full width but for the frame, and no higher than seven lines.
    const CRect outline = OutlineOf(tip->m_hWnd);
    EXPECT_GT(outline.Width(), 180);
    EXPECT_LE(outline.Width(), 200);
    EXPECT_LE(outline.bottom, 7 * 16);
    CBalloonTip::Hide(tip);
}

TEST_F(Balloon, Up_StandsAboveItsAnchor) {
    CBalloonTip* tip = ShowTip(L"short", 0, TRUE);
    ASSERT_NE(tip, nullptr);
    const CRect place = PlaceOf(tip->m_hWnd);
    EXPECT_EQ(place.top,
              400 - 7 * 16 + 2 * GetSystemMetrics(SM_CYSIZEFRAME) + GetSystemMetrics(SM_CYCAPTION));
    // The tail's end, the lowest point of the region, touches the anchor.
    EXPECT_NEAR(place.top + OutlineOf(tip->m_hWnd).bottom, 400, 12);
    CBalloonTip::Hide(tip);
}

TEST_F(Balloon, LineCount_MakesItHigher) {
    CBalloonTip* tip = ShowTip(L"x", 0, FALSE, 9);
    ASSERT_NE(tip, nullptr);
    EXPECT_GT(OutlineOf(tip->m_hWnd).bottom, 12 * 16);
    CBalloonTip::Hide(tip);
}

TEST_F(Balloon, DoesNotTakeTheFocus) {
    OwnerWnd owner;
    owner.SetForegroundWindow();
    CEdit edit;
    edit.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 100, 20), &owner, 1);
    edit.SetFocus();
    CBalloonTip* tip = ShowTip(L"note");
    EXPECT_EQ(GetFocus(), edit.m_hWnd);
    CBalloonTip::Hide(tip);
}

TEST_F(Balloon, HasAnOwnerThatNobodySees) {
    CBalloonTip* tip = ShowTip(L"note");
    ASSERT_NE(tip, nullptr);
    const HWND owner = GetWindow(tip->m_hWnd, GW_OWNER);
    EXPECT_NE(owner, nullptr);
    EXPECT_FALSE(IsWindowVisible(owner));
    CBalloonTip::Hide(tip);
    EXPECT_FALSE(IsWindow(owner));
}

TEST_F(Balloon, LeftClick_LeavesIt_RightClick_ClosesIt) {
    CBalloonTip* tip = ShowTip(L"note");
    ASSERT_NE(tip, nullptr);
    const HWND window = tip->m_hWnd;
    windows::MouseDown(window, {100, 60});
    EXPECT_TRUE(IsWindow(window));
    windows::MouseMove(window, {90, 50});
    EXPECT_TRUE(IsWindow(window));
    SendMessageW(window, WM_RBUTTONDOWN, 0, 0);
    EXPECT_FALSE(IsWindow(window));
    CBalloonTip* next = ShowTip(L"again");
    EXPECT_NE(next, nullptr);
    CBalloonTip::Hide(next);
}

TEST_F(Balloon, ActivatingAnotherWindow_ClosesIt) {
    OwnerWnd owner;
    CBalloonTip* tip = ShowTip(L"note");
    ASSERT_NE(tip, nullptr);
    const HWND window = tip->m_hWnd;
    SetActiveWindow(window);
    EXPECT_TRUE(IsWindow(window));
    owner.SetActiveWindow();
    windows::PumpWaiting();
    EXPECT_FALSE(IsWindow(window));
}

TEST_F(Balloon, ActivatingByAClick_ClosesIt) {
    for (UINT state : {WA_INACTIVE, WA_CLICKACTIVE}) {
        CBalloonTip* tip = ShowTip(L"note");
        ASSERT_NE(tip, nullptr);
        const HWND window = tip->m_hWnd;
        SendMessageW(window, WM_ACTIVATE, WA_ACTIVE, 0);
        EXPECT_TRUE(IsWindow(window));
        SendMessageW(window, WM_ACTIVATE, state, 0);
        EXPECT_FALSE(IsWindow(window)) << state;
    }
}

TEST_F(Balloon, LeavingTheProgram_ClosesIt) {
    CBalloonTip* tip = ShowTip(L"note");
    ASSERT_NE(tip, nullptr);
    const HWND window = tip->m_hWnd;
    SendMessageW(window, WM_ACTIVATEAPP, TRUE, 0);
    EXPECT_TRUE(IsWindow(window));
    SendMessageW(window, WM_ACTIVATEAPP, FALSE, 0);
    EXPECT_FALSE(IsWindow(window));
    CBalloonTip* next = ShowTip(L"again");
    EXPECT_NE(next, nullptr);
    CBalloonTip::Hide(next);
}

TEST_F(Balloon, WithSeconds_ClosesByItself) {
    CBalloonTip* tip = ShowTip(L"note", 1);
    ASSERT_NE(tip, nullptr);
    const HWND window = tip->m_hWnd;
    EXPECT_TRUE(windows::WaitFor([&] { return !IsWindow(window); }));
}

TEST_F(Balloon, WithoutSeconds_HasNoTimer) {
    CBalloonTip* tip = ShowTip(L"note", 0);
    ASSERT_NE(tip, nullptr);
    EXPECT_FALSE(tip->KillTimer(500));
    const HWND window = tip->m_hWnd;
    SendMessageW(window, WM_TIMER, 500, 0);  // nothing to stop, so nothing happens
    EXPECT_TRUE(IsWindow(window));
    CBalloonTip::Hide(tip);
    EXPECT_FALSE(IsWindow(window));
}

TEST_F(Balloon, IsFilledWithTheTipColourAndFramedInBlack) {
    CBalloonTip* tip = ShowTip(L"note");
    ASSERT_NE(tip, nullptr);
    tip->RedrawWindow();
    const CRect outline = OutlineOf(tip->m_hWnd);
    CClientDC dc(tip);
    const int x = outline.Width() * 6 / 10;
    EXPECT_EQ(dc.GetPixel(x, outline.bottom - 6), GetSysColor(COLOR_INFOBK));
    bool isFramed = false;
    for (int y = outline.bottom - 3; y <= outline.bottom; ++y)
        isFramed = isFramed || dc.GetPixel(x, y) == RGB(0, 0, 0);
    EXPECT_TRUE(isFramed);
    CBalloonTip::Hide(tip);
}

TEST_F(Balloon, SignTitleAndMessage_StandInTheirPlaces) {
    // The client area of the captioned frame that the window is made with.
    const int width = 200 - 2 * GetSystemMetrics(SM_CXFIXEDFRAME);
    const int height = 7 * 16 - 2 * GetSystemMetrics(SM_CYFIXEDFRAME) - GetSystemMetrics(SM_CYCAPTION);
    const CRect text(40, 35, width - 20, height * 9 / 10);
    for (const auto& [message, fits] : {std::pair(L"short", true), std::pair(L"one\ntwo", false)}) {
        CBalloonTip* tip = ShowTip(message);
        ASSERT_NE(tip, nullptr);
        tip->UpdateWindow();
        CClientDC shown(tip);
        CDC expected;
        CBitmap bitmap;
        expected.CreateCompatibleDC(&shown);
        bitmap.CreateCompatibleBitmap(&shown, width, height);
        CBitmap* before = expected.SelectObject(&bitmap);
        CBrush ground(GetSysColor(COLOR_INFOBK));
        expected.FillRect(CRect(0, 0, width, height), &ground);
        DrawExpected(expected, text, message, fits);
        int differences = 0;
        for (int y = text.top; y < text.bottom - 4; ++y) {
            for (int x = 4; x < text.right; ++x)
                differences += shown.GetPixel(x, y) != expected.GetPixel(x, y) ? 1 : 0;
        }
        EXPECT_EQ(differences, 0) << message;
        expected.SelectObject(before);
        CBalloonTip::Hide(tip);
    }
}

TEST_F(Balloon, TextThatFits_StaysWhereItIs) {
    CBalloonTip* tip = ShowTip(L"note");
    ASSERT_NE(tip, nullptr);
    const int first = FirstTextRow(*tip);
    EXPECT_GT(first, 0);
    EXPECT_EQ(FirstTextRow(*tip), first);
    CBalloonTip::Hide(tip);
}

TEST_F(Balloon, WrappedText_MovesDownWithEveryPainting) {
    for (const wchar_t* text :
         {L"a message that is a good deal wider than its balloon, so it is broken", L"one\ntwo\nthree"}) {
        CBalloonTip* tip = ShowTip(text);
        ASSERT_NE(tip, nullptr);
        const int first = FirstTextRow(*tip);
        EXPECT_GT(first, 0);
        EXPECT_EQ(FirstTextRow(*tip), first + 16);
        CBalloonTip::Hide(tip);
    }
}

TEST_F(Balloon, HundredTimes_LeavesNothingBehind) {
    const auto showOnce = [] {
        CBalloonTip* tip =
            ShowTip(L"a message that needs more than one line, since it is longer than the balloon");
        windows::PumpWaiting();
        CBalloonTip::Hide(tip);
    };
    showOnce();
    const windows::HandleCount before = windows::HandleCount::Now();
    for (int i = 0; i < 100; ++i)
        showOnce();
    const windows::HandleCount after = windows::HandleCount::Now();
    EXPECT_EQ(after.windows, before.windows);
    EXPECT_LE(after.gdi, before.gdi + 2);
}
