#include "drawing_file/drawing_writer.h"

#include <gmock/gmock.h>

#include "dbobjptr.h"
#include "drawing_file/angles.h"
#include "drawing_text.h"

namespace workbench::test {
namespace {

using namespace workbench::database;
using testing::HasSubstr;
using testing::Not;

// A drawing filled with a builder.
class DrawingToWrite : public testing::Test {
  protected:
    DrawingToWrite() : m_database(false, true), m_builder(m_database) {}

    BlockRecordData& Block(const wchar_t* name) {
        if (AcDbStub* found = m_builder.FindBlock(name)) return *DataAs<BlockRecordData>(found);
        return m_builder.Record<BlockRecordData>(m_builder.Table<BlockTableData>(0), name, 0);
    }
    BlockRecordData& Space() { return Block(ACDB_MODEL_SPACE); }

    TextData& AText(const std::wstring& words) {
        auto& text = m_builder.Entity<TextData>(Space(), 0);
        text.text = words;
        return text;
    }

    std::string Written() {
        m_builder.Finish();
        return drawing_file::WriteDrawing(m_database);
    }
    // What is read from what is written.
    Read Again() {
        Read drawing(Written());
        EXPECT_TRUE(drawing.IsRead()) << std::string(drawing.Error().begin(), drawing.Error().end());
        return drawing;
    }

