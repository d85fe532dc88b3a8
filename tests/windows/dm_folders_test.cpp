// Folders in the Drawing Manager: the tree's popup menu and its commands. The folders are real ones.
#include <gmock/gmock.h>

#include "dm_fixture.h"
#include "drawing_manager/manager_registry.h"
#include "resources/resource.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class DrawingManagerFolders : public DrawingManagerTest {
  protected:
    static ManagerDriver::Path Standard() { return {L"Acme", L"Pump House"}; }
    static ManagerDriver::Path Folder(const std::wstring& name) { return {L"Acme", L"Pump House", name}; }

    // Types a new label for the selected folder.
    static void RenameSelected(ManagerDriver& driver, const std::wstring& name) {
        driver.Command(ID_PROJECTS_RENAME);
        const HWND edit = driver.TreeEdit();
        ASSERT_NE(edit, nullptr);
        windows::EndLabelEdit(edit, name);
    }
};

}  // namespace

TEST_F(DrawingManagerFolders, PopupOnEmptySpace_OffersRefreshOnly) {
    UseUsualDatabase();
    Run([](ManagerDriver& driver) {
        EXPECT_THAT(driver.PopupAt(driver.Tree(), driver.PointOnEmptyTree()),
                    ElementsAre(L"Open 228 grey", L"-", L"New Folder 32770 grey", L"Rename 32771 grey",
                                L"Delete 32773 grey", L"-", L"Refresh List 214"));
        EXPECT_EQ(driver.SelectedLabel(), L"Pump House");
    });
}

TEST_F(DrawingManagerFolders, PopupOnAClient_SelectsItAndOffersNewFolder) {
    UseUsualDatabase();
    Run([](ManagerDriver& driver) {
        EXPECT_THAT(driver.PopupAt(driver.Tree(), driver.PointOnItem({L"Acme"})),
                    ElementsAre(L"Open 228 grey", L"-", L"New Folder 32770", L"Rename 32771 grey",
                                L"Delete 32773 grey", L"-", L"Refresh List 214"));
        EXPECT_EQ(driver.SelectedLabel(), L"Acme");
        EXPECT_EQ(driver.Location(), L"");
    });
}

TEST_F(DrawingManagerFolders, PopupOnAStandard_OffersOpenAndNewFolder) {
    UseUsualDatabase();
    Run([](ManagerDriver& driver) {
        EXPECT_THAT(driver.PopupAt(driver.Tree(), driver.PointOnItem(Standard())),
                    ElementsAre(L"Open 228", L"-", L"New Folder 32770", L"Rename 32771 grey",
                                L"Delete 32773 grey", L"-", L"Refresh List 214"));
    });
}

TEST_F(DrawingManagerFolders, PopupOnAFolder_OffersEverything) {
    UseUsualDatabase();
    PutFolder(InDrawings(L"A"));
    Run([](ManagerDriver& driver) {
        driver.Expand(Standard());
        EXPECT_THAT(driver.PopupAt(driver.Tree(), driver.PointOnItem(Folder(L"A"))),
                    ElementsAre(L"Open 228", L"-", L"New Folder 32770", L"Rename 32771", L"Delete 32773",
                                L"-", L"Refresh List 214"));
        EXPECT_EQ(driver.SelectedLabel(), L"A");
    });
}

TEST_F(DrawingManagerFolders, NewFolderBesideOthers_LeavesNothingSelected) {
    UseUsualDatabase();
    PutFolder(InDrawings(L"A"));
    PutDrawings({L"P-1.dwg"});
    Run([&](ManagerDriver& driver) {
        driver.Command(ID_PROJECTS_NEWFOLDER);
        EXPECT_EQ(driver.SelectedItem(), nullptr);
        EXPECT_EQ(driver.Location(), L"");
        EXPECT_THAT(driver.Rows(), IsEmpty());
        EXPECT_EQ(driver.TreeEdit(), nullptr);
    });
    EXPECT_FALSE(HasFolder(InDrawings(L"New Folder (1)")));
}

TEST_F(DrawingManagerFolders, NewFolder_ReadsTwoLevelsAndOpensTheParent) {
    UseUsualDatabase();
    Run([&](ManagerDriver& driver) {
        driver.SelectItem(Standard());
        PutFolder(InDrawings(L"A\\B\\C"));
        driver.Command(ID_PROJECTS_NEWFOLDER);
        EXPECT_THAT(driver.TreeLines(),
                    ElementsAre(L"Acme", L"  Pump House", L"    A", L"      B", L"Tank Farm"));
        const auto standard = reinterpret_cast<WPARAM>(driver.Item(Standard()));
        EXPECT_NE(SendMessageW(driver.Tree(), TVM_GETITEMSTATE, standard, TVIS_EXPANDED) & TVIS_EXPANDED, 0);
    });
}

