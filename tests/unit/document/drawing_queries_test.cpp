// Queries over one drawing that belongs to no document.
#include "document/drawing_queries.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "database/services.h"
#include "dbapserv.h"
#include "dbdict.h"
#include "dbobjptr.h"
#include "dbxrecrd.h"
#include "support/test_platform.h"
#include "test_drawing.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr wchar_t kDictionary[] = L"KAL-VOR Software - TESSARC";
constexpr wchar_t kXrecord[] = L"FilteredLineIds";

TEST(TaggedBlockName, TheFourteenNames_Count) {
    for (const wchar_t* name :
         {L"BAL", L"BLT_BLK", L"EQP-TAG", L"FTG_BLK", L"FLG_BLK", L"GSK_BLK", L"INS_BLK", L"TAGLINE",
          L"MIS_BLK", L"NIP_BLK", L"PIP_BLK", L"SCR_BLK", L"SUP_BLK", L"VAL_BLK"}) {
        EXPECT_TRUE(IsTaggedBlockName(name)) << name;
    }
}

TEST(TaggedBlockName, LetterCase_DoesNotMatter) {
    EXPECT_TRUE(IsTaggedBlockName(L"tagline"));
    EXPECT_TRUE(IsTaggedBlockName(L"Eqp-Tag"));
    EXPECT_TRUE(IsTaggedBlockName(L"bal12c"));
}

TEST(TaggedBlockName, OtherNames_DoNotCount) {
    for (const wchar_t* name :
         {L"", L"BLK", L"TAGLINE2", L" TAGLINE", L"EQP_TAG", L"VAL_BLK_1", L"*Model_Space"}) {
        EXPECT_FALSE(IsTaggedBlockName(name)) << name;
    }
}

TEST(TaggedBlockName, BalloonNumbers_RunFrom1To29) {
    EXPECT_TRUE(IsTaggedBlockName(L"BAL1A"));
    EXPECT_TRUE(IsTaggedBlockName(L"BAL29H"));
    EXPECT_TRUE(IsTaggedBlockName(L"BAL007B"));
    EXPECT_FALSE(IsTaggedBlockName(L"BAL0A"));
    EXPECT_FALSE(IsTaggedBlockName(L"BAL30A"));
    EXPECT_FALSE(IsTaggedBlockName(L"BAL-1A"));
    EXPECT_FALSE(IsTaggedBlockName(L"BAL99999999999A"));
}

TEST(TaggedBlockName, BalloonLetters_RunFromAToH) {
    EXPECT_TRUE(IsTaggedBlockName(L"BAL12A"));
    EXPECT_TRUE(IsTaggedBlockName(L"BAL12H"));
    EXPECT_FALSE(IsTaggedBlockName(L"BAL12I"));
    EXPECT_FALSE(IsTaggedBlockName(L"BAL12J"));
    EXPECT_FALSE(IsTaggedBlockName(L"BAL12"));
    EXPECT_FALSE(IsTaggedBlockName(L"BAL12@"));
}

TEST(TaggedBlockName, BalloonWithoutNumber_DoesNotCount) {
    EXPECT_FALSE(IsTaggedBlockName(L"BALA"));
    EXPECT_FALSE(IsTaggedBlockName(L"BALLAST"));
    EXPECT_FALSE(IsTaggedBlockName(L"XBAL1A"));
}

TEST(TaggedBlockName, BalloonWithMoreBetweenNumberAndLetter_Counts) {
    EXPECT_TRUE(IsTaggedBlockName(L"BAL5_OLD_C"));
    EXPECT_TRUE(IsTaggedBlockName(L"BAL 5C"));
}

class DrawingQueriesTest : public testing::Test {
  protected:
    DrawingQueriesTest() { acdbHostApplicationServices()->setWorkingDatabase(&m_database); }
    ~DrawingQueriesTest() override {
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
        EXPECT_EQ(workbench::database::OpenObjects(m_database), 0) << "objects were left open";
    }

