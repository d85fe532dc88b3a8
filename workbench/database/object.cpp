#include "dbmain.h"

#include <algorithm>
#include <utility>

#include "dbapserv.h"
#include "installed.h"
#include "object_access.h"
#include "result_lists.h"

namespace workbench::database {
namespace {

constexpr std::uint16_t kMostReaders = 256;

bool IsOpenForRead(const AcDbStub* stub) {
    return stub == nullptr || stub->writer || stub->readers > 0;
}
bool IsOpenForWrite(const AcDbStub* stub) {
    return stub == nullptr || stub->writer;
}

Acad::ErrorStatus MayOpenForRead(const AcDbStub& stub) {
    if (stub.writer) {
        return Acad::eWasOpenForWrite;
    }
    return stub.readers == kMostReaders ? Acad::eAtMaxReaders : Acad::eOk;
}

Acad::ErrorStatus MayOpenForWrite(const AcDbStub& stub) {
    if (!MayWrite(*stub.database)) {
        return Acad::eLockViolation;
    }
    if (stub.writer) {
        return Acad::eWasOpenForWrite;
    }
    return stub.readers > 0 ? Acad::eWasOpenForRead : Acad::eOk;
}

void Open(AcDbStub& stub, AcDb::OpenMode mode) {
    if (mode == AcDb::kForRead) {
        ++stub.readers;
    } else {
        stub.writer = true;
        stub.modified = false;
    }
}

// The items of one application, its name included.
// Splits items at their application names.
std::vector<DataItems> SplitByApplication(const DataItems& items) {
    std::vector<DataItems> parts;
    for (const DataItem& item : items) {
        if (item.code == kApplicationNameCode) {
            parts.emplace_back();
        }
        parts.back().push_back(item);
    }
    return parts;
}

std::wstring ApplicationOf(const DataItems& part) {
    return std::get<std::wstring>(part.front().value);
}

// `present` with the application's items replaced in place, added at the end, or removed.
DataItems Replaced(const DataItems& present, const DataItems& part) {
    const std::wstring name = UpperCase(ApplicationOf(part));
    const bool removes = part.size() == 1;
    DataItems result;
    bool done = removes;
    for (DataItems& old : SplitByApplication(present)) {
        if (UpperCase(ApplicationOf(old)) != name) {
            std::move(old.begin(), old.end(), std::back_inserter(result));
        } else if (!done) {
            result.insert(result.end(), part.begin(), part.end());
            done = true;
        }
    }
    if (!done) {
        result.insert(result.end(), part.begin(), part.end());
    }
    return result;
}

}  // namespace

AcDbImpObject& DataOf(const AcDbObject& object) {
    return AcDbObjectAccess::Data(object);
}

void AssertRead(const AcDbObject& object) {
    if (!IsOpenForRead(DataOf(object).stub)) {
        Fatal(std::wstring(L"eNotOpenForRead: ") + object.isA()->name());
    }
}

Acad::ErrorStatus PrepareWrite(AcDbObject& object) {
    AcDbStub* stub = DataOf(object).stub;
    if (!IsOpenForWrite(stub)) {
        return Acad::eNotOpenForWrite;
    }
    if (stub != nullptr) {
        stub->modified = true;
        DataOf(*stub->database).modified = true;
    }
    return Acad::eOk;
}

void SetErased(AcDbStub& stub, bool erased) {
    stub.erased = erased;
    if (const auto* reference = DataAs<BlockReferenceData>(&stub)) {
        for (AcDbStub* attribute : reference->attributes) {
            attribute->erased = erased;
        }
    } else if (const auto* polyline = DataAs<HeavyPolylineData>(&stub)) {
        for (AcDbStub* vertex : polyline->vertices) {
            vertex->erased = erased;
        }
    } else if (const auto* dictionary = DataAs<DictionaryData>(&stub)) {
        for (const auto& entry : dictionary->entries) {
            if (entry.stub != nullptr && entry.stub->object != nullptr && entry.stub->erased != erased &&
                DataOf(*entry.stub).owner == &stub) {
                SetErased(*entry.stub, erased);
            }
        }
    }
}

AcDbStub* FindNamed(const AcDbObject& object, AcDbStub* AcDbImpDatabase::*table, const ACHAR* name) {
    const AcDbDatabase* database = object.database();
    if (database == nullptr || name == nullptr) {
        return nullptr;
    }
    const AcDbImpDatabase& data = DataOf(*database);
    return data.FindRecord(data.*table, name);
}

}  // namespace workbench::database

