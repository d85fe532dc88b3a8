#include "drawing_file/object_writer.h"

#include <algorithm>

#include "drawing_file/group_codes.h"

namespace workbench::drawing_file {

using database::DataAs;
using database::EntityData;
using database::ProxyEntityData;

namespace {

void WriteControlList(GroupWriter& groups, std::string_view name, int code,
                      const std::vector<const AcDbStub*>& objects) {
    if (objects.empty()) return;
    groups.Name(kCodeControl, name);
    for (const AcDbStub* object : objects)
        groups.Handle(code, object->handle);
    groups.Name(kCodeControl, "}");
}

// The edge of a block as the database holds it, or a blank one with a handle of its own.
template <class More>
void WriteEdge(GroupWriter& groups, std::string_view type, const database::BlockRecordData& record,
               const AcDbStub* edge, std::uint64_t& nextHandle, More more) {
    static const ProxyEntityData kBlank;
    const auto* held = IsKept(edge) ? DataAs<ProxyEntityData>(edge) : nullptr;
    const ProxyEntityData& data = held != nullptr ? *held : kBlank;
    const std::uint64_t handle = held != nullptr ? edge->handle : nextHandle++;
    WriteHead(groups, {type, kCodeHandle, handle, record.stub->handle}, data);
    FieldWriter fields(groups, data.extra);
    fields.BeginBody();
    CommonFields(fields, data);
    more(fields);
    fields.EndBody();
    for (const database::DataItem& item : data.xdata)
        groups.Item(item);
}

}  // namespace

RecordHead HeadOf(std::string_view type, const AcDbImpObject& object) {
    return {type, kCodeHandle, object.stub->handle, IsKept(object.owner) ? object.owner->handle : 0};
}

void WriteHead(GroupWriter& groups, const RecordHead& head, const AcDbImpObject& object) {
    groups.Name(kCodeType, head.type);
    WriteLinks(groups, head, object);
}

void WriteLinks(GroupWriter& groups, const RecordHead& head, const AcDbImpObject& object) {
    groups.Handle(head.handleCode, head.handle);
    if (IsKept(object.extensionDictionary)) {
        WriteControlList(groups, "{ACAD_XDICTIONARY", kCodeHardOwner, {object.extensionDictionary});
    }
    std::vector<const AcDbStub*> reactors;
    std::copy_if(object.reactors.begin(), object.reactors.end(), std::back_inserter(reactors), IsKept);
    WriteControlList(groups, "{ACAD_REACTORS", kCodeOwner, reactors);
    groups.Handle(kCodeOwner, head.owner);
}

template <class Data>
bool EntityWriter::WriteIf(const EntityData& entity) {
    const auto* data = dynamic_cast<const Data*>(&entity);
    if (data == nullptr) return false;
    if constexpr (std::is_base_of_v<database::BlockReferenceData, Data>) {
        if (!IsKept(data->block)) return true;
    }
    if constexpr (std::is_same_v<Data, ProxyEntityData>) {
        const std::string name = EncodeText(data->dxfName, Encoding::kWestern);
        WriteObject(m_groups, HeadOf(name, *data), *data);
    } else {
        WriteObject(m_groups, HeadOf(FieldsOf<Data>::Name(*data), *data), *data);
    }
    if constexpr (std::is_base_of_v<database::BlockReferenceData, Data>) {
        if (HasAttributes(*data)) WriteParts(data->attributes, data->sequenceEnd, *data->stub);
    }
    if constexpr (std::is_same_v<Data, database::HeavyPolylineData>) {
        WriteParts(data->vertices, data->sequenceEnd, *data->stub);
    }
    return true;
}

void EntityWriter::WriteParts(const std::vector<AcDbStub*>& parts, const AcDbStub* sequenceEnd,
                              const AcDbStub& owner) {
    for (const AcDbStub* part : parts)
        Write(part);
    if (IsKept(sequenceEnd)) {
        Write(sequenceEnd);
        return;
    }
    const ProxyEntityData blank;
    WriteObject(m_groups, RecordHead{"SEQEND", kCodeHandle, m_nextHandle++, owner.handle}, blank);
}

template <class... Kinds>
void EntityWriter::WriteFirst(const EntityData& entity) {
    static_cast<void>((WriteIf<Kinds>(entity) || ...));
}

void EntityWriter::Write(const AcDbStub* stub) {
    if (!IsKept(stub)) return;
    const auto* entity = DataAs<EntityData>(stub);
    if (entity == nullptr) return;
    // Attributes are texts, and arrays of blocks are block references: the narrower kind comes first.
    WriteFirst<database::LineData, database::MInsertData, database::BlockReferenceData,
               database::AttributeData, database::AttributeDefinitionData, database::TextData,
               database::PolylineData, database::CircleData, database::ArcData, database::SolidData,
               database::MTextData, database::VertexData, database::HeavyPolylineData, database::PointData,
               database::EllipseData, ProxyEntityData>(*entity);
}

void EntityWriter::WriteBegin(const database::BlockRecordData& record) {
    WriteEdge(m_groups, "BLOCK", record, record.begin, m_nextHandle,
              [&](FieldWriter& fields) { BlockBeginFields(fields, record); });
}

void EntityWriter::WriteEnd(const database::BlockRecordData& record) {
    WriteEdge(m_groups, "ENDBLK", record, record.end, m_nextHandle,
              [](FieldWriter& fields) { fields.Subclass("AcDbBlockEnd"); });
}

}  // namespace workbench::drawing_file