    // The answer and the line number of a reference; the number starts as "before".
    std::pair<bool, std::wstring> LineNumberOf(AcDbObjectId id) {
        std::wstring number = L"before";
        const bool tagged = GetLineNumberOfBlock(id, number);
        return {tagged, number};
    }

    AcDbDatabase m_database{true, true};
    TestDrawing m_drawing{m_database};
};

using Answer = std::pair<bool, std::wstring>;

// --- Model space and block names.

TEST_F(DrawingQueriesTest, ModelSpace_OfNullDatabaseIsThatOfTheWorkingOne) {
    const AcDbObjectId id = GetModelSpaceId(&m_database);
    EXPECT_FALSE(id.isNull());
    EXPECT_EQ(GetBlockNameOfEntity(id), ACDB_MODEL_SPACE);
    EXPECT_EQ(GetModelSpaceId(nullptr), id);
}

TEST_F(DrawingQueriesTest, ModelSpace_WithoutAnyDatabaseIsNull) {
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    EXPECT_TRUE(GetModelSpaceId(nullptr).isNull());
}

TEST_F(DrawingQueriesTest, ModelSpace_OfEmptyDatabaseIsNull) {
    AcDbDatabase empty(false, true);
    EXPECT_TRUE(GetModelSpaceId(&empty).isNull());
}

TEST_F(DrawingQueriesTest, ModelSpace_WhileAnotherWritesTheBlockTableIsNull) {
    AcDbObjectPointer<AcDbBlockTable> writer(m_database.blockTableId(), AcDb::kForWrite);
    EXPECT_TRUE(GetModelSpaceId(&m_database).isNull());
}

TEST_F(DrawingQueriesTest, BlockName_OfARecordAndOfAReference) {
    const AcDbObjectId record = m_drawing.AddBlock(L"Valve_7");
    EXPECT_EQ(GetBlockNameOfEntity(record), L"Valve_7");
    EXPECT_EQ(GetBlockNameOfEntity(m_drawing.AddReference(L"Valve_7")), L"Valve_7");
}

TEST_F(DrawingQueriesTest, BlockName_OfAnythingElseIsEmpty) {
    EXPECT_EQ(GetBlockNameOfEntity(m_drawing.AddLine()), L"");
    EXPECT_EQ(GetBlockNameOfEntity(AcDbObjectId()), L"");
    EXPECT_EQ(GetBlockNameOfEntity(m_database.blockTableId()), L"");
}

TEST_F(DrawingQueriesTest, BlockName_OfAnErasedReferenceIsEmpty) {
    const AcDbObjectId id = m_drawing.AddReference(L"Valve_7");
    m_drawing.Erase(id);
    EXPECT_EQ(GetBlockNameOfEntity(id), L"");
}

TEST_F(DrawingQueriesTest, BlockName_WhileAnotherWritesTheRecordIsEmpty) {
    const AcDbObjectId id = m_drawing.AddReference(L"Valve_7");
    AcDbObjectPointer<AcDbBlockTableRecord> writer(m_drawing.BlockRecord(L"Valve_7"), AcDb::kForWrite);
    EXPECT_EQ(GetBlockNameOfEntity(id), L"");
}

// --- The line number of one block.

TEST_F(DrawingQueriesTest, LineNumber_IsTheAttributeAmongOthers) {
    EXPECT_EQ(LineNumberOf(m_drawing.AddReference(
                  L"TAGLINE", {{L"SIZE", L"4"}, {L"LIN_NUM", L"P-101"}, {L"SPEC", L"A1"}})),
              Answer(true, L"P-101"));
}

TEST_F(DrawingQueriesTest, LineNumber_OfABalloon) {
    EXPECT_EQ(LineNumberOf(m_drawing.AddReference(L"Bal12c", {{L"LIN_NUM", L"P-101"}})),
              Answer(true, L"P-101"));
}