using namespace workbench::database;

WORKBENCH_DEFINE_CLASS(AcDbObject, AcRxObject)

AcDbObject::AcDbObject(AcDbImpObject* data) : mpImpObject(data) {}

AcDbObject::~AcDbObject() {
    if (mpImpObject->stub != nullptr) {
        Fatal(L"An object of a database was deleted; it is to be closed");
    }
    delete mpImpObject;
}

AcDbObjectId AcDbObject::objectId() const {
    return IdOf(mpImpObject->stub);
}
AcDbObjectId AcDbObject::ownerId() const {
    return IdOf(mpImpObject->owner);
}
AcDbObjectId AcDbObject::extensionDictionary() const {
    return IdOf(mpImpObject->extensionDictionary);
}

AcDbDatabase* AcDbObject::database() const {
    return mpImpObject->stub == nullptr ? nullptr : mpImpObject->stub->database;
}

AcDbHandle AcDbObject::getAcDbHandle() const {
    return objectId().handle();
}

Acad::ErrorStatus AcDbObject::createExtensionDictionary() {
    if (mpImpObject->stub == nullptr) {
        return Acad::eNotInDatabase;
    }
    const AcDbStub* existing = mpImpObject->extensionDictionary;
    if (existing != nullptr && !existing->erased) {
        return Acad::eAlreadyInDb;
    }
    const Acad::ErrorStatus status = PrepareWrite(*this);
    if (status != Acad::eOk) {
        return status;
    }
    auto* dictionary = new AcDbDictionary;
    mpImpObject->extensionDictionary = Enter(*database(), *dictionary, 0, mpImpObject->stub, false);
    static_cast<DictionaryData&>(DataOf(*dictionary)).hard = true;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::close() {
    AcDbStub* stub = mpImpObject->stub;
    if (stub == nullptr) {
        return Acad::eNullObjectId;
    }
    if (stub->writer) {
        stub->writer = false;
        stub->isNew = false;
        stub->modified = false;
        return Acad::eOk;
    }
    if (stub->readers == 0) {
        return Acad::eNotOpenForRead;
    }
    --stub->readers;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::upgradeOpen() {
    AcDbStub* stub = mpImpObject->stub;
    if (stub == nullptr) {
        return Acad::eOk;
    }
    if (stub->writer) {
        return Acad::eWasOpenForWrite;
    }
    if (stub->readers == 0) {
        return Acad::eNotOpenForRead;
    }
    if (stub->readers > 1) {
        return Acad::eWasOpenForRead;
    }
    stub->readers = 0;
    const Acad::ErrorStatus status = MayOpenForWrite(*stub);
    if (status == Acad::eOk) {
        Open(*stub, AcDb::kForWrite);
    } else {
        stub->readers = 1;
    }
    return status;
}

Acad::ErrorStatus AcDbObject::downgradeOpen() {
    AcDbStub* stub = mpImpObject->stub;
    if (stub == nullptr) {
        return Acad::eOk;
    }
    if (!stub->writer) {
        return Acad::eNotOpenForWrite;
    }
    stub->writer = false;
    stub->isNew = false;
    stub->readers = 1;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::erase(bool erasing) {
    AcDbStub* stub = mpImpObject->stub;
    if (stub == nullptr) {
        return Acad::eNotInDatabase;
    }
    if (!stub->writer) {
        return Acad::eNotOpenForWrite;
    }
    if (erasing && stub->erased) {
        return Acad::eWasErased;
    }
    if (!erasing && !stub->erased) {
        return Acad::eInvalidInput;
    }
    if (stub->permanent) {
        return Acad::eCannotBeErasedByCaller;
    }
    PrepareWrite(*this);
    SetErased(*stub, erasing);
    return Acad::eOk;
}

bool AcDbObject::isErased() const {
    return mpImpObject->stub != nullptr && mpImpObject->stub->erased;
}
bool AcDbObject::isReadEnabled() const {
    return IsOpenForRead(mpImpObject->stub);
}
bool AcDbObject::isWriteEnabled() const {
    return IsOpenForWrite(mpImpObject->stub);
}
bool AcDbObject::isNewObject() const {
    return mpImpObject->stub == nullptr || mpImpObject->stub->isNew;
}
bool AcDbObject::isModified() const {
    return mpImpObject->stub != nullptr && mpImpObject->stub->modified;
}

resbuf* AcDbObject::xData(const ACHAR* applicationName) const {
    AssertRead(*this);
    return applicationName == nullptr ? ListFromItems(mpImpObject->xdata, database())
                                      : ListOfApplication(mpImpObject->xdata, applicationName, database());
}

Acad::ErrorStatus AcDbObject::setXData(const resbuf* list) {
    if (!isWriteEnabled()) {
        return Acad::eNotOpenForWrite;
    }
    const AcDbDatabase* owner =
        database() != nullptr ? database() : acdbHostApplicationServices()->workingDatabase();
    if (owner == nullptr) {
        return Acad::eNoDatabase;
    }
    if (list == nullptr) {
        return Acad::eInvalidResBuf;
    }
    DataItems items;
    Acad::ErrorStatus status = ItemsFromList(list, items);
    if (status == Acad::eOk) {
        status = CheckXData(items);
    }
    if (status != Acad::eOk) {
        return status;
    }
    DataItems result = mpImpObject->xdata;
    for (const DataItems& part : SplitByApplication(items)) {
        const AcDbImpDatabase& data = DataOf(*owner);
        if (data.FindRecord(data.regAppTable, ApplicationOf(part)) == nullptr) {
            return Acad::eRegappIdNotFound;
        }
        result = Replaced(result, part);
    }
    if (XDataSize(result) > kLongestXData) {
        return Acad::eXdataSizeExceeded;
    }
    PrepareWrite(*this);
    mpImpObject->xdata = std::move(result);
    return Acad::eOk;
}

Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased) {
    return acdbOpenAcDbObjectOfClass(object, id, mode, openErased, AcDbObject::desc());
}

Acad::ErrorStatus acdbOpenAcDbObjectOfClass(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                            bool openErased, const AcRxClass* type) {
    object = nullptr;
    AcDbStub* stub = id.stub();
    if (stub == nullptr) {
        return Acad::eNullObjectId;
    }
    if (stub->object == nullptr) {
        return Acad::ePermanentlyErased;
    }
    if (stub->erased && !openErased) {
        return Acad::eWasErased;
    }
    Acad::ErrorStatus status = Acad::eInvalidInput;
    if (mode == AcDb::kForRead) {
        status = MayOpenForRead(*stub);
    } else if (mode == AcDb::kForWrite) {
        status = MayOpenForWrite(*stub);
    }
    if (status == Acad::eOk && !stub->type->isDerivedFrom(type)) {
        status = Acad::eNotThatKindOfClass;
    }
    if (status == Acad::eOk) {
        Open(*stub, mode);
        object = stub->object;
    }
    return status;
}

const AcDbObjectId AcDbObjectId::kNull;

bool AcDbObjectId::isValid() const {
    return mId != nullptr && mId->object != nullptr && !mId->erased;
}
bool AcDbObjectId::isErased() const {
    return mId != nullptr && (mId->erased || mId->object == nullptr);
}
AcDbDatabase* AcDbObjectId::database() const {
    return mId == nullptr ? nullptr : mId->database;
}
AcDbHandle AcDbObjectId::handle() const {
    return AcDbHandle(mId == nullptr ? 0 : mId->handle);
}

const AcRxClass* AcDbObjectId::objectClass() const {
    return mId == nullptr || mId->object == nullptr ? nullptr : mId->type;
}

AcDbHandle::AcDbHandle(const ACHAR* text) {
    if (text != nullptr) {
        ParseHandle(text, m_value);
    }
}

bool AcDbHandle::getIntoAsciiBuffer(ACHAR* buffer, std::size_t length) const {
    const std::wstring text = HandleText(m_value);
    if (buffer == nullptr || length <= text.size()) {
        return false;
    }
    *std::copy(text.begin(), text.end(), buffer) = 0;
    return true;
}
