// What the Drawing Manager does to drawings: open, new, copy, rename, delete. The files are real ones.
#include <gmock/gmock.h>

#include "dm_fixture.h"
#include "drawing_manager/drawing_state.h"
#include "drawing_manager/manager_registry.h"
#include "resources/resource.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

class DrawingManagerFiles : public DrawingManagerTest {
  protected:
    void AddTemplate() {
        PutFile(InRoot(L"Templates\\acad.dwt"), "template content");
        m_database.WithGeneral(5, "General",
                               "TemplatesLocation = " + platform::GetText().Narrow(InRoot(L"Templates")));
    }
};

}  // namespace

TEST_F(DrawingManagerFiles, OpenButton_CollectsAllSelectedRows) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg", L"B.DWG", L"C.dwg"});
    ManagerDlg dialog;
    const INT_PTR answer = Run(dialog, [](ManagerDriver& driver) {
        driver.SelectRows({L"A", L"B"});
        windows::Click(driver.Dialog(), IDC_OPEN_DRAWING);
    });
    EXPECT_EQ(answer, IDOK);
    EXPECT_THAT(dialog.m_astrOpenList, ElementsAre(InDrawings(L"A.dwg"), InDrawings(L"B.dwg")));
    EXPECT_FALSE(dialog.m_bOpenReadOnly);
    EXPECT_EQ(GetNumber(kProjectIdValue), 5u);
    EXPECT_EQ(GetNumber(kShowWindowValue), 1u);
    EXPECT_NE(GetText(kWindowPositionValue), L"");
}

TEST_F(DrawingManagerFiles, OpenReadOnly_IsPassedOn) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg"});
    ManagerDlg dialog;
    EXPECT_EQ(Run(dialog,
                  [](ManagerDriver& driver) {
                      driver.SelectRows({L"A"});
                      driver.Command(ID_DRAWINGS_OPENREADONLY);
                  }),
              IDOK);
    EXPECT_TRUE(dialog.m_bOpenReadOnly);
}

TEST_F(DrawingManagerFiles, DoubleClick_OpensAndIsNotReadOnly) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg", L"B.bak"});
    SetValue(kBackupStateValue, 8);
    ManagerDlg dialog;
    EXPECT_EQ(Run(dialog,
                  [](ManagerDriver& driver) {
                      driver.SelectRows({L"B.bak"});
                      driver.Command(ID_DRAWINGS_OPENREADONLY);  // only the box, and the dialog stays
                      driver.SelectRows({L"A"});
                      driver.DoubleClickList();
                  }),
              IDOK);
    EXPECT_FALSE(dialog.m_bOpenReadOnly);
    EXPECT_THAT(dialog.m_astrOpenList, ElementsAre(InDrawings(L"A.dwg")));
}

TEST_F(DrawingManagerFiles, OpenWithoutARow_DoesNothing) {
    UseUsualDatabase();
    ManagerDlg dialog;
    Run(dialog, [&](ManagerDriver& driver) {
        driver.Command(ID_DRAWINGS_OPEN);
        driver.DoubleClickList();
        EXPECT_FALSE(dialog.m_bEnded);
    });
    EXPECT_THAT(GetBoxes(), IsEmpty());
}

TEST_F(DrawingManagerFiles, Backups_AreNotOpenedAndToldOnce) {
    UseUsualDatabase();
    PutDrawings({L"A.bak", L"B.bak", L"C.dwg"});
    SetValue(kBackupStateValue, 8);
    ManagerDlg dialog;
    const INT_PTR answer = Run(dialog, [&](ManagerDriver& driver) {
        driver.SelectRows({L"A.bak", L"B.bak"});
        driver.Command(ID_DRAWINGS_OPEN);
        EXPECT_FALSE(dialog.m_bEnded);
        driver.SelectRows({L"A.bak", L"C"});
        driver.Command(ID_DRAWINGS_OPEN);
    });
    EXPECT_EQ(answer, IDOK);
    EXPECT_THAT(dialog.m_astrOpenList, ElementsAre(InDrawings(L"C.dwg")));
    ASSERT_EQ(GetBoxes().size(), 2u);
    EXPECT_EQ(GetBoxes()[0].text,
              L"Cannot open drawing backup files.\n\nPlease rename to a .dwg file and try again.");
}

