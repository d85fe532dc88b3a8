#include "settings/project_settings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/test_platform.h"

namespace {

using CSection = CKV2D_ProjectSettingsBase::CSection;
using CVariable = CKV2D_ProjectSettingsBase::CVariable;

constexpr int kMetric = 0;
constexpr int kImperial = 1;
constexpr int kProjectId = 5;
constexpr int kOldVersion = 2015;
constexpr int kNewVersion = 2016;
constexpr int kMetricSizes = 1;
constexpr int kImperialSizes = 2;

CVariable* Find(CKV2D_ProjectSettingsBase& settings, int id) {
    for (CSection& section : settings.m_sections) {
        for (CVariable& variable : section.m_variables) {
            if (variable.m_id == id) return &variable;
        }
    }
    return nullptr;
}

CVariable& VariableOf(CKV2D_ProjectSettingsBase& settings, int id) {
    static CVariable none;
    CVariable* variable = Find(settings, id);
    EXPECT_NE(variable, nullptr) << "variable " << id;
    return variable ? *variable : none;
}

// A project whose folder is there, and one discipline's settings of it.
template <class Base>
class ProjectFolder : public Base {
  protected:
    ProjectFolder() { this->PutFolder(Folder()); }

    std::wstring Folder() const { return this->InRoot(L"KV2D_PRJ_5 - Pump\\"); }
    std::wstring InFolder(const std::wstring& name) const { return Folder() + name; }

    CProjectFacts Facts(int version = kNewVersion, int displayedUnits = kMetricSizes) const {
        return {Folder(), version, displayedUnits};
    }

    template <class Settings>
    Settings Loaded(int units, const CProjectFacts& facts) {
        Settings settings;
        settings.InitDefaults(units);
        settings.Load(kProjectId, facts);
        return settings;
    }
    template <class Settings>
    Settings Loaded(int units = kMetric) {
        return Loaded<Settings>(units, Facts());
    }

    using Iso = CKV2D_ProjectSettingsIso;
    using Ortho = CKV2D_ProjectSettingsOrtho;
    using Flow = CKV2D_ProjectSettingsFlow;
    using Electric = CKV2D_ProjectSettingsElectric;

