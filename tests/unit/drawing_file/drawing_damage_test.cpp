// Files that are torn, damaged or hostile: each is read or refused, with the line where it goes wrong, and
// none does harm.
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "drawing_file/drawing_reader.h"
#include "drawing_text.h"

namespace workbench::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

// A drawing with something of everything, by hand.
std::string SmallDrawing() {
    return File(
        Header("AC1015") +
        Section(
            "TABLES",
            "0\nTABLE\n2\nLAYER\n5\n2\n0\nLAYER\n5\n10\n2\nPIPES\n70\n0\n62\n3\n6\nContinuous\n0\nENDTAB\n") +
        Section("BLOCKS",
                "0\nBLOCK\n8\n0\n2\nVAL_BLK\n70\n0\n10\n1\n20\n2\n30\n3\n"
                "0\nLINE\n8\nPIPES\n62\n3\n10\n1.5\n20\n2\n30\n-1\n11\n4\n21\n5\n31\n6\n0\nENDBLK\n8\n0\n") +
        Section("ENTITIES",
                "0\nINSERT\n8\n0\n66\n1\n2\nVAL_BLK\n0\nATTRIB\n2\nLIN_NUM\n1\nx\n0\nSEQEND\n"
                "1001\nOURS\n1002\n{\n1000\ntext\n1010\n1.0\n1020\n2.0\n1030\n3.0\n1070\n1\n1002\n}\n") +
        Section("OBJECTS",
                "0\nDICTIONARY\n5\nC\n330\n0\n100\nAcDbDictionary\n281\n1\n3\nOURS\n350\n2A\n"
                "0\nXRECORD\n5\n2A\n330\nC\n100\nAcDbXrecord\n280\n1\n90\n5\n"));
}

// The same as the writer has it, with everything that a drawing needs.
std::string WrittenDrawing() {
    return Read(SmallDrawing()).Written();
}

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t start = 0; start < text.size();) {
        const auto end = text.find('\n', start) + 1;
        lines.push_back(text.substr(start, end - start));
        start = end;
    }
    return lines;
}

std::string Joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line;
    return text;
}

// One that is refused names its line and leaves nothing; one that is read can be written and read again.
void ExpectReadOrRefused(const std::string& text, const std::string& what) {
    Read drawing(text);
    EXPECT_NE(drawing.IsRead(), drawing.Data().stubs.empty()) << what;
    if (!drawing.IsRead()) {
        EXPECT_THAT(drawing.Error(), StartsWith(L"Line ")) << what;
        return;
    }
    EXPECT_EQ(drawing.Error(), L"") << what;
    const std::string written = drawing.Written();
    Read again(written);
    ASSERT_TRUE(again.IsRead()) << what;
    EXPECT_EQ(again.Written(), written) << what;
}

TEST(ReadDrawing, OfEveryReleaseFrom12To2018_IsRead) {
    for (const char* version : {"AC1006", "AC1009", "AC1012", "AC1014", "AC1015", "AC1018", "AC1021",
                                "AC1024", "AC1027", "AC1032"}) {
        EXPECT_TRUE(Read(File(Header(version))).IsRead()) << version;
    }
}

TEST(ReadDrawing, OfAnotherRelease_IsRefusedWithItsLine) {
    for (const char* version : {"AC1033", "AC1016", "AC9999", "MC0.0", "AC2.10", "", "1015", "AC1032 "}) {
        EXPECT_THAT(ErrorOf(File(Header(version))),
                    StartsWith(L"Line 8: The drawing is of a release that cannot be read"))
            << version;
    }
    EXPECT_THAT(ErrorOf(File(Section("HEADER", "9\n$ACADVER\n1\nAC1015\n9\n$ACADVER\n1\nAC1999\n"))),
                StartsWith(L"Line 12: "));
}

TEST(DamagedDrawing, TornAnywhere_IsRefusedAndLeavesTheDatabaseEmpty) {
    for (const std::string& whole : {SmallDrawing(), WrittenDrawing()}) {
        ASSERT_TRUE(Read(whole).IsRead());
        const std::size_t lastLineEnd = whole.ends_with("\r\n") ? 2 : 1;
        for (std::size_t length = 0; length + lastLineEnd < whole.size(); ++length) {
            EXPECT_THAT(ErrorOf(whole.substr(0, length)), StartsWith(L"Line ")) << length;
        }
    }
}

TEST(DamagedDrawing, WithAnyGroupDropped_IsReadOrRefusedButNeverHarmful) {
    for (const std::string& whole : {SmallDrawing(), WrittenDrawing()}) {
        const std::vector<std::string> lines = LinesOf(whole);
        for (std::size_t dropped = 0; dropped + 1 < lines.size(); dropped += 2) {
            std::vector<std::string> left = lines;
            left.erase(left.begin() + static_cast<std::ptrdiff_t>(dropped),
                       left.begin() + static_cast<std::ptrdiff_t>(dropped) + 2);
            ExpectReadOrRefused(Joined(left), "without line " + std::to_string(dropped + 1));
        }
    }
}

