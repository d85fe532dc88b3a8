#include <algorithm>
#include <cstdlib>

#include "dbsymtb.h"
#include "object_access.h"
#include "result_lists.h"

using namespace workbench::database;

namespace {

constexpr std::int16_t kFrozenFlag = 1;
constexpr std::int16_t kLockedFlag = 4;
constexpr std::int16_t kAnonymousFlag = 1;
constexpr std::int16_t kAttributesFlag = 2;
constexpr std::int16_t kExternalFlag = 4;
constexpr Adesk::Int16 kGreatestColor = 255;

Acad::ErrorStatus SetFlag(AcDbObject& object, std::int16_t flag, bool value) {
    const std::int16_t others = ReadData<RecordData>(object).flags & ~flag;
    return WriteMember(object, &RecordData::flags, others | (value ? flag : 0));
}

bool HasFlag(const AcDbObject& object, std::int16_t flag) {
    return (ReadData<RecordData>(object).flags & flag) != 0;
}

template <std::size_t Bytes>
void AskForMemory(const void* start) {
    constexpr std::size_t kCacheLine = 64;
    for (std::size_t at = 0; at < Bytes; at += kCacheLine)
        __builtin_prefetch(static_cast<const char*>(start) + at);
}

template <class Data>
void AskForObject(const AcDbStub& stub) {
    __builtin_prefetch(stub.object);
    AskForMemory<sizeof(Data)>(stub.data);
}

// The first attribute of the block reference that comes so many places later; null if there is none.
const AcDbStub* FirstAttributeAhead(const StubWalk& walk, std::ptrdiff_t steps) {
    const AcDbStub* stub = walk.Ahead(steps);
    if (stub == nullptr || stub->type != AcDbBlockReference::desc()) {
        return nullptr;
    }
    const auto& attributes = static_cast<const BlockReferenceData*>(stub->data)->attributes;
    return attributes.empty() ? nullptr : attributes.front();
}

// In a large drawing, the objects of a space are not in the processor's cache when a walk comes to them: each
// would be waited for. So entities are asked for some steps ahead, and of block references, which are looked
// into most of all, their first attributes too. It changes nothing but the time.
void ReadAhead(const StubWalk& walk) {
    constexpr std::ptrdiff_t kReference = 24, kAttributes = 16, kAttribute = 12, kTexts = 4;
    const AcDbStub* stub = walk.Ahead(kReference);
    if (stub != nullptr && stub->type == AcDbBlockReference::desc()) {
        AskForObject<BlockReferenceData>(*stub);
    } else if (stub != nullptr) {
        AskForObject<AcDbStub*>(*stub);  // as far as its place, to close it again
    }
    stub = walk.Ahead(kAttributes);
    if (stub != nullptr && stub->type == AcDbBlockReference::desc()) {
        __builtin_prefetch(static_cast<const BlockReferenceData*>(stub->data)->attributes.data());
    }
    if ((stub = FirstAttributeAhead(walk, kAttribute)) != nullptr) {
        AskForObject<AttributeData>(*stub);
    }
    if ((stub = FirstAttributeAhead(walk, kTexts)) != nullptr) {
        const auto& attribute = static_cast<const AttributeData&>(*stub->data);
        __builtin_prefetch(attribute.tag.data());
        __builtin_prefetch(attribute.text.data());
    }
}

}  // namespace

