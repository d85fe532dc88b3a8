#include <algorithm>

#include "acdbads.h"
#include "acdocman.h"
#include "builder.h"
#include "dbapserv.h"
#include "installed.h"
#include "object_access.h"

namespace workbench::database {

AcDbImpDatabase& DataOf(const AcDbDatabase& database) {
    return AcDbDatabaseAccess::Data(database);
}

void DropObjects(AcDbImpDatabase& data) {
    for (AcDbStub& stub : data.stubs) {
        if (stub.object != nullptr) {
            DataOf(stub).stub = nullptr;
            delete stub.object;
            stub.object = nullptr;
            stub.data = nullptr;
            stub.type = nullptr;
        }
    }
}

long OpenObjects(const AcDbDatabase& database) {
    const auto& stubs = DataOf(database).stubs;
    return std::count_if(stubs.begin(), stubs.end(),
                         [](const AcDbStub& stub) { return stub.writer || stub.readers > 0; });
}

AcDbStub* Enter(AcDbDatabase& database, AcDbObject& object, std::uint64_t handle, AcDbStub* owner,
                bool open) {
    AcDbImpDatabase& data = DataOf(database);
    AcDbStub* stub = nullptr;
    const auto known = data.byHandle.find(handle);
    if (known != data.byHandle.end() && known->second->object == nullptr && handle <= kGreatestHandle) {
        stub = known->second;
    } else {
        const bool isFree = handle != 0 && handle <= kGreatestHandle && known == data.byHandle.end();
        while (!isFree && (data.nextHandle == 0 || data.byHandle.contains(data.nextHandle))) {
            ++data.nextHandle;
        }
        stub = &data.stubs.Add();
        stub->database = &database;
        stub->handle = isFree ? handle : data.nextHandle;
        data.byHandle.emplace(stub->handle, stub);
    }
    data.nextHandle = std::max(data.nextHandle, stub->handle + 1);
    stub->object = &object;
    stub->data = &DataOf(object);
    stub->type = object.isA();
    stub->writer = open;
    stub->isNew = open;
    DataOf(object).stub = stub;
    DataOf(object).owner = owner;
    return stub;
}

Acad::ErrorStatus EnterNew(const AcDbObject& container, AcDbObject* object, AcDbObjectId& id) {
    id.setNull();
    if (object == nullptr) {
        return Acad::eNullObjectPointer;
    }
    if (DataOf(*object).stub != nullptr) {
        return Acad::eAlreadyInDb;
    }
    if (container.database() == nullptr) {
        return Acad::eNotInDatabase;
    }
    id = IdOf(Enter(*container.database(), *object, 0, DataOf(container).stub, true));
    PrepareWrite(*object);
    return Acad::eOk;
}

}  // namespace workbench::database

using namespace workbench::database;

AcDbStub* AcDbImpDatabase::FindRecord(const AcDbStub* table, std::wstring_view name) const {
    const auto* data = DataAs<TableData>(table);
    if (data == nullptr) {
        return nullptr;
    }
    const auto found = data->byName.find(UpperCase(name));
    return found == data->byName.end() || found->second->erased ? nullptr : found->second;
}

HeaderVariable* AcDbImpDatabase::FindHeader(std::wstring_view name) {
    const auto found =
        std::find_if(header.begin(), header.end(), [name](const auto& v) { return v.name == name; });
    return found == header.end() ? nullptr : &*found;
}

BlockRecordData* AcDbImpDatabase::ModelSpace() const {
    return DataAs<BlockRecordData>(FindRecord(blockTable, ACDB_MODEL_SPACE));
}

WORKBENCH_DEFINE_CLASS(AcDbDatabase, AcRxObject)

AcDbDatabase::AcDbDatabase(bool buildDefaultDrawing, bool noDocument) : mpImpDb(new AcDbImpDatabase) {
    mpImpDb->noDocument = noDocument;
    if (buildDefaultDrawing) {
        BuildDefaultDrawing(*this);
    }
}

AcDbDatabase::~AcDbDatabase() {
    if (acdbHostApplicationServices()->workingDatabase() == this) {
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    }
    DropObjects(*mpImpDb);
    delete mpImpDb;
}

