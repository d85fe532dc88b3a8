// Documents whose events do things to documents: what reactors may do, and what comes of it.
#include "host_fixture.h"

namespace workbench::test {
namespace {

class DocumentEventsTest : public HostTest {
  protected:
    // Closes the document of an event as application code does.
    static void CloseIt(AcApDocument* document) {
        EXPECT_EQ(acDocManager->appContextCloseDocument(document), Acad::eOk);
    }
    static int Walk() {
        const std::unique_ptr<AcApDocumentIterator> documents(acDocManager->newAcApDocumentIterator());
        int count = 0;
        for (; !documents->done(); documents->step()) {
            EXPECT_NE(documents->document()->database(), nullptr);
            ++count;
        }
        return count;
    }
};

// --- A reactor that closes the document that it is told of.

TEST_F(DocumentEventsTest, CreatedDocumentClosedByAReactor_IsNeverActivated) {
    host::Document& first = ADocument();
    DocumentEvents events;
    events.on[L"created"] = CloseIt;
    EXPECT_EQ(acDocManager->appContextNewDocument(nullptr), Acad::eOk);
    EXPECT_EQ(events.events, (Events{L"createStarted Drawing2.dwg", L"created Drawing2.dwg",
                                     L"toBeDestroyed Drawing2.dwg", L"destroyed Drawing2.dwg count 2"}));
    EXPECT_EQ(acDocManager->curDocument(), &first);
    EXPECT_EQ(Walk(), 1);
}

TEST_F(DocumentEventsTest, DocumentClosedWhileItIsToBeActivated_LeavesTheOneBefore) {
    host::Document& first = ADocument();
    DocumentEvents events;
    DocumentEvents later;
    events.on[L"toBeActivated"] = CloseIt;
    EXPECT_EQ(acDocManager->appContextNewDocument(nullptr), Acad::eOk);
    EXPECT_EQ(acDocManager->curDocument(), &first);
    EXPECT_EQ(acDocManager->mdiActiveDocument(), &first);
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), first.database());
    EXPECT_EQ(later.events.back(), L"destroyed Drawing2.dwg count 2") << "nobody is told of it any more";
}

TEST_F(DocumentEventsTest, DocumentClosedAsItBecomesCurrent_IsNotActivated) {
    host::Document& first = ADocument();
    host::Document& second = ADocument();
    DocumentEvents events;
    events.onBecameCurrent = [&](AcApDocument* document) {
        if (document == &first) CloseIt(document);
    };
    EXPECT_EQ(acDocManager->activateDocument(&first), Acad::eNoDocument);
    EXPECT_EQ(acDocManager->curDocument(), &second);
    EXPECT_EQ(std::count(events.events.begin(), events.events.end(), L"activated Drawing1.dwg"), 0);
    EXPECT_EQ(events.events.back(), L"activated Drawing2.dwg");
}

TEST_F(DocumentEventsTest, DocumentClosedAsItIsLeft_IsGoneWhenTheNextIsActive) {
    host::Document& first = ADocument();
    ADocument();
    DocumentEvents events;
    events.on[L"toBeDeactivated"] = [&](AcApDocument* document) {
        events.on.clear();
        CloseIt(document);
    };
    EXPECT_EQ(acDocManager->activateDocument(&first), Acad::eOk);
    EXPECT_EQ(acDocManager->curDocument(), &first);
    EXPECT_EQ(Walk(), 1);
}

TEST_F(DocumentEventsTest, DocumentClosedAsItsLockIsTaken_IsNotLocked) {
    class Closer : public AcApDocManagerReactor {
      public:
        void documentLockModeWillChange(AcApDocument* document, AcAp::DocLockMode, AcAp::DocLockMode,
                                        AcAp::DocLockMode, const ACHAR*) override {
            CloseIt(document);
        }
    };
    host::Document& document = ADocument();
    Closer closer;
    acDocManager->addReactor(&closer);
    EXPECT_EQ(acDocManager->lockDocument(&document), Acad::eNoDocument);
    acDocManager->removeReactor(&closer);
    EXPECT_EQ(acDocManager->documentCount(), 0);
}

