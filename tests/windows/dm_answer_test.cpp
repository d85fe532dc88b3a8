// What the palette does with the Drawing Manager's answer: drawings are opened, read-only ones and those from
// a template through the host's automation object, which is watched.
#include <acadi.h>
#include <gmock/gmock.h>

#include <map>

#include "dm_start_fixture.h"
#include "resources/resource.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

#pragma GCC diagnostic push
// The interface has no virtual destructor, and none is called through it.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// An automation object whose members are functions of the test.
class WatchedObject : public IDispatch {
  public:
    using Member = std::function<HRESULT(const DISPPARAMS&, VARIANT*)>;

    std::map<std::wstring, Member> m_members;
    bool m_isApplication = false;
    ULONG m_references = 1;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
        const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch) ||
                           (m_isApplication && IsEqualIID(id, IID_IAcadApplication));
        *object = known ? this : nullptr;
        if (known) AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++m_references; }
    ULONG STDMETHODCALLTYPE Release() override { return --m_references; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
        const auto found = m_members.find(names[0]);
        if (found == m_members.end()) return DISP_E_UNKNOWNNAME;
        ids[0] = static_cast<DISPID>(1 + std::distance(m_members.begin(), found));
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT* result,
                                     EXCEPINFO*, UINT*) override {
        return std::next(m_members.begin(), id - 1)->second(*arguments, result);
    }
};

#pragma GCC diagnostic pop

// The same with an automation object of the test in place of the host's.
class DrawingManagerAutomation : public DrawingManagerStart {
  protected:
    DrawingManagerAutomation() {
        m_application.m_isApplication = true;
        m_application.m_members[L"Documents"] = [this](const DISPPARAMS&, VARIANT* result) {
            m_documents.AddRef();
            result->vt = VT_DISPATCH;
            result->pdispVal = &m_documents;
            return S_OK;
        };
        m_documents.m_members[L"Open"] = [this](const DISPPARAMS& arguments, VARIANT*) {
            return Note(L"Open", arguments);
        };
        m_documents.m_members[L"Add"] = [this](const DISPPARAMS& arguments, VARIANT*) {
            return Note(L"Add", arguments);
        };
    }
    void StartWatched() {
        Start();
        g_app.m_dispatch = &m_application;
        SetNumber(kManagerKey, kProjectIdValue, 5);
        SpendFirstRequest();
    }
    // The last argument comes first.
    HRESULT Note(const std::wstring& name, const DISPPARAMS& arguments) {
        std::wstring call = name;
        for (UINT i = arguments.cArgs; i-- > 0;) {
            const VARIANT& argument = arguments.rgvarg[i];
            if (argument.vt == VT_BSTR) call += L" " + std::wstring(argument.bstrVal);
            if (argument.vt == VT_BOOL) call += argument.boolVal == VARIANT_TRUE ? L" true" : L" false";
            if (argument.vt == VT_I4) call += L" " + std::to_wstring(argument.lVal);
        }
        m_calls.push_back(call);
        return m_answer;
    }
    void ExpectAllReleased() {
        EXPECT_EQ(m_application.m_references, 1u);
        EXPECT_EQ(m_documents.m_references, 1u);
    }

    WatchedObject m_application;
    WatchedObject m_documents;
    std::vector<std::wstring> m_calls;
    HRESULT m_answer = S_OK;
};

}  // namespace

