// The reactors between the host and the palette.
#include "document/doc_reactors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "acedads.h"
#include "adscodes.h"
#include "database/services.h"
#include "document/doc_data.h"
#include "document/palette_link.h"
#include "host_test.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Notes what the palette is told, one line a call.
class NotingPalette final : public CPaletteLink {
  public:
    void UpdateForDocument(AcApDocument* doc) override { m_documents.push_back(doc); }
    void DocDestroyed() override { m_calls.push_back(L"DocDestroyed"); }
    void SysVarChanged(const std::wstring& name, bool store) override {
        m_calls.push_back(name + (store ? L" store" : L""));
    }

    std::vector<AcApDocument*> m_documents;
    std::vector<std::wstring> m_calls;
};

NotingPalette* g_palette = nullptr;
int g_shownPaletteSets = 0;

}  // namespace

CPaletteLink* GetPaletteLink() {
    return g_palette;
}

void ShowPaletteSet() {
    ++g_shownPaletteSets;
}

namespace {

class DocReactorsTest : public HostTest {
  protected:
    DocReactorsTest() {
        g_palette = &m_palette;
        g_shownPaletteSets = 0;
        kv2dDocManagerReactor::rxInit();
        kv2dEditorReactor::rxInit();
        acrxBuildClassHierarchy();
    }
    ~DocReactorsTest() override { g_palette = nullptr; }

