#include "frame/options.h"

#include <gtest/gtest.h>

namespace frame {
namespace {

TEST(ParseOptions, Nothing_IsTheOrdinaryStart) {
    const Options options = ParseOptions({});
    EXPECT_EQ(L"", options.error);
    EXPECT_EQ(L"", options.module);
    EXPECT_FALSE(options.withoutModule);
    EXPECT_FALSE(options.withoutDrawing);
    EXPECT_TRUE(options.drawings.empty());
}

TEST(ParseOptions, SwitchesInEitherFormAndCase) {
    const Options options =
        ParseOptions({L"/LISP", L"P:\\start.lsp", L"-script", L"a b.txt", L"/transcript", L"t.txt",
                      L"/pictures", L"out", L"/module", L"m.arx", L"/nodrawing"});
    EXPECT_EQ(L"", options.error);
    EXPECT_EQ(L"P:\\start.lsp", options.lispFile);
    EXPECT_EQ(L"a b.txt", options.scriptFile);
    EXPECT_EQ(L"t.txt", options.transcriptFile);
    EXPECT_EQ(L"out", options.pictureFolder);
    EXPECT_EQ(L"m.arx", options.module);
    EXPECT_TRUE(options.withoutDrawing);
}

TEST(ParseOptions, OtherWords_AreDrawings) {
    const Options options = ParseOptions({L"a.dwg", L"/nomodule", L"C:\\b.dwg"});
    EXPECT_EQ((std::vector<std::wstring>{L"a.dwg", L"C:\\b.dwg"}), options.drawings);
    EXPECT_TRUE(options.withoutModule);
}

TEST(ParseOptions, UnknownSwitch_IsNamed) {
    EXPECT_EQ(L"There is no switch /skript.", ParseOptions({L"/skript"}).error);
}

TEST(ParseOptions, SwitchWithoutItsValue_IsNamed) {
    EXPECT_EQ(L"The switch /script wants a value behind it.", ParseOptions({L"a.dwg", L"/script"}).error);
}

}  // namespace
}  // namespace frame
