// What the drawing database keeps of each object. The classes of the host interface are the outside of these.
//
// For code that reads and writes whole drawings: make objects with Builder (builder.h), fill these structs,
// and write them out by walking AcDbImpDatabase::stubs. Nothing here looks at open modes or locks.
//
// Each struct names the class that wraps it as `Object`. Members that a struct does not have stand in
// `extra`: raw groups in file order, with the subclass markers (100) before the groups that need them to be
// told apart. Groups that have a member never stand in `extra`.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "dbdict.h"
#include "dbents.h"
#include "dbmtext.h"
#include "dbpl.h"
#include "dbproxy.h"
#include "dbsymtb.h"
#include "dbxrecrd.h"
#include "group_data.h"
#include "stub.h"

struct AcDbImpObject {
    AcDbImpObject() = default;
    virtual ~AcDbImpObject() = default;
    AcDbImpObject(const AcDbImpObject&) = delete;
    AcDbImpObject& operator=(const AcDbImpObject&) = delete;

    AcDbStub* stub = nullptr;  // null until the object is in a database
    AcDbStub* owner = nullptr;
    AcDbStub* extensionDictionary = nullptr;
    std::vector<AcDbStub*> reactors;  // persistent ones, the group ACAD_REACTORS
    workbench::database::DataItems xdata;
    workbench::database::RawGroups extra;
};

