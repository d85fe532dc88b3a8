#include "dbsymtb.h"

#include <algorithm>
#include <cwctype>

#include "object_access.h"
#include "result_lists.h"

namespace workbench::database {
namespace {

constexpr std::size_t kLongestName = 255;

bool IsAnonymousPrefix(std::wstring_view name) {
    return name.size() > 1 && name.front() == L'*';
}

// Which kind of record a kind of table takes.
bool Takes(const TableData& table, const RecordData& record) {
    const auto takes = [&]<class Table, class Record>(const Table*, const Record*) {
        return dynamic_cast<const Table*>(&table) != nullptr &&
               dynamic_cast<const Record*>(&record) != nullptr;
    };
    return takes((BlockTableData*)nullptr, (BlockRecordData*)nullptr) ||
           takes((LayerTableData*)nullptr, (LayerData*)nullptr) ||
           takes((LinetypeTableData*)nullptr, (LinetypeData*)nullptr) ||
           takes((TextStyleTableData*)nullptr, (TextStyleData*)nullptr) ||
           takes((RegAppTableData*)nullptr, (RegAppData*)nullptr) ||
           takes((DimStyleTableData*)nullptr, (DimStyleData*)nullptr) ||
           takes((ViewTableData*)nullptr, (ViewData*)nullptr) ||
           takes((ViewportTableData*)nullptr, (ViewportData*)nullptr) ||
           takes((UcsTableData*)nullptr, (UcsData*)nullptr);
}

// "*U" asks for the next free name of that kind of anonymous block.
std::wstring NumberedName(const TableData& table, const std::wstring& name) {
    if (name.size() != 2 || name.front() != L'*') {
        return name;
    }
    std::size_t number = 1;
    while (table.byName.contains(UpperCase(name) + std::to_wstring(number))) {
        ++number;
    }
    return name + std::to_wstring(number);
}

void AddBlockEdges(AcDbDatabase& database, BlockRecordData& block) {
    const auto make = [&](const wchar_t* dxfName) {
        auto* edge = new AcDbProxyEntity;
        static_cast<ProxyEntityData&>(DataOf(*edge)).dxfName = dxfName;
        return Enter(database, *edge, 0, block.stub, false);
    };
    block.begin = make(L"BLOCK");
    block.end = make(L"ENDBLK");
}

}  // namespace

std::wstring UpperCase(std::wstring_view text) {
    std::wstring upper(text);
    for (wchar_t& letter : upper) {
        letter = static_cast<wchar_t>(std::towupper(static_cast<std::wint_t>(letter)));
    }
    return upper;
}

bool IsSymbolName(std::wstring_view name) {
    if (IsAnonymousPrefix(name)) {
        name.remove_prefix(1);
    }
    return !name.empty() && name.size() <= kLongestName &&
           std::none_of(name.begin(), name.end(), [](wchar_t letter) {
               return letter < 0x20 ||
                      std::wstring_view(L"<>/\\\":;?*|,=`").find(letter) != std::wstring_view::npos;
           });
}

}  // namespace workbench::database

using namespace workbench::database;

WORKBENCH_DEFINE_CLASS(AcDbSymbolTableRecord, AcDbObject)

