#include "builder.h"

#include <algorithm>

#include "object_access.h"

namespace workbench::database {
namespace {

// Handles give way: a reference to what is not there becomes null.
void CutIfMissing(AcDbStub*& reference) {
    if (reference != nullptr && reference->object == nullptr) {
        reference = nullptr;
    }
}

void CutMissing(std::vector<AcDbStub*>& references) {
    std::erase_if(references,
                  [](const AcDbStub* stub) { return stub == nullptr || stub->object == nullptr; });
}

void CutMissingOfDictionary(DictionaryData& dictionary) {
    std::vector<DictionaryData::Entry> kept;
    dictionary.positions.clear();
    for (auto& entry : dictionary.entries) {
        if (entry.stub != nullptr && entry.stub->object != nullptr) {
            dictionary.positions.emplace(UpperCase(entry.name), kept.size());
            kept.push_back(std::move(entry));
        }
    }
    dictionary.entries = std::move(kept);
}

void CutMissingOfEntity(AcDbImpObject& object) {
    if (auto* entity = dynamic_cast<EntityData*>(&object)) {
        CutIfMissing(entity->layer);
        CutIfMissing(entity->linetype);
    }
    if (auto* text = dynamic_cast<TextData*>(&object)) {
        CutIfMissing(text->style);
    } else if (auto* paragraph = dynamic_cast<MTextData*>(&object)) {
        CutIfMissing(paragraph->style);
    } else if (auto* reference = dynamic_cast<BlockReferenceData*>(&object)) {
        CutIfMissing(reference->block);
    }
}

}  // namespace

Builder::Builder(AcDbDatabase& database) : m_database(database), m_data(DataOf(database)) {
    const bool noDocument = m_data.noDocument;
    DropObjects(m_data);
    m_data = AcDbImpDatabase();
    m_data.noDocument = noDocument;
}

AcDbStub* Builder::Reference(std::uint64_t handle) {
    if (handle == 0) {
        return nullptr;
    }
    AcDbStub*& stub = m_data.byHandle[handle];
    if (stub == nullptr) {
        stub = &m_data.stubs.Add();
        stub->database = &m_database;
        stub->handle = handle;
    }
    return stub;
}

void Builder::Adopt(AcDbObject* object, std::uint64_t handle, AcDbStub* owner) {
    Enter(m_database, *object, handle, owner, false);
}

void Builder::AddToTable(TableData& table, RecordData& record) {
    table.records.push_back(record.stub);
    table.byName.emplace(UpperCase(record.name), record.stub);
}

ProxyEntityData& Builder::BlockEdge(BlockRecordData& block, const std::wstring& dxfName,
                                    std::uint64_t handle) {
    AcDbStub*& place = dxfName == L"BLOCK" ? block.begin : block.end;
    if (place == nullptr) {
        auto& edge = Make<ProxyEntityData>(handle, block.stub);
        edge.dxfName = dxfName;
        place = edge.stub;
    }
    return static_cast<ProxyEntityData&>(database::DataOf(*place));
}

AttributeData& Builder::Attribute(BlockReferenceData& reference, std::uint64_t handle) {
    auto& attribute = Make<AttributeData>(handle, reference.stub);
    reference.attributes.push_back(attribute.stub);
    return attribute;
}

VertexData& Builder::Vertex(HeavyPolylineData& polyline, std::uint64_t handle) {
    auto& vertex = Make<VertexData>(handle, polyline.stub);
    polyline.vertices.push_back(vertex.stub);
    return vertex;
}

ProxyEntityData& Builder::MakeSequenceEnd(AcDbStub*& place, AcDbStub* owner, std::uint64_t handle) {
    if (place == nullptr) {
        auto& end = Make<ProxyEntityData>(handle, owner);
        end.dxfName = L"SEQEND";
        place = end.stub;
    }
    return static_cast<ProxyEntityData&>(database::DataOf(*place));
}

ProxyEntityData& Builder::SequenceEnd(BlockReferenceData& reference, std::uint64_t handle) {
    return MakeSequenceEnd(reference.sequenceEnd, reference.stub, handle);
}

ProxyEntityData& Builder::SequenceEnd(HeavyPolylineData& polyline, std::uint64_t handle) {
    return MakeSequenceEnd(polyline.sequenceEnd, polyline.stub, handle);
}

DictionaryData& Builder::NamedObjects(std::uint64_t handle) {
    if (m_data.namedObjects == nullptr) {
        m_data.namedObjects = Make<DictionaryData>(handle, nullptr).stub;
        m_data.namedObjects->permanent = true;
    }
    return static_cast<DictionaryData&>(database::DataOf(*m_data.namedObjects));
}

bool Builder::AddEntry(DictionaryData& dictionary, const std::wstring& name, AcDbStub* object) {
    if (object == nullptr ||
        !dictionary.positions.emplace(UpperCase(name), dictionary.entries.size()).second) {
        return false;
    }
    dictionary.entries.push_back({name, object});
    return true;
}

AcDbStub* Builder::Layer(const std::wstring& name) {
    return FindOrMake<LayerData>(Table<LayerTableData>(0), name);
}

AcDbStub* Builder::Linetype(const std::wstring& name) {
    return FindOrMake<LinetypeData>(Table<LinetypeTableData>(0), name);
}

AcDbStub* Builder::TextStyle(const std::wstring& name) {
    return FindOrMake<TextStyleData>(Table<TextStyleTableData>(0), name);
}

AcDbStub* Builder::FindBlock(const std::wstring& name) const {
    return m_data.FindRecord(m_data.blockTable, name);
}

void Builder::Finish() {
    CutDanglingReferences();
    AddMissingTables();
    AddMissingBlocks();
    AddMissingParts();
    for (AcDbStub& stub : m_data.stubs) {
        stub.writer = false;
        stub.isNew = false;
        stub.modified = false;
    }
    m_data.modified = false;
}

void Builder::CutDanglingReferences() {
    for (AcDbStub& stub : m_data.stubs) {
        if (stub.object == nullptr) {
            continue;
        }
        AcDbImpObject& object = database::DataOf(stub);
        CutIfMissing(object.owner);
        CutIfMissing(object.extensionDictionary);
        CutMissing(object.reactors);
        CutMissingOfEntity(object);
        if (auto* dictionary = dynamic_cast<DictionaryData*>(&object)) {
            CutMissingOfDictionary(*dictionary);
        } else if (auto* block = dynamic_cast<BlockRecordData*>(&object)) {
            CutIfMissing(block->layout);
        } else if (auto* layer = dynamic_cast<LayerData*>(&object)) {
            CutIfMissing(layer->linetype);
        }
    }
    CutIfMissing(m_data.currentLayer);
}

void Builder::AddMissingTables() {
    for (const wchar_t* name : {L"ByBlock", L"ByLayer", L"Continuous"}) {
        AcDbStub* linetype = Linetype(name);
        linetype->permanent = true;
        auto& data = static_cast<LinetypeData&>(database::DataOf(*linetype));
        if (data.name == L"Continuous" && data.description.empty()) {
            data.description = L"Solid line";
        }
    }
    Layer(L"0")->permanent = true;
    auto& style = static_cast<TextStyleData&>(database::DataOf(*TextStyle(L"Standard")));
    style.stub->permanent = true;
    if (style.font.empty()) {
        style.font = L"txt";
    }
    FindOrMake<RegAppData>(Table<RegAppTableData>(0), L"ACAD")->permanent = true;
    FindOrMake<DimStyleData>(Table<DimStyleTableData>(0), L"Standard");
    FindOrMake<ViewportData>(Table<ViewportTableData>(0), L"*Active");
    Table<ViewTableData>(0);
    Table<UcsTableData>(0);
}

void Builder::AddMissingBlocks() {
    auto& table = Table<BlockTableData>(0);
    FindOrMake<BlockRecordData>(table, ACDB_MODEL_SPACE)->permanent = true;
    FindOrMake<BlockRecordData>(table, ACDB_PAPER_SPACE)->permanent = true;
    for (AcDbStub* record : std::vector<AcDbStub*>(table.records)) {
        auto& block = static_cast<BlockRecordData&>(database::DataOf(*record));
        BlockEdge(block, L"BLOCK", 0);
        BlockEdge(block, L"ENDBLK", 0);
    }
}

void Builder::AddMissingParts() {
    auto& root = NamedObjects(0);
    if (!root.positions.contains(L"ACAD_GROUP")) {
        AddEntry(root, L"ACAD_GROUP", Object<DictionaryData>(0, root.stub).stub);
    }
    auto& applications = Table<RegAppTableData>(0);
    const std::size_t present = m_data.stubs.size();  // what is made below needs nothing itself
    for (std::size_t i = 0; i < present; ++i) {
        const AcDbStub& stub = m_data.stubs[i];
        if (stub.object == nullptr) {
            continue;
        }
        for (const DataItem& item : database::DataOf(stub).xdata) {
            if (item.code == kApplicationNameCode) {
                FindOrMake<RegAppData>(applications, std::get<std::wstring>(item.value));
            }
        }
        if (auto* reference = DataAs<BlockReferenceData>(&stub);
            reference && !reference->attributes.empty()) {
            SequenceEnd(*reference, 0);
        } else if (auto* polyline = DataAs<HeavyPolylineData>(&stub)) {
            SequenceEnd(*polyline, 0);
        }
    }
}

void BuildDefaultDrawing(AcDbDatabase& database) {
    Builder(database).Finish();
}

}  // namespace workbench::database
