// What the Drawing Manager tells its thumbnail control. The control is one of the test program.
#include <gmock/gmock.h>

#include "dm_fixture.h"
#include "drawing_manager/manager_registry.h"
#include "resources/resource.h"
#include "test_control.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr CLSID kThumbnailClass = {
    0xB4FD4FC6, 0x4EBA, 0x4D06, {0x82, 0x44, 0xBB, 0x09, 0xA9, 0x40, 0xC6, 0x0A}};

class DrawingManagerThumbnail : public DrawingManagerTest {
  protected:
    DrawingManagerThumbnail() : m_registration(kThumbnailClass) { test_control::Seen().takesAll = true; }
    static std::vector<std::wstring> TakePuts() { return std::exchange(test_control::Seen().puts, {}); }
    // The three properties that show a drawing.
    static std::vector<std::wstring> Showing(const std::wstring& path) {
        return {L"0 " + path, L"-501 12632256", L"1 0"};
    }

    test_control::Registration m_registration;
};

}  // namespace

TEST_F(DrawingManagerThumbnail, SelectedDrawing_IsShownOnGrey) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg", L"50%s.DWG", L"C.BAK"});
    SetValue(kBackupStateValue, 8);
    Run([&](ManagerDriver& driver) {
        EXPECT_THAT(TakePuts(), ElementsAre(L"0 ", L"0 ")) << "listed twice at first, nothing is selected";
        driver.SelectRows({L"A"});
        EXPECT_EQ(TakePuts(), Showing(InDrawings(L"A.dwg")));
        driver.SelectRows({L"50%s"});
        EXPECT_EQ(TakePuts(), Showing(InDrawings(L"50%s.dwg")));
        driver.SelectRows({L"C.bak"});
        EXPECT_EQ(TakePuts(), Showing(InDrawings(L"C.bak")));
    });
}

TEST_F(DrawingManagerThumbnail, OfSeveralSelectedDrawings_ShowsTheFirst) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg", L"B.dwg"});
    Run([&](ManagerDriver& driver) {
        driver.SelectRows({L"A"});
        TakePuts();
        driver.SelectRows({L"B", L"A"});
        const std::vector<std::wstring> puts = TakePuts();
        ASSERT_EQ(puts.size(), 6u);
        EXPECT_EQ(puts[0], L"0 " + InDrawings(L"B.dwg"));
        EXPECT_EQ(puts[3], L"0 " + InDrawings(L"A.dwg"));
    });
}

TEST_F(DrawingManagerThumbnail, ClickOnTheSelectedRow_ShowsItAnew) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg"});
    Run([&](ManagerDriver& driver) {
        driver.SelectRows({L"A"});
        TakePuts();
        NMITEMACTIVATE click{};
        click.hdr = {driver.List(), IDC_DRAWING_LIST, NM_CLICK};
        SendMessageW(driver.Dialog(), WM_NOTIFY, IDC_DRAWING_LIST, reinterpret_cast<LPARAM>(&click));
        EXPECT_EQ(TakePuts(), Showing(InDrawings(L"A.dwg")));
    });
}

TEST_F(DrawingManagerThumbnail, RefreshWithoutASelection_ShowsNothing) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg"});
    Run([&](ManagerDriver& driver) {
        driver.SelectRows({L"A"});
        SetValue(kSelectedDrawingValue, std::wstring(L"Gone"));
        TakePuts();
        driver.Command(ID_DRAWINGS_REFRESHLIST);
        EXPECT_THAT(TakePuts(), ElementsAre(L"0 "));
    });
}

TEST_F(DrawingManagerThumbnail, SelectedClient_LeavesThePictureAsItIs) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg"});
    Run([&](ManagerDriver& driver) {
        driver.SelectRows({L"A"});
        TakePuts();
        driver.SelectItem({L"Acme"});
        EXPECT_THAT(TakePuts(), IsEmpty());
    });
}

TEST_F(DrawingManagerThumbnail, Control_GoesWithTheDialog) {
    UseUsualDatabase();
    Run([](ManagerDriver& driver) {
        EXPECT_EQ(test_control::Seen().alive, 1);
        EXPECT_TRUE(IsChild(driver.Dialog(), test_control::Seen().window));
    });
    EXPECT_EQ(test_control::Seen().alive, 0);
}
