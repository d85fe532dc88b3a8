// Entities, blocks and their walks.
#include "dbmtext.h"
#include "dbpl.h"
#include "drawing_fixture.h"

namespace workbench::test {
namespace {

class EntitiesTest : public DrawingTest {
  protected:
    AcDbObjectId AReference(const wchar_t* block) {
        return Append(new AcDbBlockReference({1, 2, 0}, ABlock(block)));
    }

    AcDbObjectId Attach(AcDbObjectId reference, const wchar_t* tag, const wchar_t* text) {
        AcDbObjectPointer<AcDbBlockReference> holder(reference, AcDb::kForWrite);
        auto* attribute = new AcDbAttribute;
        EXPECT_EQ(attribute->setTag(tag), Acad::eOk);
        EXPECT_EQ(attribute->setTextString(text), Acad::eOk);
        AcDbObjectId id;
        EXPECT_EQ(holder->appendAttribute(id, attribute), Acad::eOk);
        attribute->close();
        return id;
    }

    std::vector<std::wstring> TagsOf(AcDbObjectId reference) {
        AcDbObjectPointer<AcDbBlockReference> holder(reference);
        std::vector<std::wstring> tags;
        const std::unique_ptr<AcDbObjectIterator> iterator(holder->attributeIterator());
        for (; !iterator->done(); iterator->step()) {
            AcDbObjectPointer<AcDbAttribute> attribute(iterator->objectId());
            tags.push_back(attribute->tagConst());
        }
        return tags;
    }

