#include "dbents.h"
#include "object_access.h"

using namespace workbench::database;

struct AcDbObjectIterator::Data {
    StubWalk walk;
};

AcDbObjectIterator::AcDbObjectIterator(Data* data) : m_data(data) {}
AcDbObjectIterator::~AcDbObjectIterator() {
    delete m_data;
}
void AcDbObjectIterator::start(bool atBeginning) {
    m_data->walk.Start(atBeginning, true);
}
bool AcDbObjectIterator::done() const {
    return m_data->walk.Done();
}
void AcDbObjectIterator::step(bool backwards) {
    m_data->walk.Step(!backwards, true);
}
AcDbObjectId AcDbObjectIterator::objectId() const {
    return IdOf(m_data->walk.Current());
}

AcDbObjectIterator* AcDbObjectAccess::MakeIterator(const std::vector<AcDbStub*>& stubs) {
    auto* iterator = new AcDbObjectIterator(new AcDbObjectIterator::Data{StubWalk(stubs)});
    iterator->start();
    return iterator;
}

namespace {

// Puts a sub-entity at the end of its container's list, which then needs a closing SEQEND.
template <class Container>
Acad::ErrorStatus AppendPart(AcDbEntity& container, std::vector<AcDbStub*> Container::*parts,
                             AcDbEntity* part, AcDbObjectId& id) {
    id.setNull();
    if (container.database() == nullptr) {
        return Acad::eNotInDatabase;
    }
    Acad::ErrorStatus status = PrepareWrite(container);
    if (status == Acad::eOk) {
        status = EnterNew(container, part, id);
    }
    if (status != Acad::eOk) {
        return status;
    }
    auto& data = static_cast<Container&>(DataOf(container));
    (data.*parts).push_back(id.stub());
    if (data.sequenceEnd == nullptr) {
        auto* end = new AcDbProxyEntity;
        static_cast<ProxyEntityData&>(DataOf(*end)).dxfName = L"SEQEND";
        data.sequenceEnd = Enter(*container.database(), *end, 0, data.stub, false);
    }
    return Acad::eOk;
}

}  // namespace

WORKBENCH_DEFINE_OBJECT_CLASS(AcDbBlockReference, AcDbEntity, ACRX_T("INSERT"))
AcDbBlockReference::AcDbBlockReference() : AcDbEntity(new BlockReferenceData) {}
AcDbBlockReference::AcDbBlockReference(AcDbImpObject* data) : AcDbEntity(data) {}
AcDbBlockReference::AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId blockTableRecord)
    : AcDbBlockReference() {
    setPosition(position);
    setBlockTableRecord(blockTableRecord);
}

AcDbObjectId AcDbBlockReference::blockTableRecord() const {
    return IdOf(ReadData<BlockReferenceData>(*this).block);
}

Acad::ErrorStatus AcDbBlockReference::setBlockTableRecord(AcDbObjectId id) {
    if (id.isNull()) {
        return Acad::eNullObjectId;
    }
    if (DataAs<BlockRecordData>(id.stub()) == nullptr) {
        return Acad::eNotThatKindOfClass;
    }
    if (database() != nullptr && id.database() != database()) {
        return Acad::eWrongDatabase;
    }
    return WriteMember(*this, &BlockReferenceData::block, id.stub());
}

AcGePoint3d AcDbBlockReference::position() const {
    return ReadData<BlockReferenceData>(*this).position;
}
Acad::ErrorStatus AcDbBlockReference::setPosition(const AcGePoint3d& point) {
    return WriteMember(*this, &BlockReferenceData::position, point);
}
AcGeScale3d AcDbBlockReference::scaleFactors() const {
    return ReadData<BlockReferenceData>(*this).scale;
}
Acad::ErrorStatus AcDbBlockReference::setScaleFactors(const AcGeScale3d& scale) {
    const bool hasZero = scale.sx == 0 || scale.sy == 0 || scale.sz == 0;
    return hasZero ? Acad::eInvalidInput : WriteMember(*this, &BlockReferenceData::scale, scale);
}
double AcDbBlockReference::rotation() const {
    return ReadData<BlockReferenceData>(*this).rotation;
}
Acad::ErrorStatus AcDbBlockReference::setRotation(double angle) {
    return WriteMember(*this, &BlockReferenceData::rotation, angle);
}
AcGeVector3d AcDbBlockReference::normal() const {
    return ReadData<BlockReferenceData>(*this).normal;
}

