// The members of table records, dictionaries and extension records by group code, as entity_fields.h has
// those of entities.
#pragma once

#include "drawing_file/entity_fields.h"
#include "drawing_file/group_codes.h"

namespace workbench::drawing_file {

template <>
struct FieldsOf<database::LayerData> {
    static constexpr std::string_view kTable = "LAYER";
    template <class Fields, class Data>
    static void Map(Fields& fields, Data& layer) {
        fields.Subclass("AcDbLayerTableRecord");
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
    template <class Fields, class Data>
    static void Map(Fields& fields, Data& linetype) {
        fields.Subclass("AcDbLinetypeTableRecord");
        fields.RecordName(linetype);
        fields.Text(3, linetype.description);
        fields.Derived(72, 'A');  // how the pattern is aligned: always at both ends
        fields.Dashes(linetype);
    }
};

template <>
struct FieldsOf<database::TextStyleData> {
    static constexpr std::string_view kTable = "STYLE";
    template <class Fields, class Data>
    static void Map(Fields& fields, Data& style) {
        fields.Subclass("AcDbTextStyleTableRecord");
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
struct FieldsOf<database::RegAppData> {
    static constexpr std::string_view kTable = "APPID";
    template <class Fields, class Data>
    static void Map(Fields& fields, Data& application) {
        fields.Subclass("AcDbRegAppTableRecord");
        fields.RecordName(application);
    }
};

template <>
struct FieldsOf<database::DimStyleData> {
    static constexpr std::string_view kTable = "DIMSTYLE";
    template <class Fields, class Data>
    static void Map(Fields& fields, Data& style) {
        fields.Subclass("AcDbDimStyleTableRecord");
        fields.RecordName(style);
    }
};

template <>
struct FieldsOf<database::ViewData> {
    static constexpr std::string_view kTable = "VIEW";
    template <class Fields, class Data>
    static void Map(Fields& fields, Data& view) {
        fields.Subclass("AcDbViewTableRecord");
        fields.RecordName(view);
    }
};

template <>
struct FieldsOf<database::UcsData> {
    static constexpr std::string_view kTable = "UCS";
    template <class Fields, class Data>
    static void Map(Fields& fields, Data& ucs) {
        fields.Subclass("AcDbUCSTableRecord");
        fields.RecordName(ucs);
    }
};

template <>
struct FieldsOf<database::ViewportData> {
    static constexpr std::string_view kTable = "VPORT";
    template <class Fields, class Data>
    static void Map(Fields& fields, Data& viewport) {
        fields.Subclass("AcDbViewportTableRecord");
        fields.RecordName(viewport);
        fields.Short(77, viewport.snapStyle);
        fields.Short(78, viewport.snapPair);
    }
};

template <>
struct FieldsOf<database::BlockRecordData> {
    static constexpr std::string_view kTable = "BLOCK_RECORD";
    template <class Fields, class Data>
    static void Map(Fields& fields, Data& record) {
        fields.Subclass("AcDbBlockTableRecord");
        fields.RepeatedName(2, record);  // its flags belong to the block's beginning
        fields.Reference(340, record.layout);
    }
};

// What the BLOCK of a block record holds below the members of every entity.
template <class Fields, class Data>
void BlockBeginFields(Fields& fields, Data& record) {
    fields.Subclass("AcDbBlockBegin");
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
