// The record in a drawing: how it is written and read back, with and without a lock.
#include "document/doc_xdata.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "acdbads.h"
#include "acutads.h"
#include "dbapserv.h"
#include "dbobjptr.h"
#include "dbsymtb.h"
#include "document/drawing_queries.h"
#include "host_test.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The items as text, one a string: "1071 5".
std::vector<std::wstring> TextOf(const resbuf* items) {
    std::vector<std::wstring> texts;
    for (; items; items = items->rbnext) {
        std::wstring text = std::to_wstring(items->restype) + L' ';
        switch (items->restype) {
            case 1070:
                text += std::to_wstring(items->resval.rint);
                break;
            case 1071:
                text += std::to_wstring(items->resval.rlong);
                break;
            default:
                text += items->resval.rstring;
                break;
        }
        texts.push_back(text);
    }
    return texts;
}

class DocXDataTest : public HostTest {
  protected:
    DocXDataTest() { m_document = NewDocument(); }

    // What the current drawing's model space holds for us; empty without a record.
    std::vector<std::wstring> Stored() {
        AcDbObjectPointer<AcDbBlockTableRecord> modelSpace(GetModelSpaceId(nullptr), AcDb::kForRead);
        EXPECT_EQ(modelSpace.openStatus(), Acad::eOk);
        resbuf* items = modelSpace->xData(kDocXDataAppName);
        const std::vector<std::wstring> texts = TextOf(items);
        acutRelRb(items);
        return texts;
    }

    // Stores a list as another program would. The list is freed.
    void Store(resbuf* items) {
        const Lock lock(m_document);
        acdbRegApp(kDocXDataAppName);
        AcDbObjectPointer<AcDbBlockTableRecord> modelSpace(GetModelSpaceId(nullptr), AcDb::kForWrite);
        ASSERT_EQ(modelSpace.openStatus(), Acad::eOk);
        EXPECT_EQ(modelSpace->setXData(items), Acad::eOk);
        acutRelRb(items);
    }

    static void WriteProject(int projectId) {
        CKV2D_DocXData data(kDocXDataAppName);
        data.m_projectId = projectId;
        data.m_dirty = true;
    }

    AcApDocument* m_document = nullptr;
};

TEST_F(DocXDataTest, NewDrawing_HasDefaultsAndIsNotWritten) {
    {
        const CKV2D_DocXData data(kDocXDataAppName);
        EXPECT_EQ(data.m_appName, kDocXDataAppName);
        EXPECT_EQ(data.m_specId, 0);
        EXPECT_EQ(data.m_mainSize, 12);
        EXPECT_EQ(data.m_branchSize, 10);
        EXPECT_EQ(data.m_isoPlane, 0);
        EXPECT_EQ(data.m_lineId, 0);
        EXPECT_EQ(data.m_electricMode, 0);
        EXPECT_EQ(data.m_projectId, 0);
        EXPECT_EQ(data.m_extraLong, 0);
        EXPECT_EQ(data.m_extraShort1, 0);
        EXPECT_EQ(data.m_extraShort2, 0);
        EXPECT_THAT(data.m_extraTag, testing::Each(0));
        EXPECT_EQ(data.m_appId, 0);
        EXPECT_FALSE(data.m_dirty);
    }
    EXPECT_THAT(Stored(), IsEmpty());
}

TEST_F(DocXDataTest, WithoutAnyDrawing_HasDefaultsAndWritesNothing) {
    Close(m_document);
    {
        CKV2D_DocXData data(kDocXDataAppName);
        EXPECT_EQ(data.m_mainSize, 12);
        data.m_dirty = true;
    }
    EXPECT_THAT(GetBoxes(), IsEmpty());
}

TEST_F(DocXDataTest, DirtyRecord_IsStoredItemByItemInOrder) {
    {
        CKV2D_DocXData data(kDocXDataAppName);
        data.m_specId = 101;
        data.m_mainSize = 3;
        data.m_branchSize = 4;
        data.m_isoPlane = 5;
        data.m_lineId = 106;
        data.m_electricMode = 1;
        data.m_projectId = 108;
        data.m_extraLong = 109;
        data.m_extraShort1 = 110;
        data.m_extraShort2 = -111;
        data.m_appId = 3;
        data.m_dirty = true;
    }
    EXPECT_THAT(Stored(), ElementsAre(L"1001 KAL-VOR Software - TESSARC", L"1071 101", L"1070 3", L"1070 4",
                                      L"1070 5", L"1071 106", L"1070 1", L"1071 108", L"1071 109",
                                      L"1070 110", L"1070 -111", L"1000 ", L"1070 3"));
}