Acad::ErrorStatus AcDbBlockReference::appendAttribute(AcDbObjectId& id, AcDbAttribute* attribute) {
    return AppendPart(*this, &BlockReferenceData::attributes, attribute, id);
}
Acad::ErrorStatus AcDbBlockReference::appendAttribute(AcDbAttribute* attribute) {
    AcDbObjectId id;
    return appendAttribute(id, attribute);
}
Acad::ErrorStatus AcDbBlockReference::openAttribute(AcDbAttribute*& attribute, AcDbObjectId id,
                                                    AcDb::OpenMode mode, bool openErased) const {
    return acdbOpenObject(attribute, id, mode, openErased);
}
AcDbObjectIterator* AcDbBlockReference::attributeIterator() const {
    return AcDbObjectAccess::MakeIterator(ReadData<BlockReferenceData>(*this).attributes);
}

WORKBENCH_DEFINE_OBJECT_CLASS(AcDbMInsertBlock, AcDbBlockReference, ACRX_T("MINSERT"))
AcDbMInsertBlock::AcDbMInsertBlock() : AcDbBlockReference(new MInsertData) {}
Adesk::UInt16 AcDbMInsertBlock::columns() const {
    return static_cast<Adesk::UInt16>(ReadData<MInsertData>(*this).columns);
}
Adesk::UInt16 AcDbMInsertBlock::rows() const {
    return static_cast<Adesk::UInt16>(ReadData<MInsertData>(*this).rows);
}
double AcDbMInsertBlock::columnSpacing() const {
    return ReadData<MInsertData>(*this).columnSpacing;
}
double AcDbMInsertBlock::rowSpacing() const {
    return ReadData<MInsertData>(*this).rowSpacing;
}

WORKBENCH_DEFINE_OBJECT_CLASS(AcDb2dPolyline, AcDbCurve, ACRX_T("POLYLINE"))
AcDb2dPolyline::AcDb2dPolyline() : AcDbCurve(new HeavyPolylineData) {}
bool AcDb2dPolyline::isClosed() const {
    return (ReadData<HeavyPolylineData>(*this).flags & 1) != 0;
}
Acad::ErrorStatus AcDb2dPolyline::appendVertex(AcDbObjectId& id, AcDb2dVertex* vertex) {
    return AppendPart(*this, &HeavyPolylineData::vertices, vertex, id);
}
AcDbObjectIterator* AcDb2dPolyline::vertexIterator() const {
    return AcDbObjectAccess::MakeIterator(ReadData<HeavyPolylineData>(*this).vertices);
}

WORKBENCH_DEFINE_OBJECT_CLASS(AcDb2dVertex, AcDbEntity, ACRX_T("VERTEX"))
AcDb2dVertex::AcDb2dVertex() : AcDbEntity(new VertexData) {}
AcGePoint3d AcDb2dVertex::position() const {
    return ReadData<VertexData>(*this).position;
}
Acad::ErrorStatus AcDb2dVertex::setPosition(const AcGePoint3d& p) {
    return WriteMember(*this, &VertexData::position, p);
}
double AcDb2dVertex::bulge() const {
    return ReadData<VertexData>(*this).bulge;
}
Acad::ErrorStatus AcDb2dVertex::setBulge(double bulge) {
    return WriteMember(*this, &VertexData::bulge, bulge);
}