TEST_F(DrawingManagerFiles, DrawingDeletedByAnother_IsToldByItsPath) {
    UseUsualDatabase();
    PutDrawings({L"50%s.dwg", L"B.dwg"});
    ManagerDlg dialog;
    const INT_PTR answer = Run(dialog, [&](ManagerDriver& driver) {
        driver.SelectRows({L"50%s"});
        ASSERT_TRUE(DeleteFileW(InDrawings(L"50%s.dwg").c_str()));
        windows::Click(driver.Dialog(), IDC_OPEN_DRAWING);
        EXPECT_FALSE(dialog.m_bEnded);
        driver.SelectRows({L"50%s", L"B"});
        windows::Click(driver.Dialog(), IDC_OPEN_DRAWING);
    });
    EXPECT_EQ(answer, IDOK);
    EXPECT_THAT(dialog.m_astrOpenList, ElementsAre(InDrawings(L"B.dwg")));
    ASSERT_EQ(GetBoxes().size(), 2u);
    EXPECT_EQ(GetBoxes()[0].text, L"Cannot find drawing file:\n" + InDrawings(L"50%s.dwg"));
    EXPECT_EQ(GetBoxes()[0].caption, L"Drawing Manager");
}

TEST_F(DrawingManagerFiles, SingleDoc_OpensTheFirstSelectedOnly) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg", L"B.dwg"});
    SetValue(kSingleDocumentValue, 1);
    ManagerDlg dialog;
    EXPECT_EQ(Run(dialog,
                  [](ManagerDriver& driver) {
                      driver.SelectRows({L"B", L"A"});
                      windows::Click(driver.Dialog(), IDC_OPEN_DRAWING);
                  }),
              IDOK);
    EXPECT_THAT(dialog.m_astrOpenList, ElementsAre(InDrawings(L"A.dwg")));
    EXPECT_FALSE(dialog.m_bClosingDocuments);
}

TEST_F(DrawingManagerFiles, New_CopiesTheTemplateAndLetsTheUserNameIt) {
    UseUsualDatabase();
    AddTemplate();
    PutDrawings({L"Drawing1.dwg", L"Drawing3.dwg"});
    Run([&](ManagerDriver& driver) {
        windows::Click(driver.Dialog(), IDC_NEW_DRAWING);
        EXPECT_EQ(GetBytes(InDrawings(L"Drawing2.dwg")), "template content");
        EXPECT_THAT(driver.Rows(), ElementsAre(L"Drawing1", L"Drawing2", L"Drawing3"));
        EXPECT_EQ(driver.ImageOfRow(L"Drawing2"), kDrawingNormal);
        EXPECT_EQ(driver.Cell(L"Drawing2", 1), L"0 KB");
        const HWND edit = driver.ListEdit();
        ASSERT_NE(edit, nullptr);
        EXPECT_EQ(windows::TextOf(edit), L"Drawing2");
        windows::EndLabelEdit(edit, L"P-200");
        EXPECT_THAT(driver.Rows(), ElementsAre(L"Drawing1", L"Drawing3", L"P-200"));
        EXPECT_TRUE(HasFile(InDrawings(L"P-200.dwg")));
        EXPECT_FALSE(HasFile(InDrawings(L"Drawing2.dwg")));
    });
}

TEST_F(DrawingManagerFiles, NewInAFolderThatVanished_MakesTheFolderAgain) {
    UseUsualDatabase();
    AddTemplate();
    Run([&](ManagerDriver& driver) {
        ASSERT_TRUE(RemoveDirectoryW(InRoot(L"Drawings").c_str()));
        windows::Click(driver.Dialog(), IDC_NEW_DRAWING);
        EXPECT_TRUE(HasFile(InDrawings(L"Drawing1.dwg")));
        windows::CancelLabelEdit(driver.ListEdit());
    });
    EXPECT_THAT(GetBoxes(), IsEmpty());
}

