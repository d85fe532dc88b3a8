// Which file is read, what a fresh project gets, and what stands in the file.
#include "project_folder.h"

namespace {

class ProjectSettingsTest : public ProjectFolder<SystemTest> {};

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

TEST_F(ProjectSettingsTest, ElectricWithZeros_IsNotRepaired) {
    const std::string bytes = Lines({"[Settings]", "Variable 082 = 0", "Variable 107 = -1",
                                     "Variable 180 = 0", "Variable 183 = 0", "Variable 185 = 0"});
    PutFile(InFolder(L"ELECTRIC.ini"), bytes);
    auto settings = Loaded<Electric>();
    EXPECT_EQ(VariableOf(settings, 82).m_real, 0);
    EXPECT_EQ(VariableOf(settings, 107).m_real, -1);
    EXPECT_EQ(GetBytes(InFolder(L"ELECTRIC.ini")), bytes);
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

TEST_F(ProjectSettingsTest, ChangedHeadings_ShareOneRowOfTheFileAndTheLastOneStays) {
    Flow settings;
    settings.InitDefaults(kMetric);
    for (CSection& section : settings.m_sections) {
        for (CVariable& variable : section.m_variables)
            variable.m_saved = variable.m_id != kVarHeading;
    }
    settings.Load(kProjectId, Facts());
    EXPECT_EQ(GetBytes(InFolder(L"PID.ini")), Lines({"[Settings]", "Variable 165 = Miscellaneous"}));
    EXPECT_EQ(VariableOf(settings, kVarHeading).m_textD, L"Lines and Arrows");
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

}  // namespace
