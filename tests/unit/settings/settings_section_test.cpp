// One section by itself: how a table is built, and single values read and changed.
#include <gmock/gmock.h>

#include "project_folder.h"

namespace {

// --- Building a table.

TEST(SettingsSection, Name_IsStoredInLowerCase) {
    CSection section;
    section.AddReal(1, L"DIMtxt-9", 1, 2);
    EXPECT_EQ(section.m_variables[0].m_name, L"dimtxt-9");
}

TEST(SettingsSection, WithoutUnits_TakesTheImperialDefault) {
    CSection section;
    section.AddInt(1, L"", 1, 2);
    EXPECT_EQ(section.m_units, -1);
    EXPECT_EQ(section.m_variables[0].m_int, 2);
}

TEST(SettingsSection, EachAddOperation_SetsItsKindAndItsFieldOnly) {
    CSection section;
    section.m_units = kMetric;
    section.AddBool(1, L"", true, false);
    section.AddTextA(2, L"", L"a", L"x");
    section.AddTextB(3, L"", L"b", L"x");
    section.AddInt(4, L"", 4, -1);
    section.AddReal(5, L"", 5.5, -1);
    section.AddTextC(6, L"", L"c", L"x");
    section.AddTextD(7, L"", L"d", L"x");
    section.AddChoice(8, L"", 9, -1, 9, 8, 0);
    ASSERT_EQ(section.m_variables.size(), 8u);
    for (int i = 0; i < 8; ++i) {
        const CVariable& variable = section.m_variables[i];
        EXPECT_EQ(variable.m_id, i + 1);
        EXPECT_EQ(variable.m_kind, i + 1);
        EXPECT_EQ(variable.m_bool, i + 1 == kKindBool);
        EXPECT_EQ(variable.m_textA, i + 1 == kKindTextA ? L"a" : L"");
        EXPECT_EQ(variable.m_textB, i + 1 == kKindTextB ? L"b" : L"");
        EXPECT_EQ(variable.m_int, i + 1 == kKindInt ? 4 : 0);
        EXPECT_EQ(variable.m_real, i + 1 == kKindReal ? 5.5 : 0);
        EXPECT_EQ(variable.m_textC, i + 1 == kKindTextC ? L"c" : L"");
        EXPECT_EQ(variable.m_textD, i + 1 == kKindTextD ? L"d" : L"");
        EXPECT_EQ(variable.m_choice, i + 1 == kKindChoice ? 9 : 0);
        EXPECT_TRUE(variable.m_saved);
    }
}

TEST(SettingsSection, Heading_HasTheCommonIdAndOneTextForBothUnits) {
    for (int units : {kMetric, kImperial}) {
        CSection section;
        section.m_units = units;
        section.AddHeading(L"Fit");
        EXPECT_EQ(section.m_variables[0].m_id, 165);
        EXPECT_EQ(section.m_variables[0].m_kind, kKindTextD);
        EXPECT_EQ(section.m_variables[0].m_name, L"");
        EXPECT_EQ(section.m_variables[0].m_textD, L"Fit");
    }
}

TEST(SettingsSection, ChoiceList_RunsToTheFirstZero) {
    CSection section;
    section.AddChoice(1, L"", 4, 4, 4, 19, 0, 20, 0);
    section.AddChoice(2, L"", 4, 4, 0);
    EXPECT_THAT(section.m_variables[0].m_choices, testing::ElementsAre(4, 19));
    EXPECT_TRUE(section.m_variables[1].m_choices.empty());
}

// --- Single variables.

CSection TwoOfEach() {
    CSection section;
    section.AddReal(1, L"", 2.5, 2.5);
    section.AddReal(1, L"", 9, 9);
    section.AddChoice(2, L"", 40, 40, 39, 40, 0);
    section.AddChoice(2, L"", 39, 39, 39, 40, 0);
    return section;
}

TEST(SettingsSection, Get_TakesTheFirstVariableWithTheId) {
    const CSection section = TwoOfEach();
    EXPECT_EQ(section.GetReal(1), 2.5);
    EXPECT_EQ(section.GetChoice(2), 40);
}

TEST(SettingsSection, GetOfMissingId_IsZero) {
    const CSection section = TwoOfEach();
    EXPECT_EQ(section.GetReal(3), 0.0);
    EXPECT_EQ(section.GetChoice(3), 0);
}

TEST(SettingsSection, SetToNewValue_ChangesTheFirstAndMarksIt) {
    CSection section = TwoOfEach();
    section.SetReal(1, 3);
    section.SetChoice(2, 39);
    EXPECT_EQ(section.m_variables[0].m_real, 3);
    EXPECT_FALSE(section.m_variables[0].m_saved);
    EXPECT_TRUE(section.m_variables[1].m_saved);
    EXPECT_EQ(section.m_variables[2].m_choice, 39);
    EXPECT_FALSE(section.m_variables[2].m_saved);
    EXPECT_TRUE(section.m_variables[3].m_saved);
}

TEST(SettingsSection, SetToPresentValue_ChangesNothing) {
    CSection section = TwoOfEach();
    section.SetReal(1, 2.5);
    section.SetChoice(2, 40);
    EXPECT_TRUE(section.m_variables[0].m_saved);
    EXPECT_TRUE(section.m_variables[2].m_saved);
}

TEST(SettingsSection, SetOfAnotherKind_TakesTheKindOfTheOperation) {
    CSection section = TwoOfEach();
    section.SetReal(2, 1.5);
    section.SetChoice(1, 7);
    EXPECT_EQ(section.m_variables[2].m_kind, kKindReal);
    EXPECT_EQ(section.m_variables[0].m_kind, kKindChoice);
}

TEST(SettingsSection, SetOfMissingId_AddsNothing) {
    CSection section = TwoOfEach();
    section.SetReal(3, 1);
    section.SetChoice(3, 1);
    EXPECT_EQ(section.m_variables.size(), 4u);
}

TEST(ProjectSettings, GetText_OfAnotherKindOrAMissingId_IsEmpty) {
    CKV2D_ProjectSettingsOrtho settings;
    settings.InitDefaults(kMetric);
    EXPECT_EQ(settings.GetText(169), L"350mm");
    EXPECT_EQ(settings.GetText(173), L"") << "text D is not text A";
    EXPECT_EQ(settings.GetText(999), L"");
}

TEST(ProjectSettings, GetText_TakesTheFirstSectionThatHoldsTheId) {
    CKV2D_ProjectSettingsFlow settings;
    settings.InitDefaults(kMetric);
    settings.m_sections.back().AddTextA(kVarTemplateName, L"", L"later", L"later");
    EXPECT_EQ(settings.GetText(kVarTemplateName), L"acad");
    settings.m_sections.front().m_variables.clear();
    EXPECT_EQ(settings.GetText(kVarTemplateName), L"later");
}

}  // namespace
