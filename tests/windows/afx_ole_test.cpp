// OLE controls in the framework's windows: made, called, heard, moved and released.
#include <afxdisp.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "afx_test.h"
#include "support/windows_driver.h"
#include "test_control.h"

namespace {

using test_control::Seen;
using testing::ElementsAre;

constexpr UINT kControlId = 201;
const CRect kPlace(10, 20, 110, 80);

class Control : public CWnd {
  public:
    BOOL LoadFile(LPCTSTR lpszPath) {
        static const BYTE params[] = VTS_BSTR;
        BOOL bResult = FALSE;
        InvokeHelper(4, DISPATCH_METHOD, VT_BOOL, &bResult, params, lpszPath);
        return bResult;
    }
    BOOL GetState(LPCTSTR lpszName) {
        static const BYTE params[] = VTS_BSTR;
        BOOL bResult = FALSE;
        InvokeHelper(11, DISPATCH_PROPERTYGET, VT_BOOL, &bResult, params, lpszName);
        return bResult;
    }
    void SetState(LPCTSTR lpszName, BOOL bState) {
        static const BYTE params[] = VTS_BSTR VTS_BOOL;
        InvokeHelper(11, DISPATCH_PROPERTYPUT, VT_EMPTY, nullptr, params, lpszName, bState);
    }
};

class Container : public TestFrame {
  public:
    Control m_control;
    std::vector<std::wstring> m_events;
    bool m_bThrow = false;

  protected:
    void OnPicked(short nId, LPCTSTR lpszText) {
        if (m_bThrow) AfxThrowInvalidArgException();
        m_events.push_back(std::to_wstring(nId) + L" " + lpszText);
    }
    void OnPlain() { m_events.push_back(L"plain"); }
    void OnFlag(BOOL bFlag) { m_events.push_back(bFlag ? L"on" : L"off"); }
    DECLARE_EVENTSINK_MAP()
};

BEGIN_EVENTSINK_MAP(Container, TestFrame)
ON_EVENT(Container, kControlId, 1, &Container::OnPicked, VTS_I2 VTS_BSTR)
ON_EVENT(Container, kControlId, 2, &Container::OnPlain, VTS_NONE)
ON_EVENT(Container, kControlId, 3, &Container::OnFlag, VTS_BOOL)
END_EVENTSINK_MAP()

struct OleTest : testing::Test {
    test_control::Registration registration;
    Container wnd;
    Control& control = wnd.m_control;

