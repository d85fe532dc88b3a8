// Documents: opening, closing, activation, events, locks.
#include "AcApDMgr.h"
#include "host_fixture.h"

namespace workbench::test {
namespace {

using DocumentsTest = HostTest;

TEST_F(DocumentsTest, WithoutDocuments_NothingIsCurrent) {
    EXPECT_EQ(acDocManager->curDocument(), nullptr);
    EXPECT_EQ(acDocManager->mdiActiveDocument(), nullptr);
    EXPECT_EQ(acDocManager->documentCount(), 0);
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), nullptr);
    EXPECT_EQ(acedSetEnv(L"A", L"b"), RTNORM);
}

TEST_F(DocumentsTest, Open_EventsComeInOrder) {
    ADocument();
    DocumentEvents events;
    ADrawing(L"C:\\P\\a.dwg");
    EXPECT_EQ(events.events,
              (Events{L"createStarted a.dwg", L"created a.dwg", L"toBeDeactivated Drawing1.dwg",
                      L"toBeActivated a.dwg", L"becameCurrent a.dwg", L"activated a.dwg"}));
}

TEST_F(DocumentsTest, Open_MakesItsDatabaseTheWorkingOne) {
    host::Document& document = ADrawing(L"C:\\P\\a.dwg");
    EXPECT_EQ(acDocManager->curDocument(), &document);
    EXPECT_EQ(acDocManager->mdiActiveDocument(), &document);
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), document.database());
    EXPECT_STREQ(document.fileName(), L"C:\\P\\a.dwg");
    EXPECT_STREQ(document.docTitle(), L"a.dwg");
    const ACHAR* path = nullptr;
    EXPECT_EQ(document.database()->getFilename(path), Acad::eOk);
    EXPECT_STREQ(path, L"C:\\P\\a.dwg");
    EXPECT_EQ(Variable(L"DBMOD"), L"0");
}

TEST_F(DocumentsTest, Open_MissingFile_TellsAndChangesNothing) {
    host::Document& before = ADocument();
    DocumentEvents events;
    EXPECT_EQ(acDocManager->appContextOpenDocument(L"C:\\P\\none.dwg"), Acad::eFileNotFound);
    EXPECT_TRUE(events.events.empty());
    EXPECT_EQ(acDocManager->curDocument(), &before);
    EXPECT_NE(m_surface.transcript.find(L"C:\\P\\none.dwg"), std::wstring::npos);
    EXPECT_EQ(acDocManager->appContextOpenDocument(nullptr), Acad::eInvalidInput);
}

TEST_F(DocumentsTest, Open_FileThatIsNoDrawing_IsCancelled) {
    host::Document& before = ADocument();
    DocumentEvents events;
    m_files.texts[L"C:\\P\\bad.dwg"] = L"x";
    EXPECT_EQ(acDocManager->appContextOpenDocument(L"C:\\P\\bad.dwg"), Acad::eFilerError);
    EXPECT_EQ(events.events, (Events{L"createStarted bad.dwg", L"createCanceled bad.dwg"}));
    EXPECT_EQ(acDocManager->curDocument(), &before);
    EXPECT_EQ(acDocManager->documentCount(), 1);
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), before.database());
    EXPECT_NE(m_surface.transcript.find(L"line 1: not a drawing"), std::wstring::npos);
    EXPECT_FALSE(m_files.texts.contains(L"C:\\P\\bad.dwl"));
}

TEST_F(DocumentsTest, Open_SameFileAgain_ActivatesIt) {
    host::Document& first = ADrawing(L"C:\\P\\a.dwg");
    ADrawing(L"C:\\P\\b.dwg");
    DocumentEvents events;
    EXPECT_EQ(acDocManager->appContextOpenDocument(L"c:/p/A.DWG"), Acad::eOk);
    EXPECT_EQ(acDocManager->curDocument(), &first);
    EXPECT_EQ(acDocManager->documentCount(), 2);
    EXPECT_EQ(events.events, (Events{L"toBeDeactivated b.dwg", L"toBeActivated a.dwg", L"becameCurrent a.dwg",
                                     L"activated a.dwg"}));
}

