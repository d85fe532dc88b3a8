// The palette's own interfaces: making and destroying it, its combos, and its registry entry under a clock
// that crosses a month.
#include <gmock/gmock.h>
#include <rxmfcapi.h>

#include "linked_palette.h"
#include "palette/menu_palette.h"
#include "palette/menu_palette_set.h"
#include "storage/applications.h"
#include "storage/registry_settings.h"
#include "support/windows_driver.h"
#include "unit/database/a_database.h"

using platform::Hive;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const std::wstring kHandles = L"Software\\KALVOR\\Orvex\\2023\\WindowHandle\\";

class PaletteParts : public SystemTest {
  protected:
    PaletteParts() : m_database(*this) {
        TestSystem& system = *this;
        SetNow({2026, 11, 30, 23, 59, 58});
        m_palette = std::make_unique<LinkedPalette>(system);
    }
    static std::vector<std::wstring> Subkeys(const std::wstring& key) {
        return platform::GetRegistry().GetSubkeys(Hive::kCurrentUser, key);
    }
    static std::vector<std::wstring> Items(CComboBox& combo) {
        std::vector<std::wstring> items;
        for (int i = 0; i < combo.GetCount(); ++i) {
            CString text;
            combo.GetLBText(i, text);
            items.push_back(text.ToStdString());
        }
        return items;
    }
    static std::wstring MainWindowKey() {
        return std::to_wstring(static_cast<int>(reinterpret_cast<INT_PTR>(adsw_acadMainWnd())));
    }

    ADatabase m_database;
    std::unique_ptr<LinkedPalette> m_palette;
};

}  // namespace

// --- the set

TEST_F(PaletteParts, GetInstanceOfNothing_MakesNothing) {
    EXPECT_EQ(CMenuPaletteSet::GetInstance(kAppNone), nullptr);
    EXPECT_EQ(CMenuPalette::GetPalette(), nullptr);
    EXPECT_THAT(test_control::Seen().loaded, IsEmpty());
}

TEST_F(PaletteParts, EveryNumber_GivesTheOneSet) {
    CMenuPaletteSet* set = CMenuPaletteSet::GetInstance(kAppIsometric);
    ASSERT_NE(set, nullptr);
    for (int app : {0, 1, 2, 3, 4, 9, -1})
        EXPECT_EQ(CMenuPaletteSet::GetInstance(app), set) << app;
    EXPECT_EQ(CMenuPalette::GetPalette(), set->m_pPalette);
    EXPECT_EQ(set->m_pPalette->m_eApp, kAppIsometric);
}

TEST_F(PaletteParts, Destroy_LeavesNone_AndMayComeTwice) {
    m_palette->Make(kAppPid);
    CMenuPaletteSet::Destroy();
    EXPECT_EQ(CMenuPaletteSet::GetInstance(kAppNone), nullptr);
    EXPECT_EQ(CMenuPalette::GetPalette(), nullptr);
    CMenuPaletteSet::Destroy();
    EXPECT_EQ(test_control::Seen().alive, 0);
}

TEST_F(PaletteParts, AfterDestroy_AnotherDisciplineCanBeMade) {
    m_palette->Make(kAppPid);
    CMenuPaletteSet::Destroy();
    m_palette->Make(kAppOrtho);
    EXPECT_EQ(CMenuPalette::GetPalette()->m_eApp, kAppOrtho);
}

TEST_F(PaletteParts, EventsWithoutAPalette_DoNothing) {
    acDocManager->appContextNewDocument(nullptr);
    EXPECT_EQ(CMenuPalette::GetPalette(), nullptr);
    EXPECT_EQ(g_nDrawingManagerRequests, 0);
}

TEST_F(PaletteParts, MadeAndDestroyed100Times_LeavesNothingBehind) {
    const auto once = [this](int app) {
        m_palette->Make(app);
        CMenuPaletteSet::Destroy();
        windows::PumpWaiting();
    };
    for (int app : {1, 2, 3, 4})
        once(app);
    const windows::HandleCount before = windows::HandleCount::Now();
    for (int i = 0; i < 25; ++i)
        for (int app : {1, 2, 3, 4})
            once(app);
    const windows::HandleCount after = windows::HandleCount::Now();
    EXPECT_LE(after.gdi, before.gdi);
    EXPECT_LE(after.windows, before.windows);
    EXPECT_EQ(test_control::Seen().alive, 0);
    EXPECT_THAT(Subkeys(kHandles + L"202611"), IsEmpty());
}

// --- combos

TEST_F(PaletteParts, Combos_AreFour) {
    CMenuPaletteChildDlg& dialog = m_palette->Make(kAppPid);
    for (int i : {0, 1, 2, 3})
        EXPECT_NE(dialog.GetComboByIndex(i), nullptr) << i;
    for (int i : {-1, 4, 99})
        EXPECT_EQ(dialog.GetComboByIndex(i), nullptr) << i;
}

TEST_F(PaletteParts, List_ReplacesTheItemsWithTheirNumbers) {
    CMenuPaletteChildDlg& dialog = m_palette->Make(kAppPid);
    dialog.SetComboList(0, {L"b", L"a", L"b"}, {5, 6, 7, 8});
    dialog.SetComboList(0, {L"z", L"a", L"z"}, {5, -6, 7, 8});
    CComboBox& combo = *dialog.GetComboByIndex(0);
    EXPECT_THAT(Items(combo), ElementsAre(L"z", L"a", L"z"));
    EXPECT_EQ(static_cast<int>(combo.GetItemData(1)), -6);
    EXPECT_EQ(combo.GetItemData(2), 7u);
}