TEST_F(DrawingManagerStart, ChosenDrawings_AreOpenedInOrder) {
    PutFile(InDrawings(L"A.dwg"), kDrawing);
    PutFile(InDrawings(L"B.dwg"), kDrawing);
    SetNumber(kManagerKey, kProjectIdValue, 5);
    Start();
    SpendFirstRequest();
    OpenRows({L"A", L"B"}, ID_DRAWINGS_OPEN);
    EXPECT_EQ(acDocManager->documentCount(), 3);
    EXPECT_EQ(CurrentFile(), InDrawings(L"B.dwg"));
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(DrawingManagerStart, DrawingThatCannotBeOpened_IsToldAndTheNextOneIsOpened) {
    PutFile(InDrawings(L"A 50%s.dwg"), "this is no drawing");
    PutFile(InDrawings(L"B.dwg"), kDrawing);
    SetNumber(kManagerKey, kProjectIdValue, 5);
    Start();
    SpendFirstRequest();
    OpenRows({L"A 50%s", L"B"}, ID_DRAWINGS_OPEN);
    EXPECT_EQ(CurrentFile(), InDrawings(L"B.dwg"));
    ASSERT_EQ(Boxes().size(), 1u);
    EXPECT_EQ(Boxes()[0].caption, L"Drawing Manager");
    EXPECT_EQ(Boxes()[0].text.find(L"Error opening drawing:\n" + InDrawings(L"A 50%s.dwg") +
                                   L"\n\nAutoCAD Error: "),
              0u)
        << testing::PrintToString(Boxes()[0].text);
}

TEST_F(DrawingManagerStart, OpenReadOnly_OpensThroughTheHostsAutomation) {
    PutFile(InDrawings(L"A.dwg"), kDrawing);
    SetNumber(kManagerKey, kProjectIdValue, 5);
    Start();
    SpendFirstRequest();
    OpenRows({L"A"}, ID_DRAWINGS_OPENREADONLY);
    ASSERT_NE(acDocManager->curDocument(), nullptr);
    EXPECT_EQ(CurrentFile(), InDrawings(L"A.dwg"));
    EXPECT_TRUE(acDocManager->curDocument()->isReadOnly());
}

TEST_F(DrawingManagerStart, OpenStandard_StartsAnUnnamedDrawingFromItsTemplate) {
    PutFile(InRoot(L"Templates\\acad.dwt"), kDrawing);
    m_database.WithGeneral(6, "General",
                           "TemplatesLocation = " + platform::GetText().Narrow(InRoot(L"Templates")));
    SetNumber(kManagerKey, kProjectIdValue, 6);
    Start();
    SpendFirstRequest();
    InManager([](ManagerDriver& driver) { windows::Click(driver.Dialog(), IDC_OPEN_STANDARD); });
    EXPECT_EQ(acDocManager->documentCount(), 2);
    EXPECT_FALSE(acDocManager->curDocument()->isNamedDrawing());
    EXPECT_EQ(m_session->Frame()->View().Content().ShapeCount(), 1u);
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(DrawingManagerAutomation, ReadOnlyDrawings_AreOpenedOneByOneAndFailuresAreNotTold) {
    PutFile(InDrawings(L"A.dwg"), kDrawing);
    PutFile(InDrawings(L"B.dwg"), kDrawing);
    StartWatched();
    m_answer = E_FAIL;
    OpenRows({L"A", L"B"}, ID_DRAWINGS_OPENREADONLY);
    EXPECT_THAT(m_calls, ElementsAre(L"Open " + InDrawings(L"A.dwg") + L" true 0",
                                     L"Open " + InDrawings(L"B.dwg") + L" true 0"));
    EXPECT_THAT(Boxes(), IsEmpty());
    ExpectAllReleased();
}

TEST_F(DrawingManagerAutomation, HostWithoutItsApplicationInterface_IsToldOnce) {
    PutFile(InDrawings(L"A.dwg"), kDrawing);
    PutFile(InDrawings(L"B.dwg"), kDrawing);
    StartWatched();
    m_application.m_isApplication = false;
    OpenRows({L"A", L"B"}, ID_DRAWINGS_OPENREADONLY);
    EXPECT_THAT(m_calls, IsEmpty());
    ASSERT_EQ(Boxes().size(), 1u);
    EXPECT_EQ(Boxes()[0].text, L"Could not query the AutoCAD application interface.");
    EXPECT_EQ(Boxes()[0].caption, L"Drawing Manager");
    ExpectAllReleased();
}

TEST_F(DrawingManagerAutomation, HostWithoutItsDocuments_IsToldOnce) {
    PutFile(InDrawings(L"A.dwg"), kDrawing);
    PutFile(InDrawings(L"B.dwg"), kDrawing);
    StartWatched();
    m_application.m_members[L"Documents"] = [](const DISPPARAMS&, VARIANT*) { return E_FAIL; };
    OpenRows({L"A", L"B"}, ID_DRAWINGS_OPENREADONLY);
    EXPECT_THAT(m_calls, IsEmpty());
    ASSERT_EQ(Boxes().size(), 1u);
    EXPECT_EQ(Boxes()[0].text, L"Could not get the AutoCAD documents.");
    EXPECT_EQ(Boxes()[0].caption, L"Drawing Manager");
    ExpectAllReleased();
}

TEST_F(DrawingManagerAutomation, OpenStandard_AddsADrawingAndLooksAtNoResult) {
    m_database.WithGeneral(5, "General", "TemplatesLocation = C:\\50%s");
    StartWatched();
    m_answer = E_FAIL;
    InManager([](ManagerDriver& driver) { windows::Click(driver.Dialog(), IDC_OPEN_STANDARD); });
    EXPECT_THAT(m_calls, ElementsAre(L"Add C:\\50%s\\acad.dwt"));
    EXPECT_THAT(Boxes(), IsEmpty());
    ExpectAllReleased();
}

TEST_F(DrawingManagerAutomation, OpenStandardWithoutTheHostsInterfaces_IsTold) {
    StartWatched();
    m_application.m_isApplication = false;
    InManager([](ManagerDriver& driver) { windows::Click(driver.Dialog(), IDC_OPEN_STANDARD); });
    m_application.m_isApplication = true;
    m_application.m_members[L"Documents"] = [](const DISPPARAMS&, VARIANT*) { return E_FAIL; };
    InManager([](ManagerDriver& driver) { windows::Click(driver.Dialog(), IDC_OPEN_STANDARD); });
    ASSERT_EQ(Boxes().size(), 2u);
    EXPECT_EQ(Boxes()[0].text, L"Could not query the AutoCAD application interface.");
    EXPECT_EQ(Boxes()[1].text, L"Could not get the AutoCAD documents.");
    ExpectAllReleased();
}

TEST_F(DrawingManagerAutomation, CancelWithoutATemplate_CallsNothing) {
    StartWatched();
    InManager([](ManagerDriver& driver) { driver.Escape(); });
    InManager([](ManagerDriver& driver) {
        driver.SelectItem({L"Acme"});
        driver.Command(ID_PROJECTS_OPEN);  // a client has no template
    });
    EXPECT_THAT(m_calls, IsEmpty());
    EXPECT_THAT(Boxes(), IsEmpty());
    ExpectAllReleased();
}