TEST_F(DocumentsTest, Open_WriteProtectedFile_IsReadOnly) {
    m_files.readOnly.insert(L"C:\\P\\a.dwg");
    host::Document& document = ADrawing(L"C:\\P\\a.dwg");
    EXPECT_TRUE(document.isReadOnly());
    EXPECT_EQ(Variable(L"WRITESTAT"), L"0");
    EXPECT_EQ(Documents().Save(document), Acad::eIsWriteProtected);
    EXPECT_FALSE(m_files.texts.contains(L"C:\\P\\a.dwl"));
}

TEST_F(DocumentsTest, Open_ReadOnlyOnRequest) {
    m_files.texts[L"C:\\P\\a.dwg"] = L"1";
    EXPECT_EQ(Documents().Open(L"C:\\P\\a.dwg", true), Acad::eOk);
    EXPECT_TRUE(Documents().Current()->isReadOnly());
}

TEST_F(DocumentsTest, Open_LocksTheFileForOthers_UntilItIsClosed) {
    host::Document& document = ADrawing(L"C:\\P\\a.dwg");
    EXPECT_EQ(m_files.texts[L"C:\\P\\a.dwl"], L"Designer\r\nWorkbench\r\n2026-11-21 10:30:00\r\n");
    Documents().Close(document, false);
    EXPECT_FALSE(m_files.texts.contains(L"C:\\P\\a.dwl"));
}

TEST_F(DocumentsTest, Open_FileLockedBySomebodyElse_IsReadOnlyAndKeepsTheirLock) {
    m_files.texts[L"C:\\P\\a.dwl"] = L"Somebody";
    host::Document& document = ADrawing(L"C:\\P\\a.dwg");
    EXPECT_TRUE(document.isReadOnly());
    Documents().Close(document, false);
    EXPECT_EQ(m_files.texts[L"C:\\P\\a.dwl"], L"Somebody");
}

TEST_F(DocumentsTest, New_IsUntitledAndNumbered) {
    host::Document& first = ADocument();
    EXPECT_STREQ(first.fileName(), L"Drawing1.dwg");
    EXPECT_FALSE(first.isNamedDrawing());
    EXPECT_EQ(Variable(L"DWGTITLED"), L"0");
    EXPECT_EQ(Variable(L"DWGNAME"), L"Drawing1.dwg");
    EXPECT_EQ(Variable(L"DWGPREFIX"), L"C:\\Users\\me\\");
    EXPECT_STREQ(ADocument().docTitle(), L"Drawing2.dwg");
}

TEST_F(DocumentsTest, New_FromTemplate_HasItsContentAndNotItsName) {
    m_files.texts[L"C:\\T\\a.dwt"] = L"3";
    EXPECT_EQ(acDocManager->appContextNewDocument(L"C:\\T\\a.dwt"), Acad::eOk);
    EXPECT_STREQ(acDocManager->curDocument()->docTitle(), L"Drawing1.dwg");
    EXPECT_EQ(Variable(L"DWGTITLED"), L"0");
    EXPECT_EQ(database::DataOf(*acDocManager->curDocument()->database()).ModelSpace()->entities.size(), 3u);
    EXPECT_EQ(acDocManager->appContextNewDocument(L"C:\\T\\none.dwt"), Acad::eFileNotFound);
}

TEST_F(DocumentsTest, Close_EventsComeInOrder_TheDyingDocumentStillCounts) {
    ADrawing(L"C:\\P\\a.dwg");
    host::Document& second = ADrawing(L"C:\\P\\b.dwg");
    DocumentEvents events;
    EXPECT_EQ(acDocManager->closeDocument(&second), Acad::eOk);
    EXPECT_EQ(events.events,
              (Events{L"toBeDeactivated b.dwg", L"toBeDestroyed b.dwg", L"destroyed C:\\P\\b.dwg count 2",
                      L"toBeActivated a.dwg", L"becameCurrent a.dwg", L"activated a.dwg"}));
    EXPECT_EQ(acDocManager->documentCount(), 1);
}

