#include "palette/tooltip_text.h"

#include "storage/applications.h"
#include "storage/registry_settings.h"
#include "support/test_platform.h"

class TooltipTest : public SystemTest {
  protected:
    TooltipTest() {
        UseDatabase();
        PutFile(InData(L"ClientDatafile.ini"),
                Lines({"[ClientList]", "KV2D_CLIENT_1 = Acme", "", "[ProjectList - 1]", "5 = x"}));
        PutFile(InData(L"ProjectDatafile.ini"),
                Lines({"[ProjectList]", "KV2D_PRJ_5 = Pump house", "KV2D_PRJ_6 = Loose"}));
    }
    void StoreDefault(std::uint32_t project) {
        WriteDisciplineDword(kAppPid, L"DrawingManager", L"ProjectId", project);
    }
};

TEST_F(TooltipTest, DrawingOfAProject_NamesClientAndStandard) {
    StoreDefault(6);
    EXPECT_EQ(GetDrawingManagerTip(5, kAppPid), L"Current: Acme \\ Pump house");
}

TEST_F(TooltipTest, ProjectWithoutClient_IsNamedAlone) {
    EXPECT_EQ(GetDrawingManagerTip(6, kAppPid), L"Current: Loose");
}

TEST_F(TooltipTest, DrawingWithoutProject_NamesTheStoredDefault) {
    StoreDefault(5);
    EXPECT_EQ(GetDrawingManagerTip(0, kAppPid), L"Default: Acme \\ Pump house");
    EXPECT_EQ(GetDrawingManagerTip(99, kAppPid), L"Default: Acme \\ Pump house")
        << "an unknown project counts as none";
    EXPECT_EQ(GetDrawingManagerTip(0, kAppOrtho), L"Use the Drawing Manager to open a drawing");
}

TEST_F(TooltipTest, DefaultOfAnUnknownProject_IsAnEmptyName) {
    StoreDefault(77);
    EXPECT_EQ(GetDrawingManagerTip(0, kAppPid), L"Default: ");
}

TEST_F(TooltipTest, NothingKnown_TellsWhatTheButtonIsFor) {
    EXPECT_EQ(GetDrawingManagerTip(0, kAppPid), L"Use the Drawing Manager to open a drawing");
    StoreDefault(0xFFFFFFFB);
    EXPECT_EQ(GetDrawingManagerTip(0, kAppPid), L"Use the Drawing Manager to open a drawing")
        << "-5 is below 1";
}
