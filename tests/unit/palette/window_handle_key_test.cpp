#include "palette/window_handle_key.h"

#include <gmock/gmock.h>

#include "platform/invalid_argument.h"
#include "support/test_platform.h"

using platform::Hive;

namespace {
const std::wstring kHandles = L"Software\\KALVOR\\Orvex\\2023\\WindowHandle\\";
}

class WindowHandleTest : public SystemTest {
  protected:
    WindowHandleTest() { SetNow({2026, 11, 30, 23, 59, 58}); }

    std::uint32_t Stored(const std::wstring& key) {
        std::uint32_t value = 0;
        EXPECT_TRUE(
            platform::GetRegistry().ReadDword(Hive::kCurrentUser, kHandles + key, L"ToolboxMenu", value));
        return value;
    }
    std::vector<std::wstring> Months() {
        return platform::GetRegistry().GetSubkeys(Hive::kCurrentUser, kHandles);
    }
};

TEST_F(WindowHandleTest, Key_HoldsMonthAndWindowInDecimal) {
    EXPECT_EQ(GetWindowHandleKey(66052), kHandles + L"202611\\66052");
    EXPECT_EQ(GetWindowHandleKey(-3), kHandles + L"202611\\-3");
    SetNow({2027, 1, 2, 0, 0, 0});
    EXPECT_EQ(GetWindowHandleKey(1), kHandles + L"202701\\1");
}

TEST_F(WindowHandleTest, Write_StoresTheDialogUnderTheMainWindow) {
    WriteWindowHandle(66052, kToolboxMenuValue, 132090);
    EXPECT_EQ(Stored(L"202611\\66052"), 132090u);
}

TEST_F(WindowHandleTest, Remove_TakesTheOwnEntryAndLeavesOthersOfTheMonth) {
    WriteWindowHandle(1, kToolboxMenuValue, 10);
    WriteWindowHandle(2, kToolboxMenuValue, 20);
    RemoveWindowHandle(1, kToolboxMenuValue);
    EXPECT_THAT(platform::GetRegistry().GetSubkeys(Hive::kCurrentUser, kHandles + L"202611"),
                testing::ElementsAre(L"2"));
    EXPECT_EQ(Stored(L"202611\\2"), 20u);
}

TEST_F(WindowHandleTest, Remove_KeepsAKeyThatHoldsAnotherProgramsValue) {
    WriteWindowHandle(1, kToolboxMenuValue, 10);
    WriteWindowHandle(1, L"BomTable", 11);
    RemoveWindowHandle(1, kToolboxMenuValue);
    std::uint32_t value = 0;
    EXPECT_TRUE(
        platform::GetRegistry().ReadDword(Hive::kCurrentUser, kHandles + L"202611\\1", L"BomTable", value));
    EXPECT_EQ(value, 11u);
}

TEST_F(WindowHandleTest, Remove_SweepsEntriesOfOtherMonths) {
    SetNow({2026, 9, 1, 12, 0, 0});
    WriteWindowHandle(7, kToolboxMenuValue, 70);
    SetNow({2026, 11, 1, 12, 0, 0});
    WriteWindowHandle(8, kToolboxMenuValue, 80);
    RemoveWindowHandle(9, kToolboxMenuValue);
    EXPECT_THAT(Months(), testing::ElementsAre(L"202611"));
    EXPECT_EQ(Stored(L"202611\\8"), 80u);
}

TEST_F(WindowHandleTest, ProcessThatCrossesAMonth_LosesItsEntryToTheSweep) {
    WriteWindowHandle(1, kToolboxMenuValue, 10);
    SetNow({2026, 12, 1, 0, 0, 1});
    RemoveWindowHandle(1, kToolboxMenuValue);
    EXPECT_THAT(Months(), testing::IsEmpty());
}

TEST_F(WindowHandleTest, Remove_WithoutAnyEntry_DoesNothing) {
    RemoveWindowHandle(1, kToolboxMenuValue);
    EXPECT_THAT(Months(), testing::IsEmpty());
}
