// Fills an object of the database from its record.
#pragma once

#include "drawing_file/field_reader.h"
#include "drawing_file/object_fields.h"

namespace workbench::drawing_file {

// Reactors, extension dictionary and extended data.
void FillCommonParts(const RecordBody& body, ReadContext& context, AcDbImpObject& object);

// What becomes of groups that no member took: they go to `extra` under their markers. Records of release 12
// have no markers; theirs go below `lastSubclass`.
enum class EmptyMarkers { kDrop, kKeep };
void KeepRest(RecordBody& body, ReadContext& context, std::string_view lastSubclass,
              EmptyMarkers emptyMarkers, database::RawGroups& extra);

template <class Data>
void FillObject(RecordBody& body, ReadContext& context, Data& object) {
    constexpr bool isProxy =
        std::is_same_v<Data, database::ProxyEntityData> || std::is_same_v<Data, database::ProxyObjectData>;
    FillCommonParts(body, context, object);
    FieldReader fields(body, context);
    if constexpr (std::is_base_of_v<database::EntityData, Data>) CommonFields(fields, object);
    FieldsOf<Data>::Map(fields, object);
    KeepRest(body, context, fields.LastSubclass(), isProxy ? EmptyMarkers::kKeep : EmptyMarkers::kDrop,
             object.extra);
}

}  // namespace workbench::drawing_file