    bool Make(DWORD style = WS_VISIBLE | WS_CHILD) {
        return control.CreateControl(test_control::kClass, L"", style, kPlace, &wnd, kControlId) != FALSE;
    }
};

TEST_F(OleTest, MadeControl_LiesInItsPlaceWithItsId) {
    ASSERT_TRUE(Make());
    EXPECT_EQ(control.m_hWnd, Seen().window);
    EXPECT_EQ(wnd.GetDlgItem(kControlId), &control);
    CRect rect;
    control.GetWindowRect(rect);
    wnd.ScreenToClient(rect);
    EXPECT_EQ(rect, kPlace);
    EXPECT_TRUE(control.IsWindowVisible());
    EXPECT_TRUE(Seen().siteSet);
    EXPECT_TRUE(Seen().userMode);
    EXPECT_EQ(Seen().sinks, 1);
    EXPECT_NE(control.GetControlUnknown(), nullptr);
}

TEST_F(OleTest, WithoutVisible_TheControlIsHidden) {
    ASSERT_TRUE(Make(WS_CHILD));
    EXPECT_FALSE(control.IsWindowVisible());
    control.ShowWindow(SW_SHOW);
    EXPECT_TRUE(control.IsWindowVisible());
}

TEST_F(OleTest, ClassInBraces_MeansTheSame) {
    EXPECT_TRUE(control.CreateControl(test_control::kClassText, L"", WS_VISIBLE, kPlace, &wnd, kControlId));
}

TEST_F(OleTest, UnknownClass_GivesFalseAndCallsDoNothing) {
    EXPECT_FALSE(
        control.CreateControl(L"{11111111-2222-3333-4444-555555555555}", L"", WS_VISIBLE, kPlace, &wnd, 1));
    EXPECT_FALSE(control.CreateControl(L"No.Such.Program", L"", WS_VISIBLE, kPlace, &wnd, 1));
    EXPECT_FALSE(control.CreateControl(L"{broken", L"", WS_VISIBLE, kPlace, &wnd, 1));
    EXPECT_EQ(control.m_hWnd, nullptr);
    control.SetProperty(1, VT_BSTR, L"x");
    CString text = L"before";
    control.GetProperty(1, VT_BSTR, &text);
    EXPECT_EQ(text, L"before");
    EXPECT_FALSE(control.LoadFile(L"good"));
    control.MoveWindow(CRect(0, 0, 5, 5));
    control.EnableWindow(FALSE);
    EXPECT_EQ(control.GetControlUnknown(), nullptr);
}

TEST_F(OleTest, ControlThatRefuses_IsReleasedAndThePlaceholderStays) {
    CStatic placeholder;
    placeholder.Create(L"", WS_VISIBLE, kPlace, &wnd, kControlId);
    Seen().refuses = true;
    EXPECT_FALSE(Make());
    EXPECT_EQ(Seen().alive, 0);
    EXPECT_NE(placeholder.m_hWnd, nullptr);
}

TEST_F(OleTest, Placeholder_GivesItsPlaceInTheTabOrder) {
    CButton first, last;
    CStatic placeholder;
    first.Create(L"", WS_VISIBLE | WS_TABSTOP, CRect(0, 0, 5, 5), &wnd, 1);
    placeholder.Create(L"", WS_VISIBLE, kPlace, &wnd, kControlId);
    last.Create(L"", WS_VISIBLE | WS_TABSTOP, CRect(0, 0, 5, 5), &wnd, 2);
    ASSERT_TRUE(Make());
    EXPECT_EQ(placeholder.m_hWnd, nullptr);
    EXPECT_EQ(first.GetWindow(GW_HWNDNEXT), &control);
    EXPECT_EQ(control.GetWindow(GW_HWNDNEXT), &last);
}

TEST_F(OleTest, Properties_GoInAndOut) {
    ASSERT_TRUE(Make());
    control.SetProperty(1, VT_BSTR, L"C:\\Drawings\\Übersicht.dwg");
    EXPECT_EQ(Seen().text, L"C:\\Drawings\\Übersicht.dwg");
    CString text;
    control.GetProperty(1, VT_BSTR, &text);
    EXPECT_EQ(text, L"C:\\Drawings\\Übersicht.dwg");
    control.SetProperty(2, VT_I2, 32);
    EXPECT_EQ(Seen().size, 32);
    long size = 0;
    control.GetProperty(2, VT_I4, &size);  // the control gives a short
    EXPECT_EQ(size, 32);
}

TEST_F(OleTest, MethodsAndPropertiesWithParameters) {
    ASSERT_TRUE(Make());
    EXPECT_TRUE(control.LoadFile(L"good.tbm"));
    EXPECT_FALSE(control.LoadFile(L"bad.tbm"));
    control.SetState(L"grid", TRUE);
    EXPECT_TRUE(Seen().states[L"grid"]);
    EXPECT_TRUE(control.GetState(L"grid"));
    EXPECT_FALSE(control.GetState(L"snap"));
    static const BYTE params[] = VTS_I4 VTS_R8 VTS_VARIANT;
    VARIANT four;
    VariantInit(&four);
    four.vt = VT_I4;
    four.lVal = 4;
    double sum = 0;
    control.InvokeHelper(22, DISPATCH_METHOD, VT_R8, &sum, params, 1L, 2.5, &four);
    EXPECT_EQ(sum, 7.5);
}

TEST_F(OleTest, FailureWithADescription_IsRaisedWithIt) {
    ASSERT_TRUE(Make());
    try {
        control.InvokeHelper(20, DISPATCH_METHOD, VT_EMPTY, nullptr, nullptr);
        ADD_FAILURE() << "nothing was raised";
    } catch (COleDispatchException* e) {
        EXPECT_EQ(e->m_strDescription, L"The menu is torn.");
        EXPECT_EQ(e->m_scError, E_ABORT);
        wchar_t text[100];
        EXPECT_TRUE(e->GetErrorMessage(text, 100));
        EXPECT_STREQ(text, L"The menu is torn.");
        e->Delete();
    }
}

TEST_F(OleTest, FailureWithoutADescription_IsRaisedWithItsCode) {
    ASSERT_TRUE(Make());
    for (const DISPID dispid : {21, 999}) {
        try {
            control.InvokeHelper(dispid, DISPATCH_METHOD, VT_EMPTY, nullptr, nullptr);
            ADD_FAILURE() << "nothing was raised";
        } catch (COleException* e) {
            EXPECT_EQ(e->m_sc, dispid == 21 ? E_OUTOFMEMORY : DISP_E_MEMBERNOTFOUND);
            e->Delete();
        }
    }
}

TEST_F(OleTest, Events_ReachTheSinkMapWithTheirArguments) {
    ASSERT_TRUE(Make());
    EXPECT_EQ(test_control::FirePicked(-3, L"_LINE"), S_OK);
    EXPECT_EQ(test_control::FirePlain(), S_OK);
    EXPECT_EQ(test_control::FireFlag(true), S_OK);
    EXPECT_EQ(test_control::FireFlag(false), S_OK);
    EXPECT_THAT(wnd.m_events, ElementsAre(L"-3 _LINE", L"plain", L"on", L"off"));
}

TEST_F(OleTest, EventsThatDoNotFit_AreRefusedWithoutACall) {
    ASSERT_TRUE(Make());
    EXPECT_EQ(test_control::FirePickedWithWrongTypes(), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(test_control::FirePickedWithTooFew(), DISP_E_BADPARAMCOUNT);
    EXPECT_TRUE(wnd.m_events.empty());
}

TEST_F(OleTest, FailureInAnEventsHandler_IsShownAndDoesNotReachTheControl) {
    ASSERT_TRUE(Make());
    wnd.m_bThrow = true;
    windows::BoxAnswers boxes;
    EXPECT_EQ(test_control::FirePicked(1, L"x"), E_FAIL);
    EXPECT_EQ(boxes.Shown().size(), 1u);
}

TEST_F(OleTest, MovingAndEnabling_TellTheControl) {
    ASSERT_TRUE(Make());
    const long width = Seen().extent.cx;
    EXPECT_GT(width, 0);
    control.MoveWindow(CRect(0, 0, 200, 100));
    EXPECT_EQ(CRect(Seen().rect), CRect(0, 0, 200, 100));
    EXPECT_NEAR(Seen().extent.cx, 2 * width, 2);
    CRect rect;
    control.GetClientRect(rect);
    EXPECT_EQ(rect.Size(), CSize(200, 100));
    control.EnableWindow(FALSE);
    EXPECT_FALSE(Seen().enabled);
    EXPECT_FALSE(control.IsWindowEnabled());
    control.EnableWindow(TRUE);
    EXPECT_TRUE(Seen().enabled);
}

TEST_F(OleTest, DestroyedWithItsParent_TheControlIsReleased) {
    ASSERT_TRUE(Make());
    wnd.DestroyWindow();
    EXPECT_EQ(control.m_hWnd, nullptr);
    EXPECT_TRUE(Seen().closed);
    EXPECT_FALSE(Seen().siteSet);
    EXPECT_EQ(Seen().sinks, 0);
    EXPECT_EQ(Seen().alive, 0);
}

TEST_F(OleTest, DestroyedByItself_CanBeMadeAgain) {
    ASSERT_TRUE(Make());
    control.DestroyWindow();
    EXPECT_EQ(Seen().alive, 0);
    EXPECT_TRUE(Make());
    EXPECT_EQ(Seen().alive, 1);
    EXPECT_FALSE(Make());  // it has a control already
}

TEST_F(OleTest, ObjectThatGoesFirst_TakesTheControlWithIt) {
    auto own = std::make_unique<Control>();
    ASSERT_TRUE(own->CreateControl(test_control::kClass, L"", WS_VISIBLE, kPlace, &wnd, kControlId));
    const HWND handle = own->m_hWnd;
    own.reset();
    EXPECT_FALSE(IsWindow(handle));
    EXPECT_EQ(Seen().alive, 0);
    EXPECT_EQ(Seen().sinks, 0);
}

TEST_F(OleTest, InADialog_TheBoundMemberIsLeftAlone) {
    class HostDlg : public CDialog {
      public:
        HostDlg() : CDialog(IDD_FORM) {}
        Control m_control;
        BOOL OnInitDialog() override {
            m_control.CreateControl(test_control::kClass, L"", WS_VISIBLE, kPlace, this, IDC_LABEL);
            return CDialog::OnInitDialog();
        }
        void DoDataExchange(CDataExchange* pDX) override { DDX_Control(pDX, IDC_LABEL, m_control); }
    };
    HostDlg dlg;
    const windows::WhenDialogOpens opened([&](HWND dialog) {
        EXPECT_EQ(GetDlgItem(dialog, IDC_LABEL), dlg.m_control.m_hWnd);
        EXPECT_EQ(dlg.m_control.m_hWnd, Seen().window);
        windows::Click(dialog, IDOK);
    });
    EXPECT_EQ(dlg.DoModal(), IDOK);
    EXPECT_EQ(Seen().alive, 0);
}

TEST_F(OleTest, AHundredControls_LeaveNothingBehind) {
    const auto cycle = [&] {
        EXPECT_TRUE(Make());
        control.DestroyWindow();
    };
    cycle();
    CWnd::DeleteTempMap();
    const auto before = windows::HandleCount::Now();
    for (int i = 0; i < 100; ++i)
        cycle();
    CWnd::DeleteTempMap();
    const auto after = windows::HandleCount::Now();
    EXPECT_EQ(Seen().alive, 0);
    EXPECT_LE(after.gdi, before.gdi + 2);
    EXPECT_EQ(after.windows, before.windows);
}

}  // namespace