TEST_F(DocXDataTest, StoredRecord_IsReadBack) {
    {
        CKV2D_DocXData data(kDocXDataAppName);
        data.m_specId = 0x12345678;
        data.m_mainSize = -1;
        data.m_branchSize = 32767;
        data.m_isoPlane = 6;
        data.m_lineId = -5;
        data.m_electricMode = 1;
        data.m_projectId = 2147483647;
        data.m_appId = 4;
        data.m_dirty = true;
    }
    const CKV2D_DocXData data(kDocXDataAppName);
    EXPECT_EQ(data.m_specId, 0x12345678);
    EXPECT_EQ(data.m_mainSize, -1);
    EXPECT_EQ(data.m_branchSize, 32767);
    EXPECT_EQ(data.m_isoPlane, 6);
    EXPECT_EQ(data.m_lineId, -5);
    EXPECT_EQ(data.m_electricMode, 1);
    EXPECT_EQ(data.m_projectId, 2147483647);
    EXPECT_EQ(data.m_appId, 4);
    EXPECT_FALSE(data.m_dirty);
}

TEST_F(DocXDataTest, ShortItems_KeepSixteenBitsOfTheirFields) {
    {
        CKV2D_DocXData data(kDocXDataAppName);
        data.m_mainSize = 65538;
        data.m_appId = 0x18000;
        data.m_dirty = true;
    }
    const CKV2D_DocXData data(kDocXDataAppName);
    EXPECT_EQ(data.m_mainSize, 2);
    EXPECT_EQ(data.m_appId, -32768);
}

TEST_F(DocXDataTest, UnchangedRecord_IsNotWrittenEvenIfItIsShorterThanOurs) {
    Store(acutBuildList(1001, kDocXDataAppName, 1071, 101, 1070, 3, RTNONE));
    const std::vector<std::wstring> before = Stored();
    {
        const CKV2D_DocXData data(kDocXDataAppName);
        EXPECT_EQ(data.m_specId, 101);
    }
    EXPECT_EQ(Stored(), before);
}

TEST_F(DocXDataTest, RecordThatEndsBehindTheProject_GivesTheProjectAndDefaults) {
    Store(acutBuildList(1001, kDocXDataAppName, 1071, 101, 1070, 3, 1070, 4, 1070, 5, 1071, 106, 1070, 1,
                        1071, 108, RTNONE));
    const CKV2D_DocXData data(kDocXDataAppName);
    EXPECT_EQ(data.m_projectId, 108);
    EXPECT_EQ(data.m_extraLong, 0);
    EXPECT_EQ(data.m_appId, 0);
}

TEST_F(DocXDataTest, ExtrasOfOtherPrograms_SurviveAChangeOfOurs) {
    Store(acutBuildList(1001, kDocXDataAppName, 1071, 101, 1070, 3, 1070, 4, 1070, 5, 1071, 106, 1070, 1,
                        1071, 108, 1071, 7001, 1070, 71, 1070, -72, 1000, L"", 1070, 2, RTNONE));
    WriteProject(9);
    EXPECT_THAT(Stored(), ElementsAre(L"1001 KAL-VOR Software - TESSARC", L"1071 101", L"1070 3", L"1070 4",
                                      L"1070 5", L"1071 106", L"1070 1", L"1071 9", L"1071 7001", L"1070 71",
                                      L"1070 -72", L"1000 ", L"1070 2"));
}

TEST_F(DocXDataTest, Tag_IsStoredAsCharactersOfTwoBytesEach) {
    const auto StoredTag = [&](const std::array<std::uint8_t, 8>& tag) {
        {
            CKV2D_DocXData data(kDocXDataAppName);
            data.m_extraTag = tag;
            data.m_dirty = true;
        }
        return Stored().at(11);
    };
    EXPECT_EQ(StoredTag({}), L"1000 ");
    EXPECT_EQ(StoredTag({'A', 0}), L"1000 A");
    EXPECT_EQ(StoredTag({'A', 0, 0, 0, 'B'}), L"1000 A") << "a zero pair ends the text";
    EXPECT_EQ(StoredTag({0x41, 0x30, 'B'}),
              L"1000 \x3041"
              L"B");
    EXPECT_EQ(StoredTag({'A', 0, 'B', 0, 'C', 0, 'D', 0}), L"1000 ABCD")
        << "no character behind the eighth byte";
}

