#include "drawing_file/drawing_reader.h"

#include <gmock/gmock.h>

#include "drawing_text.h"

namespace workbench::test {
namespace {

using namespace workbench::database;
using testing::HasSubstr;
using testing::StartsWith;

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

TEST(ReadEntities, NumberOfAnUnknownOneBetweenTabs_IsStillANumberWhenItIsSaved) {
    Read drawing(Entities("0\nHATCH\n8\n0\n40\n\t1.50 \n310\nAB  \n1\n text\t\n"));
    ASSERT_TRUE(drawing.IsRead());
    const std::string first = drawing.Written();
    EXPECT_THAT(first, HasSubstr(" 40\r\n1.50\r\n310\r\nAB\r\n  1\r\n text^I\r\n"));
    EXPECT_EQ(Read(first).Written(), first);
}

TEST(ReadEntities, DataOfAnExtensionRecordInAnEntity_StaysBehindItsMarker) {
    const std::string data = "100\nAcDbXrecord\n280\n1\n100\nAcDbEntity\n6\nDASHED\n102\n{OPEN\n";
    Read drawing(
        File(Header("AC1015") +
             Section("ENTITIES", "0\nOURS\n5\n2F\n100\nAcDbEntity\n8\n0\n100\nOurs\n90\n1\n" + data)));
    ASSERT_TRUE(drawing.IsRead());
    EXPECT_EQ(drawing.Entity<ProxyEntityData>().linetype, nullptr);
    const std::string first = drawing.Written();
    EXPECT_THAT(first,
                HasSubstr("100\r\nAcDbEntity\r\n  8\r\n0\r\n100\r\nOurs\r\n 90\r\n1\r\n100\r\nAcDbXrecord\r\n"
                          "280\r\n1\r\n100\r\nAcDbEntity\r\n  6\r\nDASHED\r\n102\r\n{OPEN\r\n"));
    EXPECT_EQ(Read(first).Written(), first);
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

}  // namespace
}  // namespace workbench::test
