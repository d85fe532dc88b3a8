#include "host_test.h"

#include "acedads.h"
#include "adscodes.h"

HostTest::~HostTest() {
    for (int left = acDocManager->documentCount(); left > 0; --left)
        Close(acDocManager->curDocument());
    EXPECT_EQ(workbench::database::LiveResultBuffers(), 0) << "result items were not freed";
}

AcApDocument* HostTest::NewDocument() {
    EXPECT_EQ(acDocManager->appContextNewDocument(L""), Acad::eOk);
    return acDocManager->curDocument();
}

AcApDocument* HostTest::OpenDocument(const std::wstring& path) {
    EXPECT_EQ(acDocManager->appContextOpenDocument(path.c_str()), Acad::eOk);
    return acDocManager->curDocument();
}

void HostTest::Close(AcApDocument* document) {
    EXPECT_EQ(workbench::database::OpenObjects(*document->database()), 0) << "objects were left open";
    ASSERT_EQ(acDocManager->appContextCloseDocument(document), Acad::eOk);
}

void HostTest::MakeCurrent(AcApDocument* document) {
    EXPECT_EQ(acDocManager->activateDocument(document), Acad::eOk);
}

std::wstring HostTest::SavedDrawing(const std::wstring& name, const std::function<void(TestDrawing&)>& fill) {
    const std::wstring path = InRoot(name);
    m_host.AddDrawing(path, [fill](AcDbDatabase& database) {
        TestDrawing drawing(database);
        fill(drawing);
    });
    return path;
}

void HostTest::SetShort(const wchar_t* name, short value) {
    resbuf item{};
    item.restype = RTSHORT;
    item.resval.rint = value;
    EXPECT_EQ(acedSetVar(name, &item), RTNORM);
}

Lock::Lock(AcApDocument* document) : m_document(document) {
    EXPECT_EQ(acDocManager->lockDocument(document), Acad::eOk);
}

Lock::~Lock() {
    EXPECT_EQ(acDocManager->unlockDocument(m_document), Acad::eOk);
}

void LockCounter::documentLockModeChanged(AcApDocument*, AcAp::DocLockMode, AcAp::DocLockMode myCurrentMode,
                                          AcAp::DocLockMode, const ACHAR*) {
    ++(myCurrentMode == AcAp::kWrite ? m_taken : m_givenBack);
}