TEST_F(DrawingQueriesTest, LineNumber_OfAnUntaggedBlockIsNotRead) {
    EXPECT_EQ(LineNumberOf(m_drawing.AddReference(L"BAL30A", {{L"LIN_NUM", L"P-101"}})),
              Answer(false, L"before"));
    EXPECT_EQ(LineNumberOf(m_drawing.AddReference(L"BAL12J", {{L"LIN_NUM", L"P-101"}})),
              Answer(false, L"before"));
    EXPECT_EQ(LineNumberOf(m_drawing.AddLine()), Answer(false, L"before"));
}

TEST_F(DrawingQueriesTest, LineNumber_OfTheBlockRecordItselfIsNotRead) {
    EXPECT_EQ(LineNumberOf(m_drawing.AddBlock(L"TAGLINE")), Answer(false, L"before"));
}

TEST_F(DrawingQueriesTest, LineNumber_IsTrimmedAtBothEnds) {
    EXPECT_EQ(LineNumberOf(m_drawing.AddReference(L"TAGLINE", {{L"LIN_NUM", L" \tP 1\t "}})),
              Answer(true, L"P 1"));
    EXPECT_EQ(LineNumberOf(m_drawing.AddReference(L"TAGLINE", {{L"LIN_NUM", L"  "}})), Answer(true, L""));
}

TEST_F(DrawingQueriesTest, LineNumberOfHyphen_MeansNone) {
    EXPECT_EQ(LineNumberOf(m_drawing.AddReference(L"TAGLINE", {{L"LIN_NUM", L"-"}})), Answer(true, L""));
    EXPECT_EQ(LineNumberOf(m_drawing.AddReference(L"TAGLINE", {{L"LIN_NUM", L" - "}})), Answer(true, L""));
    EXPECT_EQ(LineNumberOf(m_drawing.AddReference(L"TAGLINE", {{L"LIN_NUM", L"--"}})), Answer(true, L"--"));
}

TEST_F(DrawingQueriesTest, LineNumber_WithoutTheAttributeStaysAsItWas) {
    EXPECT_EQ(LineNumberOf(m_drawing.AddReference(L"TAGLINE", {{L"LIN_NUMBER", L"P-101"}})),
              Answer(true, L"before"));
    EXPECT_EQ(LineNumberOf(m_drawing.AddReference(L"TAGLINE")), Answer(true, L"before"));
}

TEST_F(DrawingQueriesTest, LineNumber_IsThatOfTheFirstMatchingAttribute) {
    EXPECT_EQ(LineNumberOf(m_drawing.AddReference(L"TAGLINE", {{L"LIN_NUM", L"-"}, {L"LIN_NUM", L"P-102"}})),
              Answer(true, L""));
}

TEST_F(DrawingQueriesTest, LineNumber_OfAnErasedAttributeIsPassedOver) {
    const AcDbObjectId id =
        m_drawing.AddReference(L"TAGLINE", {{L"LIN_NUM", L"P-101"}, {L"LIN_NUM", L"P-102"}});
    AcDbObjectId first;
    {
        AcDbObjectPointer<AcDbBlockReference> reference(id, AcDb::kForRead);
        const std::unique_ptr<AcDbObjectIterator> attributes(reference->attributeIterator());
        first = attributes->objectId();
    }
    m_drawing.Erase(first);
    EXPECT_EQ(LineNumberOf(id), Answer(true, L"P-102"));
}

// --- Dictionaries and xrecords.

TEST_F(DrawingQueriesTest, Dictionary_IsNotMadeUnlessAsked) {
    AcDbObjectId id;
    EXPECT_EQ(FindOrCreateDictionary(kDictionary, id, false, &m_database), Acad::eKeyNotFound);
    EXPECT_EQ(FindOrCreateDictionary(kDictionary, id, false, &m_database), Acad::eKeyNotFound);
}