TEST_F(DocumentsTest, Close_TheLast_MakesNullCurrent) {
    host::Document& only = ADocument();
    DocumentEvents events;
    EXPECT_EQ(acDocManager->appContextCloseDocument(&only), Acad::eOk);
    EXPECT_EQ(events.events, (Events{L"toBeDeactivated Drawing1.dwg", L"toBeDestroyed Drawing1.dwg",
                                     L"destroyed Drawing1.dwg count 1", L"becameCurrent null"}));
    EXPECT_EQ(acDocManager->curDocument(), nullptr);
    EXPECT_EQ(acDocManager->documentCount(), 0);
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), nullptr);
}

TEST_F(DocumentsTest, Close_OneThatIsNotActive_LeavesTheActiveOne) {
    host::Document& first = ADrawing(L"C:\\P\\a.dwg");
    host::Document& second = ADrawing(L"C:\\P\\b.dwg");
    DocumentEvents events;
    EXPECT_EQ(acDocManager->closeDocument(&first), Acad::eOk);
    EXPECT_EQ(events.events, (Events{L"toBeDestroyed a.dwg", L"destroyed C:\\P\\a.dwg count 2"}));
    EXPECT_EQ(acDocManager->curDocument(), &second);
}

TEST_F(DocumentsTest, Close_WhileOneIsTornDown_IsRefused) {
    host::Document& first = ADrawing(L"C:\\P\\a.dwg");
    host::Document& second = ADrawing(L"C:\\P\\b.dwg");
    DocumentEvents events;
    std::vector<Acad::ErrorStatus> results;
    const AcApDocument* currentThen = &first;
    int walked = -1;
    events.onDestroyed = [&] {
        results = {acDocManager->closeDocument(&first), acDocManager->closeDocument(&second),
                   acDocManager->appContextOpenDocument(L"C:\\P\\c.dwg"),
                   acDocManager->activateDocument(&first)};
        currentThen = acDocManager->curDocument();
        const std::unique_ptr<AcApDocumentIterator> iterator(acDocManager->newAcApDocumentIterator());
        for (walked = 0; !iterator->done(); iterator->step()) {
            ++walked;
        }
    };
    acDocManager->closeDocument(&second);
    EXPECT_EQ(results, (std::vector<Acad::ErrorStatus>{Acad::eInvalidContext, Acad::eNoDocument,
                                                       Acad::eInvalidContext, Acad::eInvalidContext}));
    EXPECT_EQ(currentThen, nullptr);
    EXPECT_EQ(walked, 1);
    EXPECT_EQ(acDocManager->documentCount(), 1);
}

TEST_F(DocumentsTest, Close_Modified_AsksAndTheUserMayCancel) {
    host::Document& document = ADocument();
    acdbSetDbmod(document.database(), 1);
    m_surface.answer = host::SaveAnswer::kCancel;
    EXPECT_EQ(acDocManager->closeDocument(&document), Acad::eUserBreak);
    EXPECT_EQ(m_surface.asked, (Events{L"Drawing1.dwg"}));
    EXPECT_TRUE(document.IsOpen());
    m_surface.answer = host::SaveAnswer::kDiscard;
    EXPECT_EQ(acDocManager->closeDocument(&document), Acad::eOk);
}

TEST_F(DocumentsTest, Close_ModifiedFlagCleared_AsksNothing) {
    host::Document& document = ADocument();
    acdbSetDbmod(document.database(), 1);
    EXPECT_EQ(acdbSetDbmod(document.database(), 0), 1);
    EXPECT_EQ(acDocManager->closeDocument(&document), Acad::eOk);
    EXPECT_TRUE(m_surface.asked.empty());
}

