// System variables and environment.
#include "host_fixture.h"

namespace workbench::test {
namespace {

using VariablesTest = HostTest;

TEST_F(VariablesTest, Session_KnownWithoutDocuments) {
    EXPECT_EQ(Variable(L"CPROFILE"), L"<<Unnamed Profile>>");
    EXPECT_EQ(Variable(L"SDI"), L"0");
    EXPECT_EQ(Variable(L"wscurrent"), L"Drafting & Annotation");
    EXPECT_EQ(Variable(L"NONSENSE"), L"unknown");
}

TEST_F(VariablesTest, OfDocuments_UnknownWithoutOne) {
    EXPECT_EQ(Variable(L"SNAPSTYL"), L"unknown");
    EXPECT_EQ(SetShort(L"SNAPSTYL", 1), RTERROR);
    ADocument();
    EXPECT_EQ(Variable(L"SNAPSTYL"), L"0");
    EXPECT_EQ(SetShort(L"SNAPSTYL", 1), RTNORM);
    EXPECT_EQ(Variable(L"SNAPSTYL"), L"1");
}

TEST_F(VariablesTest, GetVar_UnknownName_LeavesTheResult) {
    resbuf value{};
    value.restype = RTSHORT;
    value.resval.rint = 77;
    EXPECT_EQ(acedGetVar(L"NONSENSE", &value), RTERROR);
    EXPECT_EQ(value.resval.rint, 77);
    EXPECT_EQ(acedGetVar(nullptr, &value), RTERROR);
    EXPECT_EQ(acedGetVar(L"SDI", nullptr), RTERROR);
}

TEST_F(VariablesTest, OfDocuments_AreEachDocumentsOwn) {
    host::Document& a = ADocument();
    SetShort(L"SNAPISOPAIR", 2);
    SetShort(L"ORTHOMODE", 1);
    ADocument();
    EXPECT_EQ(Variable(L"SNAPISOPAIR"), L"0");
    EXPECT_EQ(Variable(L"ORTHOMODE"), L"0");
    acDocManager->activateDocument(&a);
    EXPECT_EQ(Variable(L"SNAPISOPAIR"), L"2");
    EXPECT_EQ(Variable(L"ORTHOMODE"), L"1");
}

TEST_F(VariablesTest, SnapVariables_AreKeptInTheDrawing) {
    host::Document& document = ADocument();
    SetShort(L"SNAPSTYL", 1);
    SetShort(L"SNAPISOPAIR", 1);
    AcDbObjectPointer<AcDbViewportTable> table(document.database()->viewportTableId());
    AcDbObjectId id;
    ASSERT_EQ(table->getAt(L"*Active", id), Acad::eOk);
    AcDbObjectPointer<AcDbViewportTableRecord> viewport(id);
    EXPECT_TRUE(viewport->isometricSnapEnabled());
    EXPECT_EQ(viewport->snapPair(), 1);
    EXPECT_EQ(Variable(L"DBMOD"), L"1");
}

TEST_F(VariablesTest, SetVar_TellsBeforeAndAfter_WithTheNameAsWritten) {
    ADocument();
    EditorEvents events;
    SetShort(L"snapStyl", 1);
    EXPECT_EQ(events.events, (Events{L"will snapStyl", L"changed snapStyl"}));
}

TEST_F(VariablesTest, SetVar_ValueItDoesNotTake_FailsAndKeepsTheOld) {
    ADocument();
    SetShort(L"SNAPISOPAIR", 2);
    EditorEvents events;
    EXPECT_EQ(SetShort(L"SNAPISOPAIR", 3), RTREJ);
    EXPECT_EQ(SetShort(L"SNAPISOPAIR", -1), RTREJ);
    EXPECT_EQ(events.events, (Events{L"will SNAPISOPAIR", L"failed SNAPISOPAIR", L"will SNAPISOPAIR",
                                     L"failed SNAPISOPAIR"}));
    EXPECT_EQ(Variable(L"SNAPISOPAIR"), L"2");
}

TEST_F(VariablesTest, SetVar_WrongTypeReadOnlyOrUnknown_IsHeardByNobody) {
    ADocument();
    EditorEvents events;
    resbuf value{};
    value.restype = RTLONG;
    EXPECT_EQ(acedSetVar(L"SNAPSTYL", &value), RTREJ);
    value.restype = RTREAL;
    EXPECT_EQ(acedSetVar(L"SNAPSTYL", &value), RTREJ);
    value.restype = RTSTR;
    EXPECT_EQ(acedSetVar(L"WSCURRENT", &value), RTREJ);  // no text
    EXPECT_EQ(SetShort(L"DWGTITLED", 1), RTREJ);
    EXPECT_EQ(SetShort(L"NONSENSE", 1), RTERROR);
    EXPECT_EQ(acedSetVar(L"SDI", nullptr), RTERROR);
    EXPECT_TRUE(events.events.empty());
}

TEST_F(VariablesTest, SetVar_Text_TellsTheWorkspace) {
    EditorEvents events;
    wchar_t name[] = L"3D Basics";
    resbuf value{};
    value.restype = RTSTR;
    value.resval.rstring = name;
    EXPECT_EQ(acedSetVar(L"WSCURRENT", &value), RTNORM);
    EXPECT_EQ(Variable(L"WSCURRENT"), L"3D Basics");
    EXPECT_EQ(events.events, (Events{L"will WSCURRENT", L"changed WSCURRENT"}));
}

TEST_F(VariablesTest, SetVar_WithinItsOwnEvent_Works) {
    ADocument();
    EditorEvents events;
    events.on[L"changed"] = [&] {
        events.on.clear();
        SetShort(L"SNAPISOPAIR", 1);
    };
    SetShort(L"SNAPSTYL", 1);
    EXPECT_EQ(events.events,
              (Events{L"will SNAPSTYL", L"changed SNAPSTYL", L"will SNAPISOPAIR", L"changed SNAPISOPAIR"}));
}

TEST_F(VariablesTest, RealsAndPoints) {
    ADocument();
    resbuf value{};
    value.restype = RTREAL;
    value.resval.rreal = 2.5;
    EXPECT_EQ(acedSetVar(L"LTSCALE", &value), RTNORM);
    EXPECT_EQ(acedGetVar(L"LTSCALE", &value), RTNORM);
    EXPECT_EQ(value.restype, RTREAL);
    EXPECT_EQ(value.resval.rreal, 2.5);
    value.restype = RTPOINT;
    value.resval.rpoint[0] = 1;
    value.resval.rpoint[1] = 2;
    value.resval.rpoint[2] = 99;
    EXPECT_EQ(acedSetVar(L"LASTPOINT", &value), RTNORM);
    EXPECT_EQ(acedGetVar(L"LASTPOINT", &value), RTNORM);
    EXPECT_EQ(value.restype, RT3DPOINT);
    EXPECT_EQ(value.resval.rpoint[1], 2);
    EXPECT_EQ(value.resval.rpoint[2], 0);
}

TEST_F(VariablesTest, Clayer_IsTheDrawingsCurrentLayer) {
    host::Document& document = ADocument();
    EXPECT_EQ(Variable(L"CLAYER"), L"0");
    wchar_t name[] = L"PIPES";
    resbuf value{};
    value.restype = RTSTR;
    value.resval.rstring = name;
    EditorEvents events;
    EXPECT_EQ(acedSetVar(L"CLAYER", &value), RTREJ);
    EXPECT_EQ(events.events, (Events{L"will CLAYER", L"failed CLAYER"}));
    EXPECT_EQ(Variable(L"CLAYER"), L"0");
    acDocManager->lockDocument(&document);
    {
        AcDbObjectPointer<AcDbLayerTable> table(document.database()->layerTableId(), AcDb::kForWrite);
        auto* layer = new AcDbLayerTableRecord;
        layer->setName(L"Pipes");
        table->add(layer);
        layer->close();
    }
    acDocManager->unlockDocument(&document);
    EXPECT_EQ(acedSetVar(L"CLAYER", &value), RTNORM);
    EXPECT_EQ(Variable(L"CLAYER"), L"Pipes");
}

TEST_F(VariablesTest, CmdActive_TellsWhatRuns) {
    ADocument();
    EXPECT_EQ(Variable(L"CMDACTIVE"), L"0");
    Type(L"LINE 0,0 ");
    EXPECT_EQ(Variable(L"CMDACTIVE"), L"1");
    EXPECT_EQ(Variable(L"CMDNAMES"), L"LINE");
    Type(L"\x1b");
    EXPECT_EQ(Variable(L"CMDACTIVE"), L"0");
    EXPECT_NE(Type(L"(getvar \"CMDACTIVE\")\n").find(L"32"), std::wstring::npos);
}

TEST_F(VariablesTest, Environment_SetAndGet) {
    wchar_t buffer[8];
    EXPECT_EQ(acedGetEnv(L"QnewTemplate", buffer, 8), RTERROR);
    EXPECT_EQ(acedSetEnv(L"QnewTemplate", L"C:\\a.dwt"), RTNORM);
    EXPECT_EQ(acedGetEnv(L"QnewTemplate", buffer, 8), RTERROR);  // one short
    wchar_t enough[9];
    EXPECT_EQ(acedGetEnv(L"QnewTemplate", enough, 9), RTNORM);
    EXPECT_STREQ(enough, L"C:\\a.dwt");
    EXPECT_EQ(acedSetEnv(L"", L"x"), RTERROR);
    EXPECT_EQ(acedSetEnv(nullptr, L"x"), RTERROR);
    EXPECT_EQ(acedSetEnv(L"A", nullptr), RTERROR);
}

TEST_F(VariablesTest, ProductRootKey_IsTheSettings) {
    EXPECT_STREQ(acdbHostApplicationServices()->getUserRegistryProductRootKey(),
                 TestSettings().productRootKey.c_str());
}

}  // namespace
}  // namespace workbench::test