    NotingPalette m_palette;
};

// --- Attaching.

TEST_F(DocReactorsTest, ObjectMadeWithoutAutoAttach_HearsNothingUntilAttached) {
    kv2dDocManagerReactor documents(false);
    EXPECT_FALSE(documents.IsAttached());
    NewDocument();
    EXPECT_THAT(m_palette.m_documents, IsEmpty());
    documents.Attach();
    EXPECT_TRUE(documents.IsAttached());
    AcApDocument* second = NewDocument();
    EXPECT_THAT(m_palette.m_documents, testing::Contains(second));
}

TEST_F(DocReactorsTest, AttachTwice_HearsEachEventOnce) {
    AcApDocument* first = NewDocument();
    NewDocument();
    kv2dDocManagerReactor documents(false);
    documents.Attach();
    documents.Attach();
    MakeCurrent(first);
    EXPECT_THAT(m_palette.m_documents, ElementsAre(first));
}

TEST_F(DocReactorsTest, Detach_EndsTheEventsAndMayBeRepeated) {
    kv2dDocManagerReactor documents(false);
    documents.Attach();
    documents.Detach();
    documents.Detach();
    EXPECT_FALSE(documents.IsAttached());
    NewDocument();
    EXPECT_THAT(m_palette.m_documents, IsEmpty());
}

TEST_F(DocReactorsTest, EndOfTheObject_Detaches) {
    NewDocument();
    {
        kv2dDocManagerReactor documents;
        kv2dEditorReactor editor;
        EXPECT_TRUE(documents.IsAttached());
        EXPECT_TRUE(editor.IsAttached());
    }
    m_palette.m_documents.clear();
    NewDocument();
    SetShort(L"SNAPISOPAIR", 2);
    EXPECT_THAT(m_palette.m_documents, IsEmpty());
    EXPECT_THAT(m_palette.m_calls, IsEmpty());
}

TEST_F(DocReactorsTest, Subjects_AreTheHostsOwn) {
    const kv2dDocManagerReactor documents(false);
    const kv2dEditorReactor editor(false);
    EXPECT_EQ(documents.Subject(), acDocManager);
    EXPECT_EQ(editor.Subject(), acedEditor);
    EXPECT_NE(editor.Subject(), nullptr);
}

TEST_F(DocReactorsTest, ObjectsOfThePseudoConstructor_AreAttachedAtOnce) {
    const std::unique_ptr<AcRxObject> documents(kv2dDocManagerReactor::desc()->create());
    const std::unique_ptr<AcRxObject> editor(kv2dEditorReactor::desc()->create());
    ASSERT_NE(kv2dDocManagerReactor::cast(documents.get()), nullptr);
    ASSERT_NE(kv2dEditorReactor::cast(editor.get()), nullptr);
    EXPECT_TRUE(kv2dDocManagerReactor::cast(documents.get())->IsAttached());
    EXPECT_TRUE(kv2dEditorReactor::cast(editor.get())->IsAttached());
}

TEST_F(DocReactorsTest, Classes_StandInTheRunTimeTreeUnderTheirOwnNames) {
    EXPECT_STREQ(kv2dDocManagerReactor::desc()->name(), L"kv2dDocManagerReactor");
    EXPECT_EQ(kv2dDocManagerReactor::desc()->myParent(), AcApDocManagerReactor::desc());
    EXPECT_STREQ(kv2dEditorReactor::desc()->name(), L"kv2dEditorReactor");
    EXPECT_EQ(kv2dEditorReactor::desc()->myParent(), AcEditorReactor::desc());
}

// Puts another class under the name of a reactor's, and registers the reactor's again.
void RegisterOverAnother(const wchar_t* name, void (*rxInit)()) {
    AcRxDictionary* classes = acrxClassDictionary;
    AcRxObject* ours = classes->atPut(name, AcRxObject::desc());
    workbench::database::InstallFatalHandler(
        [](const std::wstring& text) { throw std::runtime_error(std::string(text.begin(), text.end())); });
    EXPECT_THAT([&] { rxInit(); },
                testing::ThrowsMessage<std::runtime_error>(testing::StrEq("Class mismatch")));
    workbench::database::InstallFatalHandler(nullptr);
    classes->atPut(name, ours);
}

TEST_F(DocReactorsTest, AnotherClassOfTheSameName_EndsTheProgram) {
    RegisterOverAnother(L"kv2dDocManagerReactor", kv2dDocManagerReactor::rxInit);
    RegisterOverAnother(L"kv2dEditorReactor", kv2dEditorReactor::rxInit);
}

TEST_F(DocReactorsTest, RegisteringAgain_ChangesNothing) {
    const AcRxClass* documents = kv2dDocManagerReactor::desc();
    kv2dDocManagerReactor::rxInit();
    EXPECT_EQ(kv2dDocManagerReactor::desc(), documents);
}

TEST_F(DocReactorsTest, EditorOfAnotherClass_IsNoSubject) {
    AcRxObject* host = acrxSysRegistry()->atPut(ACED_EDITOR_OBJ, AcRxObject::desc());
    {
        const kv2dEditorReactor editor;
        EXPECT_EQ(editor.Subject(), nullptr);
        EXPECT_FALSE(editor.IsAttached());
    }
    acrxSysRegistry()->atPut(ACED_EDITOR_OBJ, host);
}

TEST(DocReactorsWithoutHost, Attach_LeavesThemDetached) {
    const kv2dDocManagerReactor documents;
    const kv2dEditorReactor editor;
    EXPECT_EQ(documents.Subject(), nullptr);
    EXPECT_EQ(editor.Subject(), nullptr);
    EXPECT_FALSE(documents.IsAttached());
    EXPECT_FALSE(editor.IsAttached());
}

TEST(DocReactorsWithoutHost, EndBehindTheHosts_TouchesNothing) {
    auto host = std::make_unique<QuietHost>();
    kv2dDocManagerReactor documents;
    const kv2dEditorReactor editor;
    const AcApDataManager<CDocData> data;
    host.reset();
    documents.Detach();
    EXPECT_TRUE(documents.IsAttached()) << "there was nothing to detach from";
}

TEST_F(DocReactorsTest, Attach_DetachesFirst) {
    class Counting : public kv2dEditorReactor {
      public:
        Counting() : kv2dEditorReactor(false) {}
        void Detach() override {
            ++m_detached;
            kv2dEditorReactor::Detach();
        }
        int m_detached = 0;
    };
    Counting reactor;
    reactor.Attach();
    reactor.Attach();
    EXPECT_EQ(reactor.m_detached, 2);
    EXPECT_TRUE(reactor.IsAttached());
}

// The four operations that the two classes add are virtual: whoever derives from one may replace them.
TEST_F(DocReactorsTest, Attach_AsksTheDerivedClassForItsSubject) {
    class WithoutSubject : public kv2dDocManagerReactor {
      public:
        WithoutSubject() : kv2dDocManagerReactor(false) {}
        AcApDocManager* Subject() const override { return nullptr; }
    };
    WithoutSubject reactor;
    reactor.Attach();
    EXPECT_FALSE(reactor.IsAttached());
}

// --- Documents.

TEST_F(DocReactorsTest, DocumentThatBecameCurrent_IsHandedToThePalette) {
    AcApDocument* first = NewDocument();
    AcApDocument* second = NewDocument();
    const kv2dDocManagerReactor documents;
    MakeCurrent(first);
    MakeCurrent(second);
    EXPECT_THAT(m_palette.m_documents, ElementsAre(first, second));
}

TEST_F(DocReactorsTest, NullDocument_IsHandedOnToo) {
    kv2dDocManagerReactor documents(false);
    documents.documentBecameCurrent(nullptr);
    EXPECT_THAT(m_palette.m_documents, ElementsAre(nullptr));
}

TEST_F(DocReactorsTest, DestroyedDocument_IsReportedOnce) {
    AcApDocument* document = NewDocument();
    const kv2dDocManagerReactor documents;
    Close(document);
    EXPECT_THAT(m_palette.m_calls, ElementsAre(L"DocDestroyed"));
}

TEST_F(DocReactorsTest, WithoutPalette_DocumentEventsDoNothing) {
    g_palette = nullptr;
    const kv2dDocManagerReactor documents;
    Close(NewDocument());
    EXPECT_THAT(m_palette.m_documents, IsEmpty());
    EXPECT_THAT(m_palette.m_calls, IsEmpty());
    EXPECT_EQ(g_shownPaletteSets, 0);
}

// --- System variables.

TEST_F(DocReactorsTest, SnapVariables_ReachThePaletteInUpperCase) {
    kv2dEditorReactor editor(false);
    editor.sysVarChanged(L"SNAPISOPAIR", true);
    editor.sysVarChanged(L"snapstyl", true);
    EXPECT_THAT(m_palette.m_calls, ElementsAre(L"SNAPISOPAIR store", L"SNAPSTYL store"));
}

TEST_F(DocReactorsTest, ChangeInTheHost_ReachesThePalette) {
    NewDocument();
    const kv2dEditorReactor editor;
    SetShort(L"snapisopair", 2);
    EXPECT_THAT(m_palette.m_calls, ElementsAre(L"SNAPISOPAIR store"));
}

TEST_F(DocReactorsTest, FailedChange_DoesNothing) {
    kv2dEditorReactor editor(false);
    editor.sysVarChanged(L"SNAPISOPAIR", false);
    editor.sysVarChanged(L"WSCURRENT", false);
    EXPECT_THAT(m_palette.m_calls, IsEmpty());
    EXPECT_EQ(g_shownPaletteSets, 0);
}

TEST_F(DocReactorsTest, ChangeThatTheHostRefuses_DoesNothing) {
    NewDocument();
    const kv2dEditorReactor editor;
    resbuf outOfRange{};
    outOfRange.restype = RTSHORT;
    outOfRange.resval.rint = 7;
    EXPECT_NE(acedSetVar(L"SNAPISOPAIR", &outOfRange), RTNORM);
    EXPECT_THAT(m_palette.m_calls, IsEmpty());
}

TEST_F(DocReactorsTest, OtherVariables_DoNothing) {
    kv2dEditorReactor editor(false);
    for (const wchar_t* name : {L"SNAPMODE", L"SNAPISOPAIR2", L"SNAP", L"", L"WSCURRENT "}) {
        editor.sysVarChanged(name, true);
    }
    editor.sysVarChanged(nullptr, true);
    EXPECT_THAT(m_palette.m_calls, IsEmpty());
    EXPECT_EQ(g_shownPaletteSets, 0);
}

TEST_F(DocReactorsTest, ChangeOfWorkspace_ShowsThePaletteSet) {
    kv2dEditorReactor editor(false);
    editor.sysVarChanged(L"WsCurrent", true);
    EXPECT_EQ(g_shownPaletteSets, 1);
    EXPECT_THAT(m_palette.m_calls, IsEmpty());
}

TEST_F(DocReactorsTest, WithoutPalette_SnapVariablesDoNothingAndTheWorkspaceIsPassedOn) {
    g_palette = nullptr;
    kv2dEditorReactor editor(false);
    editor.sysVarChanged(L"SNAPISOPAIR", true);
    EXPECT_EQ(g_shownPaletteSets, 0);
    editor.sysVarChanged(L"WSCURRENT", true);
    EXPECT_EQ(g_shownPaletteSets, 1);
}

// --- Data per document.

TEST_F(DocReactorsTest, DataOfADocument_GoesWithIt) {
    AcApDocument* first = NewDocument();
    AcApDocument* second = NewDocument();
    AcApDataManager<int> data;
    data.docData(first) = 1;
    data.docData(second) = 2;
    Close(first);
    EXPECT_EQ(data.docData(first), 0) << "made anew";
    EXPECT_EQ(data.docData(second), 2);
}

TEST_F(DocReactorsTest, DataManagerThatIsGone_HearsNoMoreEvents) {
    AcApDocument* document = NewDocument();
    { AcApDataManager<CDocData> data; }
    Close(document);  // would reach the manager that is gone
}

}  // namespace
