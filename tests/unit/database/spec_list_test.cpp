#include "database/spec_list.h"

#include <gmock/gmock.h>

#include "a_database.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SpecListTest : public SystemTest {
  protected:
    // The palette's list as "name" texts, ids checked to be parallel.
    std::vector<std::wstring> FetchProjectSpecs(int nProjectId) {
        EXPECT_EQ(GetProjectSpecs(nProjectId, m_anIds, m_astrNames), kSpecDone);
        EXPECT_EQ(m_anIds.size(), m_astrNames.size());
        return m_astrNames;
    }

    int FetchByScope(int nClientId, int nProjectId, bool bZeroScope) {
        return GetSpecsByScope(nClientId, nProjectId, m_anIds, m_astrNames, m_anClientIds, m_astrClientNames,
                               m_anProjectIds, m_astrProjectNames, bZeroScope);
    }

    std::vector<int> m_anIds{99}, m_anScopes{99}, m_anClientIds{99}, m_anProjectIds{99};
    std::vector<std::wstring> m_astrNames{L"x"}, m_astrClientNames{L"x"}, m_astrProjectNames{L"x"};
};

TEST_F(SpecListTest, SpecIdFromKey_OfAKey_NeedsNoFile) {
    EXPECT_EQ(SpecIdFromKey(L"KV2D_SPEC_17", false), 17);
    EXPECT_EQ(SpecIdFromKey(L"x kv2d_spec_17 y", true), 17);
    EXPECT_EQ(SpecIdFromKey(L"KV2D_SPEC_", true), 0);
    EXPECT_EQ(SpecIdFromKey(L"", true), 0);
}

TEST_F(SpecListTest, SpecIdFromKey_OfAName_IgnoresLetterCase) {
    ADatabase(*this).WithSpec(3, "Pipe Spec A").WithSpec(4, "pipe spec a").WithSpec(5, "B");
    EXPECT_EQ(SpecIdFromKey(L"PIPE SPEC A", true), 3);
    EXPECT_EQ(SpecIdFromKey(L"b", true), 5);
    EXPECT_EQ(SpecIdFromKey(L"B", false), 0);
    EXPECT_EQ(SpecIdFromKey(L"C", true), 0);
}

TEST_F(SpecListTest, GetSpecListFromIni_IsInRowOrder) {
    ADatabase(*this).WithSpec(3, "Z").WithSpec(1, "A").WithRow(L"SpecDatafile.ini", "SpecList", "A = Odd");
    CKV2D_IniFile ini;
    ASSERT_EQ(ini.Open(InData(L"SpecDatafile.ini")), kIniDone);
    GetSpecListFromIni(ini, m_anIds, m_astrNames);
    EXPECT_THAT(m_anIds, ElementsAre(3, 1, 0));
    EXPECT_THAT(m_astrNames, ElementsAre(L"Z", L"A", L"Odd"));
    EXPECT_EQ(ini.GetSection(), L"SpecList");
}

TEST_F(SpecListTest, GetSpecScopes_TellsWhoOwnsASpec) {
    ADatabase(*this)
        .WithSpec(1, "Everyone's")
        .WithSpec(2, "Client's")
        .WithSpec(3, "Project's")
        .WithSpec(4, "Both")
        .WithSpec(5, "Client zero's")
        .WithClientSpec(2, "4")
        .WithClientSpec(4, "6 six")
        .WithClientSpec(5, "0")
        .WithProjectSpec(3, "12")
        .WithProjectSpec(4, "13")
        .WithProjectSpec(5, "14");
    EXPECT_EQ(GetSpecScopes(m_anIds, m_anScopes, m_astrNames), kSpecDone);
    EXPECT_THAT(m_anIds, ElementsAre(1, 2, 3, 4, 5));
    EXPECT_THAT(m_anScopes, ElementsAre(0, -4, 12, -6, 0));
    EXPECT_THAT(m_astrNames,
                ElementsAre(L"Everyone's", L"Client's", L"Project's", L"Both", L"Client zero's"));
}

TEST_F(SpecListTest, GetSpecScopes_OfTwoRowsForOneSpec_TheFirstCounts) {
    ADatabase(*this).WithSpec(2, "A").WithClientSpec(2, "4").WithRow(L"SpecDatafile.ini", "ClientSpecs",
                                                                     "kv2d_spec_2 = 5");
    GetSpecScopes(m_anIds, m_anScopes, m_astrNames);
    EXPECT_THAT(m_anScopes, ElementsAre(-4));
}

