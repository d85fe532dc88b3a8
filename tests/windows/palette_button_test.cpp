// The palette's small buttons in each of their states: at rest, under the mouse, pressed, focused, disabled.
#include <afxwin.h>
#include <gmock/gmock.h>

#include "controls/button_st.h"
#include "resources/resource.h"
#include "support/windows_driver.h"

using testing::ElementsAre;

namespace {

constexpr int kSize = 40;
constexpr int kButtonId = 1;

class ClickCounter : public CWnd {
  public:
    int m_nClicks = 0;

  protected:
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override {
        if (lParam != 0 && LOWORD(wParam) == kButtonId && HIWORD(wParam) == BN_CLICKED) ++m_nClicks;
        return CWnd::OnCommand(wParam, lParam);
    }
};

class ButtonState : public testing::Test {
  protected:
    ButtonState() {
        m_owner.CreateEx(0, nullptr, L"Owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(100, 100, 600, 500),
                         nullptr, 0);
        m_other.Create(L"Other", WS_CHILD | WS_VISIBLE | WS_TABSTOP, CRect(10, 100, 80, 130), &m_owner, 2);
        m_button.Create(L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, CRect(10, 10, 10 + kSize, 10 + kSize),
                        &m_owner, kButtonId);
        m_button.SetIcon(IDI_SWAP_SIZES, 32, 32);
        m_owner.SetForegroundWindow();
        m_other.SetFocus();
    }
    using Pixels = std::vector<COLORREF>;
    Pixels Look() {
        m_button.RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        CClientDC dc(&m_button);
        Pixels pixels;
        for (int y = 0; y < kSize; ++y)
            for (int x = 0; x < kSize; ++x)
                pixels.push_back(dc.GetPixel(x, y));
        return pixels;
    }
    static COLORREF At(const Pixels& pixels, int x, int y) {
        return pixels[static_cast<size_t>(y * kSize + x)];
    }
    // The colours of the outermost pixels: left, top, right, bottom.
    std::vector<COLORREF> Border() {
        const Pixels pixels = Look();
        constexpr int middle = kSize / 2, last = kSize - 1;
        return {At(pixels, 0, middle), At(pixels, middle, 0), At(pixels, last, middle),
                At(pixels, middle, last)};
    }
    void Hover() { windows::MouseMove(m_button, {kSize / 2, kSize / 2}); }
    void Press(bool down) { m_button.SendMessage(BM_SETSTATE, down); }
    // All four sides in the background's colour.
    auto NoBorder() const { return testing::Each(m_face); }
    auto Raised() const { return ElementsAre(m_light, m_light, m_shadow, m_shadow); }
    auto Sunken() const { return ElementsAre(m_shadow, m_shadow, m_light, m_light); }

    const COLORREF m_face = GetSysColor(COLOR_BTNFACE);
    const COLORREF m_light = GetSysColor(COLOR_BTNHIGHLIGHT);
    const COLORREF m_shadow = GetSysColor(COLOR_BTNSHADOW);
    ClickCounter m_owner;
    CButton m_other;
    CButtonST m_button;
};

}  // namespace

TEST_F(ButtonState, AtRest_IsFlat) {
    EXPECT_THAT(Border(), NoBorder());
}

TEST_F(ButtonState, UnderTheMouse_IsRaised) {
    Hover();
    EXPECT_THAT(Border(), Raised());
}

TEST_F(ButtonState, Pressed_IsSunken) {
    Press(true);
    EXPECT_THAT(Border(), Sunken());
    Press(false);
    EXPECT_THAT(Border(), NoBorder());
}

TEST_F(ButtonState, PressedIcon_MovesByOnePixel) {
    const Pixels up = Look();
    Press(true);
    const Pixels down = Look();
    int drawn = 0;
    for (int y = 2; y < kSize - 3; ++y) {
        for (int x = 2; x < kSize - 3; ++x) {
            ASSERT_EQ(At(up, x, y), At(down, x + 1, y + 1)) << x << ',' << y;
            if (At(up, x, y) != m_face) ++drawn;
        }
    }
    EXPECT_GT(drawn, 50) << "there is an icon";
}

TEST_F(ButtonState, Disabled_IconIsDrawnAnotherWay) {
    const Pixels enabled = Look();
    m_button.EnableWindow(FALSE);
    const Pixels disabled = Look();
    EXPECT_NE(enabled, disabled);
    EXPECT_THAT(disabled, testing::Contains(testing::Ne(m_face)));
    m_button.EnableWindow(TRUE);
    EXPECT_EQ(Look(), enabled);
}

TEST_F(ButtonState, LightGoesOut_WhenTheMouseOrTheFocusLeavesOrTheModeIsCancelled) {
    const auto out = [this](UINT message, WPARAM wParam = 0) {
        Hover();
        EXPECT_THAT(Border(), Raised());
        m_button.SendMessage(message, wParam);
        EXPECT_THAT(Border(), NoBorder()) << message;
    };
    out(WM_MOUSELEAVE);
    out(WM_KILLFOCUS);
    out(WM_CANCELMODE);
    out(WM_ACTIVATE, WA_INACTIVE);
}

TEST_F(ButtonState, BecomingActive_KeepsTheLight) {
    Hover();
    m_button.SendMessage(WM_ACTIVATE, WA_ACTIVE);
    EXPECT_THAT(Border(), Raised());
}

