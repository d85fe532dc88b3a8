// The members of entities by group code and subclass, for reading and writing alike: `Fields` is FieldReader
// with an object to fill, or FieldWriter with a constant one.
#pragma once

#include <string_view>

#include "database/object_data.h"

namespace workbench::drawing_file {

inline constexpr AcGeVector3d kUpwards{0, 0, 1};
inline constexpr std::string_view kByLayer = "BYLAYER";

// Flags of polylines (group 70), which also tell their kinds apart.
inline constexpr int kPolylineIs3d = 8;
inline constexpr int kPolylineIsMesh = 16;
inline constexpr int kPolylineIsPolyface = 64;
// Flags of their vertices.
inline constexpr int kVertexIs3d = 32;
inline constexpr int kVertexIsMesh = 64;
inline constexpr int kVertexIsPolyface = 128;

// What all entities have.
template <class Fields, class Data>
void CommonFields(Fields& fields, Data& entity) {
    fields.Subclass("AcDbEntity");
    fields.PaperSpace(entity);
    fields.Layer(entity.layer);
    fields.Linetype(entity.linetype, kByLayer);
    fields.Color(entity.color);
    fields.Short(370, entity.lineweight, std::int16_t{-1});
    fields.Real(48, entity.linetypeScale, 1.0);
    fields.Flag(60, entity.invisible, false);
}

// Specialised for each kind: Name(data) is what stands behind "0", Map names the members.
template <class Data>
struct FieldsOf;

template <>
struct FieldsOf<database::LineData> {
    static std::string_view Name(const database::LineData&) { return "LINE"; }
    template <class Fields, class Data>
    static void Map(Fields& fields, Data& line) {
        fields.Subclass("AcDbLine");
        fields.Real(39, line.thickness, 0.0);
        fields.Point(10, line.start);
        fields.Point(11, line.end);
        fields.Vector(210, line.normal, kUpwards);
    }
};

template <>
struct FieldsOf<database::PointData> {
    static std::string_view Name(const database::PointData&) { return "POINT"; }
    template <class Fields, class Data>
    static void Map(Fields& fields, Data& point) {
        fields.Subclass("AcDbPoint");
        fields.Point(10, point.position);
        fields.Real(39, point.thickness, 0.0);
        fields.Vector(210, point.normal, kUpwards);
    }
};

template <>
struct FieldsOf<database::CircleData> {
    static std::string_view Name(const database::CircleData&) { return "CIRCLE"; }
    template <class Fields, class Data>
    static void Map(Fields& fields, Data& circle) {
        fields.Subclass("AcDbCircle");
        fields.Real(39, circle.thickness, 0.0);
        fields.Point(10, circle.center);
        fields.Real(40, circle.radius);
        fields.Vector(210, circle.normal, kUpwards);
    }
};

template <>
struct FieldsOf<database::ArcData> {
    static std::string_view Name(const database::ArcData&) { return "ARC"; }
    template <class Fields, class Data>
    static void Map(Fields& fields, Data& arc) {
        fields.Subclass("AcDbCircle");
        fields.Real(39, arc.thickness, 0.0);
        fields.Point(10, arc.center);
        fields.Real(40, arc.radius);
        fields.Vector(210, arc.normal, kUpwards);
        fields.Subclass("AcDbArc");
        fields.Angle(50, arc.startAngle);
        fields.Angle(51, arc.endAngle);
    }
};

template <>
struct FieldsOf<database::EllipseData> {
    static std::string_view Name(const database::EllipseData&) { return "ELLIPSE"; }
    template <class Fields, class Data>
    static void Map(Fields& fields, Data& ellipse) {
        fields.Subclass("AcDbEllipse");
        fields.Point(10, ellipse.center);
        fields.Vector(11, ellipse.majorAxis);
        fields.Vector(210, ellipse.normal, kUpwards);
        fields.Real(40, ellipse.ratio);
        fields.Real(41, ellipse.startParam);
        fields.Real(42, ellipse.endParam);
    }
};

template <>
struct FieldsOf<database::SolidData> {
    static std::string_view Name(const database::SolidData& solid) {
        return solid.isTrace ? "TRACE" : "SOLID";
    }
    template <class Fields, class Data>
    static void Map(Fields& fields, Data& solid) {
        fields.Subclass("AcDbTrace");
        fields.Corners(solid.corners);
        fields.Real(39, solid.thickness, 0.0);
        fields.Vector(210, solid.normal, kUpwards);
    }
};

template <>
struct FieldsOf<database::PolylineData> {
    static std::string_view Name(const database::PolylineData&) { return "LWPOLYLINE"; }
    template <class Fields, class Data>
    static void Map(Fields& fields, Data& polyline) {
        fields.Subclass("AcDbPolyline");
        fields.Derived(90, static_cast<std::int64_t>(polyline.vertices.size()));
        fields.Short(70, polyline.flags);
        fields.Real(43, polyline.constantWidth, 0.0);
        fields.Real(38, polyline.elevation, 0.0);
        fields.Real(39, polyline.thickness, 0.0);
        fields.Vector(210, polyline.normal, kUpwards);
        fields.Vertices(polyline.vertices);
    }
};

template <>
struct FieldsOf<database::HeavyPolylineData> {
    static std::string_view Name(const database::HeavyPolylineData&) { return "POLYLINE"; }
    static std::string_view Marker(const database::HeavyPolylineData& polyline) {
        if (polyline.flags & kPolylineIsPolyface) return "AcDbPolyFaceMesh";
        if (polyline.flags & kPolylineIsMesh) return "AcDbPolygonMesh";
        return polyline.flags & kPolylineIs3d ? "AcDb3dPolyline" : "AcDb2dPolyline";
    }
    template <class Fields, class Data>
    static void Map(Fields& fields, Data& polyline) {
        // The marker follows from a flag that stands below it.
        fields.Kind(70, polyline.flags);
        fields.Subclass(Marker(polyline));
        fields.Derived(66, 1);
        fields.Elevation(polyline.elevation);
        fields.Real(39, polyline.thickness, 0.0);
        fields.KindInPlace(70, polyline.flags);
        fields.Real(40, polyline.startWidth, 0.0);
        fields.Real(41, polyline.endWidth, 0.0);
        fields.Vector(210, polyline.normal, kUpwards);
    }
};

template <>
struct FieldsOf<database::VertexData> {
    static std::string_view Name(const database::VertexData&) { return "VERTEX"; }
    static std::string_view Marker(const database::VertexData& vertex) {
        if (vertex.flags & kVertexIsPolyface) {
            return vertex.flags & kVertexIsMesh ? "AcDbPolyFaceMeshVertex" : "AcDbFaceRecord";
        }
        if (vertex.flags & kVertexIsMesh) return "AcDbPolygonMeshVertex";
        return vertex.flags & kVertexIs3d ? "AcDb3dPolylineVertex" : "AcDb2dVertex";
    }
    template <class Fields, class Data>
    static void Map(Fields& fields, Data& vertex) {
        fields.Kind(70, vertex.flags);
        const std::string_view marker = Marker(vertex);
        if (marker != "AcDbFaceRecord") fields.Subclass("AcDbVertex");
        fields.Subclass(marker);
        fields.Point(10, vertex.position);
        fields.Real(40, vertex.startWidth, 0.0);
        fields.Real(41, vertex.endWidth, 0.0);
        fields.Real(42, vertex.bulge, 0.0);
        fields.KindInPlace(70, vertex.flags);
    }
};

// What TEXT, ATTRIB and ATTDEF have below their first marker.
template <class Fields, class Data>
void TextFields(Fields& fields, Data& text) {
    fields.Subclass("AcDbText");
    fields.Real(39, text.thickness, 0.0);
    fields.Point(10, text.position);
    fields.Real(40, text.height);
    fields.Text(1, text.text);
    fields.Angle(50, text.rotation, 0.0);
    fields.Real(41, text.widthFactor, 1.0);
    fields.Angle(51, text.oblique, 0.0);
    fields.TextStyle(text.style);
    fields.Short(71, text.generation, std::int16_t{0});
    fields.Short(72, text.horizontal, std::int16_t{0});
    fields.Point(11, text.alignmentPoint, text.horizontal == 0 && text.vertical == 0);
    fields.Vector(210, text.normal, kUpwards);
}

template <>
struct FieldsOf<database::TextData> {
    static std::string_view Name(const database::TextData&) { return "TEXT"; }
    template <class Fields, class Data>
    static void Map(Fields& fields, Data& text) {
        TextFields(fields, text);
        fields.Subclass("AcDbText");
        fields.Short(73, text.vertical, std::int16_t{0});
    }
};

template <>
struct FieldsOf<database::AttributeData> {
    static std::string_view Name(const database::AttributeData&) { return "ATTRIB"; }
    template <class Fields, class Data>
    static void Map(Fields& fields, Data& attribute) {
        TextFields(fields, attribute);
        fields.Subclass("AcDbAttribute");
        fields.Text(2, attribute.tag);
        fields.Short(70, attribute.flags);
        fields.Short(73, attribute.fieldLength, std::int16_t{0});
        fields.Short(74, attribute.vertical, std::int16_t{0});
    }
};

template <>
struct FieldsOf<database::AttributeDefinitionData> {
    static std::string_view Name(const database::AttributeDefinitionData&) { return "ATTDEF"; }
    template <class Fields, class Data>
    static void Map(Fields& fields, Data& definition) {
        TextFields(fields, definition);
        fields.Subclass("AcDbAttributeDefinition");
        fields.Text(3, definition.prompt);
        fields.Text(2, definition.tag);
        fields.Short(70, definition.flags);
        fields.Short(73, definition.fieldLength, std::int16_t{0});
        fields.Short(74, definition.vertical, std::int16_t{0});
    }
};

template <>
struct FieldsOf<database::MTextData> {
    static std::string_view Name(const database::MTextData&) { return "MTEXT"; }
    template <class Fields, class Data>
    static void Map(Fields& fields, Data& text) {
        fields.Subclass("AcDbMText");
        fields.Point(10, text.location);
        fields.Real(40, text.height);
        fields.Real(41, text.width, 0.0);
        fields.Short(71, text.attachment);
        fields.Short(72, text.drawingDirection);
        fields.Paragraphs(text.text);
        fields.TextStyle(text.style);
        fields.Vector(210, text.normal, kUpwards);
        fields.Vector(11, text.direction, AcGeVector3d());
        fields.Angle(50, text.rotation, 0.0);
    }
};

template <>
struct FieldsOf<database::BlockReferenceData> {
    static std::string_view Name(const database::BlockReferenceData&) { return "INSERT"; }
    template <class Fields, class Data>
    static void Map(Fields& fields, Data& reference) {
        fields.Subclass("AcDbBlockReference");
        fields.AttributesFollow(reference);
        fields.Block(reference.block);
        fields.Point(10, reference.position);
        fields.Scale(reference.scale);
        fields.Angle(50, reference.rotation, 0.0);
        fields.Vector(210, reference.normal, kUpwards);
    }
};

template <>
struct FieldsOf<database::MInsertData> {
    static std::string_view Name(const database::MInsertData&) { return "INSERT"; }
    template <class Fields, class Data>
    static void Map(Fields& fields, Data& reference) {
        fields.Subclass("AcDbMInsertBlock");
        fields.AttributesFollow(reference);
        fields.Block(reference.block);
        fields.Point(10, reference.position);
        fields.Scale(reference.scale);
        fields.Angle(50, reference.rotation, 0.0);
        fields.Short(70, reference.columns, std::int16_t{1});
        fields.Short(71, reference.rows, std::int16_t{1});
        fields.Real(44, reference.columnSpacing, 0.0);
        fields.Real(45, reference.rowSpacing, 0.0);
        fields.Vector(210, reference.normal, kUpwards);
    }
};

template <>
struct FieldsOf<database::ProxyEntityData> {
    static std::string_view Name(const database::ProxyEntityData&) { return {}; }  // stands in its data
    template <class Fields, class Data>
    static void Map(Fields&, Data&) {}
};

}  // namespace workbench::drawing_file
