#include "drawing_file/drawing_reader.h"

#include <gmock/gmock.h>

#include "drawing_text.h"

namespace workbench::test {
namespace {

using namespace workbench::database;
using testing::HasSubstr;
using testing::StartsWith;

constexpr std::string_view kLine = "0\nLINE\n8\nPIPES\n62\n3\n10\n1.5\n20\n2\n30\n-1\n11\n4\n21\n5\n31\n6\n";

std::string NameOf(const AcDbStub* record) {
    const auto* data = DataAs<RecordData>(record);
    return data != nullptr ? std::string(data->name.begin(), data->name.end()) : "(null)";
}

// --- Whole drawings.

TEST(ReadDrawing, OfEntitiesAlone_GetsWhatEveryDrawingHas) {
    Read drawing(Entities(kLine));
    ASSERT_TRUE(drawing.IsRead()) << std::string(drawing.Error().begin(), drawing.Error().end());
    const auto& line = drawing.Entity<LineData>();
    EXPECT_EQ(line.start, AcGePoint3d(1.5, 2, -1));
    EXPECT_EQ(line.end, AcGePoint3d(4, 5, 6));
    EXPECT_EQ(line.color, 3);
    EXPECT_EQ(NameOf(line.layer), "PIPES");
    EXPECT_NE(drawing.Data().namedObjects, nullptr);
    EXPECT_NE(drawing.Data().FindRecord(drawing.Data().layerTable, L"0"), nullptr);
    EXPECT_EQ(NameOf(line.owner), "*Model_Space");
}

TEST(ReadDrawing, IntoUsedDatabase_ReplacesWhatWasThere) {
    AcDbDatabase database(true, true);
    std::wstring error;
    ASSERT_TRUE(drawing_file::ReadDrawing(Entities(kLine), database, error));
    ASSERT_TRUE(drawing_file::ReadDrawing(Entities(kLine), database, error));
    EXPECT_EQ(DataOf(database).ModelSpace()->entities.size(), 1u);
    EXPECT_FALSE(DataOf(database).modified);
}

TEST(ReadDrawing, OfPaperSpace_KeepsEntitiesApart) {
    Read drawing(Entities("0\nPOINT\n8\n0\n67\n1\n10\n1\n20\n2\n0\nPOINT\n8\n0\n10\n3\n20\n4\n"));
    EXPECT_EQ(drawing.Block(ACDB_MODEL_SPACE).entities.size(), 1u);
    EXPECT_EQ(drawing.Block(ACDB_PAPER_SPACE).entities.size(), 1u);
    EXPECT_EQ(drawing.Entity<PointData>().position, AcGePoint3d(3, 4, 0));
}

TEST(ReadDrawing, EntityOwnedByLayout_GoesThere) {
    const std::string tables = Section("TABLES",
                                       "0\nTABLE\n2\nBLOCK_RECORD\n5\n1\n0\nBLOCK_RECORD\n5\n20\n2\n*Model_"
                                       "Space\n0\nBLOCK_RECORD\n5\n21\n2\n"
                                       "*Paper_Space0\n0\nENDTAB\n");
    Read drawing(
        File(tables + Section("ENTITIES", "0\nPOINT\n5\n30\n330\n21\n100\nAcDbEntity\n67\n1\n8\n0\n")));
    ASSERT_TRUE(drawing.IsRead());
    EXPECT_EQ(drawing.Block(L"*Paper_Space0").entities.size(), 1u);
}

TEST(ReadDrawing, HeaderVariables_AreKeptButForThoseThatFollow) {
    Read drawing(
        File(Section("HEADER",
                     "9\n$ACADVER\n1\nAC1009\n9\n$INSUNITS\n70\n4\n9\n$INSBASE\n10\n1.0\n20\n2.0\n30\n3.0\n"
                     "9\n$CLAYER\n8\nPIPES\n9\n$HANDSEED\n5\nFF\n9\n$DWGCODEPAGE\n3\nANSI_1252\n")));
    ASSERT_TRUE(drawing.IsRead());
    ASSERT_EQ(drawing.Data().header.size(), 2u);
    EXPECT_EQ(drawing.Data().header[0].name, L"$INSUNITS");
    EXPECT_EQ(drawing.Data().header[1].groups.size(), 3u);
    EXPECT_EQ(NameOf(drawing.Data().currentLayer), "PIPES");
    EXPECT_GE(drawing.Data().nextHandle, 0xFFu);
}

TEST(ReadDrawing, TextIsInTheDrawingsCodePage) {
    const std::string text = Section("ENTITIES", "0\nTEXT\n8\n0\n1\n\xEF\xF0\n");
    const auto textOf = [&](const char* header) {
        Read drawing(File(Section("HEADER", header) + text));
        return drawing.Entity<TextData>().text;
    };
    EXPECT_EQ(textOf("9\n$ACADVER\n1\nAC1015\n9\n$DWGCODEPAGE\n3\nANSI_1251\n"), L"\u043F\u0440");
    EXPECT_EQ(textOf("9\n$ACADVER\n1\nAC1015\n"), L"\u00EF\u00F0");
}

TEST(ReadDrawing, FromRelease2007_TextIsUtf8WhateverTheCodePage) {
    const std::string header = Section("HEADER", "9\n$ACADVER\n1\nAC1021\n9\n$DWGCODEPAGE\n3\nANSI_1251\n");
    Read drawing(File(header + Section("ENTITIES", "0\nTEXT\n8\n0\n1\n\xC3\xB6\n")));
    EXPECT_EQ(drawing.Entity<TextData>().text, L"\u00F6");
}

TEST(ReadDrawing, DoubleByteText_IsRefusedWithItsLine) {
    const std::string header = Section("HEADER", "9\n$DWGCODEPAGE\n3\nANSI_932\n");
    EXPECT_TRUE(Read(File(header + Section("ENTITIES", kLine))).IsRead());
    EXPECT_THAT(ErrorOf(File(header + Section("ENTITIES", "0\nTEXT\n8\n0\n1\n\x83\x7C\n"))),
                HasSubstr(L"Line 20: Text in the drawing's code page"));
}

TEST(ReadDrawing, UnknownSections_AreKept) {
    Read drawing(File(Section("CLASSES", "0\nCLASS\n1\nSUN\n90\n1\n") +
                      Section("THUMBNAILIMAGE", "90\n2\n310\nAB\n")));
    ASSERT_EQ(drawing.Data().otherSections.size(), 2u);
    EXPECT_EQ(drawing.Data().otherSections[0].groups[1].text, L"SUN");
    EXPECT_THAT(drawing.Written(), HasSubstr("THUMBNAILIMAGE\r\n 90\r\n2\r\n310\r\nAB\r\n"));
}

// --- Tables and blocks.

TEST(ReadTables, LayersBeforeLinetypes_FindThem) {
    Read drawing(File(Section(
        "TABLES",
        "0\nTABLE\n2\nLAYER\n0\nLAYER\n2\nPIPES\n70\n0\n62\n-3\n6\nDASHED\n0\nENDTAB\n"
        "0\nTABLE\n2\nLTYPE\n0\nLTYPE\n2\nDASHED\n3\n_ _\n72\n65\n73\n2\n40\n3\n49\n2\n74\n0\n49\n-1\n"
        "74\n0\n0\nENDTAB\n")));
    ASSERT_TRUE(drawing.IsRead());
    const auto* layer = DataAs<LayerData>(drawing.Data().FindRecord(drawing.Data().layerTable, L"pipes"));
    ASSERT_NE(layer, nullptr);
    EXPECT_EQ(layer->color, -3);
    const auto* linetype = DataAs<LinetypeData>(layer->linetype);
    ASSERT_NE(linetype, nullptr);
    EXPECT_EQ(linetype->dashes, (std::vector<double>{2, -1}));
}

TEST(ReadTables, ComplexLinetype_IsKeptAsItStands) {
    const std::string complex =
        "0\nLTYPE\n5\n40\n100\nAcDbSymbolTableRecord\n100\nAcDbLinetypeTableRecord\n2\nGAS\n70\n0\n3\nGas\n72"
        "\n65\n73\n2\n40\n"
        "8.0\n49\n5.0\n74\n2\n75\n0\n340\n11\n46\n0.1\n50\n0.0\n44\n-0.1\n45\n-0.05\n9\nGAS\n49\n-3."
        "0\n74\n0\n";
    Read drawing(
        File(Header("AC1015") + Section("TABLES", "0\nTABLE\n2\nLTYPE\n5\n2\n" + complex + "0\nENDTAB\n")));
    ASSERT_TRUE(drawing.IsRead());
    EXPECT_THAT(drawing.Written(),
                HasSubstr(" 73\r\n2\r\n 40\r\n8.0\r\n 49\r\n5.0\r\n 74\r\n2\r\n 75\r\n0\r\n340\r\n11\r\n "
                          "46\r\n0.1\r\n 50\r\n"
                          "0.0\r\n 44\r\n-0.1\r\n 45\r\n-0.05\r\n  9\r\nGAS\r\n 49\r\n-3.0\r\n 74\r\n0\r\n"));
}

TEST(ReadTables, OfTwoRecordsWithOneName_TheFirstCounts) {
    Read drawing(File(Section(
        "TABLES", "0\nTABLE\n2\nLAYER\n0\nLAYER\n2\nPIPES\n62\n3\n0\nLAYER\n2\nPipes\n62\n4\n0\nENDTAB\n")));
    ASSERT_TRUE(drawing.IsRead());
    const auto* table = DataAs<TableData>(drawing.Data().layerTable);
    EXPECT_EQ(table->records.size(), 2u);  // with layer 0
    EXPECT_EQ(DataAs<LayerData>(table->records[0])->color, 3);
}

TEST(ReadTables, DimensionStyle_HasItsHandleBehind105) {
    Read drawing(File(Section(
        "TABLES",
        "0\nTABLE\n2\nDIMSTYLE\n5\n3\n0\nDIMSTYLE\n105\n50\n2\nOURS\n70\n0\n5\n_DOT\n40\n2.0\n0\nENDTAB\n")));
    ASSERT_TRUE(drawing.IsRead());
    EXPECT_EQ(drawing.Object<DimStyleData>(0x50).name, L"OURS");
}

TEST(ReadTables, DamagedTables_AreRefused) {
    EXPECT_THAT(ErrorOf(File(Section("TABLES", "0\nTABLE\n2\nLAYER\n"))), HasSubstr(L"ENDTAB"));
    EXPECT_THAT(ErrorOf(File(Section("TABLES", "0\nLAYER\n2\nA\n"))), StartsWith(L"Line 6:"));
    EXPECT_THAT(ErrorOf(File(Section("TABLES", "0\nENDTAB\n"))), StartsWith(L"Line 6:"));
    EXPECT_THAT(ErrorOf(File(Section("TABLES", "0\nTABLE\n2\nLAYER\n0\nLAYER\n62\n1\n0\nENDTAB\n"))),
                HasSubstr(L"has no name"));
}

std::string BlockText(std::string_view name, std::string_view entities) {
    return "0\nBLOCK\n8\n0\n2\n" + std::string(name) + "\n70\n0\n10\n1\n20\n2\n30\n3\n" +
           std::string(entities) + "0\nENDBLK\n8\n0\n";
}

TEST(ReadBlocks, OfRelease12_GetTheirRecords) {
    Read drawing(File(Section("BLOCKS", BlockText("VALVE", kLine)) +
                      Section("ENTITIES", "0\nINSERT\n8\n0\n2\nvalve\n10\n5\n20\n6\n41\n2\n50\n90\n")));
    ASSERT_TRUE(drawing.IsRead());
    const auto& block = drawing.Block(L"VALVE");
    EXPECT_EQ(block.entities.size(), 1u);
    EXPECT_EQ(block.origin, AcGePoint3d(1, 2, 3));
    const auto& reference = drawing.Entity<BlockReferenceData>();
    EXPECT_EQ(reference.block, block.stub);
    EXPECT_EQ(reference.scale, AcGeScale3d(2, 1, 1));
    EXPECT_DOUBLE_EQ(reference.rotation, 1.5707963267948966);
}

TEST(ReadBlocks, SpacesOfRelease12_AreTheSpaces) {
    Read drawing(File(Section("BLOCKS", BlockText("$MODEL_SPACE", "") + BlockText("$PAPER_SPACE", "")) +
                      Section("ENTITIES", kLine)));
    ASSERT_TRUE(drawing.IsRead());
    EXPECT_EQ(DataAs<TableData>(drawing.Data().blockTable)->records.size(), 2u);
}

TEST(ReadBlocks, MayReferToLaterOnes) {
    Read drawing(
        File(Section("BLOCKS", BlockText("OUTER", "0\nINSERT\n8\n0\n2\nINNER\n") + BlockText("INNER", ""))));
    ASSERT_TRUE(drawing.IsRead());
    EXPECT_EQ(DataAs<BlockReferenceData>(drawing.Block(L"OUTER").entities[0])->block,
              drawing.Block(L"INNER").stub);
}

TEST(ReadBlocks, ThatContainThemselves_AreRefused) {
    EXPECT_EQ(ErrorOf(File(Section("BLOCKS", BlockText("A", "0\nINSERT\n2\nA\n")))),
              L"Line 6: The block \"A\" contains itself.");
    EXPECT_THAT(ErrorOf(File(Section("BLOCKS", BlockText("A", "0\nINSERT\n2\nB\n") +
                                                   BlockText("B", "0\nINSERT\n2\nC\n") +
                                                   BlockText("C", "0\nINSERT\n2\nA\n")))),
                HasSubstr(L"contains itself"));
    EXPECT_EQ(ErrorOf(Entities("0\nINSERT\n2\n*Model_Space\n")),
              L"Line 4: The block \"*Model_Space\" contains itself.");
}

TEST(ReadBlocks, SharedByManyOthers_AreNoCycle) {
    EXPECT_TRUE(Read(File(Section("BLOCKS", BlockText("A", "0\nINSERT\n2\nC\n0\nINSERT\n2\nB\n") +
                                                BlockText("B", "0\nINSERT\n2\nC\n0\nINSERT\n2\nC\n") +
                                                BlockText("C", ""))))
                    .IsRead());
}

TEST(ReadBlocks, NestedVeryDeep_AreReadWithoutRecursion) {
    std::string blocks;
    for (int i = 0; i < 20000; ++i) {
        blocks += BlockText("B" + std::to_string(i), "0\nINSERT\n2\nB" + std::to_string(i + 1) + "\n");
    }
    EXPECT_TRUE(Read(File(Section("BLOCKS", blocks + BlockText("B20000", "")))).IsRead());
}

TEST(ReadBlocks, DamagedBlocks_AreRefused) {
    EXPECT_THAT(ErrorOf(File(Section("BLOCKS", BlockText("A", "") + BlockText("a", "")))),
                HasSubstr(L"defined twice"));
    EXPECT_THAT(ErrorOf(File(Section("BLOCKS", "0\nBLOCK\n2\nA\n"))), HasSubstr(L"ENDBLK"));
    EXPECT_THAT(ErrorOf(File(Section("BLOCKS", "0\nBLOCK\n2\nA\n0\nBLOCK\n2\nB\n0\nENDBLK\n"))),
                HasSubstr(L"ENDBLK"));
    EXPECT_THAT(ErrorOf(File(Section("BLOCKS", "0\nBLOCK\n8\n0\n0\nENDBLK\n"))), HasSubstr(L"has no name"));
    EXPECT_THAT(ErrorOf(File(Section("BLOCKS", kLine))), StartsWith(L"Line 6: A block"));
}

// --- Entities.

TEST(ReadEntities, ReferenceToUnknownBlock_IsRefusedWithItsLine) {
    EXPECT_EQ(ErrorOf(Entities("0\nINSERT\n8\n0\n2\nNOWHERE\n")),
              L"Line 10: The drawing has no block \"NOWHERE\".");
    EXPECT_THAT(ErrorOf(Entities("0\nINSERT\n8\n0\n")), HasSubstr(L"names no block"));
}

TEST(ReadEntities, AttributesFollowTheirReference) {
    Read drawing(File(
        Section("BLOCKS", BlockText("VAL_BLK", "")) +
        Section("ENTITIES",
                "0\nINSERT\n8\n0\n66\n1\n2\nVAL_BLK\n"
                "0\nATTRIB\n8\n0\n10\n1\n20\n1\n40\n2.5\n1\n6\"-CW-1001\n2\nLIN_NUM\n70\n1\n73\n5\n74\n2\n"
                "0\nATTRIB\n8\n0\n1\n-\n2\nSPEC\n70\n0\n0\nSEQEND\n8\n0\n" +
                    std::string(kLine))));
    ASSERT_TRUE(drawing.IsRead());
    const auto& reference = drawing.Entity<BlockReferenceData>();
    ASSERT_EQ(reference.attributes.size(), 2u);
    const auto* attribute = DataAs<AttributeData>(reference.attributes[0]);
    EXPECT_EQ(attribute->tag, L"LIN_NUM");
    EXPECT_EQ(attribute->text, L"6\"-CW-1001");
    EXPECT_EQ(attribute->flags, 1);
    EXPECT_EQ(attribute->fieldLength, 5);
    EXPECT_EQ(attribute->vertical, 2);
    EXPECT_EQ(attribute->owner, reference.stub);
    EXPECT_NE(reference.sequenceEnd, nullptr);
    EXPECT_NO_THROW(drawing.Entity<LineData>(1));
}

TEST(ReadEntities, SequenceEndOfNoAttributes_IsReadOver) {
    Read drawing(File(Section("BLOCKS", BlockText("A", "")) +
                      Section("ENTITIES", "0\nINSERT\n66\n1\n2\nA\n0\nSEQEND\n" + std::string(kLine))));
    ASSERT_TRUE(drawing.IsRead());
    EXPECT_EQ(drawing.Block(ACDB_MODEL_SPACE).entities.size(), 2u);
}

TEST(ReadEntities, PartsInTheWrongPlace_AreRefused) {
    const std::string blocks = Section("BLOCKS", BlockText("A", ""));
    for (const char* part : {"ATTRIB", "VERTEX", "SEQEND"}) {
        EXPECT_THAT(ErrorOf(Entities("0\n" + std::string(part) + "\n8\n0\n")), StartsWith(L"Line 6: "));
    }
    EXPECT_THAT(ErrorOf(File(blocks +
                             Section("ENTITIES", "0\nINSERT\n2\nA\n0\nATTRIB\n2\nT\n" + std::string(kLine)))),
                HasSubstr(L"SEQEND"));
    EXPECT_THAT(ErrorOf(Entities("0\nPOLYLINE\n66\n1\n0\nVERTEX\n10\n1\n")), HasSubstr(L"SEQEND"));
    EXPECT_THAT(ErrorOf(Entities("0\nPOLYLINE\n66\n1\n0\nATTRIB\n2\nT\n")), HasSubstr(L"SEQEND"));
}

TEST(ReadEntities, ArrayOfBlocks_KnowsItsRowsAndColumns) {
    Read drawing(File(Section("BLOCKS", BlockText("A", "")) +
                      Section("ENTITIES", "0\nINSERT\n2\nA\n70\n3\n71\n2\n44\n10\n45\n20\n")));
    const auto& array = drawing.Entity<MInsertData>();
    EXPECT_EQ(array.columns, 3);
    EXPECT_EQ(array.rows, 2);
    EXPECT_EQ(array.columnSpacing, 10);
    EXPECT_EQ(array.rowSpacing, 20);
}

TEST(ReadEntities, LightweightPolyline_KeepsWidthsAndBulges) {
    Read drawing(
        Entities("0\nLWPOLYLINE\n8\n0\n90\n2\n70\n1\n43\n0.5\n38\n7\n10\n0\n20\n1\n42\n0."
                 "25\n10\n2\n20\n3\n40\n1\n41\n2\n"));
    const auto& polyline = drawing.Entity<PolylineData>();
    ASSERT_EQ(polyline.vertices.size(), 2u);
    EXPECT_EQ(polyline.vertices[0].bulge, 0.25);
    EXPECT_EQ(polyline.vertices[1].point, AcGePoint2d(2, 3));
    EXPECT_EQ(polyline.vertices[1].endWidth, 2);
    EXPECT_EQ(polyline.flags, 1);
    EXPECT_EQ(polyline.constantWidth, 0.5);
    EXPECT_EQ(polyline.elevation, 7);
}

TEST(ReadEntities, ParagraphTextInPieces_IsJoined) {
    Read drawing(Entities("0\nMTEXT\n8\n0\n10\n0\n40\n2.5\n71\n5\n1\nend\n3\nfirst \n3\nsecond \n"));
    EXPECT_EQ(drawing.Entity<MTextData>().text, L"first second end");
    EXPECT_EQ(drawing.Entity<MTextData>().attachment, 5);
}

TEST(ReadEntities, TriangleOfThreeCorners_RepeatsTheThird) {
    Read drawing(Entities("0\nSOLID\n8\n0\n10\n0\n20\n0\n11\n1\n21\n0\n12\n1\n22\n1\n"));
    EXPECT_EQ(drawing.Entity<SolidData>().corners[3], AcGePoint3d(1, 1, 0));
}

TEST(ReadEntities, UnknownOnes_AreKeptAndWrittenAsTheyStand) {
    const std::string spline =
        "0\nSPLINE\n5\n2F\n330\n1F\n100\nAcDbEntity\n8\nPIPES\n100\nAcDbSpline\n70\n8\n71\n3\n40\n0.0\n40\n1."
        "0\n"
        "10\n1.0\n20\n2.0\n30\n0.0\n";
    Read drawing(File(Header("AC1015") + Section("ENTITIES", spline)));
    ASSERT_TRUE(drawing.IsRead());
    const auto& entity = drawing.Entity<ProxyEntityData>();
    EXPECT_EQ(entity.dxfName, L"SPLINE");
    EXPECT_EQ(NameOf(entity.layer), "PIPES");
    EXPECT_THAT(drawing.Written(), HasSubstr("100\r\nAcDbEntity\r\n  8\r\nPIPES\r\n100\r\nAcDbSpline\r\n "
                                             "70\r\n8\r\n 71\r\n3\r\n 40\r\n0.0\r\n 40\r\n"
                                             "1.0\r\n 10\r\n1.0\r\n 20\r\n2.0\r\n 30\r\n0.0\r\n"));
}

TEST(ReadEntities, UnknownGroupsOfKnownOnes_AreKeptBelowTheirMarker) {
    Read drawing(
        File(Header("AC1015") +
             Section("ENTITIES",
                     "0\nLINE\n5\n2F\n102\n{OTHER\n70\n1\n102\n}\n330\n1F\n100\nAcDbEntity\n8\n0\n420\n255\n"
                     "100\nAcDbLine\n10\n1.0\n20\n2.0\n30\n0.0\n11\n3.0\n21\n4.0\n31\n0.0\n90\n7\n")));
    ASSERT_TRUE(drawing.IsRead());
    const std::string written = drawing.Written();
    EXPECT_THAT(
        written,
        HasSubstr(
            "102\r\n{OTHER\r\n 70\r\n1\r\n102\r\n}\r\n100\r\nAcDbEntity\r\n  8\r\n0\r\n420\r\n255\r\n100\r\n"
            "AcDbLine\r\n"));
    EXPECT_THAT(written, HasSubstr(" 31\r\n0.0\r\n 90\r\n7\r\n"));
}

TEST(ReadEntities, EmbeddedObject_IsNotTakenForTheEntity) {
    Read drawing(
        File(Header("AC1032") +
             Section("ENTITIES",
                     "0\nTEXT\n5\n2F\n100\nAcDbEntity\n8\n0\n100\nAcDbText\n10\n1\n20\n2\n40\n3\n1\nouter\n"
                     "101\nEmbedded Object\n7\nARIAL\n40\n9.0\n1\ninner\n")));
    const auto& text = drawing.Entity<TextData>();
    EXPECT_EQ(text.text, L"outer");
    EXPECT_EQ(text.height, 3);
    EXPECT_THAT(drawing.Written(),
                HasSubstr("101\r\nEmbedded Object\r\n  7\r\nARIAL\r\n 40\r\n9.0\r\n  1\r\ninner\r\n"));
}

TEST(ReadEntities, DimensionOfRelease12_GetsMarkers) {
    Read drawing(
        Entities("0\nDIMENSION\n8\n0\n2\n*"
                 "D1\n10\n1\n20\n2\n11\n3\n21\n4\n70\n0\n13\n5\n23\n6\n14\n7\n24\n8\n50\n90\n"));
    ASSERT_TRUE(drawing.IsRead());
    EXPECT_THAT(
        drawing.Written(),
        HasSubstr(
            "100\r\nAcDbDimension\r\n  2\r\n*D1\r\n 10\r\n1\r\n 20\r\n2\r\n 11\r\n3\r\n 21\r\n4\r\n "
            "70\r\n0\r\n100\r\n"
            "AcDbAlignedDimension\r\n 13\r\n5\r\n 23\r\n6\r\n 14\r\n7\r\n 24\r\n8\r\n 50\r\n90\r\n100\r\n"
            "AcDbRotatedDimension\r\n"));
}

TEST(ReadEntities, HandleBehindTheLayer_IsTheHandle) {
    Read drawing(Entities("0\nPOINT\n8\n0\n5\nABC\n10\n1\n20\n2\n"));
    EXPECT_NO_THROW(drawing.Object<PointData>(0xABC));
}

TEST(ReadEntities, OneHandleTwice_LosesNoEntity) {
    Read drawing(Entities("0\nPOINT\n5\n2A\n8\n0\n10\n1\n0\nPOINT\n5\n2A\n8\n0\n10\n2\n"));
    ASSERT_TRUE(drawing.IsRead());
    EXPECT_EQ(drawing.Entity<PointData>(0).position.x, 1);
    EXPECT_EQ(drawing.Entity<PointData>(1).position.x, 2);
    EXPECT_NE(drawing.Entity<PointData>(0).stub->handle, drawing.Entity<PointData>(1).stub->handle);
}

TEST(ReadEntities, HandlesMadeOnTheWay_TakeNobodysPlace) {
    // The layer has no record: it is made before the entity with the low handle is read.
    Read drawing(Entities("0\nPOINT\n8\nNEW\n10\n1\n0\nPOINT\n5\n1\n8\n0\n10\n2\n"));
    EXPECT_EQ(drawing.Object<PointData>(1).position.x, 2);
}

TEST(ReadEntities, BadValues_AreRefusedWithTheirLine) {
    EXPECT_EQ(ErrorOf(Entities("0\nLINE\n8\n0\n10\nabc\n")), L"Line 10: \"abc\" is not a number.");
    EXPECT_EQ(ErrorOf(Entities("0\nSPLINE\n8\n0\n40\n1e999\n")), L"Line 10: \"1e999\" is not a number.");
    EXPECT_THAT(ErrorOf(Entities("0\nPOINT\n8\n0\n62\n257\n")), HasSubstr(L"colour"));
    EXPECT_THAT(ErrorOf(Entities("0\nPOINT\n8\n0\n62\n-1\n")), HasSubstr(L"colour"));
    EXPECT_THAT(ErrorOf(Entities("0\nPOINT\n5\nXYZ\n")), HasSubstr(L"handle"));
    EXPECT_THAT(ErrorOf(Entities("0\nPOINT\n5\n7FFFFFFFFFFFFFFF\n")), HasSubstr(L"leaves no room"));
    EXPECT_THAT(ErrorOf(Entities("0\nHATCH\n8\n0\n310\nABC\n")), HasSubstr(L"hexadecimal"));
    EXPECT_THAT(ErrorOf(Entities("0\nPOINT\n102\n{OPEN\n70\n1\n8\n0\n")), HasSubstr(L"not closed"));
    EXPECT_THAT(ErrorOf(File(Section("HEADER", "9\n$HANDSEED\n5\nFFFFFFFFFFFFFFFF\n"))),
                HasSubstr(L"leaves no room"));
    EXPECT_THAT(ErrorOf(File(Section("HEADER", "1\nAC1009\n"))), HasSubstr(L"name of a header variable"));
}

// --- Extended data and objects.

std::string WithXdata(std::string_view xdata) {
    return Entities("0\nPOINT\n8\n0\n" + std::string(xdata));
}

TEST(ReadXdata, KeepsOrderAndTypes) {
    Read drawing(
        WithXdata("1001\nOURS\n1000\ntext\n1002\n{"
                  "\n1003\nPIPES\n1004\n00fF\n1005\n2A\n1010\n1\n1020\n2\n1030\n3\n1002\n}\n1040\n0.5\n"
                  "1070\n-3\n1071\n70000\n1001\nTHEIRS\n"));
    ASSERT_TRUE(drawing.IsRead());
    const DataItems expected = {{1001, L"OURS"},
                                {1000, L"text"},
                                {1002, L"{"},
                                {1003, L"PIPES"},
                                {1004, Bytes{0, 255}},
                                {1005, std::int64_t{0x2A}},
                                {1010, AcGePoint3d(1, 2, 3)},
                                {1002, L"}"},
                                {1040, 0.5},
                                {1070, std::int64_t{-3}},
                                {1071, std::int64_t{70000}},
                                {1001, L"THEIRS"}};
    EXPECT_EQ(drawing.Entity<PointData>().xdata, expected);
    EXPECT_NE(drawing.Data().FindRecord(drawing.Data().regAppTable, L"OURS"), nullptr);
}

TEST(ReadXdata, ThatBreaksTheFormat_IsRefused) {
    EXPECT_THAT(ErrorOf(WithXdata("1001\nA\n1002\n{\n")), HasSubstr(L"braces"));
    EXPECT_THAT(ErrorOf(WithXdata("1001\nA\n1002\n}\n1002\n{\n")), HasSubstr(L"braces"));
    EXPECT_THAT(ErrorOf(WithXdata("1001\nA\n1000\n" + std::string(256, 'x') + "\n")),
                HasSubstr(L"255 bytes"));
    std::string much = "1001\nA\n";
    for (int i = 0; i < 70; ++i)
        much += "1000\n" + std::string(250, 'x') + "\n";
    EXPECT_THAT(ErrorOf(WithXdata(much)), HasSubstr(L"16 KB"));
    EXPECT_EQ(ErrorOf(WithXdata("1001\nA\n40\n1.0\n")),
              L"Line 12: Group code 40 cannot stand in extended data.");
    EXPECT_THAT(ErrorOf(WithXdata("1001\nA\n1050\n1.0\n")), HasSubstr(L"1050 cannot stand"));
    EXPECT_THAT(ErrorOf(WithXdata("1001\nA\n1070\n70000\n")), HasSubstr(L"does not fit"));
}

TEST(ReadXdata, OfModelSpaceRecord_IsItsOwn) {
    Read drawing(File(
        Header("AC1015") +
        Section(
            "TABLES",
            "0\nTABLE\n2\nBLOCK_RECORD\n5\n1\n0\nBLOCK_RECORD\n5\n1F\n330\n1\n100\nAcDbSymbolTableRecord\n"
            "100\nAcDbBlockTableRecord\n2\n*MODEL_SPACE\n340\n22\n1001\nOURS\n1071\n123\n0\nENDTAB\n") +
        Section("BLOCKS",
                "0\nBLOCK\n5\n20\n100\nAcDbEntity\n8\n0\n100\nAcDbBlockBegin\n2\n*Model_"
                "Space\n70\n0\n0\nENDBLK\n5\n"
                "21\n100\nAcDbEntity\n8\n0\n100\nAcDbBlockEnd\n")));
    ASSERT_TRUE(drawing.IsRead());
    const DataItems expected = {{1001, L"OURS"}, {1071, std::int64_t{123}}};
    EXPECT_EQ(drawing.Block(ACDB_MODEL_SPACE).xdata, expected);
    EXPECT_EQ(drawing.Block(ACDB_MODEL_SPACE).layout, nullptr);  // no object has the handle 22
}

constexpr std::string_view kRoot =
    "0\nDICTIONARY\n5\nC\n330\n0\n100\nAcDbDictionary\n281\n1\n3\nOURS\n350\n2A\n";

TEST(ReadObjects, DictionariesAndExtensionRecords) {
    Read drawing(File(
        Header("AC1015") +
        Section("OBJECTS",
                std::string(kRoot) +
                    "0\nDICTIONARY\n5\n2A\n330\nC\n100\nAcDbDictionary\n280\n1\n281\n1\n3\nLines\n360\n2B\n"
                    "0\nXRECORD\n5\n2B\n330\n2A\n100\nAcDbXrecord\n280\n1\n90\n5\n90\n70000\n1\ntext\n"
                    "100\nNOT A MARKER\n102\n{NOT A LIST\n290\n1\n330\nFF\n10\n1\n20\n2\n30\n3\n280\n7\n")));
    ASSERT_TRUE(drawing.IsRead()) << std::string(drawing.Error().begin(), drawing.Error().end());
    const auto& dictionary = drawing.Object<DictionaryData>(0x2A);
    EXPECT_TRUE(dictionary.hard);
    EXPECT_EQ(dictionary.owner, drawing.Data().namedObjects);
    ASSERT_EQ(dictionary.entries.size(), 1u);
    EXPECT_EQ(dictionary.entries[0].name, L"Lines");
    const DataItems expected = {{90, std::int64_t{5}},    {90, std::int64_t{70000}},  {1, L"text"},
                                {100, L"NOT A MARKER"},   {102, L"{NOT A LIST"},      {290, std::int64_t{1}},
                                {330, std::int64_t{255}}, {10, AcGePoint3d(1, 2, 3)}, {280, std::int64_t{7}}};
    EXPECT_EQ(drawing.Object<XrecordData>(0x2B).items, expected);
}

TEST(ReadObjects, EntryOfMissingObject_IsCut) {
    Read drawing(File(Header("AC1015") + Section("OBJECTS", kRoot)));
    ASSERT_TRUE(drawing.IsRead());
    EXPECT_FALSE(DataAs<DictionaryData>(drawing.Data().namedObjects)->positions.contains(L"OURS"));
}

TEST(ReadObjects, UnknownOnes_AreKeptAsTheyStand) {
    const std::string layout =
        "0\nLAYOUT\n5\n2A\n102\n{ACAD_REACTORS\n330\nC\n102\n}"
        "\n330\nC\n100\nAcDbPlotSettings\n1\n\n2\nnone\n100\n"
        "AcDbLayout\n1\nModel\n330\n1F\n";
    Read drawing(File(Header("AC1015") + Section("OBJECTS", std::string(kRoot) + layout)));
    ASSERT_TRUE(drawing.IsRead());
    EXPECT_EQ(drawing.Object<ProxyObjectData>(0x2A).dxfName, L"LAYOUT");
    EXPECT_EQ(drawing.Object<ProxyObjectData>(0x2A).reactors.size(), 1u);
    EXPECT_THAT(drawing.Written(),
                HasSubstr("0\r\nLAYOUT\r\n  "
                          "5\r\n2A\r\n102\r\n{ACAD_REACTORS\r\n330\r\nC\r\n102\r\n}"
                          "\r\n330\r\nC\r\n100\r\nAcDbPlotSettings\r\n"
                          "  1\r\n\r\n  2\r\nnone\r\n100\r\nAcDbLayout\r\n  1\r\nModel\r\n330\r\n1F\r\n"));
}

TEST(ReadObjects, DamagedOnes_AreRefused) {
    EXPECT_THAT(ErrorOf(File(Section("OBJECTS", "0\nDICTIONARY\n5\nC\n350\n2A\n"))),
                HasSubstr(L"has no name"));
    EXPECT_THAT(
        ErrorOf(File(Section("OBJECTS", "0\nXRECORD\n5\nC\n100\nAcDbXrecord\n280\n1\n1\nx\n19\n1.0\n"))),
        HasSubstr(L"Group code 19 cannot stand"));
}

}  // namespace
}  // namespace workbench::test