WORKBENCH_DEFINE_OBJECT_CLASS(AcDbLayerTableRecord, AcDbSymbolTableRecord, ACRX_T("LAYER"))
AcDbLayerTableRecord::AcDbLayerTableRecord() : AcDbSymbolTableRecord(new LayerData) {}
Adesk::Int16 AcDbLayerTableRecord::colorIndex() const {
    return static_cast<Adesk::Int16>(std::abs(ReadData<LayerData>(*this).color));
}
Acad::ErrorStatus AcDbLayerTableRecord::setColorIndex(Adesk::Int16 color) {
    if (color < 1 || color > kGreatestColor) {
        return Acad::eInvalidInput;
    }
    return WriteMember(*this, &LayerData::color, isOff() ? -color : color);
}
AcDbObjectId AcDbLayerTableRecord::linetypeObjectId() const {
    const AcDbStub* linetype = ReadData<LayerData>(*this).linetype;
    return linetype != nullptr || database() == nullptr ? IdOf(linetype) : database()->continuousLinetype();
}
Acad::ErrorStatus AcDbLayerTableRecord::setLinetypeObjectId(AcDbObjectId id) {
    return DataAs<LinetypeData>(id.stub()) == nullptr ? Acad::eWrongObjectType
                                                      : WriteMember(*this, &LayerData::linetype, id.stub());
}
bool AcDbLayerTableRecord::isOff() const {
    return ReadData<LayerData>(*this).color < 0;
}
Acad::ErrorStatus AcDbLayerTableRecord::setIsOff(bool off) {
    return WriteMember(*this, &LayerData::color, off ? -colorIndex() : colorIndex());
}
bool AcDbLayerTableRecord::isFrozen() const {
    return HasFlag(*this, kFrozenFlag);
}
Acad::ErrorStatus AcDbLayerTableRecord::setIsFrozen(bool frozen) {
    return SetFlag(*this, kFrozenFlag, frozen);
}
bool AcDbLayerTableRecord::isLocked() const {
    return HasFlag(*this, kLockedFlag);
}
Acad::ErrorStatus AcDbLayerTableRecord::setIsLocked(bool locked) {
    return SetFlag(*this, kLockedFlag, locked);
}
bool AcDbLayerTableRecord::isPlottable() const {
    return ReadData<LayerData>(*this).plottable;
}
Acad::ErrorStatus AcDbLayerTableRecord::setIsPlottable(bool plottable) {
    return WriteMember(*this, &LayerData::plottable, plottable);
}

WORKBENCH_DEFINE_OBJECT_CLASS(AcDbLinetypeTableRecord, AcDbSymbolTableRecord, ACRX_T("LTYPE"))
AcDbLinetypeTableRecord::AcDbLinetypeTableRecord() : AcDbSymbolTableRecord(new LinetypeData) {}
ACHAR* AcDbLinetypeTableRecord::comments() const {
    return NewText(ReadData<LinetypeData>(*this).description);
}
Acad::ErrorStatus AcDbLinetypeTableRecord::setComments(const ACHAR* text) {
    return text == nullptr ? Acad::eInvalidInput
                           : WriteMember(*this, &LinetypeData::description, std::wstring(text));
}
double AcDbLinetypeTableRecord::patternLength() const {
    return ReadData<LinetypeData>(*this).patternLength;
}
int AcDbLinetypeTableRecord::numDashes() const {
    return static_cast<int>(ReadData<LinetypeData>(*this).dashes.size());
}
Acad::ErrorStatus AcDbLinetypeTableRecord::setNumDashes(int count) {
    constexpr int kMostDashes = 12;
    if (count < 0 || count > kMostDashes) {
        return Acad::eInvalidInput;
    }
    return WriteMember(*this, &LinetypeData::dashes, std::vector<double>(static_cast<std::size_t>(count)));
}
double AcDbLinetypeTableRecord::dashLengthAt(int index) const {
    return index < 0 || index >= numDashes()
               ? 0.0
               : ReadData<LinetypeData>(*this).dashes[static_cast<std::size_t>(index)];
}
Acad::ErrorStatus AcDbLinetypeTableRecord::setDashLengthAt(int index, double length) {
    if (index < 0 || index >= numDashes()) {
        return Acad::eInvalidIndex;
    }
    const Acad::ErrorStatus status = PrepareWrite(*this);
    if (status == Acad::eOk) {
        auto& data = static_cast<LinetypeData&>(DataOf(*this));
        data.dashes[static_cast<std::size_t>(index)] = length;
        data.patternLength = 0;
        for (const double dash : data.dashes) {
            data.patternLength += std::abs(dash);
        }
    }
    return status;
}

