// The members of table records, dictionaries and extension records by group code, as entity_fields.h has
// those of entities.
#pragma once

#include "drawing_file/entity_fields.h"
#include "drawing_file/group_codes.h"

namespace workbench::drawing_file {

// Records of which only the name and the flags are known here.
template <class Record>
struct NameAlone {
    template <class Fields, class Data>
    static void Map(Fields& fields, Data& record) {
        fields.Subclass(FieldsOf<Record>::kMarker);
        fields.RecordName(record);
    }
};

template <>
struct FieldsOf<database::LayerData> {
    static constexpr std::string_view kTable = "LAYER";
    static constexpr std::string_view kMarker = "AcDbLayerTableRecord";
    template <class Fields, class Data>
    static void Map(Fields& fields, Data& layer) {
        fields.Subclass(kMarker);
        fields.RecordName(layer);
        fields.Short(62, layer.color);
        fields.LayerLinetype(layer.linetype);
        fields.Flag(290, layer.plottable, true);
        fields.Short(370, layer.lineweight);
    }
};

template <>
struct FieldsOf<database::LinetypeData> {
    static constexpr std::string_view kTable = "LTYPE";
    static constexpr std::string_view kMarker = "AcDbLinetypeTableRecord";
    template <class Fields, class Data>
    static void Map(Fields& fields, Data& linetype) {
        fields.Subclass(kMarker);
        fields.RecordName(linetype);
        fields.Text(3, linetype.description);
        fields.Derived(72, 'A');  // how the pattern is aligned: always at both ends
        fields.Dashes(linetype);
    }
};

template <>
struct FieldsOf<database::TextStyleData> {
    static constexpr std::string_view kTable = "STYLE";
    static constexpr std::string_view kMarker = "AcDbTextStyleTableRecord";
    template <class Fields, class Data>
    static void Map(Fields& fields, Data& style) {
        fields.Subclass(kMarker);
        fields.RecordName(style);
        fields.Real(40, style.height);
        fields.Real(41, style.widthFactor);
        fields.Angle(50, style.oblique);
        fields.Short(71, style.generation);
        fields.Real(42, style.lastHeight);
        fields.Text(3, style.font);
        fields.Text(4, style.bigFont);
    }
};

template <>
struct FieldsOf<database::RegAppData> : NameAlone<database::RegAppData> {
    static constexpr std::string_view kTable = "APPID";
    static constexpr std::string_view kMarker = "AcDbRegAppTableRecord";
};

template <>
struct FieldsOf<database::DimStyleData> : NameAlone<database::DimStyleData> {
    static constexpr std::string_view kTable = "DIMSTYLE";
    static constexpr std::string_view kMarker = "AcDbDimStyleTableRecord";
};

template <>
struct FieldsOf<database::ViewData> : NameAlone<database::ViewData> {
    static constexpr std::string_view kTable = "VIEW";
    static constexpr std::string_view kMarker = "AcDbViewTableRecord";
};

template <>
struct FieldsOf<database::UcsData> : NameAlone<database::UcsData> {
    static constexpr std::string_view kTable = "UCS";
    static constexpr std::string_view kMarker = "AcDbUCSTableRecord";
};

template <>
struct FieldsOf<database::ViewportData> {
    static constexpr std::string_view kTable = "VPORT";
    static constexpr std::string_view kMarker = "AcDbViewportTableRecord";
    template <class Fields, class Data>
    static void Map(Fields& fields, Data& viewport) {
        fields.Subclass(kMarker);
        fields.RecordName(viewport);
        fields.Short(77, viewport.snapStyle);
        fields.Short(78, viewport.snapPair);
    }
};

template <>
struct FieldsOf<database::BlockRecordData> {
    static constexpr std::string_view kTable = "BLOCK_RECORD";
    static constexpr std::string_view kMarker = "AcDbBlockTableRecord";
    template <class Fields, class Data>
    static void Map(Fields& fields, Data& record) {
        fields.Subclass(kMarker);
        fields.RepeatedName(2, record);  // its flags belong to the block's beginning
        fields.Reference(340, record.layout);
    }
};

// What the BLOCK of a block record holds below the members of every entity.
inline constexpr std::string_view kBlockBeginMarker = "AcDbBlockBegin";
template <class Fields, class Data>
void BlockBeginFields(Fields& fields, Data& record) {
    fields.Subclass(kBlockBeginMarker);
    fields.RecordName(record);
    fields.Point(10, record.origin);
    fields.RepeatedName(3, record);
    fields.Text(1, record.path);
    fields.Text(4, record.description, true);
}

template <>
struct FieldsOf<database::DictionaryData> {
    template <class Fields, class Data>
    static void Map(Fields& fields, Data& dictionary) {
        fields.Subclass("AcDbDictionary");
        fields.Flag(280, dictionary.hard, false);
        fields.Short(281, dictionary.cloning);
        fields.Entries(dictionary);
    }
};

template <>
struct FieldsOf<database::XrecordData> {
    template <class Fields, class Data>
    static void Map(Fields& fields, Data& xrecord) {
        fields.Subclass(kMarkerExtensionRecord);
        fields.Items(xrecord);
    }
};

template <>
struct FieldsOf<database::ProxyObjectData> {
    template <class Fields, class Data>
    static void Map(Fields&, Data&) {}
};

}  // namespace workbench::drawing_file
