// Opening, closing, erasing: who may have an object when.
#include "drawing_fixture.h"

namespace workbench::test {
namespace {

using OpenTest = DrawingTest;

TEST_F(OpenTest, Open_NullId_GivesNullObjectIdAndNullPointer) {
    auto* line = reinterpret_cast<AcDbLine*>(1);
    EXPECT_EQ(acdbOpenObject(line, AcDbObjectId::kNull), Acad::eNullObjectId);
    EXPECT_EQ(line, nullptr);
}

TEST_F(OpenTest, Open_ForReadTwice_CountsReaders) {
    const AcDbObjectId id = ALine();
    AcDbObjectPointer<AcDbLine> first(id);
    AcDbObjectPointer<AcDbLine> second(id);
    EXPECT_EQ(first.openStatus(), Acad::eOk);
    EXPECT_EQ(second.openStatus(), Acad::eOk);
    first.close();
    AcDbLine* writer = nullptr;
    EXPECT_EQ(acdbOpenObject(writer, id, AcDb::kForWrite), Acad::eWasOpenForRead);
    second.close();
    EXPECT_EQ(acdbOpenObject(writer, id, AcDb::kForWrite), Acad::eOk);
    writer->close();
}

TEST_F(OpenTest, Open_ForRead257Times_RefusesTheLast) {
    const AcDbObjectId id = ALine();
    AcDbLine* line = nullptr;
    for (int i = 0; i < 256; ++i) {
        ASSERT_EQ(acdbOpenObject(line, id), Acad::eOk);
    }
    AcDbLine* refused = nullptr;
    EXPECT_EQ(acdbOpenObject(refused, id), Acad::eAtMaxReaders);
    for (int i = 0; i < 256; ++i) {
        EXPECT_EQ(line->close(), Acad::eOk);
    }
    EXPECT_EQ(line->close(), Acad::eNotOpenForRead);
}

TEST_F(OpenTest, Open_WhileOpenForWrite_IsRefusedForReadAndWrite) {
    const AcDbObjectId id = ALine();
    AcDbObjectPointer<AcDbLine> writer(id, AcDb::kForWrite);
    AcDbLine* line = nullptr;
    EXPECT_EQ(acdbOpenObject(line, id, AcDb::kForRead), Acad::eWasOpenForWrite);
    EXPECT_EQ(acdbOpenObject(line, id, AcDb::kForWrite), Acad::eWasOpenForWrite);
}

TEST_F(OpenTest, Open_AsOtherClass_IsRefusedAndLeavesTheObjectClosed) {
    const AcDbObjectId id = ALine();
    AcDbCircle* circle = nullptr;
    EXPECT_EQ(acdbOpenObject(circle, id, AcDb::kForWrite), Acad::eNotThatKindOfClass);
    EXPECT_EQ(circle, nullptr);
    AcDbObjectPointer<AcDbLine> line(id, AcDb::kForWrite);
    EXPECT_EQ(line.openStatus(), Acad::eOk);
}

// What is wrong with the object comes before what is wrong with the class that it is asked for.
TEST_F(OpenTest, Open_AsOtherClass_IsTheLastThingToBeRefused) {
    const AcDbObjectId id = ALine();
    AcDbCircle* circle = nullptr;
    {
        AcDbObjectPointer<AcDbLine> reader(id);
        EXPECT_EQ(acdbOpenObject(circle, id), Acad::eNotThatKindOfClass);
        EXPECT_EQ(acdbOpenObject(circle, id, AcDb::kForWrite), Acad::eWasOpenForRead);
        EXPECT_EQ(reader->upgradeOpen(), Acad::eOk) << "the refused one does not count as a reader";
        EXPECT_EQ(acdbOpenObject(circle, id), Acad::eWasOpenForWrite);
        EXPECT_EQ(reader->erase(), Acad::eOk);
    }
    EXPECT_EQ(acdbOpenObject(circle, id), Acad::eWasErased);
    EXPECT_EQ(acdbOpenObject(circle, id, AcDb::kForRead, true), Acad::eNotThatKindOfClass);
    m_guard.allowed = false;
    EXPECT_EQ(acdbOpenObject(circle, id, AcDb::kForWrite, true), Acad::eLockViolation);
    EXPECT_EQ(circle, nullptr);
    EXPECT_EQ(database::OpenObjects(Drawing()), 0);
}

TEST_F(OpenTest, Open_InAnUnknownMode_IsRefused) {
    AcDbLine* line = nullptr;
    EXPECT_EQ(acdbOpenObject(line, ALine(), static_cast<AcDb::OpenMode>(7)), Acad::eInvalidInput);
    EXPECT_EQ(line, nullptr);
}

TEST_F(OpenTest, Open_HandleThatNeverGotAnObject_IsErasedForGood) {
    AcDbDatabase drawing(false, true);
    database::Builder builder(drawing);
    const AcDbObjectId id(builder.Reference(0x99));
    AcDbObject* object = nullptr;
    EXPECT_EQ(acdbOpenObject(object, id), Acad::ePermanentlyErased);
    EXPECT_EQ(acdbOpenObject(object, id, AcDb::kForRead, true), Acad::ePermanentlyErased);
    EXPECT_EQ(id.objectClass(), nullptr);
    EXPECT_TRUE(id.isErased());
    EXPECT_FALSE(id.isValid());
}

TEST_F(OpenTest, Id_KnowsTheClassOfItsObject) {
    const AcDbObjectId id = ALine();
    EXPECT_EQ(id.objectClass(), AcDbLine::desc());
    EXPECT_EQ(ModelSpaceId().objectClass(), AcDbBlockTableRecord::desc());
    AcDbObjectPointer<AcDbLine>(id, AcDb::kForWrite)->erase();
    EXPECT_EQ(id.objectClass(), AcDbLine::desc()) << "an erased object keeps it";
}

TEST_F(OpenTest, Open_AsBaseClass_Works) {
    AcDbEntity* entity = nullptr;
    ASSERT_EQ(acdbOpenAcDbEntity(entity, ALine(), AcDb::kForRead), Acad::eOk);
    EXPECT_STREQ(entity->isA()->name(), L"AcDbLine");
    entity->close();
}

TEST_F(OpenTest, Open_ForWriteWithoutLock_GivesLockViolation) {
    const AcDbObjectId id = ALine();
    m_guard.allowed = false;
    AcDbLine* line = nullptr;
    EXPECT_EQ(acdbOpenObject(line, id, AcDb::kForWrite), Acad::eLockViolation);
    EXPECT_EQ(static_cast<int>(Acad::eLockViolation), 320);
    EXPECT_EQ(acdbOpenObject(line, id, AcDb::kForRead), Acad::eOk);
    EXPECT_EQ(line->upgradeOpen(), Acad::eLockViolation);
    EXPECT_FALSE(line->isWriteEnabled());
    EXPECT_EQ(line->close(), Acad::eOk);
}

TEST_F(OpenTest, Open_ForWriteInDatabaseWithoutDocument_NeedsNoLock) {
    m_guard.allowed = false;
    AcDbDatabase side(true, true);
    AcDbObjectPointer<AcDbBlockTable> table(side.blockTableId(), AcDb::kForWrite);
    EXPECT_EQ(table.openStatus(), Acad::eOk);
}

TEST_F(OpenTest, Open_Erased_IsRefusedUnlessAskedFor) {
    const AcDbObjectId id = ALine();
    AcDbObjectPointer<AcDbLine>(id, AcDb::kForWrite)->erase();
    EXPECT_TRUE(id.isErased());
    EXPECT_FALSE(id.isValid());
    AcDbLine* line = nullptr;
    EXPECT_EQ(acdbOpenObject(line, id), Acad::eWasErased);
    ASSERT_EQ(acdbOpenObject(line, id, AcDb::kForRead, true), Acad::eOk);
    EXPECT_TRUE(line->isErased());
    line->close();
}

TEST_F(OpenTest, Erase_NeedsOpenForWrite) {
    const AcDbObjectId id = ALine();
    AcDbObjectPointer<AcDbLine> line(id);
    EXPECT_EQ(line->erase(), Acad::eNotOpenForWrite);
    EXPECT_FALSE(id.isErased());
}

TEST_F(OpenTest, Erase_TwiceAndBack_TellsEachState) {
    AcDbObjectPointer<AcDbLine> line(ALine(), AcDb::kForWrite);
    EXPECT_EQ(line->erase(false), Acad::eInvalidInput);
    EXPECT_EQ(line->erase(), Acad::eOk);
    EXPECT_EQ(line->erase(), Acad::eWasErased);
    EXPECT_EQ(line->erase(false), Acad::eOk);
    EXPECT_FALSE(line->isErased());
}

TEST_F(OpenTest, Erase_OfWhatEveryDrawingNeeds_IsRefused) {
    AcDbObjectPointer<AcDbBlockTableRecord> space(ModelSpaceId(), AcDb::kForWrite);
    EXPECT_EQ(space->erase(), Acad::eCannotBeErasedByCaller);
    AcDbObjectPointer<AcDbLayerTableRecord> layer(Drawing().layerZero(), AcDb::kForWrite);
    EXPECT_EQ(layer->erase(), Acad::eCannotBeErasedByCaller);
}

TEST_F(OpenTest, UpgradeOpen_WithOneReader_MakesTheWriter) {
    const AcDbObjectId id = ALine();
    AcDbObjectPointer<AcDbLine> line(id);
    EXPECT_EQ(line->setEndPoint({9, 9, 9}), Acad::eNotOpenForWrite);
    EXPECT_EQ(line->upgradeOpen(), Acad::eOk);
    EXPECT_EQ(line->upgradeOpen(), Acad::eWasOpenForWrite);
    EXPECT_EQ(line->setEndPoint({9, 9, 9}), Acad::eOk);
    EXPECT_EQ(line->downgradeOpen(), Acad::eOk);
    AcDbObjectPointer<AcDbLine> other(id);
    EXPECT_EQ(other->endPoint(), AcGePoint3d(9, 9, 9));
}

TEST_F(OpenTest, UpgradeOpen_WithAnotherReader_IsRefusedAndBothStayReaders) {
    const AcDbObjectId id = ALine();
    AcDbObjectPointer<AcDbLine> first(id);
    AcDbObjectPointer<AcDbLine> second(id);
    EXPECT_EQ(first->upgradeOpen(), Acad::eWasOpenForRead);
    EXPECT_EQ(first->startPoint(), AcGePoint3d(0, 0, 0));
    EXPECT_EQ(first.close(), Acad::eOk);
    EXPECT_EQ(second.close(), Acad::eOk);
    EXPECT_EQ(database::OpenObjects(Drawing()), 0);
}

TEST_F(OpenTest, UpgradeOpen_OfWhatIsNotOpen_IsRefused) {
    const AcDbObjectId id = ALine();
    AcDbObjectPointer<AcDbLine> holder(id);
    AcDbLine* line = holder.object();
    holder.close();
    EXPECT_EQ(line->upgradeOpen(), Acad::eNotOpenForRead);
    EXPECT_EQ(line->downgradeOpen(), Acad::eNotOpenForWrite);
    EXPECT_EQ(line->close(), Acad::eNotOpenForRead);
}

TEST_F(OpenTest, DowngradeOpen_LetsOtherReadersInAndNoWriter) {
    const AcDbObjectId id = ALine();
    AcDbObjectPointer<AcDbLine> writer(id, AcDb::kForWrite);
    EXPECT_EQ(writer->downgradeOpen(), Acad::eOk);
    EXPECT_EQ(writer->downgradeOpen(), Acad::eNotOpenForWrite);
    AcDbObjectPointer<AcDbLine> reader(id);
    EXPECT_EQ(reader.openStatus(), Acad::eOk);
    AcDbLine* other = nullptr;
    EXPECT_EQ(acdbOpenObject(other, id, AcDb::kForWrite), Acad::eWasOpenForRead);
}

TEST_F(OpenTest, NewObject_IsFreeForItsHolder) {
    AcDbLine line;
    EXPECT_EQ(line.upgradeOpen(), Acad::eOk);
    EXPECT_EQ(line.downgradeOpen(), Acad::eOk);
    EXPECT_EQ(line.erase(), Acad::eNotInDatabase);
    EXPECT_TRUE(line.isReadEnabled());
    EXPECT_TRUE(line.isWriteEnabled());
}

TEST_F(OpenTest, AppendedObject_IsNewUntilItsFirstClose) {
    AcDbObjectPointer<AcDbBlockTableRecord> space(ModelSpaceId(), AcDb::kForWrite);
    auto* line = new AcDbLine;
    AcDbObjectId id;
    ASSERT_EQ(space->appendAcDbEntity(id, line), Acad::eOk);
    EXPECT_TRUE(line->isNewObject());
    EXPECT_TRUE(line->isModified());
    line->close();
    AcDbObjectPointer<AcDbLine> again(id, AcDb::kForWrite);
    EXPECT_FALSE(again->isNewObject());
    EXPECT_FALSE(again->isModified());
}

TEST_F(OpenTest, Read_OfClosedObject_EndsTheProgram) {
    const AcDbObjectId id = ALine();
    AcDbObjectPointer<AcDbLine> holder(id);
    const AcDbLine* line = holder.object();
    holder.close();
    EXPECT_THROW(line->startPoint(), FatalError);
}

TEST_F(OpenTest, Close_OfNewObject_SaysItHasNoId) {
    AcDbLine line;
    EXPECT_EQ(line.close(), Acad::eNullObjectId);
    EXPECT_EQ(line.setStartPoint({1, 1, 1}), Acad::eOk);
    EXPECT_TRUE(line.isNewObject());
}

TEST_F(OpenTest, ObjectPointer_LettingGoOfNewObject_DeletesIt) {
    AcDbObjectPointer<AcDbLine> holder;
    EXPECT_EQ(holder.openStatus(), Acad::eNullObjectPointer);
    EXPECT_EQ(holder.create(), Acad::eOk);
    EXPECT_TRUE(holder->objectId().isNull());
    EXPECT_EQ(holder.close(), Acad::eOk);  // the leak check sees the rest
}

TEST_F(OpenTest, ObjectPointer_Release_HandsOver) {
    const AcDbObjectId id = ALine();
    AcDbLine* line = nullptr;
    {
        AcDbObjectPointer<AcDbLine> holder(id);
        ASSERT_EQ(holder.release(line), Acad::eOk);
    }
    EXPECT_TRUE(line->isReadEnabled());
    AcDbObjectPointer<AcDbLine> taken;
    EXPECT_EQ(taken.acquire(line), Acad::eOk);
    EXPECT_EQ(line, nullptr);
    taken.close();
    EXPECT_EQ(database::OpenObjects(Drawing()), 0);
}

TEST_F(OpenTest, AddObject_WithoutLock_IsRefusedAndTheObjectStaysTheCallers) {
    AcDbXrecord record;
    m_guard.allowed = false;
    EXPECT_EQ(Drawing().addAcDbObject(&record), Acad::eLockViolation);
    EXPECT_TRUE(record.objectId().isNull());
    EXPECT_EQ(Drawing().addAcDbObject(nullptr), Acad::eNullObjectPointer);
    m_guard.allowed = true;
    auto* added = new AcDbXrecord;
    AcDbObjectId id;
    EXPECT_EQ(Drawing().addAcDbObject(id, added), Acad::eOk);
    EXPECT_EQ(Drawing().addAcDbObject(added), Acad::eAlreadyInDb);
    EXPECT_EQ(added->objectId(), id);
    EXPECT_TRUE(added->isWriteEnabled());
    added->close();
}

TEST_F(OpenTest, Append_LeavesTheEntityOpenForWrite) {
    AcDbObjectPointer<AcDbBlockTableRecord> space(ModelSpaceId(), AcDb::kForWrite);
    auto* line = new AcDbLine;
    AcDbObjectId id;
    ASSERT_EQ(space->appendAcDbEntity(id, line), Acad::eOk);
    EXPECT_EQ(space->appendAcDbEntity(line), Acad::eAlreadyInDb);
    AcDbLine* other = nullptr;
    EXPECT_EQ(acdbOpenObject(other, id), Acad::eWasOpenForWrite);
    EXPECT_EQ(line->close(), Acad::eOk);
    EXPECT_EQ(id.handle(), line->getAcDbHandle());
}

TEST_F(OpenTest, Append_ToSpaceOpenForRead_IsRefusedAndTheEntityStaysTheCallers) {
    AcDbObjectPointer<AcDbBlockTableRecord> space(ModelSpaceId());
    AcDbLine line;
    AcDbObjectId id;
    EXPECT_EQ(space->appendAcDbEntity(id, &line), Acad::eNotOpenForWrite);
    EXPECT_TRUE(id.isNull());
    EXPECT_TRUE(line.objectId().isNull());
}

TEST_F(OpenTest, Write_MarksTheDrawingAsModified_ReadDoesNot) {
    const AcDbObjectId id = ALine();
    acdbSetDbmod(&Drawing(), 0);
    AcDbObjectPointer<AcDbLine> line(id);
    line->startPoint();
    EXPECT_EQ(acdbSetDbmod(&Drawing(), 0), 0);
    line->upgradeOpen();
    EXPECT_EQ(acdbSetDbmod(&Drawing(), 0), 0);
    line->setStartPoint({5, 5, 5});
    EXPECT_EQ(acdbSetDbmod(&Drawing(), 0), 1);
}

TEST_F(OpenTest, Handle_FindsTheObject_AndUnknownOnesDoNot) {
    const AcDbObjectId line = ALine();
    AcDbObjectId id;
    EXPECT_EQ(Drawing().getAcDbObjectId(id, false, line.handle()), Acad::eOk);
    EXPECT_EQ(id, line);
    EXPECT_EQ(Drawing().getAcDbObjectId(id, false, Drawing().handseed()), Acad::eUnknownHandle);
    EXPECT_TRUE(id.isNull());
    EXPECT_EQ(Drawing().getAcDbObjectId(id, false, AcDbHandle()), Acad::eNullHandle);
}

TEST(Handle, Text_IsUpperCaseHexadecimal) {
    wchar_t buffer[17];
    ASSERT_TRUE(AcDbHandle(0x1aF).getIntoAsciiBuffer(buffer, 17));
    EXPECT_STREQ(buffer, L"1AF");
    EXPECT_FALSE(AcDbHandle(0x1aF).getIntoAsciiBuffer(buffer, 3));
    EXPECT_EQ(AcDbHandle(L"1af").value(), 0x1AFu);
    EXPECT_TRUE(AcDbHandle(L"1G").isNull());
    EXPECT_TRUE(AcDbHandle(L"11112222333344445").isNull());
}

}  // namespace
}  // namespace workbench::test
