#include "drawing_content.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <set>

#include "database/database_data.h"
#include "drawing_file/dxf_text.h"

using namespace workbench;
using database::DataAs;

namespace {

// Carets and control characters stay escaped, so that a text is one line; backslashes do not.
std::string Utf8(std::wstring_view text) {
    constexpr std::string_view kBackslash = "\\U+005C";
    std::string bytes = drawing_file::EncodeText(text, drawing_file::Encoding::kUtf8);
    for (auto at = bytes.find(kBackslash); at != bytes.npos; at = bytes.find(kBackslash, at + 1)) {
        bytes.replace(at, kBackslash.size(), "\\");
    }
    return bytes;
}

std::string Number(double value) {
    char buffer[64];
    // Values that round to zero lose their sign, as they do in the other description.
    if (std::abs(value) < 5e-7) value = 0;
    std::snprintf(buffer, sizeof buffer, "%.6f", value);
    return buffer;
}

std::string Degrees(double radians) {
    const double degrees = std::fmod(radians * 180 / M_PI, 360.0);
    return Number(degrees < -5e-7 ? degrees + 360 : degrees);
}

std::string Point(const AcGePoint3d& point) {
    return "(" + Number(point.x) + " " + Number(point.y) + " " + Number(point.z) + ")";
}

std::string Name(const AcDbStub* record, const char* fallback) {
    const auto* data = DataAs<database::RecordData>(record);
    return data != nullptr && !record->erased ? Utf8(data->name) : fallback;
}

std::string Item(const database::DataItem& item) {
    std::string text = std::to_string(item.code) + "=";
    if (const auto* words = std::get_if<std::wstring>(&item.value)) return text + Utf8(*words);
    if (const auto* real = std::get_if<double>(&item.value)) return text + Number(*real);
    if (const auto* point = std::get_if<AcGePoint3d>(&item.value)) return text + Point(*point);
    char buffer[32];
    if (const auto* bytes = std::get_if<database::Bytes>(&item.value)) {
        for (const auto byte : *bytes) {
            std::snprintf(buffer, sizeof buffer, "%02X", byte);
            text += buffer;
        }
        return text;
    }
    const auto number = std::get<std::int64_t>(item.value);
    const AcDb::DwgDataType type = acdbGroupCodeToType(item.code);
    const bool isHandle =
        type == AcDb::kDwgHandle || (type >= AcDb::kDwgHardOwnershipId && type <= AcDb::kDwgSoftPointerId);
    std::snprintf(buffer, sizeof buffer, isHandle ? "%llX" : "%lld", static_cast<long long>(number));
    return text + buffer;
}

std::string Items(const std::string& indent, const database::DataItems& items) {
    std::string text;
    for (const auto& item : items)
        text += indent + Item(item) + "\n";
    return text;
}

std::string TextOf(const database::TextData& text) {
    return " at=" + Point(text.position) + " height=" + Number(text.height) +
           " rotation=" + Degrees(text.rotation) + " width=" + Number(text.widthFactor) +
           " align=" + std::to_string(text.horizontal) + "," + std::to_string(text.vertical) +
           " style=" + Name(text.style, "Standard") + " text=" + Utf8(text.text);
}

std::string Geometry(const database::EntityData& entity);

std::string LineOf(const database::EntityData& entity) {
    return " layer=" + Name(entity.layer, "0") + " color=" + std::to_string(entity.color) +
           " linetype=" + Name(entity.linetype, "BYLAYER") + "\n";
}

std::string Parts(const std::vector<AcDbStub*>& parts) {
    std::string text;
    for (const AcDbStub* part : parts) {
        if (part->erased) continue;
        const auto* entity = DataAs<database::EntityData>(part);
        text += "    " + Geometry(*entity) + LineOf(*entity) + Items("      ", entity->xdata);
    }
    return text;
}

std::string Geometry(const database::EntityData& entity) {
    if (const auto* line = dynamic_cast<const database::LineData*>(&entity)) {
        return "LINE " + Point(line->start) + " " + Point(line->end);
    }
    if (const auto* point = dynamic_cast<const database::PointData*>(&entity)) {
        return "POINT " + Point(point->position);
    }
    if (const auto* circle = dynamic_cast<const database::CircleData*>(&entity)) {
        return "CIRCLE " + Point(circle->center) + " " + Number(circle->radius);
    }
    if (const auto* arc = dynamic_cast<const database::ArcData*>(&entity)) {
        return "ARC " + Point(arc->center) + " " + Number(arc->radius) + " " + Degrees(arc->startAngle) +
               " " + Degrees(arc->endAngle);
    }
    if (const auto* ellipse = dynamic_cast<const database::EllipseData*>(&entity)) {
        const auto& axis = ellipse->majorAxis;
        return "ELLIPSE " + Point(ellipse->center) + " " + Point({axis.x, axis.y, axis.z}) + " " +
               Number(ellipse->ratio) + " " + Number(ellipse->startParam) + " " + Number(ellipse->endParam);
    }
    if (const auto* solid = dynamic_cast<const database::SolidData*>(&entity)) {
        std::string text = solid->isTrace ? "TRACE" : "SOLID";
        for (const auto& corner : solid->corners)
            text += " " + Point(corner);
        return text;
    }
    if (const auto* polyline = dynamic_cast<const database::PolylineData*>(&entity)) {
        std::string text = "LWPOLYLINE " + std::to_string(polyline->flags);
        for (const auto& vertex : polyline->vertices) {
            text += " (" + Number(vertex.point.x) + " " + Number(vertex.point.y) + " " +
                    Number(vertex.startWidth) + " " + Number(vertex.endWidth) + " " + Number(vertex.bulge) +
                    ")";
        }
        return text;
    }
    if (const auto* attribute = dynamic_cast<const database::AttributeData*>(&entity)) {
        return "ATTRIB " + Utf8(attribute->tag) + " flags=" + std::to_string(attribute->flags) +
               TextOf(*attribute);
    }
    if (const auto* definition = dynamic_cast<const database::AttributeDefinitionData*>(&entity)) {
        return "ATTDEF " + Utf8(definition->tag) + " flags=" + std::to_string(definition->flags) +
               " prompt=" + Utf8(definition->prompt) + TextOf(*definition);
    }
    if (const auto* text = dynamic_cast<const database::TextData*>(&entity)) return "TEXT" + TextOf(*text);
    if (const auto* text = dynamic_cast<const database::MTextData*>(&entity)) {
        return "MTEXT at=" + Point(text->location) + " height=" + Number(text->height) +
               " attachment=" + std::to_string(text->attachment) + " text=" + Utf8(text->text);
    }
    if (const auto* reference = dynamic_cast<const database::BlockReferenceData*>(&entity)) {
        const auto& scale = reference->scale;
        return "INSERT " + Name(reference->block, "?") + " at=" + Point(reference->position) +
               " scale=" + Point({scale.sx, scale.sy, scale.sz}) +
               " rotation=" + Degrees(reference->rotation);
    }
    if (const auto* vertex = dynamic_cast<const database::VertexData*>(&entity)) {
        return "VERTEX " + Point(vertex->position) + " bulge=" + Number(vertex->bulge) +
               " flags=" + std::to_string(vertex->flags);
    }
    if (const auto* polyline = dynamic_cast<const database::HeavyPolylineData*>(&entity)) {
        return "POLYLINE flags=" + std::to_string(polyline->flags);
    }
    return Utf8(dynamic_cast<const database::ProxyEntityData&>(entity).dxfName);
}

std::string Entity(const database::EntityData& entity) {
    std::string text = "  " + Geometry(entity) + LineOf(entity) + Items("    ", entity.xdata);
    if (const auto* reference = dynamic_cast<const database::BlockReferenceData*>(&entity)) {
        text += Parts(reference->attributes);
    }
    if (const auto* polyline = dynamic_cast<const database::HeavyPolylineData*>(&entity)) {
        text += Parts(polyline->vertices);
    }
    return text;
}

std::string Block(const database::BlockRecordData& block) {
    std::string text = "BLOCK " + Utf8(block.name) + " origin=" + Point(block.origin) + "\n" +
                       Items("  xdata ", block.xdata);
    for (const AcDbStub* stub : block.entities) {
        const auto* reference = DataAs<database::BlockReferenceData>(stub);
        if (stub->erased || (reference != nullptr && reference->block->erased)) continue;
        text += Entity(*DataAs<database::EntityData>(stub));
    }
    return text;
}

// `depth` ends at dictionaries that contain themselves.
std::string Dictionary(const std::string& indent, const database::DictionaryData& dictionary, int depth) {
    std::map<std::string, const AcDbStub*> sorted;
    for (const auto& entry : dictionary.entries) {
        if (!entry.stub->erased) sorted[Utf8(entry.name)] = entry.stub;
    }
    std::string text;
    for (const auto& [name, stub] : sorted) {
        text += indent + name;
        if (const auto* xrecord = DataAs<database::XrecordData>(stub)) {
            text += ": XRECORD\n" + Items(indent + "  ", xrecord->items);
        } else if (const auto* inner = DataAs<database::DictionaryData>(stub);
                   inner != nullptr && depth > 0) {
            text += ": " + Utf8(inner->dxfName) + "\n" + Dictionary(indent + "  ", *inner, depth - 1);
        } else if (const auto* proxy = DataAs<database::ProxyObjectData>(stub)) {
            text += ": " + Utf8(proxy->dxfName) + "\n";
        } else {
            text += ": ?\n";
        }
    }
    return text;
}

template <class Data>
std::vector<const Data*> SortedRecords(const AcDbStub* table) {
    std::vector<const Data*> records;
    for (const AcDbStub* stub : DataAs<database::TableData>(table)->records) {
        if (!stub->erased) records.push_back(DataAs<Data>(stub));
    }
    std::sort(records.begin(), records.end(),
              [](const Data* a, const Data* b) { return Utf8(a->name) < Utf8(b->name); });
    return records;
}

// The names that are registered, and those that are not any more but have data.
std::set<std::string> Applications(const AcDbImpDatabase& drawing) {
    std::set<std::string> names;
    for (const auto* application : SortedRecords<database::RegAppData>(drawing.regAppTable))
        names.insert(Utf8(application->name));
    for (const AcDbStub& stub : drawing.stubs) {
        if (stub.object == nullptr || stub.erased) continue;
        for (const database::DataItem& item : stub.data->xdata) {
            if (item.code == database::kApplicationNameCode)
                names.insert(Utf8(std::get<std::wstring>(item.value)));
        }
    }
    return names;
}

}  // namespace

