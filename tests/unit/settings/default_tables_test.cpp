// The default tables of the disciplines, each row of them. The golden files were made from the printed
// tables, not from the program; a difference means that the program is wrong until the printed table says
// otherwise, so there is no flag that rewrites them.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <sstream>
#include <string>

#include "project_folder.h"
#include "settings/project_settings.h"

namespace {

template <class Settings>
Settings Defaults(int units) {
    Settings settings;
    settings.InitDefaults(units);
    return settings;
}

const CSection* FindSection(const CKV2D_ProjectSettingsBase& settings, int id) {
    for (const CSection& section : settings.m_sections) {
        if (section.m_id == id) return &section;
    }
    return nullptr;
}

const CVariable& VariableOf(const CKV2D_ProjectSettingsBase& settings, int sectionId, int id) {
    static const CVariable none;
    const CSection* section = FindSection(settings, sectionId);
    EXPECT_NE(section, nullptr) << "section " << sectionId;
    if (!section) return none;
    for (const CVariable& variable : section->m_variables) {
        if (variable.m_id == id) return variable;
    }
    ADD_FAILURE() << "variable " << id;
    return none;
}

std::string Ascii(const std::wstring& text) {
    std::string narrow;
    for (wchar_t ch : text)
        narrow += ch < 0x80 ? static_cast<char>(ch) : '?';
    return narrow;
}

std::string Quoted(const std::wstring& text) {
    return '"' + Ascii(text) + '"';
}

std::string TextOfValue(const CVariable& variable) {
    std::ostringstream text;
    text.precision(10);
    switch (variable.m_kind) {
        case kKindBool:
            text << (variable.m_bool ? "true" : "false");
            break;
        case kKindTextA:
            text << Quoted(variable.m_textA);
            break;
        case kKindTextB:
            text << Quoted(variable.m_textB);
            break;
        case kKindInt:
            text << variable.m_int;
            break;
        case kKindReal:
            text << variable.m_real;
            break;
        case kKindTextC:
            text << Quoted(variable.m_textC);
            break;
        case kKindTextD:
            text << Quoted(variable.m_textD);
            break;
        case kKindChoice:
            text << variable.m_choice << " of";
            for (EPrjVal value : variable.m_choices)
                text << ' ' << static_cast<int>(value);
            break;
        case kKindNone:
            text << "no value";
            break;
    }
    return text.str();
}

std::string Dump(const CKV2D_ProjectSettingsBase& settings) {
    std::ostringstream text;
    for (const CSection& section : settings.m_sections) {
        text << "section " << section.m_id << '\n';
        for (const CVariable& variable : section.m_variables) {
            text << variable.m_id << " kind " << variable.m_kind << ' ' << Quoted(variable.m_name) << " = "
                 << TextOfValue(variable) << '\n';
        }
    }
    return text.str();
}

std::string ReadGolden(const std::string& name) {
    std::ifstream file(std::string(KV2D_GOLDEN_FOLDER) + "/" + name);
    EXPECT_TRUE(file.is_open()) << name;
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

struct Discipline {
    const char* word;
    std::unique_ptr<CKV2D_ProjectSettingsBase> (*make)();
};

template <class Settings>
std::unique_ptr<CKV2D_ProjectSettingsBase> Make() {
    return std::make_unique<Settings>();
}

class DefaultTables : public testing::TestWithParam<Discipline> {};

TEST_P(DefaultTables, MetricDefaults_AreThoseOfThePrintedTable) {
    const auto settings = GetParam().make();
    settings->InitDefaults(kMetric);
    EXPECT_EQ(Dump(*settings), ReadGolden(std::string(GetParam().word) + "_metric.txt"));
}

TEST_P(DefaultTables, ImperialDefaults_AreThoseOfThePrintedTable) {
    const auto settings = GetParam().make();
    settings->InitDefaults(kImperial);
    EXPECT_EQ(Dump(*settings), ReadGolden(std::string(GetParam().word) + "_imperial.txt"));
}

TEST_P(DefaultTables, AnyUnitsButZero_AreImperial) {
    const auto settings = GetParam().make();
    settings->InitDefaults(-1);
    EXPECT_EQ(Dump(*settings), ReadGolden(std::string(GetParam().word) + "_imperial.txt"));
}

TEST_P(DefaultTables, SecondInitDefaults_ReplacesTheFirst) {
    const auto settings = GetParam().make();
    settings->InitDefaults(kImperial);
    settings->InitDefaults(kMetric);
    EXPECT_EQ(Dump(*settings), ReadGolden(std::string(GetParam().word) + "_metric.txt"));
}

TEST_P(DefaultTables, FreshDefaults_CountAsSavedAndRememberTheirUnits) {
    const auto settings = GetParam().make();
    settings->InitDefaults(3);
    for (const CSection& section : settings->m_sections) {
        EXPECT_EQ(section.m_units, 3);
        for (const CVariable& variable : section.m_variables)
            EXPECT_TRUE(variable.m_saved) << variable.m_id;
    }
}

TEST_P(DefaultTables, TemplateName_IsTheSameEverywhere) {
    const auto settings = GetParam().make();
    settings->InitDefaults(kMetric);
    EXPECT_EQ(settings->GetText(kVarTemplateName), L"acad");
}

INSTANTIATE_TEST_SUITE_P(All, DefaultTables,
                         testing::Values(Discipline{"electric", Make<CKV2D_ProjectSettingsElectric>},
                                         Discipline{"flow", Make<CKV2D_ProjectSettingsFlow>},
                                         Discipline{"iso", Make<CKV2D_ProjectSettingsIso>},
                                         Discipline{"ortho", Make<CKV2D_ProjectSettingsOrtho>}),
                         [](const auto& param) { return std::string(param.param.word); });

TEST(ElectricTable, Discipline_IsSet) {
    EXPECT_EQ(Defaults<CKV2D_ProjectSettingsElectric>(kMetric).m_eApp, kAppElectric);
    EXPECT_EQ(Defaults<CKV2D_ProjectSettingsFlow>(kMetric).m_eApp, kAppPid);
    EXPECT_EQ(Defaults<CKV2D_ProjectSettingsIso>(kMetric).m_eApp, kAppIsometric);
    EXPECT_EQ(Defaults<CKV2D_ProjectSettingsOrtho>(kMetric).m_eApp, kAppOrtho);
}

TEST(ElectricTable, TextHeight_IsNotConvertedBetweenUnits) {
    EXPECT_EQ(VariableOf(Defaults<CKV2D_ProjectSettingsElectric>(kMetric), kSectionGeneral, 145).m_real, 2.5);
    EXPECT_EQ(VariableOf(Defaults<CKV2D_ProjectSettingsElectric>(kImperial), kSectionGeneral, 145).m_real,
              0.125);
}

TEST(ElectricTable, ZeroDefaults_AreZeroInBothUnits) {
    for (int units : {kMetric, kImperial}) {
        const auto settings = Defaults<CKV2D_ProjectSettingsElectric>(units);
        for (int id : {112, 59, 78})
            EXPECT_EQ(VariableOf(settings, kSectionElectricWires, id).m_real, 0) << id;
        EXPECT_EQ(VariableOf(settings, kSectionDimensioning, 33).m_real, 0);
    }
}

TEST(ElectricTable, KnobDistanceAndSillHeight_DifferByOneInMetricOnly) {
    const auto metric = Defaults<CKV2D_ProjectSettingsElectric>(kMetric);
    EXPECT_EQ(VariableOf(metric, kSectionBuilding, 70).m_real, 1066);
    EXPECT_EQ(VariableOf(metric, kSectionBuilding, 60).m_real, 1067);
    const auto imperial = Defaults<CKV2D_ProjectSettingsElectric>(kImperial);
    EXPECT_EQ(VariableOf(imperial, kSectionBuilding, 70).m_real, 42);
    EXPECT_EQ(VariableOf(imperial, kSectionBuilding, 60).m_real, 42);
}

TEST(FlowTable, ThreeRows_ShareOneNameAndValue) {
    const auto settings = Defaults<CKV2D_ProjectSettingsFlow>(kImperial);
    for (int id : {0, 71, 179}) {
        EXPECT_EQ(VariableOf(settings, kSectionScales, id).m_name, L"scl22");
        EXPECT_EQ(VariableOf(settings, kSectionScales, id).m_real, 0.25);
    }
}

TEST(FlowTable, Scale8a_IsTheValueAsWrittenNotARatio) {
    EXPECT_EQ(VariableOf(Defaults<CKV2D_ProjectSettingsFlow>(kImperial), kSectionScales, 88).m_real, 1.6667);
}

TEST(FlowTable, Miscellaneous_HoldsBalloonScaleAndChoice191) {
    const auto settings = Defaults<CKV2D_ProjectSettingsFlow>(kMetric);
    ASSERT_EQ(FindSection(settings, kSectionMiscellaneous)->m_variables.size(), 2u);
    EXPECT_EQ(VariableOf(settings, kSectionMiscellaneous, 106).m_name, L"balscl");
    EXPECT_EQ(VariableOf(settings, kSectionMiscellaneous, 191).m_choice, 52);
}

TEST(IsoTable, ThreeRows_ShareOneNameAndValue) {
    const auto settings = Defaults<CKV2D_ProjectSettingsIso>(kMetric);
    for (int id : {0, 71, 179}) {
        EXPECT_EQ(VariableOf(settings, kSectionScales, id).m_name, L"scl6");
        EXPECT_EQ(VariableOf(settings, kSectionScales, id).m_real, 10);
    }
}

TEST(IsoTable, UnsetChoices_AreZeroWhichTheirListsDoNotHold) {
    const auto settings = Defaults<CKV2D_ProjectSettingsIso>(kMetric);
    for (int id : {180, 181, 182}) {
        const CVariable& variable = VariableOf(settings, kSectionMiscellaneous, id);
        EXPECT_EQ(variable.m_choice, 0);
        EXPECT_THAT(variable.m_choices, testing::Not(testing::Contains(kPrjValNone)));
        EXPECT_FALSE(variable.m_choices.empty());
    }
}

TEST(IsoTable, SmallPipeThickness_IsNotASixtyFourth) {
    EXPECT_EQ(VariableOf(Defaults<CKV2D_ProjectSettingsIso>(kImperial), kSectionIsometricSymbols, 148).m_real,
              0.01563);
}

TEST(IsoAndOrthoTables, Bend_IsARealInOneAndACountInTheOther) {
    EXPECT_EQ(VariableOf(Defaults<CKV2D_ProjectSettingsIso>(kMetric), kSectionGeneral, 113).m_kind,
              kKindReal);
    const auto ortho = Defaults<CKV2D_ProjectSettingsOrtho>(kMetric);
    EXPECT_EQ(VariableOf(ortho, kSectionGeneral, 113).m_kind, kKindInt);
    EXPECT_EQ(VariableOf(ortho, kSectionGeneral, 113).m_name, L"s-bend");
}

TEST(OrthoTable, Choice183_StandsInBuildingOnly) {
    const auto settings = Defaults<CKV2D_ProjectSettingsOrtho>(kMetric);
    EXPECT_EQ(VariableOf(settings, kSectionBuilding, 183).m_kind, kKindChoice);
    for (const CVariable& variable : FindSection(settings, kSectionMiscellaneous)->m_variables) {
        EXPECT_NE(variable.m_id, 183);
    }
}

TEST(OrthoTable, BreakSize_IsATextWithAnInchMarkInImperial) {
    EXPECT_EQ(VariableOf(Defaults<CKV2D_ProjectSettingsOrtho>(kMetric), kSectionGeneral, 169).m_textA,
              L"350mm");
    EXPECT_EQ(VariableOf(Defaults<CKV2D_ProjectSettingsOrtho>(kImperial), kSectionGeneral, 169).m_textA,
              L"14\"");
}

TEST(OrthoTable, SharedNames_KeepSeparateNumbersPerDiscipline) {
    const auto ortho = Defaults<CKV2D_ProjectSettingsOrtho>(kMetric);
    EXPECT_EQ(VariableOf(ortho, kSectionBuilding, 39).m_name, L"drfrme");
    EXPECT_EQ(VariableOf(Defaults<CKV2D_ProjectSettingsElectric>(kMetric), kSectionBuilding, 38).m_name,
              L"drfrme");
    EXPECT_EQ(VariableOf(ortho, kSectionGeneral, 115).m_name, L"inslen");
    EXPECT_EQ(VariableOf(Defaults<CKV2D_ProjectSettingsIso>(kMetric), kSectionIsometricSymbols, 114).m_name,
              L"inslen");
}

TEST(OrthoTable, RungCount_IsFourInBothUnits) {
    for (int units : {kMetric, kImperial}) {
        const auto settings = Defaults<CKV2D_ProjectSettingsOrtho>(units);
        EXPECT_EQ(VariableOf(settings, kSectionBuilding, 123).m_kind, kKindInt);
        EXPECT_EQ(VariableOf(settings, kSectionBuilding, 123).m_int, 4);
    }
}

}  // namespace