TEST_F(DocumentsTest, Close_Modified_SavesIfTheUserSaysSo) {
    host::Document& document = ADrawing(L"C:\\P\\a.dwg");
    Type(L"LINE 0,0 1,1\n\n");
    m_surface.answer = host::SaveAnswer::kSave;
    EXPECT_EQ(acDocManager->closeDocument(&document), Acad::eOk);
    EXPECT_EQ(m_files.texts[L"C:\\P\\a.dwg"], L"2");
}

TEST_F(DocumentsTest, Close_SavingFails_KeepsTheDocument) {
    host::Document& document = ADrawing(L"C:\\P\\a.dwg");
    acdbSetDbmod(document.database(), 1);
    m_surface.answer = host::SaveAnswer::kSave;
    m_drawings.failWriting = true;
    EXPECT_EQ(acDocManager->closeDocument(&document), Acad::eFileAccessErr);
    EXPECT_TRUE(document.IsOpen());
    EXPECT_NE(m_surface.transcript.find(L"the disk is full"), std::wstring::npos);
}

TEST_F(DocumentsTest, Close_UntitledToBeSaved_WithoutAPath_IsCancelled) {
    host::Document& document = ADocument();
    acdbSetDbmod(document.database(), 1);
    m_surface.answer = host::SaveAnswer::kSave;
    EXPECT_EQ(acDocManager->closeDocument(&document), Acad::eUserBreak);
    m_surface.savePath = L"C:\\P\\new.dwg";
    EXPECT_EQ(acDocManager->closeDocument(&document), Acad::eOk);
    EXPECT_TRUE(m_files.texts.contains(L"C:\\P\\new.dwg"));
}

TEST_F(DocumentsTest, AppContextClose_OfModified_AsksAndSavesNothing) {
    host::Document& document = ADrawing(L"C:\\P\\a.dwg", L"1");
    Type(L"LINE 0,0 1,1\n\n");
    EXPECT_EQ(acDocManager->appContextCloseDocument(&document), Acad::eOk);
    EXPECT_TRUE(m_surface.asked.empty());
    EXPECT_EQ(m_files.texts[L"C:\\P\\a.dwg"], L"1");
}

TEST_F(DocumentsTest, Close_ReportsObjectsThatWereLeftOpen) {
    host::Document& document = ADocument();
    AcDbBlockTable* table = nullptr;
    ASSERT_EQ(document.database()->getBlockTable(table), Acad::eOk);
    m_surface.transcript.clear();
    acDocManager->closeDocument(&document);
    EXPECT_EQ(m_surface.transcript, L"1 objects of Drawing1.dwg were left open\n");
}

TEST_F(DocumentsTest, Close_WhatIsNoDocument) {
    EXPECT_EQ(acDocManager->closeDocument(nullptr), Acad::eNullObjectPointer);
    EXPECT_EQ(acDocManager->appContextCloseDocument(nullptr), Acad::eNullObjectPointer);
    host::Document& document = ADocument();
    ADocument();
    acDocManager->closeDocument(&document);
    EXPECT_EQ(acDocManager->closeDocument(&document), Acad::eNoDocument);
}

TEST_F(DocumentsTest, Close_LockedDocument_IsRefused) {
    host::Document& document = ADocument();
    acDocManager->lockDocument(&document);
    EXPECT_EQ(acDocManager->closeDocument(&document), Acad::eLockConflict);
    acDocManager->unlockDocument(&document);
    EXPECT_EQ(acDocManager->closeDocument(&document), Acad::eOk);
}

TEST_F(DocumentsTest, ForgottenLocks_AreDroppedAndTold) {
    host::Document& forgotten = ADocument();
    acDocManager->lockDocument(&forgotten);
    acDocManager->lockDocument(&forgotten, AcAp::kRead);
    ASSERT_FALSE(Documents().CloseAll(false));
    m_surface.transcript.clear();
    Documents().DropForgottenLocks();
    EXPECT_EQ(m_surface.transcript, L"2 locks of Drawing1.dwg were left in place\n");
    EXPECT_EQ(forgotten.lockMode(true), AcAp::kNotLocked);
    EXPECT_TRUE(Documents().CloseAll(false));
}

