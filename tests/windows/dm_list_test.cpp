// The list of the Drawing Manager: what it shows of a folder, and how it follows what happens there.
#include <gmock/gmock.h>

#include "controls/balloon_tip.h"
#include "dm_fixture.h"
#include "drawing_manager/drawing_state.h"
#include "drawing_manager/manager_registry.h"
#include "resources/resource.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

class DrawingManagerList : public DrawingManagerTest {
  protected:
    // The list takes single clicks apart from double clicks by time, so rows are clicked once in a test.
    static void ClickAndWaitForBalloon(ManagerDriver& driver, const std::wstring& row) {
        driver.ClickRow(row);
        windows::WaitFor([] { return FindBalloon() != nullptr; });
    }
};

std::string LockLines(std::initializer_list<std::string_view> lines) {
    return Lines(lines);
}

}  // namespace

TEST_F(DrawingManagerList, Columns_AreNamedAndMeasured) {
    UseUsualDatabase();
    Run([](ManagerDriver& driver) {
        const wchar_t* headings[] = {L"Name", L"Size", L"Modified"};
        const int formats[] = {LVCFMT_LEFT, LVCFMT_RIGHT, LVCFMT_LEFT};
        const int widths[] = {0, 57, 115};
        for (int i = 0; i < 3; ++i) {
            wchar_t text[32] = L"";
            LVCOLUMN column{};
            column.mask = LVCF_TEXT | LVCF_FMT | LVCF_WIDTH;
            column.pszText = text;
            column.cchTextMax = 32;
            ASSERT_TRUE(SendMessageW(driver.List(), LVM_GETCOLUMNW, static_cast<WPARAM>(i),
                                     reinterpret_cast<LPARAM>(&column)));
            EXPECT_STREQ(text, headings[i]);
            EXPECT_EQ(column.fmt & LVCFMT_JUSTIFYMASK, formats[i]);
            if (i > 0) {
                EXPECT_EQ(column.cx, widths[i]);
            }
        }
        const auto style =
            static_cast<DWORD>(SendMessageW(driver.List(), LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0));
        const DWORD wanted = LVS_EX_GRIDLINES | LVS_EX_SUBITEMIMAGES | LVS_EX_FULLROWSELECT;
        EXPECT_EQ(style & wanted, wanted);
        EXPECT_TRUE(GetWindowLongPtrW(driver.List(), GWL_STYLE) & LVS_SORTASCENDING);
    });
}

TEST_F(DrawingManagerList, Rows_ShowTitleSizeAndDate) {
    UseUsualDatabase();
    PutFile(InDrawings(L"P-1.dwg"), std::string(2049, 'x'));
    PutFile(InDrawings(L"P-2.DWG"), "x");
    PutFile(InDrawings(L"notes.txt"), "x");
    PutFolder(InDrawings(L"sub.dwg"));
    Run([&](ManagerDriver& driver) {
        EXPECT_THAT(driver.Rows(), ElementsAre(L"P-1", L"P-2"));
        EXPECT_EQ(driver.Cell(L"P-1", 1), L"2 KB");
        EXPECT_EQ(driver.Cell(L"P-2", 1), L"0 KB");
        EXPECT_THAT(driver.Cell(L"P-1", 2), SizeIs(19));
    });
}

TEST_F(DrawingManagerList, States_AreShownByPictureAndKeptInTheRow) {
    UseUsualDatabase();
    PutDrawings({L"normal.dwg", L"locked.dwg", L"readonly.dwg", L"halflocked.dwg", L"old.bak"});
    SetReadOnly(InDrawings(L"readonly.dwg"));
    PutFile(InDrawings(L"locked.dwl"), LockLines({"anna", "WS7", "2026-11-20 10:00"}));
    PutFile(InDrawings(L"halflocked.dwl"), LockLines({"anna", "WS7"}));
    SetValue(kBackupStateValue, 8);
    Run([](ManagerDriver& driver) {
        EXPECT_EQ(driver.ImageOfRow(L"normal"), kDrawingNormal);
        EXPECT_EQ(driver.ImageOfRow(L"locked"), kDrawingLocked);
        EXPECT_EQ(driver.ImageOfRow(L"readonly"), kDrawingReadOnly);
        EXPECT_EQ(driver.ImageOfRow(L"halflocked"), kDrawingNormal);
        EXPECT_EQ(driver.ImageOfRow(L"old.bak"), kDrawingBackup);
    });
    SetReadOnly(InDrawings(L"readonly.dwg"), false);
}

