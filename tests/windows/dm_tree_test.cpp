// The tree of the Drawing Manager: what is in it, in which order, when folders are read, which labels can be
// edited.
#include <gmock/gmock.h>

#include "dm_fixture.h"
#include "drawing_manager/manager_registry.h"
#include "drawing_manager/tree_rules.h"
#include "resources/resource.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class DrawingManagerTree : public DrawingManagerTest {};

// The tree by itself, in a plain window, with items of every kind.
class ClientProjTree : public testing::Test {
  protected:
    class OpenTree : public CKV2D_ClientProjTreeCtrl {
      public:
        bool RefusesEdit(HTREEITEM hItem) {
            NMTVDISPINFO info{};
            info.item.hItem = hItem;
            LRESULT result = -1;
            OnTvnBeginlabeledit(&info.hdr, &result);
            return result == 1;
        }
    };

    ClientProjTree() {
        m_frame.CreateEx(0, nullptr, L"Tree", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(20, 20, 320, 420),
                         nullptr, 0);
        m_tree.Create(WS_CHILD | WS_VISIBLE | TVS_EDITLABELS, CRect(0, 0, 280, 380), &m_frame, 1);
        std::array<UINT, kItemKindCount> icons;
        icons.fill(IDI_FOLDER);
        m_tree.Init(0xFFFFFFFF, icons, nullptr);
    }

    HTREEITEM Insert(const wchar_t* label, int kind, HTREEITEM parent = TVI_ROOT, int data = -1) {
        const HTREEITEM item = m_tree.InsertItem(label, kind, kind, parent, TVI_LAST);
        m_tree.SetItemData(item, static_cast<DWORD_PTR>(data));
        return item;
    }
    std::vector<std::wstring> RootLabels() const {
        std::vector<std::wstring> labels;
        for (HTREEITEM item = m_tree.GetRootItem(); item; item = m_tree.GetNextSiblingItem(item)) {
            labels.push_back(m_tree.GetItemText(item).ToStdString());
        }
        return labels;
    }

    CWnd m_frame;
    OpenTree m_tree;
};

}  // namespace

TEST_F(ClientProjTree, Sort_PutsClientsFirstAndCapitalsAheadOfSmallLetters) {
    Insert(L"b", kItemProject);
    Insert(L"B", kItemLocked);
    Insert(L"z", kItemClient);
    Insert(L"y", kItemClientLike);
    Insert(L"Z", kItemClient);
    m_tree.SortBranch(TVI_ROOT, true);
    EXPECT_THAT(RootLabels(), ElementsAre(L"Z", L"y", L"z", L"B", L"b"));
}

TEST_F(ClientProjTree, Sort_GivesDataBackAs32Bits) {
    const HTREEITEM client = Insert(L"c", kItemClient);
    const HTREEITEM project = Insert(L"p", kItemProject, client, 70000);
    m_tree.SortBranch(TVI_ROOT, true);
    EXPECT_EQ(m_tree.GetItemData(client), 0xFFFFFFFFu);
    EXPECT_EQ(m_tree.GetItemData(project), 70000u);
}

TEST_F(ClientProjTree, SortOfAnItem_SortsItsChildrenAndThoseOfSiblingsBehindIt) {
    const HTREEITEM first = Insert(L"1", kItemFolder);
    const HTREEITEM second = Insert(L"2", kItemFolder);
    const HTREEITEM third = Insert(L"3", kItemFolder);
    for (const HTREEITEM parent : {first, second, third}) {
        Insert(L"b", kItemFolder, parent);
        Insert(L"a", kItemFolder, parent);
    }
    m_tree.SortBranch(second, true);
    const auto firstChild = [this](HTREEITEM parent) {
        return m_tree.GetItemText(m_tree.GetChildItem(parent)).ToStdString();
    };
    EXPECT_EQ(firstChild(first), L"b");
    EXPECT_EQ(firstChild(second), L"a");
    EXPECT_EQ(firstChild(third), L"a");
}

