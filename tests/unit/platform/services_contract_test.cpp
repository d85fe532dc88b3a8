// Clock, environment, GUIDs and text coding.
#include "contract_test.h"

#ifdef _WIN32
#include <windows.h>
#endif

namespace {

class ServicesContract : public ContractTest {
  protected:
    void SetServiceVariable(const std::wstring& name, const std::wstring& value) {
#ifdef _WIN32
        if (IsReal()) {
            SetEnvironmentVariableW(name.c_str(), value.empty() ? nullptr : value.c_str());
            return;
        }
#endif
        SetVariable(name, value);
    }

    std::wstring Widen(std::string_view bytes) {
        return GetServices().text.Widen(bytes);
    }
    std::string Narrow(std::wstring_view text) {
        return GetServices().text.Narrow(text);
    }
};

KV2D_CONTRACT_TESTS(ServicesContract);

TEST_P(ServicesContract, Variable_IsFoundWithoutCase_AndMissingIsEmpty) {
    SetServiceVariable(L"Kv2dTestVariable", L"C:\\R\u00F6hren");
    EXPECT_EQ(GetServices().environment.GetVariable(L"KV2DTESTVARIABLE"), L"C:\\R\u00F6hren");
    SetServiceVariable(L"Kv2dTestVariable", L"");
    EXPECT_EQ(GetServices().environment.GetVariable(L"Kv2dTestVariable"), L"");
}

TEST_P(ServicesContract, ProgramArgument_IsThere) {
    EXPECT_NE(GetServices().environment.GetProgramArgument(), L"");
}

TEST_P(ServicesContract, ToLocal_GivesFieldsAsPeopleCountThem) {
    // The hour depends on the time zone; the day before and after noon does not.
    platform::CalendarTime local;
    ASSERT_TRUE(GetServices().clock.ToLocal(platform::ToFileTime({2020, 2, 29, 12, 34, 56}), local));
    EXPECT_EQ(local.year, 2020);
    EXPECT_EQ(local.month, 2);
    EXPECT_EQ(local.second, 56);
    EXPECT_TRUE(local.day == 28 || local.day == 29 || local.day == 1);
}

TEST_P(ServicesContract, ToLocal_Before1970OrAfter3000_IsRefused) {
    platform::CalendarTime local;
    EXPECT_FALSE(GetServices().clock.ToLocal(0, local));
    EXPECT_FALSE(GetServices().clock.ToLocal(-1, local));
    EXPECT_FALSE(GetServices().clock.ToLocal(platform::ToFileTime({1969, 12, 30, 0, 0, 0}), local));
    EXPECT_FALSE(GetServices().clock.ToLocal(platform::ToFileTime({3002, 1, 1, 0, 0, 0}), local));
    EXPECT_TRUE(GetServices().clock.ToLocal(platform::ToFileTime({1970, 1, 3, 0, 0, 0}), local));
    EXPECT_TRUE(GetServices().clock.ToLocal(platform::ToFileTime({3000, 12, 1, 0, 0, 0}), local));
}

TEST_P(ServicesContract, Now_IsAfterTheYear2020) {
    EXPECT_GT(GetServices().clock.Now(), platform::ToFileTime({2020, 1, 1, 0, 0, 0}));
}

TEST_P(ServicesContract, Guids_Differ) {
    const platform::Guid first = GetServices().guids.Create();
    EXPECT_FALSE(first == GetServices().guids.Create());
    EXPECT_FALSE(first == platform::Guid());
}

TEST_P(ServicesContract, EveryByte_SurvivesWideningAndNarrowing) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    EXPECT_EQ(Narrow(Widen(bytes)), bytes);
    for (const char byte : bytes)
        EXPECT_EQ(Narrow(Widen({&byte, 1})), std::string(1, byte));
}

TEST_P(ServicesContract, Ascii_IsAscii) {
    EXPECT_EQ(Widen("Key = [1]~"), L"Key = [1]~");
    EXPECT_EQ(Narrow(L"Key = [1]~"), "Key = [1]~");
}

TEST_P(ServicesContract, CharacterOutsideTheCodePage_BecomesQuestionMark) {
    if (!GetServices().text.GetByteTable()) GTEST_SKIP() << "this code page has more than 256 characters";
    EXPECT_EQ(Narrow(L"a\uFFFCb"), "a?b");
}

TEST_P(ServicesContract, ByteTable_AgreesWithWiden) {
    const platform::ByteTable* table = GetServices().text.GetByteTable();
    if (!table) GTEST_SKIP() << "this code page has characters of several bytes";
    for (int byte = 0; byte < 256; ++byte) {
        const char narrow = static_cast<char>(byte);
        EXPECT_EQ(Widen({&narrow, 1}), std::wstring(1, (*table)[static_cast<size_t>(byte)]));
    }
}

}  // namespace
