#include "drawing_file/drawing_writer.h"

#include <algorithm>
#include <vector>

#include "database/database_data.h"

#include "drawing_file/group_codes.h"
#include "drawing_file/header_values.h"
#include "drawing_file/object_writer.h"

namespace workbench::drawing_file {

using database::BlockRecordData;
using database::DataAs;

namespace {

constexpr std::wstring_view kClasses = L"CLASSES";

std::string VersionToWrite(const AcDbImpDatabase& drawing) {
    for (const database::HeaderVariable& variable : drawing.header) {
        if (variable.name != L"$ACADVER" || variable.groups.empty()) continue;
        return EncodeText(variable.groups.front().text, Encoding::kWestern);
    }
    return std::string(kRelease2000);
}

class DrawingWriter {
  public:
    explicit DrawingWriter(const AcDbImpDatabase& drawing)
        : m_drawing(drawing),
          m_version(VersionToWrite(drawing)),
          m_encoding(IsUtf8Release(m_version) ? Encoding::kUtf8 : Encoding::kWestern),
          m_body(m_encoding),
          m_nextHandle(drawing.nextHandle) {}

    std::string Write() {
        WriteOtherSections(true);
        WriteTables();
        WriteBlocks();
        WriteEntities();
        WriteObjects();
        WriteOtherSections(false);
        m_body.Name(kCodeType, "EOF");
        // Last, as the handle seed is known only now.
        GroupWriter header(m_encoding);
        WriteHeader(header);
        return header.Bytes() + m_body.Bytes();
    }

  private:
    static void BeginSection(GroupWriter& groups, std::string_view name) {
        groups.Name(kCodeType, "SECTION");
        groups.Name(kCodeName, name);
    }
    static void EndSection(GroupWriter& groups) { groups.Name(kCodeType, "ENDSEC"); }

    void WriteHeader(GroupWriter& groups) const;
    void WriteOtherSections(bool classes);
    void WriteTables();
    template <class Data>
    void WriteTable(const AcDbStub* table);
    bool IsNeeded(const AcDbStub& application) const;
    template <class Visit>
    void ForEachBlock(Visit visit) const;
    void WriteBlocks();
    void WriteEntities();
    void WriteObjects();
    void WriteNonGraphical(const AcDbImpObject& object);
    // True for the two spaces whose entities stand in the section of entities.
    bool IsActiveSpace(const BlockRecordData& block) const;