TEST_F(ClientProjTree, FindByData_LooksDepthFirstOnlyWhenAsked) {
    const HTREEITEM client = Insert(L"c", kItemClient);
    const HTREEITEM inner = Insert(L"p", kItemProject, client, 7);
    const HTREEITEM outer = Insert(L"q", kItemProject, TVI_ROOT, 7);
    EXPECT_EQ(m_tree.FindItemByData(TVI_ROOT, 7, true), inner);
    EXPECT_EQ(m_tree.FindItemByData(TVI_ROOT, 7, false), outer);
    EXPECT_EQ(m_tree.FindItemByData(outer, 7, true), outer);
    EXPECT_EQ(m_tree.FindItemByData(TVI_ROOT, 8, true), nullptr);
}

TEST_F(ClientProjTree, KindOfAnItem_IsItsImage) {
    const HTREEITEM locked = Insert(L"l", kItemLocked);
    EXPECT_EQ(m_tree.GetItemKind(locked, false), kItemLocked);
    EXPECT_EQ(m_tree.GetItemKind(locked, true), kItemProject);
    EXPECT_EQ(m_tree.GetItemKind(nullptr, false), kItemNone);
    EXPECT_EQ(m_tree.GetItemKind(TVI_ROOT, true), kItemNone);
}

TEST_F(ClientProjTree, LockedItem_LocksItsSubtree) {
    const HTREEITEM locked = Insert(L"l", kItemLocked);
    const HTREEITEM folder = Insert(L"f", kItemFolder, Insert(L"g", kItemFolder, locked));
    EXPECT_TRUE(m_tree.RefusesEdit(locked));
    EXPECT_TRUE(m_tree.RefusesEdit(folder));
    EXPECT_FALSE(m_tree.RefusesEdit(Insert(L"free", kItemFolder)));
}

TEST_F(ClientProjTree, KeysThatEndOrServeAnEdit_GoToItAtOnce) {
    const HTREEITEM folder = Insert(L"f", kItemFolder);
    const auto isTaken = [this](WPARAM key, UINT message = WM_KEYDOWN) {
        const CEdit* edit = m_tree.GetEditControl();
        MSG keyDown{edit ? edit->m_hWnd : m_tree.m_hWnd, message, key, 1, 0, {}};
        return m_tree.PreTranslateMessage(&keyDown) != FALSE;
    };
    EXPECT_FALSE(isTaken(VK_RETURN)) << "no edit is under way";
    m_frame.SetForegroundWindow();
    m_tree.SetFocus();
    m_tree.EditLabel(folder);
    ASSERT_NE(m_tree.GetEditControl(), nullptr);
    EXPECT_FALSE(isTaken('A'));
    EXPECT_FALSE(isTaken(VK_TAB));
    EXPECT_FALSE(isTaken(VK_DELETE, WM_KEYUP));
    EXPECT_TRUE(isTaken(VK_DELETE));
    std::array<BYTE, 256> keys{};
    keys[VK_CONTROL] = 0x80;
    SetKeyboardState(keys.data());
    EXPECT_TRUE(isTaken('C'));
    keys[VK_CONTROL] = 0;
    SetKeyboardState(keys.data());
    EXPECT_TRUE(isTaken(VK_ESCAPE));
    EXPECT_EQ(m_tree.GetEditControl(), nullptr);
}

TEST_F(DrawingManagerTree, ClientsComeFirst_ThenStandardsOfNobody) {
    UseUsualDatabase();
    m_database.WithClient(2, "Zeta");
    AddStandard(7, "Alpha", L"Alpha");
    Run([](ManagerDriver& driver) {
        EXPECT_THAT(driver.TreeLines(),
                    ElementsAre(L"Acme", L"  Pump House", L"Zeta", L"Alpha", L"Tank Farm"));
        EXPECT_EQ(driver.ImageOf({L"Acme"}), static_cast<int>(kItemClient));
        EXPECT_EQ(static_cast<int>(driver.DataOf({L"Acme"})), -1);
        EXPECT_EQ(driver.ImageOf({L"Acme", L"Pump House"}), static_cast<int>(kItemProject));
        EXPECT_EQ(driver.DataOf({L"Acme", L"Pump House"}), 5);
        EXPECT_EQ(driver.DataOf({L"Tank Farm"}), 6);
    });
}

TEST_F(DrawingManagerTree, StandardOfTwoClients_StandsUnderTheFirstOnly) {
    UseUsualDatabase();
    m_database.WithClient(2, "Aaron").WithClientProject(2, 5);
    Run([](ManagerDriver& driver) {
        EXPECT_THAT(driver.TreeLines(), ElementsAre(L"Aaron", L"Acme", L"  Pump House", L"Tank Farm"));
    });
}

