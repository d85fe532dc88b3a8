#include "database/client_list.h"

#include <gmock/gmock.h>

#include "a_database.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ClientListTest : public SystemTest {
  protected:
    std::vector<int> m_anIds{99};
    std::vector<std::wstring> m_astrNames{L"left over"};
    int m_nClientId = 99;
    std::wstring m_strClientName = L"left over";
};

TEST_F(ClientListTest, ClientKeyFromId_OfNoClient_IsEmpty) {
    EXPECT_EQ(ClientKeyFromId(17), L"KV2D_CLIENT_17");
    EXPECT_EQ(ClientKeyFromId(0), L"");
    EXPECT_EQ(ClientKeyFromId(-3), L"");
}

TEST_F(ClientListTest, ClientIdFromKey_AnyLetterCaseAndTextAhead_GivesTheId) {
    EXPECT_EQ(ClientIdFromKey(L"KV2D_CLIENT_7"), 7);
    EXPECT_EQ(ClientIdFromKey(L"kv2d_client_7"), 7);
    EXPECT_EQ(ClientIdFromKey(L"old KV2D_Client_12x"), 12);
}

TEST_F(ClientListTest, ClientIdFromKey_WithoutPrefix_IsZero) {
    EXPECT_EQ(ClientIdFromKey(L""), 0);
    EXPECT_EQ(ClientIdFromKey(L"7"), 0);
    EXPECT_EQ(ClientIdFromKey(L"KV2D_CLIENT7"), 0);
    EXPECT_EQ(ClientIdFromKey(L"KV2D_CLIENT_"), 0);
}

TEST_F(ClientListTest, GetClientList_IsInTheOrderOfTheFile) {
    ADatabase(*this)
        .WithClient(2, "Zeta")
        .WithClient(1, "Alpha")
        .WithRow(L"ClientDatafile.ini", "ClientList", "kv2d_client_9 = Mid");
    EXPECT_TRUE(GetClientList(m_anIds, m_astrNames));
    EXPECT_THAT(m_anIds, ElementsAre(2, 1, 9));
    EXPECT_THAT(m_astrNames, ElementsAre(L"Zeta", L"Alpha", L"Mid"));
}

TEST_F(ClientListTest, GetClientList_KeyWithoutId_KeepsItsRowWithIdZero) {
    ADatabase(*this).WithRow(L"ClientDatafile.ini", "ClientList", "Acme = Acme Ltd").WithClient(4, "Four");
    EXPECT_TRUE(GetClientList(m_anIds, m_astrNames));
    EXPECT_THAT(m_anIds, ElementsAre(0, 4));
    EXPECT_THAT(m_astrNames, ElementsAre(L"Acme Ltd", L"Four"));
}

TEST_F(ClientListTest, GetClientList_WithoutFile_IsEmptyAndTrue) {
    ADatabase database(*this);
    EXPECT_TRUE(GetClientList(m_anIds, m_astrNames));
    EXPECT_THAT(m_anIds, IsEmpty());
    EXPECT_THAT(m_astrNames, IsEmpty());
}

TEST_F(ClientListTest, GetClientList_WithoutDataFolder_IsFalseAndEmpties) {
    EXPECT_FALSE(GetClientList(m_anIds, m_astrNames));
    EXPECT_THAT(m_anIds, IsEmpty());
    EXPECT_THAT(m_astrNames, IsEmpty());
}

TEST_F(ClientListTest, GetClientProjects_ReadsTheSectionOfAnUnlistedClient) {
    ADatabase(*this).WithClient(1, "One").WithClientProject(3, 12).WithClientProject(3, 7);
    EXPECT_TRUE(GetClientProjects(3, m_anIds));
    EXPECT_THAT(m_anIds, ElementsAre(12, 7));
}

TEST_F(ClientListTest, GetClientProjects_KeyThatIsNoNumber_GivesZero) {
    ADatabase(*this).WithRow(L"ClientDatafile.ini", "ProjectList - 1", "seven = x").WithClientProject(1, 8);
    EXPECT_TRUE(GetClientProjects(1, m_anIds));
    EXPECT_THAT(m_anIds, ElementsAre(0, 8));
}

TEST_F(ClientListTest, GetClientProjects_OfIdBelowOne_IsFalseAndEmpties) {
    ADatabase(*this).WithClientProject(0, 7);
    EXPECT_FALSE(GetClientProjects(0, m_anIds));
    EXPECT_THAT(m_anIds, IsEmpty());
    m_anIds = {99};
    EXPECT_FALSE(GetClientProjects(-1, m_anIds));
    EXPECT_THAT(m_anIds, IsEmpty());
}