std::string DescribeContent(const AcDbDatabase& drawing) {
    constexpr int kDeepestDictionary = 8;
    const AcDbImpDatabase& data = database::DataOf(drawing);
    std::string text;
    for (const auto* layer : SortedRecords<database::LayerData>(data.layerTable)) {
        text += "LAYER " + Utf8(layer->name) + " color=" + std::to_string(layer->color) +
                " linetype=" + Name(layer->linetype, "Continuous") + "\n" + Items("  xdata ", layer->xdata);
    }
    for (const auto* linetype : SortedRecords<database::LinetypeData>(data.linetypeTable)) {
        text += "LTYPE " + Utf8(linetype->name);
        for (const double length : linetype->dashes)
            text += " " + Number(length);
        text += "\n";
    }
    for (const auto* style : SortedRecords<database::TextStyleData>(data.textStyleTable)) {
        text += "STYLE " + Utf8(style->name) + " font=" + Utf8(style->font) + "\n";
    }
    for (const std::string& application : Applications(data))
        text += "APPID " + application + "\n";
    for (const auto* block : SortedRecords<database::BlockRecordData>(data.blockTable))
        text += Block(*block);
    text += "OBJECTS\n";
    return text + Dictionary("  ", *DataAs<database::DictionaryData>(data.namedObjects), kDeepestDictionary);
}