Acad::ErrorStatus AcDbDatabase::readDwgFile(const ACHAR* fileName, OpenMode, bool, const wchar_t*) {
    if (fileName == nullptr || *fileName == 0 || !mpImpDb->stubs.empty()) {
        return Acad::eInvalidInput;
    }
    if (InstalledDrawingFiles() == nullptr) {
        return Acad::eNotImplementedYet;
    }
    std::wstring error;
    const Acad::ErrorStatus status = InstalledDrawingFiles()->Read(fileName, *this, error);
    if (status == Acad::eOk) {
        mpImpDb->path = fileName;
    }
    return status;
}

Acad::ErrorStatus AcDbDatabase::saveAs(const ACHAR* fileName) {
    if (fileName == nullptr || *fileName == 0) {
        return Acad::eInvalidInput;
    }
    if (InstalledDrawingFiles() == nullptr) {
        return Acad::eNotImplementedYet;
    }
    std::wstring error;
    return InstalledDrawingFiles()->Write(fileName, *this, error);
}

Acad::ErrorStatus AcDbDatabase::getFilename(const ACHAR*& fileName) const {
    fileName = mpImpDb->path.c_str();
    return mpImpDb->path.empty() ? Acad::eInvalidInput : Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::getAcDbObjectId(AcDbObjectId& id, bool, const AcDbHandle& handle,
                                                Adesk::UInt32) {
    id.setNull();
    if (handle.isNull()) {
        return Acad::eNullHandle;
    }
    const auto found = mpImpDb->byHandle.find(handle.value());
    if (found == mpImpDb->byHandle.end() || found->second->object == nullptr) {
        return Acad::eUnknownHandle;
    }
    id = IdOf(found->second);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDatabase::addAcDbObject(AcDbObjectId& id, AcDbObject* object) {
    id.setNull();
    if (object == nullptr) {
        return Acad::eNullObjectPointer;
    }
    if (!object->objectId().isNull()) {
        return Acad::eAlreadyInDb;
    }
    if (!MayWrite(*this)) {
        return Acad::eLockViolation;
    }
    id = IdOf(Enter(*this, *object, 0, nullptr, true));
    return PrepareWrite(*object);
}

Acad::ErrorStatus AcDbDatabase::addAcDbObject(AcDbObject* object) {
    AcDbObjectId id;
    return addAcDbObject(id, object);
}

Acad::ErrorStatus AcDbDatabase::getBlockTable(AcDbBlockTable*& table, AcDb::OpenMode mode) {
    return acdbOpenObject(table, blockTableId(), mode);
}
Acad::ErrorStatus AcDbDatabase::getLayerTable(AcDbLayerTable*& table, AcDb::OpenMode mode) {
    return acdbOpenObject(table, layerTableId(), mode);
}
Acad::ErrorStatus AcDbDatabase::getLinetypeTable(AcDbLinetypeTable*& table, AcDb::OpenMode mode) {
    return acdbOpenObject(table, linetypeTableId(), mode);
}
Acad::ErrorStatus AcDbDatabase::getTextStyleTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode) {
    return acdbOpenObject(table, textStyleTableId(), mode);
}
Acad::ErrorStatus AcDbDatabase::getRegAppTable(AcDbRegAppTable*& table, AcDb::OpenMode mode) {
    return acdbOpenObject(table, regAppTableId(), mode);
}
Acad::ErrorStatus AcDbDatabase::getDimStyleTable(AcDbDimStyleTable*& table, AcDb::OpenMode mode) {
    return acdbOpenObject(table, dimStyleTableId(), mode);
}
Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbBlockTable*& table, AcDb::OpenMode mode) {
    return getBlockTable(table, mode);
}
Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbLayerTable*& table, AcDb::OpenMode mode) {
    return getLayerTable(table, mode);
}
Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbRegAppTable*& table, AcDb::OpenMode mode) {
    return getRegAppTable(table, mode);
}
Acad::ErrorStatus AcDbDatabase::getNamedObjectsDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode) {
    return acdbOpenObject(dictionary, namedObjectsDictionaryId(), mode);
}