TEST_F(ButtonState, MouseElsewhere_PutsTheLightOut) {
    Hover();
    windows::MouseMove(m_button, {kSize / 2, 300});
    EXPECT_THAT(Border(), NoBorder());
}

TEST_F(ButtonState, Disabling_PutsTheLightOutForGood) {
    Hover();
    m_button.EnableWindow(FALSE);
    m_button.EnableWindow(TRUE);
    EXPECT_THAT(Border(), NoBorder());
}

TEST_F(ButtonState, Disabling_MovesTheFocusToTheNextTabItemWhereverItWas) {
    CButton next;
    next.Create(L"Next", WS_CHILD | WS_VISIBLE | WS_TABSTOP, CRect(10, 150, 80, 180), &m_owner, 3);
    for (const bool visible : {true, false}) {
        m_button.ShowWindow(visible ? SW_SHOW : SW_HIDE);
        for (CWnd* focused :
             {static_cast<CWnd*>(&m_button), static_cast<CWnd*>(&m_other), static_cast<CWnd*>(&m_owner)}) {
            m_button.EnableWindow(TRUE);
            focused->SetFocus();
            m_button.EnableWindow(FALSE);
            EXPECT_EQ(GetFocus(), next.m_hWnd) << visible;
        }
    }
    m_other.SetFocus();
    m_button.EnableWindow(FALSE);
    EXPECT_EQ(GetFocus(), m_other.m_hWnd) << "it was disabled already";
    m_button.EnableWindow(TRUE);
    EXPECT_EQ(GetFocus(), m_other.m_hWnd);
}

TEST_F(ButtonState, DisablingTheOnlyTabItem_MovesTheFocusToTheParent) {
    m_other.EnableWindow(FALSE);
    EnableWindow(m_button, TRUE);
    SetFocus(nullptr);
    m_button.EnableWindow(FALSE);
    EXPECT_EQ(GetFocus(), m_owner.m_hWnd);
}

TEST_F(ButtonState, FlatAndFocused_ShowsNoFocus) {
    const Pixels without = Look();
    m_button.SetFocus();
    EXPECT_EQ(Look(), without);
}

TEST_F(ButtonState, RaisedAndFocused_HasABlackFrame) {
    m_button.SetFlat(FALSE, TRUE);
    EXPECT_NE(Border()[0], RGB(0, 0, 0));
    const Pixels without = Look();
    m_button.SetFocus();
    EXPECT_THAT(Border(), testing::Each(RGB(0, 0, 0)));
    // And a dotted rectangle inside.
    EXPECT_NE(At(Look(), kSize / 2, 3) == At(without, kSize / 2, 3) &&
                  At(Look(), kSize / 2 + 1, 3) == At(without, kSize / 2 + 1, 3),
              true);
}

TEST_F(ButtonState, DoubleClick_IsTwoClicks) {
    const LPARAM point = MAKELPARAM(kSize / 2, kSize / 2);
    for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP})
        m_button.PostMessage(message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON, point);
    EXPECT_TRUE(windows::WaitFor([this] { return m_owner.m_nClicks == 2; }, windows::kPatience,
                                 [this](MSG& message) {
                                     return message.hwnd == m_button.m_hWnd &&
                                            m_button.PreTranslateMessage(&message);
                                 }));
}

TEST_F(ButtonState, Click_TakesTheFocusAndReachesTheParent) {
    windows::Click(m_owner, kButtonId);
    EXPECT_EQ(GetFocus(), m_button.m_hWnd);
    EXPECT_EQ(m_owner.m_nClicks, 1);
}

TEST_F(ButtonState, ParentsColours_AreNotUsed) {
    CClientDC dc(&m_button);
    const LRESULT brush = m_owner.SendMessage(WM_CTLCOLORBTN, reinterpret_cast<WPARAM>(dc.m_hDC),
                                              reinterpret_cast<LPARAM>(m_button.m_hWnd));
    EXPECT_EQ(reinterpret_cast<HGDIOBJ>(brush), GetStockObject(NULL_BRUSH));
}

TEST_F(ButtonState, ChangedSystemColour_IsUsedOnceTheButtonIsTold) {
    const int color = COLOR_BTNFACE;
    const COLORREF other = RGB(10, 200, 30);
    SetSysColors(1, &color, &other);
    EXPECT_THAT(Border(), NoBorder());
    m_button.SendMessage(WM_SYSCOLORCHANGE);
    EXPECT_THAT(Border(), testing::Each(other));
    SetSysColors(1, &color, &m_face);
    m_button.SendMessage(WM_SYSCOLORCHANGE);
    EXPECT_THAT(Border(), NoBorder());
}

TEST_F(ButtonState, IconOfEverySize_IsDrawnAndReplaced) {
    m_button.SetIcon(IDI_SWAP_SIZES, 32, 32);
    Look();  // the first picture makes what the system then keeps
    const windows::HandleCount before = windows::HandleCount::Now();
    for (const int size : {16, 24, 32, 48}) {
        for (int icon = IDI_NEW_LINE; icon <= IDI_NEW_LINE + 8; ++icon) {
            ASSERT_EQ(m_button.SetIcon(icon, size, size), BTNST_OK) << icon;
            ASSERT_THAT(Look(), testing::Contains(testing::Ne(m_face))) << icon << " at " << size;
        }
    }
    m_button.SetIcon(IDI_SWAP_SIZES, 32, 32);
    EXPECT_LE(windows::HandleCount::Now().gdi, before.gdi + 2);
}
