#include "frame/drawing_display.h"

#include <dbents.h>
#include <dbmtext.h>
#include <dbobjptr.h>
#include <dbpl.h>
#include <dbsymtb.h>

#include <acutmem.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <numbers>

#include "frame/drawing_text.h"
#include "frame/placement.h"

namespace frame {

namespace {

constexpr int kDeepestBlock = 16;
constexpr std::size_t kMostShapes = 3'000'000;
constexpr std::size_t kMostDashes = 4000;       // in one stroke; more would not be told from a line
constexpr std::size_t kMostInstances = 10'000;  // of a block reference in rows and columns
constexpr int kByBlock = 0;
constexpr int kByLayer = 256;
constexpr double kFullCircle = 2 * std::numbers::pi;

struct Layer {
    bool visible = true;
    int color = 7;
    AcDbObjectId linetype;
};

// What an entity takes from the block reference that it is seen through.
struct Inherited {
    Placement placement;
    Layer layer;  // of the reference, for entities on layer 0
    bool inBlock = false;
    int color = 7;
    AcDbObjectId linetype;
    int depth = 0;
};

using Pattern = std::vector<double>;

std::wstring TakeText(ACHAR* text) {
    std::wstring copy = text == nullptr ? L"" : text;
    acutDelString(text);
    return copy;
}

WorldPoint Flat(const AcGePoint3d& point) {
    return {point.x, point.y};
}

class DisplayBuilder {
  public:
    DisplayBuilder(AcDbDatabase* drawing, std::size_t mostEntities, DisplayList& list)
        : m_drawing(drawing), m_list(list), m_entitiesLeft(mostEntities) {}

    void AddModelSpace();

  private:
    struct Look {
        int color;
        AcDbObjectId linetype;
        double linetypeScale;
    };

    void AddBlock(AcDbObjectId blockId, const Inherited& inherited);
    void AddEntity(AcDbEntity* entity, const Inherited& inherited);
    bool AddCurve(AcDbEntity* entity, const Inherited& inherited, const Look& look);
    void AddReference(AcDbBlockReference* reference, const Inherited& inherited, const Look& look,
                      const Layer& layer);
    void AddAttributes(AcDbBlockReference* reference, const Inherited& inherited);
    void AddText(const AcDbText* text, const Inherited& inherited, const Look& look);
    void AddParagraphs(const AcDbMText* text, const Inherited& inherited, const Look& look);
    void AddPolyline(const AcDbPolyline* polyline, const Inherited& inherited, const Look& look);
    void AddOldPolyline(const AcDb2dPolyline* polyline, const Inherited& inherited, const Look& look);
    void AddStroke(const std::vector<WorldPoint>& points, const Inherited& inherited, const Look& look);

    const Layer& LayerOf(AcDbObjectId id);
    const Pattern& PatternOf(AcDbObjectId id);
    // Blocks that hold nothing but blocks make no shapes and still multiply.
    bool Full() const { return m_entitiesLeft == 0 || m_list.ShapeCount() >= kMostShapes; }