    // Loads Iso or Ortho settings over the given rows of its file.
    Iso IsoWith(std::initializer_list<std::string_view> rows) {
        this->PutFile(InFolder(L"ISOMETRIC.ini"), "[Settings]\r\n" + Lines(rows));
        return Loaded<Iso>();
    }
    Ortho OrthoWith(std::initializer_list<std::string_view> rows, int displayedUnits = kMetricSizes) {
        this->PutFile(InFolder(L"ORTHO.ini"), "[Settings]\r\n" + Lines(rows));
        return Loaded<Ortho>(kMetric, Facts(kNewVersion, displayedUnits));
    }
};

class ProjectSettingsTest : public ProjectFolder<SystemTest> {};
class ProjectSettingsFaultTest : public ProjectFolder<MemorySystemTest> {};

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

// --- Which file.

TEST_F(ProjectSettingsTest, Load_WithoutProjectFolder_KeepsTheDefaults) {
    const auto settings = Loaded<Iso>(kMetric, CProjectFacts{L"", kNewVersion, kMetricSizes});
    EXPECT_EQ(settings.m_projectId, 0);
    EXPECT_EQ(settings.m_path, L"");
    EXPECT_EQ(settings.GetText(kVarTemplateName), L"acad");
    EXPECT_EQ(settings.m_sections[4].GetChoice(180), 0) << "no repairs either";
}

TEST_F(ProjectSettingsTest, Load_NamesTheFileByDisciplineAndVersion) {
    EXPECT_EQ(Loaded<Electric>(0, Facts(kNewVersion)).m_path, InFolder(L"ELECTRIC.ini"));
    EXPECT_EQ(Loaded<Electric>(0, Facts(kOldVersion)).m_path, InFolder(L"Electric.ini"));
    EXPECT_EQ(Loaded<Flow>(0, Facts(kNewVersion)).m_path, InFolder(L"PID.ini"));
    EXPECT_EQ(Loaded<Flow>(0, Facts(kOldVersion)).m_path, InFolder(L"Flow.ini"));
    EXPECT_EQ(Loaded<Iso>(0, Facts(kNewVersion)).m_path, InFolder(L"ISOMETRIC.ini"));
    EXPECT_EQ(Loaded<Iso>(0, Facts(kOldVersion)).m_path, InFolder(L"Iso.ini"));
    EXPECT_EQ(Loaded<Ortho>(0, Facts(kNewVersion)).m_path, InFolder(L"ORTHO.ini"));
    EXPECT_EQ(Loaded<Ortho>(0, Facts(kOldVersion)).m_path, InFolder(L"Ortho.ini"));
    EXPECT_EQ(Loaded<Iso>(0, Facts(2024)).m_path, InFolder(L"ISOMETRIC.ini"));
    EXPECT_EQ(Loaded<Iso>().m_projectId, kProjectId);
}

TEST_F(ProjectSettingsTest, Load_ReadsOnlyTheFileOfItsVersion) {
    PutFile(InFolder(L"Iso.ini"), Lines({"[Settings]", "Variable 044 = old"}));
    PutFile(InFolder(L"ISOMETRIC.ini"), Lines({"[Settings]", "Variable 044 = new"}));
    EXPECT_EQ(Loaded<Iso>(kMetric, Facts(kOldVersion)).GetText(kVarTemplateName), L"old");
    EXPECT_EQ(Loaded<Iso>(kMetric, Facts(kNewVersion)).GetText(kVarTemplateName), L"new");
}

TEST_F(ProjectSettingsTest, Load_OfNewVersion_DoesNotMigrateTheOldFile) {
    const std::string old = Lines({"[Settings]", "Variable 044 = old"});
    PutFile(InFolder(L"Iso.ini"), old);
    EXPECT_EQ(Loaded<Iso>(kMetric, Facts(kNewVersion)).GetText(kVarTemplateName), L"acad");
    EXPECT_EQ(GetBytes(InFolder(L"Iso.ini")), old);
}

// --- A fresh project.

TEST_F(ProjectSettingsTest, Load_OfFreshIso_CreatesFileWithTheRepairedVariablesOnly) {
    Loaded<Iso>(kMetric);
    EXPECT_EQ(GetBytes(InFolder(L"ISOMETRIC.ini")),
              Lines({"[Settings]", "Variable 180 = 40", "Variable 181 = 36", "Variable 182 = 36",
                     "Variable 185 = 10.000000"}));
}

TEST_F(ProjectSettingsTest, Load_OfFreshImperialIso_TakesTheImperialScale) {
    Loaded<Iso>(kImperial);
    EXPECT_EQ(GetBytes(InFolder(L"ISOMETRIC.ini")),
              Lines({"[Settings]", "Variable 180 = 40", "Variable 181 = 36", "Variable 182 = 36",
                     "Variable 185 = 0.375000"}));
}

TEST_F(ProjectSettingsTest, Load_OfFreshOrtho_CreatesFileWithTheRepairedVariablesOnly) {
    Loaded<Ortho>(kMetric);
    EXPECT_EQ(
        GetBytes(InFolder(L"ORTHO.ini")),
        Lines({"[Settings]", "Variable 071 = 12.500000", "Variable 179 = 12.500000", "Variable 180 = 40",
               "Variable 181 = 36", "Variable 182 = 36", "Variable 183 = 39", "Variable 185 = 12.500000"}));
}

TEST_F(ProjectSettingsTest, Load_OfFreshImperialOrtho_TakesTheImperialScale) {
    auto settings = Loaded<Ortho>(kImperial);
    for (int id : {71, 179, 185})
        EXPECT_EQ(VariableOf(settings, id).m_real, 0.5) << id;
}

TEST_F(ProjectSettingsTest, Load_OfFreshElectricAndFlow_RepairsNothingAndCreatesNoFile) {
    Loaded<Electric>();
    EXPECT_FALSE(HasFile(InFolder(L"ELECTRIC.ini")));
    Loaded<Flow>();
    EXPECT_FALSE(HasFile(InFolder(L"PID.ini")));
}

TEST_F(ProjectSettingsTest, FlowWithZeros_IsNotRepaired) {
    const std::string bytes =
        Lines({"[Settings]", "Variable 071 = 0", "Variable 185 = 0", "Variable 191 = 0"});
    PutFile(InFolder(L"PID.ini"), bytes);
    auto settings = Loaded<Flow>();
    EXPECT_EQ(VariableOf(settings, 71).m_real, 0);
    EXPECT_EQ(VariableOf(settings, 191).m_choice, 0);
    EXPECT_EQ(GetBytes(InFolder(L"PID.ini")), bytes);
}

TEST_F(ProjectSettingsTest, RepairedVariables_CountAsSavedAfterwards) {
    auto settings = Loaded<Iso>();
    for (int id : {180, 181, 182, 185})
        EXPECT_TRUE(VariableOf(settings, id).m_saved) << id;
}

TEST_F(ProjectSettingsTest, SecondLoad_FindsTheRepairsAndDoesNotSave) {
    Loaded<Ortho>();
    SetModified(InFolder(L"ORTHO.ini"), platform::ToFileTime({2001, 2, 3, 4, 5, 6}));
    const platform::FileTime before = GetModified(InFolder(L"ORTHO.ini"));
    auto settings = Loaded<Ortho>();
    EXPECT_EQ(GetModified(InFolder(L"ORTHO.ini")), before);
    EXPECT_EQ(VariableOf(settings, 183).m_choice, kPrjValUnitsMetric);
    EXPECT_EQ(VariableOf(settings, 185).m_real, 12.5);
}

TEST_F(ProjectSettingsTest, LoadThatRepairsNothing_LeavesAnUnsortedFileByteForByte) {
    const std::string bytes = Lines({"; made by hand", "[Settings]", "Variable 185 = 3", "",
                                     "Variable 182 = 32", "Variable 181 = 30", "Variable 180 = 39"});
    PutFile(InFolder(L"ISOMETRIC.ini"), bytes);
    Loaded<Iso>();
    EXPECT_EQ(GetBytes(InFolder(L"ISOMETRIC.ini")), bytes);
}

// --- The repairs, one rule at a time.

TEST_F(ProjectSettingsTest, Choice182_FollowsTheBoltUnits) {
    auto metric = IsoWith({"Variable 170 = 39"});
    EXPECT_EQ(VariableOf(metric, 182).m_choice, 32);
    auto imperial = IsoWith({"Variable 170 = 40"});
    EXPECT_EQ(VariableOf(imperial, 182).m_choice, 36);
    auto unknown = IsoWith({"Variable 170 = 7"});
    EXPECT_EQ(VariableOf(unknown, 182).m_choice, 36);
}

TEST_F(ProjectSettingsTest, Choice182_DoesNotFollowChoice180) {
    auto settings = IsoWith({"Variable 170 = 40", "Variable 180 = 39"});
    EXPECT_EQ(VariableOf(settings, 182).m_choice, 36);
}

TEST_F(ProjectSettingsTest, Choice180_TakesTheBoltUnits) {
    auto settings = IsoWith({"Variable 170 = 39"});
    EXPECT_EQ(VariableOf(settings, 180).m_choice, 39);
}

TEST_F(ProjectSettingsTest, Choice181_FollowsChoice180AfterItsOwnRepair) {
    auto repaired = IsoWith({"Variable 170 = 39"});
    EXPECT_EQ(VariableOf(repaired, 181).m_choice, 32);
    auto stored = IsoWith({"Variable 170 = 39", "Variable 180 = 40"});
    EXPECT_EQ(VariableOf(stored, 181).m_choice, 36);
    EXPECT_EQ(VariableOf(stored, 182).m_choice, 32);
}

TEST_F(ProjectSettingsTest, StoredChoices_AreNotRepaired) {
    auto settings =
        IsoWith({"Variable 180 = 39", "Variable 181 = 30", "Variable 182 = 31", "Variable 185 = 1"});
    EXPECT_EQ(VariableOf(settings, 180).m_choice, 39);
    EXPECT_EQ(VariableOf(settings, 181).m_choice, 30);
    EXPECT_EQ(VariableOf(settings, 182).m_choice, 31);
}

TEST_F(ProjectSettingsTest, BoltUnitsOfZero_LeaveChoice180UnsetAndUnsaved) {
    auto settings = IsoWith({"Variable 170 = 0"});
    EXPECT_EQ(VariableOf(settings, 180).m_choice, 0);
    EXPECT_EQ(GetBytes(InFolder(L"ISOMETRIC.ini")),
              Lines({"[Settings]", "Variable 170 = 0", "Variable 181 = 36", "Variable 182 = 36",
                     "Variable 185 = 10.000000"}));
}

TEST_F(ProjectSettingsTest, ZerosInTheFile_AreRepairedLikeMissingRows) {
    IsoWith({"Variable 180 = 0", "Variable 181 = 0", "Variable 182 = 0", "Variable 185 = 0"});
    EXPECT_EQ(GetBytes(InFolder(L"ISOMETRIC.ini")),
              Lines({"[Settings]", "Variable 180 = 40", "Variable 181 = 36", "Variable 182 = 36",
                     "Variable 185 = 10.000000"}));
}

TEST_F(ProjectSettingsTest, OrthoMiscellaneous_IsRepairedByTheSameRules) {
    auto settings = OrthoWith({"Variable 170 = 39"});
    EXPECT_EQ(VariableOf(settings, 182).m_choice, 32);
    EXPECT_EQ(VariableOf(settings, 180).m_choice, 39);
    EXPECT_EQ(VariableOf(settings, 181).m_choice, 32);
}

TEST_F(ProjectSettingsTest, OrthoChoice183_FollowsTheDisplayedUnits) {
    struct {
        int displayed;
        int choice;
    } const cases[] = {{-1, 39}, {0, 39}, {1, 39}, {2, 40}, {3, 40}, {4, 39}};
    for (const auto& [displayed, choice] : cases) {
        auto settings = OrthoWith({}, displayed);
        EXPECT_EQ(VariableOf(settings, 183).m_choice, choice) << displayed;
    }
    auto stored = OrthoWith({"Variable 183 = 39"}, kImperialSizes);
    EXPECT_EQ(VariableOf(stored, 183).m_choice, 39);
}

TEST_F(ProjectSettingsTest, Choice183_IsRepairedWhereItStandsInMiscellaneousToo) {
    Iso settings;
    settings.InitDefaults(kMetric);
    settings.m_sections[4].AddChoice(183, L"", 0, 0, 39, 40, 0);
    settings.Load(kProjectId, Facts(kNewVersion, kImperialSizes));
    EXPECT_EQ(VariableOf(settings, 183).m_choice, 40);
}

TEST_F(ProjectSettingsTest, IsoReal185_TakesScale82OfTheFile) {
    auto settings = IsoWith({"Variable 082 = 7.25"});
    EXPECT_EQ(VariableOf(settings, 185).m_real, 7.25);
}

TEST_F(ProjectSettingsTest, IsoReal185_BelowZeroCountsAsUnset) {
    auto settings = IsoWith({"Variable 185 = -1"});
    EXPECT_EQ(VariableOf(settings, 185).m_real, 10);
    auto small = IsoWith({"Variable 185 = 0.001"});
    EXPECT_EQ(VariableOf(small, 185).m_real, 0.001);
}

TEST_F(ProjectSettingsTest, IsoReals71And179_AreNotRepaired) {
    auto settings = IsoWith({"Variable 071 = 0", "Variable 179 = -2"});
    EXPECT_EQ(VariableOf(settings, 71).m_real, 0);
    EXPECT_EQ(VariableOf(settings, 179).m_real, -2);
}

TEST_F(ProjectSettingsTest, OrthoReals_TakeScale107EachByItself) {
    for (int unset : {71, 179, 185}) {
        const auto value = [&](int id, const char* stored) { return id == unset ? "-1" : stored; };
        PutFile(InFolder(L"ORTHO.ini"),
                Lines({"[Settings]", "Variable 107 = 6", std::string("Variable 071 = ") + value(71, "1"),
                       std::string("Variable 179 = ") + value(179, "2"),
                       std::string("Variable 185 = ") + value(185, "3")}));
        auto settings = Loaded<Ortho>();
        EXPECT_EQ(VariableOf(settings, 71).m_real, unset == 71 ? 6 : 1);
        EXPECT_EQ(VariableOf(settings, 179).m_real, unset == 179 ? 6 : 2);
        EXPECT_EQ(VariableOf(settings, 185).m_real, unset == 185 ? 6 : 3);
    }
}

// --- What stands in the file.

TEST_F(ProjectSettingsTest, StoredValues_AreReadByTheirKind) {
    PutFile(InFolder(L"ORTHO.ini"),
            Lines({"[Settings]", "Variable 002 = 12", "Variable 044 = Norm A", "Variable 103 = 7",
                   "Variable 145 = 3.5", "Variable 168 = Arial", "Variable 173 = NOTES", "Variable 186 = 43",
                   "Variable 189 = free"}));
    auto settings = Loaded<Ortho>();
    EXPECT_EQ(VariableOf(settings, 2).m_int, 12);
    EXPECT_EQ(settings.GetText(kVarTemplateName), L"Norm A");
    EXPECT_TRUE(VariableOf(settings, 103).m_bool) << "any number but 0 is true";
    EXPECT_EQ(VariableOf(settings, 145).m_real, 3.5);
    EXPECT_EQ(VariableOf(settings, 168).m_textB, L"Arial");
    EXPECT_EQ(VariableOf(settings, 173).m_textD, L"NOTES");
    EXPECT_EQ(VariableOf(settings, 186).m_choice, 43);
    EXPECT_EQ(VariableOf(settings, 189).m_textC, L"free");
    EXPECT_TRUE(VariableOf(settings, 145).m_saved);
}

TEST_F(ProjectSettingsTest, ValuesOfWrongTypes_ReadAsZeroNotAsTheDefault) {
    auto settings = OrthoWith({"Variable 002 = three", "Variable 113 = 3.7", "Variable 145 = thick",
                               "Variable 158 = true", "Variable 170 = inch"});
    EXPECT_EQ(VariableOf(settings, 2).m_int, 0);
    EXPECT_EQ(VariableOf(settings, 113).m_int, 3);
    EXPECT_EQ(VariableOf(settings, 145).m_real, 0);
    EXPECT_FALSE(VariableOf(settings, 158).m_bool);
    EXPECT_EQ(VariableOf(settings, 170).m_choice, 0);
}

TEST_F(ProjectSettingsTest, EmptyValue_CountsAsMissing) {
    auto settings = IsoWith({"Variable 044 = "});
    EXPECT_EQ(settings.GetText(kVarTemplateName), L"acad");
}

TEST_F(ProjectSettingsTest, RowsOutsideTheSection_AreNotRead) {
    PutFile(InFolder(L"ISOMETRIC.ini"), Lines({"Variable 044 = first", "[Other]", "Variable 044 = second",
                                               "[settings]", "Variable 044 = third"}));
    EXPECT_EQ(Loaded<Iso>().GetText(kVarTemplateName), L"acad");
}

TEST_F(ProjectSettingsTest, Headings_ShareOneRowOfTheFile) {
    auto settings = IsoWith({"Variable 165 = Mine"});
    int headings = 0;
    for (const CSection& section : settings.m_sections) {
        for (const CVariable& variable : section.m_variables) {
            if (variable.m_id != kVarHeading) continue;
            ++headings;
            EXPECT_EQ(variable.m_textD, L"Mine");
        }
    }
    EXPECT_EQ(headings, 5);
}

TEST_F(ProjectSettingsTest, SavingTheRepairs_KeepsUnknownRowsAndOtherSections) {
    PutFile(InFolder(L"ISOMETRIC.ini"),
            Lines({"[Settings]", "Variable 999 = later", "Variable 165 = Mine", "Variable 044 = Norm",
                   "Variable 180 = 39", "Note = by hand", "[Editor]", "Window = 3"}));
    Loaded<Iso>();
    EXPECT_EQ(GetBytes(InFolder(L"ISOMETRIC.ini")),
              Lines({"[Editor]", "Window = 3", "", "[Settings]", "Note = by hand", "Variable 044 = Norm",
                     "Variable 165 = Mine", "Variable 180 = 39", "Variable 181 = 32", "Variable 182 = 36",
                     "Variable 185 = 10.000000", "Variable 999 = later"}));
}

TEST_F(ProjectSettingsTest, ChangedVariables_AreWrittenByTheirKind) {
    Ortho settings;
    settings.InitDefaults(kImperial);
    for (int id : {2, 44, 158, 131, 168, 173, 128, 186, 189})
        VariableOf(settings, id).m_saved = false;
    settings.Load(kProjectId, Facts(kNewVersion, kImperialSizes));
    EXPECT_EQ(GetBytes(InFolder(L"ORTHO.ini")),
              Lines({"[Settings]", "Variable 002 = 3", "Variable 044 = acad", "Variable 071 = 0.500000",
                     "Variable 128 = 0.031250", "Variable 131 = 0", "Variable 158 = 1",
                     "Variable 168 = RomanS; Regular; romans__.ttf", "Variable 173 = STANDARD",
                     "Variable 179 = 0.500000", "Variable 180 = 40", "Variable 181 = 36", "Variable 182 = 36",
                     "Variable 183 = 40", "Variable 185 = 0.500000", "Variable 186 = 42"}))
        << "the empty text of 189 makes no row";
}

TEST_F(ProjectSettingsTest, VariableOfUnknownKind_IsNotWrittenButCountsAsSaved) {
    for (int kind : {0, 9}) {
        Flow settings;
        settings.InitDefaults(kMetric);
        CVariable& variable = VariableOf(settings, kVarTemplateName);
        variable.m_kind = static_cast<EVariableKind>(kind);
        variable.m_saved = false;
        settings.Load(kProjectId, Facts());
        EXPECT_TRUE(variable.m_saved);
        EXPECT_FALSE(HasFile(InFolder(L"PID.ini")));
    }
}

// --- Files that cannot be read or written.

TEST_F(ProjectSettingsTest, FileThatAnotherProgramWrites_IsLeftAloneAndTheDefaultsStand) {
    const std::string bytes = Lines({"[Settings]", "Variable 044 = Norm", "Variable 185 = 8"});
    PutFile(InFolder(L"ISOMETRIC.ini"), bytes);
    {
        const auto held = HoldFile(InFolder(L"ISOMETRIC.ini"), platform::Hold::kWriting);
        auto settings = Loaded<Iso>();
        EXPECT_EQ(settings.GetText(kVarTemplateName), L"acad");
        EXPECT_EQ(VariableOf(settings, 185).m_real, 10) << "the repairs run over the defaults";
    }
    EXPECT_EQ(GetBytes(InFolder(L"ISOMETRIC.ini")), bytes);
}

TEST_F(ProjectSettingsFaultTest, ReadOnlyFile_IsReadAndStaysAsItWas) {
    const std::string bytes = Lines({"[Settings]", "Variable 044 = Norm"});
    PutFile(InFolder(L"ISOMETRIC.ini"), bytes);
    SetReadOnly(InFolder(L"ISOMETRIC.ini"));
    EXPECT_EQ(Loaded<Iso>().GetText(kVarTemplateName), L"Norm");
    SetReadOnly(InFolder(L"ISOMETRIC.ini"), false);
    EXPECT_EQ(GetBytes(InFolder(L"ISOMETRIC.ini")), bytes);
}

TEST_F(ProjectSettingsFaultTest, UnreadableFile_IsNotOverwrittenByTheRepairs) {
    const std::string bytes = Lines({"[Settings]", "Variable 044 = Norm", "Variable 185 = 8"});
    PutFile(InFolder(L"ISOMETRIC.ini"), bytes);
    GetMemory().files.RefuseOpen(InFolder(L"ISOMETRIC.ini"));
    Loaded<Iso>();
    GetMemory().files.ClearFaults();
    EXPECT_EQ(GetBytes(InFolder(L"ISOMETRIC.ini")), bytes);
}

TEST_F(ProjectSettingsFaultTest, FileThatCannotBeCreated_LeavesTheRepairedValues) {
    GetMemory().files.RefuseCreate(L"");
    auto settings = Loaded<Iso>();
    EXPECT_FALSE(HasFile(InFolder(L"ISOMETRIC.ini")));
    EXPECT_EQ(VariableOf(settings, 180).m_choice, 40);
}

TEST_F(ProjectSettingsFaultTest, FolderThatIsGone_LeavesTheDefaults) {
    const auto settings = Loaded<Iso>(kMetric, CProjectFacts{L"C:\\Nowhere\\", kNewVersion, kMetricSizes});
    EXPECT_EQ(settings.GetText(kVarTemplateName), L"acad");
    EXPECT_FALSE(HasFolder(L"C:\\Nowhere\\"));
}

TEST(ProjectSettingsEveryFault, Load_KeepsTheRowsOfTheFile) {
    const std::string before = Lines({"[Settings]", "Variable 044 = Norm", "Variable 185 = 8"});
    const std::string repaired = Lines({"[Settings]", "Variable 044 = Norm", "Variable 180 = 40",
                                        "Variable 181 = 36", "Variable 182 = 36", "Variable 185 = 8"});
    const size_t runs = ForEachFailingCall(
        [&](TestSystem& system) { system.PutFile(system.InRoot(L"ISOMETRIC.ini"), before); },
        [&](TestSystem& system) {
            CKV2D_ProjectSettingsIso settings;
            settings.InitDefaults(kMetric);
            settings.Load(kProjectId, {system.GetRoot(), kNewVersion, kMetricSizes});
            EXPECT_THAT(system.GetBytes(system.InRoot(L"ISOMETRIC.ini")), testing::AnyOf(before, repaired));
        });
    EXPECT_GE(runs, 4u) << "two readings, one writing, and the run without a failure";
}

// --- How often the file is touched.

TEST_F(ProjectSettingsFaultTest, LoadWithoutRepairs_ReadsTheFileOnce) {
    IsoWith({"Variable 180 = 39", "Variable 181 = 30", "Variable 182 = 31", "Variable 185 = 1"});
    GetMemory().log.Clear();
    Loaded<Iso>();
    EXPECT_EQ(GetMemory().log.GetCount(L"ReadBytes"), 1u);
    EXPECT_EQ(GetMemory().log.GetCount(L"WriteBytes"), 0u);
}

TEST_F(ProjectSettingsFaultTest, LoadWithRepairs_WritesTheFileOnce) {
    GetMemory().log.Clear();
    Loaded<Ortho>();
    EXPECT_EQ(GetMemory().log.GetCount(L"WriteBytes"), 1u);
}

}  // namespace
