// What loading fills in where a file holds nothing or 0, one rule at a time.
#include "project_folder.h"

namespace {

class SettingsRepairTest : public ProjectFolder<SystemTest> {};

TEST_F(SettingsRepairTest, Choice182_FollowsTheBoltUnits) {
    auto metric = IsoWith({"Variable 170 = 39"});
    EXPECT_EQ(VariableOf(metric, 182).m_choice, 32);
    auto imperial = IsoWith({"Variable 170 = 40"});
    EXPECT_EQ(VariableOf(imperial, 182).m_choice, 36);
    auto unknown = IsoWith({"Variable 170 = 7"});
    EXPECT_EQ(VariableOf(unknown, 182).m_choice, 36);
}

TEST_F(SettingsRepairTest, Choice182_DoesNotFollowChoice180) {
    auto settings = IsoWith({"Variable 170 = 40", "Variable 180 = 39"});
    EXPECT_EQ(VariableOf(settings, 182).m_choice, 36);
}

TEST_F(SettingsRepairTest, Choice180_TakesTheBoltUnits) {
    auto settings = IsoWith({"Variable 170 = 39"});
    EXPECT_EQ(VariableOf(settings, 180).m_choice, 39);
}

TEST_F(SettingsRepairTest, Choice181_FollowsChoice180AfterItsOwnRepair) {
    auto repaired = IsoWith({"Variable 170 = 39"});
    EXPECT_EQ(VariableOf(repaired, 181).m_choice, 32);
    auto stored = IsoWith({"Variable 170 = 39", "Variable 180 = 40"});
    EXPECT_EQ(VariableOf(stored, 181).m_choice, 36);
    EXPECT_EQ(VariableOf(stored, 182).m_choice, 32);
}

TEST_F(SettingsRepairTest, StoredChoices_AreNotRepaired) {
    auto settings =
        IsoWith({"Variable 180 = 39", "Variable 181 = 30", "Variable 182 = 31", "Variable 185 = 1"});
    EXPECT_EQ(VariableOf(settings, 180).m_choice, 39);
    EXPECT_EQ(VariableOf(settings, 181).m_choice, 30);
    EXPECT_EQ(VariableOf(settings, 182).m_choice, 31);
}

TEST_F(SettingsRepairTest, BoltUnitsOfZero_LeaveChoice180UnsetAndUnsaved) {
    auto settings = IsoWith({"Variable 170 = 0"});
    EXPECT_EQ(VariableOf(settings, 180).m_choice, 0);
    EXPECT_EQ(GetBytes(InFolder(L"ISOMETRIC.ini")),
              Lines({"[Settings]", "Variable 170 = 0", "Variable 181 = 36", "Variable 182 = 36",
                     "Variable 185 = 10.000000"}));
}

TEST_F(SettingsRepairTest, ZerosInTheFile_AreRepairedLikeMissingRows) {
    IsoWith({"Variable 180 = 0", "Variable 181 = 0", "Variable 182 = 0", "Variable 185 = 0"});
    EXPECT_EQ(GetBytes(InFolder(L"ISOMETRIC.ini")),
              Lines({"[Settings]", "Variable 180 = 40", "Variable 181 = 36", "Variable 182 = 36",
                     "Variable 185 = 10.000000"}));
}

TEST_F(SettingsRepairTest, OrthoMiscellaneous_IsRepairedByTheSameRules) {
    auto settings = OrthoWith({"Variable 170 = 39"});
    EXPECT_EQ(VariableOf(settings, 182).m_choice, 32);
    EXPECT_EQ(VariableOf(settings, 180).m_choice, 39);
    EXPECT_EQ(VariableOf(settings, 181).m_choice, 32);
}

TEST_F(SettingsRepairTest, OrthoChoice183_FollowsTheDisplayedUnits) {
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

TEST_F(SettingsRepairTest, Choice183_IsRepairedWhereItStandsInMiscellaneousToo) {
    Iso settings;
    settings.InitDefaults(kMetric);
    settings.m_sections[4].AddChoice(183, L"", 0, 0, 39, 40, 0);
    settings.Load(kProjectId, Facts(kNewVersion, kImperialSizes));
    EXPECT_EQ(VariableOf(settings, 183).m_choice, 40);
}

TEST_F(SettingsRepairTest, IsoReal185_TakesScale82OfTheFile) {
    auto settings = IsoWith({"Variable 082 = 7.25"});
    EXPECT_EQ(VariableOf(settings, 185).m_real, 7.25);
}

TEST_F(SettingsRepairTest, IsoReal185_BelowZeroCountsAsUnset) {
    auto settings = IsoWith({"Variable 185 = -1"});
    EXPECT_EQ(VariableOf(settings, 185).m_real, 10);
    auto small = IsoWith({"Variable 185 = 0.001"});
    EXPECT_EQ(VariableOf(small, 185).m_real, 0.001);
}

TEST_F(SettingsRepairTest, IsoReals71And179_AreNotRepaired) {
    auto settings = IsoWith({"Variable 071 = 0", "Variable 179 = -2"});
    EXPECT_EQ(VariableOf(settings, 71).m_real, 0);
    EXPECT_EQ(VariableOf(settings, 179).m_real, -2);
}

TEST_F(SettingsRepairTest, OrthoReals_TakeScale107EachByItself) {
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

}  // namespace
