#include "drawing_file/drawing_reader.h"

#include <gmock/gmock.h>

#include "drawing_text.h"

namespace workbench::test {
namespace {

using namespace workbench::database;
using testing::HasSubstr;

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

TEST(ReadObjects, ExtensionRecordWithoutAMarker_HasItsDataAllTheSame) {
    const std::string record =
        "0\nXRECORD\n5\n2B\n102\n{THEIRS\n90\n1\n102\n}\n330\nC\n280\n0\n90\n70000\n1\ntext\n";
    Read drawing(File(Header("AC1015") + Section("OBJECTS", std::string(kRoot) + record)));
    ASSERT_TRUE(drawing.IsRead());
    const DataItems expected = {{90, std::int64_t{70000}}, {1, L"text"}};
    EXPECT_EQ(drawing.Object<XrecordData>(0x2B).items, expected);
    EXPECT_EQ(drawing.Object<XrecordData>(0x2B).cloning, 0);
    // The list of another application is not taken for data when the drawing is read again.
    const std::string first = drawing.Written();
    EXPECT_THAT(first, HasSubstr("102\r\n{THEIRS\r\n 90\r\n1\r\n102\r\n}\r\n100\r\nAcDbXrecord\r\n"));
    Read again(first);
    EXPECT_EQ(again.Object<XrecordData>(0x2B).items, expected);
    EXPECT_EQ(again.Written(), first);
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

TEST(ReadObjects, PointerBehindAnOwnerThatIsNotThere_IsNotTakenForTheOwner) {
    const std::string unknown = "0\nOURS\n5\n2A\n102\nOURS{\n330\n1F\n102\n}\n330\n1F1\n";
    Read drawing(File(Header("AC1015") + Section("OBJECTS", unknown)));
    ASSERT_TRUE(drawing.IsRead());
    const std::string first = drawing.Written();
    EXPECT_THAT(first, HasSubstr("  5\r\n2A\r\n330\r\n0\r\n102\r\nOURS{\r\n102\r\n}\r\n330\r\n1F1\r\n"));
    EXPECT_EQ(Read(first).Written(), first);
}

TEST(ReadObjects, DamagedOnes_AreRefused) {
    EXPECT_THAT(ErrorOf(File(Section("OBJECTS", "0\nDICTIONARY\n5\nC\n350\n2A\n"))),
                HasSubstr(L"has no name"));
    EXPECT_THAT(
        ErrorOf(File(Section("OBJECTS", "0\nXRECORD\n5\nC\n100\nAcDbXrecord\n280\n1\n1\nx\n19\n1.0\n"))),
        HasSubstr(L"Group code 19 cannot stand"));
    EXPECT_THAT(ErrorOf(File(Section("OBJECTS", "0\nXRECORD\n5\nC\n20\n1.0\n"))),
                HasSubstr(L"Group code 20 cannot stand"));
}

}  // namespace
}  // namespace workbench::test