TEST_F(DrawingQueriesTest, Dictionary_IsMadeOnceAndFoundAgain) {
    AcDbObjectId made;
    AcDbObjectId found;
    EXPECT_EQ(FindOrCreateDictionary(kDictionary, made, true, &m_database), Acad::eOk);
    EXPECT_EQ(FindOrCreateDictionary(kDictionary, found, true, nullptr), Acad::eOk);
    EXPECT_FALSE(made.isNull());
    EXPECT_EQ(found, made);
    AcDbObjectPointer<AcDbDictionary> dictionary(made, AcDb::kForRead);
    ASSERT_EQ(dictionary.openStatus(), Acad::eOk);
    EXPECT_EQ(dictionary->numEntries(), 0u);
    EXPECT_EQ(dictionary->ownerId(), m_database.namedObjectsDictionaryId());
}

TEST_F(DrawingQueriesTest, Xrecord_IsMadeEmptyWithItsDictionaryAndFoundAgain) {
    AcDbObjectId made;
    AcDbObjectId found;
    EXPECT_EQ(FindOrCreateXrecord(kXrecord, kDictionary, made, true, nullptr), Acad::eOk);
    EXPECT_EQ(FindOrCreateXrecord(kXrecord, kDictionary, found, true, &m_database), Acad::eOk);
    EXPECT_EQ(found, made);
    AcDbObjectPointer<AcDbXrecord> record(made, AcDb::kForRead);
    ASSERT_EQ(record.openStatus(), Acad::eOk);
    resbuf* chain = nullptr;
    EXPECT_EQ(record->rbChain(&chain), Acad::eOk);
    EXPECT_EQ(chain, nullptr);
    AcDbObjectId dictionary;
    EXPECT_EQ(FindOrCreateDictionary(kDictionary, dictionary, false, nullptr), Acad::eOk);
    EXPECT_EQ(record->ownerId(), dictionary);
}

TEST_F(DrawingQueriesTest, Xrecord_IsNotMadeUnlessAsked) {
    AcDbObjectId id;
    EXPECT_EQ(FindOrCreateXrecord(kXrecord, kDictionary, id, false, nullptr), Acad::eKeyNotFound);
    ASSERT_EQ(FindOrCreateDictionary(kDictionary, id, true, nullptr), Acad::eOk);
    EXPECT_EQ(FindOrCreateXrecord(kXrecord, kDictionary, id, false, nullptr), Acad::eKeyNotFound);
}

TEST_F(DrawingQueriesTest, Xrecord_UnderWhatIsNoDictionaryGivesThatStatus) {
    AcDbObjectId id;
    ASSERT_EQ(FindOrCreateXrecord(kXrecord, kDictionary, id, true, nullptr), Acad::eOk);
    {
        AcDbObjectPointer<AcDbDictionary> names(m_database.namedObjectsDictionaryId(), AcDb::kForWrite);
        AcDbObjectPointer<AcDbXrecord> record;
        record.create();
        AcDbObjectId recordId;
        ASSERT_EQ(names->setAt(L"RECORD", record, recordId), Acad::eOk);
    }
    EXPECT_EQ(FindOrCreateXrecord(kXrecord, L"RECORD", id, true, nullptr), Acad::eNotThatKindOfClass);
}

TEST_F(DrawingQueriesTest, Dictionary_WhileAnotherReadsTheNamedObjectsIsNotMade) {
    AcDbObjectPointer<AcDbDictionary> reader(m_database.namedObjectsDictionaryId(), AcDb::kForRead);
    AcDbObjectId id;
    EXPECT_EQ(FindOrCreateDictionary(kDictionary, id, true, &m_database), Acad::eWasOpenForRead);
    EXPECT_FALSE(reader->has(kDictionary));
}

TEST_F(DrawingQueriesTest, Dictionary_WithoutAnyDatabaseIsNotMade) {
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    AcDbObjectId id;
    EXPECT_EQ(FindOrCreateDictionary(kDictionary, id, true, nullptr), Acad::eNoDatabase);
    EXPECT_EQ(FindOrCreateXrecord(kXrecord, kDictionary, id, true, nullptr), Acad::eNoDatabase);
}

// --- Lock files.