TEST_F(SpecListTest, GetSpecScopes_SmallestInteger_DoesNotCrash) {
    ADatabase(*this)
        .WithSpec(2, "A")
        .WithClientSpec(2, "-2147483648")
        .WithSpec(3, "B")
        .WithProjectSpec(3, "9999999999");
    EXPECT_EQ(GetSpecScopes(m_anIds, m_anScopes, m_astrNames), kSpecDone);
    EXPECT_THAT(m_anScopes, ElementsAre(-2147483647 - 1, 2147483647));
    EXPECT_EQ(FetchByScope(-2147483647 - 1, 12, false), kSpecDone);
    EXPECT_THAT(m_anClientIds, ElementsAre(2));
}

TEST_F(SpecListTest, GetSpecScopes_WithoutFile_IsEmptyAndDone) {
    ADatabase database(*this);
    EXPECT_EQ(GetSpecScopes(m_anIds, m_anScopes, m_astrNames), kSpecDone);
    EXPECT_THAT(m_anIds, IsEmpty());
    EXPECT_THAT(m_anScopes, IsEmpty());
    EXPECT_THAT(m_astrNames, IsEmpty());
}

TEST_F(SpecListTest, GetSpecScopes_WithoutDataFolder_HasNoFileAndEmpties) {
    EXPECT_EQ(GetSpecScopes(m_anIds, m_anScopes, m_astrNames), kSpecNoFile);
    EXPECT_THAT(m_anIds, IsEmpty());
    EXPECT_THAT(m_anScopes, IsEmpty());
    EXPECT_THAT(m_astrNames, IsEmpty());
}

TEST_F(SpecListTest, GetSpecsByScope_SortsEachBlockAndDropsTheSpecsOfOthers) {
    ADatabase(*this)
        .WithSpec(1, "b")
        .WithSpec(2, "a")
        .WithSpec(3, "d")
        .WithSpec(4, "c")
        .WithSpec(5, "f")
        .WithSpec(6, "e")
        .WithSpec(7, "other client's")
        .WithSpec(8, "other project's")
        .WithClientSpec(3, "4")
        .WithClientSpec(4, "4")
        .WithProjectSpec(5, "12")
        .WithProjectSpec(6, "12")
        .WithClientSpec(7, "5")
        .WithProjectSpec(8, "13");
    EXPECT_EQ(FetchByScope(4, 12, false), kSpecDone);
    EXPECT_THAT(m_anIds, ElementsAre(2, 1));
    EXPECT_THAT(m_astrNames, ElementsAre(L"a", L"b"));
    EXPECT_THAT(m_anClientIds, ElementsAre(4, 3));
    EXPECT_THAT(m_astrClientNames, ElementsAre(L"c", L"d"));
    EXPECT_THAT(m_anProjectIds, ElementsAre(6, 5));
    EXPECT_THAT(m_astrProjectNames, ElementsAre(L"e", L"f"));
}

TEST_F(SpecListTest, GetSpecsByScope_ZeroScope_CountsSpecsAsEveryonesWhereNobodyIsInView) {
    ADatabase(*this)
        .WithSpec(1, "a")
        .WithSpec(2, "b")
        .WithSpec(3, "c")
        .WithClientSpec(2, "4")
        .WithProjectSpec(3, "12");
    EXPECT_EQ(FetchByScope(0, 12, true), kSpecDone);
    EXPECT_THAT(m_anIds, ElementsAre(1, 2));
    EXPECT_THAT(m_anProjectIds, ElementsAre(3));
    EXPECT_EQ(FetchByScope(4, 0, true), kSpecDone);
    EXPECT_THAT(m_anIds, ElementsAre(1, 3));
    EXPECT_THAT(m_anClientIds, ElementsAre(2));
    EXPECT_EQ(FetchByScope(0, 0, true), kSpecDone);
    EXPECT_THAT(m_anIds, ElementsAre(1, 2, 3));
    EXPECT_EQ(FetchByScope(0, 0, false), kSpecDone);
    EXPECT_THAT(m_anIds, ElementsAre(1));
    EXPECT_THAT(m_anClientIds, IsEmpty());
    EXPECT_THAT(m_anProjectIds, IsEmpty());
}

TEST_F(SpecListTest, GetSpecsByScope_WithoutDataFolder_HasNoFileAndEmpties) {
    EXPECT_EQ(FetchByScope(4, 12, true), kSpecNoFile);
    EXPECT_THAT(m_anIds, IsEmpty());
    EXPECT_THAT(m_astrNames, IsEmpty());
    EXPECT_THAT(m_anClientIds, IsEmpty());
    EXPECT_THAT(m_astrClientNames, IsEmpty());
    EXPECT_THAT(m_anProjectIds, IsEmpty());
    EXPECT_THAT(m_astrProjectNames, IsEmpty());
}

