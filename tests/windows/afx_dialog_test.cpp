// Dialogs of the framework: templates, the modal loop, data exchange, where resources are looked for.
#include <afxdllx.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "afx_test.h"
#include "support/windows_driver.h"

namespace {

using testing::ElementsAre;

class FormDlg : public CDialog {
  public:
    explicit FormDlg(CWnd* pParent = nullptr) : CDialog(IDD_FORM, pParent) {}

    CString m_strName = L"Pump";
    int m_nCount = 7;
    int m_bAgree = BST_CHECKED;
    CButton m_btnApply;
    CComboBox m_comboKind;
    int m_nApplied = 0;
    int m_nInits = 0;
    int m_nEndInInit = 0;
    bool m_bMissingControl = false;

  protected:
    void DoDataExchange(CDataExchange* pDX) override {
        CDialog::DoDataExchange(pDX);
        DDX_Control(pDX, IDC_APPLY, m_btnApply);
        const bool bFirst = m_comboKind.m_hWnd == nullptr;
        DDX_Control(pDX, IDC_KIND, m_comboKind);
        if (bFirst) {
            for (const wchar_t* row : {L"a", L"b", L"c"})
                m_comboKind.AddString(row);
        }
        DDX_Text(pDX, IDC_NAME, m_strName);
        DDX_Text(pDX, IDC_COUNT, m_nCount);
        DDX_Check(pDX, IDC_AGREE, m_bAgree);
        if (m_bMissingControl) DDX_Text(pDX, 4711, m_strName);
    }
    BOOL OnInitDialog() override {
        ++m_nInits;
        const BOOL bResult = CDialog::OnInitDialog();
        if (m_nEndInInit) EndDialog(m_nEndInInit);
        return bResult;
    }
    void OnApply() { ++m_nApplied; }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(FormDlg, CDialog)
ON_BN_CLICKED(IDC_APPLY, &FormDlg::OnApply)
END_MESSAGE_MAP()

TEST(AfxDialog, ModalDialog_TakesItsMembersInAndOut) {
    FormDlg dlg;
    const windows::WhenDialogOpens opened([&](HWND dialog) {
        EXPECT_EQ(dialog, dlg.m_hWnd);
        EXPECT_EQ(windows::TextOf(dialog), L"Form");
        EXPECT_EQ(windows::TextOf(dialog, IDC_NAME), L"Pump");
        EXPECT_EQ(windows::TextOf(dialog, IDC_COUNT), L"7");
        EXPECT_EQ(IsDlgButtonChecked(dialog, IDC_AGREE), static_cast<UINT>(BST_CHECKED));
        EXPECT_EQ(dlg.m_comboKind.GetCount(), 3);
        windows::SetText(dialog, IDC_NAME, L"Übergröße");
        windows::SetText(dialog, IDC_COUNT, L"-12");
        windows::Click(dialog, IDC_AGREE);
        windows::SelectRow(dialog, IDC_KIND, 2);
        EXPECT_EQ(dlg.m_comboKind.GetCurSel(), 2);
        windows::Click(dialog, IDC_APPLY);
        windows::Click(dialog, IDOK);
    });
    EXPECT_EQ(dlg.DoModal(), IDOK);
    EXPECT_EQ(dlg.m_hWnd, nullptr);
    EXPECT_EQ(dlg.m_btnApply.m_hWnd, nullptr);
    EXPECT_EQ(dlg.m_strName, L"Übergröße");
    EXPECT_EQ(dlg.m_nCount, -12);
    EXPECT_EQ(dlg.m_bAgree, BST_UNCHECKED);
    EXPECT_EQ(dlg.m_nApplied, 1);
    EXPECT_EQ(dlg.m_nInits, 1);
}

TEST(AfxDialog, Cancel_LeavesTheMembersAlone) {
    FormDlg dlg;
    const windows::WhenDialogOpens opened([&](HWND dialog) {
        windows::SetText(dialog, IDC_NAME, L"other");
        windows::Click(dialog, IDCANCEL);
    });
    EXPECT_EQ(dlg.DoModal(), IDCANCEL);
    EXPECT_EQ(dlg.m_strName, L"Pump");
}

TEST(AfxDialog, EscapeAndCloseBox_AreCancel) {
    for (const bool bEscape : {true, false}) {
        FormDlg dlg;
        const windows::WhenDialogOpens opened([&](HWND dialog) {
            if (bEscape) {
                windows::PostKey(GetDlgItem(dialog, IDC_NAME), VK_ESCAPE);
            } else {
                PostMessageW(dialog, WM_SYSCOMMAND, SC_CLOSE, 0);
            }
        });
        EXPECT_EQ(dlg.DoModal(), IDCANCEL);
    }
}

TEST(AfxDialog, ReturnKey_PressesTheDefaultButton) {
    FormDlg dlg;
    const windows::WhenDialogOpens opened(
        [&](HWND dialog) { windows::PostKey(GetDlgItem(dialog, IDC_NAME), VK_RETURN); });
    EXPECT_EQ(dlg.DoModal(), IDOK);
}

TEST(AfxDialog, TabKey_MovesTheFocus) {
    FormDlg dlg;
    const windows::WhenDialogOpens opened([&](HWND dialog) {
        EXPECT_EQ(GetFocus(), GetDlgItem(dialog, IDC_NAME));
        windows::PostKey(GetDlgItem(dialog, IDC_NAME), VK_TAB);
        // The dialog's own loop has to see the key: the rest happens when it has.
        SetTimer(nullptr, 0, 50, [](HWND, UINT, UINT_PTR timer, DWORD) {
            KillTimer(nullptr, timer);
            const HWND form = GetActiveWindow();
            EXPECT_EQ(GetFocus(), GetDlgItem(form, IDC_COUNT));
            windows::Click(form, IDCANCEL);
        });
    });
    EXPECT_EQ(dlg.DoModal(), IDCANCEL);
}

TEST(AfxDialog, TextThatIsNoNumber_IsToldAndKeepsTheDialogOpen) {
    FormDlg dlg;
    windows::BoxAnswers boxes({IDOK});
    const windows::WhenDialogOpens opened([&](HWND dialog) {
        windows::SetText(dialog, IDC_COUNT, L"12x");
        windows::Click(dialog, IDOK);
        EXPECT_TRUE(IsWindowVisible(dialog));
        EXPECT_EQ(GetFocus(), GetDlgItem(dialog, IDC_COUNT));
        windows::SetText(dialog, IDC_COUNT, L"12");
        windows::Click(dialog, IDOK);
    });
    EXPECT_EQ(dlg.DoModal(), IDOK);
    EXPECT_EQ(dlg.m_nCount, 12);
    ASSERT_EQ(boxes.Shown().size(), 1u);
    EXPECT_EQ(boxes.Shown()[0].text, L"Please enter a whole number.");
}

TEST(AfxDialog, ExchangeWithAMissingControl_IsToldAndEndsTheDialog) {
    FormDlg dlg;
    dlg.m_bMissingControl = true;
    windows::BoxAnswers boxes({IDOK});
    EXPECT_EQ(dlg.DoModal(), -1);
    EXPECT_EQ(boxes.Shown().size(), 1u);
}

TEST(AfxDialog, EndDialogInOnInitDialog_EndsBeforeItShows) {
    FormDlg dlg;
    dlg.m_nEndInInit = 77;
    EXPECT_EQ(dlg.DoModal(), 77);
    EXPECT_EQ(dlg.m_hWnd, nullptr);
}

TEST(AfxDialog, MissingTemplate_Fails) {
    CDialog modal(4711);
    EXPECT_EQ(modal.DoModal(), -1);
    CDialog modeless;
    EXPECT_FALSE(modeless.Create(4711));
    EXPECT_EQ(modeless.m_hWnd, nullptr);
}

TEST(AfxDialog, OwnerAndItsOtherWindows_AreDisabledForTheTime) {
    TestFrame frame;
    CWnd palette;
    ASSERT_TRUE(palette.CreateEx(WS_EX_TOOLWINDOW, nullptr, L"", WS_POPUP | WS_VISIBLE, CRect(0, 0, 50, 50),
                                 &frame, 0));
    frame.SetActiveWindow();
    FormDlg dlg(&frame);
    const windows::WhenDialogOpens opened([&](HWND dialog) {
        EXPECT_EQ(GetWindow(dialog, GW_OWNER), frame.m_hWnd);
        EXPECT_FALSE(frame.IsWindowEnabled());
        EXPECT_FALSE(palette.IsWindowEnabled());
        EXPECT_EQ(GetActiveWindow(), dialog);
        windows::Click(dialog, IDOK);
    });
    EXPECT_EQ(dlg.DoModal(), IDOK);
    EXPECT_TRUE(frame.IsWindowEnabled());
    EXPECT_TRUE(palette.IsWindowEnabled());
    EXPECT_EQ(GetActiveWindow(), frame.m_hWnd);
}

TEST(AfxDialog, WithoutAParent_TheMainWindowOwnsIt) {
    TestFrame frame;
    AfxGetThread()->m_pMainWnd = &frame;
    FormDlg dlg;
    const windows::WhenDialogOpens opened([&](HWND dialog) {
        EXPECT_EQ(GetWindow(dialog, GW_OWNER), frame.m_hWnd);
        EXPECT_FALSE(frame.IsWindowEnabled());
        windows::Click(dialog, IDOK);
    });
    EXPECT_EQ(dlg.DoModal(), IDOK);
    AfxGetThread()->m_pMainWnd = nullptr;
    EXPECT_TRUE(frame.IsWindowEnabled());
}

TEST(AfxDialog, DisabledOwner_StaysDisabled) {
    TestFrame frame;
    frame.EnableWindow(FALSE);
    FormDlg dlg(&frame);
    dlg.m_nEndInInit = IDOK;
    EXPECT_EQ(dlg.DoModal(), IDOK);
    EXPECT_FALSE(frame.IsWindowEnabled());
}

TEST(AfxDialog, DialogOverADialog_ComesBackToTheFirst) {
    FormDlg outer;
    FormDlg inner(&outer);
    const windows::WhenDialogOpens first([&](HWND dialog) {
        const windows::WhenDialogOpens second([&](HWND top) {
            EXPECT_EQ(GetWindow(top, GW_OWNER), dialog);
            EXPECT_FALSE(IsWindowEnabled(dialog));
            windows::Click(top, IDCANCEL);
        });
        EXPECT_EQ(inner.DoModal(), IDCANCEL);
        EXPECT_TRUE(IsWindowEnabled(dialog));
        windows::Click(dialog, IDOK);
    });
    EXPECT_EQ(outer.DoModal(), IDOK);
}

TEST(AfxDialog, DestroyedByItsOwner_EndsTheLoop) {
    FormDlg dlg;
    const windows::WhenDialogOpens opened([&](HWND dialog) { DestroyWindow(dialog); });
    EXPECT_EQ(dlg.DoModal(), IDCANCEL);
}

TEST(AfxDialog, EndOfTheProgram_EndsTheLoopAndIsSeenByTheOuterOne) {
    FormDlg dlg;
    const windows::WhenDialogOpens opened([&](HWND) { AfxPostQuitMessage(5); });
    EXPECT_EQ(dlg.DoModal(), -1);
    MSG msg;
    EXPECT_TRUE(PeekMessageW(&msg, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(msg.wParam, 5u);
}

TEST(AfxDialog, CanRunAgain) {
    FormDlg dlg;
    for (int i = 0; i < 3; ++i) {
        const windows::WhenDialogOpens opened([&](HWND dialog) { windows::Click(dialog, IDOK); });
        EXPECT_EQ(dlg.DoModal(), IDOK);
    }
    EXPECT_EQ(dlg.m_nInits, 3);
}

TEST(AfxDialog, TemplateWithoutAPosition_IsCentredOverItsOwner) {
    TestFrame frame;
    CDialog dlg(IDD_CENTERED, &frame);
    const windows::WhenDialogOpens opened([&](HWND dialog) {
        CRect rect;
        GetWindowRect(dialog, rect);
        CRect owner;
        frame.GetWindowRect(owner);
        EXPECT_NEAR(rect.CenterPoint().x, owner.CenterPoint().x, 1);
        EXPECT_NEAR(rect.CenterPoint().y, owner.CenterPoint().y, 1);
        windows::Click(dialog, IDOK);
    });
    EXPECT_EQ(dlg.DoModal(), IDOK);
}

TEST(AfxDialog, ModelessChild_LivesInItsParentAndHandlesItsCommands) {
    class ChildDlg : public CDialog {
      public:
        std::vector<WORD> m_commands;
        BOOL OnCommand(WPARAM wParam, LPARAM lParam) override {
            m_commands.push_back(LOWORD(wParam));
            return CDialog::OnCommand(wParam, lParam);
        }
    };
    TestFrame frame;
    ChildDlg dlg;
    ASSERT_TRUE(dlg.Create(IDD_CHILD, &frame));
    EXPECT_EQ(dlg.GetParent(), &frame);
    EXPECT_TRUE(dlg.IsWindowVisible());
    windows::Click(dlg.m_hWnd, IDC_APPLY);
    EXPECT_THAT(dlg.m_commands, ElementsAre(IDC_APPLY));
    frame.DestroyWindow();
    EXPECT_EQ(dlg.m_hWnd, nullptr);
}

TEST(AfxDialog, ModelessDialogDeletedWithItsControlsBound_LeavesNoWindow) {
    TestFrame frame;
    auto dlg = std::make_unique<FormDlg>(&frame);
    ASSERT_TRUE(dlg->Create(IDD_FORM, &frame));
    const HWND handle = dlg->m_hWnd;
    dlg.reset();
    EXPECT_FALSE(IsWindow(handle));
}

TEST(AfxDialog, AHundredRuns_LeaveNothingBehind) {
    const auto cycle = [] {
        FormDlg dlg;
        dlg.m_nEndInInit = 1;
        dlg.DoModal();
    };
    cycle();
    CWnd::DeleteTempMap();
    const auto before = windows::HandleCount::Now();
    for (int i = 0; i < 100; ++i)
        cycle();
    CWnd::DeleteTempMap();
    const auto after = windows::HandleCount::Now();
    EXPECT_LE(after.gdi, before.gdi + 2);
    EXPECT_EQ(after.windows, before.windows);
}

// --- exchange by hand

TEST(AfxExchange, EqualText_IsNotSetAgain) {
    FormDlg dlg;
    const windows::WhenDialogOpens opened([&](HWND dialog) {
        SendDlgItemMessageW(dialog, IDC_NAME, EM_SETSEL, 2, 3);
        dlg.UpdateData(FALSE);
        EXPECT_EQ(SendDlgItemMessageW(dialog, IDC_NAME, EM_GETSEL, 0, 0), MAKELONG(2, 3));
        dlg.m_strName = L"Valve";
        dlg.UpdateData(FALSE);
        EXPECT_EQ(windows::TextOf(dialog, IDC_NAME), L"Valve");
        windows::Click(dialog, IDCANCEL);
    });
    dlg.DoModal();
}

TEST(AfxExchange, CheckOutOfItsStates_CountsAsNotChecked) {
    FormDlg dlg;
    dlg.m_bAgree = 9;
    const windows::WhenDialogOpens opened([&](HWND dialog) {
        EXPECT_EQ(IsDlgButtonChecked(dialog, IDC_AGREE), static_cast<UINT>(BST_UNCHECKED));
        windows::Click(dialog, IDCANCEL);
    });
    dlg.DoModal();
}

// --- message boxes and resources

TEST(AfxBoxes, MessageBoxOfAWindow_HasItsCaptionAnswerAndDefaultButton) {
    TestFrame frame;
    windows::BoxAnswers boxes({IDNO});
    EXPECT_EQ(frame.MessageBox(L"Really?\n\n100 %s", L"Title", MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2),
              IDNO);
    ASSERT_EQ(boxes.Shown().size(), 1u);
    const windows::Box& box = boxes.Shown()[0];
    EXPECT_EQ(box.text, L"Really?\n\n100 %s");
    EXPECT_EQ(box.caption, L"Title");
    EXPECT_THAT(box.buttons, ElementsAre(L"&Yes", L"&No"));
    EXPECT_EQ(box.defaultButton, IDNO);
    EXPECT_EQ(box.owner, frame.m_hWnd);
    EXPECT_NE(box.icon, nullptr);
}

TEST(AfxBoxes, BoxesInARow_GetTheirAnswersInOrder) {
    TestFrame frame;
    windows::BoxAnswers boxes({IDYES, IDCANCEL});
    EXPECT_EQ(frame.MessageBox(L"1", L"", MB_YESNO), IDYES);
    EXPECT_EQ(frame.MessageBox(L"2", L"", MB_OKCANCEL), IDCANCEL);
    EXPECT_EQ(frame.MessageBox(L"3", L"", MB_OK), IDOK);
    EXPECT_EQ(boxes.Shown().size(), 3u);
}

TEST(AfxBoxes, FrameworksBox_CarriesTheProgramsNameAndAnIcon) {
    CWinApp app(L"Workbench");
    windows::BoxAnswers boxes;
    EXPECT_EQ(AfxMessageBox(L"ERROR in Combining Region"), IDOK);
    ASSERT_EQ(boxes.Shown().size(), 1u);
    EXPECT_EQ(boxes.Shown()[0].caption, L"Workbench");
    EXPECT_EQ(boxes.Shown()[0].text, L"ERROR in Combining Region");
    EXPECT_NE(boxes.Shown()[0].icon, nullptr);
}

TEST(AfxResources, MenuPopups_AreReachedByPosition) {
    CMenu menu;
    ASSERT_TRUE(menu.LoadMenu(IDR_MENU));
    CMenu* popup = menu.GetSubMenu(0);
    ASSERT_NE(popup, nullptr);
    EXPECT_EQ(popup->GetMenuItemCount(), 3);
    EXPECT_EQ(popup->GetMenuItemID(2), 5002u);
    CString text;
    popup->GetMenuString(5002, text, MF_BYCOMMAND);
    EXPECT_EQ(text, L"Beta");
    popup->EnableMenuItem(5001, MF_GRAYED);
    popup->CheckMenuItem(5002, MF_CHECKED);
    EXPECT_TRUE(popup->GetMenuState(5001, MF_BYCOMMAND) & MF_GRAYED);
    EXPECT_TRUE(popup->GetMenuState(5002, MF_BYCOMMAND) & MF_CHECKED);
    EXPECT_EQ(menu.GetSubMenu(5), nullptr);
    CMenu missing;
    EXPECT_FALSE(missing.LoadMenu(4711));
}

TEST(AfxResources, String_ComesFromTheTable) {
    CString text = L"before";
    EXPECT_TRUE(text.LoadString(IDS_GREETING));
    EXPECT_EQ(text, L"Grüße");
    EXPECT_FALSE(text.LoadString(4711));
    EXPECT_TRUE(text.IsEmpty());
}

TEST(AfxResources, ExtensionModule_IsSearchedUntilItIsTerminated) {
    const HMODULE module = LoadLibraryW(L"comctl32.dll");
    const HMODULE program = GetModuleHandleW(nullptr);
    AfxSetResourceHandle(module);
    EXPECT_EQ(AfxGetResourceHandle(), module);
    AfxSetResourceHandle(program);
    // An icon that the program has not.
    LPCTSTR name = nullptr;
    EnumResourceNamesW(
        module, RT_BITMAP,
        [](HMODULE, LPCWSTR, LPWSTR found, LONG_PTR param) -> BOOL {
            *reinterpret_cast<LPCTSTR*>(param) = found;
            return FALSE;
        },
        reinterpret_cast<LONG_PTR>(&name));
    ASSERT_NE(name, nullptr);
    EXPECT_EQ(AfxFindResourceHandle(name, RT_BITMAP), program);
    AFX_EXTENSION_MODULE state{};
    EXPECT_FALSE(AfxInitExtensionModule(state, nullptr));
    ASSERT_TRUE(AfxInitExtensionModule(state, module));
    new CDynLinkLibrary(state);
    EXPECT_EQ(AfxFindResourceHandle(name, RT_BITMAP), module);
    EXPECT_EQ(AfxFindResourceHandle(MAKEINTRESOURCE(IDD_FORM), RT_DIALOG), program);
    AfxTermExtensionModule(state);
    EXPECT_EQ(AfxFindResourceHandle(name, RT_BITMAP), program);
    AfxTermExtensionModule(state);
    FreeLibrary(module);
}

TEST(AfxResources, TemporaryHandle_IsPutBackWhenAFailurePasses) {
    const HINSTANCE before = AfxGetResourceHandle();
    const HMODULE other = GetModuleHandleW(L"kernel32.dll");
    try {
        const CTemporaryResourceHandle temporary(other);
        EXPECT_EQ(AfxGetResourceHandle(), other);
        AfxThrowUserException();
    } catch (CException* e) {
        e->Delete();
    }
    EXPECT_EQ(AfxGetResourceHandle(), before);
}

}  // namespace
