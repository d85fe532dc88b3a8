#include "drawing_file/entity_reader.h"

#include <string>
#include <unordered_map>

#include "drawing_file/object_reader.h"
#include "drawing_file/release12.h"

namespace workbench::drawing_file {
namespace {

constexpr std::string_view kSequenceEnd = "SEQEND";

template <class Data>
Data& ReadEntity(RecordBody& body, ReadContext& context, database::BlockRecordData& block) {
    auto& entity = context.builder.Entity<Data>(block, body.Handle());
    FillObject(body, context, entity);
    return entity;
}

using EntityReader = void (*)(RecordBody&, ReadContext&, database::BlockRecordData&);

template <class Data>
void ReadSimple(RecordBody& body, ReadContext& context, database::BlockRecordData& block) {
    ReadEntity<Data>(body, context, block);
}

void ReadTrace(RecordBody& body, ReadContext& context, database::BlockRecordData& block) {
    ReadEntity<database::SolidData>(body, context, block).isTrace = true;
}

void ReadProxy(RecordBody& body, ReadContext& context, database::BlockRecordData& block) {
    auto& entity = ReadEntity<database::ProxyEntityData>(body, context, block);
    entity.dxfName = context.Text(body.Type(), body.Line());
    if (body.Markers().size() == 1) AddMarkersToRelease12(entity);
}

EntityReader ReaderOf(std::string_view type) {
    static const std::unordered_map<std::string_view, EntityReader> readers = {
        {"LINE", ReadSimple<database::LineData>},
        {"POINT", ReadSimple<database::PointData>},
        {"CIRCLE", ReadSimple<database::CircleData>},
        {"ARC", ReadSimple<database::ArcData>},
        {"ELLIPSE", ReadSimple<database::EllipseData>},
        {"SOLID", ReadSimple<database::SolidData>},
        {"TRACE", ReadTrace},
        {"LWPOLYLINE", ReadSimple<database::PolylineData>},
        {"TEXT", ReadSimple<database::TextData>},
        {"MTEXT", ReadSimple<database::MTextData>},
        {"ATTDEF", ReadSimple<database::AttributeDefinitionData>},
    };
    const auto found = readers.find(type);
    return found != readers.end() ? found->second : ReadProxy;
}

bool HasRowsOrColumns(const RecordBody& body) {
    const Group* columns = body.Find(70);
    const Group* rows = body.Find(71);
    return (columns != nullptr && Int16Of(*columns) > 1) || (rows != nullptr && Int16Of(*rows) > 1);
}

// Walks the records of one section or block.
class EntityWalk {
  public:
    EntityWalk(std::span<const Record> records, ReadContext& context, const BlockOfRecord& blockOf)
        : m_records(records), m_context(context), m_blockOf(blockOf) {}

    void ReadAll() {
        while (m_next < m_records.size())
            ReadNext();
    }

  private:
    void ReadNext();
    template <class Data>
    void ReadReference(RecordBody& body, database::BlockRecordData& block);
    void ReadPolyline(RecordBody& body, database::BlockRecordData& block);
    bool NextIs(std::string_view type) const {
        return m_next < m_records.size() && m_records[m_next].type == type;
    }
    // Takes the sequence end that is due here.
    template <class Data>
    void ReadSequenceEnd(Data& head, const RecordBody& headBody);

    std::span<const Record> m_records;
    ReadContext& m_context;
    const BlockOfRecord& m_blockOf;
    std::size_t m_next = 0;
};

void EntityWalk::ReadNext() {
    const Record& record = m_records[m_next++];
    if (record.type == "ATTRIB" || record.type == "VERTEX" || record.type == kSequenceEnd) {
        throw DrawingError{record.line, std::wstring(record.type.begin(), record.type.end()) +
                                            L" stands behind no entity that it belongs to."};
    }
    RecordBody body(record);
    database::BlockRecordData& block = m_blockOf(body);
    if (record.type == "POLYLINE") {
        ReadPolyline(body, block);
    } else if (record.type != "INSERT") {
        ReaderOf(record.type)(body, m_context, block);
    } else if (HasRowsOrColumns(body)) {
        ReadReference<database::MInsertData>(body, block);
    } else {
        ReadReference<database::BlockReferenceData>(body, block);
    }
}

template <class Data>
void EntityWalk::ReadReference(RecordBody& body, database::BlockRecordData& block) {
    auto& reference = ReadEntity<Data>(body, m_context, block);
    while (NextIs("ATTRIB")) {
        RecordBody attribute(m_records[m_next++]);
        FillObject(attribute, m_context, m_context.builder.Attribute(reference, attribute.Handle()));
    }
    if (!reference.attributes.empty()) {
        ReadSequenceEnd(reference, body);
    } else if (NextIs(kSequenceEnd)) {
        ++m_next;  // of no attributes, as some programs write it
    }
}

void EntityWalk::ReadPolyline(RecordBody& body, database::BlockRecordData& block) {
    auto& polyline = ReadEntity<database::HeavyPolylineData>(body, m_context, block);
    while (NextIs("VERTEX")) {
        RecordBody vertex(m_records[m_next++]);
        FillObject(vertex, m_context, m_context.builder.Vertex(polyline, vertex.Handle()));
    }
    ReadSequenceEnd(polyline, body);
}

template <class Data>
void EntityWalk::ReadSequenceEnd(Data& head, const RecordBody& headBody) {
    if (!NextIs(kSequenceEnd)) {
        const std::uint32_t line = m_next < m_records.size() ? m_records[m_next].line : headBody.Line();
        throw DrawingError{line, L"The end of attributes or vertices (SEQEND) is missing."};
    }
    RecordBody body(m_records[m_next++]);
    FillObject(body, m_context, m_context.builder.SequenceEnd(head, body.Handle()));
}

}  // namespace

void ReadEntities(std::span<const Record> records, ReadContext& context, const BlockOfRecord& blockOf) {
    EntityWalk(records, context, blockOf).ReadAll();
}

}  // namespace workbench::drawing_file
