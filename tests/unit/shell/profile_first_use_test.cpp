#include "shell/profile_first_use.h"

#include "support/test_platform.h"

namespace {
constexpr wchar_t kRoot[] = L"Software\\Host\\R24";
}

class ProfileFirstUseTest : public SystemTest {
  protected:
    void Store(std::uint32_t value) {
        platform::GetRegistry().WriteDword(platform::Hive::kCurrentUser,
                                           std::wstring(kRoot) + L"\\Profiles\\Plant\\Drawing Window",
                                           L"MoreHideWarningDialogs", value);
    }
};

TEST_F(ProfileFirstUseTest, NeverStored_IsTheFirstUse) {
    EXPECT_TRUE(IsProfileFirstUse(kRoot, L"Plant"));
}

TEST_F(ProfileFirstUseTest, StoredZeroOrAnyOther_IsNot) {
    for (std::uint32_t value : {0u, 1u, 0xFFFFFFFEu}) {
        Store(value);
        EXPECT_FALSE(IsProfileFirstUse(kRoot, L"Plant")) << value;
    }
}

TEST_F(ProfileFirstUseTest, StoredAllOnes_LooksNeverStored) {
    Store(0xFFFFFFFF);
    EXPECT_TRUE(IsProfileFirstUse(kRoot, L"Plant"));
}

TEST_F(ProfileFirstUseTest, RootKeyWithBackslash_IsTheSameKey) {
    Store(1);
    EXPECT_FALSE(IsProfileFirstUse(std::wstring(kRoot) + L"\\", L"Plant"));
    EXPECT_TRUE(IsProfileFirstUse(kRoot, L"Other"));
}

TEST_F(ProfileFirstUseTest, EmptyTexts_AreNoFirstUse) {
    EXPECT_FALSE(IsProfileFirstUse(L"", L"Plant"));
    EXPECT_FALSE(IsProfileFirstUse(kRoot, L""));
}
