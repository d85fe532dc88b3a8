// Whatever a drawing's objects hold comes back from a file: each member of each kind, none of them at its
// default.
#include <gtest/gtest.h>

#include "drawing_file/drawing_writer.h"
#include "drawing_text.h"

namespace workbench::test {
namespace {

using namespace workbench::database;

class DrawingMembers : public testing::Test {
  protected:
    DrawingMembers() : m_database(false, true), m_builder(m_database) {
        m_space = &m_builder.Record<BlockRecordData>(m_builder.Table<BlockTableData>(0), ACDB_MODEL_SPACE, 0);
    }

    // An entity with what all entities have.
    template <class Kind>
    Kind& AnEntity() {
        auto& entity = m_builder.Entity<Kind>(*m_space, 0);
        SetCommon(entity);
        return entity;
    }
    static void SetCommon(EntityData& entity) {
        entity.color = 5;
        entity.lineweight = 35;
        entity.invisible = true;
        entity.linetypeScale = 0.5;
    }
    static void SetText(TextData& text) {
        text.position = {1, 2, 3};
        text.alignmentPoint = {4, 5, 6};
        text.normal = {0, 0, -1};
        text.height = 2.5;
        text.rotation = 0.5;
        text.widthFactor = 0.75;
        text.oblique = 0.25;
        text.thickness = 1.5;
        text.horizontal = 1;
        text.vertical = 2;
        text.generation = 4;
        text.text = L"words";
    }

    // Compares the members after the way through a file.
    template <class Kind, class... Members>
    void ExpectBack(const Kind& made, Members... members) {
        const auto* read = DataAs<Kind>(Again(made.stub->handle));
        ASSERT_NE(read, nullptr);
        int number = 0;
        const auto compare = [&](auto member) {
            EXPECT_EQ(read->*member, made.*member) << "member " << number;
            ++number;
        };
        (compare(members), ...);
    }
    template <class Kind, class... Members>
    void ExpectEntityBack(const Kind& made, Members... members) {
        ExpectBack(made, &EntityData::color, &EntityData::lineweight, &EntityData::invisible,
                   &EntityData::linetypeScale, members...);
    }
    template <class Kind, class... Members>
    void ExpectTextBack(const Kind& made, Members... members) {
        ExpectEntityBack(made, &TextData::position, &TextData::alignmentPoint, &TextData::normal,
                         &TextData::height, &TextData::rotation, &TextData::widthFactor, &TextData::oblique,
                         &TextData::thickness, &TextData::horizontal, &TextData::vertical,
                         &TextData::generation, &TextData::text, members...);
    }

    AcDbStub* Again(std::uint64_t handle) {
        m_builder.Finish();
        std::wstring error;
        EXPECT_TRUE(drawing_file::ReadDrawing(drawing_file::WriteDrawing(m_database), m_read, error));
        const auto& byHandle = DataOf(m_read).byHandle;
        const auto found = byHandle.find(handle);
        return found == byHandle.end() ? nullptr : found->second;
    }