TEST_F(SpecListTest, GetProjectSpecIds_AreInRowOrder) {
    ADatabase(*this)
        .WithProject(12, "Pump")
        .WithSpec(3, "Pipe Spec A")
        .WithEnabledSpec(12, "KV2D_SPEC_9")
        .WithEnabledSpec(12, "pipe spec a")
        .WithEnabledSpec(12, "Unknown")
        .WithEnabledSpec(12, "KV2D_SPEC_1");
    EXPECT_EQ(GetProjectSpecIds(12, m_anIds), kSpecDone);
    EXPECT_THAT(m_anIds, ElementsAre(9, 3, 0, 1));
}

TEST_F(SpecListTest, GetProjectSpecIds_OfIdBelowOne_IsInvalidAndEmpties) {
    EXPECT_EQ(GetProjectSpecIds(0, m_anIds), kSpecInvalidProjectId);
    EXPECT_THAT(m_anIds, IsEmpty());
    m_anIds = {99};
    EXPECT_EQ(GetProjectSpecIds(-1, m_anIds), kSpecInvalidProjectId);
    EXPECT_THAT(m_anIds, IsEmpty());
}

TEST_F(SpecListTest, GetProjectSpecIds_OfAnUnknownProject_HasNoFileAndEmpties) {
    ADatabase(*this).WithProject(12, "Pump");
    EXPECT_EQ(GetProjectSpecIds(13, m_anIds), kSpecNoFile);
    EXPECT_THAT(m_anIds, IsEmpty());
    EXPECT_EQ(GetSpecsIniPath(13), L"");
}

TEST_F(SpecListTest, GetProjectSpecIds_WithoutSpecsIni_IsEmptyAndDone) {
    ADatabase database(*this);
    database.WithProject(12, "Pump");
    EXPECT_EQ(GetProjectSpecIds(12, m_anIds), kSpecDone);
    EXPECT_THAT(m_anIds, IsEmpty());
    EXPECT_EQ(GetSpecsIniPath(12), database.GetProjectFolder(12) + L"Specs.ini");
    EXPECT_FALSE(HasFile(GetSpecsIniPath(12)));
}

TEST_F(SpecListTest, GetProjectSpecs_AreThreeBlocksEachSortedByName) {
    ADatabase(*this)
        .WithProject(12, "Pump")
        .WithClient(4, "Acme")
        .WithClientProject(4, 12)
        .WithSpec(1, "z global")
        .WithSpec(2, "y global")
        .WithSpec(3, "b client's")
        .WithSpec(4, "a client's")
        .WithSpec(5, "a project's")
        .WithSpec(6, "not enabled")
        .WithClientSpec(3, "4")
        .WithClientSpec(4, "4")
        .WithProjectSpec(5, "12")
        .WithEnabledSpec(12, "KV2D_SPEC_5")
        .WithEnabledSpec(12, "KV2D_SPEC_4")
        .WithEnabledSpec(12, "KV2D_SPEC_3")
        .WithEnabledSpec(12, "KV2D_SPEC_2")
        .WithEnabledSpec(12, "KV2D_SPEC_1");
    EXPECT_THAT(FetchProjectSpecs(12),
                ElementsAre(L"y global", L"z global", L"a client's", L"b client's", L"a project's"));
    EXPECT_THAT(m_anIds, ElementsAre(2, 1, 4, 3, 5));
}

TEST_F(SpecListTest, GetProjectSpecs_ClientSpec_IsOfferedToProjectsOfThatClientOnly) {
    ADatabase(*this)
        .WithProject(12, "Pump")
        .WithProject(13, "Tank")
        .WithProject(14, "Nobody's")
        .WithClient(4, "Acme")
        .WithClient(5, "Other")
        .WithClientProject(4, 12)
        .WithClientProject(5, 13)
        .WithSpec(3, "Acme's")
        .WithClientSpec(3, "4")
        .WithEnabledSpec(12, "KV2D_SPEC_3")
        .WithEnabledSpec(13, "KV2D_SPEC_3")
        .WithEnabledSpec(14, "KV2D_SPEC_3");
    EXPECT_THAT(FetchProjectSpecs(12), ElementsAre(L"Acme's"));
    EXPECT_THAT(FetchProjectSpecs(13), IsEmpty());
    EXPECT_THAT(FetchProjectSpecs(14), IsEmpty());
}

TEST_F(SpecListTest, GetProjectSpecs_ProjectSpec_IsOfferedToThatProjectOnly) {
    ADatabase(*this)
        .WithProject(12, "Pump")
        .WithProject(13, "Tank")
        .WithSpec(3, "Pump's")
        .WithProjectSpec(3, "12")
        .WithEnabledSpec(12, "KV2D_SPEC_3")
        .WithEnabledSpec(13, "KV2D_SPEC_3");
    EXPECT_THAT(FetchProjectSpecs(12), ElementsAre(L"Pump's"));
    EXPECT_THAT(FetchProjectSpecs(13), IsEmpty());
}

