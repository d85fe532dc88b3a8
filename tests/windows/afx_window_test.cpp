// Windows of the framework: the handle map, making and subclassing.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "afx_test.h"
#include "support/windows_driver.h"

namespace {

using testing::ElementsAre;

// --- handle map

TEST(AfxHandleMap, CreatedWindow_IsFoundByItsHandleUntilItIsDestroyed) {
    TestFrame wnd;
    const HWND handle = wnd.m_hWnd;
    ASSERT_NE(handle, nullptr);
    EXPECT_EQ(CWnd::FromHandle(handle), &wnd);
    EXPECT_EQ(CWnd::FromHandlePermanent(handle), &wnd);
    EXPECT_TRUE(wnd.DestroyWindow());
    EXPECT_EQ(wnd.m_hWnd, nullptr);
    EXPECT_EQ(CWnd::FromHandlePermanent(handle), nullptr);
    EXPECT_FALSE(wnd.DestroyWindow());
}

TEST(AfxHandleMap, ForeignWindow_GetsATemporaryObjectThatLeavesTheWindowAlone) {
    TestFrame wnd;
    const HWND child = MakeChild(wnd, L"STATIC", 5);
    CWnd* temporary = CWnd::FromHandle(child);
    EXPECT_EQ(temporary->m_hWnd, child);
    EXPECT_EQ(CWnd::FromHandle(child), temporary);
    EXPECT_EQ(CWnd::FromHandlePermanent(child), nullptr);
    CWnd::DeleteTempMap();
    EXPECT_TRUE(IsWindow(child));
    EXPECT_EQ(CWnd::FromHandle(nullptr), nullptr);
}

TEST(AfxHandleMap, AttachedWindow_OutlivesItsObjectAndCanBeAttachedOnce) {
    TestFrame wnd;
    const HWND child = MakeChild(wnd, L"STATIC", 5);
    {
        CWnd first;
        CWnd second;
        EXPECT_TRUE(first.Attach(child));
        EXPECT_FALSE(second.Attach(child));
        EXPECT_FALSE(second.Attach(nullptr));
        EXPECT_EQ(CWnd::FromHandle(child), &first);
    }
    EXPECT_TRUE(IsWindow(child));
    EXPECT_EQ(CWnd::FromHandlePermanent(child), nullptr);
}

TEST(AfxHandleMap, DestructorDestroysTheWindowThatTheObjectMade) {
    HWND handle = nullptr;
    {
        TestFrame wnd;
        handle = wnd.m_hWnd;
    }
    EXPECT_FALSE(IsWindow(handle));
}

TEST(AfxHandleMap, SubclassedControl_GetsItsOwnProcedureBack) {
    TestFrame wnd;
    const HWND child = MakeChild(wnd, L"BUTTON", 5);
    const LONG_PTR before = GetWindowLongPtrW(child, GWLP_WNDPROC);
    {
        CButton button;
        ASSERT_TRUE(button.SubclassDlgItem(5, &wnd));
        EXPECT_NE(GetWindowLongPtrW(child, GWLP_WNDPROC), before);
        EXPECT_EQ(button.GetDlgCtrlID(), 5);
    }
    EXPECT_EQ(GetWindowLongPtrW(child, GWLP_WNDPROC), before);
    EXPECT_EQ(windows::TextOf(child), L"child");
    CButton missing;
    EXPECT_FALSE(missing.SubclassDlgItem(6, &wnd));
}

// --- creation

class OrderWnd : public CWnd {
  public:
    std::vector<std::string> m_order;
    bool m_bRefuse = false;
    bool m_bFailCreate = false;
    void PreSubclassWindow() override {
        m_order.push_back(m_hWnd ? "presubclass" : "presubclass without window");
    }
    BOOL PreCreateWindow(CREATESTRUCT& cs) override {
        m_order.push_back("precreate");
        return !m_bRefuse && CWnd::PreCreateWindow(cs);
    }
    void PostNcDestroy() override {
        m_order.push_back(m_hWnd ? "postncdestroy with window" : "postncdestroy");
    }