class DwgLockFileTest : public SystemTest {
  protected:
    struct Answer {
        bool found;
        std::wstring user, machine, time;
        bool operator==(const Answer&) const = default;
    };
    Answer Read(const std::wstring& name) {
        Answer answer{false, L"before", L"before", L"before"};
        answer.found = ReadDwgLockFile(InRoot(name), answer.user, answer.machine, answer.time);
        return answer;
    }
    static Answer None() { return {false, L"", L"", L""}; }
};

TEST_F(DwgLockFileTest, ThreeLines_AreUserMachineAndTime) {
    PutFile(InRoot(L"a.dwl"), Lines({"Ada", "WS-12", "Tuesday", "more"}));
    EXPECT_EQ(Read(L"a.dwg"), (Answer{true, L"Ada", L"WS-12", L"Tuesday"}));
}

TEST_F(DwgLockFileTest, LastLineWithoutLineEnd_Counts) {
    PutFile(InRoot(L"a.dwl"), "Ada\nWS-12\nTuesday");
    EXPECT_EQ(Read(L"a.dwg"), (Answer{true, L"Ada", L"WS-12", L"Tuesday"}));
}

TEST_F(DwgLockFileTest, ExtensionInCapitals_FindsTheLockFile) {
    PutFile(InRoot(L"a.dwl"), Lines({"Ada", "WS-12", "Tuesday"}));
    EXPECT_TRUE(Read(L"a.DWG").found);
    EXPECT_TRUE(Read(L"a.Dwg").found);
}

TEST_F(DwgLockFileTest, TwoLines_AreSetButNotEnough) {
    PutFile(InRoot(L"a.dwl"), Lines({"Ada", "WS-12"}));
    EXPECT_EQ(Read(L"a.dwg"), (Answer{false, L"Ada", L"WS-12", L""}));
}

TEST_F(DwgLockFileTest, EmptyLines_Count) {
    PutFile(InRoot(L"a.dwl"), "\r\n\r\n\r\n");
    EXPECT_EQ(Read(L"a.dwg"), (Answer{true, L"", L"", L""}));
}

TEST_F(DwgLockFileTest, EmptyFile_GivesNothing) {
    PutFile(InRoot(L"a.dwl"), "");
    EXPECT_EQ(Read(L"a.dwg"), None());
}

TEST_F(DwgLockFileTest, WithoutLockFile_OutputsAreEmptied) {
    EXPECT_EQ(Read(L"a.dwg"), None());
}

TEST_F(DwgLockFileTest, OtherExtensions_AreNoDrawings) {
    PutFile(InRoot(L"a.dwl"), Lines({"Ada", "WS-12", "Tuesday"}));
    for (const wchar_t* name : {L"a.bak", L"a", L"a.", L"a.dwl", L"a.dwg2", L"a.dwg\\b", L".", L""}) {
        EXPECT_EQ(Read(name), None()) << name;
    }
}

TEST_F(DwgLockFileTest, NameWithMorePoints_LosesOnlyTheLast) {
    PutFile(InRoot(L"P.101.dwl"), Lines({"Ada", "WS-12", "Tuesday"}));
    EXPECT_TRUE(Read(L"P.101.dwg").found);
}

TEST_F(DwgLockFileTest, FileThatTheHostHolds_IsReadAllTheSame) {
    PutFile(InRoot(L"a.dwl"), Lines({"Ada", "WS-12", "Tuesday"}));
    const auto held = HoldFile(InRoot(L"a.dwl"), platform::Hold::kWritingShared);
    EXPECT_TRUE(Read(L"a.dwg").found);
}

TEST_F(DwgLockFileTest, FileThatNobodyMayRead_CountsAsNone) {
    PutFile(InRoot(L"a.dwl"), Lines({"Ada", "WS-12", "Tuesday"}));
    const auto held = HoldFile(InRoot(L"a.dwl"), platform::Hold::kWriting);
    EXPECT_EQ(Read(L"a.dwg"), None());
}

}  // namespace
