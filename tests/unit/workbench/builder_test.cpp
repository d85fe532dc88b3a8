// Building a database as a reader of files does.
#include <gtest/gtest.h>

#include "database/builder.h"
#include "database/services.h"
#include "drawing_fixture.h"

namespace workbench::test {
namespace {

using namespace database;

class BuilderTest : public testing::Test {
  protected:
    BlockRecordData& ModelSpace() {
        return m_builder.Record<BlockRecordData>(m_builder.Table<BlockTableData>(1), ACDB_MODEL_SPACE, 0x1F);
    }

    AcDbDatabase m_database{false, true};
    Builder m_builder{m_database};
};

TEST_F(BuilderTest, Objects_KeepTheirHandles) {
    auto& line = m_builder.Entity<LineData>(ModelSpace(), 0x50);
    EXPECT_EQ(line.stub->handle, 0x50u);
    m_builder.Finish();
    EXPECT_EQ(m_builder.Data().byHandle.at(0x50), line.stub);
    EXPECT_GT(m_database.handseed().value(), 0x50u);
}

TEST_F(BuilderTest, TakenHandle_GivesAnother_AndBothEntitiesStay) {
    auto& space = ModelSpace();
    auto& first = m_builder.Entity<LineData>(space, 0x50);
    auto& second = m_builder.Entity<LineData>(space, 0x50);
    EXPECT_NE(first.stub->handle, second.stub->handle);
    EXPECT_EQ(space.entities.size(), 2u);
}

TEST_F(BuilderTest, ImpossibleHandle_GivesAnother) {
    auto& line = m_builder.Entity<LineData>(ModelSpace(), ~std::uint64_t{0});
    EXPECT_LT(line.stub->handle, kGreatestHandle);
    m_builder.Finish();
    EXPECT_LT(m_database.handseed().value(), kGreatestHandle);
}

TEST_F(BuilderTest, Reference_BeforeItsObject_IsFilledLater) {
    auto& space = ModelSpace();
    auto& line = m_builder.Entity<LineData>(space, 0x50);
    line.reactors.push_back(m_builder.Reference(0x99));
    auto& dictionary = m_builder.Object<DictionaryData>(0x99, nullptr);
    m_builder.Finish();
    ASSERT_EQ(line.reactors.size(), 1u);
    EXPECT_EQ(line.reactors[0], dictionary.stub);
}

TEST_F(BuilderTest, Finish_CutsReferencesToNothing) {
    auto& line = m_builder.Entity<LineData>(ModelSpace(), 0x50);
    line.reactors.push_back(m_builder.Reference(0x99));
    line.extensionDictionary = m_builder.Reference(0x9A);
    line.layer = m_builder.Reference(0x9B);
    auto& root = m_builder.NamedObjects(0xC);
    Builder::AddEntry(root, L"LOST", m_builder.Reference(0x9C));
    Builder::AddEntry(root, L"KEPT", m_builder.Object<XrecordData>(0x9D, root.stub).stub);
    m_builder.Finish();
    EXPECT_TRUE(line.reactors.empty());
    EXPECT_EQ(line.extensionDictionary, nullptr);
    EXPECT_EQ(line.layer, nullptr);
    EXPECT_FALSE(root.positions.contains(L"LOST"));
    EXPECT_EQ(root.entries.at(root.positions.at(L"KEPT")).name, L"KEPT");
}

TEST_F(BuilderTest, Finish_OnNothing_MakesAWholeDrawing) {
    m_builder.Finish();
    EXPECT_NE(m_builder.Data().ModelSpace(), nullptr);
    EXPECT_FALSE(m_database.layerZero().isNull());
    EXPECT_FALSE(m_builder.Data().modified);
    EXPECT_EQ(OpenObjects(m_database), 0);
    for (const AcDbStub* record : DataAs<TableData>(m_builder.Data().blockTable)->records) {
        const auto* block = DataAs<BlockRecordData>(record);
        EXPECT_NE(block->begin, nullptr);
        EXPECT_NE(block->end, nullptr);
    }
}

TEST_F(BuilderTest, Finish_RegistersTheNamesThatXDataUses) {
    auto& line = m_builder.Entity<LineData>(ModelSpace(), 0x50);
    line.xdata = {{1001, std::wstring(L"SOMEBODY")}, {1070, std::int64_t{1}}};
    m_builder.Finish();
    EXPECT_NE(m_builder.Data().FindRecord(m_builder.Data().regAppTable, L"somebody"), nullptr);
}

TEST_F(BuilderTest, Finish_ClosesSequences) {
    auto& insert = m_builder.Entity<BlockReferenceData>(ModelSpace(), 0x50);
    m_builder.Attribute(insert, 0x51).tag = L"LIN_NUM";
    m_builder.Finish();
    const auto* end = DataAs<ProxyEntityData>(insert.sequenceEnd);
    ASSERT_NE(end, nullptr);
    EXPECT_EQ(end->dxfName, L"SEQEND");
    EXPECT_EQ(end->owner, insert.stub);
}

TEST_F(BuilderTest, RecordsOfOneName_AreBothKept_TheFirstIsFound) {
    auto& table = m_builder.Table<ViewportTableData>(8);
    auto& first = m_builder.Record<ViewportData>(table, L"*Active", 0x30);
    m_builder.Record<ViewportData>(table, L"*Active", 0x31);
    EXPECT_EQ(table.records.size(), 2u);
    EXPECT_EQ(m_builder.Data().FindRecord(table.stub, L"*ACTIVE"), first.stub);
}

TEST_F(BuilderTest, Layer_MissingOne_IsMade_KnownOneIsFound) {
    AcDbStub* made = m_builder.Layer(L"Pipes");
    EXPECT_EQ(m_builder.Layer(L"PIPES"), made);
    EXPECT_EQ(m_builder.Layer(L""), nullptr);
}

TEST_F(BuilderTest, ASecondBuilder_EmptiesTheDatabase) {
    ModelSpace();
    m_builder.Finish();
    Builder again(m_database);
    EXPECT_TRUE(again.Data().stubs.empty());
    EXPECT_TRUE(again.Data().noDocument);
}

TEST_F(BuilderTest, EntryOfATakenName_IsRefused) {
    auto& root = m_builder.NamedObjects(0xC);
    auto& first = m_builder.Object<XrecordData>(0, root.stub);
    auto& second = m_builder.Object<XrecordData>(0, root.stub);
    EXPECT_TRUE(Builder::AddEntry(root, L"A", first.stub));
    EXPECT_FALSE(Builder::AddEntry(root, L"a", second.stub));
    EXPECT_FALSE(Builder::AddEntry(root, L"B", nullptr));
}

}  // namespace
}  // namespace workbench::test