    AcDbDatabase* m_drawing;
    DisplayList& m_list;
    std::size_t m_entitiesLeft;
    std::map<AcDbObjectId, Layer> m_layers;
    std::map<AcDbObjectId, Pattern> m_patterns;
};

void DisplayBuilder::AddModelSpace() {
    AcDbBlockTable* blocks = nullptr;
    if (m_drawing->getBlockTable(blocks, AcDb::kForRead) != Acad::eOk) return;
    AcDbObjectId modelSpace;
    const Acad::ErrorStatus found = blocks->getAt(ACDB_MODEL_SPACE, modelSpace);
    blocks->close();
    if (found == Acad::eOk) AddBlock(modelSpace, Inherited());
}

void DisplayBuilder::AddBlock(AcDbObjectId blockId, const Inherited& inherited) {
    std::unique_ptr<AcDbBlockTableRecordIterator> entities;
    {
        AcDbObjectPointer<AcDbBlockTableRecord> block(blockId);
        AcDbBlockTableRecordIterator* iterator = nullptr;
        if (block.openStatus() != Acad::eOk || block->newIterator(iterator) != Acad::eOk) return;
        entities.reset(iterator);
    }
    for (; !entities->done() && !Full(); entities->step()) {
        --m_entitiesLeft;
        AcDbEntity* entity = nullptr;
        if (entities->getEntity(entity, AcDb::kForRead) != Acad::eOk) continue;
        AddEntity(entity, inherited);
        entity->close();
    }
}

const Layer& DisplayBuilder::LayerOf(AcDbObjectId id) {
    const auto known = m_layers.find(id);
    if (known != m_layers.end()) return known->second;
    Layer layer;
    AcDbObjectPointer<AcDbLayerTableRecord> record(id);
    if (record.openStatus() == Acad::eOk) {
        layer.color = std::abs(record->colorIndex());
        layer.visible = !record->isOff() && !record->isFrozen();
        layer.linetype = record->linetypeObjectId();
    }
    return m_layers.emplace(id, layer).first->second;
}

const Pattern& DisplayBuilder::PatternOf(AcDbObjectId id) {
    const auto known = m_patterns.find(id);
    if (known != m_patterns.end()) return known->second;
    Pattern pattern;
    AcDbObjectPointer<AcDbLinetypeTableRecord> record(id);
    if (record.openStatus() == Acad::eOk) {
        for (int i = 0; i < record->numDashes(); ++i)
            pattern.push_back(record->dashLengthAt(i));
    }
    return m_patterns.emplace(id, pattern).first->second;
}

void DisplayBuilder::AddEntity(AcDbEntity* entity, const Inherited& inherited) {
    const bool followsReference = inherited.inBlock && entity->layerId() == m_drawing->layerZero();
    const Layer layer = followsReference ? inherited.layer : LayerOf(entity->layerId());
    if (!layer.visible || entity->visibility() == AcDb::kInvisible) return;

    Look look{entity->colorIndex(), entity->linetypeId(), entity->linetypeScale()};
    if (look.color == kByLayer) look.color = layer.color;
    if (look.color == kByBlock) look.color = inherited.color;
    if (look.linetype == m_drawing->byLayerLinetype()) look.linetype = layer.linetype;
    if (look.linetype == m_drawing->byBlockLinetype()) look.linetype = inherited.linetype;

    if (AddCurve(entity, inherited, look)) return;
    if (const auto* definition = AcDbAttributeDefinition::cast(entity)) {
        // Seen through a reference, its place is taken by the reference's own attribute.
        if (!inherited.inBlock) AddText(definition, inherited, look);
    } else if (const auto* text = AcDbText::cast(entity)) {
        AddText(text, inherited, look);
    } else if (const auto* paragraphs = AcDbMText::cast(entity)) {
        AddParagraphs(paragraphs, inherited, look);
    } else if (auto* reference = AcDbBlockReference::cast(entity)) {
        AddReference(reference, inherited, look, layer);
    } else if (const auto* solid = AcDbSolid::cast(entity)) {
        std::vector<WorldPoint> corners;
        for (const Adesk::UInt16 index : {0, 1, 3, 2}) {
            AcGePoint3d corner;
            if (solid->getPointAt(index, corner) == Acad::eOk)
                corners.push_back(inherited.placement.Apply(Flat(corner)));
        }
        m_list.AddFilled(corners, static_cast<std::uint8_t>(look.color));
    }
}

bool DisplayBuilder::AddCurve(AcDbEntity* entity, const Inherited& inherited, const Look& look) {
    if (const auto* line = AcDbLine::cast(entity)) {
        AddStroke({Flat(line->startPoint()), Flat(line->endPoint())}, inherited, look);
    } else if (const auto* circle = AcDbCircle::cast(entity)) {
        AddStroke(ArcPoints(Flat(circle->center()), circle->radius(), 0, kFullCircle, circle->normal().z < 0),
                  inherited, look);
    } else if (const auto* arc = AcDbArc::cast(entity)) {
        double end = arc->endAngle();
        while (end < arc->startAngle())
            end += kFullCircle;
        AddStroke(ArcPoints(Flat(arc->center()), arc->radius(), arc->startAngle(), end, arc->normal().z < 0),
                  inherited, look);
    } else if (const auto* ellipse = AcDbEllipse::cast(entity)) {
        AddStroke(EllipsePoints(Flat(ellipse->center()), {ellipse->majorAxis().x, ellipse->majorAxis().y},
                                ellipse->normal().z < 0 ? -ellipse->radiusRatio() : ellipse->radiusRatio(),
                                ellipse->startParam(), ellipse->endParam()),
                  inherited, look);
    } else if (const auto* polyline = AcDbPolyline::cast(entity)) {
        AddPolyline(polyline, inherited, look);
    } else if (const auto* oldPolyline = AcDb2dPolyline::cast(entity)) {
        AddOldPolyline(oldPolyline, inherited, look);
    } else if (const auto* point = AcDbPoint::cast(entity)) {
        m_list.AddStroke({inherited.placement.Apply(Flat(point->position()))},
                         static_cast<std::uint8_t>(look.color));
    } else {
        return false;
    }
    return true;
}

void DisplayBuilder::AddStroke(const std::vector<WorldPoint>& points, const Inherited& inherited,
                               const Look& look) {
    const auto color = static_cast<std::uint8_t>(look.color);
    const Pattern& pattern = PatternOf(look.linetype);
    if (pattern.empty()) {
        std::vector<WorldPoint> placed;
        placed.reserve(points.size());
        for (const WorldPoint& point : points)
            placed.push_back(inherited.placement.Apply(point));
        m_list.AddStroke(placed, color);
        return;
    }
    for (std::vector<WorldPoint>& dash : Dashes(points, pattern, look.linetypeScale, kMostDashes)) {
        for (WorldPoint& point : dash)
            point = inherited.placement.Apply(point);
        m_list.AddStroke(dash, color);
    }
}

void DisplayBuilder::AddPolyline(const AcDbPolyline* polyline, const Inherited& inherited, const Look& look) {
    std::vector<PolylineVertex> vertices(polyline->numVerts());
    for (unsigned int i = 0; i < vertices.size(); ++i) {
        AcGePoint3d point;
        double ignoredEnd = 0;
        if (polyline->getPointAt(i, point) != Acad::eOk ||
            polyline->getBulgeAt(i, vertices[i].bulge) != Acad::eOk ||
            polyline->getWidthsAt(i, vertices[i].width, ignoredEnd) != Acad::eOk)
            return;
        vertices[i].point = Flat(point);
    }
    const std::vector<WorldPoint> path = PolylinePoints(vertices, polyline->isClosed());
    AddStroke(path, inherited, look);
    if (vertices.empty() || !(vertices[0].width > 0)) return;
    for (std::vector<WorldPoint>& piece : WidePieces(path, vertices[0].width)) {
        for (WorldPoint& corner : piece)
            corner = inherited.placement.Apply(corner);
        m_list.AddFilled(piece, static_cast<std::uint8_t>(look.color));
    }
}

void DisplayBuilder::AddOldPolyline(const AcDb2dPolyline* polyline, const Inherited& inherited,
                                    const Look& look) {
    std::vector<PolylineVertex> vertices;
    const std::unique_ptr<AcDbObjectIterator> ids(polyline->vertexIterator());
    for (; ids != nullptr && !ids->done(); ids->step()) {
        AcDbObjectPointer<AcDb2dVertex> vertex(ids->objectId());
        if (vertex.openStatus() == Acad::eOk)
            vertices.push_back({Flat(vertex->position()), vertex->bulge(), 0});
    }
    AddStroke(PolylinePoints(vertices, polyline->isClosed()), inherited, look);
}

void DisplayBuilder::AddReference(AcDbBlockReference* reference, const Inherited& inherited, const Look& look,
                                  const Layer& layer) {
    if (inherited.depth >= kDeepestBlock) return;
    AddAttributes(reference, inherited);

    WorldPoint origin;
    {
        AcDbObjectPointer<AcDbBlockTableRecord> block(reference->blockTableRecord());
        if (block.openStatus() != Acad::eOk) return;
        origin = Flat(block->origin());
    }
    std::size_t columns = 1, rows = 1;
    double columnSpacing = 0, rowSpacing = 0;
    if (const auto* repeated = AcDbMInsertBlock::cast(reference)) {
        columns = std::max<std::size_t>(repeated->columns(), 1);
        rows = std::max<std::size_t>(repeated->rows(), 1);
        columnSpacing = repeated->columnSpacing();
        rowSpacing = repeated->rowSpacing();
    }
    const Placement base = inherited.placement.Then(
        Placement::Reference(Flat(reference->position()), reference->rotation(), reference->normal().z < 0));
    for (std::size_t i = 0; i < std::min(columns * rows, kMostInstances) && !Full(); ++i) {
        Inherited inside;
        inside.placement = base.Then(Placement::Instance(
            {static_cast<double>(i % columns) * columnSpacing, static_cast<double>(i / columns) * rowSpacing},
            reference->scaleFactors().sx, reference->scaleFactors().sy, origin));
        inside.layer = layer;
        inside.inBlock = true;
        inside.color = look.color;
        inside.linetype = look.linetype;
        inside.depth = inherited.depth + 1;
        AddBlock(reference->blockTableRecord(), inside);
    }
}

void DisplayBuilder::AddAttributes(AcDbBlockReference* reference, const Inherited& inherited) {
    const std::unique_ptr<AcDbObjectIterator> ids(reference->attributeIterator());
    for (; ids != nullptr && !ids->done(); ids->step()) {
        AcDbObjectPointer<AcDbAttribute> attribute(ids->objectId());
        if (attribute.openStatus() == Acad::eOk && !attribute->isInvisible())
            AddEntity(attribute.object(), inherited);
    }
}

void DisplayBuilder::AddText(const AcDbText* text, const Inherited& inherited, const Look& look) {
    const AcDb::TextHorzMode across = text->horizontalMode();
    const AcDb::TextVertMode along = text->verticalMode();
    const bool stretched = across == AcDb::kTextAlign || across == AcDb::kTextFit;
    const bool plain = stretched || (across == AcDb::kTextLeft && along == AcDb::kTextBase);

    DisplayText shown;
    const ACHAR* content = text->textStringConst();
    shown.text = PlainLine(content == nullptr ? L"" : content);
    shown.at = inherited.placement.Apply(Flat(plain ? text->position() : text->alignmentPoint()));
    shown.height = text->height() * inherited.placement.HeightFactor();
    shown.rotation = inherited.placement.TurnedAngle(text->rotation());
    shown.widthFactor = text->widthFactor();
    shown.color = static_cast<std::uint8_t>(look.color);
    if (!stretched) {
        if (across == AcDb::kTextCenter || across == AcDb::kTextMid) shown.align = TextAlign::kCenter;
        if (across == AcDb::kTextRight) shown.align = TextAlign::kRight;
        if (along == AcDb::kTextBottom) shown.level = TextLevel::kBottom;
        if (along == AcDb::kTextVertMid || across == AcDb::kTextMid) shown.level = TextLevel::kMiddle;
        if (along == AcDb::kTextTop) shown.level = TextLevel::kTop;
    }
    m_list.AddText(std::move(shown));
}

void DisplayBuilder::AddParagraphs(const AcDbMText* text, const Inherited& inherited, const Look& look) {
    constexpr double kLineDistance = 5.0 / 3.0;  // of the text height
    const std::vector<std::wstring> lines = PlainParagraphs(TakeText(text->contents()));
    const int place = std::clamp(text->attachment(), 1, 9) - 1;
    const double height = text->textHeight();
    const double block = height + kLineDistance * height * static_cast<double>(lines.size() - 1);
    const double top = place / 3 == 0 ? 0 : place / 3 == 1 ? block / 2 : block;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const double down = top - height - kLineDistance * height * static_cast<double>(i);
        const WorldPoint at{text->location().x - down * std::sin(text->rotation()),
                            text->location().y + down * std::cos(text->rotation())};
        DisplayText shown;
        shown.text = lines[i];
        shown.at = inherited.placement.Apply(at);
        shown.height = height * inherited.placement.HeightFactor();
        shown.rotation = inherited.placement.TurnedAngle(text->rotation());
        shown.color = static_cast<std::uint8_t>(look.color);
        shown.align = place % 3 == 0   ? TextAlign::kLeft
                      : place % 3 == 1 ? TextAlign::kCenter
                                       : TextAlign::kRight;
        m_list.AddText(std::move(shown));
    }
}

}  // namespace

DisplayList BuildDisplayList(AcDbDatabase* drawing, std::size_t mostEntities) {
    DisplayList list;
    if (drawing != nullptr) DisplayBuilder(drawing, mostEntities, list).AddModelSpace();
    list.Finish();
    return list;
}

}  // namespace frame