TEST_F(DrawingManagerFiles, MissingTemplate_IsToldByItsPathAndTheCopyIsTriedNoMore) {
    UseUsualDatabase();
    Run([](ManagerDriver& driver) {
        windows::Click(driver.Dialog(), IDC_NEW_DRAWING);
        EXPECT_THAT(driver.Rows(), IsEmpty());
    });
    ASSERT_EQ(GetBoxes().size(), 1u);
    EXPECT_EQ(GetBoxes()[0].text, L"Error finding drawing template:\nacad.dwt");
}

TEST_F(DrawingManagerFiles, NewOnADriveThatIsNotThere_TellsBothPaths) {
    UseUsualDatabase();
    AddTemplate();
    m_database.WithGeneral(5, "Drawings Location", "PID = Q:\\Nowhere");
    // The first row of a key counts, so the usual location has to go.
    AddStandardWithoutLocation(7, "Lost");
    m_database.WithGeneral(7, "Drawings Location", "PID = Q:\\Nowhere")
        .WithGeneral(7, "General", "TemplatesLocation = " + platform::GetText().Narrow(InRoot(L"Templates")));
    SetValue(kProjectIdValue, 7);
    Run([](ManagerDriver& driver) { windows::Click(driver.Dialog(), IDC_NEW_DRAWING); });
    ASSERT_EQ(GetBoxes().size(), 1u);
    EXPECT_EQ(GetBoxes()[0].text, L"Error copying file\nFrom: " + InRoot(L"Templates\\acad.dwt") +
                                      L"\nTo: Q:\\Nowhere\\Drawing1.dwg");
}

TEST_F(DrawingManagerFiles, Copy_NumbersEachSelectedDrawingAndLosesTheSelection) {
    UseUsualDatabase();
    PutFile(InDrawings(L"A.dwg"), "content of A");
    PutDrawings({L"A (Copy 1).dwg", L"50%s.dwg", L"old.bak"});
    SetValue(kBackupStateValue, 8);
    Run([&](ManagerDriver& driver) {
        driver.SelectRows({L"A", L"50%s", L"old.bak"});
        windows::Click(driver.Dialog(), IDC_COPY_DRAWING);
        EXPECT_THAT(driver.Rows(), ElementsAre(L"50%s", L"50%s (Copy 1)", L"A", L"A (Copy 1)", L"A (Copy 2)",
                                               L"old (Copy 1).bak", L"old.bak"));
        EXPECT_THAT(driver.SelectedRows(), IsEmpty());
        EXPECT_FALSE(driver.Enabled(IDC_COPY_DRAWING));
    });
    EXPECT_EQ(GetBytes(InDrawings(L"A (Copy 2).dwg")), "content of A");
}

TEST_F(DrawingManagerFiles, CopyThatFails_IsToldAndTheOthersGoOn) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg", L"B.dwg", L"C.dwg"});
    Run([&](ManagerDriver& driver) {
        driver.SelectRows({L"A", L"B", L"C"});
        ASSERT_TRUE(DeleteFileW(InDrawings(L"B.dwg").c_str()));
        windows::Click(driver.Dialog(), IDC_COPY_DRAWING);
        EXPECT_THAT(driver.Rows(), ElementsAre(L"A", L"A (Copy 1)", L"C", L"C (Copy 1)"));
    });
    ASSERT_EQ(GetBoxes().size(), 1u);
    EXPECT_EQ(GetBoxes()[0].text, L"Error copying file\nFrom: " + InDrawings(L"B.dwg") + L"\nTo: " +
                                      InDrawings(L"B (Copy 1).dwg"));
}

TEST_F(DrawingManagerFiles, Rename_WorksWithAndWithoutTheEnding) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg"});
    Run([&](ManagerDriver& driver) {
        driver.SelectRows({L"A"});
        windows::Click(driver.Dialog(), IDC_RENAME_DRAWING);
        ASSERT_NE(driver.ListEdit(), nullptr);
        windows::EndLabelEdit(driver.ListEdit(), L"B");
        EXPECT_THAT(driver.Rows(), ElementsAre(L"B"));
        windows::EndLabelEdit(driver.EditRow(L"B"), L"C.DWG");
        EXPECT_THAT(driver.Rows(), ElementsAre(L"C"));
        EXPECT_TRUE(HasFile(InDrawings(L"C.dwg")));
    });
}