TEST_F(DocXDataTest, Tag_IsReadAsOneByteOfEachCharacter) {
    Store(acutBuildList(1001, kDocXDataAppName, 1071, 1, 1070, 3, 1070, 4, 1070, 5, 1071, 6, 1070, 1, 1071, 8,
                        1071, 9, 1070, 10, 1070, 11, 1000, L"ABC", 1070, 2, RTNONE));
    const CKV2D_DocXData data(kDocXDataAppName);
    EXPECT_THAT(data.m_extraTag, ElementsAre('A', 'B', 'C', 0, 0, 0, 0, 0));
    EXPECT_EQ(data.m_appId, 2);
}

TEST_F(DocXDataTest, OtherApplicationsData_StaysUntouched) {
    {
        const Lock lock(m_document);
        acdbRegApp(L"OTHER");
        AcDbObjectPointer<AcDbBlockTableRecord> modelSpace(GetModelSpaceId(nullptr), AcDb::kForWrite);
        resbuf* items = acutBuildList(1001, L"OTHER", 1000, L"theirs", RTNONE);
        ASSERT_EQ(modelSpace->setXData(items), Acad::eOk);
        acutRelRb(items);
    }
    WriteProject(9);
    AcDbObjectPointer<AcDbBlockTableRecord> modelSpace(GetModelSpaceId(nullptr), AcDb::kForRead);
    resbuf* items = modelSpace->xData(L"OTHER");
    EXPECT_THAT(TextOf(items), ElementsAre(L"1001 OTHER", L"1000 theirs"));
    acutRelRb(items);
}

TEST_F(DocXDataTest, EachDrawing_KeepsItsOwnRecord) {
    WriteProject(1);
    AcApDocument* second = NewDocument();
    EXPECT_EQ(CKV2D_DocXData(kDocXDataAppName).m_projectId, 0);
    WriteProject(2);
    MakeCurrent(m_document);
    EXPECT_EQ(CKV2D_DocXData(kDocXDataAppName).m_projectId, 1);
    MakeCurrent(second);
    EXPECT_EQ(CKV2D_DocXData(kDocXDataAppName).m_projectId, 2);
}

// --- Locks.

TEST_F(DocXDataTest, WriteFromApplicationContext_TakesTheLockAndGivesItBack) {
    ASSERT_EQ(m_document->lockMode(true), AcAp::kNotLocked);
    LockCounter locks;
    WriteProject(9);
    EXPECT_EQ(CKV2D_DocXData(kDocXDataAppName).m_projectId, 9);
    EXPECT_EQ(m_document->lockMode(true), AcAp::kNotLocked);
    EXPECT_EQ(locks.GetTaken(), 1);
    EXPECT_EQ(locks.GetGivenBack(), 1);
}

TEST_F(DocXDataTest, WriteUnderTheCallersLock_LeavesThatLockAsItIs) {
    const Lock lock(m_document);
    LockCounter locks;
    WriteProject(9);
    EXPECT_EQ(CKV2D_DocXData(kDocXDataAppName).m_projectId, 9);
    EXPECT_EQ(m_document->lockMode(true), AcAp::kWrite);
    EXPECT_EQ(locks.GetTaken(), 0);
    EXPECT_EQ(locks.GetGivenBack(), 0);
}

TEST_F(DocXDataTest, WriteUnderTheCallersReadLock_TakesALockOfItsOwnAndGivesItBack) {
    ASSERT_EQ(acDocManager->lockDocument(m_document, AcAp::kRead), Acad::eOk);
    WriteProject(9);
    EXPECT_EQ(m_document->lockMode(true), AcAp::kRead);
    EXPECT_EQ(acDocManager->unlockDocument(m_document), Acad::eOk);
    EXPECT_EQ(CKV2D_DocXData(kDocXDataAppName).m_projectId, 9);
}

TEST_F(DocXDataTest, Write_WhileTheRecordLives_IsDoneAgainAtItsEnd) {
    LockCounter locks;
    {
        CKV2D_DocXData data(kDocXDataAppName);
        data.m_projectId = 1;
        data.m_dirty = true;
        data.Write();
        EXPECT_EQ(CKV2D_DocXData(kDocXDataAppName).m_projectId, 1);
        data.m_projectId = 2;
    }
    EXPECT_EQ(CKV2D_DocXData(kDocXDataAppName).m_projectId, 2);
    EXPECT_EQ(locks.GetTaken(), 2);
}

