#include "sizes/size_table.h"

#include <gmock/gmock.h>

#include "platform/invalid_argument.h"
#include "support/test_platform.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::wstring GetKey(std::wstring strSize) {
    NormaliseSizeKey(strSize);
    return strSize;
}

TEST(SizeKey, GetSizeSetName_OfAnyOtherNumber_IsImperial) {
    EXPECT_EQ(GetSizeSetName(0), L"Metric OD Sizes");
    EXPECT_EQ(GetSizeSetName(1), L"Metric NPS Sizes");
    EXPECT_EQ(GetSizeSetName(2), L"Imperial US Sizes");
    EXPECT_EQ(GetSizeSetName(3), L"Imperial NPS Sizes");
    for (int nSizeSet : {-1, 4, 7, 99})
        EXPECT_EQ(GetSizeSetName(nSizeSet), L"Imperial US Sizes");
}

TEST(SizeKey, NormaliseSizeKey_OfOneNumber) {
    EXPECT_EQ(GetKey(L"1"), L" 1.00");
    EXPECT_EQ(GetKey(L"1\""), L" 1.00");
    EXPECT_EQ(GetKey(L"0.5"), L" 0.50");
    EXPECT_EQ(GetKey(L"  12 inch"), L"12.00");
    EXPECT_EQ(GetKey(L"1.125"), L" 1.12");
    EXPECT_EQ(GetKey(L"1234.5"), L"1234.50");
    EXPECT_EQ(GetKey(L"-1"), L"-1.00");
}

TEST(SizeKey, NormaliseSizeKey_OfTwoNumbers_WhateverTheLetterCaseOfTheX) {
    EXPECT_EQ(GetKey(L"6\" X 4\""), L" 6.00X 4.00");
    EXPECT_EQ(GetKey(L"6x4"), L" 6.00X 4.00");
    EXPECT_EQ(GetKey(L"6 X 4 X 2"), L" 6.00X 4.00");
}

TEST(SizeKey, NormaliseSizeKey_OfNoNumber_IsZero) {
    EXPECT_EQ(GetKey(L""), L" 0.00");
    EXPECT_EQ(GetKey(L"size"), L" 0.00");
    EXPECT_EQ(GetKey(L"X"), L" 0.00X 0.00");
    EXPECT_EQ(GetKey(L"inf"), L" 0.00");
    EXPECT_EQ(GetKey(L"nan"), L" 0.00");
    EXPECT_EQ(GetKey(L"0x10"), L" 0.00X10.00");
}

TEST(SizeKey, NormaliseSizeKey_OfAHugeNumber_DoesNotCrash) {
    EXPECT_EQ(GetKey(L"1e300").size(), 304u);
    EXPECT_FALSE(GetKey(std::wstring(5000, L'9')).empty());
}

TEST(SizeKey, SplitSizeKey_SecondIsEmptyWithoutX) {
    std::wstring strFirst = L"left over", strSecond = L"left over";
    SplitSizeKey(L"6", strFirst, strSecond);
    EXPECT_EQ(strFirst, L" 6.00");
    EXPECT_EQ(strSecond, L"");
    SplitSizeKey(L"6x4", strFirst, strSecond);
    EXPECT_EQ(strFirst, L" 6.00");
    EXPECT_EQ(strSecond, L" 4.00");
}

class SizeTableTest : public SystemTest {
  protected:
    SizeTableTest() {
        DropSizeTableCache();
        UseDatabase();
    }

    std::wstring InAnsi(const std::wstring& strName) const {
        return InData(L"Standards\\Piping\\ANSI\\" + strName);
    }

