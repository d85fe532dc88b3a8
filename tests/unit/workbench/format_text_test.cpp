// printf formats over wide text.
#include "database/format_text.h"

#include "drawing_fixture.h"

namespace workbench::test {
namespace {

std::wstring Format(const wchar_t* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    const std::wstring text = database::FormatText(format, arguments);
    va_end(arguments);
    return text;
}

TEST(FormatText, Strings_AreWide) {
    EXPECT_EQ(Format(L"\nLoading %s...", L"menu\x3A9"), L"\nLoading menu\x3A9...");
    EXPECT_EQ(Format(L"[%5s|%-5s|%.2s]", L"ab", L"ab", L"abc"), L"[   ab|ab   |ab]");
    EXPECT_EQ(Format(L"%s", static_cast<const wchar_t*>(nullptr)), L"(null)");
}

TEST(FormatText, Numbers) {
    EXPECT_EQ(Format(L"%d %u %X %03d", -5, 4000000000u, 255, 7), L"-5 4000000000 FF 007");
    EXPECT_EQ(Format(L"%ld %lld %I64d", 5L, 1LL << 40, 1LL << 40), L"5 1099511627776 1099511627776");
    EXPECT_EQ(Format(L"%.2f %g", 1.5, 0.25), L"1.50 0.25");
    EXPECT_EQ(Format(L"%c%*d", L'x', 4, 7), L"x   7");
}

TEST(FormatText, PercentAndUnknownConversions_AreText) {
    EXPECT_EQ(Format(L"100%%"), L"100%");
    EXPECT_EQ(Format(L"50%q"), L"50%q");
    EXPECT_EQ(Format(L"50%"), L"50%");
}

TEST(FormatText, HugeWidth_IsBounded) {
    EXPECT_EQ(Format(L"%99999999999d", 1).size(), 4096u);
}

TEST(Printf, GoesToTheInstalledHandler) {
    static std::wstring printed;
    printed.clear();
    EXPECT_EQ(acutPrintf(L"lost %d\n", 1), RTNORM);
    database::InstallPrintHandler([](const std::wstring& text) { printed += text; });
    acutPrintf(L"%s %d\n", L"kept", 2);
    database::InstallPrintHandler(nullptr);
    EXPECT_EQ(printed, L"kept 2\n");
    EXPECT_EQ(acutPrintf(nullptr), RTERROR);
}

}  // namespace
}  // namespace workbench::test