TEST_F(DrawingManagerList, LockedAndReadOnly_ShowsAsLocked) {
    UseUsualDatabase();
    PutDrawings({L"both.dwg"});
    SetReadOnly(InDrawings(L"both.dwg"));
    PutFile(InDrawings(L"both.dwl"), LockLines({"anna", "WS7", "today"}));
    Run([](ManagerDriver& driver) { EXPECT_EQ(driver.ImageOfRow(L"both"), kDrawingLocked); });
    SetReadOnly(InDrawings(L"both.dwg"), false);
}

TEST_F(DrawingManagerList, Backups_StandBesideTheirDrawings) {
    UseUsualDatabase();
    PutFile(InDrawings(L"A.dwg"), std::string(5000, 'x'));
    PutFile(InDrawings(L"A.bak"), "x");
    PutDrawings({L"B.dwg"});
    Run([](ManagerDriver& driver) {
        EXPECT_THAT(driver.Rows(), ElementsAre(L"A", L"B"));
        driver.Command(ID_DRAWINGS_SHOWBACKUPS);
        EXPECT_THAT(driver.Rows(), ElementsAre(L"A", L"A.bak", L"B"));
        EXPECT_EQ(driver.Cell(L"A", 1), L"4 KB");
        EXPECT_EQ(driver.Cell(L"A.bak", 1), L"0 KB");
        driver.Command(ID_DRAWINGS_SHOWBACKUPS);
        EXPECT_THAT(driver.Rows(), ElementsAre(L"A", L"B"));
    });
}

TEST_F(DrawingManagerList, Order_IsTheControlsOwn) {
    UseUsualDatabase();
    for (const wchar_t* name :
         {L"b.dwg", L"A.dwg", L"a b.dwg", L"a-b.dwg", L"a_b.dwg", L"P-10.dwg", L"P-9.dwg", L"\u00C4.dwg",
          L"Z.dwg", L"50%s.dwg", L"'q'.dwg", L"...dots.dwg"}) {
        PutFile(InDrawings(name), "x");
    }
    Run([](ManagerDriver& driver) {
        // The same names, put one by one into a list that sorts by itself.
        CListCtrl sorted;
        CWnd frame;
        frame.CreateEx(0, nullptr, L"", WS_POPUP, 0, 0, 100, 100, nullptr, nullptr);
        sorted.Create(WS_CHILD | LVS_REPORT | LVS_SORTASCENDING, CRect(0, 0, 100, 100), &frame, 1);
        for (const std::wstring& row : driver.Rows())
            sorted.InsertItem(0, row.c_str());
        std::vector<std::wstring> own;
        for (int i = 0; i < sorted.GetItemCount(); ++i)
            own.push_back(sorted.GetItemText(i, 0).ToStdString());
        EXPECT_THAT(own, SizeIs(12));
        EXPECT_EQ(driver.Rows(), own);
    });
}

TEST_F(DrawingManagerList, HiddenList_StaysHiddenWhenItIsFilled) {
    UseUsualDatabase();
    PutFile(InRoot(L"Tanks\\T-1.dwg"), "x");
    Run([](ManagerDriver& driver) {
        windows::Click(driver.Dialog(), IDC_SHOW_HIDE);
        driver.SelectItem({L"Tank Farm"});
        EXPECT_THAT(driver.Rows(), ElementsAre(L"T-1"));
        EXPECT_FALSE(driver.Shown(IDC_DRAWING_LIST));
        EXPECT_EQ(FindBalloon(), nullptr);
    });
}