TEST_F(SpecListTest, GetProjectSpecs_ClientSpecOfClientZero_CountsAsEveryones) {
    ADatabase(*this)
        .WithProject(12, "Pump")
        .WithSpec(3, "Zero's")
        .WithClientSpec(3, "0")
        .WithEnabledSpec(12, "KV2D_SPEC_3");
    EXPECT_THAT(FetchProjectSpecs(12), ElementsAre(L"Zero's"));
}

TEST_F(SpecListTest, GetProjectSpecs_EnabledByItsNameInOtherLetterCase) {
    ADatabase(*this).WithProject(12, "Pump").WithSpec(3, "Pipe Spec A").WithEnabledSpec(12, "pipe spec a");
    EXPECT_THAT(FetchProjectSpecs(12), ElementsAre(L"Pipe Spec A"));
}

TEST_F(SpecListTest, GetProjectSpecs_WithoutSpecsIni_OffersNothing) {
    ADatabase(*this).WithProject(12, "Pump").WithSpec(3, "A");
    EXPECT_THAT(FetchProjectSpecs(12), IsEmpty());
    EXPECT_THAT(m_anIds, IsEmpty());
}

TEST_F(SpecListTest, GetProjectSpecs_OfNoProject_OffersNothingAndEmpties) {
    ADatabase(*this).WithSpec(3, "A");
    EXPECT_THAT(FetchProjectSpecs(0), IsEmpty());
    EXPECT_THAT(FetchProjectSpecs(99), IsEmpty());
}

TEST_F(SpecListTest, GetProjectSpecs_WithoutDataFolder_OffersNothingAndEmpties) {
    EXPECT_THAT(FetchProjectSpecs(12), IsEmpty());
}

TEST_F(SpecListTest, Reading_LeavesTheFilesAsTheyAre) {
    ADatabase(*this)
        .WithProject(12, "Pump")
        .WithSpec(9, "Z")
        .WithSpec(3, "A")
        .WithEnabledSpec(12, "KV2D_SPEC_9")
        .WithEnabledSpec(12, "KV2D_SPEC_3");
    const std::string strSpecs = GetBytes(InData(L"SpecDatafile.ini"));
    const std::string strEnabled = GetBytes(GetSpecsIniPath(12));
    FetchProjectSpecs(12);
    EXPECT_EQ(GetBytes(InData(L"SpecDatafile.ini")), strSpecs);
    EXPECT_EQ(GetBytes(GetSpecsIniPath(12)), strEnabled);
}

class SizeListTest : public SystemTest {
  protected:
    SizeListTest() {
        ADatabase database(*this);
        PutFile(InData(L"Standards\\Piping\\ANSI\\size.tp"),
                Lines({"[Imperial US Sizes]", "12.00 = 12\"", " 1.00 = 1\"", " 3.00 = 3\"", " 4.00 = 4\"",
                       "4.00 = x", "[Metric OD Sizes]", " 1.00 = 33.4"}));
    }

    std::vector<int> m_anIndices{99};
    std::vector<std::wstring> m_astrTexts{L"left over"};
};

TEST_F(SizeListTest, GetSizeList_IsInRowOrderWithRowNumbers) {
    GetSizeList(L"ANSI", 2, m_anIndices, m_astrTexts, false);
    EXPECT_THAT(m_anIndices, ElementsAre(0, 1, 2, 3, 4));
    EXPECT_THAT(m_astrTexts, ElementsAre(L"12\"", L"1\"", L"3\"", L"4\"", L"x"));
}

TEST_F(SizeListTest, GetSizeList_CommonOnly_LeavesGapsInTheRowNumbers) {
    GetSizeList(L"ANSI", 2, m_anIndices, m_astrTexts, true);
    EXPECT_THAT(m_anIndices, ElementsAre(1, 2, 3));
    EXPECT_THAT(m_astrTexts, ElementsAre(L"1\"", L"3\"", L"4\""));
}

TEST_F(SizeListTest, GetSizeList_TakesTheSectionOfTheSizeSet) {
    GetSizeList(L"ANSI", 0, m_anIndices, m_astrTexts, false);
    EXPECT_THAT(m_astrTexts, ElementsAre(L"33.4"));
    GetSizeList(L"ANSI", 99, m_anIndices, m_astrTexts, false);
    EXPECT_EQ(m_astrTexts.size(), 5u);
    GetSizeList(L"ANSI", 3, m_anIndices, m_astrTexts, false);
    EXPECT_THAT(m_anIndices, IsEmpty());
    EXPECT_THAT(m_astrTexts, IsEmpty());
}

TEST_F(SizeListTest, GetSizeList_OfAMissingStandard_IsEmpty) {
    GetSizeList(L"DIN", 2, m_anIndices, m_astrTexts, false);
    EXPECT_THAT(m_anIndices, IsEmpty());
    EXPECT_THAT(m_astrTexts, IsEmpty());
}

}  // namespace
