// The reading of a stored record: item by item in their order, and tolerant of what is missing.
#include <gtest/gtest.h>

#include <string>

#include "xdata_fields.h"
#include "xdata_items.h"

namespace {

using Tag = XDataFields::Tag;
using Fields = XDataFields;

constexpr Tag kTag = {'T', 'A', 'G', '-', '1', '2', '3', '4'};

XDataItems FullList() {
    XDataItems items;
    items.App().Long(101).Short(3).Short(4).Short(5).Long(106).Short(7).Long(108).Long(109);
    items.Short(110).Short(111).Text(L"TAG-1234").Short(2);
    return items;
}

constexpr Fields kFull = {101, 3, 4, 5, 106, 7, 108, 109, 110, 111, kTag, 2};

// What a list reads as that ends ahead of the place.
Fields Before(int place) {
    Fields fields;
    if (place > kSpec) fields.spec = kFull.spec;
    if (place > kMain) fields.mainSize = kFull.mainSize;
    if (place > kBranch) fields.branchSize = kFull.branchSize;
    if (place > kIso) fields.isoPlane = kFull.isoPlane;
    if (place > kLine) fields.line = kFull.line;
    if (place > kElectric) fields.electricMode = kFull.electricMode;
    if (place > kProject) fields.project = kFull.project;
    if (place > kExtraLong) fields.extraLong = kFull.extraLong;
    if (place > kShort1) fields.extraShort1 = kFull.extraShort1;
    if (place > kShort2) fields.extraShort2 = kFull.extraShort2;
    if (place > kTagText) fields.tag = kFull.tag;
    if (place > kApp) fields.app = kFull.app;
    return fields;
}

XDataItems Without(XDataPlace place) {
    XDataItems items = FullList();
    items.Drop(place);
    return items;
}

TEST(DocXDataItems, FullList_FillsEveryField) {
    EXPECT_EQ(ReadFields(FullList()), kFull);
}

TEST(DocXDataItems, NullList_KeepsTheDefaults) {
    EXPECT_EQ(ReadFields(XDataItems()), Fields());
}

TEST(DocXDataItems, EveryPrefixOfAList_ReadsAsFarAsItGoes) {
    for (int count = 0; count <= kXDataPlaces; ++count) {
        XDataItems items = FullList();
        items.Cut(count);
        EXPECT_EQ(ReadFields(items), Before(count)) << count << " items";
    }
}

TEST(DocXDataItems, ItemsBehindTheLast_AreIgnored) {
    XDataItems items = FullList();
    items.Short(99).Long(99).Text(L"more");
    EXPECT_EQ(ReadFields(items), kFull);
}

// --- Each item dropped in turn.

TEST(DocXDataItems, WithoutAppName_ReadsTheSame) {
    EXPECT_EQ(ReadFields(Without(kAppName)), kFull);
}

TEST(DocXDataItems, WithoutSpec_KeepsItsDefaultAndReadsTheRest) {
    Fields expected = kFull;
    expected.spec = 0;
    EXPECT_EQ(ReadFields(Without(kSpec)), expected);
}

TEST(DocXDataItems, WithoutMainSize_TheNextShortsMoveUp) {
    Fields expected = kFull;
    expected.mainSize = 4;
    expected.branchSize = 5;
    expected.isoPlane = 0;
    EXPECT_EQ(ReadFields(Without(kMain)), expected);
}

TEST(DocXDataItems, WithoutBranchSize_TheIsoplaneMovesUp) {
    Fields expected = kFull;
    expected.branchSize = 5;
    expected.isoPlane = 0;
    EXPECT_EQ(ReadFields(Without(kBranch)), expected);
}

TEST(DocXDataItems, WithoutIsoplane_KeepsItsDefaultAndReadsTheRest) {
    Fields expected = kFull;
    expected.isoPlane = 0;
    EXPECT_EQ(ReadFields(Without(kIso)), expected);
}

TEST(DocXDataItems, WithoutAllThreeShorts_KeepsTheirDefaultsAndReadsTheRest) {
    XDataItems items = FullList();
    for (int i = 0; i < 3; ++i)
        items.Drop(kMain);
    Fields expected = kFull;
    expected.mainSize = 12;
    expected.branchSize = 10;
    expected.isoPlane = 0;
    EXPECT_EQ(ReadFields(items), expected);
}

TEST(DocXDataItems, WithoutLine_KeepsItsDefaultAndReadsTheRest) {
    Fields expected = kFull;
    expected.line = 0;
    EXPECT_EQ(ReadFields(Without(kLine)), expected);
}

TEST(DocXDataItems, WithoutElectricMode_KeepsItsDefaultAndReadsTheRest) {
    Fields expected = kFull;
    expected.electricMode = 0;
    EXPECT_EQ(ReadFields(Without(kElectric)), expected);
}

TEST(DocXDataItems, WithoutProject_TheExtraLongIsTakenForItAndTheExtrasAreNotReached) {
    Fields expected = Before(kProject);
    expected.project = 109;
    expected.app = 110;
    EXPECT_EQ(ReadFields(Without(kProject)), expected);
}

TEST(DocXDataItems, WithoutExtraLong_GoesStraightToTheDiscipline) {
    Fields expected = Before(kExtraLong);
    expected.app = 110;
    EXPECT_EQ(ReadFields(Without(kExtraLong)), expected);
}

TEST(DocXDataItems, WithoutAnyExtra_ReadsTheDisciplineBehindTheProject) {
    XDataItems items = FullList();
    for (int i = 0; i < 4; ++i)
        items.Drop(kExtraLong);
    Fields expected = Before(kExtraLong);
    expected.app = 2;
    EXPECT_EQ(ReadFields(items), expected);
}

TEST(DocXDataItems, WithoutFirstExtraShort_TheNextThreeItemsAreTakenAsTheyCome) {
    Fields expected = Before(kShort1);
    expected.extraShort1 = 111;
    EXPECT_EQ(ReadFields(Without(kShort1)), expected) << "the text gives no number, the discipline no text";
}

TEST(DocXDataItems, WithoutSecondExtraShort_TheNextThreeItemsAreTakenAsTheyCome) {
    Fields expected = Before(kShort2);
    EXPECT_EQ(ReadFields(Without(kShort2)), expected);
}

TEST(DocXDataItems, WithoutTag_TheDisciplineIsTakenForIt) {
    Fields expected = Before(kTagText);
    EXPECT_EQ(ReadFields(Without(kTagText)), expected);
}

TEST(DocXDataItems, WithoutDiscipline_KeepsItsDefault) {
    EXPECT_EQ(ReadFields(Without(kApp)), Before(kApp));
}

// --- Wrong codes.

TEST(DocXDataItems, ForeignCode_EndsTheReadingWhereItStands) {
    for (int place = kAppName; place <= kApp; ++place) {
        if (place >= kShort1 && place <= kTagText) continue;  // these are taken whatever they are
        for (short code :
             {short{1040}, short{1004}, short{1010}, short{1002}, short{1005}, short{0}, short{-4}}) {
            XDataItems items = FullList();
            items.At(place).restype = code;
            EXPECT_EQ(ReadFields(items), Before(place)) << "code " << code << " in place " << place;
        }
    }
}

TEST(DocXDataItems, ShortInPlaceOfTheSpec_ShiftsTheFieldsBehindIt) {
    XDataItems items;
    items.App().Short(1).Short(3).Short(4).Short(5).Long(106).Short(7).Long(108).Long(109);
    Fields expected;
    expected.mainSize = 1;
    expected.branchSize = 3;
    expected.isoPlane = 4;
    expected.electricMode = 5;
    expected.project = 106;
    expected.app = 7;
    EXPECT_EQ(ReadFields(items), expected);
}

TEST(DocXDataItems, LongInPlaceOfABranchSize_IsTakenForTheLine) {
    XDataItems items;
    items.App().Long(101).Short(3).Long(104).Short(5).Long(106).Short(7);
    Fields expected;
    expected.spec = 101;
    expected.mainSize = 3;
    expected.line = 104;
    expected.electricMode = 5;
    expected.project = 106;
    expected.app = 7;
    EXPECT_EQ(ReadFields(items), expected);
}

TEST(DocXDataItems, SecondAppName_EndsTheReading) {
    XDataItems items;
    items.App().App().Long(101);
    EXPECT_EQ(ReadFields(items), Fields());
}

TEST(DocXDataItems, LongsInPlaceOfTheExtraShorts_GiveTheirLowHalves) {
    XDataItems items = FullList();
    items.Cut(kShort1);
    items.Long(0x12340005).Long(0x1234FFFE).Text(L"TAG-1234").Short(2);
    Fields expected = kFull;
    expected.extraShort1 = 5;
    expected.extraShort2 = -2;
    EXPECT_EQ(ReadFields(items), expected);
}

TEST(DocXDataItems, TextsInPlaceOfTheExtraShorts_GiveNoNumber) {
    XDataItems items = FullList();
    items.Cut(kShort1);
    items.Text(L"{", 1002).Text(L"13", 1003).Text(L"TAG-1234").Short(2);
    Fields expected = kFull;
    expected.extraShort1 = 0;
    expected.extraShort2 = 0;
    EXPECT_EQ(ReadFields(items), expected);
}

TEST(DocXDataItems, NumberInPlaceOfTheTag_GivesZeros) {
    XDataItems items = FullList();
    items.Cut(kTagText);
    items.Long(0x41414141).Short(2);
    Fields expected = kFull;
    expected.tag = Tag{};
    EXPECT_EQ(ReadFields(items), expected);
}

// --- Widths and short texts.

TEST(DocXDataItems, NegativeShorts_KeepTheirSign) {
    XDataItems items;
    items.App().Long(-1).Short(-3).Short(-4).Short(-5).Long(-6).Short(-7).Long(-8).Long(-9);
    items.Short(-10).Short(-11).Text(L"").Short(-12);
    const Fields expected = {-1, -3, -4, -5, -6, -7, -8, -9, -10, -11, Tag{}, -12};
    EXPECT_EQ(ReadFields(items), expected);
}

Tag ReadTag(const std::wstring& text) {
    XDataItems items = FullList();
    items.Cut(kTagText);
    items.Text(text);
    return ReadFields(items).tag;
}

TEST(DocXDataItems, ShortTag_IsFilledUpWithZeros) {
    EXPECT_EQ(ReadTag(L""), Tag{});
    EXPECT_EQ(ReadTag(L"A"), (Tag{'A'}));
    EXPECT_EQ(ReadTag(L"ABCDEFG"), (Tag{'A', 'B', 'C', 'D', 'E', 'F', 'G'}));
}

TEST(DocXDataItems, LongTag_GivesItsFirstEightCharacters) {
    EXPECT_EQ(ReadTag(L"ABCDEFGHIJ"), (Tag{'A', 'B', 'C', 'D', 'E', 'F', 'G', 'H'}));
}

TEST(DocXDataItems, WideCharactersOfTheTag_GiveTheirLowBytes) {
    EXPECT_EQ(ReadTag(L"\x4241\x00FF\x0100Z"), (Tag{0x41, 0xFF, 0x00, 'Z'}));
}

TEST(DocXDataItems, NullTag_GivesZeros) {
    XDataItems items = FullList();
    items.Cut(kTagText);
    items.NullText().Short(2);
    Fields expected = kFull;
    expected.tag = Tag{};
    EXPECT_EQ(ReadFields(items), expected);
}

}  // namespace