    std::vector<AcDbObjectId> IdsOfModelSpace(bool skipDeleted = true) {
        AcDbObjectPointer<AcDbBlockTableRecord> space(ModelSpaceId());
        AcDbBlockTableRecordIterator* made = nullptr;
        EXPECT_EQ(space->newIterator(made, true, skipDeleted), Acad::eOk);
        const std::unique_ptr<AcDbBlockTableRecordIterator> iterator(made);
        space.close();
        std::vector<AcDbObjectId> ids;
        for (iterator->start(true, skipDeleted); !iterator->done(); iterator->step(true, skipDeleted)) {
            AcDbObjectId id;
            EXPECT_EQ(iterator->getEntityId(id), Acad::eOk);
            ids.push_back(id);
        }
        return ids;
    }
};

TEST_F(EntitiesTest, ModelSpace_IsWalkedInDrawingOrder) {
    const AcDbObjectId first = ALine();
    const AcDbObjectId second = ALine();
    EXPECT_EQ(IdsOfModelSpace(), (std::vector<AcDbObjectId>{first, second}));
}

TEST_F(EntitiesTest, ModelSpace_Walk_SkipsErasedUnlessAskedFor) {
    const AcDbObjectId first = ALine();
    const AcDbObjectId second = ALine();
    const AcDbObjectId third = ALine();
    AcDbObjectPointer<AcDbLine>(first, AcDb::kForWrite)->erase();
    AcDbObjectPointer<AcDbLine>(third, AcDb::kForWrite)->erase();
    EXPECT_EQ(IdsOfModelSpace(), (std::vector<AcDbObjectId>{second}));
    EXPECT_EQ(IdsOfModelSpace(false), (std::vector<AcDbObjectId>{first, second, third}));
}

TEST_F(EntitiesTest, ModelSpace_Empty_IteratorIsDoneAtOnce) {
    AcDbObjectPointer<AcDbBlockTableRecord> space(ModelSpaceId());
    AcDbBlockTableRecordIterator* made = nullptr;
    ASSERT_EQ(space->newIterator(made), Acad::eOk);
    const std::unique_ptr<AcDbBlockTableRecordIterator> iterator(made);
    EXPECT_TRUE(iterator->done());
    AcDbEntity* entity = nullptr;
    EXPECT_EQ(iterator->getEntity(entity), Acad::eInvalidIndex);
    AcDbObjectId id;
    EXPECT_EQ(iterator->getEntityId(id), Acad::eInvalidIndex);
}

TEST_F(EntitiesTest, ModelSpace_Backwards) {
    const AcDbObjectId first = ALine();
    const AcDbObjectId second = ALine();
    AcDbObjectPointer<AcDbBlockTableRecord> space(ModelSpaceId());
    AcDbBlockTableRecordIterator* made = nullptr;
    ASSERT_EQ(space->newIterator(made, false), Acad::eOk);
    const std::unique_ptr<AcDbBlockTableRecordIterator> iterator(made);
    AcDbObjectId id;
    iterator->getEntityId(id);
    EXPECT_EQ(id, second);
    iterator->step(false);
    iterator->getEntityId(id);
    EXPECT_EQ(id, first);
    iterator->step(false);
    EXPECT_TRUE(iterator->done());
}

TEST_F(EntitiesTest, NewIterator_OnClosedRecord_IsRefused) {
    AcDbObjectPointer<AcDbBlockTableRecord> space(ModelSpaceId());
    const AcDbBlockTableRecord* record = space.object();
    space.close();
    auto* made = reinterpret_cast<AcDbBlockTableRecordIterator*>(1);
    EXPECT_EQ(record->newIterator(made), Acad::eNotOpenForRead);
    EXPECT_EQ(made, nullptr);
}

TEST_F(EntitiesTest, Iterator_GetEntity_OpensInTheMode) {
    ALine();
    AcDbObjectPointer<AcDbBlockTableRecord> space(ModelSpaceId());
    AcDbBlockTableRecordIterator* made = nullptr;
    ASSERT_EQ(space->newIterator(made), Acad::eOk);
    const std::unique_ptr<AcDbBlockTableRecordIterator> iterator(made);
    AcDbEntity* entity = nullptr;
    ASSERT_EQ(iterator->getEntity(entity, AcDb::kForWrite), Acad::eOk);
    EXPECT_TRUE(entity->isWriteEnabled());
    entity->close();
}

TEST_F(EntitiesTest, BlockReference_KnowsItsRecord) {
    const AcDbObjectId block = ABlock(L"PIP_BLK");
    AcDbObjectPointer<AcDbBlockReference> reference(Append(new AcDbBlockReference({1, 2, 3}, block)));
    EXPECT_EQ(reference->blockTableRecord(), block);
    EXPECT_EQ(reference->position(), AcGePoint3d(1, 2, 3));
    EXPECT_EQ(reference->blockId(), ModelSpaceId());
}

TEST_F(EntitiesTest, BlockReference_ToWhatIsNoBlock_IsRefused) {
    AcDbBlockReference reference;
    EXPECT_EQ(reference.setBlockTableRecord(AcDbObjectId::kNull), Acad::eNullObjectId);
    EXPECT_EQ(reference.setBlockTableRecord(Drawing().layerZero()), Acad::eNotThatKindOfClass);
}

TEST_F(EntitiesTest, BlockReference_ToBlockOfAnotherDrawing_IsRefused) {
    AcDbDatabase other(true, true);
    AcDbObjectPointer<AcDbBlockReference> reference(AReference(L"A"), AcDb::kForWrite);
    EXPECT_EQ(reference->setBlockTableRecord(other.currentSpaceId()), Acad::eWrongDatabase);
}

TEST_F(EntitiesTest, Attributes_ComeInOrder_WithoutErasedOnes) {
    const AcDbObjectId reference = AReference(L"PIP_BLK");
    Attach(reference, L"LIN_NUM", L"100");
    const AcDbObjectId size = Attach(reference, L"SIZE", L"4");
    Attach(reference, L"SPEC", L"CS1");
    EXPECT_EQ(TagsOf(reference), (std::vector<std::wstring>{L"LIN_NUM", L"SIZE", L"SPEC"}));
    AcDbObjectPointer<AcDbAttribute>(size, AcDb::kForWrite)->erase();
    EXPECT_EQ(TagsOf(reference), (std::vector<std::wstring>{L"LIN_NUM", L"SPEC"}));
}

TEST_F(EntitiesTest, Attributes_AreWalkedBackwardsToo) {
    const AcDbObjectId id = AReference(L"PIP_BLK");
    const AcDbObjectId first = Attach(id, L"LIN_NUM", L"100");
    const AcDbObjectId erased = Attach(id, L"SIZE", L"4");
    const AcDbObjectId last = Attach(id, L"SPEC", L"CS1");
    AcDbObjectPointer<AcDbAttribute>(erased, AcDb::kForWrite)->erase();
    AcDbObjectPointer<AcDbBlockReference> reference(id);
    const std::unique_ptr<AcDbObjectIterator> attributes(reference->attributeIterator());
    attributes->start(false);
    EXPECT_EQ(attributes->objectId(), last);
    attributes->step(true);
    EXPECT_EQ(attributes->objectId(), first);
    attributes->step(true);
    EXPECT_TRUE(attributes->done());
    EXPECT_TRUE(attributes->objectId().isNull());
    attributes->start();
    EXPECT_EQ(attributes->objectId(), first);
}

TEST_F(EntitiesTest, Attributes_AreClosedByOneEndOfTheSequence) {
    const AcDbObjectId id = AReference(L"PIP_BLK");
    const auto& data = *database::DataAs<database::BlockReferenceData>(id.stub());
    EXPECT_EQ(data.sequenceEnd, nullptr);
    Attach(id, L"LIN_NUM", L"100");
    const AcDbStub* end = data.sequenceEnd;
    ASSERT_NE(end, nullptr);
    EXPECT_EQ(database::DataOf(*end).owner, id.stub());
    EXPECT_EQ(database::DataAs<database::ProxyEntityData>(end)->dxfName, L"SEQEND");
    Attach(id, L"SIZE", L"4");
    EXPECT_EQ(data.sequenceEnd, end);
}

TEST_F(EntitiesTest, Attributes_BelongToTheReferenceAndItsBlock) {
    const AcDbObjectId reference = AReference(L"PIP_BLK");
    AcDbObjectPointer<AcDbAttribute> attribute(Attach(reference, L"LIN_NUM", L"100"));
    EXPECT_EQ(attribute->ownerId(), reference);
    EXPECT_EQ(attribute->blockId(), ModelSpaceId());
}

TEST_F(EntitiesTest, Attributes_AreErasedAndBroughtBackWithTheReference) {
    const AcDbObjectId reference = AReference(L"PIP_BLK");
    const AcDbObjectId attribute = Attach(reference, L"LIN_NUM", L"100");
    AcDbObjectPointer<AcDbBlockReference> holder(reference, AcDb::kForWrite);
    holder->erase();
    EXPECT_TRUE(attribute.isErased());
    holder->erase(false);
    EXPECT_FALSE(attribute.isErased());
}

TEST_F(EntitiesTest, Attribute_ToReferenceNotOpenForWrite_IsRefused) {
    AcDbObjectPointer<AcDbBlockReference> reference(AReference(L"A"));
    AcDbAttribute attribute;
    AcDbObjectId id;
    EXPECT_EQ(reference->appendAttribute(id, &attribute), Acad::eNotOpenForWrite);
    AcDbBlockReference outside;
    EXPECT_EQ(outside.appendAttribute(id, &attribute), Acad::eNotInDatabase);
}

TEST_F(EntitiesTest, Attribute_Tag_IsUpperCaseAndHasNoBlanks) {
    AcDbAttribute attribute;
    EXPECT_EQ(attribute.setTag(L"lin_num"), Acad::eOk);
    EXPECT_STREQ(attribute.tagConst(), L"LIN_NUM");
    EXPECT_EQ(attribute.setTag(L"LIN NUM"), Acad::eInvalidInput);
    EXPECT_EQ(attribute.setTag(L""), Acad::eInvalidInput);
    ACHAR* copy = attribute.tag();
    EXPECT_STREQ(copy, L"LIN_NUM");
    acutDelString(copy);
    EXPECT_EQ(copy, nullptr);
}

TEST_F(EntitiesTest, Entity_LayerAndColour) {
    AcDbObjectPointer<AcDbLine> line(ALine(), AcDb::kForWrite);
    ACHAR* name = line->layer();
    EXPECT_STREQ(name, L"0");
    acutDelString(name);
    EXPECT_EQ(line->layerId(), Drawing().layerZero());
    EXPECT_EQ(line->setLayer(L"MISSING"), Acad::eKeyNotFound);
    EXPECT_EQ(line->setLayer(Drawing().blockTableId()), Acad::eWrongObjectType);
    EXPECT_EQ(line->colorIndex(), 256);
    EXPECT_EQ(line->setColorIndex(257), Acad::eInvalidInput);
    EXPECT_EQ(line->setColorIndex(1), Acad::eOk);
    EXPECT_EQ(line->colorIndex(), 1);
}

TEST_F(EntitiesTest, Entity_OnALayerOfAnotherDrawing_IsNotAppended) {
    AcDbDatabase other(true, true);
    AcDbLine line;
    ASSERT_EQ(line.setLayer(other.layerZero()), Acad::eOk);
    AcDbObjectPointer<AcDbBlockTableRecord> space(ModelSpaceId(), AcDb::kForWrite);
    EXPECT_EQ(space->appendAcDbEntity(&line), Acad::eWrongDatabase);
}

TEST_F(EntitiesTest, Polyline_Vertices) {
    AcDbPolyline polyline;
    EXPECT_EQ(polyline.addVertexAt(0, {0, 0}), Acad::eOk);
    EXPECT_EQ(polyline.addVertexAt(1, {2, 0}, 0.5), Acad::eOk);
    EXPECT_EQ(polyline.addVertexAt(1, {1, 0}), Acad::eOk);
    EXPECT_EQ(polyline.addVertexAt(4, {9, 9}), Acad::eInvalidIndex);
    EXPECT_EQ(polyline.numVerts(), 3u);
    AcGePoint2d point;
    EXPECT_EQ(polyline.getPointAt(1, point), Acad::eOk);
    EXPECT_EQ(point, AcGePoint2d(1, 0));
    EXPECT_EQ(polyline.getPointAt(3, point), Acad::eInvalidIndex);
    double bulge = 0;
    EXPECT_EQ(polyline.getBulgeAt(2, bulge), Acad::eOk);
    EXPECT_EQ(bulge, 0.5);
    EXPECT_FALSE(polyline.isClosed());
    polyline.setClosed(true);
    EXPECT_TRUE(polyline.isClosed());
}

TEST_F(EntitiesTest, HeavyPolyline_OwnsItsVertices) {
    AcDbObjectPointer<AcDb2dPolyline> polyline(Append(new AcDb2dPolyline), AcDb::kForWrite);
    for (int i = 0; i < 3; ++i) {
        auto* vertex = new AcDb2dVertex;
        vertex->setPosition(AcGePoint3d(i, 0, 0));
        AcDbObjectId id;
        ASSERT_EQ(polyline->appendVertex(id, vertex), Acad::eOk);
        vertex->close();
    }
    const std::unique_ptr<AcDbObjectIterator> iterator(polyline->vertexIterator());
    iterator->start(false);
    AcDbObjectPointer<AcDb2dVertex> last(iterator->objectId());
    EXPECT_EQ(last->position().x, 2);
    EXPECT_EQ(IdsOfModelSpace().size(), 1u);
}

TEST_F(EntitiesTest, ImpossibleMeasures_AreRefused) {
    AcDbCircle circle({0, 0, 0}, {0, 0, 1}, 2);
    EXPECT_EQ(circle.setRadius(-1), Acad::eInvalidInput);
    EXPECT_EQ(circle.radius(), 2);
    AcDbText text;
    EXPECT_EQ(text.setHeight(0), Acad::eInvalidInput);
    AcDbBlockReference reference;
    EXPECT_EQ(reference.setScaleFactors(AcGeScale3d(0)), Acad::eInvalidInput);
    AcDbSolid solid;
    EXPECT_EQ(solid.setPointAt(4, {}), Acad::eInvalidIndex);
    AcDbMText paragraph;
    EXPECT_EQ(paragraph.setContents(nullptr), 0);
}

}  // namespace
}  // namespace workbench::test