TEST_F(DrawingManagerList, Selection_IsRememberedAndRestored) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg", L"B.dwg"});
    Run([&](ManagerDriver& driver) {
        driver.SelectRows({L"B"});
        EXPECT_EQ(GetText(kSelectedDrawingValue), L"B");
        driver.Command(ID_DRAWINGS_REFRESHLIST);
        EXPECT_THAT(driver.SelectedRows(), ElementsAre(L"B"));
        EXPECT_TRUE(driver.Enabled(IDC_OPEN_DRAWING));
    });
    Run([](ManagerDriver& driver) { EXPECT_THAT(driver.SelectedRows(), ElementsAre(L"B")); });
}

TEST_F(DrawingManagerList, RememberedDrawing_HasTheFocusAndIsInSight) {
    UseUsualDatabase();
    for (int i = 100; i < 200; ++i)
        PutFile(InDrawings(L"P-" + std::to_wstring(i) + L".dwg"), "x");
    SetValue(kSelectedDrawingValue, std::wstring(L"P-199"));
    Run([](ManagerDriver& driver) {
        EXPECT_THAT(driver.SelectedRows(), ElementsAre(L"P-199"));
        EXPECT_EQ(SendMessageW(driver.List(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED), 99);
        EXPECT_NE(SendMessageW(driver.List(), LVM_ISITEMVISIBLE, 99, 0), 0);
    });
}

TEST_F(DrawingManagerList, Pictures_HaveTheirSizes) {
    UseUsualDatabase();
    Run([](ManagerDriver& driver) {
        const auto sizeOf = [](LRESULT images) {
            int width = 0, height = 0;
            ImageList_GetIconSize(reinterpret_cast<HIMAGELIST>(images), &width, &height);
            return CSize(width, height);
        };
        EXPECT_EQ(sizeOf(SendMessageW(driver.List(), LVM_GETIMAGELIST, LVSIL_SMALL, 0)), CSize(24, 24));
        EXPECT_EQ(sizeOf(SendMessageW(driver.Tree(), TVM_GETIMAGELIST, TVSIL_NORMAL, 0)), CSize(16, 16));
    });
}

TEST_F(DrawingManagerList, RememberedDrawingThatIsGone_SelectsNothing) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg"});
    SetValue(kSelectedDrawingValue, std::wstring(L"Gone"));
    Run([](ManagerDriver& driver) {
        EXPECT_THAT(driver.SelectedRows(), IsEmpty());
        EXPECT_FALSE(driver.Enabled(IDC_COPY_DRAWING));
    });
}

TEST_F(DrawingManagerList, HeaderClick_DoesNotSort) {
    UseUsualDatabase();
    PutFile(InDrawings(L"A.dwg"), std::string(9000, 'x'));
    PutDrawings({L"B.dwg"});
    Run([](ManagerDriver& driver) {
        const auto header = reinterpret_cast<HWND>(SendMessageW(driver.List(), LVM_GETHEADER, 0, 0));
        NMHEADER notification{{header, 0, static_cast<UINT>(HDN_ITEMCLICKW)}, 1, 0, nullptr};
        EXPECT_EQ(SendMessageW(driver.Dialog(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notification)), 0);
        EXPECT_THAT(driver.Rows(), ElementsAre(L"A", L"B"));
    });
}

TEST_F(DrawingManagerList, FolderThatDoesNotExist_IsAnEmptyListWithoutAMessage) {
    UseUsualDatabase();
    ASSERT_TRUE(RemoveDirectoryW(InRoot(L"Drawings").c_str()));
    const auto shown = RunAndAnswer({}, [](ManagerDriver& driver) {
        EXPECT_THAT(driver.Rows(), IsEmpty());
        EXPECT_NE(driver.Location(), L"");
        driver.Command(ID_DRAWINGS_REFRESHLIST);
        EXPECT_EQ(FindBalloon(), nullptr);
    });
    EXPECT_THAT(shown, IsEmpty());
    EXPECT_THAT(GetBoxes(), IsEmpty());
}

