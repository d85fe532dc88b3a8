// The palette and the current drawing: its lists are those of the drawing's project, its choices those of the
// drawing's record.
#include <gmock/gmock.h>

#include "document/drawing_queries.h"
#include "palette_fixture.h"

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

namespace {

class PaletteDocument : public PaletteTest {
  protected:
    static bool HasFilterRecord() {
        AcDbObjectId id;
        return FindOrCreateXrecord(L"FilteredLineIds", kDocXDataAppName, id, false, nullptr) == Acad::eOk;
    }
};

}  // namespace

TEST_F(PaletteDocument, FlowDiagram_ListsItsProjectsSpecsSizesAndLines) {
    UseUsualDatabase();
    StartPalette(kAppPid);
    NewDrawing(5);
    const PaletteWindow palette = Palette();
    EXPECT_THAT(palette.Items(kSpecRow), ElementsAre(L"CS150", L"SS300"));
    EXPECT_THAT(palette.Data(kSpecRow), ElementsAre(3, 7));
    EXPECT_THAT(palette.Items(kMainSizeRow), SizeIs(16));
    EXPECT_EQ(palette.Data(kMainSizeRow)[15], 15);
    EXPECT_THAT(palette.Items(kPidLineRow), ElementsAre(L"P-11", L"P-12", L"P-13"));
    EXPECT_THAT(palette.Data(kPidLineRow), ElementsAre(11, 12, 13));
    EXPECT_THAT(palette.Items(kLineRow), IsEmpty());
}

TEST_F(PaletteDocument, IsometricAndPlan_ListSizesTwice) {
    UseUsualDatabase();
    for (int app : {kAppIsometric, kAppOrtho}) {
        StartPalette(app);
        NewDrawing(5);
        const PaletteWindow palette = Palette();
        EXPECT_THAT(palette.Items(kMainSizeRow), SizeIs(16));
        EXPECT_EQ(palette.Items(kBranchSizeRow), palette.Items(kMainSizeRow));
        EXPECT_THAT(palette.Items(kLineRow), ElementsAre(L"P-11", L"P-12", L"P-13"));
        End();
    }
}

TEST_F(PaletteDocument, DisplayedUnits_ChooseTheSizes) {
    UseUsualDatabase();
    m_database.WithGeneral(6, "Units", "Displayed = 0");
    StartPalette(kAppPid);
    NewDrawing(5);
    EXPECT_EQ(Palette().Items(kMainSizeRow)[0], L"1 I");
    NewDrawing(6);
    EXPECT_EQ(Palette().Items(kMainSizeRow)[0], L"1 M");
}

TEST_F(PaletteDocument, LinesInUse_ComeFirst_EachPartInItsOrder) {
    UseUsualDatabase();
    m_database.WithLine(5, 15, "P-15");
    StartPalette(kAppPid);
    NewDrawing(5);
    AddElement(15);
    AddElement(12, L"pip_blk");
    AddElement(12);
    AddElement(11, L"TAGLINE");
    Refill();
    EXPECT_THAT(Palette().Items(kPidLineRow), ElementsAre(L"P-12", L"P-15", L"P-11", L"P-13"));
    EXPECT_THAT(Palette().Data(kPidLineRow), ElementsAre(12, 15, 11, 13));
}

TEST_F(PaletteDocument, FilteredLine_IsNotOffered_AlsoIfItIsInUse) {
    UseUsualDatabase();
    StartPalette(kAppPid);
    NewDrawing(5);
    AddElement(13);
    FilterLines({13, 99, 11});
    Refill();
    EXPECT_THAT(Palette().Items(kPidLineRow), ElementsAre(L"P-12"));
}

TEST_F(PaletteDocument, FilterRecord_IsMadeEmptyByTheFirstLook) {
    UseUsualDatabase();
    StartPalette(kAppOrtho);
    NewDrawing(0);
    EXPECT_FALSE(HasFilterRecord());
    NewDrawing(5);
    EXPECT_TRUE(HasFilterRecord());
    EXPECT_THAT(Palette().Items(kLineRow), SizeIs(3));
}