  protected:
    afx_msg int OnCreate(LPCREATESTRUCT lpcs) {
        m_order.push_back("create");
        return m_bFailCreate || CWnd::OnCreate(lpcs) == -1 ? -1 : 0;
    }
    afx_msg void OnDestroy() {
        m_order.push_back("destroy");
        CWnd::OnDestroy();
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(OrderWnd, CWnd)
ON_WM_CREATE()
ON_WM_DESTROY()
END_MESSAGE_MAP()

TEST(AfxCreation, CallsComeInThePublishedOrder) {
    OrderWnd wnd;
    ASSERT_TRUE(wnd.CreateEx(0, nullptr, L"", WS_POPUP, CRect(0, 0, 10, 10), nullptr, 0));
    wnd.DestroyWindow();
    EXPECT_THAT(wnd.m_order, ElementsAre("precreate", "presubclass", "create", "destroy", "postncdestroy"));
}

TEST(AfxCreation, RefusedByPreCreateWindow_MakesNoWindowAndCallsPostNcDestroy) {
    OrderWnd wnd;
    wnd.m_bRefuse = true;
    EXPECT_FALSE(wnd.CreateEx(0, nullptr, L"", WS_POPUP, CRect(0, 0, 10, 10), nullptr, 0));
    EXPECT_THAT(wnd.m_order, ElementsAre("precreate", "postncdestroy"));
}

TEST(AfxCreation, RefusedByOnCreate_LeavesNoWindowAndCallsPostNcDestroyOnce) {
    OrderWnd wnd;
    wnd.m_bFailCreate = true;
    EXPECT_FALSE(wnd.CreateEx(0, nullptr, L"", WS_POPUP, CRect(0, 0, 10, 10), nullptr, 0));
    EXPECT_EQ(wnd.m_hWnd, nullptr);
    EXPECT_EQ(std::count(wnd.m_order.begin(), wnd.m_order.end(), "postncdestroy"), 1);
}

TEST(AfxCreation, UnknownClass_FailsAndLeavesTheObjectUsable) {
    CWnd wnd;
    EXPECT_FALSE(wnd.CreateEx(0, L"NoSuchClass", L"", WS_POPUP, CRect(0, 0, 10, 10), nullptr, 0));
    EXPECT_EQ(wnd.m_hWnd, nullptr);
    EXPECT_TRUE(wnd.CreateEx(0, nullptr, L"", WS_POPUP, CRect(0, 0, 10, 10), nullptr, 0));
}

// The window that a handler of WM_CREATE makes must not be taken for the outer one.
class NestingWnd : public CWnd {
  public:
    CButton m_button;

  protected:
    afx_msg int OnCreate(LPCREATESTRUCT lpcs) {
        if (CWnd::OnCreate(lpcs) == -1) return -1;
        return m_button.Create(L"Inner", WS_VISIBLE, CRect(0, 0, 20, 20), this, 3) ? 0 : -1;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(NestingWnd, CWnd)
ON_WM_CREATE()
END_MESSAGE_MAP()

TEST(AfxCreation, ChildMadeInOnCreate_HasItsOwnWindow) {
    NestingWnd wnd;
    ASSERT_TRUE(wnd.CreateEx(0, nullptr, L"Outer", WS_POPUP, CRect(0, 0, 100, 100), nullptr, 0));
    EXPECT_EQ(windows::ClassOf(wnd.m_button.m_hWnd), L"Button");
    EXPECT_EQ(wnd.m_button.GetParent(), &wnd);
    EXPECT_EQ(windows::TextOf(wnd.m_hWnd), L"Outer");
    wnd.DestroyWindow();
    EXPECT_EQ(wnd.m_button.m_hWnd, nullptr);
}

TEST(AfxCreation, ChildWithoutClassOrTitle_IsMadeWithItsId) {
    TestFrame parent;
    CWnd wnd;
    ASSERT_TRUE(wnd.Create(nullptr, nullptr, WS_CHILD | WS_MINIMIZE, CRect(0, 0, 1, 1), &parent, 10));
    EXPECT_EQ(wnd.GetDlgCtrlID(), 10);
    EXPECT_EQ(wnd.GetParent(), &parent);
}

TEST(AfxCreation, RegisteredClass_HasOneNameForOneSetOfProperties) {
    // The names are atoms, which a failing comparison must not print as texts.
    const LPCTSTR first = AfxRegisterWndClass(0);
    EXPECT_TRUE(first == AfxRegisterWndClass(0));
    EXPECT_FALSE(first == AfxRegisterWndClass(CS_DBLCLKS));
    WNDCLASSEXW wc{};
    wc.cbSize = sizeof(wc);
    ASSERT_TRUE(GetClassInfoExW(GetModuleHandleW(nullptr), first, &wc));
    EXPECT_EQ(wc.hCursor, nullptr);
    EXPECT_EQ(wc.hbrBackground, nullptr);
    EXPECT_EQ(wc.hIcon, nullptr);
}

TEST(AfxCreation, AHundredWindows_LeaveNothingBehind) {
    const auto cycle = [] {
        TestFrame wnd;
        CButton button;
        button.Create(L"B", WS_VISIBLE, CRect(0, 0, 20, 20), &wnd, 1);
        CFont font;
        font.CreateFont(-12, 0, 0, 0, 400, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, L"Arial");
        button.SetFont(&font);
        CClientDC dc(&wnd);
        CPen pen(PS_SOLID, 1, RGB(1, 2, 3));
        CPen* old = dc.SelectObject(&pen);
        dc.LineTo(5, 5);
        dc.SelectObject(old);
        windows::PumpWaiting();
    };
    cycle();
    CWnd::DeleteTempMap();
    const auto before = windows::HandleCount::Now();
    for (int i = 0; i < 100; ++i)
        cycle();
    CWnd::DeleteTempMap();
    const auto after = windows::HandleCount::Now();
    EXPECT_GT(before.gdi, 0);
    EXPECT_LE(after.gdi, before.gdi + 2);
    EXPECT_EQ(after.windows, before.windows);
}

TEST(AfxLeaks, TheCountSeesALeakedPenAndAWindow) {
    const auto before = windows::HandleCount::Now();
    const HPEN pen = CreatePen(PS_SOLID, 1, RGB(9, 9, 9));
    TestFrame wnd;
    const auto during = windows::HandleCount::Now();
    EXPECT_GE(during.gdi, before.gdi + 1);
    EXPECT_GE(during.windows, before.windows + 1);
    DeleteObject(pen);
}

}  // namespace
