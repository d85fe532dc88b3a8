// Typed values of the ini document, and lists of rows.
#include "ini_document.h"

namespace {

class IniTypedValuesTest : public IniDocumentTest {};

TEST_F(IniTypedValuesTest, GetInt_TakesTheLeadingInteger_AndZeroNotTheDefault) {
    CKV2D_IniFile ini = Open("a = 12 mm\r\nb = x\r\nc =  -7\r\nd = 99999999999\r\n");
    int value = 1;
    ini.GetInt(L"a", value, 5);
    EXPECT_EQ(value, 12);
    ini.GetInt(L"b", value, 5);
    EXPECT_EQ(value, 0);
    ini.GetLong(L"c", value, 5);
    EXPECT_EQ(value, -7);
    ini.GetInt(L"d", value, 5);
    EXPECT_EQ(value, 2147483647);
    ini.GetInt(L"missing", value, -5);
    EXPECT_EQ(value, -5);
}

TEST_F(IniTypedValuesTest, GetInt_OfEmptiedValue_IsZero) {
    CKV2D_IniFile ini = Open("a = 1\r\na = \r\n");
    int value = 9;
    ini.GetInt(L"a", value, 5);
    EXPECT_EQ(value, 0);
}

TEST_F(IniTypedValuesTest, GetDouble_PassesTheDefaultThroughSixDecimals) {
    CKV2D_IniFile ini = Open("a = 2.5 inch\r\nb = x\r\nc = 1e3\r\n");
    double value = 1;
    ini.GetDouble(L"missing", value, 0.00000001);
    EXPECT_EQ(value, 0.0);
    ini.GetDouble(L"missing", value, 1.25);
    EXPECT_EQ(value, 1.25);
    ini.GetDouble(L"a", value, 9);
    EXPECT_EQ(value, 2.5);
    ini.GetDouble(L"b", value, 9);
    EXPECT_EQ(value, 0.0);
    ini.GetDouble(L"c", value, 9);
    EXPECT_EQ(value, 1000.0);
}

TEST_F(IniTypedValuesTest, GetBool_OfWord_IsFalse) {
    CKV2D_IniFile ini = Open("a = true\r\nb = 1\r\nc = -3\r\nd = 0\r\n");
    bool value = true;
    ini.GetBool(L"a", value, true);
    EXPECT_FALSE(value);
    ini.GetBool(L"b", value, false);
    EXPECT_TRUE(value);
    ini.GetBool(L"c", value, false);
    EXPECT_TRUE(value);
    ini.GetBool(L"d", value, true);
    EXPECT_FALSE(value);
    ini.GetBool(L"missing", value, true);
    EXPECT_TRUE(value);
}

TEST_F(IniTypedValuesTest, TypedWriting_GivesTheTextsOfTheFile) {
    CKV2D_IniFile ini = Open("");
    ini.SetInt(L"int", -5);
    ini.SetLong(L"long", 2147483647);
    ini.SetDouble(L"double", 2.123456789);
    ini.SetBool(L"yes", true);
    ini.SetBool(L"no", false);
    ini.SetGuid(L"guid", {0x1234ABCD, 0x5, 0xFFFF, {1, 2, 3, 4, 5, 6, 7, 0xFE}});
    EXPECT_EQ(Get(ini, L"int"), L"-5");
    EXPECT_EQ(Get(ini, L"long"), L"2147483647");
    EXPECT_EQ(Get(ini, L"double"), L"2.123457");
    EXPECT_EQ(Get(ini, L"yes"), L"1");
    EXPECT_EQ(Get(ini, L"no"), L"0");
    EXPECT_EQ(Get(ini, L"guid"), L"1234ABCD-0005-FFFF-0102-0304050607FE");
}

TEST_F(IniTypedValuesTest, GetGuid_ReadsBothCasesAndSpreadsBraces) {
    const platform::Guid guid{0x1234ABCD, 0x5678, 0x9ABC, {1, 2, 3, 4, 5, 6, 7, 0xFE}};
    CKV2D_IniFile ini =
        Open("a = 1234abcd-5678-9abc-0102-0304050607fe\r\nb = {1234ABCD-5678-9ABC-0102-0304050607FE}\r\n");
    platform::Guid read;
    ini.GetGuid(L"a", read, {});
    EXPECT_TRUE(read == guid);
    ini.GetGuid(L"missing", read, guid);
    EXPECT_TRUE(read == guid);
    // The brace ends the first piece and moves all others by one character.
    ini.GetGuid(L"b", read, guid);
    EXPECT_TRUE(read ==
                (platform::Guid{0, 0xD567, 0x89AB, {0xC0, 0x10, 0x20, 0x30, 0x40, 0x50, 0x60, 0x7F}}));
}

TEST_F(IniTypedValuesTest, FindKeyByValue_GivesTheFirstRowOfTheSection) {
    CKV2D_IniFile ini = Open("[A]\r\nx = Line 1\r\n[B]\r\nc = Line 1\r\na = Line 1\r\nb =  Line 1\r\n", L"B");
    std::wstring key = L"rest";
    ini.FindKeyByValue(L"Line 1", key);
    EXPECT_EQ(key, L"c");
    ini.FindKeyByValue(L" Line 1", key);
    EXPECT_EQ(key, L"b");
    ini.FindKeyByValue(L"line 1", key);
    EXPECT_EQ(key, L"");
}

TEST_F(IniTypedValuesTest, GetSectionEntries_OfUnknownSection_EmptiesBoth) {
    CKV2D_IniFile ini = Open("[A]\r\nx = 1\r\n", L"B");
    EXPECT_TRUE(GetKeys(ini).empty());
}

}  // namespace
