// What the module expects of its host's windows and no other test asks: docs/host-contract.md names these.
#include <acui.h>
#include <aduiMessage.h>

#include "windows/frame_fixture.h"

namespace frame_test {
namespace {

constexpr int kTemplate = 101;
constexpr int kButton = 1001;

// A window that answers the question whether it keeps the focus.
class FocusKeeper : public CWnd {
  public:
    LRESULT m_nAnswer = 1;
    int m_nAsked = 0;

  protected:
    afx_msg LRESULT OnKeepFocus(WPARAM, LPARAM) {
        ++m_nAsked;
        return m_nAnswer;
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(FocusKeeper, CWnd)
ON_MESSAGE(WM_ACAD_KEEPFOCUS, &FocusKeeper::OnKeepFocus)
END_MESSAGE_MAP()

class ChildDialog : public CAcUiDialog {
  public:
    explicit ChildDialog(CWnd* pParent) : CAcUiDialog(kTemplate, pParent) {}
    int m_nInitialised = 0;

  protected:
    BOOL OnInitDialog() override {
        ++m_nInitialised;
        return CAcUiDialog::OnInitDialog();
    }
};

class HostContract : public FrameTest {
  protected:
    void MoveOverTheDrawing() { m_frame->View().SendMessage(WM_MOUSEMOVE, 0, MAKELPARAM(++m_nX, 30)); }

  private:
    int m_nX = 30;
};

TEST_F(HostContract, InitAcUiDll_MayBeCalledAgain) {
    InitAcUiDLL();
    InitAcUiDLL();
    const auto made = MakeShownSet();
    EXPECT_TRUE(made->palette.IsWindowVisible());
}

TEST_F(HostContract, WindowThatAnswersOne_KeepsTheFocus) {
    const auto made = MakeShownSet();
    FocusKeeper keeper;
    ASSERT_TRUE(
        keeper.Create(nullptr, nullptr, WS_CHILD | WS_VISIBLE, CRect(0, 0, 50, 20), &made->palette, 7));
    keeper.SetFocus();
    MoveOverTheDrawing();
    EXPECT_EQ(keeper.GetSafeHwnd(), ::GetFocus());
    EXPECT_EQ(1, keeper.m_nAsked);
    keeper.m_nAnswer = 0;
    MoveOverTheDrawing();
    EXPECT_EQ(2, keeper.m_nAsked);
    EXPECT_TRUE(m_frame->CommandLine().IsChild(CWnd::GetFocus()));
}

TEST_F(HostContract, ParentThatAnswersOne_KeepsTheFocusToo) {
    const auto made = MakeShownSet();
    FocusKeeper keeper;
    ASSERT_TRUE(
        keeper.Create(nullptr, nullptr, WS_CHILD | WS_VISIBLE, CRect(0, 0, 50, 40), &made->palette, 7));
    CEdit edit;
    ASSERT_TRUE(edit.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 50, 20), &keeper, 8));
    edit.SetFocus();
    MoveOverTheDrawing();
    EXPECT_EQ(edit.GetSafeHwnd(), ::GetFocus());
    EXPECT_EQ(1, keeper.m_nAsked);
}

TEST_F(HostContract, Palette_IsSavedBeforeItGoes) {
    RecordingPalette palette;
    auto set = std::make_unique<RecordingSet>();
    ASSERT_TRUE(set->Create(L"PID", 0, CRect(0, 0, 125, 250), acedGetAcadFrame(), 30));
    ASSERT_TRUE(palette.Create(WS_CHILD | WS_VISIBLE, L"PID", set.get(), 1));
    ASSERT_EQ(0, set->AddPalette(&palette));
    EXPECT_EQ(1, palette.m_nLoaded);
    EXPECT_EQ(0, palette.m_nSaved);
    set.reset();
    EXPECT_EQ(1, palette.m_nSaved);
}

TEST_F(HostContract, ChildDialog_LiesInItsPalette) {
    const auto made = MakeShownSet();
    ChildDialog dialog(&made->palette);
    ASSERT_TRUE(dialog.Create(kTemplate, &made->palette));
    EXPECT_EQ(1, dialog.m_nInitialised);
    EXPECT_EQ(made->palette.GetSafeHwnd(), ::GetParent(dialog.GetSafeHwnd()));
    EXPECT_TRUE(dialog.IsWindowVisible());
    EXPECT_NE(nullptr, dialog.GetDlgItem(kButton));
}

}  // namespace
}  // namespace frame_test