TEST(DamagedDrawing, WithAnyLineDropped_IsReadOrRefusedButNeverHarmful) {
    const std::vector<std::string> lines = LinesOf(SmallDrawing());
    for (std::size_t dropped = 0; dropped < lines.size(); ++dropped) {
        std::vector<std::string> left = lines;
        left.erase(left.begin() + static_cast<std::ptrdiff_t>(dropped));
        ExpectReadOrRefused(Joined(left), "without line " + std::to_string(dropped + 1));
    }
}

TEST(DamagedDrawing, WithAnyGroupTwice_IsReadOrRefusedButNeverHarmful) {
    const std::vector<std::string> lines = LinesOf(SmallDrawing());
    for (std::size_t doubled = 0; doubled + 1 < lines.size(); doubled += 2) {
        std::vector<std::string> more = lines;
        more.insert(more.begin() + static_cast<std::ptrdiff_t>(doubled) + 2,
                    {lines[doubled], lines[doubled + 1]});
        ExpectReadOrRefused(Joined(more), "line " + std::to_string(doubled + 1) + " twice");
    }
}

TEST(DamagedDrawing, WithAnyLineHostile_IsReadOrRefusedButNeverHarmful) {
    const std::vector<std::string> lines = LinesOf(SmallDrawing());
    const std::string hostile[] = {"",
                                   "x",
                                   "-1",
                                   "0",
                                   "99999999999999999999",
                                   "1e999",
                                   "nan",
                                   "{",
                                   "}",
                                   "EOF",
                                   "SECTION",
                                   "ENDSEC",
                                   "*Model_Space",
                                   "\xFF\xFE",
                                   "\\U+0000",
                                   std::string(1, '\0'),
                                   std::string(5000, 'A'),
                                   std::string(300, '9')};
    for (std::size_t changed = 0; changed < lines.size(); ++changed) {
        for (const std::string& value : hostile) {
            std::vector<std::string> others = lines;
            others[changed] = value + "\n";
            ExpectReadOrRefused(Joined(others),
                                "line " + std::to_string(changed + 1) + " is " + value.substr(0, 30));
        }
    }
}

TEST(DamagedDrawing, ListOfAnApplication_EndsAheadOfTheNextMarker) {
    const auto withList = [](const char* list) {
        return Entities("0\nLINE\n102\n{OURS\n" + std::string(list) + "100\nAcDbLine\n10\n1\n");
    };
    EXPECT_TRUE(Read(withList("1000\nx\n102\n}\n")).IsRead());
    EXPECT_THAT(ErrorOf(withList("1\nx\n100\nAcDbEntity\n102\n}\n")),
                StartsWith(L"Line 8: A list of an application is not closed."));
}

TEST(DamagedDrawing, HandleInWhatNobodyKnows_IsLookedAtToo) {
    EXPECT_THAT(ErrorOf(Entities("0\nWIPEOUT\n8\n0\n340\nzz\n")),
                StartsWith(L"Line 10: \"zz\" is not a handle."));
}

TEST(DamagedDrawing, FlagsThatContradictEachOther_GiveOneKind) {
    // The first ones are those that the marker follows from.
    const std::string polyline =
        "0\nPOLYLINE\n100\nAcDbEntity\n8\n0\n100\nAcDb2dPolyline\n66\n1\n70\n8\n"
        "100\nAcDb3dPolyline\n70\n0\n";
    const std::string vertex =
        "0\nVERTEX\n100\nAcDbEntity\n8\n0\n100\nAcDbVertex\n100\nAcDb2dVertex\n10\n1\n70\n32\n"
        "100\nAcDb3dPolylineVertex\n70\n0\n";
    Read drawing(Entities(polyline + vertex + "0\nSEQEND\n8\n0\n"));
    ASSERT_TRUE(drawing.IsRead());
    EXPECT_EQ(drawing.Entity<database::HeavyPolylineData>().flags, 8);
    const std::string first = drawing.Written();
    EXPECT_EQ(Read(first).Written(), first);
}

TEST(DamagedDrawing, GreatestHandle_LeavesRoomForOthers) {
    EXPECT_TRUE(Read(Entities("0\nPOINT\n5\n3FFFFFFFFFFFFFFF\n8\n0\n")).IsRead());
    EXPECT_THAT(ErrorOf(Entities("0\nPOINT\n5\n4000000000000000\n8\n0\n")),
                StartsWith(L"Line 8: A handle leaves no room for others."));
}

TEST(DamagedDrawing, BinaryBytes_AreRefusedWithTheirLine) {
    std::string bytes;
    for (int i = 0; i < 4096; ++i)
        bytes += static_cast<char>(i * 7 + i / 256);
    EXPECT_THAT(ErrorOf(bytes), StartsWith(L"Line 1: "));
    EXPECT_THAT(ErrorOf("AutoCAD Binary DXF\r\n\x1a" + bytes), StartsWith(L"Line 1: "));
    EXPECT_THAT(ErrorOf("AC1032" + bytes), StartsWith(L"Line 1: "));
    EXPECT_EQ(ErrorOf(""), L"Line 1: The file is empty.");
    EXPECT_THAT(ErrorOf("\n"), StartsWith(L"Line 1: "));
    EXPECT_THAT(ErrorOf("\xEF\xBB\xBF"), HasSubstr(L"The file ends"));
}

}  // namespace
}  // namespace workbench::test
