// Fills a database from outside, object by object, as a reader of drawing files does.
//
//   Builder builder(database);                          // empties it
//   auto& layers = builder.Table<LayerTableData>(0x2);  // handle from the file, 0 for a new one
//   auto& layer = builder.Record<LayerData>(layers, L"PIPES", 0x10);
//   auto& line = builder.Entity<LineData>(modelSpace, 0x50);
//   line.start = ...; line.layer = layer.stub;
//   line.reactors.push_back(builder.Reference(0x99));   // the object may come later
//   builder.Finish();                                   // adds what is missing
//
// A handle that is taken already, or beyond kGreatestHandle, gives the new object another one: damaged files
// must not lose entities.
#pragma once

#include <memory>

#include "database_data.h"

namespace workbench::database {

// Beyond this, handles could not be counted on.
inline constexpr std::uint64_t kGreatestHandle = std::uint64_t{1} << 62;

class Builder {
  public:
    explicit Builder(AcDbDatabase& database);

    AcDbDatabase& Database() { return m_database; }
    AcDbImpDatabase& Data() { return m_data; }

    // The place of a handle; made empty if nothing has it yet. Null for handle 0.
    AcDbStub* Reference(std::uint64_t handle);

    // A table, at most one of each kind: a second call gives the first table.
    template <class Data>
    Data& Table(std::uint64_t handle) {
        AcDbStub*& place = TablePlace(static_cast<Data*>(nullptr));
        if (place == nullptr) {
            place = Make<Data>(handle, nullptr).stub;
            place->permanent = true;
        }
        return static_cast<Data&>(database::DataOf(*place));
    }

    // A record in a table. Its name may be taken already (viewports); then it is found by its id only.
    template <class Data>
    Data& Record(TableData& table, const std::wstring& name, std::uint64_t handle) {
        Data& record = Make<Data>(handle, table.stub);
        record.name = name;
        AddToTable(table, record);
        return record;
    }

    // An entity at the end of a block.
    template <class Data>
    Data& Entity(BlockRecordData& block, std::uint64_t handle) {
        Data& entity = Make<Data>(handle, block.stub);
        block.entities.push_back(entity.stub);
        return entity;
    }

    // The BLOCK and ENDBLK of a block record; `dxfName` tells which. A second call gives the same object.
    ProxyEntityData& BlockEdge(BlockRecordData& block, const std::wstring& dxfName, std::uint64_t handle);

    AttributeData& Attribute(BlockReferenceData& reference, std::uint64_t handle);
    VertexData& Vertex(HeavyPolylineData& polyline, std::uint64_t handle);
    // The SEQEND of either.
    ProxyEntityData& SequenceEnd(BlockReferenceData& reference, std::uint64_t handle);
    ProxyEntityData& SequenceEnd(HeavyPolylineData& polyline, std::uint64_t handle);

    // The dictionary of named objects; a second call gives the first.
    DictionaryData& NamedObjects(std::uint64_t handle);
    // Any other object. `owner` may be null and set later.
    template <class Data>
    Data& Object(std::uint64_t handle, AcDbStub* owner) {
        return Make<Data>(handle, owner);
    }
    // An entry; the object may come later. A name that is taken keeps its first entry, and false is returned.
    static bool AddEntry(DictionaryData& dictionary, const std::wstring& name, AcDbStub* object);

    // Records by name; made with default values if missing. An empty name gives null.
    AcDbStub* Layer(const std::wstring& name);
    AcDbStub* Linetype(const std::wstring& name);
    AcDbStub* TextStyle(const std::wstring& name);
    // Null if there is no such block.
    AcDbStub* FindBlock(const std::wstring& name) const;

    // Adds what every drawing has and this one lacks: tables, layer 0, the linetypes ByBlock, ByLayer and
    // Continuous, the text style and dimension style Standard, the application ACAD, `*Model_Space` and
    // `*Paper_Space`, an active viewport, the dictionary of named objects and ACAD_GROUP in it, BLOCK and
    // ENDBLK of each block, SEQEND where there are sub-entities, names of applications that xdata uses.
    // References to handles that no object has are cut from owners, reactors, dictionaries and the typed
    // members. Leaves the database unmodified and each object closed.
    void Finish();

  private:
    template <class Data>
    Data& Make(std::uint64_t handle, AcDbStub* owner) {
        auto* object = new typename Data::Object();
        Adopt(object, handle, owner);
        return static_cast<Data&>(database::DataOf(*static_cast<AcDbObject*>(object)));
    }
    void Adopt(AcDbObject* object, std::uint64_t handle, AcDbStub* owner);
    static void AddToTable(TableData& table, RecordData& record);
    ProxyEntityData& MakeSequenceEnd(AcDbStub*& place, AcDbStub* owner, std::uint64_t handle);

    template <class Data>
    AcDbStub* FindOrMake(TableData& table, const std::wstring& name) {
        if (name.empty()) {
            return nullptr;
        }
        AcDbStub* present = m_data.FindRecord(table.stub, name);
        return present != nullptr ? present : Record<Data>(table, name, 0).stub;
    }

    AcDbStub*& TablePlace(BlockTableData*) { return m_data.blockTable; }
    AcDbStub*& TablePlace(LayerTableData*) { return m_data.layerTable; }
    AcDbStub*& TablePlace(LinetypeTableData*) { return m_data.linetypeTable; }
    AcDbStub*& TablePlace(TextStyleTableData*) { return m_data.textStyleTable; }
    AcDbStub*& TablePlace(RegAppTableData*) { return m_data.regAppTable; }
    AcDbStub*& TablePlace(DimStyleTableData*) { return m_data.dimStyleTable; }
    AcDbStub*& TablePlace(ViewTableData*) { return m_data.viewTable; }
    AcDbStub*& TablePlace(ViewportTableData*) { return m_data.viewportTable; }
    AcDbStub*& TablePlace(UcsTableData*) { return m_data.ucsTable; }

    void AddMissingTables();
    void AddMissingBlocks();
    void AddMissingParts();
    void CutDanglingReferences();

    AcDbDatabase& m_database;
    AcDbImpDatabase& m_data;
};

}  // namespace workbench::database