AcDbObjectId AcDbDatabase::blockTableId() const {
    return IdOf(mpImpDb->blockTable);
}
AcDbObjectId AcDbDatabase::layerTableId() const {
    return IdOf(mpImpDb->layerTable);
}
AcDbObjectId AcDbDatabase::linetypeTableId() const {
    return IdOf(mpImpDb->linetypeTable);
}
AcDbObjectId AcDbDatabase::textStyleTableId() const {
    return IdOf(mpImpDb->textStyleTable);
}
AcDbObjectId AcDbDatabase::regAppTableId() const {
    return IdOf(mpImpDb->regAppTable);
}
AcDbObjectId AcDbDatabase::dimStyleTableId() const {
    return IdOf(mpImpDb->dimStyleTable);
}
AcDbObjectId AcDbDatabase::viewTableId() const {
    return IdOf(mpImpDb->viewTable);
}
AcDbObjectId AcDbDatabase::viewportTableId() const {
    return IdOf(mpImpDb->viewportTable);
}
AcDbObjectId AcDbDatabase::UCSTableId() const {
    return IdOf(mpImpDb->ucsTable);
}
AcDbObjectId AcDbDatabase::namedObjectsDictionaryId() const {
    return IdOf(mpImpDb->namedObjects);
}

AcDbObjectId AcDbDatabase::currentSpaceId() const {
    return IdOf(mpImpDb->FindRecord(mpImpDb->blockTable, ACDB_MODEL_SPACE));
}
AcDbObjectId AcDbDatabase::layerZero() const {
    return IdOf(mpImpDb->FindRecord(mpImpDb->layerTable, L"0"));
}
AcDbObjectId AcDbDatabase::byLayerLinetype() const {
    return IdOf(mpImpDb->FindRecord(mpImpDb->linetypeTable, L"ByLayer"));
}
AcDbObjectId AcDbDatabase::byBlockLinetype() const {
    return IdOf(mpImpDb->FindRecord(mpImpDb->linetypeTable, L"ByBlock"));
}
AcDbObjectId AcDbDatabase::continuousLinetype() const {
    return IdOf(mpImpDb->FindRecord(mpImpDb->linetypeTable, L"Continuous"));
}

AcDbObjectId AcDbDatabase::clayer() const {
    return mpImpDb->currentLayer == nullptr ? layerZero() : IdOf(mpImpDb->currentLayer);
}

Acad::ErrorStatus AcDbDatabase::setClayer(AcDbObjectId id) {
    if (id.isNull()) {
        return Acad::eNullObjectId;
    }
    if (id.database() != this) {
        return Acad::eWrongDatabase;
    }
    if (DataAs<LayerData>(id.stub()) == nullptr || id.isErased()) {
        return Acad::eWrongObjectType;
    }
    mpImpDb->currentLayer = id.stub();
    mpImpDb->modified = true;
    return Acad::eOk;
}

AcDbHandle AcDbDatabase::handseed() const {
    return AcDbHandle(mpImpDb->nextHandle);
}

Adesk::Int32 AcDbDatabase::approxNumObjects() const {
    return static_cast<Adesk::Int32>(
        std::count_if(mpImpDb->stubs.begin(), mpImpDb->stubs.end(),
                      [](const AcDbStub& stub) { return stub.object != nullptr && !stub.erased; }));
}

int acdbRegApp(const ACHAR* applicationName) {
    AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
    if (applicationName == nullptr || database == nullptr) {
        return RTERROR;
    }
    AcDbRegAppTable* table = nullptr;
    if (database->getRegAppTable(table, AcDb::kForRead) != Acad::eOk) {
        return RTERROR;
    }
    int result = RTNORM;
    if (!table->has(applicationName)) {
        result = RTERROR;
        if (table->upgradeOpen() == Acad::eOk) {
            auto* record = new AcDbRegAppTableRecord;
            if (record->setName(applicationName) == Acad::eOk && table->add(record) == Acad::eOk) {
                record->close();
                result = RTNORM;
            } else {
                delete record;
            }
        }
    }
    table->close();
    return result;
}

short acdbSetDbmod(AcDbDatabase* database, int value) {
    if (database == nullptr) {
        return 0;
    }
    bool& modified = DataOf(*database).modified;
    const short earlier = modified ? 1 : 0;
    modified = value != 0;
    return earlier;
}