TEST_F(DocumentEventsTest, DocumentClosedWhileTheUserIsAsked_IsClosedOnce) {
    class ClosingSurface : public FakeSurface {
      public:
        host::SaveAnswer AskSave(const std::wstring& title) override {
            CloseIt(acDocManager->curDocument());
            return FakeSurface::AskSave(title);
        }
    };
    m_host.reset();
    ClosingSurface surface;
    for (const host::SaveAnswer answer : {host::SaveAnswer::kDiscard, host::SaveAnswer::kSave}) {
        surface.answer = answer;
        host::Host host(surface, m_files, m_loader, TestSettings());
        ASSERT_EQ(host.Documents().New(L""), Acad::eOk);
        acdbSetDbmod(host.Documents().Current()->database(), 1);
        DocumentEvents events;
        EXPECT_EQ(acDocManager->closeDocument(acDocManager->curDocument()), Acad::eOk);
        EXPECT_EQ(std::count(events.events.begin(), events.events.end(), L"toBeDestroyed Drawing1.dwg"), 1);
        EXPECT_EQ(acDocManager->documentCount(), 0);
    }
}

TEST_F(DocumentEventsTest, AnotherActivatedByAReactor_IsTheActiveOneInTheEnd) {
    host::Document& first = ADocument();
    host::Document& second = ADocument();
    host::Document& third = ADocument();
    DocumentEvents events;
    events.onBecameCurrent = [&](AcApDocument* document) {
        if (document == &first) acDocManager->activateDocument(&second);
    };
    EXPECT_EQ(acDocManager->curDocument(), &third);
    EXPECT_EQ(acDocManager->activateDocument(&first), Acad::eOk);
    EXPECT_EQ(acDocManager->mdiActiveDocument(), &second);
    EXPECT_EQ(events.events, (Events{L"toBeDeactivated Drawing3.dwg", L"toBeActivated Drawing1.dwg",
                                     L"becameCurrent Drawing1.dwg", L"toBeDeactivated Drawing1.dwg",
                                     L"toBeActivated Drawing2.dwg", L"becameCurrent Drawing2.dwg",
                                     L"activated Drawing2.dwg"}));
}

TEST_F(DocumentEventsTest, ActiveDocumentThatIsNotCurrent_BecomesCurrentWithoutBeingLeft) {
    host::Document& first = ADocument();
    host::Document& second = ADocument();
    ASSERT_EQ(acDocManager->setCurDocument(&first), Acad::eOk);
    DocumentEvents events;
    EXPECT_EQ(acDocManager->activateDocument(&second), Acad::eOk);
    EXPECT_EQ(acDocManager->curDocument(), &second);
    EXPECT_EQ(events.events, (Events{L"toBeActivated Drawing2.dwg", L"becameCurrent Drawing2.dwg",
                                     L"activated Drawing2.dwg"}));
    EXPECT_EQ(acDocManager->activateDocument(&second), Acad::eOk);
    EXPECT_EQ(events.events.size(), 3u) << "nothing is told of what is so already";
}

TEST_F(DocumentEventsTest, LoadDrawingMessage_FindsTheNewDocumentCurrentWhateverReactorsDid) {
    host::Document& first = ADocument();
    ASSERT_TRUE(m_host->Apps().loadModule(L"app.arx", false, false));
    FakeApplication::messages.clear();
    DocumentEvents events;
    events.on[L"activated"] = [&](AcApDocument*) { acDocManager->setCurDocument(&first); };
    EXPECT_EQ(acDocManager->appContextNewDocument(nullptr), Acad::eOk);
    EXPECT_EQ(FakeApplication::messages, (Events{std::to_wstring(AcRx::kLoadDwgMsg) + L" Drawing2.dwg"}));
    EXPECT_EQ(acDocManager->curDocument(), &first);
}

TEST_F(DocumentEventsTest, ApplicationThatClosesAnotherDocumentAsItLoads_IsNotToldOfThatOne) {
    ADocument();
    host::Document& second = ADocument();
    FakeApplication::onMessage = [&](AcRx::AppMsgCode message, void*) {
        if (message == AcRx::kLoadDwgMsg && acDocManager->documentCount() == 2) CloseIt(&second);
        return AcRx::kRetOK;
    };
    EXPECT_TRUE(m_host->Apps().loadModule(L"app.arx", false, false));
    EXPECT_EQ(std::count(FakeApplication::messages.begin(), FakeApplication::messages.end(),
                         std::to_wstring(AcRx::kLoadDwgMsg) + L" Drawing2.dwg"),
              0);
    EXPECT_EQ(acDocManager->documentCount(), 1);
}