    // A section of size.tp as "key=value" texts.
    static std::vector<std::wstring> GetRows(CKV2D_IniFile ini, const std::wstring& strSection) {
        ini.SetSection(strSection);
        std::vector<std::wstring> astrKeys, astrValues;
        ini.GetSectionEntries(astrKeys, astrValues);
        for (size_t i = 0; i < astrKeys.size(); ++i)
            astrKeys[i] += L"=" + astrValues[i];
        return astrKeys;
    }
    std::vector<std::wstring> LoadRows(const std::wstring& strSection) {
        return GetRows(LoadSizeTable(L"size.tp", L"ANSI"), strSection);
    }
};

// A row of the column layout: the texts padded to their columns.
std::string Columns(std::string strSize, std::string strInch, std::string strNominal,
                    const std::string& strOd) {
    strSize.resize(12, ' ');
    strInch.resize(18, ' ');
    strNominal.resize(20, ' ');
    return strSize + strInch + strNominal + strOd;
}

TEST_F(SizeTableTest, LoadSizeTable_OfAMissingFile_IsEmptyAndMakesNone) {
    EXPECT_EQ(LoadSizeTable(L"size.tp", L"ANSI").GetRowCount(), 0u);
    EXPECT_FALSE(HasFile(InAnsi(L"size.tp")));
}

TEST_F(SizeTableTest, LoadSizeTable_OfAMissingFile_TriesAgainNextTime) {
    LoadSizeTable(L"size.tp", L"ANSI");
    PutFile(InAnsi(L"size.tp"), Lines({"[Imperial US Sizes]", " 1.00 = 1\""}));
    EXPECT_EQ(LoadSizeTable(L"size.tp", L"ANSI").GetRowCount(), 1u);
}

TEST_F(SizeTableTest, LoadSizeTable_OfAnEmptyFile_CountsAsNotCached) {
    PutFile(InAnsi(L"size.tp"), "");
    EXPECT_EQ(LoadSizeTable(L"size.tp", L"ANSI").GetRowCount(), 0u);
    EXPECT_EQ(GetBytes(InAnsi(L"size.tp")), "");
    PutFile(InAnsi(L"size.tp"), Lines({"1,1\",DN 25,33.4"}));
    EXPECT_EQ(LoadSizeTable(L"size.tp", L"ANSI").GetRowCount(), 4u);
}

TEST_F(SizeTableTest, LoadSizeTable_IniForm_IsReadAndLeftByteForByte) {
    const std::string strTable = Lines({"[Imperial US Sizes]", " 3.00 = 3\"", " 1.00 = 1\"", "a note"});
    PutFile(InAnsi(L"size.tp"), strTable);
    EXPECT_THAT(LoadRows(L"Imperial US Sizes"), ElementsAre(L" 3.00=3\"", L" 1.00=1\""));
    EXPECT_EQ(GetBytes(InAnsi(L"size.tp")), strTable);
}

TEST_F(SizeTableTest, LoadSizeTable_FirstLineEndsInABracket_IsIniForm) {
    const std::string strTable = Lines({"; sizes]", "[Imperial US Sizes]", " 1.00 = 1\""});
    PutFile(InAnsi(L"size.tp"), strTable);
    EXPECT_THAT(LoadRows(L"Imperial US Sizes"), ElementsAre(L" 1.00=1\""));
    EXPECT_EQ(GetBytes(InAnsi(L"size.tp")), strTable);
}

TEST_F(SizeTableTest, LoadSizeTable_CommaLayout_IsConvertedInPlace) {
    PutFile(InAnsi(L"size.tp"), Lines({"3,3\",DN 80,88.9", "1,1\",DN 25,33.4,a fifth field"}));
    LoadSizeTable(L"size.tp", L"ANSI");
    EXPECT_EQ(GetBytes(InAnsi(L"size.tp")),
              Lines({"[Imperial NPS Sizes]", " 1.00 = NPS 1", " 3.00 = NPS 3", "", "[Imperial US Sizes]",
                     " 1.00 = 1\"", " 3.00 = 3\"", "", "[Metric NPS Sizes]", " 1.00 = DN 25", " 3.00 = DN 80",
                     "", "[Metric OD Sizes]", " 1.00 = 33.4", " 3.00 = 88.9"}));
}

