// Queries that need the host: line numbers of open and closed drawings, system variables, locks.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "dbobjptr.h"
#include "document/drawing_queries.h"
#include "host_test.h"
#include "platform/letter_case.h"
#include "test_drawing.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::wstring> Collect(const std::wstring& path) {
    std::vector<std::wstring> lines;
    EXPECT_EQ(CollectLineNumbers(lines, path), Acad::eOk);
    return lines;
}

void AddTag(TestDrawing& drawing, const std::wstring& line) {
    drawing.AddReference(L"TAGLINE", {{L"LIN_NUM", line}});
}

class OpenDocumentsTest : public HostTest {
  protected:
    // Puts tags with these line numbers into an open document.
    void AddTags(AcApDocument* document, std::initializer_list<const wchar_t*> lines) {
        const Lock lock(document);
        TestDrawing drawing(*document->database());
        for (const wchar_t* line : lines)
            AddTag(drawing, line);
    }
};

TEST_F(OpenDocumentsTest, OpenDrawing_GivesItsNumbersInTheOrderOfModelSpace) {
    AcApDocument* document = NewDocument();
    AddTags(document, {L"P-3", L"P-1", L"P-2"});
    EXPECT_THAT(Collect(document->fileName()), ElementsAre(L"P-3", L"P-1", L"P-2"));
}

TEST_F(OpenDocumentsTest, RepeatedNumbers_AppearOnce) {
    AcApDocument* document = NewDocument();
    AddTags(document, {L"P-1", L"P-2", L"P-1", L"P-2"});
    EXPECT_THAT(Collect(document->fileName()), ElementsAre(L"P-1", L"P-2"));
}

TEST_F(OpenDocumentsTest, NumbersThatDifferInCase_AreTwo) {
    AcApDocument* document = NewDocument();
    AddTags(document, {L"P-1", L"p-1"});
    EXPECT_THAT(Collect(document->fileName()), ElementsAre(L"P-1", L"p-1"));
}

TEST_F(OpenDocumentsTest, TagsWithoutANumber_GiveOneEmptyText) {
    AcApDocument* document = NewDocument();
    AddTags(document, {L"P-1", L"-", L"", L" - "});
    {
        const Lock lock(document);
        TestDrawing(*document->database()).AddReference(L"TAGLINE");
    }
    EXPECT_THAT(Collect(document->fileName()), ElementsAre(L"P-1", L""));
}

TEST_F(OpenDocumentsTest, TagWithoutAttribute_DoesNotTakeTheNumberOfTheOneBefore) {
    AcApDocument* document = NewDocument();
    AddTags(document, {L"P-1"});
    {
        const Lock lock(document);
        TestDrawing(*document->database()).AddReference(L"TAGLINE");
    }
    EXPECT_THAT(Collect(document->fileName()), ElementsAre(L"P-1", L""));
}

TEST_F(OpenDocumentsTest, OtherEntitiesAndErasedOnes_AreSkipped) {
    AcApDocument* document = NewDocument();
    {
        const Lock lock(document);
        TestDrawing drawing(*document->database());
        drawing.AddLine();
        drawing.AddReference(L"PUMP", {{L"LIN_NUM", L"P-8"}});
        drawing.Erase(drawing.AddReference(L"TAGLINE", {{L"LIN_NUM", L"P-9"}}));
        drawing.AddReferenceIn(drawing.BlockRecord(ACDB_PAPER_SPACE), L"TAGLINE", {{L"LIN_NUM", L"P-7"}});
        drawing.AddReferenceIn(drawing.BlockRecord(L"PUMP"), L"TAGLINE", {{L"LIN_NUM", L"P-6"}});
        AddTag(drawing, L"P-1");
    }
    EXPECT_THAT(Collect(document->fileName()), ElementsAre(L"P-1"));
}

TEST_F(OpenDocumentsTest, NumbersThatTheListHoldsAlready_AreNotAddedAgain) {
    AcApDocument* document = NewDocument();
    AddTags(document, {L"P-1", L"P-2"});
    std::vector<std::wstring> lines{L"P-2", L"P-0", L"P-2"};
    EXPECT_EQ(CollectLineNumbers(lines, document->fileName()), Acad::eOk);
    EXPECT_THAT(lines, ElementsAre(L"P-2", L"P-0", L"P-2", L"P-1"));
}

TEST_F(OpenDocumentsTest, EntityThatIsOpenForWriteElsewhere_IsSkipped) {
    AcApDocument* document = NewDocument();
    AddTags(document, {L"P-1"});
    const Lock lock(document);
    TestDrawing drawing(*document->database());
    const AcDbObjectId id = drawing.AddReference(L"TAGLINE", {{L"LIN_NUM", L"P-2"}});
    AcDbObjectPointer<AcDbBlockReference> writer(id, AcDb::kForWrite);
    EXPECT_THAT(Collect(document->fileName()), ElementsAre(L"P-1"));
}

TEST_F(OpenDocumentsTest, ModelSpaceThatIsOpenForWriteElsewhere_GivesThatStatus) {
    AcApDocument* document = NewDocument();
    const Lock lock(document);
    AcDbObjectPointer<AcDbBlockTableRecord> writer(GetModelSpaceId(document->database()), AcDb::kForWrite);
    std::vector<std::wstring> lines{L"before"};
    EXPECT_EQ(CollectLineNumbers(lines, document->fileName()), Acad::eWasOpenForWrite);
    EXPECT_THAT(lines, ElementsAre(L"before"));
}