TEST_F(DrawingManagerList, DriveThatIsNotThere_IsAnEmptyListWithoutAMessage) {
    UseUsualDatabase();
    AddStandardWithoutLocation(7, "Lost");
    m_database.WithGeneral(7, "Drawings Location", "PID = Q:\\Nowhere");
    SetValue(kProjectIdValue, 7);
    Run([](ManagerDriver& driver) {
        EXPECT_EQ(driver.Location(), L"Q:\\Nowhere\\");
        EXPECT_THAT(driver.Rows(), IsEmpty());
    });
    EXPECT_THAT(GetBoxes(), IsEmpty());
}

TEST_F(DrawingManagerList, EmptyLocation_ShowsTheErrorBalloon) {
    UseUsualDatabase();
    AddStandardWithoutLocation(7, "Yard");
    Run([](ManagerDriver& driver) {
        EXPECT_EQ(FindBalloon(), nullptr);
        driver.SelectItem({L"Yard"});
        const HWND balloon = FindBalloon();
        ASSERT_NE(balloon, nullptr);
        // It points at the location box from above.
        CRect box;
        GetWindowRect(windows::Control(driver.Dialog(), IDC_LOCATION), box);
        CRect rect;
        GetWindowRect(balloon, rect);
        EXPECT_EQ(rect.left, std::max(0L, box.left));
        EXPECT_LT(rect.top, box.top);
        driver.SelectItem({L"Acme"});
        EXPECT_EQ(FindBalloon(), nullptr);
    });
}

TEST_F(DrawingManagerList, HiddenList_ShowsNoBalloons) {
    UseUsualDatabase();
    AddStandardWithoutLocation(7, "Yard");
    PutFile(InRoot(L"Tanks\\Drawing1.dwg"), "x");
    Run([](ManagerDriver& driver) {
        windows::Click(driver.Dialog(), IDC_SHOW_HIDE);
        driver.SelectItem({L"Yard"});
        EXPECT_EQ(FindBalloon(), nullptr);
        driver.SelectItem({L"Tank Farm"});
        EXPECT_EQ(FindBalloon(), nullptr);
    });
}

TEST_F(DrawingManagerList, OnlyTheDefaultDrawing_ShowsTheNote) {
    UseUsualDatabase();
    PutFile(InRoot(L"Tanks\\Drawing1.dwg"), "x");
    Run([](ManagerDriver& driver) {
        driver.SelectItem({L"Tank Farm"});
        EXPECT_NE(FindBalloon(), nullptr);
    });
    EXPECT_EQ(FindBalloon(), nullptr);
}

TEST_F(DrawingManagerList, DefaultDrawingInOtherCase_ShowsNoNote) {
    UseUsualDatabase();
    PutFile(InRoot(L"Tanks\\drawing1.dwg"), "x");
    Run([](ManagerDriver& driver) {
        driver.SelectItem({L"Tank Farm"});
        EXPECT_THAT(driver.Rows(), ElementsAre(L"drawing1"));
        EXPECT_EQ(FindBalloon(), nullptr);
    });
}

TEST_F(DrawingManagerList, WithBackupsOn_TheListingOfBackupsDecidesAboutTheNote) {
    UseUsualDatabase();
    PutFile(InRoot(L"Tanks\\Drawing1.dwg"), "x");
    PutFile(InRoot(L"Tanks\\Other.dwg"), "x");
    PutFile(InRoot(L"Tanks\\Drawing1.bak"), "x");
    Run([](ManagerDriver& driver) {
        driver.SelectItem({L"Tank Farm"});
        EXPECT_EQ(FindBalloon(), nullptr);
        driver.Command(ID_DRAWINGS_SHOWBACKUPS);
        EXPECT_NE(FindBalloon(), nullptr);
    });
}

