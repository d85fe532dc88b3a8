#include "dbdict.h"

#include <algorithm>

#include "dbxrecrd.h"
#include "object_access.h"
#include "result_lists.h"

namespace workbench::database {
namespace {

void Reindex(DictionaryData& data) {
    data.positions.clear();
    for (std::size_t i = 0; i < data.entries.size(); ++i) {
        data.positions.emplace(UpperCase(data.entries[i].name), i);
    }
}

bool IsThere(const DictionaryData::Entry& entry) {
    return entry.stub != nullptr && entry.stub->object != nullptr && !entry.stub->erased;
}

// Null if there is no such entry, or its object is erased.
const DictionaryData::Entry* FindEntry(const AcDbDictionary& dictionary, const ACHAR* name) {
    const auto& data = ReadData<DictionaryData>(dictionary);
    const auto found = name == nullptr ? data.positions.end() : data.positions.find(UpperCase(name));
    if (found == data.positions.end() || !IsThere(data.entries[found->second])) {
        return nullptr;
    }
    return &data.entries[found->second];
}

const DictionaryData::Entry* FindEntry(const AcDbDictionary& dictionary, AcDbObjectId id) {
    const auto& entries = ReadData<DictionaryData>(dictionary).entries;
    const auto found = std::find_if(entries.begin(), entries.end(), [id](const auto& entry) {
        return IsThere(entry) && entry.stub == id.stub();
    });
    return found == entries.end() ? nullptr : &*found;
}

Acad::ErrorStatus RemoveEntry(AcDbDictionary& dictionary, const DictionaryData::Entry* entry) {
    if (entry == nullptr) {
        return Acad::eKeyNotFound;
    }
    const Acad::ErrorStatus status = PrepareWrite(dictionary);
    if (status == Acad::eOk) {
        auto& data = static_cast<DictionaryData&>(DataOf(dictionary));
        if (DataOf(*entry->stub).owner == data.stub) {
            DataOf(*entry->stub).owner = nullptr;
        }
        data.entries.erase(data.entries.begin() + (entry - data.entries.data()));
        Reindex(data);
    }
    return status;
}

}  // namespace
}  // namespace workbench::database

using namespace workbench::database;

struct AcDbDictionaryIterator::Data {
    std::vector<const DictionaryData::Entry*> entries;
    std::size_t position = 0;
};

AcDbDictionaryIterator::AcDbDictionaryIterator(Data* data) : m_data(data) {}
AcDbDictionaryIterator::~AcDbDictionaryIterator() {
    delete m_data;
}
bool AcDbDictionaryIterator::done() const {
    return m_data->position >= m_data->entries.size();
}
const ACHAR* AcDbDictionaryIterator::name() const {
    return done() ? nullptr : m_data->entries[m_data->position]->name.c_str();
}
AcDbObjectId AcDbDictionaryIterator::objectId() const {
    return done() ? AcDbObjectId() : IdOf(m_data->entries[m_data->position]->stub);
}
Acad::ErrorStatus AcDbDictionaryIterator::getObject(AcDbObject*& object, AcDb::OpenMode mode) {
    return acdbOpenObject(object, objectId(), mode);
}
bool AcDbDictionaryIterator::next() {
    if (!done()) {
        ++m_data->position;
    }
    return !done();
}

WORKBENCH_DEFINE_OBJECT_CLASS(AcDbDictionary, AcDbObject, ACRX_T("DICTIONARY"))

AcDbDictionary::AcDbDictionary() : AcDbObject(new DictionaryData) {}