TEST_F(PaletteParts, ListWithTooFewNumbers_IsARangeError) {
    CMenuPaletteChildDlg& dialog = m_palette->Make(kAppPid);
    EXPECT_ANY_THROW(dialog.SetComboList(0, {L"a", L"b", L"c"}, {5}));
    EXPECT_THAT(Items(*dialog.GetComboByIndex(0)), ElementsAre(L"a", L"b")) << "as far as it came";
    dialog.SetComboList(0, {L"c"}, {1});
    EXPECT_THAT(Items(*dialog.GetComboByIndex(0)), ElementsAre(L"c"));
}

TEST_F(PaletteParts, SelectByData_TakesTheFirstAndElseChangesNothing) {
    CMenuPaletteChildDlg& dialog = m_palette->Make(kAppPid);
    CComboBox& combo = *dialog.GetComboByIndex(0);
    dialog.SetComboList(0, {L"a", L"b", L"c"}, {5, 6, 6});
    dialog.SelectComboByData(0, 6);
    EXPECT_EQ(combo.GetCurSel(), 1);
    dialog.SelectComboByData(0, 99);
    EXPECT_EQ(combo.GetCurSel(), 1);
    dialog.SetComboList(0, {}, {});
    dialog.SelectComboByData(0, 6);
    EXPECT_EQ(combo.GetCurSel(), -1);
    dialog.SelectComboByData(7, 6);
}

TEST_F(PaletteParts, SelectByText_TellsWhere) {
    CMenuPaletteChildDlg& dialog = m_palette->Make(kAppPid);
    dialog.SetComboList(0, {L"Layouts", L"Layout"}, {1, 2});
    EXPECT_EQ(dialog.SelectComboByText(0, L"layout"), 1);
    EXPECT_EQ(dialog.GetComboByIndex(0)->GetCurSel(), 1);
    EXPECT_EQ(dialog.SelectComboByText(0, L"Lay"), -1);
    EXPECT_EQ(dialog.GetComboByIndex(0)->GetCurSel(), 1);
    EXPECT_EQ(dialog.SelectComboByText(9, L"Layout"), -1);
}

// --- the last drawing

TEST_F(PaletteParts, LastDrawingClosed_AsksForTheDrawingManagerOnce) {
    m_palette->Make(kAppPid);
    acDocManager->appContextNewDocument(nullptr);
    acDocManager->appContextCloseDocument(acDocManager->curDocument());
    EXPECT_EQ(g_nDrawingManagerRequests, 0) << "one is left";
    acDocManager->appContextCloseDocument(acDocManager->curDocument());
    EXPECT_EQ(g_nDrawingManagerRequests, 1);
}

TEST_F(PaletteParts, LastDrawingClosed_WithoutAWishForTheManager_AsksNothing) {
    m_palette->Make(kAppPid);
    WriteDisciplineDword(kAppPid, L"DrawingManager", L"ShowWindow", 0);
    acDocManager->appContextCloseDocument(acDocManager->curDocument());
    EXPECT_EQ(g_nDrawingManagerRequests, 0);
}

// --- the registry entry

TEST_F(PaletteParts, Entry_StandsUnderTheMonthAndIsTakenOut) {
    CMenuPaletteChildDlg& dialog = m_palette->Make(kAppPid);
    std::uint32_t handle = 0;
    EXPECT_TRUE(platform::GetRegistry().ReadDword(
        Hive::kCurrentUser, kHandles + L"202611\\" + MainWindowKey(), L"ToolboxMenu", handle));
    EXPECT_EQ(handle, static_cast<std::uint32_t>(reinterpret_cast<UINT_PTR>(dialog.m_hWnd)));
    CMenuPaletteSet::Destroy();
    EXPECT_THAT(Subkeys(kHandles + L"202611"), IsEmpty());
}

TEST_F(PaletteParts, SessionThatCrossesAMonth_LosesItsEntryToTheSweep) {
    m_palette->Make(kAppPid);
    SetNow({2026, 12, 1, 0, 0, 2});
    platform::GetRegistry().WriteDword(Hive::kCurrentUser, kHandles + L"202612\\77", L"ToolboxMenu", 1);
    EXPECT_THAT(Subkeys(kHandles), ElementsAre(L"202611", L"202612"));
    CMenuPaletteSet::Destroy();
    EXPECT_THAT(Subkeys(kHandles), ElementsAre(L"202612"));
    EXPECT_THAT(Subkeys(kHandles + L"202612"), ElementsAre(L"77")) << "another session's";
}

TEST_F(PaletteParts, ClockWithoutAMonth_DoesNotEndTheProgram) {
    m_palette->Make(kAppPid);
    SetNow({1969, 5, 1, 12, 0, 0});
    CMenuPaletteSet::Destroy();
    EXPECT_EQ(CMenuPalette::GetPalette(), nullptr);
    EXPECT_THAT(Subkeys(kHandles), ElementsAre(L"202611"));
}

TEST_F(PaletteParts, SessionOfTheNextYear_SweepsTheOldYear) {
    platform::GetRegistry().WriteDword(Hive::kCurrentUser, kHandles + L"202512\\5", L"ToolboxMenu", 1);
    platform::GetRegistry().WriteDword(Hive::kCurrentUser, kHandles + L"stale", L"ToolboxMenu", 1);
    SetNow({2027, 1, 1, 8, 0, 0});
    m_palette->Make(kAppPid);
    CMenuPaletteSet::Destroy();
    for (const std::wstring& month : Subkeys(kHandles))
        EXPECT_EQ(month, L"202701");
}