    AcDbDatabase m_database;
    Builder m_builder;
    BlockRecordData* m_space = nullptr;
    AcDbDatabase m_read{false, true};
};

TEST_F(DrawingMembers, Line_ComesBack) {
    auto& line = AnEntity<LineData>();
    line.start = {1, 2, 3};
    line.end = {4, 5, 6};
    line.normal = {1, 0, 0};
    line.thickness = 2;
    ExpectEntityBack(line, &LineData::start, &LineData::end, &LineData::normal, &LineData::thickness);
}

TEST_F(DrawingMembers, Point_ComesBack) {
    auto& point = AnEntity<PointData>();
    point.position = {1, 2, 3};
    point.normal = {1, 0, 0};
    point.thickness = 2;
    ExpectEntityBack(point, &PointData::position, &PointData::normal, &PointData::thickness);
}

TEST_F(DrawingMembers, CircleAndArc_ComeBack) {
    auto& circle = AnEntity<CircleData>();
    circle.center = {1, 2, 3};
    circle.normal = {1, 0, 0};
    circle.radius = 4;
    circle.thickness = 2;
    auto& arc = AnEntity<ArcData>();
    arc.center = {1, 2, 3};
    arc.normal = {1, 0, 0};
    arc.radius = 4;
    arc.thickness = 2;
    arc.startAngle = 0.5;
    arc.endAngle = 1.25;
    ExpectEntityBack(circle, &CircleData::center, &CircleData::normal, &CircleData::radius,
                     &CircleData::thickness);
    ExpectEntityBack(arc, &ArcData::center, &ArcData::normal, &ArcData::radius, &ArcData::thickness,
                     &ArcData::startAngle, &ArcData::endAngle);
}

TEST_F(DrawingMembers, Ellipse_ComesBack) {
    auto& ellipse = AnEntity<EllipseData>();
    ellipse.center = {1, 2, 3};
    ellipse.majorAxis = {0, 2, 0};
    ellipse.normal = {0, 0, -1};
    ellipse.ratio = 0.5;
    ellipse.startParam = 0.25;
    ellipse.endParam = 3.5;
    ExpectEntityBack(ellipse, &EllipseData::center, &EllipseData::majorAxis, &EllipseData::normal,
                     &EllipseData::ratio, &EllipseData::startParam, &EllipseData::endParam);
}

TEST_F(DrawingMembers, SolidAndTrace_ComeBack) {
    auto& solid = AnEntity<SolidData>();
    for (int i = 0; i < 4; ++i)
        solid.corners[i] = {1.0 * i, 2.0, 3.0};
    solid.normal = {1, 0, 0};
    solid.thickness = 2;
    solid.isTrace = true;
    ExpectEntityBack(solid, &SolidData::normal, &SolidData::thickness, &SolidData::isTrace);
    const auto* read = DataAs<SolidData>(DataOf(m_read).ModelSpace()->entities.at(0));
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(read->corners[i], solid.corners[i]);
}

TEST_F(DrawingMembers, Polyline_ComesBack) {
    auto& polyline = AnEntity<PolylineData>();
    polyline.vertices = {{{1, 2}, 0.5, 1, 2}, {{3, 4}, -0.5, 0, 0}};
    polyline.flags = 129;
    polyline.constantWidth = 1.5;
    polyline.elevation = 2.5;
    polyline.thickness = 3.5;
    polyline.normal = {0, 0, -1};
    ExpectEntityBack(polyline, &PolylineData::flags, &PolylineData::constantWidth, &PolylineData::elevation,
                     &PolylineData::thickness, &PolylineData::normal);
    const auto& read = DataAs<PolylineData>(DataOf(m_read).ModelSpace()->entities.at(0))->vertices;
    ASSERT_EQ(read.size(), 2u);
    EXPECT_EQ(read[0].point.y, 2);
    EXPECT_EQ(read[0].bulge, 0.5);
    EXPECT_EQ(read[0].startWidth, 1);
    EXPECT_EQ(read[0].endWidth, 2);
    EXPECT_EQ(read[1].point.x, 3);
}

TEST_F(DrawingMembers, HeavyPolylineAndItsVertices_ComeBack) {
    auto& polyline = AnEntity<HeavyPolylineData>();
    polyline.flags = 1;
    polyline.startWidth = 1.5;
    polyline.endWidth = 2.5;
    polyline.elevation = 3.5;
    polyline.thickness = 4.5;
    polyline.normal = {0, 0, -1};
    auto& vertex = m_builder.Vertex(polyline, 0);
    SetCommon(vertex);
    vertex.position = {1, 2, 3};
    vertex.startWidth = 0.5;
    vertex.endWidth = 0.25;
    vertex.bulge = -1;
    vertex.flags = 1;
    ExpectEntityBack(polyline, &HeavyPolylineData::flags, &HeavyPolylineData::startWidth,
                     &HeavyPolylineData::endWidth, &HeavyPolylineData::elevation,
                     &HeavyPolylineData::thickness, &HeavyPolylineData::normal);
    ExpectEntityBack(vertex, &VertexData::position, &VertexData::startWidth, &VertexData::endWidth,
                     &VertexData::bulge, &VertexData::flags);
}

TEST_F(DrawingMembers, Texts_ComeBack) {
    auto& text = AnEntity<TextData>();
    SetText(text);
    auto& definition = AnEntity<AttributeDefinitionData>();
    SetText(definition);
    definition.tag = L"LIN_NUM";
    definition.prompt = L"Line number";
    definition.flags = 8;
    definition.fieldLength = 12;
    ExpectTextBack(text);
    ExpectTextBack(definition, &AttributeDefinitionData::tag, &AttributeDefinitionData::prompt,
                   &AttributeDefinitionData::flags, &AttributeDefinitionData::fieldLength);
}

TEST_F(DrawingMembers, ParagraphText_ComesBack) {
    auto& text = AnEntity<MTextData>();
    text.location = {1, 2, 3};
    text.normal = {0, 0, -1};
    text.height = 2.5;
    text.width = 100;
    text.rotation = 0.5;
    text.direction = {0, 1, 0};
    text.attachment = 5;
    text.drawingDirection = 1;
    text.text = L"words";
    ExpectEntityBack(text, &MTextData::location, &MTextData::normal, &MTextData::height, &MTextData::width,
                     &MTextData::rotation, &MTextData::direction, &MTextData::attachment,
                     &MTextData::drawingDirection, &MTextData::text);
}

TEST_F(DrawingMembers, ReferencesAndTheirAttributes_ComeBack) {
    auto& block = m_builder.Record<BlockRecordData>(m_builder.Table<BlockTableData>(0), L"VAL_BLK", 0);
    block.flags = 2;
    block.origin = {1, 2, 3};
    block.description = L"A valve";
    auto& array = AnEntity<MInsertData>();
    array.block = block.stub;
    array.position = {1, 2, 3};
    array.scale = {2, -1, 0.5};
    array.normal = {0, 0, -1};
    array.rotation = 0.5;
    array.columns = 3;
    array.rows = 2;
    array.columnSpacing = 10;
    array.rowSpacing = 20;
    auto& attribute = m_builder.Attribute(array, 0);
    SetCommon(attribute);
    SetText(attribute);
    attribute.tag = L"LIN_NUM";
    attribute.flags = 1;
    attribute.fieldLength = 7;
    ExpectEntityBack(array, &MInsertData::position, &MInsertData::scale, &MInsertData::normal,
                     &MInsertData::rotation, &MInsertData::columns, &MInsertData::rows,
                     &MInsertData::columnSpacing, &MInsertData::rowSpacing);
    ExpectTextBack(attribute, &AttributeData::tag, &AttributeData::flags, &AttributeData::fieldLength);
    ExpectBack(block, &RecordData::name, &RecordData::flags, &BlockRecordData::origin,
               &BlockRecordData::description);
}

TEST_F(DrawingMembers, TableRecords_ComeBack) {
    auto& layer = *DataAs<LayerData>(m_builder.Layer(L"PIPES"));
    layer.flags = 5;
    layer.color = -3;
    layer.lineweight = 50;
    layer.plottable = false;
    auto& linetype = *DataAs<LinetypeData>(m_builder.Linetype(L"DASHED"));
    linetype.description = L"_ _";
    linetype.dashes = {1, -0.5};
    linetype.patternLength = 1.5;
    auto& style = *DataAs<TextStyleData>(m_builder.TextStyle(L"ROMANS"));
    style.flags = 4;
    style.height = 3;
    style.widthFactor = 0.8;
    style.oblique = 0.25;
    style.lastHeight = 7;
    style.generation = 2;
    style.font = L"romans.shx";
    style.bigFont = L"big.shx";
    ExpectBack(layer, &RecordData::name, &RecordData::flags, &LayerData::color, &LayerData::lineweight,
               &LayerData::plottable);
    ExpectBack(linetype, &RecordData::name, &LinetypeData::description, &LinetypeData::dashes,
               &LinetypeData::patternLength);
    ExpectBack(style, &RecordData::name, &RecordData::flags, &TextStyleData::height,
               &TextStyleData::widthFactor, &TextStyleData::oblique, &TextStyleData::lastHeight,
               &TextStyleData::generation, &TextStyleData::font, &TextStyleData::bigFont);
}

TEST_F(DrawingMembers, DictionariesAndExtensionRecords_ComeBack) {
    auto& root = m_builder.NamedObjects(0);
    auto& dictionary = m_builder.Object<DictionaryData>(0, root.stub);
    dictionary.hard = true;
    dictionary.cloning = 3;
    Builder::AddEntry(root, L"OURS", dictionary.stub);
    auto& record = m_builder.Object<XrecordData>(0, dictionary.stub);
    record.cloning = 4;
    record.items = {{90, std::int64_t{5}}, {1, L"text"}, {40, 0.1}, {310, Bytes{0, 255}}};
    Builder::AddEntry(dictionary, L"FilteredLineIds", record.stub);
    ExpectBack(dictionary, &DictionaryData::hard, &DictionaryData::cloning, &DictionaryData::dxfName);
    ExpectBack(record, &XrecordData::cloning, &XrecordData::items);
}

// An owner that was erased alone is none that a file could name.
TEST_F(DrawingMembers, ObjectOfAnErasedOwner_NamesNone) {
    auto& root = m_builder.NamedObjects(0);
    auto& dictionary = m_builder.Object<DictionaryData>(0x7777, root.stub);
    auto& record = m_builder.Object<XrecordData>(0, dictionary.stub);
    m_builder.Finish();
    dictionary.stub->erased = true;
    EXPECT_EQ(drawing_file::WriteDrawing(m_database).find("7777\r\n"), std::string::npos);
    EXPECT_NE(record.stub, nullptr);
}

}  // namespace
}  // namespace workbench::test