TEST_F(DrawingManagerList, ClickOnAReadOnlyRow_ShowsItsNoteBelowTheLabel) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg", L"B.dwg"});
    SetReadOnly(InDrawings(L"B.dwg"));
    Run([](ManagerDriver& driver) {
        ClickAndWaitForBalloon(driver, L"B");
        const HWND balloon = FindBalloon();
        ASSERT_NE(balloon, nullptr);
        RECT label{LVIR_LABEL, 0, 0, 0};
        SendMessageW(driver.List(), LVM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&label));
        CRect list;
        GetWindowRect(driver.List(), list);
        CRect rect;
        GetWindowRect(balloon, rect);
        EXPECT_EQ(rect.left, list.left + label.right - 125);
        EXPECT_EQ(rect.top, list.top + label.bottom - GetSystemMetrics(SM_CYSIZEFRAME));
        // Whatever is done next puts it away, and the row is like any other.
        windows::Click(driver.Dialog(), IDC_COPY_DRAWING);
        EXPECT_EQ(FindBalloon(), nullptr);
        EXPECT_THAT(driver.Rows(), ElementsAre(L"A", L"B", L"B (Copy 1)"));
    });
    SetReadOnly(InDrawings(L"B.dwg"), false);
}

TEST_F(DrawingManagerList, ClickOnALockedRow_ShowsWhoHasIt) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg"});
    PutFile(InDrawings(L"A.dwl"), LockLines({"anna 100%s", "WS7", "2026-11-20 10:00"}));
    Run([](ManagerDriver& driver) {
        ClickAndWaitForBalloon(driver, L"A");
        EXPECT_NE(FindBalloon(), nullptr);
    });
}

TEST_F(DrawingManagerList, ClickOnANormalRow_ShowsNoNote) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg"});
    Run([](ManagerDriver& driver) {
        driver.ClickRow(L"A");
        EXPECT_THAT(driver.SelectedRows(), ElementsAre(L"A"));
        EXPECT_EQ(FindBalloon(), nullptr);
    });
}

TEST_F(DrawingManagerList, PopupWithoutARow_OffersNewAndRefresh) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg"});
    Run([](ManagerDriver& driver) {
        EXPECT_THAT(driver.PopupAt(driver.List(), driver.PointOnList()),
                    ElementsAre(L"Open 215 grey", L"Open Read-Only 242 grey", L"-", L"New 181",
                                L"Copy 220 grey", L"Rename 182 grey", L"-", L"Delete... 184 grey",
                                L"Show Backups 219", L"-", L"Refresh List 185"));
    });
}

TEST_F(DrawingManagerList, PopupOverBackups_StillOffersOpen) {
    UseUsualDatabase();
    PutDrawings({L"A.bak", L"B.bak"});
    SetValue(kBackupStateValue, 8);
    Run([](ManagerDriver& driver) {
        driver.SelectRows({L"A.bak", L"B.bak"});
        EXPECT_THAT(
            driver.PopupAt(driver.List(), driver.PointOnList()),
            ElementsAre(L"Open 215", L"Open Read-Only 242", L"-", L"New 181", L"Copy 220", L"Rename 182 grey",
                        L"-", L"Delete... 184", L"Show Backups 219 checked", L"-", L"Refresh List 185"));
        EXPECT_FALSE(driver.Enabled(IDC_OPEN_DRAWING));
    });
}

TEST_F(DrawingManagerList, PopupWithoutAStandard_OffersNoNew) {
    UseUsualDatabase();
    Run([](ManagerDriver& driver) {
        driver.SelectItem({L"Acme"});
        EXPECT_THAT(driver.PopupAt(driver.List(), driver.PointOnList()),
                    ElementsAre(L"Open 215 grey", L"Open Read-Only 242 grey", L"-", L"New 181 grey",
                                L"Copy 220 grey", L"Rename 182 grey", L"-", L"Delete... 184 grey",
                                L"Show Backups 219", L"-", L"Refresh List 185 grey"));
    });
}

TEST_F(DrawingManagerList, NamesThatHurt_AreShownWhole) {
    UseUsualDatabase();
    const std::wstring longName(240, L'n');
    const std::vector<std::wstring> names = {L"100%s %d %n", L"dots.in.name", L"it's \u00DFharp & na\u00EFve",
                                             longName};
    for (const std::wstring& name : names)
        PutFile(InDrawings(name + L".dwg"), "x");
    Run([&](ManagerDriver& driver) {
        for (const std::wstring& name : names) {
            driver.SelectRows({name});
            EXPECT_THAT(driver.SelectedRows(), ElementsAre(name));
            EXPECT_EQ(GetText(kSelectedDrawingValue), name);
        }
    });
}