WORKBENCH_DEFINE_OBJECT_CLASS(AcDbTextStyleTableRecord, AcDbSymbolTableRecord, ACRX_T("STYLE"))
AcDbTextStyleTableRecord::AcDbTextStyleTableRecord() : AcDbSymbolTableRecord(new TextStyleData) {}
double AcDbTextStyleTableRecord::textSize() const {
    return ReadData<TextStyleData>(*this).height;
}
Acad::ErrorStatus AcDbTextStyleTableRecord::setTextSize(double size) {
    return size >= 0 ? WriteMember(*this, &TextStyleData::height, size) : Acad::eInvalidInput;
}
double AcDbTextStyleTableRecord::xScale() const {
    return ReadData<TextStyleData>(*this).widthFactor;
}
Acad::ErrorStatus AcDbTextStyleTableRecord::setXScale(double scale) {
    return scale > 0 ? WriteMember(*this, &TextStyleData::widthFactor, scale) : Acad::eInvalidInput;
}
double AcDbTextStyleTableRecord::obliquingAngle() const {
    return ReadData<TextStyleData>(*this).oblique;
}
Acad::ErrorStatus AcDbTextStyleTableRecord::setObliquingAngle(double radians) {
    return WriteMember(*this, &TextStyleData::oblique, radians);
}
Acad::ErrorStatus AcDbTextStyleTableRecord::fileName(const ACHAR*& name) const {
    name = ReadData<TextStyleData>(*this).font.c_str();
    return Acad::eOk;
}
Acad::ErrorStatus AcDbTextStyleTableRecord::setFileName(const ACHAR* name) {
    return name == nullptr ? Acad::eInvalidInput
                           : WriteMember(*this, &TextStyleData::font, std::wstring(name));
}

WORKBENCH_DEFINE_OBJECT_CLASS(AcDbRegAppTableRecord, AcDbSymbolTableRecord, ACRX_T("APPID"))
AcDbRegAppTableRecord::AcDbRegAppTableRecord() : AcDbSymbolTableRecord(new RegAppData) {}
WORKBENCH_DEFINE_OBJECT_CLASS(AcDbDimStyleTableRecord, AcDbSymbolTableRecord, ACRX_T("DIMSTYLE"))
AcDbDimStyleTableRecord::AcDbDimStyleTableRecord() : AcDbSymbolTableRecord(new DimStyleData) {}
WORKBENCH_DEFINE_OBJECT_CLASS(AcDbViewTableRecord, AcDbSymbolTableRecord, ACRX_T("VIEW"))
AcDbViewTableRecord::AcDbViewTableRecord() : AcDbSymbolTableRecord(new ViewData) {}
WORKBENCH_DEFINE_OBJECT_CLASS(AcDbUCSTableRecord, AcDbSymbolTableRecord, ACRX_T("UCS"))
AcDbUCSTableRecord::AcDbUCSTableRecord() : AcDbSymbolTableRecord(new UcsData) {}

WORKBENCH_DEFINE_OBJECT_CLASS(AcDbViewportTableRecord, AcDbSymbolTableRecord, ACRX_T("VPORT"))
AcDbViewportTableRecord::AcDbViewportTableRecord() : AcDbSymbolTableRecord(new ViewportData) {}
bool AcDbViewportTableRecord::isometricSnapEnabled() const {
    return ReadData<ViewportData>(*this).snapStyle != 0;
}
Acad::ErrorStatus AcDbViewportTableRecord::setIsometricSnapEnabled(bool enabled) {
    return WriteMember(*this, &ViewportData::snapStyle, enabled ? 1 : 0);
}
Adesk::Int16 AcDbViewportTableRecord::snapPair() const {
    return ReadData<ViewportData>(*this).snapPair;
}
Acad::ErrorStatus AcDbViewportTableRecord::setSnapPair(Adesk::Int16 pair) {
    return pair < 0 || pair > 2 ? Acad::eInvalidInput : WriteMember(*this, &ViewportData::snapPair, pair);
}

struct AcDbBlockTableRecordIterator::Data {
    StubWalk walk;
};