TEST_F(DrawingManagerFolders, NewFolderWhereThereAreNone_EditsTheSelectedFolderItself) {
    UseUsualDatabase();
    PutFolder(InDrawings(L"A"));
    Run([&](ManagerDriver& driver) {
        driver.SelectItem(Folder(L"A"));
        driver.Command(ID_PROJECTS_NEWFOLDER);
        EXPECT_EQ(driver.SelectedLabel(), L"A");
        const HWND edit = driver.TreeEdit();
        ASSERT_NE(edit, nullptr);
        EXPECT_EQ(windows::TextOf(edit), L"A");
        windows::CancelLabelEdit(edit);
    });
}

TEST_F(DrawingManagerFolders, NewFolderOnAStandardWithoutFolders_StartsNoEdit) {
    UseUsualDatabase();
    Run([](ManagerDriver& driver) {
        driver.Command(ID_PROJECTS_NEWFOLDER);
        EXPECT_EQ(driver.SelectedLabel(), L"Pump House");
        EXPECT_EQ(driver.TreeEdit(), nullptr);
    });
}

TEST_F(DrawingManagerFolders, NewFolder_MakesTheParentThatIsMissing) {
    UseUsualDatabase();
    ASSERT_TRUE(RemoveDirectoryW(InRoot(L"Drawings").c_str()));
    Run([&](ManagerDriver& driver) {
        driver.Command(ID_PROJECTS_NEWFOLDER);
        EXPECT_TRUE(HasFolder(InRoot(L"Drawings")));
    });
}

TEST_F(DrawingManagerFolders, NewFolderOnAClient_ReadsNoFolders) {
    UseUsualDatabase();
    Run([](ManagerDriver& driver) {
        driver.SelectItem({L"Acme"});
        driver.Command(ID_PROJECTS_NEWFOLDER);
        EXPECT_THAT(driver.TreeLines(), ElementsAre(L"Acme", L"  Pump House", L"Tank Farm"));
        EXPECT_EQ(driver.SelectedItem(), nullptr);
    });
    EXPECT_EQ(GetFileAttributesW(L"New Folder (1)"), INVALID_FILE_ATTRIBUTES);
}

TEST_F(DrawingManagerFolders, Rename_MovesTheFolderWithItsContentAndSortsAgain) {
    UseUsualDatabase();
    PutFolder(InDrawings(L"B"));
    PutFile(InDrawings(L"A\\Inner\\P-1.dwg"), "x");
    Run([&](ManagerDriver& driver) {
        driver.SelectItem(Folder(L"A"));
        RenameSelected(driver, L"Z 50%s");
        EXPECT_THAT(driver.TreeLines(), ElementsAre(L"Acme", L"  Pump House", L"    B", L"    Z 50%s",
                                                    L"      Inner", L"Tank Farm"));
        EXPECT_EQ(driver.Location(), InDrawings(L"Z 50%s\\"));
        EXPECT_TRUE(HasFile(InDrawings(L"Z 50%s\\Inner\\P-1.dwg")));
        EXPECT_EQ(driver.DataOf(Standard()), 5);
        // The rename does not rewrite what is remembered; the next selection does.
        EXPECT_EQ(GetText(kSelectedFolderValue), L"A\\");
        driver.SelectItem({L"Acme", L"Pump House", L"Z 50%s", L"Inner"});
        EXPECT_THAT(driver.Rows(), ElementsAre(L"P-1"));
        EXPECT_EQ(GetText(kSelectedFolderValue), L"Z 50%s\\Inner\\");
    });
}

TEST_F(DrawingManagerFolders, RenameOfAFolderThatIsNotSelected_MovesTheSelectedOne) {
    UseUsualDatabase();
    PutFolder(InDrawings(L"A"));
    PutFolder(InDrawings(L"B"));
    Run([&](ManagerDriver& driver) {
        driver.SelectItem(Folder(L"A"));
        SetFocus(driver.Tree());
        SendMessageW(driver.Tree(), TVM_EDITLABELW, 0, reinterpret_cast<LPARAM>(driver.Item(Folder(L"B"))));
        ASSERT_NE(driver.TreeEdit(), nullptr);
        ASSERT_EQ(driver.SelectedLabel(), L"A");
        windows::EndLabelEdit(driver.TreeEdit(), L"C");
        EXPECT_TRUE(HasFolder(InDrawings(L"B")));
        EXPECT_TRUE(HasFolder(InDrawings(L"C")));
        EXPECT_FALSE(HasFolder(InDrawings(L"A")));
        EXPECT_EQ(driver.Location(), InDrawings(L"C\\"));
        EXPECT_THAT(driver.TreeLines(),
                    ElementsAre(L"Acme", L"  Pump House", L"    A", L"    C", L"Tank Farm"));
    });
}