TEST_F(SizeTableTest, LoadSizeTable_InchMarkBehindTheSize_IsText) {
    PutFile(InAnsi(L"size.tp"), Lines({"1\",25,DN 25,33.4"}));
    EXPECT_THAT(LoadRows(L"Imperial US Sizes"), ElementsAre(L" 1.00=25"));
    EXPECT_THAT(LoadRows(L"Imperial NPS Sizes"), ElementsAre(L" 1.00=NPS 25"));
    EXPECT_THAT(LoadRows(L"Metric NPS Sizes"), ElementsAre(L" 1.00=DN 25"));
    EXPECT_THAT(LoadRows(L"Metric OD Sizes"), ElementsAre(L" 1.00=33.4"));
}

TEST_F(SizeTableTest, LoadSizeTable_QuotedFields_LoseTheirQuotesAndKeepTheirCommas) {
    PutFile(InAnsi(L"size.tp"), Lines({"\"6\"\" X 4\"\"\",\"6\"\" X 4\"\"\",\"DN 150, 100\",\"168,3\""}));
    EXPECT_THAT(LoadRows(L"Imperial US Sizes"), ElementsAre(L" 6.00X 4.00=6\" X 4\""));
    EXPECT_THAT(LoadRows(L"Imperial NPS Sizes"), ElementsAre(L" 6.00X 4.00=NPS 6 X NPS 4"));
    EXPECT_THAT(LoadRows(L"Metric NPS Sizes"), ElementsAre(L" 6.00X 4.00=DN 150, 100"));
    EXPECT_THAT(LoadRows(L"Metric OD Sizes"), ElementsAre(L" 6.00X 4.00=168,3"));
}

TEST_F(SizeTableTest, LoadSizeTable_ColumnLayout_IsCutByPosition) {
    PutFile(InAnsi(L"size.tp"),
            Columns("6\" x 4\"", "6\" x 4\"", "DN 150 x 100", "168.3 x 114.3         beyond") + "\r\n");
    EXPECT_THAT(LoadRows(L"Imperial US Sizes"), ElementsAre(L" 6.00X 4.00=6\" x 4\""));
    EXPECT_THAT(LoadRows(L"Imperial NPS Sizes"), ElementsAre(L" 6.00X 4.00=NPS 6 x NPS 4"));
    EXPECT_THAT(LoadRows(L"Metric NPS Sizes"), ElementsAre(L" 6.00X 4.00=DN 150 x 100"));
    EXPECT_THAT(LoadRows(L"Metric OD Sizes"), ElementsAre(L" 6.00X 4.00=168.3 x 114.3"));
}

TEST_F(SizeTableTest, LoadSizeTable_ColumnLayout_FullColumnsKeepEveryCharacter) {
    PutFile(InAnsi(L"size.tp"),
            "2          i123456789ABCDEFGHim123456789ABCDEFGHIJmo123456789ABCDEFGHIJKLo!\r\n");
    EXPECT_THAT(LoadRows(L"Imperial US Sizes"), ElementsAre(L" 2.00=123456789ABCDEFGHi"));
    EXPECT_THAT(LoadRows(L"Metric NPS Sizes"), ElementsAre(L" 2.00=m123456789ABCDEFGHIJ"));
    EXPECT_THAT(LoadRows(L"Metric OD Sizes"), ElementsAre(L" 2.00=mo123456789ABCDEFGHIJK"));
}

TEST_F(SizeTableTest, LoadSizeTable_ShortLineOfTheColumnLayout_HasEmptyColumns) {
    PutFile(InAnsi(L"size.tp"), "2           2\"");
    EXPECT_THAT(LoadRows(L"Imperial US Sizes"), ElementsAre(L" 2.00=2\""));
    EXPECT_THAT(LoadRows(L"Metric OD Sizes"), IsEmpty());
}