TEST_F(PaletteDocument, ProjectWithoutLinesAndSpecs_HasEmptyRows) {
    UseUsualDatabase();
    StartPalette(kAppPid);
    NewDrawing(5);
    NewDrawing(6);
    EXPECT_THAT(Palette().Items(kPidLineRow), IsEmpty());
    EXPECT_EQ(Palette().ChosenIndex(kPidLineRow), -1);
    EXPECT_THAT(Palette().Items(kSpecRow), IsEmpty());
    EXPECT_THAT(Palette().Items(kMainSizeRow), SizeIs(16));
}

TEST_F(PaletteDocument, PathThatNamesAProject_TiesTheDrawingToIt) {
    UseUsualDatabase();
    StartPalette(kAppPid);
    const std::wstring path = InRoot(L"kv2d_prj_5 drawings\\a.dwg");
    PutDrawing(path);
    Open(path);
    EXPECT_EQ(Stored(&CKV2D_DocXData::m_projectId), 5);
    EXPECT_TRUE(Palette().Enabled(IDC_PALETTE_COMBO_1));
    EXPECT_THAT(Palette().Items(kPidLineRow), SizeIs(3));
}

TEST_F(PaletteDocument, DrawingWithAProject_KeepsItWhateverItsPath) {
    UseUsualDatabase();
    StartPalette(kAppPid);
    const std::wstring path = InRoot(L"KV2D_PRJ_6\\a.dwg");
    PutDrawing(path, [this](AcDbDatabase&) { Store([](CKV2D_DocXData& data) { data.m_projectId = 5; }); });
    Open(path);
    EXPECT_EQ(Stored(&CKV2D_DocXData::m_projectId), 5);
    EXPECT_THAT(Palette().Items(kPidLineRow), SizeIs(3));
}

TEST_F(PaletteDocument, DrawingWithoutAProject_LeavesTheListsAsTheyWere) {
    UseUsualDatabase();
    StartPalette(kAppPid);
    NewDrawing(5);
    Choose(kSpecRow, L"SS300");
    NewDrawing(0);
    EXPECT_FALSE(Palette().Enabled(IDC_PALETTE_COMBO_1));
    EXPECT_THAT(Palette().Items(kSpecRow), ElementsAre(L"CS150", L"SS300"));
    EXPECT_EQ(Palette().Choice(kSpecRow), L"SS300");
    EXPECT_EQ(Stored(&CKV2D_DocXData::m_projectId), 0);
}

TEST_F(PaletteDocument, ChangeOfDrawing_ShowsEachDrawingsOwnChoices) {
    UseUsualDatabase();
    StartPalette(kAppIsometric);
    AcApDocument* first = NewDrawing(5);
    Choose(kSpecRow, L"SS300");
    ChooseIndex(kMainSizeRow, 4);
    ChooseIndex(kBranchSizeRow, 2);
    Choose(kLineRow, L"P-13");
    AcApDocument* second = NewDrawing(5);
    EXPECT_EQ(Palette().ChosenIndex(kMainSizeRow), 12) << "a new record's main size";
    EXPECT_EQ(Palette().ChosenIndex(kBranchSizeRow), 10);
    Choose(kSpecRow, L"CS150");
    ChooseIndex(kMainSizeRow, 7);
    Activate(first);
    EXPECT_EQ(Palette().Choice(kSpecRow), L"SS300");
    EXPECT_EQ(Palette().ChosenIndex(kMainSizeRow), 4);
    EXPECT_EQ(Palette().ChosenIndex(kBranchSizeRow), 2);
    EXPECT_EQ(Palette().Choice(kLineRow), L"P-13");
    Activate(second);
    EXPECT_EQ(Palette().Choice(kSpecRow), L"CS150");
    EXPECT_EQ(Palette().ChosenIndex(kMainSizeRow), 7);
}

TEST_F(PaletteDocument, Choices_SurviveInTheSavedDrawing) {
    UseUsualDatabase();
    StartPalette(kAppPid);
    const std::wstring path = InRoot(L"KV2D_PRJ_5\\a.dwg");
    PutDrawing(path);
    Open(path);
    Choose(kPidLineRow, L"P-12");
    Enter(L"QSAVE");
    acDocManager->appContextCloseDocument(acDocManager->curDocument());
    NewDrawing(6);
    Open(path);
    EXPECT_EQ(Palette().Choice(kPidLineRow), L"P-12");
}