TEST_F(DrawingManagerFiles, RenameToABackup_TakesTheDrawingOutOfTheList) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg"});
    Run([&](ManagerDriver& driver) {
        windows::EndLabelEdit(driver.EditRow(L"A"), L"A.bak");
        EXPECT_THAT(driver.Rows(), IsEmpty());
        EXPECT_TRUE(HasFile(InDrawings(L"A.bak")));
    });
}

TEST_F(DrawingManagerFiles, NamesThatHurt_SurviveARename) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg"});
    Run([&](ManagerDriver& driver) {
        std::wstring name = L"A";
        for (const std::wstring& next :
             {std::wstring(L"50%s %d"), std::wstring(L"v1.2.final"), std::wstring(L"it's"),
              std::wstring(L"\u00C4rmel \u00DF"), std::wstring(L"(x)")}) {
            windows::EndLabelEdit(driver.EditRow(name), next);
            EXPECT_THAT(driver.Rows(), ElementsAre(next));
            EXPECT_TRUE(HasFile(InDrawings(next + L".dwg")));
            name = next;
        }
    });
}

TEST_F(DrawingManagerFiles, SameName_RenamesNothing) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg"});
    const auto shown = RunAndAnswer({}, [&](ManagerDriver& driver) {
        windows::EndLabelEdit(driver.EditRow(L"A"), L"A");
        windows::EndLabelEdit(driver.EditRow(L"A"), L"A.dwg");
        EXPECT_THAT(driver.Rows(), ElementsAre(L"A"));
    });
    EXPECT_THAT(shown, IsEmpty());
}

TEST_F(DrawingManagerFiles, RenameToAnExistingName_IsToldByTheFrameworkAndChangesNothing) {
    UseUsualDatabase();
    PutFile(InDrawings(L"A.dwg"), "content of A");
    PutFile(InDrawings(L"B.dwg"), "content of B");
    const auto shown = RunAndAnswer({IDOK}, [&](ManagerDriver& driver) {
        windows::EndLabelEdit(driver.EditRow(L"A"), L"B");
        EXPECT_THAT(driver.Rows(), ElementsAre(L"A", L"B"));
    });
    EXPECT_EQ(shown.size(), 1u);
    EXPECT_EQ(GetBytes(InDrawings(L"A.dwg")), "content of A");
    EXPECT_EQ(GetBytes(InDrawings(L"B.dwg")), "content of B");
}

TEST_F(DrawingManagerFiles, RenameWithCharactersThatNoFileMayHave_IsToldAndChangesNothing) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg"});
    const auto shown = RunAndAnswer({IDOK, IDOK, IDOK}, [&](ManagerDriver& driver) {
        for (const wchar_t* name : {L"a\"b", L"a?b", L"no\\such\\folder"}) {
            windows::EndLabelEdit(driver.EditRow(L"A"), name);
            EXPECT_THAT(driver.Rows(), ElementsAre(L"A"));
        }
    });
    EXPECT_EQ(shown.size(), 3u);
}

TEST_F(DrawingManagerFiles, EscapeAfterTyping_RenamesAllTheSame) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg"});
    Run([&](ManagerDriver& driver) {
        const HWND edit = driver.EditRow(L"A");
        SetWindowTextW(edit, L"B");
        windows::CancelLabelEdit(edit);
        EXPECT_THAT(driver.Rows(), ElementsAre(L"B"));
    });
}

TEST_F(DrawingManagerFiles, RenameOfSeveralRows_StartsNoEdit) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg", L"B.dwg"});
    Run([](ManagerDriver& driver) {
        driver.SelectRows({L"A", L"B"});
        windows::Click(driver.Dialog(), IDC_RENAME_DRAWING);
        EXPECT_EQ(driver.ListEdit(), nullptr);
    });
}