TEST_F(SizeTableTest, LoadSizeTable_BothLayouts_MayStandInOneFile) {
    PutFile(InAnsi(L"size.tp"), Lines({"1,1\",DN 25,33.4"}) + Columns("2", "2\"", "DN 50", "60.3") + "\r\n");
    EXPECT_THAT(LoadRows(L"Metric OD Sizes"), ElementsAre(L" 1.00=33.4", L" 2.00=60.3"));
}

TEST_F(SizeTableTest, LoadSizeTable_EndOfFile_DoesNotEndTheFile) {
    PutFile(InAnsi(L"size.tp"), Lines({"1,1\",DN 25,33.4", "END OF FILE", "2,2\",DN 50,60.3"}));
    EXPECT_THAT(LoadRows(L"Metric OD Sizes"), ElementsAre(L" 1.00=33.4", L" 2.00=60.3"));
}

TEST_F(SizeTableTest, LoadSizeTable_SizesThatAreNoNumbers_OverwriteOneAnother) {
    PutFile(InAnsi(L"size.tp"), Lines({"one,1\",DN 25,33.4", "two,2\",DN 50,60.3"}));
    EXPECT_THAT(LoadRows(L"Metric OD Sizes"), ElementsAre(L" 0.00=60.3"));
}

TEST_F(SizeTableTest, LoadSizeTable_MalformedLine_RaisesInvalidArgumentAndLeavesTheFile) {
    for (const char* pszLine : {"1,1\"", "1,1\",DN 25", "", ","}) {
        const std::string strTable = Lines({"1,1\",DN 25,33.4", pszLine, "2,2\",DN 50,60.3"});
        PutFile(InAnsi(L"size.tp"), strTable);
        EXPECT_THROW(LoadSizeTable(L"size.tp", L"ANSI"), platform::InvalidArgument) << pszLine;
        EXPECT_EQ(GetBytes(InAnsi(L"size.tp")), strTable);
    }
}

TEST_F(SizeTableTest, LoadSizeTable_AfterAMalformedLineWasMended_ReadsTheFile) {
    PutFile(InAnsi(L"size.tp"), Lines({"1,1\""}));
    EXPECT_THROW(LoadSizeTable(L"size.tp", L"ANSI"), platform::InvalidArgument);
    PutFile(InAnsi(L"size.tp"), Lines({"1,1\",DN 25,33.4"}));
    EXPECT_THAT(LoadRows(L"Metric OD Sizes"), ElementsAre(L" 1.00=33.4"));
}

TEST_F(SizeTableTest, LoadSizeTable_NameInAnyLetterCase_HitsTheSameCache) {
    PutFile(InAnsi(L"size.tp"), Lines({"[Metric OD Sizes]", " 1.00 = 33.4"}));
    LoadSizeTable(L"SIZE.TP", L"ANSI");
    PutFile(InAnsi(L"size.tp"), Lines({"[Metric OD Sizes]", " 1.00 = changed"}));
    EXPECT_THAT(LoadRows(L"Metric OD Sizes"), ElementsAre(L" 1.00=33.4"));
}

TEST_F(SizeTableTest, LoadSizeTable_OfASecondStandard_GivesTheFirstOnesTable) {
    PutFile(InAnsi(L"size.tp"), Lines({"[Metric OD Sizes]", " 1.00 = 33.4"}));
    PutFile(InData(L"Standards\\Piping\\DIN\\size.tp"), Lines({"[Metric OD Sizes]", " 1.00 = 33.7"}));
    LoadSizeTable(L"size.tp", L"ANSI");
    EXPECT_THAT(GetRows(LoadSizeTable(L"size.tp", L"DIN"), L"Metric OD Sizes"), ElementsAre(L" 1.00=33.4"));
}

