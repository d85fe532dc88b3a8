// Reactors that close the document for which something is being done: what was begun for it ends there, and
// no other document gets it.
#include "host_fixture.h"

namespace workbench::test {
namespace {

class ClosingTest : public HostTest {
  protected:
    ClosingTest() {
        m_first = &ADocument();
        m_second = &ADocument();
    }
    // Closes the current document, once.
    std::function<void()> Close(EditorEvents& events) {
        return [this, &events] {
            events.on.clear();
            m_closed = acDocManager->appContextCloseDocument(acDocManager->curDocument());
        };
    }
    std::function<void(AcApDocument*)> Close(DocumentEvents& events) {
        return [this, &events](AcApDocument* document) {
            events.on.clear();
            m_closed = acDocManager->appContextCloseDocument(document);
        };
    }
    bool OnlyFirstIsLeft() const {
        return acDocManager->documentCount() == 1 && acDocManager->curDocument() == m_first &&
               acDocManager->mdiActiveDocument() == m_first;
    }

    host::Document* m_first;
    host::Document* m_second;
    Acad::ErrorStatus m_closed = Acad::eNotImplementedYet;
};

TEST_F(ClosingTest, DocumentClosedAsItsCommandStarts_CancelsTheCommand) {
    EditorEvents events;
    events.on[L"start"] = Close(events);
    Type(L"LINE 0,0 1,1\n\n");
    EXPECT_EQ(m_closed, Acad::eOk);
    EXPECT_TRUE(OnlyFirstIsLeft());
    EXPECT_EQ(events.events, (Events{L"start LINE", L"cancel LINE"}));
    EXPECT_EQ(database::DataOf(*m_first->database()).ModelSpace()->entities.size(), 0u);
    EXPECT_FALSE(m_first->Line().IsWaiting());
}

TEST_F(ClosingTest, DocumentClosedAsItsExpressionStarts_EvaluatesNothing) {
    EditorEvents events;
    events.on[L"lisp"] = Close(events);
    Type(L"(setvar \"SNAPISOPAIR\" 2)\n");
    EXPECT_EQ(m_closed, Acad::eOk);
    EXPECT_TRUE(OnlyFirstIsLeft());
    EXPECT_EQ(events.events, (Events{L"lisp", L"lispCancelled"}));
    EXPECT_EQ(Variable(L"SNAPISOPAIR"), L"0");
}

TEST_F(ClosingTest, DocumentClosedBehindItsExpression_IsGone) {
    EditorEvents events;
    events.on[L"lispEnded"] = Close(events);
    EXPECT_EQ(Type(L"(strcat \"a\" \"b\")\n"), L"Command: (strcat \"a\" \"b\")\n\"ab\"\n");
    EXPECT_EQ(m_closed, Acad::eOk);
    EXPECT_TRUE(OnlyFirstIsLeft());
}

TEST_F(ClosingTest, DocumentOfACommandThatRuns_CannotBeClosed) {
    for (const wchar_t* event : {L"end", L"fail"}) {
        EditorEvents events;
        events.on[event] = Close(events);
        Type(L"LINE 0,0 1,1\n\n");
        Type(L"SETVAR NOSUCH 1\n");
        EXPECT_EQ(m_closed, Acad::eInvalidContext);
        EXPECT_EQ(acDocManager->curDocument(), m_second);
        m_closed = Acad::eNotImplementedYet;
    }
}

TEST_F(ClosingTest, DocumentClosedAsItsCommandIsCancelled_IsGone) {
    EditorEvents events;
    Type(L"LINE\n");
    events.on[L"cancel"] = Close(events);
    Type(L"\x1bREGEN\n");
    EXPECT_EQ(m_closed, Acad::eOk);
    EXPECT_TRUE(OnlyFirstIsLeft());
    EXPECT_EQ(events.events.back(), L"cancel LINE") << "what stood behind the escape was for it";
}

TEST_F(ClosingTest, DocumentClosedOverAnUnknownCommand_IsGone) {
    EditorEvents events;
    events.on[L"unknown"] = Close(events);
    Type(L"NOSUCH\n");
    EXPECT_EQ(m_closed, Acad::eOk);
    EXPECT_TRUE(OnlyFirstIsLeft());
}

TEST_F(ClosingTest, VariableOfADocumentThatIsClosedFirst_IsSetNowhere) {
    EditorEvents events;
    events.on[L"will"] = Close(events);
    EXPECT_EQ(SetShort(L"SNAPISOPAIR", 2), RTERROR);
    EXPECT_EQ(m_closed, Acad::eOk);
    EXPECT_TRUE(OnlyFirstIsLeft());
    EXPECT_EQ(Variable(L"SNAPISOPAIR"), L"0") << "the next document keeps its own";
    EXPECT_EQ(events.events, (Events{L"will SNAPISOPAIR", L"failed SNAPISOPAIR"}));
}

TEST_F(ClosingTest, DocumentClosedBehindAChange_OthersHearOfNoChangeInTheNextOne) {
    EditorEvents events;
    EditorEvents later;
    events.on[L"changed"] = Close(events);
    EXPECT_EQ(SetShort(L"SNAPISOPAIR", 2), RTNORM);
    EXPECT_TRUE(OnlyFirstIsLeft());
    EXPECT_EQ(Variable(L"SNAPISOPAIR"), L"0");
    EXPECT_EQ(later.events, (Events{L"will SNAPISOPAIR", L"failed SNAPISOPAIR"}));
}

TEST_F(ClosingTest, VariableOfTheSession_IsSetWhateverIsClosed) {
    EditorEvents events;
    events.on[L"will"] = Close(events);
    EXPECT_EQ(SetShort(L"OSMODE", 7), RTNORM);
    EXPECT_EQ(m_closed, Acad::eOk);
    EXPECT_EQ(Variable(L"OSMODE"), L"7");
}

TEST_F(ClosingTest, LastDocumentClosedAroundAChange_LeavesNoVariables) {
    acDocManager->appContextCloseDocument(m_first);
    for (const wchar_t* event : {L"will", L"changed"}) {
        EditorEvents events;
        events.on[event] = Close(events);
        SetShort(L"SNAPISOPAIR", 1);
        EXPECT_EQ(m_closed, Acad::eOk);
        EXPECT_EQ(acDocManager->documentCount(), 0);
        EXPECT_EQ(Variable(L"SNAPISOPAIR"), L"unknown");
        ADocument();
        m_closed = Acad::eNotImplementedYet;
    }
}

// --- Locks.

TEST_F(ClosingTest, LockedDocument_CannotBeClosedAsItsLockIsGivenBack) {
    ASSERT_EQ(acDocManager->lockDocument(m_second), Acad::eOk);
    DocumentEvents events;
    events.on[L"lockWillChange"] = Close(events);
    EXPECT_EQ(acDocManager->unlockDocument(m_second), Acad::eOk);
    EXPECT_EQ(m_closed, Acad::eLockConflict);
    EXPECT_EQ(m_second->lockMode(true), AcAp::kNotLocked);
}

TEST_F(ClosingTest, DocumentClosedBehindItsLock_IsToldToNobodyElse) {
    ASSERT_EQ(acDocManager->lockDocument(m_second), Acad::eOk);
    DocumentEvents events;
    DocumentEvents later;
    events.on[L"lockChanged"] = Close(events);
    EXPECT_EQ(acDocManager->unlockDocument(m_second), Acad::eOk);
    EXPECT_EQ(m_closed, Acad::eOk);
    EXPECT_TRUE(OnlyFirstIsLeft());
    EXPECT_EQ(later.locks, (Events{L"will 4>2 #"}));
}

TEST_F(ClosingTest, ObjectThatIsHeldWhileItsDocumentCloses_CanStillBeClosed) {
    ASSERT_EQ(acDocManager->lockDocument(m_second), Acad::eOk);
    {
        AcDbObjectPointer<AcDbBlockTableRecord> space(m_second->database()->currentSpaceId(),
                                                      AcDb::kForWrite);
        ASSERT_EQ(space.openStatus(), Acad::eOk);
        ASSERT_EQ(acDocManager->unlockDocument(m_second), Acad::eOk);
        EXPECT_EQ(acDocManager->appContextCloseDocument(m_second), Acad::eOk);
        EXPECT_NE(m_surface.transcript.find(L"1 objects of Drawing2.dwg were left open"), std::wstring::npos);
        const ACHAR* name = nullptr;
        EXPECT_EQ(space->getName(name), Acad::eOk) << "still an object";
    }
    EXPECT_EQ(acDocManager->appContextCloseDocument(m_first), Acad::eOk);
}

// --- Files and applications.

TEST_F(ClosingTest, DocumentClosedAsItsTitleChanges_IsSaved) {
    DocumentEvents events;
    DocumentEvents later;
    events.on[L"titleUpdated"] = Close(events);
    EXPECT_EQ(Documents().SaveAs(*m_second, L"C:\\P\\b.dwg"), Acad::eOk);
    EXPECT_EQ(m_closed, Acad::eOk);
    EXPECT_TRUE(OnlyFirstIsLeft());
    EXPECT_TRUE(m_files.texts.contains(L"C:\\P\\b.dwg"));
    EXPECT_FALSE(m_files.texts.contains(L"C:\\P\\b.dwl"));
    EXPECT_EQ(std::count(later.events.begin(), later.events.end(), L"titleUpdated b.dwg"), 0);
}

TEST_F(ClosingTest, NewDocumentClosedByAnApplicationThatHearsOfIt_LeavesTheOneBeforeCurrent) {
    ASSERT_TRUE(m_host->Apps().loadModule(L"app.arx", false, false));
    FakeApplication::onMessage = [this](AcRx::AppMsgCode message, void*) {
        if (message == AcRx::kLoadDwgMsg)
            m_closed = acDocManager->appContextCloseDocument(acDocManager->curDocument());
        return AcRx::kRetOK;
    };
    EXPECT_EQ(acDocManager->appContextNewDocument(nullptr), Acad::eOk);
    EXPECT_EQ(m_closed, Acad::eOk);
    EXPECT_EQ(acDocManager->curDocument(), m_second);
    EXPECT_EQ(acDocManager->mdiActiveDocument(), m_second);
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), m_second->database());
}

}  // namespace
}  // namespace workbench::test