TEST_F(DrawingManagerTree, ClientWithUnknownStandard_StaysAsALeaf) {
    UseUsualDatabase();
    m_database.WithClient(2, "Beta").WithClientProject(2, 99);
    Run([](ManagerDriver& driver) {
        EXPECT_THAT(driver.TreeLines(), ElementsAre(L"Acme", L"  Pump House", L"Beta", L"Tank Farm"));
    });
}

TEST_F(DrawingManagerTree, FirstSelectionOfAStandard_ReadsTwoLevels) {
    UseUsualDatabase();
    PutFolder(InRoot(L"Tanks\\A\\B\\C"));
    Run([](ManagerDriver& driver) {
        EXPECT_THAT(driver.TreeLines(), ElementsAre(L"Acme", L"  Pump House", L"Tank Farm"));
        driver.SelectItem({L"Tank Farm"});
        EXPECT_THAT(driver.TreeLines(),
                    ElementsAre(L"Acme", L"  Pump House", L"Tank Farm", L"  A", L"    B"));
        EXPECT_EQ(driver.ImageOf({L"Tank Farm", L"A"}), static_cast<int>(kItemFolder));
        EXPECT_EQ(static_cast<int>(driver.DataOf({L"Tank Farm", L"A"})), -1);
    });
}

TEST_F(DrawingManagerTree, Expansion_StaysOneLevelAheadOfWhatIsOpen) {
    UseUsualDatabase();
    PutFolder(InRoot(L"Tanks\\A\\B\\C\\D\\E"));
    Run([](ManagerDriver& driver) {
        driver.SelectItem({L"Tank Farm"});
        driver.Expand({L"Tank Farm", L"A"});
        EXPECT_THAT(driver.TreeLines(), ElementsAre(L"Acme", L"  Pump House", L"Tank Farm", L"  A", L"    B",
                                                    L"      C", L"        D"));
    });
}

TEST_F(DrawingManagerTree, ExpansionOfAClient_ReadsNothing) {
    UseUsualDatabase();
    PutFolder(InDrawings(L"A"));
    SetValue(kProjectIdValue, 6);
    Run([](ManagerDriver& driver) {
        driver.Expand({L"Acme"});
        EXPECT_THAT(driver.TreeLines(), ElementsAre(L"Acme", L"  Pump House", L"Tank Farm"));
    });
}

TEST_F(DrawingManagerTree, ExpansionOfAClient_LooksUnderTheBareNameInTheProcessesFolder) {
    UseUsualDatabase();
    SetValue(kProjectIdValue, 6);
    PutFolder(InRoot(L"Elsewhere\\Pump House\\Found"));
    wchar_t before[MAX_PATH];
    GetCurrentDirectoryW(MAX_PATH, before);
    ASSERT_TRUE(SetCurrentDirectoryW(InRoot(L"Elsewhere").c_str()));
    Run([](ManagerDriver& driver) {
        driver.Expand({L"Acme"});
        EXPECT_THAT(driver.TreeLines(), ElementsAre(L"Acme", L"  Pump House", L"    Found", L"Tank Farm"));
    });
    SetCurrentDirectoryW(before);
}

TEST_F(DrawingManagerTree, Folders_AreSortedWithCapitalsFirst) {
    UseUsualDatabase();
    for (const wchar_t* name : {L"pump", L"Valve", L"Area 10", L"Area 2", L"\u00C4rmel", L"50%s"}) {
        PutFolder(InDrawings(name));
    }
    PutDrawings({L"NoFolder.dwg"});
    Run([](ManagerDriver& driver) {
        EXPECT_THAT(driver.TreeLines(),
                    ElementsAre(L"Acme", L"  Pump House", L"    50%s", L"    Area 10", L"    Area 2",
                                L"    Valve", L"    pump", L"    \u00C4rmel", L"Tank Farm"));
    });
}