// --- What comes while a document is torn down.

TEST_F(DocumentEventsTest, DocumentToBeDestroyed_IsStillWhole) {
    host::Document& document = ADocument();
    DocumentEvents events;
    Acad::ErrorStatus withoutLock = Acad::eOk;
    Acad::ErrorStatus locked = Acad::eOk;
    Acad::ErrorStatus withLock = Acad::eNotImplementedYet;
    events.on[L"toBeDestroyed"] = [&](AcApDocument* dying) {
        withoutLock = TryWrite(document);
        locked = acDocManager->lockDocument(dying);
        withLock = TryWrite(document);
        acDocManager->unlockDocument(dying);
    };
    EXPECT_EQ(acDocManager->closeDocument(&document), Acad::eOk);
    EXPECT_EQ(withoutLock, Acad::eLockViolation);
    EXPECT_EQ(locked, Acad::eOk);
    EXPECT_EQ(withLock, Acad::eOk);
}

TEST_F(DocumentEventsTest, DocumentToBeDestroyed_CannotBeReplacedYet) {
    host::Document& other = ADocument();
    host::Document& document = ADocument();
    DocumentEvents events;
    std::vector<Acad::ErrorStatus> results;
    events.on[L"toBeDestroyed"] = [&](AcApDocument* dying) {
        results = {acDocManager->appContextNewDocument(nullptr), acDocManager->closeDocument(dying),
                   acDocManager->closeDocument(&other), acDocManager->setCurDocument(&other),
                   acDocManager->activateDocument(&other)};
    };
    EXPECT_EQ(acDocManager->closeDocument(&document), Acad::eOk);
    EXPECT_EQ(results, std::vector<Acad::ErrorStatus>(5, Acad::eInvalidContext));
    EXPECT_EQ(acDocManager->curDocument(), &other);
}

TEST_F(DocumentEventsTest, TextSentToADyingDocument_IsNeverRun) {
    host::Document& other = ADocument();
    host::Document& document = ADocument();
    DocumentEvents events;
    Acad::ErrorStatus whileDying = Acad::eNotImplementedYet;
    Acad::ErrorStatus whenGone = Acad::eOk;
    events.on[L"toBeDestroyed"] = [&](AcApDocument* dying) {
        whileDying = acDocManager->sendStringToExecute(dying, L"(princ \"never\")\n");
    };
    events.onDestroyed = [&] { whenGone = acDocManager->sendStringToExecute(&document, L"x\n"); };
    EXPECT_EQ(acDocManager->closeDocument(&document), Acad::eOk);
    EXPECT_EQ(whileDying, Acad::eOk);
    EXPECT_EQ(whenGone, Acad::eNoDocument);
    m_surface.transcript.clear();
    m_host->RunQueuedInput();
    EXPECT_EQ(m_surface.transcript, L"");
    EXPECT_EQ(acDocManager->curDocument(), &other);
}

TEST_F(DocumentEventsTest, TextSentToAnotherWhileOneIsTornDown_RunsInThatOneAfterwards) {
    host::Document& other = ADocument();
    host::Document& document = ADocument();
    DocumentEvents events;
    events.onDestroyed = [&] {
        acDocManager->sendStringToExecute(&other, L"(princ (getvar \"DWGNAME\"))\n");
    };
    m_surface.transcript.clear();
    EXPECT_EQ(acDocManager->closeDocument(&document), Acad::eOk);
    EXPECT_EQ(m_surface.transcript.find(L"Drawing1.dwg"), std::wstring::npos);
    EXPECT_TRUE(m_host->RunQueuedInput());
    EXPECT_NE(m_surface.transcript.find(L"Drawing1.dwg"), std::wstring::npos);
}