Acad::ErrorStatus AcDbDictionary::getAt(const ACHAR* name, AcDbObjectId& id) const {
    id.setNull();
    if (!isReadEnabled()) {
        return Acad::eNotOpenForRead;
    }
    const auto* entry = FindEntry(*this, name);
    if (entry == nullptr) {
        return Acad::eKeyNotFound;
    }
    id = IdOf(entry->stub);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::getAt(const ACHAR* name, AcDbObject*& object, AcDb::OpenMode mode) const {
    object = nullptr;
    AcDbObjectId id;
    const Acad::ErrorStatus status = getAt(name, id);
    return status == Acad::eOk ? acdbOpenObject(object, id, mode) : status;
}

Acad::ErrorStatus AcDbDictionary::nameAt(AcDbObjectId id, const ACHAR*& name) const {
    const auto* entry = FindEntry(*this, id);
    name = entry == nullptr ? nullptr : entry->name.c_str();
    return entry == nullptr ? Acad::eKeyNotFound : Acad::eOk;
}

bool AcDbDictionary::has(const ACHAR* name) const {
    return FindEntry(*this, name) != nullptr;
}
bool AcDbDictionary::has(AcDbObjectId id) const {
    return FindEntry(*this, id) != nullptr;
}

Adesk::UInt32 AcDbDictionary::numEntries() const {
    const auto& entries = ReadData<DictionaryData>(*this).entries;
    return static_cast<Adesk::UInt32>(std::count_if(entries.begin(), entries.end(), IsThere));
}

Acad::ErrorStatus AcDbDictionary::setAt(const ACHAR* name, AcDbObject* object, AcDbObjectId& id) {
    id.setNull();
    if (name == nullptr || *name == 0) {
        return Acad::eInvalidKey;
    }
    if (database() == nullptr) {
        return Acad::eNotInDatabase;
    }
    Acad::ErrorStatus status = PrepareWrite(*this);
    if (status == Acad::eOk) {
        status = EnterNew(*this, object, id);
    }
    if (status != Acad::eOk) {
        return status;
    }
    auto& data = static_cast<DictionaryData&>(DataOf(*this));
    const auto [place, isNew] = data.positions.emplace(UpperCase(name), data.entries.size());
    if (isNew) {
        data.entries.push_back({name, id.stub()});
    } else {
        DictionaryData::Entry& entry = data.entries[place->second];
        if (IsThere(entry)) {
            SetErased(*entry.stub, true);
        }
        entry = {name, id.stub()};
    }
    DataOf(*object).reactors.push_back(data.stub);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::remove(const ACHAR* name) {
    return RemoveEntry(*this, FindEntry(*this, name));
}

Acad::ErrorStatus AcDbDictionary::remove(const ACHAR* name, AcDbObjectId& id) {
    const Acad::ErrorStatus status = getAt(name, id);
    return status == Acad::eOk ? remove(name) : status;
}

Acad::ErrorStatus AcDbDictionary::remove(AcDbObjectId id) {
    return RemoveEntry(*this, FindEntry(*this, id));
}

bool AcDbDictionary::setName(const ACHAR* oldName, const ACHAR* newName) {
    const auto* entry = FindEntry(*this, oldName);
    const bool isFree = newName != nullptr && *newName != 0 && FindEntry(*this, newName) == nullptr;
    if (entry == nullptr || !isFree || PrepareWrite(*this) != Acad::eOk) {
        return false;
    }
    auto& data = static_cast<DictionaryData&>(DataOf(*this));
    data.entries[static_cast<std::size_t>(entry - data.entries.data())].name = newName;
    Reindex(data);
    return true;
}

AcDbDictionaryIterator* AcDbDictionary::newIterator() const {
    auto* data = new AcDbDictionaryIterator::Data;
    for (const auto& [key, position] : ReadData<DictionaryData>(*this).positions) {
        const auto& entry = ReadData<DictionaryData>(*this).entries[position];
        if (IsThere(entry)) {
            data->entries.push_back(&entry);
        }
    }
    std::sort(data->entries.begin(), data->entries.end(), [](const auto* left, const auto* right) {
        return UpperCase(left->name) < UpperCase(right->name);
    });
    return new AcDbDictionaryIterator(data);
}

bool AcDbDictionary::isTreatElementsAsHard() const {
    return ReadData<DictionaryData>(*this).hard;
}
Acad::ErrorStatus AcDbDictionary::setTreatElementsAsHard(bool hard) {
    return WriteMember(*this, &DictionaryData::hard, hard);
}

WORKBENCH_DEFINE_OBJECT_CLASS(AcDbXrecord, AcDbObject, ACRX_T("XRECORD"))

AcDbXrecord::AcDbXrecord() : AcDbObject(new XrecordData) {}

Acad::ErrorStatus AcDbXrecord::rbChain(resbuf** chain, AcDbDatabase* auxDatabase) const {
    if (chain == nullptr) {
        return Acad::eInvalidInput;
    }
    *chain = nullptr;
    if (!isReadEnabled()) {
        return Acad::eNotOpenForRead;
    }
    const AcDbDatabase* ids = database() != nullptr ? database() : auxDatabase;
    *chain = ListFromItems(ReadData<XrecordData>(*this).items, ids);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbXrecord::setFromRbChain(const resbuf& chain, AcDbDatabase*) {
    DataItems items;
    const Acad::ErrorStatus status = ItemsFromList(&chain, items);
    if (status != Acad::eOk) {
        return status;
    }
    const bool allFit = std::all_of(items.begin(), items.end(), [](const DataItem& item) {
        return item.code > 0 && item.code < kFirstXDataCode && item.code != 5 && item.code != 105;
    });
    return allFit ? WriteMember(*this, &XrecordData::items, items) : Acad::eInvalidResBuf;
}

Acad::ErrorStatus AcDbXrecord::setEmpty() {
    return WriteMember(*this, &XrecordData::items, DataItems());
}

AcDb::DuplicateRecordCloning AcDbXrecord::mergeStyle() const {
    return static_cast<AcDb::DuplicateRecordCloning>(ReadData<XrecordData>(*this).cloning);
}
Acad::ErrorStatus AcDbXrecord::setMergeStyle(AcDb::DuplicateRecordCloning style) {
    return WriteMember(*this, &XrecordData::cloning, style);
}