TEST_F(OpenDocumentsTest, Scan_LeavesNothingOpen) {
    AcApDocument* document = NewDocument();
    AddTags(document, {L"P-1", L"-"});
    Collect(document->fileName());
    EXPECT_EQ(workbench::database::OpenObjects(*document->database()), 0);
}

// --- Drawings on disk.

TEST_F(OpenDocumentsTest, ClosedDrawing_IsReadFromItsFile) {
    const std::wstring path =
        SavedDrawing(L"closed.dwg", [](TestDrawing& drawing) { AddTag(drawing, L"P-1"); });
    EXPECT_THAT(Collect(path), ElementsAre(L"P-1"));
}

TEST_F(OpenDocumentsTest, OpenDrawing_ShowsWhatIsNotSavedYet) {
    const std::wstring path =
        SavedDrawing(L"open.dwg", [](TestDrawing& drawing) { AddTag(drawing, L"P-1"); });
    AddTags(OpenDocument(path), {L"P-2"});
    EXPECT_THAT(Collect(path), ElementsAre(L"P-1", L"P-2"));
}

TEST_F(OpenDocumentsTest, PathInOtherCase_FindsTheOpenDrawing) {
    const std::wstring path =
        SavedDrawing(L"open.dwg", [](TestDrawing& drawing) { AddTag(drawing, L"P-1"); });
    AddTags(OpenDocument(path), {L"P-2"});
    EXPECT_THAT(Collect(platform::ToUpper(path)), ElementsAre(L"P-1", L"P-2"));
}

TEST_F(OpenDocumentsTest, OpenDrawing_IsFoundWhileAnotherIsCurrent) {
    AcApDocument* first = NewDocument();
    AddTags(first, {L"P-1"});
    AddTags(NewDocument(), {L"P-2"});
    EXPECT_THAT(Collect(first->fileName()), ElementsAre(L"P-1"));
}

TEST_F(OpenDocumentsTest, MissingFile_GivesItsStatusAndLeavesTheList) {
    NewDocument();
    std::vector<std::wstring> lines{L"before"};
    EXPECT_EQ(CollectLineNumbers(lines, InRoot(L"nowhere.dwg")), Acad::eFileNotFound);
    EXPECT_THAT(lines, ElementsAre(L"before"));
}

TEST_F(OpenDocumentsTest, WithoutDocuments_AFileIsReadAllTheSame) {
    const std::wstring path =
        SavedDrawing(L"closed.dwg", [](TestDrawing& drawing) { AddTag(drawing, L"P-1"); });
    EXPECT_THAT(Collect(path), ElementsAre(L"P-1"));
    std::vector<std::wstring> lines;
    EXPECT_NE(CollectLineNumbers(lines, L""), Acad::eOk);
}

// --- Dictionaries of an open drawing.

TEST_F(OpenDocumentsTest, Xrecord_WithoutALockIsFoundButNotMade) {
    AcApDocument* document = NewDocument();
    AcDbObjectId made;
    {
        const Lock lock(document);
        ASSERT_EQ(FindOrCreateXrecord(L"FilteredLineIds", L"OURS", made, true, nullptr), Acad::eOk);
    }
    AcDbObjectId id;
    EXPECT_EQ(FindOrCreateXrecord(L"FilteredLineIds", L"OURS", id, true, nullptr), Acad::eOk);
    EXPECT_EQ(id, made);
    EXPECT_EQ(FindOrCreateXrecord(L"Other", L"OURS", id, true, nullptr), Acad::eLockViolation);
    EXPECT_EQ(FindOrCreateDictionary(L"OTHERS", id, true, nullptr), Acad::eLockViolation);
}

// --- System variables.

class SysVarTest : public HostTest {
  protected:
    SysVarTest() { NewDocument(); }
};

TEST_F(SysVarTest, Short_IsReadAndSet) {
    SetSysVarShort(L"SNAPISOPAIR", 2);
    int value = -1;
    EXPECT_TRUE(GetSysVarShort(L"SNAPISOPAIR", value));
    EXPECT_EQ(value, 2);
}

TEST_F(SysVarTest, ShortThatCannotBeRead_KeepsTheOldContent) {
    int value = 7;
    EXPECT_FALSE(GetSysVarShort(L"NO_SUCH_VARIABLE", value));
    EXPECT_EQ(value, 7);
}

TEST_F(SysVarTest, VariableOfAnotherType_IsNotRead) {
    int value = 7;
    EXPECT_FALSE(GetSysVarShort(L"DWGNAME", value));
    EXPECT_EQ(value, 7);
    std::wstring text = L"before";
    EXPECT_FALSE(GetSysVarString(L"SNAPISOPAIR", text));
    EXPECT_FALSE(GetSysVarString(L"NO_SUCH_VARIABLE", text));
    EXPECT_EQ(text, L"before");
}

TEST_F(SysVarTest, String_IsRead) {
    std::wstring text;
    EXPECT_TRUE(GetSysVarString(L"DWGNAME", text));
    EXPECT_NE(text, L"");
}

TEST_F(SysVarTest, SetToPresentValue_IsNotReportedAsAChange) {
    SetSysVarShort(L"SNAPISOPAIR", 1);
    SysVarCounter changes;
    SetSysVarShort(L"SNAPISOPAIR", 1);
    EXPECT_EQ(changes.GetCount(), 0);
    SetSysVarShort(L"SNAPISOPAIR", 2);
    EXPECT_EQ(changes.GetCount(), 1);
}

}  // namespace
