// Symbol tables and the default drawing.
#include "drawing_fixture.h"

namespace workbench::test {
namespace {

using TablesTest = DrawingTest;

TEST_F(TablesTest, DefaultDrawing_HasWhatEveryDrawingNeeds) {
    AcDbObjectPointer<AcDbBlockTable> blocks(Drawing().blockTableId());
    EXPECT_TRUE(blocks->has(ACDB_MODEL_SPACE));
    EXPECT_TRUE(blocks->has(L"*paper_space"));
    AcDbObjectPointer<AcDbRegAppTable> applications(Drawing().regAppTableId());
    EXPECT_TRUE(applications->has(L"ACAD"));
    blocks.close();
    applications.close();
    EXPECT_FALSE(Drawing().layerZero().isNull());
    EXPECT_FALSE(Drawing().byLayerLinetype().isNull());
    EXPECT_FALSE(Drawing().byBlockLinetype().isNull());
    EXPECT_FALSE(Drawing().continuousLinetype().isNull());
    EXPECT_EQ(Drawing().clayer(), Drawing().layerZero());
    EXPECT_EQ(database::OpenObjects(Drawing()), 0);
    EXPECT_EQ(acdbSetDbmod(&Drawing(), 0), 0);
}

TEST_F(TablesTest, DatabaseWithoutDrawing_HasNoTables) {
    AcDbDatabase empty(false, true);
    AcDbBlockTable* table = nullptr;
    EXPECT_EQ(empty.getBlockTable(table), Acad::eNullObjectId);
    EXPECT_TRUE(empty.currentSpaceId().isNull());
}

TEST_F(TablesTest, ReadDwgFile_OnADrawingThatIsNotEmpty_IsRefused) {
    EXPECT_EQ(Drawing().readDwgFile(L"C:\\a.dwg"), Acad::eInvalidInput);
}

TEST_F(TablesTest, Add_TakenName_IsRefusedInAnyCase) {
    ABlock(L"Pump");
    AcDbObjectPointer<AcDbBlockTable> table(Drawing().blockTableId(), AcDb::kForWrite);
    AcDbBlockTableRecord record;
    ASSERT_EQ(record.setName(L"PUMP"), Acad::eOk);
    EXPECT_EQ(table->add(&record), Acad::eDuplicateKey);
}

TEST_F(TablesTest, Add_OtherKindOfRecord_IsRefused) {
    AcDbObjectPointer<AcDbBlockTable> table(Drawing().blockTableId(), AcDb::kForWrite);
    AcDbLayerTableRecord layer;
    ASSERT_EQ(layer.setName(L"PIPES"), Acad::eOk);
    EXPECT_EQ(table->add(&layer), Acad::eWrongObjectType);
}

TEST_F(TablesTest, Add_ToTableOpenForRead_IsRefused) {
    AcDbObjectPointer<AcDbLayerTable> table(Drawing().layerTableId());
    AcDbLayerTableRecord layer;
    ASSERT_EQ(layer.setName(L"PIPES"), Acad::eOk);
    EXPECT_EQ(table->add(&layer), Acad::eNotOpenForWrite);
}

TEST_F(TablesTest, Add_WithoutName_IsRefused) {
    AcDbObjectPointer<AcDbLayerTable> table(Drawing().layerTableId(), AcDb::kForWrite);
    AcDbLayerTableRecord layer;
    EXPECT_EQ(table->add(&layer), Acad::eInvalidInput);
}

TEST_F(TablesTest, AnonymousBlocks_GetTheNextNumber) {
    AcDbObjectPointer<AcDbBlockTable> table(Drawing().blockTableId(), AcDb::kForWrite);
    for (const wchar_t* expected : {L"*U1", L"*U2"}) {
        auto* record = new AcDbBlockTableRecord;
        ASSERT_EQ(record->setName(L"*U"), Acad::eOk);
        ASSERT_EQ(table->add(record), Acad::eOk);
        const ACHAR* name = nullptr;
        record->getName(name);
        EXPECT_STREQ(name, expected);
        record->close();
    }
}

TEST_F(TablesTest, Names_ThatNoTableTakes_AreRefused) {
    AcDbLayerTableRecord layer;
    for (const wchar_t* name : {L"", L"a<b", L"a|b", L"a:b", L"*", L"a\nb", L"a=b"}) {
        EXPECT_EQ(layer.setName(name), Acad::eInvalidInput);
    }
    EXPECT_EQ(layer.setName(L"KAL-VOR Software - TESSARC"), Acad::eOk);
}

TEST_F(TablesTest, Rename_FreesTheOldName) {
    const AcDbObjectId id = ABlock(L"OLD");
    AcDbObjectPointer<AcDbBlockTableRecord> record(id, AcDb::kForWrite);
    EXPECT_EQ(record->setName(ACDB_MODEL_SPACE), Acad::eDuplicateKey);
    EXPECT_EQ(record->setName(L"NEW"), Acad::eOk);
    EXPECT_EQ(record->setName(L"new"), Acad::eOk);
    AcDbObjectPointer<AcDbBlockTable> table(Drawing().blockTableId());
    EXPECT_FALSE(table->has(L"OLD"));
    EXPECT_TRUE(table->has(L"NEW"));
}

TEST_F(TablesTest, GetAt_ErasedRecord_SaysSo_AndTheNameIsFree) {
    const AcDbObjectId id = ABlock(L"GONE");
    AcDbObjectPointer<AcDbBlockTableRecord>(id, AcDb::kForWrite)->erase();
    AcDbObjectPointer<AcDbBlockTable> table(Drawing().blockTableId());
    AcDbObjectId found;
    EXPECT_EQ(table->getAt(L"GONE", found), Acad::eWasErased);
    EXPECT_TRUE(found.isNull());
    EXPECT_EQ(table->getAt(L"GONE", found, true), Acad::eOk);
    table.close();
    ABlock(L"GONE");
}

TEST_F(TablesTest, GetAt_OpensTheRecord) {
    AcDbObjectPointer<AcDbBlockTable> table(Drawing().blockTableId());
    AcDbBlockTableRecord* record = nullptr;
    ASSERT_EQ(table->getAt(ACDB_MODEL_SPACE, record, AcDb::kForRead), Acad::eOk);
    EXPECT_TRUE(record->isLayout());
    record->close();
    EXPECT_EQ(table->getAt(L"MISSING", record, AcDb::kForRead), Acad::eKeyNotFound);
    EXPECT_EQ(record, nullptr);
}

TEST_F(TablesTest, Iterator_GivesEachRecord) {
    ABlock(L"A");
    AcDbObjectPointer<AcDbBlockTable> table(Drawing().blockTableId());
    AcDbSymbolTableIterator* made = nullptr;
    ASSERT_EQ(table->newIterator(made), Acad::eOk);
    const std::unique_ptr<AcDbSymbolTableIterator> iterator(made);
    std::vector<std::wstring> names;
    for (; !iterator->done(); iterator->step()) {
        AcDbSymbolTableRecord* record = nullptr;
        ASSERT_EQ(iterator->getRecord(record), Acad::eOk);
        const ACHAR* name = nullptr;
        record->getName(name);
        names.push_back(name);
        record->close();
    }
    EXPECT_EQ(names, (std::vector<std::wstring>{ACDB_MODEL_SPACE, ACDB_PAPER_SPACE, L"A"}));
}

TEST_F(TablesTest, Layer_States) {
    AcDbObjectPointer<AcDbLayerTableRecord> layer(Drawing().layerZero(), AcDb::kForWrite);
    EXPECT_EQ(layer->colorIndex(), 7);
    layer->setIsOff(true);
    EXPECT_TRUE(layer->isOff());
    EXPECT_EQ(layer->colorIndex(), 7);
    layer->setColorIndex(3);
    EXPECT_TRUE(layer->isOff());
    layer->setIsOff(false);
    EXPECT_EQ(layer->colorIndex(), 3);
    EXPECT_EQ(layer->setColorIndex(0), Acad::eInvalidInput);
    layer->setIsFrozen(true);
    layer->setIsLocked(true);
    layer->setIsFrozen(false);
    EXPECT_FALSE(layer->isFrozen());
    EXPECT_TRUE(layer->isLocked());
}

TEST_F(TablesTest, SetClayer_TakesLayersOfTheDrawingOnly) {
    EXPECT_EQ(Drawing().setClayer(AcDbObjectId::kNull), Acad::eNullObjectId);
    EXPECT_EQ(Drawing().setClayer(Drawing().blockTableId()), Acad::eWrongObjectType);
    AcDbDatabase other(true, true);
    EXPECT_EQ(Drawing().setClayer(other.layerZero()), Acad::eWrongDatabase);
    EXPECT_EQ(Drawing().setClayer(Drawing().layerZero()), Acad::eOk);
}

TEST_F(TablesTest, WorkingDatabase_EndsWithTheDrawing) {
    ASSERT_EQ(acdbHostApplicationServices()->workingDatabase(), &Drawing());
    m_database.reset();
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), nullptr);
}

}  // namespace
}  // namespace workbench::test