TEST_F(PaletteDocument, LocalLines_AreTheDrawingsOwn) {
    UseUsualDatabase();
    m_database.WithLocalLines(6, InRoot(L"Local"));
    StartPalette(kAppPid);
    const std::wstring path = InRoot(L"KV2D_PRJ_6\\Plant.dwg");
    PutDrawing(path, [this](AcDbDatabase& database) {
        Store([](CKV2D_DocXData& data) { data.m_appId = kAppPid; });
        TestDrawing(database).AddReference(L"TAGLINE", {{L"LIN_NUM", L"L-77"}});
    });
    Open(path);
    EXPECT_THAT(Palette().Items(kPidLineRow), Contains(L"L-77"));
    EXPECT_THAT(Palette().Items(kPidLineRow), Not(Contains(L"P-11")));
    EXPECT_TRUE(HasFile(InRoot(L"Local\\PID_6_Plantline.ini")));
}

TEST_F(PaletteDocument, LocalLines_AreOfferedAlsoIfTheyAreDeleted) {
    UseUsualDatabase();
    m_database.WithLocalLines(6, InRoot(L"Local"));
    PutFile(InRoot(L"Local\\PID_6_Plantline.ini"),
            Lines({"[LineList]", "KV2D_LINE_1 = L-1", "", "[DeletedLines]", "KV2D_LINE_2 = L-2"}));
    StartPalette(kAppPid);
    const std::wstring path = InRoot(L"KV2D_PRJ_6\\Plant.dwg");
    PutDrawing(path, [this](AcDbDatabase&) { Store([](CKV2D_DocXData& data) { data.m_appId = kAppPid; }); });
    Open(path);
    EXPECT_THAT(Palette().Items(kPidLineRow), ElementsAre(L"L-1", L"L-2"));
}

TEST_F(PaletteDocument, LinesAreCached_UntilTheyAreReloaded) {
    UseUsualDatabase();
    StartPalette(kAppPid);
    AcApDocument* first = NewDrawing(5);
    NewDrawing(5);
    m_database.WithLine(5, 16, "P-16");
    Activate(first);
    EXPECT_THAT(Palette().Items(kPidLineRow), SizeIs(3));
    SendMessageW(Palette().Dialog(), 1924, 3, 5);
    EXPECT_THAT(Palette().Items(kPidLineRow), Contains(L"P-16"));
}

TEST_F(PaletteDocument, Electric_ReadsNeitherSizesNorLines) {
    UseUsualDatabase();
    StartPalette(kAppElectric);
    NewDrawing(5);
    EXPECT_TRUE(Palette().Enabled(IDC_PALETTE_COMBO_1));
    EXPECT_THAT(Palette().Items(0), ElementsAre(L"Layout", L"Schematic"));
    for (int row : {1, 2, 3})
        EXPECT_THAT(Palette().Items(row), IsEmpty()) << row;
    EXPECT_FALSE(HasFilterRecord());
}

TEST_F(PaletteDocument, LastDrawingClosed_DisablesThePalette) {
    UseUsualDatabase();
    StartPalette(kAppPid);
    NewDrawing(5);
    CloseAllDrawings();
    EXPECT_FALSE(Palette().Enabled(IDC_PALETTE_COMBO_1));
    EXPECT_THAT(Palette().Items(kSpecRow), SizeIs(2));
}

TEST_F(PaletteDocument, ManyLinesAndSpecs_AllAppear) {
    UseUsualDatabase();
    std::string lines = "[LineList]\r\n";
    for (int i = 1; i <= 3000; ++i)
        lines += "KV2D_LINE_" + std::to_string(i) + " = L-" + std::to_string(100000 + i) + "\r\n";
    PutFile(m_database.GetProjectFolder(6) + L"Lines.ini", lines);
    StartPalette(kAppPid);
    NewDrawing(6);
    AddElement(2999);
    Refill();
    const std::vector<int> data = Palette().Data(kPidLineRow);
    ASSERT_THAT(data, SizeIs(3000));
    EXPECT_EQ(data[0], 2999);
    EXPECT_EQ(data[1], 1);
    EXPECT_EQ(data[2999], 3000);
}
