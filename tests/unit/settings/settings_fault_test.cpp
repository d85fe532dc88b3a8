// Settings files that cannot be read or written, and how often a file is touched.
#include <gmock/gmock.h>

#include "project_folder.h"

namespace {

class SettingsHeldFileTest : public ProjectFolder<SystemTest> {};
class SettingsFaultTest : public ProjectFolder<MemorySystemTest> {};

TEST_F(SettingsHeldFileTest, FileThatAnotherProgramWrites_IsLeftAloneAndTheDefaultsStand) {
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

TEST_F(SettingsFaultTest, ReadOnlyFile_IsReadAndStaysAsItWas) {
    const std::string bytes = Lines({"[Settings]", "Variable 044 = Norm"});
    PutFile(InFolder(L"ISOMETRIC.ini"), bytes);
    SetReadOnly(InFolder(L"ISOMETRIC.ini"));
    EXPECT_EQ(Loaded<Iso>().GetText(kVarTemplateName), L"Norm");
    SetReadOnly(InFolder(L"ISOMETRIC.ini"), false);
    EXPECT_EQ(GetBytes(InFolder(L"ISOMETRIC.ini")), bytes);
}

// What an administrator finds after a share's rights denied reading but not writing.
TEST_F(SettingsFaultTest, UnreadableFile_IsReplacedByTheRepairsOverTheDefaults) {
    PutFile(InFolder(L"ISOMETRIC.ini"), Lines({"[Settings]", "Variable 044 = Norm", "Variable 185 = 8"}));
    GetMemory().files.RefuseOpen(InFolder(L"ISOMETRIC.ini"));
    auto settings = Loaded<Iso>();
    EXPECT_EQ(settings.GetText(kVarTemplateName), L"acad");
    EXPECT_EQ(VariableOf(settings, 185).m_real, 10);
    GetMemory().files.ClearFaults();
    EXPECT_EQ(GetBytes(InFolder(L"ISOMETRIC.ini")),
              Lines({"[Settings]", "Variable 180 = 40", "Variable 181 = 36", "Variable 182 = 36",
                     "Variable 185 = 10.000000"}));
}

TEST_F(SettingsFaultTest, FileThatCannotBeCreated_LeavesTheRepairedValues) {
    GetMemory().files.RefuseCreate(L"");
    auto settings = Loaded<Iso>();
    EXPECT_FALSE(HasFile(InFolder(L"ISOMETRIC.ini")));
    EXPECT_EQ(VariableOf(settings, 180).m_choice, 40);
}

TEST_F(SettingsFaultTest, FolderThatIsGone_LeavesTheDefaults) {
    const auto settings = Loaded<Iso>(kMetric, CProjectFacts{L"C:\\Nowhere\\", kNewVersion, kMetricSizes});
    EXPECT_EQ(settings.GetText(kVarTemplateName), L"acad");
    EXPECT_FALSE(HasFolder(L"C:\\Nowhere\\"));
}

// Each reading and writing fails in turn. Loading reads twice, the second time to save.
TEST(SettingsEveryFault, Load_LeavesTheRowsThatTheReadingsGave) {
    const std::string before = Lines({"[Settings]", "Variable 044 = Norm", "Variable 185 = 8"});
    const std::string repaired = Lines({"[Settings]", "Variable 044 = Norm", "Variable 180 = 40",
                                        "Variable 181 = 36", "Variable 182 = 36", "Variable 185 = 8"});
    const std::string repairedDefaults =
        Lines({"[Settings]", "Variable 044 = Norm", "Variable 180 = 40", "Variable 181 = 36",
               "Variable 182 = 36", "Variable 185 = 10.000000"});
    const std::string repairsOnly =
        Lines({"[Settings]", "Variable 180 = 40", "Variable 181 = 36", "Variable 182 = 36"});
    std::vector<std::string> left;
    ForEachFailingCall([&](TestSystem& system) { system.PutFile(system.InRoot(L"ISOMETRIC.ini"), before); },
                       [&](TestSystem& system) {
                           CKV2D_ProjectSettingsIso settings;
                           settings.InitDefaults(kMetric);
                           settings.Load(kProjectId, {system.GetRoot(), kNewVersion, kMetricSizes});
                           left.push_back(system.GetBytes(system.InRoot(L"ISOMETRIC.ini")));
                       });
    EXPECT_THAT(left, testing::ElementsAre(repairedDefaults, repairsOnly, before, repaired))
        << "the first reading fails, the second, the writing, and nothing";
}

TEST(SettingsEveryFault, WriteThatBreaksOff_LeavesTheFirstBytesOfTheWholeFile) {
    const std::string repaired = Lines({"[Settings]", "Variable 180 = 40", "Variable 181 = 36",
                                        "Variable 182 = 36", "Variable 185 = 10.000000"});
    for (size_t byte = 0; byte <= repaired.size(); ++byte) {
        TestSystem system(SystemKind::kMemory);
        const std::wstring path = system.InRoot(L"ISOMETRIC.ini");
        system.GetMemory().files.FailWriteAt(path, byte);
        const auto load = [&] {
            CKV2D_ProjectSettingsIso settings;
            settings.InitDefaults(kMetric);
            settings.Load(kProjectId, {system.GetRoot(), kNewVersion, kMetricSizes});
            return settings;
        };
        auto first = load();
        EXPECT_EQ(VariableOf(first, 185).m_real, 10) << byte;
        EXPECT_EQ(system.GetBytes(path), repaired.substr(0, byte));
        // What is left is read, a number that was cut off as the shorter one.
        system.GetMemory().files.ClearFaults();
        auto second = load();
        EXPECT_NE(VariableOf(second, 180).m_choice, 0) << byte;
        EXPECT_GT(VariableOf(second, 185).m_real, 0) << byte;
    }
}

// --- How often the file is touched.

TEST_F(SettingsFaultTest, LoadWithoutRepairs_ReadsTheFileOnce) {
    IsoWith({"Variable 180 = 39", "Variable 181 = 30", "Variable 182 = 31", "Variable 185 = 1"});
    GetMemory().log.Clear();
    Loaded<Iso>();
    EXPECT_EQ(GetMemory().log.GetCount(L"ReadBytes"), 1u);
    EXPECT_EQ(GetMemory().log.GetCount(L"WriteBytes"), 0u);
}

TEST_F(SettingsFaultTest, LoadWithRepairs_WritesTheFileOnce) {
    GetMemory().log.Clear();
    Loaded<Ortho>();
    EXPECT_EQ(GetMemory().log.GetCount(L"WriteBytes"), 1u);
}

}  // namespace