    AcDbDatabase m_database;
    Builder m_builder;
};

TEST_F(DrawingToWrite, EmptyDrawing_IsARelease2000File) {
    const std::string written = Written();
    EXPECT_THAT(written, HasSubstr("  9\r\n$ACADVER\r\n  1\r\nAC1015\r\n"));
    EXPECT_THAT(written, HasSubstr("  9\r\n$DWGCODEPAGE\r\n  3\r\nANSI_1252\r\n"));
    EXPECT_THAT(written, testing::EndsWith("  0\r\nENDSEC\r\n  0\r\nEOF\r\n"));
    EXPECT_TRUE(Read(written).IsRead());
}

TEST_F(DrawingToWrite, LaterRelease_IsKept) {
    for (const char* version : {"AC1018", "AC1021", "AC1024", "AC1027", "AC1032"}) {
        EXPECT_THAT(Read(File(Header(version))).Written(),
                    HasSubstr(std::string("$ACADVER\r\n  1\r\n") + version));
    }
    for (const char* version : {"AC1006", "AC1009", "AC1012", "AC1014"}) {
        EXPECT_THAT(Read(File(Header(version))).Written(), HasSubstr("$ACADVER\r\n  1\r\nAC1015"));
    }
}

TEST_F(DrawingToWrite, HandleSeed_IsAboveEveryHandle) {
    m_builder.Entity<PointData>(Space(), 0xABCDE);
    EXPECT_THAT(Written(), HasSubstr("$HANDSEED\r\n  5\r\n"));
    Read again = Again();
    EXPECT_GT(again.Data().nextHandle, 0xABCDEu);
}

TEST_F(DrawingToWrite, AnyText_ComesBack) {
    const std::wstring words = L"6\"-CW \u00D8 \u20AC \u043F \u4E2D \U0001F600 ^J ^ \\U+00D8 a\nb\tc  ";
    AText(words);
    EXPECT_EQ(Again().Entity<TextData>().text, words);
    EXPECT_THAT(Written(), HasSubstr("\xD8 \x80 \\U+043F \\U+4E2D \\U+D83D\\U+DE00"));
}

TEST_F(DrawingToWrite, AnyText_ComesBackFromRelease2007) {
    const std::wstring words = L"\u00D8 \u20AC \u4E2D \U0001F600 ^ \\U+00D8\n";
    Read drawing(File(Header("AC1021")));
    auto& data = drawing.Data();
    data.header.push_back({L"$PROJECTNAME", {{1, words}}});
    const std::string written = drawing.Written();
    EXPECT_THAT(written,
                HasSubstr("\xC3\x98 \xE2\x82\xAC \xE4\xB8\xAD \xF0\x9F\x98\x80 ^  \\U+005CU+00D8^J"));
    Read again(written);
    EXPECT_EQ(again.Data().FindHeader(L"$PROJECTNAME")->groups[0].text, words);
}

TEST_F(DrawingToWrite, LongParagraphText_IsWrittenInPiecesAndComesBack) {
    std::wstring words;
    for (int i = 0; i < 3000; ++i)
        words += i % 7 == 0 ? L'\u4E2D' : L'x';
    m_builder.Entity<MTextData>(Space(), 0).text = words;
    const std::string written = Written();
    std::size_t longest = 0;
    for (std::size_t start = 0; start < written.size();) {
        const auto end = written.find('\n', start);
        longest = std::max(longest, end - start);
        start = end + 1;
    }
    EXPECT_LT(longest, 2049u);
    EXPECT_EQ(Again().Entity<MTextData>().text, words);
}

TEST_F(DrawingToWrite, Numbers_ComeBackExactly) {
    auto& line = m_builder.Entity<LineData>(Space(), 0);
    line.start = {0.1, 1.0 / 3, 1e-300};
    line.end = {1e300, -0.0, 123456789.123456789};
    Read again = Again();
    EXPECT_EQ(again.Entity<LineData>().start, line.start);
    EXPECT_EQ(again.Entity<LineData>().end, line.end);
}

TEST_F(DrawingToWrite, WhatNoFileCanHold_IsWrittenAsZero) {
    auto& line = m_builder.Entity<LineData>(Space(), 0);
    line.start = {HUGE_VAL, std::nan(""), 1};
    EXPECT_EQ(Again().Entity<LineData>().start, AcGePoint3d(0, 0, 1));
}

TEST_F(DrawingToWrite, EveryKindOfEntity_ComesBack) {
    auto& block = Block(L"VAL_BLK");
    auto& circle = m_builder.Entity<CircleData>(Space(), 0);
    circle.center = {1, 2, 3};
    circle.radius = 4.5;
    circle.normal = {0, 0, -1};
    circle.thickness = 2;
    circle.color = 1;
    circle.lineweight = 25;
    circle.invisible = true;
    circle.linetypeScale = 0.5;
    circle.linetype = m_builder.Linetype(L"DASHED");
    auto& arc = m_builder.Entity<ArcData>(Space(), 0);
    arc.startAngle = 0.5;
    arc.endAngle = 4;
    auto& ellipse = m_builder.Entity<EllipseData>(Space(), 0);
    ellipse.ratio = 0.25;
    ellipse.endParam = 3;
    auto& trace = m_builder.Entity<SolidData>(Space(), 0);
    trace.isTrace = true;
    trace.corners[2] = {1, 1, 0};
    auto& polyline = m_builder.Entity<HeavyPolylineData>(Space(), 0);
    polyline.flags = 8;
    polyline.elevation = 3;
    auto& vertex = m_builder.Vertex(polyline, 0);
    vertex.flags = 32;
    vertex.position = {7, 8, 9};
    auto& reference = m_builder.Entity<MInsertData>(Space(), 0);
    reference.block = block.stub;
    reference.columns = 4;
    reference.rowSpacing = 2;
    auto& definition = m_builder.Entity<AttributeDefinitionData>(block, 0);
    definition.tag = L"LIN_NUM";
    definition.prompt = L"Line number";
    definition.horizontal = 1;
    definition.vertical = 2;
    definition.alignmentPoint = {3, 4, 0};
    definition.generation = 2;

    Read again = Again();
    const auto& circle2 = again.Entity<CircleData>(0);
    EXPECT_EQ(circle2.center, circle.center);
    EXPECT_EQ(circle2.normal, circle.normal);
    EXPECT_EQ(circle2.thickness, 2);
    EXPECT_EQ(circle2.lineweight, 25);
    EXPECT_TRUE(circle2.invisible);
    EXPECT_EQ(circle2.linetypeScale, 0.5);
    EXPECT_EQ(DataAs<RecordData>(circle2.linetype)->name, L"DASHED");
    EXPECT_DOUBLE_EQ(again.Entity<ArcData>(1).endAngle, 4);
    EXPECT_EQ(again.Entity<EllipseData>(2).endParam, 3);
    EXPECT_TRUE(again.Entity<SolidData>(3).isTrace);
    EXPECT_EQ(again.Entity<SolidData>(3).corners[2], AcGePoint3d(1, 1, 0));
    const auto& polyline2 = again.Entity<HeavyPolylineData>(4);
    EXPECT_EQ(polyline2.elevation, 3);
    ASSERT_EQ(polyline2.vertices.size(), 1u);
    EXPECT_EQ(DataAs<VertexData>(polyline2.vertices[0])->position, AcGePoint3d(7, 8, 9));
    EXPECT_EQ(again.Entity<MInsertData>(5).columns, 4);
    const auto* definition2 = DataAs<AttributeDefinitionData>(again.Block(L"VAL_BLK").entities[0]);
    ASSERT_NE(definition2, nullptr);
    EXPECT_EQ(definition2->prompt, L"Line number");
    EXPECT_EQ(definition2->vertical, 2);
    EXPECT_EQ(definition2->generation, 2);
    EXPECT_EQ(definition2->alignmentPoint, AcGePoint3d(3, 4, 0));
}

TEST_F(DrawingToWrite, AlignmentPointOfPlainText_ComesBack) {
    AText(L"x").alignmentPoint = {5, 6, 7};
    EXPECT_EQ(Again().Entity<TextData>().alignmentPoint, AcGePoint3d(5, 6, 7));
}

TEST_F(DrawingToWrite, ErasedThings_AreLeftOut) {
    auto& block = Block(L"VAL_BLK");
    auto& reference = m_builder.Entity<BlockReferenceData>(Space(), 0);
    reference.block = block.stub;
    auto& gone = m_builder.Attribute(reference, 0);
    gone.tag = L"GONE";
    m_builder.Attribute(reference, 0).tag = L"KEPT";
    AText(L"erased text").stub->erased = true;
    auto& onErasedLayer = AText(L"on an erased layer");
    onErasedLayer.layer = m_builder.Layer(L"OLD");
    onErasedLayer.layer->erased = true;
    gone.stub->erased = true;
    const std::string written = Written();
    EXPECT_THAT(written, Not(HasSubstr("GONE")));
    EXPECT_THAT(written, Not(HasSubstr("erased text")));
    EXPECT_THAT(written, Not(HasSubstr("OLD")));
    Read again = Again();
    EXPECT_EQ(again.Entity<BlockReferenceData>().attributes.size(), 1u);
    EXPECT_EQ(again.Entity<TextData>(1).text, L"on an erased layer");
}

TEST_F(DrawingToWrite, ErasedNameOfAnApplication_IsLeftOutUnlessItsDataIsStillThere) {
    const auto apply = [&](const wchar_t* name) {
        return m_builder.Record<RegAppData>(m_builder.Table<RegAppTableData>(0), name, 0).stub;
    };
    AcDbStub* used = apply(L"Used");
    AcDbStub* unused = apply(L"UNUSED");
    auto& text = AText(L"x");
    text.xdata = {{1001, L"USED"}, {1070, std::int64_t{1}}};
    m_builder.Finish();
    used->erased = unused->erased = true;
    const std::string written = drawing_file::WriteDrawing(m_database);
    EXPECT_THAT(written, HasSubstr("AcDbRegAppTableRecord\r\n  2\r\nUsed\r\n"));
    EXPECT_THAT(written, Not(HasSubstr("UNUSED")));
    text.stub->erased = true;
    EXPECT_THAT(drawing_file::WriteDrawing(m_database), Not(HasSubstr("Used")));
}

TEST_F(DrawingToWrite, ReferenceWhoseAttributesAreAllErased_HasNoSequence) {
    auto& reference = m_builder.Entity<BlockReferenceData>(Space(), 0);
    reference.block = Block(L"VAL_BLK").stub;
    m_builder.Attribute(reference, 0).stub->erased = true;
    EXPECT_THAT(Written(), Not(HasSubstr("SEQEND")));
    EXPECT_EQ(Again().Block(ACDB_MODEL_SPACE).entities.size(), 1u);
}

TEST_F(DrawingToWrite, ReferenceToErasedBlock_IsLeftOut) {
    auto& block = Block(L"VAL_BLK");
    m_builder.Entity<BlockReferenceData>(Space(), 0).block = block.stub;
    AText(L"stays");
    block.stub->erased = true;
    EXPECT_EQ(Again().Entity<TextData>(0).text, L"stays");
}

TEST_F(DrawingToWrite, LinksBetweenObjects_ComeBack) {
    auto& text = AText(L"x");
    auto& own = m_builder.Object<DictionaryData>(0, text.stub);
    text.extensionDictionary = own.stub;
    auto& record = m_builder.Object<XrecordData>(0, own.stub);
    record.items = {{90, std::int64_t{7}},
                    {40, 0.5},
                    {290, std::int64_t{1}},
                    {310, Bytes{1, 255}},
                    {10, AcGePoint3d(1, 2, 3)}};
    record.reactors.push_back(text.stub);
    Builder::AddEntry(own, L"Data", record.stub);
    const std::uint64_t handle = record.stub->handle;
    Read again = Again();
    const auto* own2 = DataAs<DictionaryData>(again.Entity<TextData>().extensionDictionary);
    ASSERT_NE(own2, nullptr);
    EXPECT_EQ(own2->entries[0].stub->handle, handle);
    EXPECT_EQ(again.Object<XrecordData>(handle).items, record.items);
    ASSERT_EQ(again.Object<XrecordData>(handle).reactors.size(), 1u);
}

TEST_F(DrawingToWrite, XdataOfTablesRecordsAndEntities_ComesBack) {
    const DataItems data = {{1001, L"OURS"},
                            {1002, L"{"},
                            {1000, L"\u00E4\u4E2D"},
                            {1004, Bytes{1, 2}},
                            {1005, std::int64_t{255}},
                            {1010, AcGePoint3d(1, 2, 3)},
                            {1002, L"}"},
                            {1040, 0.1},
                            {1070, std::int64_t{-1}},
                            {1071, std::int64_t{-70000}}};
    Space().xdata = data;
    DataAs<LayerData>(m_builder.Layer(L"PIPES"))->xdata = data;
    DataAs<TableData>(m_builder.Table<LayerTableData>(0).stub)->xdata = data;
    AText(L"x").xdata = data;
    Read again = Again();
    EXPECT_EQ(again.Block(ACDB_MODEL_SPACE).xdata, data);
    EXPECT_EQ(again.Entity<TextData>().xdata, data);
    EXPECT_EQ(DataOf(*again.Data().FindRecord(again.Data().layerTable, L"PIPES")).xdata, data);
    EXPECT_EQ(DataOf(*again.Data().layerTable).xdata, data);
}

TEST_F(DrawingToWrite, TableRecords_ComeBack) {
    auto* layer = DataAs<LayerData>(m_builder.Layer(L"PIPES"));
    layer->color = -3;
    layer->flags = 4;
    layer->plottable = false;
    layer->lineweight = 50;
    layer->linetype = m_builder.Linetype(L"DASHED");
    auto* linetype = DataAs<LinetypeData>(layer->linetype);
    linetype->dashes = {2.5, -1.25, 0};
    linetype->patternLength = 3.75;
    linetype->description = L"_ _ .";
    auto* style = DataAs<TextStyleData>(m_builder.TextStyle(L"ROMANS"));
    style->font = L"romans.shx";
    style->oblique = 0.25;
    style->widthFactor = 0.8;
    auto& viewport = m_builder.Record<ViewportData>(m_builder.Table<ViewportTableData>(0), L"*Active", 0);
    viewport.snapStyle = 1;
    viewport.snapPair = 2;
    DataOf(m_database).currentLayer = layer->stub;
    Read again = Again();
    const auto* layer2 = DataAs<LayerData>(again.Data().FindRecord(again.Data().layerTable, L"PIPES"));
    EXPECT_EQ(layer2->color, -3);
    EXPECT_EQ(layer2->flags, 4);
    EXPECT_FALSE(layer2->plottable);
    EXPECT_EQ(layer2->lineweight, 50);
    EXPECT_EQ(again.Data().currentLayer, layer2->stub);
    const auto* linetype2 = DataAs<LinetypeData>(layer2->linetype);
    EXPECT_EQ(linetype2->dashes, linetype->dashes);
    EXPECT_EQ(linetype2->patternLength, 3.75);
    const auto* style2 =
        DataAs<TextStyleData>(again.Data().FindRecord(again.Data().textStyleTable, L"ROMANS"));
    EXPECT_EQ(style2->font, L"romans.shx");
    EXPECT_DOUBLE_EQ(style2->oblique, 0.25);
    const auto* viewports = DataAs<TableData>(again.Data().viewportTable);
    EXPECT_EQ(DataAs<ViewportData>(viewports->records[0])->snapPair, 2);
}

TEST_F(DrawingToWrite, BlockWithPathAndDescription_ComesBack) {
    auto& block = Block(L"OTHER");
    block.flags = 4;
    block.path = L"C:\\Other\\Drawing.dwg";
    block.description = L"An outside drawing";
    block.origin = {1, 2, 3};
    Read again = Again();
    EXPECT_EQ(again.Block(L"OTHER").path, block.path);
    EXPECT_EQ(again.Block(L"OTHER").description, block.description);
    EXPECT_EQ(again.Block(L"OTHER").flags, 4);
    EXPECT_EQ(again.Block(L"OTHER").origin, block.origin);
}

TEST_F(DrawingToWrite, WritingWhatWasRead_GivesTheSameBytes) {
    auto& reference = m_builder.Entity<BlockReferenceData>(Space(), 0);
    reference.block = Block(L"VAL_BLK").stub;
    reference.rotation = 0.7;
    m_builder.Attribute(reference, 0).tag = L"LIN_NUM";
    m_builder.Entity<HeavyPolylineData>(Space(), 0);
    const std::string first = Written();
    const std::string second = Read(first).Written();
    EXPECT_EQ(second, first);
}

TEST_F(DrawingToWrite, PartsThatTheDatabaseLacks_GetHandlesOfTheirOwn) {
    m_builder.Finish();
    // As applications make them: a block and a reference without the marks that a file has.
    AcDbObjectPointer<AcDbBlockTable> table(m_database.blockTableId(), AcDb::kForWrite);
    auto* record = new AcDbBlockTableRecord;
    record->setName(L"NEW");
    AcDbObjectId block;
    ASSERT_EQ(table->add(block, record), Acad::eOk);
    record->close();
    auto& space = *DataOf(m_database).ModelSpace();
    AcDbObjectPointer<AcDbBlockTableRecord> open(AcDbObjectId(space.stub), AcDb::kForWrite);
    auto* reference = new AcDbBlockReference({1, 2, 3}, block);
    ASSERT_EQ(open->appendAcDbEntity(reference), Acad::eOk);
    auto* attribute = new AcDbAttribute;
    attribute->setTag(L"LIN_NUM");
    ASSERT_EQ(reference->appendAttribute(attribute), Acad::eOk);
    attribute->close();
    reference->close();
    const std::string written = drawing_file::WriteDrawing(m_database);
    Read again(written);
    ASSERT_TRUE(again.IsRead());
    EXPECT_EQ(again.Entity<BlockReferenceData>().attributes.size(), 1u);
    EXPECT_EQ(again.Written(), written);
}

TEST(Angles, ShortDegrees_StayShort) {
    for (const double degrees : {0.0, 30.0, 45.0, 90.0, 270.5, -15.25, 360.0, 0.001}) {
        EXPECT_EQ(drawing_file::DegreesOf(drawing_file::RadiansOf(degrees)), degrees);
    }
}

TEST(Angles, SavedTwice_DoNotDrift) {
    for (double radians = -7; radians < 7; radians += 0.0137) {
        const double once = drawing_file::RadiansOf(drawing_file::DegreesOf(radians));
        EXPECT_NEAR(once, radians, 1e-15 * 8);
        EXPECT_EQ(drawing_file::RadiansOf(drawing_file::DegreesOf(once)), once);
    }
}

}  // namespace
}  // namespace workbench::test