TEST_F(DocumentEventsTest, VariablesWhileTheLastDocumentIsTornDown_AreThoseOfTheSessionOnly) {
    host::Document& document = ADocument();
    DocumentEvents events;
    std::wstring whileDying, whenGone, session;
    int setWhenGone = RTNORM;
    events.on[L"toBeDestroyed"] = [&](AcApDocument*) { whileDying = Variable(L"SNAPISOPAIR"); };
    events.onDestroyed = [&] {
        whenGone = Variable(L"SNAPISOPAIR");
        session = Variable(L"WSCURRENT");
        setWhenGone = SetShort(L"SNAPISOPAIR", 1);
    };
    EXPECT_EQ(acDocManager->closeDocument(&document), Acad::eOk);
    EXPECT_EQ(whileDying, L"0");
    EXPECT_EQ(whenGone, L"unknown");
    EXPECT_EQ(session, L"Drafting & Annotation");
    EXPECT_EQ(setWhenGone, RTERROR);
}

TEST_F(DocumentEventsTest, DestroyedDocument_IsPassedOverByEveryQuestion) {
    host::Document& other = ADocument();
    host::Document& document = ADocument();
    const AcDbDatabase* database = document.database();
    DocumentEvents events;
    int asked = 0;
    events.onDestroyed = [&] {
        ++asked;
        EXPECT_EQ(Walk(), 1);
        EXPECT_EQ(acDocManager->document(database), nullptr);
        EXPECT_EQ(acDocManager->document(other.database()), &other);
        EXPECT_EQ(acDocManager->lockDocument(&document), Acad::eNoDocument);
        EXPECT_EQ(acDocManager->unlockDocument(&document), Acad::eNoDocument);
        EXPECT_EQ(acDocManager->lockDocument(&other), Acad::eOk);
        EXPECT_EQ(acDocManager->unlockDocument(&other), Acad::eOk);
    };
    EXPECT_EQ(acDocManager->closeDocument(&document), Acad::eOk);
    EXPECT_EQ(asked, 1);
}

TEST_F(DocumentEventsTest, HostThatEnds_TearsDownEachDocumentInTurn) {
    ADrawing(L"C:\\P\\a.dwg");
    ADocument();
    std::vector<std::wstring> told;
    {
        DocumentEvents events;
        events.onDestroyed = [&] { told = events.events; };
        m_host.reset();
    }
    EXPECT_EQ(told, (Events{L"toBeDeactivated Drawing1.dwg", L"toBeDestroyed Drawing1.dwg",
                            L"destroyed Drawing1.dwg count 2", L"toBeActivated a.dwg", L"becameCurrent a.dwg",
                            L"activated a.dwg", L"toBeDeactivated a.dwg", L"toBeDestroyed a.dwg",
                            L"destroyed C:\\P\\a.dwg count 1"}));
}

TEST_F(DocumentEventsTest, LocksOfDifferentKinds_AreGivenBackLastFirst) {
    host::Document& document = ADocument();
    DocumentEvents events;
    EXPECT_EQ(acDocManager->lockDocument(&document, AcAp::kRead), Acad::eOk);
    EXPECT_EQ(acDocManager->lockDocument(&document, AcAp::kWrite), Acad::eOk);
    EXPECT_EQ(acDocManager->lockDocument(&document, AcAp::kRead), Acad::eOk);
    EXPECT_EQ(document.myLockMode(), AcAp::kWrite) << "the strongest counts";
    EXPECT_EQ(document.lockMode(), AcAp::kNotLocked) << "those of application code are left out";
    EXPECT_EQ(acDocManager->unlockDocument(&document), Acad::eOk);
    EXPECT_EQ(TryWrite(document), Acad::eOk);
    EXPECT_EQ(acDocManager->unlockDocument(&document), Acad::eOk);
    EXPECT_EQ(TryWrite(document), Acad::eLockViolation);
    EXPECT_EQ(document.myLockMode(), AcAp::kRead);
    EXPECT_EQ(acDocManager->unlockDocument(&document), Acad::eOk);
    EXPECT_EQ(events.locks, (Events{L"will 2>32 ", L"did 2>32 ", L"will 32>4 ", L"did 32>4 ", L"will 4>32 ",
                                    L"did 4>4 ", L"will 4>2 #", L"did 4>4 #", L"will 4>2 #", L"did 4>32 #",
                                    L"will 32>2 #", L"did 32>2 #"}));
}

TEST_F(DocumentEventsTest, WithoutDocuments_EveryDatabaseMayBeWritten) {
    AcDbDatabase database(true, false);
    AcDbObjectPointer<AcDbBlockTable> table(database.blockTableId(), AcDb::kForWrite);
    EXPECT_EQ(table.openStatus(), Acad::eOk);
}