TEST_F(DocXDataTest, DrawingThatGoesWhileTheLockIsTaken_KeepsTheLockAndGetsNothing) {
    // Some program's event takes the working drawing away as soon as the document is locked.
    class Thief : public AcApDocManagerReactor {
      public:
        Thief() { acDocManager->addReactor(this); }
        ~Thief() override { acDocManager->removeReactor(this); }
        void documentLockModeChanged(AcApDocument*, AcAp::DocLockMode, AcAp::DocLockMode, AcAp::DocLockMode,
                                     const ACHAR*) override {
            acdbHostApplicationServices()->setWorkingDatabase(nullptr);
        }
    };
    {
        const Thief thief;
        WriteProject(9);
    }
    acdbHostApplicationServices()->setWorkingDatabase(m_document->database());
    EXPECT_EQ(m_document->lockMode(true), AcAp::kWrite);
    EXPECT_EQ(acDocManager->unlockDocument(m_document), Acad::eOk);
    EXPECT_THAT(Stored(), IsEmpty());
    EXPECT_THAT(GetBoxes(), IsEmpty());
}

// Closes a document as its lock changes: before or behind the change.
class LockCloser : public AcApDocManagerReactor {
  public:
    enum class When { kAsItIsTaken, kBehindItsReturn };
    LockCloser(AcApDocument* document, When when) : m_document(document), m_when(when) {
        acDocManager->addReactor(this);
    }
    ~LockCloser() override { acDocManager->removeReactor(this); }
    void documentLockModeWillChange(AcApDocument* document, AcAp::DocLockMode, AcAp::DocLockMode,
                                    AcAp::DocLockMode, const ACHAR*) override {
        if (m_when == When::kAsItIsTaken) Close(document);
    }
    void documentLockModeChanged(AcApDocument* document, AcAp::DocLockMode, AcAp::DocLockMode to,
                                 AcAp::DocLockMode, const ACHAR*) override {
        if (m_when == When::kBehindItsReturn && to == AcAp::kNotLocked) Close(document);
    }

  private:
    void Close(AcApDocument* document) {
        if (document != m_document) return;
        EXPECT_EQ(acDocManager->appContextCloseDocument(document), Acad::eOk);
        m_document = nullptr;
    }
    AcApDocument* m_document;
    When m_when;
};

TEST_F(DocXDataTest, DrawingThatIsClosedWhileItsRecordLives_NextOneGetsNothing) {
    WriteProject(1);
    AcApDocument* second = NewDocument();
    {
        CKV2D_DocXData data(kDocXDataAppName);
        data.m_projectId = 2;
        data.m_dirty = true;
        Close(second);
    }
    EXPECT_EQ(acDocManager->curDocument(), m_document);
    EXPECT_EQ(CKV2D_DocXData(kDocXDataAppName).m_projectId, 1);
    EXPECT_THAT(GetBoxes(), IsEmpty());
}

TEST_F(DocXDataTest, DrawingThatIsClosedAsItsLockIsTaken_NextOneGetsNothing) {
    WriteProject(1);
    const LockCloser closer(NewDocument(), LockCloser::When::kAsItIsTaken);
    LockCounter locks;
    WriteProject(2);
    EXPECT_EQ(acDocManager->documentCount(), 1);
    EXPECT_EQ(CKV2D_DocXData(kDocXDataAppName).m_projectId, 1);
    EXPECT_EQ(locks.GetTaken(), 0);
    EXPECT_EQ(m_document->lockMode(true), AcAp::kNotLocked);
    EXPECT_THAT(GetBoxes(), IsEmpty());
}

TEST_F(DocXDataTest, DrawingThatIsClosedBehindItsLock_TakesTheRecordWithIt) {
    WriteProject(1);
    const LockCloser closer(NewDocument(), LockCloser::When::kBehindItsReturn);
    WriteProject(2);
    EXPECT_EQ(acDocManager->documentCount(), 1);
    EXPECT_EQ(CKV2D_DocXData(kDocXDataAppName).m_projectId, 1);
}

TEST_F(DocXDataTest, RecordOfAnotherOpenDrawing_GoesWhereTheCurrentOneIs) {
    AcApDocument* second = NewDocument();
    {
        CKV2D_DocXData data(kDocXDataAppName);
        data.m_projectId = 7;
        data.m_dirty = true;
        MakeCurrent(m_document);
    }
    EXPECT_EQ(CKV2D_DocXData(kDocXDataAppName).m_projectId, 7);
    MakeCurrent(second);
    EXPECT_EQ(CKV2D_DocXData(kDocXDataAppName).m_projectId, 0);
}

