#include "drawing_file/drawing_reader.h"

#include <gmock/gmock.h>

#include "drawing_text.h"

namespace workbench::test {
namespace {

using namespace workbench::database;
using testing::HasSubstr;
using testing::StartsWith;

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

TEST(ReadTables, NameOfARecord_IsTheOneBelowItsOwnMarker) {
    Read drawing(
        File(Header("AC1015") +
             Section("TABLES",
                     "0\nTABLE\n2\nAPPID\n5\n9\n0\nAPPID\n5\n12\n330\n9\n100\nAcDbSymbolTableRecord\n"
                     "2\nTHEIRS\n100\nAcDbRegAppTableRecord\n2\nOURS\n70\n0\n0\nENDTAB\n") +
             Section("BLOCKS",
                     "0\nBLOCK\n5\n40\n100\nAcDbEntity\n8\n0\n2\nTHEIRS\n100\nAcDbBlockBegin\n2\nOURS\n"
                     "70\n0\n0\nENDBLK\n5\n41\n100\nAcDbEntity\n8\n0\n100\nAcDbBlockEnd\n")));
    ASSERT_TRUE(drawing.IsRead());
    EXPECT_EQ(drawing.Object<RegAppData>(0x12).name, L"OURS");
    EXPECT_NO_THROW(drawing.Block(L"OURS"));
    const std::string first = drawing.Written();
    EXPECT_EQ(Read(first).Written(), first);
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

}  // namespace
}  // namespace workbench::test
