// The way of a message to its handler in the framework: message maps and reflection.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "afx_test.h"
#include "support/windows_driver.h"

namespace {

using testing::ElementsAre;

class RecordingWnd : public TestFrame {
  public:
    std::vector<std::wstring> m_astrLog;
    bool m_bTakeEx = true;

    void Log(const std::wstring& strEntry) { m_astrLog.push_back(strEntry); }

  protected:
    LRESULT OnAnswer(WPARAM wParam, LPARAM lParam) {
        Log(L"answer");
        return static_cast<LRESULT>(wParam) * 10 + lParam;
    }
    afx_msg void OnSize(UINT nType, int cx, int cy) {
        TestFrame::OnSize(nType, cx, cy);
        Log(L"size " + std::to_wstring(cx) + L"x" + std::to_wstring(cy));
    }
    afx_msg void OnMouseMove(UINT nFlags, CPoint point) {
        Log(L"move " + std::to_wstring(point.x) + L"," + std::to_wstring(point.y) + L" " +
            std::to_wstring(nFlags));
    }
    afx_msg void OnTimer(UINT_PTR nIDEvent) { Log(L"timer " + std::to_wstring(nIDEvent)); }
    afx_msg void OnClickedOne() { Log(L"one"); }
    afx_msg void OnRange(UINT nID) { Log(L"range " + std::to_wstring(nID)); }
    afx_msg BOOL OnMaybe(UINT nID) {
        Log(L"maybe " + std::to_wstring(nID));
        return m_bTakeEx;
    }
    afx_msg void OnItemNotify(NMHDR* pNMHDR, LRESULT* pResult) {
        Log(L"notify " + std::to_wstring(static_cast<int>(pNMHDR->code)));
        *pResult = 42;
    }
    afx_msg void OnSelchange() { Log(L"selchange"); }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(RecordingWnd, TestFrame)
ON_MESSAGE(kAnswerMessage, &RecordingWnd::OnAnswer)
ON_WM_SIZE()
ON_WM_MOUSEMOVE()
ON_WM_TIMER()
ON_BN_CLICKED(1, &RecordingWnd::OnClickedOne)
ON_COMMAND_RANGE(100, 110, &RecordingWnd::OnRange)
ON_COMMAND_EX(120, &RecordingWnd::OnMaybe)
ON_NOTIFY(NM_CLICK, 7, &RecordingWnd::OnItemNotify)
ON_CBN_SELCHANGE(8, &RecordingWnd::OnSelchange)
END_MESSAGE_MAP()

// Adds to the base's map and takes one of its entries over.
class DerivedWnd : public RecordingWnd {
  protected:
    afx_msg void OnClickedOne() { Log(L"derived one"); }
    afx_msg BOOL OnDecline(UINT) {
        Log(L"declined");
        return FALSE;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(DerivedWnd, RecordingWnd)
ON_BN_CLICKED(1, &DerivedWnd::OnClickedOne)
ON_COMMAND_EX(105, &DerivedWnd::OnDecline)
END_MESSAGE_MAP()

// --- message maps

TEST(AfxMessageMap, OnMessage_ReturnsTheHandlersResult) {
    RecordingWnd wnd;
    EXPECT_EQ(wnd.SendMessage(kAnswerMessage, 4, 2), 42);
}

TEST(AfxMessageMap, PositionsAreSigned) {
    RecordingWnd wnd;
    wnd.m_astrLog.clear();
    wnd.SendMessage(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(-3, -4));
    EXPECT_THAT(wnd.m_astrLog, ElementsAre(L"move -3,-4 1"));
}

TEST(AfxMessageMap, MessageWithoutHandler_GetsTheSystemsAnswer) {
    RecordingWnd wnd;
    EXPECT_EQ(wnd.SendMessage(WM_GETTEXTLENGTH), 4);
}

TEST(AfxMessageMap, CommandOfAMenuAndOfAControl_ReachTheSameHandler) {
    RecordingWnd wnd;
    const HWND button = MakeChild(wnd, L"BUTTON", 1);
    wnd.m_astrLog.clear();
    EXPECT_EQ(wnd.SendMessage(WM_COMMAND, MAKEWPARAM(1, 0)), 1);
    EXPECT_EQ(wnd.SendMessage(WM_COMMAND, MAKEWPARAM(1, 1)), 1);  // an accelerator
    EXPECT_EQ(wnd.SendMessage(WM_COMMAND, MAKEWPARAM(1, BN_CLICKED), reinterpret_cast<LPARAM>(button)), 1);
    EXPECT_THAT(wnd.m_astrLog, ElementsAre(L"one", L"one", L"one"));
    wnd.SendMessage(WM_COMMAND, MAKEWPARAM(1, BN_DOUBLECLICKED), reinterpret_cast<LPARAM>(button));
    EXPECT_EQ(wnd.m_astrLog.size(), 3u);
}

TEST(AfxMessageMap, Range_TakesItsEndsAndNothingBeyond) {
    RecordingWnd wnd;
    wnd.m_astrLog.clear();
    for (const int id : {99, 100, 110, 111})
        wnd.SendMessage(WM_COMMAND, static_cast<WPARAM>(id));
    EXPECT_THAT(wnd.m_astrLog, ElementsAre(L"range 100", L"range 110"));
}

TEST(AfxMessageMap, DecliningHandler_LeavesTheCommandUnhandled) {
    RecordingWnd wnd;
    EXPECT_EQ(wnd.SendMessage(WM_COMMAND, 120), 1);
    wnd.m_bTakeEx = false;
    EXPECT_EQ(wnd.SendMessage(WM_COMMAND, 120), 0);
}

TEST(AfxMessageMap, DerivedEntryComesBeforeTheBases) {
    DerivedWnd wnd;
    wnd.m_astrLog.clear();
    wnd.SendMessage(WM_COMMAND, 1);
    wnd.SendMessage(WM_COMMAND, 105);
    EXPECT_THAT(wnd.m_astrLog, ElementsAre(L"derived one", L"declined", L"range 105"));
}

TEST(AfxMessageMap, Notify_ReturnsTheHandlersResultForItsIdAndCodeOnly) {
    RecordingWnd wnd;
    const HWND child = MakeChild(wnd, L"STATIC", 7);
    wnd.m_astrLog.clear();
    NMHDR header{child, 7, static_cast<UINT>(NM_CLICK)};
    EXPECT_EQ(wnd.SendMessage(WM_NOTIFY, 7, reinterpret_cast<LPARAM>(&header)), 42);
    header.code = static_cast<UINT>(NM_DBLCLK);
    EXPECT_EQ(wnd.SendMessage(WM_NOTIFY, 7, reinterpret_cast<LPARAM>(&header)), 0);
    EXPECT_THAT(wnd.m_astrLog, ElementsAre(L"notify -2"));
}

TEST(AfxMessageMap, ComboSelectionChange_ReachesItsHandler) {
    RecordingWnd wnd;
    CComboBox combo;
    combo.Create(WS_VISIBLE | CBS_DROPDOWNLIST, CRect(0, 0, 100, 100), &wnd, 8);
    combo.AddString(L"a");
    wnd.m_astrLog.clear();
    windows::SelectRow(wnd.m_hWnd, 8, 0);
    EXPECT_THAT(wnd.m_astrLog, ElementsAre(L"selchange"));
}

TEST(AfxMessageMap, Timer_ReachesItsHandlerUntilItIsKilled) {
    RecordingWnd wnd;
    wnd.m_astrLog.clear();
    EXPECT_EQ(wnd.SetTimer(77, 10), 77u);
    // The pointer may stand where the window comes up.
    EXPECT_TRUE(windows::WaitFor(
        [&] { return std::count(wnd.m_astrLog.begin(), wnd.m_astrLog.end(), L"timer 77") > 0; }));
    EXPECT_TRUE(wnd.KillTimer(77));
    EXPECT_FALSE(wnd.KillTimer(77));
}

// A handler that sends another message gets its own message back for Default.
class NestedDefaultWnd : public TestFrame {
  protected:
    LRESULT OnGetText(WPARAM, LPARAM) {
        SendMessage(WM_NULL);
        SendMessage(WM_GETTEXTLENGTH);
        return Default();
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(NestedDefaultWnd, TestFrame)
ON_MESSAGE(WM_GETTEXT, &NestedDefaultWnd::OnGetText)
END_MESSAGE_MAP()

TEST(AfxMessageMap, DefaultAfterANestedSend_MeansTheOuterMessage) {
    NestedDefaultWnd wnd;
    wchar_t text[16] = L"";
    EXPECT_EQ(wnd.SendMessage(WM_GETTEXT, 16, reinterpret_cast<LPARAM>(text)), 4);
    EXPECT_STREQ(text, L"Test");
}

// --- reflection

class ReflectingButton : public CButton {
  public:
    int m_nClicks = 0;
    BOOL m_bTake = TRUE;

  protected:
    BOOL OnReflectedClick() {
        ++m_nClicks;
        return m_bTake;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(ReflectingButton, CButton)
ON_CONTROL_REFLECT_EX(BN_CLICKED, &ReflectingButton::OnReflectedClick)
END_MESSAGE_MAP()

TEST(AfxReflection, ControlSeesItsClickFirstAndMayKeepIt) {
    RecordingWnd wnd;
    ReflectingButton button;
    ASSERT_TRUE(button.Create(L"B", WS_VISIBLE, CRect(0, 0, 50, 20), &wnd, 1));
    wnd.m_astrLog.clear();
    windows::Click(wnd.m_hWnd, 1);
    EXPECT_EQ(button.m_nClicks, 1);
    EXPECT_TRUE(wnd.m_astrLog.empty());
    button.m_bTake = FALSE;
    windows::Click(wnd.m_hWnd, 1);
    EXPECT_EQ(button.m_nClicks, 2);
    EXPECT_THAT(wnd.m_astrLog, ElementsAre(L"one"));
}

class ReflectingTree : public CTreeCtrl {
  public:
    LRESULT m_lBegin = 0;
    int m_nBegun = 0;
    std::wstring m_strEnded;

  protected:
    void OnBegin(NMHDR*, LRESULT* pResult) {
        ++m_nBegun;
        *pResult = m_lBegin;
    }
    void OnEnd(NMHDR* pNMHDR, LRESULT* pResult) {
        const auto* pInfo = reinterpret_cast<NMTVDISPINFO*>(pNMHDR);
        m_strEnded = pInfo->item.pszText ? pInfo->item.pszText : L"(cancelled)";
        *pResult = pInfo->item.pszText != nullptr;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(ReflectingTree, CTreeCtrl)
ON_NOTIFY_REFLECT(TVN_BEGINLABELEDIT, &ReflectingTree::OnBegin)
ON_NOTIFY_REFLECT(TVN_ENDLABELEDIT, &ReflectingTree::OnEnd)
END_MESSAGE_MAP()

class TreeFrame : public RecordingWnd {
  public:
    ReflectingTree m_tree;
    HTREEITEM m_hItem = nullptr;
    TreeFrame() {
        m_tree.Create(WS_VISIBLE | TVS_EDITLABELS | TVS_HASLINES, CRect(0, 0, 200, 200), this, 9);
        m_hItem = m_tree.InsertItem(L"Old");
        m_tree.SetFocus();
    }
};

TEST(AfxReflection, LabelEditResult_GoesBackToTheControl) {
    TreeFrame wnd;
    CEdit* edit = wnd.m_tree.EditLabel(wnd.m_hItem);
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(wnd.m_tree.GetEditControl()->m_hWnd, edit->m_hWnd);
    windows::EndLabelEdit(edit->m_hWnd, L"New");
    EXPECT_EQ(wnd.m_tree.m_strEnded, L"New");
    EXPECT_EQ(wnd.m_tree.GetItemText(wnd.m_hItem), L"New");
}

TEST(AfxReflection, RefusedLabelEdit_ShowsNoEdit) {
    TreeFrame wnd;
    wnd.m_tree.m_lBegin = 1;
    EXPECT_EQ(wnd.m_tree.EditLabel(wnd.m_hItem), nullptr);
    EXPECT_EQ(wnd.m_tree.m_nBegun, 1);
    EXPECT_EQ(wnd.m_tree.GetEditControl(), nullptr);
}

TEST(AfxReflection, CancelledLabelEdit_KeepsTheText) {
    TreeFrame wnd;
    CEdit* edit = wnd.m_tree.EditLabel(wnd.m_hItem);
    ASSERT_NE(edit, nullptr);
    windows::CancelLabelEdit(edit->m_hWnd);
    EXPECT_EQ(wnd.m_tree.m_strEnded, L"(cancelled)");
    EXPECT_EQ(wnd.m_tree.GetItemText(wnd.m_hItem), L"Old");
}

class ColouredStatic : public CStatic {
  public:
    HBRUSH m_hBrush = nullptr;
    HBRUSH CtlColor(CDC* pDC, UINT nCtlColor) {
        EXPECT_EQ(nCtlColor, static_cast<UINT>(CTLCOLOR_STATIC));
        pDC->SetTextColor(RGB(10, 20, 30));
        return m_hBrush;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(ColouredStatic, CStatic)
ON_WM_CTLCOLOR_REFLECT()
END_MESSAGE_MAP()

TEST(AfxReflection, ColourMessage_TakesTheControlsBrushOrTheParents) {
    TestFrame wnd;
    ColouredStatic label;
    ASSERT_TRUE(label.Create(L"x", WS_VISIBLE, CRect(0, 0, 50, 20), &wnd, 4));
    CClientDC dc(&label);
    const auto ask = [&] {
        return reinterpret_cast<HBRUSH>(wnd.SendMessage(WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc.m_hDC),
                                                        reinterpret_cast<LPARAM>(label.m_hWnd)));
    };
    const HBRUSH usual = ask();
    EXPECT_NE(usual, nullptr);
    label.m_hBrush = static_cast<HBRUSH>(GetStockObject(NULL_BRUSH));
    EXPECT_EQ(ask(), GetStockObject(NULL_BRUSH));
    EXPECT_EQ(dc.GetTextColor(), RGB(10, 20, 30));
    EXPECT_NE(usual, GetStockObject(NULL_BRUSH));
}

class DrawnButton : public CButton {
  public:
    int m_nDrawn = 0;
    UINT m_uState = 0;
    void PreSubclassWindow() override { ModifyStyle(0, BS_OWNERDRAW); }
    void DrawItem(LPDRAWITEMSTRUCT lpDIS) override {
        ++m_nDrawn;
        m_uState = lpDIS->itemState;
        CDC::FromHandle(lpDIS->hDC)->FillSolidRect(&lpDIS->rcItem, RGB(255, 0, 0));
    }
};

TEST(AfxReflection, OwnerDrawnButton_DrawsItself) {
    TestFrame wnd;
    const HWND handle = MakeChild(wnd, L"BUTTON", IDC_OWNERDRAW);
    DrawnButton button;
    ASSERT_TRUE(button.SubclassWindow(handle));
    button.Invalidate();
    button.UpdateWindow();
    EXPECT_GT(button.m_nDrawn, 0);
    button.EnableWindow(FALSE);
    button.RedrawWindow();
    EXPECT_TRUE(button.m_uState & ODS_DISABLED);
    CClientDC dc(&button);
    EXPECT_EQ(dc.GetPixel(50, 30), RGB(255, 0, 0));
}

}  // namespace