namespace workbench::database {

struct EntityData : AcDbImpObject {
    AcDbStub* layer = nullptr;     // null: layer 0
    AcDbStub* linetype = nullptr;  // null: by layer
    std::int16_t color = 256;      // negative never; 0 by block, 256 by layer
    std::int16_t lineweight = -1;  // hundredths of a millimetre; -1 by layer, -2 by block, -3 default
    bool invisible = false;
    double linetypeScale = 1;
};

struct LineData : EntityData {
    using Object = AcDbLine;
    AcGePoint3d start, end;
    AcGeVector3d normal{0, 0, 1};
    double thickness = 0;
};

struct PointData : EntityData {
    using Object = AcDbPoint;
    AcGePoint3d position;
    AcGeVector3d normal{0, 0, 1};
    double thickness = 0;
};

struct CircleData : EntityData {
    using Object = AcDbCircle;
    AcGePoint3d center;
    AcGeVector3d normal{0, 0, 1};
    double radius = 1;
    double thickness = 0;
};

struct ArcData : EntityData {
    using Object = AcDbArc;
    AcGePoint3d center;
    AcGeVector3d normal{0, 0, 1};
    double radius = 1;
    double thickness = 0;
    double startAngle = 0, endAngle = 0;  // radians; files have degrees
};

struct EllipseData : EntityData {
    using Object = AcDbEllipse;
    AcGePoint3d center;
    AcGeVector3d majorAxis{1, 0, 0};
    AcGeVector3d normal{0, 0, 1};
    double ratio = 1;
    double startParam = 0, endParam = 6.28318530717958647692;
};

// SOLID and TRACE.
struct SolidData : EntityData {
    using Object = AcDbSolid;
    AcGePoint3d corners[4];
    AcGeVector3d normal{0, 0, 1};
    double thickness = 0;
    bool isTrace = false;
};

struct PolylineVertex {
    AcGePoint2d point;
    double bulge = 0, startWidth = 0, endWidth = 0;
};

// LWPOLYLINE.
struct PolylineData : EntityData {
    using Object = AcDbPolyline;
    std::vector<PolylineVertex> vertices;
    std::int16_t flags = 0;  // 1 closed, 128 linetype goes on through the vertices
    double constantWidth = 0, elevation = 0, thickness = 0;
    AcGeVector3d normal{0, 0, 1};
};

// VERTEX. What the kinds of polyline add stands in `extra`.
struct VertexData : EntityData {
    using Object = AcDb2dVertex;
    AcGePoint3d position;
    double startWidth = 0, endWidth = 0, bulge = 0;
    std::int16_t flags = 0;
};

// POLYLINE of every kind; `flags` tells which.
struct HeavyPolylineData : EntityData {
    using Object = AcDb2dPolyline;
    std::vector<AcDbStub*> vertices;
    AcDbStub* sequenceEnd = nullptr;
    std::int16_t flags = 0;
    double startWidth = 0, endWidth = 0, elevation = 0, thickness = 0;
    AcGeVector3d normal{0, 0, 1};
};

struct TextData : EntityData {
    using Object = AcDbText;
    AcGePoint3d position, alignmentPoint;
    AcGeVector3d normal{0, 0, 1};
    double height = 1, rotation = 0, widthFactor = 1, oblique = 0, thickness = 0;  // radians
    std::int16_t horizontal = 0, vertical = 0, generation = 0;  // 72, 73 (74 in attributes), 71
    std::wstring text;
    AcDbStub* style = nullptr;  // null: Standard
};

// ATTRIB.
struct AttributeData : TextData {
    using Object = AcDbAttribute;
    std::wstring tag;
    std::int16_t flags = 0;  // 1 invisible, 2 constant, 4 verify, 8 preset
    std::int16_t fieldLength = 0;
};

// ATTDEF.
struct AttributeDefinitionData : TextData {
    using Object = AcDbAttributeDefinition;
    std::wstring tag, prompt;
    std::int16_t flags = 0;
    std::int16_t fieldLength = 0;
};

struct MTextData : EntityData {
    using Object = AcDbMText;
    AcGePoint3d location;
    AcGeVector3d normal{0, 0, 1};
    double height = 1, width = 0, rotation = 0;  // radians (group 50); a direction (group 11) wins over it
    AcGeVector3d direction{0, 0, 0};             // all zero: not given
    std::int16_t attachment = 1, drawingDirection = 5;
    std::wstring text;  // groups 3 and 1 joined
    AcDbStub* style = nullptr;
};

// INSERT.
struct BlockReferenceData : EntityData {
    using Object = AcDbBlockReference;
    AcDbStub* block = nullptr;
    AcGePoint3d position;
    AcGeScale3d scale;
    AcGeVector3d normal{0, 0, 1};
    double rotation = 0;  // radians
    std::vector<AcDbStub*> attributes;
    AcDbStub* sequenceEnd = nullptr;  // a ProxyEntityData; there is one when there are attributes
};

// INSERT with rows or columns.
struct MInsertData : BlockReferenceData {
    using Object = AcDbMInsertBlock;
    std::int16_t columns = 1, rows = 1;
    double columnSpacing = 0, rowSpacing = 0;
};

// Every other entity, and BLOCK, ENDBLK and SEQEND; all but the members above is in `extra`.
struct ProxyEntityData : EntityData {
    using Object = AcDbProxyEntity;
    std::wstring dxfName;
};

struct TableData : AcDbImpObject {
    std::vector<AcDbStub*> records;
    std::unordered_map<std::wstring, AcDbStub*> byName;  // upper-case; the first of equal names
};
struct BlockTableData : TableData {
    using Object = AcDbBlockTable;
};
struct LayerTableData : TableData {
    using Object = AcDbLayerTable;
};
struct LinetypeTableData : TableData {
    using Object = AcDbLinetypeTable;
};
struct TextStyleTableData : TableData {
    using Object = AcDbTextStyleTable;
};
struct RegAppTableData : TableData {
    using Object = AcDbRegAppTable;
};
struct DimStyleTableData : TableData {
    using Object = AcDbDimStyleTable;
};
struct ViewTableData : TableData {
    using Object = AcDbViewTable;
};
struct ViewportTableData : TableData {
    using Object = AcDbViewportTable;
};
struct UcsTableData : TableData {
    using Object = AcDbUCSTable;
};

struct RecordData : AcDbImpObject {
    std::wstring name;
    std::int16_t flags = 0;  // group 70
};

struct BlockRecordData : RecordData {
    using Object = AcDbBlockTableRecord;
    std::vector<AcDbStub*> entities;  // drawing order, erased ones included
    AcDbStub* begin = nullptr;  // BLOCK, a ProxyEntityData; its groups 10, 1 and 4 stand below, 70 in `flags`
    AcDbStub* end = nullptr;    // ENDBLK, a ProxyEntityData
    AcGePoint3d origin;
    std::wstring path;  // of an external reference
    std::wstring description;
    AcDbStub* layout = nullptr;
};

struct LayerData : RecordData {
    using Object = AcDbLayerTableRecord;
    std::int16_t color = 7;  // negative: off
    std::int16_t lineweight = -3;
    bool plottable = true;
    AcDbStub* linetype = nullptr;  // null: Continuous
};

// Dashes of complex linetypes have more groups than lengths: those linetypes keep all from group 73 on in
// `extra` and leave `dashes` empty.
struct LinetypeData : RecordData {
    using Object = AcDbLinetypeTableRecord;
    std::wstring description;
    std::vector<double> dashes;
    double patternLength = 0;
};

struct TextStyleData : RecordData {
    using Object = AcDbTextStyleTableRecord;
    double height = 0, widthFactor = 1, oblique = 0, lastHeight = 2.5;  // radians
    std::int16_t generation = 0;
    std::wstring font, bigFont;
};

struct RegAppData : RecordData {
    using Object = AcDbRegAppTableRecord;
};
struct DimStyleData : RecordData {
    using Object = AcDbDimStyleTableRecord;
};
struct ViewData : RecordData {
    using Object = AcDbViewTableRecord;
};
struct UcsData : RecordData {
    using Object = AcDbUCSTableRecord;
};

struct ViewportData : RecordData {
    using Object = AcDbViewportTableRecord;
    std::int16_t snapStyle = 0;  // group 77
    std::int16_t snapPair = 0;   // group 78
};

struct DictionaryData : AcDbImpObject {
    using Object = AcDbDictionary;
    struct Entry {
        std::wstring name;
        AcDbStub* stub = nullptr;
    };
    std::vector<Entry> entries;                               // order of the file
    std::unordered_map<std::wstring, std::size_t> positions;  // upper-case name to place in `entries`
    bool hard = false;                                        // group 280
    std::int16_t cloning = 1;                                 // group 281
    // ACDBDICTIONARYWDFLT: its groups after the second marker stand in `extra`, and this is its name.
    std::wstring dxfName = L"DICTIONARY";
};

struct XrecordData : AcDbImpObject {
    using Object = AcDbXrecord;
    DataItems items;
    std::int16_t cloning = 1;  // group 280
};

// Every other object.
struct ProxyObjectData : AcDbImpObject {
    using Object = AcDbProxyObject;
    std::wstring dxfName;
};

// Upper case as table and dictionary names compare.
std::wstring UpperCase(std::wstring_view text);

// True for a name that a table takes: 1 to 255 characters, none of < > / \ " : ; ? * | , = ` and no control
// character; anonymous blocks and spaces begin with an asterisk.
bool IsSymbolName(std::wstring_view name);

AcDbImpObject& DataOf(const AcDbObject& object);
inline AcDbImpObject& DataOf(const AcDbStub& stub) {
    return *stub.data;
}

// Null if the object's data is of another kind.
template <class Data>
Data* DataAs(const AcDbStub* stub) {
    return stub == nullptr ? nullptr : dynamic_cast<Data*>(stub->data);
}

}  // namespace workbench::database