TEST_F(DocXDataTest, Write_RegistersItsName) {
    const auto isRegistered = [this] {
        AcDbObjectPointer<AcDbRegAppTable> names(m_document->database()->regAppTableId(), AcDb::kForRead);
        return names->has(kDocXDataAppName);
    };
    EXPECT_FALSE(isRegistered());
    WriteProject(9);
    EXPECT_TRUE(isRegistered());
}

TEST_F(DocXDataTest, Write_MarksTheDrawingAsModified_AndLookingDoesNot) {
    acdbSetDbmod(m_document->database(), 0);
    { const CKV2D_DocXData data(kDocXDataAppName); }
    EXPECT_EQ(acdbSetDbmod(m_document->database(), 0), 0);
    WriteProject(9);
    EXPECT_EQ(acdbSetDbmod(m_document->database(), 0), 1);
}

TEST_F(DocXDataTest, RecordThatCannotBeRead_HasDefaults) {
    WriteProject(9);
    const Lock lock(m_document);
    AcDbObjectPointer<AcDbBlockTableRecord> writer(GetModelSpaceId(nullptr), AcDb::kForWrite);
    const CKV2D_DocXData data(kDocXDataAppName);
    EXPECT_EQ(data.m_projectId, 0);
    EXPECT_EQ(data.m_mainSize, 12);
}

TEST_F(DocXDataTest, CleanRecord_TakesNoLock) {
    LockCounter locks;
    { const CKV2D_DocXData data(kDocXDataAppName); }
    EXPECT_EQ(locks.GetTaken(), 0);
}

TEST_F(DocXDataTest, RecordThatAnotherHasOpen_IsNotWrittenAndNothingIsSaid) {
    WriteProject(1);
    {
        const Lock lock(m_document);
        AcDbObjectPointer<AcDbBlockTableRecord> reader(GetModelSpaceId(nullptr), AcDb::kForRead);
        LockCounter locks;
        WriteProject(2);
        EXPECT_EQ(locks.GetTaken(), 0) << "a lock would not help";
    }
    EXPECT_EQ(CKV2D_DocXData(kDocXDataAppName).m_projectId, 1);
    EXPECT_THAT(GetBoxes(), IsEmpty());
}

// --- A host that refuses the data.

TEST_F(DocXDataTest, RefusedData_ShowsABoxWithTheHostsText) {
    {
        const Lock lock(m_document);
        acdbRegApp(L"OTHER");
        AcDbObjectPointer<AcDbBlockTableRecord> modelSpace(GetModelSpaceId(nullptr), AcDb::kForWrite);
        // So much of another application's data that ours finds no room.
        resbuf* items = acutBuildList(1001, L"OTHER", RTNONE);
        resbuf* last = items;
        for (int i = 0; i < 65; ++i)
            last = last->rbnext = acutBuildList(1000, std::wstring(248, L'x').c_str(), RTNONE);
        ASSERT_EQ(modelSpace->setXData(items), Acad::eOk);
        acutRelRb(items);
    }
    WriteProject(9);
    ASSERT_EQ(GetBoxes().size(), 1u);
    EXPECT_EQ(GetBoxes()[0].text, L"Error writing DocXData\n\nAutoCAD Error: eXdataSizeExceeded");
    EXPECT_EQ(GetBoxes()[0].caption, L"Orvex 2023 DocXData");
    EXPECT_EQ(GetBoxes()[0].flags, platform::kBoxIconError);
    EXPECT_EQ(GetBoxes()[0].owner, platform::BoxOwner::kHostMainWindow);
    EXPECT_THAT(Stored(), IsEmpty());
    EXPECT_EQ(m_document->lockMode(true), AcAp::kNotLocked) << "the lock is given back all the same";
}

TEST_F(DocXDataTest, RefusedData_LeavesTheOldRecord) {
    WriteProject(1);
    {
        CKV2D_DocXData data(kDocXDataAppName);
        data.m_appName = L"not|a|name";
        data.m_projectId = 2;
        data.m_dirty = true;
    }
    EXPECT_EQ(CKV2D_DocXData(kDocXDataAppName).m_projectId, 1);
    ASSERT_EQ(GetBoxes().size(), 1u);
    EXPECT_EQ(GetBoxes()[0].text, L"Error writing DocXData\n\nAutoCAD Error: eRegappIdNotFound");
}

}  // namespace
