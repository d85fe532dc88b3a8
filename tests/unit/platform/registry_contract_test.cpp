#include "contract_test.h"

namespace {

using platform::Hive;
using platform::RegistryType;

constexpr Hive kUser = Hive::kCurrentUser;

class RegistryContract : public ContractTest {
  protected:
    std::wstring ReadText(const std::wstring& key, const std::wstring& name) {
        std::wstring text = L"rest";
        const bool found = GetRegistry().ReadString(kUser, key, name, text);
        EXPECT_TRUE(found || text.empty());
        return found ? text : L"(missing)";
    }
};

KV2D_CONTRACT_TESTS(RegistryContract);

TEST_P(RegistryContract, WriteDword_MakesTheKeyAndReadsBack) {
    std::uint32_t value = 0;
    EXPECT_TRUE(GetRegistry().WriteDword(kUser, L"Software\\A\\B", L"ProjectId", 0xFFFFFFFE));
    EXPECT_TRUE(GetRegistry().ReadDword(kUser, L"software\\a\\b", L"PROJECTID", value));
    EXPECT_EQ(value, 0xFFFFFFFEu);
}

TEST_P(RegistryContract, KeyWithTrailingBackslash_IsTheSameKey) {
    std::uint32_t value = 0;
    EXPECT_TRUE(GetRegistry().WriteDword(kUser, L"Software\\A\\", L"Id", 5));
    EXPECT_TRUE(GetRegistry().ReadDword(kUser, L"Software\\A", L"Id", value));
    EXPECT_TRUE(GetRegistry().ReadDword(kUser, L"Software\\A\\", L"Id", value));
    EXPECT_EQ(value, 5u);
}

TEST_P(RegistryContract, ReadDword_OfMissingKeyOrValue_IsFalseAndLeavesTheValue) {
    std::uint32_t value = 77;
    EXPECT_FALSE(GetRegistry().ReadDword(kUser, L"Software\\A", L"Id", value));
    GetRegistry().WriteDword(kUser, L"Software\\A", L"Other", 5);
    EXPECT_FALSE(GetRegistry().ReadDword(kUser, L"Software\\A", L"Id", value));
    EXPECT_EQ(value, 77u);
}

TEST_P(RegistryContract, ReadDword_OfAnotherTypeThatFits_GivesItsBytes) {
    std::uint32_t value = 0;
    SetRegistryBytes(kUser, L"Software\\A", L"Text", RegistryType::kString,
                     platform::EncodeRegistryText(L"1"));
    EXPECT_TRUE(GetRegistry().ReadDword(kUser, L"Software\\A", L"Text", value));
    EXPECT_EQ(value, 0x31u);
    SetRegistryBytes(kUser, L"Software\\A", L"Bytes", RegistryType::kBinary, std::string("\x01\x02\x03", 3));
    EXPECT_TRUE(GetRegistry().ReadDword(kUser, L"Software\\A", L"Bytes", value));
    EXPECT_EQ(value, 0x030201u);
}

TEST_P(RegistryContract, ReadDword_OfLongerValue_IsFalse) {
    std::uint32_t value = 77;
    SetRegistryBytes(kUser, L"Software\\A", L"Text", RegistryType::kString,
                     platform::EncodeRegistryText(L"12"));
    EXPECT_FALSE(GetRegistry().ReadDword(kUser, L"Software\\A", L"Text", value));
    EXPECT_EQ(value, 77u);
}

TEST_P(RegistryContract, WriteString_ReadsBackWithItsLetters) {
    const std::wstring text = L"C:\\R\u00F6hren\\\u0416";
    EXPECT_TRUE(GetRegistry().WriteString(kUser, L"Software\\A", L"SelectedFolder", text));
    EXPECT_EQ(ReadText(L"Software\\A", L"SelectedFolder"), text);
    EXPECT_TRUE(GetRegistry().WriteString(kUser, L"Software\\A", L"SelectedFolder", L""));
    EXPECT_EQ(ReadText(L"Software\\A", L"SelectedFolder"), L"");
}

TEST_P(RegistryContract, EmptyName_IsTheDefaultValue) {
    EXPECT_TRUE(GetRegistry().WriteString(kUser, L"Software\\A", L"", L"default"));
    EXPECT_EQ(ReadText(L"Software\\A", L""), L"default");
}

TEST_P(RegistryContract, ReadString_OfMissingKeyOrValue_IsFalseAndEmptiesTheText) {
    EXPECT_EQ(ReadText(L"Software\\A", L"No"), L"(missing)");
    GetRegistry().WriteString(kUser, L"Software\\A", L"Other", L"x");
    EXPECT_EQ(ReadText(L"Software\\A", L"No"), L"(missing)");
}

TEST_P(RegistryContract, ReadString_LongerThan1023Characters_CountsAsMissing) {
    GetRegistry().WriteString(kUser, L"Software\\A", L"Fits", std::wstring(1023, L'x'));
    GetRegistry().WriteString(kUser, L"Software\\A", L"Long", std::wstring(1024, L'x'));
    EXPECT_EQ(ReadText(L"Software\\A", L"Fits").size(), 1023u);
    EXPECT_EQ(ReadText(L"Software\\A", L"Long"), L"(missing)");
}

TEST_P(RegistryContract, ReadString_WithoutEndingZero_StaysInsideTheValue) {
    std::string bytes = platform::EncodeRegistryText(L"abc");
    bytes.resize(bytes.size() - 2);
    SetRegistryBytes(kUser, L"Software\\A", L"Open", RegistryType::kString, bytes);
    EXPECT_EQ(ReadText(L"Software\\A", L"Open"), L"abc");
}

TEST_P(RegistryContract, ReadString_OfTextWithZeroInside_EndsThere) {
    SetRegistryBytes(kUser, L"Software\\A", L"Two", RegistryType::kString,
                     platform::EncodeRegistryText(std::wstring(L"ab\0cd", 5)));
    EXPECT_EQ(ReadText(L"Software\\A", L"Two"), L"ab");
}

TEST_P(RegistryContract, Hives_AreApart) {
    std::uint32_t value = 0;
    GetRegistry().WriteDword(Hive::kLocalMachine, L"Software\\A", L"Id", 1);
    EXPECT_FALSE(GetRegistry().ReadDword(kUser, L"Software\\A", L"Id", value));
    EXPECT_FALSE(GetRegistry().ReadDword(Hive::kClassesRoot, L"Software\\A", L"Id", value));
    EXPECT_TRUE(GetRegistry().ReadDword(Hive::kLocalMachine, L"Software\\A", L"Id", value));
}

TEST_P(RegistryContract, ClassesRoot_TakesKeys) {
    std::wstring text;
    EXPECT_TRUE(GetRegistry().WriteString(Hive::kClassesRoot, L"CLSID\\{1}", L"", L"control"));
    EXPECT_TRUE(GetRegistry().ReadString(Hive::kClassesRoot, L"CLSID\\{1}", L"", text));
    EXPECT_EQ(text, L"control");
}

TEST_P(RegistryContract, DeleteValue_TakesItAwayOnce) {
    GetRegistry().WriteDword(kUser, L"Software\\A", L"Id", 1);
    EXPECT_TRUE(GetRegistry().DeleteValue(kUser, L"Software\\A", L"ID"));
    EXPECT_FALSE(GetRegistry().DeleteValue(kUser, L"Software\\A", L"Id"));
    EXPECT_FALSE(GetRegistry().DeleteValue(kUser, L"Software\\No", L"Id"));
}

TEST_P(RegistryContract, DeleteEmptyKey_RefusesKeysWithValuesOrSubkeys) {
    GetRegistry().WriteDword(kUser, L"Software\\A\\B", L"Id", 1);
    EXPECT_FALSE(GetRegistry().DeleteEmptyKey(kUser, L"Software\\A"));
    EXPECT_FALSE(GetRegistry().DeleteEmptyKey(kUser, L"Software\\A\\B"));
    GetRegistry().DeleteValue(kUser, L"Software\\A\\B", L"Id");
    EXPECT_TRUE(GetRegistry().DeleteEmptyKey(kUser, L"Software\\A\\B"));
    EXPECT_TRUE(GetRegistry().DeleteEmptyKey(kUser, L"Software\\A"));
    EXPECT_FALSE(GetRegistry().DeleteEmptyKey(kUser, L"Software\\A"));
}

TEST_P(RegistryContract, DeleteTree_TakesKeyAndAllBelow) {
    std::uint32_t value = 0;
    GetRegistry().WriteDword(kUser, L"Software\\A\\B\\C", L"Id", 1);
    EXPECT_TRUE(GetRegistry().DeleteTree(kUser, L"Software\\A"));
    EXPECT_FALSE(GetRegistry().ReadDword(kUser, L"Software\\A\\B\\C", L"Id", value));
    EXPECT_FALSE(GetRegistry().DeleteTree(kUser, L"Software\\A"));
}

TEST_P(RegistryContract, DeleteTree_OfEmptyPath_IsRefused) {
    GetRegistry().WriteDword(kUser, L"Software\\A", L"Id", 1);
    EXPECT_FALSE(GetRegistry().DeleteTree(kUser, L""));
    std::uint32_t value = 0;
    EXPECT_TRUE(GetRegistry().ReadDword(kUser, L"Software\\A", L"Id", value));
}

TEST_P(RegistryContract, GetSubkeys_ListsDirectOnesSorted) {
    GetRegistry().WriteDword(kUser, L"Software\\A\\202402\\1", L"Id", 1);
    GetRegistry().WriteDword(kUser, L"Software\\A\\202401", L"Id", 1);
    GetRegistry().WriteDword(kUser, L"Software\\A\\b", L"Id", 1);
    GetRegistry().WriteDword(kUser, L"Software\\A\\C", L"Id", 1);
    EXPECT_EQ(GetRegistry().GetSubkeys(kUser, L"Software\\A"),
              std::vector<std::wstring>({L"202401", L"202402", L"b", L"C"}));
    EXPECT_TRUE(GetRegistry().GetSubkeys(kUser, L"Software\\No").empty());
}

}  // namespace