    const AcDbImpDatabase& m_drawing;
    std::string m_version;
    Encoding m_encoding;
    GroupWriter m_body;
    std::uint64_t m_nextHandle;
};

void DrawingWriter::WriteHeader(GroupWriter& groups) const {
    BeginSection(groups, "HEADER");
    groups.Name(kCodeVariable, kVersionVariable);
    groups.Name(1, m_version);
    groups.Name(kCodeVariable, kCodePageVariable);
    groups.Name(3, "ANSI_1252");
    for (const database::HeaderVariable& variable : m_drawing.header) {
        if (variable.name == L"$ACADVER") continue;
        groups.Text(kCodeVariable, variable.name);
        for (const database::RawGroup& group : variable.groups)
            groups.Raw(group);
    }
    groups.Name(kCodeVariable, kCurrentLayerVariable);
    groups.Text(kCodeLayer, NameOf(m_drawing.currentLayer, L"0"));
    groups.Name(kCodeVariable, kHandleSeedVariable);
    groups.Handle(kCodeHandle, m_nextHandle);
    EndSection(groups);
}

void DrawingWriter::WriteOtherSections(bool classes) {
    bool hasClasses = false;
    for (const database::RawSection& section : m_drawing.otherSections) {
        const bool isClasses = section.name == kClasses;
        if (isClasses != classes) continue;
        hasClasses = hasClasses || isClasses;
        BeginSection(m_body, EncodeText(section.name, m_encoding));
        for (const database::RawGroup& group : section.groups)
            m_body.Raw(group);
        EndSection(m_body);
    }
    if (classes && !hasClasses) {
        BeginSection(m_body, "CLASSES");
        EndSection(m_body);
    }
}

void DrawingWriter::WriteTables() {
    BeginSection(m_body, "TABLES");
    WriteTable<database::ViewportData>(m_drawing.viewportTable);
    WriteTable<database::LinetypeData>(m_drawing.linetypeTable);
    WriteTable<database::LayerData>(m_drawing.layerTable);
    WriteTable<database::TextStyleData>(m_drawing.textStyleTable);
    WriteTable<database::ViewData>(m_drawing.viewTable);
    WriteTable<database::UcsData>(m_drawing.ucsTable);
    WriteTable<database::RegAppData>(m_drawing.regAppTable);
    WriteTable<database::DimStyleData>(m_drawing.dimStyleTable);
    WriteTable<BlockRecordData>(m_drawing.blockTable);
    EndSection(m_body);
}

// True for an erased name of an application whose data is still there: no reader takes data without its name.
bool DrawingWriter::IsNeeded(const AcDbStub& application) const {
    const std::wstring name = database::UpperCase(DataAs<database::RegAppData>(&application)->name);
    const auto& byName = DataAs<database::TableData>(m_drawing.regAppTable)->byName;
    if (const auto found = byName.find(name); found == byName.end() || found->second != &application) {
        return false;  // another record has the name now
    }
    const auto isNamed = [&name](const database::DataItem& item) {
        return item.code == database::kApplicationNameCode &&
               database::UpperCase(std::get<std::wstring>(item.value)) == name;
    };
    return std::any_of(m_drawing.stubs.begin(), m_drawing.stubs.end(), [&](const AcDbStub& stub) {
        return IsKept(&stub) && std::any_of(stub.data->xdata.begin(), stub.data->xdata.end(), isNamed);
    });
}

template <class Data>
void DrawingWriter::WriteTable(const AcDbStub* stub) {
    constexpr bool isDimensionStyles = std::is_same_v<Data, database::DimStyleData>;
    constexpr bool isApplications = std::is_same_v<Data, database::RegAppData>;
    const auto* table = DataAs<database::TableData>(stub);
    if (table == nullptr) return;
    std::vector<const Data*> records;
    for (const AcDbStub* record : table->records) {
        const auto* data = DataAs<Data>(record);
        if (data != nullptr && (IsKept(record) || (isApplications && IsNeeded(*record))))
            records.push_back(data);
    }
    m_body.Name(kCodeType, "TABLE");
    m_body.Name(kCodeName, FieldsOf<Data>::kTable);
    WriteLinks(m_body, HeadOf({}, *table), *table);
    m_body.Name(kCodeSubclass, "AcDbSymbolTable");
    m_body.Integer(70, static_cast<std::int64_t>(records.size()));
    if (isDimensionStyles) {
        m_body.Name(kCodeSubclass, "AcDbDimStyleTable");
        m_body.Integer(71, static_cast<std::int64_t>(records.size()));
        for (const Data* record : records)
            m_body.Handle(340, record->stub->handle);
    }
    for (const database::DataItem& item : table->xdata)
        m_body.Item(item);
    for (const Data* record : records) {
        RecordHead head = HeadOf(FieldsOf<Data>::kTable, *record);
        if (isDimensionStyles) head.handleCode = kCodeDimstyleHandle;
        WriteObject(m_body, head, *record);
    }
    m_body.Name(kCodeType, "ENDTAB");
}

template <class Visit>
void DrawingWriter::ForEachBlock(Visit visit) const {
    const auto* table = DataAs<database::BlockTableData>(m_drawing.blockTable);
    if (table == nullptr) return;
    for (const AcDbStub* record : table->records) {
        if (IsKept(record)) visit(*DataAs<BlockRecordData>(record));
    }
}

bool DrawingWriter::IsActiveSpace(const BlockRecordData& block) const {
    const std::wstring name = database::UpperCase(block.name);
    return name == L"*MODEL_SPACE" || name == L"*PAPER_SPACE";
}

void DrawingWriter::WriteBlocks() {
    EntityWriter writer(m_body, m_nextHandle);
    BeginSection(m_body, "BLOCKS");
    ForEachBlock([&](const BlockRecordData& block) {
        writer.WriteBegin(block);
        if (!IsActiveSpace(block)) {
            for (const AcDbStub* entity : block.entities)
                writer.Write(entity);
        }
        writer.WriteEnd(block);
    });
    EndSection(m_body);
}

void DrawingWriter::WriteEntities() {
    EntityWriter writer(m_body, m_nextHandle);
    BeginSection(m_body, "ENTITIES");
    ForEachBlock([&](const BlockRecordData& block) {
        if (!IsActiveSpace(block)) return;
        for (const AcDbStub* entity : block.entities)
            writer.Write(entity);
    });
    EndSection(m_body);
}

void DrawingWriter::WriteObjects() {
    BeginSection(m_body, "OBJECTS");
    // By handle, whatever order they came in: a drawing that is saved again does not change.
    std::vector<const AcDbStub*> objects;
    for (const AcDbStub& stub : m_drawing.stubs) {
        if (IsKept(&stub) && &stub != m_drawing.namedObjects) objects.push_back(&stub);
    }
    std::sort(objects.begin(), objects.end(),
              [](const AcDbStub* a, const AcDbStub* b) { return a->handle < b->handle; });
    // Readers take the first dictionary for that of the named objects.
    if (IsKept(m_drawing.namedObjects)) objects.insert(objects.begin(), m_drawing.namedObjects);
    for (const AcDbStub* object : objects)
        WriteNonGraphical(database::DataOf(*object));
    EndSection(m_body);
}

// Writes what is neither an entity nor part of a table.
void DrawingWriter::WriteNonGraphical(const AcDbImpObject& object) {
    if (const auto* dictionary = dynamic_cast<const database::DictionaryData*>(&object)) {
        const std::string name = EncodeText(dictionary->dxfName, m_encoding);
        WriteObject(m_body, HeadOf(name, object), *dictionary);
    } else if (const auto* xrecord = dynamic_cast<const database::XrecordData*>(&object)) {
        WriteObject(m_body, HeadOf("XRECORD", object), *xrecord);
    } else if (const auto* proxy = dynamic_cast<const database::ProxyObjectData*>(&object)) {
        const std::string name = EncodeText(proxy->dxfName, m_encoding);
        WriteObject(m_body, HeadOf(name, object), *proxy);
    }
}

}  // namespace

std::string WriteDrawing(const AcDbDatabase& database) {
    return DrawingWriter(database::DataOf(database)).Write();
}

}  // namespace workbench::drawing_file