TEST_F(DocumentEventsTest, ExclusiveLock_IsRefusedOverACommandsLock) {
    host::Document& document = ADocument();
    EXPECT_TRUE(document.isQuiescent());
    const host::CommandLock lock(*m_host, document, L"TEST");
    EXPECT_FALSE(document.isQuiescent());
    EXPECT_EQ(document.lockMode(), AcAp::kAutoWrite);
    EXPECT_EQ(document.myLockMode(), AcAp::kNotLocked);
    EXPECT_EQ(acDocManager->lockDocument(&document, AcAp::kXWrite), Acad::eLockConflict);
    EXPECT_EQ(acDocManager->lockDocument(&document, AcAp::kWrite), Acad::eOk);
    EXPECT_EQ(acDocManager->unlockDocument(&document), Acad::eOk);
}

// --- Saving where another document is.

TEST_F(DocumentEventsTest, SaveAs_OntoTheFileOfAnOpenDocument_IsRefused) {
    ADrawing(L"C:\\P\\a.dwg", L"5");
    host::Document& document = ADrawing(L"C:\\P\\b.dwg", L"1");
    m_surface.transcript.clear();
    EXPECT_EQ(Documents().SaveAs(document, L"c:/p/A.dwg"), Acad::eFileSharingViolation);
    EXPECT_EQ(m_surface.transcript, L"c:/p/A.dwg: open in another window\n");
    EXPECT_EQ(m_files.texts[L"C:\\P\\a.dwg"], L"5");
    EXPECT_STREQ(document.docTitle(), L"b.dwg");
}

TEST_F(DocumentEventsTest, SaveAs_OfAReadOnlyDocument_NeedsAnotherFile) {
    m_files.texts[L"C:\\P\\a.dwg"] = L"1";
    ASSERT_EQ(Documents().Open(L"C:\\P\\a.dwg", true), Acad::eOk);
    host::Document& document = *Documents().Current();
    m_surface.transcript.clear();
    EXPECT_EQ(Documents().SaveAs(document, L"C:\\P\\A.DWG"), Acad::eIsWriteProtected);
    EXPECT_EQ(m_surface.transcript, L"C:\\P\\A.DWG: opened read-only\n");
    EXPECT_EQ(Documents().SaveAs(document, L"C:\\P\\b.dwg"), Acad::eOk);
    EXPECT_FALSE(document.isReadOnly());
    EXPECT_EQ(Variable(L"WRITESTAT"), L"1");
}

TEST_F(DocumentEventsTest, Close_OfAReadOnlyDocumentWithWork_SavesWhereTheUserSays) {
    m_files.texts[L"C:\\P\\a.dwg"] = L"1";
    ASSERT_EQ(Documents().Open(L"C:\\P\\a.dwg", true), Acad::eOk);
    Type(L"LINE 0,0 1,1\n\n");
    m_surface.answer = host::SaveAnswer::kSave;
    EXPECT_EQ(acDocManager->closeDocument(acDocManager->curDocument()), Acad::eUserBreak) << "no path";
    m_surface.savePath = L"C:\\P\\b.dwg";
    EXPECT_EQ(acDocManager->closeDocument(acDocManager->curDocument()), Acad::eOk);
    EXPECT_EQ(m_files.texts[L"C:\\P\\a.dwg"], L"1");
    EXPECT_EQ(m_files.texts[L"C:\\P\\b.dwg"], L"2");
}

TEST_F(DocumentEventsTest, Open_ReadOnlyOnRequest_SaysNothingOfTheOneWhoHasIt) {
    m_files.texts[L"C:\\P\\a.dwg"] = L"1";
    m_files.texts[L"C:\\P\\a.dwl"] = L"Somebody";
    m_surface.transcript.clear();
    EXPECT_EQ(Documents().Open(L"C:\\P\\a.dwg", true), Acad::eOk);
    EXPECT_EQ(m_surface.transcript, L"");
}

TEST_F(DocumentEventsTest, SaveAs_TheNumberOfUntitledDrawingsGoesOn) {
    host::Document& document = ADocument();
    EXPECT_EQ(Documents().SaveAs(document, L"C:\\P\\a.dwg"), Acad::eOk);
    EXPECT_STREQ(ADocument().docTitle(), L"Drawing2.dwg");
}

}  // namespace
}  // namespace workbench::test