TEST_F(SizeTableTest, LoadSizeTable_EachKnownTable_HasACacheOfItsOwn) {
    const std::vector<std::wstring> astrNames = {L"api-size.tp", L"branch.tp",  L"equal.tp",   L"red-crs.tp",
                                                 L"red-ell.tp",  L"red-tee.tp", L"reducer.tp", L"s-equal.tp",
                                                 L"size.tp",     L"s-size.tp",  L"swage.tp",   L"thermal.tp"};
    for (size_t i = 0; i < astrNames.size(); ++i) {
        PutFile(InAnsi(astrNames[i]), "[Metric OD Sizes]\r\n 1.00 = " + std::to_string(i) + "\r\n");
        LoadSizeTable(astrNames[i], L"ANSI");
        PutFile(InAnsi(astrNames[i]), "[Metric OD Sizes]\r\n 1.00 = changed\r\n");
    }
    for (size_t i = 0; i < astrNames.size(); ++i) {
        EXPECT_THAT(GetRows(LoadSizeTable(astrNames[i], L"ANSI"), L"Metric OD Sizes"),
                    ElementsAre(L" 1.00=" + std::to_wstring(i)));
    }
}

TEST_F(SizeTableTest, LoadSizeTable_OfAnyOtherName_IsNotCached) {
    PutFile(InAnsi(L"own.tp"), Lines({"1,1\",DN 25,33.4"}));
    EXPECT_EQ(LoadSizeTable(L"own.tp", L"ANSI").GetRowCount(), 4u);
    PutFile(InAnsi(L"own.tp"), Lines({"[Metric OD Sizes]", " 1.00 = changed"}));
    EXPECT_THAT(GetRows(LoadSizeTable(L"own.tp", L"ANSI"), L"Metric OD Sizes"),
                ElementsAre(L" 1.00=changed"));
}

TEST_F(SizeTableTest, LoadSizeTable_OldForm_IsConvertedOnceAndReadAsIniFormByTheNextProcess) {
    PutFile(InAnsi(L"size.tp"), Lines({"3,3\",DN 80,88.9", "1,1\",DN 25,33.4"}));
    const std::vector<std::wstring> astrFirst = LoadRows(L"Metric OD Sizes");
    EXPECT_THAT(astrFirst, ElementsAre(L" 3.00=88.9", L" 1.00=33.4"));
    const std::string strConverted = GetBytes(InAnsi(L"size.tp"));
    const platform::FileTime modified = GetModified(InAnsi(L"size.tp"));

    DropSizeTableCache();  // what a new process starts with
    EXPECT_THAT(LoadRows(L"Metric OD Sizes"), ElementsAre(L" 1.00=33.4", L" 3.00=88.9"));
    EXPECT_EQ(GetBytes(InAnsi(L"size.tp")), strConverted);
    EXPECT_EQ(GetModified(InAnsi(L"size.tp")), modified);
}

// Other programs edit the converted table while this process still holds copies of it.
TEST_F(SizeTableTest, LoadSizeTable_CopiesOfAConvertedTable_NeverWriteItAgain) {
    PutFile(InAnsi(L"size.tp"), Lines({"1,1\",DN 25,33.4"}));
    {
        const CKV2D_IniFile kept = LoadSizeTable(L"size.tp", L"ANSI");
        PutFile(InAnsi(L"size.tp"), "edited");
        LoadSizeTable(L"size.tp", L"ANSI");
    }
    DropSizeTableCache();
    EXPECT_EQ(GetBytes(InAnsi(L"size.tp")), "edited");
}

TEST_F(SizeTableTest, LoadSizeTable_OldFormThatCannotBeWritten_IsReadAndLeft) {
    const std::string strTable = Lines({"1,1\",DN 25,33.4"});
    PutFile(InAnsi(L"size.tp"), strTable);
    const auto held = HoldFile(InAnsi(L"size.tp"), platform::Hold::kReading);
    EXPECT_THAT(LoadRows(L"Metric OD Sizes"), ElementsAre(L" 1.00=33.4"));
    EXPECT_EQ(GetBytes(InAnsi(L"size.tp")), strTable);
}

}  // namespace