TEST_F(DrawingManagerFiles, Delete_AsksWithEachNameAndRecycles) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg", L"50%s.dwg", L"C.bak", L"D.dwg", L"A.dwl"});
    SetValue(kBackupStateValue, 8);
    const auto shown = RunAndAnswer({IDYES}, [&](ManagerDriver& driver) {
        driver.SelectRows({L"A", L"50%s", L"C.bak"});
        windows::Click(driver.Dialog(), IDC_DELETE_DRAWING);
        EXPECT_THAT(driver.Rows(), ElementsAre(L"D"));
        EXPECT_FALSE(driver.Enabled(IDC_DELETE_DRAWING));
    });
    ASSERT_EQ(shown.size(), 1u);
    EXPECT_EQ(shown[0].text, L"Are you sure you want to delete these drawings?\n\n50%s.dwg\nA.dwg\nC.bak\n");
    EXPECT_EQ(shown[0].caption, L"Drawing Manager");
    EXPECT_EQ(shown[0].defaultButton, IDNO);
    EXPECT_FALSE(HasFile(InDrawings(L"A.dwg")));
    EXPECT_TRUE(HasFile(InDrawings(L"A.dwl")));
    EXPECT_TRUE(HasFile(InDrawings(L"D.dwg")));
}

TEST_F(DrawingManagerFiles, DeletedDrawings_AreInTheRecycleBin) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg", L"50%s \u00C4.dwg", L"Keep.dwg"});
    const auto countRecycled = [] {
        SHQUERYRBINFO bin{};
        bin.cbSize = sizeof(bin);
        EXPECT_EQ(SHQueryRecycleBinW(nullptr, &bin), S_OK);
        return bin.i64NumItems;
    };
    const auto before = countRecycled();
    RunAndAnswer({IDYES}, [](ManagerDriver& driver) {
        driver.SelectRows({L"A", L"50%s \u00C4"});
        windows::Click(driver.Dialog(), IDC_DELETE_DRAWING);
        EXPECT_THAT(driver.Rows(), ElementsAre(L"Keep"));
    });
    EXPECT_EQ(countRecycled(), before + 2);
}

TEST_F(DrawingManagerFiles, DeleteAnsweredWithNo_DeletesNothing) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg"});
    RunAndAnswer({IDNO}, [&](ManagerDriver& driver) {
        driver.SelectRows({L"A"});
        windows::Click(driver.Dialog(), IDC_DELETE_DRAWING);
        EXPECT_THAT(driver.Rows(), ElementsAre(L"A"));
    });
    EXPECT_TRUE(HasFile(InDrawings(L"A.dwg")));
}

TEST_F(DrawingManagerFiles, FileThatCannotBeDeleted_KeepsItsRowWithoutAMessage) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg", L"B.dwg"});
    const auto shown = RunAndAnswer({IDYES}, [&](ManagerDriver& driver) {
        driver.SelectRows({L"A", L"B"});
        const std::unique_ptr<HeldFile> held = HoldFile(InDrawings(L"A.dwg"), platform::Hold::kWriting);
        windows::Click(driver.Dialog(), IDC_DELETE_DRAWING);
        EXPECT_THAT(driver.Rows(), ElementsAre(L"A"));
    });
    EXPECT_EQ(shown.size(), 1u);
    EXPECT_THAT(GetBoxes(), IsEmpty());
    EXPECT_TRUE(HasFile(InDrawings(L"A.dwg")));
}

TEST_F(DrawingManagerFiles, LockedDrawing_IsDeletedLikeAnyOther) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg"});
    PutFile(InDrawings(L"A.dwl"), Lines({"anna", "WS7", "today"}));
    RunAndAnswer({IDYES}, [&](ManagerDriver& driver) {
        driver.SelectRows({L"A"});
        driver.Command(ID_DRAWINGS_DELETE);
        EXPECT_THAT(driver.Rows(), IsEmpty());
    });
    EXPECT_FALSE(HasFile(InDrawings(L"A.dwg")));
}