AcDbSymbolTableRecord::AcDbSymbolTableRecord(AcDbImpObject* data) : AcDbObject(data) {}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(const ACHAR*& name) const {
    name = nullptr;
    if (!isReadEnabled()) {
        return Acad::eNotOpenForRead;
    }
    name = ReadData<RecordData>(*this).name.c_str();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(ACHAR*& name) const {
    const ACHAR* own = nullptr;
    const Acad::ErrorStatus status = getName(own);
    name = own == nullptr ? nullptr : NewText(own);
    return status;
}

Acad::ErrorStatus AcDbSymbolTableRecord::setName(const ACHAR* name) {
    if (name == nullptr || !IsSymbolName(name)) {
        return Acad::eInvalidInput;
    }
    const std::wstring key = UpperCase(name);
    auto& data = static_cast<RecordData&>(DataOf(*this));
    auto* table = DataAs<TableData>(data.owner);
    if (table != nullptr) {
        const auto taken = table->byName.find(key);
        if (taken != table->byName.end() && taken->second != data.stub && !taken->second->erased) {
            return Acad::eDuplicateKey;
        }
    }
    const Acad::ErrorStatus status = PrepareWrite(*this);
    if (status != Acad::eOk) {
        return status;
    }
    if (table != nullptr) {
        const auto present = table->byName.find(UpperCase(data.name));
        if (present != table->byName.end() && present->second == data.stub) {
            table->byName.erase(present);
        }
        table->byName[key] = data.stub;
    }
    data.name = name;
    return Acad::eOk;
}

struct AcDbSymbolTableIterator::Data {
    StubWalk walk;
};

AcDbSymbolTableIterator::AcDbSymbolTableIterator(Data* data) : m_data(data) {}
AcDbSymbolTableIterator::~AcDbSymbolTableIterator() {
    delete m_data;
}
void AcDbSymbolTableIterator::start(bool atBeginning, bool skipDeleted) {
    m_data->walk.Start(atBeginning, skipDeleted);
}
bool AcDbSymbolTableIterator::done() const {
    return m_data->walk.Done();
}
void AcDbSymbolTableIterator::step(bool forward, bool skipDeleted) {
    m_data->walk.Step(forward, skipDeleted);
}

Acad::ErrorStatus AcDbSymbolTableIterator::getRecordId(AcDbObjectId& id) const {
    id = IdOf(m_data->walk.Current());
    return id.isNull() ? Acad::eInvalidIndex : Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableIterator::getRecord(AcDbSymbolTableRecord*& record, AcDb::OpenMode mode,
                                                     bool openErased) const {
    record = nullptr;
    return done() ? Acad::eInvalidIndex
                  : acdbOpenObject(record, IdOf(m_data->walk.Current()), mode, openErased);
}

WORKBENCH_DEFINE_CLASS(AcDbSymbolTable, AcDbObject)

AcDbSymbolTable::AcDbSymbolTable(AcDbImpObject* data) : AcDbObject(data) {}

Acad::ErrorStatus AcDbSymbolTable::getAt(const ACHAR* name, AcDbObjectId& id, bool getErased) const {
    id.setNull();
    if (name == nullptr) {
        return Acad::eInvalidInput;
    }
    if (!isReadEnabled()) {
        return Acad::eNotOpenForRead;
    }
    const auto& byName = ReadData<TableData>(*this).byName;
    const auto found = byName.find(UpperCase(name));
    if (found == byName.end()) {
        return Acad::eKeyNotFound;
    }
    if (found->second->erased && !getErased) {
        return Acad::eWasErased;
    }
    id = IdOf(found->second);
    return Acad::eOk;
}

bool AcDbSymbolTable::has(const ACHAR* name) const {
    AcDbObjectId id;
    return getAt(name, id) == Acad::eOk;
}

bool AcDbSymbolTable::has(AcDbObjectId id) const {
    AssertRead(*this);
    const auto* record = DataAs<RecordData>(id.stub());
    return record != nullptr && !id.isErased() && record->owner == DataOf(*this).stub;
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbObjectId& id, AcDbSymbolTableRecord* record) {
    id.setNull();
    if (record == nullptr) {
        return Acad::eNullObjectPointer;
    }
    auto& table = static_cast<TableData&>(DataOf(*this));
    auto& data = static_cast<RecordData&>(DataOf(*record));
    if (!Takes(table, data)) {
        return Acad::eWrongObjectType;
    }
    const std::wstring name = NumberedName(table, data.name);
    if (!IsSymbolName(name)) {
        return Acad::eInvalidInput;
    }
    const auto present = table.byName.find(UpperCase(name));
    if (present != table.byName.end() && !present->second->erased) {
        return Acad::eDuplicateKey;
    }
    Acad::ErrorStatus status = PrepareWrite(*this);
    if (status == Acad::eOk) {
        status = EnterNew(*this, record, id);
    }
    if (status != Acad::eOk) {
        return status;
    }
    data.name = name;
    table.records.push_back(data.stub);
    table.byName[UpperCase(name)] = data.stub;
    if (auto* block = dynamic_cast<BlockRecordData*>(&data)) {
        AddBlockEdges(*database(), *block);
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbSymbolTableRecord* record) {
    AcDbObjectId id;
    return add(id, record);
}

Acad::ErrorStatus AcDbSymbolTable::newIterator(AcDbSymbolTableIterator*& iterator, bool atBeginning,
                                               bool skipDeleted) const {
    iterator = nullptr;
    if (!isReadEnabled()) {
        return Acad::eNotOpenForRead;
    }
    const auto& records = ReadData<TableData>(*this).records;
    iterator = new AcDbSymbolTableIterator(new AcDbSymbolTableIterator::Data{StubWalk(records)});
    iterator->start(atBeginning, skipDeleted);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTable::openRecord(const ACHAR* name, AcDbSymbolTableRecord*& record,
                                              AcDb::OpenMode mode, bool openErased) const {
    record = nullptr;
    AcDbObjectId id;
    const Acad::ErrorStatus status = getAt(name, id, openErased);
    return status == Acad::eOk ? acdbOpenObject(record, id, mode, openErased) : status;
}

#define WORKBENCH_DEFINE_TABLE(TABLE, DATA, RECORD)                                                          \
    WORKBENCH_DEFINE_OBJECT_CLASS(TABLE, AcDbSymbolTable, ACRX_T("TABLE"))                                   \
    TABLE::TABLE() : AcDbSymbolTable(new DATA) {}                                                            \
    Acad::ErrorStatus TABLE::getAt(const ACHAR* name, RECORD*& record, AcDb::OpenMode mode, bool openErased) \
        const {                                                                                              \
        AcDbSymbolTableRecord* opened = nullptr;                                                             \
        const Acad::ErrorStatus status = openRecord(name, opened, mode, openErased);                         \
        record = static_cast<RECORD*>(opened);                                                               \
        return status;                                                                                       \
    }

WORKBENCH_DEFINE_TABLE(AcDbBlockTable, BlockTableData, AcDbBlockTableRecord)
WORKBENCH_DEFINE_TABLE(AcDbLayerTable, LayerTableData, AcDbLayerTableRecord)
WORKBENCH_DEFINE_TABLE(AcDbLinetypeTable, LinetypeTableData, AcDbLinetypeTableRecord)
WORKBENCH_DEFINE_TABLE(AcDbTextStyleTable, TextStyleTableData, AcDbTextStyleTableRecord)
WORKBENCH_DEFINE_TABLE(AcDbRegAppTable, RegAppTableData, AcDbRegAppTableRecord)
WORKBENCH_DEFINE_TABLE(AcDbDimStyleTable, DimStyleTableData, AcDbDimStyleTableRecord)
WORKBENCH_DEFINE_TABLE(AcDbViewTable, ViewTableData, AcDbViewTableRecord)
WORKBENCH_DEFINE_TABLE(AcDbViewportTable, ViewportTableData, AcDbViewportTableRecord)
WORKBENCH_DEFINE_TABLE(AcDbUCSTable, UcsTableData, AcDbUCSTableRecord)