TEST_F(DrawingManagerFolders, RefusedRename_BringsTheOldLabelBackWithoutABox) {
    UseUsualDatabase();
    PutFolder(InDrawings(L"A"));
    PutFolder(InDrawings(L"B"));
    const auto shown = RunAndAnswer({}, [&](ManagerDriver& driver) {
        for (const wchar_t* name : {L"B", L"a?b", L"a\"b", L"no\\such\\folder"}) {
            driver.SelectItem(Folder(L"A"));
            RenameSelected(driver, name);
            EXPECT_EQ(driver.SelectedLabel(), L"A");
            EXPECT_EQ(driver.Location(), InDrawings(L"A\\"));
        }
        EXPECT_THAT(driver.TreeLines(),
                    ElementsAre(L"Acme", L"  Pump House", L"    A", L"    B", L"Tank Farm"));
    });
    EXPECT_THAT(shown, IsEmpty());
    EXPECT_THAT(GetBoxes(), IsEmpty());
    EXPECT_TRUE(HasFolder(InDrawings(L"A")));
}

TEST_F(DrawingManagerFolders, RenameToNothing_KeepsTheOldLabel) {
    UseUsualDatabase();
    PutFile(InDrawings(L"A\\P-1.dwg"), "x");
    Run([&](ManagerDriver& driver) {
        driver.SelectItem(Folder(L"A"));
        RenameSelected(driver, L"");
        EXPECT_EQ(driver.SelectedLabel(), L"A");
        EXPECT_TRUE(HasFile(InDrawings(L"A\\P-1.dwg")));
    });
}

TEST_F(DrawingManagerFolders, RenameOfAFolderThatVanished_KeepsTheOldLabel) {
    UseUsualDatabase();
    PutFolder(InDrawings(L"A"));
    Run([&](ManagerDriver& driver) {
        driver.SelectItem(Folder(L"A"));
        ASSERT_TRUE(RemoveDirectoryW(InDrawings(L"A").c_str()));
        RenameSelected(driver, L"B");
        EXPECT_EQ(driver.SelectedLabel(), L"A");
    });
}

TEST_F(DrawingManagerFolders, DeleteOfAnEmptyFolder_AsksNothingAndMovesTheSelection) {
    UseUsualDatabase();
    PutFolder(InDrawings(L"A"));
    PutFolder(InDrawings(L"B"));
    const auto shown = RunAndAnswer({}, [&](ManagerDriver& driver) {
        driver.SelectItem(Folder(L"A"));
        driver.Command(ID_PROJECTS_DELETE);
        EXPECT_FALSE(HasFolder(InDrawings(L"A")));
        EXPECT_THAT(driver.TreeLines(), ElementsAre(L"Acme", L"  Pump House", L"    B", L"Tank Farm"));
        EXPECT_NE(driver.Location(), InDrawings(L"A\\"));
        EXPECT_NE(driver.SelectedItem(), nullptr);
    });
    EXPECT_THAT(shown, IsEmpty());
}

TEST_F(DrawingManagerFolders, FolderWithAHiddenFile_CannotBeDeleted) {
    UseUsualDatabase();
    PutFile(InDrawings(L"50%s\\thumbs.db"), "x");
    SetHidden(InDrawings(L"50%s\\thumbs.db"));
    const auto shown = RunAndAnswer({IDOK}, [&](ManagerDriver& driver) {
        driver.SelectItem(Folder(L"50%s"));
        driver.Command(ID_PROJECTS_DELETE);
        EXPECT_EQ(driver.SelectedLabel(), L"50%s");
    });
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_EQ(shown[0].text,
              L"Folder is not empty. Can only delete empty folders.\n\n" + InDrawings(L"50%s"));
    EXPECT_EQ(shown[0].caption, L"Drawing Manager");
    EXPECT_TRUE(HasFolder(InDrawings(L"50%s")));
}

TEST_F(DrawingManagerFolders, FolderWithASubfolder_CannotBeDeleted) {
    UseUsualDatabase();
    PutFolder(InDrawings(L"A\\B"));
    const auto shown = RunAndAnswer({IDOK}, [&](ManagerDriver& driver) {
        driver.SelectItem(Folder(L"A"));
        driver.Command(ID_PROJECTS_DELETE);
    });
    EXPECT_EQ(shown.size(), 1u);
    EXPECT_TRUE(HasFolder(InDrawings(L"A\\B")));
}

TEST_F(DrawingManagerFolders, DeleteThatFails_IsToldWithThePath) {
    UseUsualDatabase();
    PutFolder(InDrawings(L"A"));
    const auto shown = RunAndAnswer({IDOK}, [&](ManagerDriver& driver) {
        driver.SelectItem(Folder(L"A"));
        ASSERT_TRUE(RemoveDirectoryW(InDrawings(L"A").c_str()));
        driver.Command(ID_PROJECTS_DELETE);
        EXPECT_EQ(driver.SelectedLabel(), L"A");
    });
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_EQ(shown[0].text, L"Error deleting folder.\n\n" + InDrawings(L"A"));
}