TEST_F(ClientListTest, GetClientProjects_WithoutDataFolder_IsFalseAndEmpties) {
    EXPECT_FALSE(GetClientProjects(1, m_anIds));
    EXPECT_THAT(m_anIds, IsEmpty());
}

TEST_F(ClientListTest, GetProjectsOfClients_GivesEachClientItsList) {
    ADatabase(*this)
        .WithClientProject(3, 12)
        .WithClientProject(1, 5)
        .WithClientProject(3, 7)
        .WithClientProject(0, 9);
    std::vector<std::vector<int>> aanProjectIds(9);
    EXPECT_TRUE(GetProjectsOfClients({1, 0, 2, 3}, aanProjectIds));
    EXPECT_THAT(aanProjectIds, ElementsAre(ElementsAre(5), IsEmpty(), IsEmpty(), ElementsAre(12, 7)));
}

TEST_F(ClientListTest, GetProjectsOfClients_WithoutDataFolder_IsFalseAndGivesEmptyLists) {
    std::vector<std::vector<int>> aanProjectIds{{99}};
    EXPECT_FALSE(GetProjectsOfClients({1, 2}, aanProjectIds));
    EXPECT_THAT(aanProjectIds, ElementsAre(IsEmpty(), IsEmpty()));
}

TEST_F(ClientListTest, GetClientOfProject_FindsIdAndName) {
    ADatabase(*this).WithClient(1, "One").WithClient(2, "Two").WithClientProject(2, 7);
    EXPECT_TRUE(GetClientOfProject(7, m_nClientId, m_strClientName));
    EXPECT_EQ(m_nClientId, 2);
    EXPECT_EQ(m_strClientName, L"Two");
}

TEST_F(ClientListTest, GetClientOfProject_ListedUnderTwoClients_TakesTheFirstInFileOrder) {
    ADatabase(*this).WithClient(2, "Two").WithClient(1, "One").WithClientProject(1, 7).WithClientProject(2,
                                                                                                         7);
    EXPECT_TRUE(GetClientOfProject(7, m_nClientId, m_strClientName));
    EXPECT_EQ(m_nClientId, 2);
}

TEST_F(ClientListTest, GetClientOfProject_ListedUnderNoClient_IsZeroAndTrue) {
    ADatabase(*this).WithClient(1, "One").WithClientProject(1, 8);
    EXPECT_TRUE(GetClientOfProject(7, m_nClientId, m_strClientName));
    EXPECT_EQ(m_nClientId, 0);
    EXPECT_EQ(m_strClientName, L"");
}

TEST_F(ClientListTest, GetClientOfProject_SectionOfAnUnlistedClient_IsNeverLookedAt) {
    ADatabase(*this).WithClient(1, "One").WithClientProject(3, 7);
    EXPECT_TRUE(GetClientOfProject(7, m_nClientId, m_strClientName));
    EXPECT_EQ(m_nClientId, 0);
}

TEST_F(ClientListTest, GetClientOfProject_RowWithEmptyValue_AssignsNothing) {
    ADatabase(*this).WithClient(1, "One").WithRow(L"ClientDatafile.ini", "ProjectList - 1", "7 = ");
    EXPECT_TRUE(GetClientOfProject(7, m_nClientId, m_strClientName));
    EXPECT_EQ(m_nClientId, 0);
}

TEST_F(ClientListTest, GetClientOfProject_ClientKeyInSmallLetters_HasNoName) {
    ADatabase(*this)
        .WithRow(L"ClientDatafile.ini", "ClientList", "kv2d_client_2 = Two")
        .WithClientProject(2, 7);
    EXPECT_TRUE(GetClientOfProject(7, m_nClientId, m_strClientName));
    EXPECT_EQ(m_nClientId, 2);
    EXPECT_EQ(m_strClientName, L"");  // keys in files compare by letter case
}

TEST_F(ClientListTest, GetClientOfProject_WithoutDataFolder_IsFalseAndEmpties) {
    EXPECT_FALSE(GetClientOfProject(7, m_nClientId, m_strClientName));
    EXPECT_EQ(m_nClientId, 0);
    EXPECT_EQ(m_strClientName, L"");
}

TEST_F(ClientListTest, Reading_LeavesTheFileAsItIs) {
    const std::string strUnsorted =
        "[ClientList]\r\nKV2D_CLIENT_2 = Two\r\nKV2D_CLIENT_1 = One\r\nloose line\r\n";
    ADatabase database(*this);
    PutFile(InData(L"ClientDatafile.ini"), strUnsorted);
    GetClientList(m_anIds, m_astrNames);
    GetClientProjects(1, m_anIds);
    GetClientOfProject(1, m_nClientId, m_strClientName);
    EXPECT_EQ(GetBytes(InData(L"ClientDatafile.ini")), strUnsorted);
}

}  // namespace
