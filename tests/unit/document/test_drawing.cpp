#include "test_drawing.h"

#include <gtest/gtest.h>

#include "dbobjptr.h"

AcDbObjectId TestDrawing::AddBlock(const std::wstring& name) {
    AcDbObjectPointer<AcDbBlockTable> table(m_database.blockTableId(), AcDb::kForWrite);
    EXPECT_EQ(table.openStatus(), Acad::eOk);
    AcDbObjectPointer<AcDbBlockTableRecord> record;
    record.create();
    EXPECT_EQ(record->setName(name.c_str()), Acad::eOk);
    AcDbObjectId id;
    EXPECT_EQ(table->add(id, record), Acad::eOk);
    return id;
}

AcDbObjectId TestDrawing::BlockRecord(const std::wstring& name) {
    {
        AcDbObjectPointer<AcDbBlockTable> table(m_database.blockTableId(), AcDb::kForRead);
        AcDbObjectId id;
        if (table->getAt(name.c_str(), id) == Acad::eOk) return id;
    }
    return AddBlock(name);
}

AcDbObjectId TestDrawing::Append(AcDbObjectId owner, AcDbEntity* entity) {
    AcDbObjectPointer<AcDbBlockTableRecord> block(owner, AcDb::kForWrite);
    EXPECT_EQ(block.openStatus(), Acad::eOk);
    AcDbObjectId id;
    EXPECT_EQ(block->appendAcDbEntity(id, entity), Acad::eOk);
    return id;
}

AcDbObjectId TestDrawing::AddReferenceIn(AcDbObjectId owner, const std::wstring& blockName,
                                         const Attributes& attributes) {
    AcDbObjectPointer<AcDbBlockReference> reference;
    reference.create();
    EXPECT_EQ(reference->setBlockTableRecord(BlockRecord(blockName)), Acad::eOk);
    const AcDbObjectId id = Append(owner, reference);
    for (const auto& [tag, text] : attributes) {
        AcDbObjectPointer<AcDbAttribute> attribute;
        attribute.create();
        EXPECT_EQ(attribute->setTag(tag.c_str()), Acad::eOk);
        EXPECT_EQ(attribute->setTextString(text.c_str()), Acad::eOk);
        EXPECT_EQ(reference->appendAttribute(attribute), Acad::eOk);
    }
    return id;
}

AcDbObjectId TestDrawing::AddReference(const std::wstring& blockName, const Attributes& attributes) {
    return AddReferenceIn(ModelSpace(), blockName, attributes);
}

AcDbObjectId TestDrawing::AddLine() {
    AcDbObjectPointer<AcDbLine> line;
    line.create();
    return Append(ModelSpace(), line);
}

void TestDrawing::Erase(AcDbObjectId id) {
    AcDbObjectPointer<AcDbObject> object(id, AcDb::kForWrite);
    ASSERT_EQ(object.openStatus(), Acad::eOk);
    EXPECT_EQ(object->erase(), Acad::eOk);
}