TEST_F(DrawingManagerTree, FolderInOtherCase_IsANewItem) {
    UseUsualDatabase();
    PutFolder(InDrawings(L"Area"));
    Run([&](ManagerDriver& driver) {
        ASSERT_TRUE(RemoveDirectoryW(InDrawings(L"Area").c_str()));
        PutFolder(InDrawings(L"AREA"));
        driver.Command(ID_PROJECTS_NEWFOLDER);  // reads the folders again
        EXPECT_THAT(driver.TreeLines(),
                    ElementsAre(L"Acme", L"  Pump House", L"    AREA", L"    Area", L"Tank Farm"));
    });
}

TEST_F(DrawingManagerTree, StandardWithoutLocation_IsReadAgainAtEachSelection) {
    UseUsualDatabase();
    AddStandardWithoutLocation(7, "Yard");
    PutFolder(InRoot(L"Yard\\A"));
    Run([&](ManagerDriver& driver) {
        driver.SelectItem({L"Yard"});
        EXPECT_EQ(driver.Location(), L"");
        EXPECT_EQ(driver.TreeLines().back(), L"Yard");
        m_database.WithGeneral(7, "Drawings Location",
                               "PID = " + platform::GetText().Narrow(InRoot(L"Yard")));
        driver.SelectItem({L"Acme"});
        driver.SelectItem({L"Yard"});
        EXPECT_EQ(driver.TreeLines().back(), L"  A");
    });
}

TEST_F(DrawingManagerTree, FolderThatVanished_StaysUntilRefresh) {
    UseUsualDatabase();
    PutFile(InDrawings(L"A\\P-1.dwg"), "x");
    Run([&](ManagerDriver& driver) {
        ASSERT_TRUE(DeleteFileW(InDrawings(L"A\\P-1.dwg").c_str()));
        ASSERT_TRUE(RemoveDirectoryW(InDrawings(L"A").c_str()));
        driver.SelectItem({L"Acme", L"Pump House", L"A"});
        EXPECT_EQ(driver.Location(), InDrawings(L"A\\"));
        EXPECT_THAT(driver.Rows(), IsEmpty());
        driver.Command(ID_PROJECTS_REFRESHLIST);
        driver.SelectItem({L"Acme", L"Pump House"});
        EXPECT_THAT(driver.TreeLines(), ElementsAre(L"Acme", L"  Pump House", L"Tank Farm"));
    });
    EXPECT_THAT(GetBoxes(), IsEmpty());
}

TEST_F(DrawingManagerTree, Refresh_LeavesNothingSelected) {
    UseUsualDatabase();
    PutDrawings({L"P-1.dwg"});
    Run([&](ManagerDriver& driver) {
        EXPECT_THAT(driver.Rows(), ElementsAre(L"P-1"));
        m_database.WithProject(8, "New Standard");
        driver.Command(ID_PROJECTS_REFRESHLIST);
        EXPECT_THAT(driver.TreeLines(), ElementsAre(L"Acme", L"  Pump House", L"New Standard", L"Tank Farm"));
        EXPECT_EQ(driver.SelectedItem(), nullptr);
        EXPECT_EQ(driver.Location(), L"");
        EXPECT_THAT(driver.Rows(), IsEmpty());
        EXPECT_FALSE(driver.Enabled(IDC_NEW_DRAWING));
        EXPECT_FALSE(driver.Enabled(IDC_OPEN_STANDARD));
    });
}

TEST_F(DrawingManagerTree, Selection_ShowsTheFolderAndRemembersIt) {
    UseUsualDatabase();
    PutFile(InDrawings(L"A\\B\\P-1.dwg"), "x");
    Run([&](ManagerDriver& driver) {
        driver.SelectItem({L"Acme", L"Pump House", L"A", L"B"});
        EXPECT_EQ(driver.Location(), InDrawings(L"A\\B\\"));
        EXPECT_THAT(driver.Rows(), ElementsAre(L"P-1"));
        EXPECT_EQ(GetText(kSelectedFolderValue), L"A\\B\\");
        driver.SelectItem({L"Acme"});
        EXPECT_EQ(driver.Location(), L"");
        EXPECT_THAT(driver.Rows(), IsEmpty());
        EXPECT_EQ(GetText(kSelectedFolderValue), L"");
    });
}

