// Writes one object of the database as a record.
#pragma once

#include "drawing_file/field_writer.h"
#include "drawing_file/object_fields.h"

namespace workbench::drawing_file {

// What a record says of its object ahead of the object's own members.
struct RecordHead {
    std::string_view type;
    int handleCode;
    std::uint64_t handle;
    std::uint64_t owner;  // 0 for none
};

// The head of a kept object with the code 5 for its handle.
RecordHead HeadOf(std::string_view type, const AcDbImpObject& object);

// Handle, extension dictionary, reactors and owner; WriteHead writes the type ahead of them.
void WriteLinks(GroupWriter& groups, const RecordHead& head, const AcDbImpObject& object);
void WriteHead(GroupWriter& groups, const RecordHead& head, const AcDbImpObject& object);

template <class Data>
void WriteObject(GroupWriter& groups, const RecordHead& head, const Data& object) {
    WriteHead(groups, head, object);
    FieldWriter fields(groups, object.extra);
    fields.BeginBody();
    if constexpr (std::is_base_of_v<database::EntityData, Data>) CommonFields(fields, object);
    if constexpr (std::is_base_of_v<database::RecordData, Data>) fields.Subclass("AcDbSymbolTableRecord");
    FieldsOf<Data>::Map(fields, object);
    fields.EndBody();
    for (const database::DataItem& item : object.xdata)
        groups.Item(item);
}

// An entity of a block, with its attributes or vertices. A block reference whose block is erased is left out:
// no reader takes one.
class EntityWriter {
  public:
    // `nextHandle` numbers what an entity needs in a file and the database does not hold.
    EntityWriter(GroupWriter& groups, std::uint64_t& nextHandle)
        : m_groups(groups), m_nextHandle(nextHandle) {}

    void Write(const AcDbStub* entity);
    // BLOCK and ENDBLK of a record.
    void WriteBegin(const database::BlockRecordData& record);
    void WriteEnd(const database::BlockRecordData& record);

  private:
    template <class Data>
    bool WriteIf(const database::EntityData& entity);
    template <class... Kinds>
    void WriteFirst(const database::EntityData& entity);
    void WriteParts(const std::vector<AcDbStub*>& parts, const AcDbStub* sequenceEnd, const AcDbStub& owner);

    GroupWriter& m_groups;
    std::uint64_t& m_nextHandle;
};

}  // namespace workbench::drawing_file
