// An application built on the entry headers: what its tables register, and in which order.
#include "arxEntryPoint.h"
#include "host_fixture.h"

HINSTANCE__* _hdllInstance = nullptr;

namespace workbench::test {
namespace {

std::vector<std::wstring> g_calls;

struct Functions {
    static int ads_zlast() { return Note(L"zlast"); }
    static int ads_afirst() { return Note(L"afirst"); }
    static int ads_direct() { return Note(L"direct"); }
    static void menu_manager() { Note(L"manager"); }
    static int Note(const wchar_t* name) {
        g_calls.push_back(name);
        acedRetInt(acedGetFunCode());
        return RSRSLT;
    }
};

class EntryBase : public AcApDocManagerReactor {
  public:
    ACRX_DECLARE_MEMBERS(EntryBase);
};
class EntryDerived : public EntryBase {
  public:
    ACRX_DECLARE_MEMBERS(EntryDerived);
};
ACRX_CONS_DEFINE_MEMBERS(EntryBase, AcApDocManagerReactor, 1)
ACRX_CONS_DEFINE_MEMBERS(EntryDerived, EntryBase, 1)

ACDB_REGISTER_OBJECT_ENTRY_AUTO(EntryBase);
ACDB_REGISTER_OBJECT_ENTRY_AUTO(EntryDerived);
ACED_ARXCOMMAND_ENTRY_AUTO(Functions, menu, _manager, manager, ACRX_CMD_MODAL, nullptr);
ACED_ADSSYMBOL_ENTRY_AUTO(Functions, zlast, false);
ACED_ADSSYMBOL_ENTRY_AUTO(Functions, afirst, false);
ACED_ADSSYMBOL_ENTRY_AUTO(Functions, direct, true);

class EntryTest : public HostTest {
  protected:
    EntryTest() {
        g_calls.clear();
        FakeApplication::onMessage = [this](AcRx::AppMsgCode message, void* appId) {
            switch (message) {
                case AcRx::kInitAppMsg:
                    return m_app.On_kInitAppMsg(appId);
                case AcRx::kUnloadAppMsg:
                    return m_app.On_kUnloadAppMsg(appId);
                case AcRx::kLoadDwgMsg:
                    return m_app.On_kLoadDwgMsg(appId);
                case AcRx::kUnloadDwgMsg:
                    return m_app.On_kUnloadDwgMsg(appId);
                case AcRx::kInvkSubrMsg:
                    return m_app.On_kInvkSubrMsg(appId);
                default:
                    return AcRx::kRetOK;
            }
        };
        acrxDynamicLinker->loadModule(L"C:\\entry.arx", true);
    }
    ~EntryTest() override { m_host.reset(); }

    AcRxArxApp m_app;
};

TEST_F(EntryTest, Init_UnlocksTheApplicationAndSaysItKnowsDocuments) {
    EXPECT_FALSE(acrxDynamicLinker->isApplicationLocked(L"entry.arx"));
    EXPECT_TRUE(acrxDynamicLinker->isAppMDIAware(L"entry.arx"));
}

TEST_F(EntryTest, Init_RegistersTheClassesUnderTheirParents) {
    EXPECT_EQ(EntryDerived::desc()->myParent(), EntryBase::desc());
    EXPECT_EQ(EntryBase::desc()->myParent(), AcApDocManagerReactor::desc());
}

TEST_F(EntryTest, Init_AddsTheCommands) {
    ADocument();
    Type(L"manager\n_manager\n");
    EXPECT_EQ(g_calls, (Events{L"manager", L"manager"}));
}

TEST_F(EntryTest, FunctionCodes_FollowTheLinesOfTheSource) {
    ADocument();
    EXPECT_EQ(Type(L"(zlast)\n"), L"Command: (zlast)\n0\n");
    EXPECT_EQ(Type(L"(afirst)\n"), L"Command: (afirst)\n1\n");
    EXPECT_EQ(Type(L"(direct)\n"), L"Command: (direct)\n2\n");
    EXPECT_EQ(g_calls, (Events{L"zlast", L"afirst", L"direct"}));
}

TEST_F(EntryTest, Unload_LeavesNothing) {
    ADocument();
    m_surface.transcript.clear();
    EXPECT_TRUE(acrxDynamicLinker->unloadModule(L"entry.arx"));
    EXPECT_EQ(m_surface.transcript, L"");
    EXPECT_EQ(acrxClassDictionary->at(L"EntryBase"), nullptr);
    EXPECT_EQ(acrxClassDictionary->at(L"EntryDerived"), nullptr);
    EXPECT_NE(Type(L"(zlast)\n").find(L"no function definition"), std::wstring::npos);
    EXPECT_TRUE(acrxDynamicLinker->loadModule(L"C:\\entry.arx", true));
}

}  // namespace
}  // namespace workbench::test