TEST_F(DrawingManagerTree, StoredFolder_IsSelectedAsFarAsItExists) {
    UseUsualDatabase();
    PutFolder(InDrawings(L"A\\B"));
    SetValue(kSelectedFolderValue, std::wstring(L"\\A\\B\\Gone\\Deeper\\"));
    Run([&](ManagerDriver& driver) {
        EXPECT_EQ(driver.SelectedLabel(), L"B");
        EXPECT_EQ(driver.Location(), InDrawings(L"A\\B\\"));
    });
}

TEST_F(DrawingManagerTree, StoredFolderInOtherCase_IsNotFound) {
    UseUsualDatabase();
    PutFolder(InDrawings(L"A"));
    SetValue(kSelectedFolderValue, std::wstring(L"a\\"));
    Run([](ManagerDriver& driver) { EXPECT_EQ(driver.SelectedLabel(), L"Pump House"); });
}

TEST_F(DrawingManagerTree, OnlyFolders_StartALabelEdit) {
    UseUsualDatabase();
    PutFolder(InDrawings(L"A"));
    Run([](ManagerDriver& driver) {
        for (const ManagerDriver::Path& path : {ManagerDriver::Path{L"Acme"}, {L"Acme", L"Pump House"}}) {
            driver.SelectItem(path);
            driver.Command(ID_PROJECTS_RENAME);
            EXPECT_EQ(driver.TreeEdit(), nullptr);
        }
        driver.SelectItem({L"Acme", L"Pump House", L"A"});
        driver.Command(ID_PROJECTS_RENAME);
        ASSERT_NE(driver.TreeEdit(), nullptr);
        windows::CancelLabelEdit(driver.TreeEdit());
    });
}

TEST_F(DrawingManagerTree, ReturnDuringAnEdit_EndsTheEditAndNotTheDialog) {
    UseUsualDatabase();
    PutFolder(InDrawings(L"A"));
    Run([&](ManagerDriver& driver) {
        driver.SelectItem({L"Acme", L"Pump House", L"A"});
        driver.Command(ID_PROJECTS_RENAME);
        const HWND edit = driver.TreeEdit();
        ASSERT_NE(edit, nullptr);
        SetWindowTextW(edit, L"New");
        EXPECT_TRUE(driver.PressInLabelEdit(edit, VK_RETURN));
        EXPECT_TRUE(IsWindowVisible(driver.Dialog()));
        EXPECT_TRUE(HasFolder(InDrawings(L"New")));
    });
}

TEST_F(DrawingManagerTree, EscapeDuringAnEdit_EndsTheEditAndNotTheDialog) {
    UseUsualDatabase();
    PutFolder(InDrawings(L"A"));
    Run([&](ManagerDriver& driver) {
        driver.SelectItem({L"Acme", L"Pump House", L"A"});
        driver.Command(ID_PROJECTS_RENAME);
        const HWND edit = driver.TreeEdit();
        ASSERT_NE(edit, nullptr);
        EXPECT_TRUE(driver.PressInLabelEdit(edit, VK_ESCAPE));
        EXPECT_TRUE(IsWindowVisible(driver.Dialog()));
        EXPECT_TRUE(HasFolder(InDrawings(L"A")));
    });
}

TEST_F(DrawingManagerTree, DoubleClickOnAStandard_OpensIt) {
    UseUsualDatabase();
    ManagerDlg dialog;
    const INT_PTR answer = Run(dialog, [](ManagerDriver& driver) {
        driver.SelectItem({L"Tank Farm"});
        driver.DoubleClickTree();
    });
    EXPECT_EQ(answer, IDCANCEL);
    EXPECT_EQ(dialog.m_strStandardTemplate, L"acad.dwt");
    EXPECT_EQ(GetNumber(kProjectIdValue), 6u);
}

TEST_F(DrawingManagerTree, DoubleClickOnClientOrFolder_LeavesTheDialogOpen) {
    UseUsualDatabase();
    PutFolder(InDrawings(L"A"));
    ManagerDlg dialog;
    Run(dialog, [](ManagerDriver& driver) {
        for (const ManagerDriver::Path& path :
             {ManagerDriver::Path{L"Acme"}, {L"Acme", L"Pump House", L"A"}}) {
            driver.SelectItem(path);
            driver.DoubleClickTree();
            EXPECT_TRUE(IsWindowVisible(driver.Dialog()));
        }
    });
    EXPECT_EQ(dialog.m_strStandardTemplate, L"");
}