TEST_F(DocumentsTest, Iterator_WalksThoseThatWereOpen_AndPassesOverClosedOnes) {
    host::Document& a = ADrawing(L"C:\\P\\a.dwg");
    host::Document& b = ADrawing(L"C:\\P\\b.dwg");
    host::Document& c = ADrawing(L"C:\\P\\c.dwg");
    const std::unique_ptr<AcApDocumentIterator> iterator(acDocManager->newAcApDocumentIterator());
    EXPECT_EQ(iterator->document(), &a);
    acDocManager->closeDocument(&b);
    ADrawing(L"C:\\P\\d.dwg");
    iterator->step();
    EXPECT_EQ(iterator->document(), &c);
    iterator->step();
    EXPECT_TRUE(iterator->done());
    EXPECT_EQ(iterator->document(), nullptr);
    iterator->step();
}

TEST_F(DocumentsTest, Iterator_ClosingEachOne_ClosesAll) {
    for (const wchar_t* path : {L"C:\\P\\a.dwg", L"C:\\P\\b.dwg", L"C:\\P\\c.dwg"}) {
        ADrawing(path);
    }
    const std::unique_ptr<AcApDocumentIterator> iterator(acDocManager->newAcApDocumentIterator());
    for (; !iterator->done(); iterator->step()) {
        EXPECT_EQ(acDocManager->appContextCloseDocument(iterator->document()), Acad::eOk);
    }
    EXPECT_EQ(acDocManager->documentCount(), 0);
}

TEST_F(DocumentsTest, SetCurDocument_ChangesTheCurrentNotTheActive) {
    host::Document& a = ADrawing(L"C:\\P\\a.dwg");
    host::Document& b = ADrawing(L"C:\\P\\b.dwg");
    DocumentEvents events;
    EXPECT_EQ(acDocManager->setCurDocument(&a), Acad::eOk);
    EXPECT_EQ(acDocManager->curDocument(), &a);
    EXPECT_EQ(acDocManager->mdiActiveDocument(), &b);
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), a.database());
    EXPECT_EQ(events.events, (Events{L"becameCurrent a.dwg"}));
    EXPECT_EQ(acDocManager->setCurDocument(&a, AcAp::kWrite), Acad::eOk);
    EXPECT_EQ(a.myLockMode(), AcAp::kWrite);
    acDocManager->unlockDocument(&a);
}

TEST_F(DocumentsTest, Document_IsFoundByItsDatabase) {
    host::Document& document = ADocument();
    EXPECT_EQ(acDocManager->document(document.database()), &document);
    EXPECT_EQ(acDocManager->document(nullptr), nullptr);
}

TEST_F(DocumentsTest, SaveAs_TitlesTheDrawing) {
    host::Document& document = ADocument();
    acdbSetDbmod(document.database(), 1);
    DocumentEvents events;
    EXPECT_EQ(Documents().Save(document), Acad::eInvalidInput);
    EXPECT_EQ(Documents().SaveAs(document, L"C:\\P\\new.dwg"), Acad::eOk);
    EXPECT_EQ(events.events, (Events{L"titleUpdated new.dwg"}));
    EXPECT_EQ(Variable(L"DWGTITLED"), L"1");
    EXPECT_EQ(Variable(L"DWGNAME"), L"new.dwg");
    EXPECT_EQ(Variable(L"DWGPREFIX"), L"C:\\P\\");
    EXPECT_EQ(Variable(L"DBMOD"), L"0");
    EXPECT_TRUE(m_files.texts.contains(L"C:\\P\\new.dwl"));
}

TEST_F(DocumentsTest, Write_FromApplicationContext_NeedsALock) {
    host::Document& document = ADocument();
    EXPECT_TRUE(acDocManager->isApplicationContext());
    EXPECT_EQ(TryWrite(document), Acad::eLockViolation);
    EXPECT_EQ(acDocManager->lockDocument(&document, AcAp::kWrite), Acad::eOk);
    EXPECT_EQ(TryWrite(document), Acad::eOk);
    EXPECT_EQ(acDocManager->unlockDocument(&document), Acad::eOk);
    EXPECT_EQ(TryWrite(document), Acad::eLockViolation);
}

