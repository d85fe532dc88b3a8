#include "frame/script.h"

#include <gtest/gtest.h>

#include <set>

namespace frame {
namespace {

TEST(ParseScript, LineWithoutMark_IsInput) {
    const Script script = ParseScript(L"(princ \"@click 1\")\r\n_.ZOOM _E");
    ASSERT_EQ(2u, script.steps.size());
    EXPECT_EQ(ScriptAction::kInput, script.steps[0].action);
    EXPECT_EQ(L"(princ \"@click 1\")", script.steps[0].arguments.at(0));
    EXPECT_EQ(L"_.ZOOM _E", script.steps[1].arguments.at(0));
    EXPECT_EQ(2u, script.steps[1].line);
}

TEST(ParseScript, EmptyLine_IsAnEnter) {
    const Script script = ParseScript(L"A\n\nB\n");
    ASSERT_EQ(3u, script.steps.size());
    EXPECT_EQ(L"", script.steps[1].arguments.at(0));
}

TEST(ParseScript, Comment_IsLeftOutAndCounted) {
    const Script script = ParseScript(L"@# hello\n@click 202\n");
    ASSERT_EQ(1u, script.steps.size());
    EXPECT_EQ(2u, script.steps[0].line);
}

TEST(ParseScript, QuotedArgument_KeepsBlanksAndBackslashes) {
    const Script script = ParseScript(L"@tree  1001 \"Acme Chemicals\\Site \"\"A\"\"\\\"\n");
    ASSERT_EQ(L"", script.error);
    ASSERT_EQ(2u, script.steps.at(0).arguments.size());
    EXPECT_EQ(L"1001", script.steps[0].arguments[0]);
    EXPECT_EQ(L"Acme Chemicals\\Site \"A\"\\", script.steps[0].arguments[1]);
}

TEST(ParseScript, EmptyQuotes_AreAnArgument) {
    const Script script = ParseScript(L"@asserttext 205 \"\"");
    ASSERT_EQ(2u, script.steps.at(0).arguments.size());
    EXPECT_EQ(L"", script.steps[0].arguments[1]);
}

TEST(ParseScript, UnknownDirective_IsNamedWithItsLine) {
    const Script script = ParseScript(L"A\n@clik 1\n");
    EXPECT_EQ(L"line 2: there is no directive @clik", script.error);
    EXPECT_TRUE(script.steps.empty());
}

TEST(ParseScript, WrongNumberOfArguments_IsTold) {
    EXPECT_EQ(L"line 1: @click wants 1 argument, has 2", ParseScript(L"@click 1 2").error);
    EXPECT_EQ(L"line 1: @clickat wants 3 arguments, has 0", ParseScript(L"@clickat").error);
}

TEST(ParseScript, OpenQuote_IsTold) {
    EXPECT_EQ(L"line 1: a quote is not closed", ParseScript(L"@wait \"Drawing").error);
    EXPECT_EQ(L"line 1: a quote is not closed", ParseScript(L"@wait \"Drawing\"\"").error);
}

TEST(ScriptDirectives, NamesAreUnique) {
    std::set<std::wstring> names;
    for (const ScriptDirective& directive : ScriptDirectives())
        EXPECT_TRUE(names.insert(directive.name).second);
}

}  // namespace
}  // namespace frame