AcDbBlockTableRecordIterator::AcDbBlockTableRecordIterator(Data* data) : m_data(data) {}
AcDbBlockTableRecordIterator::~AcDbBlockTableRecordIterator() {
    delete m_data;
}
void AcDbBlockTableRecordIterator::start(bool atBeginning, bool skipDeleted) {
    m_data->walk.Start(atBeginning, skipDeleted);
}
bool AcDbBlockTableRecordIterator::done() const {
    return m_data->walk.Done();
}
void AcDbBlockTableRecordIterator::step(bool forward, bool skipDeleted) {
    if (forward) {
        ReadAhead(m_data->walk);
    }
    m_data->walk.Step(forward, skipDeleted);
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::getEntityId(AcDbObjectId& id) const {
    id = IdOf(m_data->walk.Current());
    return id.isNull() ? Acad::eInvalidIndex : Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::getEntity(AcDbEntity*& entity, AcDb::OpenMode mode,
                                                          bool openErased) const {
    entity = nullptr;
    return done() ? Acad::eInvalidIndex
                  : acdbOpenObject(entity, IdOf(m_data->walk.Current()), mode, openErased);
}

WORKBENCH_DEFINE_OBJECT_CLASS(AcDbBlockTableRecord, AcDbSymbolTableRecord, ACRX_T("BLOCK_RECORD"))
AcDbBlockTableRecord::AcDbBlockTableRecord() : AcDbSymbolTableRecord(new BlockRecordData) {}

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity) {
    id.setNull();
    if (database() == nullptr) {
        return Acad::eNotInDatabase;
    }
    if (entity == nullptr) {
        return Acad::eNullEntityPointer;
    }
    const auto& data = static_cast<EntityData&>(DataOf(*entity));
    for (const AcDbStub* reference : {data.layer, data.linetype}) {
        if (reference != nullptr && reference->database != database()) {
            return Acad::eWrongDatabase;
        }
    }
    Acad::ErrorStatus status = PrepareWrite(*this);
    if (status == Acad::eOk) {
        status = EnterNew(*this, entity, id);
    }
    if (status == Acad::eOk) {
        auto& block = static_cast<BlockRecordData&>(DataOf(*this));
        block.entities.push_back(id.stub());
        if (entity->isKindOf(AcDbAttributeDefinition::desc())) {
            block.flags |= kAttributesFlag;
        }
    }
    return status;
}

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbEntity* entity) {
    AcDbObjectId id;
    return appendAcDbEntity(id, entity);
}

Acad::ErrorStatus AcDbBlockTableRecord::newIterator(AcDbBlockTableRecordIterator*& iterator, bool atBeginning,
                                                    bool skipDeleted) const {
    iterator = nullptr;
    if (!isReadEnabled()) {
        return Acad::eNotOpenForRead;
    }
    const auto& entities = ReadData<BlockRecordData>(*this).entities;
    iterator = new AcDbBlockTableRecordIterator(new AcDbBlockTableRecordIterator::Data{StubWalk(entities)});
    iterator->start(atBeginning, skipDeleted);
    return Acad::eOk;
}

AcGePoint3d AcDbBlockTableRecord::origin() const {
    return ReadData<BlockRecordData>(*this).origin;
}
Acad::ErrorStatus AcDbBlockTableRecord::setOrigin(const AcGePoint3d& point) {
    return WriteMember(*this, &BlockRecordData::origin, point);
}
bool AcDbBlockTableRecord::hasAttributeDefinitions() const {
    return HasFlag(*this, kAttributesFlag);
}
bool AcDbBlockTableRecord::isAnonymous() const {
    return HasFlag(*this, kAnonymousFlag);
}
bool AcDbBlockTableRecord::isFromExternalReference() const {
    return HasFlag(*this, kExternalFlag);
}
AcDbObjectId AcDbBlockTableRecord::getLayoutId() const {
    return IdOf(ReadData<BlockRecordData>(*this).layout);
}

bool AcDbBlockTableRecord::isLayout() const {
    const std::wstring name = UpperCase(ReadData<BlockRecordData>(*this).name);
    return name.starts_with(UpperCase(ACDB_MODEL_SPACE)) || name.starts_with(UpperCase(ACDB_PAPER_SPACE));
}