TEST_F(DocumentsTest, Locks_Nest) {
    host::Document& document = ADocument();
    acDocManager->lockDocument(&document);
    acDocManager->lockDocument(&document);
    acDocManager->unlockDocument(&document);
    EXPECT_EQ(TryWrite(document), Acad::eOk);
    EXPECT_EQ(document.myLockMode(), AcAp::kWrite);
    acDocManager->unlockDocument(&document);
    EXPECT_EQ(document.myLockMode(), AcAp::kNotLocked);
    EXPECT_EQ(acDocManager->unlockDocument(&document), Acad::eInvalidInput);
}

TEST_F(DocumentsTest, Lock_ForReading_DoesNotAllowWriting) {
    host::Document& document = ADocument();
    acDocManager->lockDocument(&document, AcAp::kRead);
    EXPECT_EQ(TryWrite(document), Acad::eLockViolation);
    acDocManager->unlockDocument(&document);
}

TEST_F(DocumentsTest, Lock_OfOneDocument_SaysNothingOfAnother) {
    host::Document& a = ADocument();
    host::Document& b = ADocument();
    acDocManager->lockDocument(&a);
    EXPECT_EQ(TryWrite(b), Acad::eLockViolation);
    acDocManager->unlockDocument(&a);
}

TEST_F(DocumentsTest, Lock_Exclusive_ConflictsWithOthers) {
    host::Document& document = ADocument();
    acDocManager->lockDocument(&document, AcAp::kWrite);
    EXPECT_EQ(acDocManager->lockDocument(&document, AcAp::kXWrite), Acad::eLockConflict);
    acDocManager->unlockDocument(&document);
    EXPECT_EQ(acDocManager->lockDocument(&document, AcAp::kXWrite), Acad::eOk);
    EXPECT_EQ(acDocManager->lockDocument(&document, AcAp::kRead), Acad::eLockConflict);
    acDocManager->unlockDocument(&document);
}

TEST_F(DocumentsTest, Lock_WhatCannotBeLocked) {
    host::Document& document = ADocument();
    EXPECT_EQ(acDocManager->lockDocument(nullptr), Acad::eNullObjectPointer);
    EXPECT_EQ(acDocManager->unlockDocument(nullptr), Acad::eNullObjectPointer);
    EXPECT_EQ(acDocManager->lockDocument(&document, AcAp::kNone), Acad::eInvalidInput);
}

TEST_F(DocumentsTest, Lock_EventsTellFromAndTo) {
    host::Document& document = ADocument();
    DocumentEvents events;
    acDocManager->lockDocument(&document, AcAp::kWrite, L"CMD");
    acDocManager->unlockDocument(&document);
    EXPECT_EQ(events.locks, (Events{L"will 2>4 CMD", L"did 2>4 CMD", L"will 4>2 #", L"did 4>2 #"}));
}

TEST_F(DocumentsTest, Database_OfNoDocument_FollowsTheCurrentDocumentsLock) {
    host::Document& document = ADocument();
    AcDbDatabase attached(true, false);
    AcDbDatabase alone(true, true);
    AcDbBlockTable* table = nullptr;
    EXPECT_EQ(attached.getBlockTable(table, AcDb::kForWrite), Acad::eLockViolation);
    EXPECT_EQ(alone.getBlockTable(table, AcDb::kForWrite), Acad::eOk);
    table->close();
    acDocManager->lockDocument(&document);
    EXPECT_EQ(attached.getBlockTable(table, AcDb::kForWrite), Acad::eOk);
    table->close();
    acDocManager->unlockDocument(&document);
}

TEST_F(DocumentsTest, BecameCurrent_ComesInApplicationContextWithoutALock) {
    DocumentEvents events;
    Acad::ErrorStatus status = Acad::eOk;
    bool application = false;
    events.onBecameCurrent = [&](AcApDocument* document) {
        status = TryWrite(*static_cast<host::Document*>(document));
        application = acDocManager->isApplicationContext();
    };
    ADocument();
    EXPECT_EQ(status, Acad::eLockViolation);
    EXPECT_TRUE(application);
}

