#include "dbents.h"
#include "object_access.h"
#include "result_lists.h"

namespace workbench::database {
namespace {

constexpr std::int16_t kGreatestColor = 256;

// Sets a reference of an entity to a record of its own database.
Acad::ErrorStatus SetReference(AcDbEntity& entity, AcDbStub* EntityData::*member, AcDbObjectId id,
                               const AcRxClass* type) {
    if (id.isNull()) {
        return Acad::eNullObjectId;
    }
    if (id.objectClass() == nullptr || !id.objectClass()->isDerivedFrom(type)) {
        return Acad::eWrongObjectType;
    }
    if (entity.database() != nullptr && id.database() != entity.database()) {
        return Acad::eWrongDatabase;
    }
    return WriteMember(entity, member, id.stub());
}

ACHAR* NameOf(const AcDbStub* record, const wchar_t* without) {
    const auto* data = DataAs<RecordData>(record);
    return NewText(data == nullptr ? without : data->name);
}

}  // namespace
}  // namespace workbench::database

using namespace workbench::database;

WORKBENCH_DEFINE_CLASS(AcDbEntity, AcDbObject)

AcDbEntity::AcDbEntity(AcDbImpObject* data) : AcDbObject(data) {}

AcDbObjectId AcDbEntity::blockId() const {
    const AcDbStub* owner = ReadData<EntityData>(*this).owner;
    if (owner != nullptr && owner->object != nullptr && owner->object->isKindOf(AcDbEntity::desc())) {
        owner = DataOf(*owner).owner;
    }
    return IdOf(owner);
}

Adesk::UInt16 AcDbEntity::colorIndex() const {
    return static_cast<Adesk::UInt16>(ReadData<EntityData>(*this).color);
}

Acad::ErrorStatus AcDbEntity::setColorIndex(Adesk::UInt16 color, bool) {
    return color > kGreatestColor ? Acad::eInvalidInput : WriteMember(*this, &EntityData::color, color);
}

AcDbObjectId AcDbEntity::layerId() const {
    const AcDbStub* layer = ReadData<EntityData>(*this).layer;
    return layer != nullptr || database() == nullptr ? IdOf(layer) : database()->layerZero();
}

ACHAR* AcDbEntity::layer() const {
    return NameOf(ReadData<EntityData>(*this).layer, L"0");
}

Acad::ErrorStatus AcDbEntity::setLayer(const ACHAR* name, bool doSubents) {
    const AcDbStub* layer = FindNamed(*this, &AcDbImpDatabase::layerTable, name);
    return layer == nullptr ? Acad::eKeyNotFound : setLayer(IdOf(layer), doSubents);
}

Acad::ErrorStatus AcDbEntity::setLayer(AcDbObjectId id, bool) {
    return SetReference(*this, &EntityData::layer, id, AcDbLayerTableRecord::desc());
}

AcDbObjectId AcDbEntity::linetypeId() const {
    const AcDbStub* linetype = ReadData<EntityData>(*this).linetype;
    return linetype != nullptr || database() == nullptr ? IdOf(linetype) : database()->byLayerLinetype();
}

ACHAR* AcDbEntity::linetype() const {
    return NameOf(ReadData<EntityData>(*this).linetype, L"ByLayer");
}

Acad::ErrorStatus AcDbEntity::setLinetype(const ACHAR* name, bool doSubents) {
    const AcDbStub* linetype = FindNamed(*this, &AcDbImpDatabase::linetypeTable, name);
    return linetype == nullptr ? Acad::eKeyNotFound : setLinetype(IdOf(linetype), doSubents);
}

Acad::ErrorStatus AcDbEntity::setLinetype(AcDbObjectId id, bool) {
    return SetReference(*this, &EntityData::linetype, id, AcDbLinetypeTableRecord::desc());
}

double AcDbEntity::linetypeScale() const {
    return ReadData<EntityData>(*this).linetypeScale;
}

Acad::ErrorStatus AcDbEntity::setLinetypeScale(double scale, bool) {
    return scale > 0 ? WriteMember(*this, &EntityData::linetypeScale, scale) : Acad::eInvalidInput;
}

AcDb::Visibility AcDbEntity::visibility() const {
    return ReadData<EntityData>(*this).invisible ? AcDb::kInvisible : AcDb::kVisible;
}

Acad::ErrorStatus AcDbEntity::setVisibility(AcDb::Visibility visible, bool) {
    return WriteMember(*this, &EntityData::invisible, visible == AcDb::kInvisible);
}

Acad::ErrorStatus AcDbEntity::setPropertiesFrom(const AcDbEntity* other, bool) {
    if (other == nullptr) {
        return Acad::eNullObjectPointer;
    }
    const auto& from = ReadData<EntityData>(*other);
    const Acad::ErrorStatus status = PrepareWrite(*this);
    if (status != Acad::eOk) {
        return status;
    }
    auto& to = static_cast<EntityData&>(DataOf(*this));
    to.layer = from.layer;
    to.linetype = from.linetype;
    to.color = from.color;
    to.lineweight = from.lineweight;
    to.linetypeScale = from.linetypeScale;
    to.invisible = from.invisible;
    return Acad::eOk;
}

WORKBENCH_DEFINE_OBJECT_CLASS(AcDbProxyEntity, AcDbEntity, ACRX_T("ACAD_PROXY_ENTITY"))
AcDbProxyEntity::AcDbProxyEntity() : AcDbEntity(new ProxyEntityData) {}
const ACHAR* AcDbProxyEntity::originalDxfName() const {
    return ReadData<ProxyEntityData>(*this).dxfName.c_str();
}

WORKBENCH_DEFINE_OBJECT_CLASS(AcDbProxyObject, AcDbObject, ACRX_T("ACAD_PROXY_OBJECT"))
AcDbProxyObject::AcDbProxyObject() : AcDbObject(new ProxyObjectData) {}
const ACHAR* AcDbProxyObject::originalDxfName() const {
    return ReadData<ProxyObjectData>(*this).dxfName.c_str();
}