TEST_F(DocumentsTest, Reactor_AddedTwice_IsToldOnce_RemovedIsNotTold) {
    DocumentEvents events;
    acDocManager->addReactor(&events);
    ADocument();
    EXPECT_EQ(events.Take().size(), 5u);
    acDocManager->removeReactor(&events);
    acDocManager->removeReactor(&events);
    ADocument();
    EXPECT_TRUE(events.events.empty());
}

TEST_F(DocumentsTest, Reactor_RemovedByAnotherMeanwhile_IsNotTold) {
    auto first = std::make_unique<DocumentEvents>();
    auto second = std::make_unique<DocumentEvents>();
    first->onBecameCurrent = [&](AcApDocument*) { second.reset(); };
    ADocument();
    EXPECT_EQ(second, nullptr);
    EXPECT_EQ(Documents().ReactorCount(), 1u);
}

TEST_F(DocumentsTest, DataManager_DropsTheDataOfAClosedDocument) {
    AcApDataManager<int> data;
    host::Document& document = ADocument();
    data.docData(&document) = 5;
    EXPECT_EQ(data.docData(), 5);
    acDocManager->closeDocument(&document);
    EXPECT_EQ(data.docData(&document), 0);
}

TEST_F(DocumentsTest, DataManager_OutlivesTheHost) {
    AcApDataManager<int> data;
    m_host.reset();
    EXPECT_EQ(acDocManagerPtr(), nullptr);
}

TEST_F(DocumentsTest, ExecuteInApplicationContext_RunsAtOnce) {
    bool application = false;
    const host::Host::ContextScope scope(*m_host, false);
    EXPECT_FALSE(acDocManager->isApplicationContext());
    acDocManager->executeInApplicationContext(
        [](void* result) { *static_cast<bool*>(result) = acDocManager->isApplicationContext(); },
        &application);
    EXPECT_TRUE(application);
    EXPECT_FALSE(acDocManager->isApplicationContext());
}

TEST_F(DocumentsTest, OpeningAndClosing_FromDocumentContext_IsRefused) {
    host::Document& document = ADocument();
    const host::Host::ContextScope scope(*m_host, false);
    EXPECT_EQ(acDocManager->appContextOpenDocument(L"C:\\P\\a.dwg"), Acad::eInvalidContext);
    EXPECT_EQ(acDocManager->appContextNewDocument(nullptr), Acad::eInvalidContext);
    EXPECT_EQ(acDocManager->appContextCloseDocument(&document), Acad::eInvalidContext);
    EXPECT_EQ(acDocManager->closeDocument(&document), Acad::eInvalidContext);
}

TEST_F(DocumentsTest, StartUpFile_IsLoadedIntoEachDocument) {
    m_host.reset();
    m_files.texts[L"C:\\Support\\start.lsp"] = L"(setq started (getvar \"DWGNAME\"))";
    host::Settings settings = TestSettings();
    settings.startUpFile = L"start.lsp";
    m_host = std::make_unique<host::Host>(m_surface, m_files, m_loader, settings);
    ADocument();
    EXPECT_NE(Type(L"!started\n").find(L"\"Drawing1.dwg\""), std::wstring::npos);
    ADrawing(L"C:\\P\\a.dwg");
    EXPECT_NE(Type(L"!started\n").find(L"\"a.dwg\""), std::wstring::npos);
}

TEST_F(DocumentsTest, StartUpFile_Missing_IsTold) {
    m_host.reset();
    host::Settings settings = TestSettings();
    settings.startUpFile = L"none.lsp";
    m_host = std::make_unique<host::Host>(m_surface, m_files, m_loader, settings);
    m_surface.transcript.clear();
    ADocument();
    EXPECT_EQ(m_surface.transcript, L"none.lsp: cannot be read\n");
}

}  // namespace
}  // namespace workbench::test
